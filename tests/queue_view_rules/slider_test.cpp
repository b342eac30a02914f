// Moves of the slider by hand and wheel, and the layout.

#include "ScrollFixture.h"

using namespace queue_view_rules;

using Slider = ScrollTest;

// ---------------------------------------------------------------------------------------- event 15

TEST_F(Slider, AMoveByHandIsKeptAsDistanceFromTheCentre)
{
    horizontal();
    ASSERT_EQ(view.m_scrollTop, 100);
    setSlider(130);
    EXPECT_EQ(view.m_scrollTop, 130);
    EXPECT_EQ(view.m_centerOffset, -30);
    setSlider(90);
    EXPECT_EQ(view.m_centerOffset, 10);
}

TEST_F(Slider, AMoveAwayFromTheTopAddsNothing)
{
    horizontal();
    setSlider(0);
    ASSERT_EQ(view.m_scrollTop, 0);
    view.m_centerOffset = 5;
    setSlider(40);
    EXPECT_EQ(view.m_scrollTop, 40);
    EXPECT_EQ(view.m_centerOffset, 5);
}

TEST_F(Slider, AMoveInAnotherStyleAddsNothing)
{
    list();
    setSlider(30);
    setSlider(50);
    EXPECT_EQ(view.m_scrollTop, 50);
    EXPECT_EQ(view.m_centerOffset, 0);
}

TEST_F(Slider, AMoveThatIsNotTheUsersAddsNothing)
{
    horizontal();
    view.m_userScroll = false;
    setSlider(130);
    EXPECT_EQ(view.m_scrollTop, 130);
    EXPECT_EQ(view.m_centerOffset, 0);
}

TEST_F(Slider, AMoveDrawsAndShowsANewPicture)
{
    view.show();
    list();
    EXPECT_TRUE(redraws([this] { setSlider(30); }));
    EXPECT_TRUE(updates([this] { setSlider(31); }));
}

TEST_F(Slider, RowsFollowTheEventAndNotTheSlider)
{
    horizontal();
    const int before = view.getCurTop(0, Kel::OQT_BUY);
    view.m_scrollBar->blockSignals(true);
    setSlider(150);
    view.m_scrollBar->blockSignals(false);
    view.drawGraph();
    EXPECT_EQ(view.getCurTop(0, Kel::OQT_BUY), before);
    EXPECT_EQ(view.m_scrollPos, 150);
    EXPECT_EQ(view.m_scrollTop, 100);
    view.handleEvent(15, 0, 0, QString(), nullptr);
    EXPECT_EQ(view.m_scrollTop, 150);
    EXPECT_EQ(view.getCurTop(0, Kel::OQT_BUY), before - 50);
}

// ---------------------------------------------------------------------------------------- wheel

TEST_F(Slider, TheWheelMovesTheSliderByItsDelta)
{
    list();
    setSlider(60);
    wheel(20);
    EXPECT_EQ(slider(), 40);
    EXPECT_EQ(view.m_scrollTop, 40);
    wheel(-50);
    EXPECT_EQ(slider(), 90);
    wheel(120);
    EXPECT_EQ(slider(), 0);
}

TEST_F(Slider, TheWheelStartsFromTheScrollOfThePicture)
{
    list();
    setSlider(60);
    view.m_scrollTop = 25;
    wheel(10);
    EXPECT_EQ(slider(), 15);
}

TEST_F(Slider, TheWheelIsTheUsers)
{
    horizontal();
    view.m_userScroll = false;
    wheel(-30);
    EXPECT_TRUE(view.m_userScroll);
    EXPECT_EQ(slider(), 130);
    EXPECT_EQ(view.m_centerOffset, -30);
}

TEST_F(Slider, TheWheelMovesNothingWithAHiddenBar)
{
    list();
    setSlider(60);
    view.m_scrollBar->hide();
    view.m_userScroll = false;
    wheel(20);
    EXPECT_EQ(slider(), 60);
    EXPECT_FALSE(view.m_userScroll);
}

TEST_F(Slider, AWheelEventStaysInThePanelIfItIsBlocked)
{
    list();
    EXPECT_TRUE(wheel(20));
    view.setBlockExceededWheel(false);
    EXPECT_FALSE(wheel(20));
    EXPECT_EQ(slider(), 0);
    view.m_scrollBar->hide();
    EXPECT_FALSE(wheel(20));
    view.setBlockExceededWheel(true);
    EXPECT_TRUE(wheel(20)) << "also without a bar";
}

// ---------------------------------------------------------------------------------------- layout

TEST_F(Slider, ALayoutTakesTheSizeOfTheWidget)
{
    view.m_layoutDone = false;
    layOut(444, 255);
    EXPECT_TRUE(view.m_layoutDone);
    EXPECT_EQ(view.m_clientRect, QRect(0, 0, 444, 255));
    EXPECT_EQ(view.m_visibleRows, 12);
    EXPECT_EQ(view.m_pixmap.size(), QSize(444, 255) * view.m_pixmap.devicePixelRatio());
    EXPECT_EQ(view.m_scrollBar->pageStep(), 255);
    EXPECT_EQ(view.m_scrollBar->geometry(), QRect(438, 0, 6, 255));
}

TEST_F(Slider, ALayoutForgetsTheUsersOffsetAndCentres)
{
    horizontal();
    setSlider(160);
    view.resetLayout();
    EXPECT_EQ(view.m_centerOffset, 0);
    EXPECT_EQ(slider(), 100);
}

TEST_F(Slider, ALayoutDrawsAndShowsThePicture)
{
    view.show();
    EXPECT_TRUE(updates([this] { view.resetLayout(); }));
    view.m_pixmap.fill(Qt::magenta);
    view.resetLayout();
    EXPECT_EQ(view.m_pixmap.toImage().pixelColor(5, 5), themeColor("ic_clr_graph_kline_bg"));
}

TEST_F(Slider, AResizeLaysThePanelOut)
{
    view.show();
    view.resize(450, 260);
    QApplication::processEvents();
    EXPECT_EQ(view.m_clientRect, QRect(0, 0, 450, 260));
    EXPECT_EQ(view.m_visibleRows, 13);
    EXPECT_EQ(view.m_scrollBar->pageStep(), 260);
}

TEST_F(Slider, ClearForgetsTheOffsetEmptiesTheEngineAndRepaintsNothing)
{
    horizontal();
    setSlider(160);
    view.engine(&EngineProbe::m_strHeader) = "text";
    EXPECT_FALSE(redraws([this] { view.clear(); }));
    EXPECT_EQ(view.m_centerOffset, 0);
    EXPECT_FALSE(view.m_model.at(0, Kel::OQT_SELL));
    EXPECT_EQ(view.m_model.headerText(), QString());
    EXPECT_EQ(slider(), 160);
}
