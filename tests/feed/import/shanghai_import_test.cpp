#include "feed/import/ImportTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing_support::import;
using testing_support::inLayout;
using testing_support::linesOf;

const std::string kOrders =
    "SecurityID,OrderTime,OrderType,OrderNO,OrderPrice,Balance,OrderBSFlag,BizIndex\n";
const std::string kDeals =
    "SecurityID,TradTime,TradPrice,TradVolume,TradeBuyNo,TradeSellNo,TradeBSFlag,BizIndex\n";

feed::ImportResult importSplit(const std::string& orders, const std::string& deals,
                               feed::ImportOptions options = {})
{
    return import({{"orders.csv", kOrders + orders}, {"deals.csv", kDeals + deals}}, options);
}

TEST(ShanghaiImport, RecordsAreOrderedByTheChannelNotByArrival)
{
    const feed::ImportResult result = importSplit("600000,09:30:00.300,A,3,10.03,300,S,30\n"
                                                  "600000,09:30:00.100,A,1,10.01,100,B,10\n"
                                                  "600000,09:30:00.400,D,1,10.01,40,B,40\n"
                                                  "600000,09:30:00.500,D,3,10.03,300,S,50\n",
                                                  "600000,09:30:00.200,10.01,60,1,2,S,20\n");
    ASSERT_FALSE(result.error) << result.error.text();
    ASSERT_EQ(result.days.size(), 1u);
    EXPECT_THAT(linesOf(result.days[0]),
                ElementsAre("21 order 1 buy 10.01 x100 kind 1 @34200100",
                            "40 order 2 sell 10.01 x60 kind 1 @34200200",
                            "41 deal 1-2 10.01 x60 active 2 @34200200",
                            "61 order 3 sell 10.03 x300 kind 1 @34200300", "81 cancel buy 1 x40 @34200400",
                            "101 cancel sell 3 x300 @34200500"));
}

TEST(ShanghaiImport, OrderOfTheLinesDoesNotMatterHoweverTheyAreShuffled)
{
    // In a few ordered parts, and in many.
    for (const int parts : {1, 2, 7, 16, 17, 100, 250}) {
        std::string orders;
        for (int part = 0; part < parts; ++part) {
            for (int i = part; i < 500; i += parts) {
                const std::string number = std::to_string(i + 1);
                orders += "600000,09:30:00.300,A," + number + ",10.03,300,S," + number + "\n";
            }
        }
        const feed::ImportResult result = importSplit(orders, "");
        ASSERT_FALSE(result.error) << result.error.text();
        ASSERT_EQ(result.days.at(0).orders.size(), 500u);
        for (int i = 0; i < 500; ++i)
            ASSERT_EQ(result.days[0].orders[static_cast<std::size_t>(i)].number, i + 1) << parts << " parts";
    }
}

TEST(ShanghaiImport, AnOrderGetsBackWhatWasDealtBeforeItsRecord)
{
    const feed::ImportResult result = importSplit("600000,09:30:00.000,A,1,10.01,100,B,1\n"
                                                  "600000,09:30:00.000,A,2,10.00,200,B,2\n"
                                                  "600000,09:30:01.000,A,3,10.00,50,S,5\n",
                                                  "600000,09:30:01.000,10.01,100,1,3,S,3\n"
                                                  "600000,09:30:01.000,10.00,200,2,3,S,4\n"
                                                  "600000,09:30:02.000,10.00,50,4,3,B,6\n");
    ASSERT_FALSE(result.error) << result.error.text();
    EXPECT_EQ(result.report.restoredOrders, 1);
    EXPECT_EQ(result.report.madeOrders, 1);
    EXPECT_THAT(
        linesOf(result.days[0]),
        ElementsAre("3 order 1 buy 10.01 x100 kind 1 @34200000", "5 order 2 buy 10 x200 kind 1 @34200000",
                    "7 deal 1-3 10.01 x100 active 2 @34201000", "9 deal 2-3 10 x200 active 2 @34201000",
                    "11 order 3 sell 10 x350 kind 1 @34201000", "12 order 4 buy 10 x50 kind 1 @34202000",
                    "13 deal 4-3 10 x50 active 1 @34202000"));
}

TEST(ShanghaiImport, AnOrderFilledOnEntryIsMadeAtTheWorstPriceThatItReached)
{
    const feed::ImportResult result = importSplit("600000,09:30:00.000,A,1,10.01,100,S,1\n"
                                                  "600000,09:30:00.000,A,2,10.05,300,S,2\n",
                                                  "600000,09:30:01.000,10.01,100,9,1,B,7\n"
                                                  "600000,09:30:01.010,10.05,200,9,2,B,8\n");
    ASSERT_FALSE(result.error);
    EXPECT_THAT(linesOf(result.days[0]), ElementsAre("3 order 1 sell 10.01 x100 kind 1 @34200000",
                                                     "5 order 2 sell 10.05 x300 kind 1 @34200000",
                                                     "14 order 9 buy 10.05 x300 kind 1 @34201000",
                                                     "15 deal 9-1 10.01 x100 active 1 @34201000",
                                                     "17 deal 9-2 10.05 x200 active 1 @34201010"));
}

