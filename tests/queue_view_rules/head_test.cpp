// The head of a level: name, price, volume and count before its orders.

#include "QueueViewFixture.h"

using namespace queue_view_rules;

namespace {

const QString kSellPrice = "kel_clr_deptch_order_queue_price_fall";
const QString kBuyPrice = "kel_clr_deptch_order_queue_price_rise";
const QString kText = "kel_clr_deptch_order_queue_txt";
const QString kVolume = "kel_clr_deptch_order_queue_vol";
const QString kTextFont = "ic_fnt_index_modulegroup_entruststatus_text";
const QString kVolumeFont = "ic_fnt_index_modulegroup_transaction";

/// A panel of 600 x 400.
class LevelHead : public QueueViewTest
{
protected:
    LevelHead() { layOut(600, 400); }

    /// Horizontal style with the centre at 200: the first sell row at 185, the first buy row at 205.
    void horizontal()
    {
        view.setStyle(3);
        view.m_centerY = 200;
    }
};

} // namespace

TEST_F(LevelHead, ALevelThatIsMissingOrHasNoPriceIsNotDrawn)
{
    for (const int style : {2, 3, 4, 5}) {
        view.setStyle(style);
        EXPECT_TRUE(cells(LevelPtr(), 4).empty());
        EXPECT_FALSE(counted);
        const Drawing drawing = cells("sell 0 level=1; 1 10 normal", 4);
        EXPECT_FALSE(counted);
        EXPECT_EQ(texts(drawing), "");
    }
}

TEST_F(LevelHead, OnlyTheFirstLevelIsDrawnUnderItsSummaryUnlessFull)
{
    view.setStyle(2);
    EXPECT_EQ(texts(cells("sell 10.01 level=2; 1 10 normal", 4)), "");
    EXPECT_FALSE(counted);
    EXPECT_EQ(texts(cells("sell 10.01 level=1; 1 10 normal", 4)), "10");
    EXPECT_TRUE(counted);
    view.setQueueFull(true);
    EXPECT_EQ(texts(cells("sell 10.01 level=2; 1 10 normal", 4)), "10");
    EXPECT_TRUE(counted);
}

TEST_F(LevelHead, ALevelOutsideTheTenCountsUnderItsSummaryAndDrawsNothing)
{
    view.setStyle(2);
    EXPECT_EQ(texts(cells("sell 10.01 level=0; 1 10 normal", 4)), "");
    EXPECT_TRUE(counted);
}

TEST_F(LevelHead, ALevelThatListsNoOrdersIsItsHeadAlone)
{
    view.setStyle(5);
    EXPECT_EQ(texts(cells("sell 10.02 level=2; 1 10 normal", 4)), "10.02");
    EXPECT_TRUE(counted);
    view.setStyle(4);
    EXPECT_EQ(countOf(cells("sell 10.02 level=2 levelVol=77; 1 10 normal", 4), "10"), 0);
    EXPECT_TRUE(counted);
}

TEST_F(LevelHead, AnEmptyLevelIsItsHeadAlone)
{
    view.setStyle(5);
    EXPECT_EQ(texts(cells("sell 10.01 level=1", 4)), "10.01");
    EXPECT_TRUE(counted);
    view.setStyle(2);
    EXPECT_EQ(texts(cells("sell 10.01 level=1", 4)), "");
    EXPECT_TRUE(counted);
}

TEST_F(LevelHead, VerticalStyleShowsNamePriceAndVolume)
{
    view.setStyle(4);
    const Drawing drawing = cells("sell 10.01 level=1 levelVol=1234.9 count=7; 1 10 normal", 2);
    EXPECT_TRUE(shows(drawing, "卖一", QRect(5, 5, 65, 20), kCentre, kSellPrice, kTextFont));
    EXPECT_TRUE(shows(drawing, "10.01", QRect(70, 5, 65, 20), kRight, kSellPrice, kVolumeFont));
    EXPECT_TRUE(shows(drawing, "1234", QRect(135, 5, 60, 20), kRight, kVolume, kVolumeFont));
    EXPECT_EQ(countOf(drawing, "笔"), 0);
    EXPECT_EQ(grid(drawing, QRect(225, 5, 50, 20), 1, 1), "10"); // 5 + 5 + 3 * 65 + 20
}

