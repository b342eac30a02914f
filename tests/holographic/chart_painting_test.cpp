// The picture of the chart but for the deals: layers, selected interval, price ladder, time strip, overlays.

#include "Chart.h"

#include "platform/toolkit/number_formats.h"

#include <algorithm>

using namespace testing_support;
using namespace Kel;

namespace {

const char* const kAxisFont = "fnt_kline_graph_axis_text";

/// Lines of the price grid, from the top.
std::vector<PaintCommand> gridLines(const PaintRecorder& picture)
{
    std::vector<PaintCommand> lines;
    for (const PaintCommand& command : picture.lineCommands()) {
        if (command.pen.style() == Qt::CustomDashLine)
            lines.push_back(command);
    }
    return lines;
}

/// Texts of the price strip.
std::vector<PaintCommand> labels(const PaintRecorder& picture, const Chart& chart)
{
    std::vector<PaintCommand> texts;
    for (const PaintCommand& command : picture.all(PaintCommand::eText)) {
        if (command.baseline.x() > chart.m_chartWidth)
            texts.push_back(command);
    }
    return texts;
}

int highlightCount(const Chart&, const PaintRecorder& picture)
{
    return static_cast<int>(picture.fillsOf(colorOf(kHighlight)).size());
}

} // namespace

TEST(ChartTheme, AllKeysHaveTheirColourAndFont)
{
    const QStringList keys = utils::CSingletonT<Zeb::CUiResource>::instance().keys();
    for (const char* const key :
         {kSellLine, kBuyLine, kSellBreak, kBuyBreak, kActive, kMarket, kUrgent, kHighlight, kGround, kAxis,
          kAxisText, "ic_clr_kline_graph_scale_border", "kel_clr_deptch_holographic_deal_detail_bg",
          "kel_clr_deptch_holographic_deal_detail_line", "kel_clr_deptch_holographic_deal_detail_text",
          "kel_clr_deptch_holographic_deal_detail_text_light", kAxisFont, "fnt_graph_axis_text"})
        EXPECT_TRUE(keys.contains(QLatin1String(key))) << key;
}

TEST(ChartPicture, LayersComeInTheirOrder)
{
    Chart chart(600, 325);
    chart.add({{1, 2, 10, 100, 1}, {1, 3, 10, 100, 1}});
    chart.quotes({5});
    chart.m_cursorSeq = 0;
    const auto picture = chart.picture();
    const auto& commands = picture->commands();
    const auto placeOf = [&](auto matches) {
        return std::find_if(commands.begin(), commands.end(), matches) - commands.begin();
    };
    const auto ground = placeOf([](const PaintCommand& c) { return c.color() == colorOf(kGround); });
    const auto column = placeOf([](const PaintCommand& c) { return c.color() == colorOf(kHighlight); });
    const auto axis = placeOf([](const PaintCommand& c) { return c.color() == colorOf(kAxis); });
    const auto deals = placeOf([](const PaintCommand& c) { return c.color() == colorOf(kActive); });
    const auto times = placeOf([](const PaintCommand& c) { return c.text == QStringLiteral("10:00:00"); });
    EXPECT_EQ(ground, 0);
    EXPECT_LT(ground, column);
    EXPECT_LT(column, axis);
    EXPECT_LT(axis, deals);
    EXPECT_LT(deals, times);
    EXPECT_LT(times, static_cast<long>(commands.size()));
    EXPECT_EQ(commands.front().rect.toRect(), chart.m_widgetRect);
}

TEST(ChartPicture, OfAnEmptyChartHasGroundGridAndLabelsOnly)
{
    Chart chart(600, 325);
    const auto picture = chart.picture();
    EXPECT_EQ(picture->fills().size(), 1u);
    EXPECT_FALSE(gridLines(*picture).empty());
    EXPECT_FALSE(labels(*picture, chart).empty());
    EXPECT_EQ(picture->texts().size(), static_cast<int>(labels(*picture, chart).size()));
}

