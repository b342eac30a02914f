// Hostile records by the public calls, beside good ones and in every combination: nothing crashes, and the
// good ones stand as if the others had not come. Run under the address and undefined-behaviour sanitizers.

#include "platform/services/RPCEngine.h"
#include "queue_engine/EngineFixture.h"

#include <algorithm>
#include <limits>
#include <vector>

using namespace testing_support;

namespace {

constexpr std::int64_t kLongMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLongMin = std::numeric_limits<std::int64_t>::min();
constexpr int kIntMax = std::numeric_limits<int>::max();
constexpr int kIntMin = std::numeric_limits<int>::min();

const std::vector<double> kPrices = {0,
                                     -0.0,
                                     -10,
                                     std::numeric_limits<double>::quiet_NaN(),
                                     std::numeric_limits<double>::infinity(),
                                     -std::numeric_limits<double>::infinity(),
                                     1e308,
                                     -1e308,
                                     std::numeric_limits<double>::denorm_min(),
                                     std::numeric_limits<double>::min(),
                                     21474836.475,
                                     -21474836.485};
const std::vector<std::int64_t> kVolumes = {0,        -1,       -500,        1, (std::int64_t(1) << 53) + 1,
                                            kLongMax, kLongMin, kLongMax - 1};
const std::vector<std::int64_t> kNumbers = {
    0,        -1,       (std::int64_t(1) << 31),  kIntMax,    kIntMin,
    kLongMax, kLongMin, -(std::int64_t(1) << 40), 4294967295, 4294967296};
const std::vector<std::int64_t> kTimes = {kLongMin, -1, 0, kLongMax};
const std::vector<int> kIntegers = {kIntMin, -2, -1, 0, 3, 4, 5, 6, 7, 8, 9, 10, 100, kIntMax};
const std::vector<int> kStatuses = {kIntMin, -100, -2, 4, 5, 100, kIntMax};

/// All calls go by the callbacks; passes and calculations follow them as the timers would bring them.
class HostileRecords : public EngineTest
{
protected:
    void publicOrders(int status, const quoter::QuoterBatch& batch)
    {
        engine.quoterOrderCallBack(0, status, wrap(batch));
        net::RPCEngine::drain("modulegroup");
    }

    void publicDeals(int status, const quoter::QuoterBatch& batch)
    {
        engine.quoterDealCallBack(0, status, wrap(batch));
        net::RPCEngine::drain("modulegroup");
    }

    void runPasses()
    {
        for (int i = 0; i < 22; ++i)
            engine.slotTimeout();
        engine.updateDataList();
        engine.fixSZDataList(true);
        engine.fixSZDataList(false);
        engine.checkCalcOrder();
        engine.calcOrder();
        for (unsigned index = 0; index < 11; ++index) {
            engine.at(index, Kel::OQT_BUY);
            engine.at(index, Kel::OQT_SELL);
        }
    }

    /// Whether the orders of `goodOrders` stand as they should after `goodDeals`.
    void expectGoodOnes(const std::string& where)
    {
        runPasses();
        engine.updateDataList();
        engine.updateDataList(); // one pass shows the dealt part, the next takes it off, the third is at rest
        EXPECT_EQ(list(kBuy, 3000), "700001 2 part; 700003 7 normal") << where;
        EXPECT_EQ(list(kSell, 3001), "700002 1500 big") << where;
        engine.clear(true);
        engine.m_nOrderCount = 0;
        engine.m_nDealCount = 0;
    }

    static quoter::QuoterBatch goodOrders()
    {
        return {order(700001, kBuy, 30.00, 500), order(700002, kSell, 30.01, 150000),
                order(700003, kBuy, 30.00, 700), order(700004, kBuy, 30.00, 900)};
    }

    static quoter::QuoterBatch goodDeals()
    {
        return {deal(700001, 700009, 30.00, 300), cancelBuy(700004, 900)};
    }

    static quoter::QuoterBatch mixed(const quoter::QuoterBatch& good, const quoter::QuoterBatch& bad)
    {
        quoter::QuoterBatch batch;
        for (std::size_t i = 0; i < std::max(good.size(), bad.size()); ++i) {
            if (i < bad.size())
                batch.push_back(bad[i]);
            if (i < good.size())
                batch.push_back(good[i]);
        }
        return batch;
    }

