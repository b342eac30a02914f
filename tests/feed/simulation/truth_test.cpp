#include "feed/simulation/ReferenceBook.h"
#include "feed/simulation/SimulatedExchange.h"
#include "feed/simulation/TradingHours.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

namespace feed::test {
namespace {

using ::testing::IsEmpty;

using Factory = SimulationSettings (*)(std::uint64_t);

struct Kind
{
    const char* name;
    Factory make;
};

constexpr Kind kKinds[] = {{"ShanghaiStock", shanghaiStock},     {"ShenzhenStock", shenzhenStock},
                           {"GrowthBoard", growthBoardStock},    {"Fund", fund},
                           {"ConvertibleBond", convertibleBond}, {"Repurchase", repurchase}};

/// Random days of each kind, replayed by a plain book that knows nothing but the rows.
class RandomDay : public ::testing::TestWithParam<std::tuple<int, std::uint64_t>>
{
protected:
    SimulationSettings settings() const
    {
        SimulationSettings result = kKinds[std::get<0>(GetParam())].make(std::get<1>(GetParam()));
        result.orders = 3000;
        return result;
    }

    void SetUp() override { RecordProperty("seed", std::to_string(std::get<1>(GetParam()))); }
};

TEST_P(RandomDay, RowsKeepTheRulesOfAnExchangeAndGiveTheTrueBook)
{
    SimulatedExchange exchange(settings());
    ReferenceBook reference(exchange.settings());
    int steps = 0;
    while (exchange.step(reference)) {
        if (++steps % 250 == 0) {
            ASSERT_EQ(reference.differenceTo(exchange.book()), "") << "after step " << steps;
            ASSERT_EQ(exchange.book().firstFault(), "") << "after step " << steps;
        }
    }
    EXPECT_THAT(reference.faults(), IsEmpty());
    EXPECT_EQ(reference.differenceTo(exchange.book()), "");
    EXPECT_GT(reference.snapshotsCompared(), 4800);
    EXPECT_GT(reference.queuesCompared(), 4700);
    EXPECT_EQ(reference.announced(), reference.dealt() + reference.withdrawn() + reference.standing())
        << "what was ordered is dealt, withdrawn or standing";
    EXPECT_GT(reference.dealt(), 0);
    EXPECT_GT(reference.withdrawn(), 0);
}

TEST_P(RandomDay, TheAuctionsDealAllThatCanBeDealtAtOnePrice)
{
    SimulatedExchange exchange(settings());
    ReferenceBook reference(exchange.settings());
    const int close = exchange.book().scale().ticks(exchange.settings().detail.previousClose);
    for (const int end : {hours::kOpeningMatch, hours::kClose}) {
        SCOPED_TRACE(end);
        exchange.runUntil(exchange.timeAt(end) - 1, reference);
        const int last = exchange.totals().lastTicks;
        const AuctionMatch expected =
            slowAuctionMatch(reference.side(Side::Buy), reference.side(Side::Sell), last != 0 ? last : close);
        const std::int64_t before = exchange.totals().volume;
        InstrumentDay auction;
        while (exchange.nextTime() == exchange.timeAt(end))
            exchange.step(auction);
        EXPECT_EQ(exchange.totals().volume - before, expected.volume);
        for (const DealRow& deal : auction.deals) {
            EXPECT_EQ(deal.price, exchange.book().scale().price(expected.ticks));
            EXPECT_EQ(deal.activeSide, 0);
            reference.onDeal(deal);
        }
        EXPECT_GT(auction.deals.size(), 0u);
        const TrueBook& book = exchange.book();
        EXPECT_TRUE(book.bestTicks(Side::Buy) < book.bestTicks(Side::Sell) || book.isEmpty(Side::Sell));
    }
}

TEST_P(RandomDay, LevelStyleTradesTheSameDayWithoutOrders)
{
    InstrumentDay tick;
    SimulatedExchange(settings()).runDay(tick);
    SimulationSettings level = settings();
    level.style = FeedStyle::Level;
    InstrumentDay day;
    SimulatedExchange(level).runDay(day);
    EXPECT_THAT(day.orders, IsEmpty());
    ASSERT_EQ(day.deals.size(), tick.deals.size());
    for (std::size_t at = 0; at < day.deals.size(); ++at) {
        ASSERT_EQ(day.deals[at].seq, tick.deals[at].seq);
        ASSERT_EQ(day.deals[at].buyNo, tick.deals[at].buyNo);
        ASSERT_EQ(day.deals[at].volume, tick.deals[at].volume);
    }
    ASSERT_EQ(day.queues.size(), tick.queues.size());
    for (std::size_t at = 0; at < day.queues.size(); ++at)
        ASSERT_EQ(day.queues[at].bidVolumes, tick.queues[at].bidVolumes);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomDay,
                         ::testing::Combine(::testing::Range(0, 6), ::testing::Values(1, 2, 3, 20230201)),
                         [](const auto& tested) {
                             return std::string(kKinds[std::get<0>(tested.param)].name) + "Seed" +
                                    std::to_string(std::get<1>(tested.param));
                         });

/// Holds each published queue against the truth of its moment.
class QueueWatcher : public RowSink
{
public:
    explicit QueueWatcher(const SimulatedExchange& exchange) : m_exchange(exchange) {}

