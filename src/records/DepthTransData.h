#pragma once

#include "records/DepthExport.h"

#include <cstdint>

namespace Kel {

/// One deal row of the deal list and the chart.
struct DEPTH_EXPORT DepthTransData
{
    std::int32_t time = 0;         ///< deal time tag; key of the chart's time axis
    double price = 0;              ///< yuan
    std::int32_t volume = 0;       ///< lots
    std::int32_t sellNo = 0;       ///< sell order number
    std::int32_t buyNo = 0;        ///< buy order number
    std::int32_t buyPrevious = -1; ///< index of the previous deal of the same buy order, -1 for none
    std::int32_t buyNext = -1;     ///< index of the next deal of the same buy order, -1 for none
    std::int32_t sellPrevious = -1;
    std::int32_t sellNext = -1;
    std::int16_t sellRun = 0;    ///< rows directly before this one in the same run of the sell order
    std::int16_t buyRun = 0;     ///< rows directly before this one in the same run of the buy order
    std::int32_t trend = 0;      ///< 1 up arrow, -1 down arrow, otherwise none
    std::int32_t activeSide = 0; ///< 1 the buyer is active, 2 the seller
    std::uint8_t volumeRise = 0; ///< not zero: volume in the rise colour; zero: in the fall colour
};

} // namespace Kel
