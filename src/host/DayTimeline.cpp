#include "host/DayTimeline.h"

#include "feed/simulation/TradingHours.h"
#include "platform/utils/exchange_time.h"

#include <algorithm>

namespace host {

namespace {

std::int64_t middleTime(const feed::InstrumentDay& day)
{
    if (!day.orders.empty())
        return day.orders[day.orders.size() / 2].time;
    if (!day.deals.empty())
        return day.deals[day.deals.size() / 2].time;
    if (!day.snapshots.empty())
        return day.snapshots[day.snapshots.size() / 2].time;
    return day.queues.empty() ? 0 : day.queues[day.queues.size() / 2].time;
}

} // namespace

std::int64_t dayStart(const feed::InstrumentDay& day)
{
    return utils::exchangeDayStart(middleTime(day));
}

bool isContinuous(const feed::SnapshotRow& snapshot)
{
    if (snapshot.phase != feed::Phase::Unknown)
        return snapshot.phase == feed::Phase::Continuous;
    const double second = static_cast<double>(utils::timeOfDayMs(snapshot.time)) / 1000;
    return feed::hours::phaseAt(second) == feed::Phase::Continuous;
}

namespace {

/// Keeps times from going back, and leaves out those that are not of the day.
class DayClock
{
public:
    explicit DayClock(const feed::InstrumentDay& day) : m_start(dayStart(day)), m_time(0) {}

    /// The time of an entry: its own if it can be true, else that of the entry before.
    std::int64_t pass(std::int64_t own)
    {
        if (own >= m_start && own < m_start + utils::kMSecPerDay)
            m_time = std::max(m_time, own);
        return std::max(m_time, m_start);
    }

private:
    std::int64_t m_start;
    std::int64_t m_time;
};

} // namespace

std::vector<DayTimeline::Entry> mergeTicks(const feed::InstrumentDay& day)
{
    DayClock clock(day);
    std::vector<DayTimeline::Entry> ticks;
    ticks.reserve(day.orders.size() + day.deals.size());
    std::size_t order = 0;
    std::size_t deal = 0;
    while (order < day.orders.size() || deal < day.deals.size()) {
        const bool takeOrder = deal == day.deals.size() ||
                               (order < day.orders.size() && day.orders[order].seq <= day.deals[deal].seq);
        const std::int64_t time = clock.pass(takeOrder ? day.orders[order].time : day.deals[deal].time);
        if (takeOrder)
            ticks.push_back({time, DayTimeline::Kind::Order, order++});
        else
            ticks.push_back({time, DayTimeline::Kind::Deal, deal++});
    }
    return ticks;
}

namespace {

std::int64_t sequenceOf(const feed::InstrumentDay& day, const DayTimeline::Entry& tick)
{
    return tick.kind == DayTimeline::Kind::Order ? day.orders[tick.index].seq : day.deals[tick.index].seq;
}

/// Rows that a publication contains: by sequence if it tells one, else by time.
template <class Row>
std::size_t rowsBefore(const feed::InstrumentDay& day, const std::vector<DayTimeline::Entry>& ticks,
                       const Row& row)
{
    const auto end = row.seq != 0
                         ? std::upper_bound(ticks.begin(), ticks.end(), row.seq,
                                            [&day](std::int64_t seq, const DayTimeline::Entry& tick) {
                                                return seq < sequenceOf(day, tick);
                                            })
                         : std::upper_bound(ticks.begin(), ticks.end(), row.time,
                                            [](std::int64_t time, const DayTimeline::Entry& tick) {
                                                return time < tick.time;
                                            });
    return static_cast<std::size_t>(end - ticks.begin());
}

} // namespace

DayTimeline::DayTimeline(const feed::InstrumentDay& day) : m_day(day)
{
    const std::vector<Entry> ticks = mergeTicks(day);
    std::vector<std::size_t> rows;
    rows.reserve(day.snapshots.size());
    for (const feed::SnapshotRow& snapshot : day.snapshots)
        rows.push_back(rowsBefore(day, ticks, snapshot));
    merge(ticks, rows);
}

DayTimeline::DayTimeline(const feed::InstrumentDay& day, const std::vector<SnapshotPlace>& places)
    : m_day(day)
{
    std::vector<std::size_t> rows;
    rows.reserve(places.size());
    for (const SnapshotPlace& place : places)
        rows.push_back(place.rows);
    rows.resize(day.snapshots.size(), day.orders.size() + day.deals.size());
    merge(mergeTicks(day), rows);
}

void DayTimeline::merge(const std::vector<Entry>& ticks, const std::vector<std::size_t>& snapshotRows)
{
    m_entries.reserve(ticks.size() + m_day.snapshots.size() + m_day.queues.size());
    std::size_t snapshot = 0;
    std::size_t queue = 0;
    std::size_t queueRows = 0;
    if (!m_day.queues.empty())
        queueRows = rowsBefore(m_day, ticks, m_day.queues[0]);
    const auto publish = [&](std::size_t rows) {
        for (;;) {
            const bool snapshotDue = snapshot < m_day.snapshots.size() && snapshotRows[snapshot] <= rows;
            const bool queueDue = queue < m_day.queues.size() && queueRows <= rows;
            if (!snapshotDue && !queueDue)
                return;
            // Of the two at one place the earlier goes first, the queue if both are of one moment.
            if (queueDue && (!snapshotDue || m_day.queues[queue].time <= m_day.snapshots[snapshot].time)) {
                m_entries.push_back({m_day.queues[queue].time, Kind::Queue, queue});
                if (++queue < m_day.queues.size())
                    queueRows = rowsBefore(m_day, ticks, m_day.queues[queue]);
            } else {
                m_entries.push_back({m_day.snapshots[snapshot].time, Kind::Snapshot, snapshot});
                ++snapshot;
            }
        }
    };
    publish(0);
    for (std::size_t row = 0; row < ticks.size(); ++row) {
        m_entries.push_back(ticks[row]);
        publish(row + 1);
    }
    publish(ticks.size() + 1); // places beyond the last row

    DayClock clock(m_day);
    for (Entry& entry : m_entries)
        entry.time = clock.pass(entry.time);
}

} // namespace host
