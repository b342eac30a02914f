#include "platform/models/OrderBook.h"

#include "records/PriceKey.h"
#include "records/Tolerance.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace Kel {

namespace {

constexpr double kUsualTick = 0.01;

/// No order is larger; sums of ten million of them fit 64 bits.
constexpr std::int64_t kMostShares = 1000000000000;

/// Touched prices of a side that are kept one by one. A book that nobody reads must not keep account for
/// ever.
constexpr std::size_t kMostTouched = 4096;

/// 2100-01-01 UTC in milliseconds: no record is of a later moment.
constexpr std::int64_t kEndOfTimes = 4102444800000;

#ifdef DEPTH_CHECK_INVARIANTS
constexpr unsigned kKeysChecked = 512; // prices above the lowest one that take turns
#endif

bool isPrice(double price)
{
    return std::isfinite(price) && price > 0;
}

std::int64_t momentOf(const quoter::QuoterBase& record)
{
    return record.m_time >= 0 && record.m_time < kEndOfTimes ? record.m_time : 0;
}

} // namespace

OrderBook::OrderBook(double priceTick) : m_tick(isPrice(priceTick) ? priceTick : kUsualTick) {}

// Feeding
// ---------------------------------------------------------------------------------------------------

bool OrderBook::addOrder(const quoter::OrderData& order)
{
    const bool hasSide = order.side == OQT_BUY || order.side == OQT_SELL;
    if (!hasSide || order.kind == quoter::eOrderNotStanding || order.entrustNo <= 0 || order.volume <= 0)
        return false;
    const auto [entry, isNew] = m_index.tryInsert(order.entrustNo, kNone);
    if (!isNew && (*entry == kNone || node(*entry).level != kNone))
        return false;
    m_newestTime = std::max(m_newestTime, momentOf(order));

    const std::int64_t volume = std::min(order.volume, kMostShares);
    const int key = priceKey(order.price, m_tick);
    const auto side = static_cast<EOrderQueueType>(order.side);
    const std::int64_t dealt = isNew ? 0 : waitingShares(node(*entry), side);
    if (key <= 0 || dealt >= volume) {
        if (!isNew)
            freeNode(*entry);
        *entry = kNone;
        return true;
    }
    if (isNew)
        *entry = takeNode();
    const Index at = *entry;
    Node& entered = node(at);
    entered.number = order.entrustNo;
    entered.time = momentOf(order);
    entered.volume = volume;
    entered.dealt = dealt;
    enter(at, side, key, order.price);
    return true;
}

bool OrderBook::addDeal(const quoter::TransactionData& deal)
{
    if (deal.kind == quoter::eTransactionCancel) {
        // A sell order's number stands in both fields, a buy order's in one.
        const std::int64_t number = deal.buyNo != 0 ? deal.buyNo : deal.sellNo;
        if (number == 0)
            return false;
        m_newestTime = std::max(m_newestTime, momentOf(deal));
        end(number);
        return true;
    }
    if (deal.volume <= 0 || (deal.dealNo != 0 && !m_dealNumbers.insert(deal.dealNo).second))
        return false;
    m_newestTime = std::max(m_newestTime, momentOf(deal));
    keepNewest(deal);
    const std::int64_t volume = std::min(deal.volume, kMostShares);
    applyDeal(deal.buyNo, OQT_BUY, volume);
    applyDeal(deal.sellNo, OQT_SELL, volume);
    return true;
}

void OrderBook::keepNewest(const quoter::TransactionData& deal)
{
    if (!isPrice(deal.price))
        return;
    const std::int64_t time = momentOf(deal);
    if (m_newestDeal &&
        (time < m_newestDealTime || (time == m_newestDealTime && deal.dealNo < m_newestDealNo)))
        return;
    m_newestDeal = Deal{deal.price, deal.volume};
    m_newestDealTime = time;
    m_newestDealNo = deal.dealNo;
}

void OrderBook::applyDeal(std::int64_t number, EOrderQueueType side, std::int64_t volume)
{
    if (number == 0)
        return;
    const auto [entry, isNew] = m_index.tryInsert(number, kNone);
    if (isNew) {
        *entry = takeNode();
        Node& waiting = node(*entry);
        waiting.number = number;
        waitingShares(waiting, side) = volume;
        return;
    }
    const Index at = *entry;
    if (at == kNone)
        return;
    Node& dealt = node(at);
    if (dealt.level == kNone) {
        std::int64_t& shares = waitingShares(dealt, side);
        shares = std::min(shares + volume, kMostShares);
        return;
    }
    Level& level = levelAt(dealt.level);
    if (level.side != side)
        return;
    if (dealt.volume - dealt.dealt <= volume) {
        leave(at);
        freeNode(at);
        *entry = kNone;
        return;
    }
    dealt.dealt += volume;
    level.volume -= volume;
    touch(level);
}

