#pragma once

#include "records/DepthExport.h"
#include "records/SingleQuote.h"

#include <cstdint>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace Kel {

/// The head of the single-level panel, with the orders of the level. Shared and never changed after it was
/// handed out, so any thread may read it.
struct DEPTH_EXPORT SingleQueue
{
    std::uint8_t isBuy = 0; ///< not zero for the buy side
    std::int64_t time = 0;  ///< milliseconds, time of the queue, compared with the time of each `SingleQuote`
    double price = 0;       ///< yuan
    std::int32_t totalVolume = 0; ///< shares; divided by the volume unit for display
    std::int32_t orderCount = 0;  ///< orders at the level

    /// The orders with a rest, by number.
    std::vector<std::pair<long long, std::shared_ptr<SingleQuote>>> quotes;

    /// Replaces `result` by the orders keyed by number: walking it is walking in order of arrival.
    void getQuotes(std::map<long long, std::shared_ptr<SingleQuote>>& result) const
    {
        result.clear();
        for (const auto& quote : quotes)
            result.emplace_hint(result.end(), quote);
    }
};

} // namespace Kel
