#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <functional>

/// Where rows of a tick list stand: values, computed without a painter, shared by painting, hit test, tip and
/// keys. Logical pixels from the widget's upper left corner. Rows fill a column group downward, then go on in
/// the group to its right:
///
///     | time  price  lots strip |gap| time  price  lots strip |gap|   bar
///     |  0                      |   |  3                      |   |    |
///     |  1                      |   |  4                      |   |    |
///     |  2                      |   |  5                      |   |    |
namespace Kel {

struct TickListLayout
{
    int width = 0; ///< of the widget
    int height = 0;
    int rowHeight = 18;
    int groupGap = 5; ///< between two groups
    int margin = 2;   ///< left margin of a group
    int groupCount = 1;
    int rowCount = 1; ///< rows of a group
    int groupWidth = 0;
    int priceArea = 0; ///< room for the price in a group

    /// Rows that the view has room for.
    int capacity() const { return rowCount * groupCount; }

    /// y of the first row.
    int top() const { return (height - rowCount * rowHeight) / 2; }

    /// Left edge of the group and upper edge of the line of a place in the view, counted from 0.
    int left(int place) const { return place / rowCount * groupWidth; }
    int lineTop(int place) const { return top() + place % rowCount * rowHeight; }

    /// The whole row at a place in the view.
    QRect rowRect(int place) const { return QRect(left(place), lineTop(place), groupWidth, rowHeight); }

    /// The place under a point, which may lie behind the last one; negative for a point before the first
    /// one. -1 where groups have no width.
    int hit(const QPoint& point) const;

    /// Takes the height: rows of a group, at least one.
    void setHeight(int pixels);

    /// Takes the width: as many groups of at least `need` pixels as fit beside the scroll bar, at least one.
    /// `others` is the width of all columns of a group but the price; the price gets the rest, at least
    /// `leastPrice`.
    void setWidth(int pixels, int need, int others, int leastPrice);
};

/// A rectangle to draw the outline of a row by. An outline goes one pixel beyond its rectangle; at the right
/// and lower edge of a widget of this size it stays inside.
QRect outlineInside(const QRect& row, const QSize& widget);

/// The last row of the run that `row` is in. `runOf(row)` tells how many rows directly before a row are of
/// its run (at most 32767), and -1 of a row that is not there. Asks of few rows, however long the run is.
int lastOfRun(int row, const std::function<int(int)>& runOf);

} // namespace Kel
