#include "feed/simulation/AuctionPrice.h"
#include "feed/simulation/Random.h"
#include "feed/simulation/ReferenceBook.h"

#include <gtest/gtest.h>

#include <sstream>

namespace feed::test {
namespace {

/// Two sides from text: "B 10.05 300", one order a line.
class AuctionBook
{
public:
    explicit AuctionBook(const std::string& lines)
    {
        std::istringstream text(lines);
        char side = 'B';
        double price = 0;
        std::int64_t volume = 0;
        while (text >> side >> price >> volume)
            add(side == 'B' ? Side::Buy : Side::Sell, book.scale().ticks(price), volume);
    }

    void add(Side side, int ticks, std::int64_t volume)
    {
        TrueOrder order;
        order.number = ++m_number;
        order.remaining = order.original = volume;
        book.add(side, ticks, order);
        (side == Side::Buy ? bids : asks)[ticks].push_back({order.number, volume, volume, false});
    }

    std::string match(double reference) const
    {
        const AuctionMatch found = auctionMatch(book, book.scale().ticks(reference));
        std::ostringstream text;
        text << book.scale().price(found.ticks) << " x " << found.volume << " rest " << found.buyRest << "/"
             << found.sellRest;
        return text.str();
    }

    TrueBook book{800, 1200, TickScale(0.01)};
    ReferenceBook::Levels bids;
    ReferenceBook::Levels asks;

private:
    std::int64_t m_number = 0;
};

TEST(AuctionPrice, NothingMatchesWhenTheSidesDoNotMeet)
{
    EXPECT_EQ(AuctionBook("").match(10), "0 x 0 rest 0/0");
    EXPECT_EQ(AuctionBook("B 10.00 100").match(10), "0 x 0 rest 0/0");
    EXPECT_EQ(AuctionBook("B 9.99 100\nS 10.00 100").match(10), "0 x 0 rest 0/0");
}

TEST(AuctionPrice, TakesThePriceOfTheGreatestVolume)
{
    EXPECT_EQ(AuctionBook("B 10.02 300\nB 10.01 500\nS 10.00 400\nS 10.02 200").match(9.5),
              "10.01 x 400 rest 400/0");
}

TEST(AuctionPrice, ServesEverythingBetterThanThePrice)
{
    // 10.00 and 10.01 both match 60 with a rest of 40; at 10.00 the buyer at 10.01 would not be served whole.
    EXPECT_EQ(AuctionBook("B 10.01 100\nS 9.99 60").match(9.0), "10.01 x 60 rest 40/0");
    EXPECT_EQ(AuctionBook("B 10.01 60\nS 9.99 100").match(11.0), "9.99 x 60 rest 0/40");
}

TEST(AuctionPrice, TakesTheSmallestRestAmongEqualVolumes)
{
    EXPECT_EQ(AuctionBook("B 10.05 100\nB 10.00 50\nS 9.95 100").match(10.00), "10.01 x 100 rest 0/0");
}

TEST(AuctionPrice, TakesThePriceNearestToTheReferenceAmongEqualRests)
{
    const AuctionBook book("B 10.05 100\nS 9.95 100");
    EXPECT_EQ(book.match(9.00), "9.95 x 100 rest 0/0");
    EXPECT_EQ(book.match(9.98), "9.98 x 100 rest 0/0");
    EXPECT_EQ(book.match(11.00), "10.05 x 100 rest 0/0");
}

TEST(AuctionPrice, AgreesWithTryingEveryPriceOnRandomBooks)
{
    for (std::uint64_t seed = 1; seed <= 400; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        AuctionBook book("");
        const int orders = static_cast<int>(1 + random.below(30));
        const auto range = 2 + random.below(40);
        for (int i = 0; i < orders; ++i)
            book.add(random.chance(0.5) ? Side::Buy : Side::Sell, static_cast<int>(980 + random.below(range)),
                     100 * (1 + random.below(4)));
        const int reference = static_cast<int>(970 + random.below(60));
        const AuctionMatch quick = auctionMatch(book.book, reference);
        const AuctionMatch slow = slowAuctionMatch(book.bids, book.asks, reference);
        ASSERT_EQ(quick.ticks, slow.ticks);
        ASSERT_EQ(quick.volume, slow.volume);
        ASSERT_EQ(quick.buyRest, slow.buyRest);
        ASSERT_EQ(quick.sellRest, slow.sellRest);
    }
}

} // namespace
} // namespace feed::test
