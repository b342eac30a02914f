// The range of the scroll bar and the centre of the horizontal style.

#include "ScrollFixture.h"

using namespace queue_view_rules;

using Scroll = ScrollTest;

// ---------------------------------------------------------------------------------------- updateScroll

TEST_F(Scroll, ContentIsARowHigherThanItsRows)
{
    list();
    EXPECT_EQ(view.m_rowCount, 10);
    EXPECT_EQ(view.m_clientRealHeight, 220);
    view.setClientRealHeight(5000);
    EXPECT_EQ(view.m_clientRealHeight, 5000);
    view.updateScroll(false);
    EXPECT_EQ(view.m_clientRealHeight, 220);
}

TEST_F(Scroll, AnEmptyEngineHasNoRowsAndAHiddenBar)
{
    layOut(600, 100);
    view.updateAll();
    EXPECT_EQ(view.m_rowCount, 0);
    EXPECT_EQ(view.m_clientRealHeight, 20);
    EXPECT_FALSE(barShown());
}

TEST_F(Scroll, TheBarStandsAtTheRightEdgeInTheClientsHeight)
{
    list();
    EXPECT_EQ(view.m_scrollBar->geometry(), QRect(594, 0, 6, 100));
    view.resize(500, 90);
    view.updateScroll(false);
    EXPECT_EQ(view.m_clientRect, QRect(0, 0, 500, 90));
    EXPECT_EQ(view.m_scrollBar->geometry(), QRect(494, 0, 6, 90));
}

TEST_F(Scroll, ContentOfTheClientsHeightNeedsNoBar)
{
    list();
    layOut(600, 220);
    EXPECT_FALSE(barShown());
    layOut(600, 219);
    EXPECT_TRUE(barShown());
    EXPECT_EQ(view.m_scrollBar->maximum(), 1);
}

TEST_F(Scroll, ContentThatFitsAgainTakesTheSliderToTheTopAndHidesTheBar)
{
    view.show();
    list();
    setSlider(70);
    ASSERT_TRUE(barShown());
    ASSERT_EQ(view.m_scrollTop, 70);
    setPlainRows(2);
    EXPECT_TRUE(updates([this] { view.drawGraph(); }));
    EXPECT_FALSE(barShown());
    EXPECT_EQ(view.m_scrollBar->maximum(), 0);
    EXPECT_EQ(slider(), 0);
    EXPECT_EQ(view.m_scrollTop, 0);
    EXPECT_EQ(view.m_scrollPos, 0);
    EXPECT_TRUE(view.m_userScroll);
}

TEST_F(Scroll, ContentThatFitsIsDrawnByItself)
{
    list();
    setPlainRows(2);
    view.m_rowCount = 2;
    EXPECT_TRUE(redraws([this] { view.updateScroll(false); }));
}

TEST_F(Scroll, TheRangeIsWhatDoesNotFit)
{
    list();
    EXPECT_TRUE(barShown());
    EXPECT_EQ(view.m_scrollBar->minimum(), 0);
    EXPECT_EQ(view.m_scrollBar->maximum(), 120);
}

TEST_F(Scroll, TheLastPositionIsClampedIntoTheRange)
{
    list();
    view.m_scrollPos = 5000;
    view.updateScroll(false);
    EXPECT_LE(view.m_scrollPos, 120);
    view.m_scrollPos = -5;
    view.updateScroll(false);
    EXPECT_GE(view.m_scrollPos, 0);
}

TEST_F(Scroll, TheSliderStaysUnlessItsShareIsToBeKept)
{
    list();
    setSlider(50);
    view.m_scrollPos = 100;
    view.updateScroll(false);
    EXPECT_EQ(slider(), 50);
    view.m_scrollPos = 100;
    view.updateScroll(true);
    EXPECT_EQ(slider(), 54); // 100 / 220 * 120 = 54.5, cut
    EXPECT_TRUE(view.m_userScroll);
}

TEST_F(Scroll, TheClampedPositionGivesTheShare)
{
    list();
    view.m_scrollPos = 5000; // clamped to 120
    view.updateScroll(true);
    EXPECT_EQ(slider(), 65); // 120 / 220 * 120 = 65.4, cut
}

