#pragma once

#include <QString>

/// The look of the window around the panels, from the colours of the theme in force. GUI thread.
namespace host {

QString windowStyleSheet();

} // namespace host
