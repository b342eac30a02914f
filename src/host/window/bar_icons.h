#pragma once

#include <QIcon>

/// Pictures of the replay bar in the theme's colours, crisp at every scale. GUI thread.
namespace host {

QIcon playIcon();
QIcon pauseIcon();

} // namespace host
