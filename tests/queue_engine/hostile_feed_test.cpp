#include "queue_engine/EngineFixture.h"

#include <cmath>
#include <limits>

using namespace testing_support;

namespace {

const double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::int64_t kLongMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLongMin = std::numeric_limits<std::int64_t>::min();
constexpr int kIntMax = std::numeric_limits<int>::max();
constexpr int kIntMin = std::numeric_limits<int>::min();

const double kPrices[] = {0,          -10,  1e300,       -1e300,      kInfinity,
                          -kInfinity, kNaN, 21474836.47, 21474836.48, 1e-300};
const std::int64_t kVolumes[] = {0,        -100,    1, (std::int64_t{1} << 53) + 2, std::int64_t{1} << 60,
                                 kLongMax, kLongMin};

/// A hostile record beside good ones: the good ones must stand afterwards as if it had not been there.
class HostileFeed : public EngineTest
{
protected:
    void runEverything()
    {
        engine.checkCalcOrder();
        for (int tick = 0; tick < 23; ++tick)
            engine.slotTimeout();
        for (int pass = 0; pass < 4; ++pass)
            engine.updateDataList();
        engine.fixSZDataList(false);
        engine.calcOrder();
        for (unsigned int i = 0; i < 10; ++i) {
            const auto buy = engine.at(i, Kel::OQT_BUY);
            const auto sell = engine.at(i, Kel::OQT_SELL);
            ASSERT_TRUE(buy);
            ASSERT_TRUE(sell);
            EXPECT_FALSE(std::isnan(buy->m_avgVol)) << i;
            EXPECT_FALSE(std::isnan(sell->m_avgVol)) << i;
        }
    }

    void good()
    {
        engine.clear(true);
        engine.m_nOrderCount = 0;
        engine.m_nDealCount = 0;
        snap("bid 9.00x1; ask 11.00x1; last 10.00", 900);
        orders(1, {order(1, kBuy, 9.00, 500), order(2, kSell, 11.00, 300)});
    }

    void expectGood()
    {
        EXPECT_EQ(list(kBuy, 900), "1 5 normal");
        EXPECT_EQ(list(kSell, 1100), "2 3 normal");
    }
};

} // namespace

TEST_F(HostileFeed, PricesOfLiveOrders)
{
    for (const double price : kPrices) {
        SCOPED_TRACE(price);
        good();
        orders(1, {order(50, kBuy, price, 500), order(51, kSell, price, 500), order(3, kBuy, 8.99, 700)});
        runEverything();
        expectGood();
        EXPECT_EQ(list(kBuy, 899), "3 7 normal");
    }
}

TEST_F(HostileFeed, PricesOfCachedOrders)
{
    for (const double price : kPrices) {
        SCOPED_TRACE(price);
        good();
        quoter::QuoterBatch batch = buyOrders(100, 101);
        batch.push_back(order(50, kBuy, price, 500));
        batch.push_back(order(51, kSell, price, 500));
        orders(1, batch);
        deals(1, {});
        runEverything();
        expectGood();
        EXPECT_EQ(level(kBuy, 1000)->m_orders.size(), 101);
    }
}

TEST_F(HostileFeed, VolumesOfOrders)
{
    for (const std::int64_t volume : kVolumes) {
        SCOPED_TRACE(volume);
        good();
        orders(1,
               {order(50, kBuy, 9.50, volume), order(51, kSell, 10.50, volume), order(3, kBuy, 8.99, 700)});
        quoter::QuoterBatch batch = buyOrders(100, 101);
        batch.push_back(order(52, kBuy, 9.40, volume));
        orders(1, batch);
        deals(1, {deal(50, 51, 9.50, 100)});
        runEverything();
        expectGood();
        EXPECT_EQ(list(kBuy, 899), "3 7 normal");
    }
}

TEST_F(HostileFeed, VolumesOfDeals)
{
    for (const std::int64_t volume : kVolumes) {
        SCOPED_TRACE(volume);
        good();
        orders(1, {order(50, kBuy, 9.50, 500), order(51, kSell, 10.50, 500)});
        deals(1, {deal(50, 51, 10.00, volume), deal(50, 51, 10.00, volume), cancelBuy(50, volume),
                  cancelSell(51, volume), deal(900, 901, 10.00, volume)});
        runEverything();
        expectGood();
    }
}

TEST_F(HostileFeed, NumbersOfOrdersAndDeals)
{
    const std::int64_t numbers[] = {0, -1, kIntMax, kIntMin, std::int64_t{1} << 40, kLongMax, kLongMin};
    for (const std::int64_t number : numbers) {
        SCOPED_TRACE(number);
        good();
        orders(1, {order(number, kBuy, 9.50, 500), order(number, kBuy, 9.50, 500),
                   order(number, kSell, 10.50, 500)});
        runEverything();
        expectGood();
        EXPECT_EQ(list(kBuy, 950), std::to_string(number) + " 5 normal");
        const int dealNumber = static_cast<int>(number);
        deals(1, {deal(dealNumber, dealNumber, 10.00, 100, kIntMax), cancelBuy(dealNumber, 100),
                  cancelSell(dealNumber, 100)});
        runEverything();
        expectGood();
    }
}

