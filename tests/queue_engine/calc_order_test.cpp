#include "queue_engine/EngineFixture.h"

#include <limits>

using namespace testing_support;

namespace {

class CalcOrder : public EngineTest
{
protected:
    /// Ten prices a side in continuous trading, last price 10.00; buy one 10.00, sell one 10.01; 1, 2, ... 10
    /// lots.
    void snapTen(std::int64_t milliseconds)
    {
        snap("bid 10.00x1 9.99x2 9.98x3 9.97x4 9.96x5 9.95x6 9.94x7 9.93x8 9.92x9 9.91x10;"
             "ask 10.01x1 10.02x2 10.03x3 10.04x4 10.05x5 10.06x6 10.07x7 10.08x8 10.09x9 10.10x10; last "
             "10.00",
             milliseconds);
    }

    std::string header() const { return engine.headerText().toStdString(); }
};

std::string headerText(const std::string& sellOrders, const std::string& sellAverage,
                       const std::string& buyOrders, const std::string& buyAverage)
{
    return "委卖队列(共10档,十档内" + sellOrders + "笔," + sellAverage + "手/笔)\n委买队列(共10档,十档内" +
           buyOrders + "笔," + buyAverage + "手/笔)";
}

} // namespace

TEST_F(CalcOrder, DoesNothingBeforeASnapshot)
{
    put(kBuy, 1000, "buy 10; 1 10 normal");
    engine.m_bNeedRepaint = false;
    engine.calcOrder();
    EXPECT_TRUE(engine.m_queueRows.empty());
    EXPECT_EQ(header(), "");
    EXPECT_FALSE(engine.m_bNeedRepaint);
}

TEST_F(CalcOrder, MakesRowsOfASnapshotAlone)
{
    snapTen(5000);
    engine.m_bNeedRepaint = false;
    engine.calcOrder();
    for (unsigned int i = 0; i < 10; ++i) {
        const std::string number = std::to_string(i + 1);
        EXPECT_EQ(row(i, Kel::OQT_BUY), "buy " + numberText((1000 - static_cast<int>(i)) / 100.0) +
                                            " level=" + number + " levelVol=" + number +
                                            " sum=0 count=0 avg=0 unknown=0 start=0 time=5000\n");
        EXPECT_EQ(row(i, Kel::OQT_SELL), "sell " + numberText((1001 + static_cast<int>(i)) / 100.0) +
                                             " level=" + number + " levelVol=" + number +
                                             " sum=0 count=0 avg=0 unknown=0 start=0 time=5000\n");
    }
    EXPECT_EQ(header(), headerText("0", "0", "0", "0"));
    EXPECT_TRUE(engine.m_bNeedRepaint);
    EXPECT_EQ(engine.m_orderQueues.value(kBuy).size(), 10);
    EXPECT_EQ(engine.m_orderQueues.value(kSell).size(), 10);
}

TEST_F(CalcOrder, HasTenRowsASideWhateverTheSnapshotHolds)
{
    snap("bid 10.00x1");
    engine.calcOrder();
    for (unsigned int i = 0; i < 10; ++i) {
        EXPECT_TRUE(engine.at(i, Kel::OQT_BUY)) << i;
        EXPECT_TRUE(engine.at(i, Kel::OQT_SELL)) << i;
    }
    EXPECT_FALSE(engine.at(10, Kel::OQT_BUY));
    EXPECT_EQ(row(9, Kel::OQT_SELL),
              "sell 0 level=10 levelVol=0 sum=0 count=0 avg=0 unknown=0 start=0 time=1000\n");
    EXPECT_TRUE(engine.m_orderQueues.value(kSell).contains(0));
}

