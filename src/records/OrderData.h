#pragma once

#include "records/DepthExport.h"
#include "records/QuoterBase.h"

namespace quoter {

/// What `OrderData::kind` tells of an order. The numbers are the feed's; only 3 changes what the queue does.
enum EOrderKind : std::int32_t
{
    eOrderUnknownKind = 0,
    eOrderLimit = 1,  ///< limit order: stands at its price until it is dealt or cancelled
    eOrderMarket = 2, ///< market order, delivered without a price
    eOrderNotStanding =
        3, ///< not a standing order (a status message or a delete record on the order channel)
    eOrderBestOwnSide = 4, ///< best price of the own side, delivered without a price
};

/// A tick-by-tick order.
struct DEPTH_EXPORT OrderData : QuoterBase
{
    double price = 0;           ///< yuan; 0 for an order with no price
    std::int64_t volume = 0;    ///< shares
    std::int64_t entrustNo = 0; ///< the exchange's order number, increasing within a channel
    std::int32_t kind = 0;      ///< `EOrderKind`; 3 is ignored by the queue's filter
    std::int32_t side = 0;      ///< 1 buy, 2 sell; 0 and 3 are ignored by the queue's filter
};

} // namespace quoter
