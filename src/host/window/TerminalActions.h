#pragma once

#include "host/window/TerminalOptions.h"
#include "host/window/keys/KeyMap.h"
#include "host/window/keys/commands.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPair>

#include <functional>

class QAction;
class QActionGroup;
class QMainWindow;
class QMenu;
class QToolBar;

namespace host {

/// Menus, tool bar and shortcuts of the window, made from the table of commands. It says what a person wants
/// and shows what is in force; the window does the work. GUI thread.
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

    /// The linking group of the pane that was used last, from 1; 0 for none.
    void showGroup(int group);

    /// Lists the layouts that a person has named.
    void showSavedLayouts(const QStringList& names);

    /// Lists what shows and hides the panes.
    void addPanes(const QList<QAction*>& toggles);

    /// Lists the kinds of panes that can be made anew, each with id and title in Chinese. Choosing one asks
    /// for the command "addPane_" and the id.
    void addPaneKinds(const QList<QPair<QString, QString>>& kinds);

    /// The action of this id, as in the table of commands; null for another.
    QAction* action(const QString& name) const;

    /// Lets shortcuts work in a further window of its own, until that ends.
    void serve(QWidget* window);

    /// Which keys stand for what; a change is in force at once.
    KeyMap& keyMap() { return *m_keyMap; }

    /// Id and title of a menu's commands, for lists of them; those made at run time are in `eNewPane`.
    QStringList idsOf(EMenu menu) const;

    /// Title of a command in the language in force, without mnemonic and dots; empty for an unknown one.
    QString titleOf(const QString& id) const;

Q_SIGNALS:
    /// A command without a signal of its own, by its id.
    void commandAsked(const QString& id);

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
    QAction* add(QMenu* menu, const QString& id, const QString& text, const QString& keys);
    void addCommand(const Command& command);
    void makeMenus();
    QMenu* menu(EMenu which);
    QMenu* titled(QMenu* menu, const char* title);
    void makeToolBar();
    void nameDoers();
    void ask(const QString& id);
    void dress(const QString& id);
    void takeMode(Kel::EQueueMode mode);

    QMainWindow* m_window;
    KeyMap* m_keyMap;
    QueueModes m_modes;
    bool m_playing = false;
    QHash<int, QMenu*> m_menus; ///< by EMenu
    QHash<QString, QActionGroup*> m_choices;
    QHash<QString, QAction*> m_actions; ///< by id
    QHash<QString, QString> m_texts;    ///< in Chinese, by id
    QHash<QString, std::function<void()>> m_doers;
    QStringList m_newPanes; ///< ids
    QMenu* m_layoutMenu = nullptr;
};

} // namespace host
