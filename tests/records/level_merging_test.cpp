#include "support/LevelText.h"

#include <gtest/gtest.h>

using namespace testing_support;

namespace {

/// `count` orders "number lots normal" with numbers from 1 on.
std::string orders(int count, const std::string& lots)
{
    std::string text;
    for (int number = 1; number <= count; ++number)
        text += "\n" + std::to_string(number) + " " + lots + " normal";
    return text;
}

std::string merged(const std::string& text, const std::vector<int>& volumes)
{
    const auto level = parseLevelPtr(text);
    level->mergeLevelVols(volumes);
    return ordersText(*level);
}

} // namespace

TEST(ResetByLevelVols, ReplacesTheListByOrdersWithoutNumbers)
{
    auto level =
        parseLevelPtr("sell 10.5 level=2 levelVol=70 unknown=3 start=1 hasPart\n4 10 part 5\n5 60 normal");
    level->resetByLevelVols({5, 0, 2000});
    EXPECT_EQ(levelText(*level),
              "sell 10.5 level=2 levelVol=70 sum=2005 count=3 avg=668.333333333 unknown=3 start=1 hasPart\n"
              "0 5 unknown\n"
              "0 0 unknown\n"
              "0 2000 unknown\n");
}

TEST(ResetByLevelVols, LeavesTheNumbersAsTheyWere)
{
    auto level = parseLevelPtr("sell 10\n4 10 normal");
    level->resetByLevelVols({5});
    EXPECT_TRUE(level->m_orderIds.contains(4));
    EXPECT_FALSE(level->m_orderIds.contains(0));
}

TEST(ResetByLevelVols, GivesAnEmptyQueueTheAverageZero)
{
    auto level = parseLevelPtr("sell 10\n4 10 normal");
    level->resetByLevelVols({});
    EXPECT_EQ(levelText(*level), "sell 10 level=0 levelVol=0 sum=0 count=0 avg=0 unknown=0 start=0\n");
}

TEST(MergeLevelVols, ChangesNothingForAnEmptyQueue)
{
    auto level = parseLevelPtr("buy 10 level=1 levelVol=5 avg=-3\n1 10 normal");
    const std::string before = levelText(*level);
    level->mergeLevelVols({});
    EXPECT_EQ(levelText(*level), before);
}

TEST(MergeLevelVols, FindsTheAnchorInAListOfOneOrderAlways)
{
    auto level = parseLevelPtr("buy 10\n1 10 unknown");
    level->mergeLevelVols({10});
    EXPECT_EQ(levelText(*level),
              "buy 10 level=0 levelVol=0 sum=10 count=1 avg=10 unknown=0 start=0\n1 10 normal\n");
}

TEST(MergeLevelVols, MakesAHeadThatShrankPartDealt)
{
    auto level = parseLevelPtr("buy 10\n1 10 normal\n2 20 normal");
    level->mergeLevelVols({7, 20});
    EXPECT_EQ(levelText(*level),
              "buy 10 level=0 levelVol=0 sum=27 count=2 avg=13.5 unknown=0 start=0 hasPart\n"
              "1 7 part 3\n"
              "2 20 normal\n");
}

TEST(MergeLevelVols, RaisesAHeadThatIsLargerOnAFoundMatchAndLeavesTheSum)
{
    auto level = parseLevelPtr("buy 10\n1 10 normal\n2 20 normal");
    level->mergeLevelVols({12, 20});
    EXPECT_EQ(levelText(*level), "buy 10 level=0 levelVol=0 sum=30 count=2 avg=15 unknown=0 start=0\n"
                                 "1 12 normal\n"
                                 "2 20 normal\n");
}

TEST(MergeLevelVols, DoesNotRaiseTheHeadWithoutAMatch)
{
    EXPECT_EQ(merged("buy 10 levelVol=44\n1 10 normal\n2 20 normal", {22, 24}),
              "1 10 dealt; 2 20 normal; 0 24 unknown");
}

TEST(MergeLevelVols, AppendsWhatIsNew)
{
    auto level = parseLevelPtr("buy 10\n1 10 normal\n2 20 normal");
    level->mergeLevelVols({10, 20, 5, 1500});
    EXPECT_EQ(levelText(*level), "buy 10 level=0 levelVol=0 sum=1535 count=4 avg=383.75 unknown=0 start=0\n"
                                 "1 10 normal\n"
                                 "2 20 normal\n"
                                 "0 5 unknown\n"
                                 "0 1500 unknown\n");
}

