// Speed and memory of the deal chart: the picture at 1200 x 500, a mouse move with the detail box, and the
// model at a day of a million deals.

#include "feed/record_making.h"
#include "feed/simulation/SimulatedExchange.h"
#include "heap_count.h"
#include "holographic/CDepthHolographicWidget.h"
#include "made_up_deals.h"
#include "platform/services/CStockManager.h"
#include "platform/utils/CSingletonT.h"

#include <QApplication>
#include <QMouseEvent>

#include <boost/make_shared.hpp>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <limits>
#include <memory>

namespace {

constexpr std::size_t kHistoryBatch = 20000;
constexpr int kLiveBatch = 100;
constexpr int kWidth = 1200;
constexpr int kHeight = 500;

/// A chart without a window, its timers stopped.
class Chart : public Kel::CDepthHolographicWidget
{
public:
    using CDepthHolographicWidget::drawGraph;
    using CDepthHolographicWidget::eDrawPlain;
    using CDepthHolographicWidget::m_columnMode;
    using CDepthHolographicWidget::m_dealRightX;
    using CDepthHolographicWidget::m_detailSeq;
    using CDepthHolographicWidget::m_drawing;
    using CDepthHolographicWidget::m_model;
    using CDepthHolographicWidget::m_timeSpanX;

    Chart()
    {
        m_refreshTimer->stop();
        resize(kWidth, kHeight);
        show();
    }

    void viewAll() { setViewTimeRange(0, std::numeric_limits<int>::max()); }
};

template <class Receiver>
void sendDeals(Receiver& chart, const std::vector<feed::DealRow>& rows, const std::string& market,
               const std::string& code, int status)
{
    const QString key = QString::fromStdString(market + code);
    for (std::size_t from = 0; from < rows.size(); from += kHistoryBatch) {
        const std::size_t count = std::min(kHistoryBatch, rows.size() - from);
        auto wrapper = boost::make_shared<Kel::MetaCacheDataWrapper>();
        wrapper->data = feed::makeDealBatch(rows.data() + from, count);
        wrapper->market = market;
        wrapper->instrument = code;
        chart.onTransactionCallback(key, 0, from == 0 ? status : 3, wrapper);
    }
}

/// A simulated day of about so many deals with all orders, in the chart.
void fillWithADay(Chart& chart, int deals)
{
    feed::InstrumentDay day;
    feed::SimulatedExchange exchange(feed::busyDay(feed::shenzhenStock(7), std::int64_t(deals) * 2));
    exchange.runDay(day);
    const nelservice::CInstrumentDetail& detail = exchange.settings().detail;
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(
        boost::make_shared<nelservice::CInstrumentDetail>(detail));
    const QString key = QString::fromStdString(detail.market + detail.code);
    chart.setStock(key);
    auto orders = boost::make_shared<Kel::MetaCacheDataWrapper>();
    orders->data = feed::makeOrderBatch(day.orders.data(), day.orders.size());
    orders->market = detail.market;
    orders->instrument = detail.code;
    chart.onEntrustCallback(key, 0, 0, orders);
    sendDeals(chart, day.deals, detail.market, detail.code, 0);
    chart.slotTimeOut();
}

void fillWithSomeDeals(Chart& chart, int deals)
{
    auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
    detail->market = "SH";
    detail->code = "600519";
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(detail);
    chart.setStock(QStringLiteral("SH600519"));
    sendDeals(chart, someDeals(0, deals), "SH", "600519", 0);
    chart.slotTimeOut();
}

} // namespace

