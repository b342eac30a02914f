#pragma once

#include "records/COrderVol.h"
#include "records/DepthExport.h"
#include "records/LevelRest.h"
#include "records/OrderNumberSet.h"

#include <boost/shared_ptr.hpp>

#include <QString>

#include <cstdint>
#include <vector>

namespace Kel {

/// One price level of one side: its list of orders and what is known of it.
///
/// Two volumes matter: `m_sumVol`, what the list adds up to, and `m_levelVol`, what the level is held to
/// contain. The positive part of their difference is `m_unknownVol`, the filler that a view draws as volume
/// of unknown orders.
///
/// Threads: a level that belongs to the engine is guarded by the engine's data mutex; a row (a copy made by
/// the copy constructor) belongs to whoever holds it. Volumes are lots.
class DEPTH_EXPORT OrderQueueData
{
public:
    OrderQueueData() = default;
    OrderQueueData(double price, std::int64_t time, EOrderQueueType type);

    /// Copies all fields, the list implicitly shared, and leaves `m_orderIds` empty: a copy is a display row,
    /// which nothing is ever added to.
    OrderQueueData(const OrderQueueData& other);
    OrderQueueData& operator=(const OrderQueueData& other);

    double m_price = 0; ///< yuan
    std::int64_t m_time =
        0; ///< seconds of the record that opened the level; milliseconds if a snapshot opened it
    double m_sumVol = 0;       ///< lots of the listed live orders
    double m_levelVol = 0;     ///< lots that the level is held to contain
    double m_avgVol = 0;       ///< lots per order
    double m_unknownVol = 0;   ///< `m_levelVol` less what the list accounts for; may be negative
    OrderList m_orders;        ///< in order of arrival, front of the queue first
    OrderNumberSet m_orderIds; ///< numbers added, so that a number enters once
    int m_level = 0; ///< 1 to 10 when among the ten at the last calculation; kept when the level drops out
    EOrderQueueType m_type = OQT_BUY; ///< `OQT_BUY` or `OQT_SELL`
    int m_count = 0;                  ///< number of orders to show, filler included
    int m_startIndex = 0;             ///< index in `m_orders` of the first order inside the level
    bool m_hasPartDeal = false;       ///< a part-dealt order in the level has a dealt part to draw

    // --- adding (OrderQueueData.cpp)

    /// Appends an order whose number is not in the level yet and counts it; a number already added changes
    /// nothing.
    void addOrderVol(const COrderVol& order);

    /// Appends an order without counting it: neither sums nor `m_orderIds` change.
    void appendUncounted(const COrderVol& order);

    /// Sets the type of the first listed order with this number. False if the number is not in the list.
    bool markOrder(std::int64_t entrustNo, EOrderQueueType type);

    // --- held against published queues and snapshots (level_reconciliation.cpp)

    /// Replaces the list by published volumes (lots); the orders have number 0.
    void resetByLevelVols(const std::vector<int>& vols);

    /// Finds where in the list the published queue (lots) begins, declares what stands before it dealt and
    /// what no longer matches it cancelled, and appends what is new. An empty queue changes nothing.
    void mergeLevelVols(std::vector<int> vols);

    /// Compares `m_levelVol` with the list from its back: sets `m_startIndex`, `m_count`, `m_unknownVol`.
    /// Does nothing for a level without volume or outside the ten.
    void calcUnknownVol();

    /// Cuts the list from its front so that it holds `m_levelVol` lots. True if it was cut.
    bool trimToLevelVol();

    /// By price-time priority nothing older stands before a part-dealt order: removes what does. True if the
    /// list holds a part-dealt order with a standing order before it.
    bool dropBeforePartDeal(bool bOnlyTenLevels);

    // --- shown (OrderQueueData.cpp)

    /// Counts and sums the list anew, cancelled and dealt orders left out. The average has no guard for an
    /// empty list.
    void recount();

    /// True if the level has a price.
    bool hasPrice() const;

    /// Label of the row: "买一" to "买十", "卖一" to "卖十".
    QString getLevelName() const;

    // --- rest
    // A busy book lists hundreds of thousands of orders and changes a few hundred of them between two passes.
    // What a level remembers of its last pass lets the next one read only what can have changed. Every
    // operation above that changes the list wakes the level; who writes to `m_orders` directly calls `wake`.

    LevelRest m_rest;

    /// The list may give another result than at the last pass, in any of its orders.
    void wake() { m_rest.wakeAll(); }

    /// `calcUnknownVol`, without the walk over the list when list and level volume are as they were at the
    /// last walk.
    void calcUnknownVolAtRest();

private:
    bool inTenLevels() const { return m_level >= 1 && m_level <= 10; }
    void applyUnknown(int startIndex, double acc);
};

using OrderQueueDataPtr = boost::shared_ptr<OrderQueueData>;

/// Order by level: true when `a` is nearer to the best price than `b`. No level comes before any.
DEPTH_EXPORT bool orderQueueLesserThan(const OrderQueueDataPtr& a, const OrderQueueDataPtr& b);

/// The level as lines of text, for tests and the command line: one head line, then one line an order.
DEPTH_EXPORT QString printLevel(const OrderQueueData& level);

} // namespace Kel
