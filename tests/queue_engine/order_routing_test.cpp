#include "queue_engine/EngineFixture.h"

using namespace testing_support;

namespace {

class OrderRouting : public EngineTest
{
protected:
    void fillRows()
    {
        snap("ask 10.02x5; bid 10.01x3; last 10.01");
        engine.calcOrder();
        ASSERT_TRUE(engine.at(0, Kel::OQT_BUY));
    }
};

} // namespace

TEST_F(OrderRouting, DropsTheBatchOfAnotherInstrumentWhole)
{
    engine.doOrderCallBack(0, 1, wrap({order(1, kBuy, 10.00, 100)}, "SZ", "600519"));
    engine.doOrderCallBack(0, 1, wrap({order(1, kBuy, 10.00, 100)}, "SH", "600518"));
    engine.doOrderCallBack(0, 0, wrap({order(1, kBuy, 10.00, 100)}, "", ""));
    EXPECT_EQ(queues(), "");
    EXPECT_EQ(cache(), "");
    EXPECT_EQ(flags(), "000");
    EXPECT_EQ(engine.m_lastFeedTime, 0);
    EXPECT_EQ(engine.m_maxEntrustNo, 0);
    EXPECT_EQ(engine.m_nOrderCount, 0);
}

TEST_F(OrderRouting, SurvivesANullWrapper)
{
    for (const int status : {0, 1, 2, 3, 7})
        engine.doOrderCallBack(0, status, {});
    EXPECT_EQ(queues(), "");
    EXPECT_EQ(flags(), "000");
}

TEST_F(OrderRouting, AnOpeningBatchClearsTheFeedAndWaitsForDeals)
{
    orders(1, {order(1, kBuy, 9.99, 100)});
    deals(1, {cancelBuy(500, 100), deal(600, 601, 10.00, 100)});
    fillRows();
    orders(0, {order(2, kBuy, 10.00, 100), order(3, kSell, 10.01, 100)});
    EXPECT_EQ(queues(), "");
    EXPECT_EQ(cache(), "1: 2; 2: 3");
    EXPECT_EQ(dealt(), "");
    EXPECT_EQ(cancelled(), "");
    EXPECT_EQ(flags(), "010");
    EXPECT_TRUE(engine.at(0, Kel::OQT_BUY)) << "rows stay readable";
    EXPECT_TRUE(engine.m_depthData.load());
}

TEST_F(OrderRouting, AnOpeningBatchKeepsDealsThatCameFirstAndMatches)
{
    deals(0, {deal(2, 3, 10.00, 50), cancelBuy(9, 100)});
    orders(0, {order(2, kBuy, 10.00, 100), order(3, kSell, 10.01, 200), order(9, kBuy, 10.00, 100)});
    EXPECT_EQ(queues(), "1/1000: 2 0.5 part | 2/1001: 3 1.5 part");
    EXPECT_EQ(flags(), "001");
    EXPECT_TRUE(engine.m_bLevelArrived);
    EXPECT_TRUE(engine.m_bNeedCalc);
}

TEST_F(OrderRouting, AnOpeningBatchWithDealsFirstEmptiesQueueCacheAndRowsAndKeepsCancellations)
{
    orders(3, buyOrders(1, 101));
    fillRows();
    engine.m_bDealBack = true;
    engine.m_bNeedAppendOrder = false;
    engine.m_cancelOrders.insert(77);
    engine.m_dealCache[1][78] = 4;
    orders(0, {order(200, kSell, 10.05, 100)});
    EXPECT_EQ(queues(), "2/1005: 200 1 normal");
    EXPECT_EQ(cache(), "2: 200");
    EXPECT_EQ(cancelled(), "77");
    EXPECT_EQ(dealt(), "1: 78=4");
    EXPECT_FALSE(engine.at(0, Kel::OQT_BUY));
    EXPECT_TRUE(engine.m_tenPrices.empty());
    EXPECT_EQ(flags(), "001");
}