    /// The hostile orders come beside the good ones, live and as history, the deals before or after them.
    void feedOrders(const quoter::QuoterBatch& bad, const std::string& where)
    {
        // In pieces, since at most 100 records are live.
        const auto inPieces = [&](const quoter::QuoterBatch& batch) {
            for (std::size_t from = 0; from < batch.size(); from += 100) {
                const auto end =
                    batch.begin() + static_cast<std::ptrdiff_t>(std::min(batch.size(), from + 100));
                publicOrders(1, quoter::QuoterBatch(batch.begin() + static_cast<std::ptrdiff_t>(from), end));
            }
        };
        const quoter::QuoterBatch live = mixed(goodOrders(), bad);
        snap("ask 30.01x5; bid 30.00x3; last 30.00");
        inPieces(live);
        publicDeals(1, goodDeals());
        runPasses();
        expectGoodOnes(where + " live");

        publicDeals(1, goodDeals());
        inPieces(live);
        snap("ask 30.01x5; bid 30.00x3; last 30.00");
        engine.matchOrderDeal();
        expectGoodOnes(where + " live after their deals");

        quoter::QuoterBatch history = live;
        history.resize(std::max<std::size_t>(history.size(), 150));
        snap("ask 30.01x5; bid 30.00x3; last 30.00");
        publicOrders(0, history);
        publicDeals(3, goodDeals());
        EXPECT_EQ(list(kBuy, 3000), "700001 2 part; 700003 7 normal") << where;
        runPasses();
        EXPECT_EQ(list(kBuy, 3000), "700001 2 part; 700003 7 normal") << where << " history";
        engine.clear(true);
    }
};

} // namespace

TEST_F(HostileRecords, OrdersOfEveryPriceAndVolumeTakeNothingWithThem)
{
    for (const double price : kPrices) {
        quoter::QuoterBatch bad;
        for (const std::int64_t volume : kVolumes) {
            for (const int side : {kBuy, kSell})
                bad.push_back(order(static_cast<std::int64_t>(bad.size()) + 1, side, price, volume));
        }
        // Beside the good ones in their own level as well.
        for (const std::int64_t volume : kVolumes)
            bad.push_back(order(static_cast<std::int64_t>(bad.size()) + 1, kBuy, 29.00, volume));
        feedOrders(bad, "price " + numberText(price));
    }
}

TEST_F(HostileRecords, OrdersOfEveryNumberSideAndKindTakeNothingWithThem)
{
    for (const std::int64_t number : kNumbers) {
        quoter::QuoterBatch bad;
        for (const int integer : kIntegers) {
            bad.push_back(order(number, integer, 29.00, 500));
            bad.push_back(order(number, kSell, 31.00, 500, integer));
            bad.push_back(order(number, integer, 29.50, 500, integer));
        }
        feedOrders(bad, "number " + std::to_string(number));
    }
}

TEST_F(HostileRecords, OrdersOfEveryTimeTakeNothingWithThem)
{
    for (const std::int64_t time : kTimes) {
        feedOrders({atTime(time, order(1, kBuy, 29.00, 500)), atTime(time, order(2, kSell, 31.00, 500)),
                    atTime(time, order(3, kBuy, 29.00, 500)), atTime(time, order(4, kBuy, 29.00, 500)),
                    atTime(time, order(5, kBuy, 29.00, 500))},
                   "time " + std::to_string(time));
    }
}

TEST_F(HostileRecords, NullAndForeignRecordsTakeNothingWithThem)
{
    const quoter::QuoterBatch foreign = {nullptr,
                                         boost::make_shared<quoter::QuoterBase>(),
                                         deal(1, 2, 30.00, 100),
                                         levelRecord("bid 30.00: 5"),
                                         snapshot("bid 30.00x3"),
                                         nullptr};
    feedOrders(foreign, "foreign orders");
    publicOrders(1, goodOrders());
    const quoter::QuoterBatch beside = {nullptr, order(700001, kBuy, 30.00, 500), levelRecord("bid 30.00: 5"),
                                        boost::make_shared<quoter::QuoterBase>()};
    publicDeals(1, mixed(goodDeals(), beside));
    engine.updateDataList();
    engine.updateDataList();
    expectGoodOnes("foreign deals");
}

TEST_F(HostileRecords, DealsOfEveryNumberVolumeAndKindTakeNothingWithThem)
{
    for (const std::int64_t volume : kVolumes) {
        for (const bool history : {false, true}) {
            quoter::QuoterBatch bad;
            for (const int buyNo : kIntegers) {
                for (const int kind : {kIntMin, -1, 0, 3, 4, kIntMax}) {
                    const auto record =
                        deal(buyNo, buyNo / -2, kPrices[bad.size() % kPrices.size()], volume, buyNo);
                    record->kind = kind;
                    record->m_time = kTimes[bad.size() % kTimes.size()];
                    bad.push_back(record);
                }
            }
            snap("ask 30.01x5; bid 30.00x3; last 30.00");
            publicOrders(1, goodOrders());
            quoter::QuoterBatch others = buyOrders(-10, 60); // orders that the hostile deals meet
            publicOrders(1, others);
            publicDeals(history ? 3 : 1, mixed(goodDeals(), bad));
            engine.updateDataList();
            publicDeals(1, {deal(0, 0, 0, 0)});
            engine.updateDataList();
            expectGoodOnes("volume " + std::to_string(volume) + (history ? " history" : " live"));
        }
    }
}

