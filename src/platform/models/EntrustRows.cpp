#include "platform/models/EntrustRows.h"

#include "platform/models/ordered_merge.h"
#include "records/record_cast.h"

#include <algorithm>
#include <thread>

namespace Kel {

namespace {

/// Rows of each list that a filter looks at while it holds the lock.
constexpr int kFilterSlice = 10000;

using Writer = ReaderFirstMutex::Writer;

std::vector<OrderLogRow> orderRows(const quoter::QuoterBatch& batch, int unit)
{
    std::vector<OrderLogRow> rows;
    rows.reserve(batch.size());
    OrderLogRow row;
    for (const auto& given : batch) {
        const auto* const record = quoter::recordCast<quoter::OrderData>(given.get());
        if (record != nullptr && OrderLog::makeRow(*record, unit, row))
            rows.push_back(row);
    }
    return rows;
}

/// The log with a batch in it, beside the log that readers see.
template <class Log, class Row>
std::shared_ptr<Log> merged(const Log& log, const std::vector<Row>& batch)
{
    auto next = std::make_shared<Log>();
    fillMerged(*next, log, batch);
    return next;
}

} // namespace

bool CModelDepthEntrust::Rows::begin(const boost::shared_ptr<MetaCacheDataWrapper>& data, Work& work)
{
    const Writer lock(mutex);
    if (!isBatchOf(detail, data))
        return false;
    work = {generation, unit, orders, cancels, deals};
    return true;
}

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

// Orders
// ----------------------------------------------------------------------------------------------------------------------

void CModelDepthEntrust::Rows::takeOrders(const quoter::QuoterBatch& batch, bool anew, Work& work)
{
    std::vector<OrderLogRow> rows = orderRows(batch, work.unit);
    if (anew) {
        if (rows.empty() && work.orders->size() == 0)
            return;
        OrderLog().prepare(rows);
        replaceOrders(merged(OrderLog(), rows), true, 0, work);
        return;
    }
    work.orders->prepare(rows);
    if (rows.empty())
        return;
    const int after = rowsAfter(*work.orders, rows.front());
    const std::size_t step = rowsAtATime(after, rows.size());
    if (step == 0) {
        replaceOrders(merged(*work.orders, rows), false, work.orders->size() - after, work);
        return;
    }
    forSlices(rows.size(), step, [&](std::size_t from, std::size_t to) {
        const Writer lock(mutex);
        if (generation != work.generation)
            return false;
        placeOrders(rows.data() + from, rows.data() + to);
        return true;
    });
}

void CModelDepthEntrust::Rows::placeOrders(const OrderLogRow* begin, const OrderLogRow* end)
{
    const int before = orders->size();
    const int first = placeInOrder(*orders, begin, end);
    if (first < before)
        ++orderMarks.late;
    views->truncateOrders(first);
    views->lookAtOrders(*orders, orders->size());
    if (pending)
        pending->truncateOrders(first);
    publishOrders();
    judgeCancelsOf(begin, end);
}

void CModelDepthEntrust::Rows::judgeCancelsOf(const OrderLogRow* begin, const OrderLogRow* end)
{
    std::vector<int> indexes;
    for (const OrderLogRow* order = begin; order != end; ++order) {
        for (int at = cancels->lastCancel(order->number); at >= 0; at = (*cancels)[at].previous)
            indexes.push_back(at);
    }
    if (indexes.empty())
        return;
    std::sort(indexes.begin(), indexes.end());
    if (views->judgeCancels(*orders, *cancels, indexes))
        ++cancelMarks.late;
    if (pending)
        pending->judgeCancels(*orders, *cancels, indexes);
    publishCancels(); // even if all verdicts stand: the rows show side and price of their orders
}

/// Puts another log in force, and both lists, whose cancels are judged by it; they are made while readers
/// still see the old ones.
void CModelDepthEntrust::Rows::replaceOrders(const std::shared_ptr<OrderLog>& next, bool anew,
                                             int firstChanged, Work& work)
{
    std::shared_ptr<EntrustViews> inForce; // a filter may come into force in the meantime
    for (bool replaced = false; !replaced;) {
        SDepthFilterParam param;
        {
            const Writer lock(mutex);
            inForce = views;
            param = views->param();
        }
        auto nextViews = std::make_shared<EntrustViews>(param);
        nextViews->lookAtOrders(*next, next->size());
        nextViews->lookAtCancels(*next, *work.cancels, work.cancels->size());
        const Writer lock(mutex);
        if (generation != work.generation)
            return;
        if (views != inForce)
            continue;
        orders = next;
        ++(anew ? orderMarks.list : orderMarks.late);
        ++cancelMarks.late;
        views = std::move(nextViews);
        if (pending) {
            pending->truncateOrders(firstChanged);
            pending->truncateCancels(0);
        }
        publishOrders();
        if (cancels->size() > 0)
            publishCancels();
        replaced = true;
    }
    releaseLater(std::move(work.orders));
    releaseLater(std::move(inForce));
}

// Deals and cancellations
// ---------------------------------------------------------------------------------------------------------

void CModelDepthEntrust::Rows::takeDeals(const quoter::QuoterBatch& batch, bool anew, Work& work)
{
    std::vector<CancelLogRow> cancelRows;
    std::vector<DealRow> dealRows;
    CancelLogRow cancel;
    DealRow deal;
    dealRows.reserve(batch.size());
    for (const auto& given : batch) {
        const auto* const record = quoter::recordCast<quoter::TransactionData>(given.get());
        if (record == nullptr)
            continue;
        if (CancelLog::makeRow(*record, work.unit, cancel))
            cancelRows.push_back(cancel);
        else if (DealLog::makeRow(*record, work.unit, deal))
            dealRows.push_back(deal);
    }
    if (anew) {
        CancelLog().prepare(cancelRows);
        DealLog().prepare(dealRows);
        replaceCancels(merged(CancelLog(), cancelRows), merged(DealLog(), dealRows), 0, work);
        return;
    }
    addDeals(dealRows, work);
    addCancels(cancelRows, work);
}

void CModelDepthEntrust::Rows::addDeals(std::vector<DealRow>& batch, Work& work)
{
    work.deals->prepare(batch);
    if (batch.empty())
        return;
    const std::size_t step = rowsAtATime(rowsAfter(*work.deals, batch.front()), batch.size());
    if (step == 0) {
        const std::shared_ptr<DealLog> next = merged(*work.deals, batch);
        const Writer lock(mutex);
        if (generation == work.generation)
            deals = next;
        releaseLater(std::move(work.deals));
        return;
    }
    forSlices(batch.size(), step, [&](std::size_t from, std::size_t to) {
        const Writer lock(mutex);
        if (generation != work.generation)
            return false;
        placeInOrder(*deals, batch.data() + from, batch.data() + to);
        return true;
    });
}

void CModelDepthEntrust::Rows::addCancels(std::vector<CancelLogRow>& batch, Work& work)
{
    work.cancels->prepare(batch);
    if (batch.empty())
        return;
    const int after = rowsAfter(*work.cancels, batch.front());
    const std::size_t step = rowsAtATime(after, batch.size());
    if (step == 0) {
        replaceCancels(merged(*work.cancels, batch), nullptr, work.cancels->size() - after, work);
        return;
    }
    forSlices(batch.size(), step, [&](std::size_t from, std::size_t to) {
        const Writer lock(mutex);
        if (generation != work.generation)
            return false;
        const int before = cancels->size();
        const int first = placeInOrder(*cancels, batch.data() + from, batch.data() + to);
        if (first < before)
            ++cancelMarks.late;
        views->truncateCancels(first);
        views->lookAtCancels(*orders, *cancels, cancels->size());
        if (pending)
            pending->truncateCancels(first);
        publishCancels();
        return true;
    });
}

/// The same for the cancellations; with `nextDeals` the deals become others in the same step.
void CModelDepthEntrust::Rows::replaceCancels(const std::shared_ptr<CancelLog>& next,
                                              const std::shared_ptr<DealLog>& nextDeals, int firstChanged,
                                              Work& work)
{
    std::shared_ptr<EntrustViews> nextViews;
    std::shared_ptr<EntrustViews> inForce;
    for (bool replaced = false; !replaced;) {
        SDepthFilterParam param;
        {
            const Writer lock(mutex);
            inForce = views;
            param = views->param();
        }
        nextViews = std::make_shared<EntrustViews>(param);
        nextViews->lookAtCancels(*work.orders, *next, next->size());
        const Writer lock(mutex);
        if (generation != work.generation)
            return;
        if (views != inForce)
            continue;
        const bool isNews = cancels->size() > 0 || next->size() > 0;
        cancels = next;
        ++(nextDeals ? cancelMarks.list : cancelMarks.late);
        if (nextDeals)
            deals = nextDeals;
        views->swapCancels(*nextViews);
        if (pending)
            pending->truncateCancels(firstChanged);
        if (isNews)
            publishCancels();
        replaced = true;
    }
    releaseLater(std::move(work.cancels));
    if (nextDeals)
        releaseLater(std::move(work.deals));
    releaseLater(std::move(nextViews));
}

// Filter
// ----------------------------------------------------------------------------------------------------------------------

int CModelDepthEntrust::Rows::startFilter(const SDepthFilterParam& param)
{
    pending = std::make_shared<EntrustViews>(param);
    return ++filterSerial;
}

void CModelDepthEntrust::Rows::applyFilter(const boost::shared_ptr<Rows>& rows, int serial)
{
    for (;; std::this_thread::yield()) {
        std::shared_ptr<EntrustViews> old; // freed without the lock
        const Writer lock(rows->mutex);
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
        ++rows->orderMarks.list;
        ++rows->cancelMarks.list;
        rows->publishOrders();
        rows->publishCancels();
        return;
    }
}

} // namespace Kel
