// Which colour key stands for what.

#include "QueueViewFixture.h"

#include <limits>

using namespace queue_view_rules;

namespace {

class Colors : public QueueViewTest
{
protected:
    void concise()
    {
        m_config.setConciseStyle(true);
        Kel::setConfig(&m_config);
        view.initDraw();
    }

    QColor back(Kel::EOrderQueueType type, bool isBuy)
    {
        Kel::COrderVol order;
        order.m_vol = 6000; // only the type counts
        order.m_type = type;
        return view.getBackColorByQueueTye(order, isBuy);
    }

    std::string keys() const
    {
        return (view.m_clrText + " " + view.m_clrVol + " " + view.m_clrDefault + " " + view.m_clrRise + " " +
                view.m_clrFall)
            .toStdString();
    }

    Kel::CConfig m_config;
};

} // namespace

TEST_F(Colors, OrdinaryStyleHasItsFamilyOfKeys)
{
    const char* ordinary = "kel_clr_deptch_order_queue_txt kel_clr_deptch_order_queue_vol "
                           "ic_clr_entrust_default_text ic_clr_entrust_text_rise ic_clr_entrust_text_fall";
    view.m_clrText = view.m_clrVol = view.m_clrDefault = view.m_clrRise = view.m_clrFall = "other";
    view.initDraw();
    EXPECT_EQ(keys(), ordinary) << "without an environment";
    Kel::setConfig(&m_config);
    view.m_clrText = view.m_clrVol = view.m_clrDefault = view.m_clrRise = view.m_clrFall = "other";
    view.initDraw();
    EXPECT_EQ(keys(), ordinary) << "with an environment that is not concise";
}

TEST_F(Colors, ConciseStyleHasItsFamilyOfKeys)
{
    concise();
    EXPECT_EQ(keys(), "ic_clr_concise_entrust_default_text ic_clr_concise_entrust_amount "
                      "ic_clr_concise_entrust_default_text ic_clr_concise_entrust_text_rise "
                      "ic_clr_concise_entrust_text_fall");
}

TEST_F(Colors, APanelMadeInConciseStyleHasItsKeys)
{
    m_config.setConciseStyle(true);
    Kel::setConfig(&m_config);
    const QueueViewProbe other;
    EXPECT_EQ(other.m_clrVol, "ic_clr_concise_entrust_amount");
}

TEST_F(Colors, AThemeChangeReadsTheKeysAndDrawsAndShowsThePicture)
{
    view.show();
    m_config.setConciseStyle(true);
    Kel::setConfig(&m_config);
    EXPECT_TRUE(redraws([this] { view.themeChanged(); }));
    EXPECT_EQ(view.m_clrVol, "ic_clr_concise_entrust_amount");
    EXPECT_TRUE(updates([this] { view.themeChanged(); }));
}

TEST_F(Colors, AThemeChangeGivesTheBarItsSheetAgain)
{
    const QString sheet = view.m_scrollBar->styleSheet();
    view.m_scrollBar->setStyleSheet("");
    view.themeChanged();
    EXPECT_EQ(view.m_scrollBar->styleSheet(), sheet);
    EXPECT_FALSE(sheet.isEmpty());
}

TEST_F(Colors, PricesOfASideHaveTheirKeys)
{
    EXPECT_EQ(view.getPriceColor(Kel::OQT_BUY), "kel_clr_deptch_order_queue_price_rise");
    EXPECT_EQ(view.getPriceColor(Kel::OQT_SELL), "kel_clr_deptch_order_queue_price_fall");
    concise();
    EXPECT_EQ(view.getPriceColor(Kel::OQT_BUY), "ic_clr_concise_entrust_text_rise");
    EXPECT_EQ(view.getPriceColor(Kel::OQT_SELL), "ic_clr_concise_entrust_text_fall");
}

TEST_F(Colors, APriceRisesOrFallsByMoreThanTheTolerance)
{
    const QColor rise = themeColor("ic_clr_entrust_text_rise");
    const QColor fall = themeColor("ic_clr_entrust_text_fall");
    const QColor none = themeColor("ic_clr_entrust_default_text");
    EXPECT_EQ(*view.getColor(0.000011, 0), rise);
    EXPECT_EQ(*view.getColor(0.00001, 0), none);
    EXPECT_EQ(*view.getColor(0, 0), none);
    EXPECT_EQ(*view.getColor(-0.00001, 0), none);
    EXPECT_EQ(*view.getColor(-0.000011, 0), fall);
    EXPECT_EQ(*view.getColor(10.02, 10.01), rise);
    EXPECT_EQ(*view.getColor(10.01, 10.02), fall);
}

