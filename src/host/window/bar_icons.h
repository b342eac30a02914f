#pragma once

#include <QIcon>

/// Pictures of the replay bar and of the panes' titles in the theme's colours, crisp at every scale. GUI
/// thread.
namespace host {

QIcon playIcon();
QIcon pauseIcon();
QIcon floatIcon();
QIcon closeIcon();

} // namespace host
