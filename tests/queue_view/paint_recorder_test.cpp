// The recording paint device itself: what it tells must be what was painted.

#include "support/PaintRecorder.h"

#include <gmock/gmock.h>

#include <QPainter>

using namespace testing_support;
using testing::ElementsAre;

namespace {

constexpr int kRight = Qt::AlignRight | Qt::AlignVCenter;

TEST(PaintRecorder, TellsEveryKindOfCommandInOrder)
{
    PaintRecorder recorder(100, 80);
    QPainter painter(&recorder);
    painter.fillRect(QRect(1, 2, 30, 40), QColor(255, 0, 0));
    painter.setPen(QColor(0, 0, 255));
    painter.drawLine(5, 6, 7, 8);
    painter.setBrush(QColor(0, 255, 0));
    painter.drawRect(2, 3, 4, 5);
    painter.drawPoint(9, 9);
    painter.drawPixmap(QRect(1, 1, 16, 16), QPixmap(16, 16));
    painter.end();
    EXPECT_THAT(recorder.lines(), ElementsAre("fill 1,2 30x40 #ff0000", "line 5,6 7,8 #0000ff",
                                              "rect 2,3 4x5 pen #0000ff brush #00ff00", "point 9,9 #0000ff",
                                              "pixmap 1,1 16x16"));
}

TEST(PaintRecorder, KeepsPenAndBrushOfAPathAndADashedLine)
{
    PaintRecorder recorder(100, 80);
    QPainter painter(&recorder);
    QPainterPath path;
    path.addPolygon(QPolygonF({QPointF(1, 2), QPointF(3, 4), QPointF(5, 6)}));
    painter.fillPath(path, QColor(255, 0, 0));
    painter.strokePath(path, QPen(QColor(0, 255, 0), 2));
    QPen dashed(QColor(0, 0, 255));
    dashed.setDashPattern({1, 3});
    painter.setPen(dashed);
    painter.drawLine(0, 9, 50, 9);
    painter.end();
    EXPECT_THAT(recorder.lines(), ElementsAre("path 1,2 3,4 5,6 pen none brush #ff0000",
                                              "path 1,2 3,4 5,6 pen #00ff00 width 2 brush none",
                                              "line 0,9 50,9 #0000ff dash 1 3"));
}

TEST(PaintRecorder, KnowsTheClipThatACommandWasDoneUnder)
{
    PaintRecorder recorder(100, 80);
    QPainter painter(&recorder);
    painter.fillRect(0, 0, 1, 1, Qt::red);
    painter.setClipRect(QRect(5, 5, 50, 40));
    painter.fillRect(0, 0, 2, 2, Qt::red);
    painter.setClipping(false);
    painter.fillRect(0, 0, 3, 3, Qt::red);
    painter.end();
    const std::vector<PaintCommand> fills = recorder.fills();
    ASSERT_EQ(fills.size(), 3U);
    EXPECT_TRUE(fills[0].clip.isNull());
    EXPECT_EQ(fills[1].clip, QRectF(5, 5, 50, 40));
    EXPECT_TRUE(fills[2].clip.isNull());
    EXPECT_THAT(recorder.lines(), testing::Contains("clip 5,5 50x40"));
}

TEST(PaintRecorder, MovesCoordinatesByThePaintersTransformation)
{
    PaintRecorder recorder(100, 80);
    QPainter painter(&recorder);
    painter.translate(10, 20);
    painter.fillRect(1, 2, 3, 4, Qt::red);
    painter.drawText(QPoint(0, 5), QStringLiteral("7"));
    painter.end();
    EXPECT_EQ(recorder.fills()[0].rect, QRectF(11, 22, 3, 4));
    EXPECT_EQ(recorder.text(QStringLiteral("7")).baseline, QPointF(10, 25));
}

TEST(PaintRecorder, FindsTextsByWhatTheySayAndWhereTheyStand)
{
    PaintRecorder recorder(200, 80);
    QPainter painter(&recorder);
    painter.setPen(Qt::red);
    painter.drawText(QRect(0, 0, 90, 20), kRight, QStringLiteral("10.02"));
    painter.drawText(QRect(100, 0, 90, 20), kRight, QStringLiteral("卖一"));
    painter.end();
    EXPECT_EQ(recorder.texts(), (QStringList{QStringLiteral("10.02"), QStringLiteral("卖一")}));
    EXPECT_EQ(recorder.textsIn(QRect(100, 0, 90, 20)), QStringList{QStringLiteral("卖一")});
    const PaintCommand price = recorder.text(QStringLiteral("10.02"));
    EXPECT_EQ(price.color(), QColor(Qt::red));
    EXPECT_TRUE(price.standsIn(QRect(0, 0, 90, 20), kRight));
    EXPECT_FALSE(price.standsIn(QRect(0, 0, 93, 20), kRight));
    EXPECT_FALSE(price.standsIn(QRect(0, 3, 90, 20), kRight));
    EXPECT_FALSE(price.standsIn(QRect(0, 0, 90, 20), Qt::AlignLeft | Qt::AlignVCenter));
    EXPECT_FALSE(recorder.text(QStringLiteral("absent")).standsIn(QRect(0, 0, 90, 20), kRight));
}

TEST(PaintRecorder, JoinsTheRunsOfATextInSeveralFacesAndNoTwoTexts)
{
    PaintRecorder recorder(200, 80);
    QPainter painter(&recorder);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("WenQuanYi Micro Hei")});
    painter.setFont(font);
    painter.drawText(QRect(0, 0, 100, 20), kRight, QStringLiteral("手/笔"));
    painter.drawText(QRect(100, 0, 100, 20), kRight, QStringLiteral("手/笔"));
    painter.end();
    EXPECT_EQ(recorder.texts(), (QStringList{QStringLiteral("手/笔"), QStringLiteral("手/笔")}));
    EXPECT_TRUE(recorder.text(QStringLiteral("手/笔")).standsIn(QRect(0, 0, 100, 20), kRight));
}

} // namespace
