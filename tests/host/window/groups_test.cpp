// Linking groups: panes of a second instrument beside the first, by one clock, each group for itself.

#include "host/window/groups/PaneGroups.h"

#include "host/window/InstrumentList.h"
#include "host/window/PaneWindow.h"
#include "host/window/TerminalActions.h"
#include "host/window/WindowFixture.h"
#include "host/window/groups/GroupChip.h"
#include "host/window/language/TerminalLanguage.h"
#include "host/window/panes/pane_kinds.h"
#include "host/window/workspace/Workspaces.h"
#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QTest>

namespace window_tests {
namespace {

class Groups : public PaneWindow
{
protected:
    host::PaneGroups& groups() { return window->groups(); }

    QDockWidget* dock(const char* id) { return window->workspaces().dock(QString::fromLatin1(id)); }

    host::GroupChip* chip(const char* id)
    {
        return dock(id)->titleBarWidget()->findChild<host::GroupChip*>();
    }

    /// A second list of deals in the second group, which shows the instrument of a row.
    host::DealsPane* openSecond(int row)
    {
        EXPECT_TRUE(openAt(10, 30));
        auto* second = qobject_cast<host::DealsPane*>(window->addPaneOfKind(QStringLiteral("deals")));
        window->linkPane(second, 1);
        window->setCurrentGroup(1);
        const int before = shown;
        Q_EMIT window->list().chosen(row);
        EXPECT_TRUE(waitUntil([&] { return groups().at(1).row() == row && shown > before; }));
        settle();
        return second;
    }

    static std::int64_t lastSecond(Kel::CDepthTransactionWidget& list)
    {
        return list.model()->getData(list.model()->count - 1)->time;
    }

