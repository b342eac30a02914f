#include "host/window/workspace/CurrentPaneWatch.h"

#include <QApplication>
#include <QDockWidget>
#include <QEvent>

namespace host {

CurrentPaneWatch::CurrentPaneWatch(QObject* parent) : QObject(parent)
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { tell(now); });
    qApp->installEventFilter(this);
}

QDockWidget* CurrentPaneWatch::dockOf(QWidget* widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (auto* dock = qobject_cast<QDockWidget*>(widget))
            return dock;
    }
    return nullptr;
}

bool CurrentPaneWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        tell(qobject_cast<QWidget*>(watched));
    return false;
}

void CurrentPaneWatch::tell(QWidget* widget)
{
    if (QDockWidget* dock = dockOf(widget))
        Q_EMIT current(dock);
}

} // namespace host
