#include "queue_engine/EngineFixture.h"

#include "platform/services/RPCEngine.h"

#include <QMetaMethod>

using namespace testing_support;

namespace {

struct FieldsProbe : EngineProbe
{
    using CDepthModelOrderQueue::m_spareDeals;
    using CDepthModelOrderQueue::m_spareInt;
    using CDepthModelOrderQueue::m_spareOrders;
    using CDepthModelOrderQueue::m_spareQueues;
    using CDepthModelOrderQueue::m_strand;
};

} // namespace

TEST(EngineFields, HaveTheirInitialValues)
{
    prepareServices();
    const FieldsProbe engine;
    EXPECT_FALSE(engine.m_stockDetail.load());
    EXPECT_FALSE(engine.m_bStockMarket);
    EXPECT_EQ(engine.m_strHeader, QString());
    EXPECT_FALSE(engine.m_bNeedRepaint);
    EXPECT_FALSE(engine.m_bLevelArrived);
    EXPECT_TRUE(engine.m_orderQueues.isEmpty());
    EXPECT_TRUE(engine.m_spareQueues.isEmpty());
    EXPECT_TRUE(engine.m_queueRows.empty());
    EXPECT_TRUE(engine.m_tenPrices.empty());
    EXPECT_FALSE(engine.m_depthData.load());
    EXPECT_EQ(engine.m_closeTime, -1);
    EXPECT_TRUE(engine.m_orderCache.empty());
    EXPECT_TRUE(engine.m_dealCache.empty());
    EXPECT_TRUE(engine.m_spareOrders.empty());
    EXPECT_TRUE(engine.m_spareDeals.empty());
    EXPECT_TRUE(engine.m_cancelOrders.empty());
    EXPECT_FALSE(engine.m_bDealBack);
    EXPECT_FALSE(engine.m_bNeedAppendOrder);
    EXPECT_FALSE(engine.m_bNeedCalc);
    EXPECT_EQ(engine.m_nOrderCount, 0);
    EXPECT_EQ(engine.m_nDealCount, 0);
    EXPECT_EQ(engine.m_spareInt, 1);
    EXPECT_EQ(engine.m_nRefreshCount, 0);
    EXPECT_EQ(engine.m_lastFeedTime, 0);
    EXPECT_EQ(engine.m_refreshClock, 0);
    EXPECT_EQ(engine.m_depthTime, 0);
    EXPECT_EQ(engine.m_priceTick, 0.001);
    EXPECT_FALSE(engine.m_bLevelDataBack);
    EXPECT_EQ(engine.m_nShangHaiCount, 0);
    EXPECT_EQ(engine.m_volumeUnit, 100.0);
    EXPECT_EQ(engine.m_levelTime, -1);
    EXPECT_EQ(engine.m_precision, 2);
    EXPECT_EQ(engine.m_maxEntrustNo, 0);
    EXPECT_EQ(engine.m_maxDealNo, 0);
    EXPECT_TRUE(engine.m_strand);
    EXPECT_EQ(engine.m_strand, net::RPCEngine::getStrand("modulegroup"));
}

TEST(EngineFields, OwnTwoTimersAsChildren)
{
    prepareServices();
    const EngineProbe engine;
    ASSERT_TRUE(engine.m_refreshTimer);
    ASSERT_TRUE(engine.m_shangHaiTimer);
    EXPECT_EQ(engine.m_refreshTimer->parent(), &engine);
    EXPECT_EQ(engine.m_shangHaiTimer->parent(), &engine);
}

TEST(EngineInterface, DerivesFromQObjectAlone)
{
    EXPECT_EQ(Kel::CDepthModelOrderQueue::staticMetaObject.superClass(), &QObject::staticMetaObject);
}

TEST(EngineInterface, HasOneSignalAndFourSlotsInOrder)
{
    const QMetaObject& meta = Kel::CDepthModelOrderQueue::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods << QString(meta.method(i).methodType() == QMetaMethod::Signal ? "signal " : "slot ") +
                       QString::fromLatin1(meta.method(i).methodSignature());
    EXPECT_EQ(methods.join(", ").toStdString(), "signal sigTimerControl(), slot slotTimeout(), slot "
                                                "slotShangHaiTimeout(), slot slotTimerControl(), slot "
                                                "slotRefreshTimer(int)");
}

TEST(EngineInterface, AnswersForAnEmptyEngine)
{
    prepareServices();
    EngineProbe engine;
    EXPECT_EQ(engine.size(), 10);
    EXPECT_FALSE(engine.isLevelDataBack());
    EXPECT_EQ(engine.getPrecision(), 2);
    EXPECT_FALSE(engine.checkCalcOrder());
    EXPECT_EQ(engine.headerText(), QString());
    for (const unsigned int index : {0u, 9u, 10u, 4294967295u}) {
        EXPECT_FALSE(engine.at(index, Kel::OQT_BUY)) << index;
        EXPECT_FALSE(engine.at(index, Kel::OQT_SELL)) << index;
    }
    engine.lockUi();
    engine.unLockUi();
}

TEST(EngineInterface, ReadingARowMakesNoEntry)
{
    prepareServices();
    const EngineProbe engine;
    EXPECT_FALSE(engine.at(0, Kel::OQT_CANCELED));
    EXPECT_TRUE(engine.m_queueRows.empty());
}

TEST(EngineInterface, NamesTheCancelledKindThree)
{
    EXPECT_EQ(Kel::DEAL_KIND_CANCEL, 3);
}

using EngineInterfaceOf = EngineTest;

TEST_F(EngineInterfaceOf, AStockGivesNullPastTheTenRows)
{
    snap("ask 10.02x5; bid 10.01x3; last 10.01");
    EXPECT_TRUE(engine.checkCalcOrder());
    EXPECT_TRUE(engine.at(9, Kel::OQT_BUY));
    EXPECT_TRUE(engine.at(9, Kel::OQT_SELL));
    EXPECT_FALSE(engine.at(10, Kel::OQT_BUY));
    EXPECT_FALSE(engine.at(4294967295u, Kel::OQT_SELL));
    EXPECT_FALSE(engine.at(0, Kel::OQT_NORMAL));
}

TEST_F(EngineInterfaceOf, AStockCalculatesOnlyWhenSomethingIsStale)
{
    snap("ask 10.02x5; bid 10.01x3; last 10.01");
    EXPECT_TRUE(engine.m_bNeedCalc);
    EXPECT_TRUE(engine.checkCalcOrder());
    EXPECT_FALSE(engine.m_bNeedCalc);
    EXPECT_FALSE(engine.checkCalcOrder());
}