TEST_F(Scroll, ABarThatWasHiddenIsShownAndThePictureKnowsIt)
{
    list();
    EXPECT_TRUE(barShown());
    EXPECT_EQ(view.m_scrollPos, slider());
    setSlider(40);
    EXPECT_EQ(view.m_scrollPos, 40);
}

TEST_F(Scroll, AHiddenBarCountsAsPositionZero)
{
    list();
    setSlider(40);
    view.m_scrollBar->hide();
    view.m_scrollPos = 33;
    view.drawGraph();
    EXPECT_EQ(view.m_scrollPos, 0);
}

TEST_F(Scroll, TheFirstUpdateAfterTheLevelDataIsBackCentresOnce)
{
    horizontal();
    ASSERT_EQ(slider(), 100);
    view.m_needCenter = true;
    view.m_centerOffset = 30;
    setSlider(160);
    view.m_centerOffset = 30;

    view.updateScroll(false);
    EXPECT_EQ(slider(), 160) << "the level data is not back yet";
    EXPECT_TRUE(view.m_needCenter);
    EXPECT_EQ(view.m_centerOffset, 30);

    levelDataBack();
    view.updateScroll(false);
    EXPECT_EQ(slider(), 100);
    EXPECT_EQ(view.m_centerOffset, 0);
    EXPECT_FALSE(view.m_needCenter);
    EXPECT_TRUE(view.m_userScroll);

    setSlider(160);
    view.updateScroll(false);
    EXPECT_EQ(slider(), 160) << "once is enough";
}

TEST_F(Scroll, EveryUpdateLeavesTheSliderToTheUser)
{
    list();
    for (const bool keepProportion : {false, true}) {
        view.m_userScroll = false;
        view.updateScroll(keepProportion);
        EXPECT_TRUE(view.m_userScroll);
    }
    layOut(600, 400);
    view.m_userScroll = false;
    view.updateScroll(false);
    EXPECT_TRUE(view.m_userScroll) << "also when the content fits";
    horizontal();
    view.m_userScroll = false;
    view.setScrollCenter();
    EXPECT_TRUE(view.m_userScroll);
}

TEST_F(Scroll, CentringGoesBeforeKeepingTheShare)
{
    horizontal();
    setSlider(160);
    view.m_needCenter = true;
    levelDataBack();
    view.updateScroll(true);
    EXPECT_EQ(slider(), 100);
}

TEST_F(Scroll, OtherStylesKeepTheWishForTheCentre)
{
    list();
    view.m_needCenter = true;
    levelDataBack();
    setSlider(50);
    view.updateScroll(false);
    EXPECT_TRUE(view.m_needCenter);
    EXPECT_EQ(slider(), 50);
}

TEST_F(Scroll, TheRecentreFlagCentresAndIsCleared)
{
    horizontal();
    setSlider(160);
    view.m_model.m_bLevelArrived = true;
    view.updateScroll(false);
    EXPECT_EQ(slider(), 100);
    EXPECT_EQ(view.m_centerOffset, 0);
    EXPECT_FALSE(view.m_model.m_bLevelArrived);
}

TEST_F(Scroll, TheRecentreFlagIsClearedInOtherStylesAndEndsTheWish)
{
    list();
    setSlider(50);
    view.m_centerOffset = 30;
    view.m_needCenter = true;
    view.m_model.m_bLevelArrived = true;
    view.updateScroll(true);
    EXPECT_EQ(slider(), 50) << "neither centred nor moved to its share";
    EXPECT_EQ(view.m_centerOffset, 0);
    EXPECT_FALSE(view.m_needCenter);
    EXPECT_FALSE(view.m_model.m_bLevelArrived);
}

TEST_F(Scroll, TheRecentreFlagStaysWhileTheContentFits)
{
    horizontal(600);
    view.m_model.m_bLevelArrived = true;
    view.m_needCenter = true;
    view.m_centerOffset = 30;
    view.updateScroll(false);
    EXPECT_TRUE(view.m_model.m_bLevelArrived);
    EXPECT_TRUE(view.m_needCenter);
}

TEST_F(Scroll, ADrawnPictureTakesTheRecentreFlagIntoTheScroll)
{
    horizontal();
    setSlider(160);
    view.drawGraph();
    EXPECT_EQ(slider(), 160) << "neither rows nor flag have changed";
    view.m_model.m_bLevelArrived = true;
    view.drawGraph();
    EXPECT_EQ(slider(), 100);
    EXPECT_FALSE(view.m_model.m_bLevelArrived);
}

