#pragma once

#include "records/DepthExport.h"

namespace Kel {

/// The two sides of a level and the states of an order, in one enumeration. The values are fixed: the feed's
/// side numbers are the first two.
enum EOrderQueueType : int
{
    OQT_BUY = 1,        ///< a level of the buy side
    OQT_SELL = 2,       ///< a level of the sell side
    OQT_CANCELED = 3,   ///< order cancelled
    OQT_NORMAL = 4,     ///< live order, ordinary size
    OQT_UNKNOWN = 5,    ///< listed, size class not yet given
    OQT_BIG = 6,        ///< live order of 1000 lots and more
    OQT_SUPER = 7,      ///< live order of 5000 lots and more
    OQT_DEALT = 8,      ///< order fully dealt
    OQT_PART_DEALT = 9, ///< order part dealt, its rest still stands in the queue
};

/// Size class of a live order: lots truncated to int, from 1000 big, from 5000 super. The limits are the same
/// for all instruments. Lots that do not fit an int are clamped first.
DEPTH_EXPORT EOrderQueueType classifyVol(double lots);

/// True for the three states in which a pass looks an order up again. A part-dealt order is one of them
/// although it still stands in the queue.
inline bool isFinishedOrder(const EOrderQueueType& type)
{
    return type == OQT_CANCELED || type == OQT_DEALT || type == OQT_PART_DEALT;
}

} // namespace Kel
