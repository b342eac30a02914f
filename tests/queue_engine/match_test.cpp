#include "queue_engine/EngineFixture.h"

#include <limits>

using namespace testing_support;

using MatchOrderDeal = EngineTest;

TEST_F(MatchOrderDeal, ListsCachedOrdersInAscendingNumberWithinEachSide)
{
    engine.filterOrderData({order(9, kBuy, 10.00, 100), order(2, kBuy, 10.00, 200),
                            order(5, kSell, 10.01, 300), order(4, kBuy, 9.99, 400)});
    engine.matchOrderDeal();
    EXPECT_EQ(queues(), "1/999: 4 4 normal | 1/1000: 2 2 normal; 9 1 normal | 2/1001: 5 3 normal");
    EXPECT_EQ(headText(*level(kBuy, 1000)),
              "buy 10 level=0 levelVol=0 sum=3 count=2 avg=1.5 unknown=0 start=0 time=1");
}

TEST_F(MatchOrderDeal, DoesNotEmptyTheOrderCache)
{
    engine.filterOrderData({order(1, kBuy, 10.00, 100)});
    engine.matchOrderDeal();
    EXPECT_EQ(cache(), "1: 1");
}

TEST_F(MatchOrderDeal, WithAnEmptyCacheStillMarksTheLevelDataAsBack)
{
    engine.m_bNeedCalc = false;
    engine.matchOrderDeal();
    EXPECT_TRUE(engine.isLevelDataBack());
    EXPECT_TRUE(engine.m_bLevelArrived);
    EXPECT_TRUE(engine.m_bNeedCalc);
    EXPECT_EQ(queues(), "");
}

TEST_F(MatchOrderDeal, RemovesWhatStandsBeforeAPartDealtOrderAtAnyLevel)
{
    put(kBuy, 1000, "buy 10 level=0 levelVol=25; 1 10 normal; 2 5 part; 3 10 normal");
    engine.matchOrderDeal();
    EXPECT_EQ(list(kBuy, 1000), "2 5 part; 3 10 normal");
}

TEST_F(MatchOrderDeal, RunTwiceListsEachNumberOnce)
{
    engine.filterOrderData({order(1, kBuy, 10.00, 100), order(2, kBuy, 10.00, 100)});
    engine.matchOrderDeal();
    engine.matchOrderDeal();
    EXPECT_EQ(headText(*level(kBuy, 1000)),
              "buy 10 level=0 levelVol=0 sum=2 count=2 avg=1 unknown=0 start=0 time=1");
}

TEST_F(MatchOrderDeal, ListsOrdersThatArrivedBeforeAnyDealWithTheFirstDealBatch)
{
    orders(0, {order(1, kBuy, 10.00, 100), order(2, kSell, 10.01, 100)});
    EXPECT_EQ(queues(), "");
    orders(3, buyOrders(100, 101));
    EXPECT_EQ(queues(), "");
    deals(1, {deal(7, 8, 10.00, 100)});
    EXPECT_EQ(level(kBuy, 1000)->m_orders.size(), 102);
    EXPECT_EQ(list(kSell, 1001), "2 1 normal");
}

using NewOrder = EngineTest;

TEST_F(NewOrder, IgnoresANullPointer)
{
    engine.updateNewOrderDataList({});
    EXPECT_EQ(queues(), "");
}

TEST_F(NewOrder, WithoutAPriceIsDropped)
{
    for (const double price : {0.0, 0.004, -0.001, std::numeric_limits<double>::quiet_NaN(),
                               std::numeric_limits<double>::infinity(), 1e300}) {
        engine.m_cancelOrders.insert(1);
        engine.updateNewOrderDataList(order(1, kBuy, price, 500));
        EXPECT_EQ(queues(), "") << price;
        EXPECT_EQ(cancelled(), "1") << "the price is looked at first";
    }
}

TEST_F(NewOrder, ThatWasCancelledIsRefusedAndItsEntriesGo)
{
    engine.m_cancelOrders = {1, 2};
    engine.m_dealCache[1][1] = 5;
    engine.m_dealCache[3][1] = 5;
    engine.m_dealCache[3][2] = 6;
    engine.updateNewOrderDataList(order(1, kBuy, 10.00, 500));
    EXPECT_EQ(queues(), "");
    EXPECT_EQ(cancelled(), "2");
    EXPECT_EQ(dealt(), "1: 1=5; 3: 2=6") << "the entry of its side stays";
}

