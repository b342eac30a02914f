#pragma once

#include <cstdint>
#include <utility>

namespace Kel {

/// What a list has become: numbers that change with it. Under the lock of its model.
struct ListMarks
{
    std::uint64_t list = 0; ///< another one when the list is another one: cleared, filtered, delivered anew
    std::uint64_t late = 0; ///< another one when rows came, or went, elsewhere than at the end
};

/// Where a walk over a filtered list stands that goes on, piece by piece, while the list grows: no row is
/// taken twice and none is left out, but those that come late and belong before where it stands.
class RowWalk
{
public:
    /// Finds the next row of a list of `size` rows; `keyOf(row)` gives time tag and number of a row, by which
    /// the list is in order. Rows with equal keys stand as they came. False when the list is another one than
    /// that which the walk began with.
    template <class KeyOf>
    bool resume(const ListMarks& marks, int size, KeyOf keyOf)
    {
        if (!m_began) {
            m_began = true;
            m_marks = marks;
        }
        if (m_marks.list != marks.list)
            return false;
        if (m_marks.late != marks.late && m_next > 0) {
            m_next = firstNotBeforeKey(size, keyOf);
            for (int passed = 0; passed < m_equal && m_next < size && keyOf(m_next) == m_key; ++passed)
                ++m_next;
        }
        m_marks.late = marks.late;
        return true;
    }

    /// The row to take next; there may be none yet.
    int next() const { return m_next; }

    /// The row with this key was taken.
    void pass(const std::pair<int, int>& key)
    {
        m_equal = m_next > 0 && key == m_key ? m_equal + 1 : 1;
        m_key = key;
        ++m_next;
    }

private:
    template <class KeyOf>
    int firstNotBeforeKey(int size, KeyOf keyOf) const
    {
        int first = 0;
        for (int count = size; count > 0;) {
            const int half = count / 2;
            const bool before = keyOf(first + half) < m_key;
            first = before ? first + half + 1 : first;
            count = before ? count - half - 1 : half;
        }
        return first;
    }

    bool m_began = false;
    ListMarks m_marks;
    int m_next = 0;
    std::pair<int, int> m_key{0, 0}; ///< of the row that was taken last
    int m_equal = 0;                 ///< rows of that key that were taken
};

} // namespace Kel
