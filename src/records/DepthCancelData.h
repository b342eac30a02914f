#pragma once

#include "records/DepthExport.h"

#include <cstdint>

namespace Kel {

/// One row of the cancellation list.
struct DEPTH_EXPORT DepthCancelData
{
    std::int32_t time = 0;    ///< seconds since 1970-01-01 UTC
    double price = 0;         ///< yuan, price of the cancel record, shown when the order is unknown
    std::int32_t lots = 0;    ///< shown volume
    std::int64_t volume = 0;  ///< shares
    std::int32_t orderNo = 0; ///< number of the cancelled order
};

} // namespace Kel
