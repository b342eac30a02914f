#include "platform/services/RPCEngine.h"

#include "platform/utils/thread_name.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <future>
#include <memory>
#include <set>
#include <stdexcept>
#include <thread>
#include <vector>

using net::RPCEngine;

namespace {

/// Holds a strand until it is opened; opened at the latest when it goes.
class Barrier
{
public:
    explicit Barrier(const std::string& strand)
    {
        std::shared_future<void> opened = m_open.get_future();
        RPCEngine::getStrand(strand)->post([opened] { opened.wait(); });
    }
    void open()
    {
        if (!m_opened)
            m_open.set_value();
        m_opened = true;
    }
    ~Barrier() { open(); }

private:
    std::promise<void> m_open;
    bool m_opened = false;
};

} // namespace

TEST(RpcEngine, OneNameIsOneStrand)
{
    const auto first = RPCEngine::getStrand("modulegroup");
    EXPECT_EQ(RPCEngine::getStrand("modulegroup"), first);
    EXPECT_NE(RPCEngine::getStrand("data_release"), first);
    EXPECT_NE(RPCEngine::getStrand(""), nullptr);
}

TEST(RpcEngine, AStrandRunsItsJobsOneAtATimeInOrderOfPosting)
{
    const auto strand = RPCEngine::getStrand("order");
    std::vector<int> ran; // no lock: the strand is the guard
    std::atomic<int> inside{0};
    std::atomic<int> overlaps{0};
    for (int i = 0; i < 2000; ++i) {
        strand->post([&, i] {
            if (++inside != 1)
                ++overlaps;
            ran.push_back(i);
            --inside;
        });
    }
    RPCEngine::drain("order");
    ASSERT_EQ(ran.size(), 2000u);
    for (int i = 0; i < 2000; ++i)
        ASSERT_EQ(ran[static_cast<std::size_t>(i)], i);
    EXPECT_EQ(overlaps, 0);
}

TEST(RpcEngine, JobsOfEachPosterKeepTheirOrderWhenManyPost)
{
    constexpr int kPosters = 4;
    constexpr int kJobs = 500;
    std::vector<std::pair<int, int>> ran;
    std::vector<std::thread> posters;
    for (int poster = 0; poster < kPosters; ++poster) {
        posters.emplace_back([&ran, poster] {
            for (int i = 0; i < kJobs; ++i)
                RPCEngine::getStrand("many")->post([&ran, poster, i] { ran.emplace_back(poster, i); });
        });
    }
    for (std::thread& poster : posters)
        poster.join();
    RPCEngine::drain("many");
    ASSERT_EQ(ran.size(), static_cast<std::size_t>(kPosters * kJobs));
    std::vector<int> next(kPosters, 0);
    for (const auto& [poster, i] : ran)
        ASSERT_EQ(i, next[static_cast<std::size_t>(poster)]++);
}

TEST(RpcEngine, TwoStrandsRunSideBySide)
{
    std::promise<void> first;
    std::promise<void> second;
    std::atomic<int> met{0};
    RPCEngine::getStrand("left")->post([&] {
        first.set_value();
        if (second.get_future().wait_for(std::chrono::seconds(60)) == std::future_status::ready)
            ++met;
    });
    RPCEngine::getStrand("right")->post([&] {
        second.set_value();
        if (first.get_future().wait_for(std::chrono::seconds(60)) == std::future_status::ready)
            ++met;
    });
    RPCEngine::drain("left");
    RPCEngine::drain("right");
    EXPECT_EQ(met, 2);
}

TEST(RpcEngine, JobsRunOnNamedThreadsOfThePool)
{
    std::set<std::string> names;
    for (int i = 0; i < 50; ++i)
        RPCEngine::getStrand("names")->post([&names] { names.insert(utils::threadName()); });
    RPCEngine::drain("names");
    for (const std::string& name : names)
        EXPECT_TRUE(name == "rpc-1" || name == "rpc-2") << name;
    EXPECT_FALSE(names.empty());
}

