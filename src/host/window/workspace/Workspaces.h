#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QStringList>

#include <vector>

class QAction;
class QDockWidget;

namespace host {

class Pane;
class Workspace;
struct Layout;

/// A further window as it was left.
struct WindowState
{
    QByteArray geometry;
    QByteArray panes; ///< their arrangement
    QStringList ids;  ///< of the panes
};

/// The workspaces of the terminal: that of the main window, and those of further windows. Each pane stands in
/// one of them and can be moved to another. A further window that is closed gives its panes back to the main
/// one, where they are closed until a layout or the menu shows them. GUI thread.
class Workspaces : public QObject
{
    Q_OBJECT

public:
    explicit Workspaces(Workspace* first, QObject* parent = nullptr);
    ~Workspaces() override;

    /// Takes a widget in as a pane of the main window; hidden until a layout or the menu shows it.
    QDockWidget* add(const QString& id, const QString& title, QWidget* widget);

    /// Null for an unknown id.
    QDockWidget* dock(const QString& id) const;

    /// Shows and hides a pane each, in the order of adding.
    QList<QAction*> toggles() const;

    /// The windows; the first is the main one.
    const std::vector<Workspace*>& windows() const { return m_windows; }

    /// Opens a further window, empty, beside the others. It is a window of its own on the desktop, which no
    /// other covers for good.
    Workspace* openWindow();

    /// Ends the further windows together with their panes, before the main one ends.
    void deleteWindows();

    /// Brings a pane into a window's workspace and shows it there.
    void move(QDockWidget* dock, Workspace* to);

    /// The workspace that a pane stands in.
    Workspace* windowOf(QDockWidget* dock) const;

    /// The pane that was used last, if it is shown; null otherwise.
    Pane* currentPane() const;

    /// Brings all panes to their places in the main window and closes the others.
    void apply(const Layout& layout);

    /// The further windows as they are, and back. Ids that are no pane's are passed over; panes that no
    /// window names stay in the main one. To be restored before the main window's arrangement.
    std::vector<WindowState> state() const;
    void restore(const std::vector<WindowState>& windows);

    void refreshIcons();

Q_SIGNALS:
    void windowOpened(host::Workspace* window);

    /// Another pane is the current one.
    void currentChanged();

private:
    void watch(Workspace* window);
    void closeWindow(Workspace* window);
    void closeWindows();

    std::vector<Workspace*> m_windows;
    Workspace* m_current; ///< the window whose pane was used last
    QList<QAction*> m_toggles;
    int m_opened = 1; ///< windows so far, the main one among them
};

} // namespace host
