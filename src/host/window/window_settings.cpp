// What the window remembers: looks, places, and the layouts that a person has named.

#include "host/window/MainWindow.h"

#include "host/window/InstrumentList.h"
#include "host/window/MessageBar.h"
#include "host/window/TerminalActions.h"
#include "host/window/keys/KeySheet.h"
#include "host/window/language/TerminalLanguage.h"
#include "host/window/panes/QueueCell.h"
#include "host/window/settings/SettingsDialog.h"
#include "host/window/settings/applied_look.h"
#include "host/window/workspace/Workspace.h"
#include "host/window/workspace/Workspaces.h"
#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"

#include <QCloseEvent>
#include <QInputDialog>
#include <QMessageBox>

#include <algorithm>

namespace host {

namespace {

auto named(std::vector<SavedLayout>& layouts, const QString& name)
{
    return std::find_if(layouts.begin(), layouts.end(),
                        [&name](const SavedLayout& layout) { return layout.name == name; });
}

QStringList namesOf(const std::vector<SavedLayout>& layouts)
{
    QStringList names;
    for (const SavedLayout& layout : layouts)
        names.append(layout.name);
    return names;
}

} // namespace

void MainWindow::loadSettings()
{
    if (m_options.settingsFile.isEmpty())
        return;
    QString problem;
    readSettings(m_options.settingsFile, m_settings, problem);
    if (!problem.isEmpty())
        m_messages->showError(problem);
    mergeSettings(m_settings, m_options);
    m_actions->keyMap().setDifferences(m_settings.keys);
    showSavedLayouts();
}

/// Looks, keys and language, which a person changes while the window is open.
void MainWindow::connectSettings()
{
    connect(&m_actions->keyMap(), &KeyMap::changed, this, [this] {
        m_settings.keys = m_actions->keyMap().differences();
        storeSettings();
    });
    connect(m_actions, &TerminalActions::commandAsked, this, [this](const QString& id) {
        if (id == QLatin1String("settings"))
            openSettings();
        else if (id == QLatin1String("keys"))
            showKeys();
        else if (id == QLatin1String("about"))
            showAbout();
    });
    keepSaid(this, [this] { sayTitle(); });
}

void MainWindow::openSettings()
{
    if (auto* open = findChild<SettingsDialog*>()) {
        open->raise();
        open->activateWindow();
        return;
    }
    const auto& look = utils::CSingletonT<Zeb::CUiResource>::instance();
    m_settings.theme = look.theme();
    m_settings.colors = look.priceColors();
    auto* dialog = new SettingsDialog(m_settings, m_actions, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &SettingsDialog::changed, this, &MainWindow::applySettings);
    dialog->show();
}

void MainWindow::applySettings(const TerminalSettings& wanted)
{
    m_settings.theme = wanted.theme;
    m_settings.colors = wanted.colors;
    m_settings.concise = wanted.concise;
    m_settings.refreshMs = wanted.refreshMs;
    m_settings.fontPercent = wanted.fontPercent;
    m_settings.language = wanted.language;
    applyLook(m_settings, m_services);
    storeSettings();
}

void MainWindow::showKeys()
{
    auto* sheet = findChild<KeySheet*>();
    if (!sheet) {
        sheet = new KeySheet(m_actions, this);
        sheet->setAttribute(Qt::WA_DeleteOnClose);
    }
    sheet->show();
    sheet->raise();
    sheet->activateWindow();
}

void MainWindow::showAbout()
{
    QMessageBox::about(this, uiText("关于"),
                       uiText("深度行情终端") + QStringLiteral("\n\n") +
                           uiText("回放一日的逐笔行情，重建每个价位上的委托队列。"));
}

void MainWindow::storeSettings()
{
    if (m_options.settingsFile.isEmpty())
        return;
    const auto& look = utils::CSingletonT<Zeb::CUiResource>::instance();
    m_settings.theme = look.theme();
    m_settings.colors = look.priceColors();
    m_settings.modes = m_first.queue->modes();
    m_settings.geometry = saveGeometry();
    m_settings.state = m_workspace->arrangement();
    m_settings.desk = deskState();
    m_settings.desk.instruments.clear();
    QString problem;
    if (!writeSettings(m_options.settingsFile, m_settings, problem))
        m_messages->showError(problem);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    storeSettings();
    for (Workspace* workspace : m_workspaces->windows()) {
        if (workspace->isWindow())
            workspace->hide();
    }
    QMainWindow::closeEvent(event);
}

void MainWindow::saveLayout(const QString& name)
{
    if (name.isEmpty())
        return;
    SavedLayout layout;
    layout.name = name;
    layout.state = m_workspace->arrangement();
    layout.desk = deskState();
    if (day())
        layout.timeOfDay = utils::timeOfDayMs(m_player->now());
    const auto before = named(m_settings.layouts, name);
    if (before != m_settings.layouts.end())
        *before = layout;
    else
        m_settings.layouts.push_back(layout);
    showSavedLayouts();
    storeSettings(); // a crash of the machine must not lose it
}

void MainWindow::restoreLayout(const QString& name)
{
    const auto found = named(m_settings.layouts, name);
    if (found == m_settings.layouts.end())
        return;
    const SavedLayout layout = *found;
    restoreDesk(layout.desk, layout.state);
    if (!m_groups.at(0).day())
        return;
    // Instruments of another source are not there.
    m_wishes.clear();
    for (int group = 0; group < std::min(PaneGroups::kCount, layout.desk.instruments.size()); ++group) {
        const int row = m_list->instruments().rowOf(layout.desk.instruments[group]);
        if (row >= 0 && row != m_groups.at(group).row())
            m_wishes.push_back({group, row});
    }
    m_timeWanted = layout.timeOfDay;
    if (!loadNext())
        goOnWithGroups();
}

/// Starts the replay anew for groups that wait for nothing to be loaded.
void MainWindow::goOnWithGroups()
{
    if (m_groups.at(0).day())
        restartReplay(m_timeWanted < 0 ? m_player->now() : momentIn(m_groups.range(), m_timeWanted));
    m_timeWanted = -1;
}

DeskState MainWindow::deskState() const
{
    DeskState desk;
    for (int group = 0; group < PaneGroups::kCount; ++group) {
        const PaneGroup& one = m_groups.at(group);
        for (const Pane* pane : one.panes())
            desk.groups[pane->id()] = group;
        desk.instruments.append(m_groups.isPlayed(group) ? TerminalServices::keyOf(one.day()->detail)
                                                         : QString());
    }
    desk.windows = m_workspaces->state();
    return desk;
}

/// Brings windows, panes and groups back, not the instruments; the replay is for the caller to start anew.
void MainWindow::restoreDesk(const DeskState& desk, const QByteArray& panes)
{
    for (const auto& [id, group] : desk.groups) {
        Pane* one = pane(id);
        if (one && group >= 0 && group < PaneGroups::kCount)
            m_groups.link(one, group);
    }
    m_workspaces->restore(desk.windows);
    m_workspace->restore(panes);
    m_groups.fill();
    m_regrouped = true;
    showGroups();
}

void MainWindow::removeLayout(const QString& name)
{
    const auto found = named(m_settings.layouts, name);
    if (found == m_settings.layouts.end())
        return;
    m_settings.layouts.erase(found);
    showSavedLayouts();
    storeSettings();
}

void MainWindow::showSavedLayouts()
{
    m_actions->showSavedLayouts(namesOf(m_settings.layouts));
}

void MainWindow::askForLayoutName()
{
    const QString name = QInputDialog::getText(this, uiText("保存布局"), uiText("名称"));
    saveLayout(name.trimmed());
}

void MainWindow::askWhichLayoutToRemove()
{
    bool agreed = false;
    const QString name = QInputDialog::getItem(this, uiText("删除布局"), uiText("名称"),
                                               namesOf(m_settings.layouts), 0, false, &agreed);
    if (agreed)
        removeLayout(name);
}

} // namespace host
