// What the model of orders and cancellations is asked for.

#include "platform/models/EntrustRows.h"
#include "platform/models/tick_values.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <tuple>

namespace Kel {

namespace {

using Lock = ReaderFirstMutex::Reader;
using Record = boost::shared_ptr<quoter::TransactionData>;

Record recordOf(const DealRow& deal)
{
    auto record = boost::make_shared<quoter::TransactionData>();
    record->m_time = deal.milliseconds();
    record->price = deal.price;
    record->volume = deal.shares;
    record->dealNo = deal.dealNo;
    record->buyNo = deal.buyNo;
    record->sellNo = deal.sellNo;
    record->kind = deal.activeSide;
    record->activeSide = deal.activeSide;
    return record;
}

Record recordOf(const CancelLogRow& cancel)
{
    auto record = boost::make_shared<quoter::TransactionData>();
    record->m_time = cancel.milliseconds();
    record->price = cancel.price;
    record->volume = cancel.shares;
    record->dealNo = cancel.dealNo;
    record->buyNo = cancel.buyNo;
    record->sellNo = cancel.sellNo;
    record->kind = quoter::eTransactionCancel;
    return record;
}

/// Indexes of the deals of an order, in order. A deal of an order with itself counts once.
std::vector<int> dealsOf(const DealLog& deals, int number)
{
    std::vector<int> indexes;
    for (int at = deals.lastDeal(true, number); at >= 0; at = deals[at].buyPrevious)
        indexes.push_back(at);
    for (int at = deals.lastDeal(false, number); at >= 0; at = deals[at].sellPrevious)
        indexes.push_back(at);
    std::sort(indexes.begin(), indexes.end());
    indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    return indexes;
}

bool isBefore(const Record& left, const Record& right)
{
    return std::make_tuple(left->m_time / 1000, left->dealNo) <
           std::make_tuple(right->m_time / 1000, right->dealNo);
}

} // namespace

boost::shared_ptr<DepthOrderData> CModelDepthEntrust::getOrderData(int row, bool whole) const
{
    const Lock lock(m_rows->mutex);
    Rows& rows = *m_rows;
    if (whole)
        return rows.wholeOrderPages.get(
            row, rows.orders->size(), rows.version,
            [&rows](int index, DepthOrderData& into) { rows.orders->fill(index, into); });
    const FilteredIndexes& view = rows.views->orders();
    return rows.orderPages.get(row, view.size(), rows.version, [&rows, &view](int at, DepthOrderData& into) {
        rows.orders->fill(view.at(at), into);
    });
}

bool CModelDepthEntrust::getOrderData(int number, boost::shared_ptr<DepthOrderData>& order) const
{
    order.reset();
    const Lock lock(m_rows->mutex);
    const int place = m_rows->orders->find(number);
    if (place < 0)
        return false;
    order = boost::make_shared<DepthOrderData>();
    m_rows->orders->fill(place, *order);
    return true;
}

boost::shared_ptr<DepthCancelData> CModelDepthEntrust::getCancelData(int row) const
{
    const Lock lock(m_rows->mutex);
    Rows& rows = *m_rows;
    const FilteredIndexes& view = rows.views->cancels();
    return rows.cancelPages.get(
        row, view.size(), rows.version,
        [&rows, &view](int at, DepthCancelData& into) { rows.cancels->fill(view.at(at), into); });
}

bool CModelDepthEntrust::getTransactionData(int number, std::list<Record>& records) const
{
    records.clear();
    if (number <= 0)
        return false;
    {
        const Lock lock(m_rows->mutex);
        for (const int at : dealsOf(*m_rows->deals, number))
            records.push_back(recordOf((*m_rows->deals)[at]));
        for (int at = m_rows->cancels->lastCancel(number); at >= 0; at = (*m_rows->cancels)[at].previous)
            records.push_back(recordOf((*m_rows->cancels)[at]));
    }
    records.sort(isBefore);
    return !records.empty();
}

bool CModelDepthEntrust::nextOrders(RowWalk& walk, int most, std::vector<DepthOrderData>& rows) const
{
    rows.clear();
    const Lock lock(m_rows->mutex);
    const OrderLog& orders = *m_rows->orders;
    const FilteredIndexes& view = m_rows->views->orders();
    const auto keyOf = [&](int row) {
        const OrderLogRow& order = orders[view.at(row)];
        return std::make_pair(int(order.time), int(order.number));
    };
    if (!walk.resume(m_rows->orderMarks, view.size(), keyOf))
        return false;
    while (static_cast<int>(rows.size()) < most && walk.next() < view.size()) {
        rows.emplace_back();
        orders.fill(view.at(walk.next()), rows.back());
        walk.pass(keyOf(walk.next()));
    }
    return true;
}

bool CModelDepthEntrust::nextCancels(RowWalk& walk, int most, std::vector<CancelWithOrder>& rows) const
{
    rows.clear();
    const Lock lock(m_rows->mutex);
    const CancelLog& cancels = *m_rows->cancels;
    const FilteredIndexes& view = m_rows->views->cancels();
    const auto keyOf = [&](int row) {
        const CancelLogRow& cancel = cancels[view.at(row)];
        return std::make_pair(int(cancel.time), int(cancel.dealNo));
    };
    if (!walk.resume(m_rows->cancelMarks, view.size(), keyOf))
        return false;
    while (static_cast<int>(rows.size()) < most && walk.next() < view.size()) {
        rows.emplace_back();
        CancelWithOrder& row = rows.back();
        cancels.fill(view.at(walk.next()), row.cancel);
        const int place = m_rows->orders->find(row.cancel.orderNo);
        row.isKnown = place >= 0;
        if (row.isKnown)
            m_rows->orders->fill(place, row.order);
        walk.pass(keyOf(walk.next()));
    }
    return true;
}

int CModelDepthEntrust::tracebackOrderSeq(int row) const
{
    const Lock lock(m_rows->mutex);
    const FilteredIndexes& view = m_rows->views->orders();
    return placeInSecond(row, view.size(), [&](int at) { return (*m_rows->orders)[view.at(at)].time; });
}

int CModelDepthEntrust::tracebackCancelSeq(int row) const
{
    const Lock lock(m_rows->mutex);
    const FilteredIndexes& view = m_rows->views->cancels();
    return placeInSecond(row, view.size(), [&](int at) { return (*m_rows->cancels)[view.at(at)].time; });
}

std::vector<boost::shared_ptr<DepthOrderData>> CModelDepthEntrust::findOrders(int timeOfDayMs, double price,
                                                                              int lots, int side) const
{
    std::vector<boost::shared_ptr<DepthOrderData>> found;
    if (timeOfDayMs < 0 || timeOfDayMs % 1000 != 0 || timeOfDayMs / 1000 >= kSecondsPerDay)
        return found;
    const Lock lock(m_rows->mutex);
    const OrderLog& orders = *m_rows->orders;
    const FilteredIndexes& view = m_rows->views->orders();
    const auto timeOf = [&](int row) { return orders[view.at(row)].time; };
    int row = 0;
    while (row < view.size()) { // once for each day in the list
        const std::int64_t midnight = std::int64_t(timeOf(row)) - secondOfDay(timeOf(row));
        const int second = clampToInt(midnight + timeOfDayMs / 1000);
        const std::pair<int, int> rows = rowsOfTime(view.size(), second, timeOf);
        for (int at = rows.first; at >= 0 && at <= rows.second; ++at) {
            const OrderLogRow& order = orders[view.at(at)];
            if (order.price == price && order.lots == lots && order.side == side &&
                order.kind == quoter::eOrderLimit) {
                found.push_back(boost::make_shared<DepthOrderData>());
                orders.fill(view.at(at), *found.back());
            }
        }
        row = firstNotBefore(view.size(), clampToInt(midnight + kSecondsPerDay), timeOf);
        if (midnight + kSecondsPerDay > std::numeric_limits<std::int32_t>::max())
            break;
    }
    return found;
}

} // namespace Kel
