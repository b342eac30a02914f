// Rows, first row, scroll bar, arrows and wheel of the ladder. The client is 260 x 200: ten rows fit.

#include "LadderFixture.h"

using namespace thousand_tests;

namespace {

class LadderScroll : public LadderTest
{
protected:
    bool barShown() const { return !panel->m_scrollBar->isHidden(); }
    bool topShown() const { return !panel->m_resetTop->isHidden(); }
    bool bottomShown() const { return !panel->m_resetBottom->isHidden(); }
    int slider() const { return panel->m_scrollBar->value(); }
    void slide(int to) { panel->m_scrollBar->setValue(to); }
};

} // namespace

TEST_F(LadderScroll, FewRowsStandInTheMiddleWithoutABar)
{
    feedSmall();
    EXPECT_EQ(panel->m_visibleRows, 10);
    EXPECT_EQ(panel->m_totalRows, 5);
    EXPECT_EQ(panel->m_scrollTop, (5 - 10) / 2) << "truncated toward zero";
    EXPECT_EQ(panel->m_changeWidth, 40);
    EXPECT_EQ(panel->m_priceAreaWidth, 260 - 20 - 55 - 30 - 40);
    EXPECT_FALSE(barShown());
    EXPECT_FALSE(topShown());
    EXPECT_FALSE(bottomShown());
}

TEST_F(LadderScroll, ManyRowsBeginWithTheLatestPriceInTheCentre)
{
    feedDeep(30, 20);
    EXPECT_EQ(panel->m_totalRows, 51);
    EXPECT_EQ(panel->m_scrollTop, 30 - 5);
    EXPECT_EQ(panel->m_centerDelta, 0);
    EXPECT_EQ(panel->m_changeWidth, 45);
    EXPECT_EQ(panel->m_priceAreaWidth, 260 - 20 - 55 - 30 - 45);
    EXPECT_TRUE(barShown());
    EXPECT_EQ(slider(), 25);
    EXPECT_EQ(panel->m_scrollBar->maximum(), 41);
    EXPECT_EQ(panel->m_scrollBar->minimum(), 0);
    EXPECT_EQ(panel->m_scrollBar->singleStep(), 1);
    EXPECT_EQ(panel->m_scrollBar->pageStep(), 10);
    EXPECT_EQ(panel->m_scrollBar->geometry(), QRect(254, 0, 6, 200));
    EXPECT_FALSE(topShown());
    EXPECT_FALSE(bottomShown());
}

TEST_F(LadderScroll, AsManyRowsAsFitNeedNoBar)
{
    feedDeep(5, 4);
    EXPECT_EQ(panel->m_scrollTop, 0);
    EXPECT_FALSE(barShown());
    feed({"B 901 40.00 100"});
    panel->slotTimeout();
    EXPECT_TRUE(barShown());
}

TEST_F(LadderScroll, WithFewSellsTheLadderBeginsAtItsTop)
{
    feedDeep(2, 30);
    EXPECT_EQ(panel->m_scrollTop, 0);
    EXPECT_EQ(panel->m_centerDelta, 2 - 5);
    EXPECT_EQ(slider(), 0);
}

TEST_F(LadderScroll, WithFewBuysTheLadderEndsAtItsBottomWhereverTheSliderWas)
{
    feedDeep(30, 1);
    EXPECT_EQ(panel->m_scrollTop, 22) << "32 rows, ten of them shown";
    EXPECT_EQ(slider(), 22);
    EXPECT_EQ(panel->m_centerDelta, 30 - 5 - 22);
    // The same feed again, from another place of the slider.
    panel->clear(true);
    panel->m_scrollBar->setMaximum(500);
    slide(400);
    feedDeep(30, 1);
    EXPECT_EQ(panel->m_scrollTop, 22);
    EXPECT_EQ(slider(), 22);
    EXPECT_EQ(panel->m_centerDelta, 3);
}

TEST_F(LadderScroll, OneSideAloneScrolls)
{
    feedDeep(0, 30);
    EXPECT_EQ(panel->m_scrollTop, 0);
    EXPECT_EQ(panel->m_totalRows, 31);
    EXPECT_TRUE(barShown());
    panel->clear(true);
    feedDeep(30, 0);
    EXPECT_EQ(panel->m_scrollTop, 21);
    EXPECT_EQ(slider(), 21);
}

