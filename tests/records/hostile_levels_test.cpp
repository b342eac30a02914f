#include "support/LevelText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace testing_support;

namespace {

const double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const int kIntMax = std::numeric_limits<int>::max();
const int kIntMin = std::numeric_limits<int>::min();

const double kVolumes[] = {0,     -1,     -5000,     9007199254740994.0, 1e18, -1e18,
                           1e300, -1e300, kInfinity, -kInfinity,         kNaN};

} // namespace

TEST(HostileLevel, TakesTwoThousandPublishedVolumes)
{
    std::vector<int> volumes;
    for (int i = 0; i < 2000; ++i)
        volumes.push_back(i % 97);
    auto level = parseLevelPtr("buy 10");
    level->resetByLevelVols(volumes);
    EXPECT_EQ(level->m_orders.size(), 2000);
    volumes.erase(volumes.begin(), volumes.begin() + 3);
    volumes.push_back(5);
    level->mergeLevelVols(volumes);
    EXPECT_GE(level->m_orders.size(), 1998);
    EXPECT_EQ(level->m_orders.last().m_vol, 5);
}

TEST(HostileLevel, TakesPublishedVolumesAtTheEndsOfInt)
{
    for (const std::vector<int>& volumes :
         {std::vector<int>{kIntMax}, std::vector<int>{kIntMin}, std::vector<int>{kIntMin, kIntMax, 0, -1},
          std::vector<int>(60, kIntMin), std::vector<int>(60, kIntMax)}) {
        auto level = parseLevelPtr("buy 10 level=1 levelVol=5\n1 10 normal\n2 20 normal\n3 30 part 4");
        level->mergeLevelVols(volumes);
        level->calcUnknownVol();
        EXPECT_GE(level->m_startIndex, 0);
        EXPECT_LE(level->m_startIndex, level->m_orders.size());
        level->trimToLevelVol();
        level->recount();
        auto fresh = parseLevelPtr("buy 10");
        fresh->resetByLevelVols(volumes);
        EXPECT_EQ(fresh->m_orders.size(), static_cast<int>(volumes.size()));
        EXPECT_EQ(fresh->m_orders.first().m_vol, volumes.front());
    }
}

TEST(HostileLevel, KeepsItsListThroughMergesOfOrdersWithHostileVolumes)
{
    for (const double volume : kVolumes) {
        SCOPED_TRACE(volume);
        auto level = parseLevelPtr("sell 10 level=1\n1 10 normal\n2 20 normal");
        level->m_orders[0].m_vol = volume;
        level->wake();
        level->mergeLevelVols({10, 20, 30});
        ASSERT_EQ(level->m_orders.size(), 3);
        EXPECT_EQ(level->m_orders.at(1).m_vol, 20);
        EXPECT_EQ(level->m_orders.at(2).m_vol, 30);
    }
}

TEST(HostileLevel, CountsNoNegativeFillerForAHostileLevelVolume)
{
    for (const double volume : kVolumes) {
        SCOPED_TRACE(volume);
        auto level = parseLevelPtr("sell 10 level=1\n1 10 normal\n2 20 normal");
        level->m_levelVol = volume;
        level->calcUnknownVol();
        EXPECT_GE(level->m_count, 0);
        EXPECT_GE(level->m_startIndex, 0);
        EXPECT_LE(level->m_startIndex, 2);
        EXPECT_EQ(ordersText(*level), "1 10 normal; 2 20 normal");
    }
}

TEST(HostileLevel, DoesNothingForALevelVolumeThatIsNotANumber)
{
    auto level = parseLevelPtr("sell 10 level=1 count=7 start=1 unknown=3\n1 10 normal\n2 20 part 1");
    level->m_levelVol = kNaN;
    level->calcUnknownVol();
    EXPECT_EQ(level->m_count, 7);
    EXPECT_EQ(level->m_startIndex, 1);
    EXPECT_EQ(level->m_unknownVol, 3);
    EXPECT_FALSE(level->trimToLevelVol());
    EXPECT_FALSE(level->dropBeforePartDeal(false));
    EXPECT_EQ(level->m_orders.size(), 2);
}

TEST(HostileLevel, ClampsTheFillersShareOfTheCount)
{
    auto level = parseLevelPtr("sell 10 level=1 levelVol=1e300\n1 10 normal");
    level->calcUnknownVol();
    EXPECT_EQ(level->m_unknownVol, 1e300);
    EXPECT_EQ(level->m_count, 1 + 2147484);
}

TEST(HostileLevel, CutsAndDropsWithHostileVolumesInTheList)
{
    for (const double volume : kVolumes) {
        SCOPED_TRACE(volume);
        auto level =
            parseLevelPtr("sell 10 level=1 levelVol=25\n1 10 normal\n2 20 normal\n3 5 part 1\n4 7 normal");
        level->m_orders[1].m_vol = volume;
        level->m_orders[2].m_partDealVol = volume;
        level->wake();
        level->calcUnknownVol();
        level->trimToLevelVol();
        level->dropBeforePartDeal(true);
        level->recount();
        ASSERT_FALSE(level->m_orders.isEmpty());
        EXPECT_EQ(level->m_orders.last().m_entrustNo, 4);
        EXPECT_EQ(level->m_orders.last().m_vol, 7);
    }
}

TEST(HostileLevel, TakesNumbersBeyondInt)
{
    const std::int64_t numbers[] = {-1, std::int64_t{1} << 40, std::numeric_limits<std::int64_t>::max(),
                                    std::numeric_limits<std::int64_t>::min()};
    auto level = parseLevelPtr("sell 10");
    for (const std::int64_t number : numbers) {
        Kel::COrderVol order;
        order.m_entrustNo = number;
        order.m_vol = 1;
        level->addOrderVol(order);
        level->addOrderVol(order);
        EXPECT_TRUE(level->m_orderIds.contains(number));
    }
    EXPECT_EQ(level->m_count, 4);
}
