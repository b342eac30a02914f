#pragma once

#include "feed/DayRows.h"
#include "feed/FeedSink.h"
#include "feed/replay/ReplayGaps.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace feed {

/// How a day is played.
struct ReplayOptions
{
    std::size_t historyBatch = 20000; ///< records of a history batch; at least 200
    std::size_t mostLiveOrders = 100; ///< orders of a live batch, 1 to 100: more would count as history
    std::int64_t flushInterval = 100; ///< milliseconds of feed time that are delivered together; at least 1
    double volumeUnit = 0;            ///< shares per lot; 0 for the unit of the instrument
    bool allSnapshots = false; ///< a start delivers all snapshots so far in one batch, not just the latest
    bool tellGaps = true;      ///< the numbers of calls skip where the day has a hole (`findGaps`)
};

/// Plays a day into a sink as a quote service would: history in large batches, then live batches.
///
/// Orders and deals go out in the order of their sequence. The moment of a record is its own time, or that of
/// the latest record before it in the sequence if that one is later; nothing goes out before its moment. The
/// same calls give the same deliveries.
///
/// A history load, at a start and again as long as no order has been left standing, is for each channel a
/// batch of status 0 and as many of status 3 as it takes: deals first, then orders, then an empty live batch
/// of deals. So a queue that matches orders against deals has all deals when the orders come. As long as
/// there are no orders, none are announced: a style of feed without orders stays one. (A receiver tells the
/// styles apart by whether it holds an order of a history load, so a load whose orders have all ended must be
/// repeated.) Published queues, snapshots and ladders follow: the latest of each, or on wish all snapshots,
/// for receivers that compare them. Before the first ladder of a day that has some, an empty batch of status
/// 0 takes away what a receiver may still show.
///
/// Live, each interval of feed time is delivered in one go: orders, deals, published queues, snapshots,
/// ladders.
///
/// The calls of a channel are numbered by one, but where the day itself has a hole: the first call of orders
/// or deals behind it skips a number. A history load tells a hole as well, between two of its batches, or at
/// the latest with the live batch of deals at its end.
///
/// The day and the sink must outlive the session. For one thread at a time; the sink is called on that
/// thread.
class ReplaySession
{
public:
    /// A kind of record.
    enum class Kind
    {
        None,
        Order,
        Deal,
        Queue,
        Snapshot,
        Ladder,
    };

    class Place;

    ReplaySession(const InstrumentDay& day, FeedSink& sink, ReplayOptions options);
    ReplaySession(const InstrumentDay& day, FeedSink& sink);

    /// Starts, or starts anew, at a moment (milliseconds since 1970 UTC): everything up to it goes out as
    /// history. The calls of each channel are counted from 0 again.
    void startAt(std::int64_t timeMs);

    /// Delivers what is due in (now, timeMs] live. A moment that is not after now delivers nothing. Starts
    /// before the first record if the session was not started.
    void advanceTo(std::int64_t timeMs);

    /// The moment up to which about `records` more records are due: at least so many, with all others of the
    /// moment of the last one. `limit` if fewer are due up to there.
    std::int64_t momentAfter(std::size_t records, std::int64_t limit) const;

    /// Go to the next record of a kind and deliver it together with everything before it. The clock stands at
    /// its moment then, and what else is due at that moment stays for the next call. False, with nothing
    /// delivered, if there is no such record any more.
    bool step(Kind kind);
    bool stepOrder() { return step(Kind::Order); }
    bool stepDeal() { return step(Kind::Deal); }
    bool stepSnapshot() { return step(Kind::Snapshot); }

    /// Goes back to the latest place before the present one at which a step to a record of the kind ends, by
    /// a start there: a step forward and one back end where they began if a step ended there. False, with
    /// nothing delivered, if there is no such place.
    bool stepBack(Kind kind);

    /// Where the session stands.
    Place place() const;

    /// The place that so many steps back lead to, at least one, or as many as there are. False, with the
    /// place left as it is, if there is none.
    bool placeBefore(Kind kind, std::size_t steps, Place& place) const;

    /// Starts anew at a place that this session or another of the same day has told.
    void startAt(const Place& place);

    /// Delivers the rest of the day.
    void playAll();

    /// True when all has been delivered.
    bool atEnd() const;

    /// The clock, milliseconds since 1970 UTC: no record after it has been delivered.
    std::int64_t now() const { return m_now; }

    /// First and last moment of the day; 0 for a day without rows.
    std::int64_t firstTime() const { return m_firstTime; }
    std::int64_t lastTime() const { return m_lastTime; }

    /// Market and code, the key of all calls.
    const std::string& key() const { return m_key; }

private:
    /// How much of each vector is used up, and the latest moment of the sequence so far.
    struct Position
    {
        std::size_t orders = 0;
        std::size_t deals = 0;
        std::size_t queues = 0;
        std::size_t snapshots = 0;
        std::size_t ladders = 0;
        std::int64_t sequenceTime = std::numeric_limits<std::int64_t>::min();

        std::size_t records() const { return orders + deals + queues + snapshots + ladders; }
    };

    Kind next(const Position& at, std::int64_t& time) const;
    static void pass(Position& at, Kind kind, std::int64_t time);
    void start();
    void load(const Position& to);
    bool anyOrderStands(const Position& at) const;
    bool anyOrderStands(const Position& at, std::size_t begin, std::size_t end) const;
    void deliverUpTo(const Position& to);
    void deliverLive(const Position& to);
    void deliverHistory(const Position& to);
    void sendOrders(std::size_t from, std::size_t to, int status);
    void sendDeals(std::size_t from, std::size_t to, int status);
    quoter::QuoterBatch snapshotHistory(std::size_t count) const;
    void sendLadder(std::size_t at, int status);
    template <class Send>
    void sendHistory(std::size_t count, const std::vector<ReplayGaps::Skip>& skips, int& calls, Send send);

    const InstrumentDay& m_day;
    FeedSink& m_sink;
    ReplayOptions m_options;
    ReplayGaps m_gaps;
    std::string m_key;
    bool m_started = false;
    bool m_loaded = false; ///< a history load has left an order standing
    Position m_at;
    std::int64_t m_now = 0;
    std::int64_t m_firstTime = 0;
    std::int64_t m_lastTime = 0;
    int m_orderCalls = 0;
    int m_dealCalls = 0;
    int m_quoteCalls = 0;
    int m_ladderCalls = 0;
};

/// A place between two records of a day, of which several may be of one moment. Made by a session.
class ReplaySession::Place
{
public:
    /// The clock there, milliseconds since 1970 UTC.
    std::int64_t moment() const { return m_moment; }

private:
    friend class ReplaySession;

    Position m_position;
    std::int64_t m_moment = 0;
};

} // namespace feed
