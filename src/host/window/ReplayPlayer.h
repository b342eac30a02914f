#pragma once

#include "host/window/ReplayRun.h"

#include <QObject>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

namespace host {

/// Plays days, each into its sink, by one clock on a thread of its own, which stands for the threads of a
/// quote service.
///
/// New days or another moment takes two steps, since the panels must be emptied while nothing is delivered:
/// `open` or `seek` stops the feed, `halted` tells that all of it has arrived, and `begin`, called when the
/// panels are empty, delivers everything up to the moment as history and goes on from there. A later call
/// makes an earlier one void.
///
/// Playing never runs ahead of the queue engines and the GUI thread: after each portion it waits until the
/// engines' strand has worked it off, and it goes on when the GUI thread has come to what was posted to it.
/// So a slow machine plays slower, and says so (`lag`), instead of piling up batches.
///
/// All functions and signals belong to the GUI thread; the sinks are called on the player's thread and must
/// live until the `halted` of an `open` without them, or the end of the player.
class ReplayPlayer : public QObject
{
    Q_OBJECT

public:
    /// Speed that stands for "as fast as possible".
    static constexpr double kFast = 0;

    explicit ReplayPlayer(QObject* parent = nullptr);

    /// A player of one day at a time, into this sink.
    explicit ReplayPlayer(feed::FeedSink& sink, QObject* parent = nullptr);
    ~ReplayPlayer() override;

    /// Takes days in place of those before and stands at a moment (ms since 1970-01-01 UTC). Parts without a
    /// day or sink are left out.
    void open(std::vector<ReplayPart> parts, std::int64_t at);

    /// The same for one day and the sink of the constructor.
    void open(DayPtr day, std::int64_t at);

    /// Goes to another moment of the days. Without a day it does nothing.
    void seek(std::int64_t at);

    /// Answers `halted`. A number that is not that of the last `open`, `seek` or step back is ignored.
    void begin(int number);

    void play();
    void pause();
    bool playing() const;

    /// Pauses and goes on or back by so many (at least one) orders, deals or snapshots of the day of a part,
    /// counted as they were opened, or by so many seconds. A step back goes through `halted` and `begin` like
    /// a seek and leads to exactly where a step on has ended. Steps of one kind that wait are done and
    /// answered by `stepped` as one. Without a day it does nothing; a later `open` or `seek` makes it void.
    void step(EStep kind, bool back, int part = 0, int count = 1);

    /// Times real time, within those of the replay clock; `kFast` for as fast as possible.
    void setSpeed(double factor);
    double speed() const;

    /// Feed time per real time over the last second if the replay does not keep up with the speed, else 0.
    /// The clock waits then: no record is left out, and nothing is taken for delivered that was not.
    double lag() const { return m_lag.load(); }

    /// The moment up to which all days were delivered; that of the last `open` or `seek` until it begins.
    std::int64_t now() const { return m_now.load(); }

Q_SIGNALS:
    /// Nothing is delivered any more, and everything before has arrived: empty the panels, then `begin`.
    void halted(int number);

    /// The history up to the moment has been delivered and handled.
    void began();

    /// A step was done and its records were handled; or there was no record to step to, and nothing changed.
    void stepped(bool done);

    /// What `lag` tells has changed; some times a second at most.
    void lagging(double effectiveSpeed);

    /// All days are over; the player has paused and stands at the end of the one that ends last.
    void ended();

private:
    struct Orders ///< what the GUI thread wants
    {
        std::vector<ReplayPart> parts;
        ReplayStart start;
        std::vector<ReplayStep> steps; ///< that wait
        int number = 0;                ///< of the last `open`, `seek` or step back
        int begun = 0;                 ///< the number that may begin
        int handled = 0;               ///< deliveries of the playing that the GUI thread has come to
        bool playing = false;
        double speed = 1;
        bool quit = false;
    };
    class Worker;

    template <class Change>
    void change(Change change);
    bool stands(int number) const;
    bool wanted(int number) const;
    void goTo(const ReplayStart& start);

    feed::FeedSink* m_sink = nullptr; ///< of days that come without one
    mutable std::mutex m_mutex;       ///< guards the orders
    std::condition_variable m_changed;
    Orders m_orders;
    std::atomic<std::int64_t> m_now{0};
    std::atomic<double> m_lag{0};
    std::thread m_thread;
};

} // namespace host
