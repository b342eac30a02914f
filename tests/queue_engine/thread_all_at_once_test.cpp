// Every entry point of the engine from its own thread, all at once, while the event loop runs. Worth most
// under the thread sanitizer. DEPTH_THREAD_SECONDS sets the time, 5 s by default.

#include "platform/services/RPCEngine.h"
#include "queue_engine/EngineFixture.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>
#include <vector>

using namespace testing_support;

namespace {

using EngineThreads = EngineTest;

double secondsToRun()
{
    const char* text = std::getenv("DEPTH_THREAD_SECONDS");
    const double seconds = text ? std::atof(text) : 0;
    return seconds > 0 ? std::min(seconds, 3600.0) : 5;
}

/// Records of one instrument that meet each other: few numbers, few prices.
class RandomFeed
{
public:
    explicit RandomFeed(unsigned seed) : m_random(seed) {}

    int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_random); }
    double price() { return (990 + below(21)) / 100.0; }

    Kel::MetaCacheDataWrapperPtr orders(int count)
    {
        quoter::QuoterBatch batch;
        for (int i = 0; i < count; ++i)
            batch.push_back(
                atTime(time(), order(m_next++ % 5000, 1 + below(2), price(), 100 * (1 + below(50)))));
        return wrap(std::move(batch));
    }

    Kel::MetaCacheDataWrapperPtr deals(int count)
    {
        quoter::QuoterBatch batch;
        for (int i = 0; i < count; ++i) {
            const int shares = 100 * (1 + below(50));
            if (below(3) == 0)
                batch.push_back(atTime(time(), cancelSell(below(5000), shares)));
            else
                batch.push_back(atTime(time(), deal(below(5000), below(5000), price(), shares, i)));
        }
        return wrap(std::move(batch));
    }

    quoter::QuoterBatch levels()
    {
        quoter::QuoterBatch batch;
        for (int i = 0; i < 3; ++i) {
            const auto record = boost::make_shared<quoter::LevelOrderData>();
            record->m_time = time();
            record->bidPrice = price();
            record->askPrice = price();
            for (int volume = below(50); volume >= 0; --volume) {
                record->bidVolumes.push_back(1 + below(30));
                record->askVolumes.push_back(1 + below(30));
            }
            record->bidCount = record->askCount = static_cast<int>(record->bidVolumes.size());
            batch.push_back(record);
        }
        return batch;
    }

    quoter::QuoterBatch snapshots()
    {
        const auto depth = boost::make_shared<quoter::QuoterDepthData>();
        depth->m_time = time();
        depth->lastPrice = price();
        const int best = 995 + below(10);
        const int spread = below(3);
        for (int i = 0; i < quoter::kDepthLevels; ++i) {
            depth->bidPrice[i] = (best - i) / 100.0;
            depth->askPrice[i] = (best + spread + i) / 100.0;
            depth->bidVolume[i] = below(500);
            depth->askVolume[i] = below(500);
        }
        return {depth};
    }

private:
    std::int64_t time() { return m_time += below(3); }

    std::mt19937 m_random;
    std::int64_t m_next = 1;
    std::int64_t m_time = 1000;
};

/// Runs a job again and again on a thread of its own until it is told to stop.
class Repeater
{
public:
    template <class Job>
    explicit Repeater(Job job)
        : m_thread([this, job]() mutable {
              while (!m_stop) {
                  job(m_rounds);
                  ++m_rounds;
              }
          })
    {
    }

    long stop()
    {
        m_stop = true;
        m_thread.join();
        return m_rounds;
    }

private:
    std::atomic<bool> m_stop{false};
    std::atomic<long> m_rounds{0};
    std::thread m_thread;
};

void pause(int microseconds)
{
    std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
}

} // namespace

