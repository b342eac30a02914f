#include "host/window/ReplayPlayer.h"

#include "platform/utils/exchange_time.h"
#include "platform/utils/thread_name.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace host {

namespace {

constexpr std::chrono::milliseconds kStep(20);      // real time between two deliveries
constexpr std::chrono::milliseconds kShortPause(1); // lets the GUI thread have the engine in between
constexpr std::int64_t kLagPeriodMs = 250;          // between two reports
constexpr int kMostUnhandled = 2; // deliveries: one that the GUI thread is at, one that waits for it

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
            const bool stands = m_run.started() && m_begunNumber == orders.number;
            if (orders.number != m_haltedNumber) {
                halt(lock);
            } else if (orders.begun == orders.number && m_begunNumber != orders.number) {
                begin(lock);
            } else if (stands && !orders.steps.empty()) {
                step(lock);
            } else if (stands && orders.playing) {
                if (m_delivered - orders.handled < kMostUnhandled)
                    advance(lock);
                else
                    m_player.m_changed.wait(lock);
            } else {
                m_run.pause();
                reportLag();
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
        reportLag();
        Q_EMIT m_player.halted(number);
        lock.lock();
    }

    void begin(std::unique_lock<std::mutex>& lock)
    {
        m_begunNumber = m_player.m_orders.number;
        const std::vector<ReplayPart> parts = m_player.m_orders.parts;
        const ReplayStart start = m_player.m_orders.start;
        lock.unlock();
        m_run.start(parts, start);
        Q_EMIT m_player.began();
        if (m_begunNumber == m_steppedNumber)
            Q_EMIT m_player.stepped(true);
        lock.lock();
    }

    void step(std::unique_lock<std::mutex>& lock)
    {
        Orders& orders = m_player.m_orders;
        const ReplayStep step = orders.steps.front();
        orders.steps.erase(orders.steps.begin());
        lock.unlock();
        std::optional<ReplayStart> start;
        bool done = false;
        if (step.back) {
            m_run.pause();
            start = m_run.startBack(step);
        } else {
            done = m_run.step(step, [this] { return m_player.stands(m_begunNumber); });
        }
        lock.lock();
        if (orders.number != m_begunNumber)
            return;
        if (start) { // the rest goes as with a seek
            m_player.goTo(*start);
            m_steppedNumber = orders.number;
            return;
        }
        m_player.m_now = m_run.now();
        lock.unlock();
        Q_EMIT m_player.stepped(done);
        lock.lock();
    }

    void advance(std::unique_lock<std::mutex>& lock)
    {
        const double speed = m_player.m_orders.speed;
        lock.unlock();
        m_run.setSpeed(speed);
        const bool whole = m_run.advance([this] { return m_player.wanted(m_begunNumber); });
        const bool over = m_run.atEnd();
        const int delivered = ++m_delivered;
        QMetaObject::invokeMethod(
            &m_player,
            [player = &m_player, delivered] {
                player->change([delivered](Orders& orders) { orders.handled = delivered; });
            },
            Qt::QueuedConnection);
        reportLag();
        lock.lock();
        Orders& orders = m_player.m_orders;
        if (orders.number != m_begunNumber)
            return;
        m_player.m_now = over ? std::max(orders.start.at, m_run.end()) : m_run.now();
        if (over) {
            orders.playing = false;
            Q_EMIT m_player.ended();
            return;
        }
        m_player.m_changed.wait_for(lock, speed == kFast || !whole ? kShortPause : kStep, [&] {
            return orders.quit || !orders.playing || !orders.steps.empty() || orders.number != m_begunNumber;
        });
    }

    /// Tells a lag that begins or ends at once, another figure of it after a while.
    void reportLag()
    {
        const double lag = m_run.lag();
        const double told = m_player.m_lag;
        const std::int64_t now = utils::clockMSec();
        if (lag == told || ((lag > 0) == (told > 0) && now - m_lagToldAt < kLagPeriodMs))
            return;
        m_lagToldAt = now;
        m_player.m_lag = lag;
        Q_EMIT m_player.lagging(lag);
    }

    ReplayPlayer& m_player;
    ReplayRun m_run{utils::clockMSec};
    int m_haltedNumber = 0;
    int m_begunNumber = 0;
    int m_steppedNumber = -1; ///< of the last step back
    int m_delivered = 0;      ///< deliveries of the playing
    std::int64_t m_lagToldAt = 0;
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

/// Whether the days of this number are still to be shown.
bool ReplayPlayer::stands(int number) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_orders.number == number && !m_orders.quit;
}

/// Whether they are still to be played.
bool ReplayPlayer::wanted(int number) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_orders.playing && m_orders.number == number && m_orders.steps.empty() && !m_orders.quit;
}

/// Makes a start the one to halt for. With the mutex held.
void ReplayPlayer::goTo(const ReplayStart& start)
{
    m_orders.start = start;
    ++m_orders.number;
    m_now = start.at;
}

void ReplayPlayer::open(DayPtr day, std::int64_t at)
{
    open(std::vector<ReplayPart>{{std::move(day), m_sink}}, at);
}

void ReplayPlayer::open(std::vector<ReplayPart> parts, std::int64_t at)
{
    change([this, &parts, at](Orders& orders) {
        orders.parts = std::move(parts);
        orders.steps.clear();
        goTo({at, {}});
    });
}

void ReplayPlayer::seek(std::int64_t at)
{
    change([this, at](Orders& orders) {
        if (orders.parts.empty())
            return;
        orders.steps.clear();
        goTo({at, {}});
    });
}

void ReplayPlayer::step(EStep kind, bool back, int part, int count)
{
    change([&](Orders& orders) {
        if (orders.parts.empty())
            return;
        orders.playing = false;
        ReplayStep step;
        step.kind = kind;
        step.back = back;
        step.part = part;
        step.count = std::max(count, 1);
        if (!orders.steps.empty() && orders.steps.back().sameAs(step))
            orders.steps.back().count += step.count;
        else
            orders.steps.push_back(step);
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
