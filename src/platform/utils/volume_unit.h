#pragma once

#include "records/DepthExport.h"

#include <string>

namespace utils {

/// Shares (or units of face value) in one lot: 10 for what is traded in tens (`isLoan`), for a code of
/// Shenzhen's repurchases whatever the market is, and for Shanghai's repurchases when the market is exactly
/// "SH"; else 100. Any thread.
DEPTH_EXPORT int getVolumeUnit(const std::string& market, const std::string& code);

} // namespace utils
