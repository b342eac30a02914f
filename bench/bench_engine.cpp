// Speed and memory of the order-queue engine on simulated days of one instrument.

#include "feed/record_making.h"
#include "feed/simulation/Random.h"
#include "feed/simulation/SimulatedExchange.h"
#include "heap_count.h"
#include "platform/services/CStockManager.h"
#include "platform/services/RPCEngine.h"
#include "platform/utils/CSingletonT.h"
#include "queue_engine/CDepthModelOrderQueue.h"

#include <QCoreApplication>

#include <boost/make_shared.hpp>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <map>
#include <memory>

namespace {

constexpr std::size_t kHistoryBatch = 20000;

/// Live batches between two refreshes of the screen: 20,000 records a second at 50 ms.
constexpr int kBatchesPerRefresh = 5;

/// The engine driven by hand: batches on this thread, no timers.
class Engine : public Kel::CDepthModelOrderQueue
{
public:
    Engine() { m_refreshTimer->stop(); }
    using CDepthModelOrderQueue::calcOrder;
    using CDepthModelOrderQueue::doDealCallBack;
    using CDepthModelOrderQueue::doOrderCallBack;
    using CDepthModelOrderQueue::m_orderCache;
    using CDepthModelOrderQueue::m_orderQueues;
    using CDepthModelOrderQueue::updateDataList;