TEST_F(LevelHead, VerticalStyleBeginsTheBuySideInTheMiddle)
{
    view.setStyle(4);
    const Drawing drawing = cells("buy 10.00 level=3 levelVol=1234; 1 10 normal", 2, 4);
    EXPECT_TRUE(shows(drawing, "买三", QRect(305, 85, 65, 20), kCentre, kBuyPrice, kTextFont));
    EXPECT_TRUE(shows(drawing, "10.00", QRect(370, 85, 65, 20), kRight, kBuyPrice, kVolumeFont));
    EXPECT_TRUE(shows(drawing, "1234", QRect(435, 85, 60, 20), kRight, kVolume, kVolumeFont));
    view.setQueueFull(true);
    EXPECT_EQ(grid(cells("buy 10.00 level=3; 1 10 normal", 2, 4), QRect(525, 85, 50, 20), 1, 1), "10");
}

TEST_F(LevelHead, AnOddWidthIsHalvedDown)
{
    layOut(601, 400);
    view.setStyle(5);
    EXPECT_EQ(grid(cells("buy 10.00 level=1; 1 10 normal", 2), QRect(370, 5, 50, 20), 1, 1), "10");
}

TEST_F(LevelHead, HorizontalStyleShowsTheCountAsWell)
{
    horizontal();
    const Drawing drawing = cells("sell 10.01 level=10 levelVol=1234.9 count=7; 1 10 normal", 2);
    EXPECT_TRUE(shows(drawing, "卖十", QRect(5, 185, 65, 20), kCentre, kSellPrice, kTextFont));
    EXPECT_TRUE(shows(drawing, "10.01", QRect(70, 185, 65, 20), kRight, kSellPrice, kVolumeFont));
    EXPECT_TRUE(shows(drawing, "1234", QRect(135, 185, 60, 20), kRight, kVolume, kVolumeFont));
    EXPECT_TRUE(shows(drawing, "笔", QRect(195, 185, 50, 20), kRight, kText, kTextFont));
    EXPECT_TRUE(shows(drawing, "7", QRect(195, 185, 50 - textWidth("笔", kTextFont), 20), kRight, kText,
                      kVolumeFont));
    EXPECT_EQ(grid(drawing, QRect(290, 185, 50, 20), 1, 1), "10"); // 15 + 5 + 4 * 65 + 10
}

TEST_F(LevelHead, HorizontalStyleShowsBuysFromTheLeftAsWell)
{
    horizontal();
    const Drawing drawing = cells("buy 10.00 level=1 levelVol=9; 1 10 normal", 2);
    EXPECT_TRUE(shows(drawing, "买一", QRect(5, 205, 65, 20), kCentre, kBuyPrice, kTextFont));
    EXPECT_TRUE(shows(drawing, "10.00", QRect(70, 205, 65, 20), kRight, kBuyPrice, kVolumeFont));
    EXPECT_EQ(grid(drawing, QRect(290, 205, 50, 20), 1, 1), "10");
}

TEST_F(LevelHead, HorizontalStyleWithoutACountLeavesTheOrdersTenFurtherLeft)
{
    horizontal();
    for (const char* count : {"0", "-3"}) {
        const Drawing drawing = cells(std::string("sell 10.01 level=1 count=") + count + "; 1 10 normal", 2);
        EXPECT_EQ(countOf(drawing, "笔"), 0);
        EXPECT_EQ(grid(drawing, QRect(280, 185, 50, 20), 1, 1), "10");
    }
}

TEST_F(LevelHead, ListStyleShowsThePriceInReversedColours)
{
    view.setStyle(5);
    const Drawing drawing = cells("sell 10.01 level=1 levelVol=77 count=7; 1 10 normal", 4);
    EXPECT_TRUE(filled(drawing, QRect(5, 6, 65, 18), kSellPrice));
    EXPECT_TRUE(shows(drawing, "10.01", QRect(5, 5, 65, 20), kRight,
                      "kel_clr_depth_module_group_base_widget_bg", kVolumeFont));
    EXPECT_EQ(texts(drawing), "10.01 10");
    EXPECT_TRUE(shows(drawing, "10", QRect(70, 5, 50, 20), kRight, kSellPrice, kVolumeFont));
    EXPECT_TRUE(filled(cells("buy 10.00 level=1", 4), QRect(305, 6, 65, 18), kBuyPrice));
}

