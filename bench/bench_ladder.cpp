// Speed and memory of the ladder: taking a day, reporting changes, painting.

#include "feed/record_making.h"
#include "feed/simulation/SimulatedExchange.h"
#include "heap_count.h"
#include "platform/models/CModelDepthThousand.h"
#include "platform/services/CStockManager.h"
#include "platform/services/RPCEngine.h"
#include "platform/utils/CSingletonT.h"
#include "thousand/CDepthThousandDataWidget.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <boost/make_shared.hpp>

#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <vector>

namespace {

constexpr std::size_t kHistoryBatch = 20000;
constexpr std::int64_t kDayOrders = 1000000;
constexpr int kLevels = 1000;        // a side
constexpr int kOrdersOfALevel = 150; // 300,000 in all
constexpr int kChangedOfASide = 50;  // levels between two reports
constexpr int kMiddle = 500000;      // price in ticks
constexpr double kTick = 0.01;       // yuan

using Batches = std::vector<Kel::MetaCacheDataWrapperPtr>;

Kel::MetaCacheDataWrapperPtr wrap(quoter::QuoterBatch records, const nelservice::CInstrumentDetail& detail)
{
    const auto batch = boost::make_shared<Kel::MetaCacheDataWrapper>();
    batch->data = std::move(records);
    batch->market = detail.market;
    batch->instrument = detail.code;
    return batch;
}

QString addInstrument(const nelservice::CInstrumentDetail& detail)
{
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(
        boost::make_shared<nelservice::CInstrumentDetail>(detail));
    return QString::fromStdString(detail.market + detail.code);
}

struct Day
{
    QString key;
    Batches orders;
    Batches deals;
    std::size_t orderCount = 0;
    std::size_t dealCount = 0;
};

/// A busy day in history batches, made once.
const Day& busyDay()
{
    static const Day day = [] {
        Day result;
        const feed::InstrumentDay rows =
            feed::simulatedDay(feed::busyDay(feed::shanghaiStock(7), kDayOrders));
        result.key = addInstrument(rows.detail);
        result.orderCount = rows.orders.size();
        result.dealCount = rows.deals.size();
        for (std::size_t i = 0; i < rows.orders.size(); i += kHistoryBatch) {
            const std::size_t count = std::min(kHistoryBatch, rows.orders.size() - i);
            result.orders.push_back(wrap(feed::makeOrderBatch(rows.orders.data() + i, count), rows.detail));
        }
        for (std::size_t i = 0; i < rows.deals.size(); i += kHistoryBatch) {
            const std::size_t count = std::min(kHistoryBatch, rows.deals.size() - i);
            result.deals.push_back(wrap(feed::makeDealBatch(rows.deals.data() + i, count), rows.detail));
        }
        return result;
    }();
    return day;
}

void feedOrders(Kel::CModelDepthThousand& model, const Day& day)
{
    int seq = 0;
    for (const auto& batch : day.orders)
        model.entrustCallback(seq, seq == 0 ? 0 : 3, batch), ++seq;
}

void feedDeals(Kel::CModelDepthThousand& model, const Day& day)
{
    int seq = 0;
    for (const auto& batch : day.deals)
        model.transactionCallback(seq, seq == 0 ? 0 : 3, batch), ++seq;
}

/// The outputs of `checkUpdate`.
struct Answer
{
    int flags = 0;
    std::vector<boost::shared_ptr<Kel::EntrustData>> buys;
    std::vector<boost::shared_ptr<Kel::EntrustData>> sells;
    double latest = 0;
    int lastVolume = 0;
    double minPrice = 0;
    double maxPrice = 0;
    double maxAmount = 0;

    bool ask(Kel::CModelDepthThousand& model)
    {
        return model.checkUpdate(flags, buys, sells, latest, lastVolume, minPrice, maxPrice, maxAmount,
                                 false);
    }
};

void BM_Day(benchmark::State& state)
{
    const Day& day = busyDay();
    const bool dealsFirst = state.range(0) != 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto model = std::make_unique<Kel::CModelDepthThousand>(0, -1);
        model->setStock(day.key);
        state.ResumeTiming();
        if (dealsFirst)
            feedDeals(*model, day);
        feedOrders(*model, day);
        if (!dealsFirst)
            feedDeals(*model, day);
        Answer answer;
        benchmark::DoNotOptimize(answer.ask(*model));
        state.PauseTiming();
        model.reset();
        state.ResumeTiming();
    }
    state.counters["orders"] = static_cast<double>(day.orderCount);
    state.counters["deals"] = static_cast<double>(day.dealCount);
}
BENCHMARK(BM_Day)->ArgName("deals_first")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Repetitions(3);

nelservice::CInstrumentDetail deepInstrument()
{
    nelservice::CInstrumentDetail detail;
    detail.market = "SH";
    detail.code = "600000";
    detail.priceTick = kTick;
    detail.previousClose = kMiddle * kTick;
    return detail;
}

quoter::QuoterBasePtr order(std::int64_t number, bool isBuy, int level)
{
    auto record = boost::make_shared<quoter::OrderData>();
    record->entrustNo = number;
    record->side = isBuy ? 1 : 2;
    record->kind = quoter::eOrderLimit;
    record->price = (kMiddle + (isBuy ? -1 - level : 1 + level)) * kTick;
    record->volume = 100 * (1 + number % 37);
    return record;
}

