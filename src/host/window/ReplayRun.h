#pragma once

#include "feed/replay/ReplayClock.h"
#include "feed/replay/ReplaySession.h"
#include "host/window/DayStore.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace feed {
class FeedSink;
}

namespace host {

/// A day and what takes it. The sink must outlive the replay of the day.
struct ReplayPart
{
    DayPtr day;
    feed::FeedSink* sink = nullptr;
};

/// Plays days by one clock: all parts stand at the same feed time after each call, and nothing later than it
/// has been delivered to any of them. After each delivery it waits until the queue engines have worked it
/// off, so a slow machine plays slower instead of piling up batches.
///
/// For one thread at a time; the sinks are called on that thread. Times are milliseconds since 1970-01-01
/// UTC; real ones come from the function of the constructor, of a clock that only goes forward.
class ReplayRun
{
public:
    using RealClock = std::function<std::int64_t()>;

    explicit ReplayRun(RealClock realClock);

    /// Starts all parts at a moment: everything up to it goes out as history. Parts without a day or sink are
    /// left out. Stretches in which none of the days has anything are jumped over when it plays.
    void start(const std::vector<ReplayPart>& parts, std::int64_t at);

    /// Takes the parts away and waits until everything delivered has arrived.
    void stop();

    bool started() const { return !m_sessions.empty(); }

    /// Times real time, within those of the replay clock; 0 for as fast as possible.
    void setSpeed(double factor);

    /// Goes on to the moment that is due now, in small portions. It ends before that moment when `goOn`
    /// answers no or the real time of one call is used up; the clock then goes on from what was delivered.
    void advance(const std::function<bool()>& goOn);

    /// The clock stands still at what was delivered until the next `advance`.
    void pause();

    /// The moment up to which everything was delivered, to all parts.
    std::int64_t now() const { return m_now; }

    /// All parts have been delivered.
    bool atEnd() const;

    /// The end of the part that ends last: full seconds, so not before its last record.
    std::int64_t end() const { return m_end; }

private:
    /// What is known of a day, kept as long as the day is played.
    struct Known
    {
        std::vector<feed::ReplayClock::Break> breaks;
        std::int64_t end = 0;
    };

    void learn(const std::vector<ReplayPart>& parts);
    std::int64_t nextPortion(std::int64_t due) const;

    RealClock m_realClock;
    std::map<DayPtr, Known> m_known;
    std::vector<std::unique_ptr<feed::ReplaySession>> m_sessions;
    feed::ReplayClock m_clock{0};
    std::int64_t m_now = 0;
    std::int64_t m_end = 0;
};

} // namespace host
