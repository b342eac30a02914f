#include "feed/import/ImportTexts.h"

#include <QTextCodec>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing_support::import;
using testing_support::inLayout;
using testing_support::linesOf;

const std::string kOrders = "ChannelNo,ApplSeqNum,MDStreamID,SecurityID,SecurityIDSource,Price,OrderQty,Side,"
                            "TransactTime,OrdType,LocalTime,SeqNo\n";
const std::string kDeals = "ApplSeqNum,BidApplSeqNum,OfferApplSeqNum,SecurityID,LastPx,LastQty,ExecType,"
                           "TransactTime\n";

std::string gbk(const std::string& utf8)
{
    return QTextCodec::codecForName("GBK")->fromUnicode(QString::fromStdString(utf8)).toStdString();
}

TEST(ShenzhenImport, OrdersAndDealsShareOneSequence)
{
    // Characters in one half of the lines, ASCII numbers in the other.
    const feed::ImportResult result =
        import({{"o.csv", kOrders + "2013,1,011,000001,102 ,14.65,300,1,2024.01.02T09:15:00.000,2,,\n"
                                    "2013,3,011,000001,102 ,14.60,100,49,2024.01.02T09:30:00.000,50,,\n"
                                    "2013,2,011,000001,102 ,14.65,200,50,20240102093000000,50,,\n"
                                    "2013,5,011,000001,102 ,14.7,100,2,2024.01.02T09:30:00.000,1,,\n"
                                    "2013,6,011,000001,102 ,0,100,B,2024.01.02T09:30:00.000,85,,\n"},
                {"d.csv", kDeals + "4,1,2,000001,14.65,200,F,2024.01.02T09:30:00.010\n"
                                   "7,0,5,000001,0,100,4,2024.01.02T09:30:01.000\n"
                                   "8,3,0,000001,0,100,52,2024.01.02T09:30:02.000\n"
                                   "9,6,1,000001,14.65,50,70,2024.01.02T14:59:00.000\n"
                                   "10,6,1,000001,14.65,50,70,2024.01.02T14:56:59.999\n"}},
               inLayout("sz-split"));
    ASSERT_FALSE(result.error) << result.error.text();
    ASSERT_EQ(result.days.size(), 1u);
    EXPECT_EQ(result.days[0].detail.market, "SZ");
    EXPECT_THAT(
        linesOf(result.days[0]),
        ElementsAre("1 order 1 buy 14.65 x300 kind 1 @33300000", "2 order 2 sell 14.65 x200 kind 1 @34200000",
                    "3 order 3 buy 14.6 x100 kind 1 @34200000", "4 deal 1-2 14.65 x200 active 2 @34200010",
                    "5 order 5 sell 0 x100 kind 2 @34200000", "6 order 6 buy 0 x100 kind 4 @34200000",
                    "7 cancel sell 5 x100 @34201000", "8 cancel buy 3 x100 @34202000",
                    "9 deal 6-1 14.65 x50 active 0 @53940000", "10 deal 6-1 14.65 x50 active 1 @53819999"));
    EXPECT_EQ(result.report.madeOrders + result.report.restoredOrders, 0);
}

TEST(ShenzhenImport, ACancelNamesExactlyOneOrder)
{
    for (const char* const line : {"7,3,5,000001,0,100,4,2024.01.02T09:30:01.000",
                                   "7,0,0,000001,0,100,4,09:30:01", "7,,,000001,0,100,4,09:30:01"}) {
        feed::ImportOptions options;
        options.mostRejected = 1;
        const feed::ImportResult result = import({{"d.csv", kDeals + line + "\n"}}, options);
        ASSERT_EQ(result.report.rejects.listed().size(), 1u) << line;
        EXPECT_EQ(result.report.rejects.listed()[0].reason, "cancel without exactly one order number");
    }
}

TEST(ShenzhenImport, CodesThatLostTheirZerosGetThemBack)
{
    const feed::ImportResult result =
        import({{"d.csv", kDeals + "7,3,0,1,0,100,4,2024.01.02T09:30:01.000\n"}});
    ASSERT_FALSE(result.error) << result.error.text();
    EXPECT_EQ(result.days[0].detail.code, "000001");
}

