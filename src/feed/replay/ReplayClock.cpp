#include "feed/replay/ReplayClock.h"

#include <algorithm>
#include <cmath>

namespace feed {

namespace {

/// Feed times stay where sums of them cannot overflow.
constexpr std::int64_t kLargestTime = 4000000000000000;

std::int64_t clamped(std::int64_t time)
{
    return std::clamp(time, -kLargestTime, kLargestTime);
}

/// Whole milliseconds of a stretch of played time.
std::int64_t wholePart(double stretch)
{
    constexpr double kLargest = static_cast<double>(kLargestTime);
    return static_cast<std::int64_t>(std::floor(std::clamp(stretch, -kLargest, kLargest)));
}

} // namespace

ReplayClock::ReplayClock(std::int64_t feedTime) : m_anchorFeed(clamped(feedTime)) {}

void ReplayClock::setBreaks(std::vector<Break> breaks)
{
    for (Break& pause : breaks)
        pause = {clamped(pause.begin), clamped(pause.end)};
    breaks.erase(
        std::remove_if(breaks.begin(), breaks.end(), [](const Break& b) { return b.end <= b.begin; }),
        breaks.end());
    std::sort(breaks.begin(), breaks.end(), [](const Break& a, const Break& b) { return a.begin < b.begin; });
    m_breaks.clear();
    for (const Break& next : breaks) {
        if (!m_breaks.empty() && next.begin <= m_breaks.back().end)
            m_breaks.back().end = std::max(m_breaks.back().end, next.end);
        else
            m_breaks.push_back(next);
    }
}

void ReplayClock::resume(std::int64_t realMs)
{
    anchor(realMs);
    m_paused = false;
}

void ReplayClock::pause(std::int64_t realMs)
{
    anchor(realMs);
    m_paused = true;
}

void ReplayClock::setFactor(double factor, std::int64_t realMs)
{
    if (std::isnan(factor))
        return;
    anchor(realMs);
    m_factor = std::clamp(factor, kSlowest, kFastest);
}

void ReplayClock::setFastStep(std::int64_t stepMs, std::int64_t realMs)
{
    anchor(realMs);
    m_fastStep = std::clamp<std::int64_t>(stepMs, 0, kLargestTime);
}

void ReplayClock::jumpTo(std::int64_t feedTime, std::int64_t realMs)
{
    anchor(realMs);
    m_anchorFeed = clamped(feedTime);
    m_anchorFraction = 0;
}

std::int64_t ReplayClock::feedTime(std::int64_t realMs)
{
    const std::int64_t real = std::max(realMs, m_lastReal);
    m_lastReal = real;
    if (m_paused)
        return m_anchorFeed;
    if (m_fastStep > 0) {
        m_anchorFeed = afterBreaks(m_fastStep);
        m_anchorReal = real;
        return m_anchorFeed;
    }
    const double elapsed = (static_cast<double>(real) - static_cast<double>(m_anchorReal)) * m_factor;
    return afterBreaks(wholePart(elapsed + m_anchorFraction));
}

std::int64_t ReplayClock::playedBetween(std::int64_t from, std::int64_t to) const
{
    const std::int64_t begin = clamped(from);
    const std::int64_t end = clamped(to);
    std::int64_t played = std::max<std::int64_t>(end - begin, 0);
    for (const Break& pause : m_breaks)
        played -= std::max<std::int64_t>(std::min(pause.end, end) - std::max(pause.begin, begin), 0);
    return played;
}

/// The feed time `advance` milliseconds of played time after the anchor.
std::int64_t ReplayClock::afterBreaks(std::int64_t advance) const
{
    std::int64_t at = m_anchorFeed;
    std::int64_t rest = advance;
    for (const Break& pause : m_breaks) {
        if (pause.end <= at)
            continue;
        if (at + rest < pause.begin)
            break;
        rest -= std::max<std::int64_t>(pause.begin - at, 0);
        at = pause.end;
    }
    return clamped(at + rest);
}

/// Makes the present feed time the start of what follows.
void ReplayClock::anchor(std::int64_t realMs)
{
    const std::int64_t real = std::max(realMs, m_lastReal);
    if (!m_paused && m_fastStep == 0) {
        const double elapsed =
            (static_cast<double>(real) - static_cast<double>(m_anchorReal)) * m_factor + m_anchorFraction;
        m_anchorFeed = afterBreaks(wholePart(elapsed));
        m_anchorFraction = std::clamp(elapsed - std::floor(elapsed), 0.0, 1.0);
    }
    m_anchorReal = real;
    m_lastReal = real;
}

} // namespace feed
