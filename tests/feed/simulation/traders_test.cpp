#include "feed/simulation/ArrivalTimes.h"
#include "feed/simulation/SimulatedExchange.h"
#include "feed/simulation/TradingHours.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <vector>

namespace feed::test {
namespace {

std::vector<double> arrivals(double messages, double bursts, std::uint64_t seed)
{
    Random random(seed);
    ArrivalTimes times(messages, bursts, 6, random);
    std::vector<double> result;
    for (double at = times.next(); std::isfinite(at); at = times.next())
        result.push_back(at);
    return result;
}

/// Variance over mean of the counts in one-second slots of the quiet morning hour; 1 without bursts.
double clustering(const std::vector<double>& times)
{
    std::vector<int> slots(3600, 0);
    for (const double at : times) {
        const double slot = at - hours::at(10, 15);
        if (slot >= 0 && slot < 3600)
            ++slots[static_cast<std::size_t>(slot)];
    }
    double sum = 0;
    double squares = 0;
    for (const int count : slots) {
        sum += count;
        squares += double(count) * count;
    }
    const double mean = sum / 3600;
    return (squares / 3600 - mean * mean) / mean;
}

TEST(ArrivalTimes, GiveTheWantedNumberInOrderAndOnlyWhileOrdersAreTaken)
{
    for (std::uint64_t seed = 1; seed <= 5; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const std::vector<double> times = arrivals(30000, 0.6, seed);
        EXPECT_NEAR(double(times.size()), 30000, 2000);
        double last = 0;
        for (const double at : times) {
            ASSERT_GT(at, last);
            ASSERT_TRUE(hours::takesOrders(at)) << at;
            last = at;
        }
    }
}

TEST(ArrivalTimes, ComeInBursts)
{
    EXPECT_NEAR(clustering(arrivals(50000, 0, 1)), 1, 0.15);
    EXPECT_GT(clustering(arrivals(50000, 0.6, 1)), 2);
    EXPECT_GT(clustering(arrivals(50000, 0.85, 1)), clustering(arrivals(50000, 0.6, 1)));
}

TEST(ArrivalTimes, AreBusyAtTheOpen)
{
    int open = 0;
    int quiet = 0;
    for (const double at : arrivals(50000, 0.5, 2)) {
        open += at >= hours::at(9, 30) && at < hours::at(9, 35) ? 1 : 0;
        quiet += at >= hours::at(11, 0) && at < hours::at(11, 5) ? 1 : 0;
    }
    EXPECT_GT(open, 2 * quiet);
    EXPECT_GT(quiet, 100);
}

TEST(ArrivalTimes, NobodyComesWhenNobodyIsWanted)
{
    EXPECT_TRUE(arrivals(0, 0.6, 1).empty());
}

/// Counts what a day is like.
struct DayCharacter : RowSink
{
    explicit DayCharacter(std::int64_t volumeUnit) : unit(volumeUnit) {}
    void onOrder(const OrderRow& row) override
    {
        big += row.volume / unit >= 1000 ? 1 : 0;
        super += row.volume / unit >= 5000 ? 1 : 0;
        small += row.volume / unit < 10 ? 1 : 0;
        ++kinds[row.kind];
        ++sides[row.side];
    }
    void onDeal(const DealRow&) override {}
    void onSnapshot(const SnapshotRow& row) override
    {
        if (row.phase != Phase::Continuous)
            return;
        ++snapshots;
        fullBooks += row.bidVolume[9] > 0 && row.askVolume[9] > 0 ? 1 : 0;
        oneSided += row.bidVolume[0] == 0 || row.askVolume[0] == 0 ? 1 : 0;
    }
    void onQueue(const QueueRow&) override {}

    std::int64_t unit;
    int big = 0;
    int super = 0;
    int small = 0;
    int snapshots = 0;
    int fullBooks = 0;
    int oneSided = 0;
    std::map<int, int> kinds;
    std::map<int, int> sides;
};

TEST(Traders, FillTenLevelsAndNeverLeaveASideEmpty)
{
    for (const auto make :
         {shanghaiStock, shenzhenStock, growthBoardStock, fund, convertibleBond, repurchase}) {
        for (std::uint64_t seed = 1; seed <= 4; ++seed) {
            SimulatedExchange exchange(make(seed));
            SCOPED_TRACE(exchange.settings().detail.name + " seed " + std::to_string(seed));
            DayCharacter day(exchange.settings().volumeUnit);
            exchange.runDay(day);
            EXPECT_EQ(day.oneSided, 0);
            EXPECT_GT(day.fullBooks, day.snapshots * 95 / 100);
            EXPECT_NEAR(double(exchange.counts().orders), 20000, 2000);
            EXPECT_NEAR(day.sides[1] / double(day.sides[1] + day.sides[2]), 0.5, 0.1);
            EXPECT_NEAR(exchange.counts().cancels / double(exchange.counts().orders), 0.42, 0.08);
        }
    }
}

TEST(Traders, SendSmallBigAndSuperOrders)
{
    SimulatedExchange exchange(shanghaiStock(1));
    DayCharacter day(exchange.settings().volumeUnit);
    exchange.runDay(day);
    EXPECT_GT(day.big, 10);
    EXPECT_GT(day.super, 1);
    EXPECT_GT(day.small, 10000);
    EXPECT_GT(day.kinds[2], 50) << "market orders";
    EXPECT_GT(day.kinds[4], 50) << "best own side";
}

TEST(Traders, MoveThePriceOverTheDay)
{
    for (std::uint64_t seed = 1; seed <= 5; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        SimulatedExchange exchange(shenzhenStock(seed));
        InstrumentDay day;
        exchange.runDay(day);
        const DayTotals& totals = exchange.totals();
        EXPECT_GT(totals.highTicks - totals.lowTicks, 10);
        EXPECT_LT(totals.highTicks - totals.lowTicks, 600);
    }
}

TEST(Traders, BuildDeepBooksOnBusyDays)
{
    SimulatedExchange exchange(busyDay(convertibleBond(1), 60000));
    InstrumentDay day;
    exchange.runUntil(exchange.timeAt(hours::at(14, 30)), day);
    EXPECT_GT(exchange.book().levelCount(Side::Buy), 500);
    EXPECT_GT(exchange.book().levelCount(Side::Sell), 500);
}

} // namespace
} // namespace feed::test
