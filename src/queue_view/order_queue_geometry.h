#pragma once

#include "records/EOrderQueueType.h"
#include "records/EQueueMode.h"
#include "records/OrderQueueData.h"

#include <QPoint>
#include <QPolygon>
#include <QRect>

#include <cstdint>
#include <vector>

/// Where the parts of the order queue's picture stand: values, computed without a painter. All lengths are
/// logical pixels, x and y count from the widget's upper left corner.
///
///     style 2, first-level detail                     style 3, horizontal
///     |name price vol  count avg 手/笔|name price ...|   |卖二 price vol count | o o o o o o o o |
///     | o o o o o o o o o o o o o o o | o o o o o   |   |卖一 price vol count | o o o o o       |
///     |name price vol                 |name price   |   |--------------------- centre ---------|
///                                                       |买一 price vol count | o o o           |
///     style 4, vertical                               style 5, list
///     |卖一 price vol | o o o o |买一 price vol | o o |   |[price] o o o o o o |[price] o o o o o |
namespace Kel {

/// Sizes, mode and scroll that the geometry of one picture depends on.
struct OrderQueueLayout
{
    static constexpr int kTopSpace = 5;        // pixels above the first row
    static constexpr int kTopSpaceDetail = 10; // the same in the first-level detail
    static constexpr int kTabGap = 6;          // from the heads to the line before the cells

    int width = 0; ///< of the widget
    int height = 0;
    int barWidth = 0; ///< of the scroll bar, shown or not
    bool barVisible = false;

    int style = 2;     ///< 2 to 5
    bool full = false; ///< all levels list their orders
    int levels = 10;   ///< levels a side
    int maxShowCount = 50;

    int nameWidth = 40;
    int priceWidth = 65;
    int volWidth = 60;
    int cellWidth = 50;
    int avgWidth = 50;
    int rowHeight = 20;

    int centerY = 0;
    int scrollTop = 0;

    bool horizontal() const { return style == eQueueDetailHorizontal; }
    bool firstLevelDetail() const { return style == eQueueDetailFirst; }

    /// Price widths before the cells: 1 in the list, 3 vertical, 4 horizontal, else 0.
    int tabLen() const;
    int topSpace() const { return firstLevelDetail() ? kTopSpaceDetail : kTopSpace; }

    /// Space for the level's volume before the cells, beyond the price widths.
    int totalVolSpace() const;

    /// Left edge of a side; the buy side begins in the middle, but for the horizontal style.
    int sideLeft(EOrderQueueType side) const;

    /// A row is drawn when its upper edge lies between 0 and the height, both included.
    bool isVisible(int top) const { return top >= 0 && top <= height; }

    int rowTop(int row, EOrderQueueType side) const;

    /// Cells in a row as the rows are counted. It differs from `drawnColumns`, and both are meant.
    int countedColumns() const;

    /// Cells in a row as they are drawn.
    int drawnColumns() const;

    /// x of the line between heads and cells in the horizontal style, and the width before the cells.
    int tabX() const { return totalVolSpace() + kTabGap + priceWidth * tabLen(); }

    /// Whether the level shows its orders one by one.
    bool listsOrders(const OrderQueueData& level) const;

    /// Rows that a level takes with `cols` cells a row; 0 only in the first-level detail, for a level without
    /// orders. A level that does not list its orders takes 1.
    int storeys(int cols, const OrderQueueData& level) const;
};

/// Rows of the two sides.
struct OrderQueueRows
{
    int left = 0;  ///< sells
    int right = 0; ///< buys
};

/// Adds the rows of level `index` (0 is the best price) with `cols` cells a row. A missing level adds none,
/// and a level of which both sides are missing not even the summary row.
void addRows(const OrderQueueLayout& layout, int cols, int index, const OrderQueueData* sell,
             const OrderQueueData* buy, OrderQueueRows& rows);

/// The summary row of a side in the first-level detail. A column that does not fit is null.
struct SummaryRow
{
    QRect name;
    QRect price;
    QRect volume;
    QRect count; ///< with its label "笔" at the right
    QRect average;
    QRect unit;
};

/// `sideWidth` is half the widget's; only the sell side leaves out columns for want of it.
SummaryRow summaryRow(const OrderQueueLayout& layout, int left, int top, int sideWidth, bool isSell);

/// The head of a level in the styles other than first-level detail. A column that the style does not have is
/// null.
struct LevelHead
{
    QRect name;
    QRect price;
    QRect priceFill; ///< ground of a price in reversed colours, list style only
    QRect volume;
    QRect count;
    int cellsLeft = 0; ///< x that the cells count from, further to the right by what the head left over
};

/// Empty but for `cellsLeft` when the row is out of view or the style has no head.
LevelHead levelHead(const OrderQueueLayout& layout, const OrderQueueData& level, int top);

/// One order, or a thousand lots of unknown orders, as it is drawn.
struct OrderCell
{
    int index = 0; ///< in the level's list; behind its end for a filler
    QRect rect;
    int lots = 1;          ///< as shown, at least 1
    bool ellipsis = false; ///< shows "..." in place of the lots
    EOrderQueueType type = OQT_NORMAL;
    std::int64_t number = 0;
};

struct LevelCells
{
    std::vector<OrderCell> cells; ///< those in view, in order of the list
    int lastPart = -1;            ///< index in `cells` of the last part-dealt order in view, -1 for none

    /// Lots of that order as the finished cell shows them, and whether it shows "..." instead.
    int partLots = 0;
    bool partEllipsis = false;
};

/// The cells of a level that begins at row `row` of its side, `cols` (at least 1) a row, counted from `left`.
/// Cells out of view are left out but count for what follows them. `into` is emptied first.
void placeCells(const OrderQueueLayout& layout, const OrderQueueData& level, int left, int cols, int row,
                LevelCells& into);

/// Cells that the lots of unknown orders take: one for each started thousand.
std::int64_t fillerCells(double unknownLots);

/// Lots as a cell shows them: rounded, at least 1.
int shownLots(double lots);

/// The dealt lots of a part-dealt order.
struct CallOut
{
    QPolygon outline; ///< closed; its first point is the tip of the arrow
    QRect text;
};

/// A box for a text of `textWidth` that points at `tip` from the right, with `toLeft` from the left.
CallOut callOut(const OrderQueueLayout& layout, const QPoint& tip, int textWidth, bool toLeft);

} // namespace Kel
