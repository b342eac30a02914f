#pragma once

#include "feed/FeedSink.h"
#include "queue_engine/CDepthModelOrderQueue.h"

#include <cstdint>
#include <string>
#include <vector>

namespace host {

/// What stands at one price, counted from the engine's list.
struct ListedLevel
{
    int key = 0;             ///< price in ticks
    double price = 0;        ///< yuan
    std::int64_t shares = 0; ///< of the orders that are neither cancelled nor dealt
    int orders = 0;          ///< their number
};

/// Shares of a number of lots, rounded to whole ones; within 64 bits whatever the lots are, 0 for no number.
std::int64_t wholeShares(double lots, double unit);

/// An order-queue engine without timers and threads: every call of the feed is done when it returns, and time
/// passes only when it is told to. The same calls give the same queue, every time. For programs and tests;
/// one thread.
class SteppedEngine : public Kel::CDepthModelOrderQueue, public feed::FeedSink
{
public:
    SteppedEngine();

    /// Enters the instrument in the stock manager and chooses it. False for one without an order queue (an
    /// index).
    bool open(const nelservice::CInstrumentDetail& detail);

    // The feed, in place of the engine's own threads. Other statuses than the feed's do nothing.
    void feedOrders(int status, const Kel::MetaCacheDataWrapperPtr& batch);
    void feedDeals(int status, const Kel::MetaCacheDataWrapperPtr& batch);
    void feedQuotes(int status, const quoter::QuoterBatch& batch);

    void onOrders(const std::string& key, int seq, int status,
                  const Kel::MetaCacheDataWrapperPtr& batch) override;
    void onDeals(const std::string& key, int seq, int status,
                 const Kel::MetaCacheDataWrapperPtr& batch) override;
    void onQuotes(const std::string& key, int seq, int status, const quoter::QuoterBatch& batch) override;

    /// One tick of the refresh timer.
    void refreshTick() { slotTimeout(); }

    /// One tick of the one-second timer; nothing while that timer does not run.
    void secondTick();

    /// Calculates the rows if anything may have changed them, as a view does before it paints.
    bool calculate() { return checkCalcOrder(); }

    /// Calculates the rows whether anything told of a change or not.
    void recalculate() { calcOrder(); }

    /// Interval of the refresh timer in feed time, ms; at least 1. Initially 500.
    void setRefreshInterval(std::int64_t ms);

    /// Lets the timers fire as they would between two moments of feed time, `fromMs` excluded, `toMs`
    /// included. Times in ms since 1970-01-01 UTC. A gap of more than a day is taken as a jump: the timers
    /// start anew behind it.
    void advanceTimers(std::int64_t fromMs, std::int64_t toMs);

    /// Moment of the next tick of either timer; the greatest int64 before the first `advanceTimers`.
    std::int64_t nextTick() const;

    /// Refresh ticks so far.
    std::int64_t refreshTicks() const { return m_ticks; }

    /// The first `most` levels of a side that hold live orders, best price first, counted from the lists.
    /// Prices of the levels are those of the orders that opened them.
    std::vector<ListedLevel> levels(Kel::EOrderQueueType side, int most) const;

    /// A copy of the level at a price key; null if there is none.
    Kel::OrderQueueDataPtr level(Kel::EOrderQueueType side, int key) const;

    /// A copy of every level of a side by ascending key.
    std::vector<std::pair<int, Kel::OrderQueueDataPtr>> allLevels(Kel::EOrderQueueType side) const;

    double volumeUnit() const { return m_volumeUnit.load(); }
    double priceTick() const { return m_priceTick.load(); }

    /// The latest snapshot; null before the first.
    boost::shared_ptr<quoter::QuoterDepthData> depth() const { return m_depthData.load(); }

private:
    std::int64_t m_refreshMs = 500;
    std::int64_t m_now = 0; ///< feed time up to which the timers have fired
    std::int64_t m_nextRefresh = 0;
    std::int64_t m_nextSecond = 0; ///< 0 while the one-second timer does not run
    bool m_started = false;
    std::int64_t m_ticks = 0;
};

/// A 64-bit figure of everything that the engine holds and shows: lists of all levels, rows and header. Two
/// engines that were fed alike have the same; it is the same on every machine.
std::uint64_t stateHash(const SteppedEngine& engine);

} // namespace host
