#pragma once

#include <memory>
#include <string>
#include <vector>

namespace testing_support {

struct LogEvent
{
    std::string text;
    int level;
    std::string file;
    std::string function;
    int line;
    std::string thread; ///< name of the thread that the appender was called on
};

/// Enables logging in synchronous mode, with an appender that keeps the events of `g_NelStdLogger`; puts
/// everything back as it was when it goes. One at a time.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();

    std::vector<LogEvent> events() const;

    /// Makes the appender wait from its next event on, until `release`.
    void hold();
    void release();

    /// Makes the appender throw at its next event.
    void failOnce();

private:
    class Appender;
    std::shared_ptr<Appender> m_appender;
};

} // namespace testing_support
