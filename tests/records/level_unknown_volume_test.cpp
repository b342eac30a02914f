#include "support/LevelText.h"

#include <gtest/gtest.h>

using namespace testing_support;

namespace {

Kel::OrderQueueDataPtr calculated(const std::string& text)
{
    const auto level = parseLevelPtr(text);
    level->calcUnknownVol();
    return level;
}

/// "start count unknown" after the calculation.
std::string result(const std::string& text)
{
    const auto level = calculated(text);
    return std::to_string(level->m_startIndex) + " " + std::to_string(level->m_count) + " " +
           numberText(level->m_unknownVol);
}

} // namespace

TEST(CalcUnknownVol, DoesNothingForALevelWithoutVolume)
{
    for (const std::string volume : {"0", "0.000009", "-0.000009"}) {
        SCOPED_TRACE(volume);
        EXPECT_EQ(result("buy 10 level=1 levelVol=" + volume + " start=5 count=7 unknown=9\n1 10 normal"),
                  "5 7 9");
    }
}

TEST(CalcUnknownVol, DoesNothingOutsideTheTenLevels)
{
    for (const std::string number : {"0", "11", "-1", "100"}) {
        SCOPED_TRACE(number);
        EXPECT_EQ(result("buy 10 levelVol=50 start=5 count=7 unknown=9 level=" + number + "\n1 10 normal"),
                  "5 7 9");
    }
    for (const std::string number : {"1", "10"}) {
        SCOPED_TRACE(number);
        EXPECT_EQ(result("buy 10 levelVol=10 start=5 count=7 unknown=9 level=" + number + "\n1 10 normal"),
                  "0 1 0");
    }
}

TEST(CalcUnknownVol, ReadsTheListFromItsBackUntilTheLevelIsCovered)
{
    EXPECT_EQ(result("buy 10 level=1 levelVol=30; 1 10 normal; 2 20 normal; 3 10 big; 4 20 unknown"),
              "2 2 0");
    EXPECT_EQ(result("buy 10 level=1 levelVol=60; 1 10 normal; 2 20 normal; 3 10 normal; 4 20 normal"),
              "0 4 0");
}

TEST(CalcUnknownVol, CoversTheLevelWithinTheTolerance)
{
    EXPECT_EQ(calculated("buy 10 level=1 levelVol=30.000005; 1 10 normal; 2 30 normal")->m_startIndex, 1);
    EXPECT_EQ(calculated("buy 10 level=1 levelVol=30.1; 1 10 normal; 2 30 normal")->m_startIndex, 0);
}

TEST(CalcUnknownVol, LeavesTheUnknownVolumeNegativeWhenTheListHoldsMore)
{
    EXPECT_EQ(result("buy 10 level=1 levelVol=10; 1 5 normal; 2 20 normal"), "1 1 -10");
}

TEST(CalcUnknownVol, StepsOverCancelledAndDealtOrders)
{
    EXPECT_EQ(
        result("buy 10 level=1 levelVol=25; 1 5 normal; 2 20 normal; 3 7 cancelled; 4 5 normal; 5 9 dealt"),
        "1 4 0");
    EXPECT_EQ(result("buy 10 level=1 levelVol=25; 1 7 cancelled; 2 9 dealt"), "0 3 25");
}

TEST(CalcUnknownVol, StopsAtAPartDealtOrderWhichIsTheFront)
{
    EXPECT_EQ(result("buy 10 level=1 levelVol=100; 1 10 normal; 2 5 part 3; 3 10 normal"), "1 3 85");
}

TEST(CalcUnknownVol, CountsTheFillerAsOneOrderPerStartedThousandLots)
{
    EXPECT_EQ(result("buy 10 level=1 levelVol=2500; 1 1000 normal"), "0 3 1500");
    EXPECT_EQ(result("buy 10 level=1 levelVol=11; 1 10 normal"), "0 2 1");
    EXPECT_EQ(result("buy 10 level=1 levelVol=1010; 1 10 normal"), "0 2 1000");
    EXPECT_EQ(result("buy 10 level=1 levelVol=1010.4; 1 10 normal"), "0 2 1000.4");
    EXPECT_EQ(result("buy 10 level=1 levelVol=1010.5; 1 10 normal"), "0 3 1000.5");
    EXPECT_EQ(result("buy 10 level=1 levelVol=1011; 1 10 normal"), "0 3 1001");
    EXPECT_EQ(result("buy 10 level=1 levelVol=2000"), "0 2 2000");
}

TEST(CalcUnknownVol, DropsAnUnknownPartBelowOneLot)
{
    EXPECT_EQ(result("buy 10 level=1 levelVol=10.5; 1 10 normal"), "0 1 0");
    EXPECT_EQ(result("buy 10 level=1 levelVol=9.5; 1 10 normal"), "0 1 0");
    EXPECT_EQ(result("buy 10 level=1 levelVol=9; 1 10 normal"), "0 1 -1");
}

TEST(CalcUnknownVol, TakesOneLotLessTheToleranceForOneLot)
{
    EXPECT_EQ(result("buy 10 level=1 levelVol=10.999995; 1 10 normal"), "0 2 0.999995");
    EXPECT_EQ(result("buy 10 level=1 levelVol=10.9999; 1 10 normal"), "0 1 0");
}

TEST(CalcUnknownVol, CountsFromTheStartToTheEndOfTheListAndReadsNothingElse)
{
    EXPECT_EQ(result("buy 10 level=1 levelVol=7 count=99 sum=500 start=3 unknown=44; 1 1 normal; 2 9 normal; "
                     "3 1 normal"),
              "1 2 -3");
}

TEST(CalcUnknownVol, LeavesSumsAndOrdersAlone)
{
    const auto level = calculated("buy 10 level=3 levelVol=2500 sum=17 avg=3; 1 1000 big; 2 4 part 2");
    EXPECT_EQ(levelText(*level), "buy 10 level=3 levelVol=2500 sum=17 count=4 avg=3 unknown=2496 start=1\n"
                                 "1 1000 big\n"
                                 "2 4 part 2\n");
}
