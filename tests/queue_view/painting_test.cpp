// What the picture is made of, by recorded paint commands.

#include "QueuePanel.h"

#include "platform/resources/CUiResource.h"
#include "queue_view/LotTexts.h"

#include <gmock/gmock.h>

#include <limits>

using namespace testing_support;
using namespace Kel;

namespace {

constexpr int kRight = Qt::AlignRight | Qt::AlignVCenter;

QColor theme(const char* key)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QLatin1String(key));
}

class Painting : public testing::Test
{
protected:
    Painting() { prepareServices(); }

    QueuePanel panel{800, 600};
};

TEST_F(Painting, OfAnEmptyBookIsTheGroundAndTheLineBetweenTheSides)
{
    const PaintRecording picture = panel.picture();
    EXPECT_TRUE(picture.texts().isEmpty());
    ASSERT_EQ(picture.fills().size(), 1U);
    EXPECT_EQ(picture.fills()[0].rect, QRectF(0, 0, 800, 600));
    EXPECT_EQ(picture.fills()[0].color(), theme("ic_clr_graph_kline_bg"));
    ASSERT_EQ(picture.lineCommands().size(), 1U);
    EXPECT_EQ(picture.lineCommands()[0].line, QLineF(400, 0, 400, 600));
    EXPECT_TRUE(picture.lineCommands()[0].clip.isNull());
}

TEST_F(Painting, KeepsOffTheUpperAndLowerEdgeAndTheBar)
{
    panel.setRow(OQT_SELL, 0, sellOf(1, {1}));
    EXPECT_EQ(panel.picture().text(QStringLiteral("1")).clip, QRectF(0, 2, 800, 596));
    panel.resizeTo(800, 30);
    ASSERT_FALSE(panel.m_scrollBar->isHidden());
    EXPECT_EQ(panel.picture().text(QStringLiteral("卖一")).clip, QRectF(0, 2, 794, 26));
}

TEST_F(Painting, WithoutRoomForACellStopsAtTheFirstLevelThatHasAPrice)
{
    panel.updateQueueMode(eQueueDetailVertical);
    panel.resizeTo(320, 400);
    panel.setRow(OQT_SELL, 0, sellOf(1, {1}));
    const PaintRecording picture = panel.picture();
    EXPECT_TRUE(picture.texts().isEmpty());
    EXPECT_EQ(picture.lineCommands().size(), 1U) << "the line between the sides was drawn before";
    panel.updateQueueMode(eQueueDetailHorizontal);
    panel.resizeTo(321, 400);
    EXPECT_TRUE(panel.picture().lineCommands().empty()) << "no centre line behind the stop";
}

TEST_F(Painting, SkipsALevelOfWhichBothSidesAreMissing)
{
    panel.setRow(OQT_SELL, 1, sellOf(2, {1}));
    panel.setRow(OQT_BUY, 1, buyOf(2, {1}));
    EXPECT_TRUE(panel.picture()
                    .text(QStringLiteral("卖二"))
                    .standsIn(QRect(5, 10, 40, 20), Qt::AlignLeft | Qt::AlignVCenter));
    EXPECT_EQ(panel.m_rowCount, 1);
}

TEST_F(Painting, DrawsSeparatorsBetweenLevelsAndTheCentreOverThem)
{
    panel.updateQueueMode(eQueueDetailHorizontal);
    panel.updateQueueMode(eQueueFiveLevels);
    for (int i = 0; i < 10; ++i) {
        panel.setRow(OQT_SELL, i, sellOf(i + 1, {1}));
        panel.setRow(OQT_BUY, i, buyOf(i + 1, {1}));
    }
    const PaintRecording picture = panel.picture();
    std::vector<int> dashed;
    for (const PaintCommand& line : picture.lineCommands()) {
        if (line.pen.style() == Qt::CustomDashLine && line.line.dx() > 0)
            dashed.push_back(static_cast<int>(line.line.y1()));
    }
    EXPECT_THAT(dashed, testing::ElementsAre(85, 125, 65, 145, 45, 165, 25, 185)) << "none at the last level";
    const auto lines = picture.lineCommands();
    EXPECT_EQ(lines[lines.size() - 2].line, QLineF(0, 105, 800, 105));
    EXPECT_EQ(lines[lines.size() - 2].pen.style(), Qt::SolidLine);
    EXPECT_EQ(lines.back().line, QLineF(276, 0, 276, 600));
    EXPECT_EQ(lines.back().pen.style(), Qt::CustomDashLine);
}

TEST_F(Painting, MarksATrackedNumberBeforeAMarkedVolume)
{
    panel.setRow(OQT_SELL, 0, sellOf(1, {70, 70, 30}));
    panel.setVolumeColor(70, 1);
    panel.setTrackOrder(2, 3);
    const auto marked = panel.picture().textCommands(QStringLiteral("70"));
    ASSERT_EQ(marked.size(), 2U);
    EXPECT_EQ(marked[0].color(), theme("ic_clr_mark_purple"));
    EXPECT_EQ(marked[1].color(), theme("ic_clr_mark_yellow"));
    EXPECT_EQ(panel.picture().text(QStringLiteral("30")).color(),
              theme("kel_clr_deptch_order_queue_price_fall"));
}

