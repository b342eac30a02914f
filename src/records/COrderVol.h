#pragma once

#include "records/DepthExport.h"
#include "records/EOrderQueueType.h"

#include <QVector>

#include <cstdint>

namespace Kel {

/// One order in a level.
struct DEPTH_EXPORT COrderVol
{
    std::int64_t m_entrustNo = 0;         ///< order number; 0 for an order known only from a published queue
    double m_vol = 0;                     ///< lots still in the queue
    EOrderQueueType m_type = OQT_UNKNOWN; ///< state of the order, 3 to 9
    double m_partDealVol = 0;             ///< lots dealt, for `OQT_PART_DEALT`
};

/// The orders of a level in order of arrival, front of the queue first. Implicitly shared: a copy is cheap
/// and stays as it is while the original changes. Contiguous, so that a pass over a long queue reads memory
/// in order.
using OrderList = QVector<COrderVol>;

} // namespace Kel

Q_DECLARE_TYPEINFO(Kel::COrderVol, Q_MOVABLE_TYPE);
