#pragma once

#include "records/DepthExport.h"
#include "records/QuoterBase.h"

namespace quoter {

/// The published queue at buy one and sell one: the volumes of the first orders (at most 50 are published).
struct DEPTH_EXPORT LevelOrderData : QuoterBase
{
    double bidPrice = 0;                  ///< yuan, price of the buy queue; 0 for none
    std::vector<std::int32_t> bidVolumes; ///< lots of the first buy orders, front of the queue first
    double askPrice = 0;                  ///< yuan, price of the sell queue; 0 for none
    std::vector<std::int32_t> askVolumes; ///< lots of the first sell orders, front of the queue first
    std::int32_t bidCount = 0;            ///< true number of orders at `bidPrice`
    std::int32_t askCount = 0;            ///< true number of orders at `askPrice`
};

} // namespace quoter