TEST_F(LadderScroll, TheBarMovesTheFirstRowAndTheDistanceFromTheCentre)
{
    feedDeep(30, 20);
    painted();
    slide(10);
    EXPECT_EQ(panel->m_scrollTop, 10);
    EXPECT_EQ(panel->m_centerDelta, 15);
    EXPECT_EQ(painted(), 1);
    EXPECT_TRUE(topShown()) << "the latest price lies below: this arrow points down";
    EXPECT_FALSE(bottomShown());
    slide(35);
    EXPECT_EQ(panel->m_centerDelta, -10);
    EXPECT_FALSE(topShown());
    EXPECT_TRUE(bottomShown());
    slide(25);
    EXPECT_EQ(panel->m_centerDelta, 0);
    EXPECT_FALSE(topShown());
    EXPECT_FALSE(bottomShown());
}

TEST_F(LadderScroll, AtTheBottomEndAboveTheCentreNoArrowShows)
{
    feedDeep(30, 2);
    slide(10);
    EXPECT_TRUE(topShown());
    slide(23);
    EXPECT_EQ(panel->m_scrollTop + panel->m_visibleRows, panel->m_totalRows);
    EXPECT_GT(panel->m_centerDelta, 0);
    EXPECT_FALSE(topShown());
    EXPECT_FALSE(bottomShown());
}

TEST_F(LadderScroll, AtTheTopEndBelowTheCentreNoArrowShows)
{
    feedDeep(2, 30);
    slide(5);
    EXPECT_TRUE(bottomShown());
    slide(0);
    EXPECT_LT(panel->m_centerDelta, 0);
    EXPECT_FALSE(bottomShown());
}

TEST_F(LadderScroll, AScrollIsKeptAsADistanceWhenRowsComeAndGo)
{
    feedDeep(30, 20);
    slide(20);
    EXPECT_EQ(panel->m_centerDelta, 5);
    std::vector<std::string> lines;
    for (int i = 0; i < 7; ++i)
        lines.push_back("S " + std::to_string(900 + i) + " " + std::to_string(60.0 + i) + " 100");
    feed(lines);
    panel->slotTimeout();
    EXPECT_EQ(panel->m_centerDelta, 5);
    EXPECT_EQ(panel->m_scrollTop, 27);
    EXPECT_EQ(slider(), 27);
    EXPECT_TRUE(topShown());
}

TEST_F(LadderScroll, AScrollBeyondTheNewEndStopsThere)
{
    feedDeep(30, 20);
    slide(41);
    EXPECT_EQ(panel->m_centerDelta, -16);
    std::vector<int> numbers;
    for (int i = 10; i < 20; ++i)
        numbers.push_back(2 * i + 1);
    cancel(numbers);
    panel->slotTimeout();
    EXPECT_EQ(panel->m_totalRows, 41);
    EXPECT_EQ(panel->m_scrollTop, 31);
    EXPECT_EQ(slider(), 31);
    EXPECT_EQ(panel->m_scrollBar->maximum(), 31);
    EXPECT_EQ(panel->m_centerDelta, 30 - 5 - 31);
}

TEST_F(LadderScroll, AFullReplacementGoesBackToTheCentre)
{
    feedDeep(30, 20);
    slide(3);
    EXPECT_TRUE(topShown());
    panel->transactionCallback(0, 0, deals({}));
    panel->entrustCallback(0, 0, orders({}));
    feedDeep(30, 20);
    EXPECT_EQ(panel->m_scrollTop, 25);
    EXPECT_EQ(panel->m_centerDelta, 0);
    EXPECT_FALSE(topShown());
}

