#include "queue_engine/EngineFixture.h"

#include <boost/thread/thread.hpp>

#include <QCoreApplication>
#include <QElapsedTimer>

#include <functional>
#include <limits>

using namespace testing_support;

namespace {

/// The engine with its timers running as its constructor leaves them.
struct RunningProbe : Kel::CDepthModelOrderQueue
{
    using CDepthModelOrderQueue::appendOrderData;
    using CDepthModelOrderQueue::m_bLevelDataBack;
    using CDepthModelOrderQueue::m_lastFeedTime;
    using CDepthModelOrderQueue::m_nShangHaiCount;
    using CDepthModelOrderQueue::m_refreshClock;
    using CDepthModelOrderQueue::m_refreshTimer;
    using CDepthModelOrderQueue::m_shangHaiTimer;
    using CDepthModelOrderQueue::slotRefreshTimer;
};

/// Runs the event loop until `done`, at most ten seconds.
bool processUntil(const std::function<bool()>& done)
{
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < 10000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return done();
}

class RefreshTick : public EngineTest
{
protected:
    RefreshTick()
    {
        snap("ask 10.01x1; bid 10.00x1; last 10.00", 2000);
        engine.m_bLevelDataBack = true;
        engine.m_lastFeedTime = 1000;
        engine.m_refreshClock = 1000;
    }

    /// Whether the tick ran a pass over the levels.
    bool tickPasses()
    {
        put(kBuy, 500, "buy 5; 9999 10 unknown");
        engine.slotTimeout();
        return list(kBuy, 500) == "9999 10 normal";
    }

    /// Whether the slot of the one-second timer ran a pass.
    bool secondPasses()
    {
        put(kBuy, 500, "buy 5; 9999 10 unknown");
        engine.slotShangHaiTimeout();
        return list(kBuy, 500) == "9999 10 normal";
    }
};

using OneSecondTick = RefreshTick;

} // namespace

TEST(RefreshTimer, RunsEveryHalfSecondWithoutAUserConfiguration)
{
    prepareServices();
    const RunningProbe engine;
    EXPECT_TRUE(engine.m_refreshTimer->isActive());
    EXPECT_EQ(engine.m_refreshTimer->interval(), 500);
    EXPECT_FALSE(engine.m_refreshTimer->isSingleShot());
    EXPECT_FALSE(engine.m_shangHaiTimer->isActive());
}

TEST(RefreshTimer, RunsAtTheConfiguredIntervalTruncatedToMilliseconds)
{
    prepareServices();
    Kel::CUserConfig config;
    config.setRefreshInterval(0.2509);
    Kel::setUserConfig(&config);
    {
        const RunningProbe engine;
        EXPECT_EQ(engine.m_refreshTimer->interval(), 250);
    }
    Kel::setUserConfig(nullptr);
}

TEST(RefreshTimer, FollowsTheConfigurationAtOnce)
{
    prepareServices();
    Kel::CUserConfig config;
    Kel::setUserConfig(&config);
    {
        const RunningProbe engine;
        config.setRefreshInterval(1.5);
        EXPECT_EQ(engine.m_refreshTimer->interval(), 1500);
        EXPECT_TRUE(engine.m_refreshTimer->isActive());
    }
    Kel::setUserConfig(nullptr);
}

TEST(RefreshTimer, IsStartedAnewByItsSlot)
{
    prepareServices();
    RunningProbe engine;
    engine.slotRefreshTimer(70);
    EXPECT_TRUE(engine.m_refreshTimer->isActive());
    EXPECT_EQ(engine.m_refreshTimer->interval(), 70);
    engine.m_refreshTimer->stop();
    engine.slotRefreshTimer(80);
    EXPECT_TRUE(engine.m_refreshTimer->isActive());
    EXPECT_EQ(engine.m_refreshTimer->interval(), 80);
}

TEST(RefreshTimer, DrivesTheRefreshTick)
{
    prepareServices();
    RunningProbe engine;
    engine.setStock("SH600519");
    engine.quoterCallBack(0, -1, {snapshot("bid 10.00x1; ask 10.01x1")});
    engine.m_bLevelDataBack = true;
    engine.slotRefreshTimer(1);
    EXPECT_TRUE(processUntil([&engine] { return engine.m_refreshClock >= engine.m_lastFeedTime + 20; }));
}

