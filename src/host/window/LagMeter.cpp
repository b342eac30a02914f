#include "host/window/LagMeter.h"

#include <algorithm>

namespace host {

namespace {

constexpr std::int64_t kWindowMs = 1000; // of real time that is looked at
constexpr double kKeepsUp = 0.9;         // of the speed: a portion that is still under way is no lag
constexpr double kLeastShown = 0.01;     // a lag is told apart from keeping up, even if nothing goes on

} // namespace

void LagMeter::reset()
{
    m_samples.clear();
    m_lag = 0;
}

void LagMeter::note(std::int64_t realMs, std::int64_t playedMs, double speed)
{
    if (speed != m_speed || m_samples.empty()) {
        m_speed = speed;
        m_samples.assign(1, {realMs, 0}); // what was played before belongs to no second
        m_lag = 0;
        return;
    }
    m_samples.push_back({realMs, m_samples.back().played + playedMs});
    while (m_samples.size() > 2 && m_samples[1].real <= realMs - kWindowMs)
        m_samples.pop_front();
    const std::int64_t real = realMs - m_samples.front().real;
    if (real < kWindowMs || !(speed > 0)) {
        m_lag = 0;
        return;
    }
    const double effective =
        static_cast<double>(m_samples.back().played - m_samples.front().played) / static_cast<double>(real);
    m_lag = effective < speed * kKeepsUp ? std::max(effective, kLeastShown) : 0;
}

} // namespace host
