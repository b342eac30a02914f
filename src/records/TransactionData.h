#pragma once

#include "records/DepthExport.h"
#include "records/QuoterBase.h"

namespace quoter {

/// What `TransactionData::kind` tells. The numbers are the feed's.
enum ETransactionKind : std::int32_t
{
    eTransactionDeal = 0,   ///< a deal between two orders
    eTransactionCancel = 3, ///< a cancellation, not a deal
};

/// A tick-by-tick deal, or the cancellation of one order.
///
/// A cancellation carries the number of the cancelled order in `buyNo`, whichever side it stood on; for a
/// sell order it carries the number in `sellNo` as well.
struct DEPTH_EXPORT TransactionData : QuoterBase
{
    double price = 0;            ///< yuan; 0 in a cancellation
    std::int64_t volume = 0;     ///< shares
    std::int32_t dealNo = 0;     ///< number of the deal within its channel
    std::int32_t buyNo = 0;      ///< buy order number, 0 if none
    std::int32_t sellNo = 0;     ///< sell order number, 0 if none
    std::int32_t kind = 0;       ///< `ETransactionKind`
    std::int32_t activeSide = 0; ///< 1 the buyer came last, 2 the seller, 0 unknown or an auction
};

} // namespace quoter
