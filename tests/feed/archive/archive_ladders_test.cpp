// The table of ladders: what is written comes back, and what cannot be read is left out as a whole ladder.

#include "feed/archive/DayArchiveReader.h"
#include "feed/archive/DayArchiveWriter.h"
#include "feed/archive/archive_tables.h"
#include "feed/simulation/SimulatedExchange.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using feed::DayArchiveReader;
using feed::DayArchiveWriter;
using feed::InstrumentDay;
using feed::LadderLevel;
using feed::LadderOrder;
using feed::LadderRow;

constexpr auto kLargest = std::numeric_limits<std::int64_t>::max();
constexpr auto kSmallest = std::numeric_limits<std::int64_t>::min();

const std::string kHeader = "time,seq,last_price,last_volume,side,price,volume,orders,lines_left\n";

bool same(const std::vector<LadderLevel>& a, const std::vector<LadderLevel>& b)
{
    const auto sameOrder = [](const LadderOrder& x, const LadderOrder& y) {
        return x.number == y.number && x.time == y.time && x.volume == y.volume && x.dealt == y.dealt;
    };
    const auto sameLevel = [&](const LadderLevel& x, const LadderLevel& y) {
        return x.price == y.price && x.volume == y.volume &&
               std::equal(x.orders.begin(), x.orders.end(), y.orders.begin(), y.orders.end(), sameOrder);
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), sameLevel);
}

void expectSame(const std::vector<LadderRow>& a, const std::vector<LadderRow>& b)
{
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        ASSERT_TRUE(a[i].time == b[i].time && a[i].seq == b[i].seq && a[i].lastPrice == b[i].lastPrice &&
                    a[i].lastVolume == b[i].lastVolume)
            << "ladder " << i;
        ASSERT_TRUE(same(a[i].buys, b[i].buys) && same(a[i].sells, b[i].sells)) << "levels of ladder " << i;
    }
}

LadderLevel levelOf(double price, std::size_t orders)
{
    LadderLevel level{price, static_cast<std::int64_t>(orders) * 100, {}};
    for (std::size_t i = 0; i < orders; ++i) {
        const auto number = static_cast<std::int64_t>(i) + 1;
        level.orders.push_back({number, 1704159000000 + number, 100 * number, number % 3});
    }
    return level;
}

class ArchiveLadders : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_day.detail.market = "SZ";
        m_day.detail.code = "003999";
        m_day.tradingDay = 20240102;
    }

    std::string folder() const { return m_temporary.path().toStdString() + "/day"; }

    void write(bool compress = false)
    {
        DayArchiveWriter writer(folder(), {compress, false});
        ASSERT_TRUE(writer.write(m_day) && writer.finish()) << writer.error().text();
    }

    /// The ladders of the archive.
    std::vector<LadderRow> read(DayArchiveReader::Ladders which = DayArchiveReader::Ladders::Always)
    {
        DayArchiveReader::Options options;
        options.ladders = which;
        DayArchiveReader reader(folder(), options);
        InstrumentDay back;
        feed::Error error;
        EXPECT_TRUE(reader.load("SZ003999", back, error)) << error.text();
        EXPECT_EQ(reader.report().rejects.count(), 0);
        return back.ladders;
    }

    /// Reads a table from text; false if it is refused.
    bool readText(const std::string& lines)
    {
        m_read = InstrumentDay();
        m_report = feed::ImportReport();
        return feed::readArchiveTable("ladders", kHeader + lines, m_read, m_report, m_error);
    }

    std::int64_t rejected(const std::string& reason) const
    {
        const auto found = m_report.rejects.countByReason().find(reason);
        return found == m_report.rejects.countByReason().end() ? 0 : found->second;
    }

    QTemporaryDir m_temporary;
    InstrumentDay m_day;
    InstrumentDay m_read;
    feed::ImportReport m_report;
    feed::Error m_error;
};

TEST_F(ArchiveLadders, ComeBackAsTheyWereWritten)
{
    LadderRow empty;
    empty.time = 1;
    LadderRow oneSided;
    oneSided.time = 1;
    oneSided.sells = {levelOf(14.66, 2), levelOf(0.1 + 0.2, 0), levelOf(0.1 + 0.2, 1)};
    LadderRow extreme;
    extreme.time = kLargest;
    extreme.seq = kSmallest;
    extreme.lastPrice = 5e-324;
    extreme.lastVolume = kLargest;
    extreme.buys = {{-1e300, kSmallest, {{kSmallest, kSmallest, kLargest, kSmallest}}}};
    extreme.sells = {levelOf(14.66, 1)};
    m_day.ladders = {empty, oneSided, extreme};
    for (const bool compress : {false, true}) {
        SCOPED_TRACE(compress ? "compressed" : "plain");
        write(compress);
        EXPECT_EQ(fs::exists(folder() + "/SZ003999/ladders.csv.zst"), compress);
        EXPECT_EQ(fs::exists(folder() + "/SZ003999/ladders.csv"), !compress);
        expectSame(m_day.ladders, read());
    }
}