TEST_F(LevelHead, ListStyleFillsBehindThePrice)
{
    view.setStyle(5);
    const Drawing drawing = cells("sell 10.01 level=1", 4);
    std::size_t fill = drawing.size();
    std::size_t price = 0;
    for (std::size_t i = 0; i < drawing.size(); ++i) {
        if (drawing[i].kind == PaintCommand::eFill)
            fill = i;
        if (drawing[i].kind == PaintCommand::eText)
            price = i;
    }
    EXPECT_LT(fill, price);
}

TEST_F(LevelHead, FirstLevelDetailHasNoHead)
{
    view.setStyle(2);
    const Drawing drawing = cells("buy 10.00 level=1 levelVol=77 count=7; 1 10 normal", 4, 1);
    EXPECT_EQ(texts(drawing), "10");
    EXPECT_TRUE(shows(drawing, "10", QRect(305, 30, 50, 20), kRight, kBuyPrice, kVolumeFont));
    EXPECT_TRUE(
        shows(cells("sell 10.01 level=1; 1 10 normal", 4), "10", QRect(5, 10, 50, 20), kRight, kSellPrice));
}

TEST_F(LevelHead, OtherStylesReverseNoPrice)
{
    view.setStyle(4);
    EXPECT_FALSE(filledAny(cells("sell 10.01 level=2", 4), QRect(70, 6, 65, 18)));
    horizontal();
    EXPECT_FALSE(filledAny(cells("sell 10.01 level=2", 4), QRect(70, 186, 65, 18)));
}

TEST_F(LevelHead, ConciseStyleHasItsPriceColours)
{
    Kel::CConfig config;
    config.setConciseStyle(true);
    Kel::setConfig(&config);
    view.initDraw();
    view.setStyle(4);
    EXPECT_TRUE(shows(cells("sell 10.01 level=1", 4), "10.01", QRect(70, 5, 65, 20), kRight,
                      "ic_clr_concise_entrust_text_fall"));
    EXPECT_TRUE(shows(cells("buy 10.01 level=1 levelVol=3", 4), "10.01", QRect(370, 5, 65, 20), kRight,
                      "ic_clr_concise_entrust_text_rise"));
    EXPECT_TRUE(shows(cells("buy 10.01 level=1 levelVol=3", 4), "3", QRect(435, 5, 60, 20), kRight,
                      "ic_clr_concise_entrust_amount"));
    Kel::setConfig(nullptr);
}

TEST_F(LevelHead, TheEdgesOfTheHeightAreInView)
{
    view.setStyle(5);
    const char* level = "sell 10.02 level=2";
    view.m_scrollTop = 5; // the head at 0
    EXPECT_EQ(texts(cells(level, 4)), "10.02");
    view.m_scrollTop = 6; // at -1
    EXPECT_EQ(texts(cells(level, 4)), "");
    EXPECT_TRUE(counted);
    view.m_scrollTop = -395; // at 400, the height
    EXPECT_EQ(texts(cells(level, 4)), "10.02");
    view.m_scrollTop = -396;
    EXPECT_EQ(texts(cells(level, 4)), "");
    EXPECT_TRUE(counted);
}

TEST_F(LevelHead, OutOfViewItLeavesTheOrdersWhereTheyBegin)
{
    // One cell a row; the head at -25, the third order in view.
    const std::string level = levelWith("sell 10.01 level=1 count=3", 3, 10);
    view.m_scrollTop = 30;
    view.setStyle(4);
    EXPECT_EQ(grid(cells(level, 1), QRect(220, 15, 50, 20), 1, 1), "10");
    view.setStyle(5);
    EXPECT_EQ(grid(cells(level, 1), QRect(70, 15, 50, 20), 1, 1), "10");
    view.setStyle(3);
    view.m_centerY = 0; // buys at -25, -5, 15
    EXPECT_EQ(grid(cells(levelWith("buy 10 level=1 count=3", 3, 10), 1), QRect(275, 15, 50, 20), 1, 1), "10");
}

TEST_F(LevelHead, PricesHaveTheDecimalsOfTheInstrument)
{
    view.setStock("SH510300");
    view.setStyle(5);
    EXPECT_EQ(texts(cells("sell 4.1 level=2", 4)), "4.100");
}
