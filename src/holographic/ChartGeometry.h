#pragma once

#include <cstdint>

namespace Kel {

/// Where things stand on the chart: the one place that maps deals and prices to pixels, for the picture, for
/// the mouse and for tests.
///
/// Across, the chart runs by traded volume: a deal is as wide as its lots, and one lot's width lies between
/// two deals. Down, it has a row of pixels for each price tick.
///
///     |<- width 3 ->| |<- width 1 ->|      leftX of a deal, its rightX, and the gap of one unit to the next
///
/// A value; any thread. Every operation is defined for every value of the fields, zero included. Places and
/// widths are at most a million pixels either way, so that sums of them are ints.
struct ChartGeometry
{
    int chartWidth = 0;     ///< pixels without the price strip
    int chartHeight = 0;    ///< pixels without the time strip
    int viewExtent = 0;     ///< lots and deals in view, which share the width
    int startIndex = 0;     ///< first deal in view
    int rowHeight = 25;     ///< pixels of a price row
    int halfRow = 12;       ///< pixels of a bar at full height
    int topPadRows = 0;     ///< empty rows above the highest price
    int scrollRow = 0;      ///< first visible row
    int fullHeightHand = 0; ///< lots at which a bar has full height
    double maxPrice = 0;    ///< yuan, the highest price in view
    double priceTick = 0;   ///< yuan of a row

    /// Whether there is room to draw a deal and a measure to draw it by.
    bool holdsDeals() const;

    /// Pixels of one unit of the extent; 0 without an extent.
    double scale() const;

    /// Left end of the deal at `index` when those in view before it traded `lotsBefore`.
    int leftX(int index, std::int64_t lotsBefore) const;

    /// Right end of a deal of so many lots that begins at `left`.
    int rightX(int lots, int left) const;

    /// Width of a deal's bar, at least 1.
    int barWidth(int lots) const;

    /// Width of the unit between two deals, at least 1.
    int gap() const;

    /// Middle of the row of a price; -1 for a price above the highest.
    int priceToY(double price) const;

    /// Height of the bar of an order of so many lots: 1 to `halfRow`.
    int drawHeight(int lots) const;

    /// Height of the line that stands for a small order that was dealt at once; 0 for none.
    int lineHeight(int lots) const;
};

/// The rows of the price ladder, and how they share the height of the chart.
struct LadderRows
{
    int rowHeight = 0;
    int halfRow = 0;
    int pageRows = 0;   ///< whole rows that fit
    int pageStep = 0;   ///< rows that the scroll bar pages by: those that fit before rows are made lower
    int totalRows = 0;  ///< rows from the highest price to the lowest
    int topPadRows = 0; ///< empty rows that centre a short ladder
    int scrollRow = 0;
};

/// Lays the rows out. `rows` gives the row height and scroll row in force; with `fit` the rows take their
/// usual height (`usualHalfRow`), or a lower one at which the whole ladder fits the page.
LadderRows layOutRows(LadderRows rows, bool fit, int usualHalfRow, int chartHeight, double maxPrice,
                      double minPrice, double priceTick);

} // namespace Kel