TEST_F(ArchiveLadders, APriceWithMoreOrdersThanALineHoldsComesBackWhole)
{
    LadderRow row;
    row.buys = {levelOf(14.65, 4096), levelOf(14.64, 4097)};
    row.sells = {levelOf(14.66, 20000), levelOf(14.67, 0)};
    // As long as an order can be: its line has to stay below the longest that is read.
    for (LadderOrder& order : row.sells.front().orders)
        order = {kSmallest, kSmallest, kSmallest, kSmallest};
    m_day.ladders = {row};
    write();
    expectSame(m_day.ladders, read());
}

TEST_F(ArchiveLadders, ASimulatedDayWithoutOrdersKeepsItsLadders)
{
    feed::SimulationSettings settings = feed::shenzhenStock(1);
    settings.orders = 400;
    settings.style = feed::FeedStyle::Level;
    feed::SimulatedExchange exchange(settings);
    InstrumentDay day;
    day.detail = exchange.settings().detail;
    day.tradingDay = exchange.settings().tradingDay;
    day.keepsLadders = true;
    exchange.runDay(day);
    ASSERT_GT(day.ladders.size(), 4000u);

    DayArchiveWriter writer(folder(), {true, true});
    feed::SimulatedExchange again(settings);
    ASSERT_TRUE(writer.beginInstrument(day.detail, day.tradingDay));
    again.runDay(writer);
    ASSERT_TRUE(writer.finishInstrument() && writer.finish()) << writer.error().text();
    DayArchiveReader reader(folder());
    InstrumentDay back;
    ASSERT_TRUE(reader.load(day.detail.market + day.detail.code, back, m_error)) << m_error.text();
    expectSame(day.ladders, back.ladders);
}

TEST_F(ArchiveLadders, AreAskedForOnlyIfTheyAreToBeWritten)
{
    EXPECT_FALSE(DayArchiveWriter(folder()).takesLadders());
    EXPECT_TRUE(DayArchiveWriter(folder(), {false, true}).takesLadders());
}

TEST_F(ArchiveLadders, AreReadWhereThereAreNoOrdersUnlessOneAsksOtherwise)
{
    using Ladders = DayArchiveReader::Ladders;
    m_day.ladders.resize(3);
    write();
    EXPECT_EQ(read(Ladders::WithoutOrders).size(), 3u);
    EXPECT_EQ(read(Ladders::Never).size(), 0u);
    m_day.orders.push_back({1, 1, 1, 14.65, 100, 1, 1});
    write();
    EXPECT_EQ(read(Ladders::WithoutOrders).size(), 0u);
    EXPECT_EQ(read(Ladders::Always).size(), 3u);
    EXPECT_EQ(DayArchiveReader::Options().ladders, Ladders::WithoutOrders);
}

TEST_F(ArchiveLadders, ATableOfAnotherWritingIsRemoved)
{
    m_day.ladders.resize(1);
    write();
    m_day.ladders.clear();
    write();
    EXPECT_FALSE(fs::exists(folder() + "/SZ003999/ladders.csv"));
}

TEST_F(ArchiveLadders, APriceThatIsNotFiniteFailsTheWriting)
{
    m_day.ladders.resize(1);
    m_day.ladders[0].sells = {levelOf(std::numeric_limits<double>::infinity(), 1)};
    DayArchiveWriter writer(folder());
    EXPECT_FALSE(writer.write(m_day));
    EXPECT_NE(writer.error().text().find("not finite"), std::string::npos);
}

TEST_F(ArchiveLadders, MayBeWrittenByHandWithTheFewestColumns)
{
    InstrumentDay day;
    ASSERT_TRUE(feed::readArchiveTable("ladders",
                                       "lines_left,time,side,price,volume,orders\n"
                                       "2,7,2,14.66,300,1:5:300:0\n"
                                       "1,,1,14.65,200,  2:5:100:0   3:6:150:50 \n"
                                       "0,,1,,,4:6:10:0",
                                       day, m_report, m_error))
        << m_error.text();
    EXPECT_EQ(m_report.rejects.count(), 0);
    ASSERT_EQ(day.ladders.size(), 1u);
    const LadderRow& row = day.ladders[0];
    EXPECT_EQ(row.time, 7);
    EXPECT_EQ(row.seq, 0);
    ASSERT_EQ(row.buys.size(), 1u);
    EXPECT_EQ(row.buys[0].price, 14.65);
    EXPECT_EQ(row.buys[0].volume, 200);
    ASSERT_EQ(row.buys[0].orders.size(), 3u);
    EXPECT_EQ(row.buys[0].orders[1].dealt, 50);
    EXPECT_EQ(row.buys[0].orders[2].number, 4);
    ASSERT_EQ(row.sells.size(), 1u);
    EXPECT_EQ(row.sells[0].orders[0].time, 5);
}

