#pragma once

#include "platform/models/ChunkedRows.h"
#include "platform/models/NumberMap.h"
#include "records/EOrderQueueType.h"
#include "records/OrderData.h"
#include "records/TransactionData.h"

#include <absl/container/btree_map.h>
#include <absl/container/flat_hash_set.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Kel {

/// One order that stands in the book. Volumes in shares, price in yuan, time in milliseconds.
struct BookOrder
{
    std::int64_t number = 0;
    std::int64_t time = 0;
    std::int64_t volume = 0; ///< original
    std::int64_t dealt = 0;
    double price = 0; ///< of its level
    EOrderQueueType side = OQT_BUY;

    std::int64_t rest() const { return volume - dealt; }
};

/// One price at which orders stand.
struct BookLevel
{
    int key = 0;             ///< price in ticks
    double price = 0;        ///< yuan, of the order that opened the level
    std::int64_t volume = 0; ///< shares, the rests of its orders
    int orderCount = 0;
};

/// The book of one instrument by order number and by price, rebuilt from single orders and deals.
///
/// Orders and deals may come in either order and late: a deal or a cancellation whose order is not known yet
/// waits for it. A deal is one of a buy and of a sell order: a number that turns out to be an order of the
/// other side has nothing of it. Nothing is applied twice: an order counts by its number, a deal by its own
/// number (a deal without one, number 0, always counts), a cancellation ends its order for good. A finished
/// order leaves at once, and with the last order its level. An order whose price has key 0 stands nowhere;
/// its deals are dropped.
///
/// The tables of orders grow in parts, so that no single record waits for all of them to be moved.
///
/// The book keeps account of the levels that were touched since they were last asked for, so that a reader
/// pays for what changed and not for what stands. One thread at a time; nothing is thrown; records that make
/// no sense (no number, no volume, an unknown side) are passed over.
class OrderBook
{
public:
    /// `priceTick` in yuan; one that is not above 0 counts as 0.01.
    explicit OrderBook(double priceTick = 0.01);

    double priceTick() const { return m_tick; }

    // Feeding
    // -----------------------------------------------------------------------------------------------

    /// False if the record was passed over or the number is known.
    bool addOrder(const quoter::OrderData& order);

    /// A deal or a cancellation. False if it was passed over or counted before. A time before 1970 or after
    /// 2099 counts as 0, here and of orders: one broken record must not be the newest for the rest of the
    /// day.
    bool addDeal(const quoter::TransactionData& deal);

    // Reading
    // -----------------------------------------------------------------------------------------------

    /// The standing order of a number.
    std::optional<BookOrder> find(std::int64_t number) const;

    /// The level at a price in ticks, if orders stand there.
    std::optional<BookLevel> level(EOrderQueueType side, int key) const;

    /// The orders at a price in ticks by number, which is the order of their arrival.
    std::vector<BookOrder> orders(EOrderQueueType side, int key) const;

    /// The best levels of a side, best first, at most `most`.
    std::vector<BookLevel> best(EOrderQueueType side, std::size_t most) const;

    /// The levels that come after the price `key` on the way from the best one into the book, at most `most`.
    std::vector<BookLevel> behind(EOrderQueueType side, int key, std::size_t most) const;

    std::size_t levelCount(EOrderQueueType side) const { return sideOf(side).size(); }
    std::size_t orderCount() const { return m_standing; }

    /// Price (yuan) and volume (shares) of the newest deal: the latest by time, of several of one time the
    /// one with the highest number. Nothing before the first deal. A time that cannot be one (see `addDeal`)
    /// is older than all others.
    struct Deal
    {
        double price = 0;
        std::int64_t volume = 0;
    };
    const std::optional<Deal>& newestDeal() const { return m_newestDeal; }

    /// Milliseconds, newest of the records taken; 0 before the first.
    std::int64_t newestTime() const { return m_newestTime; }

    // Changes
    // -----------------------------------------------------------------------------------------------