TEST(OneSecondTimer, IsStartedByALevelRecordOnAnotherThreadAndStopsAfterTwoFirings)
{
    prepareServices();
    RunningProbe engine;
    engine.setStock("SH600519");
    boost::thread feed([&engine] { engine.quoterCallBack(0, 1, {levelRecord("bid 10.00: 5")}); });
    feed.join();
    EXPECT_FALSE(engine.m_shangHaiTimer->isActive()) << "the timer belongs to the engine's thread";
    ASSERT_TRUE(processUntil([&engine] { return engine.m_shangHaiTimer->isActive(); }));
    EXPECT_EQ(engine.m_shangHaiTimer->interval(), 1000);
    QElapsedTimer clock;
    clock.start();
    EXPECT_TRUE(processUntil([&engine] { return engine.m_nShangHaiCount == 1; }));
    EXPECT_TRUE(engine.m_shangHaiTimer->isActive());
    EXPECT_TRUE(processUntil([&engine] { return !engine.m_shangHaiTimer->isActive(); }));
    EXPECT_GE(clock.elapsed(), 1800);
    EXPECT_EQ(engine.m_nShangHaiCount, 0);
}

TEST_F(RefreshTick, DoesNothingWithoutASnapshotOrAnInstrument)
{
    EXPECT_TRUE(tickPasses());
    quotes(-1, {quoter::QuoterBasePtr()});
    EXPECT_FALSE(tickPasses());
    EXPECT_EQ(engine.m_refreshClock, 1001);
    snap("ask 10.01x1; bid 10.00x1", 2000);
    EXPECT_TRUE(tickPasses());
    engine.setStock("SH999999");
    EXPECT_FALSE(tickPasses());
}

TEST_F(RefreshTick, LeavesAnUnmatchedQueueAloneInContinuousTrading)
{
    engine.m_bLevelDataBack = false;
    EXPECT_FALSE(tickPasses());
    EXPECT_EQ(engine.m_refreshClock, 1000);
    EXPECT_EQ(engine.m_nRefreshCount, 0);
    snap("ask 10.00x1; bid 10.00x1", 2000);
    EXPECT_TRUE(tickPasses()) << "outside continuous trading it passes";
}

TEST_F(RefreshTick, AdvancesTheClockByOneAndCounts)
{
    EXPECT_TRUE(tickPasses());
    EXPECT_EQ(engine.m_refreshClock, 1001);
    EXPECT_EQ(engine.m_nRefreshCount, 1);
    EXPECT_EQ(engine.m_lastFeedTime, 1000);
}

TEST_F(RefreshTick, StopsPassingAfterTwentyQuietTicks)
{
    for (int tick = 1; tick <= 20; ++tick)
        EXPECT_TRUE(tickPasses()) << tick;
    EXPECT_EQ(engine.m_refreshClock, 1020);
    EXPECT_FALSE(tickPasses()) << "the snapshot is the newer source already";
    EXPECT_EQ(engine.m_refreshClock, 1020);
    EXPECT_EQ(engine.m_nRefreshCount, 20);
    EXPECT_EQ(engine.m_depthTime, 2000);
}

TEST_F(RefreshTick, DeclaresTheSnapshotTheNewerSourceOnceAfterTwentyQuietTicks)
{
    engine.m_lastFeedTime = 3000;
    engine.m_refreshClock = 3000;
    for (int tick = 1; tick <= 20; ++tick)
        EXPECT_TRUE(tickPasses()) << tick;
    EXPECT_EQ(engine.m_depthTime, 2000);
    EXPECT_TRUE(tickPasses());
    EXPECT_EQ(engine.m_depthTime, 3001);
    EXPECT_EQ(engine.m_refreshClock, 3020);
    EXPECT_EQ(engine.m_nRefreshCount, 20);
    EXPECT_FALSE(tickPasses());
}

TEST_F(RefreshTick, LeavesASnapshotOfTheSameTimeAsTheFeedAlone)
{
    engine.m_lastFeedTime = 2000;
    engine.m_refreshClock = 2020;
    EXPECT_FALSE(tickPasses());
    EXPECT_EQ(engine.m_depthTime, 2000);
}

TEST_F(RefreshTick, ResumesWithTheNextBatch)
{
    engine.m_refreshClock = 1020;
    EXPECT_FALSE(tickPasses());
    deals(1, {atTime(2500, deal(0, 0, 10.00, 100))});
    EXPECT_TRUE(tickPasses());
    EXPECT_EQ(engine.m_refreshClock, 2501);
}

