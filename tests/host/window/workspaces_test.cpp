// Several windows: panes move between them, come back, and are remembered.

#include "host/window/workspace/Workspaces.h"

#include "host/window/PaneWindow.h"
#include "host/window/TerminalActions.h"
#include "host/window/WindowFixture.h"
#include "host/window/workspace/PaneMenu.h"
#include "host/window/workspace/Workspace.h"
#include "platform/utils/exchange_time.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>

namespace window_tests {
namespace {

class Windows : public PaneWindow
{
protected:
    host::Workspaces& spaces() { return window->workspaces(); }
    QDockWidget* dock(const char* id) { return spaces().dock(QString::fromLatin1(id)); }
};

TEST_F(Windows, APaneThatMovesIsShownInTheOtherWindowAndGoesOn)
{
    ASSERT_TRUE(openAt(10, 30));
    host::Workspace* second = spaces().openWindow();
    ASSERT_EQ(spaces().windows().size(), 2u);
    EXPECT_TRUE(second->isWindow());
    EXPECT_TRUE(second->isVisible());
    spaces().move(dock("deals"), second);
    settle();
    EXPECT_EQ(dock("deals")->window(), second);
    EXPECT_TRUE(deals().isVisible());
    EXPECT_EQ(spaces().windowOf(dock("deals")), second);
    EXPECT_EQ(window->workspace().dock(QStringLiteral("deals")), nullptr);
    ASSERT_TRUE(seek(timeOfDay(10, 45)));
    EXPECT_EQ(deals().model()->count, chart().model()->count);
    spaces().move(dock("deals"), second); // is there already
    EXPECT_EQ(second->docks().size(), 1u);
    spaces().move(dock("deals"), spaces().windows().front());
    EXPECT_EQ(dock("deals")->window(), window.get());
    EXPECT_TRUE(dock("deals")->isVisible());
}

TEST_F(Windows, AWindowThatIsClosedGivesItsPanesBack)
{
    ASSERT_TRUE(openAt(10, 30));
    host::Workspace* second = spaces().openWindow();
    spaces().move(dock("deals"), second);
    spaces().move(dock("chart"), second);
    second->close();
    ASSERT_EQ(spaces().windows().size(), 1u);
    for (const char* id : {"deals", "chart"}) {
        EXPECT_EQ(spaces().windowOf(dock(id)), spaces().windows().front()) << id;
        EXPECT_FALSE(dock(id)->isVisible()) << id;
        dock(id)->toggleViewAction()->trigger();
        EXPECT_TRUE(dock(id)->isVisible()) << id;
        EXPECT_EQ(dock(id)->window(), window.get()) << id;
    }
    settle();
}

TEST_F(Windows, AShippedLayoutBringsAllPanesBackIntoTheMainWindow)
{
    ASSERT_TRUE(openAt(10, 30));
    spaces().move(dock("queue"), spaces().openWindow());
    spaces().move(dock("deals"), spaces().openWindow());
    window->actions().action(QStringLiteral("layout_tick"))->trigger();
    settle();
    EXPECT_EQ(spaces().windows().size(), 1u);
    EXPECT_TRUE(dock("queue")->isVisible());
    EXPECT_EQ(dock("queue")->window(), window.get());
    EXPECT_TRUE(dock("deals")->isVisible());
}

TEST_F(Windows, ThePaneUsedLastIsCurrentInWhateverWindow)
{
    ASSERT_TRUE(openAt(10, 30));
    host::Workspace* second = spaces().openWindow();
    spaces().move(dock("deals"), second);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(second));
    focus(deals());
    ASSERT_TRUE(spaces().currentPane());
    EXPECT_EQ(spaces().currentPane()->id(), QStringLiteral("deals"));
    window->activateWindow();
    ASSERT_TRUE(waitUntil([this] { return window->isActiveWindow(); }));
    focus(*orders().cancelList());
    EXPECT_EQ(spaces().currentPane()->id(), QStringLiteral("orders"));
    second->close();
    EXPECT_EQ(spaces().currentPane()->id(), QStringLiteral("orders"));
}

TEST_F(Windows, ThePanelOfAPaneBehindAnotherTabRests)
{
    ASSERT_TRUE(openAt(10, 30));
    window->workspace().tabifyDockWidget(dock("deals"), dock("chart"));
    dock("chart")->raise();
    settle();
    EXPECT_TRUE(chart().isVisible());
    EXPECT_FALSE(deals().isVisible());
    dock("deals")->raise();
    settle();
    EXPECT_FALSE(chart().isVisible());
    EXPECT_TRUE(deals().isVisible());
}

TEST_F(Windows, ALayoutIsSavedAndRestoredWithItsWindowsGroupsAndInstruments)
{
    const QTemporaryDir folder;
    const auto withFile = [&](host::TerminalOptions& options) {
        options.settingsFile = folder.filePath(QStringLiteral("settings.json"));
    };
    ASSERT_TRUE(openAt(10, 30, withFile));
    int before = shown;
    window->actions().action(QStringLiteral("layout_pair"))->trigger();
    ASSERT_TRUE(waitUntil([&] { return window->groups().at(1).row() == 1 && shown > before; }));
    spaces().move(dock("deals#2"), spaces().openWindow());
    window->saveLayout(QStringLiteral("two"));

    // Another run, in which nothing of it is there.
    window.reset();
    shown = 0;
    ASSERT_TRUE(openAt(11, 0, [&](host::TerminalOptions& options) {
        withFile(options);
        options.source.instrument = "fund";
        options.given.layout = true;
    }));
    EXPECT_EQ(spaces().windows().size(), 1u);
    before = shown;
    window->restoreLayout(QStringLiteral("two"));
    ASSERT_TRUE(waitUntil([&] {
        return window->groups().at(1).row() == 1 && window->groups().at(0).row() == 0 && shown > before;
    }));
    settle();
    ASSERT_EQ(spaces().windows().size(), 2u);
    EXPECT_EQ(spaces().windowOf(dock("deals#2")), spaces().windows().back());
    EXPECT_TRUE(dock("deals#2")->isVisible());
    EXPECT_TRUE(dock("queue#2")->isVisible());
    EXPECT_EQ(window->groups().groupOf(window->pane(QStringLiteral("queue#2"))), 1);
    EXPECT_EQ(window->groups().groupOf(window->pane(QStringLiteral("queue"))), 0);
    EXPECT_EQ(utils::timeOfDayMs(window->player().now()), timeOfDay(10, 30));
}

TEST_F(Windows, AFurtherWindowHasTheLookAndTheKeysOfTheMainOne)
{
    ASSERT_TRUE(openAt(10, 30));
    host::Workspace* second = spaces().openWindow();
    spaces().move(dock("deals"), second);
    ASSERT_TRUE(QTest::qWaitForWindowActive(second));
    EXPECT_EQ(second->styleSheet(), window->styleSheet());
    focus(deals());
    QTest::keyClick(second->windowHandle(), Qt::Key_Space);
    EXPECT_TRUE(window->player().playing());
    QTest::keyClick(second->windowHandle(), Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(second->styleSheet(), window->styleSheet()) << "of the other theme now";
    window->setPlaying(false);
}

TEST_F(Windows, TheMenuOfAPaneHasItsCommandsInAFurtherWindowAsWell)
{
    ASSERT_TRUE(openAt(10, 30));
    const auto commands = [this] {
        const std::unique_ptr<QMenu> menu(
            dock("deals")->titleBarWidget()->findChild<host::PaneMenu*>()->makeMenu());
        QStringList names;
        for (const QAction* action : menu->actions())
            names.append(action->objectName());
        return names;
    };
    const QStringList before = commands();
    EXPECT_TRUE(before.contains(QStringLiteral("copy")));
    spaces().move(dock("deals"), spaces().openWindow());
    EXPECT_EQ(commands(), before);
}

TEST_F(Windows, TheTerminalClosesWithAllItsWindows)
{
    ASSERT_TRUE(openAt(10, 30));
    host::Workspace* second = spaces().openWindow();
    spaces().move(dock("deals"), second);
    window->close();
    EXPECT_FALSE(second->isVisible());
}

TEST_F(Windows, WindowsWithoutAnyPaneAreNotRestored)
{
    ASSERT_TRUE(openAt(10, 30));
    spaces().restore({{QByteArray(), QByteArray(), {QStringLiteral("nobody")}},
                      {QByteArray("rubbish"), QByteArray("rubbish"), {QStringLiteral("deals")}},
                      {QByteArray(), QByteArray(), {QStringLiteral("deals")}}});
    ASSERT_EQ(spaces().windows().size(), 2u) << "a pane stands in one window only";
    EXPECT_EQ(spaces().windowOf(dock("deals")), spaces().windows().back());
}

} // namespace
} // namespace window_tests
