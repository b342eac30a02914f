// The chart operated by mouse.

#include "Chart.h"

using namespace testing_support;
using namespace Kel;

namespace {

QString tagText(int second)
{
    return QString::number(tag(10, 0, second));
}

/// Ten deals of nine lots, one a second, 60 pixels each; intervals 0 to 2, 3 to 5 and the open one 6 to 9.
class ChartMouse : public testing::Test
{
protected:
    ChartMouse()
    {
        std::vector<DealText> deals;
        for (int index = 0; index < 10; ++index)
            deals.push_back({1 + 2 * index, 2 + 2 * index, 10 + index * 0.01, 9});
        chart.add(deals);
        chart.quotes({2, 5});
    }

    /// A point on a deal.
    static QPoint on(int seq) { return QPoint(seq * 60 + 30, 100); }

    Chart chart{600, 325};
};

} // namespace

TEST_F(ChartMouse, StartsInColumnModeAndADoubleClickTurnsItOver)
{
    EXPECT_TRUE(chart.m_columnMode);
    chart.doubleClick(on(4));
    EXPECT_FALSE(chart.m_columnMode);
    chart.doubleClick(on(4));
    EXPECT_TRUE(chart.m_columnMode);
}

TEST_F(ChartMouse, ADoubleClickGoesThroughTheFirstClickInTheOldMode)
{
    chart.press(on(4));
    chart.release(on(4));
    EXPECT_EQ(chart.sink.take(), (Events{{3224, 0, 3, tagText(5)}})) << "a whole interval";
    chart.m_timeSpanX.clear();
    chart.mouse(QEvent::MouseButtonDblClick, on(4), Qt::LeftButton);
    EXPECT_FALSE(chart.m_columnMode);
    EXPECT_FALSE(chart.m_timeSpanX.isEmpty()) << "the column goes from the picture";
    EXPECT_TRUE(chart.sink.take().empty());
    chart.release(on(4));
    EXPECT_EQ(chart.sink.take(), (Events{{3224, 0, 4, tagText(4)}}));
}

TEST_F(ChartMouse, AClickInColumnModeSelectsTheInterval)
{
    chart.press(on(7));
    EXPECT_TRUE(chart.m_dragging);
    EXPECT_FALSE(chart.m_selecting);
    EXPECT_EQ(chart.m_dragLastX, on(7).x());
    chart.m_timeSpanX.clear();
    chart.release(on(7));
    EXPECT_FALSE(chart.m_dragging);
    EXPECT_EQ(chart.m_cursorSeq, 6);
    EXPECT_FALSE(chart.m_timeSpanX.isEmpty()) << "drawn at once";
    EXPECT_EQ(chart.sink.take(), (Events{{3224, 0, 6, tagText(9)}}));
}

TEST_F(ChartMouse, AClickInDealModeSelectsTheDeal)
{
    chart.dealMode();
    chart.press(on(7));
    EXPECT_TRUE(chart.m_selecting);
    EXPECT_FALSE(chart.m_dragging);
    chart.release(on(7));
    EXPECT_FALSE(chart.m_selecting);
    EXPECT_EQ(chart.m_cursorSeq, 7);
    EXPECT_EQ(chart.sink.take(), (Events{{3224, 0, 7, tagText(7)}}));
}

TEST_F(ChartMouse, AReleaseBeyondTheLastDealTakesTheCursorAway)
{
    for (const bool columns : {true, false}) {
        chart.m_columnMode = columns;
        chart.m_cursorSeq = 3;
        chart.press(QPoint(605, 100));
        chart.release(QPoint(605, 100));
        EXPECT_EQ(chart.m_cursorSeq, -1);
        EXPECT_TRUE(chart.sink.take().empty());
    }
}

TEST_F(ChartMouse, AReleaseWithoutAPressActsByItself)
{
    chart.release(on(4));
    EXPECT_EQ(chart.m_cursorSeq, 3);
    EXPECT_EQ(chart.sink.take(), (Events{{3224, 0, 3, tagText(5)}}));
}

