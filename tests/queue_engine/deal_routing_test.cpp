#include "queue_engine/EngineFixture.h"

using namespace testing_support;

using DealRouting = EngineTest;

TEST_F(DealRouting, DropsTheBatchOfAnotherInstrumentWhole)
{
    engine.doDealCallBack(0, 1, wrap({deal(1, 2, 10.00, 100, 5)}, "SZ", "600519"));
    engine.doDealCallBack(0, 0, wrap({deal(1, 2, 10.00, 100, 5)}, "SH", "600518"));
    EXPECT_EQ(dealt(), "");
    EXPECT_EQ(flags(), "000");
    EXPECT_EQ(engine.m_lastFeedTime, 0);
    EXPECT_EQ(engine.m_maxDealNo, 0);
    EXPECT_EQ(engine.m_nDealCount, 0);
}

TEST_F(DealRouting, SurvivesANullWrapper)
{
    for (const int status : {0, 1, 2, 3, 7})
        engine.doDealCallBack(0, status, {});
    EXPECT_EQ(dealt(), "");
    EXPECT_EQ(flags(), "000");
}

TEST_F(DealRouting, AnOpeningBatchClearsTheFeedAndWaitsForOrders)
{
    orders(1, {order(1, kBuy, 9.99, 100)});
    deals(1, {cancelBuy(500, 100)});
    deals(0, {deal(7, 8, 10.00, 200)});
    EXPECT_EQ(queues(), "");
    EXPECT_EQ(dealt(), "1: 7=2; 2: 8=2");
    EXPECT_EQ(cancelled(), "");
    EXPECT_EQ(flags(), "100");
}

TEST_F(DealRouting, AnOpeningBatchKeepsOrdersThatCameFirstAndMatches)
{
    orders(0, {order(1, kBuy, 10.00, 500), order(2, kSell, 10.01, 300)});
    snap("ask 10.02x5; bid 10.01x3; last 10.01");
    engine.calcOrder();
    engine.m_cancelOrders.insert(77);
    engine.m_dealCache[1][78] = 4;
    put(kBuy, 990, "buy 9.90; 5 5 normal");
    deals(0, {deal(1, 0, 10.00, 200)});
    EXPECT_EQ(queues(), "1/1000: 1 3 part | 2/1001: 2 3 normal");
    EXPECT_EQ(cancelled(), "77") << "cancellations stay";
    EXPECT_EQ(dealt(), "") << "deals from before are gone";
    EXPECT_FALSE(engine.at(0, Kel::OQT_BUY));
    EXPECT_TRUE(engine.m_tenPrices.empty());
    EXPECT_EQ(flags(), "101") << "the deals stay back until an order batch";
}

TEST_F(DealRouting, LiveBatchesOnlyFillTheCache)
{
    orders(1, {order(1, kBuy, 10.00, 500)});
    engine.m_bNeedCalc = false;
    for (const int status : {1, 2})
        deals(status, {deal(1, 2, 10.00, 100)});
    EXPECT_EQ(dealt(), "1: 1=2; 2: 2=2");
    EXPECT_EQ(list(kBuy, 1000), "1 5 unknown");
    EXPECT_EQ(flags(), "000");
    EXPECT_FALSE(engine.m_bNeedCalc);
}

TEST_F(DealRouting, ALargeBatchOpensTheDayAndKeepsWhatThereIs)
{
    orders(1, {order(1, kBuy, 10.00, 500)});
    deals(1, {deal(1, 2, 10.00, 100)});
    deals(3, {deal(1, 3, 10.00, 100)});
    EXPECT_EQ(dealt(), "1: 1=2; 2: 2=1 3=1");
    EXPECT_EQ(queues(), "1/1000: 1 5 unknown");
    EXPECT_EQ(flags(), "100");
}

TEST_F(DealRouting, AnyDealBatchMatchesOrdersThatWait)
{
    for (const int status : {1, 2, 3}) {
        SCOPED_TRACE(status);
        engine.clear(true);
        orders(0, {order(1, kBuy, 10.00, 500)});
        EXPECT_EQ(flags(), "010");
        EXPECT_EQ(queues(), "");
        deals(status, {});
        EXPECT_EQ(flags(), status == 3 ? "101" : "001");
        EXPECT_EQ(queues(), "1/1000: 1 5 normal");
    }
}

TEST_F(DealRouting, AnOtherStatusTakesTheTimeAndNothingElse)
{
    orders(0, {order(1, kBuy, 10.00, 500)});
    for (const int status : {-1, 4, 5, 100}) {
        SCOPED_TRACE(status);
        deals(status, {atTime(7000 + status, deal(1, 2, 10.00, 100, 40))});
        EXPECT_EQ(dealt(), "");
        EXPECT_EQ(queues(), "");
        EXPECT_EQ(flags(), "010");
        EXPECT_EQ(engine.m_nDealCount, 0);
        EXPECT_EQ(engine.m_lastFeedTime, 7000 + status);
        EXPECT_EQ(engine.m_refreshClock, 7000 + status);
        EXPECT_EQ(engine.m_maxDealNo, 40);
    }
}

TEST_F(DealRouting, TakesTheTimeOfTheLastRecordAndTheLargestNumberOfLastRecords)
{
    deals(1, {atTime(9000, deal(1, 2, 10.00, 100, 90)), atTime(8000, deal(1, 2, 10.00, 100, 40))});
    EXPECT_EQ(engine.m_lastFeedTime, 8000);
    EXPECT_EQ(engine.m_refreshClock, 8000);
    EXPECT_EQ(engine.m_maxDealNo, 40);
    deals(1, {atTime(9000, deal(1, 2, 10.00, 100, 30))});
    EXPECT_EQ(engine.m_lastFeedTime, 9000);
    EXPECT_EQ(engine.m_maxDealNo, 40);
}

TEST_F(DealRouting, LeavesTimesAndNumbersForALastRecordThatIsNullOrOfAnotherType)
{
    deals(1, {atTime(3000, deal(1, 2, 10.00, 100, 5))});
    deals(1, {atTime(4000, deal(1, 2, 10.00, 100, 6)), quoter::QuoterBasePtr()});
    deals(1, {atTime(4000, deal(1, 2, 10.00, 100, 7)), atTime(5000, order(9, kBuy, 10.00, 100))});
    EXPECT_EQ(engine.m_lastFeedTime, 3000);
    EXPECT_EQ(engine.m_refreshClock, 3000);
    EXPECT_EQ(engine.m_maxDealNo, 5);
    EXPECT_EQ(dealt(), "1: 1=3; 2: 2=3");
}

TEST_F(DealRouting, CountsEveryRecordOfABatch)
{
    for (const int status : {0, 1, 2, 3})
        deals(status, {deal(1, 2, 10.00, 100), quoter::QuoterBasePtr()});
    EXPECT_EQ(engine.m_nDealCount, 8);
}

TEST_F(DealRouting, DoesNotMatchDealsThatCameFirstByThemselves)
{
    deals(0, {deal(1, 2, 10.00, 100)});
    deals(1, {deal(3, 4, 10.00, 100)});
    EXPECT_EQ(flags(), "100");
    orders(1, {order(9, kBuy, 10.00, 100)});
    EXPECT_EQ(flags(), "100") << "a small order batch does not end the wait";
}
