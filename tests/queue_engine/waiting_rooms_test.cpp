#include "queue_engine/EngineFixture.h"

#include "records/Tolerance.h"

#include <limits>
#include <random>
#include <utility>

using namespace testing_support;

using FilterOrderData = EngineTest;
using AppendDeals = EngineTest;
using SweepOrderCache = EngineTest;

TEST_F(FilterOrderData, CachesOrdersBySideAndNumber)
{
    EXPECT_TRUE(engine.filterOrderData(
        {order(7, kBuy, 10.00, 100), order(3, kSell, 10.01, 100), order(5, kBuy, 9.99, 100)}));
    EXPECT_EQ(cache(), "1: 5 7; 2: 3");
    EXPECT_EQ(queues(), "");
}

TEST_F(FilterOrderData, IsTrueForAnEmptyBatchAndEntersNoSide)
{
    EXPECT_TRUE(engine.filterOrderData({}));
    EXPECT_EQ(cache(), "");
}

TEST_F(FilterOrderData, SkipsRecordsThatAreNullOrOfAnotherType)
{
    EXPECT_TRUE(engine.filterOrderData(
        {quoter::QuoterBasePtr(), deal(1, 2, 10.00, 100), order(4, kBuy, 10.00, 100)}));
    EXPECT_EQ(cache(), "1: 4");
}

TEST_F(FilterOrderData, SkipsOrdersWithoutASideAndOrdersThatDoNotStand)
{
    engine.filterOrderData({order(1, 0, 10.00, 100), order(2, 3, 10.00, 100), order(3, kBuy, 10.00, 100, 3)});
    EXPECT_EQ(cache(), "");
    engine.filterOrderData({order(4, kBuy, 10.00, 100, 0), order(5, kBuy, 10.00, 100, 2),
                            order(6, kSell, 10.00, 100, 4), order(7, 4, 10.00, 100)});
    EXPECT_EQ(cache(), "1: 4 5; 2: 6; 4: 7");
}

TEST_F(FilterOrderData, DropsAnOrderWhoseDealsReachItsVolume)
{
    engine.appendTransactionDealData(
        1, {deal(1, 2, 10.00, 300), deal(1, 3, 10.00, 200), deal(4, 5, 10.00, 900)});
    engine.filterOrderData({order(1, kBuy, 10.00, 500), order(4, kBuy, 10.00, 800)});
    EXPECT_EQ(cache(), "");
    EXPECT_EQ(dealt(), "2: 2=3 3=2 5=9") << "the deals of dropped orders are gone";
}

TEST_F(FilterOrderData, TakesDealsWithinTheToleranceForTheWholeVolume)
{
    engine.m_dealCache[1][1] = 5 - 0.000005;
    engine.m_dealCache[1][2] = 5 - 0.0001;
    engine.filterOrderData({order(1, kBuy, 10.00, 500), order(2, kBuy, 10.00, 500)});
    EXPECT_EQ(cache(), "1: 2");
}

TEST_F(FilterOrderData, KeepsAPartDealtOrderAndItsDeal)
{
    engine.appendTransactionDealData(1, {deal(1, 0, 10.00, 300)});
    engine.filterOrderData({order(1, kBuy, 10.00, 500)});
    EXPECT_EQ(cache(), "1: 1");
    EXPECT_EQ(dealt(), "1: 1=3");
}

TEST_F(FilterOrderData, LooksForDealsOnTheOrdersOwnSideOnly)
{
    engine.appendTransactionDealData(1, {deal(1, 0, 10.00, 500)});
    engine.filterOrderData({order(1, kSell, 10.00, 500)});
    EXPECT_EQ(cache(), "2: 1");
    EXPECT_EQ(dealt(), "1: 1=5");
}

TEST_F(FilterOrderData, DropsAnOrderThatWasCancelledWhole)
{
    engine.m_dealCache[3][1] = 5;
    engine.m_dealCache[3][2] = 4;
    engine.m_dealCache[3][3] = 9;
    engine.m_cancelOrders.insert(1);
    engine.filterOrderData(
        {order(1, kSell, 10.00, 500), order(2, kSell, 10.00, 500), order(3, kBuy, 10.00, 500)});
    EXPECT_EQ(cache(), "2: 2");
    EXPECT_EQ(dealt(), "3: 2=4");
    EXPECT_EQ(cancelled(), "1");
}

