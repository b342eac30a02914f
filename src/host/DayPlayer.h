#pragma once

#include "host/DayTimeline.h"
#include "host/SteppedEngine.h"

#include <absl/container/flat_hash_set.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace host {

/// Plays a day into an engine in the order of its timeline, as a quote service would: in slices, orders
/// before deals, with the engine's timers running in feed time.
///
/// The first slice opens the channels: its deals go out with status 0, then its orders with status 0. All
/// later ones are live batches of at most 100 orders, followed by their deals.
///
/// An order that is dealt in part and cancelled between two refresh ticks keeps its dealt lots in the
/// engine's list, because the pass that marks it as cancelled takes only the cancelled lots off.
/// `tickBeforeCancel` lets a tick pass between the two, as if the refresh interval were short enough to
/// separate them. One thread.
class DayPlayer
{
public:
    struct Options
    {
        std::int64_t refreshMs = 500; ///< refresh interval in feed time
        bool tickBeforeCancel = true;
    };

    /// Timeline and engine must outlive the player; the engine has the day's instrument open.
    DayPlayer(const DayTimeline& timeline, SteppedEngine& engine, const Options& options);

    /// Plays one entry. False at the end of the day.
    bool step();

    /// Plays everything up to and including a moment (ms since 1970-01-01 UTC) and lets the timers fire up to
    /// it.
    void playUntil(std::int64_t time);

    /// Hands over what waits for the slice to end.
    void flush();

    /// Lets so many refresh ticks pass in which the feed is quiet.
    void quiet(int ticks);

    bool atEnd() const { return m_next >= m_timeline.entries().size(); }

    /// Entries played so far; the last of them is `entries()[played() - 1]`.
    std::size_t played() const { return m_next; }

    /// Time of the next entry; the greatest int64 at the end.
    std::int64_t nextTime() const
    {
        return atEnd() ? std::numeric_limits<std::int64_t>::max() : m_timeline.entries()[m_next].time;
    }

    /// Feed time: of the last entry, or up to which time was let pass.
    std::int64_t now() const { return m_now; }

    /// Numbers of orders that were dealt in part and cancelled between two refresh ticks.
    const absl::flat_hash_set<std::int64_t>& keptRests() const { return m_keptRests; }

private:
    void passTime(std::int64_t time);
    void onOrder(const feed::OrderRow& row);
    void onDeal(const feed::DealRow& row);
    void sendOrders(int status, std::size_t from, std::size_t count);
    void sendDeals(int status);
    Kel::MetaCacheDataWrapperPtr wrap(quoter::QuoterBatch batch) const;

    const DayTimeline& m_timeline;
    SteppedEngine& m_engine;
    Options m_options;
    std::size_t m_next = 0;
    std::int64_t m_now = 0;
    std::int64_t m_ticksSeen = 0;
    bool m_dealsOpen = false;
    bool m_ordersOpen = false;
    std::vector<feed::OrderRow> m_orders; ///< of the slice
    std::vector<feed::DealRow> m_deals;
    absl::flat_hash_set<std::int64_t> m_dealtSinceTick;
    absl::flat_hash_set<std::int64_t> m_keptRests;
};

} // namespace host
