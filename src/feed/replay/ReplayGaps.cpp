#include "feed/replay/ReplayGaps.h"

#include "feed/day_gaps.h"

#include <algorithm>

namespace feed {

namespace {

/// The first row with this number or a later one.
template <class Rows>
std::size_t firstFrom(const Rows& rows, std::int64_t number)
{
    const auto before = [](const auto& row, std::int64_t wanted) { return row.seq < wanted; };
    return static_cast<std::size_t>(std::lower_bound(rows.begin(), rows.end(), number, before) -
                                    rows.begin());
}

void addSkip(std::vector<ReplayGaps::Skip>& skips, std::size_t row)
{
    if (skips.empty() || skips.back().row != row)
        skips.push_back({row, 0});
    ++skips.back().numbers;
}

} // namespace

ReplayGaps::ReplayGaps(const InstrumentDay& day)
{
    for (const DayGap& gap : findGaps(day))
        m_places.push_back({firstFrom(day.orders, gap.number), firstFrom(day.deals, gap.number)});
}

int ReplayGaps::live(std::size_t orders, std::size_t deals)
{
    int count = 0;
    while (m_told < m_places.size() && (m_places[m_told].order < orders || m_places[m_told].deal < deals)) {
        ++m_told;
        ++count;
    }
    return count;
}

ReplayGaps::Load ReplayGaps::load(std::size_t orders, std::size_t deals, std::size_t smallBatch)
{
    m_told = 0;
    live(orders, deals);
    Load load;
    for (std::size_t i = 0; i < m_told; ++i) {
        const Place& place = m_places[i];
        const std::size_t before = load.orders.empty() ? 0 : load.orders.back().row;
        const bool sameOrders = before > 0 && place.order == before;
        const bool largeBatches = (before == 0 || place.order - before > smallBatch) &&
                                  orders > place.order && orders - place.order > smallBatch;
        if (place.deal > 0 && place.deal < deals)
            addSkip(load.deals, place.deal);
        else if (place.order > 0 && (sameOrders || largeBatches))
            addSkip(load.orders, place.order);
        else
            ++load.atEnd;
    }
    return load;
}

} // namespace feed
