#pragma once

#include <cstdint>
#include <deque>

namespace host {

/// Tells whether a replay keeps up with its speed, from what it has played within the last second of real
/// time. Pure arithmetic; for one thread at a time.
class LagMeter
{
public:
    /// So many milliseconds of feed time (without breaks) have been played since the call before, up to this
    /// real moment (ms of a clock that only goes forward), at a speed in feed time per real time; 0 for as
    /// fast as possible, which never lags. A change of speed begins anew.
    void note(std::int64_t realMs, std::int64_t playedMs, double speed);

    /// The replay stands still: nothing is known until a second has been played again.
    void reset();

    /// Feed time per real time over the last second; 0 while the replay keeps up, and before the first second
    /// is over.
    double lag() const { return m_lag; }

private:
    struct Sample
    {
        std::int64_t real = 0;
        std::int64_t played = 0; ///< since the beginning
    };

    std::deque<Sample> m_samples; ///< of the last second, and the one before it
    double m_speed = 0;
    double m_lag = 0;
};

} // namespace host
