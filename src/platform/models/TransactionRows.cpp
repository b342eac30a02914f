#include "platform/models/TransactionRows.h"

#include "platform/models/ordered_merge.h"
#include "platform/models/tick_values.h"
#include "records/record_cast.h"

#include <algorithm>
#include <thread>
#include <vector>

namespace Kel {

namespace {

/// Rows that a filter looks at, or orders that are entered, while the lock is held.
constexpr int kFilterSlice = 20000;
constexpr std::size_t kOrderSlice = 5000;

std::vector<DealRow> dealRows(const quoter::QuoterBatch& batch, int unit)
{
    std::vector<DealRow> rows;
    rows.reserve(batch.size());
    DealRow row;
    for (const auto& given : batch) {
        const auto* const record = quoter::recordCast<quoter::TransactionData>(given.get());
        if (record != nullptr && DealLog::makeRow(*record, unit, row))
            rows.push_back(row);
    }
    return rows;
}

bool addOrder(OrderTable& orders, const quoter::QuoterBase* given)
{
    const auto* const record = quoter::recordCast<quoter::OrderData>(given);
    return record != nullptr && orders.add(*record);
}

} // namespace

bool CModelDepthTransaction::Rows::begin(const boost::shared_ptr<MetaCacheDataWrapper>& data, Work& work)
{
    const ReaderFirstMutex::Writer lock(mutex);
    if (!isBatchOf(detail, data))
        return false;
    work.generation = generation;
    work.unit = unit;
    work.deals = deals;
    work.orders = orders;
    return true;
}

void CModelDepthTransaction::Rows::publish()
{
    ++version;
    if (owner == nullptr)
        return;
    owner->count.store(view->size());
    owner->dirty.store(true);
}

int CModelDepthTransaction::Rows::orderLots(const DepthTransData& deal, bool buy) const
{
    const std::int32_t number = buy ? deal.buyNo : deal.sellNo;
    if (number <= 0)
        return deal.volume;
    const std::int64_t shares = orders->shares(number);
    return lotsFromShares(shares >= 0 ? shares : deals->dealtShares(buy, number), unit);
}

DealSide CModelDepthTransaction::Rows::side(const DepthTransData& deal, bool buy) const
{
    const int previous = buy ? deal.buyPrevious : deal.sellPrevious;
    const int next = buy ? deal.buyNext : deal.sellNext;
    const auto priceOf = [this](int index) {
        return index < 0 ? std::numeric_limits<double>::quiet_NaN() : (*deals)[index].price;
    };
    return {orderLots(deal, buy), priceOf(previous), priceOf(next)};
}

bool CModelDepthTransaction::Rows::takeDeals(const quoter::QuoterBatch& batch, bool anew, Work& work)
{
    std::vector<DealRow> rows = dealRows(batch, work.unit);
    if (anew) {
        if (rows.empty() && work.deals->size() == 0)
            return false;
        const auto next = std::make_shared<DealLog>();
        next->prepare(rows);
        fillMerged(*next, DealLog(), rows);
        return replaceDeals(next, true, 0, work);
    }
    work.deals->prepare(rows);
    if (rows.empty())
        return false;
    const int after = rowsAfter(*work.deals, rows.front());
    const std::size_t step = rowsAtATime(after, rows.size());
    if (step == 0) {
        const auto next = std::make_shared<DealLog>();
        fillMerged(*next, *work.deals, rows);
        return replaceDeals(next, false, work.deals->size() - after, work);
    }
    bool changed = false;
    forSlices(rows.size(), step, [&](std::size_t from, std::size_t to) {
        const ReaderFirstMutex::Writer lock(mutex);
        if (generation != work.generation)
            return false;
        placeDeals(rows.data() + from, rows.data() + to);
        return changed = true;
    });
    return changed;
}

void CModelDepthTransaction::Rows::placeDeals(const DealRow* begin, const DealRow* end)
{
    const int before = deals->size();
    const int first = placeInOrder(*deals, begin, end);
    if (first < before)
        ++marks.late;
    view->truncate(first);
    view->look(*deals, deals->size());
    if (pending)
        pending->truncate(first);
    firstChanged = std::min(firstChanged, first);
    publish();
}

/// Puts another log in force, and the list of it, which are made while readers still see the old ones.
bool CModelDepthTransaction::Rows::replaceDeals(const std::shared_ptr<DealLog>& next, bool anew, int from,
                                                Work& work)
{
    std::shared_ptr<DealView> inForce; // a filter may come into force in the meantime
    for (bool replaced = false; !replaced;) {
        SDepthFilterParam param;
        {
            const ReaderFirstMutex::Writer lock(mutex);
            inForce = view;
            param = view->param();
        }
        auto nextView = std::make_shared<DealView>(param);
        nextView->look(*next, next->size());
        const ReaderFirstMutex::Writer lock(mutex);
        if (generation != work.generation)
            return false;
        if (view != inForce)
            continue;
        deals = next;
        ++(anew ? marks.list : marks.late);
        view = std::move(nextView);
        if (pending)
            pending->truncate(from);
        firstChanged = std::min(firstChanged, from);
        publish();
        replaced = true;
    }
    releaseLater(std::move(work.deals));
    releaseLater(std::move(inForce));
    return true;
}

bool CModelDepthTransaction::Rows::takeOrders(const quoter::QuoterBatch& batch, bool anew, Work& work)
{
    bool changed = false;
    if (anew) {
        const auto next = std::make_shared<OrderTable>();
        for (const auto& record : batch)
            addOrder(*next, record.get());
        if (next->size() == 0 && work.orders->size() == 0)
            return false;
        {
            const ReaderFirstMutex::Writer lock(mutex);
            if (generation != work.generation)
                return false;
            orders = next;
            publish();
        }
        releaseLater(std::move(work.orders));
        return true;
    }
    forSlices(batch.size(), kOrderSlice, [&](std::size_t from, std::size_t to) {
        const ReaderFirstMutex::Writer lock(mutex);
        if (generation != work.generation)
            return false;
        bool added = false;
        for (std::size_t at = from; at < to; ++at)
            added = addOrder(*orders, batch[at].get()) || added;
        if (added)
            publish();
        changed = changed || added;
        return true;
    });
    return changed;
}

void CModelDepthTransaction::Rows::applyFilter(const boost::shared_ptr<Rows>& rows, int serial)
{
    for (;; std::this_thread::yield()) {
        std::shared_ptr<DealView> old; // freed without the lock
        const ReaderFirstMutex::Writer lock(rows->mutex);
        if (!rows->pending || rows->filterSerial != serial || rows->owner == nullptr)
            return;
        const int end = rows->deals->size();
        rows->pending->look(*rows->deals, std::min(rows->pending->looked() + kFilterSlice, end));
        if (rows->pending->looked() < end)
            continue;
        old = std::move(rows->view);
        rows->view = std::move(rows->pending);
        ++rows->marks.list;
        rows->publish();
        return;
    }
}

} // namespace Kel
