#pragma once

#include <boost/thread/condition_variable.hpp>
#include <boost/thread/mutex.hpp>

namespace Kel {

/// Lets jobs that were handed to other threads outlive the object that they work on.
///
/// A job holds the gate by shared pointer and asks `enter` before it touches the object; `close`, called
/// first in the object's destructor, turns all later jobs away and waits for those inside. Any thread may
/// call anything; `close` must not be called from inside a job.
class EngineGate
{
public:
    /// False once the gate is closed: the object is gone, or going.
    bool enter()
    {
        boost::mutex::scoped_lock lock(m_mutex);
        if (m_closed)
            return false;
        ++m_inside;
        return true;
    }

    void leave()
    {
        boost::mutex::scoped_lock lock(m_mutex);
        if (--m_inside == 0)
            m_empty.notify_all();
    }

    void close()
    {
        boost::mutex::scoped_lock lock(m_mutex);
        m_closed = true;
        while (m_inside != 0)
            m_empty.wait(lock);
    }

    /// Enters in the constructor, leaves in the destructor if it got in.
    class Pass
    {
    public:
        explicit Pass(EngineGate& gate) : m_gate(gate), m_entered(gate.enter()) {}
        ~Pass()
        {
            if (m_entered)
                m_gate.leave();
        }
        Pass(const Pass&) = delete;
        Pass& operator=(const Pass&) = delete;
        explicit operator bool() const { return m_entered; }

    private:
        EngineGate& m_gate;
        const bool m_entered;
    };

private:
    boost::mutex m_mutex; ///< guards both fields below
    boost::condition_variable m_empty;
    bool m_closed = false;
    int m_inside = 0;
};

} // namespace Kel
