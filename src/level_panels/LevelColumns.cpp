#include "level_panels/LevelColumns.h"

#include <algorithm>

namespace Kel {

namespace {

constexpr int kLeft = 3;               // first pixel of labels; the price column is moved by as much
constexpr int kNewVolumeLabelGap = 8;  // between price column and the label of the latest volume
constexpr int kNewVolumeRight = 65;    // the latest volume begins this much and a column before the edge
constexpr int kNewVolumeExtra = 60;    // and is this much wider than a column
constexpr int kNewVolumeHitExtra = 15; // the same for clicks, up to the edge
constexpr int kSpacings = 4;           // around and between the columns

bool isBetween(int x, int left, int width)
{
    return x > left && x < left + width;
}

} // namespace

int LevelColumns::roomForPrice() const
{
    return std::max(priceWidth, panelWidth - kSpacings * spacing - deltaWidth - volumeWidth - labelWidth);
}

int LevelColumns::priceX() const
{
    return (priceZoneWidth - priceWidth) / 2 + labelWidth + spacing + kLeft;
}

int LevelColumns::volumeX() const
{
    return priceX() + spacing - (priceZoneWidth - priceWidth) / 2 + priceZoneWidth;
}

int LevelColumns::deltaX() const
{
    return volumeX() + volumeWidth + spacing;
}

int LevelColumns::newVolumeLabelX() const
{
    return spacing + kNewVolumeLabelGap + (priceZoneWidth - priceWidth) / 2 + priceWidth + labelWidth;
}

QRect LevelColumns::newVolumeLabelCell(int y, int height) const
{
    return QRect(newVolumeLabelX(), y, priceWidth, height);
}

QRect LevelColumns::newVolumeCell(int y, int height) const
{
    return QRect(panelWidth - kNewVolumeRight - volumeWidth, y, volumeWidth + kNewVolumeExtra, height);
}

bool LevelColumns::isLabel(int x) const
{
    return isBetween(x, kLeft, labelWidth);
}

bool LevelColumns::isPrice(int x) const
{
    return isBetween(x, priceX(), priceWidth);
}

bool LevelColumns::isVolume(int x) const
{
    return isBetween(x, volumeX(), volumeWidth);
}

bool LevelColumns::isNewVolume(int x) const
{
    const int width = volumeWidth + kNewVolumeHitExtra;
    return isBetween(x, panelWidth - width, width);
}

QRect LevelColumns::numberCellAt(int x, int y, int height, bool middleRow) const
{
    if (isPrice(x))
        return priceCell(y, height);
    if (middleRow) {
        const int width = volumeWidth + kNewVolumeHitExtra;
        return isNewVolume(x) ? QRect(panelWidth - width, y, width, height) : QRect();
    }
    return isVolume(x) ? volumeCell(y, height) : QRect();
}

std::vector<LevelRow> levelRows(int shelves, int rowHeight, int top, int bottom, int middleRoom)
{
    std::vector<LevelRow> rows;
    int y = top;
    for (int index = 0; index < 2 * shelves; ++index) {
        if (index == shelves)
            y += middleRoom;
        rows.push_back({index, y});
        y += rowHeight;
        if (y > bottom)
            break;
    }
    return rows;
}

} // namespace Kel
