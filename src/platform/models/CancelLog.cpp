#include "platform/models/CancelLog.h"

#include "platform/models/ordered_merge.h"
#include "platform/models/tick_values.h"

#include <algorithm>
#include <tuple>

namespace Kel {

namespace {

bool isBefore(const CancelLogRow& left, const CancelLogRow& right)
{
    return std::tie(left.time, left.dealNo) < std::tie(right.time, right.dealNo);
}

bool isRepeat(const CancelLogRow& left, const CancelLogRow& right)
{
    if (left.time != right.time || left.dealNo != right.dealNo)
        return false;
    return left.dealNo > 0 ||
           (left.number() == right.number() && left.rest == right.rest && left.shares == right.shares);
}

} // namespace

int CancelLogRow::provenSide() const
{
    if (sellNo != 0)
        return buyNo == 0 || buyNo == sellNo ? kSellSide : 0;
    return buyNo != 0 ? kBuySide : 0;
}

bool CancelLog::makeRow(const quoter::TransactionData& record, int unit, CancelLogRow& row)
{
    if (record.kind != quoter::eTransactionCancel || record.volume <= 0)
        return false;
    row = CancelLogRow();
    if (!timeTag(record.m_time, row.time, row.rest))
        return false;
    row.price = isPrice(record.price) ? record.price : 0;
    row.shares = record.volume;
    row.lots = lotsFromShares(record.volume, unit);
    row.dealNo = record.dealNo;
    row.buyNo = record.buyNo;
    row.sellNo = record.sellNo;
    return true;
}

bool CancelLog::holds(const CancelLogRow& row) const
{
    if (row.dealNo > 0)
        return holdsRepeat(*this, row, isBefore, isRepeat);
    for (int at = lastCancel(row.number()); at >= 0 && m_rows[at].time >= row.time;
         at = m_rows[at].previous) {
        if (isRepeat(m_rows[at], row))
            return true;
    }
    return false;
}

int CancelLog::merge(std::vector<CancelLogRow>& batch)
{
    if (!std::is_sorted(batch.begin(), batch.end(), isBefore))
        std::stable_sort(batch.begin(), batch.end(), isBefore);
    batch.erase(std::unique(batch.begin(), batch.end(), isRepeat), batch.end());
    batch.erase(
        std::remove_if(batch.begin(), batch.end(), [this](const CancelLogRow& row) { return holds(row); }),
        batch.end());
    return mergeInOrder(*this, batch, isBefore);
}

int CancelLog::lastCancel(std::int32_t number) const
{
    const std::int32_t* const last = number > 0 ? m_last.find(number) : nullptr;
    return last == nullptr ? -1 : *last;
}

void CancelLog::fill(int index, DepthCancelData& into) const
{
    const CancelLogRow& row = m_rows[index];
    into.time = row.time;
    into.price = row.price;
    into.lots = row.lots;
    into.volume = row.shares;
    into.orderNo = row.number();
}

void CancelLog::append(const CancelLogRow& given)
{
    CancelLogRow row = given;
    row.previous = lastCancel(row.number());
    if (row.number() > 0)
        m_last[row.number()] = m_rows.size();
    m_rows.append(row);
}

void CancelLog::removeLast()
{
    const CancelLogRow& row = m_rows.last();
    if (row.number() > 0) {
        if (row.previous >= 0)
            m_last[row.number()] = row.previous;
        else
            m_last.remove(row.number());
    }
    m_rows.truncate(m_rows.size() - 1);
}

} // namespace Kel
