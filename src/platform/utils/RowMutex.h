#pragma once

#include <QMutex>

#ifdef DEPTH_THREAD_SANITIZER
#include <sanitizer/tsan_interface.h>
#endif

namespace utils {

/// A `QMutex` (not recursive) that can be used with `std::lock_guard` and that the thread sanitizer sees,
/// although Qt itself is not instrumented. Any thread may lock; the thread that locked unlocks.
class RowMutex
{
public:
    RowMutex()
    {
#ifdef DEPTH_THREAD_SANITIZER
        __tsan_mutex_create(this, 0);
#endif
    }
    ~RowMutex()
    {
#ifdef DEPTH_THREAD_SANITIZER
        __tsan_mutex_destroy(this, 0);
#endif
    }
    RowMutex(const RowMutex&) = delete;
    RowMutex& operator=(const RowMutex&) = delete;

    void lock()
    {
#ifdef DEPTH_THREAD_SANITIZER
        __tsan_mutex_pre_lock(this, 0);
#endif
        m_mutex.lock();
#ifdef DEPTH_THREAD_SANITIZER
        __tsan_mutex_post_lock(this, 0, 0);
#endif
    }

    /// False, without waiting, if another thread holds it.
    bool try_lock()
    {
#ifdef DEPTH_THREAD_SANITIZER
        __tsan_mutex_pre_lock(this, __tsan_mutex_try_lock);
#endif
        const bool locked = m_mutex.tryLock();
#ifdef DEPTH_THREAD_SANITIZER
        __tsan_mutex_post_lock(this, __tsan_mutex_try_lock | (locked ? 0 : __tsan_mutex_try_lock_failed), 0);
#endif
        return locked;
    }

    void unlock()
    {
#ifdef DEPTH_THREAD_SANITIZER
        __tsan_mutex_pre_unlock(this, 0);
#endif
        m_mutex.unlock();
#ifdef DEPTH_THREAD_SANITIZER
        __tsan_mutex_post_unlock(this, 0);
#endif
    }

private:
    QMutex m_mutex;
};

} // namespace utils
