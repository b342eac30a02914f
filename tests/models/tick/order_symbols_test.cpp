#include "platform/models/order_symbols.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

using namespace Kel;

namespace {

boost::shared_ptr<DepthOrderData> row(int kind, int side)
{
    auto order = boost::make_shared<DepthOrderData>();
    order->kind = kind;
    order->side = side;
    return order;
}

boost::shared_ptr<quoter::OrderData> record(int kind, double price)
{
    auto order = boost::make_shared<quoter::OrderData>();
    order->kind = kind;
    order->price = price;
    return order;
}

} // namespace

TEST(OrderSymbol, TellsTheSideOfALimitOrderAndTheKindOfOthers)
{
    EXPECT_EQ(getOrderSymbol(row(1, 1)), QStringLiteral("B"));
    EXPECT_EQ(getOrderSymbol(row(1, 2)), QStringLiteral("S"));
    EXPECT_EQ(getOrderSymbol(row(1, 0)), QStringLiteral("-"));
    EXPECT_EQ(getOrderSymbol(row(2, 1)), QStringLiteral("市"));
    EXPECT_EQ(getOrderSymbol(row(4, 2)), QStringLiteral("本"));
    EXPECT_EQ(getOrderSymbol(row(3, 1)), QStringLiteral("-"));
    EXPECT_EQ(getOrderSymbol(row(0, 1)), QStringLiteral("-"));
    EXPECT_EQ(getOrderSymbol({}), QStringLiteral("-"));
}

TEST(OrderSpecial, IsAnOrderOfKindTwoOrFourOrOfPriceZero)
{
    EXPECT_TRUE(isOrderSpecial(record(2, 10)));
    EXPECT_TRUE(isOrderSpecial(record(4, 10)));
    EXPECT_TRUE(isOrderSpecial(record(1, 0)));
    EXPECT_TRUE(isOrderSpecial(record(1, 0.000001)));
    EXPECT_FALSE(isOrderSpecial(record(1, 0.01)));
    EXPECT_FALSE(isOrderSpecial(record(3, 10)));
    EXPECT_FALSE(isOrderSpecial({}));
}

TEST(OrderSpecial, HasAName)
{
    EXPECT_EQ(getOrderSpecialName(record(2, 10)), QStringLiteral("市价"));
    EXPECT_EQ(getOrderSpecialName(record(4, 0)), QStringLiteral("本方最优"));
    EXPECT_EQ(getOrderSpecialName(record(1, 0)), QStringLiteral("市价"));
    EXPECT_EQ(getOrderSpecialName(record(1, 10)), QString());
    EXPECT_EQ(getOrderSpecialName({}), QString());
}
