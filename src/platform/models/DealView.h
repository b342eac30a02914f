#pragma once

#include "platform/models/DealLog.h"
#include "platform/models/FilteredIndexes.h"
#include "platform/models/SecondIndex.h"
#include "records/DepthTransData.h"
#include "records/SDepthFilterParam.h"

#include <cstddef>
#include <cstdint>
#include <utility>

namespace Kel {

/// The deals that pass a filter, with the runs that they form: neighbouring rows of the same order. Follows
/// a deal log that grows at its end and may be cut. One thread at a time.
class DealView
{
public:
    explicit DealView(const SDepthFilterParam& param) : m_param(param) {}

    const SDepthFilterParam& param() const { return m_param; }

    /// Rows of the filtered list.
    int size() const { return m_indexes.size(); }

    /// Deals of the log that were looked at.
    int looked() const { return m_indexes.looked(); }

    /// Looks at the deals of the log up to `end`.
    void look(const DealLog& deals, int end);

    /// Forgets all deals of the log from `index` on.
    void truncate(int index);

    /// Fills a row of the filtered list as it is handed out.
    void fill(const DealLog& deals, int row, DepthTransData& into) const;

    /// Time tag and deal number of a row of the filtered list.
    std::pair<int, int> keyOf(const DealLog& deals, int row) const
    {
        const DealRow& deal = deals[m_indexes.at(row)];
        return {deal.time, deal.dealNo};
    }

    /// The seconds of the filtered list.
    const SecondIndex& seconds() const { return m_seconds; }

    std::size_t heapBytes() const
    {
        return m_indexes.heapBytes() + m_seconds.heapBytes() + m_runs.heapBytes();
    }

private:
    struct Runs
    {
        std::int16_t buy = 0;
        std::int16_t sell = 0;
    };

    Runs runsAfter(const DealLog& deals, const DealRow& deal) const;

    SDepthFilterParam m_param;
    FilteredIndexes m_indexes;
    SecondIndex m_seconds;
    ChunkedRows<Runs> m_runs; ///< of each row of the filtered list
};

} // namespace Kel
