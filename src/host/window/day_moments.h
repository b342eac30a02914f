#pragma once

#include "feed/DayRows.h"
#include "feed/replay/ReplayClock.h"

#include <cstdint>
#include <vector>

namespace host {

/// Stretches of a day in which nothing trades, the lunch break first among them: a replay jumps over them. A
/// day without orders and deals has none.
std::vector<feed::ReplayClock::Break> quietBreaks(const feed::InstrumentDay& day);

/// What all of the lists have in common; each is ordered and its breaks do not touch. Empty for no list.
std::vector<feed::ReplayClock::Break>
commonBreaks(const std::vector<std::vector<feed::ReplayClock::Break>>& lists);

/// Begin and end of what a replay can show, ms since 1970-01-01 UTC.
struct DayRange
{
    std::int64_t begin = 0;
    std::int64_t end = 0;
};

/// A stretch of a day, ms since 1970-01-01 UTC.
struct DayStretch
{
    std::int64_t begin = 0;
    std::int64_t end = 0;
};

/// First and last moment of the rows, whole seconds that contain both, within the day that most rows are of.
/// Empty (both 0) for a day without rows.
DayRange dayRange(const feed::InstrumentDay& day);

/// The moment of a time of day (ms since midnight at the exchange), cut to the range.
std::int64_t momentIn(const DayRange& range, std::int64_t timeOfDayMs);

} // namespace host
