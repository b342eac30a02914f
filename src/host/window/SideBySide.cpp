#include "host/window/SideBySide.h"

#include "platform/utils/thread_name.h"

namespace host {

SideBySide::~SideBySide()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_quit = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

void SideBySide::run(std::size_t count, const std::function<void(std::size_t)>& job)
{
    if (!m_thread.joinable()) {
        m_thread = std::thread([this] {
            utils::setThreadName("replay helper");
            help();
        });
    }
    std::unique_lock<std::mutex> lock(m_mutex);
    m_job = &job;
    m_next = 0;
    m_count = count;
    m_changed.notify_all();
    takeJobs(lock);
    m_changed.wait(lock, [this] { return m_running == 0; });
    m_job = nullptr;
}

void SideBySide::help()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_quit || (m_job && m_next < m_count); });
        if (m_quit)
            return;
        takeJobs(lock);
        m_changed.notify_all();
    }
}

/// Until none waits any more.
void SideBySide::takeJobs(std::unique_lock<std::mutex>& lock)
{
    while (m_next < m_count) {
        const std::size_t mine = m_next++;
        const auto& job = *m_job;
        ++m_running;
        lock.unlock();
        job(mine);
        lock.lock();
        --m_running;
    }
}

} // namespace host
