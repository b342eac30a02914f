#include "host/ReferenceBook.h"

#include "records/OrderData.h"
#include "records/PriceKey.h"
#include "records/TransactionData.h"

#include <algorithm>

namespace host {
namespace {

// Far beyond any day, and far enough from the ends of 64 bits that sums of many rows stay within them.
constexpr std::int64_t kMostShares = std::int64_t(1) << 50;

std::int64_t plausible(std::int64_t shares)
{
    return std::clamp<std::int64_t>(shares, 0, kMostShares);
}

class View
{
public:
    void add(int key, std::int64_t shares, int orders)
    {
        mix(static_cast<std::uint64_t>(key));
        mix(static_cast<std::uint64_t>(shares));
        mix(static_cast<std::uint64_t>(orders));
    }
    std::uint64_t value() const { return m_value; }

private:
    void mix(std::uint64_t word)
    {
        m_value = (m_value ^ word) * 0x9E3779B97F4A7C15ull;
        m_value ^= m_value >> 29;
    }

    std::uint64_t m_value = 0x243F6A8885A308D3ull;
};

template <class Iterator>
void addLevels(View& view, Iterator level, const Iterator end, bool withCounts)
{
    for (int i = 0; i < quoter::kDepthLevels; ++i) {
        if (level == end) {
            view.add(0, 0, 0);
            continue;
        }
        view.add(level->first, level->second.shares, withCounts ? level->second.orders : 0);
        ++level;
    }
}

} // namespace

int ReferenceBook::placeOf(const feed::OrderRow& row) const
{
    const int key = Kel::priceKey(row.price, m_tick);
    if (key != 0)
        return key;
    const bool bestOfBuys = (row.side == 1) == (row.kind == quoter::eOrderBestOwnSide);
    if (bestOfBuys)
        return m_buys.empty() ? 0 : m_buys.rbegin()->first;
    return m_sells.empty() ? 0 : m_sells.begin()->first;
}

void ReferenceBook::apply(const feed::OrderRow& row)
{
    if ((row.side != 1 && row.side != 2) || row.kind == quoter::eOrderNotStanding)
        return;
    BookOrder& order = ordersOf(row.side)[row.number];
    if (order.listed)
        return;
    order.listed = true;
    order.side = row.side;
    order.priceless = Kel::priceKey(row.price, m_tick) == 0;
    order.key = placeOf(row);
    // What was dealt or withdrawn before the record is in `dealt`.
    order.rest = plausible(row.volume) - order.dealt;
    if (order.rest <= 0) {
        ordersOf(row.side).erase(row.number);
        return;
    }
    if (order.key == 0)
        return;
    BookLevel& level = levelsOf(row.side)[order.key];
    level.shares = plausible(level.shares + order.rest);
    ++level.orders;
    if (order.priceless) {
        level.pricelessShares = plausible(level.pricelessShares + order.rest);
        ++level.pricelessOrders;
    }
}

void ReferenceBook::apply(const feed::DealRow& row)
{
    const std::int64_t shares = plausible(row.volume);
    if (row.kind == quoter::eTransactionCancel) {
        // A sell order's number stands in both fields, a buy order's in one.
        if (row.sellNo != 0)
            take(2, row.sellNo, shares, true);
        else
            take(1, row.buyNo, shares, true);
        return;
    }
    m_tradedShares = plausible(m_tradedShares + shares);
    ++m_dealCount;
    if (row.buyNo != 0)
        take(1, row.buyNo, shares, false);
    if (row.sellNo != 0)
        take(2, row.sellNo, shares, false);
}

/// A cancellation ends the order whatever its volume says.
void ReferenceBook::take(int side, std::int64_t number, std::int64_t shares, bool cancel)
{
    BookOrder& order = ordersOf(side)[number];
    order.dealt = plausible(order.dealt + shares);
    if (!order.listed)
        return;
    const bool whole = cancel || shares >= order.rest;
    leave(order, whole ? order.rest : shares, whole);
    order.rest -= shares;
    if (whole)
        ordersOf(side).erase(number);
}

void ReferenceBook::leave(const BookOrder& order, std::int64_t shares, bool whole)
{
    if (order.key == 0)
        return;
    auto& levels = levelsOf(order.side);
    const auto level = levels.find(order.key);
    if (level == levels.end())
        return;
    level->second.shares -= shares;
    level->second.orders -= whole ? 1 : 0;
    if (order.priceless) {
        level->second.pricelessShares -= shares;
        level->second.pricelessOrders -= whole ? 1 : 0;
    }
    if (level->second.orders <= 0)
        levels.erase(level);
}

const BookOrder* ReferenceBook::find(int side, std::int64_t number) const
{
    const auto found = ordersOf(side).find(number);
    return found == ordersOf(side).end() || !found->second.listed ? nullptr : &found->second;
}

std::vector<std::int64_t> ReferenceBook::ordersAt(int side, int key) const
{
    std::vector<std::int64_t> numbers;
    for (const auto& [number, order] : ordersOf(side)) {
        if (order.listed && order.key == key)
            numbers.push_back(number);
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

std::uint64_t ReferenceBook::view(bool withCounts) const
{
    View view;
    addLevels(view, m_buys.rbegin(), m_buys.rend(), withCounts);
    addLevels(view, m_sells.begin(), m_sells.end(), withCounts);
    return view.value();
}

std::uint64_t ReferenceBook::viewOf(const feed::SnapshotRow& row, double priceTick, bool withCounts)
{
    View view;
    for (std::size_t i = 0; i < row.bidPrice.size(); ++i) {
        const int key = Kel::priceKey(row.bidPrice[i], priceTick);
        view.add(key, key == 0 ? 0 : row.bidVolume[i], withCounts && key != 0 ? row.bidCount[i] : 0);
    }
    for (std::size_t i = 0; i < row.askPrice.size(); ++i) {
        const int key = Kel::priceKey(row.askPrice[i], priceTick);
        view.add(key, key == 0 ? 0 : row.askVolume[i], withCounts && key != 0 ? row.askCount[i] : 0);
    }
    return view.value();
}

} // namespace host