    void onOrder(const OrderRow&) override {}
    void onDeal(const DealRow&) override {}
    void onSnapshot(const SnapshotRow&) override {}
    void onQueue(const QueueRow& row) override
    {
        ++queues;
        check(Side::Buy, row.bidPrice, row.bidCount, row.bidVolumes);
        check(Side::Sell, row.askPrice, row.askCount, row.askVolumes);
    }

    int queues = 0;
    int longQueues = 0;

private:
    void check(Side side, double price, int count, const std::vector<std::int64_t>& volumes)
    {
        const std::vector<TrueOrder> orders = m_exchange.book().orders(side, price);
        EXPECT_EQ(price, m_exchange.book().bestPrice(side));
        ASSERT_EQ(static_cast<std::size_t>(count), orders.size());
        ASSERT_EQ(volumes.size(), std::min<std::size_t>(orders.size(), 50));
        for (std::size_t at = 0; at < volumes.size(); ++at)
            ASSERT_EQ(volumes[at], orders[at].remaining);
        longQueues += orders.size() > 50 ? 1 : 0;
    }

    const SimulatedExchange& m_exchange;
};

TEST(LevelStyle, PublishesTheTrueFirstFiftyOrdersEveryHalfSecond)
{
    SimulatedExchange exchange(levelStyle(fund(9)));
    QueueWatcher watcher(exchange);
    exchange.runDay(watcher);
    EXPECT_GT(watcher.queues, 28000);
    EXPECT_GT(watcher.longQueues, 100) << "queues that are longer than what is published";
}

TEST(LevelStyle, WithholdsCancellationsWhenAsked)
{
    SimulationSettings settings = levelStyle(shanghaiStock(4));
    settings.orders = 2000;
    settings.deliverLevelCancels = false;
    InstrumentDay day;
    SimulatedExchange exchange(settings);
    exchange.runDay(day);
    EXPECT_GT(exchange.counts().cancels, 100);
    EXPECT_EQ(static_cast<std::int64_t>(day.deals.size()), exchange.counts().deals);
}

TEST(TrueQueue, KnowsTheOrdersThatTheFeedAnnouncedWithoutAPrice)
{
    SimulationSettings settings = shenzhenStock(6);
    settings.orders = 5000;
    settings.bestOwnSideShare = 0.2;
    SimulatedExchange exchange(settings);
    InstrumentDay day;
    exchange.runUntil(exchange.timeAt(hours::at(14, 0)), day);
    int priceless = 0;
    for (const Side side : {Side::Buy, Side::Sell}) {
        for (const TrueLevel& level : exchange.book().levels(side, 1000)) {
            for (const TrueOrder& order : exchange.book().orders(side, level.price))
                priceless += order.priceless ? 1 : 0;
        }
    }
    EXPECT_GT(priceless, 10);
    std::int64_t announced = 0;
    for (const OrderRow& row : day.orders)
        announced += row.price == 0 ? 1 : 0;
    EXPECT_EQ(exchange.counts().pricelessOrders, announced);
}

} // namespace
} // namespace feed::test
