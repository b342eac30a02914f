#pragma once

#include <boost/shared_ptr.hpp>

namespace utils {

/// A shared pointer that threads may load and replace at the same time. Each operation is one atomic step;
/// what is pointed to is not guarded.
template <class T>
class AtomicSharedPtr
{
public:
    AtomicSharedPtr() = default;
    AtomicSharedPtr(const AtomicSharedPtr&) = delete;
    AtomicSharedPtr& operator=(const AtomicSharedPtr&) = delete;

    boost::shared_ptr<T> load() const { return boost::atomic_load(&m_pointer); }
    void store(boost::shared_ptr<T> pointer) { boost::atomic_store(&m_pointer, pointer); }
    void reset() { store(boost::shared_ptr<T>()); }

private:
    boost::shared_ptr<T> m_pointer;
};

} // namespace utils
