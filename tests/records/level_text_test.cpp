#include "support/LevelText.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace testing_support;

TEST(LevelText, ReadsALevelAndPrintsItBack)
{
    const auto level = parseLevelPtr("buy 10.00 level=1 levelVol=30 unknown=-2 start=1 time=34 hasPart\n"
                                     "1 10 normal\n"
                                     "2 20 part 5\n");
    EXPECT_EQ(levelText(*level),
              "buy 10 level=1 levelVol=30 sum=30 count=2 avg=15 unknown=-2 start=1 time=34 hasPart\n"
              "1 10 normal\n"
              "2 20 part 5\n");
    EXPECT_TRUE(level->m_orderIds.contains(1));
    EXPECT_TRUE(level->m_orderIds.contains(2));
}

TEST(LevelText, TakesSemicolonsForLineEnds)
{
    EXPECT_EQ(ordersText(parseLevel("sell 10.01; 7 1.5 unknown; 0 2 dealt; 9 3 cancelled")),
              "7 1.5 unknown; 0 2 dealt; 9 3 cancelled");
}

TEST(LevelText, RefusesWhatIsNoLevel)
{
    EXPECT_THROW(parseLevel("buy"), std::invalid_argument);
    EXPECT_THROW(parseLevel("buy 10.00 colour=1"), std::invalid_argument);
    EXPECT_THROW(parseLevel("buy 10.00\n1 10"), std::invalid_argument);
    EXPECT_THROW(parseLevel("buy 10.00\n1 10 sleeping"), std::invalid_argument);
    EXPECT_THROW(parseLevel("buy 10.00\n1x 10 normal"), std::invalid_argument);
}

TEST(LevelText, ReadsASnapshot)
{
    const auto record = snapshot("ask 10.02x5 10.03x7; bid 10.01x3; last 10.01");
    EXPECT_EQ(record->askPrice[0], 10.02);
    EXPECT_EQ(record->askVolume[1], 7);
    EXPECT_EQ(record->askPrice[2], 0);
    EXPECT_EQ(record->bidPrice[0], 10.01);
    EXPECT_EQ(record->bidVolume[0], 3);
    EXPECT_EQ(record->lastPrice, 10.01);
    EXPECT_THROW(snapshot("ask 10.02"), std::invalid_argument);
}

TEST(LevelText, ReadsAPublishedQueue)
{
    const auto record = levelRecord("bid 10.00: 5 6 7 of 12; ask 10.01: 3");
    EXPECT_EQ(record->bidPrice, 10.00);
    EXPECT_EQ(record->bidVolumes, (std::vector<std::int32_t>{5, 6, 7}));
    EXPECT_EQ(record->bidCount, 12);
    EXPECT_EQ(record->askVolumes, std::vector<std::int32_t>{3});
    EXPECT_EQ(record->askCount, 1);
    EXPECT_THROW(levelRecord("bid 10.00 5 6"), std::invalid_argument);
}
