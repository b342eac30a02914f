// The order queue panel: drawing its picture, and a tick of its timer with nothing to do.

#include "platform/services/CStockManager.h"
#include "platform/utils/CSingletonT.h"
#include "queue_view/CDepthOrderQueueWidget.h"

#include <boost/make_shared.hpp>

#include <benchmark/benchmark.h>

#include <QApplication>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <vector>

namespace {

constexpr int kWidth = 1200; // pixels
constexpr int kHeight = 900;
constexpr int kLevels = 10;
constexpr int kOrders = 50; // of a level: 1,000 cells in ten levels of both sides
constexpr double kTailShare = 0.99;

/// Opens the rows of the engine to the benchmark.
struct EngineRows : Kel::CDepthModelOrderQueue
{
    using CDepthModelOrderQueue::m_queueRows;
};

class Panel : public Kel::CDepthOrderQueueWidget
{
public:
    explicit Panel(Kel::EQueueMode style = Kel::eQueueDetailList)
    {
        setQueueFull(true);
        fill();
        resize(kWidth, kHeight);
        updateQueueMode(style);
        resetLayout();
    }

    using CDepthOrderQueueWidget::drawGraph;
    using CDepthOrderQueueWidget::slotTimeout;

private:
    void fill()
    {
        unsigned seed = 1;
        auto& rows = m_model.*(&EngineRows::m_queueRows);
        for (const Kel::EOrderQueueType side : {Kel::OQT_SELL, Kel::OQT_BUY}) {
            for (int i = 0; i < kLevels; ++i) {
                const double distance = 0.01 * (i + 1);
                const auto row = boost::make_shared<Kel::OrderQueueData>(
                    side == Kel::OQT_SELL ? 10 + distance : 10 - distance, 0, side);
                row->m_level = i + 1;
                for (int k = 0; k < kOrders; ++k) {
                    seed = seed * 1664525U + 1013904223U;
                    Kel::COrderVol order;
                    order.m_entrustNo = k + 1;
                    order.m_vol = (seed >> 8) % 1200 + 1;
                    order.m_type = Kel::classifyVol(order.m_vol);
                    row->m_orders.append(order);
                    row->m_levelVol += order.m_vol;
                }
                row->m_count = kOrders;
                rows[side].push_back(row);
            }
        }
    }
};

/// Milliseconds that this thread has run: a neighbour on the machine does not count.
double threadMs()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

/// Argument: the style. The list shows most cells, nearly all of the thousand.
void drawGraph(benchmark::State& state)
{
    Panel panel(static_cast<Kel::EQueueMode>(state.range(0)));
    std::vector<double> times;
    for (auto _ : state) {
        const double begin = threadMs();
        panel.drawGraph();
        times.push_back(threadMs() - begin);
    }
    std::sort(times.begin(), times.end());
    state.counters["median_ms"] = times[times.size() / 2];
    state.counters["p99_ms"] = times[static_cast<std::size_t>(kTailShare * (times.size() - 1))];
}
BENCHMARK(drawGraph)
    ->DenseRange(Kel::eQueueDetailFirst, Kel::eQueueDetailList)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2);

void tickWithNothingNew(benchmark::State& state)
{
    Panel panel;
    panel.show();
    QApplication::processEvents();
    panel.slotTimeout();
    for (auto _ : state)
        panel.slotTimeout();
}
BENCHMARK(tickWithNothingNew);

void tickOfAHiddenPanel(benchmark::State& state)
{
    Panel panel;
    for (auto _ : state)
        panel.slotTimeout();
}
BENCHMARK(tickOfAHiddenPanel);

/// A panel on a live feed that knows when a picture with an order of its best buy price was painted.
class LivePanel : public Kel::CDepthOrderQueueWidget
{
public:
    LivePanel()
    {
        const auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
        detail->market = "SZ";
        detail->code = "000002";
        detail->priceTick = 0.01;
        utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(detail);
        resize(kWidth, kHeight);
        setStock(kKey);
        m_timer->setInterval(kRefreshMs);
        const auto snapshot = boost::make_shared<quoter::QuoterDepthData>();
        snapshot->m_time = m_time;
        snapshot->lastPrice = kBuy;
        snapshot->bidPrice[0] = kBuy;
        snapshot->askPrice[0] = kSell;
        snapshot->bidVolume[0] = snapshot->askVolume[0] = 1;
        quoterCallBack(0, -1, {snapshot});
        onTransactionCallback(kKey, 0, 0, wrap({}));
        onEntrustCallback(kKey, 0, 0, wrap({order(1, kBuy), order(2, kSell)}));
        show();
    }

    /// A batch of one order enters; comes back when the picture that has it is painted. Seconds.
    double send(std::int64_t number)
    {
        m_awaited = number;
        m_time += 10;
        const auto batch = wrap({order(1, kBuy, number)});
        const auto begin = std::chrono::steady_clock::now();
        onEntrustCallback(kKey, 0, 1, batch);
        while (m_awaited != 0)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    }

    static constexpr int kRefreshMs = 200; // the panel's own period

protected:
    void paintEvent(QPaintEvent* event) override
    {
        CDepthOrderQueueWidget::paintEvent(event);
        const auto row = m_model.at(0, Kel::OQT_BUY);
        if (row && !row->m_orders.isEmpty() && row->m_orders.last().m_entrustNo == m_awaited)
            m_awaited = 0;
    }

private:
    static constexpr const char* kKey = "SZ000002";
    static constexpr double kBuy = 10.00; // yuan
    static constexpr double kSell = 10.01;

    boost::shared_ptr<quoter::OrderData> order(int side, double price, std::int64_t number = 0)
    {
        auto record = boost::make_shared<quoter::OrderData>();
        record->m_time = m_time;
        record->price = price;
        record->volume = 100;
        record->entrustNo = number != 0 ? number : side;
        record->kind = quoter::eOrderLimit;
        record->side = price == kSell ? 2 : 1;
        return record;
    }

    static Kel::MetaCacheDataWrapperPtr wrap(quoter::QuoterBatch batch)
    {
        auto data = boost::make_shared<Kel::MetaCacheDataWrapper>();
        data->market = "SZ";
        data->instrument = "000002";
        data->data = std::move(batch);
        return data;
    }

    std::int64_t m_time = 1675216800000; // 2023-02-01 10:00, in continuous trading
    std::int64_t m_awaited = 0;
};

/// From a batch that enters `onEntrustCallback` to the paint event that shows it, at any moment of the
/// refresh period; `over_ms`: how much the slowest took beyond one period.
void batchToPicture(benchmark::State& state)
{
    LivePanel panel;
    std::int64_t number = 10;
    double slowest = 0;
    for (auto _ : state) {
        // So that batches come at all moments of the period.
        const auto until =
            std::chrono::steady_clock::now() + std::chrono::milliseconds(number * 37 % LivePanel::kRefreshMs);
        while (std::chrono::steady_clock::now() < until)
            QApplication::processEvents();
        const double seconds = panel.send(++number);
        slowest = std::max(slowest, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["slowest_ms"] = slowest * 1e3;
    state.counters["over_ms"] = slowest * 1e3 - LivePanel::kRefreshMs;
}
BENCHMARK(batchToPicture)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(100);

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
