#pragma once

#include "records/DepthExport.h"
#include "records/QuoterBase.h"

namespace quoter {

/// The last full quote of an instrument.
struct DEPTH_EXPORT QuoterAllData : QuoterBase
{
    /// Status of the quote. 1: the instrument has no order queue today, and the queue engine stands down.
    std::int32_t status = 0;
    double lastPrice = 0;     ///< yuan
    double previousClose = 0; ///< yuan
    double openPrice = 0;     ///< yuan
    double highPrice = 0;     ///< yuan
    double lowPrice = 0;      ///< yuan
    std::int64_t volume = 0;  ///< shares traded so far
    double turnover = 0;      ///< yuan traded so far
};

using QuoterAllDataPtr = boost::shared_ptr<QuoterAllData>;

} // namespace quoter
