#include "feed/simulation/SimulatedExchange.h"
#include "feed/simulation/TradingHours.h"
#include "records/OrderData.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <set>

namespace feed::test {
namespace {

/// A number that depends on every bit of every row.
class Digest : public RowSink
{
public:
    void onOrder(const OrderRow& row) override
    {
        add(row.time, row.seq, row.number, row.price, row.volume, row.side, row.kind);
    }
    void onDeal(const DealRow& row) override
    {
        add(row.time, row.seq, row.price, row.volume, row.dealNo, row.buyNo, row.sellNo, row.kind,
            row.activeSide);
    }
    void onSnapshot(const SnapshotRow& row) override
    {
        add(row.time, row.seq, static_cast<int>(row.phase), row.lastPrice, row.openPrice, row.highPrice,
            row.lowPrice, row.totalVolume, row.turnover, row.dealCount);
        for (std::size_t at = 0; at < row.bidPrice.size(); ++at)
            add(row.bidPrice[at], row.bidVolume[at], row.bidCount[at], row.askPrice[at], row.askVolume[at],
                row.askCount[at]);
    }
    void onQueue(const QueueRow& row) override
    {
        add(row.time, row.seq, row.bidPrice, row.askPrice, row.bidCount, row.askCount);
        for (const std::int64_t volume : row.bidVolumes)
            add(volume);
        for (const std::int64_t volume : row.askVolumes)
            add(volume);
    }

    std::uint64_t value = 0xCBF29CE484222325ull;

private:
    template <typename... Values>
    void add(Values... values)
    {
        (mix(values), ...);
    }

