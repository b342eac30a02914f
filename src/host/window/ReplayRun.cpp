#include "host/window/ReplayRun.h"

#include "platform/services/RPCEngine.h"
#include "platform/utils/exchange_time.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace host {

namespace {

constexpr const char* kEngineStrand = "modulegroup";
constexpr std::int64_t kFastStepMs = 5000; // feed time that falls due at once, as fast as possible
constexpr std::int64_t kBudgetMs = 20;     // real time of one call, so that an order is heard soon
constexpr std::size_t kFirstPortion = 500; // records of a part between two looks at the real time
constexpr std::size_t kSmallestPortion = 16;
constexpr std::size_t kLargestPortion = 4000;
constexpr std::int64_t kLongPortionMs = kBudgetMs / 2;  // half as many next time
constexpr std::int64_t kShortPortionMs = kBudgetMs / 8; // twice as many
constexpr std::size_t kHistoryBatch = 5000;             // small, so that the GUI thread waits little for one

feed::ReplaySession::Kind recordOf(EStep step)
{
    switch (step) {
    case EStep::eOrder:
        return feed::ReplaySession::Kind::Order;
    case EStep::eDeal:
        return feed::ReplaySession::Kind::Deal;
    case EStep::eSnapshot:
        return feed::ReplaySession::Kind::Snapshot;
    case EStep::eSecond:
        break;
    }
    return feed::ReplaySession::Kind::None;
}

} // namespace

ReplayRun::ReplayRun(RealClock realClock) : m_realClock(std::move(realClock)), m_portion(kFirstPortion) {}

/// Breaks and ranges of the days; those of days that are played no more are forgotten.
void ReplayRun::learn(const std::vector<ReplayPart>& parts)
{
    std::map<DayPtr, Known> known;
    std::vector<std::vector<feed::ReplayClock::Break>> breaks;
    m_begin = std::numeric_limits<std::int64_t>::max();
    m_end = 0;
    for (const ReplayPart& part : parts) {
        if (!part.day || !part.sink || known.count(part.day) > 0)
            continue;
        const auto found = m_known.find(part.day);
        Known& one = known[part.day];
        one = found != m_known.end() ? std::move(found->second)
                                     : Known{quietBreaks(*part.day), dayRange(*part.day)};
        breaks.push_back(one.breaks);
        m_begin = std::min(m_begin, one.range.begin);
        m_end = std::max(m_end, one.range.end);
    }
    m_known = std::move(known);
    m_clock.setBreaks(commonBreaks(breaks));
}

void ReplayRun::start(const std::vector<ReplayPart>& parts, const ReplayStart& start)
{
    learn(parts);
    m_clock.pause(m_realClock());
    m_clock.jumpTo(start.at, m_realClock());
    m_lag.reset();
    m_now = start.at;
    m_playing.clear();
    feed::ReplayOptions options;
    options.historyBatch = kHistoryBatch;
    options.allSnapshots = true; // quote panels and charts look at the ones before
    for (std::size_t part = 0; part < parts.size(); ++part) {
        const ReplayPart& one = parts[part];
        if (!one.day || !one.sink)
            continue;
        m_playing.push_back({part, std::make_unique<feed::ReplaySession>(*one.day, *one.sink, options)});
        feed::ReplaySession& session = *m_playing.back().session;
        if (part < start.places.size() && start.places[part])
            session.startAt(*start.places[part]);
        else
            session.startAt(start.at);
    }
    net::RPCEngine::drain(kEngineStrand);
}

void ReplayRun::stop()
{
    m_playing.clear();
    m_lag.reset();
    net::RPCEngine::drain(kEngineStrand);
}

void ReplayRun::setSpeed(double factor)
{
    m_speed = factor > 0 ? factor : 0;
    m_clock.setFastStep(m_speed > 0 ? 0 : kFastStepMs, m_realClock());
    if (m_speed > 0)
        m_clock.setFactor(m_speed, m_realClock());
}