// ---------------------------------------------------------------------------------------- setScrollCenter

TEST_F(Scroll, TheCentreStandsInTheMiddleOfTheClient)
{
    horizontal();
    setSlider(0);
    view.m_centerOffset = 0;
    view.setScrollCenter();
    EXPECT_EQ(view.m_centerY, 200);
    EXPECT_EQ(slider(), 100);
    EXPECT_TRUE(view.m_userScroll);
}

TEST_F(Scroll, HalfAnOddClientIsCut)
{
    horizontal(201);
    EXPECT_EQ(slider(), 100);
}

TEST_F(Scroll, TheUsersOffsetIsKept)
{
    horizontal();
    view.m_centerOffset = 30;
    view.setScrollCenter();
    EXPECT_EQ(slider(), 70);
    EXPECT_EQ(view.m_centerOffset, 30);
    view.m_centerOffset = -45;
    view.setScrollCenter();
    EXPECT_EQ(slider(), 145);
    EXPECT_EQ(view.m_centerOffset, -45);
}

TEST_F(Scroll, TheOffsetIsCutAtTheTop)
{
    horizontal();
    view.m_centerOffset = 150;
    view.setScrollCenter();
    EXPECT_EQ(slider(), 0);
    EXPECT_EQ(view.m_centerOffset, 100);
}

TEST_F(Scroll, TheOffsetIsCutAtTheBottom)
{
    horizontal();
    view.m_centerOffset = -200;
    view.setScrollCenter();
    EXPECT_EQ(slider(), 220);
    EXPECT_EQ(view.m_centerOffset, -120);
}

TEST_F(Scroll, WithoutSellsTheCentreIsTheTopAndTheOffsetStays)
{
    horizontal();
    view.m_centerY = 0;
    view.m_centerOffset = 50;
    view.setScrollCenter();
    EXPECT_EQ(slider(), 0);
    EXPECT_EQ(view.m_centerOffset, 50);
}

TEST_F(Scroll, OtherStylesHaveNoCentre)
{
    list();
    setSlider(50);
    view.m_centerY = 200;
    view.m_centerOffset = 7;
    view.setScrollCenter();
    EXPECT_EQ(slider(), 50);
    EXPECT_EQ(view.m_centerOffset, 7);
}

TEST_F(Scroll, ContentThatFitsLeavesAnOffsetAboveTheMiddle)
{
    horizontal(600);
    EXPECT_FALSE(barShown());
    EXPECT_EQ(slider(), 0);
    EXPECT_EQ(view.m_centerOffset, -100); // centre 200 less half of 600
}

TEST_F(Scroll, ThePanelsOwnMovesLeaveTheOffsetAlone)
{
    horizontal();
    setSlider(160);
    ASSERT_EQ(view.m_centerOffset, -60);
    view.m_centerOffset = 10;
    view.setScrollCenter();
    EXPECT_EQ(slider(), 90);
    EXPECT_EQ(view.m_scrollTop, 90);
    EXPECT_EQ(view.m_centerOffset, 10);
}

TEST_F(Scroll, ARangeThatShrinksLeavesTheOffsetAlone)
{
    horizontal();
    setSlider(220);
    ASSERT_EQ(view.m_centerOffset, -120);
    setPlainRows(5); // centre 100, content 220, range 20
    view.drawGraph();
    EXPECT_EQ(view.m_scrollBar->maximum(), 20);
    EXPECT_EQ(slider(), 20);
    EXPECT_EQ(view.m_centerOffset, -20);
}

TEST_F(Scroll, TheUsersDistanceFromTheCentreIsKeptWhenRowsCome)
{
    horizontal();
    setSlider(120);
    ASSERT_EQ(view.m_centerOffset, -20);
    setPlainRows(10, 7); // two rows each: centre 400
    view.drawGraph();
    EXPECT_EQ(view.m_centerY, 400);
    EXPECT_EQ(slider(), 320);
    EXPECT_EQ(view.m_scrollTop, 320);
    EXPECT_EQ(view.m_centerOffset, -20);
}
