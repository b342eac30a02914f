#include "models/tick/TickRecords.h"
#include "platform/models/tick_filter.h"
#include "platform/models/tick_values.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Kel;
using namespace testing_support;

namespace {

/// With `lots` of 100 shares at a price, at ten o'clock.
bool passes(const SDepthFilterParam& param, int lots, double price)
{
    return passesFilter(param, tag(10, 0, 0), lots, lots * 100, price);
}

SDepthFilterParam with(int com1, int volume, int relate, int com2, int amount)
{
    SDepthFilterParam param;
    param.com1 = com1;
    param.volume = volume;
    param.relate = relate;
    param.com2 = com2;
    param.amount = amount;
    return param;
}

constexpr int kOr = 0;
constexpr int kAnd = 1;

} // namespace

TEST(FilterDefaults, AreThoseOfTheRecord)
{
    const SDepthFilterParam param;
    EXPECT_EQ(param.mark, 0);
    EXPECT_EQ(param.color, 0);
    EXPECT_EQ(param.com1, 0);
    EXPECT_EQ(param.volume, 0);
    EXPECT_EQ(param.relate, 0);
    EXPECT_EQ(param.com2, 0);
    EXPECT_EQ(param.amount, 0);
    EXPECT_EQ(param.start, 32400000);
    EXPECT_EQ(param.end, 58200000);
    EXPECT_TRUE(param.buy && param.sell && param.unbuy && param.unsell);
}

TEST(FilterDefaults, LetEveryRowInsideTheTimeRangePass)
{
    EXPECT_TRUE(passes(SDepthFilterParam(), 1, 0));
    EXPECT_TRUE(passes(SDepthFilterParam(), 1000000, 2000));
    EXPECT_FALSE(passesFilter(SDepthFilterParam(), tag(8, 59, 59), 5, 500, 10));
    EXPECT_FALSE(passesFilter(SDepthFilterParam(), tag(16, 10, 1), 5, 500, 10));
}

TEST(FilterTime, BothEndsAreInside)
{
    EXPECT_TRUE(passesFilter(SDepthFilterParam(), tag(9, 0, 0), 5, 500, 10));
    EXPECT_TRUE(passesFilter(SDepthFilterParam(), tag(16, 10, 0), 5, 500, 10));
}

TEST(FilterTime, AStartPastTheEndKeepsNothing)
{
    SDepthFilterParam param;
    param.start = 36000001;
    param.end = 36000000;
    EXPECT_FALSE(passes(param, 5, 10));
    param.start = param.end;
    EXPECT_TRUE(passes(param, 5, 10));
}

TEST(FilterTime, IsThatOfTheExchangeBefore1970AsWell)
{
    EXPECT_EQ(secondOfDay(tag(9, 30, 1)), (9 * 60 + 30) * 60 + 1);
    EXPECT_EQ(secondOfDay(0), 8 * 3600);
    EXPECT_EQ(secondOfDay(-8 * 3600 - 1), 24 * 3600 - 1);
    EXPECT_GE(secondOfDay(std::numeric_limits<std::int32_t>::min()), 0);
}

TEST(FilterVolume, ComparesLotsByItsSymbol)
{
    struct Row
    {
        int com1;
        bool below, equal, above;
    };
    for (const Row& row :
         {Row{0, false, true, true}, Row{1, false, false, true}, Row{2, false, true, false}}) {
        const SDepthFilterParam param = with(row.com1, 50, kAnd, 0, 0);
        EXPECT_EQ(passes(param, 49, 10), row.below) << row.com1;
        EXPECT_EQ(passes(param, 50, 10), row.equal) << row.com1;
        EXPECT_EQ(passes(param, 51, 10), row.above) << row.com1;
    }
}

TEST(FilterAmount, IsSharesTimesPriceInYuan)
{
    EXPECT_TRUE(passes(with(0, 0, kAnd, 0, 50000), 50, 10));
    EXPECT_FALSE(passes(with(0, 0, kAnd, 1, 50000), 50, 10));
    EXPECT_TRUE(passes(with(0, 0, kAnd, 1, 49999), 50, 10));
    EXPECT_FALSE(passes(with(0, 0, kAnd, 0, 50001), 50, 10));
}

TEST(FilterAmount, KnowsTheTolerance)
{
    // 300 shares at 0.1 make 30.000000000000004 and 33.33 times 0.1 lies a little below 3.333.
    EXPECT_FALSE(passesFilter(with(0, 0, kAnd, 1, 30), tag(10, 0, 0), 3, 300, 0.1));
    EXPECT_TRUE(passesFilter(with(0, 0, kAnd, 0, 30), tag(10, 0, 0), 3, 300, 0.09999999999));
    EXPECT_FALSE(passesFilter(with(0, 0, kAnd, 0, 30), tag(10, 0, 0), 3, 300, 0.0999999));
    EXPECT_TRUE(passesFilter(with(0, 0, kAnd, 1, 30), tag(10, 0, 0), 3, 300, 0.1000001));
}

