#include "queue_engine/EngineFixture.h"

#include <boost/thread/thread.hpp>

#include <QCoreApplication>
#include <QElapsedTimer>

using namespace testing_support;

namespace {

class QuoteRouting : public EngineTest
{
protected:
    /// Waits for the detached thread of a level batch, whose last act is to ask for a calculation.
    bool waitForCalc()
    {
        QElapsedTimer clock;
        clock.start();
        while (!engine.m_bNeedCalc && clock.elapsed() < 10000)
            boost::this_thread::sleep_for(boost::chrono::milliseconds(2));
        return engine.m_bNeedCalc;
    }
};

} // namespace

TEST_F(QuoteRouting, TakesTheLastSnapshotOfABatch)
{
    quotes(-1, {atTime(1000, snapshot("bid 10.00x1")), atTime(2000, snapshot("bid 10.01x2"))});
    ASSERT_TRUE(engine.m_depthData.load());
    EXPECT_EQ(engine.m_depthData.load()->bidPrice[0], 10.01);
    EXPECT_EQ(engine.m_depthTime, 2000);
    EXPECT_TRUE(engine.m_bNeedCalc);
}

TEST_F(QuoteRouting, SetsTheSnapshotToNullWhenTheLastElementIsNone)
{
    const quoter::QuoterBasePtr foreign[] = {quoter::QuoterBasePtr(), order(1, kBuy, 10.00, 100)};
    for (const auto& last : foreign) {
        snap("bid 10.00x1", 3000);
        engine.m_bNeedCalc = false;
        quotes(-1, {atTime(4000, snapshot("bid 10.01x2")), last});
        EXPECT_FALSE(engine.m_depthData.load());
        EXPECT_EQ(engine.m_depthTime, 3000);
        EXPECT_FALSE(engine.m_bNeedCalc);
    }
}

TEST_F(QuoteRouting, EveryPassSurvivesASnapshotThatIsNull)
{
    orders(1, {order(1, kBuy, 10.00, 500), order(2, kSell, 10.01, 300)});
    snap("ask 10.01x3; bid 10.00x5; last 10.00", 2000);
    engine.checkCalcOrder();
    const std::string before = row(0, Kel::OQT_BUY);
    quotes(-1, {quoter::QuoterBasePtr()});
    ASSERT_FALSE(engine.m_depthData.load());
    engine.m_refreshClock = engine.m_lastFeedTime + 6;
    engine.calcOrder();
    engine.updateDataList();
    engine.fixOrderDataList();
    engine.fixSZDataList(true);
    engine.fixSZDataList(false);
    engine.slotTimeout();
    engine.slotShangHaiTimeout();
    engine.matchOrderDeal();
    EXPECT_FALSE(engine.isBuySellOne(10.00));
    EXPECT_EQ(row(0, Kel::OQT_BUY), before);
    EXPECT_EQ(list(kBuy, 1000), "1 5 normal");
}

TEST_F(QuoteRouting, IgnoresAnEmptyBatch)
{
    snap("bid 10.00x1", 3000);
    engine.m_bNeedCalc = false;
    for (const int status : {-1, 0, 1, 2, 3})
        quotes(status, {});
    boost::this_thread::sleep_for(boost::chrono::milliseconds(50));
    EXPECT_TRUE(engine.m_depthData.load());
    EXPECT_EQ(engine.m_depthTime, 3000);
    EXPECT_FALSE(engine.m_bNeedCalc);
}

TEST_F(QuoteRouting, IgnoresOtherStatuses)
{
    for (const int status : {-2, 4, 5, 100})
        quotes(status, {levelRecord("bid 10.00: 5 6"), snapshot("bid 10.00x1")});
    boost::this_thread::sleep_for(boost::chrono::milliseconds(50));
    EXPECT_EQ(queues(), "");
    EXPECT_FALSE(engine.m_depthData.load());
    EXPECT_FALSE(engine.m_bNeedCalc);
}

TEST_F(QuoteRouting, AppliesOnlyTheLastLevelRecordOfAnUpdateOnTheCallersThread)
{
    for (const int status : {1, 2}) {
        SCOPED_TRACE(status);
        engine.clear(true);
        quotes(status, {levelRecord("bid 9.00: 5"), levelRecord("bid 10.00: 5 6")});
        EXPECT_EQ(queues(), "1/1000: 0 5 unknown; 0 6 unknown");
        EXPECT_TRUE(engine.m_bNeedCalc);
    }
}