// Dragging
// -----------------------------------------------------------------------------------------------------------

TEST_F(ChartMouse, DraggingToTheLeftCountsOnFromTheEndOfTheView)
{
    chart.setViewTimeRange(tag(10, 0, 2), tag(10, 0, 7)); // deals 2 to 7 on 600 pixels
    chart.press(QPoint(300, 100));
    chart.move(QPoint(181, 100));
    EXPECT_EQ(chart.m_cursorSeq, -1) << "5 * 119 / 600 is no deal yet";
    EXPECT_EQ(chart.m_dragLastX, 300);
    EXPECT_EQ(chart.cursor().shape(), Qt::ClosedHandCursor);
    chart.move(QPoint(180, 100));
    EXPECT_EQ(chart.m_cursorSeq, 7 + 1);
    EXPECT_EQ(chart.m_dragLastX, 180);
    EXPECT_EQ(chart.sink.take(), (Events{{3224, 0, 8, tagText(9)}}));
}

TEST_F(ChartMouse, DraggingToTheRightCountsBackFromTheStartOfTheView)
{
    chart.setViewTimeRange(tag(10, 0, 4), tag(10, 0, 9));
    chart.press(QPoint(100, 100));
    chart.move(QPoint(340, 100));
    EXPECT_EQ(chart.m_cursorSeq, 4 - 2);
    EXPECT_EQ(chart.sink.take(), (Events{{3224, 0, 2, tagText(2)}}));
}

TEST_F(ChartMouse, DraggingNeverGoesBelowTheFirstDeal)
{
    chart.press(QPoint(10, 100));
    chart.move(QPoint(590, 100));
    EXPECT_EQ(chart.m_cursorSeq, 0);
}

TEST_F(ChartMouse, DraggingBeyondTheLastDealSendsNothing)
{
    chart.press(QPoint(590, 100));
    chart.move(QPoint(10, 100));
    EXPECT_EQ(chart.m_cursorSeq, 9 + 8);
    EXPECT_TRUE(chart.sink.take().empty()) << "no interval is there";
}

TEST_F(ChartMouse, DraggingToTheSamePlaceSendsNothingTwice)
{
    chart.setViewTimeRange(tag(10, 0, 4), tag(10, 0, 9));
    chart.press(QPoint(100, 100));
    chart.move(QPoint(340, 100));
    chart.sink.take();
    chart.move(QPoint(345, 100));
    EXPECT_TRUE(chart.sink.take().empty());
    chart.move(QPoint(585, 100));
    EXPECT_EQ(chart.m_cursorSeq, 2);
    EXPECT_TRUE(chart.sink.take().empty()) << "it is there already";
}

