#include "host/window/DayLoader.h"

#include "platform/utils/exchange_time.h"
#include "platform/utils/thread_name.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace host {

namespace {

constexpr std::int64_t kProgressMs = 40; // between two signals of progress

} // namespace

DayLoader::DayLoader(QObject* parent) : QObject(parent)
{
    m_thread = std::thread([this] {
        utils::setThreadName("day loader");
        run();
    });
}

DayLoader::~DayLoader()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_quit = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void DayLoader::open(const DaySource& source)
{
    Job job;
    job.kind = Job::Kind::Open;
    job.source = source;
    ask(std::move(job));
}

void DayLoader::load(int index)
{
    Job job;
    job.kind = Job::Kind::Load;
    job.index = index;
    ask(std::move(job));
}

void DayLoader::cancel()
{
    ask(Job());
    Q_EMIT cancelled();
}

void DayLoader::ask(Job job)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        job.number = ++m_number;
        m_job = std::move(job);
    }
    m_changed.notify_all();
}

void DayLoader::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_quit) {
        if (m_job.kind != Job::Kind::None) {
            const Job job = std::move(m_job);
            m_job = Job();
            lock.unlock();
            try {
                work(job);
            } catch (const std::exception& failure) { // no memory for a day
                const QString reason = QString::fromLocal8Bit(failure.what());
                tell(job.number, [this, reason] { Q_EMIT failed(reason); });
            }
            lock.lock();
            continue;
        }
        lock.unlock();
        const bool priced = priceNext();
        lock.lock();
        if (!priced && m_job.kind == Job::Kind::None && !m_quit)
            m_changed.wait(lock);
    }
}

void DayLoader::work(const Job& job)
{
    if (job.kind == Job::Kind::Load) {
        load(job, job.index);
        return;
    }
    auto store = std::make_unique<DayStore>(job.source);
    std::string error;
    int wanted = -1;
    if (store->open(progressOf(job.number), error))
        wanted = store->wanted(error);
    if (!current(job.number))
        return;
    if (wanted < 0) {
        tell(job.number, [this, error] { Q_EMIT failed(QString::fromStdString(error)); });
        return;
    }
    m_store = std::move(store);
    m_priced.assign(m_store->instruments().size(), false);
    const auto instruments = m_store->instruments();
    m_openNumber = job.number;
    tell(job.number, [this, instruments, number = job.number] {
        m_listedNumber = number;
        Q_EMIT listed(instruments);
    });
    load(job, wanted);
}

bool DayLoader::load(const Job& job, int index)
{
    if (!m_store || index < 0)
        return false;
    std::string error;
    const auto place = static_cast<std::size_t>(index);
    const DayPtr day = m_store->load(place, progressOf(job.number), error);
    if (!day && !current(job.number))
        return false;
    if (!day) {
        tell(job.number, [this, error] { Q_EMIT failed(QString::fromStdString(error)); });
        return false;
    }
    const auto prices = std::make_shared<const PriceSeries>(*day);
    m_priced[place] = true;
    tellPrices(index, prices);
    tell(job.number, [this, index, day] { Q_EMIT loaded(index, day); });
    return true;
}

/// Prices of one instrument more, unless something else is asked for. False if there is nothing to do.
bool DayLoader::priceNext()
{
    if (!m_store || m_priced.size() > kMostPriced)
        return false;
    const auto next = std::find(m_priced.begin(), m_priced.end(), false);
    if (next == m_priced.end())
        return false;
    const auto place = static_cast<std::size_t>(next - m_priced.begin());
    const int number = m_number;
    std::string error;
    const DayPtr day = m_store->load(
        place, [this, number](std::int64_t, std::int64_t) { return current(number); }, error);
    if (!current(number))
        return true;
    m_priced[place] = true; // what cannot be read is told when it is chosen
    if (!day)
        return true;
    const auto prices = std::make_shared<const PriceSeries>(*day);
    tellPrices(static_cast<int>(place), prices);
    return true;
}

feed::Progress DayLoader::progressOf(int number)
{
    return [this, number, last = std::int64_t(0)](std::int64_t done, std::int64_t total) mutable {
        const std::int64_t now = utils::clockMSec();
        if (now - last >= kProgressMs) {
            last = now;
            tell(number, [this, done, total] { Q_EMIT progress(done, total); });
        }
        return current(number);
    };
}

/// Runs `what` on the GUI thread, unless something else was asked for in the meantime.
void DayLoader::tell(int number, std::function<void()> what)
{
    QMetaObject::invokeMethod(
        this,
        [this, number, what = std::move(what)] {
            if (current(number))
                what();
        },
        Qt::QueuedConnection);
}

/// Prices count as long as their source is the one that is listed, whatever is loaded meanwhile.
void DayLoader::tellPrices(int index, PriceSeriesPtr prices)
{
    QMetaObject::invokeMethod(
        this,
        [this, index, prices = std::move(prices), number = m_openNumber] {
            if (number == m_listedNumber)
                Q_EMIT priced(index, prices);
        },
        Qt::QueuedConnection);
}

} // namespace host
