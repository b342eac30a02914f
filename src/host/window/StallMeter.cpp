#include "host/window/StallMeter.h"

#include <algorithm>

namespace host {

namespace {

constexpr int kPeriodMs = 1;
constexpr double kNanosPerMs = 1e6;
constexpr double kHigh = 0.99;

} // namespace

StallMeter::StallMeter(QObject* parent) : QObject(parent)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(kPeriodMs);
    connect(&m_timer, &QTimer::timeout, this, &StallMeter::turn);
}

void StallMeter::start()
{
    m_waits.clear();
    m_clock.start();
    m_timer.start();
}

void StallMeter::stop()
{
    m_timer.stop();
}

void StallMeter::turn()
{
    m_waits.push_back(std::max(0.0, static_cast<double>(m_clock.nsecsElapsed()) / kNanosPerMs - kPeriodMs));
    m_clock.start();
}

StallMeter::Result StallMeter::result() const
{
    Result result;
    result.turns = m_waits.size();
    if (m_waits.empty())
        return result;
    std::vector<double> sorted = m_waits;
    std::sort(sorted.begin(), sorted.end());
    result.worstMs = sorted.back();
    result.medianMs = sorted[sorted.size() / 2];
    result.p99Ms = sorted[static_cast<std::size_t>(static_cast<double>(sorted.size() - 1) * kHigh)];
    return result;
}

} // namespace host