/// The order is finished, or will be as soon as it comes.
void OrderBook::end(std::int64_t number)
{
    const auto [entry, isNew] = m_index.tryInsert(number, kNone);
    if (isNew || *entry == kNone)
        return;
    if (node(*entry).level != kNone)
        leave(*entry);
    freeNode(*entry);
    *entry = kNone;
}

// Orders and levels
// -----------------------------------------------------------------------------------------

OrderBook::Index OrderBook::takeNode()
{
    if (m_freeNode == kNone) {
        m_nodes.append(Node());
        return m_nodes.size() - 1;
    }
    const Index at = m_freeNode;
    m_freeNode = node(at).next;
    node(at) = Node();
    return at;
}

void OrderBook::freeNode(Index at)
{
    node(at) = Node();
    node(at).next = m_freeNode;
    m_freeNode = at;
}

OrderBook::Index OrderBook::takeLevel(EOrderQueueType side, int key, double price)
{
    const auto [entry, isNew] = sideOf(side).try_emplace(key, kNone);
    if (!isNew)
        return entry->second;
    Index at = m_freeLevel;
    if (at == kNone) {
        m_levels.emplace_back();
        at = static_cast<Index>(m_levels.size()) - 1;
    } else {
        m_freeLevel = levelAt(at).last;
    }
    entry->second = at;
    Level& level = levelAt(at);
    level = Level();
    level.side = side;
    level.key = key;
    level.price = price;
    return at;
}

void OrderBook::freeLevel(Index at)
{
    Level& level = levelAt(at);
    sideOf(level.side).erase(level.key);
    level.last = m_freeLevel;
    m_freeLevel = at;
}

/// Puts an order at the end of its level, which is opened if there is none.
void OrderBook::enter(Index at, EOrderQueueType side, int key, double price)
{
    const Index levelIndex = takeLevel(side, key, price);
    Level& level = levelAt(levelIndex);
    Node& entered = node(at);
    entered.level = levelIndex;
    entered.previous = level.last;
    entered.next = kNone;
    (level.last == kNone ? level.first : node(level.last).next) = at;
    level.last = at;
    level.volume += entered.volume - entered.dealt;
    ++level.count;
    ++m_standing;
    touch(level);
}

/// Takes an order out of its level, and the level out of the book if it was the last one.
void OrderBook::leave(Index at)
{
    const Node& left = node(at);
    Level& level = levelAt(left.level);
    (left.previous == kNone ? level.first : node(left.previous).next) = left.next;
    (left.next == kNone ? level.last : node(left.next).previous) = left.previous;
    level.volume -= left.volume - left.dealt;
    --level.count;
    --m_standing;
    touch(level);
    if (level.count == 0)
        freeLevel(left.level);
}

void OrderBook::touch(Level& level)
{
    if (level.touched || m_everythingChanged)
        return;
    std::vector<int>& touched = level.side == OQT_BUY ? m_touchedBuys : m_touchedSells;
    if (touched.size() >= kMostTouched) {
        m_everythingChanged = true;
        return;
    }
    level.touched = true;
    touched.push_back(level.key);
}

OrderBook::Changes OrderBook::takeChanges()
{
    checkInvariants();
    Changes changes;
    changes.everything = m_everythingChanged;
    const auto settle = [this](EOrderQueueType side, std::vector<int>& touched) {
        for (const int key : touched) {
            const auto found = sideOf(side).find(key);
            if (found != sideOf(side).end())
                levelAt(found->second).touched = false;
        }
        std::vector<int> keys;
        keys.swap(touched);
        if (m_everythingChanged)
            return std::vector<int>();
        std::sort(keys.begin(), keys.end());
        keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
        return keys;
    };
    changes.buys = settle(OQT_BUY, m_touchedBuys);
    changes.sells = settle(OQT_SELL, m_touchedSells);
    m_everythingChanged = false;
    return changes;
}

// Reading
// ---------------------------------------------------------------------------------------------------

BookLevel OrderBook::toBookLevel(const Level& level) const
{
    return {level.key, level.price, level.volume, level.count};
}

BookOrder OrderBook::toBookOrder(const Node& order) const
{
    const Level& level = levelAt(order.level);
    return {order.number, order.time, order.volume, order.dealt, level.price, level.side};
}

std::optional<BookOrder> OrderBook::find(std::int64_t number) const
{
    const Index* const entry = m_index.find(number);
    if (entry == nullptr || *entry == kNone || node(*entry).level == kNone)
        return std::nullopt;
    return toBookOrder(node(*entry));
}

std::optional<BookLevel> OrderBook::level(EOrderQueueType side, int key) const
{
    const auto found = sideOf(side).find(key);
    if (found == sideOf(side).end())
        return std::nullopt;
    return toBookLevel(levelAt(found->second));
}

