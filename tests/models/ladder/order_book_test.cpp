// The book by number and price: what enters, what leaves, what waits, what is told of changes.

#include "BookText.h"
#include "platform/models/ladder_quotes.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace testing_support;
using Kel::OQT_BUY;
using Kel::OQT_SELL;

struct Book : Kel::OrderBook
{
    using OrderBook::OrderBook;
    bool order(const std::string& line) { return addOrder(orderFrom(line)); }
    bool deal(const std::string& line) { return addDeal(dealFrom(line)); }
};

TEST(LadderQuotes, WhatIsLeftStaysRightWhereTheWholeDoesNotFit)
{
    Kel::BookOrder order;
    order.number = 1;
    order.volume = 3000000000;
    order.dealt = 2500000000;
    Kel::SingleQueue queue;
    Kel::setQuotes(queue, {order});
    ASSERT_EQ(queue.quotes.size(), 1u);
    EXPECT_EQ(queue.quotes[0].second->volume - queue.quotes[0].second->dealtVolume, 500000000);
}

TEST(OrderBook, StandsEmptyAtFirst)
{
    const Book book;
    EXPECT_EQ(printed(book), "");
    EXPECT_EQ(book.orderCount(), 0u);
    EXPECT_FALSE(book.newestDeal());
    EXPECT_EQ(book.newestTime(), 0);
    EXPECT_FALSE(book.level(OQT_BUY, 1000));
    EXPECT_TRUE(book.orders(OQT_BUY, 1000).empty());
    EXPECT_FALSE(book.changed());
}

TEST(OrderBook, KeepsOrdersByPriceAndListsThemByNumber)
{
    Book book;
    book.order("B 9 10.00 300");
    book.order("B 4 10.00 200");
    book.order("B 5 9.99 100");
    book.order("S 6 10.02 500");
    EXPECT_EQ(printed(book), "S 10.02 500: 6x500\n"
                             "B 10 500: 4x200 9x300\n"
                             "B 9.99 100: 5x100\n");
    EXPECT_EQ(book.levelCount(OQT_BUY), 2u);
    EXPECT_EQ(book.levelCount(OQT_SELL), 1u);
    EXPECT_EQ(book.orderCount(), 4u);
}

TEST(OrderBook, TakesPricesWithinHalfATickForOneLevel)
{
    Book book;
    book.order("B 1 10.00 100");
    book.order("B 2 10.004 100");
    book.order("B 3 10.006 100");
    EXPECT_EQ(book.level(OQT_BUY, 1000)->orderCount, 2);
    EXPECT_EQ(book.level(OQT_BUY, 1001)->orderCount, 1);
}

TEST(OrderBook, TakesADealOffBothOrdersAndLetsAFinishedOneLeaveAtOnce)
{
    Book book;
    book.order("B 1 10.00 300");
    book.order("S 2 10.00 100");
    EXPECT_TRUE(book.deal("1x2 10.00 100 #1"));
    EXPECT_EQ(printed(book), "B 10 200: 1x200\n");
    EXPECT_FALSE(book.find(2));
    EXPECT_EQ(book.find(1)->dealt, 100);
    EXPECT_EQ(book.find(1)->volume, 300);
    EXPECT_EQ(book.levelCount(OQT_SELL), 0u);
}

TEST(OrderBook, LetsAnOrderWaitForTheRestOfItsVolumeOnly)
{
    Book book;
    book.order("B 1 10.00 300");
    book.deal("1x2 10.00 299 #1");
    EXPECT_EQ(printed(book), "B 10 1: 1x1\n");
    book.deal("1x3 10.00 1 #2");
    EXPECT_EQ(printed(book), "");
}

TEST(OrderBook, DealsThatCameFirstWaitForTheirOrder)
{
    Book book;
    book.deal("1x2 10.00 100 #1");
    book.deal("1x3 10.00 50 #2");
    EXPECT_EQ(printed(book), "");
    EXPECT_FALSE(book.find(1)) << "what only waits does not stand";
    book.order("B 1 10.00 300");
    book.order("S 2 10.00 100");
    EXPECT_EQ(printed(book), "B 10 150: 1x150\n");
    EXPECT_EQ(book.find(1)->dealt, 150);
    book.order("S 3 10.00 80");
    EXPECT_EQ(printed(book), "S 10 30: 3x30\n"
                             "B 10 150: 1x150\n");
}

TEST(OrderBook, ACancellationThatCameFirstKeepsItsOrderOut)
{
    Book book;
    EXPECT_TRUE(book.addDeal(cancelOf(1)));
    book.deal("2x9 10.00 100 #1");
    book.addDeal(cancelOf(2));
    EXPECT_FALSE(book.order("B 1 10.00 300"));
    book.order("B 2 10.00 300");
    EXPECT_EQ(printed(book), "");
}