TEST_F(Colors, ConciseStyleColoursPricesByItsOwnKeys)
{
    concise();
    EXPECT_EQ(*view.getColor(2, 1), themeColor("ic_clr_concise_entrust_text_rise"));
    EXPECT_EQ(*view.getColor(1, 2), themeColor("ic_clr_concise_entrust_text_fall"));
    EXPECT_EQ(*view.getColor(1, 1), themeColor("ic_clr_concise_entrust_default_text"));
}

TEST_F(Colors, CellsHaveTheirBackgroundByTypeAndSide)
{
    for (const bool isBuy : {false, true}) {
        EXPECT_EQ(back(Kel::OQT_CANCELED, isBuy), themeColor("ic_clr_depth_queue_cancel"));
        EXPECT_EQ(back(Kel::OQT_UNKNOWN, isBuy), themeColor("ic_clr_depth_queue_blue"));
        EXPECT_EQ(back(Kel::OQT_PART_DEALT, isBuy), themeColor("ic_clr_depth_queue_blue"));
        EXPECT_EQ(back(Kel::OQT_NORMAL, isBuy), themeColor("ic_clr_graph_kline_bg"));
        EXPECT_EQ(back(Kel::OQT_DEALT, isBuy), themeColor("ic_clr_graph_kline_bg"));
    }
    EXPECT_EQ(back(Kel::OQT_BIG, true), themeColor("ic_clr_depth_queue_big_order_buy"));
    EXPECT_EQ(back(Kel::OQT_BIG, false), themeColor("ic_clr_depth_queue_big_order_sell"));
    EXPECT_EQ(back(Kel::OQT_SUPER, true), themeColor("ic_clr_depth_queue_super_buy"));
    EXPECT_EQ(back(Kel::OQT_SUPER, false), themeColor("ic_clr_depth_queue_super_sell"));
}

TEST_F(Colors, MarksHaveTheirColoursByIndex)
{
    view.m_markColor = 3;
    EXPECT_EQ(*view.getVolumeColor(0), themeColor("ic_clr_mark_light_blue"));
    EXPECT_EQ(*view.getVolumeColor(1), themeColor("ic_clr_mark_purple"));
    EXPECT_EQ(*view.getVolumeColor(2), themeColor("ic_clr_mark_dark_blue"));
    EXPECT_EQ(*view.getVolumeColor(3), themeColor("ic_clr_mark_yellow"));
    EXPECT_EQ(*view.getVolumeColor(4), themeColor("ic_clr_entrust_default_text"));
    EXPECT_EQ(*view.getVolumeColor(-2), themeColor("ic_clr_entrust_default_text"));
}

TEST_F(Colors, IndexMinusOneIsTheColourOfTheMark)
{
    view.m_markColor = 2;
    EXPECT_EQ(*view.getVolumeColor(-1), themeColor("ic_clr_mark_dark_blue"));
    view.m_markColor = 9;
    EXPECT_EQ(*view.getVolumeColor(-1), themeColor("ic_clr_entrust_default_text"));
}

TEST_F(Colors, TheLastCloseStaysTheLargestNumberWithoutADateFunction)
{
    view.setStock("SH600519");
    EXPECT_EQ(view.getLastClosePrice(), std::numeric_limits<double>::max());
}

TEST_F(Colors, ALastCloseThatIsNotFiniteGivesWayToTheInstruments)
{
    view.setStock("SH600519");
    view.m_lastClose = 9.5;
    EXPECT_EQ(view.getLastClosePrice(), 9.5);
    for (const double value :
         {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()}) {
        view.m_lastClose = value;
        EXPECT_EQ(view.getLastClosePrice(), 10);
    }
}

TEST_F(Colors, WithoutAnInstrumentALastCloseThatIsNotFiniteIsZero)
{
    view.m_lastClose = std::numeric_limits<double>::infinity();
    EXPECT_EQ(view.getLastClosePrice(), 0);
}
