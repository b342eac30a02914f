#include "platform/models/OrderTable.h"

#include "platform/models/tick_values.h"

#include <boost/make_shared.hpp>

namespace Kel {

bool isNewOrder(const quoter::OrderData& record)
{
    return record.kind != quoter::eOrderNotStanding && record.entrustNo > 0 && record.volume > 0 &&
           isPrice(record.price) && !isNegative(record.price);
}

bool OrderTable::add(const quoter::OrderData& record)
{
    if (!isNewOrder(record) || !m_places.insert(record.entrustNo, m_rows.size()))
        return false;
    Row row;
    row.time = record.m_time;
    row.price = record.price;
    row.shares = record.volume;
    row.kind = record.kind;
    row.side = record.side;
    m_rows.append(row);
    return true;
}

boost::shared_ptr<quoter::OrderData> OrderTable::find(std::int64_t number) const
{
    const std::int32_t* const place = m_places.find(number);
    if (place == nullptr)
        return {};
    const Row& row = m_rows[*place];
    auto order = boost::make_shared<quoter::OrderData>();
    order->m_time = row.time;
    order->price = row.price;
    order->volume = row.shares;
    order->entrustNo = number;
    order->kind = row.kind;
    order->side = row.side;
    return order;
}

std::int64_t OrderTable::shares(std::int64_t number) const
{
    const std::int32_t* const place = m_places.find(number);
    return place == nullptr ? -1 : m_rows[*place].shares;
}

} // namespace Kel
