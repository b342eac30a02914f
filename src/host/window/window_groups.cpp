// Panes, the groups that link them, and which instrument each group shows.

#include "host/window/MainWindow.h"

#include "host/window/InstrumentList.h"
#include "host/window/MessageBar.h"
#include "host/window/ReplayBar.h"
#include "host/window/TerminalActions.h"
#include "host/window/groups/GroupChip.h"
#include "host/window/language/TerminalLanguage.h"
#include "host/window/panes/ChartPane.h"
#include "host/window/panes/DealsPane.h"
#include "host/window/panes/EntrustPane.h"
#include "host/window/panes/InformationPane.h"
#include "host/window/panes/LadderPane.h"
#include "host/window/panes/LevelPane.h"
#include "host/window/panes/ListPane.h"
#include "host/window/panes/QueueCell.h"
#include "host/window/panes/TicketPane.h"
#include "host/window/panes/pane_kinds.h"
#include "host/window/window_style.h"
#include "host/window/workspace/PaneTitle.h"
#include "host/window/workspace/Workspace.h"
#include "host/window/workspace/Workspaces.h"
#include "host/window/workspace/layouts.h"
#include "platform/toolkit/style_sheets.h"

#include <QDockWidget>
#include <QMenu>

#include <algorithm>

namespace host {

void MainWindow::makePanes()
{
    auto* list = new ListPane(m_list);
    placeChip(m_workspaces->add(list->id(), list->title(), list), nullptr);
    for (const PaneKind& kind : paneKinds())
        takePane(makePane(kind.id));
    m_actions->addPanes(m_workspaces->toggles());
    QList<QPair<QString, QString>> kinds;
    for (const PaneKind& kind : paneKinds())
        kinds.append({kind.id, kind.title});
    m_actions->addPaneKinds(kinds);
    m_first.queue = qobject_cast<QueueCell*>(pane(QStringLiteral("queue")));
    m_first.ladder = qobject_cast<LadderPane*>(pane(QStringLiteral("ladder")));
    m_first.deals = qobject_cast<DealsPane*>(pane(QStringLiteral("deals")));
    m_first.orders = qobject_cast<EntrustPane*>(pane(QStringLiteral("orders")));
    m_first.chart = qobject_cast<ChartPane*>(pane(QStringLiteral("chart")));
    m_first.zoom = qobject_cast<ChartPane*>(pane(QStringLiteral("zoom")));
    m_first.levels = qobject_cast<LevelPane*>(pane(QStringLiteral("levels")));
    m_first.ticket = qobject_cast<TicketPane*>(pane(QStringLiteral("ticket")));
    m_first.information = qobject_cast<InformationPane*>(pane(QStringLiteral("information")));
    connect(m_workspaces, &Workspaces::windowOpened, this, [this](Workspace* window) {
        Zeb::giveSheet(window, windowStyleSheet());
        m_actions->serve(window);
    });
    connect(m_workspaces, &Workspaces::currentChanged, this, [this] {
        const Pane* current = m_workspaces->currentPane();
        if (current && !qobject_cast<const ListPane*>(current)) // which shows no instrument of its own
            setCurrentGroup(m_groups.groupOf(current));
    });
}

/// Puts a new pane into the workspace and the first group.
Pane* MainWindow::takePane(Pane* pane)
{
    pane->setTradeDate([this] { return m_services.tradingDay(); });
    pane->setAnswer([this](Pane& from, int id, int first, int second, const QString& text) {
        return m_groups.of(from).wiring().answer(from, id, first, second, text);
    });
    if (auto* information = qobject_cast<InformationPane*>(pane))
        information->setSource(m_nextSource);
    m_groups.at(0).wiring().add(pane);
    placeChip(m_workspaces->add(pane->id(), pane->title(), pane), pane);
    return pane;
}

/// Of a pane, or of the list for a null one.
void MainWindow::placeChip(QDockWidget* dock, Pane* pane)
{
    auto* chip = new GroupChip(dock);
    static_cast<PaneTitle*>(dock->titleBarWidget())->addLeft(chip);
    connect(chip, &GroupChip::clicked, this, [this, pane, chip] { showGroupMenu(pane, chip); });
    if (!pane)
        m_listChip = chip;
}

Pane* MainWindow::pane(const QString& id)
{
    if (QDockWidget* dock = m_workspaces->dock(id))
        return qobject_cast<Pane*>(dock->widget());
    Pane* made = makePane(id);
    if (!made)
        return nullptr;
    takePane(made);
    m_actions->addPanes({m_workspaces->toggles().constLast()});
    if (auto* queue = qobject_cast<QueueCell*>(made))
        queue->setModes(m_first.queue->modes());
    const bool five = m_first.queue->modes().levels == Kel::eQueueFiveLevels;
    if (auto* levels = qobject_cast<LevelPane*>(made))
        levels->setFiveLevels(five);
    if (auto* ticket = qobject_cast<TicketPane*>(made))
        ticket->setFiveLevels(five);
    return made;
}

Pane* MainWindow::addPaneOfKind(const QString& kind)
{
    int number = 2;
    while (m_workspaces->dock(Pane::furtherId(kind, number)))
        ++number;
    Pane* added = pane(Pane::furtherId(kind, number));
    if (!added) {
        m_messages->showNote(uiText("这种窗格已经够多了"));
        return nullptr;
    }
    linkPane(added, m_group);
    QDockWidget* dock = m_workspaces->dock(added->id());
    dock->show();
    dock->raise();
    return added;
}

void MainWindow::linkPane(Pane* pane, int group)
{
    const bool moved = m_groups.groupOf(pane) != group;
    if (moved)
        m_groups.link(pane, group);
    if (pane == m_workspaces->currentPane())
        m_group = group;
    showGroups();
    if (m_groups.at(0).day()) // a new pane as well has nothing yet
        restartReplay(m_player->now());
}

void MainWindow::setCurrentGroup(int group)
{
    if (group < 0 || group >= PaneGroups::kCount || group == m_group)
        return;
    m_group = group;
    showGroups();
}

/// Shows which pane is in which group, and what the current group shows.
void MainWindow::showGroups()
{
    for (int group = 0; group < PaneGroups::kCount; ++group) {
        for (const Pane* pane : m_groups.at(group).panes())
            m_workspaces->dock(pane->id())->titleBarWidget()->findChild<GroupChip*>()->setGroup(group);
    }
    m_listChip->setGroup(m_group);
    m_actions->showGroup(m_group + 1);
    std::vector<int> rows;
    for (int group = 0; group < PaneGroups::kCount; ++group)
        rows.push_back(m_groups.isPlayed(group) && !m_sourceIsNew ? m_groups.at(group).row() : -1);
    const bool several = std::count_if(rows.begin(), rows.end(), [](int row) { return row >= 0; }) > 1;
    m_list->instruments().setGroups(several ? rows : std::vector<int>());
    showRowOfDay();
    if (const DayPtr shown = day())
        showTitle(shown->detail);
}

void MainWindow::showGroupMenu(Pane* pane, GroupChip* chip)
{
    QMenu menu(chip);
    for (int group = 0; group < PaneGroups::kCount; ++group) {
        const DayPtr& day = m_groups.at(group).day();
        QString text = GroupChip::name(group);
        if (m_groups.isPlayed(group))
            text += QStringLiteral("  ") + QString::fromStdString(day->detail.code + ' ' + day->detail.name);
        QAction* choice = menu.addAction(GroupChip::icon(group), text);
        connect(choice, &QAction::triggered, this, [this, pane, group] {
            if (pane)
                linkPane(pane, group);
            else
                setCurrentGroup(group);
        });
    }
    if (pane) {
        QDockWidget* dock = m_workspaces->dock(pane->id());
        menu.addSeparator();
        std::size_t number = 0;
        for (Workspace* window : m_workspaces->windows()) {
            ++number;
            if (window == m_workspaces->windowOf(dock))
                continue;
            const QString text = number == 1 ? uiText("移到主窗口") : uiText("移到窗口 %1").arg(number);
            connect(menu.addAction(text), &QAction::triggered, this,
                    [this, dock, window] { m_workspaces->move(dock, window); });
        }
        connect(menu.addAction(uiText("移到新窗口")), &QAction::triggered, this,
                [this, dock] { m_workspaces->move(dock, m_workspaces->openWindow()); });
    }
    menu.exec(chip->mapToGlobal(QPoint(0, chip->height())));
}

/// Loads an instrument of the list for a group.
void MainWindow::loadInto(int group, int row)
{
    m_loading = group;
    m_starting = false;
    m_bar->setLoading(0, 0);
    m_loader->load(row);
}

/// Loads what a group waits for, if one does.
bool MainWindow::loadNext()
{
    if (m_wishes.empty())
        return false;
    const Wish wish = m_wishes.front();
    m_wishes.pop_front();
    loadInto(wish.group, wish.row);
    return true;
}

/// A layout's further panes show a second instrument.
void MainWindow::applyLayout(const QString& id)
{
    const Layout* layout = shippedLayout(id);
    if (!layout)
        return;
    std::vector<Pane*> further;
    for (const LayoutColumn& column : layout->columns) {
        for (const LayoutCell& cell : column.cells) {
            for (const QString& name : cell.panes) {
                if (paneName(name).number > 1)
                    further.push_back(pane(name));
            }
        }
    }
    m_workspaces->apply(*layout);
    bool moved = false;
    for (Pane* one : further) {
        moved = moved || m_groups.groupOf(one) != 1;
        m_groups.link(one, 1);
    }
    if (further.empty())
        return;
    showGroups();
    m_otherWanted = !m_groups.at(0).day();
    if (m_otherWanted)
        return;
    if (moved)
        restartReplay(m_player->now());
    giveOtherInstrument(1);
}

/// A group that shows the instrument of the first one gets the next of the list.
void MainWindow::giveOtherInstrument(int group)
{
    const int rows = m_list->instruments().rowCount();
    const int first = m_groups.at(0).row();
    if (rows < 2 || first < 0 || m_groups.at(group).row() != first)
        return;
    loadInto(group, (first + 1) % rows);
}

} // namespace host
