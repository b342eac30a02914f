// The rows of the deal list's picture.

#include "TickPanels.h"

using namespace testing_support;
using namespace Kel;

namespace {

constexpr int kTime = 2; // offset of the first column: the margin
const QColor kHighlight(0, 0, 128);

const char* const kRise = "ic_clr_entrust_text_rise";
const char* const kFall = "ic_clr_entrust_text_fall";
const char* const kDefault = "ic_clr_entrust_default_text";

} // namespace

TEST(DealPicture, OfNoRowsIsGroundAndSeparators)
{
    DealPanel panel(800, 94);
    const auto picture = panel.picture();
    EXPECT_EQ(panel.m_layout.groupCount, 3);
    EXPECT_TRUE(picture->texts().isEmpty());
    EXPECT_EQ(picture->fillsOf(QRectF(0, 0, 800, 94)).size(), 1u);
    EXPECT_EQ(picture->fillsOf(QRectF(0, 0, 800, 94))[0].color(), colorOf("ic_clr_graph_kline_bg"));
    const auto lines = picture->lineCommands();
    ASSERT_EQ(lines.size(), 2u);
    for (int group = 1; group <= 2; ++group) {
        const int x = group * panel.m_layout.groupWidth - 2 + 2 - 1;
        const PaintCommand& line = lines[static_cast<std::size_t>(group - 1)];
        EXPECT_EQ(line.line, QLineF(x, 2, x, 90));
        EXPECT_EQ(line.color(), colorOf("ic_clr_realtime_axis_line"));
    }
    EXPECT_TRUE(panel.m_scrollBar->isHidden());
}

TEST(DealPicture, IsClippedAtTheUpperAndLowerEdge)
{
    DealPanel panel;
    panel.fill(2);
    EXPECT_EQ(panel.picture()->text(QStringLiteral("10:00:01")).clip, QRectF(0, 2, 540, 90));
}

TEST(DealPicture, TheFirstColumnShowsTheTimeOfASecondsFirstDealAndTheNumberOfTheOthers)
{
    DealPanel panel;
    panel.deals({deal(1, 1, 2, 10, 5500, at(10, 0, 1)), deal(2, 3, 4, 10, 5500, at(10, 0, 1)),
                 deal(3, 5, 6, 10, 5500, at(10, 0, 1)), deal(4, 7, 8, 10, 5500, at(10, 0, 2))});
    const auto picture = panel.picture();
    const QString expected[] = {QStringLiteral("10:00:01"), QStringLiteral("2"), QStringLiteral("3"),
                                QStringLiteral("10:00:02")};
    for (int place = 0; place < 4; ++place) {
        const PaintCommand text = picture->text(expected[place]);
        EXPECT_TRUE(text.standsIn(panel.cell(place, kTime, 62), kRight)) << place << ' ' << text;
        const bool isTime = place == 0 || place == 3;
        EXPECT_EQ(text.color(),
                  colorOf(isTime ? "ic_clr_modelgroup_transaction_index" : "ic_clr_entrust_amount"));
    }
}

TEST(DealPicture, TheFirstRowOfTheViewShowsItsTimeAndTheNextOneCountsOn)
{
    DealPanel panel;
    Batch batch;
    for (int number = 1; number <= 30; ++number)
        batch.push_back(deal(number, number * 2, number * 2 + 1, 10, 9900, at(10, 0, 1)));
    panel.deals(batch);
    panel.m_scrollBar->setValue(6);
    const auto picture = panel.picture();
    EXPECT_TRUE(picture->text(QStringLiteral("10:00:01")).standsIn(panel.cell(0, kTime, 62), kRight));
    EXPECT_TRUE(picture->text(QStringLiteral("8")).standsIn(panel.cell(1, kTime, 62), kRight));
    EXPECT_TRUE(picture->text(QStringLiteral("12")).standsIn(panel.cell(5, kTime, 62), kRight))
        << "numbering goes on across a column boundary";
    EXPECT_EQ(picture->count(QStringLiteral("7")), 0);
}

TEST(DealPicture, PriceIsColouredAgainstThePreviousClose)
{
    DealPanel panel;
    panel.deals({deal(1, 1, 2, 10.01, 5500, at(10, 0, 1)), deal(2, 3, 4, 9.99, 5500, at(10, 0, 2)),
                 deal(3, 5, 6, 10, 5500, at(10, 0, 3))});
    const auto picture = panel.picture();
    const int x = kTime + (panel.m_layout.priceArea - 60) / 2 + 62;
    const char* const keys[] = {kRise, kFall, kDefault};
    const QString prices[] = {QStringLiteral("10.01"), QStringLiteral("9.99"), QStringLiteral("10.00")};
    for (int place = 0; place < 3; ++place) {
        const PaintCommand text = picture->text(prices[place]);
        EXPECT_TRUE(text.standsIn(panel.cell(place, x, 60), kRight)) << place << ' ' << text;
        EXPECT_EQ(text.color(), colorOf(keys[place])) << place;
    }
}

