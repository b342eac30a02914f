#include "feed/replay/ReplayClock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using feed::ReplayClock;

TEST(ReplayClock, StandsUntilItIsResumedAndWhileItIsPaused)
{
    ReplayClock clock(5000);
    EXPECT_EQ(clock.feedTime(100), 5000);
    EXPECT_EQ(clock.feedTime(900), 5000);
    clock.resume(1000);
    EXPECT_EQ(clock.feedTime(1250), 5250);
    clock.pause(1300);
    EXPECT_EQ(clock.feedTime(9000), 5300);
    clock.resume(10000);
    EXPECT_EQ(clock.feedTime(10001), 5301);
}

TEST(ReplayClock, RunsByItsFactorAndChangesItWithoutAJump)
{
    ReplayClock clock(0);
    clock.setFactor(10, 0);
    clock.resume(0);
    EXPECT_EQ(clock.feedTime(100), 1000);
    clock.setFactor(0.5, 100);
    EXPECT_EQ(clock.feedTime(100), 1000);
    EXPECT_EQ(clock.feedTime(200), 1050);
    clock.setFactor(1000, 200);
    EXPECT_EQ(clock.feedTime(201), 2050);
}

TEST(ReplayClock, ManySmallChangesLoseNoTime)
{
    ReplayClock clock(0);
    clock.resume(0);
    for (int i = 0; i < 1000; ++i)
        clock.setFactor(0.3, i);
    EXPECT_NEAR(static_cast<double>(clock.feedTime(1000)), 300, 1) << "sums of 0.3 are not exact";
}

TEST(ReplayClock, FactorsStayWithinTheirLimits)
{
    ReplayClock clock(0);
    clock.setFactor(0, 0);
    EXPECT_EQ(clock.factor(), ReplayClock::kSlowest);
    clock.setFactor(-5, 0);
    EXPECT_EQ(clock.factor(), ReplayClock::kSlowest);
    clock.setFactor(std::numeric_limits<double>::infinity(), 0);
    EXPECT_EQ(clock.factor(), ReplayClock::kFastest);
    clock.setFactor(std::nan(""), 0);
    EXPECT_EQ(clock.factor(), ReplayClock::kFastest);
}

TEST(ReplayClock, JumpsOverBreaks)
{
    ReplayClock clock(100);
    clock.setBreaks({{500, 700}, {200, 300}, {290, 310}, {900, 900}});
    clock.resume(0);
    EXPECT_EQ(clock.feedTime(99), 199);
    EXPECT_EQ(clock.feedTime(100), 310) << "the moment at which a break begins is the one at which it ends";
    EXPECT_EQ(clock.feedTime(289), 499);
    EXPECT_EQ(clock.feedTime(290), 700);
    EXPECT_EQ(clock.feedTime(1000), 1410);
    clock.jumpTo(250, 1000);
    EXPECT_EQ(clock.feedTime(1000), 310);
    EXPECT_EQ(clock.feedTime(1005), 315);
}

TEST(ReplayClock, ABreakWithoutBoundsEndsAtTheLatestFeedTime)
{
    using Limits = std::numeric_limits<std::int64_t>;
    constexpr std::int64_t kLatest = 4000000000000000;
    ReplayClock clock(100);
    clock.setBreaks({{Limits::min(), Limits::max()}});
    clock.resume(0);
    EXPECT_EQ(clock.feedTime(10), kLatest);
}

TEST(ReplayClock, WaitsThroughBreaksThatAreNotSet)
{
    ReplayClock clock(100);
    clock.resume(0);
    clock.setBreaks({{200, 300}});
    clock.setBreaks({});
    EXPECT_EQ(clock.feedTime(150), 250);
}

TEST(ReplayClock, AsFastAsPossibleGoesOnByItsStepHoweverLittleRealTimeWentBy)
{
    ReplayClock clock(0);
    clock.setBreaks({{2500, 5000}});
    clock.setFastStep(1000, 0);
    EXPECT_EQ(clock.feedTime(0), 0) << "still paused";
    clock.resume(0);
    EXPECT_EQ(clock.feedTime(0), 1000);
    EXPECT_EQ(clock.feedTime(0), 2000);
    EXPECT_EQ(clock.feedTime(0), 5500);
    clock.setFastStep(0, 10);
    EXPECT_EQ(clock.feedTime(30), 5520);
}

TEST(ReplayClock, NeverGoesBack)
{
    ReplayClock clock(0);
    clock.resume(1000);
    EXPECT_EQ(clock.feedTime(1500), 500);
    EXPECT_EQ(clock.feedTime(1200), 500);
    clock.pause(900);
    EXPECT_EQ(clock.feedTime(2000), 500);
    clock.resume(std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(clock.feedTime(2010), 510) << "real time went on from 2000";
    EXPECT_GE(clock.feedTime(std::numeric_limits<std::int64_t>::max()), 510);
}

TEST(ReplayClock, TellsHowMuchBetweenTwoMomentsIsPlayed)
{
    ReplayClock clock(0);
    clock.setBreaks({{100, 200}, {400, 500}});
    EXPECT_EQ(clock.playedBetween(0, 50), 50);
    EXPECT_EQ(clock.playedBetween(0, 250), 150);
    EXPECT_EQ(clock.playedBetween(150, 250), 50);
    EXPECT_EQ(clock.playedBetween(120, 180), 0);
    EXPECT_EQ(clock.playedBetween(150, 450), 200);
    EXPECT_EQ(clock.playedBetween(300, 300), 0);
    EXPECT_EQ(clock.playedBetween(300, 100), 0);
}

} // namespace
