#include "feed/import/ReferenceBook.h"

#include "records/TransactionData.h"

#include <algorithm>
#include <cmath>

namespace testing_support {

namespace {

std::int64_t keyOf(double price)
{
    return std::llround(price * 10000);
}

template <class Iterator>
std::string sideDifference(Iterator level, Iterator end,
                           const std::array<double, quoter::kDepthLevels>& prices,
                           const std::array<std::int64_t, quoter::kDepthLevels>& volumes,
                           const std::array<std::int32_t, quoter::kDepthLevels>& counts, const char* side)
{
    for (std::size_t i = 0; i < quoter::kDepthLevels; ++i) {
        const bool there = level != end;
        const std::int64_t key = there ? level->first : 0;
        const std::int64_t volume = there ? level->second.volume : 0;
        const std::int64_t count = there ? static_cast<std::int64_t>(level->second.numbers.size()) : 0;
        if (key != keyOf(prices[i]) || volume != volumes[i] || count != counts[i]) {
            return std::string(side) + " " + std::to_string(i + 1) + ": book " + std::to_string(key) + " x " +
                   std::to_string(volume) + " of " + std::to_string(count) + ", snapshot " +
                   std::to_string(keyOf(prices[i])) + " x " + std::to_string(volumes[i]) + " of " +
                   std::to_string(counts[i]);
        }
        if (there)
            ++level;
    }
    return {};
}

} // namespace

void ReferenceBook::add(const feed::OrderRow& row)
{
    Order& order = m_orders[row.number];
    order.placed = true;
    order.side = row.side;
    order.key = keyOf(row.price);
    order.rest += row.volume;
    if (order.rest <= 0)
        return;
    Level& level = side(order.side)[order.key];
    level.volume += order.rest;
    level.numbers.push_back(row.number);
}

void ReferenceBook::deal(const feed::DealRow& row)
{
    if (row.kind == quoter::eTransactionCancel) {
        take(row.buyNo, row.volume, false);
        return;
    }
    // The order that came last takes from the queue; in an auction both do.
    take(row.buyNo, row.volume, row.activeSide == 2);
    take(row.sellNo, row.volume, row.activeSide == 1);
    m_dealtVolume += row.volume;
    ++m_dealCount;
}

void ReferenceBook::take(std::int64_t number, std::int64_t volume, bool isDeal)
{
    Order& order = m_orders[number];
    order.rest -= volume;
    if (!order.placed)
        return;
    Side& levels = side(order.side);
    const auto found = levels.find(order.key);
    if (found == levels.end())
        return;
    Level& level = found->second;
    const auto place = std::find(level.numbers.begin(), level.numbers.end(), number);
    if (place == level.numbers.end())
        return;
    const bool best =
        order.side == 1 ? &level == &levels.rbegin()->second : &level == &levels.begin()->second;
    if (isDeal && (place != level.numbers.begin() || !best))
        ++m_dealsBehindTheFront;
    level.volume -= volume;
    if (order.rest <= 0)
        level.numbers.erase(place);
    if (level.numbers.empty())
        levels.erase(found);
}

std::string ReferenceBook::difference(const feed::SnapshotRow& snapshot) const
{
    const std::string asks = sideDifference(m_asks.begin(), m_asks.end(), snapshot.askPrice,
                                            snapshot.askVolume, snapshot.askCount, "sell");
    if (!asks.empty())
        return asks;
    return sideDifference(m_bids.rbegin(), m_bids.rend(), snapshot.bidPrice, snapshot.bidVolume,
                          snapshot.bidCount, "buy");
}

Agreement agreementWithSnapshots(const feed::InstrumentDay& day, feed::Phase phase)
{
    Agreement result;
    ReferenceBook book;
    std::size_t nextOrder = 0;
    std::size_t nextDeal = 0;
    const auto step = [&] {
        const bool order =
            nextOrder < day.orders.size() &&
            (nextDeal >= day.deals.size() || day.orders[nextOrder].seq < day.deals[nextDeal].seq);
        if (order)
            book.add(day.orders[nextOrder++]);
        else if (nextDeal < day.deals.size())
            book.deal(day.deals[nextDeal++]);
        else
            return false;
        return true;
    };
    for (const feed::SnapshotRow& snapshot : day.snapshots) {
        if (snapshot.phase != phase)
            continue;
        ++result.compared;
        while (book.dealtVolume() < snapshot.totalVolume && step()) {
        }
        // With the totals reached, orders and cancellations may still come before the snapshot's moment.
        std::string difference = book.difference(snapshot);
        while (!difference.empty() && book.dealtVolume() == snapshot.totalVolume && step())
            difference = book.difference(snapshot);
        if (difference.empty() && book.dealtVolume() == snapshot.totalVolume &&
            book.dealCount() == snapshot.dealCount)
            ++result.matched;
        else if (result.firstDifference.empty())
            result.firstDifference = "at " + std::to_string(snapshot.time) + ": " + difference;
    }
    while (step()) {
    }
    result.dealsBehindTheFront = book.dealsBehindTheFront();
    return result;
}

} // namespace testing_support
