#pragma once

#include "records/DepthExport.h"

#include <cstdint>

namespace Kel {

/// One row of the thousand-level ladder.
struct DEPTH_EXPORT EntrustData
{
    double price = 0;            ///< yuan
    std::int32_t volume = 0;     ///< lots at the price
    std::int32_t change = 0;     ///< lots, change of volume since the last update, drawn with its sign
    std::int32_t orderCount = 0; ///< orders at the price; -1 in the empty row that stands for no data
};

} // namespace Kel
