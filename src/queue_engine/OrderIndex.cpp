#include "queue_engine/OrderIndex.h"

namespace Kel {

void OrderIndex::add(std::int64_t number, OrderQueueData* level)
{
    const auto [it, entered] = m_levels.try_emplace(number, level);
    if (entered || it->second == level)
        return;
    m_more[number].insert(level);
}

void OrderIndex::remove(std::int64_t number, OrderQueueData* level)
{
    const auto it = m_levels.find(number);
    if (it == m_levels.end())
        return;
    // A number of several levels is rare and stays as it is: its levels are woken once too often.
    if (it->second == level && (m_more.empty() || m_more.find(number) == m_more.end()))
        m_levels.erase(it);
}

void OrderIndex::touch(std::int64_t number)
{
    const auto it = m_levels.find(number);
    if (it == m_levels.end())
        return;
    it->second->m_rest.touch(number);
    if (m_more.empty())
        return;
    const auto more = m_more.find(number);
    if (more == m_more.end())
        return;
    for (OrderQueueData* level : more->second)
        level->m_rest.touch(number);
}

bool OrderIndex::contains(std::int64_t number, const OrderQueueData* level) const
{
    const auto it = m_levels.find(number);
    if (it == m_levels.end())
        return false;
    if (it->second == level)
        return true;
    const auto more = m_more.find(number);
    return more != m_more.end() && more->second.contains(const_cast<OrderQueueData*>(level));
}

void OrderIndex::clear()
{
    m_levels.clear();
    m_more.clear();
}

void OrderIndex::swap(OrderIndex& other)
{
    m_levels.swap(other.m_levels);
    m_more.swap(other.m_more);
}

std::size_t OrderIndex::heapBytes() const
{
    return m_levels.capacity() * (sizeof(*m_levels.begin()) + 1) +
           m_more.size() * (sizeof(*m_more.begin()) + 2 * sizeof(void*));
}

} // namespace Kel
