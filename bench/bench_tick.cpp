// Speed and memory of the tick panels and their models: a whole day of one busy instrument.

#include "feed/record_making.h"
#include "feed/simulation/SimulatedExchange.h"
#include "heap_count.h"
#include "made_up_deals.h"
#include "platform/models/CModelDepthEntrust.h"
#include "platform/models/CModelDepthTransaction.h"
#include "platform/services/CStockManager.h"
#include "platform/services/RPCEngine.h"
#include "platform/utils/CSingletonT.h"
#include "tick/CDepthTransactionWidget.h"

#include <QApplication>

#include <boost/make_shared.hpp>

#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <thread>

namespace {

constexpr std::size_t kHistoryBatch = 20000;
constexpr int kLiveBatch = 100;
constexpr int kWidth = 1200;
constexpr int kHeight = 900;

/// Gives the panel's picture without a window.
class DealPanel : public Kel::CDepthTransactionWidget
{
public:
    using CDepthTransactionWidget::CDepthTransactionWidget;
    using CDepthTransactionWidget::m_timer;
    using CDepthTransactionWidget::slotTimeout;
    using CTickListWidget::updateScroll;
};

const char* const kStock = "SH600519";

void addInstrument()
{
    auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
    detail->market = "SH";
    detail->code = "600519";
    detail->previousClose = 10.05;
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(detail);
}

boost::shared_ptr<Kel::MetaCacheDataWrapper> wrap(quoter::QuoterBatch batch, const std::string& market,
                                                  const std::string& code)
{
    auto wrapper = boost::make_shared<Kel::MetaCacheDataWrapper>();
    wrapper->data = std::move(batch);
    wrapper->market = market;
    wrapper->instrument = code;
    return wrapper;
}

template <class Model>
void sendDeals(Model& model, const std::vector<feed::DealRow>& rows, int status)
{
    for (std::size_t from = 0; from < rows.size(); from += kHistoryBatch) {
        const std::size_t count = std::min(kHistoryBatch, rows.size() - from);
        model.transactionCallback(0, from == 0 ? status : 3,
                                  wrap(feed::makeDealBatch(rows.data() + from, count), "SH", "600519"));
    }
}

/// A model of so many deals.
std::unique_ptr<Kel::CModelDepthTransaction> filledModel(int deals)
{
    addInstrument();
    auto model = std::make_unique<Kel::CModelDepthTransaction>();
    model->setStock(QString::fromLatin1(kStock));
    sendDeals(*model, someDeals(0, deals), 0);
    return model;
}

Kel::SDepthFilterParam filterOf(int lots)
{
    Kel::SDepthFilterParam param;
    param.relate = 1;
    param.volume = lots;
    return param;
}

} // namespace

static void BM_LiveBatch(benchmark::State& state)
{
    const int deals = static_cast<int>(state.range(0));
    const auto model = filledModel(deals);
    int number = deals;
    for (auto _ : state) {
        state.PauseTiming();
        const auto rows = someDeals(number, kLiveBatch);
        const auto batch = wrap(feed::makeDealBatch(rows.data(), rows.size()), "SH", "600519");
        number += kLiveBatch;
        state.ResumeTiming();
        model->transactionCallback(0, 1, batch);
    }
}
BENCHMARK(BM_LiveBatch)
    ->ArgName("deals")
    ->Arg(10000)
    ->Arg(1000000)
    ->Arg(4000000)
    ->Iterations(500)
    ->Unit(benchmark::kMicrosecond);

