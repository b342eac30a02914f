#include "feed/simulation/ReferenceBook.h"

#include "feed/simulation/TradingHours.h"
#include "records/OrderData.h"
#include "records/TransactionData.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace feed::test {
namespace {

std::int64_t volumeOf(const ReferenceBook::Level& level)
{
    std::int64_t sum = 0;
    for (const auto& order : level)
        sum += order.remaining;
    return sum;
}

} // namespace

ReferenceBook::ReferenceBook(const SimulationSettings& settings)
    : m_settings(settings),
      m_scale(settings.detail.priceTick),
      m_midnight(hours::midnightOf(settings.tradingDay))
{
}

void ReferenceBook::fault(const std::string& text, std::int64_t seq)
{
    if (m_faults.size() < 20)
        m_faults.push_back("at sequence " + std::to_string(seq) + ": " + text);
}

void ReferenceBook::checkSequence(std::int64_t seq, std::int64_t time)
{
    if (seq <= m_lastSeq)
        fault("the sequence does not increase", seq);
    if (time < m_lastTime)
        fault("time goes back", seq);
    m_lastSeq = seq;
    m_lastTime = time;
}

bool ReferenceBook::inAuction(std::int64_t time) const
{
    const Phase phase = hours::phaseAt(static_cast<double>(time - m_midnight) / 1000);
    return phase == Phase::OpeningAuction || phase == Phase::ClosingAuction || phase == Phase::Closed;
}

int ReferenceBook::best(Side side) const
{
    const Levels& levels = this->side(side);
    if (levels.empty())
        return 0;
    return side == Side::Buy ? levels.rbegin()->first : levels.begin()->first;
}

/// Nothing more comes for the order that came last: what is left of it stands, and the sides must not meet.
void ReferenceBook::settle(std::int64_t seq)
{
    if (!m_active)
        return;
    if (m_active->limit == 0 && m_active->remaining > 0)
        fault("the rest of a market order was not withdrawn at once", seq);
    m_active.reset();
    if (!m_bids.empty() && !m_asks.empty() && best(Side::Buy) >= best(Side::Sell))
        fault("the book is crossed in continuous trading", seq);
}

void ReferenceBook::onOrder(const OrderRow& row)
{
    settle(row.seq);
    checkSequence(row.seq, row.time);
    const double second = static_cast<double>(row.time - m_midnight) / 1000;
    if (!hours::takesOrders(second))
        fault("an order while the exchange takes none", row.seq);
    if (row.number <= m_lastNumber)
        fault("order numbers do not increase", row.seq);
    m_lastNumber = row.number;
    if (m_settings.numbering == Numbering::Sequence && row.number != row.seq)
        fault("the order's number is not its sequence", row.seq);
    if (row.volume <= 0 || row.volume > m_settings.maximumVolume)
        fault("a volume that no exchange takes", row.seq);
    if (row.side == 1 && row.volume % m_settings.volumeUnit != 0)
        fault("a buy order of broken lots", row.seq);
    m_announced += row.volume;

    const Side side = static_cast<Side>(row.side);
    Order order{row.number, row.volume, row.volume, row.price == 0};
    int ticks = 0;
    if (row.kind == quoter::eOrderLimit) {
        ticks = m_scale.ticks(row.price);
        if (m_scale.price(ticks) != row.price)
            fault("a price off the tick", row.seq);
        const auto& detail = m_settings.detail;
        if (detail.upperLimit > 0 && (row.price > detail.upperLimit || row.price < detail.lowerLimit))
            fault("a price outside the limits", row.seq);
    } else {
        if (row.price != 0)
            fault("a priceless order with a price", row.seq);
        if (inAuction(row.time))
            fault("a priceless order in an auction", row.seq);
        if (row.kind == quoter::eOrderBestOwnSide)
            ticks = best(side);
    }
    if (ticks != 0)
        mutableSide(side)[ticks].push_back(order);
    if (!inAuction(row.time))
        m_active = Active{side, row.number, row.volume, ticks, 0, 0};
}