TEST(DealPicture, PriceColourKnowsTheTolerance)
{
    DealPanel panel;
    EXPECT_EQ(*panel.getPriceColor(10.000005, 10), colorOf(kDefault));
    EXPECT_EQ(*panel.getPriceColor(9.999995, 10), colorOf(kDefault));
    EXPECT_EQ(*panel.getPriceColor(10.00002, 10), colorOf(kRise));
    EXPECT_EQ(*panel.getPriceColor(9.99998, 10), colorOf(kFall));
}

TEST(DealPicture, AnArrowShowsARiseOrFallOfThePrice)
{
    DealPanel panel;
    panel.deals({deal(1, 1, 2, 10, 5500, at(10, 0, 1)), deal(2, 3, 4, 10.01, 5500, at(10, 0, 2)),
                 deal(3, 5, 6, 10.01, 5500, at(10, 0, 3)), deal(4, 7, 8, 10, 5500, at(10, 0, 4))});
    const auto arrows = panel.picture()->all(PaintCommand::ePixmap);
    ASSERT_EQ(arrows.size(), 2u);
    const int x = kTime + (panel.m_layout.priceArea - 60) / 2 + 62 + 60 + 2;
    EXPECT_EQ(arrows[0].rect.topLeft(), panel.cell(1, x, 8).topLeft() + QPointF(0, 4));
    EXPECT_EQ(arrows[1].rect.topLeft(), panel.cell(3, x, 8).topLeft() + QPointF(0, 4));
    EXPECT_EQ(arrows[0].rect.size(), QSizeF(panel.m_arrowUp.size() / panel.m_arrowUp.devicePixelRatio()));
}

TEST(DealPicture, TheArrowOfARisePointsUpAndThatOfAFallDown)
{
    DealPanel panel;
    panel.deals({deal(1, 1, 2, 10, 5500, at(10, 0, 1)), deal(2, 3, 4, 10.01, 5500, at(10, 0, 2)),
                 deal(3, 5, 6, 10, 5500, at(10, 0, 3))});
    const auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    const QColor ground = colorOf("ic_clr_graph_kline_bg");
    const auto onGround = [&](const char* key) {
        const QPixmap arrow = resource.getPixmap(QLatin1String(key), 1);
        QPixmap pixmap(arrow.size());
        pixmap.fill(ground);
        QPainter(&pixmap).drawPixmap(0, 0, arrow);
        return pixmap.toImage();
    };
    const QImage up = onGround("ic_img_arrow_up");
    const QImage down = onGround("ic_img_arrow_down");
    ASSERT_NE(up, down);
    const QImage picture = panel.pictureAsImage();
    const int x = kTime + (panel.m_layout.priceArea - 60) / 2 + 62 + 60 + 2;
    const auto arrowOf = [&](int place) {
        return picture.copy(QRect(panel.cell(place, x, 8).topLeft() + QPoint(0, 4), up.size()));
    };
    EXPECT_EQ(arrowOf(1), up);
    EXPECT_EQ(arrowOf(2), down);
}

TEST(DealPicture, LotsAreRiseOrFallAndMakeRoomForTheBar)
{
    DealPanel panel;
    panel.deals({deal(1, 1, 2, 10, 5500, at(10, 0, 1), 1), deal(2, 3, 4, 10, 6600, at(10, 0, 2), 2)});
    const int x = kTime + (panel.m_layout.priceArea - 60) / 2 + 62 + 60;
    auto picture = panel.picture();
    EXPECT_TRUE(picture->text(QStringLiteral("55")).standsIn(panel.cell(0, x, 42), kRight));
    EXPECT_EQ(picture->text(QStringLiteral("55")).color(), colorOf(kRise));
    EXPECT_EQ(picture->text(QStringLiteral("66")).color(), colorOf(kFall));
    panel.fill(30, 100);
    panel.m_scrollBar->setValue(0);
    picture = panel.picture();
    EXPECT_TRUE(picture->text(QStringLiteral("55")).standsIn(panel.cell(0, x, 42 - 6), kRight));
}

