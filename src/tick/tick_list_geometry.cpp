#include "tick/tick_list_geometry.h"

#include <algorithm>

namespace Kel {

namespace {
constexpr int kBarRoom = 10; // kept free at the right for the scroll bar
}

int TickListLayout::hit(const QPoint& point) const
{
    if (groupWidth < 1)
        return -1;
    return point.x() / groupWidth * rowCount + (point.y() - top()) / rowHeight;
}

void TickListLayout::setHeight(int pixels)
{
    height = pixels;
    rowCount = std::max(pixels / rowHeight, 1);
}

void TickListLayout::setWidth(int pixels, int need, int others, int leastPrice)
{
    width = pixels;
    const int room = pixels - kBarRoom;
    groupCount = std::max((room + groupGap) / (need + groupGap), 1);
    groupWidth = (room + (1 - groupCount) * groupGap) / groupCount;
    priceArea = std::max(groupWidth - others, leastPrice);
}

} // namespace Kel
