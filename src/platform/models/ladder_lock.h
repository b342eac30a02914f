#pragma once

#include <boost/thread/mutex.hpp>
#include <boost/thread/thread.hpp>

#include <atomic>

namespace Kel {

/// A mutex whose readers come first. The feed takes it again and again while it loads a day; a mutex is not
/// fair, so the feed lets those who wait for a short look pass before it takes it anew. Any thread.
class ReaderFirstMutex
{
public:
    /// Held for a short look.
    class Reader
    {
    public:
        explicit Reader(ReaderFirstMutex& mutex) : m_mutex(mutex)
        {
            m_mutex.m_waiting.fetch_add(1);
            m_mutex.m_mutex.lock();
            m_mutex.m_waiting.fetch_sub(1);
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
            while (m_mutex.m_waiting.load() > 0)
                boost::this_thread::yield();
            m_mutex.m_mutex.lock();
        }
        ~Writer() { m_mutex.m_mutex.unlock(); }
        Writer(const Writer&) = delete;
        Writer& operator=(const Writer&) = delete;

    private:
        ReaderFirstMutex& m_mutex;
    };

private:
    boost::mutex m_mutex;
    std::atomic<int> m_waiting{0};
};

} // namespace Kel