TEST(OrderBook, ACancellationEndsAnOrderOfEitherSideWhateverItsVolumeSays)
{
    Book book;
    book.order("B 1 10.00 300");
    book.order("S 2 10.01 300");
    book.addDeal(cancelOf(1, false, 0));
    EXPECT_EQ(printed(book), "S 10.01 300: 2x300\n");
    book.addDeal(cancelOf(2, true, 7));
    EXPECT_EQ(printed(book), "");
    auto onlySellNumber = cancelOf(0, false);
    onlySellNumber.sellNo = 3;
    book.order("S 3 10.01 300");
    book.addDeal(onlySellNumber);
    EXPECT_EQ(printed(book), "");
    EXPECT_FALSE(book.addDeal(cancelOf(0)));
}

TEST(OrderBook, CountsAnOrderOnceEvenAfterItHasEnded)
{
    Book book;
    EXPECT_TRUE(book.order("B 1 10.00 300"));
    EXPECT_FALSE(book.order("B 1 10.00 300"));
    EXPECT_FALSE(book.order("B 1 9.00 500"));
    EXPECT_EQ(printed(book), "B 10 300: 1x300\n");
    book.deal("1x2 10.00 300 #1");
    EXPECT_FALSE(book.order("B 1 10.00 300"));
    EXPECT_EQ(printed(book), "");
    book.order("B 5 10.00 300");
    book.addDeal(cancelOf(5));
    EXPECT_FALSE(book.order("B 5 10.00 300"));
    EXPECT_EQ(printed(book), "");
}

TEST(OrderBook, CountsADealOnceByItsNumber)
{
    Book book;
    book.order("B 1 10.00 300");
    EXPECT_TRUE(book.deal("1x2 10.00 100 #7"));
    EXPECT_FALSE(book.deal("1x2 10.00 100 #7"));
    EXPECT_EQ(printed(book), "B 10 200: 1x200\n");
    EXPECT_TRUE(book.deal("1x2 10.00 50"));
    EXPECT_TRUE(book.deal("1x2 10.00 50")) << "a deal without a number always counts";
    EXPECT_EQ(printed(book), "B 10 100: 1x100\n");
}

TEST(OrderBook, ADealCountsOnceAlsoWhileItWaits)
{
    Book book;
    book.deal("1x2 10.00 100 #7");
    book.deal("1x2 10.00 100 #7");
    book.order("B 1 10.00 300");
    EXPECT_EQ(printed(book), "B 10 200: 1x200\n");
}

TEST(OrderBook, DealsOfAnEndedOrderAreDropped)
{
    Book book;
    book.order("B 1 10.00 100");
    book.deal("1x2 10.00 500 #1");
    book.deal("1x2 10.00 500 #2");
    EXPECT_EQ(printed(book), "");
    EXPECT_FALSE(book.find(1));
}

TEST(OrderBook, AnOrderWithoutAPriceStandsNowhereAndItsDealsDoNotWait)
{
    Book book;
    book.order("B 1 0 100");
    book.order("B 2 0.004 100");
    book.order("B 3 -5 100");
    book.deal("1x9 10.00 50 #1");
    EXPECT_EQ(printed(book), "");
    book.deal("4x9 10.00 50 #2");
    book.order("B 4 0 100");
    EXPECT_EQ(printed(book), "");
    EXPECT_FALSE(book.order("B 1 10.00 100")) << "its number is known";
    book.order("B 6 0.005 100");
    EXPECT_EQ(book.level(OQT_BUY, 1)->orderCount, 1) << "half a tick has key 1";
}

TEST(OrderBook, PassesOverRecordsThatMakeNoSense)
{
    Book book;
    EXPECT_FALSE(book.order("B 0 10.00 100"));
    EXPECT_FALSE(book.order("B 1 10.00 -1"));
    auto order = orderFrom("B 2 10.00 100");
    order.volume = 0;
    EXPECT_FALSE(book.addOrder(order));
    order = orderFrom("B 2 10.00 100");
    for (const int side : {0, 3, -1, 4}) {
        order.side = side;
        EXPECT_FALSE(book.addOrder(order)) << side;
    }
    order.side = 1;
    order.kind = quoter::eOrderNotStanding;
    EXPECT_FALSE(book.addOrder(order));
    EXPECT_FALSE(book.deal("2x3 10.00 0 #1"));
    EXPECT_FALSE(book.deal("2x3 10.00 -100 #1"));
    EXPECT_EQ(printed(book), "");
    EXPECT_EQ(book.newestTime(), 0);
    EXPECT_TRUE(book.order("B 2 10.00 100")) << "the number was not used up";
}