    template <typename Value>
    void mix(Value given)
    {
        std::uint64_t bits = 0;
        std::memcpy(&bits, &given, sizeof given);
        value = (value ^ bits) * 0x100000001B3ull;
        value ^= value >> 29;
    }
};

std::uint64_t digestOf(const SimulationSettings& settings)
{
    Digest digest;
    SimulatedExchange(settings).runDay(digest);
    return digest.value;
}

int secondOf(std::int64_t time, const SimulationSettings& settings)
{
    return static_cast<int>((time - hours::midnightOf(settings.tradingDay)) / 1000);
}

TEST(SimulatedDay, SameSettingsGiveTheSameRowsBitForBit)
{
    EXPECT_EQ(digestOf(shenzhenStock(5)), digestOf(shenzhenStock(5)));
    EXPECT_NE(digestOf(shenzhenStock(5)), digestOf(shenzhenStock(6)));
}

TEST(SimulatedDay, IsTheSameOnEveryMachine)
{
    // Changes with every deliberate change to the traders, and with nothing else: not with compiler or
    // optimization.
    EXPECT_EQ(digestOf(shanghaiStock(1)), 2338968777090910585u);
    EXPECT_EQ(digestOf(levelStyle(convertibleBond(1))), 8213275299070296776u);
}

TEST(SimulatedDay, StepsAndJumpsGiveTheSameRows)
{
    const SimulationSettings settings = shanghaiStock(8);
    Digest stepped;
    SimulatedExchange first(settings);
    while (first.step(stepped))
        ;
    Digest jumped;
    SimulatedExchange second(settings);
    for (int second_ = hours::at(9, 0); second_ <= hours::at(15, 30); second_ += 97)
        second.runUntil(second.timeAt(second_), jumped);
    EXPECT_EQ(stepped.value, jumped.value);
    EXPECT_FALSE(second.step(jumped));
}

TEST(SimulatedDay, RunUntilDeliversWhatIsDueAndNothingLater)
{
    SimulatedExchange exchange(shanghaiStock(8));
    InstrumentDay day;
    const std::int64_t noon = exchange.timeAt(hours::at(10, 0));
    exchange.runUntil(noon, day);
    EXPECT_EQ(exchange.now(), noon);
    EXPECT_GT(exchange.nextTime(), noon);
    EXPECT_LE(day.orders.back().time, noon);
    EXPECT_LE(day.deals.back().time, noon);
    EXPECT_EQ(day.snapshots.back().time, noon) << "a snapshot is due at this very moment";
    const std::size_t orders = day.orders.size();
    exchange.runUntil(noon - 3600000, day);
    EXPECT_EQ(exchange.now(), noon) << "time does not go back";
    EXPECT_EQ(day.orders.size(), orders);
    exchange.runUntil(std::numeric_limits<std::int64_t>::max() - 1, day);
    EXPECT_EQ(exchange.phase(), Phase::Closed);
    EXPECT_EQ(exchange.nextTime(), std::numeric_limits<std::int64_t>::max());
}

TEST(SimulatedDay, SnapshotsComeEveryThreeSecondsAndAtEachPhase)
{
    const SimulationSettings settings = shanghaiStock(2);
    const InstrumentDay day = simulatedDay(settings);
    std::set<int> seconds;
    for (const SnapshotRow& row : day.snapshots) {
        EXPECT_TRUE(seconds.insert(secondOf(row.time, settings)).second) << "two snapshots of one second";
        EXPECT_EQ(row.previousClose, settings.detail.previousClose);
    }
    const std::pair<int, int> trading[] = {{hours::kOpeningAuction, hours::kOpeningMatch},
                                           {hours::kMorning, hours::kBreak},
                                           {hours::kAfternoon, hours::kClosingAuction},
                                           {hours::kClosingAuction, hours::kClose}};
    for (const auto& [from, to] : trading) {
        for (int second = from; second <= to; second += 3)
            EXPECT_EQ(seconds.count(second), 1u) << second;
    }
    EXPECT_EQ(secondOf(day.snapshots.front().time, settings), hours::kStart);
    EXPECT_EQ(secondOf(day.snapshots.back().time, settings), hours::kClose);
    EXPECT_EQ(day.snapshots.front().phase, Phase::Start);
    EXPECT_EQ(day.snapshots.back().phase, Phase::Closed);
}

TEST(SimulatedDay, QueuesArePublishedInContinuousTradingOnly)
{
    SimulationSettings settings = shanghaiStock(2);
    const InstrumentDay day = simulatedDay(settings);
    EXPECT_NEAR(double(day.queues.size()), (7200 + 7020) / 3.0, 10);
    for (const QueueRow& row : day.queues)
        EXPECT_EQ(hours::phaseAt(secondOf(row.time, settings)), Phase::Continuous);
    settings.deliverQueues = false;
    EXPECT_TRUE(simulatedDay(settings).queues.empty());
}

TEST(SimulatedDay, AWholeDayKnowsItsInstrumentAndItsLimits)
{
    SimulationSettings settings = growthBoardStock(2);
    settings.orders = 500;
    settings.tradingDay = 20231299;
    const InstrumentDay day = simulatedDay(settings);
    EXPECT_EQ(day.detail.code, settings.detail.code);
    EXPECT_EQ(day.detail.upperLimit, 343.42);
    EXPECT_EQ(day.tradingDay, 20230201) << "a day that is none is the usual one";
    EXPECT_EQ(day.snapshots.front().time, hours::midnightOf(20230201) + std::int64_t(hours::kStart) * 1000);
}

TEST(SimulatedDay, NumbersFollowTheExchangesStyle)
{
    const InstrumentDay shenzhen = simulatedDay(shenzhenStock(3));
    for (const OrderRow& row : shenzhen.orders)
        ASSERT_EQ(row.number, row.seq);
    const InstrumentDay shanghai = simulatedDay(shanghaiStock(3));
    int different = 0;
    for (const OrderRow& row : shanghai.orders)
        different += row.number != row.seq ? 1 : 0;
    EXPECT_GT(different, 1000);
    EXPECT_LT(shanghai.deals.back().dealNo, std::int64_t(shanghai.deals.size()) + 1);
}

TEST(SimulatedDay, OrdersOutsideThePriceLimitsAreRefusedAndNeverPublished)
{
    SimulationSettings settings = shanghaiStock(3);
    settings.detail.upperLimit = 18.50;
    settings.detail.lowerLimit = 18.20;
    SimulatedExchange exchange(settings);
    InstrumentDay day;
    exchange.runDay(day);
    EXPECT_GT(exchange.refusedOrders(), 500);
    for (const OrderRow& row : day.orders) {
        if (row.price != 0) {
            ASSERT_GE(row.price, 18.20);
            ASSERT_LE(row.price, 18.50);
        }
    }
}

TEST(SimulatedDay, BrokenLotsAreSoldButNotBought)
{
    const InstrumentDay day = simulatedDay(shenzhenStock(3));
    int broken = 0;
    for (const OrderRow& row : day.orders) {
        if (row.volume % 100 != 0) {
            EXPECT_EQ(row.side, 2);
            ++broken;
        }
    }
    EXPECT_GT(broken, 20);
}

TEST(SimulatedDay, ChannelSequenceHasRoomForOtherInstruments)
{
    SimulationSettings settings = shenzhenStock(3);
    SimulatedExchange crowded(settings);
    settings.foreignRows = 0;
    SimulatedExchange alone(settings);
    InstrumentDay day;
    crowded.runDay(day);
    alone.runDay(day);
    EXPECT_EQ(alone.lastSequence(), alone.counts().orders + alone.counts().deals + alone.counts().cancels);
    EXPECT_GT(crowded.lastSequence(), 3 * alone.lastSequence());
}

} // namespace
} // namespace feed::test
