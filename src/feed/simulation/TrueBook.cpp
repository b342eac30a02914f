#include "feed/simulation/TrueBook.h"

#include <algorithm>

namespace feed {
namespace {

constexpr int kMostPrices = 1 << 22;

std::size_t bandSize(int lowest, int highest)
{
    const std::int64_t wanted = std::int64_t(highest) - lowest + 1;
    return static_cast<std::size_t>(std::clamp<std::int64_t>(wanted, 1, kMostPrices));
}

} // namespace

TrueBook::TrueBook(int lowestTicks, int highestTicks, const TickScale& scale)
    : m_lowest(lowestTicks), m_scale(scale), m_sides(2, SideBook(bandSize(lowestTicks, highestTicks)))
{
}

int TrueBook::nextTicks(Side side, int ticks) const
{
    const SideBook& book = sideOf(side);
    const int from = ticks - m_lowest;
    const int found = side == Side::Buy ? book.used.atOrBelow(from - 1) : book.used.atOrAbove(from + 1);
    return found < 0 ? 0 : found + m_lowest;
}

int TrueBook::ticksAbove(Side side, int ticks) const
{
    const int found = sideOf(side).used.atOrAbove(ticks - m_lowest + 1);
    return found < 0 ? 0 : found + m_lowest;
}

TrueLevel TrueBook::levelAt(Side side, int ticks) const
{
    TrueLevel result;
    result.ticks = ticks;
    result.price = m_scale.price(ticks);
    if (!covers(ticks))
        return result;
    const Level& level = sideOf(side).table[static_cast<std::size_t>(ticks - m_lowest)];
    result.volume = level.volume;
    result.orderCount = level.count;
    return result;
}

std::vector<TrueLevel> TrueBook::levels(Side side, int most) const
{
    std::vector<TrueLevel> result;
    if (isEmpty(side))
        return result;
    for (int ticks = bestTicks(side); ticks != 0 && static_cast<int>(result.size()) < most;
         ticks = nextTicks(side, ticks))
        result.push_back(levelAt(side, ticks));
    return result;
}

std::vector<TrueOrder> TrueBook::orders(Side side, double price, std::size_t most) const
{
    std::vector<TrueOrder> result;
    const int ticks = m_scale.ticks(price);
    if (!covers(ticks))
        return result;
    const Level& level = sideOf(side).table[static_cast<std::size_t>(ticks - m_lowest)];
    result.reserve(std::min(most, static_cast<std::size_t>(level.count)));
    for (int at = level.first; at >= 0 && result.size() < most;
         at = m_nodes[static_cast<std::size_t>(at)].next)
        result.push_back(m_nodes[static_cast<std::size_t>(at)].order);
    return result;
}

TrueOrder TrueBook::front(Side side) const
{
    const SideBook& book = sideOf(side);
    if (book.best < 0)
        return {};
    const Level& level = book.table[static_cast<std::size_t>(book.best)];
    return m_nodes[static_cast<std::size_t>(level.first)].order;
}

std::optional<TrueOrder> TrueBook::find(std::int64_t number) const
{
    const auto found = m_index.find(number);
    if (found == m_index.end())
        return std::nullopt;
    return m_nodes[static_cast<std::size_t>(found->second)].order;
}

bool TrueBook::add(Side side, int ticks, const TrueOrder& order)
{
    if (!covers(ticks) || order.remaining <= 0 || order.number == 0)
        return false;
    const auto [entry, isNew] = m_index.try_emplace(order.number, -1);
    if (!isNew)
        return false;
    const int index = takeNode();
    entry->second = index;

    SideBook& book = sideOf(side);
    const int levelIndex = ticks - m_lowest;
    Level& level = book.table[static_cast<std::size_t>(levelIndex)];
    Node& node = m_nodes[static_cast<std::size_t>(index)];
    node.order = order;
    node.level = levelIndex;
    node.side = side;
    node.previous = level.last;
    node.next = -1;
    if (level.last >= 0) {
        m_nodes[static_cast<std::size_t>(level.last)].next = index;
    } else {
        level.first = index;
        book.used.insert(static_cast<std::size_t>(levelIndex));
        ++book.levels;
        const bool better = side == Side::Buy ? levelIndex > book.best : levelIndex < book.best;
        if (book.best < 0 || better)
            book.best = levelIndex;
    }
    level.last = index;
    ++level.count;
    level.volume += order.remaining;
    ++book.orders;
    book.volume += order.remaining;
    return true;
}

void TrueBook::fillFront(Side side, std::int64_t volume)
{
    SideBook& book = sideOf(side);
    if (book.best < 0 || volume <= 0)
        return;
    Level& level = book.table[static_cast<std::size_t>(book.best)];
    Node& node = m_nodes[static_cast<std::size_t>(level.first)];
    const std::int64_t taken = std::min(volume, node.order.remaining);
    node.order.remaining -= taken;
    node.order.dealt += taken;
    level.volume -= taken;
    book.volume -= taken;
    if (node.order.remaining == 0)
        release(level.first);
}

std::optional<TrueBook::Removed> TrueBook::remove(std::int64_t number)
{
    const auto found = m_index.find(number);
    if (found == m_index.end())
        return std::nullopt;
    const int index = found->second;
    Node& node = m_nodes[static_cast<std::size_t>(index)];
    const Removed removed{node.side, node.order};
    SideBook& book = sideOf(node.side);
    book.table[static_cast<std::size_t>(node.level)].volume -= node.order.remaining;
    book.volume -= node.order.remaining;
    release(index);
    return removed;
}

int TrueBook::takeNode()
{
    if (m_free < 0) {
        m_nodes.emplace_back();
        return static_cast<int>(m_nodes.size()) - 1;
    }
    const int index = m_free;
    m_free = m_nodes[static_cast<std::size_t>(index)].next;
    return index;
}

/// Unlinks a node whose volume is accounted for, gives it back to the pool and finds the new best price.
void TrueBook::release(int index)
{
    Node& node = m_nodes[static_cast<std::size_t>(index)];
    SideBook& book = sideOf(node.side);
    Level& level = book.table[static_cast<std::size_t>(node.level)];
    (node.previous >= 0 ? m_nodes[static_cast<std::size_t>(node.previous)].next : level.first) = node.next;
    (node.next >= 0 ? m_nodes[static_cast<std::size_t>(node.next)].previous : level.last) = node.previous;
    --level.count;
    --book.orders;
    if (level.count == 0) {
        book.used.remove(static_cast<std::size_t>(node.level));
        --book.levels;
        if (book.best == node.level)
            book.best =
                node.side == Side::Buy ? book.used.atOrBelow(node.level) : book.used.atOrAbove(node.level);
    }
    m_index.erase(node.order.number);
    node.order = {};
    node.previous = -1;
    node.next = m_free;
    m_free = index;
}

std::string TrueBook::firstFault() const
{
    const std::string fault = sideFault(Side::Buy);
    if (!fault.empty())
        return fault;
    const std::string other = sideFault(Side::Sell);
    if (!other.empty())
        return other;
    const auto standing =
        static_cast<std::size_t>(orderCount(Side::Buy)) + static_cast<std::size_t>(orderCount(Side::Sell));
    return standing == m_index.size() ? std::string() : "the index holds other numbers than the levels";
}

std::string TrueBook::sideFault(Side side) const
{
    const SideBook& book = sideOf(side);
    std::int64_t volume = 0;
    int orders = 0;
    int levels = 0;
    int best = -1;
    for (std::size_t at = 0; at < book.table.size(); ++at) {
        const Level& level = book.table[at];
        std::int64_t levelVolume = 0;
        int count = 0;
        int previous = -1;
        for (int index = level.first; index >= 0; index = m_nodes[static_cast<std::size_t>(index)].next) {
            const Node& node = m_nodes[static_cast<std::size_t>(index)];
            const auto entry = m_index.find(node.order.number);
            if (entry == m_index.end() || entry->second != index)
                return "an order is not in the index";
            if (node.previous != previous || node.level != static_cast<int>(at) || node.side != side)
                return "an order is linked wrongly";
            if (node.order.remaining <= 0 || node.order.remaining + node.order.dealt != node.order.original)
                return "an order's volumes do not add up";
            levelVolume += node.order.remaining;
            ++count;
            previous = index;
        }
        if (level.last != previous || level.count != count || level.volume != levelVolume)
            return "a level's sum, count or end is wrong";
        if (book.used.contains(at) != (count > 0))
            return "the set of used prices is wrong";
        volume += levelVolume;
        orders += count;
        levels += count > 0 ? 1 : 0;
        if (count > 0 && (side == Side::Buy || best < 0))
            best = static_cast<int>(at);
    }
    if (volume != book.volume || orders != book.orders || levels != book.levels || best != book.best)
        return "a side's totals or best price are wrong";
    return {};
}

} // namespace feed