void ReferenceBook::onDeal(const DealRow& row)
{
    if (row.kind == quoter::eTransactionCancel) {
        cancel(row);
        return;
    }
    const int ticks = m_scale.ticks(row.price);
    if (m_scale.price(ticks) != row.price || ticks == 0)
        fault("a deal price off the tick", row.seq);
    if (row.volume <= 0)
        fault("a deal without volume", row.seq);
    if (m_settings.numbering == Numbering::Sequence && row.dealNo != row.seq)
        fault("the deal's number is not its sequence", row.seq);
    if (row.activeSide == 0)
        auctionDeal(row, ticks);
    else
        activeDeal(row, ticks);
    checkSequence(row.seq, row.time);
    m_dealt += 2 * row.volume;
    m_tradedVolume += row.volume;
    m_lastPrice = ticks;
    ++m_deals;
}

void ReferenceBook::auctionDeal(const DealRow& row, int ticks)
{
    settle(row.seq);
    if (!inAuction(row.time))
        fault("an auction's deal outside an auction", row.seq);
    if (best(Side::Buy) < ticks || best(Side::Sell) > ticks)
        fault("a deal at a price that one side does not take", row.seq);
    take(Side::Buy, row.buyNo, row.volume, best(Side::Buy), row.seq);
    take(Side::Sell, row.sellNo, row.volume, best(Side::Sell), row.seq);
}

void ReferenceBook::activeDeal(const DealRow& row, int ticks)
{
    const Side side = static_cast<Side>(row.activeSide);
    const std::int64_t activeNo = side == Side::Buy ? row.buyNo : row.sellNo;
    const std::int64_t waitingNo = side == Side::Buy ? row.sellNo : row.buyNo;
    if (!m_active || m_active->number != activeNo || m_active->side != side) {
        fault("a deal whose active order did not come last", row.seq);
        return;
    }
    Active& active = *m_active;
    if (active.limit != 0 && (side == Side::Buy ? ticks > active.limit : ticks < active.limit))
        fault("a deal beyond the order's limit", row.seq);
    if (ticks != active.lastDeal)
        ++active.prices;
    active.lastDeal = ticks;
    if (active.limit == 0 && active.prices > 5)
        fault("a market order dealt at more than five prices", row.seq);
    active.remaining -= row.volume;
    if (active.remaining < 0)
        fault("an order dealt beyond its volume", row.seq);
    if (ticks != best(opposite(side)))
        fault("a deal that is not at the best price", row.seq);
    take(opposite(side), waitingNo, row.volume, ticks, row.seq);
    if (active.limit == 0)
        return;
    // The active order waits at the end of its own level already.
    Levels& levels = mutableSide(side);
    Level& level = levels[active.limit];
    if (level.empty() || level.back().number != activeNo) {
        fault("the active order is not the last of its level", row.seq);
        return;
    }
    level.back().remaining = active.remaining;
    if (active.remaining == 0) {
        level.pop_back();
        if (level.empty())
            levels.erase(active.limit);
    }
}

/// Takes shares from the order at the head of a price.
void ReferenceBook::take(Side side, std::int64_t number, std::int64_t volume, int ticks, std::int64_t seq)
{
    Levels& levels = mutableSide(side);
    const auto level = levels.find(ticks);
    if (level == levels.end() || level->second.front().number != number) {
        fault("a deal with an order that is not first in its queue", seq);
        return;
    }
    Order& order = level->second.front();
    order.remaining -= volume;
    if (order.remaining < 0)
        fault("an order dealt beyond its volume", seq);
    if (order.remaining <= 0) {
        level->second.pop_front();
        if (level->second.empty())
            levels.erase(level);
    }
}

