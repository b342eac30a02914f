#include "records/Tolerance.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Kel;

namespace {
const double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const int kIntMax = std::numeric_limits<int>::max();
const int kIntMin = std::numeric_limits<int>::min();
} // namespace

TEST(Tolerance, IsOneHundredThousandth)
{
    EXPECT_DOUBLE_EQ(kTolerance, 0.00001);
}

TEST(Tolerance, MakesAValueLessOnlyIfItIsSoByMore)
{
    EXPECT_TRUE(isLess(1, 2));
    EXPECT_FALSE(isLess(2, 1));
    EXPECT_FALSE(isLess(1, 1));
    EXPECT_TRUE(isLess(1, 1.00002));
    EXPECT_FALSE(isLess(1, 1.000005));
}

TEST(Tolerance, CountsAValueWithinItOfZeroAsNone)
{
    EXPECT_FALSE(isPositive(0.000009));
    EXPECT_TRUE(isPositive(0.00002));
    EXPECT_FALSE(isNegative(-0.000009));
    EXPECT_TRUE(isNegative(-0.00002));
    EXPECT_TRUE(isZero(0));
    EXPECT_TRUE(isZero(0.000009));
    EXPECT_TRUE(isZero(-0.000009));
    EXPECT_FALSE(isZero(0.00002));
    EXPECT_FALSE(isZero(-0.00002));
}

TEST(Tolerance, MakesTwoValuesWithinItEqual)
{
    EXPECT_TRUE(isEqual(10, 10.000009));
    EXPECT_TRUE(isEqual(10.000009, 10));
    EXPECT_FALSE(isEqual(10, 10.00002));
    EXPECT_FALSE(isEqual(10.00002, 10));
}

TEST(Truncation, DropsTheFractionTowardZero)
{
    EXPECT_EQ(truncateToInt(2.9), 2);
    EXPECT_EQ(truncateToInt(-2.9), -2);
    EXPECT_EQ(truncateToInt(0), 0);
}

TEST(Truncation, ClampsWhatDoesNotFitAnInt)
{
    EXPECT_EQ(truncateToInt(1e300), kIntMax);
    EXPECT_EQ(truncateToInt(-1e300), kIntMin);
    EXPECT_EQ(truncateToInt(kInfinity), kIntMax);
    EXPECT_EQ(truncateToInt(-kInfinity), kIntMin);
    EXPECT_EQ(truncateToInt(2147483646.5), 2147483646);
    EXPECT_EQ(truncateToInt(2147483648.0), kIntMax);
}

TEST(Truncation, MakesNotANumberZero)
{
    EXPECT_EQ(truncateToInt(kNaN), 0);
}

TEST(Truncation, ClampsWideIntegers)
{
    EXPECT_EQ(clampToInt(5), 5);
    EXPECT_EQ(clampToInt(-5), -5);
    EXPECT_EQ(clampToInt(std::int64_t{1} << 40), kIntMax);
    EXPECT_EQ(clampToInt(-(std::int64_t{1} << 40)), kIntMin);
}
