#pragma once

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <thread>

namespace host {

/// Runs independent jobs on the calling thread and one more, which starts with the first use and ends with
/// the object. For one calling thread at a time.
class SideBySide
{
public:
    SideBySide() = default;
    ~SideBySide();
    SideBySide(const SideBySide&) = delete;
    SideBySide& operator=(const SideBySide&) = delete;

    /// Runs `job` for each number below `count`, every one once, in no fixed order. Returns when all have
    /// run; what they did is seen by the caller, and what the caller did by them. A job must not throw.
    void run(std::size_t count, const std::function<void(std::size_t)>& job);

private:
    void help();
    void takeJobs(std::unique_lock<std::mutex>& lock);

    std::mutex m_mutex; ///< guards all below but the thread
    std::condition_variable m_changed;
    const std::function<void(std::size_t)>* m_job = nullptr; ///< null while none waits
    std::size_t m_next = 0;
    std::size_t m_count = 0;
    std::size_t m_running = 0;
    bool m_quit = false;
    std::thread m_thread;
};

} // namespace host