TEST(ShanghaiImport, AMadeOrderAlsoHasWhatWasCancelledOfItAtOnce)
{
    const feed::ImportResult result = importSplit("600000,09:30:00.000,A,1,10.01,100,S,1\n"
                                                  "600000,09:30:01.000,D,9,10.01,70,B,3\n",
                                                  "600000,09:30:01.000,10.01,100,9,1,B,2\n");
    ASSERT_FALSE(result.error);
    EXPECT_THAT(linesOf(result.days[0]),
                ElementsAre("3 order 1 sell 10.01 x100 kind 1 @34200000",
                            "4 order 9 buy 10.01 x170 kind 1 @34201000",
                            "5 deal 9-1 10.01 x100 active 1 @34201000", "7 cancel buy 9 x70 @34201000"));
}

TEST(ShanghaiImport, NothingIsMadeOfAuctionDealsOrOfAPassiveOrder)
{
    const feed::ImportResult result =
        importSplit("600000,09:15:00.000,A,1,10.01,100,S,1\n", "600000,09:25:00.000,10.01,100,9,1,N,2\n"
                                                               "600000,09:30:00.000,10.01,100,7,8,B,3\n");
    ASSERT_FALSE(result.error);
    EXPECT_EQ(result.report.madeOrders, 1);
    EXPECT_EQ(result.report.unknownOrders, 2) << "9 in the auction, 8 passive";
}

TEST(ShanghaiImport, CodesMayBeNumbers)
{
    const feed::ImportResult result = import(
        {{"o.csv", "MDDate,MDTime,OrderType,OrderPrice,OrderQty,OrderBSFlag,ApplSeqNum,OrderNO,SecurityID\n"
                   "2023.07.11,09:15:00.280,2,5.490000000000002,600,2,3,7,601825.SH\n"
                   "2023.07.11,09:31:00.280,10,5.490000000000002,200,2,9,7,601825.SH\n"},
         {"d.csv", "MDDate,MDTime,TradeBuyNo,TradeSellNo,TradeBSFlag,TradePrice,TradeQty,ApplSeqNum,"
                   "SecurityID\n"
                   "2023.07.11,09:30:00.000,8,7,1,5.49,400,5,601825.SH\n"}},
        inLayout("sh-split-2"));
    ASSERT_FALSE(result.error) << result.error.text();
    EXPECT_EQ(result.days[0].tradingDay, 20230711);
    EXPECT_THAT(linesOf(result.days[0]),
                ElementsAre("7 order 7 sell 5.49 x600 kind 1 @33300280",
                            "10 order 8 buy 5.49 x400 kind 1 @34200000",
                            "11 deal 8-7 5.49 x400 active 1 @34200000", "19 cancel sell 7 x200 @34260280"));
}

TEST(ShanghaiImport, MergedTicksHoldOrdersDealsDeletesAndStatusLines)
{
    const feed::ImportResult result =
        import({{"ticks.csv",
                 "BizIndex,Channel,SecurityID,TickTime,Type,BuyOrderNO,SellOrderNO,Price,Qty,TradeMoney,"
                 "TickBSFlag,LocalTime,SeqNo\n"
                 "1,6,600000,9150000,S,0,0,0,0,0,OCALL,,\n"
                 "5,6,600000,93000120,A,0,2,10.01,150,0,S,,\n"
                 "2,6,600000,9150012,A,1,0,10.01,300,0,B,,\n"
                 "4,6,600000,9300012,T,1,2,10.01,100,1001,S,,\n"
                 "6,6,600000,14302506,D,1,0,10.01,200,0,B,,\n"}});
    ASSERT_FALSE(result.error) << result.error.text();
    EXPECT_EQ(result.report.files[0].skipped, 1);
    EXPECT_THAT(linesOf(result.days[0]),
                ElementsAre("5 order 1 buy 10.01 x300 kind 1 @33300120",
                            "9 deal 1-2 10.01 x100 active 2 @34200120",
                            "11 order 2 sell 10.01 x250 kind 1 @34200120", "13 cancel buy 1 x200 @52225060"));
}

TEST(ShanghaiImport, SecondLinesOfOneSequenceOrOneOrderAreRejected)
{
    feed::ImportOptions options;
    options.mostRejected = 1;
    const feed::ImportResult result = importSplit("600000,09:30:00.000,A,1,10.01,100,B,1\n"
                                                  "600000,09:30:00.000,A,2,10.02,100,B,1\n"
                                                  "600000,09:30:00.000,A,1,10.03,100,B,3\n",
                                                  "600000,09:30:00.000,10.01,100,1,4,S,3\n", options);
    ASSERT_FALSE(result.error);
    EXPECT_THAT(linesOf(result.days[0]), ElementsAre("3 order 1 buy 10.01 x100 kind 1 @34200000"));
    EXPECT_EQ(result.report.rejects.countByReason(),
              (std::map<std::string, std::int64_t>{{"duplicate sequence number", 2},
                                                   {"second record of an order", 1}}));
    EXPECT_EQ(result.report.files[0].taken, 1);
    EXPECT_EQ(result.report.files[1].taken, 0);
}

