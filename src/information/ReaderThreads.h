#pragma once

#include <boost/function.hpp>
#include <boost/thread/condition_variable.hpp>
#include <boost/thread/mutex.hpp>

#include <atomic>
#include <exception>

namespace Kel {

/// The threads that read local information, one for each job, nobody waits for them while the program runs.
/// The end of the process does: it tells them to stop and goes on when the last one has. Any thread may call
/// anything.
class ReaderThreads
{
public:
    static ReaderThreads& instance();

    /// Runs a copy of `job` on a thread of its own. A job that throws ends alone; where no thread or no
    /// memory is left the job is not done. Both are logged, and nothing is thrown. Once the process ends no
    /// job begins any more.
    template <class Job>
    void start(const Job& job)
    {
        try {
            run(job);
        } catch (const std::exception& error) {
            logFailure(error.what());
        }
    }

    /// True once the process ends: a job asks now and then and stops.
    static bool isEnding() { return s_isEnding.load(std::memory_order_relaxed); }

    /// Waits until no job runs.
    void wait();

private:
    ReaderThreads() = default;
    void run(const boost::function<void()>& job);
    void end();
    bool enter();
    void leave();
    static void logFailure(const char* reason) noexcept;

    static std::atomic<bool> s_isEnding;
    boost::mutex m_mutex; ///< guards the count
    boost::condition_variable m_left;
    int m_running = 0;
};

} // namespace Kel