TEST_F(RefreshTick, AppliesPriceTimePriorityToTheTenLevelsEveryTwentyFirstTick)
{
    engine.m_lastFeedTime = 3000;
    for (int tick = 1; tick <= 42; ++tick) {
        engine.m_refreshClock = 3000;
        put(kBuy, 900, "buy 9 level=3; 1 10 normal; 2 10 part");
        put(kBuy, 800, "buy 8 level=0; 3 10 normal; 4 10 part");
        engine.slotTimeout();
        const bool applied = tick % 21 == 0;
        EXPECT_EQ(list(kBuy, 900), applied ? "2 10 part" : "1 10 normal; 2 10 part") << tick;
        EXPECT_EQ(list(kBuy, 800), "3 10 normal; 4 10 part") << tick;
        EXPECT_EQ(engine.m_nRefreshCount, tick % 21) << tick;
    }
}

TEST_F(RefreshTick, SurvivesTimesAtTheEndsOfTheirRange)
{
    const std::int64_t extremes[] = {std::numeric_limits<std::int64_t>::max(),
                                     std::numeric_limits<std::int64_t>::min()};
    for (const std::int64_t time : extremes) {
        orders(1, {atTime(time, order(1, kBuy, 10.00, 100))});
        for (int tick = 0; tick < 25; ++tick)
            engine.slotTimeout();
        snap("ask 10.01x1; bid 10.00x1", time);
        for (int tick = 0; tick < 25; ++tick)
            engine.slotTimeout();
        engine.checkCalcOrder();
    }
    EXPECT_EQ(list(kBuy, 1000), "1 1 normal");
}

TEST_F(OneSecondTick, ReconcilesTwiceAndStopsTheTimer)
{
    engine.slotTimerControl();
    EXPECT_TRUE(engine.m_shangHaiTimer->isActive());
    EXPECT_EQ(engine.m_shangHaiTimer->interval(), 1000);
    EXPECT_TRUE(secondPasses());
    EXPECT_EQ(engine.m_nShangHaiCount, 1);
    EXPECT_TRUE(engine.m_shangHaiTimer->isActive());
    EXPECT_TRUE(secondPasses());
    EXPECT_EQ(engine.m_nShangHaiCount, 0);
    EXPECT_FALSE(engine.m_shangHaiTimer->isActive());
}

TEST_F(OneSecondTick, CutsTheListsToTheirLevelVolumeAfterThePass)
{
    put(kBuy, 1000, "buy 10 level=1 levelVol=15; 1 10 unknown; 2 10 unknown");
    engine.slotShangHaiTimeout();
    EXPECT_EQ(list(kBuy, 1000), "1 5 normal; 2 10 normal");
}

TEST_F(OneSecondTick, DoesNothingAndNeverStopsWhileTheOrderCacheHoldsASide)
{
    engine.filterOrderData({order(1, kBuy, 10.00, 100)});
    engine.slotTimerControl();
    for (int firing = 0; firing < 5; ++firing) {
        EXPECT_FALSE(secondPasses());
        EXPECT_TRUE(engine.m_shangHaiTimer->isActive());
        EXPECT_EQ(engine.m_nShangHaiCount, 0);
    }
    engine.m_orderCache.begin()->second.clear();
    EXPECT_FALSE(secondPasses()) << "a side without orders counts as well";
}

TEST_F(OneSecondTick, DoesNothingWithoutAnInstrument)
{
    engine.slotTimerControl();
    engine.setStock("SH999999");
    EXPECT_FALSE(secondPasses());
    EXPECT_EQ(engine.m_nShangHaiCount, 0);
    EXPECT_TRUE(engine.m_shangHaiTimer->isActive());
}

TEST_F(OneSecondTick, KeepsItsCountWhenALevelRecordRestartsTheTimer)
{
    engine.slotTimerControl();
    EXPECT_TRUE(secondPasses());
    engine.slotTimerControl();
    EXPECT_EQ(engine.m_nShangHaiCount, 1);
    EXPECT_TRUE(secondPasses());
    EXPECT_FALSE(engine.m_shangHaiTimer->isActive());
}

TEST_F(OneSecondTick, RunsWithoutASnapshot)
{
    quotes(-1, {quoter::QuoterBasePtr()});
    EXPECT_TRUE(secondPasses());
}
