// Begin, end and breaks of a day.

#include "host/window/day_moments.h"

#include "host/SmallDay.h"
#include "host/window/WindowFixture.h"
#include "platform/utils/exchange_time.h"

#include <gtest/gtest.h>

namespace window_tests {
namespace {

using testing_support::SmallDay;

TEST(DayRange, ContainsAllRowsInWholeSeconds)
{
    SmallDay small;
    small.at(0.25).buy(1, 10, 100);
    const std::int64_t first = small.time();
    small.at(7.5).buy(2, 10, 100);
    const host::DayRange range = host::dayRange(small.day);
    EXPECT_EQ(range.begin, first - 250);
    EXPECT_EQ(range.end, small.time() + 500);
}

TEST(DayRange, LeavesOutTimesOfOtherDays)
{
    SmallDay small;
    small.at(0).buy(1, 10, 100).at(5).buy(2, 10, 100).at(9).buy(3, 10, 100);
    small.day.orders.front().time = 0;
    const host::DayRange range = host::dayRange(small.day);
    EXPECT_EQ(range.begin, small.day.orders[1].time);
    EXPECT_EQ(range.end, small.day.orders[2].time);
}

TEST(DayRange, OfADayWithoutRowsIsEmpty)
{
    const host::DayRange range = host::dayRange(feed::InstrumentDay());
    EXPECT_EQ(range.begin, 0);
    EXPECT_EQ(range.end, 0);
}

TEST(DayRange, CutsATimeOfDayToIt)
{
    const host::DayRange range{utils::exchangeTime(20230201, 9, 15, 0, 0),
                               utils::exchangeTime(20230201, 15, 0, 0, 0)};
    EXPECT_EQ(host::momentIn(range, timeOfDay(10, 30)), utils::exchangeTime(20230201, 10, 30, 0, 0));
    EXPECT_EQ(host::momentIn(range, timeOfDay(8, 0)), range.begin);
    EXPECT_EQ(host::momentIn(range, timeOfDay(23, 0)), range.end);
}

TEST(QuietBreaks, AreStretchesOfMoreThanAMinuteWithoutATick)
{
    SmallDay small;
    small.at(0).buy(1, 10, 100);
    small.at(60).buy(2, 10, 100); // just a minute
    const std::int64_t before = small.time();
    small.at(130).buy(3, 10, 100);
    const std::int64_t after = small.time();
    const auto breaks = host::quietBreaks(small.day);
    ASSERT_EQ(breaks.size(), 1U);
    EXPECT_EQ(breaks[0].begin, before + 1);
    EXPECT_EQ(breaks[0].end, after);
}

std::string breaksText(const std::vector<feed::ReplayClock::Break>& breaks)
{
    std::string text;
    for (const auto& one : breaks)
        text += (text.empty() ? "" : " ") + std::to_string(one.begin) + "-" + std::to_string(one.end);
    return text;
}

TEST(CommonBreaks, AreWhatAllDaysHaveInCommon)
{
    EXPECT_EQ(breaksText(host::commonBreaks({})), "");
    EXPECT_EQ(breaksText(host::commonBreaks({{{10, 20}, {30, 40}}})), "10-20 30-40");
    EXPECT_EQ(breaksText(host::commonBreaks({{{10, 20}, {30, 60}}, {{15, 35}, {40, 50}, {55, 90}}})),
              "15-20 30-35 40-50 55-60");
    EXPECT_EQ(breaksText(host::commonBreaks({{{10, 20}}, {{20, 30}}})), "") << "they only touch";
    EXPECT_EQ(breaksText(host::commonBreaks({{{10, 90}}, {{20, 80}}, {{30, 40}, {50, 99}}})), "30-40 50-80");
    EXPECT_EQ(breaksText(host::commonBreaks({{{10, 90}}, {}})), "");
}

TEST(QuietBreaks, AreFoundOverLunch)
{
    const auto breaks = host::quietBreaks(*simulatedDay("fund"));
    const std::int64_t noon = utils::exchangeTime(20230201, 12, 0, 0, 0);
    int lunches = 0;
    for (const auto& one : breaks)
        lunches += one.begin < noon && noon < one.end;
    EXPECT_EQ(lunches, 1);
}

} // namespace
} // namespace window_tests
