#pragma once

#include "records/DepthExport.h"

#include <cstdint>

namespace Kel {

/// Which panel a filter is for.
enum eDepthFilterType
{
    eDepthFilterEntrust = 0,     ///< the order and cancel lists
    eDepthFilterTransaction = 1, ///< the deal list
};

/// Which rows a tick list keeps and which size it marks with a colour. Copied by value. `passesFilter` in
/// platform/models/tick_filter.h is the rule; the panels read `mark` and `color` alone.
struct DEPTH_EXPORT SDepthFilterParam
{
    std::int32_t mark = 0;         ///< lots of the rows to mark; 0 marks none
    std::int32_t color = 0;        ///< index of the mark's colour
    std::int32_t com1 = 0;         ///< how `volume` compares: 0 "≥", 1 "＞", 2 "="
    std::int32_t volume = 0;       ///< lots
    std::int32_t relate = 0;       ///< how the two tests combine: 0 "或" (or), 1 "且" (and)
    std::int32_t com2 = 0;         ///< how `amount` compares: 0 "≥", 1 "＞"
    std::int32_t amount = 0;       ///< yuan
    std::int32_t start = 32400000; ///< ms since midnight at the exchange, 09:00:00
    std::int32_t end = 58200000;   ///< ms since midnight at the exchange, 16:10:00
    bool buy = true;               ///< keep buy orders
    bool sell = true;              ///< keep sell orders
    bool unbuy = true;             ///< keep cancels of buy orders
    bool unsell = true;            ///< keep cancels of sell orders
};

} // namespace Kel
