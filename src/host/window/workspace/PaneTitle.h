#pragma once

#include <QWidget>

class QDockWidget;
class QHBoxLayout;
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

    /// Puts a mark before the name.
    void addLeft(QWidget* mark);

    /// Draws the buttons in the theme's colours.
    void refreshIcons();

private:
    QToolButton* addButton(const QString& name, const QString& tip);

    QHBoxLayout* m_row;
    QLabel* m_name;
    QToolButton* m_float;
    QToolButton* m_close;
};

} // namespace host
