#pragma once

#include <QWidget>

class QDockWidget;
class QHBoxLayout;
class QLabel;
class QToolButton;

namespace host {

class StateBadge;

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

    /// Tells the state of the data in the pane; in a narrow title without its word.
    StateBadge& badge() { return *m_badge; }

    /// Draws the buttons in the theme's colours.
    void refreshIcons();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QToolButton* addButton(const QString& name, const char* tip);

    QHBoxLayout* m_row;
    QLabel* m_name;
    StateBadge* m_badge;
    QToolButton* m_float;
    QToolButton* m_close;
};

} // namespace host