TEST(ChartPicture, WithoutAnExtentTheMapsKeepTheirContentAndNoTimeIsSeen)
{
    Chart chart(600, 325);
    chart.add({{1, 2, 10, 100}, {3, 4, 10, 100}});
    const QMap<int, int> ends = chart.m_dealRightX;
    const auto spans = chart.m_timeSpanX;
    chart.m_model->viewExtent = 0;
    const auto picture = chart.picture();
    EXPECT_EQ(chart.m_dealRightX, ends);
    EXPECT_EQ(chart.m_timeSpanX, spans);
    EXPECT_EQ(picture->fills().size(), 1u);
    // The clip of the deals stays set, so that the strip below it shows nothing.
    const auto times = picture->textCommands(QStringLiteral("10:00:00"));
    ASSERT_FALSE(times.empty());
    EXPECT_EQ(times[0].clip, QRectF(0, 0, 600, 325));
}

TEST(ChartPicture, WithoutAFullHeightNoDealIsDrawn)
{
    Chart chart(600, 325);
    chart.add({{1, 2, 10, 100}});
    chart.m_model->fullHeightHand = 0;
    EXPECT_EQ(chart.picture()->fills().size(), 1u);
}

TEST(ChartPicture, DealsAreClippedToTheChart)
{
    Chart chart(600, 325);
    chart.add({{1, 2, 10, 100, 1}, {1, 3, 10, 100, 1}});
    const auto picture = chart.picture();
    for (const PaintCommand& command : picture->fillsOf(colorOf(kActive)))
        EXPECT_EQ(command.clip, QRectF(0, 0, 600, 325));
    EXPECT_FALSE(picture->fillsOf(colorOf(kActive)).empty());
    EXPECT_FALSE(picture->lineCommands().back().clip.isValid()) << "the strip below is not clipped";
}

TEST(ChartPicture, WithoutAPixmapNothingIsDrawnOrPainted)
{
    Chart chart(600, 325);
    chart.add({{1, 2, 10, 100}});
    chart.m_canvas = QPixmap();
    chart.m_dealRightX.clear();
    chart.drawGraph();
    EXPECT_TRUE(chart.m_dealRightX.isEmpty());
    QImage image(chart.size(), QImage::Format_RGB32);
    image.fill(QColor(1, 2, 3));
    chart.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    EXPECT_EQ(image.pixelColor(30, 30), QColor(1, 2, 3));
}

// Selected interval
// ---------------------------------------------------------------------------------------------------------

namespace {

/// Six deals of nine lots, ten pixels a unit: 100 pixels a deal. Intervals 0 to 1, 2 to 4, 5.
class HighlightColumn : public testing::Test
{
protected:
    HighlightColumn()
    {
        std::vector<DealText> deals;
        for (int index = 0; index < 6; ++index)
            deals.push_back({1 + 2 * index, 2 + 2 * index, 10, 9});
        chart.add(deals);
        chart.quotes({1, 4});
    }

    /// The column that is drawn; null for none.
    QRect column()
    {
        const auto fills = chart.picture()->fillsOf(colorOf(kHighlight));
        return fills.empty() ? QRect() : fills.at(0).rect.toRect();
    }

    Chart chart{600, 325};
};

} // namespace

TEST_F(HighlightColumn, SpansTheIntervalOfTheCursor)
{
    chart.m_cursorSeq = 2;
    // Deal 2 begins after 18 lots, 2 deals and the unit that all but the first are moved by.
    EXPECT_EQ(column(), QRect(QPoint(210, 0), QPoint((4 + 1 + 36) * 10 + 90 - 1, 324)));
    chart.m_cursorSeq = 4;
    EXPECT_EQ(column().left(), 210) << "any deal of the interval";
    chart.m_cursorSeq = 0;
    EXPECT_EQ(column().left(), 0);
}

TEST_F(HighlightColumn, IsNotDrawnWithoutACursor)
{
    EXPECT_TRUE(column().isNull());
    chart.m_cursorSeq = 99;
    EXPECT_TRUE(column().isNull());
}

TEST_F(HighlightColumn, IsNotDrawnInDealModeNorWhileDragging)
{
    chart.m_cursorSeq = 2;
    EXPECT_EQ(highlightCount(chart, *chart.picture()), 1);
    chart.m_dragging = true;
    EXPECT_EQ(highlightCount(chart, *chart.picture()), 0);
    chart.m_dragging = false;
    chart.m_columnMode = false;
    EXPECT_EQ(highlightCount(chart, *chart.picture()), 0);
}

TEST_F(HighlightColumn, OfAnIntervalThatBeginsBeforeTheViewStartsAtTheEdge)
{
    chart.setViewTimeRange(tag(10, 0, 3), tag(10, 0, 5));
    chart.m_cursorSeq = 3;
    EXPECT_EQ(column().left(), 0);
    EXPECT_GT(column().width(), 0);
}

