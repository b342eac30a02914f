#include "queue_engine/EngineFixture.h"

using namespace testing_support;

namespace {

class Clear : public EngineTest
{
protected:
    /// Something in every structure, every flag and every counter.
    void fill()
    {
        orders(3, buyOrders(1, 101));
        deals(3, {cancelBuy(500, 100), deal(600, 601, 10.00, 100, 77)});
        orders(1, {order(900, kSell, 10.02, 500)});
        quotes(-1, {atTime(2000, snapshot("bid 10.00x10; ask 10.02x5; last 10.00"))});
        engine.checkCalcOrder();
        engine.m_bDealBack = true;
        engine.m_bNeedAppendOrder = true;
        engine.m_bNeedCalc = true;
        engine.m_bLevelDataBack = true;
        engine.m_bLevelArrived = true;
        engine.m_bNeedRepaint = false;
        engine.m_levelTime = 34;
        engine.m_nShangHaiCount = 1;
        engine.m_nRefreshCount = 7;
        ASSERT_NE(cache(), "");
        ASSERT_NE(dealt(), "");
        ASSERT_NE(cancelled(), "");
        ASSERT_NE(queues(), "");
        ASSERT_NE(engine.m_maxEntrustNo, 0);
        ASSERT_NE(engine.m_maxDealNo, 0);
        ASSERT_NE(engine.headerText(), QString());
    }

    void expectFeedStateGone()
    {
        EXPECT_EQ(cache(), "");
        EXPECT_EQ(dealt(), "");
        EXPECT_EQ(cancelled(), "");
        EXPECT_TRUE(engine.m_orderQueues.isEmpty());
        EXPECT_EQ(flags(), "000");
        EXPECT_FALSE(engine.m_bNeedCalc);
        EXPECT_EQ(engine.m_levelTime, -1);
        EXPECT_EQ(engine.m_lastFeedTime, 0);
        EXPECT_EQ(engine.m_refreshClock, 0);
        EXPECT_EQ(engine.m_maxEntrustNo, 0);
        EXPECT_EQ(engine.m_maxDealNo, 0);
        EXPECT_EQ(engine.headerText(), QString());
        EXPECT_TRUE(engine.m_bNeedRepaint);
    }
};

} // namespace

TEST_F(Clear, OfTheDisplayToEmptiesRowsAndSnapshot)
{
    fill();
    engine.clear(true);
    expectFeedStateGone();
    EXPECT_TRUE(engine.m_queueRows.empty());
    EXPECT_TRUE(engine.m_tenPrices.empty());
    EXPECT_FALSE(engine.m_depthData.load());
    EXPECT_EQ(engine.m_depthTime, 0);
    for (unsigned int index = 0; index < 10; ++index) {
        EXPECT_FALSE(engine.at(index, Kel::OQT_BUY)) << index;
        EXPECT_FALSE(engine.at(index, Kel::OQT_SELL)) << index;
    }
}

TEST_F(Clear, OfTheFeedAloneKeepsRowsAndSnapshot)
{
    fill();
    const std::string before = row(0, Kel::OQT_SELL);
    engine.clear(false);
    expectFeedStateGone();
    EXPECT_EQ(row(0, Kel::OQT_SELL), before);
    EXPECT_TRUE(engine.m_depthData.load());
    EXPECT_EQ(engine.m_depthTime, 2000);
}

TEST_F(Clear, LeavesTheCountersOfSweepsAndTimersAlone)
{
    fill();
    const int orderCount = engine.m_nOrderCount;
    const int dealCount = engine.m_nDealCount;
    EXPECT_GT(orderCount, 0);
    EXPECT_GT(dealCount, 0);
    engine.clear(true);
    EXPECT_EQ(engine.m_nOrderCount, orderCount);
    EXPECT_EQ(engine.m_nDealCount, dealCount);
    EXPECT_EQ(engine.m_nShangHaiCount, 1);
    EXPECT_EQ(engine.m_nRefreshCount, 7);
}

TEST_F(Clear, LeavesTheInstrumentAndTheArrivalOfLevelsAlone)
{
    fill();
    engine.clear(true);
    EXPECT_TRUE(engine.m_bLevelArrived);
    EXPECT_TRUE(engine.instrument());
    EXPECT_EQ(engine.m_priceTick, 0.01);
    EXPECT_EQ(engine.m_volumeUnit, 100);
    EXPECT_EQ(engine.getPrecision(), 2);
}

TEST_F(Clear, LeavesARowThatAViewHoldsAsItIs)
{
    fill();
    const auto held = engine.at(0, Kel::OQT_SELL);
    const std::string before = levelText(*held);
    engine.clear(true);
    EXPECT_EQ(levelText(*held), before);
}

TEST_F(Clear, OfAnEmptyEngineAsksForARepaint)
{
    engine.m_bNeedRepaint = false;
    engine.clear(false);
    EXPECT_TRUE(engine.m_bNeedRepaint);
}

TEST_F(Clear, LetsTheFeedBeginAnew)
{
    fill();
    engine.clear(true);
    orders(1, {order(1, kBuy, 10.00, 1000)});
    EXPECT_EQ(queues(), "1/1000: 1 10 unknown");
}
