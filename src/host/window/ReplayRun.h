#pragma once

#include "feed/replay/ReplayClock.h"
#include "feed/replay/ReplaySession.h"
#include "host/window/DayStore.h"
#include "host/window/LagMeter.h"
#include "host/window/day_moments.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
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

/// What a step of a replay goes by.
enum class EStep
{
    eOrder,
    eDeal,
    eSnapshot,
    eSecond,
};

/// A step: so many orders, deals, snapshots or seconds on or back. A record is one of the day of the part.
struct ReplayStep
{
    EStep kind = EStep::eOrder;
    bool back = false;
    int part = 0;
    int count = 1; ///< at least 1

    /// Whether the two differ in their count at most.
    bool sameAs(const ReplayStep& other) const
    {
        return kind == other.kind && back == other.back && part == other.part;
    }
};

/// Where a replay starts: at a moment, and where a part has its own place in the moment, there.
struct ReplayStart
{
    std::int64_t at = 0;                                           ///< ms since 1970-01-01 UTC
    std::vector<std::optional<feed::ReplaySession::Place>> places; ///< of the parts; empty for none of them
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

    /// Starts all parts: everything up to there goes out as history. Parts without a day or sink are left
    /// out. Stretches in which none of the days has anything are jumped over when it plays.
    void start(const std::vector<ReplayPart>& parts, const ReplayStart& start);

    /// Takes the parts away and waits until everything delivered has arrived.
    void stop();

    bool started() const { return !m_playing.empty(); }

    /// Times real time, within those of the replay clock; 0 for as fast as possible.
    void setSpeed(double factor);

    /// Goes on to the moment that is due now, in small portions. It ends before that moment, with false, when
    /// `goOn` answers no or the real time of one call is used up; the clock then goes on from what was
    /// delivered.
    bool advance(const std::function<bool()>& goOn);

    /// Does a step on while the clock stands still; the other parts go to the same moment. Of several records
    /// it goes as far as there are any. False, with nothing delivered, if there is none, or no such part.
    /// Ends where it is when `goOn` answers no.
    bool step(const ReplayStep& step, const std::function<bool()>& goOn);

    /// Where a step back leads: the part to the place where the step on before the present place ended, the
    /// others to the same moment. Nothing if there is no such place, or no such part.
    std::optional<ReplayStart> startBack(const ReplayStep& step) const;

    /// The clock stands still at what was delivered until the next `advance`.
    void pause();

    /// The moment up to which everything was delivered, to all parts.
    std::int64_t now() const { return m_now; }

    /// All parts have been delivered.
    bool atEnd() const;

    /// Feed time per real time over the last second if the replay does not keep up with its speed, else 0.
    double lag() const { return m_lag.lag(); }

    /// The end of the part that ends last: full seconds, so not before its last record.
    std::int64_t end() const { return m_end; }

private:
    /// What is known of a day, kept as long as the day is played.
    struct Known
    {
        std::vector<feed::ReplayClock::Break> breaks;
        DayRange range;
    };

    /// A part that is played.
    struct Playing
    {
        std::size_t part = 0;
        std::unique_ptr<feed::ReplaySession> session;
    };

    void learn(const std::vector<ReplayPart>& parts);
    void deliverPortion(std::int64_t due);
    void deliverTo(std::int64_t moment);
    feed::ReplaySession* sessionOf(int part) const;
    bool stepSeconds(int seconds, const std::function<bool()>& goOn);

    RealClock m_realClock;
    std::map<DayPtr, Known> m_known;
    std::vector<Playing> m_playing;
    feed::ReplayClock m_clock{0};
    LagMeter m_lag;
    double m_speed = 1;
    std::size_t m_portion; ///< records of a part that are delivered before the next look at the real time
    std::int64_t m_now = 0;
    std::int64_t m_begin = 0; ///< of the part that begins first
    std::int64_t m_end = 0;
};

} // namespace host
