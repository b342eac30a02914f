// How menus, tool bar and shortcuts are made from the table of commands.

#include "host/window/TerminalActions.h"

#include "host/window/language/TerminalLanguage.h"

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <algorithm>

namespace host {

namespace {

const QString kNewPane = QStringLiteral("addPane_");

/// A title without what only menus show: the mnemonic, in brackets behind Chinese, and the dots of a dialog.
QString plain(QString title)
{
    const int bracket = title.indexOf(QLatin1String("(&"));
    if (bracket >= 0)
        title.truncate(bracket);
    title.remove(QLatin1Char('&'));
    title.remove(QStringLiteral("…"));
    return title;
}

} // namespace

/// The submenus stand where they come first in the table, the others in the order of the menu bar.
QMenu* TerminalActions::menu(EMenu which)
{
    QMenu*& made = m_menus[static_cast<int>(which)];
    if (made)
        return made;
    QMenu* above = nullptr;
    if (which == EMenu::ePhase)
        above = menu(EMenu::eReplay);
    else if (which == EMenu::eGroup || which == EMenu::eNewPane)
        above = menu(EMenu::ePane);
    QMenu* fresh = above ? above->addMenu(QString()) : m_window->menuBar()->addMenu(QString());
    m_menus[static_cast<int>(which)] = titled(fresh, menuTitle(which));
    return fresh;
}

QMenu* TerminalActions::titled(QMenu* menu, const char* title)
{
    keepSaid(menu, [menu, title] { menu->setTitle(uiText(title)); });
    return menu;
}

QAction* TerminalActions::add(QMenu* menu, const QString& id, const QString& text, const QString& keys)
{
    auto* action = new QAction(this);
    action->setObjectName(id);
    m_actions.insert(id, action);
    m_texts.insert(id, text);
    QList<QKeySequence> usual;
    if (!keys.isEmpty())
        usual.append(QKeySequence(keys, QKeySequence::PortableText));
    m_keyMap->add(id, usual);
    dress(id);
    menu->addAction(action);
    connect(action, &QAction::triggered, this, [this, id] { ask(id); });
    return action;
}

void TerminalActions::addCommand(const Command& command)
{
    QMenu* place = menu(command.menu);
    if (command.beginsPart)
        place->addSeparator();
    const QString id = QString::fromLatin1(command.id);
    if (id == QLatin1String("saveLayout"))
        m_layoutMenu = titled(place->addMenu(QString()), "我的布局");
    QAction* action = add(place, id, QString::fromUtf8(command.text), QString::fromLatin1(command.keys));
    if (!command.choice)
        return;
    action->setCheckable(true);
    if (*command.choice == '\0')
        return;
    QActionGroup*& choice = m_choices[QString::fromLatin1(command.choice)];
    if (!choice)
        choice = new QActionGroup(this);
    choice->addAction(action);
}

void TerminalActions::makeMenus()
{
    for (const Command& command : commands()) {
        if (QLatin1String(command.id) == QLatin1String("group1")) {
            menu(EMenu::ePane)->addSeparator();
            menu(EMenu::eNewPane)->menuAction()->setVisible(false); // until there are kinds
        }
        addCommand(command);
    }
    menu(EMenu::ePane)->addSeparator();
    showSavedLayouts({});
}

/// Gives an action its text and keys.
void TerminalActions::dress(const QString& id)
{
    QAction* action = m_actions.value(id);
    if (!action)
        return;
    const bool isPause = id == QLatin1String("play") && m_playing;
    const QString text = isPause ? uiText("暂停") : uiText(m_texts.value(id));
    const QList<QKeySequence> keys = m_keyMap->keys(id);
    action->setText(text);
    action->setShortcuts(keys);
    action->setToolTip(
        keys.isEmpty()
            ? plain(text)
            : uiText("%1（%2）").arg(plain(text), keys.first().toString(QKeySequence::NativeText)));
}

QStringList TerminalActions::idsOf(EMenu menu) const
{
    if (menu == EMenu::eNewPane)
        return m_newPanes;
    QStringList ids;
    for (const Command& command : commands()) {
        if (command.menu == menu)
            ids.append(QString::fromLatin1(command.id));
    }
    return ids;
}

QString TerminalActions::titleOf(const QString& id) const
{
    return m_texts.contains(id) ? plain(uiText(m_texts.value(id))) : QString();
}

void TerminalActions::showSavedLayouts(const QStringList& names)
{
    m_layoutMenu->clear();
    m_layoutMenu->setEnabled(!names.isEmpty());
    for (const QString& name : names) {
        // An ampersand of the name is no mnemonic.
        QAction* action =
            m_layoutMenu->addAction(QString(name).replace(QLatin1Char('&'), QLatin1String("&&")));
        connect(action, &QAction::triggered, this, [this, name] { Q_EMIT savedLayoutChosen(name); });
    }
    if (QAction* remove = action(QStringLiteral("removeLayout")))
        remove->setEnabled(!names.isEmpty());
}

void TerminalActions::addPanes(const QList<QAction*>& toggles)
{
    menu(EMenu::ePane)->addActions(toggles);
}

void TerminalActions::addPaneKinds(const QList<QPair<QString, QString>>& kinds)
{
    for (const auto& kind : kinds) {
        const QString id = kNewPane + kind.first;
        if (m_actions.contains(id))
            continue;
        m_newPanes.append(id);
        add(menu(EMenu::eNewPane), id, kind.second, QString());
    }
    menu(EMenu::eNewPane)->menuAction()->setVisible(!m_newPanes.isEmpty());
}

void TerminalActions::makeToolBar()
{
    QToolBar* bar = m_window->addToolBar(QString());
    keepSaid(bar, [bar] { bar->setWindowTitle(uiText("工具栏")); });
    bar->setObjectName(QStringLiteral("ToolBar"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    const char* const parts[][5] = {
        {"mode0", "mode1"},
        {"mode2", "mode3", "mode4", "mode5", "full"},
        {"layout_queue", "layout_tick", "layout_chart", "layout_pair"},
        {"otherTheme"},
    };
    for (const auto& part : parts) {
        if (&part != &parts[0])
            bar->addSeparator();
        for (const char* id : part) {
            if (id)
                bar->addAction(action(QString::fromLatin1(id)));
        }
    }
}

} // namespace host
