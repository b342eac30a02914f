#include "feed/simulation/SimulatedExchange.h"

#include "feed/simulation/AuctionPrice.h"
#include "feed/simulation/TradingHours.h"
#include "feed/simulation/published_rows.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace feed {
namespace {

constexpr std::int64_t kSnapshotMs = 3000;
constexpr std::int64_t kIdleSnapshotMs = 60000; // while nothing can change
constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

/// An instrument without price limits still trades within a band, so that a slip of a trader cannot build a
/// book of any size: a twentieth to five times the previous close. No band is wider than this many prices to
/// each side.
constexpr double kWidestBand = 1 << 18;

TrueBook makeBook(const SimulationSettings& settings)
{
    const nelservice::CInstrumentDetail& detail = settings.detail;
    const TickScale scale(detail.priceTick);
    const double close = scale.ticks(detail.previousClose);
    const double low = detail.lowerLimit > 0 ? scale.ticks(detail.lowerLimit) : close / 20;
    const double high = detail.upperLimit > 0 ? scale.ticks(detail.upperLimit) : close * 5;
    return TrueBook(static_cast<int>(std::max({1.0, std::ceil(low), close - kWidestBand})),
                    static_cast<int>(std::max(close, std::min(std::floor(high), close + kWidestBand))),
                    scale);
}

/// Messages for the wanted orders: a share of the messages withdraws.
double messagesOf(const SimulationSettings& settings)
{
    return static_cast<double>(settings.orders) / (1 - settings.cancelShare);
}

} // namespace

SimulatedExchange::SimulatedExchange(const SimulationSettings& settings)
    : m_settings(usable(settings)),
      m_midnight(hours::midnightOf(settings.tradingDay)),
      m_book(makeBook(m_settings)),
      m_channel(m_settings, m_book.scale()),
      m_matching(m_book, m_channel),
      m_random(m_settings.seed),
      m_arrivals(messagesOf(m_settings), m_settings.burstStrength, m_settings.busyOpen, m_random),
      m_flow(m_settings, m_book, m_random),
      m_now(timeAt(hours::kStart) - 1)
{
    planDay();
    drawArrival();
}

void SimulatedExchange::planDay()
{
    const int second = 1000;
    for (const int start : {hours::kStart, hours::kOpeningAuction, hours::kMorning, hours::kBreak,
                            hours::kAfternoon, hours::kClosingAuction, hours::kClose})
        m_events.push_back({start * second, EventKind::Phase});
    m_events.push_back({hours::kOpeningMatch * second, EventKind::Match});
    planEvery(hours::kOpeningAuction, hours::kOpeningMatch, kSnapshotMs, EventKind::Snapshot);
    planEvery(hours::kOpeningMatch, hours::kMorning, kIdleSnapshotMs, EventKind::Snapshot);
    planEvery(hours::kMorning, hours::kBreak, kSnapshotMs, EventKind::Snapshot);
    planEvery(hours::kBreak, hours::kAfternoon, kIdleSnapshotMs, EventKind::Snapshot);
    planEvery(hours::kAfternoon, hours::kClosingAuction, kSnapshotMs, EventKind::Snapshot);
    planEvery(hours::kClosingAuction, hours::kClose, kSnapshotMs, EventKind::Snapshot);
    if (m_settings.deliverQueues) {
        planEvery(hours::kMorning, hours::kBreak, m_settings.queueInterval, EventKind::Queue);
        planEvery(hours::kAfternoon, hours::kClosingAuction, m_settings.queueInterval, EventKind::Queue);
    }
    std::stable_sort(m_events.begin(), m_events.end(), [](const Event& a, const Event& b) {
        return a.millisecond != b.millisecond ? a.millisecond < b.millisecond : a.kind < b.kind;
    });
}

/// Plans a publication at each interval within a phase; the one at its start belongs to the change of phase.
void SimulatedExchange::planEvery(int from, int to, std::int64_t intervalMs, EventKind kind)
{
    for (std::int64_t at = from * 1000 + intervalMs; at < to * 1000; at += intervalMs)
        m_events.push_back({static_cast<int>(at), kind});
}

