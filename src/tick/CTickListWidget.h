#pragma once

#include "platform/toolkit/CBaseWidget.h"
#include "platform/toolkit/CIndexScrollBar.h"
#include "records/DepthExport.h"
#include "tick/RowIdentity.h"
#include "tick/tick_list_geometry.h"
#include "tick/tick_resources.h"

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QRect>

#include <functional>

class QPainter;

namespace Kel {

/// What the lists of deals, orders and cancels have in common: rows in column groups, drawn into a pixmap
/// when there is news, a view that stays at the newest row until the user scrolls away, a selected row.
/// The selection is of a record: it goes where its row goes, and away with it.
///
/// Keys, with the focus in the list: up, down, left and right (the group beside), page up and down, home and
/// end move the selection as a click does; escape drops it; the return key does what a double click does.
///
/// Events: takes 15 of its scroll bar. GUI thread.
class DEPTH_EXPORT CTickListWidget : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    CTickListWidget(const QString& objectName, QWidget* parent);

    bool handleEvent(int id, int first, int second, QString text, void* data) override;

    /// Rows as of the last look at the model.
    int total() const { return m_total; }

    /// Where the selected row stands in the filtered list at this moment, -1 for none.
    int selectedRow() const;

    /// A row of the list as one line of text, columns divided by tabs; empty for a row that is not there.
    virtual QString rowText(int row) const = 0;

    void themeChanged() override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    // What a list adds
    // ----------------------------------------------------------------------------------------------------

    /// Rows of the model's filtered list.
    virtual int modelCount() const = 0;

    /// What a row of the model's filtered list is.
    virtual RowIdentity identityOf(int row) const = 0;

    /// Draws separators and rows.
    virtual void drawGraph(QPainter* painter) = 0;

    /// Looks up what the theme gives.
    virtual void initDraw() = 0;

    /// Width of all columns of a group but the price, and the least width of the price.
    virtual int otherColumns() const = 0;
    virtual int priceWidth() const = 0;

    /// A row was selected by the user, or none is (-1).
    virtual void rowSelected(int row) { (void)row; }

    /// A row was double-clicked; -1 for a miss.
    virtual void rowOpened(int row) { (void)row; }

    /// What floats over the list goes away.
    virtual void dropTip() {}

    /// Drawn over the picture, after the outline of the selected row.
    virtual void drawOverlay(QPainter& painter) { (void)painter; }

    // Common steps
    // ------------------------------------------------------------------------------------------------------

    /// Takes the number of rows, shows or hides the bar, moves to the tail if the view follows it, draws.
    void updateScroll();

    /// Divides the width into groups, and draws.
    void resetLayout();

    /// Draws the picture into the pixmap; nothing for an empty rectangle or without a pixmap.
    void drawBackground(const QRect& rect);

    /// The same with a painter in logical pixels.
    void drawBackground(QPainter* painter);

    /// Selects a row, or none (-1), without moving the view.
    void select(int row);

    /// Takes the selection away, when the rows become others: it is of a row, and another one would have it.
    void dropSelection();

    /// Forgets rows, selection and scroll; keeps the picture.
    void forgetRows();

    /// The row under a point, -1 for none.
    int rowAt(const QPoint& point) const;

    /// Selects a row and brings it into view.
    void showRow(int row);

    /// Moves the view to a row without following the tail.
    void scrollTo(int firstIndex);

    /// Room left for the scroll bar in the last columns, pixels.
    int barRoom() const { return m_total > m_layout.capacity() ? kBarRoom : 0; }

    bool isInView(int row) const { return row >= m_firstIndex && row - m_firstIndex < m_layout.capacity(); }

    /// Vertical lines between the groups, `offset` pixels from the middle of the gap.
    void drawSeparators(QPainter* painter, int offset) const;

    static constexpr int kBarRoom = 6;

    QPixmap m_buffer; ///< the list as last drawn
    QRect m_rect;     ///< of the widget at the last resize
    TickListLayout m_layout;
    bool m_followTail = true;
    int m_total = 0;
    int m_firstIndex = 0; ///< first visible row
    int m_selectedIndex = -1;
    int m_timeWidth = 62;
    int m_volumeWidth = 42;
    int m_columnGap = 0;
    int m_priceWidth = 60;
    CIndexScrollBar* m_scrollBar = nullptr;
    TextCache m_texts;

private:
    void newBuffer();
    void keyTo(int row);

    RowIdentity m_selectedRow; ///< what is selected at `m_selectedIndex`
};

/// The user's refresh interval, or `fallback` without a user configuration; milliseconds.
int refreshPeriod(int fallback);

} // namespace Kel
