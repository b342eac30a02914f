#include "feed/archive/DayArchiveReader.h"
#include "feed/archive/DayArchiveWriter.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <zstd.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using feed::DayArchiveReader;
using feed::DayArchiveWriter;
using feed::InstrumentDay;

nelservice::CInstrumentDetail detailOf(const std::string& market, const std::string& code)
{
    nelservice::CInstrumentDetail detail;
    detail.market = market;
    detail.code = code;
    detail.name = "贵州, \"M\"";
    detail.kind = nelservice::EInstrumentKind::Stock;
    detail.previousClose = 1845.76;
    detail.upperLimit = 2030.34;
    detail.lowerLimit = 0.1 + 0.2;
    return detail;
}

/// A day with values of every size, the largest and the smallest among them.
InstrumentDay randomDay(unsigned seed, std::size_t rows)
{
    std::mt19937_64 random(seed);
    const auto integer = [&] {
        return static_cast<std::int64_t>(random() >> (random() % 64)) * (random() % 5 == 0 ? -1 : 1);
    };
    const auto integer32 = [&] { return static_cast<std::int32_t>(random()); };
    const auto number = [&] {
        for (;;) {
            const std::uint64_t bits = random();
            double value = 0;
            std::memcpy(&value, &bits, sizeof value);
            if (random() % 2 == 0)
                value = static_cast<double>(random() % 10000000) / 10000;
            if (std::isfinite(value))
                return value;
        }
    };
    InstrumentDay day;
    day.detail = detailOf("SH", "600519");
    day.tradingDay = 20230201;
    for (std::size_t i = 0; i < rows; ++i) {
        const std::int64_t seq = static_cast<std::int64_t>(i) * 4 - 100;
        day.orders.push_back({integer(), seq, integer(), number(), integer(), integer32(), integer32()});
        day.deals.push_back({integer(), seq + 1, number(), integer(), integer32(), integer32(), integer32(),
                             integer32(), integer32()});
        feed::SnapshotRow snapshot;
        snapshot.time = static_cast<std::int64_t>(i) * 3000;
        snapshot.seq = integer();
        snapshot.phase = static_cast<feed::Phase>(i % 7);
        snapshot.lastPrice = number();
        snapshot.previousClose = number();
        snapshot.openPrice = number();
        snapshot.highPrice = number();
        snapshot.lowPrice = number();
        snapshot.totalVolume = integer();
        snapshot.turnover = number();
        snapshot.dealCount = integer32();
        for (int level = 0; level < quoter::kDepthLevels; ++level) {
            snapshot.askPrice[level] = number();
            snapshot.askVolume[level] = integer();
            snapshot.askCount[level] = integer32();
            snapshot.bidPrice[level] = number();
            snapshot.bidVolume[level] = integer();
            snapshot.bidCount[level] = integer32();
        }
        day.snapshots.push_back(snapshot);
        feed::QueueRow queue;
        queue.time = snapshot.time;
        queue.seq = integer();
        queue.bidPrice = number();
        queue.askPrice = number();
        queue.bidCount = integer32();
        queue.askCount = integer32();
        for (std::size_t k = 0; k < i % 51; ++k)
            queue.bidVolumes.push_back(integer());
        for (std::size_t k = 0; k < (i * 7) % 51; ++k)
            queue.askVolumes.push_back(integer());
        day.queues.push_back(queue);
    }
    if (rows > 0) {
        day.orders[0].price = 5e-324;
        day.orders[0].volume = std::numeric_limits<std::int64_t>::max();
        day.deals[0].price = -0.0;
        day.deals[0].volume = std::numeric_limits<std::int64_t>::min();
    }
    return day;
}

bool sameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

template <class Array>
bool sameAll(const Array& a, const Array& b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](auto x, auto y) {
               return std::memcmp(&x, &y, sizeof x) == 0;
           });
}

