// The rebuilt queue against published snapshots.

#include "SmallDay.h"

#include "feed/simulation/SimulatedExchange.h"
#include "host/Verification.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using testing_support::SmallDay;

host::Verification verify(const feed::InstrumentDay& day, std::int64_t refreshMs = 0)
{
    host::VerifyOptions options;
    options.refreshMs = refreshMs;
    return host::verifyDay(day, options);
}

std::int64_t compared(const host::Verification& result)
{
    std::int64_t sum = 0;
    for (std::size_t i = 0; i < result.buy.size(); ++i)
        sum += result.buy[i].compared + result.sell[i].compared;
    return sum;
}

/// A short book with a deal, a cancel and a snapshot every three seconds.
SmallDay shortDay(bool withSequence)
{
    SmallDay small;
    for (int i = 0; i < 12; ++i)
        small.buy(1 + i, 10.00 - 0.01 * i, 500).sell(100 + i, 10.01 + 0.01 * i, 500);
    small.snapshot(withSequence);
    for (int i = 0; i < 10; ++i) {
        small.at(3 * i + 1)
            .buy(200 + i, 10.00, 100 * (i + 1))
            .sell(300 + i, 10.00, 100)
            .deal(1 + i % 1, 300 + i, 10.00, 50);
        small.cancelSell(300 + i, 50).at(3 * i + 3).snapshot(withSequence);
    }
    return small;
}

class SimulatedDays : public ::testing::TestWithParam<const char*>
{
};

feed::SimulationSettings settingsOf(std::uint64_t seed, const std::string& style)
{
    using Maker = feed::SimulationSettings (*)(std::uint64_t);
    static const Maker kMakers[] = {feed::shanghaiStock, feed::shenzhenStock,   feed::growthBoardStock,
                                    feed::fund,          feed::convertibleBond, feed::repurchase};
    feed::SimulationSettings settings = kMakers[seed % 6](seed);
    settings.orders = 1500;
    return style == "level" ? feed::levelStyle(settings) : settings;
}

TEST_P(SimulatedDays, MatchAtEverySnapshot)
{
    for (std::uint64_t seed = 1; seed <= 6; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const host::Verification result = verify(feed::simulatedDay(settingsOf(seed, GetParam())));
        EXPECT_EQ(result.levelStyle, std::string(GetParam()) == "level");
        EXPECT_GT(result.snapshots, 4000);
        EXPECT_EQ(result.snapshotsMatched, result.snapshots);
        EXPECT_EQ(result.mismatches, 0);
        EXPECT_EQ(result.queuesMatched, result.queues);
        EXPECT_TRUE(result.allMatch());
        // Levels of orders without a price alone are not compared, all others are.
        EXPECT_LE(compared(result), result.snapshots * 20);
        EXPECT_GE(compared(result), result.snapshots * 20 - result.lessPriceless);
    }
}

INSTANTIATE_TEST_SUITE_P(Styles, SimulatedDays, ::testing::Values("tick", "level"),
                         [](const auto& style) { return std::string(style.param); });

TEST(Verify, WithoutSequenceNumbersSnapshotsAreFoundByWhatTheyShow)
{
    feed::InstrumentDay day = feed::simulatedDay(settingsOf(3, "tick"));
    for (feed::SnapshotRow& row : day.snapshots)
        row.seq = 0;
    const host::Verification result = verify(day);
    EXPECT_EQ(result.byView, result.snapshots);
    EXPECT_EQ(result.bySequence, 0);
    EXPECT_TRUE(result.allMatch());
}

TEST(Verify, AShortDayMatchesBothWays)
{
    for (const bool withSequence : {true, false}) {
        const host::Verification result = verify(shortDay(withSequence).day);
        EXPECT_EQ(result.snapshots, 11);
        EXPECT_EQ(result.snapshotsMatched, 11);
        EXPECT_EQ(compared(result), 220);
        EXPECT_TRUE(result.allMatch());
    }
}

