#include "queue_engine/EngineFixture.h"

using namespace testing_support;

namespace {

class LevelTotals : public EngineTest
{
protected:
    /// A snapshot of 2000 ms with 77 lots at buy one and 66 at sell two, and a feed that ended at `feedTime`.
    void times(std::int64_t feedTime, int quietTicks)
    {
        snap("ask 10.01x5 10.02x66; bid 10.00x77 9.99x8; last 10.00", 2000);
        engine.m_lastFeedTime = feedTime;
        engine.m_refreshClock = feedTime + quietTicks;
    }

    std::string headAfterPass(const std::string& text)
    {
        auto made = parseLevelPtr(text);
        engine.updateVolList(made);
        return headText(*made);
    }
};

const char* const kLevel = "buy 10 level=1 levelVol=50 start=1 unknown=9; 1 10 normal; 2 20 normal";

} // namespace

TEST_F(LevelTotals, FollowTheListWhileTheFeedIsAsNewAsTheSnapshot)
{
    for (const std::int64_t feedTime : {2000, 2001, 9000}) {
        times(feedTime, 19);
        EXPECT_EQ(headAfterPass(kLevel),
                  "buy 10 level=1 levelVol=30 sum=30 count=2 avg=15 unknown=0 start=0");
    }
}

TEST_F(LevelTotals, KeepTheLevelVolumeWhenTheSnapshotIsNewerAndTheFeedNotQuiet)
{
    for (const int ticks : {0, 1, 4}) {
        times(1999, ticks);
        EXPECT_EQ(headAfterPass(kLevel),
                  "buy 10 level=1 levelVol=50 sum=30 count=3 avg=10 unknown=20 start=0");
    }
}

TEST_F(LevelTotals, TakeTheSnapshotsVolumeAfterFiveQuietTicks)
{
    for (const int ticks : {5, 6, 20}) {
        times(1999, ticks);
        EXPECT_EQ(headAfterPass(kLevel),
                  "buy 10 level=1 levelVol=77 sum=30 count=3 avg=10 unknown=47 start=0");
        EXPECT_EQ(headAfterPass("sell 10.02 level=2 levelVol=50; 1 10 normal"),
                  "sell 10.02 level=2 levelVol=66 sum=10 count=2 avg=5 unknown=56 start=0");
    }
}

TEST_F(LevelTotals, TakeTheSnapshotsVolumeOnlyAtThePriceOfTheirLevel)
{
    times(1999, 5);
    EXPECT_EQ(headAfterPass("buy 10 level=2 levelVol=50; 1 10 normal"),
              "buy 10 level=2 levelVol=50 sum=10 count=2 avg=5 unknown=40 start=0");
    EXPECT_EQ(headAfterPass("sell 10 level=1 levelVol=50; 1 10 normal"),
              "sell 10 level=1 levelVol=50 sum=10 count=2 avg=5 unknown=40 start=0");
    EXPECT_EQ(headAfterPass("buy 10.000009 level=1 levelVol=50; 1 10 normal"),
              "buy 10.000009 level=1 levelVol=77 sum=10 count=2 avg=5 unknown=67 start=0");
    EXPECT_EQ(headAfterPass("buy 10.0001 level=1 levelVol=50; 1 10 normal"),
              "buy 10.0001 level=1 levelVol=50 sum=10 count=2 avg=5 unknown=40 start=0");
}

TEST_F(LevelTotals, OutsideTheTenNeverAgreeWithTheSnapshotAndKeepTheirCount)
{
    times(1999, 5);
    for (const std::string number : {"0", "11", "-1", "2147483647"}) {
        EXPECT_EQ(headAfterPass("buy 10 levelVol=50 count=9 start=1 unknown=3 level=" + number +
                                "; 1 10 normal; 2 26 normal"),
                  "buy 10 level=" + number + " levelVol=50 sum=36 count=9 avg=4 unknown=3 start=1");
        EXPECT_EQ(headAfterPass("buy 0 levelVol=50 count=1 level=" + number + "; 1 10 normal"),
                  "buy 0 level=" + number + " levelVol=50 sum=10 count=1 avg=10 unknown=0 start=0");
    }
}

TEST_F(LevelTotals, KeepTheCountOfALevelWithoutVolume)
{
    times(1999, 0);
    EXPECT_EQ(headAfterPass("buy 10 level=1 levelVol=0 count=5; 1 10 normal"),
              "buy 10 level=1 levelVol=0 sum=10 count=5 avg=2 unknown=0 start=0");
}

TEST_F(LevelTotals, HaveTheAverageZeroWithoutOrders)
{
    times(2000, 0);
    engine.m_dealCache[1][1] = 10;
    EXPECT_EQ(headAfterPass("buy 10 level=1 levelVol=50 avg=3; 1 10 normal"),
              "buy 10 level=1 levelVol=0 sum=0 count=0 avg=0 unknown=0 start=0");
}

TEST_F(LevelTotals, CountNeitherCancelledNorDealtOrdersWhileTheFeedIsNewer)
{
    times(2000, 0);
    engine.m_dealCache[1][1] = 10;
    engine.m_cancelOrders.insert(3);
    EXPECT_EQ(headAfterPass("buy 10; 1 10 normal; 2 20 normal; 3 30 normal; 4 40 normal"),
              "buy 10 level=0 levelVol=60 sum=60 count=2 avg=30 unknown=0 start=0");
}

TEST_F(LevelTotals, TakeTheSnapshotThatIsNullForNoAgreement)
{
    times(1999, 5);
    quotes(-1, {quoter::QuoterBasePtr()});
    EXPECT_EQ(headAfterPass(kLevel), "buy 10 level=1 levelVol=50 sum=30 count=3 avg=10 unknown=20 start=0");
}
