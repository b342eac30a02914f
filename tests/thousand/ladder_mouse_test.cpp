// Mouse, tool tip, selection and menu of the ladder.

#include "LadderFixture.h"

#include <QFile>
#include <QTemporaryDir>

using namespace thousand_tests;

namespace {

class LadderMouse : public LadderTest
{
protected:
    LadderMouse()
    {
        feedSmall();
        host.take();
        painted();
    }

    bool hit(const QPoint& at) { return panel->getCursorData(at.x(), at.y(), row, queue, side, column); }

    int row = -9;
    boost::shared_ptr<Kel::EntrustData> queue;
    int side = -9;
    int column = -9;
};

} // namespace

TEST_F(LadderMouse, FindsRowSideQueueAndColumnUnderAPoint)
{
    EXPECT_TRUE(hit(priceAt(0)));
    EXPECT_EQ(row, 0);
    EXPECT_EQ(side, 0);
    EXPECT_EQ(column, 0);
    EXPECT_EQ(queue, panel->m_sellQueues[1]);
    EXPECT_TRUE(hit(countAt(3)));
    EXPECT_EQ(row, 3);
    EXPECT_EQ(side, 1);
    EXPECT_EQ(column, 1);
    EXPECT_EQ(queue, panel->m_buyQueues[1]);
    EXPECT_TRUE(hit(volumeAt(4)));
    EXPECT_EQ(row, 4);
    EXPECT_EQ(column, 2);
    EXPECT_EQ(queue, panel->m_buyQueues[0]);
}

TEST_F(LadderMouse, FindsNothingOnTheLatestPriceOrOutsideOfTheRows)
{
    EXPECT_FALSE(hit(priceAt(2)));
    EXPECT_EQ(row, -1);
    EXPECT_FALSE(hit({priceAt(0).x(), 2}));
    EXPECT_EQ(row, -1);
    EXPECT_FALSE(hit({priceAt(0).x(), 198}));
    EXPECT_EQ(row, -1);
    EXPECT_FALSE(hit({1, priceAt(0).y()}));
    EXPECT_EQ(row, 0) << "a row, though no column";
    EXPECT_EQ(column, -1);
}

TEST_F(LadderMouse, AnOrderCountOfNoneIsNoColumn)
{
    panel->m_sellQueues[0] = boost::make_shared<Kel::EntrustData>(Kel::EntrustData{10.01, 5, 0, 0});
    EXPECT_FALSE(hit(countAt(1)));
    click(countAt(0));
    host.take();
    click(countAt(1));
    EXPECT_FALSE(panel->m_selected) << "a click there clears the selection";
    EXPECT_EQ(host.take(), (Events{{3223, -1, 0}}));
}

TEST_F(LadderMouse, RowsOfTheShortFormWithoutALevelHaveNoQueue)
{
    place(260, 440);
    panel->setDisplayDataLevel(11);
    panel->slotTimeout();
    EXPECT_TRUE(hit(priceAt(0)));
    EXPECT_EQ(row, 0);
    EXPECT_FALSE(queue);
    EXPECT_FALSE(hit(countAt(0)));
    EXPECT_TRUE(hit(countAt(8)));
    EXPECT_EQ(queue, panel->m_sellQueues[1]);
    EXPECT_TRUE(hit(countAt(11)));
    EXPECT_EQ(queue, panel->m_buyQueues[1]);
    EXPECT_TRUE(hit(priceAt(20)));
    EXPECT_FALSE(queue);
}