TEST_F(Painting, TracksANumberBeyond32BitsByAllItsBits)
{
    panel.setRow(OQT_SELL, 0, "sell 10 level=1; 4294967298 70 normal; 2 71 normal");
    panel.setTrackOrder(2, 3);
    EXPECT_NE(panel.picture().text(QStringLiteral("70")).color(), theme("ic_clr_mark_yellow"));
    EXPECT_EQ(panel.picture().text(QStringLiteral("71")).color(), theme("ic_clr_mark_yellow"));
}

TEST_F(Painting, OfDotsIsMarkedByANumberAndNeverByItsVolume)
{
    panel.setRow(OQT_SELL, 0, sellOf(1, std::vector<int>(60, 12)));
    panel.setVolumeColor(12, 1);
    EXPECT_EQ(panel.picture().text(QStringLiteral("...")).color(),
              theme("kel_clr_deptch_order_queue_price_fall"));
    panel.setTrackOrder(51, 3);
    EXPECT_EQ(panel.picture().text(QStringLiteral("...")).color(), theme("ic_clr_mark_yellow"));
}

TEST_F(Painting, OfACellStandsAtItsRightOnItsGround)
{
    panel.setRow(OQT_BUY, 0, "buy 10 level=1; 1 1500 big");
    const PaintRecording picture = panel.picture();
    EXPECT_TRUE(picture.text(QStringLiteral("1500")).standsIn(QRect(405, 30, 50, 20), kRight));
    const auto grounds = picture.fillsOf(QRectF(408, 31, 48, 18));
    ASSERT_EQ(grounds.size(), 1U);
    EXPECT_EQ(grounds[0].color(), theme("ic_clr_depth_queue_big_order_buy"));
}

TEST_F(Painting, OfThePartDealtCellComesLastWithItsCallOut)
{
    panel.setRow(OQT_SELL, 0, "sell 10 level=1 hasPart; 1 44 part 56; 2 20 normal");
    const PaintRecording picture = panel.picture();
    EXPECT_EQ(picture.count(QStringLiteral("44")), 2) << "once in its turn, once over its ground";
    ASSERT_EQ(picture.paths().size(), 2U);
    const PaintCommand fill = picture.paths()[0];
    EXPECT_EQ(fill.color(), theme("ic_clr_depth_queue_part_deal"));
    EXPECT_EQ(picture.paths()[1].pen.widthF(), 2);
    EXPECT_EQ(picture.paths()[1].color(), theme("ic_clr_depth_queue_part_deal_back"));
    const PaintCommand last = picture.textCommands(QStringLiteral("44")).back();
    EXPECT_EQ(last.color(), theme("ic_clr_graph_gray"));
    const int dx = 50 - QFontMetrics(last.font).horizontalAdvance(QStringLiteral("44"));
    const QRectF ground(5 + dx, 31, 50 - dx, 18);
    ASSERT_EQ(picture.fillsOf(ground).size(), 1U);
    EXPECT_EQ(picture.fillsOf(ground)[0].color(), theme("ic_clr_depth_queue_blue"));
    EXPECT_EQ(QPointF(fill.path.elementAt(0)), QPointF(55, 40)) << "the arrow's tip";
}

TEST_F(Painting, OfThePartDealtCellFoldsToTheLeftByItsIndex)
{
    // 8 cells a row. The order with index 7 stands in column 5 because the level begins at index 2.
    const std::string orders = "; 1 1 normal; 2 1 normal; 3 1 normal; 4 1 normal; 5 1 normal; 6 1 normal; "
                               "7 1 normal; 8 44 part 6";
    panel.resizeTo(820, 600);
    panel.setRow(OQT_SELL, 0, "sell 10 level=1 hasPart start=2" + orders);
    const PaintCommand shape = panel.picture().paths()[0];
    EXPECT_LT(shape.rect.left(), QPointF(shape.path.elementAt(0)).x());
}

TEST_F(Painting, OfAPriceUsesTheLastClose)
{
    panel.setRow(OQT_SELL, 0, sellOf(1, {1}));
    const auto colorAt = [&](double lastClose) {
        panel.m_lastClose = lastClose;
        return panel.picture().text(QStringLiteral("10.01")).color();
    };
    EXPECT_EQ(colorAt(10.00), theme("ic_clr_entrust_text_rise"));
    EXPECT_EQ(colorAt(10.02), theme("ic_clr_entrust_text_fall"));
    EXPECT_EQ(colorAt(10.01), theme("ic_clr_entrust_default_text"));
    EXPECT_EQ(colorAt(10.010009), theme("ic_clr_entrust_default_text"));
    EXPECT_EQ(colorAt(std::numeric_limits<double>::max()), theme("ic_clr_entrust_text_fall"));
    EXPECT_EQ(colorAt(std::numeric_limits<double>::infinity()), theme("ic_clr_entrust_text_rise"))
        << "no instrument, so the last close is 0";
}

