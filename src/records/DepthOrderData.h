#pragma once

#include "records/DepthExport.h"

#include <cstdint>

namespace Kel {

/// One row of the order list.
struct DEPTH_EXPORT DepthOrderData
{
    std::int32_t time = 0;    ///< seconds since 1970-01-01 UTC
    double price = 0;         ///< yuan
    std::int32_t lots = 0;    ///< shown volume
    std::int64_t volume = 0;  ///< shares; the amount is volume times price
    std::int32_t orderNo = 0; ///< order number, key of the look-ups of orders and deals
    std::int32_t side = 0;    ///< 1 buy, 2 sell
    std::int32_t kind = 0;    ///< 1 for an order whose track can be shown
};

} // namespace Kel
