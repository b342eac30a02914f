// Highlights that other panels ask the deal list for.

#include "TickPanels.h"

using namespace testing_support;
using namespace Kel;

namespace {

TransData second(int number)
{
    TransData data;
    data.time = tag(10, 0, 0) + number;
    return data;
}

} // namespace

TEST(HighlightRow, SelectsARowInViewWithoutMoving)
{
    DealPanel panel;
    panel.fill(30);
    panel.highlightTransaction(25);
    EXPECT_EQ(panel.m_selectedIndex, 25);
    EXPECT_EQ(panel.m_firstIndex, 20);
    EXPECT_TRUE(panel.sink.events.empty());
}

TEST(HighlightRow, BringsARowToTheMiddleByTheSlider)
{
    DealPanel panel;
    panel.fill(40);
    panel.highlightTransaction(18);
    EXPECT_EQ(panel.m_firstIndex, 13);
    EXPECT_EQ(panel.m_scrollBar->value(), 13);
    EXPECT_FALSE(panel.m_followTail);
    panel.highlightTransaction(1);
    EXPECT_EQ(panel.m_firstIndex, 0);
    panel.highlightTransaction(39);
    EXPECT_EQ(panel.m_firstIndex, 30);
    EXPECT_TRUE(panel.m_followTail);
}

TEST(HighlightRow, OutOfRangeOrSelectedAlreadyDoesNothing)
{
    DealPanel panel;
    panel.fill(30);
    panel.highlightTransaction(18);
    panel.m_scrollBar->setValue(0);
    for (const int row : {-1, 30, 18})
        panel.highlightTransaction(row);
    EXPECT_EQ(panel.m_selectedIndex, 18);
    EXPECT_EQ(panel.m_firstIndex, 0);
}

TEST(HighlightSecond, CentresTheRowsOfTheSecond)
{
    DealPanel panel;
    panel.fill(40);
    const TransData data = second(21); // row 20
    panel.highlightTransaction(&data, true);
    EXPECT_EQ(panel.m_highlightRange, std::make_pair(20, 20));
    EXPECT_EQ(panel.m_highlightKey, data.time);
    EXPECT_EQ(panel.m_firstIndex, 20 - (10 - 1) / 2);
    EXPECT_EQ(panel.m_scrollBar->value(), panel.m_firstIndex);
    EXPECT_FALSE(panel.m_followTail);
}

TEST(HighlightSecond, MoreRowsThanRoomShowTheirEnd)
{
    DealPanel panel;
    Batch batch;
    for (int number = 1; number <= 15; ++number)
        batch.push_back(deal(number, number * 2, number * 2 + 1, 10, 100, at(10, 0, 5)));
    panel.deals(batch);
    panel.fill(30, 100);
    const TransData data = second(5);
    panel.highlightTransaction(&data, true);
    EXPECT_EQ(panel.m_highlightRange, std::make_pair(0, 14));
    EXPECT_EQ(panel.m_firstIndex, 5);
}

TEST(HighlightSecond, StaysInsideTheList)
{
    DealPanel panel;
    panel.fill(40);
    TransData data = second(2);
    panel.highlightTransaction(&data, true);
    EXPECT_EQ(panel.m_firstIndex, 0);
    data = second(40);
    panel.highlightTransaction(&data, true);
    EXPECT_EQ(panel.m_firstIndex, 30);
}

TEST(HighlightSecond, WithoutADealTakesTheNearestEarlierOne)
{
    DealPanel panel;
    panel.fill(5);
    const TransData data = second(100);
    panel.highlightTransaction(&data, true);
    EXPECT_EQ(panel.m_highlightRange, std::make_pair(4, 4));
    EXPECT_EQ(panel.m_highlightKey, data.time);
}

TEST(HighlightSecond, BeforeAllDealsHighlightsNothingButIsRemembered)
{
    DealPanel panel;
    panel.fill(5);
    const TransData data = second(0);
    panel.highlightTransaction(&data, true);
    EXPECT_EQ(panel.m_highlightRange, std::make_pair(-1, -1));
    panel.deals({deal(90, 900, 901, 10, 100, at(10, 0, 0))});
    EXPECT_EQ(panel.m_highlightRange, std::make_pair(0, 0)) << "found at the next refresh";
}

TEST(HighlightSecond, ShiftsWithRowsThatComeLate)
{
    DealPanel panel;
    panel.fill(5);
    const TransData data = second(3);
    panel.highlightTransaction(&data, true);
    panel.deals({deal(90, 900, 901, 10, 100, at(9, 50, 0))});
    EXPECT_EQ(panel.m_highlightRange, std::make_pair(3, 3));
}

TEST(HighlightSecond, AnEqualRangeIsNotDrawnAgain)
{
    DealPanel panel;
    panel.fill(40);
    const TransData data = second(21);
    panel.highlightTransaction(&data, true);
    panel.m_scrollBar->setValue(0);
    panel.highlightTransaction(&data, true);
    EXPECT_EQ(panel.m_firstIndex, 0);
}

TEST(HighlightSecond, NullTakesTheHighlightAway)
{
    DealPanel panel;
    panel.fill(5);
    const TransData data = second(3);
    panel.highlightTransaction(&data, true);
    const QImage with = panel.grab().toImage();
    panel.highlightTransaction(nullptr, false);
    EXPECT_EQ(panel.m_highlightRange, std::make_pair(-1, -1));
    EXPECT_EQ(panel.m_highlightKey, -1);
    EXPECT_EQ(panel.grab().toImage(), with) << "not drawn yet";
    panel.highlightTransaction(&data, true);
    panel.highlightTransaction(nullptr, true);
    EXPECT_NE(panel.grab().toImage(), with);
}

TEST(HighlightSecond, WithoutRepaintIsDrawnByTheNextPicture)
{
    DealPanel panel;
    panel.fill(5);
    const QImage before = panel.grab().toImage();
    const TransData data = second(3);
    panel.highlightTransaction(&data, false);
    EXPECT_EQ(panel.grab().toImage(), before);
    const QRectF ground(0, panel.m_layout.lineTop(2), panel.stripOffset(), 18);
    ASSERT_EQ(panel.picture()->fillsOf(ground).size(), 1u);
    EXPECT_EQ(panel.picture()->fillsOf(ground)[0].color(), QColor(0, 0, 128));
}
