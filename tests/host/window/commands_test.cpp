// Commands of the menus in the window: steps, phases, groups, windows, the middle of the book.

#include "host/window/InstrumentList.h"
#include "host/window/MessageBar.h"
#include "host/window/PaneWindow.h"
#include "host/window/TerminalActions.h"
#include "host/window/WindowFixture.h"
#include "host/window/workspace/Workspaces.h"
#include "platform/toolkit/CIndexScrollBar.h"
#include "platform/utils/exchange_time.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QDockWidget>
#include <QTest>

namespace window_tests {
namespace {

class Commands : public PaneWindow
{
protected:
    void run(const char* id)
    {
        QAction* action = window->actions().action(QString::fromLatin1(id));
        ASSERT_TRUE(action) << id;
        action->trigger();
    }

    /// Runs a command and waits until the replay has stepped.
    bool step(const char* id)
    {
        int steps = 0;
        const auto connection =
            QObject::connect(window.get(), &host::MainWindow::stepped, window.get(), [&steps] { ++steps; });
        run(id);
        const bool done = waitUntil([&] { return steps > 0; });
        QObject::disconnect(connection);
        settle();
        return done;
    }

    /// Runs a command and waits until another moment is shown.
    bool jump(const char* id)
    {
        const int before = shown;
        run(id);
        return waitForDay(before + 1);
    }