void SimulatedExchange::drawArrival()
{
    const double second = m_arrivals.next();
    if (!std::isfinite(second)) {
        m_arrivalTime = kNever;
        return;
    }
    // The traders' clock is the one that the rows show: a message has one time in every comparison.
    const auto millisecond = static_cast<std::int64_t>(second * 1000);
    m_arrivalSecond = static_cast<double>(millisecond) / 1000;
    m_arrivalTime = m_midnight + millisecond;
}

std::int64_t SimulatedExchange::nextTime() const
{
    const std::int64_t event =
        m_nextEvent < m_events.size() ? m_midnight + m_events[m_nextEvent].millisecond : kNever;
    return std::min(event, m_arrivalTime);
}

bool SimulatedExchange::step(RowSink& sink)
{
    const std::int64_t time = nextTime();
    if (time == kNever)
        return false;
    m_now = std::max(m_now, time);
    m_sink = &sink;
    m_channel.open(&sink, time);
    // What falls on the same millisecond as a message comes before it.
    if (time < m_arrivalTime ||
        (m_nextEvent < m_events.size() && m_midnight + m_events[m_nextEvent].millisecond == time)) {
        handle(m_events[m_nextEvent++]);
    } else {
        handle(m_flow.next(m_arrivalSecond));
        drawArrival();
    }
    m_channel.open(nullptr, time);
    m_sink = nullptr;
    return true;
}

void SimulatedExchange::runUntil(std::int64_t time, RowSink& sink)
{
    while (nextTime() <= time && step(sink))
        ;
    m_now = std::max(m_now, time);
}

void SimulatedExchange::runDay(RowSink& sink)
{
    while (step(sink))
        ;
}

void SimulatedExchange::handle(const Event& event)
{
    switch (event.kind) {
    case EventKind::Phase: {
        const bool wasClosing = m_phase == Phase::ClosingAuction;
        m_phase = hours::phaseAt(event.millisecond / 1000);
        if (wasClosing)
            matchAuction();
        m_auctionOpen = m_phase == Phase::OpeningAuction || m_phase == Phase::ClosingAuction;
        publishSnapshot(*m_sink);
        break;
    }
    case EventKind::Match:
        matchAuction();
        m_auctionOpen = false;
        publishSnapshot(*m_sink);
        break;
    case EventKind::Snapshot:
        publishSnapshot(*m_sink);
        break;
    case EventKind::Queue:
        m_sink->onQueue(publishQueues(m_book, m_channel));
        break;
    }
}

void SimulatedExchange::handle(const TraderMessage& message)
{
    using Action = TraderMessage::Action;
    switch (message.action) {
    case Action::Nothing:
        break;
    case Action::Limit:
        if (!m_book.covers(message.ticks))
            ++m_refused;
        else if (m_auctionOpen)
            m_matching.limitInAuction(message.side, message.ticks, message.volume);
        else
            m_matching.limit(message.side, message.ticks, message.volume);
        break;
    case Action::Market:
        m_matching.market(message.side, message.volume);
        break;
    case Action::BestOwnSide:
        m_matching.bestOwnSide(message.side, message.volume);
        break;
    case Action::Cancel:
        m_matching.cancel(message.number);
        break;
    }
}

void SimulatedExchange::matchAuction()
{
    const DayTotals& totals = m_channel.totals();
    const int previousClose = m_book.scale().ticks(m_settings.detail.previousClose);
    m_matching.matchAuction(auctionMatch(m_book, totals.lastTicks != 0 ? totals.lastTicks : previousClose));
}

void SimulatedExchange::publishSnapshot(RowSink& sink)
{
    if (sink.takesLadders())
        sink.onLadder(publishLadder(m_book, m_channel));
    const double previousClose = m_settings.detail.previousClose;
    if (!m_auctionOpen) {
        sink.onSnapshot(publishBook(m_book, m_channel, m_phase, previousClose));
        return;
    }
    const DayTotals& totals = m_channel.totals();
    const int reference = totals.lastTicks != 0 ? totals.lastTicks : m_book.scale().ticks(previousClose);
    sink.onSnapshot(
        publishAuction(auctionMatch(m_book, reference), m_book.scale(), m_channel, m_phase, previousClose));
}

InstrumentDay simulatedDay(const SimulationSettings& settings)
{
    SimulatedExchange exchange(settings);
    InstrumentDay day;
    day.detail = exchange.settings().detail;
    day.tradingDay = exchange.settings().tradingDay;
    exchange.runDay(day);
    return day;
}

} // namespace feed
