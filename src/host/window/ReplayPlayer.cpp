#include "host/window/ReplayPlayer.h"

#include "platform/utils/exchange_time.h"
#include "platform/utils/thread_name.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace host {

namespace {

constexpr std::chrono::milliseconds kStep(20);     // real time between two deliveries
constexpr std::chrono::milliseconds kFastPause(1); // lets the GUI thread have the engine in between

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
            } else if (m_run.started() && m_begunNumber == orders.number && orders.playing) {
                advance(lock);
            } else {
                m_run.pause();
                m_player.m_changed.wait(lock);
            }
        }
    }

private:
    void halt(std::unique_lock<std::mutex>& lock)
    {
        m_haltedNumber = m_player.m_orders.number;
        const int number = m_haltedNumber;
        lock.unlock();
        m_run.stop();
        Q_EMIT m_player.halted(number);
        lock.lock();
    }

    void begin(std::unique_lock<std::mutex>& lock)
    {
        m_begunNumber = m_player.m_orders.number;
        const std::vector<ReplayPart> parts = m_player.m_orders.parts;
        const std::int64_t at = m_player.m_orders.at;
        lock.unlock();
        m_run.start(parts, at);
        Q_EMIT m_player.began();
        lock.lock();
    }

    void advance(std::unique_lock<std::mutex>& lock)
    {
        const double speed = m_player.m_orders.speed;
        lock.unlock();
        m_run.setSpeed(speed);
        m_run.advance([this] { return m_player.wanted(m_begunNumber); });
        const bool over = m_run.atEnd();
        lock.lock();
        if (m_player.m_orders.number != m_begunNumber)
            return;
        m_player.m_now = over ? std::max(m_player.m_orders.at, m_run.end()) : m_run.now();
        if (over) {
            m_player.m_orders.playing = false;
            Q_EMIT m_player.ended();
            return;
        }
        m_player.m_changed.wait_for(lock, speed == kFast ? kFastPause : kStep);
    }

    ReplayPlayer& m_player;
    ReplayRun m_run{utils::clockMSec};
    int m_haltedNumber = 0;
    int m_begunNumber = 0;
};

ReplayPlayer::ReplayPlayer(feed::FeedSink& sink, QObject* parent) : ReplayPlayer(parent)
{
    m_sink = &sink;
}

ReplayPlayer::ReplayPlayer(QObject* parent) : QObject(parent)
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

/// Whether the days of this number are still to be played.
bool ReplayPlayer::wanted(int number) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_orders.playing && m_orders.number == number && !m_orders.quit;
}

void ReplayPlayer::open(DayPtr day, std::int64_t at)
{
    open(std::vector<ReplayPart>{{std::move(day), m_sink}}, at);
}

void ReplayPlayer::open(std::vector<ReplayPart> parts, std::int64_t at)
{
    change([this, &parts, at](Orders& orders) {
        orders.parts = std::move(parts);
        orders.at = at;
        ++orders.number;
        m_now = at;
    });
}

void ReplayPlayer::seek(std::int64_t at)
{
    change([this, at](Orders& orders) {
        if (orders.parts.empty())
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
