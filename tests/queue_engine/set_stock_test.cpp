#include "queue_engine/EngineFixture.h"

#include "platform/services/CFormulaManager.h"

#include <algorithm>

using namespace testing_support;

using SetStock = EngineTest;

TEST_F(SetStock, TakesTickAndPrecisionOfTheInstrument)
{
    EXPECT_EQ(engine.m_priceTick, 0.01);
    EXPECT_EQ(engine.getPrecision(), 2);
    engine.setStock("SH510300");
    EXPECT_EQ(engine.m_priceTick, 0.001);
    EXPECT_EQ(engine.getPrecision(), 3);
    EXPECT_EQ(engine.instrument()->code, "510300");
}

TEST_F(SetStock, SurvivesAnInstrumentWithoutATick)
{
    addInstrument("SH", "600000", 0, nelservice::EInstrumentKind::Stock);
    engine.setStock("SH600000");
    EXPECT_EQ(engine.m_priceTick, 0.01);
    EXPECT_EQ(engine.getPrecision(), 2);
}

TEST_F(SetStock, TakesTheVolumeUnitOfTheKindOfInstrument)
{
    const struct
    {
        const char* key;
        double unit;
    } rows[] = {{"SH600519", 100}, {"SZ000001", 100}, {"SH510300", 100}, {"SH113050", 10},
                {"SH204001", 10},  {"SZ131810", 10},  {"SZ300274", 100}};
    for (const auto& expected : rows) {
        engine.setStock(expected.key);
        EXPECT_EQ(engine.m_volumeUnit, expected.unit) << expected.key;
    }
}

TEST_F(SetStock, KnowsTheShanghaiAndShenzhenMarkets)
{
    EXPECT_TRUE(engine.m_bStockMarket);
    engine.setStock("HK00700");
    EXPECT_FALSE(engine.m_bStockMarket);
    engine.setStock("SZ000001");
    EXPECT_TRUE(engine.m_bStockMarket);
}

TEST_F(SetStock, TakesTheLargestCloseTimeOfAStockOnly)
{
    std::vector<std::pair<std::int64_t, std::int64_t>> sessions;
    utils::CSingletonT<Kel::CFormulaManager>::instance().getOpenCloseTime(sessions, "SH", "600519");
    ASSERT_FALSE(sessions.empty());
    std::int64_t last = -1;
    for (const auto& session : sessions)
        last = std::max(last, session.second);
    EXPECT_EQ(engine.m_closeTime, last);
    engine.setStock("SH510300");
    EXPECT_EQ(engine.m_closeTime, -1);
}

TEST_F(SetStock, OfAnUnknownCodeLeavesNoInstrumentAndTheOldRowsReadable)
{
    orders(1, {order(1, kBuy, 10.00, 1000)});
    snap("bid 10.00x10; ask 10.01x1; last 10.00");
    engine.checkCalcOrder();
    const std::string before = row(0, Kel::OQT_BUY);
    const QString header = engine.headerText();
    engine.m_bNeedRepaint = false;

    engine.setStock("SH999999");
    EXPECT_FALSE(engine.instrument());
    EXPECT_EQ(row(0, Kel::OQT_BUY), before);
    EXPECT_EQ(engine.headerText(), header);
    EXPECT_EQ(list(kBuy, 1000), "1 10 unknown");
    EXPECT_FALSE(engine.m_bNeedRepaint);
}

TEST_F(SetStock, OfAnUnknownCodeMakesAllFeedCallsDoNothing)
{
    engine.setStock("SH999999");
    engine.m_bNeedCalc = false;
    orders(1, {atTime(5000, order(1, kBuy, 10.00, 1000))});
    orders(0, {atTime(5000, order(2, kBuy, 10.00, 1000))});
    deals(0, {atTime(5000, deal(1, 2, 10.00, 100, 7))});
    snap("bid 10.00x10");
    quotes(1, {levelRecord("bid 10.00: 5")});
    engine.quoterCallBackThread({levelRecord("bid 10.00: 5")}, 0, 1);
    engine.slotTimeout();
    engine.slotShangHaiTimeout();
    EXPECT_EQ(queues(), "");
    EXPECT_EQ(cache(), "");
    EXPECT_EQ(dealt(), "");
    EXPECT_EQ(flags(), "000");
    EXPECT_FALSE(engine.m_bNeedCalc);
    EXPECT_FALSE(engine.m_depthData.load());
    EXPECT_EQ(engine.m_lastFeedTime, 0);
    EXPECT_EQ(engine.m_maxEntrustNo, 0);
    EXPECT_EQ(engine.m_maxDealNo, 0);
    EXPECT_EQ(engine.m_nOrderCount, 0);
}