TEST_F(FilterOrderData, LeavesTheCancelledLotsOfAnOrderThatItsSideHadWhole)
{
    // A cancelled buy order has an entry on its side as well; that one is found first.
    engine.appendTransactionDealData(1, {cancelBuy(1, 500)});
    engine.filterOrderData({order(1, kBuy, 10.00, 500)});
    EXPECT_EQ(cache(), "");
    EXPECT_EQ(dealt(), "3: 1=5");
    EXPECT_EQ(cancelled(), "1");
}

TEST_F(FilterOrderData, ReplacesAnOrderWithTheSameNumber)
{
    engine.filterOrderData({order(1, kBuy, 10.00, 500), order(1, kBuy, 10.05, 700)});
    EXPECT_EQ(cache(), "1: 1");
    engine.matchOrderDeal();
    EXPECT_EQ(queues(), "1/1005: 1 7 normal");
}

TEST_F(FilterOrderData, LookingUpCreatesNoEntryInTheDealCache)
{
    engine.filterOrderData({order(1, kBuy, 10.00, 500), order(2, kSell, 10.00, 500)});
    EXPECT_TRUE(engine.m_dealCache.empty());
}

TEST_F(FilterOrderData, TakesLotsOfTenForBondsAndRepurchases)
{
    engine.setStock("SH113050");
    engine.m_dealCache[1][1] = 5;
    engine.filterOrderData({order(1, kBuy, 110.0, 50), order(2, kBuy, 110.0, 51)});
    EXPECT_EQ(cache(), "1: 2");
}

TEST_F(AppendDeals, AddsLotsToBothOrders)
{
    engine.appendTransactionDealData(1,
                                     {deal(1, 2, 10.00, 100), deal(1, 3, 10.00, 250), deal(4, 2, 10.00, 1)});
    EXPECT_EQ(dealt(), "1: 1=3.5 4=0.01; 2: 2=1.01 3=2.5");
    EXPECT_EQ(cancelled(), "");
}

TEST_F(AppendDeals, LeavesOutASideWithNumberZero)
{
    engine.appendTransactionDealData(
        1, {deal(1, 0, 10.00, 100), deal(0, 2, 10.00, 200), deal(0, 0, 10.00, 300)});
    EXPECT_EQ(dealt(), "1: 1=1; 2: 2=2");
}

TEST_F(AppendDeals, EntersACancellationAsADealOfItsSideAndAsCancelledLots)
{
    engine.appendTransactionDealData(1, {cancelBuy(1, 300), cancelBuy(1, 200)});
    EXPECT_EQ(dealt(), "1: 1=5; 3: 1=5");
    EXPECT_EQ(cancelled(), "1");
}

TEST_F(AppendDeals, TakesTheNumberOfACancelledSellOrderFromTheBuyNumber)
{
    engine.appendTransactionDealData(1, {cancelSell(1, 300)});
    EXPECT_EQ(dealt(), "1: 1=3; 2: 1=3; 3: 1=3");
    EXPECT_EQ(cancelled(), "1");
}

TEST_F(AppendDeals, EntersNumberZeroForACancellationWithoutABuyNumber)
{
    const auto record = deal(0, 2, 10.00, 300);
    record->kind = quoter::eTransactionCancel;
    engine.appendTransactionDealData(1, {record});
    EXPECT_EQ(cancelled(), "0");
    EXPECT_EQ(dealt(), "2: 2=3; 3: 0=3");
}

TEST_F(AppendDeals, TakesOnlyKindThreeForACancellation)
{
    for (const int kind : {0, 1, 2, 4, -3}) {
        const auto record = deal(1, 0, 10.00, 100);
        record->kind = kind;
        engine.appendTransactionDealData(1, {record});
    }
    EXPECT_EQ(cancelled(), "");
    EXPECT_EQ(dealt(), "1: 1=5");
}

TEST_F(AppendDeals, DoesNotUseTheStatus)
{
    for (const int status : {0, 1, 2, 3, 99, -1})
        engine.appendTransactionDealData(status, {deal(1, 0, 10.00, 100)});
    EXPECT_EQ(dealt(), "1: 1=6");
    EXPECT_EQ(flags(), "000");
}

