#pragma once

#include <cstdint>

namespace Kel {

/// The head of the single-level panel.
struct SingleQueue
{
    std::uint8_t isBuy = 0; ///< not zero for the buy side
    std::int64_t time = 0;  ///< milliseconds, time of the queue, compared with the time of each `SingleQuote`
    double price = 0;       ///< yuan
    std::int32_t totalVolume = 0; ///< shares; divided by the volume unit for display
    std::int32_t orderCount = 0;  ///< orders at the level
};

} // namespace Kel
