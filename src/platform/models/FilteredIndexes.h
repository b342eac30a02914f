#pragma once

#include "platform/models/ChunkedRows.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace Kel {

/// Which rows of a whole list are kept, in their order. While all of them are, nothing is stored. Rows are
/// looked at in order: each is offered once, and rows at the end can be taken back. One thread at a time.
class FilteredIndexes
{
public:
    /// Rows that are kept.
    int size() const { return m_identity ? m_looked : m_indexes.size(); }

    /// Rows of the whole list that were offered so far.
    int looked() const { return m_looked; }

    /// The index in the whole list of a kept row.
    int at(int row) const { return m_identity ? row : m_indexes[row]; }

    /// Offers the next row of the whole list.
    void offer(bool keep);

    /// Takes back all rows of the whole list from `whole` on.
    void truncate(int whole);

    /// Changes what was said of rows that were offered: pairs of index and verdict, in order of the indexes.
    /// True if a row is kept now that was not, or the other way about.
    bool judgeAgain(const std::vector<std::pair<int, bool>>& verdicts);

    /// Whether the row of the whole list with this index is kept.
    bool keeps(int index) const;

    /// The first kept row whose index is not below `index`; `size()` for none.
    int rowNotBefore(int index) const;

    std::size_t heapBytes() const { return m_indexes.heapBytes(); }

private:
    void storeAll();

    bool m_identity = true;
    int m_looked = 0;
    ChunkedRows<std::int32_t> m_indexes; ///< empty while all rows are kept
};

} // namespace Kel