TEST(FilterRelation, OrTakesEitherAndTakesBoth)
{
    // 50 lots or more; 100,000 yuan or more
    const SDepthFilterParam either = with(0, 50, kOr, 0, 100000);
    const SDepthFilterParam both = with(0, 50, kAnd, 0, 100000);
    struct Row
    {
        int lots;
        double price;
        bool either, both;
    };
    for (const Row& row : {Row{50, 10, true, false}, Row{10, 100, true, false}, Row{50, 20, true, true},
                           Row{10, 10, false, false}}) {
        EXPECT_EQ(passes(either, row.lots, row.price), row.either) << row.lots;
        EXPECT_EQ(passes(both, row.lots, row.price), row.both) << row.lots;
    }
}

TEST(FilterRelation, OrWithAZeroThresholdLetsEverythingPass)
{
    EXPECT_TRUE(passes(with(0, 1000, kOr, 0, 0), 1, 0.01));
    EXPECT_TRUE(passes(with(0, 0, kOr, 0, 2000000000), 1, 0.01));
}

TEST(FilterValues, WithoutAMeaningCountAsTheFirst)
{
    EXPECT_TRUE(passes(with(7, 50, 9, -3, 100000), 50, 10));
    EXPECT_TRUE(passes(with(7, 50, 9, 2, 100000), 10, 100));
    EXPECT_FALSE(passes(with(7, 50, 9, 2, 100000), 10, 10));
}

TEST(FilterSides, AdmitOrdersAndCancelsByTheirSide)
{
    SDepthFilterParam param;
    param.sell = false;
    param.unbuy = false;
    EXPECT_TRUE(wantsOrder(param, 1));
    EXPECT_FALSE(wantsOrder(param, 2));
    EXPECT_FALSE(wantsCancel(param, 1));
    EXPECT_TRUE(wantsCancel(param, 2));
}

TEST(FilterSides, AnUnknownSidePassesWhileEitherFlagIsSet)
{
    SDepthFilterParam param;
    param.unbuy = false;
    param.buy = false;
    EXPECT_TRUE(wantsCancel(param, 0));
    EXPECT_TRUE(wantsOrder(param, 0));
    param.unsell = false;
    param.sell = false;
    EXPECT_FALSE(wantsCancel(param, 0));
    EXPECT_FALSE(wantsOrder(param, 0));
}

TEST(TickValues, LotsAreTheNearestAndOneBelowALot)
{
    struct Row
    {
        std::int64_t shares;
        int unit, lots;
    };
    for (const Row& row : {Row{0, 100, 0}, Row{-5, 100, 0}, Row{1, 100, 1}, Row{99, 100, 1}, Row{149, 100, 1},
                           Row{150, 100, 2}, Row{1050, 100, 11}, Row{14, 10, 1}, Row{15, 10, 2}, Row{7, 0, 7},
                           Row{std::numeric_limits<std::int64_t>::max(), 100, 2147483647}})
        EXPECT_EQ(lotsFromShares(row.shares, row.unit), row.lots) << row.shares << " of " << row.unit;
}

TEST(TickValues, SumsOfSharesStayWithin64Bits)
{
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(addShares(3, 4), 7);
    EXPECT_EQ(addShares(kMost, 1), kMost);
    EXPECT_EQ(addShares(kLeast, -1), kLeast);
    EXPECT_EQ(subtractShares(3, 4), -1);
    EXPECT_EQ(subtractShares(kLeast, 1), kLeast);
    EXPECT_EQ(subtractShares(0, kLeast), kMost);
}

TEST(TickValues, ActiveSideIsTheFeedsElseTheLaterOrderAndNoneInAnAuction)
{
    EXPECT_EQ(activeSideOf(2, 9, 4, tag(10, 0, 0)), 2);
    EXPECT_EQ(activeSideOf(0, 9, 4, tag(10, 0, 0)), 1);
    EXPECT_EQ(activeSideOf(0, 4, 9, tag(10, 0, 0)), 2);
    EXPECT_EQ(activeSideOf(0, 4, 4, tag(10, 0, 0)), 0);
    EXPECT_EQ(activeSideOf(0, 9, 4, tag(9, 25, 0)), 0);
    EXPECT_EQ(activeSideOf(0, 9, 4, tag(9, 30, 0)), 1);
    EXPECT_EQ(activeSideOf(0, 9, 4, tag(14, 56, 59)), 1);
    EXPECT_EQ(activeSideOf(0, 9, 4, tag(15, 0, 0)), 0);
    EXPECT_EQ(activeSideOf(1, 4, 9, tag(9, 25, 0)), 1);
}