TEST(RpcEngine, DrainWaitsForWhatWasPostedBefore)
{
    std::atomic<bool> done{false};
    std::atomic<bool> drained{false};
    Barrier barrier("drained");
    RPCEngine::getStrand("drained")->post([&done] { done = true; });
    std::thread waiting([&] {
        RPCEngine::drain("drained");
        drained = true;
        EXPECT_TRUE(done);
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_FALSE(drained);
    barrier.open();
    waiting.join();
    EXPECT_TRUE(done);
}

TEST(RpcEngine, DrainFromAJobOfTheStrandReturnsAtOnce)
{
    std::atomic<bool> returned{false};
    RPCEngine::getStrand("self")->post([&returned] {
        RPCEngine::drain("self");
        returned = true;
    });
    RPCEngine::drain("self");
    EXPECT_TRUE(returned);
}

TEST(RpcEngine, AJobThatThrowsEndsAlone)
{
    std::atomic<int> ran{0};
    const auto strand = RPCEngine::getStrand("throwing");
    for (int i = 0; i < 10; ++i) {
        strand->post([] { throw std::runtime_error("a fault"); });
        strand->post([] { throw 1; });
        strand->post([&ran] { ++ran; });
    }
    RPCEngine::drain("throwing");
    EXPECT_EQ(ran, 10);
}

TEST(RpcEngine, ShutdownRunsWhatWasPostedAndWhatThatPosts)
{
    std::atomic<int> ran{0};
    const auto strand = RPCEngine::getStrand("shutdown");
    for (int i = 0; i < 100; ++i) {
        strand->post([&ran, strand] {
            ++ran;
            strand->post([&ran] { ++ran; });
        });
    }
    RPCEngine::shutdown();
    EXPECT_EQ(ran, 200);
    RPCEngine::shutdown();
}

TEST(RpcEngine, TheNextGetStrandStartsThePoolAgain)
{
    const auto strand = RPCEngine::getStrand("restart");
    RPCEngine::shutdown();
    std::atomic<int> ran{0};
    strand->post([&ran] { ++ran; });
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(ran, 0) << "nobody runs jobs after a shutdown";
    EXPECT_EQ(RPCEngine::getStrand("restart"), strand);
    RPCEngine::drain("restart");
    EXPECT_EQ(ran, 1);
}

TEST(RpcEngine, ShutdownFromAJobDoesNothing)
{
    std::atomic<int> ran{0};
    RPCEngine::getStrand("inside")->post([&ran] {
        RPCEngine::shutdown();
        ++ran;
    });
    RPCEngine::getStrand("inside")->post([&ran] { ++ran; });
    RPCEngine::drain("inside");
    EXPECT_EQ(ran, 2);
}

TEST(RpcEngine, AStrandAskedForDuringShutdownIsServedAfterIt)
{
    for (int round = 0; round < 20; ++round) {
        std::atomic<int> ran{0};
        RPCEngine::getStrand("a")->post([&ran] { RPCEngine::getStrand("b")->post([&ran] { ++ran; }); });
        std::thread other([&ran] {
            RPCEngine::getStrand("c")->post([&ran] { ++ran; });
            RPCEngine::drain("c");
        });
        RPCEngine::shutdown();
        other.join();
        RPCEngine::drain("a");
        RPCEngine::drain("b");
        ASSERT_EQ(ran, 2);
    }
}

TEST(RpcEngine, ManyShutdownsAtOnceEndInOrder)
{
    std::atomic<int> ran{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&ran, i] {
            for (int round = 0; round < 25; ++round) {
                const std::string name = "s" + std::to_string(i);
                RPCEngine::getStrand(name)->post([&ran] { ++ran; });
                if (i % 2 == 0)
                    RPCEngine::shutdown();
                RPCEngine::drain(name);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(ran, 100);
}

namespace {

/// Holds a strand longer than the pool lives and posts on it from its destructor, as an engine in a static
/// object does.
struct LateHolder
{
    boost::shared_ptr<RPCEngine::Strand> strand;
    std::atomic<int> ran{0};
    ~LateHolder()
    {
        if (!strand)
            return;
        strand->post([] { std::_Exit(1); });
        RPCEngine::drain("late");
        if (ran != 100)
            std::_Exit(2);
    }
};

LateHolder& lateHolder()
{
    static LateHolder holder;
    return holder;
}

} // namespace

TEST(RpcEngineDeathTest, TheProcessEndsInOrderAlthoughAStrandIsStillHeld)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            LateHolder& holder = lateHolder(); // made before the pool, so destroyed after it
            holder.strand = RPCEngine::getStrand("late");
            for (int i = 0; i < 100; ++i)
                holder.strand->post([&holder] { ++holder.ran; });
            std::exit(0);
        },
        ::testing::ExitedWithCode(0), "");
}
