// Jobs on two threads at once.

#include "host/window/SideBySide.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

namespace window_tests {
namespace {

TEST(SideBySide, RunsEveryJobOnceAndReturnsWhenAllHaveRun)
{
    host::SideBySide pair;
    for (std::size_t count : {0U, 1U, 2U, 7U, 100U}) {
        for (int round = 0; round < 50; ++round) {
            std::vector<int> runs(count, 0);
            pair.run(count, [&runs](std::size_t at) { ++runs[at]; });
            for (const int one : runs)
                ASSERT_EQ(one, 1);
        }
    }
}

TEST(SideBySide, RunsTwoJobsAtATime)
{
    host::SideBySide pair;
    std::mutex mutex;
    std::condition_variable changed;
    int begun = 0;
    std::set<std::thread::id> threads;
    // Each waits for the other: one thread alone would never end.
    pair.run(2, [&](std::size_t) {
        std::unique_lock<std::mutex> lock(mutex);
        threads.insert(std::this_thread::get_id());
        ++begun;
        changed.notify_all();
        changed.wait(lock, [&begun] { return begun == 2; });
    });
    EXPECT_EQ(threads.size(), 2U);
    EXPECT_EQ(threads.count(std::this_thread::get_id()), 1U);
}

} // namespace
} // namespace window_tests
