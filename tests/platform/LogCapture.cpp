#include "LogCapture.h"

#include "platform/utils/CLogCenter.h"
#include "platform/utils/g_NelStdLogger.h"
#include "platform/utils/thread_name.h"

#include <log4cxx/appenderskeleton.h>
#include <log4cxx/helpers/transcoder.h>
#include <log4cxx/spi/loggingevent.h>

#include <condition_variable>
#include <mutex>
#include <stdexcept>

namespace testing_support {

class LogCapture::Appender : public log4cxx::AppenderSkeleton
{
public:
    void append(const log4cxx::spi::LoggingEventPtr& event, log4cxx::helpers::Pool&) override
    {
        std::unique_lock<std::mutex> lock(mutex);
        released.wait(lock, [this] { return !held; });
        if (failing) {
            failing = false;
            throw std::runtime_error("no room on the disk");
        }
        std::string text;
        log4cxx::helpers::Transcoder::encodeUTF8(event->getMessage(), text);
        const auto& location = event->getLocationInformation();
        events.push_back({text, event->getLevel()->toInt(), location.getFileName(), location.getMethodName(),
                          location.getLineNumber(), utils::threadName()});
    }

    void close() override {}
    bool requiresLayout() const override { return false; }

    std::mutex mutex; ///< guards all below
    std::condition_variable released;
    bool held = false;
    bool failing = false;
    std::vector<LogEvent> events;
};

LogCapture::LogCapture() : m_appender(std::make_shared<Appender>())
{
    g_NelStdLogger->addAppender(m_appender);
    g_NelStdLogger->setAdditivity(false);
    g_NelStdLogger->setLevel(log4cxx::Level::getAll());
    utils::CLogCenter::instance().setLogEnabled(true);
    utils::CLogCenter::instance().setAsyncLog(false);
}

LogCapture::~LogCapture()
{
    release();
    utils::CLogCenter::instance().flush();
    utils::CLogCenter::instance().setLogEnabled(false);
    utils::CLogCenter::instance().setAsyncLog(false);
    g_NelStdLogger->removeAppender(m_appender);
    g_NelStdLogger->setAdditivity(true);
    g_NelStdLogger->setLevel(nullptr);
}

std::vector<LogEvent> LogCapture::events() const
{
    std::lock_guard<std::mutex> lock(m_appender->mutex);
    return m_appender->events;
}

void LogCapture::hold()
{
    std::lock_guard<std::mutex> lock(m_appender->mutex);
    m_appender->held = true;
}

void LogCapture::release()
{
    {
        std::lock_guard<std::mutex> lock(m_appender->mutex);
        m_appender->held = false;
    }
    m_appender->released.notify_all();
}

void LogCapture::failOnce()
{
    std::lock_guard<std::mutex> lock(m_appender->mutex);
    m_appender->failing = true;
}

} // namespace testing_support
