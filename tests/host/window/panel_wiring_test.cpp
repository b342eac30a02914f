// What the panels tell each other: selected deals and ranges, marks and tracked orders.

#include "host/window/InstrumentList.h"
#include "host/window/MessageBar.h"
#include "host/window/PaneWindow.h"
#include "host/window/TerminalActions.h"
#include "host/window/WindowFixture.h"
#include "host/window/workspace/TrackOrderDialog.h"
#include "platform/toolkit/CLineEdit.h"
#include "platform/toolkit/CMediumNormalButton.h"
#include "platform/toolkit/CPushButton.h"
#include "platform/utils/exchange_time.h"
#include "tick/CDepthFilterSettingDialog.h"
#include "tick/CEntrustTitleWidget.h"
#include "tick/filter_dialog_ids.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTest>

namespace window_tests {
namespace {

/// Presses a button of the filter dialog.
void press(const Kel::CDepthFilterSettingDialog& dialog, int id)
{
    for (auto* button : dialog.findChildren<Zeb::CMediumNormalButton*>()) {
        if (button->id() == id)
            QTest::mouseClick(button, Qt::LeftButton);
    }
}

/// Types a number into a field of the filter dialog.
void type(const Kel::CDepthFilterSettingDialog& dialog, int id, int number)
{
    for (auto* edit : dialog.findChildren<Zeb::CLineEdit*>()) {
        if (edit->id() != id)
            continue;
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, QString::number(number));
    }
}

class Wiring : public PaneWindow
{
protected:
    void clickDeal(int row)
    {
        const QPoint place = ListEyes::middleOf(deals(), row);
        ASSERT_TRUE(deals().rect().contains(place)) << row;
        QTest::mouseClick(&deals(), Qt::LeftButton, Qt::NoModifier, place);
    }

    void clickChart(Kel::CDepthHolographicWidget& which, int deal)
    {
        const QPoint place = ChartEyes::pointOf(which, deal);
        ASSERT_TRUE(which.rect().contains(place)) << deal;
        QTest::mouseClick(&which, Qt::LeftButton, Qt::NoModifier, place);
    }

