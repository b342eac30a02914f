#include "feed/simulation/TradingHours.h"

#include <gtest/gtest.h>

namespace feed::test {
namespace {

TEST(TradingHours, PhasesBeginWithTheirFirstSecond)
{
    const struct
    {
        int second;
        Phase phase;
        bool orders;
        bool cancels;
    } rows[] = {
        {hours::at(9, 14, 59), Phase::Start, false, false},
        {hours::at(9, 15), Phase::OpeningAuction, true, true},
        {hours::at(9, 19, 59), Phase::OpeningAuction, true, true},
        {hours::at(9, 20), Phase::OpeningAuction, true, false},
        {hours::at(9, 24, 59), Phase::OpeningAuction, true, false},
        {hours::at(9, 25), Phase::OpeningAuction, false, false},
        {hours::at(9, 29, 59), Phase::OpeningAuction, false, false},
        {hours::at(9, 30), Phase::Continuous, true, true},
        {hours::at(11, 29, 59), Phase::Continuous, true, true},
        {hours::at(11, 30), Phase::Break, false, false},
        {hours::at(12, 59, 59), Phase::Break, false, false},
        {hours::at(13, 0), Phase::Continuous, true, true},
        {hours::at(14, 56, 59), Phase::Continuous, true, true},
        {hours::at(14, 57), Phase::ClosingAuction, true, false},
        {hours::at(14, 59, 59), Phase::ClosingAuction, true, false},
        {hours::at(15, 0), Phase::Closed, false, false},
        {hours::at(23, 59, 59), Phase::Closed, false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.second);
        EXPECT_EQ(hours::phaseAt(row.second), row.phase);
        EXPECT_EQ(hours::takesOrders(row.second), row.orders);
        EXPECT_EQ(hours::takesCancels(row.second), row.cancels);
    }
}

TEST(TradingHours, MidnightIsThatOfExchangeTimeOnAnyMachine)
{
    EXPECT_EQ(hours::midnightOf(19700102), 57600000);
    EXPECT_EQ(hours::midnightOf(20230201), 1675180800000);
    EXPECT_EQ(hours::midnightOf(20240229), 1709136000000);
    EXPECT_EQ(hours::midnightOf(20240301) - hours::midnightOf(20240229), 86400000);
    EXPECT_EQ(hours::midnightOf(20230301) - hours::midnightOf(20230228), 86400000);
    EXPECT_EQ(hours::midnightOf(20000101) - hours::midnightOf(19991231), 86400000);
}

TEST(TradingHours, ANumberThatIsNoDayGivesTheUsualDay)
{
    for (const std::int64_t day :
         {std::int64_t(0), std::int64_t(-20230201), std::int64_t(20231301), std::int64_t(20230230),
          std::int64_t(20230200), std::int64_t(19691231), INT64_MAX, INT64_MIN})
        EXPECT_EQ(hours::midnightOf(day), hours::midnightOf(20230201)) << day;
}

} // namespace
} // namespace feed::test