TEST_F(HighlightColumn, OfAnIntervalThatEndsBeyondTheViewIsNotSeen)
{
    chart.setViewTimeRange(tag(10, 0, 2), tag(10, 0, 3));
    chart.m_cursorSeq = 2;
    EXPECT_TRUE(column().isNull());
}

// Price ladder
// -------------------------------------------------------------------------------------------------------

TEST(PriceLadder, HasAxesAtTheRightBelowTheChartAndAtTheBottom)
{
    Chart chart(600, 325);
    const auto lines = chart.picture()->lineCommands();
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(lines[0].line, QLineF(600, 0, 600, 325));
    EXPECT_EQ(lines[1].line, QLineF(0, 325, 600, 325));
    EXPECT_EQ(lines[2].line, QLineF(0, chart.height() - 1, chart.width(), chart.height() - 1));
    for (int index = 0; index < 3; ++index)
        EXPECT_EQ(lines[static_cast<std::size_t>(index)].color(), colorOf(kAxis));
}

TEST(PriceLadder, EveryOtherUsualRowIsLabelled)
{
    Chart chart(600, 325);
    chart.fill(60, 13);
    const auto picture = chart.picture();
    // A row of 25 pixels is less than two and a half times 12: rows 1, 3, 5 and so on have a line.
    const auto grid = gridLines(*picture);
    const auto prices = labels(*picture, chart);
    ASSERT_EQ(grid.size(), 6u);
    ASSERT_EQ(prices.size(), 6u);
    for (int index = 0; index < 6; ++index) {
        const auto place = static_cast<std::size_t>(index);
        const int row = 1 + 2 * index;
        const int y = 12 + row * 25;
        EXPECT_EQ(grid[place].line, QLineF(0, y, 600, y));
        EXPECT_EQ(grid[place].pen.dashPattern(), (QVector<qreal>{1, 3}));
        EXPECT_EQ(grid[place].pen.widthF(), 0);
        EXPECT_EQ(grid[place].color(), colorOf(kAxis));
        EXPECT_EQ(prices[place].text, Zeb::formatDoubleNumber(10.12 - row * 0.01, 2, 0, false, QString()));
        EXPECT_EQ(prices[place].color(), colorOf(kAxisText));
        EXPECT_TRUE(prices[place].standsIn(QRect(600, y - 6, 50, 12), Qt::AlignCenter));
    }
}

TEST(PriceLadder, RowsOfFivePixelsAreLabelledEverySixth)
{
    Chart chart(600, 325);
    chart.fill(60, 13);
    chart.setFullHeightChagne(-10);
    ASSERT_EQ(chart.m_rowHeight, 5);
    const auto grid = gridLines(*chart.picture());
    ASSERT_GE(grid.size(), 3u);
    EXPECT_EQ(grid[0].line.y1(), 2 + 5 * 5);
    EXPECT_EQ(grid[1].line.y1() - grid[0].line.y1(), 6 * 5);
    EXPECT_EQ(grid[2].line.y1() - grid[1].line.y1(), 6 * 5);
}

TEST(PriceLadder, RowsOfThirtyOnePixelsAreAllLabelled)
{
    Chart chart(600, 325);
    chart.fill(60, 13);
    chart.setFullHeightChagne(3);
    const auto grid = gridLines(*chart.picture());
    ASSERT_EQ(grid.size(), 10u);
    EXPECT_EQ(grid[0].line.y1(), 15);
    EXPECT_EQ(grid[9].line.y1(), 15 + 9 * 31);
}

TEST(PriceLadder, ARowThatIsCutAtTheBottomHasNoLine)
{
    Chart chart(600, 325 + 23); // a fourteenth row with its middle in the chart, but not its lower end
    chart.fill(60, 13);
    ASSERT_EQ(chart.m_pageRows, 13);
    const auto grid = gridLines(*chart.picture());
    EXPECT_EQ(grid.back().line.y1(), 12 + 11 * 25) << "row 13 would be the next";
    chart.resize(chart.width(), chart.height() + 1);
    EXPECT_EQ(gridLines(*chart.picture()).back().line.y1(), 12 + 13 * 25);
}

TEST(PriceLadder, PricesBeginAboveTheHighestWhereTheLadderIsShort)
{
    Chart chart(600, 325);
    chart.fill(10, 5); // 10.00 to 10.04, four empty rows above
    const auto prices = labels(*chart.picture(), chart);
    EXPECT_EQ(prices.at(0).text, QStringLiteral("10.07")) << "row 1, three above the highest";
}

