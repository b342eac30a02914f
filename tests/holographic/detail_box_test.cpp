// The box that tells of the deal under the mouse.

#include "Chart.h"

using namespace testing_support;
using namespace Kel;

namespace {

const char* const kBoxGround = "kel_clr_deptch_holographic_deal_detail_bg";
const char* const kBoxLine = "kel_clr_deptch_holographic_deal_detail_line";
const char* const kText = "kel_clr_deptch_holographic_deal_detail_text";
const char* const kLight = "kel_clr_deptch_holographic_deal_detail_text_light";

class DetailBox : public testing::Test
{
protected:
    std::unique_ptr<PaintRecorder> box(int seq)
    {
        auto recorder = std::make_unique<PaintRecorder>(chart.width(), chart.height());
        QPainter painter(recorder.get());
        chart.m_detailSeq = seq;
        chart.drawDealDetail(painter);
        return recorder;
    }

    Chart chart{600, 325};
};

} // namespace

TEST_F(DetailBox, TellsTheDealAndBothOrders)
{
    chart.orders({order(5, 1, 10.02, 4250, at(9, 59, 0)), order(6, 2, 9.98, 99, at(9, 59, 0))});
    chart.add({{5, 6, 10, 55, 0, 1}});
    EXPECT_EQ(box(0)->texts(),
              (QStringList{QStringLiteral("逐笔成交#1    "), QStringLiteral("时  间:10:00:01"),
                           QStringLiteral("成交价:10.00"), QStringLiteral("成交量:55"),
                           QStringLiteral("委卖价:9.98"), QStringLiteral("委卖量:1"),
                           QStringLiteral("委买价:10.02"), QStringLiteral("委买量:42")}))
        << "99 shares are one hand, 4250 are 42";
}

TEST_F(DetailBox, UnknownOrdersLeaveTheirLabels)
{
    chart.add({{5, 6, 10, 55}});
    const QStringList texts = box(0)->texts();
    EXPECT_EQ(texts.mid(4), (QStringList{QStringLiteral("委卖价:"), QStringLiteral("委卖量:"),
                                         QStringLiteral("委买价:"), QStringLiteral("委买量:")}));
}

TEST_F(DetailBox, OrdersWithoutAPriceShowTheirName)
{
    chart.orders({order(5, 1, 0, 4200, at(9, 59, 0), 2), order(6, 2, 10, 4100, at(9, 59, 0), 4)});
    chart.add({{5, 6, 10, 55}});
    const auto picture = box(0);
    EXPECT_EQ(picture->text(QStringLiteral("委买价:市价")).color(), colorOf(kLight));
    EXPECT_EQ(picture->text(QStringLiteral("委卖价:本方最优")).color(), colorOf(kLight));
    EXPECT_EQ(picture->text(QStringLiteral("委买量:42")).color(), colorOf(kText));
    EXPECT_EQ(picture->text(QStringLiteral("委卖量:41")).color(), colorOf(kText));
}

TEST_F(DetailBox, OffersBeyondTheDealAreLight)
{
    chart.orders({order(5, 1, 10.02, 4200, at(9, 59, 0)), order(6, 2, 9.98, 4100, at(9, 59, 0)),
                  order(7, 1, 10, 4000, at(9, 59, 0)), order(8, 2, 10, 3900, at(9, 59, 0)),
                  order(9, 1, 9.97, 4000, at(9, 59, 0)), order(10, 2, 10.03, 3900, at(9, 59, 0))});
    chart.add({{5, 6, 10, 55}, {7, 8, 10, 55}, {9, 10, 10, 55}});
    EXPECT_EQ(box(0)->text(QStringLiteral("委卖价:9.98")).color(), colorOf(kLight));
    EXPECT_EQ(box(0)->text(QStringLiteral("委买价:10.02")).color(), colorOf(kLight));
    EXPECT_EQ(box(1)->text(QStringLiteral("委卖价:10.00")).color(), colorOf(kText));
    EXPECT_EQ(box(1)->text(QStringLiteral("委买价:10.00")).color(), colorOf(kText));
    EXPECT_EQ(box(2)->text(QStringLiteral("委卖价:10.03")).color(), colorOf(kText));
    EXPECT_EQ(box(2)->text(QStringLiteral("委买价:9.97")).color(), colorOf(kText));
}

