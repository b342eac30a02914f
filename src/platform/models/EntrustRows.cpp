#include "platform/models/EntrustRows.h"

#include "records/record_cast.h"

#include <algorithm>
#include <thread>

namespace Kel {

namespace {

/// Rows of each list that a filter looks at while it holds the lock.
constexpr int kFilterSlice = 10000;

} // namespace

void CModelDepthEntrust::Rows::publishOrders()
{
    ++version;
    if (owner == nullptr)
        return;
    owner->orderCount.store(views->orders().size());
    owner->orderDirty.store(true);
}

void CModelDepthEntrust::Rows::publishCancels()
{
    ++version;
    if (owner == nullptr)
        return;
    owner->cancelCount.store(views->cancels().size());
    owner->cancelDirty.store(true);
}

void CModelDepthEntrust::Rows::addOrders(const quoter::QuoterBatch& batch, std::size_t from, std::size_t to)
{
    orderBatch.clear();
    OrderLogRow row;
    for (std::size_t at = from; at < to; ++at) {
        const auto* const record = quoter::recordCast<quoter::OrderData>(batch[at].get());
        if (record != nullptr && OrderLog::makeRow(*record, unit, row))
            orderBatch.push_back(row);
    }
    const int first = orders->merge(orderBatch);
    if (orderBatch.empty())
        return;
    views->truncateOrders(first);
    views->lookAtOrders(*orders, orders->size());
    if (pending)
        pending->truncateOrders(first);
    publishOrders();
    judgeCancelsOf(orderBatch);
}

void CModelDepthEntrust::Rows::judgeCancelsOf(const std::vector<OrderLogRow>& added)
{
    std::vector<int> indexes;
    for (const OrderLogRow& order : added) {
        for (int at = cancels->lastCancel(order.number); at >= 0; at = (*cancels)[at].previous)
            indexes.push_back(at);
    }
    if (indexes.empty())
        return;
    std::sort(indexes.begin(), indexes.end());
    views->judgeCancels(*orders, *cancels, indexes);
    if (pending)
        pending->judgeCancels(*orders, *cancels, indexes);
    publishCancels(); // even if all verdicts stand: the rows show side and price of their orders
}

void CModelDepthEntrust::Rows::addDeals(const quoter::QuoterBatch& batch, std::size_t from, std::size_t to)
{
    cancelBatch.clear();
    dealBatch.clear();
    CancelLogRow cancel;
    DealRow deal;
    for (std::size_t at = from; at < to; ++at) {
        const auto* const record = quoter::recordCast<quoter::TransactionData>(batch[at].get());
        if (record == nullptr)
            continue;
        if (CancelLog::makeRow(*record, unit, cancel))
            cancelBatch.push_back(cancel);
        else if (DealLog::makeRow(*record, unit, deal))
            dealBatch.push_back(deal);
    }
    deals->merge(dealBatch);
    const int before = cancels->size();
    const int first = cancels->merge(cancelBatch);
    if (cancels->size() == before)
        return;
    views->truncateCancels(first);
    views->lookAtCancels(*orders, *cancels, cancels->size());
    if (pending)
        pending->truncateCancels(first);
    publishCancels();
}

int CModelDepthEntrust::Rows::startFilter(const SDepthFilterParam& param)
{
    pending = std::make_unique<EntrustViews>(param);
    return ++filterSerial;
}

void CModelDepthEntrust::Rows::applyFilter(const boost::shared_ptr<Rows>& rows, int serial)
{
    for (;; std::this_thread::yield()) {
        std::unique_ptr<EntrustViews> old; // freed without the lock
        const std::lock_guard<std::mutex> lock(rows->mutex);
        if (!rows->pending || rows->filterSerial != serial || rows->owner == nullptr)
            return;
        EntrustViews& next = *rows->pending;
        const int orderEnd = std::min(next.orders().looked() + kFilterSlice, rows->orders->size());
        next.lookAtOrders(*rows->orders, orderEnd);
        const int cancelEnd = std::min(next.cancels().looked() + kFilterSlice, rows->cancels->size());
        next.lookAtCancels(*rows->orders, *rows->cancels, cancelEnd);
        if (orderEnd < rows->orders->size() || cancelEnd < rows->cancels->size())
            continue;
        old = std::move(rows->views);
        rows->views = std::move(rows->pending);
        rows->publishOrders();
        rows->publishCancels();
        return;
    }
}

} // namespace Kel
