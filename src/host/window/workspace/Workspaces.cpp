#include "host/window/workspace/Workspaces.h"

#include "host/window/workspace/Workspace.h"
#include "host/window/workspace/layouts.h"

#include <QDockWidget>

#include <algorithm>

namespace host {

namespace {

constexpr QSize kUsualSize(900, 640); // of a further window, pixels
constexpr int kOffset = 40;           // from one window to the next

} // namespace

Workspaces::Workspaces(Workspace* first, QObject* parent) : QObject(parent), m_current(first)
{
    m_windows.push_back(first);
    watch(first);
}

Workspaces::~Workspaces()
{
    deleteWindows();
}

void Workspaces::deleteWindows()
{
    while (m_windows.size() > 1) {
        Workspace* window = m_windows.back();
        m_windows.pop_back();
        delete window;
    }
    m_current = m_windows.front();
}

void Workspaces::watch(Workspace* window)
{
    connect(window, &Workspace::currentChanged, this, [this, window] {
        m_current = window;
        Q_EMIT currentChanged();
    });
}

QDockWidget* Workspaces::add(const QString& id, const QString& title, QWidget* widget)
{
    QDockWidget* dock = m_windows.front()->add(id, title, widget);
    m_toggles.append(dock->toggleViewAction());
    return dock;
}

QDockWidget* Workspaces::dock(const QString& id) const
{
    for (const Workspace* window : m_windows) {
        if (QDockWidget* dock = window->dock(id))
            return dock;
    }
    return nullptr;
}

QList<QAction*> Workspaces::toggles() const
{
    return m_toggles;
}

Workspace* Workspaces::openWindow()
{
    Workspace* main = m_windows.front();
    auto* window = new Workspace(nullptr);
    window->setWindowFlags(Qt::Window);
    window->setObjectName(QStringLiteral("Workspace%1").arg(++m_opened));
    window->setWindowTitle(
        QStringLiteral("%1 · %2").arg(main->window()->windowTitle()).arg(m_windows.size() + 1));
    window->resize(kUsualSize);
    const int offset = kOffset * static_cast<int>(m_windows.size());
    window->move(main->window()->pos() + QPoint(offset, offset));
    m_windows.push_back(window);
    watch(window);
    connect(window, &Workspace::closed, this, [this, window] { closeWindow(window); });
    Q_EMIT windowOpened(window);
    window->show();
    return window;
}

Workspace* Workspaces::windowOf(QDockWidget* dock) const
{
    for (Workspace* window : m_windows) {
        const auto& docks = window->docks();
        if (std::find(docks.begin(), docks.end(), dock) != docks.end())
            return window;
    }
    return nullptr;
}

void Workspaces::move(QDockWidget* dock, Workspace* to)
{
    Workspace* from = windowOf(dock);
    if (!from || from == to)
        return;
    from->release(dock);
    to->take(dock);
}

void Workspaces::closeWindow(Workspace* window)
{
    const auto found = std::find(m_windows.begin() + 1, m_windows.end(), window);
    if (found == m_windows.end())
        return;
    Workspace* main = m_windows.front();
    const std::vector<QDockWidget*> docks = window->docks();
    for (QDockWidget* dock : docks) {
        window->release(dock);
        main->take(dock);
        dock->hide();
    }
    m_windows.erase(found);
    if (m_current == window)
        m_current = main;
    window->hide();
    window->deleteLater();
}

void Workspaces::closeWindows()
{
    while (m_windows.size() > 1)
        closeWindow(m_windows.back());
}

Pane* Workspaces::currentPane() const
{
    return m_current->currentPane();
}

void Workspaces::apply(const Layout& layout)
{
    closeWindows();
    m_windows.front()->apply(layout);
}

std::vector<WindowState> Workspaces::state() const
{
    std::vector<WindowState> states;
    for (std::size_t i = 1; i < m_windows.size(); ++i) {
        WindowState state;
        state.geometry = m_windows[i]->saveGeometry();
        state.panes = m_windows[i]->arrangement();
        for (const QDockWidget* dock : m_windows[i]->docks())
            state.ids.append(dock->property("pane").toString());
        states.push_back(state);
    }
    return states;
}

void Workspaces::restore(const std::vector<WindowState>& windows)
{
    closeWindows();
    for (const WindowState& state : windows) {
        Workspace* window = nullptr;
        for (const QString& id : state.ids) {
            QDockWidget* pane = dock(id);
            if (!pane || windowOf(pane) != m_windows.front())
                continue;
            if (!window)
                window = openWindow();
            move(pane, window);
        }
        if (!window)
            continue;
        window->restoreGeometry(state.geometry);
        window->restore(state.panes);
    }
}

void Workspaces::refreshIcons()
{
    for (Workspace* window : m_windows)
        window->refreshIcons();
}

} // namespace host
