#include "feed/import/ImportTexts.h"
#include "feed/import/SnapshotColumns.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

using feed::ImportOptions;
using feed::ImportResult;
using feed::Phase;
using testing_support::import;

const std::string kOrders =
    "SecurityID,OrderTime,OrderType,OrderNO,OrderPrice,Balance,OrderBSFlag,BizIndex\n";

std::string goodLines(int count)
{
    std::string text;
    for (int i = 1; i <= count; ++i) {
        const std::string number = std::to_string(i);
        text += "600000,09:30:00.000,A," + number + ",10.01,100,B," + number + "\n";
    }
    return text;
}

TEST(ImportRules, OnePercentOfRejectsIsTakenAndMoreIsNot)
{
    const std::string bad = "600000,09:30:00.000,A,x,10.01,100,B,999\n";
    const ImportResult atLimit = import({{"o.csv", kOrders + goodLines(99) + bad}});
    EXPECT_FALSE(atLimit.error) << atLimit.error.text();
    EXPECT_EQ(atLimit.days.at(0).orders.size(), 99u);
    const ImportResult above = import({{"o.csv", kOrders + goodLines(98) + bad}});
    EXPECT_EQ(above.error.text(), "o.csv: 1 of 99 lines rejected, the first in line 100: bad order number");
    EXPECT_TRUE(above.days.empty());
    EXPECT_EQ(above.report.rejects.count(), 1);
    ImportOptions tolerant;
    tolerant.mostRejected = 0.02;
    EXPECT_FALSE(import({{"o.csv", kOrders + goodLines(98) + bad}}, tolerant).error);
}

TEST(ImportRules, TheLimitHoldsForEachFileByItself)
{
    const std::string deals =
        "SecurityID,TradTime,TradPrice,TradVolume,TradeBuyNo,TradeSellNo,TradeBSFlag,BizIndex\n"
        "600000,09:30:00.000,bad,100,1,2,S,1000\n";
    const ImportResult result = import({{"o.csv", kOrders + goodLines(1000)}, {"d.csv", deals}});
    EXPECT_EQ(result.error.file, "d.csv");
}

TEST(ImportRules, ATruncatedFileKeepsWhatCameBefore)
{
    const std::string whole = kOrders + goodLines(5);
    const std::size_t cut = whole.size() - 12;
    const ImportResult result = import({{"o.csv", whole.substr(0, cut)}});
    ASSERT_FALSE(result.error) << result.error.text();
    EXPECT_EQ(result.days.at(0).orders.size(), 4u);
    EXPECT_TRUE(result.report.truncated());
    EXPECT_EQ(result.report.rejects.countByReason().at("cut last line"), 1);
    const ImportResult unterminated = import({{"o.csv", whole.substr(0, whole.size() - 1)}});
    EXPECT_EQ(unterminated.days.at(0).orders.size(), 5u);
    EXPECT_FALSE(unterminated.report.truncated());
}

TEST(ImportRules, NamesTheMissingColumn)
{
    const ImportResult result =
        import({{"o.csv", "SecurityID,OrderTime,OrderType,OrderNO,OrderPrice,OrderBSFlag,BizIndex\n"}});
    EXPECT_EQ(result.error.text(), "o.csv:1: has no column Balance");
}

TEST(ImportRules, RefusesATableOfNoKnownLayoutAndAnUnknownLayout)
{
    EXPECT_EQ(import({{"o.csv", "a,b\n1,2\n"}}).error.text(), "o.csv:1: is no table of a known layout");
    EXPECT_EQ(import({{"o.csv", ""}}).error.text(), "o.csv: has no header");
    ImportOptions options;
    options.layout = "no-such-layout";
    EXPECT_EQ(import({}, options).error.text(), "unknown layout: no-such-layout");
    EXPECT_TRUE(import({}).error);
    options.layout = "sz-split";
    EXPECT_TRUE(import({{"o.csv", kOrders + goodLines(1)}}, options).error) << "of another layout";
}

TEST(ImportRules, ForeignTablesBesideTheLayoutAreNotedAndLeftAlone)
{
    const ImportResult result = import({{"notes.csv", "a,b\n1,2\n"}, {"o.csv", kOrders + goodLines(2)}});
    ASSERT_FALSE(result.error) << result.error.text();
    EXPECT_EQ(result.report.ignoredFiles, std::vector<std::string>{"notes.csv"});
    EXPECT_EQ(result.report.totalLines(), 2);
}

TEST(ImportRules, ADamagedTableIsNoForeignOne)
{
    const std::string damaged = "\x28\xB5\x2F\xFD damage damage damage";
    const ImportResult result = import({{"d.csv.zst", damaged}, {"o.csv", kOrders + goodLines(2)}});
    EXPECT_EQ(result.error.text().substr(0, 29), "d.csv.zst: damaged zstd data:");
}

