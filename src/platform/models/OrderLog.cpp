#include "platform/models/OrderLog.h"

#include "platform/models/OrderTable.h"
#include "platform/models/ordered_merge.h"
#include "platform/models/tick_values.h"

#include <absl/container/flat_hash_set.h>

#include <algorithm>
#include <limits>
#include <tuple>

namespace Kel {

bool OrderLog::makeRow(const quoter::OrderData& record, int unit, OrderLogRow& row)
{
    std::uint16_t rest = 0;
    if (!isNewOrder(record) || record.entrustNo > std::numeric_limits<std::int32_t>::max() ||
        !timeTag(record.m_time, row.time, rest))
        return false;
    row.price = record.price;
    row.shares = record.volume;
    row.number = static_cast<std::int32_t>(record.entrustNo);
    row.side = record.side;
    row.kind = record.kind;
    row.lots = lotsFromShares(record.volume, unit);
    return true;
}

bool OrderLog::isBefore(const OrderLogRow& left, const OrderLogRow& right)
{
    return std::tie(left.time, left.number) < std::tie(right.time, right.number);
}

void OrderLog::prepare(std::vector<OrderLogRow>& batch) const
{
    absl::flat_hash_set<std::int32_t> numbers;
    numbers.reserve(batch.size());
    const auto isThere = [&](const OrderLogRow& row) {
        return find(row.number) >= 0 || !numbers.insert(row.number).second;
    };
    batch.erase(std::remove_if(batch.begin(), batch.end(), isThere), batch.end());
    sortBatch<OrderLog>(batch);
}

int OrderLog::find(std::int32_t number) const
{
    const std::int32_t* const place = m_places.find(number);
    return place == nullptr ? -1 : *place;
}

void OrderLog::fill(int index, DepthOrderData& into) const
{
    const OrderLogRow& row = m_rows[index];
    into.time = row.time;
    into.price = row.price;
    into.lots = row.lots;
    into.volume = row.shares;
    into.orderNo = row.number;
    into.side = row.side;
    into.kind = row.kind;
}

void OrderLog::append(const OrderLogRow& row)
{
    m_places[row.number] = m_rows.size();
    m_rows.append(row);
}

void OrderLog::removeLast()
{
    m_places.remove(m_rows.last().number);
    m_rows.truncate(m_rows.size() - 1);
}

} // namespace Kel
