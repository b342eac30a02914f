#include "feed/simulation/MatchingBook.h"
#include "records/OrderData.h"

#include <gtest/gtest.h>

#include <sstream>

namespace feed::test {
namespace {

/// Writes each row as a line.
class RowLines : public RowSink
{
public:
    void onOrder(const OrderRow& row) override
    {
        m_text << "order " << row.number << (row.side == 1 ? " buy " : " sell ") << row.volume << " at "
               << row.price << " kind " << row.kind << "\n";
    }
    void onDeal(const DealRow& row) override
    {
        if (row.kind == 3)
            m_text << "cancel " << row.buyNo << "/" << row.sellNo << " " << row.volume << " at " << row.price
                   << "\n";
        else
            m_text << "deal " << row.buyNo << "/" << row.sellNo << " " << row.volume << " at " << row.price
                   << " active " << row.activeSide << "\n";
    }
    void onSnapshot(const SnapshotRow&) override {}
    void onQueue(const QueueRow&) override {}

    /// The lines since the last call.
    std::string take()
    {
        const std::string text = m_text.str();
        m_text.str("");
        return text;
    }

private:
    std::ostringstream m_text;
};

class MatchingBookTest : public ::testing::Test
{
protected:
    MatchingBookTest() { channel.open(&rows, 1000); }
    ~MatchingBookTest() override { EXPECT_EQ(book.firstFault(), ""); }

    static SimulationSettings plainNumbers()
    {
        SimulationSettings settings;
        settings.foreignRows = 0; // orders are numbered 1, 2, 3 ...
        return settings;
    }

    std::string best(Side side) const
    {
        std::ostringstream text;
        for (const TrueOrder& order : book.orders(side, book.bestPrice(side)))
            text << order.number << "=" << order.remaining << (order.priceless ? "*" : "") << " ";
        text << "at " << book.bestPrice(side);
        return text.str();
    }

