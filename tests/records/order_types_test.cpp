#include "records/EOrderQueueType.h"
#include "records/EQueueMode.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Kel;

TEST(OrderQueueType, HasTheFeedsSideNumbersFirstAndFixedValuesForStates)
{
    EXPECT_EQ(OQT_BUY, 1);
    EXPECT_EQ(OQT_SELL, 2);
    EXPECT_EQ(OQT_CANCELED, 3);
    EXPECT_EQ(OQT_NORMAL, 4);
    EXPECT_EQ(OQT_UNKNOWN, 5);
    EXPECT_EQ(OQT_BIG, 6);
    EXPECT_EQ(OQT_SUPER, 7);
    EXPECT_EQ(OQT_DEALT, 8);
    EXPECT_EQ(OQT_PART_DEALT, 9);
}

namespace {

struct SizeClass
{
    double lots;
    EOrderQueueType type;
};

class ClassifyVol : public testing::TestWithParam<SizeClass>
{
};

} // namespace

TEST_P(ClassifyVol, GivesTheSizeClassOfTheTruncatedLots)
{
    EXPECT_EQ(classifyVol(GetParam().lots), GetParam().type) << GetParam().lots << " lots";
}

INSTANTIATE_TEST_SUITE_P(JustUnderAndAtTheLimits, ClassifyVol,
                         testing::Values(SizeClass{0, OQT_NORMAL}, SizeClass{1, OQT_NORMAL},
                                         SizeClass{999, OQT_NORMAL}, SizeClass{999.99, OQT_NORMAL},
                                         SizeClass{999.9999999, OQT_NORMAL}, SizeClass{1000, OQT_BIG},
                                         SizeClass{1000.5, OQT_BIG}, SizeClass{4999, OQT_BIG},
                                         SizeClass{4999.99, OQT_BIG}, SizeClass{5000, OQT_SUPER},
                                         SizeClass{5001, OQT_SUPER}, SizeClass{1e9, OQT_SUPER}));

INSTANTIATE_TEST_SUITE_P(HostileLots, ClassifyVol,
                         testing::Values(SizeClass{-1, OQT_NORMAL}, SizeClass{-1e300, OQT_NORMAL},
                                         SizeClass{1e300, OQT_SUPER},
                                         SizeClass{std::numeric_limits<double>::infinity(), OQT_SUPER},
                                         SizeClass{-std::numeric_limits<double>::infinity(), OQT_NORMAL},
                                         SizeClass{std::numeric_limits<double>::quiet_NaN(), OQT_NORMAL}));

TEST(FinishedOrder, IsACancelledADealtOrAPartDealtOne)
{
    for (const EOrderQueueType type : {OQT_CANCELED, OQT_DEALT, OQT_PART_DEALT})
        EXPECT_TRUE(isFinishedOrder(type)) << type;
    for (const EOrderQueueType type : {OQT_BUY, OQT_SELL, OQT_NORMAL, OQT_UNKNOWN, OQT_BIG, OQT_SUPER})
        EXPECT_FALSE(isFinishedOrder(type)) << type;
}

TEST(QueueMode, NumbersLevelsStylesAndFrameActionsInOneSpace)
{
    EXPECT_EQ(eQueueFiveLevels, 0);
    EXPECT_EQ(eQueueTenLevels, 1);
    EXPECT_EQ(eQueueDetailFirst, 2);
    EXPECT_EQ(eQueueDetailHorizontal, 3);
    EXPECT_EQ(eQueueDetailVertical, 4);
    EXPECT_EQ(eQueueDetailList, 5);
    EXPECT_EQ(eQueuePanelExtend, 8);
    EXPECT_EQ(eQueueFilter, 9);
    EXPECT_EQ(eQueuePanelShrink, 10);
    EXPECT_EQ(eQueueFull, 11);
    EXPECT_EQ(eQueueNotFull, 12);
}
