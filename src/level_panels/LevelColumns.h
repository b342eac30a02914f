#pragma once

#include <QRect>

#include <vector>

namespace Kel {

/// Where the columns of a quote panel stand. All lengths are logical pixels, x counts from the panel's left
/// edge. Drawing, hits and tests take them from here.
///
///     |label |        price zone        | volume | change |
///     |卖①  |        10.01             |   1234 |    +12 |
///     |最新  |        10.00    现手     |            56    |
struct LevelColumns
{
    int panelWidth = 0;
    int labelWidth = 30;
    int priceWidth = 65;
    int volumeWidth = 55;
    int deltaWidth = 40;
    int spacing = 5;
    int priceZoneWidth = 50; ///< room that the price column stands in the middle of

    /// The price zone that is left beside the other columns, at least the price column's width.
    int roomForPrice() const;

    int priceX() const;
    int volumeX() const;
    int deltaX() const;

    /// Of the label of the latest volume in the middle row, which begins behind the price.
    int newVolumeLabelX() const;

    // Cells of the row that begins at `y`
    QRect priceCell(int y, int height) const { return QRect(priceX(), y, priceWidth, height); }
    QRect volumeCell(int y, int height) const { return QRect(volumeX(), y, volumeWidth, height); }
    QRect deltaCell(int y, int height) const { return QRect(deltaX(), y, deltaWidth, height); }
    QRect newVolumeLabelCell(int y, int height) const;
    QRect newVolumeCell(int y, int height) const;

    // Zones of a click; their edges are outside.
    bool isLabel(int x) const;
    bool isPrice(int x) const;
    bool isVolume(int x) const;
    bool isNewVolume(int x) const;

    /// The cell of the price or volume under `x` in the row that begins at `y`; null beside both.
    QRect numberCellAt(int x, int y, int height, bool middleRow) const;
};

/// A row of a level, counted from the top without the middle row.
struct LevelRow
{
    int index = 0;
    int y = 0;
};

/// The rows of `shelves` levels a side from `top` down, with `middleRoom` left between sells and buys. They
/// end where the next one would begin below `bottom`; the first one is always there.
std::vector<LevelRow> levelRows(int shelves, int rowHeight, int top, int bottom, int middleRoom);

} // namespace Kel
