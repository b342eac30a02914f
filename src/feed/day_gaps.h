#pragma once

#include "feed/DayRows.h"

#include <cstdint>
#include <vector>

namespace feed {

/// A hole in the numbers of a day: records that were made and are not there.
struct DayGap
{
    std::int64_t from = 0;    ///< of the record before it, milliseconds since 1970-01-01 UTC
    std::int64_t to = 0;      ///< of the record after it
    std::int64_t missing = 0; ///< numbers that are not there
    std::int64_t number = 0;  ///< `seq` of the record after it
};

/// The holes of a day, by the sequence that orders and deals share, in its order. Only a day with the channel
/// (nearly) for itself can tell them: an instrument that shares a channel has numbers of others between its
/// own, and its jumps say nothing. A day's numbers are dense, and their jumps are holes, if
///
/// * there are at least `kLeastNumbered` records,
/// * the usual step from one number to the next is one, or two where an importer has left room for the orders
///   that it restores, and
/// * at most one step in `kStepsPerGap` is longer than that.
///
/// Of any other day the answer is empty. What is missing before the first record or after the last one cannot
/// be told. Times never go back within the result, whatever the rows say.
std::vector<DayGap> findGaps(const InstrumentDay& day);

constexpr std::size_t kLeastNumbered = 200;
constexpr std::size_t kStepsPerGap = 200;

} // namespace feed
