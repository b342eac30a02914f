// Scroll bar, centre and wheel.

#include "QueuePanel.h"

#include <QCoreApplication>
#include <QWheelEvent>

using namespace testing_support;
using namespace Kel;

namespace {

class Scroll : public testing::Test
{
protected:
    Scroll() { prepareServices(); }

    /// Horizontal style, ten levels of one row a side: 200 pixels of sells, 200 of buys, 20 below.
    void horizontal(int height)
    {
        panel.updateQueueMode(eQueueDetailHorizontal);
        for (int i = 0; i < 10; ++i) {
            panel.setRow(OQT_SELL, i, sellOf(i + 1, {1}));
            panel.setRow(OQT_BUY, i, buyOf(i + 1, {1}));
        }
        panel.resizeTo(800, height);
        ASSERT_EQ(panel.m_centerY, 200);
    }

    void turnWheel(int delta)
    {
        QWheelEvent event(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        event.ignore();
        QCoreApplication::sendEvent(&panel, &event);
        accepted = event.isAccepted();
    }

    QueuePanel panel{800, 600};
    bool accepted = false;
};

TEST_F(Scroll, BarIsHiddenWhileTheContentFits)
{
    EXPECT_TRUE(panel.m_scrollBar->isHidden());
    horizontal(420);
    EXPECT_TRUE(panel.m_scrollBar->isHidden()) << "21 rows of 20";
    panel.resizeTo(800, 419);
    EXPECT_FALSE(panel.m_scrollBar->isHidden());
    EXPECT_EQ(panel.m_scrollBar->maximum(), 1);
    EXPECT_EQ(panel.m_scrollBar->geometry(), QRect(794, 0, 6, 419));
    EXPECT_EQ(panel.m_scrollBar->pageStep(), 419);
    panel.resizeTo(800, 500);
    EXPECT_TRUE(panel.m_scrollBar->isHidden());
    EXPECT_EQ(panel.m_scrollBar->maximum(), 0);
    EXPECT_EQ(panel.m_scrollTop, 0);
}

TEST_F(Scroll, PictureIsDrawnOnceMoreWhenTheBarAppears)
{
    panel.updateQueueMode(eQueueDetailList);
    panel.setRow(OQT_SELL, 0, sellOf(1, std::vector<int>(12, 8)));
    panel.resizeTo(746, 600);
    panel.resizeTo(746, 30);
    ASSERT_FALSE(panel.m_scrollBar->isHidden());
    const QImage now = panel.m_pixmap.toImage();
    panel.drawGraph();
    EXPECT_EQ(panel.m_pixmap.toImage(), now);
}

TEST_F(Scroll, CentreLineStandsInTheMiddle)
{
    horizontal(200);
    EXPECT_EQ(panel.m_scrollBar->value(), 100);
    EXPECT_EQ(panel.m_scrollTop, 100);
    EXPECT_EQ(panel.m_centerOffset, 0);
}

TEST_F(Scroll, OfTheUserIsKeptAsADistanceFromTheCentreLine)
{
    horizontal(200);
    panel.m_scrollBar->setValue(70);
    EXPECT_EQ(panel.m_centerOffset, 30);
    panel.setRow(OQT_SELL, 3, sellOf(4, std::vector<int>(20, 1)));
    panel.drawGraph();
    EXPECT_EQ(panel.m_centerY, 200 + 20);
    EXPECT_EQ(panel.m_scrollTop, 220 - 30 - 100);
    EXPECT_EQ(panel.m_centerOffset, 30);
}

TEST_F(Scroll, DistanceIsCutToWhatCanBeShown)
{
    horizontal(200);
    panel.m_centerOffset = 500;
    panel.setScrollCenter();
    EXPECT_EQ(panel.m_scrollBar->value(), 0);
    EXPECT_EQ(panel.m_centerOffset, 100);
    panel.m_centerOffset = -500;
    panel.setScrollCenter();
    EXPECT_EQ(panel.m_scrollBar->value(), 220);
    EXPECT_EQ(panel.m_centerOffset, 200 - 100 - 220);
}

TEST_F(Scroll, OfThePanelItselfLeavesTheDistanceAlone)
{
    horizontal(200);
    panel.m_centerOffset = 10;
    panel.setScrollCenter();
    EXPECT_EQ(panel.m_scrollTop, 90);
    EXPECT_EQ(panel.m_centerOffset, 10);
    EXPECT_TRUE(panel.m_userScroll);
}

TEST_F(Scroll, FromTheTopAddsNothingToTheDistance)
{
    horizontal(200);
    panel.m_scrollBar->setValue(0);
    panel.m_centerOffset = 0;
    panel.m_scrollBar->setValue(40);
    EXPECT_EQ(panel.m_scrollTop, 40);
    EXPECT_EQ(panel.m_centerOffset, 0);
}

TEST_F(Scroll, WheelMovesTheSliderByItsDelta)
{
    horizontal(200);
    turnWheel(30);
    EXPECT_EQ(panel.m_scrollTop, 70);
    EXPECT_EQ(panel.m_centerOffset, 30);
    turnWheel(-120);
    EXPECT_EQ(panel.m_scrollTop, 190);
    EXPECT_TRUE(accepted);
    panel.setBlockExceededWheel(false);
    turnWheel(-1);
    EXPECT_FALSE(accepted);
}

TEST_F(Scroll, WheelOverAPanelWithoutBarMovesNothing)
{
    turnWheel(-30);
    EXPECT_EQ(panel.m_scrollTop, 0);
    EXPECT_TRUE(accepted);
}

TEST_F(Scroll, RecentreFlagIsClearedOnlyWhereItIsUsed)
{
    horizontal(600);
    panel.m_model.m_bLevelArrived = true;
    panel.drawGraph();
    EXPECT_TRUE(panel.m_model.m_bLevelArrived) << "the content fits: nothing was centred";
    panel.resizeTo(800, 200);
    EXPECT_FALSE(panel.m_model.m_bLevelArrived);
    panel.m_scrollBar->setValue(0);
    panel.m_needCenter = true;
    panel.m_model.m_bLevelArrived = true;
    panel.drawGraph();
    EXPECT_EQ(panel.m_scrollTop, 100);
    EXPECT_FALSE(panel.m_needCenter);
}

TEST_F(Scroll, WaitsWithTheCentreForTheLevelData)
{
    horizontal(200);
    panel.m_needCenter = true;
    panel.m_centerOffset = 40;
    panel.updateScroll(false);
    EXPECT_TRUE(panel.m_needCenter);
    EXPECT_EQ(panel.m_centerOffset, 40);
    panel.setLevelDataBack(true);
    panel.updateScroll(false);
    EXPECT_FALSE(panel.m_needCenter);
    EXPECT_EQ(panel.m_centerOffset, 0);
}

TEST_F(Scroll, KeepsItsShareOfTheContentWhenTheModeChanges)
{
    panel.updateQueueMode(eQueueDetailVertical);
    for (int i = 0; i < 10; ++i)
        panel.setRow(OQT_SELL, i, sellOf(i + 1, {1}));
    panel.resizeTo(800, 100);
    ASSERT_EQ(panel.m_scrollBar->maximum(), 11 * 20 - 100);
    panel.m_scrollBar->setValue(90);
    panel.updateQueueMode(eQueueExtra6);
    EXPECT_EQ(panel.m_scrollTop, 49) << "90 / 220 * 120 = 49.09";
}

} // namespace
