#include "host/window/workspace/PaneMenu.h"

#include "host/window/language/TerminalLanguage.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QMenu>

namespace host {

namespace {

// Commands of the window that mean the current pane, by their object names.
constexpr const char* kCommands[] = {"copy", "csvUtf8", "csvGbk", "picture"};

} // namespace

PaneMenu::PaneMenu(QDockWidget* dock, QWidget* title) : QObject(title), m_dock(dock), m_title(title)
{
    title->installEventFilter(this);
}

/// Of the nearest window around the dock that has it, a further window by what the main one serves it with; a
/// floating dock is still the child of its workspace.
QAction* PaneMenu::command(const QString& name) const
{
    for (const QWidget* around = m_dock->parentWidget(); around; around = around->parentWidget()) {
        if (auto* action = around->findChild<QAction*>(name))
            return action;
        for (QAction* action : around->actions()) {
            if (action->objectName() == name)
                return action;
        }
    }
    return nullptr;
}

QMenu* PaneMenu::makeMenu() const
{
    auto* menu = new QMenu(m_title);
    menu->setObjectName(QStringLiteral("PaneMenu"));
    for (const char* name : kCommands) {
        if (QAction* action = command(QString::fromLatin1(name)))
            menu->addAction(action);
    }
    menu->addSeparator();
    QDockWidget* dock = m_dock;
    QAction* floating = menu->addAction(dock->isFloating() ? uiText("放回窗口") : uiText("浮动"));
    floating->setObjectName(QStringLiteral("paneFloat"));
    connect(floating, &QAction::triggered, dock, [dock] { dock->setFloating(!dock->isFloating()); });
    QAction* closing = menu->addAction(uiText("关闭窗格"));
    closing->setObjectName(QStringLiteral("paneClose"));
    connect(closing, &QAction::triggered, dock, &QWidget::close);
    return menu;
}

bool PaneMenu::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_title || event->type() != QEvent::ContextMenu)
        return false;
    QMenu* menu = makeMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(static_cast<QContextMenuEvent*>(event)->globalPos());
    return true;
}

} // namespace host