void expectSame(const InstrumentDay& a, const InstrumentDay& b)
{
    EXPECT_EQ(a.detail.market, b.detail.market);
    EXPECT_EQ(a.detail.code, b.detail.code);
    EXPECT_EQ(a.detail.name, b.detail.name);
    EXPECT_EQ(a.detail.kind, b.detail.kind);
    EXPECT_TRUE(sameBits(a.detail.priceTick, b.detail.priceTick));
    EXPECT_TRUE(sameBits(a.detail.previousClose, b.detail.previousClose));
    EXPECT_TRUE(sameBits(a.detail.upperLimit, b.detail.upperLimit));
    EXPECT_TRUE(sameBits(a.detail.lowerLimit, b.detail.lowerLimit));
    EXPECT_EQ(a.tradingDay, b.tradingDay);
    ASSERT_EQ(a.orders.size(), b.orders.size());
    ASSERT_EQ(a.deals.size(), b.deals.size());
    ASSERT_EQ(a.snapshots.size(), b.snapshots.size());
    ASSERT_EQ(a.queues.size(), b.queues.size());
    for (std::size_t i = 0; i < a.orders.size(); ++i) {
        const feed::OrderRow& x = a.orders[i];
        const feed::OrderRow& y = b.orders[i];
        ASSERT_TRUE(x.time == y.time && x.seq == y.seq && x.number == y.number &&
                    sameBits(x.price, y.price) && x.volume == y.volume && x.side == y.side &&
                    x.kind == y.kind)
            << "order " << i;
    }
    for (std::size_t i = 0; i < a.deals.size(); ++i) {
        const feed::DealRow& x = a.deals[i];
        const feed::DealRow& y = b.deals[i];
        ASSERT_TRUE(x.time == y.time && x.seq == y.seq && sameBits(x.price, y.price) &&
                    x.volume == y.volume && x.dealNo == y.dealNo && x.buyNo == y.buyNo &&
                    x.sellNo == y.sellNo && x.kind == y.kind && x.activeSide == y.activeSide)
            << "deal " << i;
    }
    for (std::size_t i = 0; i < a.snapshots.size(); ++i) {
        const feed::SnapshotRow& x = a.snapshots[i];
        const feed::SnapshotRow& y = b.snapshots[i];
        ASSERT_TRUE(x.time == y.time && x.seq == y.seq && x.phase == y.phase &&
                    sameBits(x.lastPrice, y.lastPrice) && sameBits(x.previousClose, y.previousClose) &&
                    sameBits(x.openPrice, y.openPrice) && sameBits(x.highPrice, y.highPrice) &&
                    sameBits(x.lowPrice, y.lowPrice) && x.totalVolume == y.totalVolume &&
                    sameBits(x.turnover, y.turnover) && x.dealCount == y.dealCount)
            << "snapshot " << i;
        ASSERT_TRUE(sameAll(x.askPrice, y.askPrice) && sameAll(x.askVolume, y.askVolume) &&
                    sameAll(x.askCount, y.askCount) && sameAll(x.bidPrice, y.bidPrice) &&
                    sameAll(x.bidVolume, y.bidVolume) && sameAll(x.bidCount, y.bidCount))
            << "levels of snapshot " << i;
    }
    for (std::size_t i = 0; i < a.queues.size(); ++i) {
        const feed::QueueRow& x = a.queues[i];
        const feed::QueueRow& y = b.queues[i];
        ASSERT_TRUE(x.time == y.time && x.seq == y.seq && sameBits(x.bidPrice, y.bidPrice) &&
                    sameBits(x.askPrice, y.askPrice) && x.bidCount == y.bidCount &&
                    x.askCount == y.askCount && x.bidVolumes == y.bidVolumes && x.askVolumes == y.askVolumes)
            << "queue " << i;
    }
}

class ArchiveRoundTrip : public ::testing::TestWithParam<bool>
{
protected:
    std::string folder() const { return m_folder.path().toStdString() + "/day"; }
    DayArchiveWriter::Options options() const { return {GetParam()}; }

    QTemporaryDir m_folder;
};

INSTANTIATE_TEST_SUITE_P(Forms, ArchiveRoundTrip, ::testing::Bool(),
                         [](const auto& form) { return form.param ? "Compressed" : "Plain"; });

