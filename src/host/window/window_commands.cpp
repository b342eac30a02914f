// Commands of the menus that move the replay, the view and the groups.

#include "host/window/MainWindow.h"

#include "host/window/MessageBar.h"
#include "host/window/ReplayBar.h"
#include "host/window/TerminalActions.h"
#include "host/window/day_phases.h"
#include "host/window/language/TerminalLanguage.h"
#include "host/window/panes/ChartPane.h"
#include "host/window/panes/DealsPane.h"
#include "host/window/panes/EntrustPane.h"
#include "host/window/panes/LadderPane.h"
#include "host/window/panes/QueueCell.h"
#include "host/window/workspace/Workspaces.h"
#include "queue_view/CDepthOrderQueueWidget.h"
#include "thousand/CDepthThousandDataWidget.h"
#include "tick/CDepthCancelWidget.h"
#include "tick/CDepthEntrustWidget.h"
#include "tick/CDepthOrderWidget.h"
#include "tick/CDepthTransactionWidget.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>

namespace host {

namespace {

constexpr int kStepSeconds = 10;
constexpr int kEventReset = 82; ///< brings a ladder back to its middle
const QString kAddPane = QStringLiteral("addPane_");

struct StepCommand
{
    const char* id;
    EStep kind;
    bool back;
    int count;
};

constexpr StepCommand kSteps[] = {
    {"stepOrder", EStep::eOrder, false, 1},
    {"backOrder", EStep::eOrder, true, 1},
    {"stepDeal", EStep::eDeal, false, 1},
    {"backDeal", EStep::eDeal, true, 1},
    {"stepSnapshot", EStep::eSnapshot, false, 1},
    {"backSnapshot", EStep::eSnapshot, true, 1},
    {"stepSeconds", EStep::eSecond, false, kStepSeconds},
    {"backSeconds", EStep::eSecond, true, kStepSeconds},
};

struct PhaseCommand
{
    const char* id;
    EDayPhase phase;
};

constexpr PhaseCommand kPhases[] = {
    {"phaseAuction", EDayPhase::eOpeningAuction},
    {"phaseOpen", EDayPhase::eOpen},
    {"phaseLunch", EDayPhase::eBreak},
    {"phaseClose", EDayPhase::eClose},
};

/// Lets a list follow its latest row again.
void goToEnd(QWidget& list)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_End, Qt::NoModifier);
    QCoreApplication::sendEvent(&list, &press);
}

} // namespace

void MainWindow::runCommand(const QString& id)
{
    for (const StepCommand& step : kSteps) {
        if (id == QLatin1String(step.id))
            stepReplay(step.kind, step.back, step.count);
    }
    for (const PhaseCommand& phase : kPhases) {
        if (id == QLatin1String(phase.id))
            goToPhase(phase.phase);
    }
    for (int group = 0; group < PaneGroups::kCount; ++group) {
        if (id == QStringLiteral("group%1").arg(group + 1))
            linkCurrentPane(group);
    }
    if (id == QLatin1String("nextPhase"))
        goToMark(nextPhase(phases(), m_player->now()));
    else if (id == QLatin1String("previousPhase"))
        goToMark(previousPhase(phases(), m_player->now()));
    else if (id == QLatin1String("fastest"))
        setSpeed(ReplayPlayer::kFast);
    else if (id == QLatin1String("center"))
        centerPanels();
    else if (id == QLatin1String("newWindow"))
        openWindow();
    else if (id.startsWith(kAddPane))
        addPaneOfKind(id.mid(kAddPane.size()));
}

/// Of the current group's day.
std::vector<PhaseMark> MainWindow::phases() const
{
    const DayPtr shown = day();
    return shown ? phasesOf(*shown) : std::vector<PhaseMark>();
}

/// Steps go by the records of the current group's day.
void MainWindow::stepReplay(EStep kind, bool back, int count)
{
    if (!m_groups.at(0).day())
        return;
    setPlaying(false);
    m_player->step(kind, back, m_groups.partOf(m_group), count);
}

void MainWindow::onStepped(bool done)
{
    followReplay();
    m_groups.lookNow();
    if (!done)
        m_messages->showNote(uiText("这个方向没有更多记录"));
    Q_EMIT stepped();
}

void MainWindow::goToPhase(EDayPhase phase)
{
    const std::vector<PhaseMark> marks = phases();
    const auto found = std::find_if(marks.begin(), marks.end(),
                                    [phase](const PhaseMark& mark) { return mark.phase == phase; });
    goToMark(found == marks.end() ? std::optional<PhaseMark>() : *found);
}

void MainWindow::goToMark(const std::optional<PhaseMark>& mark)
{
    if (!mark) {
        m_messages->showNote(uiText("此日没有这个阶段"));
        return;
    }
    seek(mark->moment);
    m_messages->showNote(uiText(mark->name));
}

/// The current group's panels show the middle of the book and the latest records again.
void MainWindow::centerPanels()
{
    const PanelWiring& wiring = m_groups.at(m_group).wiring();
    for (LadderPane* ladder : wiring.all<LadderPane>())
        ladder->panel().handleEvent(kEventReset, 0, 0, QString(), nullptr);
    for (QueueCell* queue : wiring.all<QueueCell>())
        queue->panel().updateQueueMode(queue->modes().style);
    for (DealsPane* deals : wiring.all<DealsPane>())
        goToEnd(deals->panel());
    for (EntrustPane* orders : wiring.all<EntrustPane>()) {
        goToEnd(*orders->panel().orderList());
        goToEnd(*orders->panel().cancelList());
    }
    showLatestDeals();
}

void MainWindow::linkCurrentPane(int group)
{
    Pane* current = m_workspaces->currentPane();
    if (current && m_groups.contains(current))
        linkPane(current, group);
    else
        setCurrentGroup(group);
    showGroups();
}

/// Takes the current pane along, since an empty window shows nobody anything.
void MainWindow::openWindow()
{
    Pane* current = m_workspaces->currentPane();
    Workspace* window = m_workspaces->openWindow();
    if (current)
        m_workspaces->move(m_workspaces->dock(current->id()), window);
}

/// Stretches of the days in which records are missing, as far as the replay has come.
void MainWindow::showGaps()
{
    std::vector<DayStretch> gaps;
    for (int group = 0; group < PaneGroups::kCount; ++group) {
        if (!m_groups.isPlayed(group))
            continue;
        for (const Kel::SDataGap& gap : m_groups.at(group).watch().gaps()) {
            if (!gap.reloaded && gap.from > 0)
                gaps.push_back({gap.from, gap.to});
        }
    }
    m_bar->setGaps(gaps);
}

} // namespace host
