// The tip of the deal list.

#include "TickPanels.h"

#include <QHelpEvent>

using namespace testing_support;
using namespace Kel;

namespace {

class DealTip : public testing::Test
{
protected:
    void toolTipAt(const QPoint& point)
    {
        QMouseEvent move(QEvent::MouseMove, point, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&panel, &move);
        QHelpEvent help(QEvent::ToolTip, point, panel.mapToGlobal(point));
        QApplication::sendEvent(&panel, &help);
    }

    std::unique_ptr<PaintRecorder> tip(int row)
    {
        auto recorder = std::make_unique<PaintRecorder>(panel.width(), panel.height());
        QPainter painter(recorder.get());
        panel.drawTip(painter, row);
        return recorder;
    }

    DealPanel panel{540, 400};
};

const char* const kText = "kel_clr_deptch_holographic_deal_detail_text";
const char* const kLight = "kel_clr_deptch_holographic_deal_detail_text_light";

} // namespace

TEST_F(DealTip, APauseOverARowShowsItsHalfOfTheStrip)
{
    panel.fill(8);
    const int middle = panel.stripOffset() + 46;
    toolTipAt(QPoint(middle, panel.m_layout.lineTop(0) + 5));
    EXPECT_EQ(panel.m_tipSide, 0);
    toolTipAt(QPoint(middle + 1, panel.m_layout.lineTop(0) + 5));
    EXPECT_EQ(panel.m_tipSide, 1);
}

TEST_F(DealTip, APauseBesideTheRowsChangesNothing)
{
    panel.fill(1);
    toolTipAt(panel.middleOf(5));
    EXPECT_EQ(panel.m_tipSide, -1);
}

TEST_F(DealTip, GoesWhenTheMouseMovesOrLeaves)
{
    panel.fill(8);
    toolTipAt(panel.middleOf(1));
    EXPECT_NE(panel.m_tipSide, -1);
    QMouseEvent move(QEvent::MouseMove, QPoint(7, 8), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&panel, &move);
    EXPECT_EQ(panel.m_tipSide, -1);
    EXPECT_EQ(panel.m_mousePos, QPoint(7, 8));
    toolTipAt(panel.middleOf(1));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&panel, &leave);
    EXPECT_EQ(panel.m_tipSide, -1);
    EXPECT_EQ(panel.m_mousePos, panel.middleOf(1)) << "leaving stores no position";
}

TEST_F(DealTip, GoesWhenNewRowsMoveTheView)
{
    panel.fill(panel.m_layout.capacity() + 1);
    panel.m_tipSide = 0;
    panel.fill(1, 1000);
    EXPECT_EQ(panel.m_tipSide, -1);
}

TEST_F(DealTip, StaysWhileRowsComeThatMoveNothing)
{
    panel.fill(3);
    panel.m_tipSide = 0;
    panel.fill(1, 900);
    EXPECT_EQ(panel.m_tipSide, 0) << "there is room for all";
    panel.fill(panel.m_layout.capacity() + 5, 1000);
    panel.m_scrollBar->setValue(2);
    panel.m_tipSide = 0;
    panel.fill(1, 5000);
    EXPECT_EQ(panel.m_tipSide, 0) << "the view does not follow the tail";
}

TEST_F(DealTip, GoesWhenTheBarComesOrGoes)
{
    const int room = panel.m_layout.capacity();
    panel.fill(room + 5);
    panel.m_scrollBar->setValue(2);
    panel.m_tipSide = 0;
    SDepthFilterParam param;
    param.relate = 1;
    param.volume = room;
    panel.m_model->setFilterParam(param);
    panel.slotTimeout();
    ASSERT_TRUE(panel.m_scrollBar->isHidden());
    EXPECT_EQ(panel.m_tipSide, -1);
    panel.m_tipSide = 0;
    panel.m_model->setFilterParam(SDepthFilterParam());
    panel.slotTimeout();
    ASSERT_FALSE(panel.m_scrollBar->isHidden());
    ASSERT_FALSE(panel.m_followTail);
    EXPECT_EQ(panel.m_tipSide, -1);
}

TEST_F(DealTip, GoesWithTheRowsThatAreCleared)
{
    panel.fill(3);
    panel.m_tipSide = 1;
    panel.clear(false);
    EXPECT_EQ(panel.m_tipSide, -1);
}

TEST_F(DealTip, TellsTheDealAndBothOrders)
{
    panel.orders({order(5, 1, 10.02, 4250, at(9, 59, 0)), order(6, 2, 9.98, 60, at(9, 59, 0))});
    panel.deals({deal(1, 5, 6, 10, 5500, at(10, 0, 1))});
    const auto picture = tip(0);
    EXPECT_EQ(picture->texts(),
              (QStringList{QStringLiteral("逐笔成交#1    "), QStringLiteral("时  间:10:00:01"),
                           QStringLiteral("成交价:10.00"), QStringLiteral("成交量:55"),
                           QStringLiteral("委卖价:9.98"), QStringLiteral("委卖量:1"),
                           QStringLiteral("委买价:10.02"), QStringLiteral("委买量:42")}));
}

