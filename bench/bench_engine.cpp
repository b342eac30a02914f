// Speed and memory of the order-queue engine on simulated days of one instrument.

#include "feed/record_making.h"
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
#include <map>
#include <memory>

namespace
{

constexpr std::size_t kHistoryBatch = 20000;

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
        for (const LevelMap& levels : m_orderQueues)
        {
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
    if (!day)
    {
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
    for (std::size_t i = 0; i < orders.size(); i += kHistoryBatch)
    {
        const std::size_t count = std::min(kHistoryBatch, orders.size() - i);
        history.orders.push_back(wrap(day, feed::makeOrderBatch(orders.data() + i, count)));
    }
    const auto& deals = day.rows.deals;
    for (std::size_t i = 0; i < deals.size(); i += kHistoryBatch)
    {
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
    for (auto _ : state)
    {
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