TEST_F(NewOrder, ThatWasDealtInFullIsRefusedAndItsDealGoes)
{
    engine.m_dealCache[2][1] = 5;
    engine.m_dealCache[2][2] = 5 - 0.000005;
    engine.m_dealCache[2][3] = 50;
    for (const int number : {1, 2, 3})
        engine.updateNewOrderDataList(order(number, kSell, 10.00, 500));
    EXPECT_EQ(queues(), "");
    EXPECT_EQ(dealt(), "");
}

TEST_F(NewOrder, ThatWasDealtInPartShowsItsRestAndNoDealtPart)
{
    engine.m_dealCache[1][1] = 3;
    engine.updateNewOrderDataList(order(1, kBuy, 10.00, 500));
    EXPECT_EQ(levelText(*level(kBuy, 1000)),
              "buy 10 level=0 levelVol=0 sum=2 count=1 avg=2 unknown=0 start=0 time=1\n1 2 part\n");
    EXPECT_EQ(dealt(), "");
}

TEST_F(NewOrder, IsClassifiedByItsVolume)
{
    const struct
    {
        std::int64_t shares;
        const char* type;
    } rows[] = {{99999, "normal"}, {100000, "big"}, {499999, "big"}, {500000, "super"}};
    int number = 0;
    for (const auto& expected : rows) {
        ++number;
        engine.updateNewOrderDataList(order(number, kBuy, 10.00 + number, expected.shares));
        const auto listed = level(kBuy, 1000 + 100 * number);
        ASSERT_TRUE(listed) << number;
        EXPECT_EQ(typeText(listed->m_orders.at(0).m_type), expected.type) << expected.shares;
    }
}

TEST_F(NewOrder, WithADealOfNothingIsLive)
{
    engine.m_dealCache[1][1] = 0.000005;
    engine.m_dealCache[1][2] = -3;
    engine.updateNewOrderDataList(order(1, kBuy, 10.00, 500));
    engine.updateNewOrderDataList(order(2, kBuy, 10.00, 500));
    EXPECT_EQ(list(kBuy, 1000), "1 5 normal; 2 5 normal");
    EXPECT_EQ(engine.m_dealCache.at(1).size(), 2u);
}

TEST_F(NewOrder, OpensItsLevelWithItsPriceSecondsAndSide)
{
    engine.updateNewOrderDataList(atTime(34200999, order(1, kSell, 10.254, 500)));
    engine.updateNewOrderDataList(atTime(34300000, order(2, kSell, 10.25, 500)));
    const auto opened = level(kSell, 1025);
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->m_price, 10.254);
    EXPECT_EQ(opened->m_time, 34200);
    EXPECT_EQ(opened->m_type, Kel::OQT_SELL);
    EXPECT_EQ(ordersText(*opened), "1 5 normal; 2 5 normal");
}

TEST_F(NewOrder, TruncatesItsSecondsTowardZero)
{
    engine.updateNewOrderDataList(atTime(-1500, order(1, kSell, 10.25, 500)));
    EXPECT_EQ(level(kSell, 1025)->m_time, -1);
}

TEST_F(NewOrder, LookingUpCreatesNoEntryInTheDealCache)
{
    engine.updateNewOrderDataList(order(1, kBuy, 10.00, 500));
    EXPECT_TRUE(engine.m_dealCache.empty());
    engine.m_cancelOrders.insert(2);
    engine.updateNewOrderDataList(order(2, kBuy, 10.00, 500));
    EXPECT_TRUE(engine.m_dealCache.empty());
}

TEST_F(NewOrder, OfZeroLotsIsDealtInFull)
{
    engine.updateNewOrderDataList(order(1, kBuy, 10.00, 0));
    engine.updateNewOrderDataList(order(2, kBuy, 10.00, -100));
    EXPECT_EQ(queues(), "") << "0 dealt lots are not less than its volume";
}
