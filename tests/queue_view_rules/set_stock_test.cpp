// Choosing the instrument.

#include "QueueViewFixture.h"

#include <limits>

using namespace queue_view_rules;

namespace {

class SetStock : public QueueViewTest
{
protected:
    static Kel::CStockManager& stocks() { return utils::CSingletonT<Kel::CStockManager>::instance(); }
};

} // namespace

TEST_F(SetStock, GivesTheInstrumentToPanelAndEngine)
{
    view.setStock("SH600519");
    ASSERT_TRUE(view.m_detail);
    EXPECT_EQ(view.m_detail->code, "600519");
    ASSERT_TRUE(view.m_model.instrument());
    EXPECT_EQ(view.m_model.instrument()->code, "600519");
}

TEST_F(SetStock, OfAnUnknownInstrumentChangesNothing)
{
    view.setStock("SH600519");
    view.setStyle(3);
    view.m_subscribeId = 12345;
    int calls = 0;
    view.setCurrentTradeDateFunc([&calls] { return ++calls; });
    view.setStock("SH999999");
    ASSERT_TRUE(view.m_detail);
    EXPECT_EQ(view.m_detail->code, "600519");
    ASSERT_TRUE(view.m_model.instrument());
    EXPECT_EQ(view.m_model.instrument()->code, "600519");
    EXPECT_FALSE(view.m_needCenter);
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(view.m_subscribeId, 12345);
}

TEST_F(SetStock, WantsTheCentreInHorizontalStyleOrAFullQueue)
{
    view.setStock("SH600519");
    EXPECT_FALSE(view.m_needCenter);
    view.setStyle(3);
    view.setStock("SH600519");
    EXPECT_TRUE(view.m_needCenter);
    view.m_needCenter = false;
    view.setStyle(5);
    view.setStock("SH600519");
    EXPECT_FALSE(view.m_needCenter);
    view.setQueueFull(true);
    view.setStock("SH600519");
    EXPECT_TRUE(view.m_needCenter);
}

TEST_F(SetStock, LeavesAWishForTheCentreStanding)
{
    view.m_needCenter = true;
    view.setStock("SH600519");
    EXPECT_TRUE(view.m_needCenter);
}

TEST_F(SetStock, TakesTheLastCloseOfTheTradeDate)
{
    stocks().setLastClose("SH600519", 20230201, 12.34);
    view.setCurrentTradeDateFunc([] { return 20230201; });
    view.setStock("SH600519");
    EXPECT_EQ(view.m_lastClose, 12.34);
    EXPECT_EQ(view.getLastClosePrice(), 12.34);
    view.setCurrentTradeDateFunc([] { return 20230202; });
    view.setStock("SH600519");
    EXPECT_EQ(view.m_lastClose, 10);
}

TEST_F(SetStock, WithoutADateFunctionKeepsTheLastClose)
{
    view.setStock("SH600519");
    EXPECT_EQ(view.m_lastClose, std::numeric_limits<double>::max());
    view.m_lastClose = 7;
    view.setStock("SZ000001");
    EXPECT_EQ(view.m_lastClose, 7);
}

TEST_F(SetStock, ForgetsTheRequestOfTheInstrumentBefore)
{
    view.setStock("SH600519");
    view.m_subscribeId = 12345;
    view.setStock("SH600519");
    EXPECT_EQ(view.m_subscribeId, -1);
}

TEST_F(SetStock, LeavesTheRowsOfTheInstrumentBefore)
{
    setPlainRows(3);
    view.setStock("SH600519");
    EXPECT_TRUE(view.m_model.at(0, Kel::OQT_SELL));
    EXPECT_FALSE(redraws([this] { view.setStock("SZ000001"); }));
    EXPECT_TRUE(view.m_model.at(0, Kel::OQT_SELL));
}