TEST(ShanghaiImport, EachBadLineIsRejectedWithItsReasonAndTheOthersStay)
{
    const std::pair<const char*, const char*> table[] = {
        {"600000,09:30:00.000,A,1,10.01,100,B,x", "bad sequence number"},
        {"600000,09:30:00.000,A,1,10.01,100,B,-1", "bad sequence number"},
        {"600000,09:30:00.000,A,1,10.01,100,B,9223372036854775807", "bad sequence number"},
        {"600000,25:30:00.000,A,1,10.01,100,B,1", "bad time"},
        {"600000,,A,1,10.01,100,B,1", "bad time"},
        {"600000,09:30:00.000,X,1,10.01,100,B,1", "unknown type"},
        {"600000,09:30:00.000,A,,10.01,100,B,1", "bad order number"},
        {"600000,09:30:00.000,A,0,10.01,100,B,1", "bad order number"},
        {"600000,09:30:00.000,A,1,0,100,B,1", "bad price"},
        {"600000,09:30:00.000,A,1,-10,100,B,1", "bad price"},
        {"600000,09:30:00.000,A,1,nan,100,B,1", "bad price"},
        {"600000,09:30:00.000,A,1,10.01,0,B,1", "bad volume"},
        {"600000,09:30:00.000,A,1,10.01,1e3,B,1", "bad volume"},
        {"600000,09:30:00.000,A,1,10.01,99999999999999999,B,1", "bad volume"},
        {"600000,09:30:00.000,A,1,10.01,100,N,1", "bad side"},
        {"600000,09:30:00.000,D,3000000000,10.01,100,B,1", "order number beyond 32 bits"},
        {"60000A,09:30:00.000,A,1,10.01,100,B,1", "bad instrument code"},
        {"000001.SZ,09:30:00.000,A,1,10.01,100,B,1", "instrument of another market"},
        {"600000,2024.01.03T09:30:00.000,A,1,10.01,100,B,1", "another day"},
        {"600000,09:30:00.000,A,1,10.01,100", "too few columns"},
        {"600000,09:30:00.000,A,1,10.01,100,B,1,,7", "too many columns"},
    };
    for (const auto& [line, reason] : table) {
        feed::ImportOptions options;
        options.mostRejected = 1;
        const feed::ImportResult result =
            importSplit(std::string(line) + "\n600000,09:30:00.000,A,5,10.02,100,B,2\n", "", options);
        ASSERT_FALSE(result.error) << result.error.text();
        ASSERT_EQ(result.report.rejects.listed().size(), 1u) << line;
        EXPECT_EQ(result.report.rejects.listed()[0].reason, reason) << line;
        EXPECT_EQ(result.report.rejects.listed()[0].file, "orders.csv");
        EXPECT_EQ(result.report.rejects.listed()[0].line, 2);
        ASSERT_EQ(result.days.size(), 1u);
        EXPECT_THAT(linesOf(result.days[0]), ElementsAre("5 order 5 buy 10.02 x100 kind 1 @34200000"));
    }
}

TEST(ShanghaiImport, BadDealsAreRejected)
{
    const std::pair<const char*, const char*> table[] = {
        {"600000,09:30:00.000,10.01,100,0,2,S,1", "bad order number"},
        {"600000,09:30:00.000,10.01,100,2,2,S,1", "bad order number"},
        {"600000,09:30:00.000,10.01,100,-1,2,S,1", "bad order number"},
        {"600000,09:30:00.000,10.01,100,2147483648,2,S,1", "order number beyond 32 bits"},
        {"600000,09:30:00.000,0,100,1,2,S,1", "bad price"},
        {"600000,09:30:00.000,10.01,,1,2,S,1", "bad volume"},
    };
    for (const auto& [line, reason] : table) {
        feed::ImportOptions options;
        options.mostRejected = 1;
        const feed::ImportResult result = importSplit("", std::string(line) + "\n", options);
        ASSERT_EQ(result.report.rejects.listed().size(), 1u) << line;
        EXPECT_EQ(result.report.rejects.listed()[0].reason, reason) << line;
    }
}

TEST(ShanghaiImport, SumsOfHugeVolumesAreClamped)
{
    std::string deals;
    for (int i = 0; i < 9500; ++i)
        deals += "600000,09:30:00.000,10.01,1000000000000000,1," + std::to_string(i + 2) + ",B," +
                 std::to_string(i + 1) + "\n";
    const feed::ImportResult result = importSplit("", deals);
    ASSERT_FALSE(result.error);
    ASSERT_EQ(result.days[0].orders.size(), 1u);
    EXPECT_EQ(result.days[0].orders[0].volume, INT64_MAX);
}

} // namespace
