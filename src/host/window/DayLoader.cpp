#include "host/window/DayLoader.h"

#include "platform/utils/exchange_time.h"
#include "platform/utils/thread_name.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace host {

namespace {

constexpr std::int64_t kProgressMs = 40; // between two signals of progress

std::size_t rowsOf(const feed::InstrumentDay& day)
{
    return day.orders.size() + day.deals.size() + day.snapshots.size() + day.queues.size();
}

} // namespace

DayLoader::DayLoader(QObject* parent)
    : DayLoader([](const DaySource& source) { return std::make_unique<DayStore>(source); }, parent)
{
}

DayLoader::DayLoader(StoreMaker makeStore, QObject* parent)
    : QObject(parent), m_makeStore(std::move(makeStore))
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
    job.listed = m_listedNumber;
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
        const int number = m_number;
        lock.unlock();
        const bool priced = priceNext(number);
        lock.lock();
        if (!priced && m_job.kind == Job::Kind::None && !m_quit)
            m_changed.wait(lock);
    }
}

void DayLoader::work(const Job& job)
{
    if (job.kind == Job::Kind::Load) {
        std::string ignored;
        const bool sameList = job.listed == m_openNumber;
        load(job, sameList || !m_store ? job.index : m_store->wanted(ignored));
        return;
    }
    auto store = m_makeStore(job.source);
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
    if (replaceStore(job.number, std::move(store)))
        load(job, wanted);
}

/// Puts a store in force and tells its list, which then happens whatever is asked for later. False if
/// something else has been asked for already.
bool DayLoader::replaceStore(int number, std::unique_ptr<DayStore> store)
{
    std::vector<bool> priced(store->instruments().size(), false);
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (!current(number))
            return false;
        m_store.swap(store);
    }
    m_priced.swap(priced);
    m_openNumber = number;
    m_longDays = false;
    tellList();
    return true;
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
    m_longDays = m_longDays || rowsOf(*day) > kMostRowsPriced;
    tellPrices(index, prices);
    tell(job.number, [this, index, day] { Q_EMIT loaded(index, day); });
    return true;
}

/// Prices that nobody asked for must not keep the machine busy.
bool DayLoader::mayPrice() const
{
    return m_store && m_store->quick() && m_priced.size() <= kMostPriced && !m_longDays;
}

/// Prices of one instrument more, unless something else is asked for. False if there is nothing to do.
bool DayLoader::priceNext(int number)
{
    if (!mayPrice())
        return false;
    const auto next = std::find(m_priced.begin(), m_priced.end(), false);
    if (next == m_priced.end())
        return false;
    const auto place = static_cast<std::size_t>(next - m_priced.begin());
    try {
        price(place, number);
    } catch (const std::exception&) { // no memory: told when it is chosen
        m_priced[place] = true;
    }
    return true;
}

void DayLoader::price(std::size_t place, int number)
{
    std::string error;
    const DayPtr day = m_store->load(
        place, [this, number](std::int64_t, std::int64_t) { return current(number); }, error);
    if (!current(number))
        return;
    m_priced[place] = true; // what cannot be read is told when it is chosen
    if (!day)
        return;
    m_longDays = rowsOf(*day) > kMostRowsPriced;
    const auto prices = std::make_shared<const PriceSeries>(*day);
    tellPrices(static_cast<int>(place), prices);
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

/// Lists count whatever is asked for meanwhile: instruments are loaded from the store that is in force.
void DayLoader::tellList()
{
    QMetaObject::invokeMethod(
        this,
        [this, instruments = m_store->instruments(), number = m_openNumber] {
            m_listedNumber = number;
            Q_EMIT listed(instruments);
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
