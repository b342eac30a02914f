// The order queue panel: drawing its picture, and a tick of its timer with nothing to do.

#include "platform/services/CStockManager.h"
#include "platform/utils/CSingletonT.h"
#include "queue_view/CDepthOrderQueueWidget.h"

#include <boost/make_shared.hpp>

#include <benchmark/benchmark.h>

#include <QApplication>

#include <algorithm>
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