TEST_P(ArchiveRoundTrip, GivesTheSameBitsBack)
{
    for (unsigned seed = 1; seed <= 5; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const InstrumentDay day = randomDay(seed, 700);
        DayArchiveWriter writer(folder(), options());
        ASSERT_TRUE(writer.write(day)) << writer.error().text();
        ASSERT_TRUE(writer.finish()) << writer.error().text();
        DayArchiveReader reader(folder());
        ASSERT_FALSE(reader.error()) << reader.error().text();
        InstrumentDay back;
        feed::Error error;
        ASSERT_TRUE(reader.load("SH600519", back, error)) << error.text();
        EXPECT_EQ(reader.report().rejects.count(), 0);
        expectSame(day, back);
    }
}

TEST_P(ArchiveRoundTrip, InstrumentsOfSeveralWritingsStandBesideEachOther)
{
    InstrumentDay first = randomDay(1, 20);
    InstrumentDay second = randomDay(2, 30);
    second.detail.code = "601825";
    for (const InstrumentDay* day : {&first, &second}) {
        DayArchiveWriter writer(folder(), options());
        ASSERT_TRUE(writer.write(*day) && writer.finish()) << writer.error().text();
    }
    first.orders.pop_back();
    DayArchiveWriter again(folder(), options());
    ASSERT_TRUE(again.write(first) && again.finish());

    DayArchiveReader reader(folder());
    ASSERT_EQ(reader.instruments().size(), 2u);
    InstrumentDay back;
    feed::Error error;
    ASSERT_TRUE(reader.load("SH601825", back, error)) << error.text();
    expectSame(second, back);
    ASSERT_TRUE(reader.load("SH600519", back, error)) << error.text();
    expectSame(first, back);
}

TEST_P(ArchiveRoundTrip, RewritingInAnotherFormLeavesNoSecondTable)
{
    InstrumentDay day = randomDay(1, 20);
    DayArchiveWriter writer(folder(), options());
    ASSERT_TRUE(writer.write(day) && writer.finish());
    day.queues.clear();
    day.orders.pop_back();
    DayArchiveWriter::Options other{!GetParam()};
    DayArchiveWriter rewriter(folder(), other);
    ASSERT_TRUE(rewriter.write(day) && rewriter.finish());
    DayArchiveReader reader(folder());
    InstrumentDay back;
    feed::Error error;
    ASSERT_TRUE(reader.load("SH600519", back, error)) << error.text();
    expectSame(day, back);
    int files = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder() + "/SH600519"))
        files += entry.is_regular_file() ? 1 : 0;
    EXPECT_EQ(files, 3);
}

TEST(DayArchiveWriter, AWriteThatBreaksOffLeavesTheOldTablesAndNoHalfFile)
{
    const QTemporaryDir temporary;
    const std::string folder = temporary.path().toStdString();
    const InstrumentDay day = randomDay(1, 50);
    {
        DayArchiveWriter writer(folder);
        ASSERT_TRUE(writer.write(day) && writer.finish());
    }
    {
        DayArchiveWriter writer(folder);
        ASSERT_TRUE(writer.beginInstrument(day.detail, day.tradingDay));
        writer.onOrder(day.orders[3]);
        feed::SnapshotRow bad;
        bad.lastPrice = std::numeric_limits<double>::quiet_NaN();
        writer.onSnapshot(bad);
        EXPECT_FALSE(writer.finishInstrument());
        EXPECT_FALSE(writer.finish());
        EXPECT_NE(writer.error().text().find("not finite"), std::string::npos);
    }
    {
        DayArchiveWriter abandoned(folder);
        ASSERT_TRUE(abandoned.beginInstrument(day.detail, day.tradingDay));
        abandoned.onOrder(day.orders[3]);
    }
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
        EXPECT_EQ(entry.path().string().find(".part"), std::string::npos) << entry.path();
    DayArchiveReader reader(folder);
    InstrumentDay back;
    feed::Error error;
    ASSERT_TRUE(reader.load("SH600519", back, error)) << error.text();
    expectSame(day, back);
}