TEST_F(OrderRouting, AnEmptyOpeningBatchWithDealsFirstWaitsForDealsAndKeepsThem)
{
    deals(0, {deal(2, 3, 10.00, 50)});
    orders(0, {});
    EXPECT_EQ(flags(), "110");
    EXPECT_EQ(dealt(), "1: 2=0.5; 2: 3=0.5");
    deals(1, {deal(4, 5, 10.00, 100)});
    EXPECT_EQ(flags(), "101") << "the deal batch matches and leaves the deals back";
    orders(0, {order(2, kBuy, 10.00, 100)});
    EXPECT_EQ(flags(), "001");
    EXPECT_EQ(queues(), "1/1000: 2 0.5 part");
}

TEST_F(OrderRouting, ABatchOfAHundredGoesStraightIntoTheLists)
{
    for (const int status : {1, 2, 3}) {
        SCOPED_TRACE(status);
        engine.clear(true);
        engine.m_nOrderCount = 0;
        orders(status, buyOrders(1, 100));
        EXPECT_EQ(level(kBuy, 1000)->m_orders.size(), 100);
        EXPECT_EQ(cache(), "");
        EXPECT_EQ(flags(), "000");
        EXPECT_TRUE(engine.m_bNeedCalc);
        EXPECT_EQ(engine.m_nOrderCount, 100);
    }
}

TEST_F(OrderRouting, ABatchOfAHundredAndOneGoesIntoTheCache)
{
    for (const int status : {1, 2, 3}) {
        SCOPED_TRACE(status);
        engine.clear(true);
        engine.m_nOrderCount = 0;
        orders(status, buyOrders(1, 101));
        EXPECT_EQ(queues(), "");
        ASSERT_EQ(engine.m_orderCache.count(1), 1u);
        EXPECT_EQ(engine.m_orderCache.at(1).size(), 101u);
        EXPECT_EQ(flags(), "010");
        EXPECT_EQ(engine.m_nOrderCount, 101);
    }
}

TEST_F(OrderRouting, ALargeBatchAfterTheDealsMatchesAtOnce)
{
    deals(3, {deal(1, 0, 10.00, 100)});
    EXPECT_EQ(flags(), "100");
    orders(3, buyOrders(1, 101));
    EXPECT_EQ(level(kBuy, 1000)->m_orders.size(), 100);
    EXPECT_EQ(flags(), "001");
}

TEST_F(OrderRouting, ForcesAMatchByTheBatchThatBringsTheCountPastAHundred)
{
    orders(1, buyOrders(1, 100));
    EXPECT_FALSE(engine.isLevelDataBack());
    orders(1, {order(500, kSell, 10.05, 100)});
    EXPECT_TRUE(engine.isLevelDataBack());
    EXPECT_TRUE(engine.m_bLevelArrived);
    EXPECT_EQ(list(kSell, 1005), "500 1 unknown");
}

TEST_F(OrderRouting, MatchesBeforeTheBatchThatForcesItIsListed)
{
    orders(3, buyOrders(1, 101));
    EXPECT_EQ(flags(), "010");
    orders(1, {order(900, kBuy, 10.00, 100)});
    const auto listed = level(kBuy, 1000);
    ASSERT_TRUE(listed);
    ASSERT_EQ(listed->m_orders.size(), 102);
    EXPECT_EQ(listed->m_orders.last().m_entrustNo, 900);
    EXPECT_EQ(flags(), "011") << "the deals are still awaited";
}

TEST_F(OrderRouting, ForcesNoSecondMatch)
{
    orders(1, buyOrders(1, 100));
    orders(1, {order(500, kSell, 10.05, 100)});
    engine.m_bLevelArrived = false;
    orders(1, {order(501, kSell, 10.05, 100)});
    EXPECT_FALSE(engine.m_bLevelArrived);
}

TEST_F(OrderRouting, AnEmptyLiveBatchStillAsksForACalculation)
{
    orders(1, {});
    EXPECT_TRUE(engine.m_bNeedCalc);
    EXPECT_EQ(engine.m_lastFeedTime, 0);
}

