#include "records/OrderQueueData.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace {

TEST(PrintLevel, WritesAHeadLineAndALineForEachOrder)
{
    Kel::OrderQueueData level(10.5, 0, Kel::OQT_SELL);
    level.m_level = 3;
    level.addOrderVol({7, 20, Kel::OQT_NORMAL, 0});
    level.addOrderVol({8, 5000, Kel::OQT_PART_DEALT, 1.5});
    EXPECT_EQ(Kel::printLevel(level).toStdString(),
              "sell 10.5 level 3 sum 5020 volume 0 average 2510 unknown 0 count 2 start 0\n"
              "7 20 normal\n"
              "8 5000 part-dealt 1.5\n");
}

TEST(OrderQueueLesserThan, OrdersByLevelAndPutsNoLevelFirst)
{
    const auto first = boost::make_shared<Kel::OrderQueueData>();
    const auto second = boost::make_shared<Kel::OrderQueueData>();
    first->m_level = 1;
    second->m_level = 2;
    EXPECT_TRUE(Kel::orderQueueLesserThan(first, second));
    EXPECT_FALSE(Kel::orderQueueLesserThan(second, first));
    EXPECT_FALSE(Kel::orderQueueLesserThan(first, first));
    EXPECT_TRUE(Kel::orderQueueLesserThan({}, first));
    EXPECT_FALSE(Kel::orderQueueLesserThan(first, {}));
    EXPECT_FALSE(Kel::orderQueueLesserThan({}, {}));
}

} // namespace
