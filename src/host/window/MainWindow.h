#pragma once

#include "host/window/DayLoader.h"
#include "host/window/ReplayPlayer.h"
#include "host/window/TerminalOptions.h"
#include "host/window/TerminalServices.h"
#include "host/window/day_moments.h"
#include "host/window/day_phases.h"
#include "host/window/groups/PaneGroups.h"
#include "host/window/settings/TerminalSettings.h"
#include "platform/resources/CUiResourceChangeHandler.h"

#include <QMainWindow>
#include <QTimer>

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <vector>

class QDockWidget;

namespace host {

struct FileResult;
class ChartPane;
class DealsPane;
class EntrustPane;
class GroupChip;
class InformationPane;
class InstrumentList;
class LadderPane;
class LevelPane;
class MessageBar;
class QueueCell;
class ReplayBar;
class TerminalActions;
class TicketPane;
class Workspace;
class Workspaces;

/// The panes that are there from the beginning, one of each kind.
struct FirstPanes
{
    QueueCell* queue = nullptr;
    LadderPane* ladder = nullptr;
    DealsPane* deals = nullptr;
    EntrustPane* orders = nullptr;
    ChartPane* chart = nullptr;
    ChartPane* zoom = nullptr;
    LevelPane* levels = nullptr;
    TicketPane* ticket = nullptr;
    InformationPane* information = nullptr;
};

/// The terminal's window: the instruments, and the panels of the chosen ones in the panes of a workspace, the
/// replay below. Panes are linked in groups, each with an instrument of its own; all of them follow one
/// clock. The list chooses for the group of the pane that was used last. GUI thread.
class MainWindow : public QMainWindow, public Zeb::CUiResourceChangeHandler
{
    Q_OBJECT

public:
    explicit MainWindow(const TerminalOptions& options);
    ~MainWindow() override;

    /// Pixels at 100 %; needs no application.
    static QSize smallestSize();

    /// Loads the source that the options name.
    void start();

    /// Loads another source; what is shown stays until it is there.
    void openSource(const DaySource& source);

    /// Goes to a moment of the day that is shown (ms since 1970-01-01 UTC).
    void seek(std::int64_t moment);

    void setPlaying(bool playing);

    ReplayPlayer& player() { return *m_player; }
    QueueCell& queue() { return *m_first.queue; }
    LevelPane& levels() { return *m_first.levels; }
    TicketPane& ticket() { return *m_first.ticket; }
    InformationPane& information() { return *m_first.information; }
    const FirstPanes& panels() const { return m_first; }

    /// The main window's workspace.
    Workspace& workspace() { return *m_workspace; }
    Workspaces& workspaces() { return *m_workspaces; }
    PaneGroups& groups() { return m_groups; }
    InstrumentList& list() { return *m_list; }
    ReplayBar& bar() { return *m_bar; }
    MessageBar& messages() { return *m_messages; }
    TerminalActions& actions() { return *m_actions; }

    /// Records that the feeds have delivered.
    std::int64_t records() const { return m_groups.records(); }

    /// The day of the current group; null before the first one.
    DayPtr day() const { return m_groups.at(m_group).day(); }

    /// The group whose instrument the list chooses, from 0.
    int currentGroup() const { return m_group; }
    void setCurrentGroup(int group);

    /// Puts a pane into a group, out of the one it is in.
    void linkPane(Pane* pane, int group);

    /// The pane of an id ("queue#2"), made if it is not there yet and closed then; null for an id that is no
    /// pane's.
    Pane* pane(const QString& id);

    /// Adds a further pane of a kind to the current group and shows it; null if there are too many.
    Pane* addPaneOfKind(const QString& kind);

    void themeChanged() override;

    /// What is remembered between runs, as it is now.
    const TerminalSettings& settings() const { return m_settings; }

    /// Names the present arrangement of the panes and the place of the replay; a name that is there already
    /// is given to the new one.
    void saveLayout(const QString& name);

    /// Brings panes and replay back; nothing for an unknown name.
    void restoreLayout(const QString& name);

