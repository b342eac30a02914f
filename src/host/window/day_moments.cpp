#include "host/window/day_moments.h"

#include "host/DayTimeline.h"
#include "platform/utils/exchange_time.h"

#include <algorithm>
#include <limits>

namespace host {

namespace {

constexpr std::int64_t kSmallestBreak = 60000; // ms of feed time in which nothing happens

struct Extent
{
    std::int64_t begin = std::numeric_limits<std::int64_t>::max();
    std::int64_t end = std::numeric_limits<std::int64_t>::min();

    template <class Rows>
    void take(const Rows& rows, std::int64_t from, std::int64_t to)
    {
        for (const auto& row : rows) {
            if (row.time < from || row.time >= to)
                continue;
            begin = std::min(begin, row.time);
            end = std::max(end, row.time);
        }
    }
};

using Breaks = std::vector<feed::ReplayClock::Break>;

/// The stretches that are in both lists.
Breaks common(const Breaks& left, const Breaks& right)
{
    Breaks both;
    for (auto l = left.begin(), r = right.begin(); l != left.end() && r != right.end();) {
        const std::int64_t begin = std::max(l->begin, r->begin);
        const std::int64_t end = std::min(l->end, r->end);
        if (begin < end)
            both.push_back({begin, end});
        if (l->end < r->end)
            ++l;
        else
            ++r;
    }
    return both;
}

} // namespace

std::vector<feed::ReplayClock::Break> commonBreaks(const std::vector<Breaks>& lists)
{
    if (lists.empty())
        return {};
    Breaks result = lists.front();
    for (std::size_t i = 1; i < lists.size(); ++i)
        result = common(result, lists[i]);
    return result;
}

std::vector<feed::ReplayClock::Break> quietBreaks(const feed::InstrumentDay& day)
{
    std::vector<feed::ReplayClock::Break> breaks;
    std::int64_t before = 0;
    for (const DayTimeline::Entry& tick : mergeTicks(day)) {
        if (before != 0 && tick.time - before > kSmallestBreak)
            breaks.push_back({before + 1, tick.time});
        before = tick.time;
    }
    return breaks;
}

DayRange dayRange(const feed::InstrumentDay& day)
{
    const std::int64_t midnight = dayStart(day);
    const std::int64_t nextMidnight = midnight + utils::kMSecPerDay;
    Extent extent;
    extent.take(day.orders, midnight, nextMidnight);
    extent.take(day.deals, midnight, nextMidnight);
    extent.take(day.snapshots, midnight, nextMidnight);
    extent.take(day.queues, midnight, nextMidnight);
    if (extent.begin > extent.end)
        return {};
    constexpr std::int64_t second = utils::kMSecPerSecond;
    return {extent.begin - (extent.begin - midnight) % second,
            extent.end + (second - (extent.end - midnight) % second) % second};
}

std::int64_t momentIn(const DayRange& range, std::int64_t timeOfDayMs)
{
    return std::clamp(utils::exchangeDayStart(range.begin) + timeOfDayMs, range.begin, range.end);
}

} // namespace host
