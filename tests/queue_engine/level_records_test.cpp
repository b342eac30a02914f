#include "queue_engine/EngineFixture.h"

using namespace testing_support;

using AppendLevelRecord = EngineTest;

TEST_F(AppendLevelRecord, IgnoresANullRecord)
{
    engine.m_levelTime = 17;
    engine.appendOrderData({});
    EXPECT_EQ(engine.m_levelTime, 17);
    EXPECT_FALSE(engine.m_bLevelArrived);
    EXPECT_EQ(queues(), "");
}

TEST_F(AppendLevelRecord, OpensBothLevelsWithPublishedVolumesAndTrueCounts)
{
    engine.appendOrderData(atTime(34200999, levelRecord("bid 10.00: 5 6 of 12; ask 10.01: 1500 of 3")));
    ASSERT_TRUE(level(kBuy, 1000));
    EXPECT_EQ(levelText(*level(kBuy, 1000)),
              "buy 10 level=0 levelVol=0 sum=11 count=12 avg=5.5 unknown=0 start=0 time=34200\n"
              "0 5 unknown\n"
              "0 6 unknown\n");
    ASSERT_TRUE(level(kSell, 1001));
    EXPECT_EQ(levelText(*level(kSell, 1001)),
              "sell 10.01 level=0 levelVol=0 sum=1500 count=3 avg=1500 unknown=0 start=0 time=34200\n"
              "0 1500 unknown\n");
    EXPECT_EQ(engine.m_levelTime, 34200);
    EXPECT_TRUE(engine.m_bLevelArrived);
}

TEST_F(AppendLevelRecord, MergesIntoALevelThatExistsAndTakesTheTrueCount)
{
    engine.appendOrderData(levelRecord("bid 10.00: 5 6; ask 10.01: 7"));
    engine.appendOrderData(atTime(9000, levelRecord("bid 10.00: 4 6 8 of 20; ask 10.01: 7 9 of 30")));
    EXPECT_EQ(levelText(*level(kBuy, 1000)),
              "buy 10 level=0 levelVol=0 sum=18 count=20 avg=6 unknown=0 start=0 time=1 hasPart\n"
              "0 4 part 1\n"
              "0 6 normal\n"
              "0 8 unknown\n");
    EXPECT_EQ(list(kSell, 1001), "0 7 normal; 0 9 unknown");
    EXPECT_EQ(level(kSell, 1001)->m_count, 30);
}

TEST_F(AppendLevelRecord, LeavesASideWithoutAPriceAlone)
{
    engine.appendOrderData(levelRecord("bid 0: 5 6; ask 10.01: 7"));
    EXPECT_EQ(queues(), "2/1001: 0 7 unknown");
    engine.appendOrderData(levelRecord("bid 10.00: 5"));
    EXPECT_EQ(queues(), "1/1000: 0 5 unknown | 2/1001: 0 7 unknown");
}

TEST_F(AppendLevelRecord, WithoutVolumesOnOneSideOpensAnEmptyLevelThere)
{
    engine.appendOrderData(levelRecord("bid 10.00: of 4; ask 10.01: 7"));
    ASSERT_TRUE(level(kBuy, 1000));
    EXPECT_EQ(levelText(*level(kBuy, 1000)),
              "buy 10 level=0 levelVol=0 sum=0 count=4 avg=0 unknown=0 start=0 time=1\n");
}

TEST_F(AppendLevelRecord, WithoutVolumesOnOneSideOnlyTakesTheCountOfALevelThatExists)
{
    engine.appendOrderData(levelRecord("bid 10.00: 5 6; ask 10.01: 7"));
    engine.appendOrderData(levelRecord("bid 10.00: of 9; ask 10.01: 7"));
    EXPECT_EQ(levelText(*level(kBuy, 1000)),
              "buy 10 level=0 levelVol=0 sum=11 count=9 avg=5.5 unknown=0 start=0 time=1\n"
              "0 5 unknown\n"
              "0 6 unknown\n");
}

TEST_F(AppendLevelRecord, StartsTheOneSecondTimer)
{
    EXPECT_FALSE(engine.m_shangHaiTimer->isActive());
    engine.appendOrderData(levelRecord("bid 10.00: 5"));
    EXPECT_TRUE(engine.m_shangHaiTimer->isActive());
    EXPECT_EQ(engine.m_shangHaiTimer->interval(), 1000);
}

TEST_F(AppendLevelRecord, MarksTheArrivalAndStartsTheTimerEvenWithoutAnyPrice)
{
    engine.appendOrderData(levelRecord("bid 0: 5"));
    EXPECT_EQ(queues(), "");
    EXPECT_TRUE(engine.m_bLevelArrived);
    EXPECT_TRUE(engine.m_shangHaiTimer->isActive());
}

using UpdateDataList = EngineTest;

TEST_F(UpdateDataList, PassesOverEveryLevelOfEverySide)
{
    orders(1, {order(1, kBuy, 10.00, 100), order(2, kBuy, 9.00, 100), order(3, kSell, 11.00, 100),
               order(4, 0, 10.00, 100), order(5, 3, 10.00, 100)});
    engine.updateDataList();
    EXPECT_EQ(queues(), "0/1000: 4 1 normal | 1/900: 2 1 normal | 1/1000: 1 1 normal | 2/1100: 3 1 normal | "
                        "3/1000: 5 1 normal");
}

