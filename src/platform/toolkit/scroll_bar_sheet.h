#pragma once

#include "records/DepthExport.h"

#include <QString>

namespace Kel {

/// Style sheet of the panels' vertical scroll bars in the colours of the theme in force; set it again after a
/// change of the theme. GUI thread.
DEPTH_EXPORT QString scrollBarSheet();

} // namespace Kel