TEST_F(LadderScroll, AClickOnAnArrowGoesBackToTheCentre)
{
    feedDeep(30, 20);
    for (const int from : {3, 38}) {
        slide(from);
        Kel::CResetWidget* const arrow = from == 3 ? panel->m_resetTop : panel->m_resetBottom;
        ASSERT_FALSE(arrow->isHidden());
        QMouseEvent event(QEvent::MouseButtonPress, QPoint(2, 2), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(arrow, &event);
        EXPECT_EQ(panel->m_scrollTop, 25);
        EXPECT_EQ(slider(), 25);
        EXPECT_FALSE(topShown());
        EXPECT_FALSE(bottomShown());
    }
}

TEST_F(LadderScroll, TheArrowsStandInTheCorners)
{
    const QSize size = panel->m_resetTop->size();
    EXPECT_FALSE(size.isEmpty());
    EXPECT_EQ(panel->m_resetTop->pos(), QPoint(260 - 10 - size.width(), 4));
    EXPECT_EQ(panel->m_resetBottom->pos(), QPoint(260 - 10 - size.width(), 200 - size.height() - 5));
}

TEST_F(LadderScroll, TheArrowsArePaleUntilTheMouseIsOverThem)
{
    const auto darkest = [this] {
        QImage image(panel->m_resetTop->size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        panel->m_resetTop->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        int most = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                most = std::max(most, qAlpha(image.pixel(x, y)));
        }
        return most;
    };
    const int pale = darkest();
    EXPECT_LE(pale, 103) << "opacity 0.4";
    QEvent enter(QEvent::Enter);
    QApplication::sendEvent(panel->m_resetTop, &enter);
    const int hovered = darkest();
    EXPECT_GT(hovered, 2 * pale);
    QEvent left(QEvent::Leave);
    QApplication::sendEvent(panel->m_resetTop, &left);
    EXPECT_EQ(darkest(), pale);
}

TEST_F(LadderScroll, TheWheelScrollsAndStopsAtBothEnds)
{
    feedDeep(30, 20);
    EXPECT_TRUE(wheel(120));
    const int up = panel->m_scrollTop;
    EXPECT_LT(up, 25);
    EXPECT_TRUE(wheel(-120));
    EXPECT_EQ(panel->m_scrollTop, 25);
    slide(0);
    EXPECT_TRUE(wheel(120));
    EXPECT_EQ(panel->m_scrollTop, 0);
    slide(41);
    EXPECT_TRUE(wheel(-120));
    EXPECT_EQ(panel->m_scrollTop, 41);
    EXPECT_TRUE(wheel(120));
    EXPECT_LT(panel->m_scrollTop, 41);
}

TEST_F(LadderScroll, TheWheelIsTakenAlsoWhereNothingScrolls)
{
    feedSmall();
    EXPECT_TRUE(wheel(120));
    EXPECT_TRUE(wheel(-120));
    EXPECT_EQ(panel->m_scrollTop, -2);
}

TEST_F(LadderScroll, OfTheShortFormKeepsItsRangeButShowsNoBar)
{
    panel->setDisplayDataLevel(11);
    feedDeep(30, 20);
    EXPECT_EQ(panel->m_totalRows, 21);
    EXPECT_FALSE(barShown());
    EXPECT_EQ(panel->m_scrollBar->maximum(), 11);
    panel->setDisplayDataLevel(1000);
    panel->slotTimeout();
    EXPECT_TRUE(barShown());
    EXPECT_EQ(panel->m_totalRows, 51);
}

TEST_F(LadderScroll, OfTheShortFormWithASideThatIsNotFullStaysCentred)
{
    int delta = 7;
    LadderProbe::resetCenterPosition(11, 10, 10, delta);
    EXPECT_EQ(delta, 7);
    LadderProbe::resetCenterPosition(11, 9, 10, delta);
    EXPECT_EQ(delta, 0);
    delta = 7;
    LadderProbe::resetCenterPosition(11, 10, 9, delta);
    EXPECT_EQ(delta, 0);
    delta = 7;
    LadderProbe::resetCenterPosition(1000, 1, 1, delta);
    EXPECT_EQ(delta, 7);
}

TEST_F(LadderScroll, AResizeFitsRowsBarAndArrowsAndKeepsTheDistance)
{
    feedDeep(30, 20);
    slide(20);
    place(300, 300);
    EXPECT_EQ(panel->m_visibleRows, 15);
    EXPECT_EQ(panel->m_pixmap.size(), QSize(300, 300));
    EXPECT_EQ(panel->m_centerDelta, 5);
    EXPECT_EQ(panel->m_scrollTop, 30 - 7 - 5);
    EXPECT_EQ(panel->m_scrollBar->geometry(), QRect(294, 0, 6, 300));
    EXPECT_EQ(panel->m_scrollBar->pageStep(), 15);
    EXPECT_EQ(panel->m_resetTop->x(), 300 - 10 - panel->m_resetTop->width());
    EXPECT_EQ(panel->m_priceAreaWidth, 300 - 20 - 55 - 30 - 45);
    place(300, 1100);
    EXPECT_FALSE(barShown());
    EXPECT_FALSE(topShown());
    EXPECT_EQ(panel->m_scrollTop, (51 - 55) / 2);
}

TEST_F(LadderScroll, AResizeToNothingIsIgnored)
{
    feedDeep(30, 20);
    panel->resize(0, 300);
    EXPECT_EQ(panel->m_visibleRows, 10);
    panel->resize(300, 0);
    EXPECT_EQ(panel->m_visibleRows, 10);
}