TEST(ShenzhenImport, ReadsFoldersInGbk)
{
    const std::string orders =
        "证券代码,交易所代码,自然日,时间,委托编号,交易所委托号,委托类型,委托代码,委托价格,委托数量\r\n"
        "000001.SZ,000001,20240102,91500000,1,0,2,B,146500,300\r\n"
        "000001.SZ,000001,20240102,93000000,2,0,1,S,0,100\r\n"
        "000001.SZ,000001,20240102,93000000,3,0,U,S,0,100\r\n"
        "000001.SZ,000001,20240102,93000000,4,0,0,S,146700,100\r\n";
    const std::string deals =
        "证券代码,自然日,时间,成交编号,成交代码,BS标志,成交价格,成交数量,叫卖序号,叫买序号\r\n"
        "000001.SZ,20240102,93000010,5,0,S,146500,100,2,1\r\n"
        "000001.SZ,20240102,93000020,6,C, ,0,200,0,1\r\n"
        "000001.SZ,20240102,93000030,7,C, ,0,100,3,0\r\n";
    const std::string snapshots =
        "证券代码,自然日,时间,成交价,前收盘,当日累计成交量,申卖价1,申卖量1,申卖价2,申卖量2,申买价1,"
        "申买量1\r\n"
        "000001.SZ,20240102,93003000,146500,146000,100,146700,100,0,0,146400,200\r\n";
    const std::string folder = "20240102/000001.SZ/";
    for (const bool inGbk : {true, false}) {
        const auto encoded = [&](const std::string& text) { return inGbk ? gbk(text) : text; };
        const feed::ImportResult result = import({{folder + "逐笔委托.csv", encoded(orders)},
                                                  {folder + "逐笔成交.csv", encoded(deals)},
                                                  {folder + "行情.csv", encoded(snapshots)}},
                                                 inLayout("gbk-folder"));
        ASSERT_FALSE(result.error) << result.error.text();
        ASSERT_EQ(result.days.size(), 1u);
        const feed::InstrumentDay& day = result.days[0];
        EXPECT_EQ(day.detail.market + day.detail.code, "SZ000001");
        EXPECT_EQ(day.detail.previousClose, 14.6);
        EXPECT_EQ(day.tradingDay, 20240102);
        EXPECT_THAT(linesOf(day),
                    ElementsAre("1 order 1 buy 14.65 x300 kind 1 @33300000",
                                "2 order 2 sell 0 x100 kind 2 @34200000",
                                "3 order 3 sell 0 x100 kind 4 @34200000",
                                "4 order 4 sell 14.67 x100 kind 1 @34200000",
                                "5 deal 1-2 14.65 x100 active 2 @34200010", "6 cancel buy 1 x200 @34200020",
                                "7 cancel sell 3 x100 @34200030"));
        ASSERT_EQ(day.snapshots.size(), 1u);
        EXPECT_EQ(day.snapshots[0].askPrice[0], 14.67);
        EXPECT_EQ(day.snapshots[0].bidVolume[0], 200);
        EXPECT_EQ(day.snapshots[0].totalVolume, 100);
        EXPECT_EQ(day.snapshots[0].phase, feed::Phase::Continuous);
    }
}

TEST(ShenzhenImport, AFolderHoldsOneInstrument)
{
    feed::ImportOptions options;
    options.mostRejected = 1;
    const std::string header = "证券代码,自然日,时间,委托编号,委托类型,委托代码,委托价格,委托数量\n";
    const feed::ImportResult result =
        import({{"20240102/000001.SZ/o.csv", header + "000001.SZ,20240102,91500000,1,2,B,146500,300\n"
                                                      "000002.SZ,20240102,91500000,2,2,B,146500,300\n"}},
               options);
    ASSERT_EQ(result.days.size(), 1u);
    EXPECT_EQ(result.report.rejects.countByReason().at("instrument of another folder"), 1);
}

TEST(ShenzhenImport, ADealOfAFolderIsKnownByItsCodeOrByNone)
{
    feed::ImportOptions options;
    options.mostRejected = 1;
    const std::string header = "自然日,时间,成交编号,成交代码,成交价格,成交数量,叫卖序号,叫买序号\n";
    const feed::ImportResult result =
        import({{"20240102/000001.SZ/d.csv", header + "20240102,93000010,5,0,146500,100,2,1\n"
                                                      "20240102,93000020,6,,146500,100,2,1\n"
                                                      "20240102,93000030,7,XX,146500,100,2,1\n"}},
               options);
    ASSERT_EQ(result.days.size(), 1u);
    EXPECT_EQ(result.days[0].deals.size(), 2u);
    EXPECT_EQ(result.report.rejects.countByReason().at("unknown type"), 1);
}

TEST(ShenzhenImport, ShanghaiFoldersNeedTheCommonSequence)
{
    const std::string orders =
        "证券代码,自然日,时间,委托编号,交易所委托号,委托类型,委托代码,委托价格,委托数量";
    const std::string line = "600000.SH,20240102,93000000,1,77,A,B,100100,300";
    feed::ImportOptions options;
    options.mostRejected = 1;
    const feed::ImportResult without =
        import({{"20240102/600000.SH/o.csv", orders + "\n" + line + "\n"}}, options);
    EXPECT_EQ(without.report.rejects.countByReason().begin()->first,
              "no column with the common sequence of orders and deals");
    const feed::ImportResult with =
        import({{"20240102/600000.SH/o.csv", orders + ",业务序列号\n" + line + ",40\n"}}, options);
    ASSERT_EQ(with.days.size(), 1u);
    EXPECT_THAT(linesOf(with.days[0]), ElementsAre("81 order 77 buy 10.01 x300 kind 1 @34200000"));
}

} // namespace