TEST_F(ChartMouse, DraggingDrawsNothing)
{
    chart.press(QPoint(100, 100));
    chart.m_timeSpanX.clear();
    chart.move(QPoint(400, 100));
    EXPECT_TRUE(chart.m_timeSpanX.isEmpty());
    chart.release(QPoint(400, 100));
    EXPECT_FALSE(chart.m_timeSpanX.isEmpty());
    EXPECT_EQ(chart.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ChartMouse, AMoveWithoutAPressDoesNothingInColumnMode)
{
    chart.move(QPoint(400, 100));
    EXPECT_EQ(chart.m_cursorSeq, -1);
    EXPECT_EQ(chart.m_hoverPos, QPoint()) << "there is no hover in this mode";
    EXPECT_FALSE(chart.m_detailTimer->isActive());
}

TEST_F(ChartMouse, DraggingOnAChartWithoutWidthDividesByNothing)
{
    chart.resize(50, 200);
    ASSERT_EQ(chart.m_chartWidth, 0);
    chart.press(QPoint(40, 100));
    chart.move(QPoint(0, 100));
    EXPECT_EQ(chart.m_cursorSeq, -1);
}

TEST_F(ChartMouse, AnotherButtonEndsDraggingAndSelecting)
{
    chart.press(QPoint(100, 100));
    chart.move(QPoint(400, 100));
    const int cursor = chart.m_cursorSeq;
    chart.release(QPoint(400, 100), Qt::RightButton);
    EXPECT_FALSE(chart.m_dragging);
    EXPECT_EQ(chart.cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(chart.m_cursorSeq, cursor);
    chart.dealMode();
    chart.press(QPoint(100, 100));
    chart.release(QPoint(400, 100), Qt::MiddleButton);
    EXPECT_FALSE(chart.m_selecting);
}

TEST_F(ChartMouse, OtherButtonsBeginNothing)
{
    for (const bool columns : {true, false}) {
        chart.m_columnMode = columns;
        chart.press(on(3), Qt::RightButton);
        EXPECT_FALSE(chart.m_dragging);
        EXPECT_FALSE(chart.m_selecting);
    }
}

// Range
// ---------------------------------------------------------------------------------------------------------------

TEST_F(ChartMouse, ADragInDealModeSelectsARange)
{
    chart.dealMode();
    chart.press(QPoint(430, 200));
    chart.move(QPoint(150, 80));
    EXPECT_EQ(chart.m_selectRect, QRect(150, 80, 280, 120)) << "whichever way it is drawn";
    chart.release(QPoint(150, 80));
    EXPECT_EQ(chart.sink.take(),
              (Events{{3227, tag(10, 0, 2), tag(10, 0, 7), QString()}, {3224, 0, 2, tagText(2)}}));
    EXPECT_TRUE(chart.m_selectRect.isNull());
    EXPECT_FALSE(chart.m_selecting);
}

TEST_F(ChartMouse, ARangeOfThirtyPixelsIsNone)
{
    chart.dealMode();
    chart.press(QPoint(100, 200));
    chart.move(QPoint(130, 80));
    chart.release(QPoint(130, 80));
    EXPECT_EQ(chart.sink.take(), (Events{{3224, 0, 2, tagText(2)}})) << "but the cursor is placed";
    chart.press(QPoint(100, 200));
    chart.move(QPoint(131, 80));
    chart.release(QPoint(131, 80));
    EXPECT_EQ(chart.sink.take().size(), 2u);
}

TEST_F(ChartMouse, ARangeWithAnEndBeyondTheDealsIsNotSent)
{
    chart.dealMode();
    chart.press(QPoint(100, 200));
    chart.move(QPoint(630, 80));
    chart.release(QPoint(630, 80));
    EXPECT_TRUE(chart.sink.take().empty());
}

TEST_F(ChartMouse, ARangeGivesLowRowsTwoPixelsBack)
{
    chart.dealMode();
    const auto select = [this] {
        chart.press(QPoint(100, 200));
        chart.move(QPoint(300, 80));
        chart.release(QPoint(300, 80));
    };
    chart.setFullHeightChagne(-5);
    select();
    EXPECT_EQ(chart.m_halfRow, 9);
    EXPECT_EQ(chart.m_rowHeight, 19);
    select();
    EXPECT_EQ(chart.m_halfRow, 11);
    select();
    EXPECT_EQ(chart.m_halfRow, 12) << "up to the usual height";
    select();
    EXPECT_EQ(chart.m_halfRow, 12);
    chart.setFullHeightChagne(3);
    select();
    EXPECT_EQ(chart.m_halfRow, 15) << "high rows stay";
}

TEST_F(ChartMouse, ARangeThatIsNotSentGivesRowsBackAllTheSame)
{
    chart.dealMode();
    chart.setFullHeightChagne(-5);
    chart.press(QPoint(100, 200));
    chart.move(QPoint(630, 80));
    chart.release(QPoint(630, 80));
    EXPECT_TRUE(chart.sink.take().empty());
    EXPECT_EQ(chart.m_halfRow, 9);
    EXPECT_FALSE(chart.m_selecting);
}

TEST_F(ChartMouse, ADealThatIsGoneIsPlacedButNotTold)
{
    chart.dealMode();
    chart.press(QPoint(100, 200));
    chart.move(QPoint(400, 80));
    chart.onTransactionCallback(kStock, 0, 0, wrap({})); // the day begins anew, the picture is the old one
    chart.release(on(4));
    EXPECT_EQ(chart.m_cursorSeq, 4);
    EXPECT_TRUE(chart.sink.take().empty());
    chart.m_columnMode = true;
    chart.press(on(4));
    chart.release(on(4));
    EXPECT_EQ(chart.m_cursorSeq, -1) << "it is in no interval";
    EXPECT_TRUE(chart.sink.take().empty());
}

TEST_F(ChartMouse, ANarrowRangeLeavesTheRows)
{
    chart.dealMode();
    chart.setFullHeightChagne(-5);
    chart.press(QPoint(100, 200));
    chart.move(QPoint(120, 80));
    chart.release(QPoint(120, 80));
    EXPECT_EQ(chart.m_halfRow, 7);
}

TEST_F(ChartMouse, ARangeThatWasGivenUpIsNotSentByTheNextClick)
{
    chart.dealMode();
    chart.press(QPoint(100, 200));
    chart.move(QPoint(400, 80));
    chart.release(QPoint(400, 80), Qt::RightButton);
    chart.press(QPoint(400, 80));
    chart.release(QPoint(400, 80));
    EXPECT_EQ(chart.sink.take(), (Events{{3224, 0, 6, tagText(6)}}));
}

// Hover
// ---------------------------------------------------------------------------------------------------------------

TEST_F(ChartMouse, APauseShowsTheDealAndAMoveHidesIt)
{
    setUserConfig(nullptr);
    chart.dealMode();
    chart.move(on(4));
    EXPECT_TRUE(chart.m_detailTimer->isActive());
    EXPECT_EQ(chart.m_detailTimer->interval(), 500) << "not the refresh timer's 200";
    EXPECT_EQ(chart.m_detailSeq, -1);
    chart.slotShowDealDetail();
    EXPECT_EQ(chart.m_detailSeq, 4);
    EXPECT_FALSE(chart.m_detailTimer->isSingleShot());
    chart.move(on(5));
    EXPECT_EQ(chart.m_detailSeq, -1);
    EXPECT_TRUE(chart.m_detailTimer->isActive());
}

TEST_F(ChartMouse, TheHoverDelayIsTheRefreshPeriodOfTheUser)
{
    CUserConfig config;
    config.setRefreshInterval(0.25);
    setUserConfig(&config);
    chart.dealMode();
    chart.move(on(4));
    setUserConfig(nullptr);
    EXPECT_EQ(chart.m_detailTimer->interval(), 250);
}

TEST_F(ChartMouse, AMoveBesideTheDealsEndsAHoverOnlyIfItsBoxShowed)
{
    chart.dealMode();
    chart.move(on(4));
    chart.move(QPoint(620, 100));
    EXPECT_TRUE(chart.m_detailTimer->isActive()) << "no box was there";
    chart.move(on(4));
    chart.slotShowDealDetail();
    chart.move(QPoint(620, 100));
    EXPECT_FALSE(chart.m_detailTimer->isActive());
    EXPECT_EQ(chart.m_detailSeq, -1);
}

TEST_F(ChartMouse, APressHidesTheBox)
{
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        chart.m_columnMode = true;
        chart.m_detailTimer->start(1000);
        chart.m_detailSeq = 4;
        chart.press(on(4), button);
        EXPECT_EQ(chart.m_detailSeq, -1);
        EXPECT_FALSE(chart.m_detailTimer->isActive());
        chart.release(on(4), button);
    }
}

TEST_F(ChartMouse, LeavingEndsEverything)
{
    chart.dealMode();
    chart.move(on(4));
    chart.slotShowDealDetail();
    chart.m_selecting = true;
    chart.m_dragging = true;
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&chart, &leave);
    EXPECT_EQ(chart.m_detailSeq, -1);
    EXPECT_FALSE(chart.m_detailTimer->isActive());
    EXPECT_FALSE(chart.m_selecting);
    EXPECT_FALSE(chart.m_dragging);
}

