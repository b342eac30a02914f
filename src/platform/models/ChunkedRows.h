#pragma once

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace Kel {

/// A list that grows and shrinks at its end, in chunks: no row is moved when it grows, and an append costs
/// the same at any length. Rows are plain values. One thread at a time.
template <class Row, int kRowsPerChunk = 4096>
class ChunkedRows
{
public:
    int size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }

    Row& operator[](int index) { return m_chunks[index / kRowsPerChunk][index % kRowsPerChunk]; }
    const Row& operator[](int index) const { return m_chunks[index / kRowsPerChunk][index % kRowsPerChunk]; }
    Row& last() { return (*this)[m_size - 1]; }
    const Row& last() const { return (*this)[m_size - 1]; }

    void append(const Row& row)
    {
        if (m_size == static_cast<int>(m_chunks.size()) * kRowsPerChunk)
            m_chunks.push_back(std::unique_ptr<Row[]>(new Row[kRowsPerChunk]));
        ++m_size;
        last() = row;
    }

    /// Takes rows away from the end; of the chunks that are free then, one is kept for the next rows.
    void truncate(int size)
    {
        if (size >= m_size)
            return;
        m_size = size < 0 ? 0 : size;
        const std::size_t needed = static_cast<std::size_t>(m_size + kRowsPerChunk - 1) / kRowsPerChunk;
        if (m_chunks.size() > needed + 1)
            m_chunks.resize(needed + 1);
    }

    std::size_t heapBytes() const
    {
        return m_chunks.size() * kRowsPerChunk * sizeof(Row) + m_chunks.capacity() * sizeof(m_chunks[0]);
    }

private:
    std::vector<std::unique_ptr<Row[]>> m_chunks;
    int m_size = 0;
};

/// The first of `count` rows, which are in order of time, that is not before `time`; `count` if there is
/// none. `timeOf(row)` tells a row's time tag.
template <class TimeOf>
int firstNotBefore(int count, int time, TimeOf timeOf)
{
    int first = 0;
    while (count > 0) {
        const int half = count / 2;
        if (timeOf(first + half) < time) {
            first += half + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    return first;
}

/// Rows of one time tag: the first and the last of them, (-1, -1) for none.
template <class TimeOf>
std::pair<int, int> rowsOfTime(int count, int time, TimeOf timeOf)
{
    const int first = firstNotBefore(count, time, timeOf);
    if (first == count || timeOf(first) != time)
        return {-1, -1};
    int step = 1;
    int last = first;
    while (last + step < count && timeOf(last + step) == time) {
        last += step;
        step *= 2;
    }
    for (; step > 0; step /= 2) {
        if (last + step < count && timeOf(last + step) == time)
            last += step;
    }
    return {first, last};
}

/// The place of a row among those of its second, counted from 1; 0 for a row that is not there. Looks back
/// in steps that double, since a second has few rows among the many of a day.
template <class TimeOf>
int placeInSecond(int row, int count, TimeOf timeOf)
{
    if (row < 0 || row >= count)
        return 0;
    const int time = timeOf(row);
    int step = 1;
    int first = row;
    while (first - step >= 0 && timeOf(first - step) == time) {
        first -= step;
        step *= 2;
    }
    for (; step > 0; step /= 2) {
        if (first - step >= 0 && timeOf(first - step) == time)
            first -= step;
    }
    return row - first + 1;
}

} // namespace Kel
