// The box with the dealt lots of a part-dealt order.

#include "QueueViewFixture.h"

using namespace queue_view_rules;

namespace {

const QString kTextFont = "ic_fnt_index_modulegroup_today_text";
const QString kVolumeFont = "ic_fnt_index_modulegroup_transaction";
const QString kDefault = "ic_clr_entrust_default_text";
const QString kOutline = "ic_clr_depth_queue_part_deal_back";
const QString kFill = "ic_clr_depth_queue_part_deal";

class CallOutBox : public QueueViewTest
{
protected:
    CallOutBox() { layOut(600, 400); }

    /// The call-out of so many dealt lots with its tip at 200, 50.
    Drawing callOut(double dealt, bool toLeft = false)
    {
        return record(view.size(), [&](QPainter& painter) {
            painter.setFont(themeFont(kVolumeFont));
            QPoint tip(200, 50);
            Kel::COrderVol order;
            order.m_vol = 77;
            order.m_type = Kel::OQT_PART_DEALT;
            order.m_partDealVol = dealt;
            view.drawPartDealVol(painter, tip, order, toLeft);
            fontAfter = painter.font();
        });
    }
    QFont fontAfter;

    static int labelWidth(const QString& lots) { return textWidth("成" + lots, kVolumeFont); }
};

} // namespace

TEST_F(CallOutBox, NeedsADealtShare)
{
    EXPECT_TRUE(texts(callOut(0)).empty());
    EXPECT_TRUE(outlines(callOut(0.00001)).empty());
    EXPECT_TRUE(outlines(callOut(-0.00001)).empty());
    EXPECT_FALSE(outlines(callOut(0.000011)).empty());
    EXPECT_FALSE(outlines(callOut(-0.000011)).empty());
}

TEST_F(CallOutBox, PointsAtItsTipFromTheRight)
{
    const Drawing drawing = callOut(345);
    const std::string right = std::to_string(200 + 5 + labelWidth("345") + 4);
    const std::string expected = "200,50 205,45 205,42 " + right + ",42 " + right + ",58 205,58 205,55";
    const auto found = outlines(drawing);
    ASSERT_FALSE(found.empty()) << print(drawing);
    for (const std::string& path : found)
        EXPECT_EQ(path, expected);
}

TEST_F(CallOutBox, PointsAtItsTipFromTheLeft)
{
    const Drawing drawing = callOut(345, true);
    const std::string left = std::to_string(200 - 5 - labelWidth("345") - 4);
    const std::string expected = "200,50 195,45 195,42 " + left + ",42 " + left + ",58 195,58 195,55";
    const auto found = outlines(drawing);
    ASSERT_FALSE(found.empty()) << print(drawing);
    for (const std::string& path : found)
        EXPECT_EQ(path, expected);
}

TEST_F(CallOutBox, IsFilledThenOutlined)
{
    int filledAt = -1;
    int outlinedAt = -1;
    const Drawing drawing = callOut(5);
    for (int i = 0; i < static_cast<int>(drawing.size()); ++i) {
        const PaintCommand& command = drawing[static_cast<std::size_t>(i)];
        if (command.kind != PaintCommand::ePath)
            continue;
        if (command.brush.style() == Qt::SolidPattern && filledAt < 0) {
            EXPECT_EQ(command.brush.color(), themeColor(kFill));
            filledAt = i;
        }
        if (command.pen.style() == Qt::SolidLine) {
            EXPECT_EQ(command.pen.color(), themeColor(kOutline));
            EXPECT_EQ(command.pen.width(), 2);
            EXPECT_EQ(command.pen.capStyle(), Qt::SquareCap);
            EXPECT_EQ(command.pen.joinStyle(), Qt::BevelJoin);
            outlinedAt = i;
        }
    }
    EXPECT_GE(filledAt, 0) << print(drawing);
    EXPECT_GE(outlinedAt, filledAt) << print(drawing);
}

TEST_F(CallOutBox, ShowsTheLotsAndTheLabelBeforeThem)
{
    const Drawing drawing = callOut(345);
    // From 205, 42 to the corner at the lower right, that corner included, less 2.
    const int width = labelWidth("345") + 5 - 2;
    EXPECT_TRUE(shows(drawing, "345", QRect(205, 42, width, 17), kRight, kDefault, kVolumeFont));
    const int rest = width - 2 - textWidth("345", kVolumeFont);
    EXPECT_TRUE(shows(drawing, "成", QRect(205, 42, rest, 17), kRight, kDefault, kTextFont));
}

TEST_F(CallOutBox, ShowsThemAtTheLeftAsWell)
{
    const Drawing drawing = callOut(345, true);
    const int width = labelWidth("345") + 5 - 2;
    const int left = 195 - labelWidth("345") - 4;
    EXPECT_TRUE(shows(drawing, "345", QRect(left, 42, width, 17), kRight, kDefault, kVolumeFont));
    const int rest = width - 2 - textWidth("345", kVolumeFont);
    EXPECT_TRUE(shows(drawing, "成", QRect(left, 42, rest, 17), kRight, kDefault, kTextFont));
}

TEST_F(CallOutBox, RoundsTheLotsToAtLeastOne)
{
    EXPECT_EQ(countOf(callOut(0.2), "1"), 1);
    EXPECT_EQ(countOf(callOut(1.5), "2"), 1);
    EXPECT_EQ(countOf(callOut(2.49), "2"), 1);
    EXPECT_EQ(countOf(callOut(-40), "1"), 1);
}

TEST_F(CallOutBox, LeavesTheFontOfNumbers)
{
    callOut(5);
    EXPECT_EQ(fontAfter, themeFont(kVolumeFont));
}

TEST_F(CallOutBox, FollowsTheRowHeight)
{
    view.m_rowHeight = 30;
    const auto found = outlines(callOut(5));
    ASSERT_FALSE(found.empty());
    const std::string right = std::to_string(200 + 5 + labelWidth("5") + 4);
    EXPECT_EQ(found[0], "200,50 205,45 205,37 " + right + ",37 " + right + ",63 205,63 205,55");
}

TEST_F(CallOutBox, HasTheConciseDefaultColour)
{
    Kel::CConfig config;
    config.setConciseStyle(true);
    Kel::setConfig(&config);
    view.initDraw();
    const QRect box(205, 42, labelWidth("345") + 3, 17);
    EXPECT_TRUE(shows(callOut(345), "345", box, kRight, "ic_clr_concise_entrust_default_text"));
    Kel::setConfig(nullptr);
}
