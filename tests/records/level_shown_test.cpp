#include "support/LevelText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace testing_support;

TEST(Recount, LeavesCancelledAndDealtOrdersOut)
{
    auto level = parseLevelPtr(
        "buy 10 level=2 levelVol=5 sum=999 count=77 avg=1 unknown=3 start=1 hasPart\n"
        "1 10 normal\n2 20 cancelled\n3 30 dealt\n4 40 part 4\n5 50 unknown\n6 1500 big\n7 6000 super");
    level->recount();
    EXPECT_EQ(headText(*level),
              "buy 10 level=2 levelVol=5 sum=7600 count=5 avg=1520 unknown=3 start=1 hasPart");
    EXPECT_EQ(level->m_orders.size(), 7);
}

TEST(Recount, HasNoGuardInTheAverageOfNoOrders)
{
    auto level = parseLevelPtr("buy 10 sum=999 count=77 avg=1\n2 20 cancelled");
    level->recount();
    EXPECT_EQ(level->m_count, 0);
    EXPECT_EQ(level->m_sumVol, 0);
    EXPECT_TRUE(std::isnan(level->m_avgVol));
}

TEST(HasPrice, IsTrueForAPriceOverTheToleranceInSize)
{
    for (const char* price : {"0.001", "10", "-5", "0.00002", "-0.00002"})
        EXPECT_TRUE(parseLevel(std::string("buy ") + price).hasPrice()) << price;
    for (const char* price : {"0", "0.000009", "-0.000009"})
        EXPECT_FALSE(parseLevel(std::string("buy ") + price).hasPrice()) << price;
}

namespace {

QString levelName(Kel::EOrderQueueType type, int number)
{
    Kel::OrderQueueData level(10, 0, type);
    level.m_level = number;
    return level.getLevelName();
}

} // namespace

TEST(LevelName, ReadsOneToTenOnBothSides)
{
    const char* const digits[] = {"一", "二", "三", "四", "五", "六", "七", "八", "九", "十"};
    for (int number = 1; number <= 10; ++number) {
        const QString digit = QString::fromUtf8(digits[number - 1]);
        EXPECT_EQ(levelName(Kel::OQT_BUY, number), QString::fromUtf8("买") + digit) << number;
        EXPECT_EQ(levelName(Kel::OQT_SELL, number), QString::fromUtf8("卖") + digit) << number;
    }
}

TEST(LevelName, TakesTheSellPrefixForAnyTypeButBuy)
{
    for (const int type : {0, 2, 3, 9})
        EXPECT_EQ(levelName(static_cast<Kel::EOrderQueueType>(type), 1), QString::fromUtf8("卖一")) << type;
}

TEST(LevelName, FollowsTheDigitsOfNumbersBeyondTen)
{
    EXPECT_EQ(levelName(Kel::OQT_BUY, 11), QString::fromUtf8("十一"));
    EXPECT_EQ(levelName(Kel::OQT_SELL, 19), QString::fromUtf8("十九"));
    EXPECT_EQ(levelName(Kel::OQT_BUY, 25), QString::fromUtf8("十五"));
    EXPECT_EQ(levelName(Kel::OQT_BUY, 20), QString::fromUtf8("买零"));
}

TEST(LevelName, WritesZeroForNumbersOfNoLevel)
{
    EXPECT_EQ(levelName(Kel::OQT_BUY, 0), QString::fromUtf8("买零"));
    EXPECT_EQ(levelName(Kel::OQT_SELL, -3), QString::fromUtf8("卖零"));
    EXPECT_EQ(levelName(Kel::OQT_SELL, std::numeric_limits<int>::min()), QString::fromUtf8("卖零"));
}

TEST(OrderQueueLesserThan, ComparesTheLevelNumbers)
{
    const auto first = parseLevelPtr("buy 10 level=1");
    const auto second = parseLevelPtr("buy 11 level=2");
    EXPECT_TRUE(Kel::orderQueueLesserThan(first, second));
    EXPECT_FALSE(Kel::orderQueueLesserThan(second, first));
    EXPECT_FALSE(Kel::orderQueueLesserThan(first, first));
}

TEST(RowCopy, HasAllFieldsAndTheSharedListButNoNumbers)
{
    const auto level = parseLevelPtr(
        "sell 10.25 level=3 levelVol=50 sum=44 count=9 avg=5 unknown=6 start=1 time=34 hasPart\n"
        "1 10 normal\n2 20 part 5");
    const Kel::OrderQueueData row(*level);
    EXPECT_EQ(levelText(row), levelText(*level));
    EXPECT_TRUE(row.m_orders.isSharedWith(level->m_orders));
    EXPECT_TRUE(row.m_orderIds.isEmpty());
    EXPECT_EQ(level->m_orderIds.size(), 2);
}

TEST(RowCopy, StaysAsItIsWhileTheLevelChanges)
{
    auto level = parseLevelPtr("sell 10.25 level=3 levelVol=20; 1 10 normal; 2 20 normal");
    const Kel::OrderQueueData row(*level);
    const std::string before = levelText(row);
    level->trimToLevelVol();
    level->resetByLevelVols({7});
    EXPECT_EQ(levelText(row), before);
}