TEST_F(AppendDeals, SkipsRecordsThatAreNullOrOfAnotherType)
{
    engine.appendTransactionDealData(
        1, {quoter::QuoterBasePtr(), order(1, kBuy, 10.00, 100), deal(1, 0, 10.00, 100)});
    EXPECT_EQ(dealt(), "1: 1=1");
}

TEST_F(AppendDeals, MatchesOrdersThatWaitAndEndsTheWait)
{
    engine.filterOrderData({order(1, kBuy, 10.00, 500)});
    engine.m_bNeedAppendOrder = true;
    engine.appendTransactionDealData(1, {deal(1, 0, 10.00, 100)});
    EXPECT_EQ(queues(), "1/1000: 1 4 part");
    EXPECT_EQ(flags(), "001");
}

TEST_F(AppendDeals, TouchNoListByThemselves)
{
    orders(1, {order(1, kBuy, 10.00, 500)});
    const std::string before = levelText(*level(kBuy, 1000));
    engine.appendTransactionDealData(1, {deal(1, 0, 10.00, 500)});
    EXPECT_EQ(levelText(*level(kBuy, 1000)), before);
}

TEST_F(AppendDeals, SweepTheCacheAfterTheBatch)
{
    engine.filterOrderData({order(1, kBuy, 10.00, 500), order(2, kBuy, 10.00, 500)});
    engine.m_nDealCount = 1000;
    engine.appendTransactionDealData(1, {deal(1, 0, 10.00, 500)});
    EXPECT_EQ(cache(), "1: 2");
    EXPECT_EQ(engine.m_nDealCount, 0);
}

TEST_F(AppendDeals, DoNotSweepAnEmptyCache)
{
    engine.m_nDealCount = 1000;
    engine.appendTransactionDealData(1, {deal(1, 0, 10.00, 500)});
    EXPECT_EQ(engine.m_nDealCount, 1000);
}

TEST_F(SweepOrderCache, DoesNothingBelowAThousandRecords)
{
    engine.filterOrderData({order(1, kBuy, 10.00, 500)});
    engine.m_dealCache[1][1] = 5;
    engine.m_nOrderCount = 500;
    engine.m_nDealCount = 499;
    engine.updateUnDealOrderCache();
    EXPECT_EQ(cache(), "1: 1");
    EXPECT_EQ(engine.m_nOrderCount, 500);
    EXPECT_EQ(engine.m_nDealCount, 499);
}

TEST_F(SweepOrderCache, RunsAtAThousandRecordsAndSetsBothCountersToZero)
{
    const std::pair<int, int> counts[] = {{500, 500}, {1000, 0}, {0, 1000}, {5000, 5000}};
    int number = 0;
    for (const auto& [orderCount, dealCount] : counts) {
        ++number;
        engine.filterOrderData({order(number, kBuy, 10.00, 600)});
        engine.appendTransactionDealData(1, {deal(number, 0, 10.00, 600)});
        ASSERT_EQ(engine.m_orderCache.at(1).count(number), 1u);
        engine.m_nOrderCount = orderCount;
        engine.m_nDealCount = dealCount;
        engine.updateUnDealOrderCache();
        EXPECT_EQ(engine.m_orderCache.at(1).count(number), 0u);
        EXPECT_EQ(engine.m_nOrderCount, 0);
        EXPECT_EQ(engine.m_nDealCount, 0);
    }
}

TEST_F(SweepOrderCache, DropsAFullyDealtOrderAndKeepsItsDeal)
{
    engine.filterOrderData(
        {order(1, kBuy, 10.00, 500), order(2, kSell, 10.00, 500), order(3, kBuy, 10.00, 500)});
    engine.m_dealCache[1][1] = 5;
    engine.m_dealCache[2][2] = 5 - 0.000005;
    engine.m_dealCache[1][3] = 4.9;
    engine.m_nOrderCount = 1000;
    engine.updateUnDealOrderCache();
    EXPECT_EQ(cache(), "1: 3; 2:");
    EXPECT_EQ(dealt(), "1: 1=5 3=4.9; 2: 2=4.999995");
}

