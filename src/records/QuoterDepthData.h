#pragma once

#include "records/DepthExport.h"
#include "records/QuoterBase.h"

namespace quoter {

/// Number of price levels a side in a depth snapshot.
constexpr int kDepthLevels = 10;

/// The depth snapshot: ten prices a side with their volumes, and the day's totals at that moment.
struct DEPTH_EXPORT QuoterDepthData : QuoterBase
{
    double lastPrice = 0;                      ///< yuan, latest price; 0 before the first deal
    double askPrice[kDepthLevels] = {};        ///< yuan, sell one to sell ten; 0 for none
    std::int64_t askVolume[kDepthLevels] = {}; ///< lots at those prices
    double bidPrice[kDepthLevels] = {};        ///< yuan, buy one to buy ten; 0 for none
    std::int64_t bidVolume[kDepthLevels] = {}; ///< lots at those prices
    std::int32_t askOrderCount[kDepthLevels] =
        {}; ///< number of orders at the sell prices; 0 where not published
    std::int32_t bidOrderCount[kDepthLevels] =
        {};                       ///< number of orders at the buy prices; 0 where not published
    double previousClose = 0;     ///< yuan
    double openPrice = 0;         ///< yuan; 0 before the first deal
    double highPrice = 0;         ///< yuan; 0 before the first deal
    double lowPrice = 0;          ///< yuan; 0 before the first deal
    std::int64_t totalVolume = 0; ///< shares traded so far
    double turnover = 0;          ///< yuan traded so far
    std::int32_t dealCount = 0;   ///< deals so far
};

} // namespace quoter
