#include "platform/models/EntrustViews.h"

#include "platform/models/tick_filter.h"

#include <utility>

namespace Kel {

void EntrustViews::lookAtOrders(const OrderLog& orders, int end)
{
    for (int index = m_orders.looked(); index < end; ++index) {
        const OrderLogRow& row = orders[index];
        m_orders.offer(wantsOrder(m_param, row.side) &&
                       passesFilter(m_param, row.time, row.lots, row.shares, row.price));
    }
}

void EntrustViews::lookAtCancels(const OrderLog& orders, const CancelLog& cancels, int end)
{
    for (int index = m_cancels.looked(); index < end; ++index)
        m_cancels.offer(keepsCancel(orders, cancels[index]));
}

bool EntrustViews::keepsCancel(const OrderLog& orders, const CancelLogRow& cancel) const
{
    const int place = orders.find(cancel.number());
    const int side = place >= 0 ? orders[place].side : cancel.provenSide();
    const double price = place >= 0 ? orders[place].price : cancel.price;
    return wantsCancel(m_param, side) &&
           passesFilter(m_param, cancel.time, cancel.lots, cancel.shares, price);
}

bool EntrustViews::judgeCancels(const OrderLog& orders, const CancelLog& cancels,
                                const std::vector<int>& indexes)
{
    std::vector<std::pair<int, bool>> verdicts;
    verdicts.reserve(indexes.size());
    for (const int index : indexes)
        verdicts.emplace_back(index, keepsCancel(orders, cancels[index]));
    return m_cancels.judgeAgain(verdicts);
}

} // namespace Kel
