#pragma once

#include "feed/DayRows.h"
#include "feed/simulation/AuctionPrice.h"
#include "feed/simulation/MarketChannel.h"
#include "feed/simulation/TrueBook.h"

/// What the exchange publishes of its book. Time and sequence of the rows are those of the channel.
namespace feed {

/// Number of orders of a published queue.
constexpr std::size_t kPublishedOrders = 50;

/// Ten levels a side with their order counts, and the day's totals.
SnapshotRow publishBook(const TrueBook& book, const MarketChannel& channel, Phase phase,
                        double previousClose);

/// The snapshot of an auction: bid one and ask one are the virtual price with the matched volume, volume two
/// what is left over; all 0 while nothing can be matched.
SnapshotRow publishAuction(const AuctionMatch& match, const TickScale& scale, const MarketChannel& channel,
                           Phase phase, double previousClose);

/// The best thousand prices a side with all orders that stand there.
LadderRow publishLadder(const TrueBook& book, const MarketChannel& channel);

/// The first orders at both best prices.
QueueRow publishQueues(const TrueBook& book, const MarketChannel& channel);

} // namespace feed
