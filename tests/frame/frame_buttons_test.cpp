// The buttons of a frame: which there are, which are shown, and how they take turns.

#include "frame/FrameFixture.h"

namespace frame_tests {
namespace {

TEST_F(Frame, MakesItsButtonsInOrderAndHidden)
{
    struct Made
    {
        const char* image;
        int id;
        const char* tip;
    };
    const std::vector<Made> wanted = {
        {"kel_img_depth_data_ten", 1, ""},
        {"kel_img_depth_data_five", 0, ""},
        {"kel_img_depth_detai_first", 2, ""},
        {"kel_img_depth_detail_list", 5, ""},
        {"kel_img_depth_detail_vertical", 4, ""},
        {"kel_img_depth_detail_horizontal", 3, ""},
        {"kel_img_depth_filter_first", 9, "逐笔成交过滤"},
        {"kel_img_depth_panel_shrink", 10, "收起买卖单"},
        {"kel_img_depth_panel_extend", 8, "显示买卖单"},
    };
    const auto buttons = frame->findChildren<Zeb::CPushButton*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_EQ(buttons.size(), static_cast<int>(wanted.size()));
    for (int i = 0; i < buttons.size(); ++i) {
        const Made& made = wanted[static_cast<std::size_t>(i)];
        EXPECT_EQ(buttons[i]->imageKey().toStdString(), made.image);
        EXPECT_EQ(buttons[i]->id(), made.id);
        EXPECT_EQ(buttons[i]->toolTip().toStdString(), made.tip);
        EXPECT_TRUE(buttons[i]->isHidden()) << made.image;
        EXPECT_FALSE(buttons[i]->accessibleName().isEmpty()) << made.image;
    }
}

TEST_F(Frame, IsCalledByItsClass)
{
    EXPECT_EQ(frame->objectName().toStdString(), "CDepthModuleGroupBaseWidget");
}

TEST_F(Frame, ShowsTheFrontButtonsOfLevelsAndStyles)
{
    frame->showQueueActionImage(true);
    EXPECT_EQ(shown(), (Ids{1, 2}));
}

TEST_F(Frame, ShowsTheFrontButtonOfTheFold)
{
    frame->showExtendShrinkImage(true);
    EXPECT_EQ(shown(), (Ids{10}));
}

TEST_F(Frame, TurningAFlagOffHidesNothing)
{
    frame->showQueueActionImage(true);
    frame->showQueueActionImage(false);
    EXPECT_EQ(shown(), (Ids{1, 2}));
    frame->showExtendShrinkImage(true);
    frame->showExtendShrinkImage(false);
    EXPECT_EQ(shown(), (Ids{1, 2, 10}));
}

TEST_F(Frame, TheLevelAndStylePairAndTheFoldButtonTakeTheFlagFromEachOther)
{
    frame->showQueueActionImage(true);
    frame->showExtendShrinkImage(true);
    // A refresh shows what the flags say: hidden by hand, the pair stays away while the fold comes back.
    button(1)->hide();
    button(2)->hide();
    button(10)->hide();
    frame->showFilterImage(false);
    EXPECT_EQ(shown(), (Ids{10}));

    frame->showQueueActionImage(true);
    button(10)->hide();
    frame->showFilterImage(false);
    EXPECT_EQ(shown(), (Ids{1, 2}));
}

TEST_F(Frame, AFlagThatIsTurnedOffLeavesTheOtherOneAlone)
{
    frame->showQueueActionImage(true);
    frame->showExtendShrinkImage(false);
    button(1)->hide();
    frame->showFilterImage(false);
    EXPECT_EQ(shown(), (Ids{1, 2}));
}

TEST_F(Frame, TheFilterButtonFollowsItsFlagAtOnce)
{
    frame->showFilterImage(true);
    EXPECT_EQ(shown(), (Ids{9}));
    frame->showFilterImage(false);
    EXPECT_EQ(shown(), (Ids{}));
}

TEST_F(Frame, ALevelButtonCyclesTenFiveTen)
{
    frame->showQueueActionImage(true);
    button(1)->click();
    EXPECT_EQ(shown(), (Ids{0, 2}));
    button(0)->click();
    EXPECT_EQ(shown(), (Ids{1, 2}));
    EXPECT_EQ(parent.events, (Events{{1396, 0, 0, QString(), nullptr}, {1396, 1, 0, QString(), nullptr}}));
}

TEST_F(Frame, TwoClicksOnTheSameLevelButtonAskForFiveThenTen)
{
    frame->showQueueActionImage(true);
    EXPECT_TRUE(frame->handleEvent(5, 1, 0, QString(), nullptr));
    EXPECT_TRUE(frame->handleEvent(5, 1, 0, QString(), nullptr));
    EXPECT_EQ(shown(), (Ids{1, 2}));
    EXPECT_EQ(parent.events, (Events{{1396, 0, 0, QString(), nullptr}, {1396, 1, 0, QString(), nullptr}}));
}

TEST_F(Frame, AStyleButtonCyclesFirstListVerticalHorizontalFirst)
{
    frame->showQueueActionImage(true);
    for (const int id : {2, 5, 4, 3}) {
        ASSERT_FALSE(button(id)->isHidden()) << id;
        button(id)->click();
    }
    EXPECT_EQ(shown(), (Ids{1, 2}));
    Ids asked;
    for (const Event& event : parent.events) {
        EXPECT_EQ(event.id, 1396);
        asked.push_back(event.first);
    }
    EXPECT_EQ(asked, (Ids{5, 4, 3, 2}));
}

TEST_F(Frame, AModeBringsItsButtonToTheFront)
{
    frame->showQueueActionImage(true);
    frame->setQueueModel(3);
    EXPECT_EQ(shown(), (Ids{1, 3}));
    frame->setQueueModel(0);
    EXPECT_EQ(shown(), (Ids{0, 3}));
    frame->showExtendShrinkImage(true);
    frame->setQueueModel(8);
    EXPECT_EQ(shown(), (Ids{0, 3, 8}));
    // The order behind the new front is kept.
    parent.events.clear();
    button(3)->click();
    EXPECT_EQ(parent.events, (Events{{1396, 2, 0, QString(), nullptr}}));
}

TEST_F(Frame, AModeThatIsInForceDoesNotCycle)
{
    frame->setQueueModel(1);
    // A cycle would have shown a button.
    EXPECT_EQ(shown(), (Ids{}));
    EXPECT_EQ(parent.events, (Events{{5, 1, 1, QString(), nullptr}}));
}

TEST_F(Frame, AnUnknownModeLeavesTheButtonsAloneAndIsSentOn)
{
    frame->showQueueActionImage(true);
    parent.events.clear();
    for (const int mode : {6, 7, 9, 11, 12, -1, 1000})
        frame->setQueueModel(mode);
    EXPECT_EQ(shown(), (Ids{1, 2}));
    EXPECT_EQ(parent.events.size(), 7U);
    EXPECT_EQ(parent.events.front(), (Event{5, 6, 1, QString(), nullptr}));
    EXPECT_EQ(parent.events.back(), (Event{5, 1000, 1, QString(), nullptr}));
}

TEST_F(Frame, SendsTheModeAfterItsButtonStandsInFront)
{
    struct Watcher : Listener
    {
        bool handleEvent(int, int first, int, QString, void*) override
        {
            for (auto* button : findChildren<Zeb::CPushButton*>()) {
                if (button->id() == first)
                    hidden.push_back(button->isHidden());
            }
            return true;
        }
        std::vector<bool> hidden;
    } watcher;
    auto* inner = new FrameProbe(&watcher);
    watcher.show();
    inner->setQueueModel(4);
    EXPECT_EQ(watcher.hidden, (std::vector<bool>{false}));
}

} // namespace
} // namespace frame_tests
