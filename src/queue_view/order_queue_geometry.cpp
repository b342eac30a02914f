#include "queue_view/order_queue_geometry.h"

#include "records/EQueueMode.h"
#include "records/Tolerance.h"

#include <algorithm>

namespace Kel {

namespace {

// Pixels
constexpr int kEdge = 5;              // from a side's left edge to its first column, and before the cells
constexpr int kSummaryGap = 10;       // between price and volume of a summary row
constexpr int kCountedPad = 10;       // what the count of columns leaves free at the right
constexpr int kCountedPadWide = 5;    // the same in the horizontal style
constexpr int kArrowLength = 5;       // of a call-out, and half the width of the arrow
constexpr int kCallOutInset = 2;      // a call-out's box is so much lower and higher than the row
constexpr int kCallOutTextMargin = 4; // a call-out's box is so much wider than its text
constexpr int kCallOutRightMargin = 2;
constexpr int kFillInset = 1; // a price's ground is so much lower and higher than the row

// Price widths and pixels before the cells
constexpr int kTabList = 1;
constexpr int kTabVertical = 3;
constexpr int kTabHorizontal = 4;
constexpr int kVolSpaceVertical = 20;
constexpr int kVolSpaceHorizontal = 10;

constexpr int kFillerLots = 1000; // most lots of unknown orders in one cell

/// Cells of a level's list and fillers, before any cut.
struct Totals
{
    std::int64_t filler = 0;
    std::int64_t total = 0;
    std::int64_t start = 0;
};

Totals totalsOf(const OrderQueueData& level)
{
    Totals totals;
    totals.filler = fillerCells(level.m_unknownVol);
    totals.total = level.m_orders.size() + totals.filler;
    // A start behind the list shows nothing of it; one before it cannot be read.
    totals.start = std::max(level.m_startIndex, 0);
    return totals;
}

/// Index of the last part-dealt order before `end`, -1 if there is none.
int lastPartDealt(const OrderList& orders, std::int64_t end)
{
    for (auto i = static_cast<int>(std::min<std::int64_t>(end, orders.size())) - 1; i >= 0; --i) {
        if (orders.at(i).m_type == OQT_PART_DEALT)
            return i;
    }
    return -1;
}

} // namespace

// Layout
// ----------------------------------------------------------------------------------------------------------------

int OrderQueueLayout::tabLen() const
{
    switch (style) {
    case eQueueDetailList:
        return kTabList;
    case eQueueDetailVertical:
        return kTabVertical;
    case eQueueDetailHorizontal:
        return kTabHorizontal;
    default:
        return 0;
    }
}

int OrderQueueLayout::totalVolSpace() const
{
    switch (style) {
    case eQueueDetailVertical:
        return kVolSpaceVertical;
    case eQueueDetailHorizontal:
        return kVolSpaceHorizontal;
    default:
        return 0;
    }
}

int OrderQueueLayout::sideLeft(EOrderQueueType side) const
{
    return side == OQT_BUY && !horizontal() ? width / 2 : 0;
}

int OrderQueueLayout::rowTop(int row, EOrderQueueType side) const
{
    if (!horizontal())
        return row * rowHeight - scrollTop + topSpace();
    const int base = centerY - scrollTop + topSpace();
    return side == OQT_BUY ? base + row * rowHeight : base - rowHeight - row * rowHeight;
}

int OrderQueueLayout::countedColumns() const
{
    const int sideWidth = horizontal() ? width : width / 2;
    const int pad = horizontal() ? kCountedPadWide : kCountedPad;
    if (firstLevelDetail())
        return (sideWidth - pad) / cellWidth;
    return (sideWidth - priceWidth * tabLen() - totalVolSpace() - barWidth - pad) / cellWidth;
}

int OrderQueueLayout::drawnColumns() const
{
    const int sideWidth = horizontal() ? width : width / 2;
    return (sideWidth - (barVisible ? barWidth : 0) - tabX()) / cellWidth;
}

bool OrderQueueLayout::listsOrders(const OrderQueueData& level) const
{
    return horizontal() || full || level.m_level == 1;
}

int OrderQueueLayout::storeys(int cols, const OrderQueueData& level) const
{
    if (!listsOrders(level))
        return 1;
    const Totals totals = totalsOf(level);
    std::int64_t cells = std::min<std::int64_t>(totals.total - totals.start, maxShowCount + 1);
    if (cells < 1 && firstLevelDetail())
        return 0;
    if (level.m_hasPartDeal)
        ++cells; // the call-out takes the place of one
    if (cols < 1 || cells < 1)
        return 1;
    return static_cast<int>((cells + cols - 1) / cols);
}

void addRows(const OrderQueueLayout& layout, int cols, int index, const OrderQueueData* sell,
             const OrderQueueData* buy, OrderQueueRows& rows)
{
    if (!sell && !buy)
        return;
    if (layout.firstLevelDetail()) {
        ++rows.left;
        ++rows.right;
    }
    if (index > 0 && !layout.horizontal() && !layout.full) {
        if (!layout.firstLevelDetail()) {
            ++rows.left;
            ++rows.right;
        }
        return;
    }
    if (sell)
        rows.left += layout.storeys(cols, *sell);
    if (buy)
        rows.right += layout.storeys(cols, *buy);
}

// Summary and head
// ------------------------------------------------------------------------------------------------------

SummaryRow summaryRow(const OrderQueueLayout& layout, int left, int top, int sideWidth, bool isSell)
{
    const int price = layout.nameWidth + kEdge;
    const int volume = price + layout.priceWidth + kSummaryGap;
    const int count = volume + layout.volWidth;
    const int average = count + 2 * layout.cellWidth;
    const int unit = average + layout.avgWidth;
    const auto column = [&](int offset, int width) {
        return QRect(left + offset, top, width, layout.rowHeight);
    };
    const auto optional = [&](int offset, int width) {
        return isSell && offset + layout.volWidth >= sideWidth ? QRect() : column(offset, width);
    };

    SummaryRow row;
    row.name = column(kEdge, layout.nameWidth);
    row.price = column(price, layout.priceWidth);
    row.volume = optional(volume, layout.volWidth);
    row.count = optional(count, layout.volWidth);
    row.average = optional(average, layout.avgWidth);
    row.unit = optional(unit, layout.cellWidth);
    return row;
}

LevelHead levelHead(const OrderQueueLayout& layout, const OrderQueueData& level, int top)
{
    LevelHead head;
    int x = layout.sideLeft(level.m_type);
    head.cellsLeft = x;
    if (layout.firstLevelDetail() || !layout.isVisible(top))
        return head;

    const auto column = [&](int width) { return QRect(x + kEdge, top, width, layout.rowHeight); };
    const bool named = layout.horizontal() || layout.style == eQueueDetailVertical;
    if (named) {
        head.name = column(layout.priceWidth);
        x += layout.priceWidth;
    }
    head.price = column(layout.priceWidth);
    if (layout.style == eQueueDetailList)
        head.priceFill = head.price.adjusted(0, kFillInset, 0, -kFillInset);
    x += layout.priceWidth;
    if (named)
        head.volume = column(layout.volWidth);
    if (layout.horizontal() && level.m_count > 0) {
        x += layout.volWidth;
        head.count = column(layout.cellWidth);
        x -= layout.cellWidth; // not the volume's width: the cells then begin a little further to the right
    }
    if (named)
        x -= layout.volWidth;
    x -= layout.priceWidth;
    head.cellsLeft = x;
    return head;
}

// Cells
// -----------------------------------------------------------------------------------------------------------------

std::int64_t fillerCells(double unknownLots)
{
    if (!isPositive(unknownLots))
        return 0;
    const std::int64_t lots = truncateToInt(unknownLots + 0.5);
    return (lots + kFillerLots - 1) / kFillerLots;
}

int shownLots(double lots)
{
    return std::max(truncateToInt(lots + 0.5), 1);
}

void placeCells(const OrderQueueLayout& layout, const OrderQueueData& level, int left, int cols, int row,
                LevelCells& into)
{
    into.cells.clear();
    into.lastPart = -1;
    if (cols < 1)
        return;
    const OrderList& orders = level.m_orders;
    const Totals totals = totalsOf(level);
    const bool hasFiller = isPositive(level.m_unknownVol);
    const bool negative = isNegative(level.m_unknownVol);
    const std::int64_t shown = std::min<std::int64_t>(totals.total, layout.maxShowCount + 1 + totals.start);
    const int partIndex =
        level.m_hasPartDeal ? lastPartDealt(orders, shown - (hasFiller ? totals.filler : 0)) : -1;
    const int cellsX = left + kEdge + layout.priceWidth * layout.tabLen() + layout.totalVolSpace();

    int remainder = hasFiller ? truncateToInt(level.m_unknownVol + 0.5) : 0;
    int extra = 0;
    for (std::int64_t i = totals.start; i < shown; ++i) {
        const auto pos = static_cast<int>(i - totals.start);
        const int place = pos + extra;
        OrderCell cell;
        cell.index = static_cast<int>(i);
        if (i < orders.size()) {
            const COrderVol& order = orders.at(static_cast<int>(i));
            cell.lots = shownLots(negative && pos == 0 ? order.m_vol + level.m_unknownVol : order.m_vol);
            cell.type = order.m_type;
            cell.number = order.m_entrustNo;
            if (order.m_type == OQT_PART_DEALT && level.m_hasPartDeal && i == partIndex)
                ++extra; // the call-out stands in the next place
        } else {
            const int lots = i == shown - 1 ? remainder : kFillerLots;
            cell.lots = shownLots(lots);
            cell.type = classifyVol(lots);
            remainder -= kFillerLots;
        }
        const int top = layout.rowTop(row + place / cols, level.m_type);
        if (!layout.isVisible(top))
            continue;
        cell.rect = QRect(cellsX + place % cols * layout.cellWidth, top, layout.cellWidth, layout.rowHeight);
        cell.ellipsis = pos == layout.maxShowCount;
        if (cell.type == OQT_PART_DEALT)
            into.lastPart = static_cast<int>(into.cells.size());
        into.cells.push_back(cell);
    }

    if (into.lastPart < 0)
        return;
    const OrderCell& part = into.cells[static_cast<std::size_t>(into.lastPart)];
    const double lots = orders.at(part.index).m_vol;
    into.partLots = shownLots(negative ? lots + level.m_unknownVol : lots);
    into.partEllipsis = part.index == layout.maxShowCount;
}

// Call-out
// --------------------------------------------------------------------------------------------------------------

CallOut callOut(const OrderQueueLayout& layout, const QPoint& tip, int textWidth, bool toLeft)
{
    const int direction = toLeft ? -1 : 1;
    const int half = layout.rowHeight / 2;
    const QPoint a(tip.x() + kArrowLength * direction, tip.y() - kArrowLength);
    const QPoint b(a.x(), tip.y() + kArrowLength);
    const QPoint c(a.x(), tip.y() + kCallOutInset - half);
    const QPoint d(a.x() + direction * (textWidth + kCallOutTextMargin), tip.y() + half - kCallOutInset);
    const QPoint e(d.x(), c.y());
    const QPoint f(c.x(), d.y());

    CallOut shape;
    shape.outline << tip << a << c << e << d << f << b << tip;
    shape.text = toLeft ? QRect(e, f) : QRect(c, d);
    shape.text.setWidth(shape.text.width() - kCallOutRightMargin);
    return shape;
}

} // namespace Kel
