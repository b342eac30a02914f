#pragma once

#include <cstdint>
#include <vector>

namespace feed {

/// Tells which moment of a recorded day is due now: real time times a factor, with pauses, and without the
/// breaks of the day if wanted. Pure arithmetic over the real times that callers hand in (milliseconds of a
/// clock that only goes forward), so that it needs no timer. For one thread at a time.
class ReplayClock
{
public:
    static constexpr double kSlowest = 0.1;
    static constexpr double kFastest = 1000;

    /// A stretch of feed time that nobody wants to wait for, [begin, end), milliseconds since 1970 UTC.
    struct Break
    {
        std::int64_t begin = 0;
        std::int64_t end = 0;
    };

    /// A paused clock that shows `feedTime` (milliseconds since 1970 UTC) and runs at factor 1 when resumed.
    explicit ReplayClock(std::int64_t feedTime);

    /// Breaks that are jumped over, in any order; empty to wait through them. Breaks that end before they
    /// begin are ignored. A clock that stands inside one leaves it as soon as it runs.
    void setBreaks(std::vector<Break> breaks);

    /// Goes on, or stops, at the real moment `realMs`.
    void resume(std::int64_t realMs);
    void pause(std::int64_t realMs);
    bool paused() const { return m_paused; }

    /// Changes the factor at a real moment without a jump of the feed time. Clamped to `kSlowest` ..
    /// `kFastest`; a factor that is no number is ignored.
    void setFactor(double factor, std::int64_t realMs);
    double factor() const { return m_factor; }

    /// As fast as possible: while it runs, each `feedTime` that is asked for goes on by `stepMs` (at least 1)
    /// of feed time, however little real time went by. 0 goes back to the factor.
    void setFastStep(std::int64_t stepMs, std::int64_t realMs);

    /// Puts the clock at another feed time.
    void jumpTo(std::int64_t feedTime, std::int64_t realMs);

    /// The feed time at a real moment. A real moment before an earlier one counts as that one: feed time
    /// never goes back.
    std::int64_t feedTime(std::int64_t realMs);

    /// Milliseconds of feed time between two moments that are played: without the breaks. 0 if `to` is not
    /// after `from`.
    std::int64_t playedBetween(std::int64_t from, std::int64_t to) const;

private:
    std::int64_t afterBreaks(std::int64_t advance) const;
    void anchor(std::int64_t realMs);

    std::vector<Break> m_breaks; ///< ordered, none touches another
    bool m_paused = true;
    double m_factor = 1;
    std::int64_t m_fastStep = 0;
    std::int64_t m_anchorFeed;
    std::int64_t m_anchorReal = 0;
    std::int64_t m_lastReal = 0;
    double m_anchorFraction = 0; ///< milliseconds below one that the anchor cut off
};

} // namespace feed
