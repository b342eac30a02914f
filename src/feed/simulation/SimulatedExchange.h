#pragma once

#include "feed/DayRows.h"
#include "feed/simulation/ArrivalTimes.h"
#include "feed/simulation/MarketChannel.h"
#include "feed/simulation/MatchingBook.h"
#include "feed/simulation/OrderFlow.h"
#include "feed/simulation/Random.h"
#include "feed/simulation/SimulationSettings.h"
#include "feed/simulation/TrueBook.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace feed {

/// An exchange that trades one instrument for one day, with its traders. It delivers what the exchanges
/// deliver: orders, deals and cancellations in one sequence (an order's row before its deals, with the
/// original volume), a snapshot every three seconds of trading and at each change of phase, with it the
/// ladder of a thousand prices a side where the sink takes it, and the published queue at the best prices
/// during continuous trading. At any moment it tells the true queue. The same settings give the same rows,
/// bit for bit, on every machine.
///
/// Not modelled: the price cage around the best price, trading after hours, halts, and the later close that
/// some bonds and repurchases have. An order outside the price limits is refused and never published.
///
/// One thread at a time; objects are independent of each other.
class SimulatedExchange
{
public:
    /// Takes `usable(settings)`.
    explicit SimulatedExchange(const SimulationSettings& settings);

    SimulatedExchange(const SimulatedExchange&) = delete;
    SimulatedExchange& operator=(const SimulatedExchange&) = delete;

    /// Lets the next thing happen (a trader's message, a change of phase, a publication) and delivers its
    /// rows. False when the day is over.
    bool step(RowSink& sink);

    /// Lets everything up to and including `time` happen (ms since 1970-01-01 UTC). Going back is not
    /// possible: an earlier time does nothing.
    void runUntil(std::int64_t time, RowSink& sink);

    /// Runs what is left of the day.
    void runDay(RowSink& sink);

    /// Time of the last thing that happened or of the last `runUntil`, ms since 1970-01-01 UTC.
    std::int64_t now() const { return m_now; }

    /// Time of the next thing, ms since 1970-01-01 UTC; the greatest int64 when the day is over.
    std::int64_t nextTime() const;

    /// A moment of this trading day, ms since 1970-01-01 UTC.
    std::int64_t timeAt(int secondOfDay) const { return m_midnight + std::int64_t(secondOfDay) * 1000; }

    Phase phase() const { return m_phase; }

    /// The true queue at `now()`.
    const TrueBook& book() const { return m_book; }

    /// Settings with which the day runs; `detail` has the price limits.
    const SimulationSettings& settings() const { return m_settings; }

    const ChannelCounts& counts() const { return m_channel.counts(); }
    const DayTotals& totals() const { return m_channel.totals(); }
    std::int64_t lastSequence() const { return m_channel.lastSequence(); }

    /// Orders that were refused: outside the price limits.
    std::int64_t refusedOrders() const { return m_refused; }

private:
    enum class EventKind
    {
        Phase, ///< begins `Event::phase`, after matching the auction that ends
        Match, ///< ends the opening auction
        Snapshot,
        Queue,
    };

    struct Event
    {
        int millisecond; ///< of the day
        EventKind kind;
    };

    void planDay();
    void planEvery(int from, int to, std::int64_t intervalMs, EventKind kind);
    void drawArrival();
    void handle(const Event& event);
    void handle(const TraderMessage& message);
    void matchAuction();
    void publishSnapshot(RowSink& sink);

    SimulationSettings m_settings;
    std::int64_t m_midnight; ///< ms since 1970-01-01 UTC
    TrueBook m_book;
    MarketChannel m_channel;
    MatchingBook m_matching;
    Random m_random;
    ArrivalTimes m_arrivals;
    OrderFlow m_flow;
    std::vector<Event> m_events; ///< publications and phases, in order
    std::size_t m_nextEvent = 0;
    double m_arrivalSecond = 0;     ///< of the day, of the next message
    std::int64_t m_arrivalTime = 0; ///< the same, ms since 1970-01-01 UTC
    std::int64_t m_now = 0;
    Phase m_phase = Phase::Unknown;
    bool m_auctionOpen = false; ///< the sides may overlap: an auction collects orders
    RowSink* m_sink = nullptr;  ///< of the step in hand
    std::int64_t m_refused = 0;
};

/// A whole day in memory, with the instrument's record and its price limits. Any thread.
InstrumentDay simulatedDay(const SimulationSettings& settings);

} // namespace feed