std::vector<BookOrder> OrderBook::orders(EOrderQueueType side, int key) const
{
    std::vector<BookOrder> result;
    const auto found = sideOf(side).find(key);
    if (found == sideOf(side).end())
        return result;
    const Level& level = levelAt(found->second);
    result.reserve(static_cast<std::size_t>(level.count));
    for (Index at = level.first; at != kNone; at = node(at).next)
        result.push_back(toBookOrder(node(at)));
    std::sort(result.begin(), result.end(),
              [](const BookOrder& a, const BookOrder& b) { return a.number < b.number; });
    return result;
}

std::vector<BookLevel> OrderBook::best(EOrderQueueType side, std::size_t most) const
{
    std::vector<BookLevel> result;
    const Side& levels = sideOf(side);
    if (side == OQT_BUY) {
        for (auto it = levels.rbegin(); it != levels.rend() && result.size() < most; ++it)
            result.push_back(toBookLevel(levelAt(it->second)));
    } else {
        for (auto it = levels.begin(); it != levels.end() && result.size() < most; ++it)
            result.push_back(toBookLevel(levelAt(it->second)));
    }
    return result;
}

std::vector<BookLevel> OrderBook::behind(EOrderQueueType side, int key, std::size_t most) const
{
    std::vector<BookLevel> result;
    const Side& levels = sideOf(side);
    if (side == OQT_BUY) {
        for (auto it = levels.lower_bound(key); it != levels.begin() && result.size() < most;)
            result.push_back(toBookLevel(levelAt((--it)->second)));
    } else {
        for (auto it = levels.upper_bound(key); it != levels.end() && result.size() < most; ++it)
            result.push_back(toBookLevel(levelAt(it->second)));
    }
    return result;
}

std::size_t OrderBook::heapBytes() const
{
    constexpr std::size_t kControl = 1; // of a slot of the hash tables
    return m_nodes.heapBytes() + m_levels.capacity() * sizeof(Level) + m_index.heapBytes() +
           m_dealNumbers.capacity() * (sizeof(std::int32_t) + kControl) +
           (m_buys.size() + m_sells.size()) * sizeof(std::pair<int, Index>) +
           (m_touchedBuys.capacity() + m_touchedSells.capacity()) * sizeof(int);
}

// Invariants
// ------------------------------------------------------------------------------------------------

std::string OrderBook::firstFault() const
{
    std::size_t orders = 0;
    for (const EOrderQueueType side : {OQT_BUY, OQT_SELL}) {
        std::string fault = sideFault(side, orders);
        if (!fault.empty())
            return fault;
    }
    return orders == m_standing ? std::string() : "the number of standing orders is wrong";
}

std::string OrderBook::sideFault(EOrderQueueType side, std::size_t& orders) const
{
    for (const auto& [key, at] : sideOf(side)) {
        std::string fault = levelFault(side, key, at);
        if (!fault.empty())
            return fault;
        orders += static_cast<std::size_t>(levelAt(at).count);
    }
    return {};
}

std::string OrderBook::levelFault(EOrderQueueType side, int key, Index at) const
{
    const Level& level = levelAt(at);
    if (level.key != key || level.side != side)
        return "a level stands under another price or side";
    std::int64_t volume = 0;
    int count = 0;
    Index previous = kNone;
    for (Index current = level.first; current != kNone; current = node(current).next) {
        const Node& order = node(current);
        const Index* const entry = m_index.find(order.number);
        if (entry == nullptr || *entry != current)
            return "an order is not in the index";
        if (order.previous != previous || order.level != at)
            return "an order is linked wrongly";
        if (order.dealt < 0 || order.dealt >= order.volume)
            return "a finished order stands";
        volume += order.volume - order.dealt;
        ++count;
        previous = current;
    }
    if (count == 0)
        return "a level has no orders";
    if (level.last != previous || level.count != count || level.volume != volume)
        return "a level's sum, count or end is wrong";
    return {};
}

void OrderBook::checkInvariants() const
{
#ifdef DEPTH_CHECK_INVARIANTS
    // One level a side, another one each time, or a report would cost the book instead of the change.
    static thread_local unsigned turn = 0;
    ++turn;
    for (const EOrderQueueType side : {OQT_BUY, OQT_SELL}) {
        const Side& levels = sideOf(side);
        if (levels.empty())
            continue;
        auto it = levels.lower_bound(clampToInt(std::int64_t(levels.begin()->first) + turn % kKeysChecked));
        if (it == levels.end())
            it = levels.begin();
        const std::string fault = levelFault(side, it->first, it->second);
        if (fault.empty())
            continue;
        std::fprintf(stderr, "order book invariant violated: %s\n", fault.c_str());
        std::abort();
    }
#endif
}

} // namespace Kel
