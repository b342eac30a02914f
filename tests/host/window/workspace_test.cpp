// The workspace: what the layouts show, and what a person does to panes by menu, button and double click.

#include "host/window/workspace/Workspace.h"

#include "host/window/MainWindow.h"
#include "host/window/PaneWindow.h"
#include "host/window/TerminalActions.h"
#include "host/window/WindowFixture.h"
#include "host/window/workspace/PaneTitle.h"
#include "host/window/workspace/layouts.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolButton>

#include <set>

namespace window_tests {
namespace {

const char* const kPanes[] = {"list",  "queue", "ladder", "deals",  "orders",
                              "chart", "zoom",  "levels", "ticket", "information"};

/// What the shares of the columns are parts of.
int widthOf(const host::Layout& layout)
{
    int width = 0;
    for (const host::LayoutColumn& column : layout.columns)
        width += column.share;
    return width;
}

class Panes : public PaneWindow
{
protected:
    Panes() { open(); }

    host::Workspace& workspace() { return window->workspace(); }

    QDockWidget* dock(const char* id) { return workspace().dock(QString::fromLatin1(id)); }

    QAction* action(const char* name) { return window->actions().action(QString::fromLatin1(name)); }

    /// Whether a pane is seen: open, and in front of its tabs.
    bool seen(const char* id) { return !dock(id)->visibleRegion().isEmpty(); }

    /// Panes that are open, in front or not.
    std::set<std::string> opened()
    {
        std::set<std::string> ids;
        for (const QDockWidget* dock : workspace().docks()) {
            if (dock->toggleViewAction()->isChecked())
                ids.insert(dock->property("pane").toString().toStdString());
        }
        return ids;
    }

