// Engines that end while their jobs wait or run, several engines on the shared strands, the end of the pool,
// and what the interface thread may wait for.

#include "platform/services/RPCEngine.h"
#include "queue_engine/EngineFixture.h"

#include <boost/weak_ptr.hpp>

#include <QCoreApplication>

#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <vector>

using namespace testing_support;

namespace {

constexpr std::chrono::seconds kLongest(20); ///< a wait that lasts longer is a failure

class EngineLife : public testing::Test
{
protected:
    EngineLife() { prepareServices(); }
    ~EngineLife() override { prepareServices(); }
};

using EngineWaits = EngineTest;

template <class Condition>
bool becomesTrue(Condition condition)
{
    const auto end = std::chrono::steady_clock::now() + kLongest;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

quoter::QuoterBatch publishedQueues(int count)
{
    quoter::QuoterBatch batch;
    for (int i = 0; i < count; ++i)
        batch.push_back(levelRecord("bid 10.00: 5 6 7 of 12; ask 10.01: 3 4"));
    return batch;
}

/// Orders of one lot at 10.00 yuan for any instrument.
Kel::MetaCacheDataWrapperPtr ordersOf(const std::string& market, const std::string& code, int first,
                                      int count)
{
    return wrap(buyOrders(first, count), market, code);
}

} // namespace

TEST_F(EngineLife, AnEngineMayEndWhileItsJobsWaitAndRun)
{
    for (int round = 0; round < 150; ++round) {
        std::vector<boost::weak_ptr<Kel::MetaCacheDataWrapper>> batches;
        boost::weak_ptr<quoter::QuoterBase> published;
        {
            EngineProbe engine;
            engine.setStock("SH600519");
            for (int i = 0; i < 20; ++i) {
                const auto orders = wrap(buyOrders(1 + 50 * i, i % 5 == 0 ? 150 : 50));
                const auto deals = wrap({deal(1 + 50 * i, 0, 10, 100), cancelBuy(2 + 50 * i, 100)});
                batches.push_back(orders);
                batches.push_back(deals);
                engine.quoterOrderCallBack(0, i == 0 ? 0 : 1, orders);
                engine.quoterDealCallBack(0, i == 3 ? 0 : 1, deals);
            }
            quoter::QuoterBatch history = publishedQueues(50);
            published = history.back();
            engine.quoterCallBack(0, 0, history);
            engine.quoterCallBack(0, 3, history);
            engine.quoterCallBack(0, -1, {snapshot("ask 10.02x5; bid 10.00x3; last 10.00")});
            if (round % 3 == 1)
                std::this_thread::sleep_for(std::chrono::microseconds(100 * (round % 20)));
            if (round % 3 == 2)
                QCoreApplication::processEvents();
        }
        // What was handed over is let go of, by jobs that came too late as well.
        net::RPCEngine::drain("modulegroup");
        net::RPCEngine::drain("data_release");
        for (const auto& batch : batches)
            ASSERT_TRUE(becomesTrue([&] { return batch.expired(); })) << "round " << round;
        ASSERT_TRUE(becomesTrue([&] { return published.expired(); })) << "round " << round;
    }
    // Signals that the level threads sent to engines that are gone.
    QCoreApplication::processEvents();
}

TEST_F(EngineLife, JobsOfAnEngineThatEndedTouchNothing)
{
    // The strand is held up, so that everything is still queued when the engine ends.
    std::promise<void> go;
    std::shared_future<void> gone = go.get_future().share();
    net::RPCEngine::getStrand("modulegroup")->post([gone] { gone.wait(); });
    boost::weak_ptr<Kel::MetaCacheDataWrapper> batch;
    {
        Kel::CDepthModelOrderQueue engine;
        engine.setStock("SH600519");
        const auto orders = wrap(buyOrders(1, 100));
        batch = orders;
        engine.quoterOrderCallBack(0, 1, orders);
        engine.quoterDealCallBack(0, 1, orders);
    }
    EXPECT_FALSE(batch.expired());
    go.set_value();
    net::RPCEngine::drain("modulegroup");
    EXPECT_TRUE(becomesTrue([&] { return batch.expired(); }));
}

TEST_F(EngineLife, SeveralEnginesOnOneStrandKeepToTheirInstruments)
{
    const std::vector<std::pair<std::string, std::string>> instruments = {
        {"SH", "600519"}, {"SZ", "000001"}, {"SZ", "300274"}, {"HK", "00700"}};
    std::vector<std::unique_ptr<EngineProbe>> engines;
    for (const auto& instrument : instruments) {
        engines.push_back(std::make_unique<EngineProbe>());
        engines.back()->setStock(QString::fromStdString(instrument.first + instrument.second));
    }
    constexpr int kBatches = 30;
    std::vector<std::thread> feeds;
    for (std::size_t from = 0; from < instruments.size(); ++from) {
        feeds.emplace_back([&, from] {
            for (int n = 0; n < kBatches; ++n) {
                const auto batch = ordersOf(instruments[from].first, instruments[from].second, 1 + 10 * n,
                                            1 + static_cast<int>(from));
                for (const auto& engine : engines)
                    engine->quoterOrderCallBack(0, 1, batch);
            }
        });
    }
    for (std::thread& feed : feeds)
        feed.join();
    net::RPCEngine::drain("modulegroup");
    for (std::size_t i = 0; i < engines.size(); ++i) {
        const boost::recursive_mutex::scoped_lock lock(engines[i]->m_dataMutex);
        ASSERT_EQ(engines[i]->m_orderQueues.value(kBuy).size(), 1);
        EXPECT_EQ(engines[i]->m_orderQueues.value(kBuy).first()->m_orders.size(),
                  kBatches * (1 + static_cast<int>(i)));
    }
}

TEST_F(EngineLife, EnginesOutliveTheEndOfThePoolAndGoOnWithTheNextOne)
{
    EngineProbe engine;
    engine.setStock("SH600519");
    engine.quoterOrderCallBack(0, 1, wrap({order(1, kBuy, 10, 500)}));
    net::RPCEngine::shutdown();
    EXPECT_EQ(engine.m_orderQueues.value(kBuy).value(1000)->m_orders.size(), 1) << "what was posted has run";

    engine.quoterOrderCallBack(0, 1, wrap({order(2, kBuy, 10, 500)}));
    EXPECT_EQ(engine.m_orderQueues.value(kBuy).value(1000)->m_orders.size(), 1);
    {
        // Ends without a pool: its release jobs wait.
        EngineProbe other;
        net::RPCEngine::shutdown();
        other.setStock("SH600519");
        other.doOrderCallBack(0, 1, wrap(buyOrders(1, 100)));
        other.quoterOrderCallBack(0, 1, wrap({order(2, kBuy, 10, 500)}));
    }
    net::RPCEngine::drain("modulegroup");
    net::RPCEngine::drain("data_release");
    const boost::recursive_mutex::scoped_lock lock(engine.m_dataMutex);
    EXPECT_EQ(engine.m_orderQueues.value(kBuy).value(1000)->m_orders.size(), 2);
}

TEST_F(EngineWaits, RowsAndHeaderAreReadWhileAnotherThreadHoldsTheData)
{
    orders(1, {order(1, kBuy, 10.00, 500)});
    snap("ask 10.02x5; bid 10.00x3; last 10.00");
    engine.checkCalcOrder();
    std::promise<void> held;
    std::promise<void> release;
    std::thread holder([&] {
        const boost::recursive_mutex::scoped_lock lock(engine.m_dataMutex);
        held.set_value();
        release.get_future().wait();
    });
    held.get_future().wait();
    auto reading = std::async(std::launch::async, [&] {
        const auto row = engine.at(0, Kel::OQT_BUY);
        return !engine.headerText().isEmpty() && row && row->m_price == 10.00 &&
               !engine.at(10, Kel::OQT_BUY) && engine.size() == 10 && engine.getPrecision() == 2 &&
               !engine.isLevelDataBack() && engine.instrument() != nullptr;
    });
    const bool returned = reading.wait_for(kLongest) == std::future_status::ready;
    release.set_value();
    holder.join();
    EXPECT_TRUE(returned);
    EXPECT_TRUE(reading.get());
}

TEST_F(EngineWaits, FeedCallsReturnWhileAnotherThreadHoldsTheData)
{
    std::promise<void> held;
    std::promise<void> release;
    std::thread holder([&] {
        const boost::recursive_mutex::scoped_lock lock(engine.m_dataMutex);
        held.set_value();
        release.get_future().wait();
    });
    held.get_future().wait();
    auto calling = std::async(std::launch::async, [&] {
        engine.quoterOrderCallBack(0, 1, wrap({order(1, kBuy, 10.00, 500)}));
        engine.quoterDealCallBack(0, 1, wrap({deal(1, 0, 10.00, 200)}));
        engine.quoterCallBack(0, -1, {snapshot("ask 10.02x5; bid 10.00x3; last 10.00")});
        engine.quoterCallBack(0, 3, publishedQueues(3));
    });
    const bool returned = calling.wait_for(kLongest) == std::future_status::ready;
    release.set_value();
    holder.join();
    EXPECT_TRUE(returned);
    net::RPCEngine::drain("modulegroup");
    const boost::recursive_mutex::scoped_lock lock(engine.m_dataMutex);
    EXPECT_NE(list(kBuy, 1000), "no level");
}

namespace {

/// Hands in history that the level thread cannot take before `meanwhile` has run, and waits until that thread
/// is done.
template <class Meanwhile>
void handIn(EngineProbe& engine, quoter::QuoterBatch history, Meanwhile meanwhile)
{
    const boost::weak_ptr<quoter::QuoterBase> last = history.back();
    {
        const boost::recursive_mutex::scoped_lock lock(engine.m_dataMutex);
        engine.quoterCallBack(0, 0, history);
        history.clear();
        meanwhile();
    }
    EXPECT_TRUE(becomesTrue([&] { return last.expired(); }));
    const boost::recursive_mutex::scoped_lock lock(engine.m_dataMutex); // sees what the thread did
}

} // namespace

TEST_F(EngineWaits, PublishedHistoryThatWasHandedInBeforeAClearDoesNotReachTheNewQueue)
{
    handIn(engine, publishedQueues(3), [this] {
        engine.clear(true);
        engine.setStock("SH600519");
    });
    EXPECT_EQ(queues(), "");
    handIn(engine, publishedQueues(3), [] {});
    EXPECT_NE(list(kBuy, 1000), "no level") << "what comes after it does";
}

TEST_F(EngineWaits, PublishedHistoryOfAnInstrumentDoesNotReachTheQueueOfAnother)
{
    handIn(engine, publishedQueues(3), [this] { engine.setStock("SZ000001"); });
    EXPECT_EQ(queues(), "");
    handIn(engine, publishedQueues(3), [this] {
        engine.setStock("unknown");
        engine.setStock("SZ000001");
    });
    EXPECT_EQ(queues(), "");
}

TEST_F(EngineWaits, PublishedHistoryOutlastsAReloadAndTheSameInstrumentChosenAgain)
{
    handIn(engine, publishedQueues(3), [this] {
        deals(0, {deal(900001, 900002, 10.00, 100)}); // opens a reload: the queue is emptied, not the session
        engine.setStock("SH600519");
    });
    EXPECT_NE(list(kBuy, 1000), "no level");
}

TEST_F(EngineWaits, PublishedHistoryThatIsUnderWayEndsWithAClear)
{
    constexpr int kRecords = 20000;
    for (int round = 0; round < 5; ++round) {
        quoter::QuoterBatch history = publishedQueues(kRecords);
        const boost::weak_ptr<quoter::QuoterBase> last = history.back();
        engine.quoterCallBack(0, 0, history);
        history.clear();
        ASSERT_TRUE(becomesTrue([&] { return engine.m_bLevelArrived.exchange(false); }));
        engine.clear(true);
        ASSERT_TRUE(becomesTrue([&] { return last.expired(); }));
        const boost::recursive_mutex::scoped_lock lock(engine.m_dataMutex);
        EXPECT_EQ(queues(), "");
    }
}