TEST(MergeLevelVols, ClassifiesMatchedOrdersByTheirVolume)
{
    EXPECT_EQ(merged("buy 10\n0 1500 unknown\n0 7000 unknown\n0 3 cancelled", {1500, 7000, 3}),
              "0 1500 big; 0 7000 super; 0 3 normal");
}

TEST(MergeLevelVols, DeclaresAnUnmatchedOrderBehindTheAnchorCancelled)
{
    auto level = parseLevelPtr("buy 10\n1 10 normal\n2 20 normal\n3 30 normal\n4 40 normal");
    level->mergeLevelVols({10, 30, 40});
    EXPECT_EQ(levelText(*level),
              "buy 10 level=0 levelVol=0 sum=80 count=3 avg=26.6666666667 unknown=0 start=0\n"
              "1 10 normal\n"
              "2 20 cancelled\n"
              "3 30 normal\n"
              "4 40 normal\n");
}

TEST(MergeLevelVols, TakesTheFirstAnchorWhoseFollowersMatchWhateverItsOwnVolume)
{
    // Only the followers are compared: the first order takes the volume of the published head, and the order
    // whose volume it was counts as cancelled.
    EXPECT_EQ(merged("buy 10\n1 10 normal\n2 20 normal\n3 30 normal\n4 40 normal", {20, 30, 40}),
              "1 20 normal; 2 20 cancelled; 3 30 normal; 4 40 normal");
}

TEST(MergeLevelVols, MatchesAQueueThatBeginsAtIndexThreeToTheFirstOrder)
{
    auto level =
        parseLevelPtr("buy 10\n1 90 normal\n2 91 normal\n3 92 normal\n4 10 normal\n5 20 normal\n6 30 normal\n"
                      "7 40 normal\n8 50 normal\n9 60 normal\n10 70 normal");
    level->mergeLevelVols({10, 20, 30, 40, 50, 60, 70});
    EXPECT_EQ(levelText(*level),
              "buy 10 level=0 levelVol=0 sum=280 count=7 avg=40 unknown=0 start=0 hasPart\n"
              "1 10 part 80\n"
              "2 91 cancelled\n"
              "3 92 cancelled\n"
              "4 10 cancelled\n"
              "5 20 normal\n"
              "6 30 normal\n"
              "7 40 normal\n"
              "8 50 normal\n"
              "9 60 normal\n"
              "10 70 normal\n");
}

TEST(MergeLevelVols, DeclaresWhatStandsBeforeTheAnchorDealt)
{
    auto level = parseLevelPtr(
        "buy 10" + orders(6, "9") +
        "\n7 1 normal\n8 2 normal\n9 3 normal\n10 4 normal\n11 5 normal\n12 6 normal\n13 7 normal");
    level->mergeLevelVols({1, 2, 3, 4, 5, 6, 7});
    // The third order is the anchor: it was 9 and is 1 now, so 8 lots of it were dealt; three more stand
    // before the order that the first one was compared with and count as cancelled.
    EXPECT_EQ(levelText(*level), "buy 10 level=0 levelVol=0 sum=28 count=7 avg=4 unknown=0 start=0 hasPart\n"
                                 "1 9 dealt\n"
                                 "2 9 dealt\n"
                                 "3 1 part 8\n"
                                 "4 9 cancelled\n"
                                 "5 9 cancelled\n"
                                 "6 9 cancelled\n"
                                 "7 1 cancelled\n"
                                 "8 2 normal\n"
                                 "9 3 normal\n"
                                 "10 4 normal\n"
                                 "11 5 normal\n"
                                 "12 6 normal\n"
                                 "13 7 normal\n");
}