TEST_F(LadderMouse, MovingOverACellShowsTheHandAndRepaints)
{
    move(priceAt(0));
    EXPECT_EQ(panel->m_hoverRow, 0);
    EXPECT_EQ(panel->m_hoverColumn, 0);
    EXPECT_EQ(panel->cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(painted(), 1);
    move(volumeAt(3));
    EXPECT_EQ(panel->m_hoverRow, 3);
    EXPECT_EQ(panel->m_hoverColumn, 2);
    move(priceAt(2));
    EXPECT_EQ(panel->m_hoverRow, -1);
    EXPECT_EQ(panel->cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(painted(), 1);
    move({1, 1});
    EXPECT_EQ(painted(), 0) << "nothing changed";
}

TEST_F(LadderMouse, LeavingTakesHoverTipAndHandAway)
{
    move(countAt(0));
    rest(countAt(0));
    painted();
    leave();
    EXPECT_EQ(panel->m_hoverRow, -1);
    EXPECT_FALSE(panel->m_showTip);
    EXPECT_EQ(panel->cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(painted(), 1);
    leave();
    EXPECT_EQ(painted(), 0);
}

TEST_F(LadderMouse, RestingOnAnOrderCountExplainsTheClick)
{
    move(countAt(0));
    painted();
    rest(countAt(0));
    EXPECT_TRUE(panel->m_showTip);
    EXPECT_EQ(panel->m_tipText, "点击查看详细队列");
    EXPECT_EQ(painted(), 1);
    move(countAt(0));
    EXPECT_FALSE(panel->m_showTip) << "until the mouse moves";
    move(priceAt(0));
    rest(priceAt(0));
    EXPECT_FALSE(panel->m_showTip);
    EXPECT_EQ(painted(), 1) << "any hit repaints";
    move(priceAt(2));
    painted();
    rest(priceAt(2));
    EXPECT_EQ(painted(), 0);
}

TEST_F(LadderMouse, TheTipStandsWhereTheMouseMovedLast)
{
    move(priceAt(0));
    rest(countAt(0));
    EXPECT_FALSE(panel->m_showTip);
}

TEST_F(LadderMouse, MovingOffATipRepaintsEvenWithoutAHover)
{
    move(countAt(0));
    rest(countAt(0));
    panel->m_hoverRow = -1;
    painted();
    move({1, 1});
    EXPECT_FALSE(panel->m_showTip);
    EXPECT_EQ(painted(), 1);
}

// Selection
// ---------------------------------------------------------------------------------------------------

TEST_F(LadderMouse, AClickOnAnOrderCountSelectsTheLevelAndTellsWhereItStands)
{
    click(countAt(0));
    ASSERT_TRUE(panel->m_selected);
    EXPECT_DOUBLE_EQ(panel->m_selected->price, 10.02);
    EXPECT_EQ(panel->m_selectedSide, 0);
    EXPECT_EQ(host.take(), (Events{{3223, 0, panel->layout().rowTop(0)}}));
    EXPECT_EQ(painted(), 1);
    click(countAt(4));
    EXPECT_EQ(panel->m_selectedSide, 1);
    EXPECT_EQ(host.take(), (Events{{3223, 0, panel->layout().rowTop(4)}}));
    double tick = 0;
    int unit = 0;
    const auto orders = panel->getSelectedQueue(tick, unit);
    ASSERT_TRUE(orders);
    EXPECT_EQ(tick, 0.01);
    EXPECT_EQ(unit, 100);
    EXPECT_EQ(orders->orderCount, 2);
    EXPECT_EQ(orders->isBuy, 1);
    EXPECT_DOUBLE_EQ(orders->price, 9.98);
}

TEST_F(LadderMouse, AClickElsewhereDropsTheSelection)
{
    for (const QPoint at : {priceAt(0), volumeAt(0), priceAt(2), QPoint(1, 1)}) {
        click(countAt(1));
        host.take();
        painted();
        click(at);
        EXPECT_FALSE(panel->m_selected);
        EXPECT_EQ(host.take(), (Events{{3223, -1, 0}}));
        EXPECT_EQ(painted(), 1);
    }
}

TEST_F(LadderMouse, OtherButtonsThanTheLeftLeaveTheSelectionAloneButTakeATipAway)
{
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        mouse(QEvent::MouseButtonPress, countAt(0), button);
        EXPECT_FALSE(panel->m_selected);
    }
    click(countAt(0));
    host.take();
    painted();
    for (const QPoint at : {priceAt(0), countAt(4), countAt(0), QPoint(1, 1)})
        mouse(QEvent::MouseButtonPress, at, Qt::RightButton);
    ASSERT_TRUE(panel->m_selected);
    EXPECT_DOUBLE_EQ(panel->m_selected->price, 10.02);
    EXPECT_TRUE(host.take().empty());
    EXPECT_EQ(painted(), 0);
    move(countAt(1));
    rest(countAt(1));
    painted();
    mouse(QEvent::MouseButtonPress, countAt(1), Qt::RightButton);
    EXPECT_FALSE(panel->m_showTip);
    EXPECT_EQ(painted(), 1);
}

TEST_F(LadderMouse, AClickOnNothingWithoutASelectionRepaintsOnlyToTakeATipAway)
{
    click(priceAt(0));
    EXPECT_TRUE(host.take().empty());
    EXPECT_EQ(painted(), 0);
    move(countAt(0));
    rest(countAt(0));
    painted();
    click(priceAt(0));
    EXPECT_FALSE(panel->m_showTip);
    EXPECT_EQ(painted(), 1);
}

TEST_F(LadderMouse, WithoutASelectionThereIsNoQueueAndTheOutputsStay)
{
    double tick = 7;
    int unit = 8;
    EXPECT_FALSE(panel->getSelectedQueue(tick, unit));
    EXPECT_EQ(tick, 7);
    EXPECT_EQ(unit, 8);
    click(countAt(0));
    panel->clearSelectedEntrust();
    host.take();
    EXPECT_FALSE(panel->getSelectedQueue(tick, unit));
    EXPECT_TRUE(host.events.empty());
    EXPECT_EQ(painted(), 1) << "of the click";
}

TEST_F(LadderMouse, WithEachNewsTheSelectedLevelIsToldToStand)
{
    click(countAt(4));
    host.take();
    feed({"S 20 10.05 100"});
    panel->slotTimeout();
    EXPECT_EQ(host.take(), (Events{{3223, 0, -1}}));
    panel->slotTimeout();
    EXPECT_TRUE(host.take().empty()) << "no news";
}

TEST_F(LadderMouse, ALevelThatLeftTheBookIsToldToBeGone)
{
    click(countAt(3));
    host.take();
    cancel({1});
    panel->slotTimeout();
    EXPECT_EQ(host.take(), (Events{{3223, -1, 0}}));
    EXPECT_FALSE(panel->m_selected);
    EXPECT_TRUE(background().fillsOf(QColor(0, 0, 128)).empty());
    click(countAt(1));
    host.take();
    cancel({3});
    panel->slotTimeout();
    EXPECT_EQ(host.take(), (Events{{3223, -1, 0}})) << "a sell as well";
}

TEST_F(LadderMouse, AWalkThatEndsWithoutAVerdictKeepsTheSelection)
{
    click(countAt(4));
    host.take();
    cancel({2, 5});
    panel->slotTimeout();
    EXPECT_TRUE(host.take().empty()) << "no level behind it is left that would tell";
    EXPECT_TRUE(panel->m_selected);
    double tick = 0;
    int unit = 0;
    EXPECT_FALSE(panel->getSelectedQueue(tick, unit)) << "its orders are gone";
    feed({"B 30 9.90 100"});
    panel->slotTimeout();
    EXPECT_EQ(host.take(), (Events{{3223, -1, 0}}));
}

TEST_F(LadderMouse, TheHostMayClearInItsAnswer)
{
    host.answer = [this](const RecordingHost::Event& event) {
        if (event.id == 3223 && event.second == -1)
            panel->clear(true);
    };
    click(countAt(4));
    host.take();
    feed({"S 20 10.05 100"});
    panel->slotTimeout();
    EXPECT_EQ(host.take(), (Events{{3223, 0, -1}, {3223, -1, 0}}));
    EXPECT_FALSE(panel->m_selected);
    EXPECT_TRUE(panel->m_buyQueues.empty());
    EXPECT_EQ(panel->m_totalRows, 1);
    host.answer = {};
}

TEST_F(LadderMouse, TheHostMayEndThePanelInItsAnswer)
{
    host.answer = [this](const RecordingHost::Event&) {
        host.answer = {};
        delete panel;
        panel = nullptr;
    };
    click(countAt(4));
    EXPECT_FALSE(panel);
}

// Menu
// --------------------------------------------------------------------------------------------------------

TEST_F(LadderMouse, TheMenuSwitchesTheDistribution)
{
    Kel::CUserConfig config;
    config.setShowDistribution(true);
    Kel::setUserConfig(&config);
    const auto openMenu = [this] {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {20, 20}, panel->mapToGlobal({20, 20}));
        QApplication::sendEvent(panel, &event);
        return panel->findChild<QMenu*>();
    };
    QMenu* menu = openMenu();
    ASSERT_TRUE(menu);
    EXPECT_TRUE(menu->testAttribute(Qt::WA_DeleteOnClose));
    EXPECT_EQ(menu->pos(), panel->mapToGlobal({20, 20})) << "where the mouse is";
    ASSERT_EQ(menu->actions().size(), 1);
    QAction* action = menu->actions().front();
    EXPECT_EQ(action->text(), "千档委托金额分布");
    EXPECT_TRUE(action->isCheckable());
    EXPECT_TRUE(action->isChecked());
    EXPECT_TRUE(menu->styleSheet().startsWith(" QMenu {menu-scrollable: 1; background-color: rgba("));
    EXPECT_FALSE(menu->styleSheet().contains('%'));
    EXPECT_TRUE(menu->styleSheet().endsWith(";}"));
    painted();
    action->trigger();
    EXPECT_FALSE(config.showDistribution());
    EXPECT_FALSE(panel->m_showDistribute);
    EXPECT_GE(painted(), 1);
    menu->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    menu = openMenu();
    ASSERT_TRUE(menu);
    EXPECT_FALSE(menu->actions().front()->isChecked());
    menu->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(panel->findChild<QMenu*>());
    Kel::setUserConfig(nullptr);
}

TEST_F(LadderMouse, EachColourOfTheMenuHasItsPlace)
{
    auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    const QTemporaryDir directory;
    QFile file(directory.filePath("menu.json"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    // Some of them are alike in the built-in themes.
    file.write(R"({ "name": "menu", "base": "dark", "colors": {
        "clr_menubar_background_new": "#000001", "clr_menubar_border_new": "#000002",
        "clr_menubar_item_border_new": "#000003", "clr_menubar_item_background_normal_new": "#000004",
        "clr_menubar_item_background_selected_new": "#000005",
        "clr_menubar_item_background_hover_new": "#000006",
        "clr_menubar_item_background_pressed_new": "#000007", "clr_menubar_item_text_new": "#000008" } })");
    file.close();
    QString error;
    ASSERT_TRUE(resource.loadThemeFile(file.fileName(), &error)) << error.toStdString();
    Kel::CUserConfig config;
    Kel::setUserConfig(&config);
    QContextMenuEvent event(QContextMenuEvent::Mouse, {20, 20}, panel->mapToGlobal({20, 20}));
    QApplication::sendEvent(panel, &event);
    auto* const menu = panel->findChild<QMenu*>();
    ASSERT_TRUE(menu);
    const auto color = [&](const char* key) { return resource.getColorSheetByKey(QLatin1String(key)); };
    const auto image = [&](const char* key) { return resource.getImageSheet(QLatin1String(key)); };
    const QStringList rules = {QStringLiteral(" QMenu {menu-scrollable: 1; background-color: "),
                               color("clr_menubar_background_new"),
                               QStringLiteral("; border:1px solid "),
                               color("clr_menubar_border_new"),
                               QStringLiteral(";}QMenu::icon {left:10px}QMenu::item {color: "),
                               color("clr_menubar_item_text_new"),
                               QStringLiteral("; spacing: 20px; padding: 6px 34px;background-color: "),
                               color("clr_menubar_item_background_normal_new"),
                               QStringLiteral(";border:"),
                               color("clr_menubar_item_border_new"),
                               QStringLiteral(";}QMenu::item:selected {background-color: "),
                               color("clr_menubar_item_background_selected_new"),
                               QStringLiteral(";}QMenu::item:hover {background-color: "),
                               color("clr_menubar_item_background_hover_new"),
                               QStringLiteral(";}QMenu::item:pressed {background-color: "),
                               color("clr_menubar_item_background_pressed_new"),
                               QStringLiteral(";}QMenu::indicator:non-exclusive:checked {"),
                               image("img_menu_check"),
                               QStringLiteral(";}QMenu::right-arrow {"),
                               image("img_menu_arrow"),
                               QStringLiteral(";}")};
    EXPECT_EQ(menu->styleSheet().toStdString(), rules.join(QString()).toStdString());
    menu->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Kel::setUserConfig(nullptr);
    resource.setTheme("dark");
}

TEST_F(LadderMouse, WithoutAUserConfigurationThereIsNoMenuAndNoSwitch)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, {20, 20}, panel->mapToGlobal({20, 20}));
    QApplication::sendEvent(panel, &event);
    EXPECT_FALSE(panel->findChild<QMenu*>());
    panel->slotThousandDataDistribution();
    EXPECT_TRUE(panel->m_showDistribute);
}