TEST_F(QuoteRouting, SkipsAnUpdateWhoseLastElementIsNoLevelRecord)
{
    quotes(1, {levelRecord("bid 9.00: 5"), quoter::QuoterBasePtr()});
    quotes(2, {levelRecord("bid 9.00: 5"), snapshot("bid 10.00x1")});
    EXPECT_EQ(queues(), "");
    EXPECT_TRUE(engine.m_bNeedCalc);
}

TEST_F(QuoteRouting, AppliesAllLevelRecordsOfALargeBatchOnAThreadOfItsOwn)
{
    for (const int status : {0, 3}) {
        SCOPED_TRACE(status);
        engine.clear(true);
        quotes(status, {levelRecord("bid 9.00: 5"), quoter::QuoterBasePtr(),
                        levelRecord("bid 10.00: 5 6; ask 10.01: 7")});
        ASSERT_TRUE(waitForCalc());
        EXPECT_EQ(queues(), "1/900: 0 5 unknown | 1/1000: 0 5 unknown; 0 6 unknown | 2/1001: 0 7 unknown");
    }
}

TEST_F(QuoteRouting, TakesACopyOfALargeBatch)
{
    quoter::QuoterBatch batch = {levelRecord("bid 9.00: 5")};
    engine.quoterCallBack(0, 0, batch);
    batch.clear();
    ASSERT_TRUE(waitForCalc());
    EXPECT_EQ(queues(), "1/900: 0 5 unknown");
}

TEST_F(QuoteRouting, SkipsALevelRecordWithBothQueuesEmptyAndStillAsksForACalculation)
{
    engine.m_levelTime = 17;
    engine.quoterCallBackThread({levelRecord("bid 10.00:; ask 10.01:")}, 0, 1);
    EXPECT_EQ(queues(), "");
    EXPECT_EQ(engine.m_levelTime, 17);
    EXPECT_FALSE(engine.m_bLevelArrived);
    EXPECT_TRUE(engine.m_bNeedCalc);
}

TEST_F(QuoteRouting, ForgetsTheTimeOfTheLastLevelRecordWithTheFirstBatchOnly)
{
    for (const int status : {1, 2, 3}) {
        engine.m_levelTime = 17;
        engine.quoterCallBackThread({quoter::QuoterBasePtr()}, 0, status);
        EXPECT_EQ(engine.m_levelTime, 17) << status;
    }
    engine.quoterCallBackThread({quoter::QuoterBasePtr()}, 0, 0);
    EXPECT_EQ(engine.m_levelTime, -1);
}

TEST_F(QuoteRouting, RefusesLevelRecordsWhileTheOrderCacheHoldsASide)
{
    orders(3, buyOrders(1, 101));
    engine.m_bNeedCalc = false;
    engine.m_levelTime = 17;
    engine.quoterCallBackThread({levelRecord("bid 9.00: 5")}, 0, 0);
    EXPECT_EQ(list(kBuy, 900), "no level");
    EXPECT_FALSE(engine.m_bNeedCalc);
    EXPECT_EQ(engine.m_levelTime, 17);
}

TEST_F(QuoteRouting, RefusesLevelRecordsAlsoWhenTheSideOfTheCacheHasRunEmpty)
{
    orders(0, {order(1, kBuy, 10.00, 500)});
    engine.m_dealCache[1][1] = 5;
    engine.m_nOrderCount = 1000;
    engine.updateUnDealOrderCache();
    ASSERT_EQ(cache(), "1:");
    engine.m_bNeedCalc = false;
    engine.quoterCallBackThread({levelRecord("bid 9.00: 5")}, 0, 1);
    EXPECT_EQ(queues(), "");
    EXPECT_FALSE(engine.m_bNeedCalc);
}

TEST_F(QuoteRouting, TakesLevelRecordsBesideLiveOrders)
{
    orders(1, {order(1, kBuy, 10.00, 500)});
    engine.quoterCallBackThread({levelRecord("bid 10.00: 4 7")}, 0, 1);
    EXPECT_EQ(list(kBuy, 1000), "1 4 part 1; 0 7 unknown");
}