TEST(Verify, ATamperedVolumeIsToldWithItsTimeSideAndLevel)
{
    SmallDay small = shortDay(true);
    small.day.snapshots[4].askVolume[2] += 100;
    const host::Verification result = verify(small.day);
    EXPECT_FALSE(result.allMatch());
    EXPECT_EQ(result.snapshotsMatched, 10);
    ASSERT_EQ(result.listed.size(), 1u);
    EXPECT_EQ(result.listed[0].time, small.day.snapshots[4].time);
    EXPECT_EQ(result.listed[0].side, 2);
    EXPECT_EQ(result.listed[0].level, 3);
    EXPECT_EQ(result.listed[0].published.shares, 600);
    EXPECT_EQ(result.listed[0].rebuilt.shares, 500);
    EXPECT_EQ(result.listed[0].cause, "the snapshot differs from the plain book of its own feed");
    EXPECT_EQ(result.sell[2].volumes, 10);
    EXPECT_EQ(result.sell[2].prices, 11);
    EXPECT_EQ(result.sell[2].counts, 11);
}

TEST(Verify, ATamperedCountOrPriceIsToldAtItsLevelAlone)
{
    SmallDay small = shortDay(true);
    small.day.snapshots[4].bidCount[6] = 2;
    small.day.snapshots[5].bidPrice[8] -= 0.004;
    small.day.snapshots[6].bidPrice[9] -= 0.01;
    const host::Verification result = verify(small.day);
    ASSERT_EQ(result.listed.size(), 2u) << "less than half a tick is the same price";
    EXPECT_EQ(result.listed[0].level, 7);
    EXPECT_EQ(result.buy[6].counts, 10);
    EXPECT_EQ(result.buy[6].volumes, 11);
    EXPECT_EQ(result.listed[1].level, 10);
    EXPECT_EQ(result.buy[9].prices, 10);
}

TEST(Verify, ASnapshotThatShowsNoMomentIsCountedListedAndComparedAllTheSame)
{
    SmallDay small = shortDay(false);
    small.day.snapshots[7].bidVolume[3] = 700;
    const host::Verification result = verify(small.day);
    EXPECT_FALSE(result.allMatch());
    EXPECT_EQ(result.snapshots, 11);
    EXPECT_EQ(result.unplaced, 1);
    ASSERT_EQ(result.unplacedListed.size(), 1u);
    EXPECT_EQ(result.unplacedListed[0].time, small.day.snapshots[7].time);
    EXPECT_EQ(result.unplacedListed[0].side, 1);
    EXPECT_EQ(result.unplacedListed[0].level, 4);
    EXPECT_EQ(result.unplacedListed[0].published.shares, 700);
    EXPECT_EQ(result.unplacedListed[0].book.shares, 500);
    EXPECT_EQ(compared(result), 220);
    EXPECT_EQ(result.causes.at("the snapshot shows no moment of the feed"), 1);
}

TEST(Verify, AMissingOrderAndALevelTooManyAreMismatches)
{
    SmallDay small = shortDay(true);
    // The exchange's snapshots know nothing of this order, and know one that the feed does not have.
    small.day.orders[0].price = 10.005;
    small.day.orders[2].volume = 400;
    const host::Verification result = verify(small.day);
    EXPECT_FALSE(result.allMatch());
    EXPECT_EQ(result.snapshotsMatched, 0);
    EXPECT_GT(result.mismatches, 10);
}

TEST(Verify, TheRestThatAFixedIntervalKeepsIsExplained)
{
    SmallDay small;
    small.buy(1, 10.00, 300).buy(2, 10.00, 100).sell(9, 10.05, 100).snapshot();
    small.at(1.0).sell(3, 10.00, 100).deal(1, 3, 10.00, 100).cancelBuy(1, 200).at(3).snapshot();
    EXPECT_TRUE(verify(small.day).allMatch());
    const host::Verification result = verify(small.day, 500);
    EXPECT_EQ(result.keptRests, 1);
    ASSERT_EQ(result.listed.size(), 1u);
    EXPECT_EQ(result.listed[0].cause,
              "dealt in part and cancelled between two refresh ticks: the dealt lots stay");
    EXPECT_EQ(result.listed[0].detail, "order 1 keeps 100 shares");
    EXPECT_TRUE(verify(small.day, 1).allMatch() == false) << "all three rows are of one millisecond";
}

