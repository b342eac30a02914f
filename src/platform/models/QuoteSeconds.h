#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Kel {

/// The seconds at which depth snapshots of a day came, each once, in order. One thread at a time.
class QuoteSeconds
{
public:
    /// Enters seconds, in any order, each wherever it belongs; `seconds` is used up. False if all were known.
    bool add(std::vector<std::int32_t>& seconds);

    void clear() { m_seconds.clear(); }
    bool isEmpty() const { return m_seconds.empty(); }

    /// Where the interval that holds `second` begins and ends: it lies after `begin` and not after `end`.
    struct Interval
    {
        std::int64_t begin = 0; ///< second of the snapshot before, below every second if there is none
        std::int64_t end = 0;   ///< second of the closing snapshot, above every second if it is still open
    };
    Interval around(std::int32_t second) const;

    std::size_t heapBytes() const { return m_seconds.capacity() * sizeof(std::int32_t); }

private:
    std::vector<std::int32_t> m_seconds;
};

} // namespace Kel
