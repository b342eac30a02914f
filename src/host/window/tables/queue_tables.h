#pragma once

#include "tick/tick_table.h"

#include <QString>

namespace Kel {
class CDepthModelOrderQueue;
}

/// What the order queue shows, as tables. GUI thread.
namespace host {

/// A row for each level that has a price, from the farthest sell level down to the farthest buy level, as
/// far as the first `levels` a side.
Kel::TickTable queueLevelTable(const Kel::CDepthModelOrderQueue& queue, int levels);

/// A row for each order of these levels, in the same order of levels, the front of each queue first. Orders
/// that have ended since the last calculation have no place in the queue; volume of unknown orders is a row
/// without a number.
Kel::TickTable queueOrderTable(const Kel::CDepthModelOrderQueue& queue, int levels);

/// For the clipboard: the rows of the levels, each followed by the lots of its orders, one a cell.
QString queueText(const Kel::CDepthModelOrderQueue& queue, int levels);

} // namespace host