    /// Both charts with single deals as their cursors.
    void showSingleDeals()
    {
        for (Kel::CDepthHolographicWidget* one : {&chart(), &zoom()}) {
            QTest::mouseDClick(one, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
            ASSERT_FALSE(ChartEyes::columns(*one));
        }
    }

    /// A deal in both charts' view that is in none of the list's last rows.
    int dealInView() { return chart().model()->getStartIndex() + 20; }

    /// Filters the list of deals by its dialog: no fewer lots.
    void filterDeals(int lots)
    {
        whenOpen<Kel::CDepthFilterSettingDialog>([lots](auto& dialog) {
            type(dialog, Kel::eVolumeControl, lots);
            press(dialog, Kel::eRelation); // and
            press(dialog, Kel::eConfirmControl);
        });
        deals().doFilter();
        settle();
        ASSERT_EQ(dialogs, 1);
    }
};

TEST_F(Wiring, ADealSelectedInTheListIsTheCursorOfBothCharts)
{
    ASSERT_TRUE(openAt(10, 30));
    showSingleDeals();
    const int row = ListEyes::firstInView(deals()) + 3;
    clickDeal(row);
    EXPECT_EQ(ChartEyes::cursor(chart()), row);
    EXPECT_EQ(ChartEyes::cursor(zoom()), row);
    EXPECT_EQ(deals().selectedRow(), row);
}

TEST_F(Wiring, InColumnModeTheChartsSelectTheIntervalOfTheDeal)
{
    ASSERT_TRUE(openAt(10, 30));
    const int row = ListEyes::firstInView(deals()) + 3;
    clickDeal(row);
    const int first = chart().model()->getCurrSeqPair(row).first;
    ASSERT_GE(first, 0);
    EXPECT_EQ(ChartEyes::cursor(chart()), first);
    EXPECT_EQ(ChartEyes::cursor(zoom()), first);
    EXPECT_EQ(deals().selectedRow(), row) << "what was clicked stays selected";
}

TEST_F(Wiring, KeysInTheListMoveTheChartsToo)
{
    ASSERT_TRUE(openAt(10, 30));
    showSingleDeals();
    clickDeal(ListEyes::firstInView(deals()) + 3);
    const int row = deals().selectedRow();
    focus(deals());
    key(Qt::Key_Up);
    EXPECT_EQ(deals().selectedRow(), row - 1);
    EXPECT_EQ(ChartEyes::cursor(chart()), row - 1);
    EXPECT_EQ(ChartEyes::cursor(zoom()), row - 1);
}

TEST_F(Wiring, ADealSelectedInTheChartIsSelectedInTheListAndTheOtherChart)
{
    ASSERT_TRUE(openAt(10, 30));
    showSingleDeals();
    const int deal = dealInView();
    clickChart(chart(), deal);
    EXPECT_EQ(ChartEyes::cursor(chart()), deal);
    EXPECT_EQ(ChartEyes::cursor(zoom()), deal);
    EXPECT_EQ(deals().selectedRow(), deal);
    EXPECT_TRUE(deals().rect().contains(ListEyes::middleOf(deals(), deal))) << "in view";
    const auto rows = DealEyes::highlighted(deals());
    EXPECT_LE(rows.first, deal);
    EXPECT_GE(rows.second, deal);
    EXPECT_EQ(rows, deals().model()->find(deals().model()->getData(deal)->time));
}

TEST_F(Wiring, ADealSelectedInTheZoomedChartIsSelectedInTheListAndTheOtherChart)
{
    ASSERT_TRUE(openAt(10, 30));
    showSingleDeals();
    const int deal = dealInView() + 5;
    clickChart(zoom(), deal);
    EXPECT_EQ(ChartEyes::cursor(zoom()), deal);
    EXPECT_EQ(ChartEyes::cursor(chart()), deal);
    EXPECT_EQ(deals().selectedRow(), deal);
}

TEST_F(Wiring, AnIntervalSelectedInTheChartHighlightsItsSecondInTheList)
{
    ASSERT_TRUE(openAt(10, 30));
    clickChart(chart(), dealInView());
    const int cursor = ChartEyes::cursor(chart());
    ASSERT_GE(cursor, 0);
    const int second = chart().model()->getCurrQuoterTimgtag(cursor);
    auto rows = deals().model()->find(second);
    if (rows.first < 0) { // the interval ends after its last deal
        Kel::TransData at;
        at.time = second;
        deals().model()->tryFind(&at, rows);
    }
    EXPECT_EQ(DealEyes::highlighted(deals()), rows);
    EXPECT_EQ(ChartEyes::cursor(zoom()), cursor);
}

TEST_F(Wiring, AFilteredListFindsTheChartsByTime)
{
    ASSERT_TRUE(openAt(10, 30));
    showSingleDeals();
    const int all = deals().model()->count;
    filterDeals(5);
    const int kept = deals().model()->count;
    ASSERT_GT(kept, 10);
    ASSERT_LT(kept, all);
    const int row = kept - 1;
    focus(deals());
    key(Qt::Key_End);
    const auto wanted = deals().model()->getData(row);
    const auto found = chart().model()->getData(ChartEyes::cursor(chart()));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->time, wanted->time);
    EXPECT_EQ(ChartEyes::cursor(zoom()), ChartEyes::cursor(chart()));
    EXPECT_EQ(deals().selectedRow(), row);
}

TEST_F(Wiring, AFilteredListHighlightsTheSecondOfADealOfTheChart)
{
    ASSERT_TRUE(openAt(10, 30));
    showSingleDeals();
    filterDeals(5);
    ASSERT_EQ(deals().selectedRow(), -1);
    // A deal that the filter has dropped, and whose index means another deal in the list.
    int deal = dealInView();
    while (chart().model()->getData(deal)->volume >= 5)
        ++deal;
    clickChart(chart(), deal);
    ASSERT_EQ(ChartEyes::cursor(chart()), deal);
    EXPECT_EQ(deals().selectedRow(), -1) << "the row of this index is another deal";
    const int second = chart().model()->getData(deal)->time;
    const auto rows = DealEyes::highlighted(deals());
    ASSERT_GE(rows.first, 0);
    EXPECT_LE(deals().model()->getData(rows.first)->time, second);
    EXPECT_EQ(deals().model()->find(second, false), rows.second) << "the nearest second, and none later";
    EXPECT_EQ(ChartEyes::cursor(zoom()), deal) << "the charts know no filter";
}

TEST_F(Wiring, ASelectionIsToldOnceAndEndsThere)
{
    ASSERT_TRUE(openAt(10, 30));
    showSingleDeals();
    int told = 0;
    host::PanelWiring& wiring = window->groups().at(0).wiring();
    const host::FirstPanes& panes = window->panels();
    for (host::Pane* pane : {static_cast<host::Pane*>(panes.deals), static_cast<host::Pane*>(panes.chart),
                             static_cast<host::Pane*>(panes.zoom)}) {
        pane->setAnswer([&](host::Pane& from, int id, int first, int second, const QString& text) {
            told += id == 3224 ? 1 : 0;
            return wiring.answer(from, id, first, second, text);
        });
    }
    clickDeal(ListEyes::firstInView(deals()) + 3);
    EXPECT_EQ(told, 1);
    clickChart(chart(), dealInView());
    EXPECT_EQ(told, 2);
    clickChart(zoom(), dealInView() + 9);
    EXPECT_EQ(told, 3);
    settle();
    EXPECT_EQ(told, 3);
}

TEST_F(Wiring, ARangeOfTheChartIsTheViewOfTheZoomedOneOnly)
{
    ASSERT_TRUE(openAt(10, 30));
    showSingleDeals();
    // The last press of a double click ends before a range begins.
    for (Kel::CDepthHolographicWidget* one : {&chart(), &zoom()})
        QTest::mouseRelease(one, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    const int start = chart().model()->getStartIndex();
    const int end = chart().model()->getEndIndex();
    ASSERT_EQ(zoom().model()->getStartIndex(), start);
    const QPoint from = ChartEyes::pointOf(chart(), start + 40);
    const QPoint to = ChartEyes::pointOf(chart(), start + 200);
    ASSERT_GT(to.x(), from.x() + 30);
    QTest::mousePress(&chart(), Qt::LeftButton, Qt::NoModifier, from);
    QMouseEvent drag(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&chart(), &drag);
    QTest::mouseRelease(&chart(), Qt::LeftButton, Qt::NoModifier, to);
    settle();
    EXPECT_GT(zoom().model()->getStartIndex(), start);
    EXPECT_LT(zoom().model()->getEndIndex(), end);
    EXPECT_LE(zoom().model()->getStartIndex(), start + 41);
    EXPECT_GE(zoom().model()->getEndIndex(), start + 199);
    EXPECT_EQ(chart().model()->getStartIndex(), start);
    EXPECT_EQ(chart().model()->getEndIndex(), end);

    // A range in the zoomed chart is no range for anybody.
    const int zoomStart = zoom().model()->getStartIndex();
    const int zoomEnd = zoom().model()->getEndIndex();
    QTest::mousePress(&zoom(), Qt::LeftButton, Qt::NoModifier, QPoint(10, 50));
    QMouseEvent again(QEvent::MouseMove, QPoint(90, 60), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&zoom(), &again);
    QTest::mouseRelease(&zoom(), Qt::LeftButton, Qt::NoModifier, QPoint(90, 60));
    settle();
    EXPECT_EQ(zoom().model()->getStartIndex(), zoomStart);
    EXPECT_EQ(zoom().model()->getEndIndex(), zoomEnd);
    EXPECT_EQ(chart().model()->getStartIndex(), start);
}

TEST_F(Wiring, AMarkOfTheFilterDialogMarksQueueAndOrdersOfAPrice)
{
    ASSERT_TRUE(openAt(10, 30));
    EXPECT_EQ(QueueEyes::markVolume(queue()), 0);
    whenOpen<Kel::CDepthFilterSettingDialog>([](auto& dialog) {
        type(dialog, Kel::eMarkControl, 7);
        press(dialog, Kel::eConfirmControl);
    });
    auto* title = orders().findChild<Kel::CEntrustTitleWidget*>();
    QTest::mouseClick(title->findChild<Zeb::CPushButton*>(), Qt::LeftButton);
    ASSERT_EQ(dialogs, 1);
    EXPECT_EQ(QueueEyes::markVolume(queue()), 7);
    EXPECT_EQ(QueueEyes::markColor(queue()), 0);
    EXPECT_EQ(OrdersEyes::markVolume(popup()), 7);
    EXPECT_EQ(OrdersEyes::markColor(popup()), 0);

    Kel::SDepthFilterParam param;
    param.mark = 12;
    param.color = 3;
    orders().setFilterParam(param);
    EXPECT_EQ(QueueEyes::markVolume(queue()), 12);
    EXPECT_EQ(QueueEyes::markColor(queue()), 3);
    EXPECT_EQ(OrdersEyes::markVolume(popup()), 12);
    EXPECT_EQ(OrdersEyes::markColor(popup()), 3);
}

/// Wires a dialog's question to an answer: the fields that it begins with, or others, and a button.
class Tracking : public Wiring
{
protected:
    void answer(const std::function<void(host::TrackOrderDialog&)>& fill,
                QDialogButtonBox::StandardButton button)
    {
        whenOpen<host::TrackOrderDialog>([fill, button](host::TrackOrderDialog& dialog) {
            if (fill)
                fill(dialog);
            QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
        });
    }

    /// A limit order of the list that no other has its time, price, lots and side of.
    int rowOfSingleOrder()
    {
        const auto& model = *orders().model();
        for (int row = model.orderCount - 1; row >= 0; --row) {
            const auto order = model.getOrderData(row, false);
            const int time = static_cast<int>(utils::timeOfDayMs(order->time * utils::kMSecPerSecond));
            if (model.findOrders(time, order->price, order->lots, order->side).size() == 1)
                return row;
        }
        return -1;
    }

    void selectOrder(int row)
    {
        Kel::CDepthOrderWidget& list = *orders().orderList();
        QTest::mouseClick(&list, Qt::LeftButton, Qt::NoModifier, ListEyes::middleOf(list, row));
        ASSERT_EQ(list.selectedRow(), row);
    }
};

TEST_F(Tracking, TheSelectedOrderIsMarkedInQueueAndOrdersOfAPrice)
{
    ASSERT_TRUE(openAt(10, 30));
    const int row = rowOfSingleOrder();
    ASSERT_GE(row, 0);
    const auto order = orders().model()->getOrderData(row, false);
    selectOrder(row);
    answer(
        [](host::TrackOrderDialog& dialog) { dialog.findChildren<QComboBox*>().last()->setCurrentIndex(2); },
        QDialogButtonBox::Ok);
    window->actions().action(QStringLiteral("track"))->trigger();
    ASSERT_EQ(dialogs, 1);
    EXPECT_EQ(QueueEyes::trackOrder(queue()), order->orderNo);
    EXPECT_EQ(QueueEyes::trackColor(queue()), 2);
    EXPECT_EQ(OrdersEyes::trackOrder(popup()), order->orderNo);
    EXPECT_EQ(OrdersEyes::trackColor(popup()), 2);
    EXPECT_EQ(message(), QString());

    window->actions().action(QStringLiteral("trackEnd"))->trigger();
    EXPECT_EQ(QueueEyes::trackOrder(queue()), -1);
    EXPECT_EQ(OrdersEyes::trackOrder(popup()), -1);
}

TEST_F(Tracking, AnOrderThatDoesNotExistIsTold)
{
    ASSERT_TRUE(openAt(10, 30));
    answer([](host::TrackOrderDialog& dialog) { dialog.setOrder(1000, 1.23, 4711, 1); },
           QDialogButtonBox::Ok);
    window->actions().action(QStringLiteral("track"))->trigger();
    ASSERT_EQ(dialogs, 1);
    EXPECT_TRUE(message().contains(QStringLiteral("没有找到"))) << message().toStdString();
    EXPECT_FALSE(window->messages().isError());
    EXPECT_EQ(QueueEyes::trackOrder(queue()), -1);
}

TEST_F(Tracking, ACancelledDialogChangesNothing)
{
    ASSERT_TRUE(openAt(10, 30));
    selectOrder(rowOfSingleOrder());
    answer({}, QDialogButtonBox::Ok);
    window->actions().action(QStringLiteral("track"))->trigger();
    const int tracked = QueueEyes::trackOrder(queue());
    ASSERT_GT(tracked, 0);
    answer([](host::TrackOrderDialog& dialog) { dialog.setOrder(1000, 1.23, 4711, 1); },
           QDialogButtonBox::Cancel);
    window->actions().action(QStringLiteral("track"))->trigger();
    ASSERT_EQ(dialogs, 2);
    EXPECT_EQ(QueueEyes::trackOrder(queue()), tracked);
    EXPECT_EQ(message(), QString());
}

TEST_F(Tracking, AnOrderThatIsNotFoundEndsTheTrackingOfTheOneBefore)
{
    ASSERT_TRUE(openAt(10, 30));
    selectOrder(rowOfSingleOrder());
    answer({}, QDialogButtonBox::Ok);
    window->actions().action(QStringLiteral("track"))->trigger();
    ASSERT_GT(QueueEyes::trackOrder(queue()), 0);
    answer([](host::TrackOrderDialog& dialog) { dialog.setOrder(1000, 1.23, 4711, 1); },
           QDialogButtonBox::Ok);
    window->actions().action(QStringLiteral("track"))->trigger();
    EXPECT_EQ(QueueEyes::trackOrder(queue()), -1);
    EXPECT_EQ(OrdersEyes::trackOrder(popup()), -1);
}

TEST_F(Tracking, EndsWithTheInstrumentAndOutlivesASeek)
{
    ASSERT_TRUE(openAt(10, 30));
    selectOrder(rowOfSingleOrder());
    answer({}, QDialogButtonBox::Ok);
    window->actions().action(QStringLiteral("track"))->trigger();
    const int tracked = QueueEyes::trackOrder(queue());
    ASSERT_GT(tracked, 0);
    ASSERT_TRUE(seek(timeOfDay(11, 0)));
    EXPECT_EQ(QueueEyes::trackOrder(queue()), tracked);
    window->list().setFocus();
    QTest::keyClick(&window->list(), Qt::Key_Down);
    ASSERT_TRUE(waitForDay(3));
    EXPECT_EQ(QueueEyes::trackOrder(queue()), -1) << "the same number is another order there";
    EXPECT_EQ(OrdersEyes::trackOrder(popup()), -1);
}

TEST_F(Wiring, ChartAndListKeepTheKeysThatTheWindowUsesToo)
{
    ASSERT_TRUE(openAt(10, 30));
    focus(chart());
    const double speed = window->player().speed();
    const int half = ChartEyes::halfRow(chart());
    key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(ChartEyes::halfRow(chart()), half + 1);
    key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(ChartEyes::halfRow(chart()), half);
    EXPECT_EQ(window->player().speed(), speed);
    focus(*orders().orderList());
    key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_GT(window->player().speed(), speed) << "a list has no use for it";

    clickDeal(ListEyes::firstInView(deals()) + 3);
    focus(deals());
    key(Qt::Key_Space);
    EXPECT_TRUE(DealEyes::showsTip(deals()));
    EXPECT_FALSE(window->player().playing());
    key(Qt::Key_Escape);
    key(Qt::Key_Space);
    EXPECT_TRUE(window->player().playing()) << "without a selected deal the key plays";
}

TEST_F(Wiring, AnEventOfNoMeaningForTheWindowIsNotTaken)
{
    ASSERT_TRUE(openAt(10, 30));
    host::PanelWiring& wiring = window->groups().at(0).wiring();
    const host::FirstPanes& panes = window->panels();
    for (const int id : {5, 15, 82, 1395, 3222, 3228})
        EXPECT_FALSE(wiring.answer(*panes.deals, id, 0, 0, QString())) << id;
    for (const int id : {3223, 3224, 3225, 3226, 3227})
        EXPECT_TRUE(wiring.answer(*panes.queue, id, -1, 0, QString())) << id;
}

} // namespace
} // namespace window_tests