TEST(PriceLadder, FollowsTheScrollBar)
{
    Chart chart(600, 325);
    chart.fill(60, 30);
    chart.m_scrollBar->setValue(4);
    EXPECT_EQ(labels(*chart.picture(), chart).at(0).text, QStringLiteral("10.24")) << "10.29, five rows down";
}

// Time strip
// ---------------------------------------------------------------------------------------------------------

namespace {

struct TimeCell
{
    QString text;
    QRect rect;
};

/// The cells of the strip, by their texts; that each stands in its cell is checked by `expectCells`.
std::vector<PaintCommand> times(const PaintRecorder& picture)
{
    std::vector<PaintCommand> found;
    for (const PaintCommand& command : picture.all(PaintCommand::eText)) {
        if (command.text.count(QLatin1Char(':')) == 2)
            found.push_back(command);
    }
    return found;
}

void expectCells(Chart& chart, const std::vector<TimeCell>& cells)
{
    const auto picture = chart.picture();
    const auto texts = times(*picture);
    ASSERT_EQ(texts.size(), cells.size());
    const auto lines = picture->lineCommands();
    const int top = chart.height() - chart.m_timeAxisHeight;
    for (std::size_t index = 0; index < cells.size(); ++index) {
        const QRect cell(cells[index].rect.left(), top, cells[index].rect.width(),
                         chart.m_timeAxisHeight - 1);
        EXPECT_EQ(texts[index].text, cells[index].text) << index;
        EXPECT_TRUE(texts[index].standsIn(cell, Qt::AlignCenter)) << index;
        EXPECT_EQ(texts[index].color(), colorOf(kAxisText));
        const QLineF tick(cell.left() - 1, top, cell.left() - 1, chart.height());
        EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [&](const PaintCommand& line) {
            return line.line == tick && line.color() == colorOf(kAxis);
        })) << index;
    }
}

} // namespace

TEST(TimeStrip, ALongStretchRepeatsItsLabelInEveryCell)
{
    Chart chart(600, 325);
    const int w = chart.m_timeCellWidth;
    ASSERT_GE(w, 80);
    // One second over the whole width.
    chart.add({{1, 2, 10, 299, 0, 0}, {3, 4, 10, 299, 0, 0}});
    const int cells = 600 / w;
    std::vector<TimeCell> expected;
    for (int index = 0; index < cells; ++index)
        expected.push_back({QStringLiteral("10:00:00"),
                            QRect(1 + index * w, 0, index + 1 < cells ? w : 600 - index * w, 0)});
    expectCells(chart, expected);
}

TEST(TimeStrip, SecondsThatBeginUnderALabelAreSkippedUntilThereIsRoom)
{
    Chart chart(600, 325);
    const int w = chart.m_timeCellWidth;
    // Six pixels a unit.
    std::vector<DealText> deals;
    for (int index = 0; index < 20; ++index)
        deals.push_back({1 + 2 * index, 2 + 2 * index, 10, 4, 0, index});
    chart.add(deals);
    std::vector<TimeCell> expected;
    int lastX = 0;
    for (auto entry = chart.m_timeSpanX.cbegin(); entry != chart.m_timeSpanX.cend(); ++entry) {
        const bool fits = entry->second - lastX >= w;
        if (entry->first < lastX && !fits)
            continue;
        const int total = std::max(entry->second - lastX, w);
        if (lastX + 1 + total - 1 > 600)
            break;
        expected.push_back(
            {QString::fromLatin1("10:00:%1").arg(entry.key() - tag(10, 0, 0), 2, 10, QLatin1Char('0')),
             QRect(lastX + 1, 0, total, 0)});
        lastX += total;
    }
    ASSERT_GE(expected.size(), 3u);
    ASSERT_LT(expected.size(), 8u) << "most seconds have no room";
    expectCells(chart, expected);
}

TEST(TimeStrip, StopsAtTheFirstCellThatReachesThePriceStrip)
{
    Chart chart(600, 325);
    const int w = chart.m_timeCellWidth;
    chart.resize(50 + w * 2 - 1, chart.height());
    chart.add({{1, 2, 10, 40, 0, 0}, {3, 4, 10, 1, 0, 1}, {5, 6, 10, 40, 0, 2}});
    const auto texts = times(*chart.picture());
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(texts[0].text, QStringLiteral("10:00:00"));
}

