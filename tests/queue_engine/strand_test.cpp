#include "queue_engine/EngineFixture.h"

#include "platform/services/RPCEngine.h"

#include <boost/thread/thread.hpp>

using namespace testing_support;

namespace {

class OnTheStrand : public EngineTest
{
protected:
    /// Waits for the batches posted so far and takes the engine's lock once, so that this thread sees what
    /// they did.
    void drain()
    {
        net::RPCEngine::drain("modulegroup");
        boost::recursive_mutex::scoped_lock lock(engine.m_dataMutex);
    }
};

} // namespace

TEST_F(OnTheStrand, BatchesAreHandledInTheOrderOfTheirCalls)
{
    for (int number = 1; number <= 200; ++number)
        engine.quoterOrderCallBack(0, 1, wrap({order(number, kBuy, 10.00, 100)}));
    drain();
    const auto listed = level(kBuy, 1000);
    ASSERT_TRUE(listed);
    ASSERT_EQ(listed->m_orders.size(), 200);
    for (int i = 0; i < 200; ++i)
        EXPECT_EQ(listed->m_orders.at(i).m_entrustNo, i + 1);
}

TEST_F(OnTheStrand, OrdersAndDealsTakeTurnsAsTheyWerePosted)
{
    engine.quoterOrderCallBack(0, 0, wrap({order(1, kBuy, 10.00, 500), order(2, kSell, 10.01, 300)}));
    engine.quoterDealCallBack(0, 0, wrap({deal(1, 0, 10.00, 200)}));
    engine.quoterOrderCallBack(0, 1, wrap({order(3, kBuy, 10.00, 100)}));
    engine.quoterDealCallBack(0, 1, wrap({cancelBuy(3, 100)}));
    drain();
    EXPECT_EQ(queues(), "1/1000: 1 3 part; 3 1 unknown | 2/1001: 2 3 normal");
    EXPECT_EQ(cancelled(), "3");
    EXPECT_EQ(flags(), "101");
}

TEST_F(OnTheStrand, ACallReturnsAtOnceWhileTheEngineIsLocked)
{
    {
        boost::recursive_mutex::scoped_lock lock(engine.m_dataMutex);
        engine.quoterOrderCallBack(0, 1, wrap({order(1, kBuy, 10.00, 100)}));
        engine.quoterDealCallBack(0, 1, wrap({deal(1, 0, 10.00, 50)}));
        EXPECT_EQ(queues(), "");
    }
    drain();
    EXPECT_EQ(queues(), "1/1000: 1 1 unknown");
    EXPECT_EQ(dealt(), "1: 1=0.5");
}

TEST_F(OnTheStrand, NullWrappersAndOtherInstrumentsAreDropped)
{
    engine.quoterOrderCallBack(0, 1, {});
    engine.quoterDealCallBack(0, 1, {});
    engine.quoterOrderCallBack(0, 1, wrap({order(1, kBuy, 10.00, 100)}, "SZ"));
    drain();
    EXPECT_EQ(queues(), "");
}

TEST_F(OnTheStrand, ABatchMayArriveAfterItsEngineIsGone)
{
    {
        EngineProbe other;
        other.setStock("SH600519");
        boost::recursive_mutex::scoped_lock lock(engine.m_dataMutex);
        engine.quoterOrderCallBack(0, 1, wrap({order(1, kBuy, 10.00, 100)}));
        for (int number = 0; number < 50; ++number)
            other.quoterOrderCallBack(0, 1, wrap({order(number, kBuy, 10.00, 100)}));
        other.quoterCallBack(0, 0, {levelRecord("bid 10.00: 5")});
    }
    drain();
    EXPECT_EQ(queues(), "1/1000: 1 1 unknown");
}

TEST_F(OnTheStrand, RowsAreReadableWhileABatchHoldsTheEngine)
{
    snap("ask 10.02x5; bid 10.01x3; last 10.01");
    engine.calcOrder();
    boost::recursive_mutex::scoped_lock lock(engine.m_dataMutex);
    bool read = false;
    boost::thread reader(
        [this, &read] { read = engine.at(0, Kel::OQT_BUY) != nullptr && !engine.headerText().isEmpty(); });
    EXPECT_TRUE(reader.try_join_for(boost::chrono::seconds(10)));
    lock.unlock();
    if (reader.joinable())
        reader.join();
    EXPECT_TRUE(read);
}

TEST_F(OnTheStrand, ContainersOfADayAreFreedOnTheirOwnStrand)
{
    const auto cached = order(1, kBuy, 10.00, 100);
    orders(0, {cached});
    const boost::weak_ptr<quoter::OrderData> watched(cached);
    const auto held = level(kBuy, 1000);
    EXPECT_FALSE(held);
    EXPECT_GE(cached.use_count(), 2);
    engine.clear(true);
    net::RPCEngine::drain("data_release");
    EXPECT_EQ(cached.use_count(), 1) << "the cache has let the record go";
}