TEST(OrderBook, PricesThatAreNoNumberStandNowhere)
{
    Book book;
    for (const double price :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::max(), 1e300}) {
        auto order = orderFrom("B 2 10.00 100");
        order.entrustNo = 100 + static_cast<int>(book.orderCount());
        order.price = price;
        book.addOrder(order);
    }
    EXPECT_EQ(printed(book), "");
    for (const double tick : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(Book(tick).priceTick(), 0.01);
}

TEST(OrderBook, HugeVolumesDoNotOverflow)
{
    Book book;
    auto order = orderFrom("B 1 10.00 1");
    order.volume = std::numeric_limits<std::int64_t>::max();
    book.addOrder(order);
    order.entrustNo = 2;
    book.addOrder(order);
    EXPECT_GT(book.level(OQT_BUY, 1000)->volume, 0);
    auto deal = dealFrom("3x4 10.00 1");
    deal.volume = std::numeric_limits<std::int64_t>::max();
    for (int i = 0; i < 20; ++i)
        book.addDeal(deal);
    order.entrustNo = 3;
    book.addOrder(order);
    EXPECT_FALSE(book.find(3)) << "dealt as often as could be";
    EXPECT_EQ(book.firstFault(), "");
}

TEST(OrderBook, ADealOfTheOtherSideDoesNotTouchAnOrder)
{
    Book book;
    book.order("S 1 10.00 100");
    book.deal("1x9 10.00 50 #1");
    EXPECT_EQ(printed(book), "S 10 100: 1x100\n");
}

TEST(OrderBook, ADealThatWaitsDoesNotTouchAnOrderOfTheOtherSideEither)
{
    Book book;
    book.deal("1x9 10.00 50 #1");
    book.order("S 1 10.00 100");
    EXPECT_EQ(printed(book), "S 10 100: 1x100\n");
    // One number in both places: each side has its own.
    book.deal("2x9 10.00 30 #2");
    book.deal("9x2 10.00 20 #3");
    book.deal("9x2 10.00 20 #4");
    book.order("S 2 10.01 100");
    EXPECT_EQ(printed(book), "S 10.01 60: 2x60\n"
                             "S 10 100: 1x100\n");
    EXPECT_EQ(book.find(2)->volume, 100);
    book.deal("3x9 10.00 30 #5");
    book.deal("9x3 10.00 20 #6");
    book.order("B 3 9.99 100");
    EXPECT_EQ(book.find(3)->rest(), 70);
    EXPECT_EQ(book.find(3)->volume, 100);
    book.deal("9x4 10.00 500 #7");
    book.order("B 4 9.98 100");
    EXPECT_EQ(book.find(4)->rest(), 100);
    EXPECT_EQ(book.firstFault(), "");
}

TEST(OrderBook, ANumberMayBeUsedAgainByAnotherLevelOnceItsLevelHasLeft)
{
    Book book;
    for (int i = 1; i <= 50; ++i) {
        book.order("B " + std::to_string(2 * i) + " 10.00 100");
        book.order("B " + std::to_string(2 * i + 1) + " 10.01 100");
        book.addDeal(cancelOf(2 * i));
    }
    EXPECT_EQ(book.levelCount(OQT_BUY), 1u);
    EXPECT_EQ(book.orderCount(), 50u);
    EXPECT_EQ(book.firstFault(), "");
}

TEST(OrderBook, TheNewestDealIsTheLatestByTimeThenByNumber)
{
    Book book;
    book.deal("1x2 10.00 100 #5 @1000");
    book.deal("1x2 10.01 200 #4 @2000");
    EXPECT_EQ(book.newestDeal()->price, 10.01);
    EXPECT_EQ(book.newestDeal()->volume, 200);
    book.deal("1x2 10.02 300 #9 @1500");
    EXPECT_EQ(book.newestDeal()->price, 10.01) << "a late deal is not the newest one";
    book.deal("1x2 10.03 400 #3 @2000");
    EXPECT_EQ(book.newestDeal()->price, 10.01);
    book.deal("1x2 10.04 400 #6 @2000");
    EXPECT_EQ(book.newestDeal()->price, 10.04);
    book.deal("1x2 0 400 #7 @3000");
    EXPECT_EQ(book.newestDeal()->price, 10.04) << "a deal without a price tells none";
    book.addDeal(cancelOf(1));
    EXPECT_EQ(book.newestDeal()->price, 10.04);
}