    static std::set<std::string> idsOf(const host::Layout& layout)
    {
        std::set<std::string> ids;
        for (const host::LayoutColumn& column : layout.columns) {
            for (const host::LayoutCell& cell : column.cells) {
                for (const QString& id : cell.panes)
                    ids.insert(id.toStdString());
            }
        }
        return ids;
    }
};

TEST(Layouts, NameExistingPanesOnceEachAndShareTheWholeRoom)
{
    ASSERT_EQ(host::shippedLayouts().size(), 4U);
    const std::set<std::string> known(std::begin(kPanes), std::end(kPanes));
    for (const host::Layout& layout : host::shippedLayouts()) {
        std::multiset<std::string> ids;
        int width = 0;
        for (const host::LayoutColumn& column : layout.columns) {
            width += column.share;
            int height = 0;
            ASSERT_FALSE(column.cells.empty());
            for (const host::LayoutCell& cell : column.cells) {
                height += cell.share;
                ASSERT_FALSE(cell.panes.empty());
                for (const QString& id : cell.panes)
                    ids.insert(id.toStdString());
            }
            EXPECT_EQ(height, 100) << layout.id.toStdString();
        }
        EXPECT_EQ(width, widthOf(host::shippedLayouts().front())) << layout.id.toStdString();
        for (const std::string& id : ids) {
            EXPECT_TRUE(known.count(id.substr(0, id.find('#')))) << id;
            EXPECT_EQ(ids.count(id), 1U) << id;
        }
        EXPECT_TRUE(ids.count("list")) << "the instruments can be chosen in " << layout.id.toStdString();
        EXPECT_FALSE(layout.title.isEmpty());
        EXPECT_EQ(host::shippedLayout(layout.id), &layout);
    }
    EXPECT_EQ(host::shippedLayout(QStringLiteral("nonsense")), nullptr);
    EXPECT_EQ(host::shippedLayout(QString()), nullptr);
}

TEST_F(Panes, EachLayoutOpensExactlyItsPanesWithTheFirstInFront)
{
    for (const host::Layout& layout : host::shippedLayouts()) {
        action(("layout_" + layout.id.toStdString()).c_str())->trigger();
        settle();
        EXPECT_EQ(opened(), idsOf(layout)) << layout.id.toStdString();
        for (const host::LayoutColumn& column : layout.columns) {
            for (const host::LayoutCell& cell : column.cells) {
                for (int i = 0; i < cell.panes.size(); ++i) {
                    const std::string id = cell.panes[i].toStdString();
                    EXPECT_EQ(seen(id.c_str()), i == 0) << layout.id.toStdString() << ' ' << id;
                }
            }
        }
    }
}

TEST_F(Panes, ALayoutPutsColumnsSideBySideAndCellsBelowEachOther)
{
    const host::Layout& layout = *host::shippedLayout(QStringLiteral("tick"));
    workspace().apply(layout);
    settle();
    int left = -1;
    for (const host::LayoutColumn& column : layout.columns) {
        int top = -1;
        const int x = workspace().dock(column.cells.front().panes.front())->x();
        EXPECT_GT(x, left);
        left = x;
        for (const host::LayoutCell& cell : column.cells) {
            const QDockWidget* pane = workspace().dock(cell.panes.front());
            EXPECT_EQ(pane->x(), x) << cell.panes.front().toStdString();
            EXPECT_GT(pane->y(), top);
            top = pane->y();
        }
        const double share =
            100.0 * workspace().dock(column.cells.front().panes.front())->width() / workspace().width();
        EXPECT_NEAR(share, 100.0 * column.share / widthOf(layout), 4);
    }
}

TEST_F(Panes, TheFirstShowGivesColumnsTheirShares)
{
    for (const host::Layout& layout : host::shippedLayouts()) {
        window.reset();
        host::TerminalOptions options;
        options.source = smallSource();
        options.layout = layout.id;
        window = std::make_unique<host::MainWindow>(options);
        window->show();
        window->start();
        settle();
        for (const host::LayoutColumn& column : layout.columns) {
            const double share =
                100.0 * workspace().dock(column.cells.front().panes.front())->width() / workspace().width();
            EXPECT_NEAR(share, 100.0 * column.share / widthOf(layout), 5)
                << layout.id.toStdString() << ' ' << column.cells.front().panes.front().toStdString();
        }
    }
}

TEST_F(Panes, TheLayoutOfTheOptionsIsShownFirst)
{
    window.reset();
    host::TerminalOptions options;
    options.source = smallSource();
    options.layout = QStringLiteral("chart");
    window = std::make_unique<host::MainWindow>(options);
    window->show();
    settle();
    EXPECT_EQ(opened(), idsOf(*host::shippedLayout(QStringLiteral("chart"))));
}

TEST_F(Panes, AnUnknownLayoutChangesNothing)
{
    const auto before = opened();
    Q_EMIT window->actions().layoutChosen(QStringLiteral("nonsense"));
    EXPECT_EQ(opened(), before);
    host::Layout strange{QStringLiteral("strange"), {}, {}};
    strange.columns = {{{{{QStringLiteral("nobody")}, 100}}, 50},
                       {{{{QStringLiteral("deals"), QStringLiteral("nobody")}, 100}}, 50}};
    workspace().apply(strange);
    settle();
    EXPECT_EQ(opened(), std::set<std::string>{"deals"}) << "what is no pane is passed over";
    workspace().apply(allPanes()); // the one above goes
    EXPECT_EQ(workspace().dock(QStringLiteral("nobody")), nullptr);
}

TEST_F(Panes, TheMenuHidesAndShowsEach)
{
    const QList<QAction*> toggles = workspace().toggles();
    ASSERT_EQ(toggles.size(), static_cast<int>(std::size(kPanes)));
    QStringList titles;
    for (QAction* toggle : toggles)
        titles.append(toggle->text());
    const QStringList wanted = {QStringLiteral("品种"),           QStringLiteral("委托队列"),
                                QStringLiteral("千档盘口"),       QStringLiteral("逐笔成交"),
                                QStringLiteral("逐笔委托与撤单"), QStringLiteral("全息成交图"),
                                QStringLiteral("全息放大图"),     QStringLiteral("买卖盘"),
                                QStringLiteral("盘口下单"),       QStringLiteral("资讯")};
    EXPECT_EQ(titles, wanted);
    for (const char* id : kPanes) {
        QAction* toggle = dock(id)->toggleViewAction();
        ASSERT_TRUE(toggle->isChecked()) << id;
        toggle->trigger();
        EXPECT_FALSE(dock(id)->isVisible()) << id;
        EXPECT_FALSE(toggle->isChecked()) << id;
        toggle->trigger();
        EXPECT_TRUE(dock(id)->isVisible()) << id;
        EXPECT_TRUE(toggle->isChecked()) << id;
    }
    // They stand in the window's menu.
    int listed = 0;
    for (QAction* menu : window->menuBar()->actions()) {
        for (QAction* entry : menu->menu()->actions())
            listed += toggles.contains(entry) ? 1 : 0;
    }
    EXPECT_EQ(listed, toggles.size());
}

TEST_F(Panes, TheTitleHasTheNameAndButtonsThatFloatAndClose)
{
    QWidget* title = dock("deals")->titleBarWidget();
    ASSERT_TRUE(qobject_cast<host::PaneTitle*>(title));
    EXPECT_EQ(title->findChild<QLabel*>()->text(), QStringLiteral("逐笔成交"));
    auto* floats = title->findChild<QToolButton*>(QStringLiteral("PaneFloat"));
    auto* closes = title->findChild<QToolButton*>(QStringLiteral("PaneClose"));
    for (QToolButton* button : {floats, closes}) {
        EXPECT_FALSE(button->icon().isNull());
        EXPECT_FALSE(button->toolTip().isEmpty());
        EXPECT_EQ(button->accessibleName(), button->toolTip());
    }
    QTest::mouseClick(floats, Qt::LeftButton);
    EXPECT_TRUE(dock("deals")->isFloating());
    EXPECT_TRUE(dock("deals")->isVisible());
    QTest::mouseClick(floats, Qt::LeftButton);
    EXPECT_FALSE(dock("deals")->isFloating());
    QTest::mouseClick(closes, Qt::LeftButton);
    EXPECT_FALSE(dock("deals")->isVisible());
    EXPECT_FALSE(dock("deals")->toggleViewAction()->isChecked());
}

TEST_F(Panes, ADoubleClickOnTheTitleFloatsThePane)
{
    QTest::mouseDClick(dock("queue")->titleBarWidget(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 10));
    EXPECT_TRUE(dock("queue")->isFloating());
}

TEST_F(Panes, ALayoutBringsFloatingAndClosedPanesBack)
{
    dock("queue")->setFloating(true);
    dock("queue")->move(50, 60);
    dock("list")->close();
    action("layout_queue")->trigger();
    settle();
    EXPECT_FALSE(dock("queue")->isFloating());
    EXPECT_TRUE(seen("queue"));
    EXPECT_TRUE(seen("list"));
    EXPECT_EQ(opened(), idsOf(*host::shippedLayout(QStringLiteral("queue"))));
    // A pane that floats and is of no use in the layout goes.
    dock("queue")->setFloating(true);
    action("layout_chart")->trigger();
    settle();
    EXPECT_FALSE(dock("queue")->isVisible());
    EXPECT_FALSE(dock("queue")->isFloating());
    EXPECT_EQ(opened(), idsOf(*host::shippedLayout(QStringLiteral("chart"))));
}

TEST_F(Panes, AppliedTwiceALayoutIsTheSame)
{
    action("layout_queue")->trigger();
    settle();
    std::vector<QRect> once;
    for (const char* id : kPanes)
        once.push_back(dock(id)->isVisible() ? dock(id)->geometry() : QRect());
    action("layout_queue")->trigger();
    settle();
    for (std::size_t i = 0; i < once.size(); ++i) {
        if (!once[i].isNull() && seen(kPanes[i])) {
            EXPECT_EQ(dock(kPanes[i])->geometry(), once[i]) << kPanes[i];
        }
    }
}

TEST_F(Panes, TheCurrentPaneIsTheOneThatHadTheFocusLastWhileItIsShown)
{
    ASSERT_TRUE(waitForDay(1));
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    focus(deals());
    ASSERT_TRUE(workspace().currentPane());
    EXPECT_EQ(workspace().currentPane()->id(), QStringLiteral("deals"));
    focus(*orders().cancelList());
    EXPECT_EQ(workspace().currentPane()->id(), QStringLiteral("orders"));
    // The focus goes to a bar that is no pane: what was copied from stays.
    QTest::keyClick(window->windowHandle(), Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(workspace().currentPane()->id(), QStringLiteral("orders"));
    dock("orders")->close();
    EXPECT_NE(workspace().currentPane(), window->panels().orders);
}

TEST_F(Panes, FiveAndTenLevelsReachQueueAndBothQuotePanels)
{
    ASSERT_TRUE(waitForDay(1));
    Kel::CDepthEntrustStatusWidget& levels = window->levels().panel();
    Kel::CDepthConciseStyleEntrustStatusWidget& concise = window->ticket().panel();
    EXPECT_EQ(levels.getShelves(), 10);
    EXPECT_EQ(concise.getShelves(), 10);
    const int high = levels.minimumHeight();
    const int conciseHigh = concise.height();
    action("mode0")->trigger();
    EXPECT_EQ(levels.getShelves(), 5);
    EXPECT_EQ(concise.getShelves(), 5);
    EXPECT_EQ(queue().getQueueModeLevel(), 0);
    EXPECT_LT(levels.minimumHeight(), high) << "the rows need less room";
    EXPECT_LT(concise.height(), conciseHigh);
    ASSERT_TRUE(seek(timeOfDay(10, 0)));
    EXPECT_EQ(levels.getShelves(), 5) << "the next instrument or moment keeps the choice";
    EXPECT_EQ(concise.getShelves(), 5);
    action("mode1")->trigger();
    EXPECT_EQ(levels.getShelves(), 10);
    EXPECT_EQ(concise.getShelves(), 10);
    EXPECT_EQ(levels.minimumHeight(), high);
}

} // namespace
} // namespace window_tests
