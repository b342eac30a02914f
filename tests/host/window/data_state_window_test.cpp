// The state of the data in the real window: a day with a hole, its panes, and what they say of it.

#include "host/window/PaneWindow.h"
#include "host/window/WindowFixture.h"

#include "feed/day_gaps.h"
#include "host/window/state/PaneVeil.h"
#include "host/window/state/StateBadge.h"
#include "platform/utils/exchange_time.h"

#include <QDockWidget>

namespace window_tests {

namespace {

constexpr std::int64_t kMinute = 60000;

class DataStateWindow : public PaneWindow
{
protected:
    /// Opens a day that loses the minute from 10:15 on, and stands at a time of it.
    bool openWithHole(int hour, int minute)
    {
        return openAt(hour, minute, [](host::TerminalOptions& options) {
            const std::int64_t begin = timeOfDay(10, 15);
            options.source.lose = {{begin, begin + kMinute}};
        });
    }

    /// Time of day of the first record behind the hole.
    std::int64_t holeEnd()
    {
        const auto gaps = feed::findGaps(*window->groups().at(0).day());
        return gaps.size() == 1 ? utils::timeOfDayMs(gaps[0].to) : -1;
    }

    host::StateBadge* badge(const char* pane)
    {
        auto* dock = window->findChild<QDockWidget*>(QStringLiteral("Dock_") + QLatin1String(pane));
        return dock ? dock->titleBarWidget()->findChild<host::StateBadge*>() : nullptr;
    }

    Kel::EDataState stateOf(const char* pane)
    {
        const host::StateBadge* one = badge(pane);
        return one ? one->state().state : Kel::eDataEmpty;
    }

    int veils()
    {
        const auto all = window->findChildren<host::PaneVeil*>();
        return static_cast<int>(
            std::count_if(all.begin(), all.end(), [](const auto* veil) { return !veil->isHidden(); }));
    }
};

TEST_F(DataStateWindow, APaneOfAWholeDayIsLiveAndNothingLiesOverIt)
{
    ASSERT_TRUE(openAt(10, 30));
    for (const char* pane : {"queue", "ladder", "deals", "orders", "chart", "levels"})
        EXPECT_EQ(stateOf(pane), Kel::eDataLive) << pane;
    EXPECT_EQ(stateOf("information"), Kel::eDataEmpty);
    EXPECT_EQ(veils(), 0);
}

TEST_F(DataStateWindow, AHoleIsSeenBehindItAndHealedByTheNextSnapshotWithItsOrdersMissing)
{
    ASSERT_TRUE(openWithHole(10, 14));
    EXPECT_EQ(stateOf("queue"), Kel::eDataLive);
    ASSERT_GT(holeEnd(), timeOfDay(10, 16) - 1);
    ASSERT_TRUE(seek(holeEnd()));
    EXPECT_EQ(stateOf("queue"), Kel::eDataGap);
    EXPECT_EQ(stateOf("deals"), Kel::eDataGap);
    EXPECT_GT(veils(), 5);
    ASSERT_TRUE(seek(holeEnd() + kMinute));
    EXPECT_EQ(stateOf("queue"), Kel::eDataRebuilt);
    EXPECT_EQ(veils(), 0);
    ASSERT_TRUE(seek(timeOfDay(10, 10)));
    EXPECT_EQ(stateOf("queue"), Kel::eDataLive);
}

TEST_F(DataStateWindow, PlayingOverAHoleFindsItAndTheNextSnapshotEndsIt)
{
    ASSERT_TRUE(openWithHole(10, 14));
    std::vector<int> states;
    QObject::connect(&window->groups().at(0).watch(), &Kel::CDataStateWatch::sigDataStateChanged,
                     window.get(), [&states](int state) { states.push_back(state); });
    ASSERT_TRUE(seek(holeEnd() - 100));
    states.clear();
    window->setPlaying(true);
    EXPECT_TRUE(waitUntil([this] { return stateOf("queue") == Kel::eDataRebuilt; }));
    EXPECT_EQ(states, std::vector<int>({Kel::eDataGap, Kel::eDataRebuilt}));
    EXPECT_EQ(window->groups().at(0).watch().gaps().size(), 1u);
}

TEST_F(DataStateWindow, ANarrowTitleShowsTheMarkWithoutTheWord)
{
    ASSERT_TRUE(openAt(10, 30));
    host::StateBadge* one = badge("queue");
    ASSERT_NE(one, nullptr);
    QWidget* title = one->parentWidget();
    title->resize(400, title->height());
    const int wide = one->sizeHint().width();
    title->resize(120, title->height());
    EXPECT_LT(one->sizeHint().width(), wide);
    EXPECT_GT(one->sizeHint().width(), 0);
}

} // namespace
} // namespace window_tests
