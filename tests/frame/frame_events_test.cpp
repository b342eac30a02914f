// What a frame does with the events of its buttons and of others.

#include "frame/FrameFixture.h"

#include <memory>

namespace frame_tests {
namespace {

TEST_F(Frame, LeavesOtherEventsToTheBase)
{
    for (const int id : {0, 4, 6, 15, 1395, 1396, 3223}) {
        EXPECT_FALSE(frame->handleEvent(id, 1, 0, QString(), nullptr)) << id;
        EXPECT_TRUE(parent.events.empty()) << id;
    }
}

TEST_F(Frame, LeavesTheFilterButtonToTheParent)
{
    EXPECT_FALSE(frame->handleEvent(5, 9, 0, QString(), nullptr));
    EXPECT_TRUE(parent.events.empty());

    frame->showFilterImage(true);
    button(9)->click();
    EXPECT_EQ(parent.events, (Events{{5, 9, 0, QString(), nullptr}}));
}

TEST_F(Frame, SendsAnyOtherButtonOnAsAWishedMode)
{
    for (const int first : {6, 7, 11, 12, 77, -3}) {
        parent.events.clear();
        EXPECT_TRUE(frame->handleEvent(5, first, 1, QStringLiteral("text"), this)) << first;
        EXPECT_EQ(parent.events, (Events{{1396, first, 0, QString(), nullptr}}));
    }
}

TEST_F(Frame, TakesALevelButtonThoughNobodyAnswersTheWish)
{
    parent.answer = false;
    EXPECT_TRUE(frame->handleEvent(5, 1, 0, QString(), nullptr));
    EXPECT_TRUE(frame->handleEvent(5, 2, 0, QString(), nullptr));
    EXPECT_TRUE(frame->handleEvent(5, 77, 0, QString(), nullptr));
}

TEST_F(Frame, AFoldButtonCallsTheHandlerBeforeItCycles)
{
    frame->showExtendShrinkImage(true);
    Ids told;
    std::vector<Ids> shownThen;
    frame->setActionHandler([&](int action) {
        told.push_back(action);
        shownThen.push_back(shown());
    });
    button(10)->click();
    button(8)->click();
    EXPECT_EQ(told, (Ids{10, 8}));
    EXPECT_EQ(shownThen, (std::vector<Ids>{{10}, {8}}));
    EXPECT_EQ(shown(), (Ids{10}));
    EXPECT_TRUE(parent.events.empty()) << "a fold is no mode";
}

TEST_F(Frame, AFoldButtonWithoutAHandlerStillCycles)
{
    frame->showExtendShrinkImage(true);
    EXPECT_TRUE(frame->handleEvent(5, 10, 0, QString(), nullptr));
    EXPECT_EQ(shown(), (Ids{8}));
}

TEST_F(Frame, AHandlerMayReplaceItself)
{
    int second = 0;
    frame->setActionHandler([&](int) { frame->setActionHandler([&](int) { ++second; }); });
    EXPECT_TRUE(frame->handleEvent(5, 10, 0, QString(), nullptr));
    EXPECT_EQ(second, 0);
    EXPECT_TRUE(frame->handleEvent(5, 8, 0, QString(), nullptr));
    EXPECT_EQ(second, 1);
}

TEST_F(Frame, AHandlerMayEndTheFrame)
{
    frame->setActionHandler([&](int) { delete frame; });
    EXPECT_TRUE(frame->handleEvent(5, 10, 0, QString(), nullptr));
    frame = nullptr;
}

TEST(FrameEnd, ReleasesItsHandler)
{
    const auto held = std::make_shared<int>(1);
    {
        Kel::CDepthModuleGroupBaseWidget frame;
        frame.setActionHandler([held](int) {});
        EXPECT_EQ(held.use_count(), 2);
    }
    EXPECT_EQ(held.use_count(), 1);
}

TEST(FrameEnd, LeavesItsBodyAlone)
{
    QWidget body;
    {
        Kel::CDepthModuleGroupBaseWidget frame;
        frame.setWidget(&body);
        frame.resize(100, 100);
    }
    EXPECT_EQ(body.parentWidget(), nullptr);
    body.resize(10, 10);
}

} // namespace
} // namespace frame_tests