TEST_F(EngineThreads, AllEntryPointsAtOnceLeaveAnEngineThatWorks)
{
    engine.m_refreshTimer->start(3);
    RandomFeed orderFeed(1);
    RandomFeed dealFeed(2);
    RandomFeed levelFeed(3);
    RandomFeed snapshotFeed(4);

    Repeater orderThread([&](long round) {
        const int kind = orderFeed.below(60);
        const int status = kind == 0 ? 0 : kind == 1 ? 3 : 1 + kind % 2;
        engine.quoterOrderCallBack(0, status, orderFeed.orders(kind < 4 ? 300 : 1 + kind));
        if (round % 16 == 15)
            net::RPCEngine::drain("modulegroup"); // the strand keeps up, or the queue of jobs would grow
        pause(200);
    });
    Repeater dealThread([&](long round) {
        const int kind = dealFeed.below(60);
        engine.quoterDealCallBack(0, kind == 0 ? 0 : kind == 1 ? 3 : 1 + kind % 2, dealFeed.deals(1 + kind));
        if (round % 16 == 15)
            net::RPCEngine::drain("modulegroup");
        pause(200);
    });
    Repeater levelThread([&](long round) {
        const int status = round % 8 == 0 ? 3 * levelFeed.below(2) : 1 + levelFeed.below(2);
        engine.quoterCallBack(0, status, levelFeed.levels());
        pause(1000);
    });
    Repeater snapshotThread([&](long) {
        engine.quoterCallBack(0, -1, snapshotFeed.snapshots());
        pause(300);
    });
    std::atomic<long> rowsSeen{0};
    Repeater readerThread([&](long round) {
        const auto row =
            engine.at(static_cast<unsigned>(round % 12), round % 2 == 0 ? Kel::OQT_BUY : Kel::OQT_SELL);
        if (row) {
            ++rowsSeen;
            double lots = 0;
            for (const Kel::COrderVol& order : qAsConst(row->m_orders))
                lots += order.m_vol;
            EXPECT_TRUE(row->m_level >= 1 && row->m_level <= 10) << lots;
        }
        EXPECT_LE(engine.headerText().count(QLatin1Char('\n')), 1);
        engine.isLevelDataBack();
        engine.instrument();
        if (round % 64 == 0)
            engine.heapBytes();
        pause(50);
    });

    // The thread of the interface.
    const char* const codes[] = {"SH600519", "SZ131810", "SH000001", "unknown", "SZ000001", ""};
    RandomFeed choice(5);
    QElapsedTimer clock;
    clock.start();
    const auto end = static_cast<qint64>(secondsToRun() * 1000);
    long calculations = 0;
    long repaints = 0;
    while (clock.elapsed() < end) {
        QCoreApplication::processEvents();
        if (engine.checkCalcOrder())
            ++calculations;
        if (engine.m_bNeedRepaint.exchange(false))
            ++repaints;
        for (unsigned index = 0; index < 11; ++index) {
            engine.at(index, Kel::OQT_BUY);
            engine.at(index, Kel::OQT_SELL);
        }
        switch (choice.below(400)) {
        case 0:
            engine.clear(true);
            break;
        case 1:
            engine.clear(false);
            break;
        case 2:
            engine.setStock(codes[choice.below(6)]);
            engine.setStock("SH600519");
            break;
        case 3:
            engine.slotRefreshTimer(1 + choice.below(5));
            break;
        case 4:
            engine.slotTimerControl();
            break;
        default:
            if (choice.below(8) == 0)
                engine.slotShangHaiTimeout();
            engine.slotTimeout();
            break;
        }
        pause(300);
    }
    for (Repeater* thread : {&orderThread, &dealThread, &levelThread, &snapshotThread, &readerThread})
        EXPECT_GT(thread->stop(), 0);
    EXPECT_GT(calculations, 0);
    EXPECT_GT(repaints, 0);
    EXPECT_GT(rowsSeen.load(), 0);

    // Whatever came before: a cleared engine rebuilds a queue at prices that nobody used.
    net::RPCEngine::drain("modulegroup");
    engine.m_refreshTimer->stop();
    engine.m_shangHaiTimer->stop();
    engine.setStock("SH600519");
    engine.clear(true);
    engine.quoterOrderCallBack(0, 1, wrap({order(1, kBuy, 20.00, 500), order(2, kBuy, 20.00, 700)}));
    engine.quoterDealCallBack(0, 1, wrap({deal(1, 9, 20.00, 200)}));
    net::RPCEngine::drain("modulegroup");
    engine.updateDataList();
    engine.updateDataList();
    const boost::recursive_mutex::scoped_lock lock(engine.m_dataMutex);
    EXPECT_EQ(list(kBuy, 2000), "1 3 part 2; 2 7 normal");
}

TEST_F(EngineThreads, CallsAtOnceFromManyThreadsLoseNoOrderAndNoDeal)
{
    constexpr int kThreads = 4;
    constexpr int kBatches = 50;
    constexpr int kOrders = 20;
    std::vector<std::thread> threads;
    for (int part = 0; part < kThreads; ++part) {
        threads.emplace_back([this, part] {
            for (int n = 0; n < kBatches; ++n) {
                quoter::QuoterBatch batch;
                quoter::QuoterBatch dealt;
                for (int i = 0; i < kOrders; ++i) {
                    const int number = 1 + (n * kOrders + i) * kThreads + part;
                    batch.push_back(order(number, kBuy, 10 + 0.01 * part, 500));
                    if (i % 2 == 0)
                        dealt.push_back(deal(number, 0, 10, 500));
                }
                engine.quoterDealCallBack(0, 1, wrap(dealt));
                engine.quoterOrderCallBack(0, 1, wrap(batch));
            }
        });
    }
    for (int i = 0; i < 200; ++i) {
        engine.updateDataList();
        engine.checkCalcOrder();
    }
    for (std::thread& thread : threads)
        thread.join();
    net::RPCEngine::drain("modulegroup");
    for (int i = 0; i < 3; ++i)
        engine.updateDataList();

    const boost::recursive_mutex::scoped_lock lock(engine.m_dataMutex);
    for (int part = 0; part < kThreads; ++part) {
        const auto found = level(kBuy, 1000 + part);
        ASSERT_TRUE(found);
        EXPECT_EQ(found->m_orders.size(), kBatches * kOrders / 2);
        EXPECT_EQ(found->m_sumVol, 5.0 * kBatches * kOrders / 2);
    }
}
