// The picture of a frame.

#include "frame/FrameFixture.h"
#include "frame/header_title.h"
#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"
#include "support/PaintRecorder.h"

#include <QApplication>
#include <QPainter>

namespace frame_tests {
namespace {

using testing_support::PaintCommand;
using testing_support::PaintRecorder;

QColor color(const char* key)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QString::fromLatin1(key));
}

const char* const kHeaderBg = "kel_clr_depth_module_group_base_widget_header_bg";
const char* const kBg = "kel_clr_depth_module_group_base_widget_bg";
const char* const kHeader = "kel_clr_depth_module_group_base_widget_header";
const char* const kSplit = "kel_clr_depth_module_group_base_widget_split_line";

class FramePicture : public Frame
{
protected:
    PaintRecorder& picture()
    {
        recorder = std::make_unique<PaintRecorder>(frame->width(), frame->height());
        QPainter painter(recorder.get());
        frame->drawFrame(painter);
        painter.end();
        return *recorder;
    }

    QFontMetrics metrics() const
    {
        return QFontMetrics(
            *utils::CSingletonT<Zeb::CUiResource>::instance().getFont(QStringLiteral("fnt_default_normal")));
    }

    std::unique_ptr<PaintRecorder> recorder;
};

TEST_F(FramePicture, FillsTheBodyThenTheStrip)
{
    const auto fills = picture().fills();
    ASSERT_EQ(fills.size(), 2U);
    EXPECT_EQ(fills[0].rect, QRectF(0, 20, 400, 280));
    EXPECT_EQ(fills[0].color(), color(kBg));
    EXPECT_EQ(fills[1].rect, QRectF(0, 0, 400, 20));
    EXPECT_EQ(fills[1].color(), color(kHeaderBg));
}

TEST_F(FramePicture, CentresATitleOfOnePart)
{
    frame->setHeader(QStringLiteral("逐笔成交"));
    const PaintCommand title = picture().text(QStringLiteral("逐笔成交"));
    const QFontMetrics m = metrics();
    EXPECT_EQ(title.baseline.toPoint(),
              QPoint((400 - m.horizontalAdvance(QStringLiteral("逐笔成交"))) / 2, (20 + m.height()) / 2 - 2));
    EXPECT_EQ(title.color(), color(kHeader));
    EXPECT_TRUE(recorder->lineCommands().empty());
}

TEST_F(FramePicture, DividesATitleOfTwoPartsAndLeavesRoomForTheButtons)
{
    frame->setHeader(QStringLiteral("卖\n买"));
    picture();
    const QFontMetrics m = metrics();
    const int w = button(1)->width();
    EXPECT_TRUE(recorder->text(QStringLiteral("卖"))
                    .standsIn(QRect(0, 2, 200, m.horizontalAdvance(QStringLiteral("卖"))),
                              Qt::AlignHCenter | Qt::AlignTop));
    EXPECT_TRUE(recorder->text(QStringLiteral("买"))
                    .standsIn(QRect(200, 2, 200 - 2 * w, m.horizontalAdvance(QStringLiteral("买"))),
                              Qt::AlignHCenter | Qt::AlignTop));
    EXPECT_EQ(recorder->text(QStringLiteral("买")).color(), color(kHeader));
    const auto lines = recorder->lineCommands();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].line, QLineF(200, 0, 200, 20));
    EXPECT_EQ(lines[0].color(), color(kSplit));
}

TEST_F(FramePicture, DrawsALineBehindEveryPartButTheLast)
{
    frame->resize(400, 300);
    frame->setHeader(QStringLiteral("a\nb\nc"));
    picture();
    const auto lines = recorder->lineCommands();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].line, QLineF(133, 0, 133, 20));
    EXPECT_EQ(lines[1].line, QLineF(266, 0, 266, 20));
    EXPECT_EQ(recorder->text(QStringLiteral("c")).color(), color(kHeader)) << "the pen is set for each part";
}

TEST_F(FramePicture, KeepsEmptyPartsOfATitle)
{
    frame->setHeader(QStringLiteral("\n买\n"));
    EXPECT_EQ(picture().lineCommands().size(), 2U);
}

TEST_F(FramePicture, DrawsTheLineUnderTheStripOnWish)
{
    frame->setDrawSplit(true);
    auto lines = picture().lineCommands();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].line, QLineF(0, 20, 400, 20));
    EXPECT_EQ(lines[0].color(), color(kSplit));
    frame->setDrawSplit(false);
    EXPECT_TRUE(picture().lineCommands().empty());
}

TEST_F(FramePicture, PaintsThePictureOnTheWidget)
{
    const QImage image = frame->grab().toImage();
    EXPECT_EQ(image.pixelColor(200, 100), color(kBg));
    EXPECT_EQ(image.pixelColor(200, 5), color(kHeaderBg));
}

/// Counts repaints: of `update`, which come with the event loop, and of `repaint`, which come at once.
class PaintCounter : public Kel::CDepthModuleGroupBaseWidget
{
public:
    using CDepthModuleGroupBaseWidget::CDepthModuleGroupBaseWidget;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        CDepthModuleGroupBaseWidget::paintEvent(event);
    }
};

TEST(FrameRepaint, TitleAndSplitWaitForTheEventLoop)
{
    PaintCounter frame;
    frame.resize(200, 100);
    frame.show();
    QApplication::processEvents();
    frame.paints = 0;
    frame.setHeader(QStringLiteral("a"));
    frame.setDrawSplit(true);
    EXPECT_EQ(frame.paints, 0);
    QApplication::processEvents();
    EXPECT_EQ(frame.paints, 1);
}

TEST(FrameRepaint, ShowingButtonsRepaintsAtOnce)
{
    PaintCounter frame;
    frame.resize(200, 100);
    frame.show();
    QApplication::processEvents();
    frame.paints = 0;
    frame.showQueueActionImage(true);
    EXPECT_EQ(frame.paints, 1);
    frame.showExtendShrinkImage(true);
    EXPECT_EQ(frame.paints, 2);
    frame.showFilterImage(true);
    EXPECT_EQ(frame.paints, 3);
}

TEST(HeaderTitle, AColumnIsAsHighAsItsTextIsWide)
{
    const QFontMetrics metrics{QFont()};
    const auto columns =
        Kel::titleColumns({QStringLiteral("long text"), QStringLiteral("x"), QString()}, 301, 20, metrics);
    ASSERT_EQ(columns.size(), 3U);
    EXPECT_EQ(columns[0].rect, QRect(0, 2, 100, metrics.horizontalAdvance(QStringLiteral("long text"))));
    EXPECT_EQ(columns[1].rect, QRect(100, 2, 60, metrics.horizontalAdvance(QStringLiteral("x"))));
    EXPECT_EQ(columns[2].rect, QRect(200, 2, 100, 0));
    EXPECT_EQ(columns[0].splitLine, 100);
    EXPECT_EQ(columns[1].splitLine, 200);
    EXPECT_EQ(columns[2].splitLine, -1);
}

TEST(HeaderTitle, OnePartHasNoColumns)
{
    EXPECT_TRUE(Kel::titleColumns({QStringLiteral("x")}, 301, 20, QFontMetrics(QFont())).empty());
}

} // namespace
} // namespace frame_tests
