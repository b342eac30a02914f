#include "thousand/thousand_geometry.h"

#include "platform/models/ladder_units.h"
#include "records/Tolerance.h"

#include <algorithm>
#include <array>

namespace Kel {

namespace {

constexpr int kLeft = 3;          // left of the names
constexpr int kLabelShift = 5;    // of the label beside the latest price, right of the column of prices
constexpr int kBarWidth = 6;      // of the scroll bar
constexpr int kLastVolume = 120;  // room of the newest deal's volume
constexpr int kTipHeight = 20;    // box of a tip
constexpr int kTipAbove = 21;     // its top above the cursor
constexpr int kTipPadding = 10;   // its width beyond the text
constexpr int kMostCircled = 10;  // greatest number with a sign of its own
constexpr int kMostTwoSigns = 99; // greatest number written by tens and ones

} // namespace

bool LadderLayout::shortForm() const
{
    return displayLevel == kShortForm;
}

int LadderLayout::sells() const
{
    return shortForm() ? getLevelDisplayCount(kShortForm) : sellCount;
}

int LadderLayout::total() const
{
    return shortForm() ? 2 * sells() + 1 : totalRows;
}

int LadderLayout::first() const
{
    return shortForm() ? 0 : scrollTop;
}

int LadderLayout::shown() const
{
    return shortForm() ? total() : visibleRows;
}

int LadderLayout::firstRow() const
{
    return std::max(first(), 0);
}

int LadderLayout::endRow() const
{
    return std::min(shown() + first(), total());
}

int LadderLayout::top() const
{
    return (clientHeight - rowHeight * shown()) / 2;
}

int LadderLayout::rowTop(int row) const
{
    return top() + (row - first()) * rowHeight;
}

int LadderLayout::clickedTop(int y) const
{
    const int from = (clientHeight - rowHeight * visibleRows) / 2;
    return from + (y - from) / rowHeight * rowHeight;
}

int LadderLayout::buyIndex(int row) const
{
    return total() - row - 1 + (shortForm() ? buyCount - sells() : 0);
}

int LadderLayout::rowAt(int y) const
{
    const int row = (y - top()) / rowHeight + first();
    return row >= 0 && row < total() ? row : -1;
}

int LadderLayout::priceLeft() const
{
    return indexWidth + kLeft + gap + (priceAreaWidth - priceWidth) / 2;
}

int LadderLayout::volumeLeft() const
{
    return priceLeft() + gap + priceAreaWidth - (priceAreaWidth - priceWidth) / 2;
}

LadderLayout::Column LadderLayout::columnAt(int x, bool hasCount) const
{
    const int price = priceLeft();
    if (x >= price && x < price + priceWidth)
        return ePrice;
    if (hasCount && x >= price + priceWidth && x < price + priceWidth + countWidth)
        return eCount;
    const int volume = volumeLeft();
    return x >= volume && x < volume + volWidth ? eVolume : eNoColumn;
}

QRect LadderLayout::nameCell(int y) const
{
    return {kLeft, y, indexWidth, rowHeight};
}

QRect LadderLayout::priceCell(int y) const
{
    return {priceLeft(), y, priceWidth, rowHeight};
}

QRect LadderLayout::countCell(int y) const
{
    return {priceLeft() + priceWidth, y, countWidth, rowHeight};
}

QRect LadderLayout::volumeCell(int y) const
{
    return {volumeLeft(), y, volWidth, rowHeight};
}

QRect LadderLayout::changeCell(int y) const
{
    return {volumeLeft() + volWidth + gap, y, changeWidth - (exceeds() ? kBarWidth : 0), rowHeight};
}

QRect LadderLayout::lastVolumeCell(int y) const
{
    return {clientWidth - kLastVolume, y, kLastVolume - (exceeds() ? kBarWidth : 0), rowHeight};
}

QRect LadderLayout::lastVolumeLabel(int y) const
{
    return {priceLeft() + kLabelShift + priceWidth, y, priceWidth, rowHeight};
}

QRect LadderLayout::selection(int y) const
{
    return {1, y, clientWidth - 2, rowHeight};
}

QRect LadderLayout::volumeHoverBox(int y, int textWidth) const
{
    return {volumeLeft() + volWidth - textWidth - 1, y + 1, textWidth + 2, rowHeight - 2};
}

int LadderLayout::distributionRight() const
{
    return clientWidth - 1 - (exceeds() ? kBarWidth : 0);
}

int priceAreaWidth(const LadderLayout& layout)
{
    const int rest =
        layout.clientWidth - 4 * layout.gap - layout.volWidth - layout.indexWidth - layout.changeWidth;
    return std::max(rest, layout.priceWidth);
}

int distributionLength(int span, double amount, double maxAmount)
{
    if (isZero(maxAmount))
        return 1;
    return std::max(truncateToInt(span * amount / maxAmount + 0.5), 1);
}

int distributionY(double price, double minPrice, double maxPrice, int clientHeight)
{
    const double span = maxPrice - minPrice;
    return isZero(span) ? 0 : truncateToInt((maxPrice - price) * clientHeight / span + 0.5);
}

QRect tipBox(const QPoint& cursor, int textWidth, const QSize& client)
{
    const int width = textWidth + kTipPadding;
    // A client without any width has its boxes at the left of the cursor.
    int x = client.width() / 2 > 0 ? cursor.x() + 1 : cursor.x() - width;
    if (client.width() / 2 > 0 && x + width >= client.width() - 1)
        x = client.width() - width - 1;
    return {x, cursor.y() - kTipAbove, width, kTipHeight};
}

QString levelName(int number, bool isBuy)
{
    static const QString kCircled = QStringLiteral("〇①②③④⑤⑥⑦⑧⑨⑩");
    static const QString kTens = QStringLiteral("十二三四五六七八九");
    if (number >= 1 && number <= kMostCircled)
        return (isBuy ? QStringLiteral("买") : QStringLiteral("卖")) + kCircled[number];
    if (number > kMostCircled && number <= kMostTwoSigns)
        return QString(kTens[number / 10 - 1]) + kCircled[number % 10];
    return QString::number(number);
}

} // namespace Kel