    int listed() const
    {
        int orders = 0;
        for (const LevelMap& levels : m_orderQueues) {
            for (const auto& level : levels)
                orders += level->m_orders.size();
        }
        return orders;
    }
};

struct Day
{
    feed::InstrumentDay rows;
    std::string market;
    std::string code;
    QString key;
};

/// A busy day with about so many orders, made once.
const Day& busyDay(std::int64_t orders)
{
    static std::map<std::int64_t, std::unique_ptr<Day>> days;
    std::unique_ptr<Day>& day = days[orders];
    if (!day) {
        day = std::make_unique<Day>();
        feed::SimulatedExchange exchange(feed::busyDay(feed::shenzhenStock(7), orders));
        exchange.runDay(day->rows);
        const nelservice::CInstrumentDetail& detail = exchange.settings().detail;
        day->market = detail.market;
        day->code = detail.code;
        day->key = QString::fromStdString(detail.market + detail.code);
        utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(
            boost::make_shared<nelservice::CInstrumentDetail>(detail));
    }
    return *day;
}

Kel::MetaCacheDataWrapperPtr wrap(const Day& day, quoter::QuoterBatch batch)
{
    const auto wrapper = boost::make_shared<Kel::MetaCacheDataWrapper>();
    wrapper->data = std::move(batch);
    wrapper->market = day.market;
    wrapper->instrument = day.code;
    return wrapper;
}

struct History
{
    std::vector<Kel::MetaCacheDataWrapperPtr> orders;
    std::vector<Kel::MetaCacheDataWrapperPtr> deals;
    std::size_t records = 0;
};

/// The day's orders and deals as history batches, the first of them for status 0.
History historyOf(const Day& day)
{
    History history;
    const auto& orders = day.rows.orders;
    for (std::size_t i = 0; i < orders.size(); i += kHistoryBatch) {
        const std::size_t count = std::min(kHistoryBatch, orders.size() - i);
        history.orders.push_back(wrap(day, feed::makeOrderBatch(orders.data() + i, count)));
    }
    const auto& deals = day.rows.deals;
    for (std::size_t i = 0; i < deals.size(); i += kHistoryBatch) {
        const std::size_t count = std::min(kHistoryBatch, deals.size() - i);
        history.deals.push_back(wrap(day, feed::makeDealBatch(deals.data() + i, count)));
    }
    history.records = orders.size() + deals.size();
    return history;
}

/// Deals first, then orders; an empty live deal batch ends the load.
void loadDealsFirst(Engine& engine, const Day& day, const History& history)
{
    int seq = 0;
    for (const auto& batch : history.deals)
        engine.doDealCallBack(seq, seq == 0 ? 0 : 3, batch), ++seq;
    seq = 0;
    for (const auto& batch : history.orders)
        engine.doOrderCallBack(seq, seq == 0 ? 0 : 3, batch), ++seq;
    engine.doDealCallBack(static_cast<int>(history.deals.size()), 1, wrap(day, {}));
}

/// Orders first, then deals; the first deal batch runs the match, passes apply the others.
void loadOrdersFirst(Engine& engine, const History& history)
{
    int seq = 0;
    for (const auto& batch : history.orders)
        engine.doOrderCallBack(seq, seq == 0 ? 0 : 3, batch), ++seq;
    seq = 0;
    for (const auto& batch : history.deals)
        engine.doDealCallBack(seq, seq == 0 ? 0 : 3, batch), ++seq;
    engine.updateDataList();
    engine.updateDataList();
}

void BM_History(benchmark::State& state)
{
    const Day& day = busyDay(state.range(0));
    const History history = historyOf(day);
    const bool dealsFirst = state.range(1) != 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto engine = std::make_unique<Engine>();
        engine->setStock(day.key);
        state.ResumeTiming();
        if (dealsFirst)
            loadDealsFirst(*engine, day, history);
        else
            loadOrdersFirst(*engine, history);
        state.PauseTiming();
        state.counters["listed"] = engine->listed();
        engine.reset();
        net::RPCEngine::drain("data_release");
        state.ResumeTiming();
    }
    state.counters["orders"] = static_cast<double>(day.rows.orders.size());
    state.counters["deals"] = static_cast<double>(day.rows.deals.size());
    state.counters["ns_per_record"] =
        benchmark::Counter(static_cast<double>(history.records) * 1e-9,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_History)
    ->ArgNames({"orders", "dealsFirst"})
    ->ArgsProduct({{200000, 1000000, 3000000}, {1, 0}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(5)
    ->ReportAggregatesOnly();

// --- a standing book
// ------------------------------------------------------------------------------------------------

constexpr double kMid = 100.0;
constexpr double kTick = 0.01;

/// `levels` prices a side with `perLevel` orders each, arriving in random turn; nothing is dealt yet.
struct Book
{
    std::vector<feed::OrderRow> orders;
    Day day;
    feed::SnapshotRow snapshot;

    Book(int levels, int perLevel)
    {
        auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
        detail->market = "SZ";
        detail->code = "000002";
        utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(detail);
        day.market = detail->market;
        day.code = detail->code;
        day.key = "SZ000002";
        const int total = 2 * levels * perLevel;
        std::vector<int> places(static_cast<std::size_t>(total));
        for (int i = 0; i < total; ++i)
            places[static_cast<std::size_t>(i)] = i % (2 * levels);
        feed::Random random(5);
        for (std::size_t i = places.size(); i > 1; --i)
            std::swap(places[i - 1], places[random.below(static_cast<std::uint32_t>(i))]);
        for (int i = 0; i < total; ++i) {
            feed::OrderRow row;
            const int place = places[static_cast<std::size_t>(i)];
            row.number = 3 * (i + 1);
            row.side = place < levels ? 1 : 2;
            row.price = row.side == 1 ? kMid - kTick * (place + 1) : kMid + kTick * (place - levels + 1);
            row.volume = 100 * (1 + random.below(50));
            row.time = 1000;
            orders.push_back(row);
        }
        for (std::size_t i = 0; i < snapshot.bidPrice.size(); ++i) {
            snapshot.bidPrice[i] = kMid - kTick * static_cast<double>(i + 1);
            snapshot.askPrice[i] = kMid + kTick * static_cast<double>(i + 1);
            snapshot.bidVolume[i] = snapshot.askVolume[i] = 1000000;
        }
        snapshot.lastPrice = kMid;
        snapshot.time = 500;
    }

    void load(Engine& engine) const
    {
        engine.setStock(day.key);
        engine.quoterCallBack(0, -1, {feed::makeRecord(snapshot, 100)});
        engine.doDealCallBack(0, 0, wrap(day, {}));
        engine.doOrderCallBack(0, 0, wrap(day, feed::makeOrderBatch(orders.data(), orders.size())));
        engine.updateDataList();
        engine.updateDataList();
    }
};

/// One live slice: 100 new orders, half of them in the ten levels, and 90 deals and cancels of standing
/// orders.
class LiveSlices
{
public:
    explicit LiveSlices(const Book& book) : m_book(book), m_nextNumber(book.orders.back().number + 3)
    {
        for (const feed::OrderRow& row : book.orders)
            m_standing.push_back(row);
    }

    std::pair<Kel::MetaCacheDataWrapperPtr, Kel::MetaCacheDataWrapperPtr> next()
    {
        std::vector<feed::OrderRow> orders;
        std::vector<feed::DealRow> deals;
        ++m_time;
        for (int i = 0; i < 100; ++i) {
            feed::OrderRow row;
            row.number = m_nextNumber;
            m_nextNumber += 3;
            row.side = i % 2 + 1;
            const int away = 1 + static_cast<int>(m_random.below(i < 50 ? 10 : 100));
            row.price = row.side == 1 ? kMid - kTick * away : kMid + kTick * away;
            row.volume = 100 * (1 + m_random.below(50));
            row.time = m_time;
            orders.push_back(row);
            m_standing.push_back(row);
        }
        for (int i = 0; i < 90; ++i) {
            const std::size_t at = m_random.below(static_cast<std::uint32_t>(m_standing.size()));
            const feed::OrderRow gone = m_standing[at];
            m_standing[at] = m_standing.back();
            m_standing.pop_back();
            feed::DealRow row;
            row.time = m_time;
            row.volume = gone.volume;
            if (i % 2 == 0) {
                row.kind = quoter::eTransactionCancel;
                row.buyNo = static_cast<std::int32_t>(gone.number);
                row.sellNo = gone.side == 2 ? row.buyNo : 0;
            } else {
                (gone.side == 1 ? row.buyNo : row.sellNo) = static_cast<std::int32_t>(gone.number);
                row.price = gone.price;
            }
            deals.push_back(row);
        }
        return {wrap(m_book.day, feed::makeOrderBatch(orders.data(), orders.size())),
                wrap(m_book.day, feed::makeDealBatch(deals.data(), deals.size()))};
    }

private:
    const Book& m_book;
    std::vector<feed::OrderRow> m_standing;
    std::int64_t m_nextNumber;
    std::int64_t m_time = 2000;
    feed::Random m_random{11};
};

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// A batch of 100 orders and the deals that follow, as a busy day brings them in its second half, with a pass
/// and new rows (not timed) after every fifth.
void BM_LiveDay(benchmark::State& state)
{
    const Day& day = busyDay(1000000);
    const auto at = [&](std::int64_t seq) { return [seq](const auto& row) { return row.seq < seq; }; };
    const std::int64_t start = day.rows.orders[day.rows.orders.size() / 2].seq;
    const auto firstOrder = std::partition_point(day.rows.orders.begin(), day.rows.orders.end(), at(start));
    const auto firstDeal = std::partition_point(day.rows.deals.begin(), day.rows.deals.end(), at(start));
    const auto orders = static_cast<std::size_t>(firstOrder - day.rows.orders.begin());
    const auto deals = static_cast<std::size_t>(firstDeal - day.rows.deals.begin());

    Engine engine;
    engine.setStock(day.key);
    for (const feed::SnapshotRow& row : day.rows.snapshots) {
        if (row.seq < start)
            engine.quoterCallBack(0, -1, {feed::makeRecord(row, 100)});
    }
    engine.doDealCallBack(0, 0, wrap(day, feed::makeDealBatch(day.rows.deals.data(), deals)));
    engine.doOrderCallBack(0, 0, wrap(day, feed::makeOrderBatch(day.rows.orders.data(), orders)));
    engine.updateDataList();

    std::size_t order = orders;
    std::size_t deal = deals;
    double records = 0;
    double orderTime = 0;
    int batches = 0;
    for (auto _ : state) {
        const std::size_t end = order + 100;
        if (end >= day.rows.orders.size()) {
            state.SkipWithError("the day is over");
            break;
        }
        std::size_t dealEnd = deal;
        while (dealEnd < day.rows.deals.size() && day.rows.deals[dealEnd].seq < day.rows.orders[end].seq)
            ++dealEnd;
        const auto orderBatch = wrap(day, feed::makeOrderBatch(day.rows.orders.data() + order, 100));
        const auto dealBatch = wrap(day, feed::makeDealBatch(day.rows.deals.data() + deal, dealEnd - deal));
        records += static_cast<double>(100 + dealEnd - deal);
        order = end;
        deal = dealEnd;
        const auto begin = Clock::now();
        engine.doOrderCallBack(0, 1, orderBatch);
        orderTime += secondsSince(begin);
        engine.doDealCallBack(0, 1, dealBatch);
        state.SetIterationTime(secondsSince(begin));
        if (++batches % kBatchesPerRefresh == 0) {
            engine.updateDataList();
            engine.calcOrder();
        }
    }
    state.counters["orders_us"] = benchmark::Counter(orderTime * 1e6, benchmark::Counter::kAvgIterations);
    state.counters["records"] = benchmark::Counter(records, benchmark::Counter::kAvgIterations);
    state.counters["listed"] = engine.listed();
}
BENCHMARK(BM_LiveDay)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(1000)
    ->Repetitions(5)
    ->ReportAggregatesOnly();

/// The same with deals and cancels of orders drawn from the whole book, which no cache of the processor
/// holds. A batch of 100 orders and the deals that follow, into a book of 100,000 listed orders whose rows
/// are on screen.
void BM_LiveBatch(benchmark::State& state)
{
    const Book book(100, 500);
    Engine engine;
    book.load(engine);
    LiveSlices slices(book);
    int batches = 0;
    for (auto _ : state) {
        const auto slice = slices.next();
        const auto start = Clock::now();
        engine.doOrderCallBack(0, 1, slice.first);
        engine.doDealCallBack(0, 1, slice.second);
        state.SetIterationTime(secondsSince(start));
        if (++batches % kBatchesPerRefresh == 0) {
            engine.updateDataList();
            engine.calcOrder();
        }
    }
}
BENCHMARK(BM_LiveBatch)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(500)
    ->Repetitions(5)
    ->ReportAggregatesOnly();

/// One refresh pass over 100,000 listed orders of which some 190 changed; quick, or the full pass it is held
/// against.
void BM_RefreshPass(benchmark::State& state)
{
    const Book book(static_cast<int>(state.range(1)), 50000 / static_cast<int>(state.range(1)));
    Engine engine;
    engine.setFullPass(state.range(0) != 0);
    book.load(engine);
    LiveSlices slices(book);
    for (auto _ : state) {
        const auto slice = slices.next();
        engine.doOrderCallBack(0, 1, slice.first);
        engine.doDealCallBack(0, 1, slice.second);
        const auto start = Clock::now();
        engine.updateDataList();
        state.SetIterationTime(secondsSince(start));
        engine.calcOrder();
    }
}
BENCHMARK(BM_RefreshPass)
    ->ArgNames({"full", "levels"})
    ->ArgsProduct({{0, 1}, {100, 1000}})
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(200)
    ->Repetitions(5)
    ->ReportAggregatesOnly();

/// Rows and header from ten levels of 1,000 orders a side; `feedNewer`: the lists fix the ten prices.
void BM_CalcOrder(benchmark::State& state)
{
    const Book book(10, 1000);
    Engine engine;
    book.load(engine);
    if (state.range(0) == 0) {
        feed::SnapshotRow snapshot = book.snapshot;
        snapshot.time = 3000;
        engine.quoterCallBack(0, -1, {feed::makeRecord(snapshot, 100)});
    }
    for (auto _ : state)
        engine.calcOrder();
}
BENCHMARK(BM_CalcOrder)
    ->ArgName("feedNewer")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly();

void BM_At(benchmark::State& state)
{
    const Book book(10, 1000);
    Engine engine;
    book.load(engine);
    engine.calcOrder();
    unsigned index = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(engine.at(index++ % 10, Kel::OQT_BUY));
}
BENCHMARK(BM_At)->Unit(benchmark::kNanosecond)->Repetitions(5)->ReportAggregatesOnly();

/// Processor time of this thread alone, seconds.
double threadSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// What the caller of `clear` waits with a million orders held; `caller_us` is what it works itself.
void BM_Clear(benchmark::State& state)
{
    const Book book(500, 1000);
    for (auto _ : state) {
        Engine engine;
        book.load(engine);
        engine.calcOrder();
        const double work = threadSeconds();
        const auto start = Clock::now();
        engine.clear(true);
        state.SetIterationTime(secondsSince(start));
        state.counters["caller_us"] = (threadSeconds() - work) * 1e6;
        net::RPCEngine::drain("data_release");
    }
}
BENCHMARK(BM_Clear)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(1)
    ->Repetitions(5)
    ->ReportAggregatesOnly();

/// Heap bytes of a listed order: all that the engine holds, with and without the feed's own records that its
/// cache shares. `live`: the orders came in batches of 100 and no cache holds them.
void BM_Memory(benchmark::State& state)
{
    const bool live = state.range(0) != 0;
    const Book book(500, static_cast<int>(state.range(1)));
    for (auto _ : state) {
        // What the engine before has given away to be freed would be counted as ours, with a minus.
        net::RPCEngine::drain("data_release");
        const std::size_t before = heapInUse();
        Engine engine;
        engine.setStock(book.day.key);
        auto batch = feed::makeOrderBatch(book.orders.data(), book.orders.size());
        std::size_t records = heapInUse() - before - batch.capacity() * sizeof(batch[0]);
        if (live) {
            for (std::size_t i = 0; i < batch.size(); i += 100) {
                quoter::QuoterBatch part(batch.begin() + static_cast<std::ptrdiff_t>(i),
                                         batch.begin() + static_cast<std::ptrdiff_t>(i) + 100);
                engine.doOrderCallBack(0, 1, wrap(book.day, std::move(part)));
            }
            batch = {};
            records = 0;
        } else {
            engine.doDealCallBack(0, 0, wrap(book.day, {}));
            engine.doOrderCallBack(0, 0, wrap(book.day, std::move(batch)));
            batch = {};
        }
        engine.updateDataList();
        const auto orders = static_cast<double>(book.orders.size());
        state.counters["bytes_per_order"] = static_cast<double>(heapInUse() - before - records) / orders;
        state.counters["with_records"] = static_cast<double>(heapInUse() - before) / orders;
        state.counters["counted"] = static_cast<double>(engine.heapBytes()) / orders;
    }
}
BENCHMARK(BM_Memory)
    ->ArgNames({"live", "perLevel"})
    ->ArgsProduct({{0, 1}, {100, 1000}})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

/// Heap bytes of a number in the deal cache, by how far apart the numbers of one instrument are in its
/// channel.
void BM_DealCacheMemory(benchmark::State& state)
{
    constexpr int kNumbers = 100000;
    for (auto _ : state) {
        Kel::OrderNumberMap<double> dealt;
        for (int i = 1; i <= kNumbers; ++i)
            dealt[i * state.range(0)] = 1;
        state.counters["bytes_per_number"] = static_cast<double>(dealt.heapBytes()) / kNumbers;
    }
}
BENCHMARK(BM_DealCacheMemory)
    ->ArgName("spacing")
    ->Arg(3)
    ->Arg(50)
    ->Arg(2000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
