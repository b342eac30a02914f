#pragma once

#include "feed/simulation/TrueBook.h"

namespace feed {

/// Where a call auction matches.
struct AuctionMatch
{
    int ticks = 0;            ///< 0 if nothing can be matched
    std::int64_t volume = 0;  ///< shares that are matched
    std::int64_t buyRest = 0; ///< shares that buyers would still take at the price
    std::int64_t sellRest = 0;
};

/// The price of a call auction over a book whose sides overlap: the greatest matched volume; everything
/// better than the price is served whole; of several such prices the one with the smallest rest, then the one
/// nearest to `referenceTicks` (previous close in the morning, latest price in the afternoon), then the
/// higher one.
AuctionMatch auctionMatch(const TrueBook& book, int referenceTicks);

} // namespace feed
