#include "host/window/ReplayRun.h"

#include "host/window/day_moments.h"
#include "platform/services/RPCEngine.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

constexpr const char* kEngineStrand = "modulegroup";
constexpr std::int64_t kFastStepMs = 5000;  // feed time that falls due at once, as fast as possible
constexpr std::int64_t kBudgetMs = 20;      // real time of one call, so that an order is heard soon
constexpr std::size_t kPortion = 1000;      // records of a part between two looks at the real time
constexpr std::size_t kHistoryBatch = 5000; // small, so that the GUI thread waits little for one

} // namespace

ReplayRun::ReplayRun(RealClock realClock) : m_realClock(std::move(realClock)) {}

/// Breaks and ends of the days; those of days that are played no more are forgotten.
void ReplayRun::learn(const std::vector<ReplayPart>& parts)
{
    std::map<DayPtr, Known> known;
    std::vector<std::vector<feed::ReplayClock::Break>> breaks;
    m_end = 0;
    for (const ReplayPart& part : parts) {
        if (!part.day || !part.sink || known.count(part.day) > 0)
            continue;
        const auto found = m_known.find(part.day);
        Known& one = known[part.day];
        one = found != m_known.end() ? std::move(found->second)
                                     : Known{quietBreaks(*part.day), dayRange(*part.day).end};
        breaks.push_back(one.breaks);
        m_end = std::max(m_end, one.end);
    }
    m_known = std::move(known);
    m_clock.setBreaks(commonBreaks(breaks));
}

void ReplayRun::start(const std::vector<ReplayPart>& parts, std::int64_t at)
{
    learn(parts);
    m_clock.pause(m_realClock());
    m_clock.jumpTo(at, m_realClock());
    m_now = at;
    m_sessions.clear();
    feed::ReplayOptions options;
    options.historyBatch = kHistoryBatch;
    options.allSnapshots = true; // quote panels and charts look at the ones before
    for (const ReplayPart& part : parts) {
        if (!part.day || !part.sink)
            continue;
        m_sessions.push_back(std::make_unique<feed::ReplaySession>(*part.day, *part.sink, options));
        m_sessions.back()->startAt(at);
    }
    net::RPCEngine::drain(kEngineStrand);
}

void ReplayRun::stop()
{
    m_sessions.clear();
    net::RPCEngine::drain(kEngineStrand);
}

void ReplayRun::setSpeed(double factor)
{
    const bool fast = !(factor > 0);
    m_clock.setFastStep(fast ? kFastStepMs : 0, m_realClock());
    if (!fast)
        m_clock.setFactor(factor, m_realClock());
}

void ReplayRun::advance(const std::function<bool()>& goOn)
{
    const std::int64_t begin = m_realClock();
    if (m_clock.paused())
        m_clock.resume(begin);
    const std::int64_t due = m_clock.feedTime(begin);
    while (m_now < due) {
        const std::int64_t to = nextPortion(due);
        for (const auto& session : m_sessions)
            session->advanceTo(to);
        net::RPCEngine::drain(kEngineStrand);
        m_now = to;
        if (m_now < due && (m_realClock() - begin >= kBudgetMs || !goOn())) {
            m_clock.jumpTo(m_now, m_realClock());
            return;
        }
    }
}

/// How far all parts may go at once: none of them gets much more than a portion.
std::int64_t ReplayRun::nextPortion(std::int64_t due) const
{
    std::int64_t to = due;
    for (const auto& session : m_sessions)
        to = session->momentAfter(kPortion, to);
    return to;
}

void ReplayRun::pause()
{
    if (m_clock.paused())
        return;
    m_clock.pause(m_realClock());
    m_clock.jumpTo(m_now, m_realClock());
}

bool ReplayRun::atEnd() const
{
    return std::all_of(m_sessions.begin(), m_sessions.end(),
                       [](const auto& session) { return session->atEnd(); });
}

} // namespace host
