// The feed's threads and the thread of the object at once; the thread sanitizer watches it.

#include "DataStateFeed.h"

#include <atomic>
#include <thread>

using namespace Kel;

namespace {

class DataStateThreads : public DataStateFeed
{
};

} // namespace

TEST_F(DataStateThreads, AFeedOnThreeThreadsLeavesTheStateOfItsCallsWhileTheObjectIsAsked)
{
    constexpr int kCalls = 3000;
    load();
    std::atomic<int> running{3};
    std::thread orderFeed([&] {
        for (int i = 1; i <= kCalls; ++i)
            orders(i, kLive);
        --running;
    });
    std::thread dealFeed([&] {
        for (int i = 2; i <= kCalls; ++i)
            deals(i == kCalls ? i + 1 : i, kLive, at(10, 30)); // the last call but one is lost
        --running;
    });
    std::thread quoteFeed([&] {
        for (int i = 1; i <= kCalls; ++i)
            snapshot(i, at(10, 20));
        --running;
    });
    std::int64_t clock = at(10, 0);
    while (running > 0) {
        m_watch.setClock(clock++);
        m_watch.check();
        EXPECT_NE(m_watch.state(), eDataStale);
    }
    orderFeed.join();
    dealFeed.join();
    quoteFeed.join();
    m_watch.check();
    ASSERT_EQ(m_watch.gaps().size(), 1u);
    EXPECT_EQ(m_watch.gaps()[0].channel, eDataDeals);
    m_watch.setClock(at(10, 30));
    snapshot(kCalls + 1, at(10, 30));
    EXPECT_EQ(state(), eDataRebuilt);
}

TEST_F(DataStateThreads, AnotherInstrumentIsChosenWhileTheFeedOfTheOldOneStillCalls)
{
    load();
    std::atomic<bool> stop{false};
    std::thread feed([&] {
        for (int i = 1; !stop; ++i)
            orders(i, kLive);
    });
    for (int i = 0; i < 500; ++i) {
        m_watch.setStock(i % 2 == 0 ? QStringLiteral("SH600000") : m_key);
        m_watch.check();
    }
    m_watch.setStock(QStringLiteral("SH600000"));
    m_watch.check();
    EXPECT_EQ(m_watch.state(), eDataLoading);
    EXPECT_TRUE(m_watch.gaps().empty());
    stop = true;
    feed.join();
}