TEST(Verify, OrdersWithoutAPriceAreTakenOffThePublishedLevel)
{
    SmallDay small;
    small.buy(1, 10.00, 300).sell(2, 10.05, 100).buy(3, 0, 200, 4).snapshot();
    small.at(1).cancelBuy(1, 300).at(3).snapshot();
    const host::Verification result = verify(small.day);
    EXPECT_TRUE(result.allMatch());
    EXPECT_EQ(result.pricelessOrders, 1);
    EXPECT_EQ(result.lessPriceless, 2);
    EXPECT_EQ(compared(result), 39) << "the level of that order alone is not compared";
}

TEST(Verify, OnlyContinuousSnapshotsAreCompared)
{
    SmallDay small = shortDay(true);
    small.day.snapshots[2].phase = feed::Phase::OpeningAuction;
    small.day.snapshots[2].bidVolume[0] = 1;
    small.day.snapshots[3].phase = feed::Phase::Unknown; // told by its time
    const host::Verification result = verify(small.day);
    EXPECT_EQ(result.snapshots, 10);
    EXPECT_TRUE(result.allMatch());
}

TEST(Verify, InLevelStyleATamperedQueueIsSeenInTheList)
{
    SmallDay small;
    small.queue(10.00, {500, 300, 200}, 10.01, {400});
    small.at(3).queue(10.00, {300, 200, 700}, 10.01, {400, 100});
    const host::Verification result = verify(small.day);
    EXPECT_TRUE(result.levelStyle);
    EXPECT_EQ(result.queues, 4);
    EXPECT_EQ(result.queuesMatched, 4);
    small.day.queues[1].bidCount = 7; // the true count is published beside the first fifty orders
    EXPECT_EQ(verify(small.day).queuesMatched, 4);
}

TEST(Verify, InLevelStyleAQueueWhoseBeginningIsNotFoundIsExplained)
{
    SmallDay small;
    small.queue(10.00, {200, 100}, 0, {}).at(5).queue(10.00, {1500, 200}, 0, {});
    const host::Verification result = verify(small.day);
    EXPECT_EQ(result.queuesMatched, 1);
    ASSERT_EQ(result.listed.size(), 1u);
    EXPECT_EQ(result.listed[0].level, 0);
    EXPECT_EQ(result.listed[0].cause,
              "the queue's beginning was not found in the list: the last order listed stands for its head");
    EXPECT_EQ(result.listed[0].detail, "published 15 2; listed 2 (dealt) 1 2");
}

TEST(Verify, ADayOfHostileRowsIsComparedToItsEnd)
{
    const double prices[] = {
        0,    -1, 1e300, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN(),
        10.00};
    const std::int64_t numbers[] = {0, -1, INT64_MAX, INT64_MIN, 7};
    for (const bool withSequence : {true, false}) {
        SmallDay small = shortDay(withSequence);
        const std::size_t good = small.day.orders.size();
        for (const double price : prices) {
            for (const std::int64_t number : numbers) {
                small.buy(number, price, number).sell(number, price, -(number / 2) + 1);
                small.deal(static_cast<std::int32_t>(number), -1, price, number).cancelBuy(7, number);
            }
        }
        for (std::size_t i = good; i < small.day.orders.size(); ++i)
            small.day.orders[i].time = numbers[i % 5];
        small.snapshot(withSequence);
        for (const std::int64_t number : numbers) {
            feed::SnapshotRow row = small.day.snapshots[3];
            row.time = number;
            row.totalVolume = number;
            row.bidVolume.fill(number);
            row.askPrice.fill(prices[static_cast<std::size_t>(number & 3)]);
            row.bidCount.fill(static_cast<std::int32_t>(number));
            small.day.snapshots.push_back(row);
        }
        const host::Verification result = verify(small.day);
        EXPECT_EQ(result.snapshots, 17);
        EXPECT_GE(compared(result), 340 - result.lessPriceless);
        EXPECT_GE(result.snapshotsMatched, 10) << "what came before is not lost";
        EXPECT_FALSE(result.allMatch());
    }
}

TEST(Verify, EndsWhenItIsToldTo)
{
    feed::InstrumentDay day = feed::simulatedDay(settingsOf(1, "tick"));
    host::VerifyOptions options;
    options.progress = [](std::int64_t, std::int64_t) { return false; };
    const host::Verification result = host::verifyDay(day, options);
    EXPECT_TRUE(result.cancelled);
    EXPECT_LT(result.snapshots, 4000);
}

} // namespace
