#pragma once

#include "queue_engine/OrderNumberMap.h"
#include "records/OrderData.h"

#include <map>

namespace Kel {

// The two waiting rooms and the cancelled orders: by side or kind, then by order number.

using OrderCacheSide = OrderNumberMap<boost::shared_ptr<quoter::OrderData>>;
using OrderCache = std::map<int, OrderCacheSide>;

using DealCacheKind = OrderNumberMap<double>;
using DealCache = std::map<int, DealCacheKind>;

using CancelOrderSet = OrderedNumberSet;

} // namespace Kel
