// The chart operated by keys, and by other panels.

#include "Chart.h"

#include <functional>

using namespace testing_support;
using namespace Kel;

namespace {

QString tagText(int second)
{
    return QString::number(tag(10, 0, second));
}

/// Ten deals of nine lots, one a second, 60 pixels each; intervals 0 to 2, 3 to 5 and the open one 6 to 9.
class ChartKeys : public testing::Test
{
protected:
    ChartKeys()
    {
        std::vector<DealText> deals;
        for (int index = 0; index < 10; ++index)
            deals.push_back({1 + 2 * index, 2 + 2 * index, 10 + index * 0.01, 9});
        chart.add(deals);
        chart.quotes({2, 5});
    }

    void key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&chart, Qt::Key(code), modifiers);
    }

    Chart chart{600, 325};
};

/// Takes the keys that the chart leaves to others.
class KeySink : public QWidget
{
public:
    int keys = 0;

protected:
    void keyPressEvent(QKeyEvent*) override { ++keys; }
};

} // namespace

TEST_F(ChartKeys, RightStartsAtTheLeftEndOfTheView)
{
    key(Qt::Key_Right);
    EXPECT_EQ(chart.m_cursorSeq, 0);
    EXPECT_EQ(chart.sink.take(), (Events{{3224, 0, 0, tagText(2)}}));
}

TEST_F(ChartKeys, LeftStartsAtTheRightEndWhereNoDealIs)
{
    key(Qt::Key_Left);
    EXPECT_EQ(chart.m_cursorSeq, -1);
    EXPECT_TRUE(chart.sink.take().empty());
    // Where the last deal reaches beyond the chart's width it is found.
    chart.m_dealRightX[9] = 700;
    key(Qt::Key_Left);
    EXPECT_EQ(chart.m_cursorSeq, 9);
    EXPECT_EQ(chart.sink.take(), (Events{{3224, 0, 9, tagText(9)}}));
}