TEST_F(SweepOrderCache, DropsAnOrderThatWasCancelledWholeWithItsEntry)
{
    engine.filterOrderData(
        {order(1, kBuy, 10.00, 500), order(2, kSell, 10.00, 500), order(3, kBuy, 10.00, 500)});
    engine.m_dealCache[3][1] = 5;
    engine.m_dealCache[3][2] = 7;
    engine.m_dealCache[3][3] = 4.9;
    engine.m_cancelOrders.insert(1);
    engine.m_nOrderCount = 1000;
    engine.updateUnDealOrderCache();
    EXPECT_EQ(cache(), "1: 3; 2:");
    EXPECT_EQ(dealt(), "3: 3=4.9");
    EXPECT_EQ(cancelled(), "1");
}

TEST_F(SweepOrderCache, KeepsTheCancelledLotsOfAnOrderThatItsSideHasWhole)
{
    engine.filterOrderData({order(1, kBuy, 10.00, 500)});
    engine.m_dealCache[1][1] = 5;
    engine.m_dealCache[3][1] = 5;
    engine.m_nOrderCount = 1000;
    engine.updateUnDealOrderCache();
    EXPECT_EQ(cache(), "1:");
    EXPECT_EQ(dealt(), "1: 1=5; 3: 1=5");
}

TEST_F(SweepOrderCache, CreatesNoEntryInTheDealCache)
{
    engine.filterOrderData({order(1, kBuy, 10.00, 500)});
    engine.m_nOrderCount = 1000;
    engine.updateUnDealOrderCache();
    EXPECT_EQ(cache(), "1: 1");
    EXPECT_TRUE(engine.m_dealCache.empty());
}

TEST_F(SweepOrderCache, LeavesOnRandomFeedsWhatItsRuleLeaves)
{
    for (unsigned int seed = 1; seed <= 300; ++seed) {
        std::mt19937 random(seed);
        const auto upTo = [&random](unsigned int most) { return static_cast<int>(random() % (most + 1)); };
        engine.clear(true);
        for (int step = 0; step < 40; ++step) {
            const int number = upTo(12) == 0 ? 0 : 1 + upTo(20);
            switch (upTo(5)) {
            case 0:
            case 1:
                engine.filterOrderData({order(number, 1 + upTo(1), 10.00, 100 * (1 + upTo(4)))});
                break;
            case 2:
                engine.appendTransactionDealData(1, {deal(number, 1 + upTo(20), 10.00, 100 * (1 + upTo(2)))});
                break;
            case 3:
                engine.appendTransactionDealData(1, {upTo(1) == 0 ? cancelBuy(number, 100 * (1 + upTo(4)))
                                                                  : cancelSell(number, 100 * (1 + upTo(4)))});
                break;
            case 4:
                engine.updateDataList();
                break;
            default: {
                auto expectedCache = engine.m_orderCache;
                auto expectedDeals = engine.m_dealCache;
                for (auto& side : expectedCache) {
                    auto& cancels = expectedDeals[3];
                    auto& deals = expectedDeals[side.first];
                    const auto before = side.second;
                    for (const auto& entry : before) {
                        const double lots = static_cast<double>(entry.second->volume) / 100;
                        const auto dealEntry = deals.find(entry.first);
                        const auto cancelEntry = cancels.find(entry.first);
                        if (dealEntry != deals.end() && !Kel::isLess(dealEntry->second, lots))
                            side.second.erase(entry.first);
                        else if (cancelEntry != cancels.end() && !Kel::isLess(cancelEntry->second, lots)) {
                            cancels.erase(cancelEntry);
                            side.second.erase(entry.first);
                        }
                    }
                }
                engine.m_nOrderCount = 1000;
                engine.updateUnDealOrderCache();
                const std::string after = cache() + " | " + dealt();
                engine.m_orderCache.swap(expectedCache);
                engine.m_dealCache.swap(expectedDeals);
                const std::string expected = cache() + " | " + dealt();
                engine.m_orderCache.swap(expectedCache);
                engine.m_dealCache.swap(expectedDeals);
                ASSERT_EQ(after, expected) << "seed " << seed << ", step " << step;
            }
            }
        }
    }
}
