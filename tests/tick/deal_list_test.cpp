// Scroll, refresh, selection, clear, strip and timer of the deal list.

#include "TickPanels.h"

#include <QWheelEvent>

using namespace testing_support;
using namespace Kel;

namespace {

void wheel(QWidget& widget, int delta)
{
    const QPointF middle = widget.rect().center();
    QWheelEvent event(middle, widget.mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, delta), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

} // namespace

TEST(DealListLife, ObjectNameAndTimerWithoutAUserConfiguration)
{
    setUserConfig(nullptr);
    CDepthTransactionWidget panel;
    EXPECT_EQ(panel.objectName(), QStringLiteral("transaction_widget"));
    EXPECT_EQ(panel.findChild<QTimer*>()->interval(), 50);
    EXPECT_TRUE(panel.findChild<QTimer*>()->isActive());
}

TEST(DealListLife, BeginsEmptyWithTheWidthsOfItsColumns)
{
    const DealPanel panel;
    EXPECT_EQ(panel.m_layout.rowHeight, 18);
    EXPECT_EQ(panel.m_layout.groupGap, 5);
    EXPECT_EQ(panel.m_layout.margin, 2);
    EXPECT_EQ(panel.m_timeWidth, 62);
    EXPECT_EQ(panel.m_volumeWidth, 42);
    EXPECT_EQ(panel.m_columnGap, 0);
    EXPECT_EQ(panel.m_priceWidth, 60);
    EXPECT_EQ(panel.m_holoWidth, 92);
    EXPECT_EQ(panel.m_total, 0);
    EXPECT_EQ(panel.m_firstIndex, 0);
    EXPECT_EQ(panel.m_selectedIndex, -1);
    EXPECT_EQ(panel.m_tipSide, -1);
    EXPECT_EQ(panel.m_highlightKey, -1);
    EXPECT_EQ(panel.m_highlightRange, std::make_pair(-1, -1));
    EXPECT_TRUE(panel.m_followTail);
    EXPECT_TRUE(panel.m_showHoloGraph);
}

TEST(DealListLife, EndsWithAnEmptyModel)
{
    auto panel = std::make_unique<DealPanel>();
    panel->fill(3);
    const auto model = panel->model();
    ASSERT_EQ(model->count, 3);
    panel.reset();
    EXPECT_EQ(model->count, 0);
}

TEST(DealListLife, TheTimerHasTheUsersPeriodAndFollowsIt)
{
    CUserConfig config;
    config.setRefreshInterval(0.7339);
    setUserConfig(&config);
    {
        CDepthTransactionWidget panel;
        EXPECT_EQ(panel.findChild<QTimer*>()->interval(), 733);
        config.setRefreshInterval(0.25);
        EXPECT_EQ(panel.findChild<QTimer*>()->interval(), 250);
    }
    setUserConfig(nullptr);
}

TEST(DealListScroll, NoMoreRowsThanRoomShowNoBar)
{
    DealPanel panel;
    EXPECT_EQ(panel.m_layout.capacity(), 10);
    panel.fill(10);
    EXPECT_TRUE(panel.m_scrollBar->isHidden());
    EXPECT_EQ(panel.m_total, 10);
    EXPECT_EQ(panel.m_firstIndex, 0);
}

TEST(DealListScroll, TheViewFollowsTheTail)
{
    DealPanel panel;
    panel.fill(12);
    EXPECT_FALSE(panel.m_scrollBar->isHidden());
    EXPECT_EQ(panel.m_scrollBar->maximum(), 2);
    EXPECT_EQ(panel.m_firstIndex, 2);
    panel.fill(5, 13);
    EXPECT_EQ(panel.m_firstIndex, 7);
    EXPECT_EQ(panel.m_scrollBar->value(), 7);
}

TEST(DealListScroll, AViewThatTheUserMovedAwayStaysUntilHeGoesToTheVeryEnd)
{
    DealPanel panel;
    panel.fill(30);
    panel.m_scrollBar->setValue(4);
    EXPECT_EQ(panel.m_firstIndex, 4);
    EXPECT_FALSE(panel.m_followTail);
    panel.fill(5, 31);
    EXPECT_EQ(panel.m_firstIndex, 4);
    EXPECT_EQ(panel.m_scrollBar->maximum(), 25);
    panel.m_scrollBar->setValue(25);
    EXPECT_TRUE(panel.m_followTail);
    panel.fill(5, 36);
    EXPECT_EQ(panel.m_firstIndex, 30);
}

TEST(DealListScroll, AListThatShrinksIntoTheRoomHidesTheBarAndKeepsTheFirstIndex)
{
    DealPanel panel;
    panel.fill(30);
    panel.m_scrollBar->setValue(4);
    SDepthFilterParam param;
    param.relate = 1;
    param.volume = 25; // 6 rows pass
    panel.m_model->setFilterParam(param);
    panel.slotTimeout();
    EXPECT_EQ(panel.m_total, 6);
    EXPECT_TRUE(panel.m_scrollBar->isHidden());
    EXPECT_EQ(panel.m_firstIndex, 4);
    EXPECT_GE(panel.picture()->count(QStringLiteral("30")), 1) << "the tail of the list";
    EXPECT_EQ(panel.picture()->count(QStringLiteral("28")), 0);
}

TEST(DealListScroll, AListThatShrinksIntoTheRoomMayShowNothing)
{
    DealPanel panel;
    panel.fill(30); // the view stands at row 20
    SDepthFilterParam param;
    param.relate = 1;
    param.volume = 25; // 6 rows pass
    panel.m_model->setFilterParam(param);
    panel.slotTimeout();
    EXPECT_EQ(panel.m_total, 6);
    EXPECT_TRUE(panel.m_scrollBar->isHidden());
    EXPECT_EQ(panel.m_firstIndex, 20);
    EXPECT_TRUE(panel.picture()->texts().isEmpty());
    panel.fill(30, 31);
    EXPECT_EQ(panel.m_firstIndex, 26) << "until it grows beyond the room";
}

TEST(DealListScroll, TheBarsEventDrawsThePicture)
{
    DealPanel panel;
    panel.fill(30);
    const QImage tail = panel.m_buffer.toImage();
    panel.m_scrollBar->setValue(4);
    EXPECT_NE(panel.m_buffer.toImage(), tail);
    EXPECT_EQ(panel.m_buffer.toImage(), panel.pictureAsImage());
}

TEST(DealListScroll, EventsOtherThanTheBarsAreNotTaken)
{
    DealPanel panel;
    EXPECT_FALSE(panel.handleEvent(5, 0, 0, QString(), nullptr));
    EXPECT_TRUE(panel.handleEvent(15, 0, 0, QString(), nullptr));
}

TEST(DealListScroll, TheWheelMovesTheBarButNotBeyondItsEnds)
{
    DealPanel panel;
    panel.fill(9);
    wheel(panel, 120);
    EXPECT_EQ(panel.m_firstIndex, 0);
    panel.fill(30, 10);
    EXPECT_EQ(panel.m_firstIndex, 29);
    wheel(panel, -120);
    EXPECT_EQ(panel.m_firstIndex, 29);
    wheel(panel, 120);
    EXPECT_LT(panel.m_firstIndex, 29);
    EXPECT_FALSE(panel.m_followTail);
    panel.m_scrollBar->setValue(0);
    wheel(panel, 120);
    EXPECT_EQ(panel.m_firstIndex, 0);
}

TEST(DealListScroll, TheBarStandsAtTheRightAndHasTheSharedSheet)
{
    DealPanel panel;
    EXPECT_EQ(panel.m_scrollBar->geometry(), QRect(534, 0, 6, 94));
    EXPECT_EQ(panel.m_scrollBar->pageStep(), 5);
    EXPECT_EQ(panel.m_scrollBar->singleStep(), 1);
    EXPECT_TRUE(panel.m_scrollBar->styleSheet().startsWith(
        QStringLiteral("QScrollBar:vertical {border: 0px solid ")));
    EXPECT_FALSE(panel.m_scrollBar->styleSheet().contains(QLatin1Char('%')));
}

TEST(DealListRefresh, AHiddenPanelLeavesTheFlagAndCatchesUpWhenItIsShown)
{
    DealPanel panel;
    panel.hide();
    panel.fill(3);
    EXPECT_TRUE(panel.m_model->dirty);
    EXPECT_EQ(panel.m_total, 0);
    panel.show();
    panel.slotTimeout();
    EXPECT_FALSE(panel.m_model->dirty);
    EXPECT_EQ(panel.m_total, 3);
}

TEST(DealListRefresh, AHiddenPanelPaintsNothing)
{
    DealPanel panel;
    panel.fill(8);
    const QImage shown = panel.grab().toImage();
    panel.hide();
    const QImage hidden = panel.grab().toImage();
    EXPECT_NE(hidden, shown);
    EXPECT_NE(hidden.pixelColor(3, 0), colorOf("ic_clr_graph_kline_bg"));
}

TEST(DealListRefresh, ARowThatVanishedEndsThePicture)
{
    DealPanel panel;
    panel.fill(8);
    panel.m_total = 10;
    EXPECT_EQ(panel.picture()->count(QStringLiteral("10.00")), 8);
    panel.m_model->clear();
    EXPECT_EQ(panel.m_total, 10) << "until the next look";
    EXPECT_TRUE(panel.picture()->texts().isEmpty());
}

TEST(DealListRefresh, AFilterThatLeavesMoreThanTheRoomShowsTheTailOfTheNewList)
{
    DealPanel panel;
    panel.fill(60);
    SDepthFilterParam param;
    param.relate = 1;
    param.volume = 21; // 40 rows pass
    panel.m_model->setFilterParam(param);
    panel.slotTimeout();
    EXPECT_EQ(panel.m_firstIndex, 30);
    EXPECT_EQ(panel.m_scrollBar->maximum(), 30);
    panel.m_scrollBar->setValue(4);
    param.volume = 31; // 30 rows pass, and the reader is not at the tail
    panel.m_model->setFilterParam(param);
    panel.slotTimeout();
    EXPECT_EQ(panel.m_firstIndex, 4);
    EXPECT_EQ(panel.m_scrollBar->maximum(), 20);
}

TEST(DealListRefresh, NothingHappensWithoutNews)
{
    DealPanel panel;
    panel.fill(30);
    panel.m_total = 7;
    panel.slotTimeout();
    EXPECT_EQ(panel.m_total, 7);
}

TEST(DealListSelection, AClickSelectsAndTellsTheHost)
{
    DealPanel panel;
    panel.fill(8);
    QTest::mouseClick(&panel, Qt::LeftButton, Qt::NoModifier, panel.middleOf(6));
    EXPECT_EQ(panel.m_selectedIndex, 6);
    ASSERT_EQ(panel.sink.events.size(), 1u);
    EXPECT_EQ(panel.sink.events[0], (SentEvent{3224, 1, 6, QString::number(tag(10, 0, 7))}));
}

TEST(DealListSelection, TheSecondClickDeselectsAndTellsNobody)
{
    DealPanel panel;
    panel.fill(8);
    QTest::mouseClick(&panel, Qt::LeftButton, Qt::NoModifier, panel.middleOf(6));
    panel.sink.events.clear();
    QTest::mouseClick(&panel, Qt::LeftButton, Qt::NoModifier, panel.middleOf(6));
    EXPECT_EQ(panel.m_selectedIndex, -1);
    EXPECT_TRUE(panel.sink.events.empty());
}

TEST(DealListSelection, AClickBesideTheRowsDropsTheSelection)
{
    DealPanel panel;
    panel.fill(8);
    QTest::mouseClick(&panel, Qt::LeftButton, Qt::NoModifier, panel.middleOf(2));
    QTest::mouseClick(&panel, Qt::LeftButton, Qt::NoModifier, panel.middleOf(9));
    EXPECT_EQ(panel.m_selectedIndex, -1);
    EXPECT_EQ(panel.sink.events.size(), 1u);
}

TEST(DealListSelection, CountsFromTheFirstVisibleRow)
{
    DealPanel panel;
    panel.fill(30);
    panel.m_scrollBar->setValue(12);
    QTest::mouseClick(&panel, Qt::LeftButton, Qt::NoModifier, panel.middleOf(3));
    EXPECT_EQ(panel.m_selectedIndex, 15);
}

TEST(DealListSelection, NeverTouchesThePixmapAndIsOutlinedOverIt)
{
    DealPanel panel;
    panel.fill(8);
    const QStringList before = panel.picture()->texts();
    const QImage plain = panel.grab().toImage();
    QTest::mouseClick(&panel, Qt::LeftButton, Qt::NoModifier, panel.middleOf(6));
    EXPECT_EQ(panel.picture()->texts(), before);
    const QImage selected = panel.grab().toImage();
    const QRect row = panel.m_layout.rowRect(6);
    const QColor outline = colorOf("ic_clr_entrust_amount");
    EXPECT_EQ(selected.pixelColor(row.topLeft()), outline);
    EXPECT_EQ(selected.pixelColor(row.bottomRight() + QPoint(1, 0)), outline) << "as wide as told";
    EXPECT_EQ(selected.pixelColor(row.bottomLeft() + QPoint(3, 1)), outline) << "and as high";
    EXPECT_NE(plain.pixelColor(row.topLeft()), outline);
}

TEST(DealListSelection, OfTheLastLineHasItsLowerEdgeInsideTheWidget)
{
    DealPanel panel(540, 90);
    panel.fill(5);
    panel.highlightTransaction(4);
    EXPECT_EQ(panel.grab().toImage().pixelColor(20, 89), colorOf("ic_clr_entrust_amount"));
}

TEST(DealListClear, DropsRowsSelectionHighlightAndScroll)
{
    DealPanel panel;
    panel.fill(30);
    panel.m_scrollBar->setValue(3);
    panel.highlightTransaction(5);
    TransData second;
    second.time = tag(10, 0, 9);
    panel.highlightTransaction(&second, false);
    panel.clear(true);
    EXPECT_EQ(panel.m_total, 0);
    EXPECT_EQ(panel.m_firstIndex, 0);
    EXPECT_EQ(panel.m_selectedIndex, -1);
    EXPECT_EQ(panel.m_highlightKey, -1);
    EXPECT_EQ(panel.m_highlightRange, std::make_pair(-1, -1));
    EXPECT_TRUE(panel.m_followTail);
    EXPECT_EQ(panel.m_model->count, 0);
    EXPECT_TRUE(panel.picture()->texts().isEmpty());
}

TEST(DealListClear, WithoutRepaintKeepsTheOldPicture)
{
    DealPanel panel;
    panel.fill(8);
    const QImage before = panel.grab().toImage();
    panel.clear(false);
    EXPECT_EQ(panel.grab().toImage(), before);
    panel.clear(true);
    EXPECT_NE(panel.grab().toImage(), before);
}

TEST(DealListClear, AChangeOfStockAloneKeepsTheRows)
{
    DealPanel panel;
    panel.fill(8);
    panel.setStock(kOther);
    panel.slotTimeout();
    EXPECT_EQ(panel.m_total, 8);
}

TEST(DealListStrip, SwitchedOffItsWidthGoesToThePrice)
{
    DealPanel panel(600, 94);
    EXPECT_EQ(panel.m_layout.groupCount, 2);
    panel.setShowHoloGraph(false);
    EXPECT_EQ(panel.m_layout.groupCount, 3);
    EXPECT_EQ(panel.m_layout.priceArea, panel.m_layout.groupWidth - 104);
    EXPECT_TRUE(panel.m_model->dirty) << "the next tick mends the range";
    panel.setShowHoloGraph(true);
    EXPECT_EQ(panel.m_layout.groupCount, 2);
    EXPECT_EQ(panel.m_layout.priceArea, panel.m_layout.groupWidth - 196);
}

TEST(DealListStrip, ActionsEightAndTenSwitchItAndOthersDoNothing)
{
    DealPanel panel;
    panel.m_tipSide = 1;
    panel.actionHandler(8);
    EXPECT_EQ(panel.m_tipSide, 1) << "it is on already";
    panel.actionHandler(10);
    EXPECT_FALSE(panel.m_showHoloGraph);
    EXPECT_EQ(panel.m_tipSide, -1);
    for (const int action : {0, 9, 11, -1})
        panel.actionHandler(action);
    EXPECT_FALSE(panel.m_showHoloGraph);
    panel.actionHandler(8);
    EXPECT_TRUE(panel.m_showHoloGraph);
}

TEST(DealListStrip, MayBeOffFromTheStart)
{
    DealPanel panel(540, 94, false);
    EXPECT_FALSE(panel.m_showHoloGraph);
    EXPECT_EQ(panel.m_layout.groupCount, 3);
}

TEST(DealListResize, IgnoresEmptySizes)
{
    DealPanel panel;
    panel.fill(8);
    panel.resize(0, 94);
    EXPECT_EQ(panel.m_rect.width(), 540);
    panel.resize(540, 94);
    EXPECT_EQ(panel.m_layout.capacity(), 10);
    panel.resize(540, 40);
    EXPECT_EQ(panel.m_layout.capacity(), 4);
    EXPECT_EQ(panel.m_firstIndex, 4) << "the view still follows the tail";
}

TEST(DealListText, OfARowIsOneLine)
{
    DealPanel panel;
    panel.deals({deal(1, 5, 6, 10.5, 12300, at(10, 0, 7))});
    EXPECT_EQ(panel.rowText(0), QStringLiteral("10:00:07\t10.50\t123\t5\t6"));
    EXPECT_EQ(panel.rowText(1), QString());
}
