#include "platform/utils/CLogCenter.h"

#include "platform/utils/exchange_time.h"
#include "platform/utils/g_NelStdLogger.h"
#include "platform/utils/thread_name.h"

#include <log4cxx/helpers/transcoder.h>
#include <log4cxx/level.h>
#include <log4cxx/spi/location/locationinfo.h>

#include <exception>

namespace utils {

namespace {

thread_local bool t_isLogWorker = false;

/// A failing appender must not take the client down, and there is nowhere left to report to.
void writeLine(int level, const std::string& text, const log4cxx::spi::LocationInfo& location)
{
    try {
        // The text is UTF-8 whatever the locale is, so it does not go through the locale's decoder.
        log4cxx::LogString message;
        log4cxx::helpers::Transcoder::decodeUTF8(text, message);
        stdLogger()->forcedLogLS(log4cxx::Level::toLevel(level), message, location);
    } catch (const std::exception&) {
        return;
    }
}

} // namespace

CLogCenter& CLogCenter::instance()
{
    static CLogCenter centre;
    return centre;
}

CLogCenter::CLogCenter()
{
    // Made before the centre, log4cxx is still there when the centre writes its last lines.
    stdLogger();
}

CLogCenter::~CLogCenter()
{
    std::thread worker;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
        worker.swap(m_worker);
    }
    m_arrived.notify_all();
    m_written.notify_all();
    if (worker.joinable())
        worker.join();
}

bool CLogCenter::loggerAllows(int level)
{
    return stdLogger()->isEnabledFor(log4cxx::Level::toLevel(level));
}

bool CLogCenter::onWorker() const
{
    return t_isLogWorker;
}

void CLogCenter::asyncLog(int level, const std::string& text)
{
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (!m_stopping && !m_worker.joinable())
            m_worker = std::thread([this] { work(); });
        if (!onWorker())
            m_written.wait(lock, [this] { return m_lines.size() < kMostWaitingLines || m_stopping; });
        if (!m_stopping) {
            m_lines.push_back({level, text});
            ++m_handedOver;
            m_arrived.notify_one();
            return;
        }
    }
    // Shut down, perhaps while this call waited for room: the worker may have gone already.
    writeLine(level, text, log4cxx::spi::LocationInfo::getLocationUnavailable());
}

void CLogCenter::forcedLog(int level, const std::string& text, const char* file, const char* function,
                           int line)
{
    writeLine(level, text, log4cxx::spi::LocationInfo(file, file, function, line));
}

void CLogCenter::write(int level, const std::string& text, const char* file, const char* function, int line)
{
    if (isAsyncLog())
        asyncLog(level, asyncPrefix() + text);
    else
        forcedLog(level, text, file, function, line);
}

std::string CLogCenter::asyncPrefix()
{
    return "[" + threadName() + "] [" + exchangeTimestamp(currentMSecSince1970()).toStdString() + "] ";
}

void CLogCenter::flush()
{
    if (onWorker())
        return;
    std::unique_lock<std::mutex> lock(m_mutex);
    const std::uint64_t until = m_handedOver;
    m_written.wait(lock, [&] { return m_done >= until; });
}

void CLogCenter::work()
{
    t_isLogWorker = true;
    setThreadName("log");
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_arrived.wait(lock, [this] { return !m_lines.empty() || m_stopping; });
        if (m_lines.empty())
            return;
        std::deque<Line> lines;
        lines.swap(m_lines);
        m_written.notify_all();
        lock.unlock();
        for (const Line& line : lines)
            writeLine(line.level, line.text, log4cxx::spi::LocationInfo::getLocationUnavailable());
        lock.lock();
        m_done += lines.size();
        m_written.notify_all();
    }
}

} // namespace utils