TEST_F(SetStock, LeavesTheQueueOfTheInstrumentBefore)
{
    orders(1, {order(1, kBuy, 10.00, 1000)});
    engine.setStock("SZ000001");
    EXPECT_EQ(queues(), "1/1000: 1 10 unknown");
}

namespace {

class StandDown : public EngineTest
{
protected:
    void fill()
    {
        orders(3, buyOrders(1, 101));
        deals(1, {cancelBuy(500, 100)});
        snap("bid 10.00x10; ask 10.01x1; last 10.00");
        engine.checkCalcOrder();
        engine.m_bNeedRepaint = false;
    }

    void expectEmpty()
    {
        EXPECT_EQ(queues(), "");
        EXPECT_EQ(cache(), "");
        EXPECT_EQ(dealt(), "");
        EXPECT_EQ(cancelled(), "");
        EXPECT_FALSE(engine.at(0, Kel::OQT_BUY));
        EXPECT_FALSE(engine.m_depthData.load());
        EXPECT_EQ(engine.headerText(), QString());
        EXPECT_TRUE(engine.m_bNeedRepaint);
    }
};

} // namespace

TEST_F(StandDown, OfAnIndexEmptiesEverythingAndAsksForARepaint)
{
    for (const char* const key : {"SH000001", "SZ399001"}) {
        SCOPED_TRACE(key);
        engine.setStock("SH600519");
        fill();
        engine.setStock(key);
        expectEmpty();
        EXPECT_TRUE(engine.instrument());
    }
}

TEST_F(StandDown, OfAnInstrumentWithQuoteStatusOneEmptiesEverythingAndAsksForARepaint)
{
    fill();
    setQuoteStatus(1);
    engine.setStock("SH600519");
    expectEmpty();
}

TEST_F(StandDown, EndsSetStockBeforeMarketAndTickAreTaken)
{
    engine.setStock("SH510300");
    engine.setStock("SZ399001");
    EXPECT_EQ(engine.m_priceTick, 0.001);
    EXPECT_EQ(engine.getPrecision(), 3);
}

TEST_F(StandDown, IsNotCausedByAnyOtherStatus)
{
    for (const int status : {0, 2, -1, 100}) {
        SCOPED_TRACE(status);
        fill();
        setQuoteStatus(status);
        engine.setStock("SH600519");
        EXPECT_NE(queues(), "");
        engine.clear(true);
    }
}

TEST_F(StandDown, IsTestedAgainByEveryQuoteCall)
{
    snap("bid 10.00x10", 1000);
    engine.m_bNeedCalc = false;
    setQuoteStatus(1);
    snap("bid 10.01x20", 2000);
    quotes(1, {levelRecord("bid 10.00: 5")});
    EXPECT_EQ(engine.m_depthTime, 1000);
    EXPECT_FALSE(engine.m_bNeedCalc);
    EXPECT_EQ(queues(), "");
    setQuoteStatus(0);
    snap("bid 10.01x20", 2000);
    EXPECT_EQ(engine.m_depthTime, 2000);
}

TEST_F(StandDown, OfAnIndexIgnoresItsQuotes)
{
    engine.setStock("SH000001");
    snap("bid 10.00x10", 3000);
    quotes(2, {levelRecord("bid 10.00: 5")});
    EXPECT_FALSE(engine.m_depthData.load());
    EXPECT_EQ(queues(), "");
}

TEST_F(StandDown, IsNotTestedByOrdersAndDeals)
{
    setQuoteStatus(1);
    orders(1, {order(1, kBuy, 10.00, 1000)});
    deals(1, {deal(1, 0, 10.00, 300)});
    EXPECT_EQ(queues(), "1/1000: 1 10 unknown");
    EXPECT_EQ(dealt(), "1: 1=3");
}