TEST(DealPicture, OnlyLotsThatEqualTheMarkAreMarked)
{
    DealPanel panel;
    panel.deals({deal(1, 1, 2, 10, 5500, at(10, 0, 1), 1), deal(2, 3, 4, 10, 5600, at(10, 0, 2), 1)});
    const char* const keys[] = {"ic_clr_mark_light_blue", "ic_clr_mark_purple", "ic_clr_mark_dark_blue",
                                "ic_clr_mark_yellow"};
    panel.m_filterParam.mark = 55;
    for (int color = 0; color < 4; ++color) {
        panel.m_filterParam.color = color;
        EXPECT_EQ(panel.picture()->text(QStringLiteral("55")).color(), colorOf(keys[color])) << color;
        EXPECT_EQ(panel.picture()->text(QStringLiteral("56")).color(), colorOf(kRise));
    }
    for (const int color : {-1, 4, 1000}) {
        panel.m_filterParam.color = color;
        EXPECT_EQ(*panel.getVolumeColor(), colorOf(kDefault));
    }
}

TEST(DealPicture, LotsAboveAThousandHaveTheFontOfBigNumbers)
{
    DealPanel panel;
    panel.deals({deal(1, 1, 2, 10, 100000, at(10, 0, 1)), deal(2, 3, 4, 10, 100100, at(10, 0, 2))});
    const auto picture = panel.picture();
    const QFont big = *themeFont("ic_fnt_index_modulegroup_transaction_big_number");
    const QFont normal = *themeFont("ic_fnt_index_modulegroup_transaction");
    ASSERT_NE(big, normal);
    EXPECT_EQ(picture->textCommands(QStringLiteral("1000"))[0].font.pixelSize(), normal.pixelSize());
    EXPECT_EQ(picture->textCommands(QStringLiteral("1001"))[0].font.pixelSize(), big.pixelSize());
}

TEST(DealPicture, LotsThatAreTooWideAreWrittenNarrowerAndWhole)
{
    DealPanel panel;
    panel.deals({deal(1, 1, 2, 10, 99999999900, at(10, 0, 1))});
    const QString lots = QStringLiteral("999999999");
    ASSERT_GT(
        QFontMetrics(*themeFont("ic_fnt_index_modulegroup_transaction_big_number")).horizontalAdvance(lots),
        42);
    const int x = kTime + (panel.m_layout.priceArea - 60) / 2 + 62 + 60;
    const auto picture = panel.picture();
    ASSERT_EQ(picture->count(lots), 3) << "and in both halves of the strip";
    EXPECT_TRUE(picture->text(lots).standsIn(panel.cell(0, x, 42), kRight));
    EXPECT_LE(QFontMetrics(picture->text(lots).font).horizontalAdvance(lots), 43);
}

TEST(DealPicture, ADashedLineDividesMinutesButNotAboveTheFirstRow)
{
    DealPanel panel;
    panel.deals({deal(1, 1, 2, 10, 5500, at(10, 0, 59)), deal(2, 3, 4, 10, 5500, at(10, 1, 0)),
                 deal(3, 5, 6, 10, 5500, at(10, 1, 1))});
    const auto dashed = [&] {
        std::vector<PaintCommand> found;
        for (const PaintCommand& line : panel.picture()->lineCommands()) {
            if (line.pen.style() == Qt::DashLine)
                found.push_back(line);
        }
        return found;
    };
    ASSERT_EQ(dashed().size(), 1u);
    const int y = panel.m_layout.lineTop(1);
    EXPECT_EQ(dashed()[0].line, QLineF(1, y, panel.m_layout.groupWidth - 3, y));
    EXPECT_EQ(dashed()[0].color(), colorOf("ic_clr_modelgroup_transaction_splitter"));
    panel.m_firstIndex = 1;
    EXPECT_TRUE(dashed().empty());
}

TEST(DealPicture, TheActiveSideIsFilledInTheStrip)
{
    DealPanel panel;
    panel.deals({deal(1, 1, 2, 10, 5500, at(10, 0, 1), 1), deal(2, 3, 4, 10, 5500, at(10, 0, 2), 2),
                 deal(3, 5, 6, 10, 5500, at(9, 25, 0))});
    const auto fills = panel.picture()->fillsOf(QColor(Qt::darkBlue));
    ASSERT_EQ(fills.size(), 2u);
    const int x = kTime + (panel.m_layout.priceArea - 60) / 2 + 62 + 60 + 42;
    EXPECT_EQ(fills[0].rect, QRectF(x + 1 + 46, panel.m_layout.lineTop(1) + 1, 43, 17));
    EXPECT_EQ(fills[1].rect, QRectF(x + 2, panel.m_layout.lineTop(2) + 1, 43, 17));
}

