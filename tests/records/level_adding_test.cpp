#include "support/LevelText.h"

#include <gtest/gtest.h>

using namespace testing_support;

namespace {

Kel::COrderVol orderVol(std::int64_t number, double lots, Kel::EOrderQueueType type, double dealt = 0)
{
    Kel::COrderVol order;
    order.m_entrustNo = number;
    order.m_vol = lots;
    order.m_type = type;
    order.m_partDealVol = dealt;
    return order;
}

} // namespace

TEST(AddOrderVol, AppendsAndCountsAndAverages)
{
    auto level = parseLevelPtr("buy 10");
    level->addOrderVol(orderVol(7, 10, Kel::OQT_UNKNOWN));
    level->addOrderVol(orderVol(3, 25, Kel::OQT_NORMAL));
    EXPECT_EQ(levelText(*level), "buy 10 level=0 levelVol=0 sum=35 count=2 avg=17.5 unknown=0 start=0\n"
                                 "7 10 unknown\n"
                                 "3 25 normal\n");
    EXPECT_TRUE(level->m_orderIds.contains(7));
    EXPECT_TRUE(level->m_orderIds.contains(3));
    EXPECT_EQ(level->m_orderIds.size(), 2);
}

TEST(AddOrderVol, KeepsOrderOfArrivalAndSortsNothing)
{
    auto level = parseLevelPtr("buy 10");
    for (const int number : {5, 9, 1, 7})
        level->addOrderVol(orderVol(number, 1, Kel::OQT_NORMAL));
    EXPECT_EQ(ordersText(*level), "5 1 normal; 9 1 normal; 1 1 normal; 7 1 normal");
}

TEST(AddOrderVol, AddsTheSameNumberOnce)
{
    auto level = parseLevelPtr("buy 10\n7 10 normal");
    const std::string before = levelText(*level);
    level->addOrderVol(orderVol(7, 99, Kel::OQT_BIG));
    EXPECT_EQ(levelText(*level), before);
}

TEST(AddOrderVol, TakesNumberZeroAsANumberLikeAnyOther)
{
    auto level = parseLevelPtr("buy 10");
    level->addOrderVol(orderVol(0, 10, Kel::OQT_NORMAL));
    level->addOrderVol(orderVol(0, 20, Kel::OQT_NORMAL));
    EXPECT_EQ(ordersText(*level), "0 10 normal");
    EXPECT_TRUE(level->m_orderIds.contains(0));
}

TEST(AddOrderVol, CountsAndSumsAnOrderOfAnyType)
{
    for (const Kel::EOrderQueueType type :
         {Kel::OQT_CANCELED, Kel::OQT_DEALT, Kel::OQT_PART_DEALT, Kel::OQT_NORMAL, Kel::OQT_BIG,
          Kel::OQT_SUPER, Kel::OQT_UNKNOWN}) {
        SCOPED_TRACE(typeText(type));
        auto level = parseLevelPtr("sell 10\n1 10 normal");
        level->addOrderVol(orderVol(2, 20, type, 5));
        EXPECT_EQ(headText(*level), "sell 10 level=0 levelVol=0 sum=30 count=2 avg=15 unknown=0 start=0");
        EXPECT_EQ(ordersText(*level), "1 10 normal; 2 20 " + typeText(type) + " 5");
    }
}

TEST(AddOrderVol, WorksTheSameInALevelWhoseTypeIsNoSide)
{
    for (const int type : {0, 3, 4, 8, 9, 17}) {
        SCOPED_TRACE(type);
        auto level = parseLevelPtr(std::to_string(type) + " 10");
        level->addOrderVol(orderVol(2, 20, Kel::OQT_PART_DEALT, 5));
        EXPECT_EQ(headText(*level),
                  std::to_string(type) + " 10 level=0 levelVol=0 sum=20 count=1 avg=20 unknown=0 start=0");
        EXPECT_TRUE(level->m_orderIds.contains(2));
    }
}

TEST(AddOrderVol, DetachesFromARowThatSharesTheList)
{
    auto level = parseLevelPtr("buy 10\n1 10 normal");
    const Kel::OrderQueueData row(*level);
    level->addOrderVol(orderVol(2, 20, Kel::OQT_NORMAL));
    EXPECT_EQ(ordersText(row), "1 10 normal");
    EXPECT_EQ(ordersText(*level), "1 10 normal; 2 20 normal");
}

TEST(AppendUncounted, ChangesTheListAlone)
{
    auto level = parseLevelPtr("buy 10\n1 10 normal");
    const std::string head = headText(*level);
    level->appendUncounted(orderVol(2, 20, Kel::OQT_CANCELED));
    EXPECT_EQ(headText(*level), head);
    EXPECT_EQ(ordersText(*level), "1 10 normal; 2 20 cancelled");
    EXPECT_FALSE(level->m_orderIds.contains(2));
}

TEST(MarkOrder, SetsTheTypeOfTheFirstOrderWithTheNumber)
{
    auto level = parseLevelPtr("buy 10; 1 10 normal; 2 20 normal; 2 30 normal");
    const std::string head = headText(*level);
    EXPECT_TRUE(level->markOrder(2, Kel::OQT_CANCELED));
    EXPECT_EQ(ordersText(*level), "1 10 normal; 2 20 cancelled; 2 30 normal");
    EXPECT_EQ(headText(*level), head);
}

TEST(MarkOrder, IsFalseForANumberThatIsNotListed)
{
    auto level = parseLevelPtr("buy 10; 1 10 normal");
    EXPECT_FALSE(level->markOrder(2, Kel::OQT_CANCELED));
    EXPECT_EQ(ordersText(*level), "1 10 normal");
    EXPECT_FALSE(parseLevelPtr("buy 10")->markOrder(1, Kel::OQT_CANCELED));
}
