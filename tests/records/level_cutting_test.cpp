#include "support/LevelText.h"

#include <gtest/gtest.h>

using namespace testing_support;

namespace {

/// The orders after the cut, with "true: " or "false: " before them.
std::string trimmed(const std::string& text)
{
    const auto level = parseLevelPtr(text);
    const std::string result = level->trimToLevelVol() ? "true: " : "false: ";
    return result + ordersText(*level);
}

std::string dropped(const std::string& text, bool onlyTenLevels)
{
    const auto level = parseLevelPtr(text);
    const std::string result = level->dropBeforePartDeal(onlyTenLevels) ? "true: " : "false: ";
    return result + ordersText(*level);
}

} // namespace

TEST(TrimToLevelVol, DoesNothingForALevelWithoutVolumeOrOutsideTheTen)
{
    for (const std::string head : {"level=1 levelVol=0", "level=1 levelVol=0.000009", "level=0 levelVol=5",
                                   "level=11 levelVol=5", "level=-1 levelVol=5"}) {
        SCOPED_TRACE(head);
        EXPECT_EQ(trimmed("buy 10 " + head + "; 1 10 normal; 2 20 normal"),
                  "false: 1 10 normal; 2 20 normal");
    }
}

TEST(TrimToLevelVol, DeletesAllBeforeTheOrderThatReachesTheLevelAndCutsNothingFromItWhenExact)
{
    EXPECT_EQ(trimmed("buy 10 level=1 levelVol=15; 1 5 normal; 2 10 normal; 3 15 normal"),
              "true: 3 15 normal");
}

TEST(TrimToLevelVol, CutsTheOrderThatReachesPastTheLevel)
{
    EXPECT_EQ(trimmed("buy 10 level=10 levelVol=20; 1 5 normal; 2 10 normal; 3 15 normal"),
              "true: 2 5 normal; 3 15 normal");
    EXPECT_EQ(trimmed("buy 10 level=1 levelVol=4; 1 5 normal"), "true: 1 4 normal");
}

TEST(TrimToLevelVol, IsTrueForAListOfExactlyTheLevelVolume)
{
    EXPECT_EQ(trimmed("buy 10 level=1 levelVol=30; 1 5 normal; 2 10 normal; 3 15 normal"),
              "true: 1 5 normal; 2 10 normal; 3 15 normal");
}

TEST(TrimToLevelVol, ReachesTheLevelWithinTheTolerance)
{
    const auto level = parseLevelPtr("buy 10 level=1 levelVol=15.000005; 1 5 normal; 2 15 normal");
    EXPECT_TRUE(level->trimToLevelVol());
    ASSERT_EQ(level->m_orders.size(), 1);
    EXPECT_NEAR(level->m_orders.at(0).m_vol, 15.000005, 1e-9);
}

TEST(TrimToLevelVol, CountsEveryOrderWhateverItsType)
{
    EXPECT_EQ(trimmed("buy 10 level=1 levelVol=20; 1 5 normal; 2 10 cancelled; 3 9 dealt; 4 5 part 2"),
              "true: 2 6 cancelled; 3 9 dealt; 4 5 part 2");
}

TEST(TrimToLevelVol, ChangesNothingWhenTheListHoldsLess)
{
    EXPECT_EQ(trimmed("buy 10 level=1 levelVol=31; 1 5 normal; 2 10 normal; 3 15 normal"),
              "false: 1 5 normal; 2 10 normal; 3 15 normal");
    EXPECT_EQ(trimmed("buy 10 level=1 levelVol=31"), "false: ");
}

TEST(TrimToLevelVol, LeavesSumAndCountToTheNextPass)
{
    const auto level = parseLevelPtr("buy 10 level=1 levelVol=20; 1 5 normal; 2 10 normal; 3 15 normal");
    const std::string before = headText(*level);
    EXPECT_TRUE(level->trimToLevelVol());
    EXPECT_EQ(headText(*level), before);
}

TEST(DropBeforePartDeal, DoesNothingForALevelWithoutVolume)
{
    for (const std::string volume : {"0", "0.000009", "-0.000009"})
        EXPECT_EQ(dropped("buy 10 level=1 levelVol=" + volume + "; 1 10 normal; 2 5 part", false),
                  "false: 1 10 normal; 2 5 part");
}

TEST(DropBeforePartDeal, LeavesLevelsOutsideTheTenAloneOnlyWhenAsked)
{
    for (const std::string number : {"0", "11"}) {
        const std::string text = "buy 10 levelVol=15 level=" + number + "; 1 10 normal; 2 5 part";
        EXPECT_EQ(dropped(text, true), "false: 1 10 normal; 2 5 part") << number;
        EXPECT_EQ(dropped(text, false), "true: 2 5 part") << number;
    }
    EXPECT_EQ(dropped("buy 10 levelVol=15 level=10; 1 10 normal; 2 5 part", true), "true: 2 5 part");
}

