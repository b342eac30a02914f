#pragma once

#include "records/DepthExport.h"

#include <QString>

namespace Kel {

/// Root of the local information files, as the host set it; empty, which means there are none, until then.
/// Any thread.
DEPTH_EXPORT QString getExternalDataDir();
DEPTH_EXPORT void setExternalDataDir(const QString& directory);

} // namespace Kel
