#pragma once

#include "feed/DayRows.h"

#include <absl/container/flat_hash_map.h>

#include <cstdint>
#include <map>
#include <vector>

namespace host {

/// One price of the plain book. Volumes are shares.
struct BookLevel
{
    std::int64_t shares = 0;
    int orders = 0;
    std::int64_t pricelessShares = 0; ///< of them, in orders whose records carry no price
    int pricelessOrders = 0;
};

/// An order of the plain book.
struct BookOrder
{
    int side = 0;
    int key = 0; ///< price in ticks; 0 while it stands nowhere
    std::int64_t rest = 0;
    std::int64_t dealt = 0;
    bool priceless = false;
    bool listed = false; ///< its record has come; before, only what was dealt is known
};

/// The book that the rows of a day make, row by row: price to volume and number of orders, with no queue and
/// no time in it. What the rebuilt queue and the published snapshots are held against. One thread.
///
/// Deals may stand before the record of their order, whose volume is the original one. An order without a
/// price is placed where the exchange places it: best own side at the best price of its side, a market order
/// at the best price of the other side.
class ReferenceBook
{
public:
    /// `priceTick` in yuan, above 0.
    explicit ReferenceBook(double priceTick) : m_tick(priceTick) {}

    void apply(const feed::OrderRow& row);
    void apply(const feed::DealRow& row);

    /// Levels by price in ticks; never one without orders.
    const std::map<int, BookLevel>& levels(int side) const { return side == 1 ? m_buys : m_sells; }

    /// The order of that number on that side; null if it is not known or has ended.
    const BookOrder* find(int side, std::int64_t number) const;

    /// Numbers of the standing orders at a price, ascending. Reads the whole book.
    std::vector<std::int64_t> ordersAt(int side, int key) const;

    /// Shares dealt so far, and deals.
    std::int64_t tradedShares() const { return m_tradedShares; }
    std::int64_t dealCount() const { return m_dealCount; }

    /// The ten levels a side as one figure, equal to `viewOf` of a snapshot that shows the same.
    std::uint64_t view(bool withCounts) const;
    static std::uint64_t viewOf(const feed::SnapshotRow& row, double priceTick, bool withCounts);

private:
    using Orders = absl::flat_hash_map<std::int64_t, BookOrder>;

    Orders& ordersOf(int side) { return side == 1 ? m_buyOrders : m_sellOrders; }
    const Orders& ordersOf(int side) const { return side == 1 ? m_buyOrders : m_sellOrders; }
    std::map<int, BookLevel>& levelsOf(int side) { return side == 1 ? m_buys : m_sells; }
    int placeOf(const feed::OrderRow& row) const;
    void take(int side, std::int64_t number, std::int64_t shares, bool cancel);
    void leave(const BookOrder& order, std::int64_t shares, bool whole);

    double m_tick;
    std::map<int, BookLevel> m_buys;
    std::map<int, BookLevel> m_sells;
    Orders m_buyOrders;
    Orders m_sellOrders;
    std::int64_t m_tradedShares = 0;
    std::int64_t m_dealCount = 0;
};

} // namespace host
