#pragma once

#include "platform/toolkit/CIndexScrollBar.h"

namespace Kel {

/// A vertical bar of the panels of this folder, hidden, 6 pixels wide, step 1, minimum 0. GUI thread.
CIndexScrollBar* makeScrollBar(QWidget* owner);

/// Gives a bar the colours of the theme in force.
void applyScrollBarSheet(CIndexScrollBar& bar);

} // namespace Kel
