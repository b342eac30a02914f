#pragma once

#include "host/window/panes/Pane.h"
#include "host/window/workspace/CurrentPaneWatch.h"

#include <QMainWindow>

#include <vector>

class QDockWidget;

namespace host {

struct Layout;

/// Panes in docks: side by side, as tabs, or floating in windows of their own. GUI thread.
class Workspace : public QMainWindow
{
    Q_OBJECT

public:
    explicit Workspace(QWidget* parent = nullptr);
    ~Workspace() override;

    /// Takes a widget in as a pane named `id`; hidden until a layout or the menu shows it.
    QDockWidget* add(const QString& id, const QString& title, QWidget* widget);

    /// Takes a pane of another workspace in, and shows it at the right border.
    void take(QDockWidget* dock);

    /// Gives a pane away: it is closed and belongs to nobody's arrangement.
    void release(QDockWidget* dock);

    /// The pane is one of this workspace, null for another's and an unknown one.
    QDockWidget* dock(const QString& id) const;

    const std::vector<QDockWidget*>& docks() const { return m_docks; }

    /// Shows and hides a pane each, checked while it is shown; in the order of adding.
    QList<QAction*> toggles() const;

    /// Brings all panes to their places. Ids that are no pane's are passed over. The layout must outlive the
    /// workspace.
    void apply(const Layout& layout);

    /// The arrangement as bytes, and back; false, with no change, for bytes that are none.
    QByteArray arrangement() const { return saveState(); }
    bool restore(const QByteArray& arrangement);

    /// The pane that was pressed or had the focus last, if it is shown; null otherwise.
    Pane* currentPane() const;

    void refreshIcons();

Q_SIGNALS:
    /// A pane of this workspace has become the current one.
    void currentChanged();

    /// A person has closed the window that the workspace is.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void share();
    void remember(QDockWidget* dock);

    CurrentPaneWatch m_watch; ///< ends before the docks do
    std::vector<QDockWidget*> m_docks;
    const Layout* m_layout = nullptr; ///< the one that was applied last
    QDockWidget* m_current = nullptr;
};

} // namespace host
