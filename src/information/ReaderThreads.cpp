#include "information/ReaderThreads.h"

#include "platform/services/CStockManager.h"
#include "platform/services/RPCEngine.h"
#include "platform/services/external_data.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/Log.h"

#include <boost/thread/lock_guard.hpp>
#include <boost/thread/locks.hpp>
#include <boost/thread/thread.hpp>

namespace Kel {

std::atomic<bool> ReaderThreads::s_isEnding{false};

ReaderThreads& ReaderThreads::instance()
{
    // What readers use is made first, so that it is still there while the end waits for them. The object
    // itself stays for good: a thread that has told of its end may still be on its way out.
    static utils::CLogCenter& logCenter = utils::CLogCenter::instance();
    static CStockManager& stocks = utils::CSingletonT<CStockManager>::instance();
    static const bool others = (getExternalDataDir(), net::RPCEngine::getStrand("data_release"), true);
    static auto* const threads = new ReaderThreads;
    static const struct AtExit
    {
        ~AtExit() { threads->end(); }
    } atExit;
    (void)logCenter;
    (void)stocks;
    (void)others;
    (void)atExit;
    return *threads;
}

void ReaderThreads::run(const boost::function<void()>& job)
{
    if (!enter())
        return;
    try {
        boost::thread([this, own = job]() mutable {
            try {
                own();
            } catch (const std::exception& error) {
                logFailure(error.what());
            } catch (...) {
                logFailure("unknown reason");
            }
            own.clear(); // what it holds goes before the end stops waiting
            leave();
        }).detach();
    } catch (...) {
        leave();
        throw;
    }
}

/// The line itself may need memory that is not there.
void ReaderThreads::logFailure(const char* reason) noexcept
{
    try {
        DEPTH_LOG(utils::kLogError, "CInformationWidget",
                  boost::format("local information not read: %1%") % reason);
    } catch (...) {
    }
}

void ReaderThreads::wait()
{
    boost::unique_lock<boost::mutex> lock(m_mutex);
    while (m_running > 0)
        m_left.wait(lock);
}

void ReaderThreads::end()
{
    {
        boost::lock_guard<boost::mutex> lock(m_mutex);
        s_isEnding.store(true);
    }
    wait();
}

bool ReaderThreads::enter()
{
    boost::lock_guard<boost::mutex> lock(m_mutex);
    if (isEnding())
        return false;
    ++m_running;
    return true;
}

void ReaderThreads::leave()
{
    boost::lock_guard<boost::mutex> lock(m_mutex);
    --m_running;
    m_left.notify_all();
}

} // namespace Kel
