#include "platform/models/SecondIndex.h"

namespace Kel {

void SecondIndex::append(std::int32_t time)
{
    if (m_starts.isEmpty() || m_starts.last().time != time)
        m_starts.append({time, m_size});
    ++m_size;
}

void SecondIndex::truncate(int size)
{
    if (size >= m_size)
        return;
    m_size = size < 0 ? 0 : size;
    int seconds = m_starts.size();
    while (seconds > 0 && m_starts[seconds - 1].row >= m_size)
        --seconds;
    m_starts.truncate(seconds);
}

int SecondIndex::secondNotBefore(int time) const
{
    return Kel::firstNotBefore(m_starts.size(), time, [this](int second) { return m_starts[second].time; });
}

int SecondIndex::firstNotBefore(int time) const
{
    const int second = secondNotBefore(time);
    return second < m_starts.size() ? m_starts[second].row : m_size;
}

std::pair<int, int> SecondIndex::rowsOfTime(int time) const
{
    const int second = secondNotBefore(time);
    if (second == m_starts.size() || m_starts[second].time != time)
        return {-1, -1};
    const bool isLast = second + 1 == m_starts.size();
    return {m_starts[second].row, (isLast ? m_size : m_starts[second + 1].row) - 1};
}

int SecondIndex::placeInSecond(int row) const
{
    if (row < 0 || row >= m_size)
        return 0;
    // The last second that begins at or before the row.
    const int next =
        Kel::firstNotBefore(m_starts.size(), row + 1, [this](int second) { return m_starts[second].row; });
    return row - m_starts[next - 1].row + 1;
}

} // namespace Kel
