#include "platform/models/DealLog.h"

#include "platform/models/ordered_merge.h"
#include "platform/models/tick_values.h"
#include "records/Tolerance.h"

#include <algorithm>
#include <tuple>

namespace Kel {

namespace {

bool isRepeat(const DealRow& left, const DealRow& right)
{
    return left.dealNo > 0 && left.dealNo == right.dealNo && left.time == right.time;
}

std::uint8_t changeOf(double price, double before)
{
    if (isLess(before, price))
        return 1;
    return isLess(price, before) ? 2 : 0;
}

} // namespace

void DealLog::Head::setShares(std::uint64_t shares)
{
    sharesLow = static_cast<std::uint32_t>(shares);
    sharesHigh = static_cast<std::uint32_t>(shares >> 32);
}

bool DealLog::makeRow(const quoter::TransactionData& record, int unit, DealRow& row)
{
    if (record.kind == quoter::eTransactionCancel || record.volume <= 0 || !isPrice(record.price) ||
        !isPositive(record.price))
        return false;
    row = DealRow();
    if (!timeTag(record.m_time, row.time, row.rest))
        return false;
    row.price = record.price;
    row.shares = record.volume;
    row.lots = lotsFromShares(record.volume, unit);
    row.dealNo = record.dealNo;
    row.buyNo = record.buyNo;
    row.sellNo = record.sellNo;
    const int active = activeSideOf(record.activeSide, record.buyNo, record.sellNo, row.time);
    row.activeSide = static_cast<std::uint8_t>(active);
    return true;
}

bool DealLog::isBefore(const DealRow& left, const DealRow& right)
{
    return std::tie(left.time, left.dealNo) < std::tie(right.time, right.dealNo);
}

void DealLog::prepare(std::vector<DealRow>& batch) const
{
    sortBatch<DealLog>(batch);
    batch.erase(std::unique(batch.begin(), batch.end(), isRepeat), batch.end());
    const auto isThere = [this](const DealRow& row) {
        return row.dealNo > 0 && holdsRepeat(*this, row, isRepeat);
    };
    batch.erase(std::remove_if(batch.begin(), batch.end(), isThere), batch.end());
}

void DealLog::append(const DealRow& given)
{
    const int index = size();
    DealRow row = given;
    const auto link = [&](Heads& heads, std::int32_t number, std::int32_t DealRow::*previous,
                          std::int32_t DealRow::*next) {
        row.*previous = -1;
        row.*next = -1;
        if (number <= 0)
            return;
        Head& head = heads[number];
        row.*previous = head.last;
        if (head.last >= 0)
            m_rows[head.last].*next = index;
        head.last = index;
        head.setShares(head.shares() + static_cast<std::uint64_t>(row.shares));
    };
    link(m_buyHeads, row.buyNo, &DealRow::buyPrevious, &DealRow::buyNext);
    link(m_sellHeads, row.sellNo, &DealRow::sellPrevious, &DealRow::sellNext);
    row.trend = m_rows.isEmpty() ? 0 : changeOf(row.price, m_rows.last().price);
    row.direction = row.trend != 0 || m_rows.isEmpty() ? row.trend : m_rows.last().direction;
    m_rows.append(row);
}

void DealLog::removeLast()
{
    const DealRow& row = m_rows.last();
    const auto unlink = [&](Heads& heads, std::int32_t number, std::int32_t previous,
                            std::int32_t DealRow::*next) {
        Head* const head = number > 0 ? heads.find(number) : nullptr;
        if (head == nullptr)
            return;
        head->last = previous;
        head->setShares(head->shares() - static_cast<std::uint64_t>(row.shares));
        if (previous >= 0)
            m_rows[previous].*next = -1;
        else
            heads.remove(number);
    };
    unlink(m_buyHeads, row.buyNo, row.buyPrevious, &DealRow::buyNext);
    unlink(m_sellHeads, row.sellNo, row.sellPrevious, &DealRow::sellNext);
    m_rows.truncate(size() - 1);
}

int DealLog::lastDeal(bool buy, std::int32_t number) const
{
    const Head* const head = (buy ? m_buyHeads : m_sellHeads).find(number);
    return head == nullptr ? -1 : head->last;
}

std::int64_t DealLog::dealtShares(bool buy, std::int32_t number) const
{
    const Head* const head = (buy ? m_buyHeads : m_sellHeads).find(number);
    return head == nullptr ? 0 : static_cast<std::int64_t>(head->shares());
}

std::size_t DealLog::heapBytes() const
{
    return m_rows.heapBytes() + m_buyHeads.heapBytes() + m_sellHeads.heapBytes();
}

} // namespace Kel