TEST(TimeStrip, ShowsTheTimeOfDayAtTheExchange)
{
    Chart chart(600, 325);
    chart.addDeals({deal(1, 1, 2, 10, 50000, at(14, 59, 58))});
    EXPECT_EQ(times(*chart.picture()).at(0).text, QStringLiteral("14:59:58"));
}

TEST(TimeStrip, ASpanReachesFromTheFirstDealOfASecondToTheEndOfItsLast)
{
    Chart chart(600, 325);
    chart.add({{1, 2, 10, 9, 0, 0}, {3, 4, 10, 19, 0, 0}, {5, 6, 10, 29, 0, 4}});
    EXPECT_EQ(chart.m_timeSpanX.value(tag(10, 0, 0)), qMakePair(0, 300));
    EXPECT_EQ(chart.m_timeSpanX.value(tag(10, 0, 4)), qMakePair(310, 600));
}

// Overlays
// -----------------------------------------------------------------------------------------------------------

TEST(ChartOverlays, AreOfDealModeOnly)
{
    Chart chart(600, 325);
    chart.add({{1, 2, 10, 9}, {3, 4, 10, 19}, {5, 6, 10, 29}});
    chart.m_cursorSeq = 1;
    chart.m_detailSeq = 1;
    chart.m_selecting = true;
    chart.m_selectRect = QRect(10, 20, 100, 50);
    EXPECT_TRUE(chart.overlays()->commands().empty());
    chart.m_columnMode = false;
    EXPECT_FALSE(chart.overlays()->commands().empty());
}

TEST(ChartOverlays, TheCursorIsOutlinedOverTheWholeRow)
{
    Chart chart(600, 325);
    chart.add({{1, 2, 10, 9}, {3, 4, 10, 19}, {5, 6, 10, 29}});
    chart.m_columnMode = false;
    chart.m_cursorSeq = 1;
    const auto rects = chart.overlays()->all(PaintCommand::eRect);
    ASSERT_EQ(rects.size(), 1u);
    EXPECT_EQ(rects[0].rect, QRectF(300 - 190, 162 - 12, 190, 24));
    EXPECT_EQ(rects[0].pen.color(), colorOf(kMarket));
    EXPECT_EQ(rects[0].brush.style(), Qt::NoBrush);
}

TEST(ChartOverlays, ACursorThatIsNotInViewIsNotOutlined)
{
    Chart chart(600, 325);
    chart.add({{1, 2, 10, 9}, {3, 4, 10, 19}, {5, 6, 10, 29}});
    chart.m_columnMode = false;
    chart.m_cursorSeq = 3;
    EXPECT_TRUE(chart.overlays()->commands().empty());
    chart.m_cursorSeq = 1;
    chart.m_model->viewExtent = 0;
    EXPECT_TRUE(chart.overlays()->commands().empty());
    chart.m_model->viewExtent = 60;
    chart.m_dealRightX.insert(77, 100);
    chart.m_cursorSeq = 77;
    EXPECT_TRUE(chart.overlays()->commands().empty()) << "its data are gone";
}

TEST(ChartOverlays, TheSelectedRangeIsOutlined)
{
    Chart chart(600, 325);
    chart.m_columnMode = false;
    chart.m_selectRect = QRect(10, 20, 100, 50);
    EXPECT_TRUE(chart.overlays()->commands().empty());
    chart.m_selecting = true;
    const auto rects = chart.overlays()->all(PaintCommand::eRect);
    ASSERT_EQ(rects.size(), 1u);
    EXPECT_EQ(rects[0].rect, QRectF(10, 20, 100, 50));
    EXPECT_EQ(rects[0].pen.color(), colorOf("ic_clr_kline_graph_scale_border"));
    EXPECT_EQ(rects[0].pen.widthF(), 0);
}

TEST(ChartOverlays, AMouseMoveDoesNotDrawThePictureAgain)
{
    Chart chart(600, 325);
    chart.add({{1, 2, 10, 9}, {3, 4, 10, 19}, {5, 6, 10, 29}});
    chart.dealMode();
    chart.m_timeSpanX.clear();
    chart.move(QPoint(200, 100));
    chart.slotShowDealDetail();
    chart.grab();
    EXPECT_TRUE(chart.m_timeSpanX.isEmpty());
}
