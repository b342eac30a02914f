#pragma once

#include "feed/DayRows.h"
#include "feed/simulation/SimulatedExchange.h"

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace feed::test {

/// A plain book that knows nothing but the rows: maps and queues, no cleverness. It says what in the rows
/// breaks the rules of an exchange, and holds the published rows against what it built.
class ReferenceBook : public RowSink
{
public:
    struct Order
    {
        std::int64_t number = 0;
        std::int64_t original = 0;
        std::int64_t remaining = 0;
        bool priceless = false;
    };
    using Level = std::deque<Order>;
    using Levels = std::map<int, Level>; ///< by ticks, lowest first

    explicit ReferenceBook(const SimulationSettings& settings);

    void onOrder(const OrderRow& row) override;
    void onDeal(const DealRow& row) override;
    void onSnapshot(const SnapshotRow& row) override;
    void onQueue(const QueueRow& row) override;

    /// What broke a rule, first ones first; at most twenty.
    const std::vector<std::string>& faults() const { return m_faults; }

    const Levels& side(Side side) const { return side == Side::Buy ? m_bids : m_asks; }

    /// Empty if the book is the same as `truth`, order for order.
    std::string differenceTo(const TrueBook& truth) const;

    int snapshotsCompared() const { return m_snapshots; }
    int queuesCompared() const { return m_queues; }

    /// Shares that were announced, dealt (both sides counted) and withdrawn.
    std::int64_t announced() const { return m_announced; }
    std::int64_t dealt() const { return m_dealt; }
    std::int64_t withdrawn() const { return m_withdrawn; }
    std::int64_t standing() const;

private:
    struct Active
    {
        Side side = Side::Buy;
        std::int64_t number = 0;
        std::int64_t remaining = 0;
        int limit = 0;    ///< ticks; 0 for a market order, which never stands
        int lastDeal = 0; ///< ticks
        int prices = 0;   ///< at which it was dealt
    };

    void fault(const std::string& text, std::int64_t seq);
    void checkSequence(std::int64_t seq, std::int64_t time);
    void settle(std::int64_t seq);
    void auctionDeal(const DealRow& row, int ticks);
    void activeDeal(const DealRow& row, int ticks);
    void cancel(const DealRow& row);
    void take(Side side, std::int64_t number, std::int64_t volume, int bestAllowed, std::int64_t seq);
    void compareSide(Side side, const SnapshotRow& row);
    void compareAuction(const SnapshotRow& row);
    std::string queueDifference(Side side, double price, int count,
                                const std::vector<std::int64_t>& volumes) const;
    Levels& mutableSide(Side side) { return side == Side::Buy ? m_bids : m_asks; }
    int best(Side side) const;
    bool inAuction(std::int64_t time) const;

    SimulationSettings m_settings;
    TickScale m_scale;
    std::int64_t m_midnight;
    Levels m_bids;
    Levels m_asks;
    std::optional<Active> m_active; ///< the order that came last, while deals of it may follow
    std::int64_t m_lastSeq = 0;
    std::int64_t m_lastTime = 0;
    std::int64_t m_lastNumber = 0;
    std::int64_t m_announced = 0;
    std::int64_t m_dealt = 0;
    std::int64_t m_withdrawn = 0;
    std::int64_t m_tradedVolume = 0;
    int m_deals = 0;
    int m_lastPrice = 0; ///< ticks
    int m_snapshots = 0;
    int m_queues = 0;
    std::vector<std::string> m_faults;
};

/// The match of an auction found by trying every price between the best ones.
AuctionMatch slowAuctionMatch(const ReferenceBook::Levels& bids, const ReferenceBook::Levels& asks,
                              int reference);

} // namespace feed::test
