#pragma once

#include "records/SingleQuote.h"

#include <QRect>

#include <cstdint>

namespace Kel {

/// Where the cells of the orders of one price stand. A value; pixels of the panel.
struct SingleQueueLayout
{
    int clientWidth = 0;
    int clientHeight = 0;
    int cellWidth = 45;
    int leftMargin = 5; ///< at both sides
    int cellGap = 10;
    int titleHeight = 24;
    int rowHeight = 20;
    int columns = 5;
    int cellPitch = 0; ///< width of a column once the client's width is shared out
    int scrollTop = 0; ///< first row shown

    /// Cells that fit a row of the client, at least 1.
    int fittingColumns() const;

    /// Width of each of `columns` columns with their gaps taken off.
    int pitch() const;

    /// Rows that fit under the title.
    int fittingRows() const { return (clientHeight - titleHeight) / rowHeight; }

    /// Rows for so many orders.
    int rowsFor(int orders) const { return orders / columns + (orders % columns > 0 ? 1 : 0); }

    /// Height of the panel with so many rows.
    int heightFor(int rows) const { return titleHeight + 2 + rowHeight * rows; }

    /// The cell of the order with this index; its row may be scrolled away.
    QRect cell(int index) const;

    QRect barGeometry(int barWidth) const;
};

/// Rows that the panel opens with: all of them, at most 20 and at least 3.
int openingRows(int totalRows);

/// Lots of a rest, rounded to the nearest; 1 for less than a lot.
int restInLots(const SingleQuote& quote, int volumeUnit);

/// An order that nobody has dealt with yet, less than three seconds old at `time` (ms).
bool isFresh(const SingleQuote& quote, std::int64_t time);

} // namespace Kel