void ReferenceBook::cancel(const DealRow& row)
{
    const bool ofActive = m_active && m_active->number == row.buyNo;
    if (ofActive && m_active->limit == 0) {
        if (m_active->remaining != row.volume)
            fault("a market order's withdrawn volume is not its rest", row.seq);
        m_active.reset();
    } else {
        settle(row.seq);
        if (!hours::takesCancels(static_cast<double>(row.time - m_midnight) / 1000))
            fault("a cancellation while none is taken", row.seq);
        const Side side = row.sellNo == 0 ? Side::Buy : Side::Sell;
        if (side == Side::Sell && row.sellNo != row.buyNo)
            fault("a sell order's cancellation without its number in both fields", row.seq);
        Levels& levels = mutableSide(side);
        bool found = false;
        for (auto level = levels.begin(); level != levels.end() && !found; ++level) {
            Level& orders = level->second;
            const auto order = std::find_if(orders.begin(), orders.end(),
                                            [&](const Order& o) { return o.number == row.buyNo; });
            if (order == orders.end())
                continue;
            found = true;
            if (order->remaining != row.volume)
                fault("the withdrawn volume is not what was left", row.seq);
            orders.erase(order);
            if (orders.empty()) {
                levels.erase(level);
                break;
            }
        }
        if (!found)
            fault("a cancellation of an order that does not stand on that side", row.seq);
    }
    if (row.price != 0)
        fault("a cancellation with a price", row.seq);
    checkSequence(row.seq, row.time);
    m_withdrawn += row.volume;
}

void ReferenceBook::onSnapshot(const SnapshotRow& row)
{
    settle(row.seq);
    if (row.seq != m_lastSeq)
        fault("the snapshot does not name the last row", row.seq);
    if (row.totalVolume != m_tradedVolume || row.dealCount != m_deals)
        fault("the snapshot's totals are not those of the deals", row.seq);
    if (row.lastPrice != m_scale.price(m_lastPrice))
        fault("the snapshot's last price is not the last deal's", row.seq);
    const double second = static_cast<double>(row.time - m_midnight) / 1000;
    if (row.phase != hours::phaseAt(second))
        fault("the snapshot's phase is not that of its time", row.seq);
    const bool isVirtual = (row.phase == Phase::OpeningAuction && second < hours::kOpeningMatch) ||
                           row.phase == Phase::ClosingAuction;
    if (isVirtual) {
        compareAuction(row);
    } else {
        compareSide(Side::Buy, row);
        compareSide(Side::Sell, row);
    }
    ++m_snapshots;
}

void ReferenceBook::compareSide(Side side, const SnapshotRow& row)
{
    std::vector<std::pair<int, const Level*>> levels;
    for (const auto& [ticks, level] : this->side(side))
        levels.emplace_back(ticks, &level);
    if (side == Side::Buy)
        std::reverse(levels.begin(), levels.end());
    const auto& prices = side == Side::Buy ? row.bidPrice : row.askPrice;
    const auto& volumes = side == Side::Buy ? row.bidVolume : row.askVolume;
    const auto& counts = side == Side::Buy ? row.bidCount : row.askCount;
    for (std::size_t at = 0; at < prices.size(); ++at) {
        const bool stands = at < levels.size();
        const double price = stands ? m_scale.price(levels[at].first) : 0;
        const std::int64_t volume = stands ? volumeOf(*levels[at].second) : 0;
        const int count = stands ? static_cast<int>(levels[at].second->size()) : 0;
        if (prices[at] != price || volumes[at] != volume || counts[at] != count)
            fault("level " + std::to_string(at + 1) + " of the snapshot is not that of the orders", row.seq);
    }
}

void ReferenceBook::compareAuction(const SnapshotRow& row)
{
    const int reference = m_lastPrice != 0 ? m_lastPrice : m_scale.ticks(m_settings.detail.previousClose);
    const AuctionMatch match = slowAuctionMatch(m_bids, m_asks, reference);
    const double price = m_scale.price(match.ticks);
    if (row.bidPrice[0] != price || row.askPrice[0] != price)
        fault("the virtual price is not the one of the greatest volume", row.seq);
    if (row.bidVolume[0] != match.volume || row.askVolume[0] != match.volume)
        fault("the virtual volume is not the greatest", row.seq);
    if (row.bidVolume[1] != match.buyRest || row.askVolume[1] != match.sellRest)
        fault("the auction's rest is wrong", row.seq);
    if (row.bidPrice[1] != 0 || row.askPrice[1] != 0 || row.bidVolume[2] != 0 || row.askVolume[2] != 0)
        fault("an auction snapshot shows more than the match", row.seq);
}

