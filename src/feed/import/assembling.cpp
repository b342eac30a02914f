#include "feed/import/assembling.h"

#include "records/OrderData.h"
#include "records/TransactionData.h"

#include <absl/container/flat_hash_map.h>

#include <algorithm>
#include <limits>

namespace feed {

namespace {

/// What the lines tell about one Shanghai order.
struct OrderStory
{
    std::int64_t dealtBeforeRecord = 0;
    std::int64_t cancelled = 0;
    std::size_t firstDeal = 0; ///< index of the first deal
    double lastPrice = 0;
    std::uint8_t side = 0; ///< side on which the first deal found it
    bool activeFirst = false;
    bool dealt = false;
    bool recorded = false;
};

std::int64_t addClamped(std::int64_t a, std::int64_t b)
{
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    return a > kMost - b ? kMost : a + b;
}

/// Sorts by sequence, lines of one sequence in the order in which they were read. Each file is usually in
/// order, or made of a few parts that are, and merging those is quicker than sorting.
void sortTicks(std::vector<TickLine>& ticks)
{
    constexpr std::size_t kFewParts = 16;
    const auto before = [](const TickLine& a, const TickLine& b) { return a.seq < b.seq; };
    std::vector<std::vector<TickLine>::iterator> bounds = {ticks.begin()};
    while (bounds.back() != ticks.end() && bounds.size() <= kFewParts)
        bounds.push_back(std::is_sorted_until(bounds.back(), ticks.end(), before));
    if (bounds.back() != ticks.end()) {
        std::stable_sort(ticks.begin(), ticks.end(), before);
        return;
    }
    for (std::size_t part = 2; part < bounds.size(); ++part)
        std::inplace_merge(ticks.begin(), bounds[part - 1], bounds[part], before);
}

/// Sorts by sequence; of two lines with one sequence the one that was read first stays.
void sortBySequence(std::vector<TickLine>& ticks, ImportReport& report)
{
    sortTicks(ticks);
    std::size_t kept = 0;
    for (std::size_t i = 0; i < ticks.size(); ++i) {
        if (kept > 0 && ticks[kept - 1].seq == ticks[i].seq) {
            FileReport& file = report.files[ticks[i].file];
            report.reject(file, ticks[i].line, "duplicate sequence number");
            --file.taken;
            continue;
        }
        if (kept != i)
            ticks[kept] = ticks[i];
        ++kept;
    }
    ticks.resize(kept);
}

DealRow dealRow(const TickLine& tick, std::int64_t dayStart, std::int64_t seq)
{
    DealRow row;
    row.time = dayStart + tick.msOfDay;
    row.seq = seq;
    row.volume = tick.volume;
    row.dealNo = tick.dealNo;
    if (tick.type == TickType::Cancel) {
        // The number stands in `buyNo` whatever the side; that of a sell order in `sellNo` as well.
        row.kind = quoter::eTransactionCancel;
        row.buyNo = static_cast<std::int32_t>(tick.number);
        row.sellNo = tick.side == 2 ? row.buyNo : 0;
        return row;
    }
    row.price = tick.price;
    row.buyNo = static_cast<std::int32_t>(tick.buyNo);
    row.sellNo = static_cast<std::int32_t>(tick.sellNo);
    row.activeSide = tick.activeSide;
    return row;
}

OrderRow orderRow(const TickLine& tick, std::int64_t dayStart, std::int64_t seq)
{
    OrderRow row;
    row.time = dayStart + tick.msOfDay;
    row.seq = seq;
    row.number = tick.number;
    row.price = tick.price;
    row.volume = tick.volume;
    row.side = tick.side;
    row.kind = tick.kind;
    return row;
}

void noteDeal(OrderStory& story, const TickLine& tick, std::size_t index, std::uint8_t side)
{
    if (story.recorded)
        return;
    if (!story.dealt) {
        story.firstDeal = index;
        story.side = side;
        story.activeFirst = tick.activeSide == side;
    }
    story.dealt = true;
    story.dealtBeforeRecord = addClamped(story.dealtBeforeRecord, tick.volume);
    story.lastPrice = tick.price;
}

} // namespace

void assembleShanghai(InstrumentLines& lines, std::int64_t dayStart, InstrumentDay& day, ImportReport& report)
{
    sortBySequence(lines.ticks, report);
    absl::flat_hash_map<std::int64_t, OrderStory> stories;
    stories.reserve(lines.ticks.size());
    bool anyRecord = false;
    for (std::size_t i = 0; i < lines.ticks.size(); ++i) {
        const TickLine& tick = lines.ticks[i];
        const std::int64_t seq = 2 * tick.seq + 1;
        if (tick.type == TickType::Deal) {
            noteDeal(stories[tick.buyNo], tick, i, 1);
            noteDeal(stories[tick.sellNo], tick, i, 2);
            day.deals.push_back(dealRow(tick, dayStart, seq));
            continue;
        }
        OrderStory& story = stories[tick.number];
        if (tick.type == TickType::Cancel) {
            if (!story.recorded)
                story.cancelled = addClamped(story.cancelled, tick.volume);
            day.deals.push_back(dealRow(tick, dayStart, seq));
            continue;
        }
        if (story.recorded) {
            FileReport& file = report.files[tick.file];
            report.reject(file, tick.line, "second record of an order");
            --file.taken;
            continue;
        }
        anyRecord = true;
        story.recorded = true;
        OrderRow row = orderRow(tick, dayStart, seq);
        if (story.dealt) {
            row.volume = addClamped(row.volume, story.dealtBeforeRecord);
            ++report.restoredOrders;
        }
        day.orders.push_back(row);
    }
    const std::size_t recorded = day.orders.size();
    for (const auto& [number, story] : stories) {
        if (story.recorded)
            continue;
        if (!story.dealt || !story.activeFirst) {
            report.unknownOrders += anyRecord ? 1 : 0;
            continue;
        }
        const TickLine& first = lines.ticks[story.firstDeal];
        OrderRow row;
        row.time = dayStart + first.msOfDay;
        row.seq = 2 * first.seq;
        row.number = number;
        row.price = story.lastPrice;
        row.volume = addClamped(story.dealtBeforeRecord, story.cancelled);
        row.side = story.side;
        row.kind = quoter::eOrderLimit;
        day.orders.push_back(row);
        ++report.madeOrders;
    }
    const auto before = [](const OrderRow& a, const OrderRow& b) { return a.seq < b.seq; };
    const auto middle = day.orders.begin() + static_cast<std::ptrdiff_t>(recorded);
    std::sort(middle, day.orders.end(), before);
    std::inplace_merge(day.orders.begin(), middle, day.orders.end(), before);
}

void assembleShenzhen(InstrumentLines& lines, std::int64_t dayStart, InstrumentDay& day, ImportReport& report)
{
    sortBySequence(lines.ticks, report);
    absl::flat_hash_map<std::int64_t, bool> known; ///< order number: whether a record introduces it
    known.reserve(lines.ticks.size());
    for (const TickLine& tick : lines.ticks) {
        if (tick.type == TickType::Add) {
            known[tick.number] = true;
            day.orders.push_back(orderRow(tick, dayStart, tick.seq));
            continue;
        }
        if (tick.type == TickType::Cancel) {
            known.try_emplace(tick.number, false);
        } else {
            known.try_emplace(tick.buyNo, false);
            known.try_emplace(tick.sellNo, false);
        }
        day.deals.push_back(dealRow(tick, dayStart, tick.seq));
    }
    if (day.orders.empty())
        return;
    for (const auto& entry : known)
        report.unknownOrders += entry.second ? 0 : 1;
}

void assembleSnapshots(InstrumentLines& lines, std::int64_t dayStart, InstrumentDay& day)
{
    const auto earlier = [](const auto& a, const auto& b) { return a.time < b.time; };
    day.snapshots = std::move(lines.snapshots);
    day.queues = std::move(lines.queues);
    std::stable_sort(day.snapshots.begin(), day.snapshots.end(), earlier);
    std::stable_sort(day.queues.begin(), day.queues.end(), earlier);
    for (SnapshotRow& row : day.snapshots)
        row.time += dayStart;
    for (QueueRow& row : day.queues)
        row.time += dayStart;
}

} // namespace feed