TEST_F(UpdateDataList, AsksForARepaintForAChangeAmongTheTenOnly)
{
    engine.m_bNeedRepaint = false;
    put(kBuy, 1000, "buy 10 level=0; 1 10 unknown");
    engine.updateDataList();
    EXPECT_FALSE(engine.m_bNeedRepaint);
    for (const int number : {1, 10}) {
        engine.m_bNeedRepaint = false;
        put(kBuy, 1000, "buy 10 level=" + std::to_string(number) + "; 1 10 unknown");
        engine.updateDataList();
        EXPECT_TRUE(engine.m_bNeedRepaint) << number;
        engine.m_bNeedRepaint = false;
        engine.updateDataList();
        EXPECT_FALSE(engine.m_bNeedRepaint) << "nothing has changed since";
    }
}

TEST_F(UpdateDataList, CalculatesAtOnceWhenTheFirstChangedLevelOfTheTenIsEmpty)
{
    snap("ask 10.02x5; bid 10.01x3; last 10.01");
    put(kBuy, 1000, "buy 10 level=1; 1 10 normal");
    engine.m_dealCache[1][1] = 10;
    engine.updateDataList();
    EXPECT_TRUE(engine.at(0, Kel::OQT_BUY));
    EXPECT_TRUE(engine.m_bNeedRepaint);
}

TEST_F(UpdateDataList, DoesNotCalculateWhenTheFirstChangedLevelOfTheTenHoldsVolume)
{
    snap("ask 10.02x5; bid 10.01x3; last 10.01");
    engine.m_lastFeedTime = 1000;
    put(kBuy, 900, "buy 9 level=2; 5 10 unknown");
    put(kBuy, 1000, "buy 10 level=1; 1 10 normal");
    engine.m_dealCache[1][1] = 10;
    engine.updateDataList();
    EXPECT_FALSE(engine.at(0, Kel::OQT_BUY));
    EXPECT_TRUE(engine.m_bNeedRepaint);
}

TEST_F(UpdateDataList, LetsNoLevelOutsideTheTenDecide)
{
    snap("ask 10.02x5; bid 10.01x3; last 10.01");
    put(kBuy, 900, "buy 9 level=0; 5 10 unknown");
    put(kBuy, 1000, "buy 10 level=1; 1 10 normal");
    engine.m_dealCache[1][1] = 10;
    engine.updateDataList();
    EXPECT_TRUE(engine.at(0, Kel::OQT_BUY));
}

TEST_F(UpdateDataList, LetsAnUnchangedEmptyLevelDecideNothing)
{
    snap("ask 10.02x5; bid 10.01x3; last 10.01");
    put(kBuy, 1000, "buy 10 level=1");
    engine.m_bNeedRepaint = false;
    engine.updateDataList();
    EXPECT_FALSE(engine.at(0, Kel::OQT_BUY));
    EXPECT_FALSE(engine.m_bNeedRepaint);
}

using FixDataList = EngineTest;

TEST_F(FixDataList, CutsEveryListOfTheTenDownToItsLevelVolume)
{
    put(kBuy, 1000, "buy 10 level=1 levelVol=15; 1 10 normal; 2 10 normal");
    put(kBuy, 900, "buy 9 level=0 levelVol=15; 3 10 normal; 4 10 normal");
    put(kSell, 1100, "sell 11 level=10 levelVol=10; 5 10 normal; 6 10 normal");
    engine.m_bNeedRepaint = false;
    engine.fixOrderDataList();
    EXPECT_EQ(queues(),
              "1/900: 3 10 normal; 4 10 normal | 1/1000: 1 5 normal; 2 10 normal | 2/1100: 6 10 normal");
    EXPECT_TRUE(engine.m_bNeedRepaint);
}

TEST_F(FixDataList, AsksForNoRepaintWhenNothingWasCut)
{
    put(kBuy, 1000, "buy 10 level=1 levelVol=25; 1 10 normal; 2 10 normal");
    engine.m_bNeedRepaint = false;
    engine.fixOrderDataList();
    engine.fixSZDataList(false);
    EXPECT_FALSE(engine.m_bNeedRepaint);
}

TEST_F(FixDataList, RemovesWhatStandsBeforePartDealtOrdersOfTheTenOrOfAllLevels)
{
    for (const bool onlyTen : {true, false}) {
        put(kBuy, 1000, "buy 10 level=1 levelVol=15; 1 10 normal; 2 10 part");
        put(kBuy, 900, "buy 9 level=0 levelVol=15; 3 10 normal; 4 10 part");
        engine.m_bNeedRepaint = false;
        engine.fixSZDataList(onlyTen);
        EXPECT_EQ(queues(), onlyTen ? "1/900: 3 10 normal; 4 10 part | 1/1000: 2 10 part"
                                    : "1/900: 4 10 part | 1/1000: 2 10 part");
        EXPECT_TRUE(engine.m_bNeedRepaint);
    }
}

TEST_F(FixDataList, ComparesWithTheLevelVolumeAgainOnlyWhileTheSnapshotIsNewer)
{
    for (const std::int64_t depthTime : {999, 1000, 1001}) {
        engine.m_lastFeedTime = 1000;
        engine.m_depthTime = depthTime;
        put(kBuy, 1000, "buy 10 level=1 levelVol=45 unknown=9; 1 10 normal; 2 10 part; 3 20 normal");
        engine.fixSZDataList(true);
        EXPECT_EQ(headText(*level(kBuy, 1000)),
                  depthTime > 1000 ? "buy 10 level=1 levelVol=45 sum=30 count=3 avg=15 unknown=15 start=0"
                                   : "buy 10 level=1 levelVol=45 sum=30 count=2 avg=15 unknown=9 start=0");
    }
}
