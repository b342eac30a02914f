#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace feed {

/// An ordered set of small whole numbers: a bit for each, and above them words that tell which words below
/// are not empty. Finding the neighbour of a number takes a few steps whatever the distance. One thread.
class TickSet
{
public:
    /// A set for the numbers 0 .. size - 1.
    explicit TickSet(std::size_t size);

    void insert(std::size_t number);
    void remove(std::size_t number);
    bool contains(std::size_t number) const;

    /// The smallest member >= `from`, -1 if there is none.
    int atOrAbove(int from) const;

    /// The greatest member <= `from`, -1 if there is none.
    int atOrBelow(int from) const;

private:
    std::vector<std::vector<std::uint64_t>> m_layers; ///< the numbers' own bits first, the coarsest last
};

} // namespace feed
