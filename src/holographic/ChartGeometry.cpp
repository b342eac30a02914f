#include "holographic/ChartGeometry.h"

#include "records/Tolerance.h"

#include <algorithm>
#include <cmath>

namespace Kel {

namespace {

/// Pixels beyond which nothing is ever seen; still far from what a painter cannot count.
constexpr std::int64_t kFarAway = 1 << 20;

/// A number of pixels as an int from which others can be counted.
int nearEnough(double pixels)
{
    return static_cast<int>(std::clamp<std::int64_t>(truncateToInt(pixels), -kFarAway, kFarAway));
}

constexpr int kLeastRowHeight = 3; // of rows that were made lower to fit

} // namespace

bool ChartGeometry::holdsDeals() const
{
    return viewExtent > 0 && chartWidth > 0 && chartHeight > 0 && fullHeightHand > 0;
}

double ChartGeometry::scale() const
{
    return viewExtent > 0 ? double(chartWidth) / double(viewExtent) : 0;
}

int ChartGeometry::leftX(int index, std::int64_t lotsBefore) const
{
    const std::int64_t deals = std::int64_t(index) - startIndex;
    const std::int64_t unit = index != startIndex ? 1 : 0;
    return nearEnough(static_cast<double>(deals + unit + lotsBefore) * scale());
}

int ChartGeometry::rightX(int lots, int left) const
{
    return nearEnough(lots * scale() + left);
}

int ChartGeometry::barWidth(int lots) const
{
    return std::max(1, nearEnough(lots * scale() + 0.5));
}

int ChartGeometry::gap() const
{
    return std::max(1, nearEnough(scale() + 0.5));
}

int ChartGeometry::priceToY(double price) const
{
    if (isLess(maxPrice, price))
        return -1;
    const std::int64_t row = truncateToInt(std::floor((maxPrice - price) / priceTick + 0.5));
    const std::int64_t y = rowHeight / 2 + (row + topPadRows - scrollRow) * rowHeight;
    return static_cast<int>(std::clamp(y, -kFarAway, kFarAway));
}

int ChartGeometry::drawHeight(int lots) const
{
    return std::min(halfRow, std::max(1, lineHeight(lots)));
}

int ChartGeometry::lineHeight(int lots) const
{
    return fullHeightHand > 0 ? clampToInt(std::int64_t(halfRow) * lots / fullHeightHand) : 0;
}

LadderRows layOutRows(LadderRows rows, bool fit, int usualHalfRow, int chartHeight, double maxPrice,
                      double minPrice, double priceTick)
{
    if (fit) {
        rows.halfRow = usualHalfRow;
        rows.rowHeight = 2 * usualHalfRow + 1;
    }
    const int height = std::max(chartHeight, 0);
    rows.pageRows = height / rows.rowHeight;
    rows.pageStep = rows.pageRows;
    // The half is one of the tick, not of a row: it only takes up what the division lost.
    rows.totalRows = truncateToInt((maxPrice - minPrice) / priceTick + priceTick * 0.5 + 1.0);
    if (rows.totalRows <= rows.pageRows) {
        rows.topPadRows = (rows.pageRows - rows.totalRows) / 2;
        rows.scrollRow = 0;
        return rows;
    }
    rows.topPadRows = 0;
    if (fit) {
        rows.rowHeight = std::max(kLeastRowHeight, height / rows.totalRows);
        rows.halfRow = rows.rowHeight / 2;
        rows.pageRows = height / rows.rowHeight;
        rows.scrollRow = 0;
    }
    return rows;
}

} // namespace Kel
