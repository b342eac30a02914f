#pragma once

#include <QObject>

class QDockWidget;
class QWidget;

namespace host {

/// Tells which pane a person works with: the one that was pressed with the mouse, wherever in it, or that has
/// got the focus. A window that a pane has opened belongs to the pane. GUI thread.
class CurrentPaneWatch : public QObject
{
    Q_OBJECT

public:
    explicit CurrentPaneWatch(QObject* parent = nullptr);

    /// The dock that a widget is in; null outside of all docks.
    static QDockWidget* dockOf(QWidget* widget);

Q_SIGNALS:
    /// Told for the docks of all workspaces, and each time anew.
    void current(QDockWidget* dock);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void tell(QWidget* widget);
};

} // namespace host
