#include "platform/utils/Log.h"

#include "LogCapture.h"

#include "platform/utils/exchange_time.h"
#include "platform/utils/g_NelStdLogger.h"
#include "platform/utils/thread_name.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <thread>
#include <vector>

using testing_support::LogCapture;
using utils::CLogCenter;
using utils::kLogError;
using utils::kLogInfo;

namespace {

int g_formatted = 0;

/// An argument that counts how often it is formatted.
struct Counted
{
};

std::ostream& operator<<(std::ostream& out, const Counted&)
{
    ++g_formatted;
    return out << "counted";
}

class Log : public ::testing::Test
{
protected:
    void SetUp() override { g_formatted = 0; }
    LogCapture m_log;
};

std::vector<std::string> texts(const std::vector<testing_support::LogEvent>& events)
{
    std::vector<std::string> all;
    for (const auto& event : events)
        all.push_back(event.text);
    return all;
}

} // namespace

TEST_F(Log, IsSilentUntilEnabledAndThenFormatsNothing)
{
    CLogCenter::instance().setLogEnabled(false);
    int evaluated = 0;
    const auto argument = [&evaluated] {
        ++evaluated;
        return Counted();
    };
    DEPTH_LOG(kLogError, "test", boost::format("%1%") % argument());
    EXPECT_EQ(evaluated, 0);
    EXPECT_EQ(g_formatted, 0);
    CLogCenter::instance().setLogEnabled(true);
    DEPTH_LOG(kLogError, "test", boost::format("%1%") % argument());
    EXPECT_EQ(evaluated, 1);
    EXPECT_EQ(texts(m_log.events()), std::vector<std::string>{"counted"});
}

TEST_F(Log, FormatsNothingBelowTheLoggersLevel)
{
    g_NelStdLogger->setLevel(log4cxx::Level::getError());
    DEPTH_LOG(kLogInfo, "test", boost::format("%1%") % Counted());
    EXPECT_EQ(g_formatted, 0);
    DEPTH_LOG(kLogError, "test", boost::format("%1%") % Counted());
    EXPECT_GT(g_formatted, 0);
    ASSERT_EQ(m_log.events().size(), 1u);
    EXPECT_EQ(m_log.events()[0].level, 40000);
}

TEST_F(Log, AtOnceCarriesSourceFileFunctionAndLine)
{
    DEPTH_LOG(kLogInfo, "CDepthModelOrderQueue", boost::format("order price zero entrust No %1%") % 17);
    const int line = __LINE__ - 1;
    ASSERT_EQ(m_log.events().size(), 1u);
    const auto event = m_log.events()[0];
    EXPECT_EQ(event.text, "order price zero entrust No 17");
    EXPECT_EQ(event.level, 20000);
    EXPECT_EQ(event.file, "CDepthModelOrderQueue");
    EXPECT_NE(event.function.find("TestBody"), std::string::npos) << event.function;
    EXPECT_EQ(event.line, line);
}

TEST_F(Log, KeepsChineseWhateverTheLocaleIs)
{
    DEPTH_LOG(kLogInfo, "test", boost::format("卖一 %1%") % "买");
    EXPECT_EQ(texts(m_log.events()), std::vector<std::string>{"卖一 买"});
}

TEST_F(Log, AForcedLineIgnoresWhetherLoggingIsEnabled)
{
    CLogCenter::instance().setLogEnabled(false);
    CLogCenter::instance().forcedLog(kLogError, "forced", "file", "function", 3);
    EXPECT_EQ(texts(m_log.events()), std::vector<std::string>{"forced"});
}

TEST_F(Log, AsynchronousLinesBeginWithThreadAndTime)
{
    CLogCenter::instance().setAsyncLog(true);
    std::thread feed([] {
        utils::setThreadName("feed");
        DEPTH_LOG(kLogInfo, "test", boost::format("line %1%") % 1);
    });
    feed.join();
    CLogCenter::instance().flush();
    ASSERT_EQ(m_log.events().size(), 1u);
    const std::string text = m_log.events()[0].text;
    EXPECT_TRUE(
        std::regex_match(text, std::regex(R"(\[feed\] \[\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3}\] line 1)")))
        << text;
    const QString now = utils::exchangeTimestamp(utils::currentMSecSince1970());
    EXPECT_EQ(text.substr(8, 10), now.left(10).toStdString()) << "the time is the exchange's";
    EXPECT_EQ(m_log.events()[0].thread, "log");
}

TEST_F(Log, AsynchronousLinesOfEachThreadKeepTheirOrderAndNoneIsLost)
{
    constexpr int kThreads = 4;
    constexpr int kLines = 500;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([thread] {
            for (int i = 0; i < kLines; ++i)
                CLogCenter::instance().asyncLog(kLogInfo, std::to_string(thread * kLines + i));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    CLogCenter::instance().flush();
    const auto lines = texts(m_log.events());
    ASSERT_EQ(lines.size(), static_cast<std::size_t>(kThreads * kLines));
    std::vector<int> next(kThreads, 0);
    for (const std::string& line : lines) {
        const int number = std::stoi(line);
        ASSERT_EQ(number % kLines, next[static_cast<std::size_t>(number / kLines)]++);
    }
}

TEST_F(Log, ASlowAppenderMakesWritersWaitAndLosesNothing)
{
    m_log.hold();
    std::thread writer([] {
        for (std::size_t i = 0; i < 2 * CLogCenter::kMostWaitingLines + 10; ++i)
            CLogCenter::instance().asyncLog(kLogInfo, "x");
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    m_log.release();
    writer.join();
    CLogCenter::instance().flush();
    EXPECT_EQ(m_log.events().size(), 2 * CLogCenter::kMostWaitingLines + 10);
}

TEST_F(Log, AnAppenderThatFailsDoesNotStopTheNextLines)
{
    m_log.failOnce();
    EXPECT_NO_THROW(CLogCenter::instance().forcedLog(kLogInfo, "fails", "file", "function", 1));
    m_log.failOnce();
    CLogCenter::instance().asyncLog(kLogInfo, "fails too");
    CLogCenter::instance().asyncLog(kLogInfo, "arrives");
    CLogCenter::instance().flush();
    EXPECT_EQ(texts(m_log.events()), std::vector<std::string>{"arrives"});
}

TEST_F(Log, FlushOfNothingReturnsAtOnce)
{
    CLogCenter::instance().flush();
    EXPECT_TRUE(m_log.events().empty());
}

TEST(ThreadName, IsWhatWasGivenElseANumberOfItsOwn)
{
    std::string first;
    std::string second;
    std::string named;
    std::thread([&first] { first = utils::threadName(); }).join();
    std::thread([&second] { second = utils::threadName(); }).join();
    std::thread([&named] {
        utils::setThreadName("a name that is longer than the kernel keeps");
        named = utils::threadName();
    }).join();
    EXPECT_THAT(first, ::testing::StartsWith("thread-"));
    EXPECT_NE(first, second);
    EXPECT_EQ(named, "a name that is longer than the kernel keeps");
}
