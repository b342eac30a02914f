#include "host/window/workspace/Workspace.h"

#include "host/window/language/TerminalLanguage.h"
#include "host/window/workspace/PaneTitle.h"
#include "host/window/workspace/layouts.h"

#include <QAction>
#include <QDockWidget>
#include <QTimer>

#include <algorithm>
#include <numeric>

namespace host {

namespace {

/// Divides a length by weights.
QList<int> sharesOf(int length, QList<int> weights)
{
    const int sum = std::max(1, std::accumulate(weights.begin(), weights.end(), 0));
    for (int& weight : weights)
        weight = length * weight / sum;
    return weights;
}

/// In the language in force; a further pane has its number behind it.
QString paneTitle(const QString& title)
{
    const int blank = title.lastIndexOf(QLatin1Char(' '));
    bool numbered = false;
    title.mid(blank + 1).toInt(&numbered);
    return blank > 0 && numbered ? uiText(title.left(blank)) + title.mid(blank) : uiText(title);
}

} // namespace

Workspace::Workspace(QWidget* parent) : QMainWindow(parent, Qt::Widget)
{
    setObjectName(QStringLiteral("Workspace"));
    setDockOptions(AllowNestedDocks | AllowTabbedDocks | GroupedDragging);
    setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::North);
    setDocumentMode(true);
    setContextMenuPolicy(Qt::NoContextMenu); // the window's menu lists the panes
    connect(&m_watch, &CurrentPaneWatch::current, this, &Workspace::remember);
}

Workspace::~Workspace() = default;

QDockWidget* Workspace::add(const QString& id, const QString& title, QWidget* widget)
{
    auto* dock = new QDockWidget(this);
    keepSaid(dock, [dock, title] { dock->setWindowTitle(paneTitle(title)); });
    dock->setObjectName(QStringLiteral("Dock_") + id);
    dock->setProperty("pane", id);
    dock->setWidget(widget);
    dock->setTitleBarWidget(new PaneTitle(dock));
    if (auto* pane = qobject_cast<Pane*>(widget)) {
        connect(dock, &QDockWidget::visibilityChanged, pane, [dock, pane](bool seen) {
            // A pane that begins to float is called unseen as long as it stands where it was as a tab.
            pane->setSeen(seen || (dock->isFloating() && dock->isVisible()));
        });
    }
    addDockWidget(Qt::LeftDockWidgetArea, dock);
    dock->hide();
    m_docks.push_back(dock);
    return dock;
}

void Workspace::take(QDockWidget* dock)
{
    addDockWidget(Qt::RightDockWidgetArea, dock);
    m_docks.push_back(dock);
    dock->show();
}

void Workspace::release(QDockWidget* dock)
{
    dock->setFloating(false);
    removeDockWidget(dock);
    m_docks.erase(std::remove(m_docks.begin(), m_docks.end(), dock), m_docks.end());
    if (m_current == dock)
        m_current = nullptr;
}

QDockWidget* Workspace::dock(const QString& id) const
{
    const auto found = std::find_if(m_docks.begin(), m_docks.end(),
                                    [&id](QDockWidget* dock) { return dock->property("pane") == id; });
    return found == m_docks.end() ? nullptr : *found;
}

QList<QAction*> Workspace::toggles() const
{
    QList<QAction*> actions;
    for (QDockWidget* dock : m_docks)
        actions.append(dock->toggleViewAction());
    return actions;
}

void Workspace::apply(const Layout& layout)
{
    for (QDockWidget* dock : m_docks) {
        dock->setFloating(false);
        removeDockWidget(dock);
    }
    // First the columns, by the first pane of each, then what stands below, then the tabs.
    QDockWidget* left = nullptr;
    for (const LayoutColumn& column : layout.columns) {
        QDockWidget* head = dock(column.cells.front().panes.front());
        if (!head)
            continue;
        if (left)
            splitDockWidget(left, head, Qt::Horizontal);
        else
            addDockWidget(Qt::LeftDockWidgetArea, head);
        head->show();
        left = head;
    }
    for (const LayoutColumn& column : layout.columns) {
        QDockWidget* above = nullptr;
        for (const LayoutCell& cell : column.cells) {
            QDockWidget* front = dock(cell.panes.front());
            if (!front)
                continue;
            if (above)
                splitDockWidget(above, front, Qt::Vertical);
            front->show();
            above = front;
            for (const QString& id : cell.panes) {
                QDockWidget* pane = dock(id);
                if (!pane || pane == front)
                    continue;
                tabifyDockWidget(front, pane);
                pane->show();
            }
            front->raise();
        }
    }
    // A closed pane has a place as well: an arrangement without one would show it.
    for (QDockWidget* closed : m_docks) {
        if (closed->isHidden() && left) {
            tabifyDockWidget(left, closed);
            closed->hide();
        }
    }
    m_layout = &layout;
    share();
}

bool Workspace::restore(const QByteArray& arrangement)
{
    if (!restoreState(arrangement))
        return false;
    m_layout = nullptr; // the borders are those of the arrangement
    return true;
}

/// Gives columns and cells their shares of the room.
void Workspace::share()
{
    if (!m_layout)
        return;
    QList<QDockWidget*> heads;
    QList<int> widths;
    for (const LayoutColumn& column : m_layout->columns) {
        QList<QDockWidget*> fronts;
        QList<int> heights;
        for (const LayoutCell& cell : column.cells) {
            if (QDockWidget* front = dock(cell.panes.front())) {
                fronts.append(front);
                heights.append(cell.share);
            }
        }
        if (fronts.isEmpty())
            continue;
        resizeDocks(fronts, sharesOf(height(), heights), Qt::Vertical);
        heads.append(fronts.first());
        widths.append(column.share);
    }
    resizeDocks(heads, sharesOf(width(), widths), Qt::Horizontal);
}

void Workspace::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    // Until the workspace is seen nobody has set borders of their own.
    if (!isVisible())
        share();
}

void Workspace::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (!event->spontaneous())
        QTimer::singleShot(0, this, &Workspace::share); // once the first room is known
}

void Workspace::closeEvent(QCloseEvent* event)
{
    QMainWindow::closeEvent(event);
    Q_EMIT closed();
}

void Workspace::remember(QDockWidget* dock)
{
    if (std::find(m_docks.begin(), m_docks.end(), dock) == m_docks.end())
        return;
    m_current = dock;
    Q_EMIT currentChanged();
}

Pane* Workspace::currentPane() const
{
    return m_current && m_current->isVisible() ? qobject_cast<Pane*>(m_current->widget()) : nullptr;
}

void Workspace::refreshIcons()
{
    for (QDockWidget* dock : m_docks)
        static_cast<PaneTitle*>(dock->titleBarWidget())->refreshIcons();
}

} // namespace host
