#include "feed/simulation/SimulatedExchange.h"
#include "feed/simulation/SimulationSettings.h"

#include <gtest/gtest.h>

#include <limits>

namespace feed::test {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(SimulationSettings, LimitsAreRoundedToTheTickFromThePreviousClose)
{
    EXPECT_EQ(usable(shanghaiStock(1)).detail.upperLimit, 20.20);
    EXPECT_EQ(usable(shanghaiStock(1)).detail.lowerLimit, 16.52);
    EXPECT_EQ(usable(growthBoardStock(1)).detail.upperLimit, 343.42);
    EXPECT_EQ(usable(convertibleBond(1)).detail.lowerLimit, 94.816);
    EXPECT_EQ(usable(repurchase(1)).detail.upperLimit, 0);
    EXPECT_EQ(usable(repurchase(1)).detail.lowerLimit, 0);
}

TEST(SimulationSettings, GivenLimitsStay)
{
    SimulationSettings settings = shanghaiStock(1);
    settings.detail.upperLimit = 18.50;
    settings.detail.lowerLimit = 18.20;
    EXPECT_EQ(usable(settings).detail.upperLimit, 18.50);
    EXPECT_EQ(usable(settings).detail.lowerLimit, 18.20);
}

TEST(SimulationSettings, EachKindHasItsTickAndLot)
{
    const struct
    {
        SimulationSettings settings;
        double tick;
        std::int64_t unit;
        Numbering numbering;
    } rows[] = {
        {shanghaiStock(1), 0.01, 100, Numbering::Separate},
        {shenzhenStock(1), 0.01, 100, Numbering::Sequence},
        {growthBoardStock(1), 0.01, 100, Numbering::Sequence},
        {fund(1), 0.001, 100, Numbering::Separate},
        {convertibleBond(1), 0.001, 10, Numbering::Sequence},
        {repurchase(1), 0.005, 10, Numbering::Separate},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.settings.detail.name);
        EXPECT_EQ(row.settings.detail.priceTick, row.tick);
        EXPECT_EQ(row.settings.volumeUnit, row.unit);
        EXPECT_EQ(row.settings.numbering, row.numbering);
        EXPECT_EQ(usable(row.settings).detail.previousClose, row.settings.detail.previousClose);
    }
}

TEST(SimulationSettings, WhatNoExchangeCanWorkWithIsMadeUsableAndADayRuns)
{
    for (const double bad : {kNan, kInfinity, -kInfinity, -1.0, 0.0, 1e300, 1e-300}) {
        SCOPED_TRACE(bad);
        SimulationSettings settings = shenzhenStock(1);
        settings.orders = 300;
        settings.tradingDay = -1;
        settings.detail.priceTick = bad;
        settings.detail.previousClose = bad;
        settings.detail.upperLimit = bad;
        settings.detail.lowerLimit = bad;
        settings.limitShare = bad;
        settings.cancelShare = bad;
        settings.marketShare = bad;
        settings.bestOwnSideShare = bad;
        settings.aggressiveShare = bad;
        settings.oddLotShare = bad;
        settings.burstStrength = bad;
        settings.busyOpen = bad;
        settings.volatility = bad;
        settings.drift = bad;
        settings.depthScale = bad;
        settings.typicalLots = bad;
        settings.sizeTail = bad;
        settings.volumeUnit = 0;
        settings.maximumVolume = -5;
        settings.foreignRows = -7;
        settings.queueInterval = 0;
        InstrumentDay day;
        SimulatedExchange exchange(settings);
        exchange.runDay(day);
        EXPECT_EQ(exchange.book().firstFault(), "");
        EXPECT_GT(day.snapshots.size(), 4000u);
    }
}

TEST(SimulationSettings, NumbersOfTheGreatestDayFitADealRecord)
{
    SimulationSettings settings = shenzhenStock(1);
    settings.orders = std::numeric_limits<std::int64_t>::max();
    settings.foreignRows = std::numeric_limits<int>::max();
    settings = usable(settings);
    // An order, its cancellation and a deal or two each: four rows and the foreign ones between them.
    const double rows = 4.0 * static_cast<double>(settings.orders) * (settings.foreignRows + 1);
    EXPECT_LT(rows, std::numeric_limits<std::int32_t>::max());
}

TEST(SimulationSettings, ADayWithoutOrdersHasEmptySnapshotsOnly)
{
    SimulationSettings settings = shanghaiStock(1);
    settings.orders = 0;
    InstrumentDay day;
    SimulatedExchange exchange(settings);
    exchange.runDay(day);
    EXPECT_TRUE(day.orders.empty());
    EXPECT_TRUE(day.deals.empty());
    for (const SnapshotRow& row : day.snapshots) {
        EXPECT_EQ(row.bidPrice[0], 0);
        EXPECT_EQ(row.askPrice[0], 0);
        EXPECT_EQ(row.lastPrice, 0);
        EXPECT_EQ(row.previousClose, 18.36);
    }
}

} // namespace
} // namespace feed::test
