#include "queue_engine/EngineFixture.h"

#include <limits>

using namespace testing_support;

using LiveOrder = EngineTest;

TEST_F(LiveOrder, EntersItsListAtOnceUnclassified)
{
    engine.appendTransactionOrderData({order(5, kBuy, 10.00, 150000), order(2, kBuy, 10.00, 200)});
    EXPECT_EQ(levelText(*level(kBuy, 1000)),
              "buy 10 level=0 levelVol=0 sum=1502 count=2 avg=751 unknown=0 start=0 time=1\n"
              "5 1500 unknown\n"
              "2 2 unknown\n");
    EXPECT_TRUE(level(kBuy, 1000)->m_orderIds.contains(5));
}

TEST_F(LiveOrder, EntersInBatchOrder)
{
    engine.appendTransactionOrderData(
        {order(9, kSell, 10.00, 100), order(1, kSell, 10.00, 100), order(4, kSell, 10.00, 100)});
    EXPECT_EQ(list(kSell, 1000), "9 1 unknown; 1 1 unknown; 4 1 unknown");
}

TEST_F(LiveOrder, OfANullPointerOrARecordOfAnotherTypeIsSkipped)
{
    engine.updateOrderDataList({});
    engine.appendTransactionOrderData(
        {quoter::QuoterBasePtr(), deal(1, 2, 10.00, 100), order(1, kBuy, 10.00, 100)});
    EXPECT_EQ(queues(), "1/1000: 1 1 unknown");
}

TEST_F(LiveOrder, WithoutAPriceNeverEntersTheQueue)
{
    for (const double price : {0.0, 0.004, -0.001, std::numeric_limits<double>::quiet_NaN(),
                               -std::numeric_limits<double>::infinity(), 1e300}) {
        engine.updateOrderDataList(order(1, kBuy, price, 500));
        EXPECT_EQ(queues(), "") << price;
    }
}

TEST_F(LiveOrder, KeepsTheDealsOfAnOrderWithoutAPriceInTheCache)
{
    orders(1, {order(1, kBuy, 0, 500)});
    deals(1, {deal(1, 2, 10.00, 500)});
    engine.updateDataList();
    EXPECT_EQ(dealt(), "1: 1=5; 2: 2=5");
}

TEST_F(LiveOrder, OfTheSameNumberIsListedOnce)
{
    orders(1, {order(1, kBuy, 10.00, 500)});
    orders(1, {order(1, kBuy, 10.00, 900)});
    EXPECT_EQ(levelText(*level(kBuy, 1000)),
              "buy 10 level=0 levelVol=0 sum=5 count=1 avg=5 unknown=0 start=0 time=1\n1 5 unknown\n");
}

TEST_F(LiveOrder, HasNoFilterOnSideOrKind)
{
    orders(1, {order(1, 0, 10.00, 500), order(2, 3, 10.00, 500), order(3, kBuy, 10.00, 500, 3),
               order(4, -7, 10.00, 500)});
    EXPECT_EQ(queues(),
              "-7/1000: 4 5 unknown | 0/1000: 1 5 unknown | 1/1000: 3 5 unknown | 3/1000: 2 5 unknown");
    EXPECT_EQ(headText(*level(0, 1000)),
              "0 10 level=0 levelVol=0 sum=5 count=1 avg=5 unknown=0 start=0 time=1");
    EXPECT_EQ(headText(*level(3, 1000)),
              "3 10 level=0 levelVol=0 sum=5 count=1 avg=5 unknown=0 start=0 time=1");
}

TEST_F(LiveOrder, WithASideOfZeroIsDroppedInALargeBatch)
{
    quoter::QuoterBatch batch = buyOrders(1, 101);
    batch.push_back(order(900, 0, 10.00, 500));
    orders(1, batch);
    deals(1, {});
    EXPECT_FALSE(engine.m_orderQueues.contains(0));
}

