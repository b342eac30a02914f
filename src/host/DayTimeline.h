#pragma once

#include "feed/DayRows.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace host {

/// How the place of a snapshot among the orders and deals was found.
enum class Placing
{
    Sequence, ///< it tells the last sequence number that it contains
    View,     ///< the first place at which the plain book of the rows shows its ten levels
    Time,     ///< by its time alone
};

/// Where a snapshot belongs: after so many of the day's orders and deals.
struct SnapshotPlace
{
    std::size_t rows = 0;
    Placing placing = Placing::Time;
};

/// Midnight, exchange time, of the day that the rows are of (ms since 1970-01-01 UTC): that of a row in the
/// middle, since a wrong time is rarely the one there. That of 1970 for a day without rows.
std::int64_t dayStart(const feed::InstrumentDay& day);

/// Whether a snapshot was taken in continuous trading: by its phase, or by its time where the phase is not
/// known.
bool isContinuous(const feed::SnapshotRow& snapshot);

/// A day in the order in which it happened. Orders and deals keep the order of their sequence; snapshots and
/// queues stand after the last row that they contain, as their sequence number tells, otherwise by time.
class DayTimeline
{
public:
    enum class Kind
    {
        Order,
        Deal,
        Snapshot,
        Queue,
    };

    struct Entry
    {
        std::int64_t time = 0; ///< ms since 1970-01-01 UTC; never less than that of the entry before
        Kind kind = Kind::Order;
        std::size_t index = 0; ///< into the day's rows of that kind
    };

    /// The day must stay as it is while the timeline is used.
    explicit DayTimeline(const feed::InstrumentDay& day);

    /// The same with the snapshots at given places, one for each; see `placeSnapshots`.
    DayTimeline(const feed::InstrumentDay& day, const std::vector<SnapshotPlace>& places);

    const std::vector<Entry>& entries() const { return m_entries; }
    const feed::InstrumentDay& day() const { return m_day; }

private:
    void merge(const std::vector<Entry>& ticks, const std::vector<std::size_t>& snapshotRows);

    const feed::InstrumentDay& m_day;
    std::vector<Entry> m_entries;
};

/// Orders and deals merged by sequence, each with a time that never goes back. A time that is not of the day
/// of most of the rows is taken as that of the row before.
std::vector<DayTimeline::Entry> mergeTicks(const feed::InstrumentDay& day);

/// The place of each snapshot. One of continuous trading without a sequence number is placed where the plain
/// book of the rows shows its ten levels: the first such place that fits the volume traded so far (the time,
/// where snapshots carry no totals) and is not before the snapshot ahead of it. All others, and those that
/// fit nowhere, are placed by time between their neighbours.
std::vector<SnapshotPlace> placeSnapshots(const feed::InstrumentDay& day);

} // namespace host