void ReferenceBook::onQueue(const QueueRow& row)
{
    settle(row.seq);
    if (row.seq != m_lastSeq)
        fault("the queue does not name the last row", row.seq);
    if (hours::phaseAt(static_cast<double>(row.time - m_midnight) / 1000) != Phase::Continuous)
        fault("a queue outside continuous trading", row.seq);
    const std::string bids = queueDifference(Side::Buy, row.bidPrice, row.bidCount, row.bidVolumes);
    const std::string asks = queueDifference(Side::Sell, row.askPrice, row.askCount, row.askVolumes);
    if (!bids.empty() || !asks.empty())
        fault(bids + asks, row.seq);
    ++m_queues;
}

std::string ReferenceBook::queueDifference(Side side, double price, int count,
                                           const std::vector<std::int64_t>& volumes) const
{
    const Levels& levels = this->side(side);
    if (levels.empty())
        return price == 0 && count == 0 && volumes.empty() ? "" : "a queue of a side without orders";
    const Level& level = levels.at(best(side));
    if (price != m_scale.price(best(side)))
        return "the queue's price is not the best";
    if (count != static_cast<int>(level.size()))
        return "the queue's count is not that of the orders";
    if (volumes.size() != std::min<std::size_t>(50, level.size()))
        return "the queue does not show its first fifty orders";
    for (std::size_t at = 0; at < volumes.size(); ++at) {
        if (volumes[at] != level[at].remaining)
            return "a volume of the queue is not that of its order";
    }
    return "";
}

std::string ReferenceBook::differenceTo(const TrueBook& truth) const
{
    std::ostringstream text;
    for (const Side side : {Side::Buy, Side::Sell}) {
        const Levels& levels = this->side(side);
        if (static_cast<int>(levels.size()) != truth.levelCount(side))
            text << "level counts differ; ";
        for (const auto& [ticks, level] : levels) {
            const std::vector<TrueOrder> orders = truth.orders(side, m_scale.price(ticks));
            bool same = orders.size() == level.size();
            for (std::size_t at = 0; same && at < level.size(); ++at)
                same = orders[at].number == level[at].number && orders[at].remaining == level[at].remaining &&
                       orders[at].original == level[at].original &&
                       orders[at].priceless == level[at].priceless &&
                       orders[at].dealt == level[at].original - level[at].remaining;
            if (!same)
                text << "the orders at " << m_scale.price(ticks) << " differ; ";
        }
    }
    return text.str();
}

std::int64_t ReferenceBook::standing() const
{
    std::int64_t sum = 0;
    for (const auto& [ticks, level] : m_bids)
        sum += volumeOf(level);
    for (const auto& [ticks, level] : m_asks)
        sum += volumeOf(level);
    return sum;
}

AuctionMatch slowAuctionMatch(const ReferenceBook::Levels& bids, const ReferenceBook::Levels& asks,
                              int reference)
{
    AuctionMatch best;
    if (bids.empty() || asks.empty())
        return best;
    const auto buyable = [&](int ticks) {
        std::int64_t sum = 0;
        for (const auto& [at, level] : bids)
            sum += at >= ticks ? volumeOf(level) : 0;
        return sum;
    };
    const auto sellable = [&](int ticks) {
        std::int64_t sum = 0;
        for (const auto& [at, level] : asks)
            sum += at <= ticks ? volumeOf(level) : 0;
        return sum;
    };
    for (int ticks = asks.begin()->first; ticks <= bids.rbegin()->first; ++ticks) {
        const std::int64_t buys = buyable(ticks);
        const std::int64_t sells = sellable(ticks);
        const std::int64_t volume = std::min(buys, sells);
        if (volume == 0 || buyable(ticks + 1) > volume || sellable(ticks - 1) > volume)
            continue;
        const std::int64_t rest = std::max(buys, sells) - volume;
        const std::int64_t bestRest = std::max(best.buyRest, best.sellRest);
        const bool better = volume > best.volume ||
                            (volume == best.volume &&
                             (rest < bestRest || (rest == bestRest && std::abs(ticks - reference) <=
                                                                          std::abs(best.ticks - reference))));
        if (better)
            best = {ticks, volume, buys - volume, sells - volume};
    }
    return best;
}

} // namespace feed::test