TEST(DayArchiveWriter, ATableThatCannotBeWrittenLeavesTheOthersInPlaceToo)
{
    const QTemporaryDir temporary;
    const std::string folder = temporary.path().toStdString();
    const InstrumentDay day = randomDay(1, 50);
    {
        DayArchiveWriter writer(folder);
        ASSERT_TRUE(writer.write(day) && writer.finish());
    }
    // The deals' temporary name leads to a device that takes nothing; the orders come before them.
    fs::create_symlink("/dev/full", folder + "/SH600519/deals.csv.part" + std::to_string(::getpid()));
    DayArchiveWriter writer(folder);
    EXPECT_FALSE(writer.write(randomDay(2, 50)));
    DayArchiveReader reader(folder);
    InstrumentDay back;
    feed::Error error;
    ASSERT_TRUE(reader.load("SH600519", back, error)) << error.text();
    expectSame(day, back);
}

TEST(DayArchiveWriter, ATableThatCannotBeRemovedFailsTheWriting)
{
    const QTemporaryDir temporary;
    const std::string folder = temporary.path().toStdString();
    const std::string queues = folder + "/SH600519/queues.csv";
    fs::create_directories(queues + "/not-empty");
    InstrumentDay day = randomDay(1, 2);
    day.queues.clear();
    DayArchiveWriter writer(folder);
    EXPECT_FALSE(writer.write(day));
    EXPECT_EQ(writer.error().text().substr(0, queues.size() + 20), queues + ": cannot be replaced");
}

TEST(DayArchiveWriter, InstrumentsOfACompressedTableStayBesideTheNewOnes)
{
    const QTemporaryDir temporary;
    const std::string folder = temporary.path().toStdString();
    InstrumentDay first = randomDay(1, 3);
    {
        DayArchiveWriter writer(folder);
        ASSERT_TRUE(writer.write(first) && writer.finish());
    }
    std::ifstream plain(folder + "/instruments.csv", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(plain), std::istreambuf_iterator<char>()};
    std::string packed(ZSTD_compressBound(text.size()), '\0');
    packed.resize(ZSTD_compress(packed.data(), packed.size(), text.data(), text.size(), 3));
    std::ofstream(folder + "/instruments.csv.zst", std::ios::binary) << packed;
    fs::remove(folder + "/instruments.csv");

    InstrumentDay second = randomDay(2, 3);
    second.detail.code = "601825";
    DayArchiveWriter writer(folder);
    ASSERT_TRUE(writer.write(second) && writer.finish()) << writer.error().text();
    EXPECT_EQ(DayArchiveReader(folder).instruments().size(), 2u);
    EXPECT_FALSE(fs::exists(folder + "/instruments.csv.zst"));
}

TEST(DayArchiveWriter, ReportsAFullDisk)
{
    if (!fs::exists("/dev/full"))
        FAIL() << "needs a Linux system";
    const QTemporaryDir temporary;
    const std::string path = temporary.path().toStdString() + "/full.csv";
    feed::TableFile file;
    // The temporary name leads to a device that takes nothing.
    fs::create_symlink("/dev/full", path + ".part" + std::to_string(::getpid()));
    ASSERT_TRUE(file.open(path, false));
    file.text() = "a,b\n";
    EXPECT_FALSE(file.commit());
    EXPECT_EQ(file.error().text(), path + ": cannot be written: No space left on device");
    EXPECT_FALSE(fs::exists(path));
}

TEST(DayArchiveWriter, RefusesWhatIsNoInstrumentOrNoDayOfTheArchive)
{
    const QTemporaryDir temporary;
    const std::string folder = temporary.path().toStdString();
    EXPECT_FALSE(DayArchiveWriter(folder).beginInstrument(detailOf("SH", "../600519"), 20230201));
    EXPECT_FALSE(DayArchiveWriter(folder).beginInstrument(detailOf("", "600519"), 20230201));
    EXPECT_FALSE(DayArchiveWriter(folder).beginInstrument(detailOf("SH", "600519"), 20230230));
    DayArchiveWriter writer(folder);
    ASSERT_TRUE(writer.write(randomDay(1, 2)) && writer.finish());
    DayArchiveWriter other(folder);
    EXPECT_FALSE(other.beginInstrument(detailOf("SH", "601825"), 20230202));
    EXPECT_NE(other.error().text().find("holds another day: 20230201"), std::string::npos);
    EXPECT_FALSE(DayArchiveWriter("/proc/no/such/place").beginInstrument(detailOf("SH", "600519"), 20230201));
}

} // namespace
