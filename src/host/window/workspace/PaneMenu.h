#pragma once

#include <QObject>
#include <QString>

class QAction;
class QContextMenuEvent;
class QDockWidget;
class QMenu;
class QWidget;

namespace host {

/// The menu on the title of a pane: copy and files as in the window's menu, then floating and closing. A
/// press on the title has made the pane the current one, so that the window's commands mean it. GUI thread.
class PaneMenu : public QObject
{
    Q_OBJECT

public:
    /// Opens on a right click on `title`, which owns it.
    PaneMenu(QDockWidget* dock, QWidget* title);

    /// The menu as it would open now, of the caller.
    QMenu* makeMenu() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAction* command(const QString& name) const;

    QDockWidget* m_dock;
    QWidget* m_title;
};

} // namespace host
