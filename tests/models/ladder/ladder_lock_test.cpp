// Who gets the lock of a ladder.

#include "platform/models/ladder_lock.h"

#include <boost/thread/thread.hpp>

#include <gtest/gtest.h>

#include <atomic>
#include <vector>

namespace {

using Kel::ReaderFirstMutex;

TEST(LadderLock, TheFeedLetsThosePassWhoWait)
{
    ReaderFirstMutex mutex;
    for (int round = 0; round < 200; ++round) {
        std::atomic<int> passed{0};
        boost::thread reader;
        boost::thread feed;
        int seen = -1;
        {
            const ReaderFirstMutex::Reader held(mutex);
            reader = boost::thread([&] {
                const ReaderFirstMutex::Reader lock(mutex);
                ++passed;
            });
            while (mutex.waiting() < 1)
                boost::this_thread::yield();
            feed = boost::thread([&] {
                const ReaderFirstMutex::Writer lock(mutex);
                seen = passed;
            });
        }
        reader.join();
        feed.join();
        ASSERT_EQ(seen, 1);
    }
}

TEST(LadderLock, ReadersThatNeverStopDoNotKeepTheFeedOut)
{
    // Each holds the lock until two others wait: at no moment does nobody wait.
    constexpr int kReaders = 3;
    constexpr int kTurns = 5000000; // a thousand times what the feed needs
    ReaderFirstMutex mutex;
    std::atomic<bool> done{false};
    std::atomic<int> turns{0};
    std::vector<boost::thread> readers;
    for (int i = 0; i < kReaders; ++i) {
        readers.emplace_back([&] {
            while (!done) {
                const ReaderFirstMutex::Reader lock(mutex);
                if (++turns >= kTurns)
                    done = true;
                while (!done && mutex.waiting() < kReaders - 1)
                    boost::this_thread::yield();
            }
        });
    }
    while (turns < kReaders)
        boost::this_thread::yield();
    bool gotIn = false;
    {
        const ReaderFirstMutex::Writer lock(mutex);
        gotIn = !done;
        done = true;
    }
    for (boost::thread& reader : readers)
        reader.join();
    EXPECT_TRUE(gotIn) << "only when the readers had stopped";
}

} // namespace