TEST_F(HostileFeed, SidesAndKindsOfLiveOrders)
{
    for (const int side : {0, 3, 4, 9, -1, 100, kIntMax, kIntMin}) {
        SCOPED_TRACE(side);
        good();
        orders(1, {order(50, side, 9.50, 500, side), order(3, kBuy, 8.99, 700)});
        deals(1, {deal(50, 50, 9.50, 100)});
        runEverything();
        expectGood();
        EXPECT_EQ(list(kBuy, 899), "3 7 normal");
        EXPECT_NE(list(side, 950), "no level");
    }
}

TEST_F(HostileFeed, TimesOfRecords)
{
    for (const std::int64_t time : {std::int64_t{0}, std::int64_t{-1}, kLongMax, kLongMin}) {
        SCOPED_TRACE(time);
        good();
        orders(1, {atTime(time, order(50, kBuy, 9.50, 500))});
        deals(1, {atTime(time, deal(50, 0, 9.50, 100))});
        snap("bid 9.00x5 8.99x7; ask 11.00x3; last 10.00", time);
        engine.quoterCallBackThread({atTime(time, levelRecord("bid 8.00: 5"))}, 0, 1);
        runEverything();
        EXPECT_EQ(engine.m_depthTime, time);
        EXPECT_EQ(list(kBuy, 900), "1 5 normal");
        EXPECT_EQ(list(kSell, 1100), "2 3 normal");
    }
}

TEST_F(HostileFeed, SnapshotsOfAnyNumbers)
{
    for (const double price : kPrices) {
        for (const std::int64_t volume : kVolumes) {
            SCOPED_TRACE(numberText(price) + " x " + std::to_string(volume));
            good();
            const auto record = snapshot("last 10.00");
            record->m_time = 9000;
            for (int i = 0; i < quoter::kDepthLevels; ++i) {
                record->askPrice[i] = record->bidPrice[i] = price;
                record->askVolume[i] = record->bidVolume[i] = volume;
            }
            record->askPrice[0] = 11.00;
            record->bidPrice[0] = 9.00;
            record->lastPrice = price;
            quotes(-1, {record});
            engine.m_bLevelDataBack = true;
            runEverything();
            expectGood();
            record->askPrice[0] = record->bidPrice[0] = price;
            engine.calcOrder();
            expectGood();
        }
    }
}

TEST_F(HostileFeed, LevelRecordsOfAnyNumbers)
{
    const std::vector<std::int32_t> queuesOfVolumes[] = {{kIntMax},
                                                         {kIntMin},
                                                         {-1, 0, 1},
                                                         std::vector<std::int32_t>(2000, kIntMax),
                                                         std::vector<std::int32_t>(2000, 1)};
    for (const double price : kPrices) {
        for (const auto& volumes : queuesOfVolumes) {
            SCOPED_TRACE(price);
            good();
            const auto record = levelRecord("bid 9.50: 5");
            record->bidVolumes = volumes;
            record->askPrice = price;
            record->askVolumes = volumes;
            record->bidCount = kIntMin;
            record->askCount = kIntMax;
            quotes(1, {record});
            EXPECT_EQ(level(kBuy, 950)->m_orders.size(), static_cast<int>(volumes.size()));
            quotes(1, {record});
            record->bidCount = kIntMax;
            quotes(1, {record});
            runEverything();
            engine.fixOrderDataList();
            expectGood();
        }
    }
}

TEST_F(HostileFeed, RecordsThatAreNullOrForeignBesideGoodOnes)
{
    const quoter::QuoterBasePtr foreign[] = {
        quoter::QuoterBasePtr(), boost::make_shared<quoter::QuoterBase>(), snapshot("bid 10.00x1"),
        levelRecord("bid 10.00: 5"), boost::make_shared<quoter::QuoterAllData>()};
    for (const auto& record : foreign) {
        good();
        orders(1, {record, order(3, kBuy, 8.99, 700), record});
        deals(1, {record, deal(3, 0, 8.99, 200), record});
        orders(3, {});
        deals(3, {});
        runEverything();
        expectGood();
        EXPECT_EQ(list(kBuy, 899), "3 5 part");
    }
}

TEST_F(HostileFeed, CountsAtTheEndOfInt)
{
    good();
    engine.m_nOrderCount = kIntMax;
    engine.m_nDealCount = kIntMax;
    engine.updateUnDealOrderCache();
    EXPECT_EQ(engine.m_nOrderCount, 0);
    EXPECT_EQ(engine.m_nDealCount, 0);
    runEverything();
    expectGood();
}