    std::int64_t now() { return utils::timeOfDayMs(window->player().now()); }
};

TEST_F(Commands, AStepByAnOrderShowsOneMoreAndBackOneLess)
{
    ASSERT_TRUE(openAt(10, 30));
    const Contents before = contents();
    ASSERT_TRUE(step("stepOrder"));
    EXPECT_EQ(contents().orders, before.orders + 1);
    ASSERT_TRUE(step("stepOrder"));
    const Contents second = contents();
    EXPECT_EQ(second.orders, before.orders + 2);
    ASSERT_TRUE(step("stepOrder"));
    ASSERT_TRUE(step("backOrder"));
    EXPECT_EQ(contents(), second);
}

TEST_F(Commands, AStepByADealShowsOneMoreInEveryPanelOfDeals)
{
    ASSERT_TRUE(openAt(10, 30));
    const Contents before = contents();
    ASSERT_TRUE(step("stepDeal"));
    // The record may be a cancellation.
    EXPECT_EQ(contents().deals + contents().cancels, before.deals + before.cancels + 1);
    EXPECT_EQ(contents().chartDeals, contents().deals);
    const Contents once = contents();
    ASSERT_TRUE(step("stepDeal"));
    ASSERT_TRUE(step("backDeal"));
    EXPECT_EQ(contents(), once);
}

TEST_F(Commands, AStepBySnapshotOrSecondsMovesTheClockOnAndBack)
{
    ASSERT_TRUE(openAt(10, 30));
    ASSERT_TRUE(step("stepSnapshot"));
    const std::int64_t first = now();
    EXPECT_GT(first, timeOfDay(10, 30));
    ASSERT_TRUE(step("stepSnapshot"));
    EXPECT_GT(now(), first);
    ASSERT_TRUE(step("backSnapshot"));
    EXPECT_EQ(now(), first);
    ASSERT_TRUE(step("stepSeconds"));
    EXPECT_EQ(now(), first + 10000);
    ASSERT_TRUE(step("backSeconds"));
    EXPECT_EQ(now(), first);
}

TEST_F(Commands, AStepPausesAReplayThatPlays)
{
    ASSERT_TRUE(openAt(10, 30));
    window->setPlaying(true);
    ASSERT_TRUE(step("stepOrder"));
    EXPECT_FALSE(window->player().playing());
}

TEST_F(Commands, WhereThereIsNoFurtherRecordALineSaysSo)
{
    ASSERT_TRUE(openAt(15, 0));
    ASSERT_TRUE(step("stepSeconds"));
    while (message().isEmpty())
        ASSERT_TRUE(step("stepOrder"));
    EXPECT_FALSE(message().isEmpty());
}

TEST_F(Commands, PhasesOfTheDayAreJumpedTo)
{
    ASSERT_TRUE(openAt(10, 30));
    ASSERT_TRUE(jump("phaseOpen"));
    EXPECT_EQ(now(), timeOfDay(9, 30));
    ASSERT_TRUE(jump("phaseLunch"));
    EXPECT_EQ(now(), timeOfDay(11, 30));
    ASSERT_TRUE(jump("nextPhase"));
    EXPECT_EQ(now(), timeOfDay(13, 0));
    ASSERT_TRUE(jump("previousPhase"));
    EXPECT_EQ(now(), timeOfDay(11, 30));
    ASSERT_TRUE(jump("phaseClose"));
    EXPECT_EQ(now(), timeOfDay(15, 0));
    ASSERT_TRUE(jump("phaseAuction"));
    EXPECT_EQ(now(), timeOfDay(9, 15));
}

TEST_F(Commands, WithoutADayNothingHappens)
{
    open([](host::TerminalOptions& options) {
        options.source.simulated = false;
        options.source.archive = "/nowhere";
    });
    for (const char* id :
         {"stepOrder", "backDeal", "stepSeconds", "nextPhase", "phaseOpen", "center", "fastest"})
        run(id);
    EXPECT_EQ(shown, 0);
}

TEST_F(Commands, TheCurrentPaneComesIntoTheGroupOfTheCommand)
{
    ASSERT_TRUE(openAt(10, 30));
    focus(deals());
    const int before = shown;
    run("group3");
    ASSERT_TRUE(waitForDay(before + 1));
    EXPECT_EQ(window->groups().groupOf(window->panels().deals), 2);
    EXPECT_EQ(window->currentGroup(), 2);
    EXPECT_TRUE(window->actions().action(QStringLiteral("group3"))->isChecked());
}

TEST_F(Commands, StepsGoByTheRecordsOfTheCurrentGroup)
{
    ASSERT_TRUE(openAt(10, 30));
    int before = shown;
    focus(deals());
    run("group2");
    ASSERT_TRUE(waitForDay(before + 1));
    before = shown;
    Q_EMIT window->list().chosen(3);
    ASSERT_TRUE(waitUntil([&] { return window->groups().at(1).row() == 3 && shown > before; }));
    settle();
    const int count = deals().model()->count;
    for (int i = 0; i < 50 && deals().model()->count == count; ++i)
        ASSERT_TRUE(step("stepDeal")); // some are cancellations
    EXPECT_EQ(deals().model()->count, count + 1);
    EXPECT_EQ(deals().model()->getData(count)->time, window->player().now() / 1000);
}

TEST_F(Commands, ANewWindowTakesTheCurrentPaneAlong)
{
    ASSERT_TRUE(openAt(10, 30));
    focus(deals());
    run("newWindow");
    ASSERT_EQ(window->workspaces().windows().size(), 2u);
    EXPECT_NE(deals().window(), window.get());
    EXPECT_TRUE(deals().isVisible());
}

TEST_F(Commands, AFurtherPaneIsAddedByTheMenu)
{
    ASSERT_TRUE(openAt(10, 30));
    run("addPane_ladder");
    EXPECT_TRUE(window->workspaces().dock(QStringLiteral("ladder#2"))->isVisible());
}

TEST_F(Commands, CenteredPanelsShowTheMiddleAndTheLatestAgain)
{
    ASSERT_TRUE(openAt(10, 30));
    const int latest = ListEyes::firstInView(deals());
    auto* bar = ladder().findChild<Kel::CIndexScrollBar*>();
    ASSERT_TRUE(bar);
    const int middle = bar->value();
    QTest::keyClick(&deals(), Qt::Key_Home);
    bar->setValue(bar->minimum());
    settle();
    ASSERT_EQ(ListEyes::firstInView(deals()), 0);
    ASSERT_NE(bar->value(), middle);
    run("center");
    settle();
    EXPECT_EQ(ListEyes::firstInView(deals()), latest);
    EXPECT_EQ(bar->value(), middle);
}

TEST_F(Commands, TheFastestSpeedIsOneCommand)
{
    ASSERT_TRUE(openAt(10, 30));
    run("fastest");
    EXPECT_EQ(window->player().speed(), host::ReplayPlayer::kFast);
}

} // namespace
} // namespace window_tests
