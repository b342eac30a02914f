// The engine without timers and threads.

#include "SmallDay.h"

#include "feed/record_making.h"
#include "host/DayPlayer.h"
#include "host/SteppedEngine.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

namespace {

using testing_support::SmallDay;

/// Counts the ticks that reach the slots.
class CountingEngine : public host::SteppedEngine
{
public:
    bool secondTimerRuns() const { return m_shangHaiTimer->isActive(); }
    bool refreshTimerRuns() const { return m_refreshTimer->isActive(); }
    int secondFirings() const { return m_nShangHaiCount; }
};

feed::QueueRow published(double price, std::vector<std::int64_t> volumes)
{
    feed::QueueRow row;
    row.bidPrice = price;
    row.bidCount = static_cast<std::int32_t>(volumes.size());
    row.bidVolumes = std::move(volumes);
    return row;
}

TEST(SteppedEngine, ItsRefreshTimerDoesNotRunByItself)
{
    CountingEngine engine;
    EXPECT_FALSE(engine.refreshTimerRuns());
}

TEST(SteppedEngine, RefreshTicksComeOncePerIntervalOfFeedTime)
{
    CountingEngine engine;
    EXPECT_EQ(engine.nextTick(), INT64_MAX);
    engine.advanceTimers(1000, 1000);
    EXPECT_EQ(engine.nextTick(), 1500);
    engine.advanceTimers(1000, 1499);
    EXPECT_EQ(engine.refreshTicks(), 0);
    engine.advanceTimers(1499, 1500);
    EXPECT_EQ(engine.refreshTicks(), 1);
    engine.advanceTimers(1500, 11500);
    EXPECT_EQ(engine.refreshTicks(), 21);
    engine.setRefreshInterval(10);
    engine.advanceTimers(11500, 12100);
    EXPECT_EQ(engine.refreshTicks(), 32);
}

TEST(SteppedEngine, AGapOfMoreThanADayIsAJump)
{
    CountingEngine engine;
    engine.advanceTimers(0, 0);
    engine.advanceTimers(0, 1675215000000);
    EXPECT_EQ(engine.refreshTicks(), 0);
    EXPECT_EQ(engine.nextTick(), 1675215000500);
    engine.advanceTimers(INT64_MAX / 2, INT64_MIN / 2);
    EXPECT_EQ(engine.refreshTicks(), 0);
}

TEST(SteppedEngine, TheOneSecondTimerStartsWithAPublishedQueueAndFiresTwice)
{
    SmallDay small;
    CountingEngine engine;
    ASSERT_TRUE(engine.open(small.day.detail));
    engine.setRefreshInterval(100000);
    engine.advanceTimers(1000, 1000);
    EXPECT_FALSE(engine.secondTimerRuns());
    engine.feedQuotes(1, {feed::makeRecord(published(10, {300, 200}), engine.volumeUnit())});
    EXPECT_TRUE(engine.secondTimerRuns());
    EXPECT_EQ(engine.nextTick(), 2000);
    engine.advanceTimers(1000, 2500);
    EXPECT_EQ(engine.secondFirings(), 1);
    EXPECT_TRUE(engine.secondTimerRuns());
    engine.advanceTimers(2500, 3000);
    EXPECT_FALSE(engine.secondTimerRuns());
    EXPECT_EQ(engine.nextTick(), 101000);
}

TEST(SteppedEngine, ANewPublishedQueueStartsTheSecondAnew)
{
    SmallDay small;
    CountingEngine engine;
    ASSERT_TRUE(engine.open(small.day.detail));
    engine.setRefreshInterval(100000);
    engine.advanceTimers(1000, 1000);
    engine.feedQuotes(1, {feed::makeRecord(published(10, {300}), engine.volumeUnit())});
    engine.advanceTimers(1000, 1600);
    engine.feedQuotes(1, {feed::makeRecord(published(10, {300, 100}), engine.volumeUnit())});
    EXPECT_EQ(engine.nextTick(), 2600);
}

TEST(SteppedEngine, HistoryQueuesAreAppliedWhenTheCallReturns)
{
    SmallDay small;
    for (const int status : {0, 3}) {
        host::SteppedEngine engine;
        ASSERT_TRUE(engine.open(small.day.detail));
        engine.feedQuotes(status, {feed::makeRecord(published(10, {300, 200}), engine.volumeUnit())});
        const auto levels = engine.levels(Kel::OQT_BUY, 10);
        ASSERT_EQ(levels.size(), 1u);
        EXPECT_EQ(levels[0].shares, 500);
        EXPECT_EQ(levels[0].orders, 2);
    }
}

TEST(SteppedEngine, LevelsCountTheLiveOrdersFromTheBestPriceOn)
{
    SmallDay small;
    small.buy(1, 10.00, 300)
        .buy(2, 9.98, 50)
        .sell(3, 10.02, 700)
        .sell(4, 10.01, 100)
        .sell(5, 10.02, 1)
        .snapshot();
    host::SteppedEngine engine;
    ASSERT_TRUE(engine.open(small.day.detail));
    const host::DayTimeline timeline(small.day);
    host::DayPlayer player(timeline, engine, {});
    while (player.step()) {
    }
    player.quiet(3);
    const auto text = [&](Kel::EOrderQueueType side, int most) {
        std::string all;
        for (const host::ListedLevel& level : engine.levels(side, most))
            all += std::to_string(level.key) + ":" + std::to_string(level.shares) + "/" +
                   std::to_string(level.orders) + " ";
        return all;
    };
    EXPECT_EQ(text(Kel::OQT_BUY, 10), "1000:300/1 998:50/1 ");
    EXPECT_EQ(text(Kel::OQT_SELL, 10), "1001:100/1 1002:701/2 ");
    EXPECT_EQ(text(Kel::OQT_SELL, 1), "1001:100/1 ");
    EXPECT_EQ(text(Kel::OQT_SELL, -1), "");
    EXPECT_FALSE(engine.level(Kel::OQT_BUY, 999));
    ASSERT_TRUE(engine.level(Kel::OQT_SELL, 1002));
    EXPECT_EQ(engine.level(Kel::OQT_SELL, 1002)->m_orders.size(), 2);
}

TEST(SteppedEngine, AnIndexHasNoQueue)
{
    nelservice::CInstrumentDetail index;
    index.market = "SH";
    index.code = "000001";
    index.kind = nelservice::EInstrumentKind::Index;
    host::SteppedEngine engine;
    EXPECT_FALSE(engine.open(index));
}

} // namespace
