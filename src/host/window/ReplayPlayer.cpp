#include "host/window/ReplayPlayer.h"

#include "feed/replay/ReplayClock.h"
#include "feed/replay/ReplaySession.h"
#include "host/window/day_moments.h"
#include "platform/services/RPCEngine.h"
#include "platform/utils/exchange_time.h"
#include "platform/utils/thread_name.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace host {

namespace {

constexpr const char* kEngineStrand = "modulegroup";
constexpr std::chrono::milliseconds kStep(20);     // real time between two deliveries
constexpr std::chrono::milliseconds kFastPause(1); // lets the GUI thread have the engine in between
constexpr std::int64_t kFastStepMs = 5000;         // feed time of a delivery as fast as possible
constexpr std::size_t kHistoryBatch = 5000;        // small, so that the GUI thread waits little for one

} // namespace

/// What the thread holds.
class ReplayPlayer::Worker
{
public:
    explicit Worker(ReplayPlayer& player) : m_player(player) {}

    void run()
    {
        std::unique_lock<std::mutex> lock(m_player.m_mutex);
        for (;;) {
            const Orders& orders = m_player.m_orders;
            if (orders.quit)
                return;
            if (orders.number != m_haltedNumber) {
                halt(lock);
            } else if (orders.begun == orders.number && m_begunNumber != orders.number) {
                begin(lock);
            } else if (m_session && m_begunNumber == orders.number && orders.playing) {
                advance(lock);
            } else {
                pauseClock();
                m_player.m_changed.wait(lock);
            }
        }
    }

private:
    static std::int64_t realMs() { return utils::clockMSec(); }

    void halt(std::unique_lock<std::mutex>& lock)
    {
        m_haltedNumber = m_player.m_orders.number;
        const int number = m_haltedNumber;
        lock.unlock();
        m_session.reset();
        net::RPCEngine::drain(kEngineStrand);
        Q_EMIT m_player.halted(number);
        lock.lock();
    }

    void begin(std::unique_lock<std::mutex>& lock)
    {
        m_begunNumber = m_player.m_orders.number;
        const DayPtr day = m_player.m_orders.day;
        const std::int64_t at = m_player.m_orders.at;
        lock.unlock();
        if (day != m_day) {
            m_day = day;
            m_clock.setBreaks(quietBreaks(*day));
            m_end = dayRange(*day).end;
        }
        m_clock.pause(realMs());
        m_clock.jumpTo(at, realMs());
        feed::ReplayOptions options;
        options.historyBatch = kHistoryBatch;
        options.allSnapshots = true; // quote panels and charts look at the ones before
        m_session = std::make_unique<feed::ReplaySession>(*m_day, m_player.m_sink, options);
        m_session->startAt(at);
        net::RPCEngine::drain(kEngineStrand);
        Q_EMIT m_player.began();
        lock.lock();
    }

    void advance(std::unique_lock<std::mutex>& lock)
    {
        const double speed = m_player.m_orders.speed;
        lock.unlock();
        const bool fast = speed == kFast;
        m_clock.setFastStep(fast ? kFastStepMs : 0, realMs());
        if (!fast)
            m_clock.setFactor(speed, realMs());
        if (m_clock.paused())
            m_clock.resume(realMs());
        m_session->advanceTo(m_clock.feedTime(realMs()));
        net::RPCEngine::drain(kEngineStrand);
        const bool over = m_session->atEnd();
        const std::int64_t now = m_session->now();
        lock.lock();
        if (m_player.m_orders.number != m_begunNumber)
            return;
        m_player.m_now = over ? std::max(now, m_end) : now;
        if (over) {
            m_player.m_orders.playing = false;
            Q_EMIT m_player.ended();
            return;
        }
        m_player.m_changed.wait_for(lock, fast ? kFastPause : kStep);
    }

    void pauseClock()
    {
        if (!m_clock.paused())
            m_clock.pause(realMs());
    }

    ReplayPlayer& m_player;
    DayPtr m_day;
    std::unique_ptr<feed::ReplaySession> m_session;
    feed::ReplayClock m_clock{0};
    std::int64_t m_end = 0; ///< of the day's range: full seconds, so not before its last record
    int m_haltedNumber = 0;
    int m_begunNumber = 0;
};

ReplayPlayer::ReplayPlayer(feed::FeedSink& sink, QObject* parent) : QObject(parent), m_sink(sink)
{
    m_thread = std::thread([this] {
        utils::setThreadName("replay");
        Worker(*this).run();
    });
}

ReplayPlayer::~ReplayPlayer()
{
    change([](Orders& orders) { orders.quit = true; });
    m_thread.join();
}

template <class Change>
void ReplayPlayer::change(Change change)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        change(m_orders);
    }
    m_changed.notify_all();
}

void ReplayPlayer::open(DayPtr day, std::int64_t at)
{
    change([this, &day, at](Orders& orders) {
        orders.day = std::move(day);
        orders.at = at;
        ++orders.number;
        m_now = at;
    });
}

void ReplayPlayer::seek(std::int64_t at)
{
    change([this, at](Orders& orders) {
        if (!orders.day)
            return;
        orders.at = at;
        ++orders.number;
        m_now = at;
    });
}

void ReplayPlayer::begin(int number)
{
    change([number](Orders& orders) {
        if (number == orders.number)
            orders.begun = number;
    });
}

void ReplayPlayer::play()
{
    change([](Orders& orders) { orders.playing = true; });
}

void ReplayPlayer::pause()
{
    change([](Orders& orders) { orders.playing = false; });
}

bool ReplayPlayer::playing() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_orders.playing;
}

void ReplayPlayer::setSpeed(double factor)
{
    change([factor](Orders& orders) { orders.speed = factor; });
}

double ReplayPlayer::speed() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_orders.speed;
}

} // namespace host