TEST_F(ChartMouse, LeavingWhileDraggingGivesTheArrowBack)
{
    chart.press(QPoint(100, 100));
    chart.move(QPoint(400, 100));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&chart, &leave);
    EXPECT_EQ(chart.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ChartMouse, TheBoxIsSeenOverThePicture)
{
    chart.dealMode();
    const QImage before = chart.grab().toImage();
    chart.move(on(4));
    chart.slotShowDealDetail();
    EXPECT_NE(chart.grab().toImage(), before);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&chart, &leave);
    EXPECT_EQ(chart.grab().toImage(), before);
}

// Hosts
// ---------------------------------------------------------------------------------------------------------------

namespace {

/// Answers an event by what it is told to do.
class AnsweringHost : public Zeb::CEventHandler
{
public:
    bool handleEvent(int id, int first, int second, QString, void*) override
    {
        answer(id, first, second);
        return true;
    }

    std::function<void(int, int, int)> answer;
};

std::unique_ptr<Chart> chartOf(AnsweringHost& host)
{
    auto chart = std::make_unique<Chart>(600, 325);
    chart->removeReceiver(&chart->sink);
    chart->addReceiver(&host);
    chart->fill(10, 10, 9);
    chart->quotes({2, 5});
    return chart;
}

} // namespace