TEST_F(CalcOrder, GivesTheSnapshotsVolumeToALevelWhileTheSnapshotIsNewer)
{
    snapTen(5000);
    put(kBuy, 1000, "buy 10 levelVol=77; 1 10 normal; 2 20 normal");
    put(kSell, 1002, "sell 10.02 levelVol=77; 3 3 normal");
    engine.calcOrder();
    EXPECT_EQ(
        row(0, Kel::OQT_BUY),
        "buy 10 level=1 levelVol=1 sum=30 count=2 avg=0.5 unknown=0 start=0\n1 10 normal\n2 20 normal\n");
    EXPECT_EQ(row(1, Kel::OQT_SELL),
              "sell 10.02 level=2 levelVol=2 sum=3 count=1 avg=2 unknown=0 start=0\n3 3 normal\n");
    EXPECT_EQ(header(), headerText("1", "2.0", "2", "0.5"));
}

TEST_F(CalcOrder, ComparesTheVolumeWithTheListOnceLevelDataAreBack)
{
    snapTen(5000);
    engine.m_bLevelDataBack = true;
    put(kBuy, 991, "buy 9.91; 1 4 normal; 2 3 normal");
    engine.calcOrder();
    EXPECT_EQ(row(9, Kel::OQT_BUY), "buy 9.91 level=10 levelVol=10 sum=7 count=3 avg=3.33333333333 unknown=3 "
                                    "start=0\n1 4 normal\n2 3 normal\n");
}

TEST_F(CalcOrder, ShowsTheSumOfTheListWhileTheFeedIsNewer)
{
    snapTen(5000);
    engine.m_lastFeedTime = 5001;
    put(kBuy, 1000, "buy 10 levelVol=77 sum=28 count=4; 1 10 normal; 2 20 normal; 3 5 dealt");
    put(kSell, 1001, "sell 10.01 levelVol=77 sum=28 count=4; 4 10 normal; 5 20 normal; 6 5 dealt");
    engine.calcOrder();
    EXPECT_EQ(row(0, Kel::OQT_SELL),
              "sell 10.01 level=1 levelVol=30 sum=30 count=2 avg=15 unknown=0 start=0\n"
              "4 10 normal\n5 20 normal\n6 5 dealt\n")
        << "the sell side is counted anew";
    EXPECT_EQ(row(0, Kel::OQT_BUY), "buy 10 level=1 levelVol=28 sum=28 count=4 avg=7 unknown=0 start=0\n"
                                    "1 10 normal\n2 20 normal\n3 5 dealt\n")
        << "the buy side is not";
    EXPECT_EQ(header(), headerText("2", "15.0", "4", "7.0"));
}

TEST_F(CalcOrder, RecountsBothSidesWhenItLooksForTheTenPrices)
{
    snapTen(5000);
    engine.m_lastFeedTime = 5001;
    engine.m_bLevelDataBack = true;
    put(kBuy, 1000, "buy 10 levelVol=77 sum=29 count=4; 1 10 normal; 2 20 normal; 3 5 dealt");
    engine.calcOrder();
    EXPECT_EQ(row(0, Kel::OQT_BUY), "buy 10 level=1 levelVol=30 sum=30 count=2 avg=15 unknown=0 start=0\n"
                                    "1 10 normal\n2 20 normal\n3 5 dealt\n");
}

TEST_F(CalcOrder, ShowsTheSumOfTheListOutsideContinuousTrading)
{
    snap("bid 10.00x500; ask 10.00x500; last 10.00", 5000);
    put(kBuy, 1000, "buy 10 levelVol=77 sum=30; 1 10 normal; 2 20 normal");
    engine.calcOrder();
    EXPECT_EQ(
        row(0, Kel::OQT_BUY),
        "buy 10 level=1 levelVol=30 sum=30 count=2 avg=15 unknown=0 start=0\n1 10 normal\n2 20 normal\n");
}

