// No text is cut off in the columns and rows of the panels, at any usual scale of the screen.

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/theme_guard.h"

#include <QFontMetricsF>
#include <QPainter>

#include <gmock/gmock.h>

#include <ostream>

namespace {

using test::resource;

struct Cell
{
    const char* font;
    const char* text;
    int width;
    int height;
    const char* where;
};

void PrintTo(const Cell& cell, std::ostream* out)
{
    *out << cell.where << ": " << cell.text;
}

const char* const kText = "ic_fnt_index_modulegroup_entruststatus_text";
const char* const kPrice = "ic_fnt_index_modulegroup_entruststatus_price";
const char* const kAmount = "ic_fnt_index_modulegroup_entruststatus_amount";
const char* const kNumber = "ic_fnt_index_modulegroup_transaction";
const char* const kBig = "ic_fnt_index_modulegroup_transaction_big_number";
const char* const kNormal = "fnt_default_normal";

const Cell kCells[] = {
    {kText, "卖十", 40, 20, "queue, level name"},
    {kText, "手/笔", 50, 20, "queue, unit"},
    {kNumber, "99999", 50, 20, "queue, order cell"},
    {kNumber, "1688.00", 65, 20, "queue, price"},
    {kNumber, "999999", 60, 20, "queue, level volume"},
    {kNumber, "9999.9", 50, 20, "queue, average"},
    {kText, "买⑩", 30, 20, "ladder, level name"},
    {kText, "十⑨", 30, 20, "ladder, level name of two digits"},
    {kAmount, "999", 30, 20, "ladder, level number above 99"},
    {kText, "最新", 30, 20, "ladder, latest"},
    {kPrice, "9.99", 30, 20, "ladder, price below 10"},
    {kPrice, "1.234", 40, 20, "ladder, price with three decimals"},
    {kPrice, "99.99", 40, 20, "ladder, price below 100"},
    {kPrice, "999.99", 50, 20, "ladder, price below 1000"},
    {kPrice, "1688.00", 50, 20, "ladder, price above 1000"},
    {"ic_fnt_index_modulegroup_entruststatus_order_text", " 9999", 30, 20, "ladder, order count"},
    {kAmount, "9999", 55, 20, "ladder, volume"},
    {kBig, "9999999", 55, 20, "ladder, big volume"},
    {kAmount, "+9999", 39, 20, "ladder, change beside the bar"},
    {kAmount, "99999", 45, 20, "orders of a price, cell"},
    {kPrice, "1688.00", 65, 20, "level panel, price"},
    {kAmount, "999999", 55, 20, "level panel, volume"},
    {kAmount, "+9999", 40, 20, "level panel, change"},
    {kNumber, "09:25:00", 62, 18, "deal list, time"},
    {kNumber, "1688.00", 60, 18, "deal list, price"},
    {kNumber, "1000", 36, 18, "deal list, volume beside the bar"},
    {kBig, "99999", 36, 18, "deal list, big volume beside the bar"},
    {kNumber, "99999.99万", 90, 18, "order list, amount"},
    {"fnt_kline_graph_axis_text", "1688.00", 50, 12, "deal chart, price label"},
    {kNormal, "逐笔委托过滤:", 80, 24, "filter dialog, row"},
    {kNormal, "委托金额", 48, 24, "filter dialog, amount"},
    {kNormal, "时间范围:", 55, 24, "filter dialog, time"},
    {kNormal, "高亮标记此委托量,0表示不标记", 180, 24, "filter dialog, hint"},
    {kNormal, "09:25:00", 50, 20, "order track, time"},
    {kNormal, "挂单 - 999999笔", 300, 22, "order list, title"},
};

class CellText : public ::testing::TestWithParam<Cell>
{
protected:
    /// The text in its cell, which has room around it, with or without the cell cutting it.
    static QImage drawn(const Cell& cell, int alignment, qreal ratio, bool cut)
    {
        constexpr int kRoom = 40;
        QImage image(QSize(cell.width + 2 * kRoom, cell.height + 2 * kRoom) * ratio, QImage::Format_ARGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::white);
        QPainter painter(&image);
        const QRect rect(kRoom, kRoom, cell.width, cell.height);
        if (cut)
            painter.setClipRect(rect);
        painter.setFont(*resource().getFont(cell.font));
        painter.drawText(rect, alignment | Qt::AlignVCenter | Qt::TextDontClip, cell.text);
        return image;
    }

private:
    test::ThemeGuard m_guard;
};

TEST_P(CellText, IsNotCutOff)
{
    for (const QString& theme : resource().themes()) {
        resource().setTheme(theme);
        for (const qreal ratio : {1.0, 1.25, 1.5, 2.0}) {
            for (const int alignment : {Qt::AlignLeft, Qt::AlignRight}) {
                EXPECT_EQ(drawn(GetParam(), alignment, ratio, true),
                          drawn(GetParam(), alignment, ratio, false))
                    << "theme " << theme.toStdString() << ", scale " << ratio << ", alignment " << alignment;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Table, CellText, ::testing::ValuesIn(kCells));

TEST(ThemeFonts, AllHaveTheFamilyListWithTheChineseFace)
{
    const test::ThemeGuard guard;
    for (const QString& key : resource().keys()) {
        if (!key.contains("fnt_"))
            continue;
        EXPECT_EQ(resource().getFont(key)->families(), (QStringList{"DejaVu Sans", "WenQuanYi Micro Hei"}))
            << key.toStdString();
    }
}

TEST(ThemeFonts, EveryLetterOfThePanelsIsThere)
{
    const test::ThemeGuard guard;
    const QFontMetrics metrics(*resource().getFont("fnt_default_normal"));
    for (const uint letter : QStringLiteral("卖买笔成〇①②③④⑤⑥⑦⑧⑨⑩一二三四五六七八九十≥＞▲▼").toUcs4())
        EXPECT_TRUE(metrics.inFontUcs4(letter)) << std::hex << letter;
}

} // namespace
