// Where a frame puts its body and its buttons.

#include "frame/FrameFixture.h"

#include <QApplication>

namespace frame_tests {
namespace {

TEST_F(Frame, PutsTheBodyBelowTheStripAtTheNextResize)
{
    QWidget body(frame);
    const QRect before = body.geometry();
    frame->setWidget(&body);
    EXPECT_EQ(body.geometry(), before) << "nothing moves yet";
    frame->resize(350, 200);
    EXPECT_EQ(body.geometry(), QRect(0, 20, 350, 180));
}

TEST_F(Frame, DoesNotReparentOrShowTheBody)
{
    QWidget body;
    frame->setWidget(&body);
    frame->resize(350, 200);
    EXPECT_EQ(body.parentWidget(), nullptr);
    EXPECT_TRUE(body.isHidden());
}

TEST_F(Frame, ForgetsABodyThatIsGone)
{
    auto* body = new QWidget(frame);
    frame->setWidget(body);
    delete body;
    frame->resize(350, 200);
    frame->setWidget(nullptr);
    frame->resize(360, 210);
}

TEST_F(Frame, PutsLevelAndStyleButtonsIntoTheTopRightCorner)
{
    frame->resize(333, 120);
    const int w = button(1)->width();
    ASSERT_GT(w, 0);
    for (const int id : {1, 0})
        EXPECT_EQ(button(id)->pos(), QPoint(333 - 2 * w, 0)) << id;
    for (const int id : {2, 5, 4, 3})
        EXPECT_EQ(button(id)->pos(), QPoint(333 - w, 0)) << id;
}

TEST_F(Frame, PutsTheFoldButtonIntoTheCornerAndTheFilterLeftOfIt)
{
    frame->resize(333, 120);
    const int p = button(10)->width();
    for (const int id : {10, 8})
        EXPECT_EQ(button(id)->pos(), QPoint(333 - p, 0)) << id;
    EXPECT_EQ(button(9)->pos(), QPoint(333 - p - button(9)->width(), 0));
}

TEST_F(Frame, UsesTheWidthOfTheFrontButtons)
{
    button(0)->setFixedSize(40, 18);
    button(8)->setFixedSize(50, 18);
    frame->setQueueModel(0);
    frame->setQueueModel(8);
    frame->resize(300, 100);
    EXPECT_EQ(button(1)->x(), 300 - 80);
    EXPECT_EQ(button(2)->x(), 300 - 40);
    EXPECT_EQ(button(10)->x(), 300 - 50);
    EXPECT_EQ(button(9)->x(), 300 - 50 - button(9)->width());
}

TEST_F(Frame, ButtonsFitIntoTheStrip)
{
    for (Zeb::CPushButton* one : frame->findChildren<Zeb::CPushButton*>())
        EXPECT_LE(one->height(), 20) << one->imageKey().toStdString();
}

} // namespace
} // namespace frame_tests
