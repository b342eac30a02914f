#pragma once

#include <QString>

/// The look of the window around the panels, from the colours of the theme in force. GUI thread.
namespace host {

QString windowStyleSheet();

/// Pixels that suit texts of the usual size, for texts at the size of fonts in force.
int sizeOfText(int pixels);

} // namespace host