TEST(OrderBook, TellsTheTimeOfTheNewestRecord)
{
    Book book;
    book.order("B 1 10.00 100 @5000");
    EXPECT_EQ(book.newestTime(), 5000);
    book.deal("1x2 10.00 10 #1 @4000");
    EXPECT_EQ(book.newestTime(), 5000);
    book.deal("1x2 10.00 10 #2 @6000");
    EXPECT_EQ(book.newestTime(), 6000);
    auto cancel = cancelOf(1);
    cancel.m_time = 7000;
    book.addDeal(cancel);
    EXPECT_EQ(book.newestTime(), 7000);
}

TEST(OrderBook, ATimeThatCannotBeOneIsNeverTheNewest)
{
    for (const char* time : {"9223372036854775807", "4102444800000", "-1"}) {
        Book book;
        book.order(std::string("B 1 10.00 100 @") + time);
        EXPECT_EQ(book.newestTime(), 0) << time;
        EXPECT_EQ(book.find(1)->time, 0) << time;
        book.deal(std::string("8x9 10.00 100 #1 @") + time);
        EXPECT_EQ(book.newestDeal()->price, 10.00) << "better than none";
        book.deal("8x9 10.01 100 #2 @1000");
        book.deal(std::string("8x9 10.02 100 #3 @") + time);
        EXPECT_EQ(book.newestDeal()->price, 10.01) << time;
        EXPECT_EQ(book.newestTime(), 1000) << time;
    }
    Book book;
    book.deal("8x9 10.00 100 #1 @4102444799999");
    EXPECT_EQ(book.newestTime(), 4102444799999);
}

TEST(OrderBook, WalksFromTheBestPriceIntoTheBook)
{
    Book book;
    book.order("B 1 10.00 100");
    book.order("B 2 9.98 100");
    book.order("B 3 9.95 100");
    book.order("S 4 10.01 100");
    book.order("S 5 10.05 100");
    book.order("S 6 10.09 100");
    const auto keys = [](const std::vector<Kel::BookLevel>& levels) {
        std::vector<int> result;
        for (const auto& level : levels)
            result.push_back(level.key);
        return result;
    };
    EXPECT_EQ(keys(book.best(OQT_BUY, 2)), (std::vector<int>{1000, 998}));
    EXPECT_EQ(keys(book.best(OQT_SELL, 2)), (std::vector<int>{1001, 1005}));
    EXPECT_EQ(keys(book.behind(OQT_BUY, 998, 5)), (std::vector<int>{995}));
    EXPECT_EQ(keys(book.behind(OQT_BUY, 999, 5)), (std::vector<int>{998, 995}));
    EXPECT_EQ(keys(book.behind(OQT_SELL, 1001, 1)), (std::vector<int>{1005}));
    EXPECT_EQ(keys(book.behind(OQT_SELL, 1009, 5)), (std::vector<int>{}));
    EXPECT_EQ(keys(book.best(OQT_BUY, 0)), (std::vector<int>{}));
}

TEST(OrderBook, TellsEachTouchedPriceOnceAndInOrder)
{
    Book book;
    book.order("B 1 10.00 100");
    book.order("B 2 9.98 100");
    book.order("B 3 10.00 100");
    book.order("S 4 10.01 100");
    EXPECT_TRUE(book.changed());
    auto changes = book.takeChanges();
    EXPECT_FALSE(changes.everything);
    EXPECT_EQ(changes.buys, (std::vector<int>{998, 1000}));
    EXPECT_EQ(changes.sells, (std::vector<int>{1001}));
    EXPECT_FALSE(book.changed());
    book.deal("1x4 10.00 50 #1");
    book.addDeal(cancelOf(2));
    book.order("B 5 9.98 100");
    changes = book.takeChanges();
    EXPECT_EQ(changes.buys, (std::vector<int>{998, 1000})) << "one that left and came back counts once";
    EXPECT_EQ(changes.sells, (std::vector<int>{1001}));
    EXPECT_TRUE(book.takeChanges().buys.empty());
    book.order("B 6 9.98 100");
    EXPECT_EQ(book.takeChanges().buys, (std::vector<int>{998}));
}

TEST(OrderBook, SaysThatEverythingMayHaveChangedWhenNobodyAsksForLong)
{
    Book book;
    for (int i = 1; i <= 5000; ++i)
        book.order("B " + std::to_string(i) + " " + std::to_string(i) + " 100");
    auto changes = book.takeChanges();
    EXPECT_TRUE(changes.everything);
    EXPECT_TRUE(changes.buys.empty());
    EXPECT_FALSE(book.changed());
    book.addDeal(cancelOf(17));
    changes = book.takeChanges();
    EXPECT_FALSE(changes.everything);
    EXPECT_EQ(changes.buys, (std::vector<int>{1700}));
}

} // namespace