TEST(ImportRules, TheDayComesFromOptionsRowsOrPathAndIsAskedForOtherwise)
{
    const std::string text = kOrders + goodLines(1);
    ImportOptions options;
    options.layout = "sh-split";
    EXPECT_EQ(feed::importTexts({{"o.csv", text}}, options).error.reason,
              "trading day unknown: neither rows nor path nor options tell it");
    EXPECT_EQ(feed::importTexts({{"600000-20240102/o.csv", text}}, options).days.at(0).tradingDay, 20240102);
    options.tradingDay = 20240103;
    EXPECT_EQ(feed::importTexts({{"600000-20240102/o.csv", text}}, options).days.at(0).tradingDay, 20240103);
    options.tradingDay = 20240230;
    EXPECT_EQ(feed::importTexts({{"o.csv", text}}, options).error.text(), "no trading day: 20240230");
}

TEST(ImportRules, InstrumentsAreSeparatedAndMayBeChosen)
{
    const std::string text =
        kOrders + "600001,09:30:00.000,A,1,10.01,100,B,7\n600000,09:30:00.000,A,1,10.01,100,B,7\n";
    const ImportResult both = import({{"o.csv", text}});
    ASSERT_EQ(both.days.size(), 2u);
    EXPECT_EQ(both.days[0].detail.code, "600000");
    EXPECT_EQ(both.report.rejects.count(), 0) << "each instrument has its own sequence";
    ImportOptions options;
    options.codes = {"600001"};
    const ImportResult one = import({{"o.csv", text}}, options);
    ASSERT_EQ(one.days.size(), 1u);
    EXPECT_EQ(one.days[0].detail.code, "600001");
    EXPECT_EQ(one.report.files[0].skipped, 1);
}

TEST(ImportRules, KindAndTickComeFromTheCode)
{
    const auto detail = [](const std::string& code) {
        const ImportResult result = import({{"o.csv", kOrders + code + ",09:30:00.000,A,1,1.001,100,B,7\n"}});
        return result.days.at(0).detail;
    };
    EXPECT_EQ(detail("600000").priceTick, 0.01);
    EXPECT_EQ(detail("900901").priceTick, 0.001) << "dollars";
    EXPECT_EQ(detail("510300").priceTick, 0.001);
    EXPECT_EQ(detail("510300").kind, nelservice::EInstrumentKind::Fund);
    EXPECT_EQ(detail("113050").priceTick, 0.001);
    EXPECT_EQ(detail("204001").priceTick, 0.005);
}

TEST(ImportRules, AFolderThatDoesNotTellTheMarketHasThatOfTheCodeRanges)
{
    const auto market = [](const std::string& code) {
        const std::string table = "时间,申卖价1,申买价1\n93003000,1000100,1000000\n";
        return import({{code + "-20240102/s.csv", table}}).days.at(0).detail.market;
    };
    EXPECT_EQ(market("600000"), "SH");
    EXPECT_EQ(market("204001"), "SH");
    EXPECT_EQ(market("019547"), "SH");
    EXPECT_EQ(market("000001"), "SZ") << "an index at Shanghai, a stock at Shenzhen";
    EXPECT_EQ(market("300274"), "SZ");
    EXPECT_EQ(market("131810"), "SZ");
}

TEST(SnapshotImport, AnEmptyCellStandsForZeroAndRowsAreOrderedByTime)
{
    const ImportResult result = import(
        {{"s.csv",
          "UpdateTime,SecurityID,PreCloPrice,OpenPrice,HighPrice,LowPrice,LastPrice,InstruStatus,TradNumber,"
          "TradVolume,Turnover,AskPrice1,AskVolume1,AskPrice2,BidPrice1,BidVolume1,NumOrdersB1,NumOrdersS1,\n"
          "09:30:06.000,600000,10.1,10,10.2,9.9,10.05,TRADE,3,300,3015.5,10.06,200,10.07,10.04,100,2,1,\n"
          "08:45:18.000,600000,10.1,0,0,0,,START,0,0,0,,,,,,,,\n"
          "09:30:09.000,600000,10.1,10,10.2,9.9,bad,TRADE,3,300,3015.5,10.06,200,10.07,10.04,100,2,1,\n"
          "09:30:12.000,600000,10.1,10,10.2,9.9,10,TRADE,3,-3,3015.5,10.06,200,10.07,10.04,100,2,1,\n"}},
        [] {
            ImportOptions options;
            options.mostRejected = 1;
            return options;
        }());
    ASSERT_FALSE(result.error) << result.error.text();
    const std::vector<feed::SnapshotRow>& rows = result.days.at(0).snapshots;
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].phase, Phase::Start);
    EXPECT_EQ(rows[0].askPrice[0], 0);
    EXPECT_EQ(rows[0].lastPrice, 0);
    EXPECT_EQ(rows[1].lastPrice, 10.05);
    EXPECT_EQ(rows[1].turnover, 3015.5);
    EXPECT_EQ(rows[1].askPrice[1], 10.07);
    EXPECT_EQ(rows[1].bidCount[0], 2);
    EXPECT_EQ(rows[1].askCount[0], 1);
    EXPECT_EQ(rows[1].dealCount, 3);
    EXPECT_EQ(result.days[0].detail.previousClose, 10.1);
    EXPECT_EQ(result.report.rejects.countByReason(),
              (std::map<std::string, std::int64_t>{{"bad price", 1}, {"bad total", 1}}));
}