TEST(MergeLevelVols, PassesOverTheOrderRightBehindAnAnchorThatFailed)
{
    // The first order fails by five mismatches. The second would fit with four, but the search resumes at the
    // third.
    EXPECT_EQ(merged("buy 10" + orders(6, "9") +
                         "\n7 2 normal\n8 3 normal\n9 4 normal\n10 5 normal\n11 6 normal\n12 7 normal",
                     {1, 2, 3, 4, 5, 6, 7}),
              "1 9 dealt; 2 9 dealt; 3 1 part 8; 4 9 cancelled; 5 9 cancelled; 6 9 cancelled; 7 2 normal; 8 "
              "3 normal; "
              "9 4 normal; 10 5 normal; 11 6 normal; 12 7 normal");
}

TEST(MergeLevelVols, AllowsAnAnchorFourMismatches)
{
    EXPECT_EQ(
        merged("buy 10\n1 1 normal" + std::string("\n2 9 normal\n3 9 normal\n4 9 normal\n5 9 normal") +
                   "\n6 2 normal\n7 3 normal",
               {1, 2, 3}),
        "1 1 normal; 2 9 cancelled; 3 9 cancelled; 4 9 cancelled; 5 9 cancelled; 6 2 normal; 7 3 normal");
}

TEST(MergeLevelVols, ComparesSevenVolumesAtMost)
{
    // The eighth published volume differs from the list; the anchor stands on the first seven.
    EXPECT_EQ(
        merged("buy 10\n1 1 normal\n2 2 normal\n3 3 normal\n4 4 normal\n5 5 normal\n6 6 normal\n7 7 normal\n"
               "8 99 normal\n9 8 normal",
               {1, 2, 3, 4, 5, 6, 7, 8}),
        "1 1 normal; 2 2 normal; 3 3 normal; 4 4 normal; 5 5 normal; 6 6 normal; 7 7 normal; 8 99 cancelled; "
        "9 8 normal");
}

TEST(MergeLevelVols, LeavesOrdersBeyondThePublishedOnesAlone)
{
    auto level = parseLevelPtr("buy 10\n1 10 unknown\n2 20 unknown\n3 30 unknown\n4 40 unknown");
    level->mergeLevelVols({10, 20});
    EXPECT_EQ(ordersText(*level), "1 10 normal; 2 20 normal; 3 30 unknown; 4 40 unknown");
    EXPECT_EQ(level->m_sumVol, 100);
    EXPECT_EQ(level->m_count, 4);
}

TEST(MergeLevelVols, ComparesRoundedVolumes)
{
    EXPECT_EQ(merged("buy 10\n1 9.6 normal\n2 19.5 normal\n3 30.4 normal", {10, 20, 30}),
              "1 9.6 normal; 2 19.5 normal; 3 30.4 normal");
    EXPECT_EQ(merged("buy 10\n1 9.4 normal\n2 20 normal", {10, 20}), "1 10 normal; 2 20 normal");
    EXPECT_EQ(merged("buy 10\n1 9.5 normal\n2 20 normal", {9, 20}), "1 9 part 0.5; 2 20 normal");
}

TEST(MergeLevelVols, KeepsTheLastOrderOfAListThatMatchesNowhere)
{
    auto level = parseLevelPtr("buy 10 levelVol=14" + orders(6, "1"));
    level->mergeLevelVols({5, 6, 7});
    EXPECT_EQ(levelText(*level),
              "buy 10 level=0 levelVol=14 sum=14 count=3 avg=4.66666666667 unknown=0 start=0\n"
              "1 1 dealt\n"
              "2 1 dealt\n"
              "3 1 dealt\n"
              "4 1 dealt\n"
              "5 1 dealt\n"
              "6 1 normal\n"
              "0 6 unknown\n"
              "0 7 unknown\n");
}

TEST(MergeLevelVols, ThrowsAMergeWithoutAnAnchorAwayWhenTheSumsDiffer)
{
    auto level = parseLevelPtr("buy 10 levelVol=15" + orders(6, "1"));
    level->mergeLevelVols({5, 6, 7});
    EXPECT_EQ(levelText(*level), "buy 10 level=0 levelVol=15 sum=18 count=3 avg=6 unknown=0 start=0\n"
                                 "0 5 unknown\n"
                                 "0 6 unknown\n"
                                 "0 7 unknown\n");
}