TEST_F(DealTip, PricesBetterThanTheDealsAreLight)
{
    panel.orders({order(5, 1, 10.02, 4200, at(9, 59, 0)), order(6, 2, 9.98, 4100, at(9, 59, 0)),
                  order(7, 1, 10, 4000, at(9, 59, 0)), order(8, 2, 10, 3900, at(9, 59, 0))});
    panel.deals({deal(1, 5, 6, 10, 5500, at(10, 0, 1)), deal(2, 7, 8, 10, 5500, at(10, 0, 2))});
    auto picture = tip(0);
    EXPECT_EQ(picture->text(QStringLiteral("委卖价:9.98")).color(), colorOf(kLight));
    EXPECT_EQ(picture->text(QStringLiteral("委买价:10.02")).color(), colorOf(kLight));
    EXPECT_EQ(picture->text(QStringLiteral("委卖量:41")).color(), colorOf(kText));
    EXPECT_EQ(picture->text(QStringLiteral("委买量:42")).color(), colorOf(kText));
    picture = tip(1);
    EXPECT_EQ(picture->text(QStringLiteral("委卖价:10.00")).color(), colorOf(kText));
    EXPECT_EQ(picture->text(QStringLiteral("委买价:10.00")).color(), colorOf(kText));
}

TEST_F(DealTip, SpecialOrdersShowTheirNameInLight)
{
    panel.orders({order(5, 1, 0, 4200, at(9, 59, 0), 2), order(6, 2, 10, 4100, at(9, 59, 0), 4)});
    panel.deals({deal(1, 5, 6, 10, 5500, at(10, 0, 1))});
    const auto picture = tip(0);
    EXPECT_EQ(picture->text(QStringLiteral("委买价:市价")).color(), colorOf(kLight));
    EXPECT_EQ(picture->text(QStringLiteral("委卖价:本方最优")).color(), colorOf(kLight));
}

TEST_F(DealTip, UnknownOrdersLeaveBareLabels)
{
    panel.fill(1);
    const auto picture = tip(0);
    for (const QString& label : {QStringLiteral("委卖价:"), QStringLiteral("委卖量:"),
                                 QStringLiteral("委买价:"), QStringLiteral("委买量:")})
        EXPECT_EQ(picture->count(label), 1) << label.toStdString();
    EXPECT_TRUE(tip(1)->commands().empty()) << "no such row";
}

TEST_F(DealTip, StandsRightOfTheMouseAndAboveIt)
{
    panel.m_mousePos = QPoint(50, 100);
    EXPECT_EQ(panel.tipRect(90, 20), QRect(60, 80, 110, 7 * 20 + 24));
    panel.m_mousePos = QPoint(50, 5);
    EXPECT_EQ(panel.tipRect(90, 20).top(), 0);
}

TEST_F(DealTip, IsPushedInsideTheWidget)
{
    panel.m_mousePos = QPoint(530, 390);
    EXPECT_EQ(panel.tipRect(90, 20).topLeft(), QPoint(540 - 27 - 90, 400 - 164));
    panel.m_mousePos = QPoint(50, 100);
    EXPECT_EQ(panel.tipRect(1000, 20).left(), 0);
    EXPECT_EQ(panel.tipRect(90, 200).top(), 0);
}

TEST_F(DealTip, HasABandWithTheTitleAndLinesBelow)
{
    panel.fill(1);
    panel.m_mousePos = panel.middleOf(0);
    const auto picture = tip(0);
    const PaintCommand ground = picture->fills().at(0);
    EXPECT_EQ(ground.color(), colorOf("kel_clr_deptch_holographic_deal_detail_bg"));
    const QRect rect = ground.rect.toRect();
    const QRect band(rect.x(), rect.y(), rect.width(), 24);
    EXPECT_TRUE(picture->text(QStringLiteral("逐笔成交#1    ")).standsIn(band, Qt::AlignCenter));
    const int lineHeight = (rect.height() - 24) / 7;
    const QRect first(rect.x() + 3, band.bottom() + 4, rect.width(), lineHeight);
    EXPECT_TRUE(picture->texts().size() == 8);
    EXPECT_TRUE(picture->text(QStringLiteral("时  间:10:00:01")).standsIn(first, kLeft));
    EXPECT_EQ(picture->all(PaintCommand::eRect).at(0).pen.color(),
              colorOf("kel_clr_deptch_holographic_deal_detail_line"));
}

TEST_F(DealTip, IsDrawnOverThePictureOnly)
{
    panel.fill(3);
    const QImage before = panel.grab().toImage();
    toolTipAt(panel.middleOf(1));
    EXPECT_NE(panel.grab().toImage(), before);
    panel.m_tipSide = -1;
    EXPECT_EQ(panel.grab().toImage(), before);
}

TEST_F(DealTip, TheSpaceKeyShowsItForTheSelectedRow)
{
    panel.fill(3);
    QTest::keyClick(&panel, Qt::Key_Space);
    EXPECT_EQ(panel.m_tipSide, -1) << "no row is selected";
    QTest::keyClick(&panel, Qt::Key_Home);
    QTest::keyClick(&panel, Qt::Key_Space);
    EXPECT_EQ(panel.m_tipSide, 0);
    QTest::keyClick(&panel, Qt::Key_Space);
    EXPECT_EQ(panel.m_tipSide, -1);
}
