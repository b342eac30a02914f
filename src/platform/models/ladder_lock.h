#pragma once

#include <boost/thread/mutex.hpp>
#include <boost/thread/thread.hpp>

#include <atomic>
#include <cstdint>

namespace Kel {

/// A mutex whose readers come first. The feed takes it again and again while it loads a day, and a mutex is
/// not fair: so the feed lets those pass who wait when it comes, and no more, or readers that never stop
/// would starve it. Any thread.
class ReaderFirstMutex
{
public:
    /// Held for a short look, or for a short change that is not the feed's.
    class Reader
    {
    public:
        explicit Reader(ReaderFirstMutex& mutex) : m_mutex(mutex)
        {
            m_mutex.m_came.fetch_add(1);
            m_mutex.m_mutex.lock();
            m_mutex.m_passed.fetch_add(1);
        }
        ~Reader() { m_mutex.m_mutex.unlock(); }
        Reader(const Reader&) = delete;
        Reader& operator=(const Reader&) = delete;

    private:
        ReaderFirstMutex& m_mutex;
    };

    /// Held for one step of the feed.
    class Writer
    {
    public:
        explicit Writer(ReaderFirstMutex& mutex) : m_mutex(mutex)
        {
            const std::uint64_t came = m_mutex.m_came.load();
            while (m_mutex.m_passed.load() < came)
                boost::this_thread::yield();
            m_mutex.m_mutex.lock();
        }
        ~Writer() { m_mutex.m_mutex.unlock(); }
        Writer(const Writer&) = delete;
        Writer& operator=(const Writer&) = delete;

    private:
        ReaderFirstMutex& m_mutex;
    };

    /// Readers that wait at this moment.
    std::uint64_t waiting() const
    {
        const std::uint64_t passed = m_passed.load(); // read first: it never exceeds the other
        return m_came.load() - passed;
    }

private:
    boost::mutex m_mutex;
    std::atomic<std::uint64_t> m_came{0};   ///< readers so far
    std::atomic<std::uint64_t> m_passed{0}; ///< those of them that have had the mutex
};

} // namespace Kel
