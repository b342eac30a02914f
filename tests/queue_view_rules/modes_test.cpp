// Which mode number does what.

#include "QueueViewFixture.h"

using namespace queue_view_rules;

namespace {

class QueueMode : public QueueViewTest
{
protected:
    void mode(int number) { view.updateQueueMode(static_cast<Kel::EQueueMode>(number)); }

    std::string bytes() const
    {
        return std::to_string(view.m_queueModeLevel) + " " + std::to_string(view.m_queueModeStyle) + " " +
               std::to_string(view.m_queueModeExtra) + " " + std::to_string(view.m_queueModeFull);
    }
};

} // namespace

TEST_F(QueueMode, NumbersZeroAndOneChooseTheLevelsAlone)
{
    mode(0);
    EXPECT_EQ(bytes(), "0 2 6 12");
    EXPECT_EQ(view.getQueueModeLevel(), 0);
    mode(1);
    EXPECT_EQ(bytes(), "1 2 6 12");
    EXPECT_EQ(view.getQueueModeLevel(), 1);
}

TEST_F(QueueMode, NumbersTwoToFiveChooseTheStyleAlone)
{
    for (int style = 2; style <= 5; ++style) {
        mode(style);
        EXPECT_EQ(bytes(), "1 " + std::to_string(style) + " 6 12");
        EXPECT_EQ(view.getQueueModeStyle(), style - 2);
    }
}

TEST_F(QueueMode, NumbersSixAndSevenAreKeptBesideTheStyle)
{
    mode(7);
    EXPECT_EQ(bytes(), "1 2 7 12");
    mode(6);
    EXPECT_EQ(bytes(), "1 2 6 12");
}

TEST_F(QueueMode, AnyOtherNumberBecomesTheStyleByte)
{
    for (const int number : {8, 9, 10, 11, 12}) {
        mode(number);
        EXPECT_EQ(bytes(), "1 " + std::to_string(number) + " 6 12");
        EXPECT_EQ(view.m_maxShowCount, 50);
        EXPECT_FALSE(view.m_needCenter);
    }
}

TEST_F(QueueMode, HorizontalStyleShowsAThousandCellsAndWantsTheCentre)
{
    mode(3);
    EXPECT_EQ(view.m_maxShowCount, 1000);
    EXPECT_TRUE(view.m_needCenter);
}

TEST_F(QueueMode, OtherStylesShowFiftyCellsAndLeaveTheCentreAlone)
{
    for (const int style : {2, 4, 5}) {
        mode(3);
        view.m_needCenter = false;
        mode(style);
        EXPECT_EQ(view.m_maxShowCount, 50) << style;
        EXPECT_FALSE(view.m_needCenter) << style;
    }
}

TEST_F(QueueMode, EveryStyleOfAFullQueueShowsAThousandCellsAndWantsTheCentre)
{
    view.setQueueFull(true);
    for (const int style : {2, 4, 5}) {
        view.m_maxShowCount = 50;
        view.m_needCenter = false;
        mode(style);
        EXPECT_EQ(view.m_maxShowCount, 1000) << style;
        EXPECT_TRUE(view.m_needCenter) << style;
    }
}

TEST_F(QueueMode, LeavingTheHorizontalStyleKeepsTheWishForTheCentre)
{
    mode(3);
    mode(2);
    EXPECT_TRUE(view.m_needCenter);
}

TEST_F(QueueMode, FullAloneIsOnlyStored)
{
    view.m_centerOffset = 30;
    EXPECT_FALSE(redraws([this] { view.setQueueFull(true); }));
    EXPECT_EQ(bytes(), "1 2 6 11");
    EXPECT_EQ(view.m_maxShowCount, 50);
    EXPECT_FALSE(view.m_needCenter);
    EXPECT_EQ(view.m_centerOffset, 30);
    EXPECT_FALSE(redraws([this] { view.setQueueFull(false); }));
    EXPECT_EQ(bytes(), "1 2 6 12");
}

TEST_F(QueueMode, FullAloneMakesAllLevelsListTheirOrdersAtOnce)
{
    layOut(600, 900);
    view.setStyle(5);
    view.setQueueFull(true);
    setPlainRows(2, 60);
    const Drawing drawing = picture();
    EXPECT_EQ(view.m_maxShowCount, 50);
    EXPECT_EQ(countOf(drawing, "..."), 4) << print(drawing);
}

TEST_F(QueueMode, FiveOrTenLevelsLeaveTheCutAlone)
{
    mode(3);
    mode(0);
    EXPECT_EQ(view.m_maxShowCount, 1000);
    mode(2);
    mode(1);
    EXPECT_EQ(view.m_maxShowCount, 50);
}

TEST_F(QueueMode, FullWithFiveOrTenLevelsLeavesTheCutAlone)
{
    view.setQueueFull(true);
    mode(0);
    EXPECT_EQ(view.m_maxShowCount, 50);
    EXPECT_FALSE(view.m_needCenter);
}

TEST_F(QueueMode, EachForgetsHowFarTheUserHasScrolled)
{
    for (const int number : {0, 1, 2, 4, 5, 6, 7, 9}) {
        view.m_centerOffset = 30;
        mode(number);
        EXPECT_EQ(view.m_centerOffset, 0) << number;
    }
}

TEST_F(QueueMode, EachDrawsAndShowsANewPicture)
{
    view.show();
    for (const int number : {0, 1, 2, 3, 4, 5, 6, 7, 9}) {
        EXPECT_TRUE(redraws([&] { mode(number); })) << number;
        EXPECT_TRUE(updates([&] { mode(number); })) << number;
    }
}

TEST_F(QueueMode, ExtraNumbersDoNotAskForTheCentre)
{
    view.setStyle(3);
    mode(6);
    mode(7);
    EXPECT_FALSE(view.m_needCenter);
}

TEST_F(QueueMode, TheSliderKeepsItsShareWhenLevelsAreAdded)
{
    layOut(600, 100);
    setPlainRows(10);
    mode(5);
    mode(0);
    ASSERT_EQ(view.m_scrollBar->maximum(), 20); // 6 rows of 20 less 100
    setSlider(20);
    mode(1);
    EXPECT_EQ(view.m_scrollBar->maximum(), 120); // 11 rows of 20 less 100
    EXPECT_EQ(slider(), 10);                     // 20 / 220 of 120, cut to a whole pixel
    EXPECT_EQ(view.m_scrollTop, 10);
}

TEST_F(QueueMode, TheHorizontalStyleGoesToTheCentreInsteadOfAShare)
{
    layOut(600, 200);
    setPlainRows(10);
    mode(3);
    EXPECT_EQ(view.m_centerY, 200);
    EXPECT_EQ(view.m_scrollBar->maximum(), 220);
    EXPECT_EQ(slider(), 100);
    EXPECT_EQ(view.m_scrollTop, 100);
}