TEST_F(DetailBox, ADealThatIsGoneHasNone)
{
    EXPECT_TRUE(box(0)->commands().empty());
    EXPECT_TRUE(box(-1)->commands().empty());
}

TEST_F(DetailBox, IsAsWideAsItsWidestText)
{
    chart.orders({order(5, 1, 12345678.25, 4200, at(9, 59, 0))});
    chart.add({{5, 6, 10, 55}});
    const QFontMetrics metrics(fontOf("fnt_graph_axis_text"), &chart);
    const QString title = QStringLiteral("逐笔成交#1    ");
    const int widest = std::max(metrics.boundingRect(title).width(),
                                metrics.horizontalAdvance(QStringLiteral("委买价:12345678.25")));
    const int lineHeight = metrics.boundingRect(title).height() + 6;
    const auto picture = box(0);
    const PaintCommand ground = picture->fills().at(0);
    EXPECT_EQ(ground.rect.toRect().size(), QSize(widest + 20, 7 * lineHeight + 24));
    EXPECT_EQ(ground.color(), colorOf(kBoxGround));
    const PaintCommand outline = picture->all(PaintCommand::eRect).at(0);
    EXPECT_EQ(outline.rect, ground.rect);
    EXPECT_EQ(outline.pen.color(), colorOf(kBoxLine));
    EXPECT_EQ(outline.pen.widthF(), 0);
}

TEST_F(DetailBox, HasATitleRowAndLinesThatOverlapByAPixel)
{
    chart.add({{5, 6, 10, 55, 0, 0}});
    chart.m_hoverPos = QPoint(100, 120);
    const auto picture = box(0);
    const QRect rect = picture->fills().at(0).rect.toRect();
    EXPECT_EQ(rect.topLeft(), QPoint(110, 100));
    const QRect title(rect.x(), rect.y(), rect.width(), 24);
    EXPECT_TRUE(picture->text(QStringLiteral("逐笔成交#1    ")).standsIn(title, Qt::AlignCenter));
    EXPECT_EQ(picture->lineCommands().at(0).line, QLineF(title.bottomLeft(), title.bottomRight()));
    EXPECT_EQ(picture->lineCommands().at(0).color(), colorOf(kBoxLine));
    const int lineHeight = (rect.height() - 24) / 7;
    QRect line(rect.x() + 3, title.bottom() + 4, rect.width(), lineHeight);
    for (const QString& text :
         {QStringLiteral("时  间:10:00:00"), QStringLiteral("成交价:10.00"), QStringLiteral("成交量:55"),
          QStringLiteral("委卖价:"), QStringLiteral("委卖量:"), QStringLiteral("委买价:"),
          QStringLiteral("委买量:")}) {
        EXPECT_TRUE(picture->text(text).standsIn(line, Qt::AlignLeft | Qt::AlignVCenter))
            << text.toStdString();
        line.moveTop(line.bottom());
    }
}

TEST_F(DetailBox, StandsBesideTheMouseAndWithinTheChart)
{
    chart.m_hoverPos = QPoint(50, 100);
    EXPECT_EQ(chart.detailRect(90, 20), QRect(60, 80, 110, 164));
    chart.m_hoverPos = QPoint(50, 5);
    EXPECT_EQ(chart.detailRect(90, 20).top(), 0);
    chart.m_hoverPos = QPoint(640, chart.height() - 2);
    EXPECT_EQ(chart.detailRect(90, 20).topLeft(), QPoint(650 - 21 - 50 - 90, chart.height() - 164));
    EXPECT_LT(chart.detailRect(90, 20).right(), 600) << "left of the price strip";
}

TEST_F(DetailBox, StandsAtZeroOnAChartThatIsSmallerThanIt)
{
    chart.m_hoverPos = QPoint(50, 100);
    EXPECT_EQ(chart.detailRect(1000, 20).left(), 0);
    EXPECT_EQ(chart.detailRect(90, 200).top(), 0);
}

TEST_F(DetailBox, NumbersOfDealsAreCountedFromOne)
{
    chart.fill(12);
    EXPECT_EQ(box(11)->texts().at(0), QStringLiteral("逐笔成交#12   "));
}