    std::string codeOf(int group) { return groups().at(group).day()->detail.code; }
};

TEST(PaneNames, AFurtherPaneIsItsKindWithANumber)
{
    EXPECT_EQ(host::paneName(QStringLiteral("queue")).number, 1);
    EXPECT_EQ(host::paneName(QStringLiteral("queue#2")).kind, QStringLiteral("queue"));
    EXPECT_EQ(host::paneName(QStringLiteral("queue#2")).number, 2);
    EXPECT_EQ(host::paneName(QStringLiteral("queue#9")).number, 9);
    for (const char* wrong : {"queue#1", "queue#0", "queue#10", "queue#x", "queue#", "nobody", "nobody#2", "",
                              "list", "queue#-1", "queue#2#3"})
        EXPECT_EQ(host::paneName(QString::fromLatin1(wrong)).number, 0) << wrong;
    EXPECT_EQ(host::makePane(QStringLiteral("nobody")), nullptr);
}

TEST(PaneNames, AFurtherPaneHasItsNumberInIdAndTitle)
{
    const std::unique_ptr<host::Pane> first(host::makePane(QStringLiteral("levels")));
    const std::unique_ptr<host::Pane> third(host::makePane(QStringLiteral("levels#3")));
    EXPECT_EQ(first->id(), QStringLiteral("levels"));
    EXPECT_EQ(first->title(), QStringLiteral("买卖盘"));
    EXPECT_EQ(third->id(), QStringLiteral("levels#3"));
    EXPECT_EQ(third->title(), QStringLiteral("买卖盘 3"));
}

TEST_F(Groups, AnInstrumentChosenInTheListComesToTheCurrentGroupOnly)
{
    host::DealsPane* second = openSecond(3);
    ASSERT_TRUE(second);
    EXPECT_EQ(groups().at(0).row(), 0);
    EXPECT_EQ(codeOf(0), "600999");
    EXPECT_NE(codeOf(1), codeOf(0));
    EXPECT_EQ(window->list().shown(), 3);
    // Each list has the deals of its own instrument.
    for (const auto& [list, group] : {std::pair<Kel::CDepthTransactionWidget*, int>{&deals(), 0},
                                      std::pair<Kel::CDepthTransactionWidget*, int>{&second->panel(), 1}}) {
        const feed::InstrumentDay& day = *groups().at(group).day();
        int wanted = 0;
        for (const feed::DealRow& row : day.deals)
            wanted += row.kind == 0 && row.time <= window->player().now() ? 1 : 0;
        EXPECT_EQ(list->model()->count, wanted) << group;
        EXPECT_GT(wanted, 0);
    }
}

TEST_F(Groups, AllFollowOneClock)
{
    host::DealsPane* second = openSecond(3);
    ASSERT_TRUE(seek(timeOfDay(11, 0)));
    const std::int64_t now = window->player().now() / 1000;
    EXPECT_LE(lastSecond(deals()), now);
    EXPECT_LE(lastSecond(second->panel()), now);
    EXPECT_GT(lastSecond(deals()), now - 600);
    EXPECT_GT(lastSecond(second->panel()), now - 600);
    const int before = deals().model()->count;
    const int secondBefore = second->panel().model()->count;
    ASSERT_TRUE(seek(timeOfDay(10, 45)));
    EXPECT_LT(deals().model()->count, before);
    EXPECT_LT(second->panel().model()->count, secondBefore);
}

TEST_F(Groups, WhilePlayingEachPanelGetsItsOwnInstrument)
{
    host::DealsPane* second = openSecond(3);
    const int before = deals().model()->count;
    const int secondBefore = second->panel().model()->count;
    window->player().setSpeed(100);
    window->setPlaying(true);
    EXPECT_TRUE(waitUntil(
        [&] { return deals().model()->count > before && second->panel().model()->count > secondBefore; }));
    window->setPlaying(false);
}

TEST_F(Groups, APaneThatChangesItsGroupShowsWhatThatGroupShows)
{
    host::DealsPane* second = openSecond(3);
    const int ofSecond = second->panel().model()->count;
    ASSERT_NE(ofSecond, deals().model()->count);
    int before = shown;
    window->linkPane(second, 0);
    ASSERT_TRUE(waitForDay(before + 1));
    EXPECT_EQ(second->panel().model()->count, deals().model()->count);
    EXPECT_EQ(groups().groupOf(second), 0);
    EXPECT_EQ(chip("deals#2")->group(), 0);
    before = shown;
    window->linkPane(second, 1);
    ASSERT_TRUE(waitForDay(before + 1));
    EXPECT_EQ(second->panel().model()->count, ofSecond) << "the group has kept its instrument";
}

TEST_F(Groups, AGroupWithoutAnInstrumentTakesOverThatOfItsFirstPane)
{
    ASSERT_TRUE(openAt(10, 30));
    EXPECT_FALSE(groups().at(2).day());
    const int before = shown;
    const int count = deals().model()->count;
    window->linkPane(window->panels().deals, 2);
    ASSERT_TRUE(waitForDay(before + 1));
    EXPECT_EQ(groups().at(2).row(), 0);
    EXPECT_EQ(deals().model()->count, count);
}

TEST_F(Groups, SelectionsStayWithinTheirGroup)
{
    host::DealsPane* second = openSecond(3);
    const int row = ListEyes::firstInView(deals()) + 3;
    QTest::mouseClick(&deals(), Qt::LeftButton, Qt::NoModifier, ListEyes::middleOf(deals(), row));
    ASSERT_EQ(deals().selectedRow(), row);
    EXPECT_EQ(second->panel().selectedRow(), -1);
    EXPECT_EQ(DealEyes::highlighted(second->panel()).first, -1);
    EXPECT_GE(ChartEyes::cursor(chart()), 0);
}

TEST_F(Groups, TwoListsOfAGroupHighlightEachOthersDeal)
{
    ASSERT_TRUE(openAt(10, 30));
    const int before = shown;
    auto* second = qobject_cast<host::DealsPane*>(window->addPaneOfKind(QStringLiteral("deals")));
    ASSERT_TRUE(second);
    ASSERT_TRUE(waitForDay(before + 1));
    const int row = ListEyes::firstInView(deals()) + 3;
    QTest::mouseClick(&deals(), Qt::LeftButton, Qt::NoModifier, ListEyes::middleOf(deals(), row));
    ASSERT_EQ(deals().selectedRow(), row);
    EXPECT_EQ(second->panel().selectedRow(), row);
}

TEST_F(Groups, TheCurrentGroupIsThatOfThePaneThatWasUsedLast)
{
    host::DealsPane* second = openSecond(3);
    focus(deals());
    EXPECT_EQ(window->currentGroup(), 0);
    EXPECT_EQ(window->list().shown(), 0);
    EXPECT_EQ(window->windowTitle().contains(QStringLiteral("600999")), true);
    EXPECT_EQ(chip("list")->group(), 0);
    focus(second->panel());
    EXPECT_EQ(window->currentGroup(), 1);
    EXPECT_EQ(window->list().shown(), 3);
    EXPECT_TRUE(window->windowTitle().contains(QString::fromStdString(codeOf(1))));
    EXPECT_EQ(chip("list")->group(), 1);
}

TEST_F(Groups, TheListMarksTheInstrumentsOfTheGroupsOnceThereAreSeveral)
{
    host::DealsPane* second = openSecond(3);
    const QAbstractItemModel& model = *window->list().model();
    const auto mark = [&model](int row) {
        return model.index(row, host::InstrumentModel::eName).data(Qt::DecorationRole).value<QPixmap>();
    };
    ASSERT_FALSE(mark(0).isNull());
    ASSERT_FALSE(mark(3).isNull());
    EXPECT_TRUE(mark(1).isNull());
    EXPECT_NE(mark(0).toImage().pixel(4, 4), mark(3).toImage().pixel(4, 4));
    const int width = mark(0).width();
    Q_EMIT window->list().chosen(0); // for the current group, the second
    EXPECT_TRUE(waitUntil([&] { return mark(3).isNull(); }));
    EXPECT_EQ(mark(0).width(), 2 * width) << "two groups show it";
    window->linkPane(second, 0);
    EXPECT_TRUE(mark(0).isNull()) << "one group needs no mark";
}

TEST_F(Groups, AnotherSourceBringsItsInstrumentToAllGroups)
{
    host::DealsPane* second = openSecond(3);
    const int before = shown;
    host::DaySource other = smallSource(5);
    other.instrument = "fund";
    window->openSource(other);
    ASSERT_TRUE(waitForDay(before + 1));
    EXPECT_EQ(codeOf(0), codeOf(1)) << "rows of another list mean nothing any more";
    EXPECT_EQ(second->panel().model()->count, deals().model()->count);
}

TEST_F(Groups, TheDeskOfTwoInstrumentsShowsTheNextOfTheListBesideTheFirst)
{
    ASSERT_TRUE(openAt(10, 30));
    const int before = shown;
    window->actions().action(QStringLiteral("layout_pair"))->trigger();
    ASSERT_TRUE(waitUntil([&] { return groups().at(1).row() == 1 && shown > before; }));
    settle();
    EXPECT_EQ(groups().at(0).row(), 0);
    for (const char* id : {"queue", "queue#2", "deals", "deals#2"})
        EXPECT_TRUE(dock(id)->isVisible()) << id;
    for (const char* id : {"queue#2", "deals#2", "levels#2"})
        EXPECT_EQ(chip(id)->group(), 1) << id;
    EXPECT_EQ(chip("queue")->group(), 0);
    auto* second = qobject_cast<host::QueueCell*>(window->pane(QStringLiteral("queue#2")));
    ASSERT_TRUE(second);
    EXPECT_EQ(second->modes().style, window->queue().modes().style);
}

TEST_F(Groups, TheDeskOfTwoInstrumentsBeginsWithTwo)
{
    open([](host::TerminalOptions& options) {
        options.layout = QStringLiteral("pair");
        options.given.layout = true;
    });
    EXPECT_TRUE(waitUntil([&] { return groups().at(1).row() == 1 && shown > 0; }));
    EXPECT_EQ(groups().at(0).row(), 0);
}

TEST_F(Groups, ThereAreNinePanesOfAKindAtMost)
{
    ASSERT_TRUE(openAt(10, 30));
    for (int i = 2; i <= 9; ++i)
        EXPECT_TRUE(window->addPaneOfKind(QStringLiteral("levels"))) << i;
    EXPECT_FALSE(window->addPaneOfKind(QStringLiteral("levels")));
    EXPECT_FALSE(message().isEmpty());
    EXPECT_FALSE(window->addPaneOfKind(QStringLiteral("nobody")));
}

TEST_F(Groups, AFurtherPaneStandsInTheMenuAndFollowsTheModes)
{
    ASSERT_TRUE(openAt(10, 30));
    auto* second = qobject_cast<host::QueueCell*>(window->addPaneOfKind(QStringLiteral("queue")));
    ASSERT_TRUE(second);
    EXPECT_TRUE(dock("queue#2")->isVisible());
    EXPECT_TRUE(window->workspaces().toggles().contains(dock("queue#2")->toggleViewAction()));
    EXPECT_EQ(dock("queue#2")->toggleViewAction()->text(), QStringLiteral("委托队列 2"));
    window->actions().action(QStringLiteral("mode4"))->trigger();
    EXPECT_EQ(second->modes().style, Kel::eQueueDetailVertical);
}

TEST_F(Groups, AFurtherPaneIsNamedInTheLanguageInForce)
{
    ASSERT_TRUE(openAt(10, 30));
    ASSERT_TRUE(window->addPaneOfKind(QStringLiteral("queue")));
    ASSERT_TRUE(host::TerminalLanguage::instance().setLanguage(QStringLiteral("en")));
    EXPECT_EQ(dock("queue#2")->windowTitle(), dock("queue")->windowTitle() + QStringLiteral(" 2"));
    EXPECT_NE(dock("queue")->windowTitle(), QStringLiteral("委托队列"));
    host::TerminalLanguage::instance().setLanguage(QStringLiteral("zh"));
    EXPECT_EQ(dock("queue#2")->windowTitle(), QStringLiteral("委托队列 2"));
}

TEST_F(Groups, AChipHasTheColourOfItsGroupAndItsName)
{
    ASSERT_TRUE(openAt(10, 30));
    std::set<QRgb> colors;
    for (int group = 0; group < host::PaneGroups::kCount; ++group) {
        const QImage image = host::GroupChip::icon(group).pixmap(16, 16).toImage();
        colors.insert(image.pixel(8, 8));
        EXPECT_EQ(image.pixelColor(8, 8), *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(
                                              host::PaneGroups::colorKey(group)));
    }
    EXPECT_EQ(colors.size(), 4u);
    EXPECT_EQ(chip("deals")->toolTip(), QStringLiteral("联动组 1"));
}

TEST_F(Groups, TheMenuOfAChipLinksThePane)
{
    ASSERT_TRUE(openAt(10, 30));
    const int before = shown;
    QTimer::singleShot(100, [] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        ASSERT_GE(menu->actions().size(), 5);
        EXPECT_TRUE(menu->actions().first()->text().contains(QStringLiteral("600999")));
        menu->actions()[2]->trigger();
        menu->close();
    });
    QTest::mouseClick(chip("deals"), Qt::LeftButton);
    EXPECT_EQ(groups().groupOf(window->panels().deals), 2);
    EXPECT_EQ(chip("deals")->group(), 2);
    ASSERT_TRUE(waitForDay(before + 1));
}

} // namespace
} // namespace window_tests
