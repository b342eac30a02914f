#include "platform/models/CancelLog.h"

#include "platform/models/ordered_merge.h"
#include "platform/models/tick_values.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace Kel {

namespace {

bool isRepeat(const CancelLogRow& left, const CancelLogRow& right)
{
    if (left.time != right.time || left.dealNo != right.dealNo)
        return false;
    return left.dealNo > 0 || (left.number() > 0 && left.number() == right.number() &&
                               left.rest == right.rest && left.shares == right.shares);
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
        return holdsRepeat(*this, row, isRepeat);
    for (int at = lastCancel(row.number()); at >= 0 && m_rows[at].time >= row.time;
         at = m_rows[at].previous) {
        if (isRepeat(m_rows[at], row))
            return true;
    }
    return false;
}

bool CancelLog::isBefore(const CancelLogRow& left, const CancelLogRow& right)
{
    return std::tie(left.time, left.dealNo) < std::tie(right.time, right.dealNo);
}

void CancelLog::prepare(std::vector<CancelLogRow>& batch) const
{
    sortBatch<CancelLog>(batch);
    batch.erase(std::unique(batch.begin(), batch.end(), isRepeat), batch.end());
    // Cancellations without a number stand in one second as they came: a repeat need not follow its first.
    std::set<std::tuple<std::int32_t, std::uint16_t, std::int32_t, std::int64_t>> unnumbered;
    const auto isKnown = [&](const CancelLogRow& row) {
        const bool isNamed = row.dealNo <= 0 && row.number() > 0;
        if (isNamed && !unnumbered.insert({row.time, row.rest, row.number(), row.shares}).second)
            return true;
        return holds(row);
    };
    batch.erase(std::remove_if(batch.begin(), batch.end(), isKnown), batch.end());
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