TEST_F(CalcOrder, MakesANegativeVolumeZero)
{
    snap("bid 10.00x-5 9.99x-7; ask 10.01x-5 10.02x-7; last 10.00", 5000);
    put(kBuy, 1000, "buy 10; 1 10 normal");
    put(kSell, 1001, "sell 10.01; 2 10 normal");
    engine.calcOrder();
    EXPECT_EQ(engine.at(0, Kel::OQT_BUY)->m_levelVol, 0);
    EXPECT_EQ(engine.at(0, Kel::OQT_SELL)->m_levelVol, 0);
    EXPECT_EQ(engine.at(1, Kel::OQT_BUY)->m_levelVol, 0) << "a new buy level";
    EXPECT_EQ(engine.at(1, Kel::OQT_SELL)->m_levelVol, -7) << "a new sell level has no guard";
}

TEST_F(CalcOrder, MakesAnAverageThatIsNegativeOrUndefinedZero)
{
    snapTen(5000);
    put(kBuy, 1000, "buy 10 count=0; 1 10 normal");
    put(kBuy, 999, "buy 9.99 count=-3; 2 10 normal");
    put(kSell, 1001, "sell 10.01 levelVol=0 count=0; 3 10 normal");
    engine.m_depthData.load()->askVolume[0] = 0;
    engine.calcOrder();
    EXPECT_EQ(engine.at(0, Kel::OQT_BUY)->m_avgVol, 0) << "1 lot of no order is infinite";
    EXPECT_EQ(engine.at(1, Kel::OQT_BUY)->m_avgVol, 0) << "negative";
    EXPECT_EQ(engine.at(0, Kel::OQT_SELL)->m_avgVol, 0) << "no lots of no order are not a number";
}

TEST_F(CalcOrder, CopiesRowsThatStayWhileTheLevelChanges)
{
    snapTen(5000);
    const auto live = put(kBuy, 1000, "buy 10; 1 10 normal");
    engine.calcOrder();
    const auto shown = engine.at(0, Kel::OQT_BUY);
    EXPECT_NE(shown, live);
    EXPECT_TRUE(shown->m_orderIds.isEmpty());
    EXPECT_TRUE(shown->m_orders.isSharedWith(live->m_orders));
    const std::string before = levelText(*shown);
    orders(1, {order(2, kBuy, 10.00, 500)});
    engine.updateDataList();
    EXPECT_EQ(levelText(*shown), before);
    EXPECT_EQ(row(0, Kel::OQT_BUY), before) << "rows change with the next calculation only";
}

TEST_F(CalcOrder, LeavesTheNumberOfALevelThatDropsOut)
{
    snapTen(5000);
    put(kBuy, 1000, "buy 10; 1 10 normal");
    engine.calcOrder();
    snap("bid 9.90x1 9.89x1; ask 9.91x1; last 9.90", 6000);
    engine.calcOrder();
    EXPECT_EQ(level(kBuy, 1000)->m_level, 1);
    EXPECT_EQ(level(kBuy, 990)->m_level, 1);
}

TEST_F(CalcOrder, AbandonsTheHeaderForANegativeTotal)
{
    snapTen(5000);
    put(kBuy, 1000, "buy 10; 1 10 normal");
    engine.calcOrder();
    const std::string before = header();
    const auto buy = put(kBuy, 999, "buy 9.99; 2 10 normal");
    const auto sell = put(kSell, 1002, "sell 10.02; 3 10 normal");
    for (const auto& negative : {buy, sell}) {
        negative->m_count = -30;
        engine.m_bNeedRepaint = true;
        engine.calcOrder();
        EXPECT_EQ(header(), before);
        EXPECT_FALSE(engine.m_bNeedRepaint);
        EXPECT_TRUE(engine.at(9, Kel::OQT_BUY)) << "the rows stay, and their lock is free";
        negative->m_count = 1;
    }
    engine.calcOrder();
    EXPECT_NE(header(), before);
    EXPECT_TRUE(engine.m_bNeedRepaint);
}

