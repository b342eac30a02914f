// The chart's menu, and the dialog that asks for the lots of a full bar.

#include "Chart.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QTimer>

using namespace testing_support;
using namespace Kel;

namespace {

/// Ten deals on ten rows.
class ChartMenu : public testing::Test
{
protected:
    ChartMenu() { chart.fill(10, 10, 9); }

    Chart chart{600, 325};
};

} // namespace

TEST_F(ChartMenu, TheMenuHasItsEntriesInOrder)
{
    QStringList texts;
    for (const QAction* const action : chart.m_menu->actions())
        texts += action->text();
    EXPECT_EQ(texts, (QStringList{QStringLiteral("设置全高手数"), QStringLiteral("放大成交高度  CTRL+↑"),
                                  QStringLiteral("减小成交高度  CTRL+↓"), QStringLiteral("调整成交高度")}));
}

TEST_F(ChartMenu, TheMenuOpensAtTheCursor)
{
    QCursor::setPos(chart.mapToGlobal(QPoint(40, 50)));
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(40, 50), chart.mapToGlobal(QPoint(40, 50)));
    QApplication::sendEvent(&chart, &event);
    EXPECT_TRUE(chart.m_menu->isVisible());
    EXPECT_EQ(chart.m_menu->pos(), QCursor::pos());
    chart.m_menu->close();
}

TEST_F(ChartMenu, TheOpenMenuIsWorkedByKeys)
{
    const auto choose = [this](int entry) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(40, 50),
                                chart.mapToGlobal(QPoint(40, 50)));
        QApplication::sendEvent(&chart, &event);
        for (int press = 0; press < entry; ++press)
            QTest::keyClick(chart.m_menu, Qt::Key_Down);
        QTest::keyClick(chart.m_menu, Qt::Key_Return);
        EXPECT_FALSE(chart.m_menu->isVisible());
    };
    choose(2);
    EXPECT_EQ(chart.m_halfRow, 13);
    choose(3);
    choose(3);
    EXPECT_EQ(chart.m_halfRow, 11);
    choose(4);
    EXPECT_EQ(chart.m_halfRow, 12);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(40, 50), chart.mapToGlobal(QPoint(40, 50)));
    QApplication::sendEvent(&chart, &event);
    QTest::keyClick(chart.m_menu, Qt::Key_Escape);
    EXPECT_FALSE(chart.m_menu->isVisible());
    EXPECT_EQ(chart.m_halfRow, 12);
}

TEST_F(ChartMenu, TheMenuChangesTheRows)
{
    const auto actions = chart.m_menu->actions();
    actions[1]->trigger();
    EXPECT_EQ(chart.m_halfRow, 13);
    actions[2]->trigger();
    actions[2]->trigger();
    EXPECT_EQ(chart.m_halfRow, 11);
    actions[3]->trigger();
    EXPECT_EQ(chart.m_halfRow, 12) << "ten rows fit";
    chart.fill(60, 40);
    actions[3]->trigger();
    EXPECT_EQ(chart.m_rowHeight, 325 / 40);
}

namespace {

/// Opens the dialog from the menu, types and ends it.
class FullHeight : public ChartMenu
{
protected:
    void enter(const QString& text, bool confirm)
    {
        QTimer::singleShot(0, &chart, [&] {
            auto* const dialog = chart.m_fullHeightDialog;
            ASSERT_NE(dialog, nullptr);
            shown = dialog->text();
            title = dialog->windowTitle();
            auto* const edit = dialog->findChild<QLineEdit*>();
            edit->selectAll();
            QTest::keyClicks(edit, text);
            QTest::keyClick(dialog, confirm ? Qt::Key_Return : Qt::Key_Escape);
            if (dialog->isVisible()) {
                refused = true;
                dialog->reject();
            }
        });
        chart.m_menu->actions()[0]->trigger();
    }

    QString shown;
    QString title;
    bool refused = false;
};

} // namespace

TEST_F(FullHeight, IsAskedForAndDrawnAtTheNextTick)
{
    EXPECT_EQ(chart.m_fullHeightDialog, nullptr);
    enter(QStringLiteral("25"), true);
    EXPECT_EQ(shown, QStringLiteral("500"));
    EXPECT_EQ(title, QStringLiteral("设置全高手数"));
    EXPECT_EQ(chart.m_model->fullHeightHand, 25);
    EXPECT_TRUE(chart.m_model->dirty);
    auto* const first = chart.m_fullHeightDialog;
    enter(QStringLiteral("30"), true);
    EXPECT_EQ(chart.m_fullHeightDialog, first) << "made once";
    EXPECT_EQ(shown, QStringLiteral("25"));
    EXPECT_EQ(chart.m_model->fullHeightHand, 30);
}

TEST_F(FullHeight, ACancelChangesNothing)
{
    enter(QStringLiteral("25"), false);
    EXPECT_EQ(chart.m_model->fullHeightHand, 500);
    EXPECT_FALSE(chart.m_model->dirty);
}

TEST_F(FullHeight, HasItsBounds)
{
    enter(QStringLiteral("4"), true);
    EXPECT_EQ(chart.m_model->fullHeightHand, 4);
    enter(QStringLiteral("2000"), true);
    EXPECT_EQ(chart.m_model->fullHeightHand, 2000);
    EXPECT_FALSE(refused);
    enter(QStringLiteral("3"), true);
    EXPECT_TRUE(refused);
    EXPECT_EQ(chart.m_model->fullHeightHand, 2000);
    // The last digit of a number that is too high cannot be typed.
    enter(QStringLiteral("2001"), true);
    EXPECT_EQ(chart.m_model->fullHeightHand, 200);
}