bool ReplayRun::advance(const std::function<bool()>& goOn)
{
    const std::int64_t begin = m_realClock();
    if (m_clock.paused())
        m_clock.resume(begin);
    const std::int64_t from = m_now;
    const std::int64_t due = m_clock.feedTime(begin);
    bool whole = true;
    while (m_now < due && whole) {
        deliverPortion(due);
        whole = m_now >= due || (m_realClock() - begin < kBudgetMs && goOn());
    }
    if (!whole)
        m_clock.jumpTo(m_now, m_realClock());
    m_lag.note(m_realClock(), m_clock.playedBetween(from, m_now), m_speed);
    return whole;
}

/// Brings all parts as far as none of them gets much more than a portion, which fits the machine.
void ReplayRun::deliverPortion(std::int64_t due)
{
    std::int64_t to = due;
    for (const Playing& one : m_playing)
        to = one.session->momentAfter(m_portion, to);
    const std::int64_t begin = m_realClock();
    deliverTo(to);
    const std::int64_t took = m_realClock() - begin;
    if (took >= kLongPortionMs)
        m_portion = std::max(m_portion / 2, kSmallestPortion);
    else if (took < kShortPortionMs && to < due)
        m_portion = std::min(m_portion * 2, kLargestPortion);
}

/// Brings all parts to a moment and waits for the engines.
void ReplayRun::deliverTo(std::int64_t moment)
{
    for (const Playing& one : m_playing)
        one.session->advanceTo(moment);
    net::RPCEngine::drain(kEngineStrand);
    m_now = moment;
}

feed::ReplaySession* ReplayRun::sessionOf(int part) const
{
    for (const Playing& one : m_playing) {
        if (part >= 0 && one.part == static_cast<std::size_t>(part))
            return one.session.get();
    }
    return nullptr;
}

bool ReplayRun::step(const ReplayStep& step, const std::function<bool()>& goOn)
{
    pause();
    feed::ReplaySession* const session = sessionOf(step.part);
    if (!session)
        return false;
    bool done = false;
    if (step.kind == EStep::eSecond) {
        done = stepSeconds(std::max(step.count, 1), goOn);
    } else {
        for (int i = 0; i < std::max(step.count, 1) && (i == 0 || goOn()); ++i) {
            if (!session->step(recordOf(step.kind)))
                break;
            done = true;
        }
        if (done)
            deliverTo(session->now());
    }
    m_clock.jumpTo(m_now, m_realClock());
    return done;
}

bool ReplayRun::stepSeconds(int seconds, const std::function<bool()>& goOn)
{
    const std::int64_t due = std::min(m_now + seconds * utils::kMSecPerSecond, m_end);
    if (due <= m_now)
        return false;
    do
        deliverPortion(due);
    while (m_now < due && goOn());
    return true;
}

std::optional<ReplayStart> ReplayRun::startBack(const ReplayStep& step) const
{
    const feed::ReplaySession* const session = sessionOf(step.part);
    if (!session)
        return std::nullopt;
    const int count = std::max(step.count, 1);
    ReplayStart start;
    if (step.kind == EStep::eSecond) {
        start.at = std::max(m_now - count * utils::kMSecPerSecond, m_begin);
        return start.at < m_now ? std::optional<ReplayStart>(start) : std::nullopt;
    }
    feed::ReplaySession::Place place;
    if (!session->placeBefore(recordOf(step.kind), static_cast<std::size_t>(count), place))
        return std::nullopt;
    start.at = std::min(place.moment(), m_now);
    for (const Playing& one : m_playing) {
        start.places.resize(one.part + 1);
        if (one.session.get() == session)
            start.places.back() = place;
        else if (start.at == m_now) // it may stand amidst the records of the moment
            start.places.back() = one.session->place();
    }
    return start;
}

void ReplayRun::pause()
{
    m_lag.reset();
    if (m_clock.paused())
        return;
    m_clock.pause(m_realClock());
    m_clock.jumpTo(m_now, m_realClock());
}

bool ReplayRun::atEnd() const
{
    return std::all_of(m_playing.begin(), m_playing.end(),
                       [](const Playing& one) { return one.session->atEnd(); });
}

} // namespace host