/// Orders at each of the thousand prices a side.
Kel::MetaCacheDataWrapperPtr deepBook(int ordersOfALevel)
{
    quoter::QuoterBatch records;
    std::int64_t number = 0;
    for (int i = 0; i < ordersOfALevel; ++i) {
        for (int level = 0; level < kLevels; ++level) {
            records.push_back(order(++number, true, level));
            records.push_back(order(++number, false, level));
        }
    }
    return wrap(std::move(records), deepInstrument());
}

void BM_CheckUpdate(benchmark::State& state)
{
    Kel::CModelDepthThousand model(0, -1);
    model.setStock(addInstrument(deepInstrument()));
    model.entrustCallback(0, 1, deepBook(kOrdersOfALevel));
    Answer answer;
    answer.ask(model);
    std::int64_t number = 1000000;
    for (auto _ : state) {
        quoter::QuoterBatch records;
        for (int i = 0; i < kChangedOfASide; ++i) {
            const int level = static_cast<int>((number * 7919) % kLevels);
            records.push_back(order(++number, true, level));
            records.push_back(order(++number, false, level));
        }
        model.entrustCallback(0, 1, wrap(std::move(records), deepInstrument()));
        const auto start = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(answer.ask(model));
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
}
BENCHMARK(BM_CheckUpdate)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(2000)->Repetitions(3);

void BM_CheckUpdateWithoutNews(benchmark::State& state)
{
    Kel::CModelDepthThousand model(0, -1);
    model.setStock(addInstrument(deepInstrument()));
    model.entrustCallback(0, 1, deepBook(kOrdersOfALevel));
    Answer answer;
    answer.ask(model);
    for (auto _ : state)
        benchmark::DoNotOptimize(answer.ask(model));
}
BENCHMARK(BM_CheckUpdateWithoutNews)->Unit(benchmark::kNanosecond);

void BM_QueueOfAPrice(benchmark::State& state)
{
    Kel::CModelDepthThousand model(0, -1);
    model.setStock(addInstrument(deepInstrument()));
    model.entrustCallback(0, 1, deepBook(kOrdersOfALevel));
    for (auto _ : state)
        benchmark::DoNotOptimize(model.getQueue(true, (kMiddle - 1) * kTick));
    state.counters["orders"] = kOrdersOfALevel;
}
BENCHMARK(BM_QueueOfAPrice)->Unit(benchmark::kMicrosecond);

/// Heap of a day that has just been loaded, per order that stands at its end, and of a book in which every
/// order stands.
void BM_Memory(benchmark::State& state)
{
    for (auto _ : state) {
        const auto batch = deepBook(kOrdersOfALevel);
        const std::size_t before = heapInUse();
        Kel::CModelDepthThousand model(0, -1);
        model.setStock(addInstrument(deepInstrument()));
        model.entrustCallback(0, 1, batch);
        const double orders = 2.0 * kLevels * kOrdersOfALevel;
        state.counters["bytes_per_live_order"] = static_cast<double>(heapInUse() - before) / orders;
        state.counters["counted"] = static_cast<double>(model.heapBytes()) / orders;

        Kel::CModelDepthThousand whole(0, -1);
        whole.setStock(busyDay().key);
        feedOrders(whole, busyDay());
        feedDeals(whole, busyDay());
        state.counters["megabytes_of_a_day"] = static_cast<double>(whole.heapBytes()) / 1e6;
    }
}
BENCHMARK(BM_Memory)->Iterations(1)->Unit(benchmark::kMillisecond);

/// The panel with its pictures open.
class Panel : public Kel::CDepthThousandDataWidget
{
public:
    Panel() : CDepthThousandDataWidget(nullptr, false)
    {
        m_timer->stop();
        resize(400, 900);
        show();
        setStock(addInstrument(deepInstrument()));
        entrustCallback(0, 1, deepBook(1));
        slotTimeout();
        // A second report: half of the rows show a change.
        entrustCallback(0, 1, deepChanges());
        slotTimeout();
    }
    using CDepthThousandDataWidget::drawBackground;
    using CDepthThousandDataWidget::m_clientRect;

private:
    static Kel::MetaCacheDataWrapperPtr deepChanges()
    {
        quoter::QuoterBatch records;
        for (int level = 0; level < kLevels; level += 2) {
            records.push_back(order(100000 + 2 * level, true, level));
            records.push_back(order(100001 + 2 * level, false, level));
        }
        return wrap(std::move(records), deepInstrument());
    }
};

void BM_PaintEvent(benchmark::State& state)
{
    Panel panel;
    panel.setShowDistribute(state.range(0) != 0);
    QImage image(400, 900, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        panel.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
}
BENCHMARK(BM_PaintEvent)
    ->ArgName("distribution")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(3);

void BM_DrawBackground(benchmark::State& state)
{
    Panel panel;
    for (auto _ : state)
        panel.drawBackground(panel.m_clientRect);
}
BENCHMARK(BM_DrawBackground)->Unit(benchmark::kMillisecond)->Repetitions(3);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "96");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    net::RPCEngine::shutdown();
}
