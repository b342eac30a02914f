// The last price over a day.

#include "host/window/PriceSeries.h"

#include "host/SmallDay.h"

#include <gtest/gtest.h>

namespace window_tests {
namespace {

using testing_support::SmallDay;

TEST(PriceSeries, TellsThePriceOfTheLatestSnapshot)
{
    feed::InstrumentDay day;
    day.detail.previousClose = 9.9;
    for (int i = 0; i < 3; ++i) {
        feed::SnapshotRow row;
        row.time = 1000 * (i + 1);
        row.lastPrice = i == 0 ? 0 : 10 + i;
        day.snapshots.push_back(row);
    }
    const host::PriceSeries prices(day);
    EXPECT_EQ(prices.previousClose(), 9.9);
    EXPECT_EQ(prices.at(0), 0);
    EXPECT_EQ(prices.at(1999), 0) << "no deal yet";
    EXPECT_EQ(prices.at(2000), 11);
    EXPECT_EQ(prices.at(2999), 11);
    EXPECT_EQ(prices.at(3000), 12);
    EXPECT_EQ(prices.at(1000000), 12);
}

TEST(PriceSeries, TakesTheDealsWhereThereAreNoSnapshots)
{
    SmallDay small;
    small.at(0).buy(1, 10.0, 200).sell(2, 10.0, 200);
    small.at(1).deal(1, 2, 10.0, 100);
    small.at(2).cancelBuy(1, 100);
    const host::PriceSeries prices(small.day);
    EXPECT_EQ(prices.at(small.time() - 1500), 0);
    EXPECT_EQ(prices.at(small.time()), 10.0) << "a cancellation has no price";
}

TEST(PriceSeries, ATimeThatGoesBackDoesNotHideWhatWasBefore)
{
    feed::InstrumentDay day;
    for (const auto& [time, price] : {std::pair<int, double>{5000, 10.0}, {3000, 11.0}}) {
        feed::SnapshotRow row;
        row.time = time;
        row.lastPrice = price;
        day.snapshots.push_back(row);
    }
    const host::PriceSeries prices(day);
    EXPECT_EQ(prices.at(4999), 0);
    EXPECT_EQ(prices.at(5000), 11.0);
}

TEST(PriceSeries, AnEmptyDayHasNone)
{
    EXPECT_TRUE(host::PriceSeries().empty());
    EXPECT_TRUE(host::PriceSeries(feed::InstrumentDay()).empty());
    EXPECT_EQ(host::PriceSeries().at(5), 0);
}

} // namespace
} // namespace window_tests