TEST_F(LiveOrder, TakesItsTypeFromTheDealsThatCameBefore)
{
    engine.m_dealCache[1][1] = 3;
    engine.m_dealCache[1][2] = 5;
    engine.m_dealCache[1][3] = 9;
    engine.m_dealCache[1][4] = 0;
    engine.m_dealCache[1][5] = 5 - 0.000005;
    engine.m_dealCache[2][6] = 5;
    for (int number = 1; number <= 6; ++number)
        engine.updateOrderDataList(order(number, kBuy, 10.00, 500));
    EXPECT_EQ(list(kBuy, 1000), "1 5 part 3; 2 5 dealt; 3 5 dealt; 4 5 unknown; 5 5 dealt; 6 5 unknown");
    EXPECT_EQ(headText(*level(kBuy, 1000)),
              "buy 10 level=0 levelVol=0 sum=30 count=6 avg=5 unknown=0 start=0 time=1");
    EXPECT_EQ(dealt(), "1: 1=3 2=5 3=9 4=0 5=4.999995; 2: 6=5") << "deals wait for the next pass";
}

TEST_F(LiveOrder, OfZeroLotsWithNothingDealtIsUnknown)
{
    engine.updateOrderDataList(order(1, kBuy, 10.00, 0));
    EXPECT_EQ(list(kBuy, 1000), "1 0 unknown");
}

TEST_F(LiveOrder, LookingUpCreatesNoEntryInTheDealCache)
{
    engine.updateOrderDataList(order(1, kBuy, 10.00, 500));
    EXPECT_TRUE(engine.m_dealCache.empty());
    EXPECT_TRUE(engine.m_orderCache.empty());
}

TEST_F(LiveOrder, ThatWasCancelledBeforeItWasSeenOpensItsLevelAsCancelledAndIsCounted)
{
    engine.m_cancelOrders.insert(1);
    engine.m_dealCache[1][1] = 5;
    engine.updateOrderDataList(order(1, kBuy, 10.00, 500));
    EXPECT_EQ(levelText(*level(kBuy, 1000)),
              "buy 10 level=0 levelVol=0 sum=5 count=1 avg=5 unknown=0 start=0 time=1\n1 5 cancelled\n");
    EXPECT_TRUE(level(kBuy, 1000)->m_orderIds.contains(1));
    EXPECT_EQ(cancelled(), "1") << "the number stays in the set";
    EXPECT_EQ(dealt(), "1: 1=5");
}

TEST_F(LiveOrder, ThatWasCancelledBeforeItWasSeenJoinsAListUncounted)
{
    put(kBuy, 1000, "buy 10; 8 10 normal");
    const std::string head = headText(*level(kBuy, 1000));
    engine.m_cancelOrders.insert(1);
    engine.updateOrderDataList(order(1, kBuy, 10.00, 500));
    EXPECT_EQ(list(kBuy, 1000), "8 10 normal; 1 5 cancelled");
    EXPECT_EQ(headText(*level(kBuy, 1000)), head);
    EXPECT_FALSE(level(kBuy, 1000)->m_orderIds.contains(1));
    EXPECT_EQ(cancelled(), "1");
}

TEST_F(LiveOrder, ThatIsListedAndCancelledIsMarkedInItsList)
{
    orders(1, {order(1, kBuy, 10.00, 500), order(2, kBuy, 10.00, 300)});
    deals(1, {cancelBuy(1, 500)});
    const std::string head = headText(*level(kBuy, 1000));
    orders(1, {order(1, kBuy, 10.00, 500)});
    EXPECT_EQ(list(kBuy, 1000), "1 5 cancelled; 2 3 unknown");
    EXPECT_EQ(headText(*level(kBuy, 1000)), head);
}

TEST_F(LiveOrder, LosesNothingWhenItsDealsComeFirst)
{
    deals(1, {deal(1, 2, 10.00, 200)});
    orders(1, {order(1, kBuy, 10.00, 500), order(2, kSell, 10.00, 200)});
    for (int passes = 0; passes < 3; ++passes)
        engine.updateDataList();
    EXPECT_EQ(list(kBuy, 1000), "1 3 part");
    EXPECT_EQ(list(kSell, 1000), "");
    EXPECT_EQ(dealt(), "");
}

TEST_F(LiveOrder, LosesNothingWhenItsDealsComeLater)
{
    orders(1, {order(1, kBuy, 10.00, 500), order(2, kSell, 10.00, 200)});
    engine.updateDataList();
    deals(1, {deal(1, 2, 10.00, 200)});
    for (int passes = 0; passes < 3; ++passes)
        engine.updateDataList();
    EXPECT_EQ(list(kBuy, 1000), "1 3 part");
    EXPECT_EQ(list(kSell, 1000), "");
    EXPECT_EQ(dealt(), "");
}