    RowLines rows;
    TrueBook book{900, 1100, TickScale(0.01)};
    MarketChannel channel{plainNumbers(), TickScale(0.01)};
    MatchingBook matching{book, channel};
};

TEST_F(MatchingBookTest, AnOrderThatReachesNothingWaits)
{
    matching.limit(Side::Buy, 1000, 300);
    matching.limit(Side::Sell, 1001, 200);
    EXPECT_EQ(rows.take(), "order 1 buy 300 at 10 kind 1\n"
                           "order 2 sell 200 at 10.01 kind 1\n");
    EXPECT_EQ(best(Side::Buy), "1=300 at 10");
    EXPECT_EQ(best(Side::Sell), "2=200 at 10.01");
}

TEST_F(MatchingBookTest, AnOrderIsAnnouncedWholeBeforeItsDealsAndItsRestWaits)
{
    matching.limit(Side::Sell, 1001, 100);
    matching.limit(Side::Sell, 1001, 200);
    matching.limit(Side::Sell, 1002, 500);
    matching.limit(Side::Sell, 1004, 500);
    rows.take();
    matching.limit(Side::Buy, 1003, 1000);
    EXPECT_EQ(rows.take(), "order 5 buy 1000 at 10.03 kind 1\n"
                           "deal 5/1 100 at 10.01 active 1\n"
                           "deal 5/2 200 at 10.01 active 1\n"
                           "deal 5/3 500 at 10.02 active 1\n");
    EXPECT_EQ(best(Side::Buy), "5=200 at 10.03");
    EXPECT_EQ(book.find(5)->dealt, 800);
    EXPECT_EQ(best(Side::Sell), "4=500 at 10.04");
}

TEST_F(MatchingBookTest, AWaitingOrderDealtInPartKeepsItsPlace)
{
    matching.limit(Side::Buy, 1000, 500);
    matching.limit(Side::Buy, 1000, 500);
    matching.limit(Side::Sell, 999, 200);
    EXPECT_EQ(best(Side::Buy), "1=300 2=500 at 10");
    EXPECT_TRUE(book.isEmpty(Side::Sell));
    rows.take();
    matching.limit(Side::Sell, 1000, 400);
    EXPECT_EQ(rows.take(), "order 4 sell 400 at 10 kind 1\n"
                           "deal 1/4 300 at 10 active 2\n"
                           "deal 2/4 100 at 10 active 2\n");
}

TEST_F(MatchingBookTest, AMarketOrdersRestIsWithdrawnAtOnce)
{
    matching.limit(Side::Buy, 1000, 300);
    rows.take();
    matching.market(Side::Sell, 500);
    EXPECT_EQ(rows.take(), "order 2 sell 500 at 0 kind 2\n"
                           "deal 1/2 300 at 10 active 2\n"
                           "cancel 2/2 200 at 0\n");
    matching.market(Side::Buy, 500);
    EXPECT_EQ(rows.take(), "order 3 buy 500 at 0 kind 2\n"
                           "cancel 3/0 500 at 0\n");
    EXPECT_TRUE(book.isEmpty(Side::Buy));
}

TEST_F(MatchingBookTest, AMarketOrderReachesFivePrices)
{
    for (int level = 0; level < 7; ++level)
        matching.limit(Side::Sell, 1001 + level, 100);
    rows.take();
    matching.market(Side::Buy, 1000);
    EXPECT_EQ(rows.take(), "order 8 buy 1000 at 0 kind 2\n"
                           "deal 8/1 100 at 10.01 active 1\n"
                           "deal 8/2 100 at 10.02 active 1\n"
                           "deal 8/3 100 at 10.03 active 1\n"
                           "deal 8/4 100 at 10.04 active 1\n"
                           "deal 8/5 100 at 10.05 active 1\n"
                           "cancel 8/0 500 at 0\n");
}

TEST_F(MatchingBookTest, ABestOwnSideOrderStandsAtTheBestPriceButIsAnnouncedWithoutOne)
{
    matching.limit(Side::Sell, 1001, 100);
    rows.take();
    matching.bestOwnSide(Side::Sell, 200);
    EXPECT_EQ(rows.take(), "order 2 sell 200 at 0 kind 4\n");
    EXPECT_EQ(best(Side::Sell), "1=100 2=200* at 10.01");
    matching.bestOwnSide(Side::Buy, 200);
    EXPECT_EQ(rows.take(), "order 3 buy 200 at 0 kind 4\n"
                           "cancel 3/0 200 at 0\n");
    EXPECT_EQ(channel.counts().pricelessOrders, 2);
}

TEST_F(MatchingBookTest, ACancellationNamesASellOrderInBothFields)
{
    matching.limit(Side::Buy, 1000, 300);
    matching.limit(Side::Sell, 1001, 300);
    matching.limit(Side::Buy, 1001, 100); // the sell order is dealt in part before
    rows.take();
    EXPECT_TRUE(matching.cancel(1));
    EXPECT_TRUE(matching.cancel(2));
    EXPECT_EQ(rows.take(), "cancel 1/0 300 at 0\n"
                           "cancel 2/2 200 at 0\n");
    EXPECT_FALSE(matching.cancel(2));
    EXPECT_FALSE(matching.cancel(77));
    EXPECT_EQ(rows.take(), "");
}

TEST_F(MatchingBookTest, AnAuctionDealsAtOnePriceByPriceAndTime)
{
    matching.limitInAuction(Side::Buy, 1000, 100);
    matching.limitInAuction(Side::Buy, 1002, 300);
    matching.limitInAuction(Side::Sell, 1000, 200);
    matching.limitInAuction(Side::Sell, 999, 150);
    matching.limitInAuction(Side::Buy, 1000, 100);
    rows.take();
    matching.matchAuction(auctionMatch(book, 1000));
    EXPECT_EQ(rows.take(), "deal 2/4 150 at 10 active 0\n"
                           "deal 2/3 150 at 10 active 0\n"
                           "deal 1/3 50 at 10 active 0\n");
    EXPECT_EQ(best(Side::Buy), "1=50 5=100 at 10");
    EXPECT_TRUE(book.isEmpty(Side::Sell));
}

TEST_F(MatchingBookTest, AMatchThatIsNotOfThisBookEndsWhereASideEnds)
{
    matching.limitInAuction(Side::Buy, 1000, 100);
    AuctionMatch foreign;
    foreign.ticks = 1000;
    foreign.volume = 500;
    matching.matchAuction(foreign);
    EXPECT_EQ(best(Side::Buy), "1=100 at 10");
}

TEST_F(MatchingBookTest, TotalsFollowTheDeals)
{
    matching.limit(Side::Sell, 1001, 100);
    matching.limit(Side::Sell, 1005, 100);
    matching.limit(Side::Buy, 1005, 200);
    matching.limit(Side::Buy, 990, 100);
    matching.limit(Side::Sell, 990, 100);
    const DayTotals& totals = channel.totals();
    EXPECT_EQ(totals.openTicks, 1001);
    EXPECT_EQ(totals.highTicks, 1005);
    EXPECT_EQ(totals.lowTicks, 990);
    EXPECT_EQ(totals.lastTicks, 990);
    EXPECT_EQ(totals.volume, 300);
    EXPECT_EQ(totals.deals, 3);
    EXPECT_NEAR(totals.turnover, 1001 + 1005 + 990, 1e-9);
}

} // namespace
} // namespace feed::test
