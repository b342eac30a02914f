#pragma once

#include "feed/simulation/TickScale.h"
#include "feed/simulation/TickSet.h"

#include <absl/container/flat_hash_map.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace feed {

/// The side of an order, with the feed's numbers.
enum class Side : std::int32_t
{
    Buy = 1,
    Sell = 2,
};

inline Side opposite(Side side)
{
    return side == Side::Buy ? Side::Sell : Side::Buy;
}

/// One standing order. Volumes in shares; remaining + dealt = original.
struct TrueOrder
{
    std::int64_t number = 0;
    std::int64_t remaining = 0;
    std::int64_t original = 0;
    std::int64_t dealt = 0;
    std::int64_t time = 0;  ///< of its announcement, ms since 1970-01-01 UTC; 0 where nobody told
    bool priceless = false; ///< the feed's order record has no price although the order stands at one
};

/// One price with what stands there.
struct TrueLevel
{
    double price = 0; ///< yuan
    int ticks = 0;
    std::int64_t volume = 0; ///< shares
    int orderCount = 0;
};

/// The book of the simulated exchange and the truth that a rebuilt queue is held against: a level for each
/// price of a fixed band, first-in-first-out lists over pooled nodes, and an index by order number. Bids and
/// asks may overlap, as they do before an auction is matched. Volumes are shares, prices ticks or yuan. One
/// thread.
class TrueBook
{
public:
    /// A book for the prices from `lowestTicks` to `highestTicks`, both included; at most 2^22 of them.
    /// Prices are 1 tick and more, since 0 stands for none.
    TrueBook(int lowestTicks, int highestTicks, const TickScale& scale);

    // --- reading

    bool isEmpty(Side side) const { return best(side) < 0; }

    /// Best price in ticks; 0 for an empty side.
    int bestTicks(Side side) const { return isEmpty(side) ? 0 : best(side) + m_lowest; }

    /// Best price in yuan; 0 for an empty side.
    double bestPrice(Side side) const { return m_scale.price(bestTicks(side)); }

    /// The next price behind `ticks` on the way from the best price into the book; 0 if there is none.
    int nextTicks(Side side, int ticks) const;

    /// The lowest price of a side above `ticks`; 0 if there is none.
    int ticksAbove(Side side, int ticks) const;

    /// The level at a price; a price without orders gives a level of volume 0.
    TrueLevel levelAt(Side side, int ticks) const;

    /// The first levels of a side, best price first.
    std::vector<TrueLevel> levels(Side side, int most) const;

    /// The orders at a price, first to be served first; at most `most`. Empty for a price without orders.
    std::vector<TrueOrder> orders(Side side, double price, std::size_t most = SIZE_MAX) const;

    /// The order that is served next on its side; `number` 0 for an empty side.
    TrueOrder front(Side side) const;

    /// The standing order of that number.
    std::optional<TrueOrder> find(std::int64_t number) const;

    int orderCount(Side side) const { return sideOf(side).orders; }
    int levelCount(Side side) const { return sideOf(side).levels; }
    std::int64_t volume(Side side) const { return sideOf(side).volume; }
    int lowestTicks() const { return m_lowest; }
    int highestTicks() const { return m_lowest + static_cast<int>(m_sides[0].table.size()) - 1; }
    bool covers(int ticks) const { return ticks >= lowestTicks() && ticks <= highestTicks(); }
    const TickScale& scale() const { return m_scale; }

    /// Places of the pool, free ones included; a random one is a cheap way to a random order.
    std::size_t placeCount() const { return m_nodes.size(); }

    /// Number of the order at a place of the pool, 0 for a free place.
    std::int64_t numberAt(std::size_t place) const { return m_nodes[place].order.number; }

    /// Where the order at a place stands; meaningless for a free place.
    struct Standing
    {
        Side side;
        int ticks;
    };
    Standing standingAt(std::size_t place) const
    {
        return {m_nodes[place].side, m_nodes[place].level + m_lowest};
    }

    /// Empty if sums, counts, links and index agree, otherwise what does not. Reads the whole book.
    std::string firstFault() const;

    // --- changing

    /// Puts an order at the end of its price. False, and nothing changes, for a price out of the band, a
    /// volume that is not above 0, or a number that is 0 or stands already.
    bool add(Side side, int ticks, const TrueOrder& order);

    /// Deals `volume` shares of the front order of a side; at its last share the order leaves. A volume that
    /// is more than stands there is cut. Nothing happens on an empty side.
    void fillFront(Side side, std::int64_t volume);

    /// Takes an order out and tells it as it stood; nothing for an unknown number.
    struct Removed
    {
        Side side;
        TrueOrder order;
    };
    std::optional<Removed> remove(std::int64_t number);

private:
    struct Node
    {
        TrueOrder order;
        int level = 0; ///< index into the side's table
        int previous = -1;
        int next = -1; ///< in the level, or of the next free node
        Side side = Side::Buy;
    };

    struct Level
    {
        std::int64_t volume = 0;
        int first = -1;
        int last = -1;
        int count = 0;
    };

    struct SideBook
    {
        explicit SideBook(std::size_t size) : table(size), used(size) {}
        std::vector<Level> table; ///< by ticks above the lowest price of the band
        TickSet used;             ///< the indices of `table` at which orders stand
        std::int64_t volume = 0;
        int best = -1; ///< index of the best price, -1 for none
        int orders = 0;
        int levels = 0;
    };

    SideBook& sideOf(Side side) { return m_sides[side == Side::Buy ? 0 : 1]; }
    const SideBook& sideOf(Side side) const { return m_sides[side == Side::Buy ? 0 : 1]; }
    int best(Side side) const { return sideOf(side).best; }
    int takeNode();
    void release(int index);
    std::string sideFault(Side side) const;

    int m_lowest;
    TickScale m_scale;
    std::vector<SideBook> m_sides; ///< bids, asks
    std::vector<Node> m_nodes;
    int m_free = -1; ///< first free node
    absl::flat_hash_map<std::int64_t, int> m_index;
};

} // namespace feed
