#pragma once

#include <QObject>

#include <functional>

class QAction;
class QKeyEvent;
class QKeySequence;
class QWidget;

namespace host {

/// Triggers a window's commands by the place of their keys, where the layout of the keyboard has no such
/// letter or digit and the press has matched no shortcut. Not while a person types a text, and not under a
/// dialog or menu. GUI thread.
class PlaceShortcuts : public QObject
{
    Q_OBJECT

public:
    using Find = std::function<QAction*(const QKeySequence& key)>;

    /// `find` tells the action of a key, null for none. Ends with `window`, for whose widgets it works.
    PlaceShortcuts(QWidget* window, Find find);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAction* actionOf(QWidget* widget, const QKeyEvent& event) const;

    QWidget* m_window;
    Find m_find;
};

} // namespace host
