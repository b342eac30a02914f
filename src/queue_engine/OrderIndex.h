#pragma once

#include "records/OrderQueueData.h"

#include <absl/container/flat_hash_map.h>
#include <absl/container/flat_hash_set.h>

#include <cstddef>
#include <cstdint>
#include <unordered_map>

namespace Kel {

/// Tells which levels list an order number, so that a deal or a cancellation wakes them and no others.
///
/// An entry may outlive the order in the list: waking a level too often costs a walk, forgetting one costs
/// the truth. Published orders have number 0 and are in no index. Guarded by the engine's data mutex; the
/// levels must outlive their entries, so the index is cleared with the queues.
class OrderIndex
{
public:
    void add(std::int64_t number, OrderQueueData* level);

    /// Forgets that `level` lists the number.
    void remove(std::int64_t number, OrderQueueData* level);

    /// Tells every level that lists the number that the caches have news of it.
    void touch(std::int64_t number);

    bool contains(std::int64_t number, const OrderQueueData* level) const;
    void clear();
    void swap(OrderIndex& other);
    std::size_t heapBytes() const;

private:
    absl::flat_hash_map<std::int64_t, OrderQueueData*> m_levels;
    /// Further levels of a number that was listed at more than one price.
    std::unordered_map<std::int64_t, absl::flat_hash_set<OrderQueueData*>> m_more;
};

} // namespace Kel