TEST(ChartHost, MayCloseTheChartWhenItHearsOfASelection)
{
    for (const int wanted : {3224, 3227}) {
        for (const bool columns : {true, false}) {
            for (const bool byKey : {true, false}) {
                AnsweringHost host;
                std::unique_ptr<Chart> chart = chartOf(host);
                chart->m_columnMode = columns;
                host.answer = [&](int id, int, int) {
                    if (id == wanted)
                        chart.reset();
                };
                Chart* const pressed = chart.get();
                if (byKey) {
                    QKeyEvent key(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
                    QApplication::sendEvent(pressed, &key);
                } else {
                    pressed->press(QPoint(100, 100));
                    QMouseEvent move(QEvent::MouseMove, QPoint(500, 200), Qt::NoButton, Qt::LeftButton,
                                     Qt::NoModifier);
                    QApplication::sendEvent(pressed, &move);
                    if (chart) {
                        QMouseEvent release(QEvent::MouseButtonRelease, QPoint(500, 200), Qt::LeftButton,
                                            Qt::NoButton, Qt::NoModifier);
                        QApplication::sendEvent(pressed, &release);
                    }
                }
                const bool isSent = wanted == 3224 || (!columns && !byKey);
                EXPECT_EQ(chart == nullptr, isSent) << wanted << columns << byKey;
                host.answer = [](int, int, int) {};
            }
        }
    }
}

TEST(ChartHost, MayAnswerASelectionByTellingTheChartOfIt)
{
    AnsweringHost host;
    std::unique_ptr<Chart> chart = chartOf(host);
    chart->m_columnMode = false;
    int events = 0;
    host.answer = [&](int id, int first, int second) {
        ++events;
        if (id == 3224)
            chart->highlightTransactionSeq(second);
        else
            chart->setViewTimeRange(first, second);
    };
    chart->press(QPoint(100, 100));
    chart->move(QPoint(500, 200));
    chart->release(QPoint(500, 200));
    EXPECT_EQ(events, 2) << "no echo";
    EXPECT_EQ(chart->m_dealRightX.firstKey(), 1);
    EXPECT_EQ(chart->m_dealRightX.lastKey(), 8);
}
