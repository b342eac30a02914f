#include "feed/simulation/Random.h"
#include "feed/simulation/TrueBook.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace feed::test {
namespace {

TrueOrder order(std::int64_t number, std::int64_t volume)
{
    TrueOrder result;
    result.number = number;
    result.remaining = volume;
    result.original = volume;
    return result;
}

/// "9.99: 1=300 2=100" for each level, best first; a part-dealt order shows what is left of what it was.
std::string printed(const TrueBook& book, Side side)
{
    std::ostringstream text;
    for (const TrueLevel& level : book.levels(side, 1000)) {
        text << level.price << ":";
        for (const TrueOrder& o : book.orders(side, level.price)) {
            text << " " << o.number << "=" << o.remaining;
            if (o.dealt != 0)
                text << "/" << o.original;
            if (o.priceless)
                text << "*";
        }
        text << " sum " << level.volume << " of " << level.orderCount << "\n";
    }
    return text.str();
}

class TrueBookTest : public ::testing::Test
{
protected:
    void TearDown() override { EXPECT_EQ(book.firstFault(), ""); }

    TrueBook book{900, 1100, TickScale(0.01)};
};

TEST_F(TrueBookTest, KeepsOrdersOfAPriceInOrderOfArrival)
{
    book.add(Side::Buy, 999, order(1, 300));
    book.add(Side::Buy, 999, order(2, 100));
    book.add(Side::Buy, 1000, order(3, 200));
    book.add(Side::Sell, 1002, order(4, 500));
    book.add(Side::Sell, 1001, order(5, 100));
    EXPECT_EQ(printed(book, Side::Buy), "10: 3=200 sum 200 of 1\n"
                                        "9.99: 1=300 2=100 sum 400 of 2\n");
    EXPECT_EQ(printed(book, Side::Sell), "10.01: 5=100 sum 100 of 1\n"
                                         "10.02: 4=500 sum 500 of 1\n");
    EXPECT_EQ(book.bestPrice(Side::Buy), 10.0);
    EXPECT_EQ(book.bestPrice(Side::Sell), 10.01);
    EXPECT_EQ(book.orderCount(Side::Buy), 3);
    EXPECT_EQ(book.levelCount(Side::Buy), 2);
    EXPECT_EQ(book.volume(Side::Buy), 600);
}

TEST_F(TrueBookTest, DealsTheFrontOrderAndTellsWhatIsLeftOfIt)
{
    book.add(Side::Sell, 1001, order(1, 300));
    book.add(Side::Sell, 1001, order(2, 100));
    book.add(Side::Sell, 1003, order(3, 100));
    book.fillFront(Side::Sell, 100);
    EXPECT_EQ(printed(book, Side::Sell), "10.01: 1=200/300 2=100 sum 300 of 2\n"
                                         "10.03: 3=100 sum 100 of 1\n");
    book.fillFront(Side::Sell, 200);
    EXPECT_EQ(book.front(Side::Sell).number, 2);
    book.fillFront(Side::Sell, 1000); // more than stands there: the one order only
    EXPECT_EQ(printed(book, Side::Sell), "10.03: 3=100 sum 100 of 1\n");
    EXPECT_FALSE(book.find(1));
    EXPECT_FALSE(book.find(2));
}

TEST_F(TrueBookTest, RemovesOrdersAtTheFrontTheMiddleAndTheEnd)
{
    for (int number = 1; number <= 5; ++number)
        book.add(Side::Buy, 1000, order(number, 100));
    EXPECT_EQ(book.remove(3)->order.remaining, 100);
    EXPECT_EQ(printed(book, Side::Buy), "10: 1=100 2=100 4=100 5=100 sum 400 of 4\n");
    book.remove(1);
    book.remove(5);
    EXPECT_EQ(printed(book, Side::Buy), "10: 2=100 4=100 sum 200 of 2\n");
    book.add(Side::Buy, 1000, order(6, 700));
    EXPECT_EQ(printed(book, Side::Buy), "10: 2=100 4=100 6=700 sum 900 of 3\n");
    EXPECT_FALSE(book.remove(3));
}

TEST_F(TrueBookTest, AnEmptySideHasNoPriceAndNoOrder)
{
    EXPECT_TRUE(book.isEmpty(Side::Buy));
    EXPECT_EQ(book.bestTicks(Side::Sell), 0);
    EXPECT_EQ(book.bestPrice(Side::Sell), 0);
    EXPECT_EQ(book.front(Side::Buy).number, 0);
    EXPECT_TRUE(book.levels(Side::Buy, 10).empty());
    book.fillFront(Side::Buy, 100);
    book.add(Side::Buy, 1000, order(1, 100));
    book.remove(1);
    EXPECT_TRUE(book.isEmpty(Side::Buy));
}

TEST_F(TrueBookTest, RefusesWhatCannotStand)
{
    EXPECT_FALSE(book.add(Side::Buy, 899, order(1, 100)));
    EXPECT_FALSE(book.add(Side::Buy, 1101, order(1, 100)));
    EXPECT_FALSE(book.add(Side::Buy, std::numeric_limits<int>::max(), order(1, 100)));
    EXPECT_FALSE(book.add(Side::Buy, std::numeric_limits<int>::min(), order(1, 100)));
    EXPECT_FALSE(book.add(Side::Buy, 1000, order(1, 0)));
    EXPECT_FALSE(book.add(Side::Buy, 1000, order(1, -100)));
    EXPECT_FALSE(book.add(Side::Buy, 1000, order(0, 100)));
    EXPECT_TRUE(book.add(Side::Buy, 1000, order(1, 100)));
    EXPECT_FALSE(book.add(Side::Sell, 1000, order(1, 100)));
    EXPECT_EQ(book.orderCount(Side::Buy) + book.orderCount(Side::Sell), 1);
}

TEST_F(TrueBookTest, AnswersForPricesOutsideItsBandAsEmpty)
{
    EXPECT_TRUE(book.orders(Side::Buy, 1e300).empty());
    EXPECT_TRUE(book.orders(Side::Buy, std::numeric_limits<double>::quiet_NaN()).empty());
    EXPECT_TRUE(book.orders(Side::Buy, -3).empty());
    EXPECT_EQ(book.levelAt(Side::Buy, 5000).orderCount, 0);
}

TEST_F(TrueBookTest, SidesMayOverlapWhileAnAuctionCollects)
{
    book.add(Side::Buy, 1010, order(1, 100));
    book.add(Side::Sell, 990, order(2, 100));
    EXPECT_EQ(book.bestPrice(Side::Buy), 10.10);
    EXPECT_EQ(book.bestPrice(Side::Sell), 9.90);
}

TEST_F(TrueBookTest, WalksPricesOutwardAndUpward)
{
    for (const int ticks : {950, 1000, 1020}) {
        book.add(Side::Buy, ticks, order(ticks, 100));
        book.add(Side::Sell, ticks, order(ticks + 10000, 100));
    }
    EXPECT_EQ(book.nextTicks(Side::Buy, 1020), 1000);
    EXPECT_EQ(book.nextTicks(Side::Buy, 950), 0);
    EXPECT_EQ(book.nextTicks(Side::Sell, 950), 1000);
    EXPECT_EQ(book.nextTicks(Side::Sell, 1020), 0);
    EXPECT_EQ(book.ticksAbove(Side::Buy, 1000), 1020);
    EXPECT_EQ(book.ticksAbove(Side::Buy, 1020), 0);
    EXPECT_EQ(book.ticksAbove(Side::Sell, 0), 950);
}

TEST_F(TrueBookTest, StaysConsistentUnderRandomOperations)
{
    Random random(5);
    for (int i = 0; i < 20000; ++i) {
        const Side side = random.chance(0.5) ? Side::Buy : Side::Sell;
        const double what = random.unit();
        if (what < 0.5)
            book.add(side, static_cast<int>(895 + random.below(210)), order(i + 1, 1 + random.below(500)));
        else if (what < 0.75)
            book.fillFront(side, 1 + random.below(700));
        else
            book.remove(static_cast<std::int64_t>(1 + random.below(static_cast<std::uint32_t>(i + 1))));
        if (i % 500 == 0) {
            ASSERT_EQ(book.firstFault(), "") << i;
        }
    }
}

TEST(TickScale, PricesAreTheDoublesNearestToTheirText)
{
    EXPECT_EQ(TickScale(0.01).price(186), 1.86);
    EXPECT_EQ(TickScale(0.01).price(184576), 1845.76);
    EXPECT_EQ(TickScale(0.001).price(118523), 118.523);
    EXPECT_EQ(TickScale(0.005).price(393), 1.965);
    EXPECT_EQ(TickScale(2).price(7), 14);
    for (const double tick : {0.01, 0.001, 0.005, 0.0001, 0.25, 3.0}) {
        const TickScale scale(tick);
        for (int ticks = 1; ticks < 200000; ticks += 37)
            ASSERT_EQ(scale.ticks(scale.price(ticks)), ticks) << tick;
    }
}

} // namespace
} // namespace feed::test
