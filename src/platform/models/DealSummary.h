#pragma once

#include "platform/models/ChunkedRows.h"

#include <cstddef>
#include <cstdint>

namespace Kel {

/// Lots and prices of the deals of a stretch, taken together.
struct DealSums
{
    std::int64_t lots = 0;
    int deals = 0;
    double maxPrice = 0; ///< yuan; 0 without deals
    double minPrice = 0; ///< yuan; 0 without deals

    void add(int lotsOfDeal, double price);
    void add(const DealSums& other);
};

/// The deals of a day in blocks that are summed up, so that any stretch of a million deals is known after a
/// look at a few thousand numbers. Follows a list that grows at its end and may be cut. One thread at a time.
class DealSummary
{
public:
    /// Deals of a block.
    static constexpr int kBlock = 256;

    int size() const { return m_size; }

    /// The next deal at the end.
    void append(int lots, double price);

    /// Forgets deals at the end, so that at most `size` are left; gives how many are. A block that is cut is
    /// forgotten whole: its deals have to be appended again.
    int truncate(int size);

    /// The sums of the whole blocks between `first` and `last`, both inside; `uncovered(from, to)` is called
    /// for the deals at the ends that fill no block, and gives their sums.
    template <class Uncovered>
    DealSums sums(int first, int last, Uncovered uncovered) const
    {
        DealSums all;
        if (first > last)
            return all;
        const int firstBlock = (first + kBlock - 1) / kBlock;
        const int endBlock = (last + 1) / kBlock;
        if (firstBlock >= endBlock) {
            all.add(uncovered(first, last));
            return all;
        }
        if (first < firstBlock * kBlock)
            all.add(uncovered(first, firstBlock * kBlock - 1));
        for (int block = firstBlock; block < endBlock && block < m_blocks.size(); ++block)
            all.add(m_blocks[block]);
        if (endBlock * kBlock <= last)
            all.add(uncovered(endBlock * kBlock, last));
        return all;
    }

    std::size_t heapBytes() const { return m_blocks.heapBytes(); }

private:
    int m_size = 0;
    ChunkedRows<DealSums, 1024> m_blocks; ///< the last one may still grow
};

} // namespace Kel
