// Which rows a snapshot contains that does not tell its place in the sequence.

#include "host/DayTimeline.h"
#include "host/ReferenceBook.h"
#include "platform/services/instrument_functions.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace host {
namespace {

constexpr std::int64_t kTimeBefore = 10000; // ms that a snapshot may be stamped after the rows that it shows
constexpr std::int64_t kTimeAfter = 5000;   // ms that it may be stamped before them

/// What the plain book shows after each number of rows.
struct Trail
{
    std::vector<std::uint64_t> views;
    std::vector<std::int64_t> traded; ///< shares, never falling
    std::vector<std::int64_t> times;  ///< of the last row, never falling
};

Trail trailOf(const feed::InstrumentDay& day, const std::vector<DayTimeline::Entry>& ticks, double tick,
              bool withCounts)
{
    Trail trail;
    ReferenceBook book(tick);
    const auto note = [&](std::int64_t time) {
        trail.views.push_back(book.view(withCounts));
        trail.traded.push_back(book.tradedShares());
        trail.times.push_back(time);
    };
    note(ticks.empty() ? 0 : ticks.front().time);
    for (const DayTimeline::Entry& entry : ticks) {
        if (entry.kind == DayTimeline::Kind::Order)
            book.apply(day.orders[entry.index]);
        else
            book.apply(day.deals[entry.index]);
        note(entry.time);
    }
    return trail;
}

class Placer
{
public:
    Placer(const feed::InstrumentDay& day, double tick) : m_tick(tick), m_ticks(mergeTicks(day))
    {
        for (const feed::SnapshotRow& row : day.snapshots) {
            m_withCounts = m_withCounts || row.bidCount[0] != 0 || row.askCount[0] != 0;
            m_withTotals = m_withTotals || row.totalVolume != 0;
        }
        m_trail = trailOf(day, m_ticks, tick, m_withCounts);
    }

    /// The first place from `from` on that shows the snapshot; false if there is none.
    bool find(const feed::SnapshotRow& row, std::size_t from, std::size_t& place) const
    {
        const std::uint64_t view = ReferenceBook::viewOf(row, m_tick, m_withCounts);
        if (m_withTotals) {
            const auto range =
                std::equal_range(m_trail.traded.begin(), m_trail.traded.end(), row.totalVolume);
            if (findIn(index(m_trail.traded, range.first), index(m_trail.traded, range.second), from, view,
                       place))
                return true;
        }
        // The trail's times are of one day; a snapshot's may be any number.
        const std::int64_t time =
            std::clamp(row.time, m_trail.times.front() - kTimeBefore, m_trail.times.back() + kTimeBefore);
        const auto first = std::lower_bound(m_trail.times.begin(), m_trail.times.end(), time - kTimeBefore);
        const auto last = std::upper_bound(m_trail.times.begin(), m_trail.times.end(), time + kTimeAfter);
        return findIn(index(m_trail.times, first), index(m_trail.times, last), from, view, place);
    }

    /// The best place for a snapshot that shows no place of the feed, or that is not searched for.
    std::size_t guess(const feed::SnapshotRow& row, bool byTotals) const
    {
        const auto after = std::upper_bound(m_trail.times.begin() + 1, m_trail.times.end(), row.time);
        std::size_t place = index(m_trail.times, after) - 1;
        if (byTotals && m_withTotals) {
            const auto range =
                std::equal_range(m_trail.traded.begin(), m_trail.traded.end(), row.totalVolume);
            if (range.first != range.second)
                place = std::clamp(place, index(m_trail.traded, range.first),
                                   index(m_trail.traded, range.second) - 1);
        }
        return place;
    }

    std::size_t rowsUpTo(const feed::InstrumentDay& day, std::int64_t seq) const
    {
        std::size_t low = 0;
        std::size_t high = m_ticks.size();
        while (low < high) {
            const std::size_t middle = low + (high - low) / 2;
            const DayTimeline::Entry& tick = m_ticks[middle];
            const std::int64_t own = tick.kind == DayTimeline::Kind::Order ? day.orders[tick.index].seq
                                                                           : day.deals[tick.index].seq;
            if (own <= seq)
                low = middle + 1;
            else
                high = middle;
        }
        return low;
    }

private:
    template <class Values>
    static std::size_t index(const Values& values, typename Values::const_iterator it)
    {
        return static_cast<std::size_t>(it - values.begin());
    }

    bool findIn(std::size_t first, std::size_t last, std::size_t from, std::uint64_t view,
                std::size_t& place) const
    {
        for (std::size_t at = std::max(first, from); at < last; ++at) {
            if (m_trail.views[at] == view) {
                place = at;
                return true;
            }
        }
        return false;
    }

    double m_tick;
    std::vector<DayTimeline::Entry> m_ticks;
    bool m_withCounts = false;
    bool m_withTotals = false;
    Trail m_trail;
};

} // namespace

std::vector<SnapshotPlace> placeSnapshots(const feed::InstrumentDay& day)
{
    const double tick =
        Kel::getDetailPriceTick(boost::make_shared<nelservice::CInstrumentDetail>(day.detail));
    const Placer placer(day, tick);
    std::vector<SnapshotPlace> places(day.snapshots.size());

    std::size_t from = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const feed::SnapshotRow& row = day.snapshots[i];
        if (row.seq != 0)
            places[i] = {placer.rowsUpTo(day, row.seq), Placing::Sequence};
        else if (isContinuous(row) && placer.find(row, from, places[i].rows))
            places[i].placing = Placing::View;
        else
            continue;
        places[i].rows = std::max(places[i].rows, from);
        from = places[i].rows;
    }

    // The others go between those that were found.
    std::size_t upper = day.orders.size() + day.deals.size();
    for (std::size_t i = places.size(); i-- > 0;) {
        if (places[i].placing == Placing::Time)
            places[i].rows = std::min(placer.guess(day.snapshots[i], isContinuous(day.snapshots[i])), upper);
        upper = places[i].rows;
    }
    std::size_t lower = 0;
    for (SnapshotPlace& place : places) {
        place.rows = std::max(place.rows, lower);
        lower = place.rows;
    }
    return places;
}

} // namespace host
