#pragma once

#include "records/DepthExport.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

namespace utils {

/// Levels of log lines; the numbers are log4cxx's.
constexpr int kLogInfo = 20000;
constexpr int kLogError = 40000;

/// Decides whether lines are logged at all and carries them to `g_NelStdLogger`, at once or by a worker
/// thread.
///
/// Silent until the host calls `setLogEnabled(true)`. Texts are UTF-8; log4cxx writes what the process locale
/// cannot show as question marks, so a host calls `setlocale` first. Write lines with `DEPTH_LOG`
/// (platform/utils/Log.h), which formats nothing that is not written. Any thread may call anything.
class DEPTH_EXPORT CLogCenter
{
public:
    static CLogCenter& instance();

    /// True if lines of `level` are written: the centre is enabled and the logger's level allows it. The
    /// disabled case costs one relaxed load.
    static bool isLogged(int level)
    {
        return s_enabled.load(std::memory_order_relaxed) && loggerAllows(level);
    }

    bool logEnabled() const { return s_enabled.load(std::memory_order_relaxed); }
    void setLogEnabled(bool enabled) { s_enabled.store(enabled, std::memory_order_relaxed); }

    /// Whether lines are to go through the worker thread; initially not.
    bool isAsyncLog() const { return m_async.load(std::memory_order_relaxed); }
    void setAsyncLog(bool async) { m_async.store(async, std::memory_order_relaxed); }

    /// Hands a line to the worker thread, which writes lines in the order of these calls. Returns at once,
    /// unless `kMostWaitingLines` lines wait already: then it waits for room, so that no line is lost. After
    /// the centre was shut down at the end of the process the line is written at once.
    void asyncLog(int level, const std::string& text);

    /// Writes a line at once, whatever `logEnabled` and the level say. `file` and `function` must outlive the
    /// call of every appender, as literals do.
    void forcedLog(int level, const std::string& text, const char* file, const char* function, int line);

    /// One line the way the current mode wants it: in asynchronous mode with the prefix of `asyncPrefix` to
    /// `asyncLog`, else to `forcedLog`.
    void write(int level, const std::string& text, const char* file, const char* function, int line);

    /// "[", the thread's name, "] [", the current exchange time as "yyyy-MM-dd hh:mm:ss.zzz", "] ".
    static std::string asyncPrefix();

    /// Waits until all lines handed over before are written. Does nothing on the worker thread itself.
    void flush();

    static constexpr std::size_t kMostWaitingLines = 65536;

    CLogCenter(const CLogCenter&) = delete;
    CLogCenter& operator=(const CLogCenter&) = delete;

private:
    struct Line
    {
        int level;
        std::string text;
    };

    CLogCenter();
    ~CLogCenter();

    static bool loggerAllows(int level);
    void work();
    bool onWorker() const;

    static inline std::atomic<bool> s_enabled{false};
    std::atomic<bool> m_async{false};

    std::mutex m_mutex; ///< guards all below
    std::condition_variable m_arrived;
    std::condition_variable m_written;
    std::deque<Line> m_lines;
    std::uint64_t m_handedOver = 0; ///< lines ever put into the queue
    std::uint64_t m_done = 0;       ///< lines ever taken out and written
    bool m_stopping = false;
    std::thread m_worker; ///< started by the first line
};

} // namespace utils
