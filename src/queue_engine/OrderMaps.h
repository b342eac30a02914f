#pragma once

#include "queue_engine/OrderNumberMap.h"
#include "records/OrderData.h"

#include <absl/container/btree_map.h>

#include <cstdint>
#include <map>

namespace Kel {

// The two waiting rooms and the cancelled orders: by side or kind, then by order number. The cache of orders
// lives as long as the orders stand and is asked little, so it is the smallest container; the others are
// asked for every deal, so they are the fastest.

using OrderCacheSide = absl::btree_map<std::int64_t, boost::shared_ptr<quoter::OrderData>>;
using OrderCache = std::map<int, OrderCacheSide>;

using DealCacheKind = OrderNumberMap<double>;
using DealCache = std::map<int, DealCacheKind>;

using CancelOrderSet = OrderedNumberSet;

} // namespace Kel
