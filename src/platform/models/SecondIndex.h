#pragma once

#include "platform/models/ChunkedRows.h"

#include <cstddef>
#include <cstdint>
#include <utility>

namespace Kel {

/// Where each second begins in a list of rows in order of time: a look-up walks the seconds of a day, which
/// are few and lie close together, not its rows. One thread at a time.
class SecondIndex
{
public:
    int size() const { return m_size; }

    /// The next row at the end has this time tag, which is not below that of the row before.
    void append(std::int32_t time);

    /// Forgets all rows from `size` on.
    void truncate(int size);

    /// The first row not before a time tag, `size()` for none.
    int firstNotBefore(int time) const;

    /// First and last row of a time tag, (-1, -1) for none.
    std::pair<int, int> rowsOfTime(int time) const;

    /// The number, from 1, of a row within its second; 0 outside.
    int placeInSecond(int row) const;

    std::size_t heapBytes() const { return m_starts.heapBytes(); }

private:
    struct Start
    {
        std::int32_t time = 0;
        std::int32_t row = 0;
    };

    int secondNotBefore(int time) const;

    int m_size = 0;
    ChunkedRows<Start> m_starts;
};

} // namespace Kel
