#pragma once

#include "records/DepthExport.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace Kel {

/// Open and close as milliseconds since midnight at the exchange, in order of the day.
using SessionTimes = std::vector<std::pair<std::int64_t, std::int64_t>>;

/// The sessions of continuous trading of an instrument; the auctions before the open are not counted, the
/// closing auction is. The day sessions only: the night sessions of commodity futures belong to the next
/// trading day and depend on its calendar. Empty for an unknown market. Any thread.
DEPTH_EXPORT SessionTimes tradingSessions(const std::string& market, const std::string& code);

} // namespace Kel
