#pragma once

#include <QString>

namespace Kel {

/// Style sheet of the panels' vertical scroll bars in the colours of the theme in force; set it again after a
/// change of the theme. GUI thread.
QString scrollBarSheet();

} // namespace Kel
