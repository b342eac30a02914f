#include "platform/models/DealView.h"

#include "platform/models/tick_filter.h"

#include <limits>

namespace Kel {

namespace {

/// Rows before this one in its run; stops counting at the largest number that the field holds.
std::int16_t runAfter(std::int32_t number, std::int32_t numberBefore, std::int16_t runBefore)
{
    if (number <= 0 || number != numberBefore)
        return 0;
    constexpr std::int16_t kMost = std::numeric_limits<std::int16_t>::max();
    return runBefore < kMost ? static_cast<std::int16_t>(runBefore + 1) : kMost;
}

std::int32_t trendOf(const DealRow& deal)
{
    return deal.trend == 1 ? 1 : deal.trend == 2 ? -1 : 0;
}

bool isVolumeRise(const DealRow& deal)
{
    return deal.activeSide != 0 ? deal.activeSide == 1 : deal.direction == 1;
}

} // namespace

DealView::Runs DealView::runsAfter(const DealLog& deals, const DealRow& deal) const
{
    if (size() == 0)
        return {};
    const DealRow& before = deals[m_indexes.at(size() - 1)];
    const Runs& runs = m_runs.last();
    return {runAfter(deal.buyNo, before.buyNo, runs.buy), runAfter(deal.sellNo, before.sellNo, runs.sell)};
}

void DealView::look(const DealLog& deals, int end)
{
    for (int index = looked(); index < end; ++index) {
        const DealRow& deal = deals[index];
        const bool keep = passesFilter(m_param, deal.time, deal.lots, deal.shares, deal.price);
        if (keep) {
            const Runs runs = runsAfter(deals, deal);
            m_runs.append(runs);
            m_seconds.append(deal.time);
        }
        m_indexes.offer(keep);
    }
}

void DealView::truncate(int index)
{
    m_indexes.truncate(index);
    m_runs.truncate(m_indexes.size());
    m_seconds.truncate(m_indexes.size());
}

void DealView::fill(const DealLog& deals, int row, DepthTransData& into) const
{
    const DealRow& deal = deals[m_indexes.at(row)];
    const Runs& runs = m_runs[row];
    into.time = deal.time;
    into.price = deal.price;
    into.volume = deal.lots;
    into.sellNo = deal.sellNo;
    into.buyNo = deal.buyNo;
    into.buyPrevious = deal.buyPrevious;
    into.buyNext = deal.buyNext;
    into.sellPrevious = deal.sellPrevious;
    into.sellNext = deal.sellNext;
    into.sellRun = runs.sell;
    into.buyRun = runs.buy;
    into.trend = trendOf(deal);
    into.activeSide = deal.activeSide;
    into.volumeRise = isVolumeRise(deal) ? 1 : 0;
}

} // namespace Kel
