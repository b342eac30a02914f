#pragma once

#include "feed/DayRows.h"

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <vector>

namespace testing_support {

/// The plainest order book: what stands at which price after a number of rows. It follows the rows one by one
/// in the order of their sequence, orders that come after their deals among them, and knows nothing of speed.
class ReferenceBook
{
public:
    void add(const feed::OrderRow& row);
    void deal(const feed::DealRow& row);

    /// Why the snapshot's ten levels differ from the book: empty if prices, volumes and order counts all
    /// agree.
    std::string difference(const feed::SnapshotRow& snapshot) const;

    std::int64_t dealtVolume() const { return m_dealtVolume; }
    std::int64_t dealCount() const { return m_dealCount; }

    /// Deals that hit an order that was not the first of its queue at that moment.
    std::int64_t dealsBehindTheFront() const { return m_dealsBehindTheFront; }

private:
    struct Order
    {
        bool placed = false;
        int side = 0;
        std::int64_t key = 0;  ///< price in 1/10000 yuan
        std::int64_t rest = 0; ///< negative while it is dealt before it is placed
    };
    struct Level
    {
        std::int64_t volume = 0;
        std::deque<std::int64_t> numbers; ///< front of the queue first
    };
    using Side = std::map<std::int64_t, Level>;

    Side& side(int which) { return which == 1 ? m_bids : m_asks; }
    void take(std::int64_t number, std::int64_t volume, bool isDeal);

    std::map<std::int64_t, Order> m_orders;
    Side m_bids;
    Side m_asks;
    std::int64_t m_dealtVolume = 0;
    std::int64_t m_dealCount = 0;
    std::int64_t m_dealsBehindTheFront = 0;
};

/// How the snapshots of one phase agree with a book rebuilt from the rows.
struct Agreement
{
    std::int64_t compared = 0;
    std::int64_t matched = 0;
    std::string firstDifference;
    std::int64_t dealsBehindTheFront = 0;
};

/// Plays the rows by sequence and looks, for each snapshot of the phase, for a moment at which the book is
/// exactly what the snapshot shows. The moments go forward; one counts if the totals of volume and deals
/// agree too.
Agreement agreementWithSnapshots(const feed::InstrumentDay& day, feed::Phase phase);

} // namespace testing_support
