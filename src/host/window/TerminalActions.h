#pragma once

#include "host/window/TerminalOptions.h"

#include <QObject>

class QAction;
class QActionGroup;
class QMainWindow;
class QMenu;
class QToolBar;

namespace host {

/// Menus, tool bar and shortcuts of the window. It says what a person wants and shows what is in force; the
/// window does the work. GUI thread.
class TerminalActions : public QObject
{
    Q_OBJECT

public:
    /// Puts menus and tool bar into the window.
    explicit TerminalActions(QMainWindow* window);

    // What is in force; no signals.
    void showModes(const QueueModes& modes);
    void showTheme(const QString& theme);
    void showColors(Zeb::EPriceColors colors);
    void showPlaying(bool playing);

    /// Lists the layouts that a person has named.
    void showSavedLayouts(const QStringList& names);

    /// Lists what shows and hides the panes.
    void addPanes(const QList<QAction*>& toggles);

    /// The action of this object name, as in the list of the menus; null for another.
    QAction* action(const QString& name) const;

Q_SIGNALS:
    void layoutChosen(const QString& id);
    void saveLayoutAsked();
    void savedLayoutChosen(const QString& name);
    void removeLayoutAsked();
    void filterAsked();
    void stripAsked();
    void wholeDayAsked();
    void latestDealsAsked();
    void copyAsked();
    void tableAsked(bool gbk);
    void pictureAsked();
    void trackAsked();
    void trackEndAsked();
    void modesChosen(const host::QueueModes& modes);
    void themeChosen(const QString& theme);
    void colorsChosen(Zeb::EPriceColors colors);
    void playToggled();
    void speedStep(int step); ///< 1 faster, -1 slower
    void timeStep(int seconds);
    void jumpAsked();
    void archiveAsked();
    void importAsked();
    void simulationAsked();
    void quitAsked();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAction* add(QMenu* menu, const char* name, const QString& text, const QString& shortcut);
    QAction* addMode(QMenu* menu, QActionGroup* group, const char* name, const QString& text,
                     const QString& shortcut, Kel::EQueueMode mode);
    void makeFileMenu();
    void makeReplayMenu();
    void makeModeMenu();
    void makeLookMenu();
    void makePaneMenu();
    void makeToolBar();
    void takeMode(Kel::EQueueMode mode);

    QMainWindow* m_window;
    QueueModes m_modes;
    QMenu* m_paneMenu = nullptr;
    QMenu* m_layoutMenu = nullptr;
};

} // namespace host