TEST_F(HostileRecords, UnknownStatusesEmptyBatchesAndNullWrappersChangeNothing)
{
    snap("ask 30.01x5; bid 30.00x3; last 30.00");
    publicOrders(1, goodOrders());
    publicDeals(1, goodDeals());
    engine.updateDataList();
    for (const int status : kStatuses) {
        publicOrders(status, {order(9, kBuy, 30.00, 500)});
        publicOrders(status, quoter::QuoterBatch(150, order(9, kBuy, 30.00, 500)));
        publicDeals(status, {deal(700001, 0, 30.00, 500), cancelBuy(700001, 500)});
        engine.quoterCallBack(0, status, {levelRecord("bid 30.00: 9 9 9")});
        engine.quoterCallBack(0, status, {snapshot("bid 1.00x1")});
        EXPECT_EQ(engine.m_depthData.load()->bidPrice[0], 30.00) << status;
    }
    for (const int status : {-1, 1, 2, 3}) {
        engine.quoterOrderCallBack(0, status, nullptr);
        engine.quoterDealCallBack(0, status, nullptr);
        engine.quoterOrderCallBack(0, status, wrap({order(9, kBuy, 30.00, 500)}, "SZ", "600519"));
        engine.quoterDealCallBack(0, status, wrap({cancelBuy(700001, 500)}, "SH", ""));
        engine.quoterCallBack(0, status, {});
        publicOrders(status, {});
        engine.quoterDealCallBack(0, status == 3 ? 1 : status, wrap({}));
    }
    net::RPCEngine::drain("modulegroup");
    expectGoodOnes("statuses");
}

TEST_F(HostileRecords, LevelRecordsOfEverySortLeaveTheOtherLevelsAlone)
{
    std::vector<std::vector<std::int32_t>> queuesOfVolumes = {{kIntMin, kIntMax, 0, -1},
                                                              std::vector<std::int32_t>(2000, 7),
                                                              std::vector<std::int32_t>(49, -3),
                                                              std::vector<std::int32_t>(50, kIntMax),
                                                              std::vector<std::int32_t>(51, kIntMin)};
    for (int i = 0; i < 2000; ++i)
        queuesOfVolumes[1][static_cast<std::size_t>(i)] = i % 13 - 3;
    for (const double price : kPrices) {
        for (const int count : {kIntMin, -1, 0, kIntMax}) {
            publicOrders(1, goodOrders());
            publicDeals(1, goodDeals());
            engine.updateDataList();
            for (std::size_t n = 0; n < queuesOfVolumes.size(); ++n) {
                const auto record = boost::make_shared<quoter::LevelOrderData>();
                record->m_time = kTimes[n % kTimes.size()];
                record->bidPrice = n % 2 == 0 ? price : 29.00;
                record->askPrice = n % 2 == 0 ? 29.00 : price;
                record->bidVolumes = queuesOfVolumes[n];
                record->askVolumes = queuesOfVolumes[(n + 1) % queuesOfVolumes.size()];
                record->bidCount = count;
                record->askCount = count;
                for (const int status : {1, 2, 1}) {
                    engine.quoterCallBack(0, status, {nullptr, record});
                    engine.fixOrderDataList();
                    engine.updateDataList();
                    engine.calcOrder();
                }
                engine.quoterCallBackThread({record, nullptr, order(1, 1, 1, 1), record}, 0, 0);
            }
            snap("ask 30.01x5; bid 30.00x3; last 30.00", 2000);
            engine.slotTimeout();
            engine.calcOrder();
            EXPECT_EQ(list(kBuy, 3000), "700001 2 part; 700003 7 normal") << price << " " << count;
            engine.clear(true);
        }
    }
}

TEST_F(HostileRecords, SnapshotsOfEverySortKeepTheListsAndGiveTenRows)
{
    for (const double price : kPrices) {
        for (const std::int64_t volume : kVolumes) {
            for (const std::int64_t time : kTimes) {
                publicOrders(1, goodOrders());
                publicDeals(1, goodDeals());
                const auto depth = boost::make_shared<quoter::QuoterDepthData>();
                depth->m_time = time;
                depth->lastPrice = price;
                // Ten equal prices a side, each side hostile and sound in turn.
                std::fill(std::begin(depth->bidPrice), std::end(depth->bidPrice),
                          volume % 2 == 0 ? price : 30.00);
                std::fill(std::begin(depth->askPrice), std::end(depth->askPrice),
                          volume % 2 == 0 ? 30.01 : price);
                std::fill(std::begin(depth->bidVolume), std::end(depth->bidVolume), volume);
                std::fill(std::begin(depth->askVolume), std::end(depth->askVolume), volume);
                engine.quoterCallBack(0, -1, {depth});
                engine.matchOrderDeal();
                runPasses();
                for (unsigned index = 0; index < 10; ++index) {
                    ASSERT_TRUE(engine.at(index, Kel::OQT_BUY));
                    ASSERT_TRUE(engine.at(index, Kel::OQT_SELL));
                }
                engine.quoterCallBack(0, -1, {order(1, 1, 1, 1)});
                EXPECT_FALSE(engine.m_depthData.load());
                runPasses();
                snap("ask 30.01x5; bid 30.00x3; last 30.00", 1000);
                expectGoodOnes(numberText(price) + " x " + std::to_string(volume) + " at " +
                               std::to_string(time));
            }
        }
    }
}