TEST_F(ChartKeys, ColumnModeMovesByIntervals)
{
    chart.m_cursorSeq = 4;
    key(Qt::Key_Right);
    EXPECT_EQ(chart.m_cursorSeq, 6);
    EXPECT_EQ(chart.sink.take(), (Events{{3224, 0, 6, tagText(9)}}))
        << "the open interval has its last deal's";
    key(Qt::Key_Left);
    EXPECT_EQ(chart.m_cursorSeq, 3);
    key(Qt::Key_Left, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(chart.m_cursorSeq, 0) << "whatever else is held";
    chart.sink.take();
    key(Qt::Key_Left);
    EXPECT_EQ(chart.m_cursorSeq, -1) << "there is no interval before the first";
    EXPECT_TRUE(chart.sink.take().empty());
}

TEST_F(ChartKeys, ColumnModeDrawsTheColumn)
{
    key(Qt::Key_Right);
    const QImage first = chart.grab().toImage();
    key(Qt::Key_Right);
    EXPECT_NE(chart.grab().toImage(), first);
}

TEST_F(ChartKeys, DealModeMovesByDealsWithinTheDay)
{
    chart.dealMode();
    key(Qt::Key_Right);
    EXPECT_EQ(chart.m_cursorSeq, 0);
    EXPECT_EQ(chart.sink.take(), (Events{{3224, 0, 0, tagText(0)}})) << "the deal's own time";
    key(Qt::Key_Left);
    EXPECT_EQ(chart.m_cursorSeq, 0) << "not below the first";
    key(Qt::Key_Right);
    EXPECT_EQ(chart.m_cursorSeq, 1);
    chart.m_cursorSeq = 8;
    key(Qt::Key_Right);
    EXPECT_EQ(chart.m_cursorSeq, 9);
    key(Qt::Key_Right);
    EXPECT_EQ(chart.m_cursorSeq, 9) << "not above the last";
}

TEST_F(ChartKeys, DealModeSendsNothingForADealThatIsGone)
{
    chart.dealMode();
    chart.m_model->clear();
    chart.m_cursorSeq = 5;
    key(Qt::Key_Left);
    EXPECT_EQ(chart.m_cursorSeq, 4);
    EXPECT_TRUE(chart.sink.take().empty());
    chart.m_cursorSeq = std::numeric_limits<int>::max();
    key(Qt::Key_Right);
    EXPECT_EQ(chart.m_cursorSeq, -1) << "no deal is the last";
    chart.m_cursorSeq = std::numeric_limits<int>::min();
    key(Qt::Key_Left);
    EXPECT_EQ(chart.m_cursorSeq, 0);
}

TEST_F(ChartKeys, OnAnEmptyChartTheCursorStaysUnset)
{
    for (const bool columns : {true, false}) {
        Chart empty;
        empty.m_columnMode = columns;
        for (const int code : {Qt::Key_Left, Qt::Key_Right}) {
            QTest::keyClick(&empty, Qt::Key(code));
            EXPECT_EQ(empty.m_cursorSeq, -1);
        }
        EXPECT_TRUE(empty.sink.events.empty());
    }
}

TEST_F(ChartKeys, OnAChartThatBecameEmptyTheCursorStaysUnset)
{
    const std::vector<std::function<void()>> endings{
        [this] { chart.setStock(kOther); },
        [this] { chart.clear(); },
        [this] { chart.setViewTimeRange(tag(11, 0, 0), tag(11, 0, 1)); },
        [this] { chart.setViewTimeRange(tag(10, 0, 5), tag(10, 0, 1)); },
    };
    for (std::size_t index = 0; index < endings.size(); ++index) {
        SCOPED_TRACE(index);
        chart.setStock(kStock);
        chart.add({{1, 2, 10, 9, 0, 0}, {3, 4, 10, 9, 0, 1}, {5, 6, 10, 9, 0, 2}});
        chart.quotes({1, 5});
        ASSERT_EQ(chart.getSeqByX(0), 0);
        endings[index]();
        for (const bool ticked : {false, true}) {
            if (ticked)
                chart.slotTimeOut();
            EXPECT_EQ(chart.getSeqByX(0), -1);
            for (const bool columns : {true, false}) {
                chart.m_columnMode = columns;
                chart.m_cursorSeq = -1;
                chart.quotes({7});
                for (const int code : {Qt::Key_Left, Qt::Key_Right}) {
                    key(code);
                    EXPECT_EQ(chart.m_cursorSeq, -1);
                }
                chart.press(QPoint(100, 100));
                chart.release(QPoint(100, 100));
                EXPECT_EQ(chart.m_cursorSeq, -1);
            }
            chart.move(QPoint(100, 100));
            EXPECT_FALSE(chart.m_detailTimer->isActive());
            EXPECT_TRUE(chart.sink.take().empty());
        }
    }
}

TEST(ChartKeysWithoutSnapshots, AColumnIsNeverSet)
{
    Chart chart(600, 325);
    chart.fill(10);
    QTest::keyClick(&chart, Qt::Key_Right);
    EXPECT_EQ(chart.m_cursorSeq, -1);
    chart.press(QPoint(100, 100));
    chart.move(QPoint(400, 100));
    EXPECT_EQ(chart.m_cursorSeq, -1);
    chart.release(QPoint(400, 100));
    EXPECT_EQ(chart.m_cursorSeq, -1);
    chart.highlightTransactionSeq(3);
    EXPECT_EQ(chart.m_cursorSeq, -1);
    EXPECT_TRUE(chart.sink.events.empty());
}

TEST_F(ChartKeys, ControlWithUpAndDownChangesTheRows)
{
    key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(chart.m_halfRow, 13);
    key(Qt::Key_Down, Qt::ControlModifier);
    key(Qt::Key_Down, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_EQ(chart.m_halfRow, 11);
    key(Qt::Key_Up);
    key(Qt::Key_Down, Qt::ShiftModifier);
    key(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(chart.m_halfRow, 11) << "only with Control, and nothing else";
}

TEST_F(ChartKeys, OtherKeysAreLeftToTheHostUnlessControlIsHeld)
{
    KeySink host;
    Chart* const child = new Chart;
    child->setParent(&host);
    QTest::keyClick(child, Qt::Key_Up);
    QTest::keyClick(child, Qt::Key_PageDown);
    EXPECT_EQ(host.keys, 2);
    QTest::keyClick(child, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(child, Qt::Key_Up, Qt::ControlModifier);
    QTest::keyClick(child, Qt::Key_Left);
    EXPECT_EQ(host.keys, 2);
}

// Rows in view
// ---------------------------------------------------------------------------------------------------------

namespace {

/// Fifty deals a tick apart from 10.49 down; thirteen rows fit.
class LongLadder : public testing::Test
{
protected:
    LongLadder()
    {
        std::vector<DealText> deals;
        for (int index = 0; index < 50; ++index)
            deals.push_back({1 + 2 * index, 2 + 2 * index, 10.49 - index * 0.01, 9});
        chart.add(deals);
        chart.dealMode();
    }

    Chart chart{600, 325};
};

} // namespace

TEST_F(LongLadder, ADealOutOfViewIsBroughtToTheMiddle)
{
    chart.middleCurrDeal(30);
    EXPECT_EQ(chart.m_scrollRow, 30 - 6);
    EXPECT_EQ(chart.m_scrollBar->value(), 24);
    chart.middleCurrDeal(2);
    EXPECT_EQ(chart.m_scrollRow, 0) << "not above the first row";
}

TEST_F(LongLadder, WithinItsBoundsNothingMoves)
{
    chart.middleCurrDeal(13);
    EXPECT_EQ(chart.m_scrollRow, 0) << "the row below the last whole one counts as inside";
    chart.middleCurrDeal(14);
    EXPECT_EQ(chart.m_scrollRow, 14 - 6);
    chart.m_scrollBar->setValue(5);
    chart.middleCurrDeal(5);
    EXPECT_EQ(chart.m_scrollRow, 5);
    chart.middleCurrDeal(4);
    EXPECT_EQ(chart.m_scrollRow, 0);
}

TEST_F(LongLadder, ADealThatDoesNotExistMovesNothing)
{
    chart.m_scrollBar->setValue(20);
    chart.middleCurrDeal(-1);
    chart.middleCurrDeal(50);
    EXPECT_EQ(chart.m_scrollRow, 20);
}

TEST_F(LongLadder, ADealFarAboveTheViewMovesItToTheTop)
{
    chart.setViewTimeRange(tag(10, 0, 0), tag(10, 0, 49));
    chart.m_scrollBar->setValue(20);
    chart.add({{501, 502, 1e9, 1, 0, 100}});
    chart.middleCurrDeal(50);
    EXPECT_EQ(chart.m_scrollRow, 0);
}

TEST_F(LongLadder, ADealFarBelowTheViewMovesItAsFarAsTheBarGoes)
{
    chart.setViewTimeRange(tag(10, 0, 0), tag(10, 0, 49));
    chart.add({{501, 502, 1, 1, 0, 100}});
    const int end = chart.m_scrollBar->maximum();
    ASSERT_EQ(end, 50 - 13);
    for (int call = 0; call < 3; ++call) {
        chart.middleCurrDeal(50);
        EXPECT_EQ(chart.m_scrollBar->value(), end);
        EXPECT_EQ(chart.m_scrollRow, end) << "the ladder's last rows stay in view";
    }
}

TEST_F(LongLadder, ALadderThatFitsIsNotMoved)
{
    chart.slotAdjustHeight();
    chart.middleCurrDeal(45);
    EXPECT_EQ(chart.m_scrollRow, 0);
}

TEST_F(LongLadder, FollowsTheCursorOfDealMode)
{
    chart.m_cursorSeq = 13;
    QTest::keyClick(&chart, Qt::Key_Right);
    EXPECT_EQ(chart.m_cursorSeq, 14);
    EXPECT_EQ(chart.m_scrollRow, 8);
}

TEST_F(LongLadder, DoesNotFollowTheKeysOfColumnMode)
{
    chart.m_columnMode = true;
    chart.quotes({20, 30});
    chart.m_cursorSeq = 0;
    QTest::keyClick(&chart, Qt::Key_Right);
    EXPECT_EQ(chart.m_cursorSeq, 21);
    EXPECT_EQ(chart.m_scrollRow, 0);
}

// Selection by other panels
// ---------------------------------------------------------------------------------------------------------

TEST_F(ChartKeys, ASelectionByNumberSendsNothing)
{
    chart.highlightTransactionSeq(4);
    EXPECT_EQ(chart.m_cursorSeq, 3) << "the first deal of its interval";
    chart.dealMode();
    chart.highlightTransactionSeq(4);
    EXPECT_EQ(chart.m_cursorSeq, 4);
    chart.highlightTransactionSeq(-1);
    EXPECT_EQ(chart.m_cursorSeq, -1);
    EXPECT_TRUE(chart.sink.events.empty());
}

TEST_F(ChartKeys, ASelectionByNumberDrawsOnlyWhereTheColumnMoves)
{
    chart.highlightTransactionSeq(4);
    chart.m_timeSpanX.clear();
    chart.highlightTransactionSeq(5);
    EXPECT_TRUE(chart.m_timeSpanX.isEmpty()) << "the same interval";
    chart.highlightTransactionSeq(7);
    EXPECT_FALSE(chart.m_timeSpanX.isEmpty());
    chart.dealMode();
    chart.m_timeSpanX.clear();
    chart.highlightTransactionSeq(2);
    EXPECT_TRUE(chart.m_timeSpanX.isEmpty()) << "the outline is no part of the picture";
}

TEST_F(LongLadder, ASelectionByNumberBringsTheDealIntoViewEveryTime)
{
    chart.highlightTransactionSeq(30);
    EXPECT_EQ(chart.m_scrollRow, 24);
    chart.m_scrollBar->setValue(0);
    chart.highlightTransactionSeq(30);
    EXPECT_EQ(chart.m_scrollRow, 24) << "though it was selected before";
}

TEST_F(ChartKeys, ASelectionByTimeTakesTheFirstDealOfTheSecondOrTheLastBefore)
{
    chart.dealMode();
    chart.add({{51, 52, 10.05, 9, 0, 20}, {53, 54, 10.05, 9, 0, 20}, {55, 56, 10.05, 9, 0, 30}});
    chart.highlightTransactionTime(tag(10, 0, 20));
    EXPECT_EQ(chart.m_cursorSeq, 10);
    chart.highlightTransactionTime(tag(10, 0, 25));
    EXPECT_EQ(chart.m_cursorSeq, 11);
    chart.highlightTransactionTime(tag(9, 0, 0));
    EXPECT_EQ(chart.m_cursorSeq, -1);
    chart.m_columnMode = true;
    chart.highlightTransactionTime(tag(10, 0, 4));
    EXPECT_EQ(chart.m_cursorSeq, 3);
    EXPECT_TRUE(chart.sink.events.empty());
}

TEST_F(ChartKeys, ASelectionByTimeDrawsOnlyWhereTheColumnMoves)
{
    chart.highlightTransactionTime(tag(10, 0, 4));
    chart.m_timeSpanX.clear();
    chart.highlightTransactionTime(tag(10, 0, 5));
    EXPECT_TRUE(chart.m_timeSpanX.isEmpty());
    chart.highlightTransactionTime(tag(10, 0, 6));
    EXPECT_FALSE(chart.m_timeSpanX.isEmpty());
}

TEST_F(LongLadder, ASelectionByTimeBringsTheDealIntoView)
{
    chart.highlightTransactionTime(tag(10, 0, 30));
    EXPECT_EQ(chart.m_scrollRow, 24);
}