static void BM_FilterChange(benchmark::State& state)
{
    const auto model = filledModel(static_cast<int>(state.range(0)));
    int lots = 0;
    for (auto _ : state) {
        lots = lots == 20 ? 30 : 20;
        model->setFilterParam(filterOf(lots));
        while (model->isFiltering())
            std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    state.counters["rows"] = model->count.load();
}
BENCHMARK(BM_FilterChange)
    ->ArgName("deals")
    ->Arg(1000000)
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

static void BM_LookUp(benchmark::State& state)
{
    const int deals = 1000000;
    const auto model = filledModel(deals);
    quoter::QuoterBatch orders;
    for (int number = 1; number <= deals; ++number) {
        auto order = boost::make_shared<quoter::OrderData>();
        order->entrustNo = number;
        order->volume = 100;
        order->price = 10;
        order->kind = 1;
        order->side = 1 + number % 2;
        orders.push_back(order);
    }
    model->entrustCallback(0, 0, wrap(orders, "SH", "600519"));
    if (state.range(1) != 0)
        model->setFilterParam(filterOf(20));
    while (model->isFiltering())
        std::this_thread::yield();
    const int firstTime = model->getData(0)->time;
    unsigned random = 1;
    const auto next = [&random](int below) {
        random = random * 1664525u + 1013904223u;
        return static_cast<int>((random >> 8) % static_cast<unsigned>(below));
    };
    const int rows = model->count;
    for (auto _ : state) {
        switch (state.range(0)) {
        case 0:
            benchmark::DoNotOptimize(model->find(firstTime + next(4000)));
            break;
        case 1:
            benchmark::DoNotOptimize(model->tracebackSeq(next(rows)));
            break;
        case 2:
            benchmark::DoNotOptimize(model->getOrder(1 + next(deals)));
            break;
        default:
            benchmark::DoNotOptimize(model->getData(next(rows)));
            break;
        }
    }
}
BENCHMARK(BM_LookUp)
    ->ArgNames({"find_0_traceback_1_order_2_row_3", "filtered"})
    ->Args({0, 0})
    ->Args({1, 0})
    ->Args({2, 0})
    ->Args({3, 0})
    ->Args({0, 1})
    ->Args({1, 1})
    ->Unit(benchmark::kNanosecond);

static void BM_Redraw(benchmark::State& state)
{
    addInstrument();
    DealPanel panel;
    panel.m_timer->stop();
    panel.setStock(QString::fromLatin1(kStock));
    panel.resize(kWidth, kHeight);
    panel.show();
    const int deals = static_cast<int>(state.range(0));
    sendDeals(panel, someDeals(0, deals), 0);
    panel.slotTimeout();
    int number = deals;
    for (auto _ : state) {
        state.PauseTiming();
        const auto rows = someDeals(number, 5);
        panel.transactionCallback(0, 1, wrap(feed::makeDealBatch(rows.data(), rows.size()), "SH", "600519"));
        number += 5;
        state.ResumeTiming();
        panel.slotTimeout();
    }
}
BENCHMARK(BM_Redraw)
    ->ArgName("deals")
    ->Arg(10000)
    ->Arg(100000)
    ->Arg(1000000)
    ->Arg(4000000)
    ->Iterations(300)
    ->Unit(benchmark::kMillisecond);

/// A simulated day; what each model keeps of it once the records are gone.
static void BM_Memory(benchmark::State& state)
{
    feed::InstrumentDay day;
    feed::SimulatedExchange exchange(feed::busyDay(feed::shenzhenStock(7), state.range(0)));
    exchange.runDay(day);
    const nelservice::CInstrumentDetail& detail = exchange.settings().detail;
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(
        boost::make_shared<nelservice::CInstrumentDetail>(detail));
    const auto load = [&](auto& model) {
        model.setStock(QString::fromStdString(detail.market + detail.code));
        const std::size_t before = heapInUse();
        for (std::size_t from = 0; from < day.deals.size(); from += kHistoryBatch)
            model.transactionCallback(
                0, from == 0 ? 0 : 3,
                wrap(feed::makeDealBatch(day.deals.data() + from,
                                         std::min(kHistoryBatch, day.deals.size() - from)),
                     detail.market, detail.code));
        const std::size_t withDeals = heapInUse();
        for (std::size_t from = 0; from < day.orders.size(); from += kHistoryBatch)
            model.entrustCallback(
                0, from == 0 ? 0 : 3,
                wrap(feed::makeOrderBatch(day.orders.data() + from,
                                          std::min(kHistoryBatch, day.orders.size() - from)),
                     detail.market, detail.code));
        return std::make_pair(withDeals - before, heapInUse() - before);
    };
    const double events = static_cast<double>(day.orders.size() + day.deals.size());
    for (auto _ : state) {
        Kel::CModelDepthTransaction deals;
        Kel::CModelDepthEntrust entrusts;
        const auto dealBytes = load(deals);
        const auto entrustBytes = load(entrusts);
        state.counters["events"] = events;
        state.counters["deals"] = deals.count.load();
        state.counters["bytes_per_deal_with_links"] =
            static_cast<double>(dealBytes.first) / deals.count.load();
        state.counters["deal_model_bytes_per_event"] = static_cast<double>(dealBytes.second) / events;
        state.counters["order_model_bytes_per_event"] = static_cast<double>(entrustBytes.second) / events;
        benchmark::DoNotOptimize(deals.heapBytes());
    }
    net::RPCEngine::drain("data_release");
}
BENCHMARK(BM_Memory)->ArgName("orders")->Arg(2100000)->Iterations(1)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
