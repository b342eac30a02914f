#include "feed/replay/ReplaySession.h"

#include "feed/record_making.h"
#include "platform/utils/volume_unit.h"

#include <boost/make_shared.hpp>

#include <absl/container/flat_hash_map.h>

#include <algorithm>
#include <deque>

namespace feed {

namespace {

constexpr int kStatusFirst = 0;
constexpr int kStatusLive = 1;
constexpr int kStatusHistory = 3;
constexpr int kStatusSnapshot = -1;

constexpr std::size_t kMostLiveOrders = 100;
constexpr std::size_t kOrdersLookedAt = 2000; // for one that stands, before the ones ahead of them
constexpr std::size_t kSmallestHistoryBatch = 2 * kMostLiveOrders;

Kel::MetaCacheDataWrapperPtr wrapped(quoter::QuoterBatch records, const nelservice::CInstrumentDetail& detail)
{
    const Kel::MetaCacheDataWrapperPtr batch = boost::make_shared<Kel::MetaCacheDataWrapper>();
    batch->data = std::move(records);
    batch->market = detail.market;
    batch->instrument = detail.code;
    return batch;
}

} // namespace

ReplaySession::ReplaySession(const InstrumentDay& day, FeedSink& sink, ReplayOptions options)
    : m_day(day), m_sink(sink), m_options(options), m_key(day.detail.market + day.detail.code)
{
    m_options.historyBatch = std::max(m_options.historyBatch, kSmallestHistoryBatch);
    m_options.mostLiveOrders = std::clamp<std::size_t>(m_options.mostLiveOrders, 1, kMostLiveOrders);
    m_options.flushInterval = std::max<std::int64_t>(m_options.flushInterval, 1);
    if (!(m_options.volumeUnit > 0))
        m_options.volumeUnit = utils::getVolumeUnit(day.detail.market, day.detail.code);
    if (m_options.tellGaps)
        m_gaps = ReplayGaps(day);
    std::int64_t time = 0;
    if (next(m_at, time) == Kind::None)
        return;
    m_firstTime = time;
    m_lastTime = time;
    for (const OrderRow& row : day.orders)
        m_lastTime = std::max(m_lastTime, row.time);
    for (const DealRow& row : day.deals)
        m_lastTime = std::max(m_lastTime, row.time);
    for (const QueueRow& row : day.queues)
        m_lastTime = std::max(m_lastTime, row.time);
    for (const SnapshotRow& row : day.snapshots)
        m_lastTime = std::max(m_lastTime, row.time);
    for (const LadderRow& row : day.ladders)
        m_lastTime = std::max(m_lastTime, row.time);
}

ReplaySession::ReplaySession(const InstrumentDay& day, FeedSink& sink)
    : ReplaySession(day, sink, ReplayOptions())
{
}

ReplaySession::Kind ReplaySession::next(const Position& at, std::int64_t& time) const
{
    Kind kind = Kind::None;
    const bool order = at.orders < m_day.orders.size();
    const bool deal = at.deals < m_day.deals.size();
    if (order && (!deal || m_day.orders[at.orders].seq <= m_day.deals[at.deals].seq)) {
        kind = Kind::Order;
        time = std::max(m_day.orders[at.orders].time, at.sequenceTime);
    } else if (deal) {
        kind = Kind::Deal;
        time = std::max(m_day.deals[at.deals].time, at.sequenceTime);
    }
    // What was published of a moment follows the records of that moment.
    if (at.queues < m_day.queues.size() && (kind == Kind::None || m_day.queues[at.queues].time < time)) {
        kind = Kind::Queue;
        time = m_day.queues[at.queues].time;
    }
    if (at.snapshots < m_day.snapshots.size() &&
        (kind == Kind::None || m_day.snapshots[at.snapshots].time < time)) {
        kind = Kind::Snapshot;
        time = m_day.snapshots[at.snapshots].time;
    }
    if (at.ladders < m_day.ladders.size() && (kind == Kind::None || m_day.ladders[at.ladders].time < time)) {
        kind = Kind::Ladder;
        time = m_day.ladders[at.ladders].time;
    }
    return kind;
}

void ReplaySession::pass(Position& at, Kind kind, std::int64_t time)
{
    switch (kind) {
    case Kind::Order:
        ++at.orders;
        at.sequenceTime = time;
        break;
    case Kind::Deal:
        ++at.deals;
        at.sequenceTime = time;
        break;
    case Kind::Queue:
        ++at.queues;
        break;
    case Kind::Snapshot:
        ++at.snapshots;
        break;
    case Kind::Ladder:
        ++at.ladders;
        break;
    case Kind::None:
        break;
    }
}

void ReplaySession::startAt(std::int64_t timeMs)
{
    Position to;
    std::int64_t time = 0;
    for (Kind kind = next(to, time); kind != Kind::None && time <= timeMs; kind = next(to, time))
        pass(to, kind, time);
    m_now = timeMs;
    load(to);
}

void ReplaySession::startAt(const Place& place)
{
    m_now = place.m_moment;
    load(place.m_position);
}

/// Everything up to a place goes out as history.
void ReplaySession::load(const Position& to)
{
    m_started = true;
    m_at = Position();
    m_orderCalls = 0;
    m_dealCalls = 0;
    m_quoteCalls = 0;
    m_ladderCalls = 0;
    m_loaded = false;
    deliverHistory(to);
    if (to.snapshots > 0)
        m_sink.onQuotes(m_key, m_quoteCalls++, kStatusSnapshot, snapshotHistory(to.snapshots));
    if (to.queues > 0) {
        m_sink.onQuotes(m_key, m_quoteCalls++, kStatusFirst,
                        {makeRecord(m_day.queues[to.queues - 1], m_options.volumeUnit)});
    }
    if (to.ladders > 0)
        sendLadder(to.ladders - 1, kStatusFirst);
    else if (!m_day.ladders.empty())
        m_sink.onLadders(m_key, m_ladderCalls++, kStatusFirst, wrapped({}, m_day.detail));
    m_at = to;
}

/// Of the first `count` snapshots those that a start delivers; at least one.
quoter::QuoterBatch ReplaySession::snapshotHistory(std::size_t count) const
{
    const std::size_t first = m_options.allSnapshots ? 0 : count - 1;
    quoter::QuoterBatch batch;
    batch.reserve(count - first);
    for (std::size_t at = first; at < count; ++at)
        batch.push_back(makeRecord(m_day.snapshots[at], m_options.volumeUnit));
    return batch;
}

void ReplaySession::start()
{
    if (!m_started)
        startAt(m_firstTime > std::numeric_limits<std::int64_t>::min() ? m_firstTime - 1 : m_firstTime);
}

void ReplaySession::advanceTo(std::int64_t timeMs)
{
    start();
    if (timeMs <= m_now)
        return;
    Position to = m_at;
    std::int64_t time = 0;
    Kind kind = next(to, time);
    while (kind != Kind::None && time <= timeMs) {
        // One interval, on the grid of multiples of the interval, ends at or after the next record. A record
        // whose own moment lies before the clock (a step left it) belongs to the interval of the clock.
        const std::int64_t from = std::max(time, m_now);
        const std::int64_t rest = from % m_options.flushInterval;
        const std::int64_t toGrid = rest > 0 ? m_options.flushInterval - rest : -rest;
        // Of two times with opposite signs the difference may need the 64th bit.
        const std::uint64_t room = static_cast<std::uint64_t>(timeMs) - static_cast<std::uint64_t>(from);
        const std::int64_t end = room < static_cast<std::uint64_t>(toGrid) ? timeMs : from + toGrid;
        for (; kind != Kind::None && time <= end; kind = next(to, time))
            pass(to, kind, time);
        m_now = end;
        deliverUpTo(to);
    }
    m_now = timeMs;
}

std::int64_t ReplaySession::momentAfter(std::size_t records, std::int64_t limit) const
{
    Position to = m_at;
    std::size_t count = 0;
    std::int64_t moment = m_now;
    std::int64_t time = 0;
    for (Kind kind = next(to, time); kind != Kind::None && time <= limit; kind = next(to, time)) {
        // What a step has left of the moment of the clock goes out with the next moment.
        if (count >= records && moment > m_now && time > moment)
            return moment;
        pass(to, kind, time);
        moment = std::max(moment, time);
        ++count;
    }
    return limit;
}

bool ReplaySession::step(Kind wanted)
{
    start();
    Position to = m_at;
    std::int64_t time = 0;
    for (Kind kind = next(to, time); kind != Kind::None; kind = next(to, time)) {
        pass(to, kind, time);
        if (kind == wanted) {
            m_now = std::max(m_now, time);
            deliverUpTo(to);
            return true;
        }
    }
    return false;
}

bool ReplaySession::stepBack(Kind kind)
{
    Place before;
    if (!placeBefore(kind, 1, before))
        return false;
    startAt(before);
    return true;
}

ReplaySession::Place ReplaySession::place() const
{
    Place here;
    here.m_position = m_at;
    here.m_moment = m_now;
    return here;
}

bool ReplaySession::placeBefore(Kind wanted, std::size_t steps, Place& place) const
{
    const std::size_t end = m_at.records();
    std::deque<Place> found; // the latest ones
    Place at;
    std::int64_t time = 0;
    for (Kind kind = next(at.m_position, time); kind != Kind::None; kind = next(at.m_position, time)) {
        pass(at.m_position, kind, time);
        at.m_moment = at.m_position.records() == 1 ? time : std::max(at.m_moment, time);
        if (at.m_position.records() >= end)
            break;
        if (kind != wanted)
            continue;
        found.push_back(at);
        if (found.size() > std::max<std::size_t>(steps, 1))
            found.pop_front();
    }
    if (found.empty())
        return false;
    place = found.front();
    return true;
}

void ReplaySession::playAll()
{
    start();
    advanceTo(m_lastTime);
    // A step may have left records of the last moment.
    Position to = m_at;
    std::int64_t time = 0;
    for (Kind kind = next(to, time); kind != Kind::None; kind = next(to, time))
        pass(to, kind, time);
    deliverUpTo(to);
}

bool ReplaySession::atEnd() const
{
    return m_started && m_at.orders == m_day.orders.size() && m_at.deals == m_day.deals.size() &&
           m_at.queues == m_day.queues.size() && m_at.snapshots == m_day.snapshots.size() &&
           m_at.ladders == m_day.ladders.size();
}

void ReplaySession::deliverUpTo(const Position& to)
{
    const bool moreTicks = to.orders > m_at.orders || to.deals > m_at.deals;
    if (!m_loaded && to.orders > 0 && moreTicks)
        deliverHistory(to);
    else
        deliverLive(to);
    for (std::size_t i = m_at.queues; i < to.queues; ++i)
        m_sink.onQuotes(m_key, m_quoteCalls++, kStatusLive,
                        {makeRecord(m_day.queues[i], m_options.volumeUnit)});
    for (std::size_t i = m_at.snapshots; i < to.snapshots; ++i) {
        m_sink.onQuotes(m_key, m_quoteCalls++, kStatusSnapshot,
                        {makeRecord(m_day.snapshots[i], m_options.volumeUnit)});
    }
    for (std::size_t i = m_at.ladders; i < to.ladders; ++i)
        sendLadder(i, kStatusLive);
    m_at = to;
}

void ReplaySession::deliverLive(const Position& to)
{
    (m_at.orders < to.orders ? m_orderCalls : m_dealCalls) += m_gaps.live(to.orders, to.deals);
    for (std::size_t from = m_at.orders; from < to.orders;) {
        const std::size_t end = std::min(to.orders, from + m_options.mostLiveOrders);
        sendOrders(from, end, kStatusLive);
        from = end;
    }
    if (m_at.deals < to.deals)
        sendDeals(m_at.deals, to.deals, kStatusLive);
}

void ReplaySession::deliverHistory(const Position& to)
{
    const ReplayGaps::Load gaps = m_gaps.load(to.orders, to.deals, kMostLiveOrders);
    sendHistory(to.deals, gaps.deals, m_dealCalls,
                [this](std::size_t from, std::size_t end, int status) { sendDeals(from, end, status); });
    m_dealCalls += gaps.atEnd;
    if (to.orders == 0)
        return;
    sendHistory(to.orders, gaps.orders, m_orderCalls,
                [this](std::size_t from, std::size_t end, int status) { sendOrders(from, end, status); });
    sendDeals(0, 0, kStatusLive);
    m_loaded = anyOrderStands(to);
}

/// Whether any of the orders so far has a rest that was neither dealt nor cancelled. Of records that are no
/// standing orders none is left, whatever their volume. The latest orders are looked at first: one of them
/// nearly always stands.
bool ReplaySession::anyOrderStands(const Position& at) const
{
    const std::size_t latest = at.orders - std::min(at.orders, kOrdersLookedAt);
    return anyOrderStands(at, latest, at.orders) || anyOrderStands(at, 0, latest);
}

bool ReplaySession::anyOrderStands(const Position& at, std::size_t begin, std::size_t end) const
{
    struct Rest
    {
        double volume = 0;
        bool touched = false; // by a deal or a cancellation
    };
    if (begin == end)
        return false;
    absl::flat_hash_map<std::int64_t, Rest> rests;
    for (std::size_t i = begin; i < end; ++i) {
        const OrderRow& row = m_day.orders[i];
        if ((row.side == 1 || row.side == 2) && row.kind != quoter::eOrderNotStanding) {
            Rest& rest = rests[row.number];
            rest.volume = std::max(rest.volume, static_cast<double>(row.volume));
        }
    }
    const auto take = [&rests](std::int64_t number, std::int64_t volume) {
        const auto found = number != 0 ? rests.find(number) : rests.end();
        if (found == rests.end())
            return;
        found->second.volume -= static_cast<double>(volume);
        found->second.touched = true;
    };
    for (std::size_t i = 0; i < at.deals; ++i) {
        const DealRow& row = m_day.deals[i];
        take(row.buyNo, row.volume);
        if (row.sellNo != row.buyNo)
            take(row.sellNo, row.volume);
    }
    return std::any_of(rests.begin(), rests.end(),
                       [](const auto& rest) { return !rest.second.touched || rest.second.volume > 0; });
}

template <class Send>
void ReplaySession::sendHistory(std::size_t count, const std::vector<ReplayGaps::Skip>& skips, int& calls,
                                Send send)
{
    std::size_t from = 0;
    int status = kStatusFirst;
    auto skip = skips.begin();
    do {
        const std::size_t most = skip != skips.end() ? skip->row : count;
        std::size_t end = std::min(most, from + m_options.historyBatch);
        // A short last batch would be taken for a live one.
        if (most - end <= kMostLiveOrders)
            end = most;
        send(from, end, status);
        from = end;
        status = kStatusHistory;
        if (skip != skips.end() && from == skip->row)
            calls += skip++->numbers;
    } while (from < count);
}

void ReplaySession::sendOrders(std::size_t from, std::size_t to, int status)
{
    m_sink.onOrders(m_key, m_orderCalls++, status,
                    wrapped(makeOrderBatch(m_day.orders.data() + from, to - from), m_day.detail));
}

void ReplaySession::sendDeals(std::size_t from, std::size_t to, int status)
{
    m_sink.onDeals(m_key, m_dealCalls++, status,
                   wrapped(makeDealBatch(m_day.deals.data() + from, to - from), m_day.detail));
}

void ReplaySession::sendLadder(std::size_t at, int status)
{
    m_sink.onLadders(m_key, m_ladderCalls++, status, wrapped({makeRecord(m_day.ladders[at])}, m_day.detail));
}

} // namespace feed