    /// The prices in ticks, ascending and each once, at which anything changed since the last call.
    struct Changes
    {
        bool everything = false; ///< too much to count: any level may have changed, and the lists are empty
        std::vector<int> buys;
        std::vector<int> sells;
    };
    Changes takeChanges();

    /// Whether any level was touched since `takeChanges`.
    bool changed() const { return m_everythingChanged || !m_touchedBuys.empty() || !m_touchedSells.empty(); }

    /// Bytes on the heap, containers by their capacities.
    std::size_t heapBytes() const;

    /// Empty if sums, counts, links and indices agree, otherwise what does not. Reads the whole book.
    std::string firstFault() const;

private:
    using Index = std::int32_t;
    static constexpr Index kNone = -1;

    /// A standing order, or deals that wait for their order (`level` is kNone).
    struct Node
    {
        std::int64_t number = 0;
        std::int64_t time = 0;
        std::int64_t volume = 0; ///< of deals that wait: shares dealt as a sell order
        std::int64_t dealt = 0;  ///< of deals that wait: shares dealt as a buy order
        Index level = kNone;
        Index previous = kNone; ///< in the level
        Index next = kNone;     ///< in the level, or of the next free node
    };

    struct Level
    {
        double price = 0;
        std::int64_t volume = 0;
        int key = 0;
        int count = 0;
        Index first = kNone;
        Index last = kNone; ///< of the orders; the next free level of a free one
        EOrderQueueType side = OQT_BUY;
        bool touched = false; ///< its key is in the list of touched ones
    };

    using Side = absl::btree_map<int, Index>;

    Side& sideOf(EOrderQueueType side) { return side == OQT_BUY ? m_buys : m_sells; }
    const Side& sideOf(EOrderQueueType side) const { return side == OQT_BUY ? m_buys : m_sells; }
    Node& node(Index at) { return m_nodes[at]; }
    const Node& node(Index at) const { return m_nodes[at]; }
    Level& levelAt(Index at) { return m_levels[static_cast<std::size_t>(at)]; }
    const Level& levelAt(Index at) const { return m_levels[static_cast<std::size_t>(at)]; }

    static std::int64_t& waitingShares(Node& node, EOrderQueueType side)
    {
        return side == OQT_BUY ? node.dealt : node.volume;
    }

    Index takeNode();
    void freeNode(Index at);
    Index takeLevel(EOrderQueueType side, int key, double price);
    void freeLevel(Index at);
    void enter(Index at, EOrderQueueType side, int key, double price);
    void leave(Index at);
    void touch(Level& level);
    void keepNewest(const quoter::TransactionData& deal);
    void applyDeal(std::int64_t number, EOrderQueueType side, std::int64_t volume);
    void end(std::int64_t number);
    BookLevel toBookLevel(const Level& level) const;
    BookOrder toBookOrder(const Node& node) const;
    std::string sideFault(EOrderQueueType side, std::size_t& orders) const;
    std::string levelFault(EOrderQueueType side, int key, Index at) const;

    /// Under DEPTH_CHECK_INVARIANTS: aborts with a message when a level (one a side, in turns) contradicts
    /// its orders or the index.
    void checkInvariants() const;

    double m_tick;
    Side m_buys;  ///< levels by key
    Side m_sells; ///< levels by key
    std::vector<Level> m_levels;
    ChunkedRows<Node> m_nodes;
    Index m_freeLevel = kNone;
    Index m_freeNode = kNone;
    NumberMap<std::int64_t, Index> m_index;          ///< nodes by number; kNone for an order that has ended
    absl::flat_hash_set<std::int32_t> m_dealNumbers; ///< deals that counted
    std::size_t m_standing = 0;
    std::optional<Deal> m_newestDeal;
    std::int64_t m_newestDealTime = 0;
    std::int32_t m_newestDealNo = 0;
    std::int64_t m_newestTime = 0;
    std::vector<int> m_touchedBuys; ///< keys, a key twice if its level left and came back
    std::vector<int> m_touchedSells;
    bool m_everythingChanged = false;
};

} // namespace Kel
