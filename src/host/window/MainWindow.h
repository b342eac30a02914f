#pragma once

#include "host/window/DayLoader.h"
#include "host/window/FeedHub.h"
#include "host/window/ReplayPlayer.h"
#include "host/window/TerminalOptions.h"
#include "host/window/TerminalServices.h"
#include "host/window/day_moments.h"
#include "host/window/settings/TerminalSettings.h"
#include "host/window/workspace/panel_wiring.h"
#include "platform/resources/CUiResourceChangeHandler.h"

#include <QMainWindow>
#include <QTimer>

#include <cstdint>
#include <memory>
#include <vector>

namespace host {

struct FileResult;
class InformationPane;
class InstrumentList;
class LevelPane;
class MessageBar;
class ReplayBar;
class TerminalActions;
class TicketPane;
class Workspace;

/// The terminal's window: the instruments and the panels of the chosen one in the panes of a workspace, the
/// replay below. GUI thread.
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
    QueueCell& queue() { return *m_wiring.queue; }
    Workspace& workspace() { return *m_workspace; }
    PanelWiring& panels() { return m_wiring; }
    LevelPane& levels() { return *m_levels; }
    TicketPane& ticket() { return *m_ticket; }
    InformationPane& information() { return *m_information; }
    InstrumentList& list() { return *m_list; }
    ReplayBar& bar() { return *m_bar; }
    MessageBar& messages() { return *m_messages; }
    TerminalActions& actions() { return *m_actions; }

    /// Records that the feed has delivered.
    std::int64_t records() const { return m_hub.records(); }

    /// The day that is shown; null before the first one.
    DayPtr day() const { return m_day; }

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

    /// The source that `start` loads cannot be loaded: there is nothing to show. What fails later is told in
    /// the message bar.
    void startFailed(const QString& reason);

private:
    void makePanes();
    void makeLayout();
    template <class Made, class... Arguments>
    Made* addPane(Arguments... arguments);
    void connectLoader();
    void connectReplay();
    void connectActions();
    void applyStyle();
    void showDay(int index, const DayPtr& day);
    void tellWhatIsMissing(const feed::InstrumentDay& day);
    void onHalted(int number);
    void onFailed(const QString& reason);
    void onCancelled();
    void showRowOfDay();
    void followReplay();
    void stepSpeed(int step);
    void setSpeed(double speed);
    void openFolder(bool archive);
    void takeModes(const QueueModes& modes);
    void applyLayout(const QString& id);
    void filterList();
    void showWholeDay();
    void copySelection();
    void exportTable(bool gbk);
    void exportPicture();
    void trackOrder();
    void endTracking();
    void tellResult(const FileResult& result);
    void loadSettings();
    void storeSettings();
    void showSavedLayouts();
    void askForLayoutName();
    void askWhichLayoutToRemove();
    std::int64_t firstMoment() const;

    TerminalOptions m_options;
    TerminalSettings m_settings;
    TerminalServices m_services; ///< outlives the panels
    FeedHub m_hub;
    std::unique_ptr<ReplayPlayer> m_player;
    std::unique_ptr<DayLoader> m_loader;
    Workspace* m_workspace;
    InstrumentList* m_list;
    std::vector<Pane*> m_panes; ///< in the order of making
    PanelWiring m_wiring;
    LevelPane* m_levels = nullptr;
    TicketPane* m_ticket = nullptr;
    InformationPane* m_information = nullptr;
    ReplayBar* m_bar;
    MessageBar* m_messages;
    TerminalActions* m_actions;
    QTimer m_follow;

    DaySource m_nextSource;         ///< the one that was opened last
    std::int64_t m_timeWanted = -1; ///< of a restored layout, for the day that is being loaded
    DayPtr m_day;
    DayRange m_range;
    int m_index = -1;           ///< row of the day in the list
    bool m_sourceIsNew = false; ///< the list is of a source of which no day is shown yet
    bool m_starting = false;    ///< the load that `start` began has not ended
    bool m_closeAsked = false;  ///< the panel was told of the close
    std::int64_t m_close = -1;  ///< ms since 1970-01-01 UTC
};

} // namespace host
