// The order of a day, and the place of snapshots that tell no sequence number.

#include "SmallDay.h"

#include "host/DayTimeline.h"

#include <gtest/gtest.h>

namespace {

using host::DayTimeline;
using host::Placing;
using testing_support::SmallDay;

/// "o0 d0 s0 q0": kind and index of each entry.
std::string textOf(const DayTimeline& timeline)
{
    std::string text;
    for (const DayTimeline::Entry& entry : timeline.entries()) {
        const char* kinds = "odsq";
        text += (text.empty() ? "" : " ") + std::string(1, kinds[static_cast<int>(entry.kind)]) +
                std::to_string(entry.index);
    }
    return text;
}

TEST(DayTimeline, KeepsOrdersAndDealsInTheOrderOfTheirSequence)
{
    SmallDay small;
    small.buy(1, 10.00, 100).deal(1, 2, 10.00, 50).sell(2, 10.00, 50).cancelBuy(1, 50);
    EXPECT_EQ(textOf(DayTimeline(small.day)), "o0 d0 o1 d1");
}

TEST(DayTimeline, PutsASnapshotBehindTheLastRowThatItContains)
{
    SmallDay small;
    small.buy(1, 10.00, 100).snapshot().buy(2, 10.00, 100).buy(3, 10.00, 100).snapshot();
    EXPECT_EQ(textOf(DayTimeline(small.day)), "o0 s0 o1 o2 s1");
}

TEST(DayTimeline, PutsWhatTellsNoSequenceByItsTimeTheQueueBeforeTheSnapshotOfTheSameMoment)
{
    SmallDay small;
    small.at(1)
        .buy(1, 10.00, 100)
        .at(2)
        .buy(2, 10.00, 100)
        .at(3)
        .snapshot(false)
        .queue(10.00, {100, 100}, 0, {});
    small.at(4).buy(3, 10.00, 100);
    EXPECT_EQ(textOf(DayTimeline(small.day)), "o0 o1 q0 s0 o2");
}

TEST(DayTimeline, NeverGoesBackInTimeAndLeavesOutTimesOfOtherDays)
{
    SmallDay small;
    small.at(5).buy(1, 10.00, 100).at(3).buy(2, 10.00, 100).at(6).buy(3, 10.00, 100).at(7).buy(4, 10.00, 100);
    small.day.orders[3].time = INT64_MAX;
    small.at(8).buy(5, 10.00, 100);
    const DayTimeline timeline(small.day);
    std::vector<std::int64_t> seconds;
    for (const DayTimeline::Entry& entry : timeline.entries())
        seconds.push_back((entry.time - timeline.entries()[0].time) / 1000);
    EXPECT_EQ(seconds, (std::vector<std::int64_t>{0, 0, 1, 1, 3}));
}

TEST(PlaceSnapshots, FindsTheFirstPlaceThatShowsTheTenLevelsAndFitsTheTradedVolume)
{
    SmallDay small;
    small.at(1).buy(1, 10.00, 100).sell(2, 10.01, 100).at(2).buy(3, 10.01, 100).deal(3, 2, 10.01, 100);
    small.at(3).snapshot(false);
    // Added and withdrawn: the same ten levels again, later.
    small.at(3.5).buy(4, 9.99, 100).cancelBuy(4, 100).at(6).snapshot(false);
    const auto places = host::placeSnapshots(small.day);
    ASSERT_EQ(places.size(), 2u);
    EXPECT_EQ(places[0].placing, Placing::View);
    EXPECT_EQ(places[0].rows, 4u);
    EXPECT_EQ(places[1].placing, Placing::View);
    EXPECT_EQ(places[1].rows, 4u);
}

TEST(PlaceSnapshots, ASnapshotStampedBeforeItsLastRowsIsFoundBehindThem)
{
    SmallDay small;
    small.at(1).buy(1, 10.00, 100).at(2).sell(2, 10.01, 100).at(3.4).buy(3, 9.99, 300).snapshot(false);
    small.day.snapshots[0].time -= 400;
    small.at(9).buy(4, 9.98, 100);
    const auto places = host::placeSnapshots(small.day);
    EXPECT_EQ(places[0].placing, Placing::View);
    EXPECT_EQ(places[0].rows, 3u);
}

TEST(PlaceSnapshots, ASnapshotThatFitsNowhereIsPlacedByTimeAndDoesNotHoldTheOthersUp)
{
    SmallDay small;
    small.at(1).buy(1, 10.00, 100).at(3).snapshot(false).at(4).buy(2, 10.00, 200).at(6).snapshot(false);
    small.at(7).buy(3, 10.00, 300).at(9).snapshot(false);
    small.day.snapshots[1].bidVolume[0] += 1;
    const auto places = host::placeSnapshots(small.day);
    EXPECT_EQ(places[0].placing, Placing::View);
    EXPECT_EQ(places[1].placing, Placing::Time);
    EXPECT_EQ(places[1].rows, 2u);
    EXPECT_EQ(places[2].placing, Placing::View);
    EXPECT_EQ(places[2].rows, 3u);
}

TEST(PlaceSnapshots, WithoutTotalsTheTimeLimitsTheSearch)
{
    SmallDay small;
    small.at(1).buy(1, 10.00, 100).at(3).snapshot(false);
    small.at(300).buy(2, 9.99, 100).at(303).cancelBuy(2, 100).at(306).snapshot(false);
    const auto places = host::placeSnapshots(small.day);
    EXPECT_EQ(places[0].rows, 1u);
    EXPECT_EQ(places[1].rows, 3u);
}

TEST(PlaceSnapshots, SurvivesADayWithoutRows)
{
    SmallDay small;
    small.at(3).snapshot(false);
    const auto places = host::placeSnapshots(small.day);
    ASSERT_EQ(places.size(), 1u);
    EXPECT_EQ(places[0].rows, 0u);
    EXPECT_TRUE(host::placeSnapshots(feed::InstrumentDay()).empty());
    EXPECT_TRUE(DayTimeline(feed::InstrumentDay()).entries().empty());
}

} // namespace
