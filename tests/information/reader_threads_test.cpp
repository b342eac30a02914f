#include "information/ReaderThreads.h"

#include "platform/LogCapture.h"

#include <boost/chrono/duration.hpp>
#include <boost/thread/thread.hpp>

#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include <sys/wait.h>

using Kel::ReaderThreads;
using ::testing::HasSubstr;

namespace {

ReaderThreads& threads()
{
    return ReaderThreads::instance();
}

} // namespace

TEST(ReaderThreads, RunAJobOnAThreadOfItsOwn)
{
    boost::thread::id ran;
    threads().start([&ran] { ran = boost::this_thread::get_id(); });
    threads().wait();
    EXPECT_NE(ran, boost::thread::id());
    EXPECT_NE(ran, boost::this_thread::get_id());
    EXPECT_FALSE(ReaderThreads::isEnding());
}

TEST(ReaderThreads, AJobThatThrowsEndsAloneAndIsLogged)
{
    testing_support::LogCapture log;
    threads().start([] { throw std::runtime_error("no luck"); });
    threads().start([] { throw 7; });
    threads().wait();
    const auto events = log.events();
    ASSERT_EQ(events.size(), 2u);
    EXPECT_THAT(events[0].text + events[1].text, HasSubstr("local information not read: no luck"));
    EXPECT_EQ(events[0].level, 40000);
}

TEST(ReaderThreadsDeathTest, TheEndOfTheProcessWaitsForItsReaders)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    // Its code is not looked at: a leak checker gives its own for what the application still holds.
    const auto hasExited = [](int status) { return WIFEXITED(status); };
    EXPECT_EXIT(
        {
            threads().start([] {
                while (!ReaderThreads::isEnding())
                    boost::this_thread::sleep_for(boost::chrono::milliseconds(1));
                boost::this_thread::sleep_for(boost::chrono::milliseconds(50));
                std::fputs("the reader has ended", stderr);
            });
            std::exit(0);
        },
        hasExited, "the reader has ended");
}