TEST_F(CalcOrder, CountsTheFillerInTheHeader)
{
    snap("bid 10.00x2500; ask 10.01x8; last 10.00", 5000);
    engine.m_bLevelDataBack = true;
    put(kBuy, 1000, "buy 10; 1 1000 big");
    put(kSell, 1001, "sell 10.01; 2 5 normal; 3 6 normal; 4 2 normal");
    engine.calcOrder();
    // 1500 unknown lots count as two orders; the first sell order stands before the level and does not count.
    EXPECT_EQ(header(), headerText("2", "4.0", "3", "833.3"));
}

TEST_F(CalcOrder, WritesZeroForASideWithoutOrders)
{
    snapTen(5000);
    put(kBuy, 1000, "buy 10; 1 10 normal; 2 10 normal; 3 10 normal");
    engine.calcOrder();
    EXPECT_EQ(header(), headerText("0", "0", "3", "0.3"));
}

TEST_F(CalcOrder, FormatsASumOfZeroOverOrders)
{
    snap("bid 10.00x0; ask 10.01x8; last 10.00", 5000);
    put(kBuy, 1000, "buy 10; 1 10 normal; 2 10 normal");
    engine.calcOrder();
    EXPECT_EQ(header(), headerText("0", "0", "2", "0.0"));
}

TEST_F(CalcOrder, AddsNoVolumeOfALevelThatCountsNoOrders)
{
    snapTen(5000);
    put(kBuy, 1000, "buy 10 count=0; 1 10 normal");
    put(kBuy, 999, "buy 9.99 count=4; 1 10 normal");
    engine.calcOrder();
    EXPECT_EQ(header(), headerText("0", "0", "4", "0.5"));
}

using MarketStatus = EngineTest;

TEST_F(MarketStatus, IsContinuousWithTwoDifferentBestPrices)
{
    EXPECT_TRUE(engine.isContinousStatus(snapshot("bid 10.00x1; ask 10.01x1")));
    EXPECT_TRUE(engine.isContinousStatus(snapshot("bid 10.00x1"))) << "one side is enough";
    EXPECT_TRUE(engine.isContinousStatus(snapshot("ask 10.00x1")));
    EXPECT_TRUE(engine.isContinousStatus(snapshot("bid 10.00x1; ask 10.0001x1")));
}

TEST_F(MarketStatus, IsNotContinuousWithoutPricesOrWithEqualOnes)
{
    EXPECT_FALSE(engine.isContinousStatus(snapshot("last 10.00")));
    EXPECT_FALSE(engine.isContinousStatus(snapshot("bid 0.000009x1; ask -0.000009x1")));
    EXPECT_FALSE(engine.isContinousStatus(snapshot("bid 10.00x1; ask 10.00x1")));
    EXPECT_FALSE(engine.isContinousStatus(snapshot("bid 10.00x1; ask 10.000009x1")));
}

TEST_F(MarketStatus, KnowsBuyOneAndSellOne)
{
    EXPECT_FALSE(engine.isBuySellOne(10.00));
    snap("bid 10.00x1 9.99x1; ask 10.01x1 10.02x1");
    EXPECT_TRUE(engine.isBuySellOne(10.00));
    EXPECT_TRUE(engine.isBuySellOne(10.01));
    EXPECT_TRUE(engine.isBuySellOne(10.000009));
    EXPECT_FALSE(engine.isBuySellOne(9.99));
    EXPECT_FALSE(engine.isBuySellOne(10.02));
    EXPECT_FALSE(engine.isBuySellOne(10.0001));
}

TEST_F(MarketStatus, TellsFinishedOrders)
{
    EXPECT_TRUE(engine.isFinishedOrder(Kel::OQT_PART_DEALT));
    EXPECT_TRUE(engine.isFinishedOrder(Kel::OQT_DEALT));
    EXPECT_TRUE(engine.isFinishedOrder(Kel::OQT_CANCELED));
    EXPECT_FALSE(engine.isFinishedOrder(Kel::OQT_NORMAL));
}
