// How fast days come from disk: MB of CSV a second, archive reading and importing end to end into rows. The
// files are made from arithmetic, in a temporary folder, so that every machine reads the same bytes.

#include "feed/archive/DayArchiveReader.h"
#include "feed/archive/DayArchiveWriter.h"
#include "feed/import/importDay.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

constexpr int kRecords = 500000;
constexpr std::size_t kClockSize = 48;
constexpr std::int64_t kDayStart = 1704124800000; // 2024-01-02 00:00 exchange time
constexpr std::int64_t kOpen = (9 * 60 + 30) * 60 * 1000;

/// A price with two decimals that wanders around 10 yuan.
int centsOf(int i)
{
    return 1000 + static_cast<int>(i * 7919LL % 97) - 48;
}

feed::InstrumentDay makeDay()
{
    feed::InstrumentDay day;
    day.detail.market = "SH";
    day.detail.code = "600000";
    day.tradingDay = 20240102;
    for (int i = 0; i < kRecords; ++i) {
        const std::int64_t time = kDayStart + kOpen + i * 14;
        const double price = centsOf(i) / 100.0;
        if (i % 2 == 0)
            day.orders.push_back({time, i + 1, i + 1, price, 100 * (1 + i % 30), 1 + i / 2 % 2, 1});
        else
            day.deals.push_back({time, i + 1, price, 100, i, i, i - 1, 0, 1 + i % 2});
        if (i % 100 == 0) {
            feed::SnapshotRow row;
            row.time = time;
            row.phase = feed::Phase::Continuous;
            for (int level = 0; level < quoter::kDepthLevels; ++level) {
                row.askPrice[level] = (centsOf(i) + level + 1) / 100.0;
                row.askVolume[level] = 100 * ((i + level) % 300 + 1);
                row.askCount[level] = (i + level) % 40 + 1;
                row.bidPrice[level] = (centsOf(i) - level) / 100.0;
                row.bidVolume[level] = 100 * ((i + level) % 500 + 1);
                row.bidCount[level] = (i + level) % 60 + 1;
            }
            day.snapshots.push_back(row);
        }
    }
    return day;
}

std::int64_t bytesIn(const std::string& folder)
{
    std::int64_t bytes = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
        bytes += entry.is_regular_file() ? static_cast<std::int64_t>(entry.file_size()) : 0;
    return bytes;
}

/// Archives of the day, plain and compressed, and the same day as the split Shanghai layout.
struct Files
{
    QTemporaryDir root;
    std::string plain = root.path().toStdString() + "/plain";
    std::string packed = root.path().toStdString() + "/packed";
    std::string split = root.path().toStdString() + "/600000-20240102";
    std::int64_t plainBytes = 0;
    std::int64_t splitBytes = 0;

    Files()
    {
        const feed::InstrumentDay day = makeDay();
        feed::DayArchiveWriter plainWriter(plain);
        feed::DayArchiveWriter packedWriter(packed, feed::DayArchiveWriter::Options{true});
        if (!plainWriter.write(day) || !plainWriter.finish() || !packedWriter.write(day) ||
            !packedWriter.finish())
            std::abort();
        fs::create_directories(split);
        writeSplit(day);
        plainBytes = bytesIn(plain);
        splitBytes = bytesIn(split);
    }

    void writeSplit(const feed::InstrumentDay& day) const
    {
        std::string text =
            "DataStatus,OrderIndex,OrderChannel,SecurityID,OrderTime,OrderType,OrderNO,OrderPrice,Balance,"
            "OrderBSFlag,BizIndex,LocalTime,SeqNo\n";
        char line[256];
        const auto clock = [](std::int64_t time, char* out) {
            const int ms = static_cast<int>(time - kDayStart);
            std::snprintf(out, kClockSize, "%02d:%02d:%02d.%03d", ms / 3600000 % 100, ms / 60000 % 60,
                          ms / 1000 % 60, ms % 1000);
        };
        char at[kClockSize];
        for (const feed::OrderRow& row : day.orders) {
            clock(row.time, at);
            std::snprintf(line, sizeof line, "0,%lld,6,600000,%s,A,%lld,%.15g,%lld,%c,%lld,%s,%lld\n",
                          static_cast<long long>(row.seq), at, static_cast<long long>(row.number), row.price,
                          static_cast<long long>(row.volume), row.side == 1 ? 'B' : 'S',
                          static_cast<long long>(row.seq), at, static_cast<long long>(row.seq));
            text += line;
        }
        std::ofstream(split + "/entrust.csv") << text;
        text =
            "DataStatus,TradeIndex,TradeChan,SecurityID,TradTime,TradPrice,TradVolume,TradeMoney,TradeBuyNo,"
            "TradeSellNo,TradeBSFlag,BizIndex,LocalTime,SeqNo\n";
        for (const feed::DealRow& row : day.deals) {
            clock(row.time, at);
            std::snprintf(line, sizeof line, "0,%d,6,600000,%s,%.15g,%lld,%.15g,%d,%d,%c,%lld,%s,%lld\n",
                          row.dealNo, at, row.price, static_cast<long long>(row.volume), row.price * 100,
                          row.buyNo, row.sellNo, row.activeSide == 1 ? 'B' : 'S',
                          static_cast<long long>(row.seq), at, static_cast<long long>(row.seq));
            text += line;
        }
        std::ofstream(split + "/trade.csv") << text;
    }
};

const Files& files()
{
    static const Files made;
    return made;
}

void readArchive(benchmark::State& state, const std::string& folder)
{
    std::int64_t rows = 0;
    for (auto _ : state) {
        feed::DayArchiveReader reader(folder);
        feed::InstrumentDay day;
        feed::Error error;
        if (!reader.load("SH600000", day, error))
            state.SkipWithError(error.text().c_str());
        rows = static_cast<std::int64_t>(day.orders.size() + day.deals.size() + day.snapshots.size());
        benchmark::DoNotOptimize(rows);
    }
    state.SetBytesProcessed(state.iterations() * files().plainBytes);
    state.SetItemsProcessed(state.iterations() * rows);
}

void BM_ReadArchive(benchmark::State& state)
{
    readArchive(state, files().plain);
}
BENCHMARK(BM_ReadArchive)->Unit(benchmark::kMillisecond);

/// Bytes are those of the text, not of the compressed files.
void BM_ReadCompressedArchive(benchmark::State& state)
{
    readArchive(state, files().packed);
}
BENCHMARK(BM_ReadCompressedArchive)->Unit(benchmark::kMillisecond);

void BM_ImportShanghaiSplit(benchmark::State& state)
{
    std::int64_t rows = 0;
    for (auto _ : state) {
        const feed::ImportResult result = feed::importDay(files().split, feed::ImportOptions());
        if (result.error || result.days.size() != 1)
            state.SkipWithError("import failed");
        rows = result.report.totalLines();
    }
    state.SetBytesProcessed(state.iterations() * files().splitBytes);
    state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(BM_ImportShanghaiSplit)->Unit(benchmark::kMillisecond);

void BM_WriteArchive(benchmark::State& state)
{
    const feed::InstrumentDay day = makeDay();
    const QTemporaryDir root;
    for (auto _ : state) {
        feed::DayArchiveWriter writer(root.path().toStdString());
        if (!writer.write(day) || !writer.finish())
            state.SkipWithError(writer.error().text().c_str());
    }
    state.SetBytesProcessed(state.iterations() * files().plainBytes);
}
BENCHMARK(BM_WriteArchive)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
