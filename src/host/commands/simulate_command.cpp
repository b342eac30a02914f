#include "host/commands/commands.h"

#include "feed/archive/DayArchiveWriter.h"
#include "feed/simulation/SimulatedExchange.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace host {
namespace {

constexpr std::int64_t kStepMs = 60000; // of the simulated day between two looks at the progress

/// Counts what goes to the archive.
class CountingSink : public feed::RowSink
{
public:
    explicit CountingSink(feed::RowSink& next) : m_next(next) {}
    void onOrder(const feed::OrderRow& row) override
    {
        ++orders;
        m_next.onOrder(row);
    }
    void onDeal(const feed::DealRow& row) override
    {
        ++(row.kind == 0 ? deals : cancels);
        m_next.onDeal(row);
    }
    void onSnapshot(const feed::SnapshotRow& row) override
    {
        ++snapshots;
        m_next.onSnapshot(row);
    }
    void onQueue(const feed::QueueRow& row) override
    {
        ++queues;
        m_next.onQueue(row);
    }
    bool takesLadders() const override { return m_next.takesLadders(); }
    void onLadder(const feed::LadderRow& row) override
    {
        ++ladders;
        m_next.onLadder(row);
    }

    std::int64_t orders = 0;
    std::int64_t deals = 0;
    std::int64_t cancels = 0;
    std::int64_t snapshots = 0;
    std::int64_t queues = 0;
    std::int64_t ladders = 0;

private:
    feed::RowSink& m_next;
};

} // namespace

int runSimulate(const SimulateOptions& options, std::ostream& out, std::ostream& err)
{
    feed::SimulationSettings settings;
    std::string error;
    if (!simulationSettings(options.source, settings, error))
        return fail(err, error);

    feed::SimulatedExchange exchange(settings);
    feed::DayArchiveWriter::Options writing;
    writing.compress = options.compress;
    // Without orders nothing else tells the whole ladder.
    writing.ladders = options.ladders.value_or(settings.style == feed::FeedStyle::Level);
    feed::DayArchiveWriter writer(options.folder, writing);
    if (!writer.beginInstrument(exchange.settings().detail, exchange.settings().tradingDay))
        return fail(err, writer.error().text());

    CountingSink written(writer);
    feed::LosingSink sink(written, exchange.timeAt(0), options.source.lose);
    {
        ProgressBar bar("simulating");
        const std::int64_t first = exchange.nextTime();
        const std::int64_t last = exchange.timeAt(15 * 3600);
        for (std::int64_t time = first; time < last && !writer.error(); time += kStepMs) {
            exchange.runUntil(time, sink);
            bar.show(time - first, last - first);
        }
        if (!writer.error())
            exchange.runDay(sink);
    }
    if (!writer.finishInstrument() || !writer.finish())
        return fail(err, writer.error().text());

    const nelservice::CInstrumentDetail& detail = exchange.settings().detail;
    if (options.json) {
        nlohmann::json document;
        document["folder"] = options.folder;
        document["instrument"] = detail.market + detail.code;
        document["day"] = exchange.settings().tradingDay;
        document["seed"] = settings.seed;
        document["orders"] = written.orders;
        document["deals"] = written.deals;
        document["cancels"] = written.cancels;
        document["snapshots"] = written.snapshots;
        document["queues"] = written.queues;
        document["ladders"] = written.ladders;
        out << document.dump(2) << '\n';
    } else {
        out << detail.market << detail.code << ' ' << detail.name << ", day "
            << exchange.settings().tradingDay << ", seed " << settings.seed << ": " << written.orders
            << " orders, " << written.deals << " deals, " << written.cancels << " cancels, "
            << written.snapshots << " snapshots, " << written.queues << " queues, " << written.ladders
            << " ladders written to " << options.folder << '\n';
    }
    return kExitDone;
}

} // namespace host