TEST_F(ArchiveLadders, NameTheMissingColumn)
{
    EXPECT_FALSE(
        feed::readArchiveTable("ladders", "time,side,price,volume,orders\n", m_read, m_report, m_error));
    EXPECT_NE(m_error.text().find("has no column lines_left"), std::string::npos) << m_error.text();
}

TEST_F(ArchiveLadders, OneWithALineThatCannotBeReadIsLeftOutAndTheOthersStay)
{
    const std::string before = "1,,,,1,14.65,100,1:1:100:0,0\n";
    const std::string after = "9,,,,1,14.65,100,9:1:100:0,0\n";
    const std::pair<const char*, const char*> faults[] = {
        {"x,,,,1,14.65,100,,0\n", "bad time"},
        {"2,x,,,1,14.65,100,,0\n", "bad sequence number"},
        {"2,,x,,1,14.65,100,,0\n", "bad price"},
        {"2,,,x,1,14.65,100,,0\n", "bad volume"},
        {"2,,,,3,14.65,100,,0\n", "bad side"},
        {"2,,,,,14.65,100,,0\n", "bad side"},
        {"2,,,,1,x,100,,0\n", "bad price"},
        {"2,,,,1,,100,,0\n", "bad price"}, // goes on with a level that is not there
        {"2,,,,1,14.65,x,,0\n", "bad volume"},
        {"2,,,,1,14.65,100,1:2:3,0\n", "bad orders"},
        {"2,,,,1,14.65,100,1:2:3:4:5,0\n", "bad orders"},
        {"2,,,,1,14.65,100,1:2:3:x,0\n", "bad orders"},
        {"2,,,,1,14.65,100,1:2:3:4,x\n", "ladder is not complete"},
        {"2,,,,1,14.65,100,1:2:3:4,-1\n", "ladder is not complete"},
        {"0,,,,1,14.65,100,1:2:3:4,0\n", "out of order"},
        {"2,,,,1,14.65,100,,1\n,,,,2,,100,1:1:1:0,0\n", "bad price"}, // goes on with the other side
    };
    for (const auto& [lines, reason] : faults) {
        SCOPED_TRACE(lines);
        ASSERT_TRUE(readText(before + lines + after)) << m_error.text();
        EXPECT_EQ(m_report.rejects.count(), 1);
        EXPECT_EQ(rejected(reason), 1);
        ASSERT_EQ(m_read.ladders.size(), 2u);
        EXPECT_EQ(m_read.ladders[0].time, 1);
        EXPECT_EQ(m_read.ladders[1].time, 9);
    }
}

TEST_F(ArchiveLadders, ThoseOfWhichALineIsMissingAreLeftOut)
{
    const std::string whole[] = {"2,,,,1,14.65,100,,2\n", ",,,,1,14.64,100,,1\n", ",,,,2,14.66,100,,0\n"};
    const std::string after = "9,,,,1,14.65,100,,0\n";
    ASSERT_TRUE(readText(whole[0] + whole[1] + whole[2] + after));
    EXPECT_EQ(m_read.ladders.size(), 2u);
    for (int missing = 0; missing < 3; ++missing) {
        SCOPED_TRACE(missing);
        std::string lines;
        for (int i = 0; i < 3; ++i)
            lines += i == missing ? std::string() : whole[i];
        ASSERT_TRUE(readText(lines + after));
        ASSERT_EQ(m_read.ladders.size(), 1u);
        EXPECT_EQ(m_read.ladders[0].time, 9);
        EXPECT_EQ(rejected("part of a ladder that was left out"), missing == 0 ? 2 : 0);
        EXPECT_EQ(rejected("ladder is not complete"), missing == 0 ? 0 : 1);
    }
}

TEST_F(ArchiveLadders, ACutTableKeepsTheLaddersBeforeTheCut)
{
    LadderRow first;
    first.time = 1;
    first.buys = {levelOf(14.65, 2)};
    LadderRow second;
    second.time = 2;
    for (int i = 0; i < 12; ++i)
        second.sells.push_back(levelOf(14.66 + i, 1));
    std::string text;
    feed::appendLine(text, first);
    const std::size_t whole = text.size();
    feed::appendLine(text, second);
    for (std::size_t size = whole + 1; size + 1 < text.size(); ++size) {
        ASSERT_TRUE(readText(text.substr(0, size))) << size;
        ASSERT_EQ(m_read.ladders.size(), 1u) << size;
        EXPECT_TRUE(m_report.truncated()) << size;
        EXPECT_EQ(m_report.files.back().rejected, 0) << size;
    }
    ASSERT_TRUE(readText(text));
    expectSame({first, second}, m_read.ladders);
    EXPECT_FALSE(m_report.truncated());
}

} // namespace
