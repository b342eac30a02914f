#include "frame/header_title.h"

namespace Kel {

namespace {

constexpr int kColumnTop = 2;     // from the strip's top to a column's text
constexpr int kButtonColumn = 1;  // the column that the buttons stand in
constexpr int kButtonsShown = 2;  // level and style
constexpr int kBaseLineRaise = 2; // a title of one part stands so much above the middle

} // namespace

std::vector<TitleColumn> titleColumns(const QStringList& parts, int width, int buttonWidth,
                                      const QFontMetrics& metrics)
{
    std::vector<TitleColumn> columns;
    const int count = parts.size();
    if (count < 2)
        return columns;
    const int slot = width / count;
    for (int i = 0; i < count; ++i) {
        TitleColumn column;
        column.text = parts[i];
        const int columnWidth = i == kButtonColumn ? slot - kButtonsShown * buttonWidth : slot;
        column.rect = QRect(i * slot, kColumnTop, columnWidth, metrics.horizontalAdvance(column.text));
        if (i + 1 < count)
            column.splitLine = (i + 1) * slot;
        columns.push_back(column);
    }
    return columns;
}

QPoint titleOrigin(const QString& title, int width, int headerHeight, const QFontMetrics& metrics)
{
    return QPoint((width - metrics.horizontalAdvance(title)) / 2,
                  (headerHeight + metrics.height()) / 2 - kBaseLineRaise);
}

} // namespace Kel