TEST_F(OrderRouting, ALiveBatchSweepsTheCache)
{
    orders(3, buyOrders(1, 101));
    engine.m_bLevelDataBack = true;
    engine.m_dealCache[1][5] = 1;
    engine.m_nOrderCount = 999;
    orders(1, {order(900, kBuy, 10.00, 100)});
    EXPECT_EQ(engine.m_orderCache.at(1).count(5), 0u);
    EXPECT_EQ(engine.m_nOrderCount, 0);
}

TEST_F(OrderRouting, AnOtherStatusTakesTheTimeAndNothingElse)
{
    for (const int status : {-1, 4, 5, 100, -100}) {
        SCOPED_TRACE(status);
        orders(status, {atTime(7000 + status, order(40, kBuy, 10.00, 100))});
        EXPECT_EQ(queues(), "");
        EXPECT_EQ(cache(), "");
        EXPECT_EQ(flags(), "000");
        EXPECT_EQ(engine.m_nOrderCount, 0);
        EXPECT_FALSE(engine.m_bNeedCalc);
        EXPECT_EQ(engine.m_lastFeedTime, 7000 + status);
        EXPECT_EQ(engine.m_refreshClock, 7000 + status);
        EXPECT_EQ(engine.m_maxEntrustNo, 40);
    }
}

TEST_F(OrderRouting, TakesTheTimeOfTheLastRecordEvenIfItIsOlder)
{
    orders(1, {atTime(9000, order(1, kBuy, 10.00, 100)), atTime(8000, order(2, kBuy, 10.00, 100))});
    EXPECT_EQ(engine.m_lastFeedTime, 8000);
    EXPECT_EQ(engine.m_refreshClock, 8000);
    orders(1, {atTime(5000, order(3, kBuy, 10.00, 100))});
    EXPECT_EQ(engine.m_lastFeedTime, 5000);
}

TEST_F(OrderRouting, KeepsTheLargestNumberOfLastRecords)
{
    orders(1, {order(90, kBuy, 10.00, 100), order(40, kBuy, 10.00, 100)});
    EXPECT_EQ(engine.m_maxEntrustNo, 40);
    orders(1, {order(30, kBuy, 10.00, 100)});
    EXPECT_EQ(engine.m_maxEntrustNo, 40);
    orders(1, {order(std::int64_t{1} << 40, kBuy, 10.00, 100)});
    EXPECT_EQ(engine.m_maxEntrustNo, std::int64_t{1} << 40);
}

TEST_F(OrderRouting, LeavesTimesAndNumbersForALastRecordThatIsNullOrOfAnotherType)
{
    orders(1, {atTime(3000, order(1, kBuy, 10.00, 100))});
    orders(1, {atTime(4000, order(2, kBuy, 10.00, 100)), quoter::QuoterBasePtr()});
    EXPECT_EQ(engine.m_lastFeedTime, 3000);
    EXPECT_EQ(engine.m_maxEntrustNo, 1);
    orders(1, {atTime(4000, order(3, kBuy, 10.00, 100)), atTime(5000, deal(8, 9, 10.00, 100, 10))});
    EXPECT_EQ(engine.m_lastFeedTime, 3000);
    EXPECT_EQ(engine.m_refreshClock, 3000);
    EXPECT_EQ(engine.m_maxEntrustNo, 1);
    EXPECT_EQ(list(kBuy, 1000), "1 1 unknown; 2 1 unknown; 3 1 unknown");
}

TEST_F(OrderRouting, CountsEveryRecordOfABatch)
{
    orders(0, {order(1, kBuy, 10.00, 100), quoter::QuoterBasePtr(), deal(1, 2, 10.00, 100)});
    EXPECT_EQ(engine.m_nOrderCount, 3);
    orders(1, {quoter::QuoterBasePtr()});
    EXPECT_EQ(engine.m_nOrderCount, 4);
}
