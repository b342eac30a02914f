#pragma once

#include "platform/models/CancelLog.h"
#include "platform/models/FilteredIndexes.h"
#include "platform/models/OrderLog.h"
#include "records/SDepthFilterParam.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace Kel {

/// The orders and the cancels that pass a filter. A cancel is judged by side and price of its order; while
/// the order is unknown, by the side that its own numbers prove and its own price. Follows the two logs,
/// which grow at their ends and may be cut. One thread at a time.
class EntrustViews
{
public:
    explicit EntrustViews(const SDepthFilterParam& param) : m_param(param) {}

    const SDepthFilterParam& param() const { return m_param; }
    const FilteredIndexes& orders() const { return m_orders; }
    const FilteredIndexes& cancels() const { return m_cancels; }

    /// Look at the rows of a log up to `end`.
    void lookAtOrders(const OrderLog& orders, int end);
    void lookAtCancels(const OrderLog& orders, const CancelLog& cancels, int end);

    /// Forget all rows of a log from `index` on.
    void truncateOrders(int index) { m_orders.truncate(index); }
    void truncateCancels(int index) { m_cancels.truncate(index); }

    /// Exchanges the lists of cancels.
    void swapCancels(EntrustViews& other) { std::swap(m_cancels, other.m_cancels); }

    /// Judges cancels anew whose orders have become known: indexes of the log, in order. True if the list
    /// is another one then.
    bool judgeCancels(const OrderLog& orders, const CancelLog& cancels, const std::vector<int>& indexes);

    std::size_t heapBytes() const { return m_orders.heapBytes() + m_cancels.heapBytes(); }

private:
    bool keepsCancel(const OrderLog& orders, const CancelLogRow& cancel) const;

    SDepthFilterParam m_param;
    FilteredIndexes m_orders;
    FilteredIndexes m_cancels;
};

} // namespace Kel
