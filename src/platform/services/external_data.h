#pragma once

#include <QString>

namespace Kel {

/// Root of the local information files, as the host set it; empty, which means there are none, until then.
/// Any thread.
QString getExternalDataDir();
void setExternalDataDir(const QString& directory);

} // namespace Kel
