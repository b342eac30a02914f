#include "host/window/PriceSeries.h"

#include "records/QuoterBase.h"
#include "records/TransactionData.h"

#include <algorithm>

namespace host {

PriceSeries::PriceSeries(const feed::InstrumentDay& day) : m_previousClose(day.detail.previousClose)
{
    for (const feed::SnapshotRow& row : day.snapshots)
        add(row.time, row.lastPrice);
    if (!m_prices.empty())
        return;
    for (const feed::DealRow& row : day.deals) {
        if (row.kind != quoter::eTransactionCancel)
            add(row.time, row.price);
    }
}

void PriceSeries::add(std::int64_t time, double price)
{
    if (!(price > 0) || (!m_prices.empty() && m_prices.back().second == price))
        return;
    // A time that goes back would hide what came before it.
    m_prices.emplace_back(m_prices.empty() ? time : std::max(time, m_prices.back().first), price);
}

double PriceSeries::at(std::int64_t time) const
{
    const auto next = std::upper_bound(m_prices.begin(), m_prices.end(), time,
                                       [](std::int64_t moment, const std::pair<std::int64_t, double>& entry) {
                                           return moment < entry.first;
                                       });
    return next == m_prices.begin() ? 0 : std::prev(next)->second;
}

} // namespace host
