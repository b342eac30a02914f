#include "feed/simulation/published_rows.h"

#include <utility>

namespace feed {
namespace {

SnapshotRow totalsOnly(const TickScale& scale, const MarketChannel& channel, Phase phase,
                       double previousClose)
{
    const DayTotals& totals = channel.totals();
    SnapshotRow row;
    row.time = channel.time();
    row.seq = channel.lastSequence();
    row.phase = phase;
    row.previousClose = previousClose;
    row.lastPrice = scale.price(totals.lastTicks);
    row.openPrice = scale.price(totals.openTicks);
    row.highPrice = scale.price(totals.highTicks);
    row.lowPrice = scale.price(totals.lowTicks);
    row.totalVolume = totals.volume;
    row.turnover = totals.turnover;
    row.dealCount = totals.deals;
    return row;
}

template <typename Prices, typename Volumes, typename Counts>
void fillLevels(const TrueBook& book, Side side, Prices& prices, Volumes& volumes, Counts& counts)
{
    int ticks = book.bestTicks(side);
    for (std::size_t at = 0; at < prices.size() && ticks != 0; ++at) {
        const TrueLevel level = book.levelAt(side, ticks);
        prices[at] = level.price;
        volumes[at] = level.volume;
        counts[at] = level.orderCount;
        ticks = book.nextTicks(side, ticks);
    }
}

std::vector<std::int64_t> firstVolumes(const TrueBook& book, Side side)
{
    std::vector<std::int64_t> volumes;
    for (const TrueOrder& order : book.orders(side, book.bestPrice(side), kPublishedOrders))
        volumes.push_back(order.remaining);
    return volumes;
}

std::vector<LadderLevel> ladderLevels(const TrueBook& book, Side side)
{
    std::vector<LadderLevel> levels;
    for (const TrueLevel& level : book.levels(side, LadderRow::kLevels)) {
        LadderLevel published{level.price, level.volume, {}};
        published.orders.reserve(static_cast<std::size_t>(level.orderCount));
        for (const TrueOrder& order : book.orders(side, level.price))
            published.orders.push_back({order.number, order.time, order.original, order.dealt});
        levels.push_back(std::move(published));
    }
    return levels;
}

} // namespace

SnapshotRow publishBook(const TrueBook& book, const MarketChannel& channel, Phase phase, double previousClose)
{
    SnapshotRow row = totalsOnly(book.scale(), channel, phase, previousClose);
    fillLevels(book, Side::Buy, row.bidPrice, row.bidVolume, row.bidCount);
    fillLevels(book, Side::Sell, row.askPrice, row.askVolume, row.askCount);
    return row;
}

SnapshotRow publishAuction(const AuctionMatch& match, const TickScale& scale, const MarketChannel& channel,
                           Phase phase, double previousClose)
{
    SnapshotRow row = totalsOnly(scale, channel, phase, previousClose);
    row.bidPrice[0] = scale.price(match.ticks);
    row.askPrice[0] = row.bidPrice[0];
    row.bidVolume[0] = match.volume;
    row.askVolume[0] = match.volume;
    row.bidVolume[1] = match.buyRest;
    row.askVolume[1] = match.sellRest;
    return row;
}

LadderRow publishLadder(const TrueBook& book, const MarketChannel& channel)
{
    LadderRow row;
    row.time = channel.time();
    row.seq = channel.lastSequence();
    row.lastPrice = book.scale().price(channel.totals().lastTicks);
    row.lastVolume = channel.totals().lastVolume;
    row.buys = ladderLevels(book, Side::Buy);
    row.sells = ladderLevels(book, Side::Sell);
    return row;
}

QueueRow publishQueues(const TrueBook& book, const MarketChannel& channel)
{
    QueueRow row;
    row.time = channel.time();
    row.seq = channel.lastSequence();
    row.bidPrice = book.bestPrice(Side::Buy);
    row.askPrice = book.bestPrice(Side::Sell);
    row.bidCount = book.levelAt(Side::Buy, book.bestTicks(Side::Buy)).orderCount;
    row.askCount = book.levelAt(Side::Sell, book.bestTicks(Side::Sell)).orderCount;
    row.bidVolumes = firstVolumes(book, Side::Buy);
    row.askVolumes = firstVolumes(book, Side::Sell);
    return row;
}

} // namespace feed
