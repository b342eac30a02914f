#pragma once

#include "records/DepthExport.h"

#include <cstdint>

namespace Kel {

/// One order of the single-level panel.
struct DEPTH_EXPORT SingleQuote
{
    std::int64_t time = 0;        ///< milliseconds, time of the order
    std::int32_t volume = 0;      ///< shares
    std::int32_t dealtVolume = 0; ///< shares dealt
    std::int32_t state = 0;       ///< 1: a new order; 2: dealt in part
};

} // namespace Kel
