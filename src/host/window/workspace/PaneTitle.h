#pragma once

#include <QWidget>

class QDockWidget;
class QLabel;
class QToolButton;

namespace host {

/// The title of a pane in the workspace: its name, and buttons that float and close it. Dragging it moves
/// the pane, a double click floats it. GUI thread.
class PaneTitle : public QWidget
{
    Q_OBJECT

public:
    explicit PaneTitle(QDockWidget* dock);

    QSize sizeHint() const override; ///< the dock gives as much room
    QSize minimumSizeHint() const override { return sizeHint(); }

    /// Draws the buttons in the theme's colours.
    void refreshIcons();

private:
    QToolButton* addButton(const QString& name, const QString& tip);

    QLabel* m_name;
    QToolButton* m_float;
    QToolButton* m_close;
};

} // namespace host
