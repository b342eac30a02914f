#include "records/PriceKey.h"

#include <gtest/gtest.h>

#include <limits>

using Kel::priceKey;

namespace {
const double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();
} // namespace

TEST(PriceKey, IsThePriceInTicksRoundedToTheNearest)
{
    EXPECT_EQ(priceKey(10.00, 0.01), 1000);
    EXPECT_EQ(priceKey(10.01, 0.01), 1001);
    EXPECT_EQ(priceKey(1810.55, 0.01), 181055);
    EXPECT_EQ(priceKey(2.345, 0.001), 2345);
    EXPECT_EQ(priceKey(110.005, 0.005), 22001);
    EXPECT_EQ(priceKey(20, 1), 20);
}

TEST(PriceKey, IsTheSameForPricesWithinHalfATick)
{
    EXPECT_EQ(priceKey(10.004, 0.01), 1000);
    EXPECT_EQ(priceKey(9.996, 0.01), 1000);
    EXPECT_EQ(priceKey(10.006, 0.01), 1001);
}

TEST(PriceKey, IsZeroForAPriceOfZero)
{
    EXPECT_EQ(priceKey(0, 0.01), 0);
    EXPECT_EQ(priceKey(-0.0, 0.01), 0);
}

TEST(PriceKey, IsOneForHalfATick)
{
    EXPECT_EQ(priceKey(0.5, 1), 1);
    EXPECT_EQ(priceKey(0.25, 0.5), 1);
    EXPECT_EQ(priceKey(0.005, 0.01), 1);
}

TEST(PriceKey, IsZeroBelowHalfATick)
{
    EXPECT_EQ(priceKey(0.0049, 0.01), 0);
    EXPECT_EQ(priceKey(0.49, 1), 0);
}

TEST(PriceKey, TruncatesTowardZeroForNegativePrices)
{
    EXPECT_EQ(priceKey(-1, 1), 0);   // -0.5
    EXPECT_EQ(priceKey(-2, 1), -1);  // -1.5
    EXPECT_EQ(priceKey(-10, 1), -9); // -9.5
    EXPECT_EQ(priceKey(-0.3, 1), 0); // 0.2
}

TEST(PriceKey, IsZeroForAPriceThatIsNotFinite)
{
    EXPECT_EQ(priceKey(kNaN, 0.01), 0);
    EXPECT_EQ(priceKey(kInfinity, 0.01), 0);
    EXPECT_EQ(priceKey(-kInfinity, 0.01), 0);
}

TEST(PriceKey, IsZeroForAKeyThatDoesNotFitAnInt)
{
    EXPECT_EQ(priceKey(1e300, 0.01), 0);
    EXPECT_EQ(priceKey(-1e300, 0.01), 0);
    EXPECT_EQ(priceKey(std::numeric_limits<double>::max(), 0.01), 0);
    EXPECT_EQ(priceKey(2147483648.0, 1), 0);
    EXPECT_EQ(priceKey(2147483647.0, 1), 2147483647);
    EXPECT_EQ(priceKey(-2147483650.0, 1), 0);
}

TEST(PriceKey, IsZeroForATickThatGivesNoFiniteQuotient)
{
    EXPECT_EQ(priceKey(10, 0), 0);
    EXPECT_EQ(priceKey(0, 0), 0);
    EXPECT_EQ(priceKey(10, kNaN), 0);
    EXPECT_EQ(priceKey(10, 1e-320), 0);
}
