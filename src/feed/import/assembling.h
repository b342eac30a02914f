#pragma once

#include "feed/csv/ImportReport.h"
#include "feed/import/TickLine.h"

namespace feed {

/// Puts the lines of a Shanghai instrument into rows, ordered by the channel's sequence. A second line with
/// the same sequence, or a second record of an order, is rejected in `report`.
///
/// Shanghai publishes what is left of an order after its first match: the deals come first, then the order's
/// record with the rest, or none if nothing is left. Here
/// - an order's volume is its rest plus what was dealt of it earlier in the sequence; its row stays where its
///   record stood, after those deals;
/// - an order without a record, active in its first deal, is made from its deals: their volume (and what was
///   cancelled of it), the price of the last of them, the worst that it reached, the time of the first.
/// Rows of the feed have `seq` = 2 * sequence + 1; a made order stands just before its first deal, at 2 *
/// sequence.
void assembleShanghai(InstrumentLines& lines, std::int64_t dayStart, InstrumentDay& day,
                      ImportReport& report);

/// Puts the lines of a Shenzhen instrument into rows: `seq` is the channel's sequence.
void assembleShenzhen(InstrumentLines& lines, std::int64_t dayStart, InstrumentDay& day,
                      ImportReport& report);

/// Puts snapshots and queues in order of time.
void assembleSnapshots(InstrumentLines& lines, std::int64_t dayStart, InstrumentDay& day);

} // namespace feed
