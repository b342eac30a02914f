#include "platform/services/RPCEngine.h"

#include "platform/utils/CLogCenter.h"
#include "platform/utils/Log.h"
#include "platform/utils/thread_name.h"

#include <boost/make_shared.hpp>

#include <future>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace net {

namespace {

thread_local bool t_isPoolThread = false;

/// Lives from the first use to the end of the process and beyond: objects that are destroyed later still hold
/// strands and may post on them, so the service is never destroyed.
class Pool
{
public:
    boost::shared_ptr<RPCEngine::Strand> strand(const std::string& name)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        ensureRunning();
        return findOrMake(name);
    }

    void drain(const std::string& name)
    {
        auto reached = std::make_shared<std::promise<void>>();
        std::future<void> done = reached->get_future();
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            const boost::shared_ptr<RPCEngine::Strand> strand = findOrMake(name);
            if (m_ending || strand->running_in_this_thread())
                return;
            ensureRunning();
            strand->post([reached] { reached->set_value(); });
        }
        done.wait();
    }

    void shutdown(bool forever)
    {
        if (t_isPoolThread)
            return;
        std::unique_lock<std::mutex> stopLock(m_stopMutex);
        std::vector<std::thread> threads;
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_ending = m_ending || forever;
            if (m_state != State::Running)
                return;
            m_state = State::Stopping;
            threads.swap(m_threads);
            m_work.reset();
        }
        for (std::thread& thread : threads)
            thread.join();
        std::lock_guard<std::mutex> lock(m_mutex);
        m_state = State::Stopped;
        if (m_restartWanted) {
            m_restartWanted = false;
            ensureRunning();
        }
    }

private:
    enum class State
    {
        Stopped,
        Running,
        Stopping,
    };

    boost::shared_ptr<RPCEngine::Strand> findOrMake(const std::string& name)
    {
        boost::shared_ptr<RPCEngine::Strand>& strand = m_strands[name];
        if (!strand)
            strand = boost::make_shared<RPCEngine::Strand>(m_service);
        return strand;
    }

    void ensureRunning()
    {
        if (m_ending || m_state == State::Running)
            return;
        if (m_state == State::Stopping) {
            // The threads of before are still at work; who ends them starts new ones.
            m_restartWanted = true;
            return;
        }
        m_service.restart();
        m_work = std::make_unique<boost::asio::io_service::work>(m_service);
        for (int i = 1; i <= RPCEngine::kThreads; ++i)
            m_threads.emplace_back([this, i] { work(i); });
        m_state = State::Running;
    }

    void work(int number)
    {
        t_isPoolThread = true;
        utils::setThreadName("rpc-" + std::to_string(number));
        for (;;) {
            try {
                m_service.run();
                return;
            } catch (const std::exception& failure) {
                DEPTH_LOG(utils::kLogError, "RPCEngine", boost::format("job failed: %1%") % failure.what());
            } catch (...) {
                DEPTH_LOG(utils::kLogError, "RPCEngine", boost::format("job failed"));
            }
        }
    }

    boost::asio::io_service m_service;
    std::mutex m_stopMutex; ///< one shutdown at a time; taken before `m_mutex`
    std::mutex m_mutex;     ///< guards all below
    State m_state = State::Stopped;
    bool m_restartWanted = false;
    bool m_ending = false;
    std::map<std::string, boost::shared_ptr<RPCEngine::Strand>> m_strands;
    std::unique_ptr<boost::asio::io_service::work> m_work;
    std::vector<std::thread> m_threads;
};

Pool& pool()
{
    // What jobs log through is made first, so that it outlives the last job.
    static utils::CLogCenter& logCenter = utils::CLogCenter::instance();
    static Pool* const pool = new Pool;
    static const struct AtExit
    {
        ~AtExit() { pool->shutdown(true); }
    } atExit;
    (void)logCenter;
    (void)atExit;
    return *pool;
}

} // namespace

boost::shared_ptr<RPCEngine::Strand> RPCEngine::getStrand(const std::string& name)
{
    return pool().strand(name);
}

void RPCEngine::drain(const std::string& name)
{
    pool().drain(name);
}

void RPCEngine::shutdown()
{
    pool().shutdown(false);
}

} // namespace net
