// The plain book that rows make.

#include "SmallDay.h"

#include "host/ReferenceBook.h"
#include "records/OrderData.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using testing_support::SmallDay;

host::ReferenceBook bookOf(const feed::InstrumentDay& day)
{
    host::ReferenceBook book(0.01);
    std::size_t deal = 0;
    for (const feed::OrderRow& order : day.orders) {
        for (; deal < day.deals.size() && day.deals[deal].seq < order.seq; ++deal)
            book.apply(day.deals[deal]);
        book.apply(order);
    }
    for (; deal < day.deals.size(); ++deal)
        book.apply(day.deals[deal]);
    return book;
}

/// "1001: 300 in 2, 999: 100 in 1", by ascending price.
std::string sideText(const host::ReferenceBook& book, int side)
{
    std::ostringstream text;
    for (const auto& [key, level] : book.levels(side)) {
        text << (text.tellp() > 0 ? ", " : "") << key << ": " << level.shares << " in " << level.orders;
        if (level.pricelessOrders > 0)
            text << " (" << level.pricelessShares << " in " << level.pricelessOrders << " without a price)";
    }
    return text.str();
}

TEST(ReferenceBook, AddsOrdersAtTheirPriceAndTakesDealsAndCancelsOff)
{
    SmallDay small;
    small.buy(1, 10.00, 300).buy(2, 10.00, 200).buy(3, 9.99, 100).sell(4, 10.01, 500);
    small.sell(5, 10.00, 400).deal(1, 5, 10.00, 300).deal(2, 5, 10.00, 100).cancelSell(4, 500);
    const host::ReferenceBook book = bookOf(small.day);
    EXPECT_EQ(sideText(book, 1), "999: 100 in 1, 1000: 100 in 1");
    EXPECT_EQ(sideText(book, 2), "");
    EXPECT_EQ(book.tradedShares(), 400);
    EXPECT_EQ(book.dealCount(), 2);
}

TEST(ReferenceBook, TakesOffWhatWasDealtBeforeTheRecordOfTheOrder)
{
    SmallDay small;
    small.sell(1, 10.00, 300).deal(2, 1, 10.00, 300).buy(2, 10.00, 1000);
    EXPECT_EQ(sideText(bookOf(small.day), 1), "1000: 700 in 1");
    EXPECT_EQ(sideText(bookOf(small.day), 2), "");
}

TEST(ReferenceBook, LeavesOutAnOrderThatWasFilledBeforeItsRecord)
{
    SmallDay small;
    small.sell(1, 10.00, 300).deal(2, 1, 10.00, 300).buy(2, 10.00, 300);
    EXPECT_EQ(sideText(bookOf(small.day), 1), "");
}

TEST(ReferenceBook, PutsABestOwnSideOrderAtTheBestPriceOfItsSide)
{
    SmallDay small;
    small.buy(1, 10.00, 300).sell(2, 10.05, 100).buy(3, 0, 200, quoter::eOrderBestOwnSide);
    small.sell(4, 0, 500, quoter::eOrderBestOwnSide);
    EXPECT_EQ(sideText(bookOf(small.day), 1), "1000: 500 in 2 (200 in 1 without a price)");
    EXPECT_EQ(sideText(bookOf(small.day), 2), "1005: 600 in 2 (500 in 1 without a price)");
}

TEST(ReferenceBook, PutsTheRestOfAMarketOrderAtTheBestPriceOfTheOtherSide)
{
    SmallDay small;
    small.sell(1, 10.05, 100).buy(2, 0, 300, quoter::eOrderMarket).deal(2, 1, 10.05, 100);
    EXPECT_EQ(sideText(bookOf(small.day), 1), "1005: 200 in 1 (200 in 1 without a price)");
    small.cancelBuy(2, 200);
    EXPECT_EQ(sideText(bookOf(small.day), 1), "");
}

TEST(ReferenceBook, IgnoresAnUnknownNumberASecondRecordAndWhatDoesNotStand)
{
    SmallDay small;
    small.buy(1, 10.00, 300).buy(1, 10.00, 300).cancelBuy(77, 100).deal(88, 99, 10.00, 100);
    small.buy(5, 10.00, 300, quoter::eOrderNotStanding);
    EXPECT_EQ(sideText(bookOf(small.day), 1), "1000: 300 in 1");
}

TEST(ReferenceBook, SurvivesVolumesBeyondAllMeasure)
{
    SmallDay small;
    small.buy(1, 10.00, INT64_MAX).buy(2, 10.00, INT64_MIN).buy(3, 10.00, -5).buy(4, 10.00, INT64_MAX);
    small.deal(1, 9, 10.00, INT64_MAX).cancelBuy(4, INT64_MIN).deal(9, 9, 10.00, INT64_MAX);
    EXPECT_EQ(sideText(bookOf(small.day), 1), "");
}

TEST(ReferenceBook, ShowsTheSameViewAsTheSnapshotPublishedOfIt)
{
    SmallDay small;
    for (int i = 0; i < 14; ++i)
        small.buy(1 + i, 10.00 - i * 0.01, 100 * (i + 1)).sell(100 + i, 10.01 + i * 0.01, 100);
    small.snapshot();
    const host::ReferenceBook book = bookOf(small.day);
    feed::SnapshotRow row = small.day.snapshots.back();
    EXPECT_EQ(book.view(true), host::ReferenceBook::viewOf(row, 0.01, true));
    EXPECT_EQ(book.view(false), host::ReferenceBook::viewOf(row, 0.01, false));
    row.bidCount[9] += 1;
    EXPECT_NE(book.view(true), host::ReferenceBook::viewOf(row, 0.01, true));
    EXPECT_EQ(book.view(false), host::ReferenceBook::viewOf(row, 0.01, false));
    row.askVolume[3] += 1;
    EXPECT_NE(book.view(false), host::ReferenceBook::viewOf(row, 0.01, false));
}

} // namespace
