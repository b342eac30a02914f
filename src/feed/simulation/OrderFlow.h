#pragma once

#include "feed/simulation/Random.h"
#include "feed/simulation/SimulationSettings.h"
#include "feed/simulation/TrueBook.h"

#include <cstdint>

namespace feed {

/// What a trader sends.
struct TraderMessage
{
    enum class Action
    {
        Nothing, ///< no message, or a cancellation that found no order to withdraw
        Limit,
        Market,
        BestOwnSide,
        Cancel,
    };
    Action action = Action::Nothing;
    Side side = Side::Buy;
    int ticks = 0;           ///< price of a limit order; may lie outside the day's limits
    std::int64_t volume = 0; ///< shares
    std::int64_t number = 0; ///< order to withdraw
};

/// The traders: they follow a fair price that wanders and returns, wait around it at distances with a heavy
/// tail, reach across the spread now and then, prefer the side that they sent last, and withdraw young and
/// near orders rather than deep ones. One thread.
class OrderFlow
{
public:
    /// `settings` are usable ones. `book` and `random` outlive this object; the book is only read.
    OrderFlow(const SimulationSettings& settings, const TrueBook& book, Random& random);

    /// The next message at a moment of the day, in seconds after midnight; none while the exchange takes no
    /// orders.
    TraderMessage next(double secondOfDay);

    /// The price that the traders hold for fair, in ticks.
    double fairTicks() const { return m_fair; }

private:
    void moveFairPrice(double secondOfDay);
    TraderMessage cancellation();
    TraderMessage order(bool inAuction);
    Side chooseSide();
    Side chooseReachingSide();
    std::int64_t chooseVolume(Side side);
    int auctionTicks(Side side);
    int waitingTicks(Side side);
    int reachingTicks(Side side);
    bool canReach(Side side) const;
    int clampedTicks(double ticks) const;

    SimulationSettings m_settings;
    const TrueBook& m_book;
    Random& m_random;
    double m_start;    ///< previous close, ticks
    double m_distance; ///< typical distance of a waiting order, ticks
    double m_step;     ///< deviation of the fair price over one second, ticks
    double m_fair;
    double m_second = 0;
    Side m_lastSide = Side::Buy;
};

} // namespace feed