TEST(DropBeforePartDeal, RemovesOlderOrdersBeforeAPartDealtOneAndKeepsTheirNumbers)
{
    const auto level = parseLevelPtr("sell 10 level=1 levelVol=22; 1 10 normal; 2 5 part 3; 3 7 normal");
    EXPECT_TRUE(level->dropBeforePartDeal(true));
    EXPECT_EQ(levelText(*level), "sell 10 level=1 levelVol=22 sum=12 count=2 avg=6 unknown=0 start=0\n"
                                 "2 5 part 3\n"
                                 "3 7 normal\n");
    EXPECT_TRUE(level->m_orderIds.contains(1));
}

TEST(DropBeforePartDeal, IgnoresAPartDealtOrderAtTheFront)
{
    EXPECT_EQ(dropped("buy 10 level=1 levelVol=15; 1 10 part; 2 5 normal", false),
              "false: 1 10 part; 2 5 normal");
}

TEST(DropBeforePartDeal, IsFalseForAListWithoutAPartDealtOrder)
{
    EXPECT_EQ(dropped("buy 10 level=1 levelVol=15; 1 10 dealt; 2 5 normal", false),
              "false: 1 10 dealt; 2 5 normal");
    EXPECT_EQ(dropped("buy 10 level=1 levelVol=15", false), "false: ");
}

TEST(DropBeforePartDeal, StepsOverDealtOrdersBeforeTheMark)
{
    EXPECT_EQ(dropped("buy 10 level=1 levelVol=15; 1 10 normal; 2 3 dealt; 3 5 part", false),
              "true: 2 3 dealt; 3 5 part");
    EXPECT_EQ(dropped("buy 10 level=1 levelVol=15; 1 10 dealt; 2 3 dealt; 3 5 part", false),
              "false: 1 10 dealt; 2 3 dealt; 3 5 part");
}

TEST(DropBeforePartDeal, RemovesAllOlderOrdersUpToTheOneThatStoppedTheWalk)
{
    EXPECT_EQ(dropped("buy 10 level=1 levelVol=15; 1 10 normal; 2 6 big; 3 5 part; 4 1 normal", false),
              "true: 3 5 part; 4 1 normal");
    EXPECT_EQ(dropped("buy 10 level=1 levelVol=15; 1 10 dealt; 2 6 normal; 3 5 part", false),
              "true: 3 5 part");
}

TEST(DropBeforePartDeal, KeepsOrdersThatAreNotOlder)
{
    EXPECT_EQ(dropped("buy 10 level=1 levelVol=15; 9 10 normal; 2 6 normal; 3 5 part", false),
              "true: 9 10 normal; 3 5 part");
}

TEST(DropBeforePartDeal, IsTrueEvenIfNothingIsOlder)
{
    const auto level = parseLevelPtr("buy 10 level=1 levelVol=15 avg=1; 9 10 normal; 3 5 part");
    EXPECT_TRUE(level->dropBeforePartDeal(false));
    EXPECT_EQ(levelText(*level), "buy 10 level=1 levelVol=15 sum=15 count=2 avg=7.5 unknown=0 start=0\n"
                                 "9 10 normal\n"
                                 "3 5 part\n");
}

TEST(DropBeforePartDeal, MarksByTheLastPartDealtOrder)
{
    EXPECT_EQ(dropped("buy 10 level=1 levelVol=15; 1 4 part; 2 6 normal; 3 5 part", false), "true: 3 5 part");
    EXPECT_EQ(dropped("buy 10 level=1 levelVol=15; 1 4 normal; 2 6 part; 3 5 part", false), "true: 3 5 part");
}

TEST(DropBeforePartDeal, IsStoppedByAnOrderOfAnyTypeButDealt)
{
    for (const std::string type : {"cancelled", "normal", "unknown", "big", "super", "part"})
        EXPECT_EQ(dropped("buy 10 level=1 levelVol=15; 1 4 " + type + "; 2 5 part", false), "true: 2 5 part")
            << type;
}

TEST(DropBeforePartDeal, RemovesAllPublishedOrdersBeforeOneWithANumber)
{
    EXPECT_EQ(dropped("buy 10 level=1 levelVol=15; 0 4 unknown; 0 5 normal; 7 5 part; 0 2 normal", false),
              "true: 7 5 part; 0 2 normal");
}

TEST(DropBeforePartDeal, LeavesTheAverageOfAnEmptyCountAlone)
{
    const auto level = parseLevelPtr("buy 10 level=1 levelVol=15 count=1 avg=44; 1 10 normal; 2 5 part");
    EXPECT_TRUE(level->dropBeforePartDeal(false));
    EXPECT_EQ(level->m_count, 0);
    EXPECT_EQ(level->m_avgVol, 44);
}