TEST(MergeLevelVols, TakesSumsWithinTheToleranceAsEqual)
{
    EXPECT_EQ(merged("buy 10 levelVol=14.000005" + orders(6, "1"), {5, 6, 7}),
              "1 1 dealt; 2 1 dealt; 3 1 dealt; 4 1 dealt; 5 1 dealt; 6 1 normal; 0 6 unknown; 0 7 unknown");
    EXPECT_EQ(merged("buy 10 levelVol=14.0001" + orders(6, "1"), {5, 6, 7}),
              "0 5 unknown; 0 6 unknown; 0 7 unknown");
}

TEST(MergeLevelVols, KeepsAFoundMatchEvenIfTheSumsDiffer)
{
    EXPECT_EQ(merged("buy 10 levelVol=999\n1 10 normal\n2 20 normal", {10, 20}), "1 10 normal; 2 20 normal");
}

TEST(MergeLevelVols, FillsAnEmptyListWhateverTheLevelVolume)
{
    auto level = parseLevelPtr("buy 10 levelVol=999");
    level->mergeLevelVols({5, 6});
    EXPECT_EQ(levelText(*level), "buy 10 level=0 levelVol=999 sum=11 count=2 avg=5.5 unknown=0 start=0\n"
                                 "0 5 unknown\n"
                                 "0 6 unknown\n");
}

TEST(MergeLevelVols, RebuildsTheListFromAFullQueueThatFitsNowhere)
{
    auto level = parseLevelPtr("buy 10 levelVol=99" + orders(60, "1"));
    level->mergeLevelVols(std::vector<int>(50, 2));
    EXPECT_EQ(level->m_orders.size(), 50);
    EXPECT_EQ(headText(*level), "buy 10 level=0 levelVol=99 sum=100 count=50 avg=2 unknown=0 start=0");
    for (const Kel::COrderVol& order : level->m_orders)
        EXPECT_EQ(typeText(order.m_type) + numberText(order.m_vol), "unknown2");
}

TEST(MergeLevelVols, KeepsTheLastOrderWithFortyNineVolumesIfTheSumsThenAgree)
{
    auto level = parseLevelPtr("buy 10 levelVol=97" + orders(60, "1"));
    level->mergeLevelVols(std::vector<int>(49, 2));
    EXPECT_EQ(headText(*level),
              "buy 10 level=0 levelVol=97 sum=97 count=49 avg=1.97959183673 unknown=0 start=0");
    ASSERT_EQ(level->m_orders.size(), 60 + 48);
    for (int i = 0; i < 59; ++i)
        EXPECT_EQ(level->m_orders.at(i).m_type, Kel::OQT_DEALT) << i;
    EXPECT_EQ(level->m_orders.at(59).m_type, Kel::OQT_NORMAL);
    EXPECT_EQ(level->m_orders.at(60).m_type, Kel::OQT_UNKNOWN);
}

TEST(MergeLevelVols, RebuildsTheListFromFortyNineVolumesIfTheSumsDiffer)
{
    auto level = parseLevelPtr("buy 10 levelVol=96" + orders(60, "1"));
    level->mergeLevelVols(std::vector<int>(49, 2));
    EXPECT_EQ(headText(*level), "buy 10 level=0 levelVol=96 sum=98 count=49 avg=2 unknown=0 start=0");
    EXPECT_EQ(level->m_orders.size(), 49);
}

TEST(MergeLevelVols, KeepsAFullQueueThatFits)
{
    auto level = parseLevelPtr("buy 10 levelVol=1" + orders(60, "2"));
    level->mergeLevelVols(std::vector<int>(50, 2));
    EXPECT_EQ(level->m_orders.size(), 60);
    EXPECT_EQ(level->m_orders.at(0).m_entrustNo, 1);
}

TEST(MergeLevelVols, AddsAFullQueueToAnEmptyListByRebuildingIt)
{
    auto level = parseLevelPtr("buy 10 sum=7 count=3");
    level->mergeLevelVols(std::vector<int>(50, 2));
    EXPECT_EQ(headText(*level), "buy 10 level=0 levelVol=0 sum=100 count=50 avg=2 unknown=0 start=0");
}

TEST(MergeLevelVols, MakesANegativeAverageZero)
{
    auto level = parseLevelPtr("buy 10 sum=-100 count=1\n1 10 normal");
    level->mergeLevelVols({10});
    EXPECT_EQ(headText(*level), "buy 10 level=0 levelVol=0 sum=-100 count=1 avg=0 unknown=0 start=0");
}