TEST_F(Painting, SurvivesEveryHostileRowInEveryMode)
{
    const double inf = std::numeric_limits<double>::infinity();
    for (const double unknown : {inf, -inf, std::numeric_limits<double>::quiet_NaN(), 1e300, -5.0, 700.0}) {
        for (const int start : {-7, 0, 3, 500, std::numeric_limits<int>::max()}) {
            const OrderQueueDataPtr row =
                parseLevelPtr("sell 10 level=1 hasPart; 1 5 part 3; 2 0 normal; 3 9 part 0; 4 1 dealt");
            row->m_unknownVol = unknown;
            row->m_startIndex = start;
            row->m_levelVol = unknown;
            row->m_avgVol = unknown;
            row->m_orders[1].m_vol = unknown;
            row->m_count = start;
            panel.setRow(OQT_SELL, 0, row);
            for (int style = 0; style < 14; ++style) {
                panel.setQueueFull(style % 2 == 0);
                panel.updateQueueMode(static_cast<EQueueMode>(style));
                EXPECT_FALSE(panel.picture().fills().empty());
            }
        }
    }
}

TEST_F(Painting, FollowsTheThemeAtOnce)
{
    auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    const QRgb dark = panel.m_pixmap.toImage().pixel(10, 10);
    const QString sheet = panel.m_scrollBar->styleSheet();
    resource.setTheme(QStringLiteral("light"));
    EXPECT_NE(panel.m_pixmap.toImage().pixel(10, 10), dark);
    EXPECT_NE(panel.m_scrollBar->styleSheet(), sheet);
    resource.setTheme(QStringLiteral("dark"));
    EXPECT_EQ(panel.m_pixmap.toImage().pixel(10, 10), dark);
}

TEST_F(Painting, IsNotEnteredTwice)
{
    panel.setRow(OQT_SELL, 0, sellOf(1, {1}));
    QPainter other(&panel.m_pixmap);
    panel.drawGraph();
    EXPECT_EQ(panel.m_rowCount, 0) << "the pixmap is being painted by somebody else";
    other.end();
    panel.drawGraph();
    EXPECT_EQ(panel.m_rowCount, 2);
}

/// A panel on a screen of twice the resolution.
class FinePanel : public QueuePanel
{
protected:
    int metric(PaintDeviceMetric which) const override
    {
        if (which == PdmDevicePixelRatio)
            return 2;
        if (which == PdmDevicePixelRatioScaled)
            return static_cast<int>(2 * devicePixelRatioFScale());
        return QueuePanel::metric(which);
    }
};

TEST(PaintingOnAFineScreen, HasAPixmapOfItsResolutionAndTheSameGeometry)
{
    FinePanel panel;
    panel.resizeTo(800, 600);
    EXPECT_EQ(panel.m_pixmap.devicePixelRatioF(), 2.0);
    EXPECT_EQ(panel.m_pixmap.size(), QSize(1600, 1200));
    panel.setRow(OQT_SELL, 0, sellOf(1, {7}));
    const auto cells = panel.picture().textCommands(QStringLiteral("7"));
    ASSERT_EQ(cells.size(), 2U) << "the level's volume and its order";
    EXPECT_TRUE(cells[1].standsIn(QRect(5, 30, 50, 20), kRight));
}

TEST(LotTexts, StandWhereAPlainTextStands)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    const QRect box(3, 4, 50, 20);
    LotTexts texts;
    for (const int size : {10, 12, 13, 16}) {
        font.setPixelSize(size);
        for (const int lots : {1, 77, 1234, 2147483647}) {
            PaintRecorder recorder(60, 30);
            QPainter painter(&recorder);
            painter.setFont(font);
            texts.draw(painter, font, box, lots);
            painter.end();
            EXPECT_TRUE(recorder.text(QString::number(lots)).standsIn(box, kRight)) << size << " " << lots;
        }
    }
}

TEST(LotTexts, LookLikeAPlainText)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(13);
    QImage plain(60, 30, QImage::Format_RGB32);
    plain.fill(Qt::black);
    QImage kept = plain;
    const QRect box(3, 4, 50, 20);
    QPainter plainPainter(&plain);
    plainPainter.setFont(font);
    plainPainter.setPen(Qt::red);
    plainPainter.drawText(box, kRight, QStringLiteral("1234"));
    plainPainter.end();
    LotTexts texts;
    QPainter keptPainter(&kept);
    keptPainter.setFont(font);
    keptPainter.setPen(Qt::white);
    texts.draw(keptPainter, font, box, 1234);
    keptPainter.end();
    kept.fill(Qt::black);
    keptPainter.begin(&kept);
    keptPainter.setFont(font);
    keptPainter.setPen(Qt::red);
    texts.draw(keptPainter, font, box, 1234);
    keptPainter.end();
    EXPECT_EQ(kept, plain) << "the kept layout takes the pen of the moment";
}

} // namespace