TEST(SnapshotImport, PublishedQueuesEndAtTheFirstZeroAndAreNoneInAnAuction)
{
    const std::string header =
        "SecurityID,DateTime,InstrumentStatus,BidPrice0,BidOrderQty0,BidNumOrders0,BidOrders0,"
        "BidOrders1,BidOrders2,OfferPrice0,OfferOrderQty0,OfferNumOrders0,OfferOrders0\n";
    const ImportResult result =
        import({{"s.csv",
                 header + "600103,\"2024.01.02T09:20:00.000\",\"OCALL\",2.73,300,2,100,200,0,2.73,500,1,500\n"
                          "600103,\"2024.01.02T09:30:02.000\",\"TRADE\",2.73,300,2,100,200,0,0,0,0,0\n"
                          "600103,\"2024.01.02T09:30:05.000\",\"TRADE\",0,0,0,0,0,0,0,0,0,0\n"}});
    ASSERT_FALSE(result.error) << result.error.text();
    EXPECT_EQ(result.days.at(0).snapshots.size(), 3u);
    ASSERT_EQ(result.days[0].queues.size(), 1u);
    const feed::QueueRow& queue = result.days[0].queues[0];
    EXPECT_EQ(queue.bidVolumes, (std::vector<std::int64_t>{100, 200}));
    EXPECT_EQ(queue.bidPrice, 2.73);
    EXPECT_EQ(queue.bidCount, 2);
    EXPECT_TRUE(queue.askVolumes.empty());
    EXPECT_EQ(queue.askPrice, 0);
}

TEST(SnapshotImport, PhasesAreReadInEachSpelling)
{
    EXPECT_EQ(feed::phaseOf("OCALL", 0), Phase::OpeningAuction);
    EXPECT_EQ(feed::phaseOf("TRADE", 0), Phase::Continuous);
    EXPECT_EQ(feed::phaseOf("CCALL", 0), Phase::ClosingAuction);
    EXPECT_EQ(feed::phaseOf("ENDTR", 0), Phase::Closed);
    EXPECT_EQ(feed::phaseOf("T0", 0), Phase::Continuous);
    EXPECT_EQ(feed::phaseOf("4", 0), Phase::Break);
    constexpr std::int64_t kMinute = 60000;
    EXPECT_EQ(feed::phaseOf("", 9 * 60 * kMinute), Phase::Start);
    EXPECT_EQ(feed::phaseOf("", (9 * 60 + 29) * kMinute), Phase::OpeningAuction);
    EXPECT_EQ(feed::phaseOf("", (9 * 60 + 30) * kMinute), Phase::Continuous);
    EXPECT_EQ(feed::phaseOf("?", 12 * 60 * kMinute), Phase::Break);
    EXPECT_EQ(feed::phaseOf("", (14 * 60 + 57) * kMinute), Phase::ClosingAuction);
    EXPECT_EQ(feed::phaseOf("", 15 * 60 * kMinute), Phase::Closed);
}

TEST(ImportDay, ReadsFoldersOfInstrumentsFromDiskAndTellsItsProgress)
{
    const QTemporaryDir temporary;
    const std::string root = temporary.path().toStdString() + "/20240102";
    const std::string header = "证券代码,时间,委托编号,委托类型,委托代码,委托价格,委托数量\n";
    for (const char* const code : {"000001", "000002"}) {
        const std::string folder = root + "/" + code + ".SZ";
        std::filesystem::create_directories(folder);
        std::ofstream(folder + "/orders.csv") << header << code << ".SZ,91500000,1,2,B,146500,300\n";
        std::ofstream(folder + "/readme.txt") << "no table";
    }
    std::int64_t last = 0;
    std::int64_t total = 0;
    ImportOptions options;
    options.progress = [&](std::int64_t done, std::int64_t all) {
        last = done;
        total = all;
        return true;
    };
    const ImportResult result = feed::importDay(root, options);
    ASSERT_FALSE(result.error) << result.error.text();
    EXPECT_EQ(result.days.size(), 2u);
    EXPECT_EQ(result.days[0].tradingDay, 20240102);
    EXPECT_GT(total, 0);
    EXPECT_EQ(last, total);
    options.progress = [](std::int64_t, std::int64_t) { return false; };
    EXPECT_EQ(feed::importDay(root, options).error.reason, "cancelled");
}

TEST(ImportDay, SaysWhatIsWrongWithThePath)
{
    const QTemporaryDir temporary;
    const std::string folder = temporary.path().toStdString();
    EXPECT_EQ(feed::importDay(folder, ImportOptions()).error.text(),
              folder + ": has no .csv or .csv.zst files");
    EXPECT_EQ(feed::importDay(folder + "/none.csv", ImportOptions()).error.text(),
              folder + "/none.csv: cannot be opened: No such file or directory");
    std::ofstream(folder + "/a.csv") << "a,b\n";
    EXPECT_EQ(feed::importDay(folder, ImportOptions()).error.reason, "has no table of a known layout");
}

} // namespace