    void removeLayout(const QString& name);

protected:
    void closeEvent(QCloseEvent* event) override;

Q_SIGNALS:
    /// An instrument's history up to the moment of the replay has reached the panels.
    void shown();

    /// A step of the replay is done, or there was no record to step to.
    void stepped();

    /// The source that `start` loads cannot be loaded: there is nothing to show. What fails later is told in
    /// the message bar.
    void startFailed(const QString& reason);

private:
    // The window
    void makeLayout();
    void connectLoader();
    void connectReplay();
    void connectActions();
    void applyStyle();

    // Panes and groups
    void makePanes();
    Pane* takePane(Pane* pane);
    void placeChip(QDockWidget* dock, Pane* pane);
    void showGroupMenu(Pane* pane, GroupChip* chip);
    void showGroups();
    void showTitle(const nelservice::CInstrumentDetail& detail);
    void loadInto(int group, int row);
    bool loadNext();
    void applyLayout(const QString& id);
    void giveOtherInstrument(int group);

    // The day
    void showDay(int index, const DayPtr& day);
    void restartReplay(std::int64_t at);
    void tellWhatIsMissing(const feed::InstrumentDay& day);
    void onHalted(int number);
    void onFailed(const QString& reason);
    void onCancelled();
    void endLoading();
    void showRowOfDay();
    void followReplay();
    void stepSpeed(int step);
    void setSpeed(double speed);
    void openFolder(bool archive);
    std::int64_t firstMoment() const;

    // Commands
    void runCommand(const QString& id);
    std::vector<PhaseMark> phases() const;
    void stepReplay(EStep kind, bool back, int count);
    void onStepped(bool done);
    void goToPhase(EDayPhase phase);
    void goToMark(const std::optional<PhaseMark>& mark);
    void centerPanels();
    void linkCurrentPane(int group);
    void openWindow();
    void showGaps();

    // What the menu does with panes
    void takeModes(const QueueModes& modes);
    void filterList();
    void showWholeDay();
    void showLatestDeals();
    void copySelection();
    void exportTable(bool gbk);
    void exportPicture();
    void trackOrder();
    void tellResult(const FileResult& result);

    // What is remembered
    void loadSettings();
    void storeSettings();
    void connectSettings();
    void openSettings();
    void applySettings(const TerminalSettings& wanted);
    void showKeys();
    void showAbout();
    void sayTitle();
    DeskState deskState() const;
    void restoreDesk(const DeskState& desk, const QByteArray& panes);
    void goOnWithGroups();
    void showSavedLayouts();
    void askForLayoutName();
    void askWhichLayoutToRemove();

    TerminalOptions m_options;
    TerminalSettings m_settings;
    TerminalServices m_services; ///< outlives the panels
    PaneGroups m_groups;
    std::unique_ptr<ReplayPlayer> m_player;
    std::unique_ptr<DayLoader> m_loader;
    Workspace* m_workspace;
    Workspaces* m_workspaces;
    InstrumentList* m_list;
    FirstPanes m_first;
    ReplayBar* m_bar;
    MessageBar* m_messages;
    TerminalActions* m_actions;
    GroupChip* m_listChip = nullptr;
    QTimer m_follow;

    /// An instrument that a group waits for.
    struct Wish
    {
        int group = 0;
        int row = 0; ///< in the list
    };

    DaySource m_nextSource;         ///< the one that was opened last
    std::int64_t m_timeWanted = -1; ///< of a restored layout, for the day that is being loaded
    DayRange m_range;
    int m_group = 0;            ///< the current one
    int m_loading = 0;          ///< the group that a day is being loaded for
    std::deque<Wish> m_wishes;  ///< to be loaded after it
    bool m_otherWanted = false; ///< the second group waits for a day to get another one
    bool m_regrouped = false;   ///< since the replay was started
    bool m_sourceIsNew = false; ///< the list is of a source of which no day is shown yet
    bool m_starting = false;    ///< the load that `start` began has not ended
};

} // namespace host
