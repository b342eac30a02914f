#include "tick/tick_list_geometry.h"

#include <algorithm>

namespace Kel {

namespace {
constexpr int kBarRoom = 10;        // kept free at the right for the scroll bar
constexpr int kMostCounted = 32767; // rows of a run that a row counts
} // namespace

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

QRect outlineInside(const QRect& row, const QSize& widget)
{
    return QRect(row.x(), row.y(), std::min(row.width(), widget.width() - 1 - row.x()),
                 std::min(row.height(), widget.height() - 1 - row.y()));
}

int lastOfRun(int row, const std::function<int(int)>& runOf)
{
    // A row that counts at least `by` rows before it is of the run of the row that many places before it.
    const auto reaches = [&](int by) { return runOf(row + by) >= by; };
    for (;;) {
        if (!reaches(1))
            return row;
        int near = 1; // reached
        int far = 2;  // perhaps not
        while (far <= kMostCounted && reaches(far)) {
            near = far;
            far *= 2;
        }
        far = std::min(far, kMostCounted + 1);
        while (far - near > 1) {
            const int middle = near + (far - near) / 2;
            (reaches(middle) ? near : far) = middle;
        }
        row += near;
        if (near < kMostCounted)
            return row;
    }
}

} // namespace Kel
