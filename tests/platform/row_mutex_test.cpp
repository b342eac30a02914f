#include "platform/utils/RowMutex.h"

#include "platform/utils/CSingletonT.h"

#include <gtest/gtest.h>

#include <mutex>
#include <thread>
#include <vector>

TEST(RowMutex, LetsOneThreadInAtATime)
{
    utils::RowMutex mutex;
    int counter = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int n = 0; n < 5000; ++n) {
                std::lock_guard<utils::RowMutex> lock(mutex);
                ++counter;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(counter, 20000);
}

TEST(RowMutex, TryLockDoesNotWait)
{
    utils::RowMutex mutex;
    std::unique_lock<utils::RowMutex> lock(mutex);
    bool second = true;
    std::thread([&] {
        second = mutex.try_lock();
        if (second)
            mutex.unlock();
    }).join();
    EXPECT_FALSE(second);
    lock.unlock();
    EXPECT_TRUE(mutex.try_lock());
    mutex.unlock();
}

TEST(Singleton, IsOneObjectForAllThreads)
{
    struct Thing
    {
        int value = 5;
    };
    Thing* fromThread = nullptr;
    std::thread([&fromThread] { fromThread = &utils::CSingletonT<Thing>::instance(); }).join();
    EXPECT_EQ(fromThread, &utils::CSingletonT<Thing>::instance());
    EXPECT_EQ(fromThread->value, 5);
}