/// The picture of the last 300 deals, of a whole day, and of one whose rows are fitted to the page.
static void BM_DrawGraph(benchmark::State& state)
{
    Chart chart;
    fillWithADay(chart, static_cast<int>(state.range(0)));
    if (state.range(1) != 0)
        chart.viewAll();
    if (state.range(1) == 2)
        chart.slotAdjustHeight();
    for (auto _ : state)
        chart.drawGraph();
    state.counters["deals_in_view"] = chart.m_dealRightX.size();
}
BENCHMARK(BM_DrawGraph)
    ->ArgNames({"deals", "last_0_all_1_fit_2"})
    ->Args({110000, 0})
    ->Args({110000, 1})
    ->Args({110000, 2})
    ->Args({1000000, 2})
    ->Unit(benchmark::kMillisecond);

/// The same without columns: each shape of each deal.
static void BM_DrawGraphShapeByShape(benchmark::State& state)
{
    Chart chart;
    fillWithADay(chart, static_cast<int>(state.range(0)));
    chart.viewAll();
    chart.slotAdjustHeight();
    chart.m_drawing = Chart::eDrawPlain;
    for (auto _ : state)
        chart.drawGraph();
}
BENCHMARK(BM_DrawGraphShapeByShape)->ArgName("deals")->Arg(110000)->Unit(benchmark::kMillisecond);

/// A move over the chart and the repaint with the box.
static void BM_MouseMoveWithTheBox(benchmark::State& state)
{
    Chart chart;
    fillWithADay(chart, static_cast<int>(state.range(0)));
    if (state.range(1) != 0)
        chart.viewAll();
    chart.m_columnMode = false;
    QPixmap screen(kWidth, kHeight);
    int x = 0;
    for (auto _ : state) {
        x = (x + 37) % 1000;
        const QPoint point(x, 200);
        QMouseEvent move(QEvent::MouseMove, point, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&chart, &move);
        chart.slotShowDealDetail();
        chart.render(&screen, QPoint(), QRegion(), QWidget::RenderFlags());
    }
}
BENCHMARK(BM_MouseMoveWithTheBox)
    ->ArgNames({"deals", "all"})
    ->Args({110000, 0})
    ->Args({110000, 1})
    ->Unit(benchmark::kMicrosecond);

/// The view brought up to a live batch, with the last 300 deals or all in view.
static void BM_RecalculateAfterALiveBatch(benchmark::State& state)
{
    const int deals = static_cast<int>(state.range(0));
    Chart chart;
    fillWithSomeDeals(chart, deals);
    if (state.range(1) != 0)
        chart.m_model->setViewTimeRange(0, std::numeric_limits<int>::max());
    int number = deals;
    for (auto _ : state) {
        state.PauseTiming();
        sendDeals(chart, someDeals(number, kLiveBatch), "SH", "600519", 1);
        number += kLiveBatch;
        state.ResumeTiming();
        benchmark::DoNotOptimize(chart.m_model->recalcMaxMinSeqAndPrice());
    }
}
BENCHMARK(BM_RecalculateAfterALiveBatch)
    ->ArgNames({"deals", "all"})
    ->Args({1000000, 0})
    ->Args({1000000, 1})
    ->Iterations(300)
    ->Unit(benchmark::kMicrosecond);

/// What the two maps hold when a million deals are in view, and what the model adds to a deal.
static void BM_MemoryOfTheMaps(benchmark::State& state)
{
    const int deals = static_cast<int>(state.range(0));
    for (auto _ : state) {
        Chart chart;
        fillWithSomeDeals(chart, deals);
        chart.viewAll();
        const std::size_t full = heapInUse();
        chart.m_dealRightX = {};
        const std::size_t withoutEnds = heapInUse();
        chart.m_timeSpanX = {};
        const std::size_t withoutMaps = heapInUse();
        state.counters["bytes_of_deal_ends"] = static_cast<double>(full - withoutEnds);
        state.counters["bytes_of_time_spans"] = static_cast<double>(withoutEnds - withoutMaps);
        state.counters["bytes_of_model_per_deal"] = static_cast<double>(chart.m_model->heapBytes()) / deals;
    }
}
BENCHMARK(BM_MemoryOfTheMaps)->ArgName("deals")->Arg(1000000)->Iterations(1)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
