#include "host/window/keys/PlaceShortcuts.h"

#include "host/window/keys/place_keys.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QKeySequence>
#include <QKeySequenceEdit>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

#include <utility>

namespace host {

namespace {

bool takesText(const QWidget* widget)
{
    if (const auto* choice = qobject_cast<const QComboBox*>(widget))
        return choice->isEditable();
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QTextEdit*>(widget) ||
           qobject_cast<const QPlainTextEdit*>(widget) || qobject_cast<const QAbstractSpinBox*>(widget) ||
           qobject_cast<const QKeySequenceEdit*>(widget);
}

/// Whether the widget stands in the window or in one that belongs to it and is no dialog.
bool belongsTo(const QWidget* window, const QWidget* widget)
{
    if (qobject_cast<const QDialog*>(widget->window()))
        return false;
    while (widget && widget != window)
        widget = widget->parentWidget();
    return widget == window;
}

} // namespace

PlaceShortcuts::PlaceShortcuts(QWidget* window, Find find)
    : QObject(window), m_window(window), m_find(std::move(find))
{
    qApp->installEventFilter(this);
}

bool PlaceShortcuts::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    auto* widget = qobject_cast<QWidget*>(watched);
    QAction* action = widget ? actionOf(widget, *static_cast<QKeyEvent*>(event)) : nullptr;
    if (!action)
        return false;
    event->accept();
    action->trigger();
    return true;
}

QAction* PlaceShortcuts::actionOf(QWidget* widget, const QKeyEvent& event) const
{
    const int shortcut = shortcutOfPlace(event);
    if (shortcut == 0 || !belongsTo(m_window, widget))
        return nullptr;
    // What an editor passes on to the widgets around it is no shortcut either.
    if (takesText(widget) || takesText(QApplication::focusWidget()))
        return nullptr;
    if (QApplication::activePopupWidget() || QApplication::activeModalWidget())
        return nullptr;
    QAction* action = m_find(QKeySequence(shortcut));
    return action && action->isEnabled() ? action : nullptr;
}

} // namespace host
