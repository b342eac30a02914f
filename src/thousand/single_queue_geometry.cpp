#include "thousand/single_queue_geometry.h"

#include "records/Tolerance.h"

#include <algorithm>

namespace Kel {

namespace {

constexpr int kMostRows = 20;
constexpr int kLeastRows = 3;
constexpr std::int64_t kFreshMs = 3000;
constexpr int kNewOrder = 1;  // state of an order that is not dealt
constexpr int kBarRight = 2;  // pixels right of the bar
constexpr int kBarTop = 3;    // below the title
constexpr int kBarHeight = 5; // that the bar is shorter than what is below the title

} // namespace

int SingleQueueLayout::fittingColumns() const
{
    const int room = clientWidth - 2 * leftMargin;
    return std::max((room + cellGap) / (cellWidth + cellGap), 1);
}

int SingleQueueLayout::pitch() const
{
    return (clientWidth - (columns - 1) * cellGap - 2 * leftMargin) / columns;
}

QRect SingleQueueLayout::cell(int index) const
{
    const int row = index / columns;
    const int column = index % columns;
    return {(cellPitch + cellGap) * column + leftMargin, titleHeight + (row - scrollTop) * rowHeight,
            cellWidth, rowHeight};
}

QRect SingleQueueLayout::barGeometry(int barWidth) const
{
    return {clientWidth - kBarRight - barWidth, titleHeight + kBarTop, barWidth,
            clientHeight - kBarHeight - titleHeight};
}

int openingRows(int totalRows)
{
    return std::clamp(totalRows, kLeastRows, kMostRows);
}

int restInLots(const SingleQuote& quote, int volumeUnit)
{
    const std::int64_t rest = std::int64_t(quote.volume) - quote.dealtVolume;
    const int unit = std::max(volumeUnit, 1);
    return rest < unit ? 1 : truncateToInt(static_cast<double>(rest) / unit + 0.5);
}

bool isFresh(const SingleQuote& quote, std::int64_t time)
{
    if (quote.state != kNewOrder)
        return false;
    // Of two times with opposite signs the difference may need the 64th bit.
    return time < quote.time ||
           static_cast<std::uint64_t>(time) - static_cast<std::uint64_t>(quote.time) < kFreshMs;
}

} // namespace Kel
