// How fast the simulated exchange makes a day: rows delivered in a second on one core, for a quiet day, a
// busy one and the level style.

#include "feed/simulation/SimulatedExchange.h"

#include <benchmark/benchmark.h>

namespace {

/// Counts rows and drops them.
class RowCounter : public feed::RowSink
{
public:
    void onOrder(const feed::OrderRow& row) override { take(row.seq); }
    void onDeal(const feed::DealRow& row) override { take(row.seq); }
    void onSnapshot(const feed::SnapshotRow& row) override { take(row.seq); }
    void onQueue(const feed::QueueRow& row) override { take(row.seq); }

    std::int64_t rows = 0;

private:
    void take(std::int64_t seq)
    {
        benchmark::DoNotOptimize(seq);
        ++rows;
    }
};

void runDays(benchmark::State& state, const feed::SimulationSettings& settings)
{
    std::int64_t rows = 0;
    for (auto _ : state) {
        RowCounter counter;
        feed::SimulatedExchange(settings).runDay(counter);
        rows += counter.rows;
    }
    state.counters["rows/s"] = benchmark::Counter(static_cast<double>(rows), benchmark::Counter::kIsRate);
    state.counters["rows/day"] = static_cast<double>(rows) / static_cast<double>(state.iterations());
}

void quietDay(benchmark::State& state)
{
    runDays(state, feed::shanghaiStock(1));
}

void busyShanghaiDay(benchmark::State& state)
{
    runDays(state, feed::busyDay(feed::shanghaiStock(1), 1000000));
}

void busyBondDay(benchmark::State& state)
{
    runDays(state, feed::busyDay(feed::convertibleBond(1), 300000));
}

void levelDay(benchmark::State& state)
{
    runDays(state, feed::levelStyle(feed::shanghaiStock(1)));
}

BENCHMARK(quietDay)->Unit(benchmark::kMillisecond);
BENCHMARK(busyShanghaiDay)->Unit(benchmark::kMillisecond);
BENCHMARK(busyBondDay)->Unit(benchmark::kMillisecond);
BENCHMARK(levelDay)->Unit(benchmark::kMillisecond);

} // namespace