TEST(DealPicture, HighlightedRowsHaveADarkGroundUpToTheStrip)
{
    DealPanel panel;
    panel.fill(6);
    panel.m_highlightRange = {1, 2};
    const auto picture = panel.picture();
    for (int place = 0; place < 6; ++place) {
        const QRectF ground(0, panel.m_layout.lineTop(place), panel.stripOffset(), 18);
        const auto fills = picture->fillsOf(ground);
        ASSERT_EQ(fills.size(), place == 1 || place == 2 ? 1u : 0u) << place;
        EXPECT_TRUE(fills.empty() || fills[0].color() == kHighlight);
    }
    EXPECT_EQ(panel.stripOffset(), (panel.m_layout.priceArea + 60) / 2 + 2 + 42 + 62);
}

namespace {

/// A panel that can be moved to a screen of another resolution.
class MovingPanel : public DealPanel
{
public:
    int ratio = 1;
    using CDepthTransactionWidget::m_buffer;

protected:
    int metric(PaintDeviceMetric which) const override
    {
        if (which == PdmDevicePixelRatio)
            return ratio;
        if (which == PdmDevicePixelRatioScaled)
            return static_cast<int>(ratio * devicePixelRatioFScale());
        return DealPanel::metric(which);
    }
};

} // namespace

TEST(DealPicture, IsDrawnAnewOnAScreenOfAnotherResolution)
{
    MovingPanel panel;
    panel.fill(8);
    EXPECT_EQ(panel.m_buffer.size(), QSize(540, 94));
    for (const int ratio : {2, 1}) {
        panel.ratio = ratio;
        panel.grab();
        EXPECT_EQ(panel.m_buffer.devicePixelRatioF(), ratio);
        EXPECT_EQ(panel.m_buffer.size(), QSize(540, 94) * ratio);
        EXPECT_EQ(panel.m_arrowUp.devicePixelRatioF(), ratio);
        const QImage image = panel.m_buffer.toImage();
        EXPECT_EQ(image.pixelColor(image.width() - 20, 0), colorOf("ic_clr_graph_kline_bg"));
        QSet<QRgb> colors;
        for (int x = 0; x < image.width() / 2; ++x)
            colors.insert(image.pixel(x, panel.m_layout.rowRect(0).center().y() * ratio));
        EXPECT_GT(colors.size(), 1) << "the rows are drawn";
    }
}

TEST(DealPicture, ConciseStyleTakesItsOwnColours)
{
    CConfig config;
    config.setConciseStyle(true);
    setConfig(&config);
    {
        DealPanel panel;
        panel.deals({deal(1, 1, 2, 10.01, 5500, at(10, 0, 1), 2), deal(2, 3, 4, 10, 5500, at(10, 0, 1), 1)});
        const auto picture = panel.picture();
        EXPECT_EQ(picture->text(QStringLiteral("10:00:01")).color(),
                  colorOf("ic_clr_concise_modelgroup_transaction_index"));
        EXPECT_EQ(picture->text(QStringLiteral("2")).color(), colorOf("ic_clr_concise_entrust_amount"));
        EXPECT_EQ(picture->text(QStringLiteral("10.01")).color(),
                  colorOf("ic_clr_concise_entrust_text_rise"));
        EXPECT_EQ(picture->text(QStringLiteral("10.00")).color(),
                  colorOf("ic_clr_concise_entrust_default_text"));
        EXPECT_EQ(picture->text(QStringLiteral("55")).color(), colorOf("ic_clr_concise_entrust_text_fall"));
    }
    setConfig(nullptr);
}

TEST(DealPicture, FollowsTheTheme)
{
    DealPanel panel;
    panel.fill(3);
    auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    const QImage dark = panel.grab().toImage();
    resource.setTheme(QStringLiteral("light"));
    EXPECT_EQ(panel.grab().toImage().pixelColor(3, 0), colorOf("ic_clr_graph_kline_bg"));
    EXPECT_NE(panel.grab().toImage(), dark);
    resource.setTheme(QStringLiteral("dark"));
    EXPECT_EQ(panel.grab().toImage(), dark);
}

TEST(DealPicture, OnALightGroundTheStripAndTheHighlightAreLightAsWell)
{
    auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    resource.setTheme(QStringLiteral("light"));
    DealPanel panel;
    panel.deals({deal(1, 1, 2, 10, 5500, at(10, 0, 1), 1)});
    panel.m_highlightRange = {0, 0};
    const auto picture = panel.picture();
    EXPECT_EQ(picture->fillsOf(colorOf("kel_clr_deptch_holographic_deal_active_deal_bg")).size(), 1u);
    EXPECT_EQ(picture->fillsOf(colorOf("kel_clr_deptch_holographic_deal_highlight_bg")).size(), 1u);
    EXPECT_TRUE(picture->fillsOf(kHighlight).empty());
    resource.setTheme(QStringLiteral("dark"));
}
