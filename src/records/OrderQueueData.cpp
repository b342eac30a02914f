#include "records/OrderQueueData.h"

#include "records/Tolerance.h"

#include <QTextStream>

namespace Kel {

namespace {

const char* typeName(EOrderQueueType type)
{
    switch (type) {
    case OQT_BUY:
        return "buy";
    case OQT_SELL:
        return "sell";
    case OQT_CANCELED:
        return "canceled";
    case OQT_NORMAL:
        return "normal";
    case OQT_UNKNOWN:
        return "unknown";
    case OQT_BIG:
        return "big";
    case OQT_SUPER:
        return "super";
    case OQT_DEALT:
        return "dealt";
    case OQT_PART_DEALT:
        return "part-dealt";
    }
    return "other";
}

} // namespace

OrderQueueData::OrderQueueData(double price, std::int64_t time, EOrderQueueType type)
    : m_price(price), m_time(time), m_type(type)
{
}

OrderQueueData::OrderQueueData(const OrderQueueData& other)
    : m_price(other.m_price),
      m_time(other.m_time),
      m_sumVol(other.m_sumVol),
      m_levelVol(other.m_levelVol),
      m_avgVol(other.m_avgVol),
      m_unknownVol(other.m_unknownVol),
      m_orders(other.m_orders),
      m_level(other.m_level),
      m_type(other.m_type),
      m_count(other.m_count),
      m_startIndex(other.m_startIndex),
      m_hasPartDeal(other.m_hasPartDeal)
{
}

OrderQueueData& OrderQueueData::operator=(const OrderQueueData& other)
{
    if (this == &other)
        return *this;
    m_price = other.m_price;
    m_time = other.m_time;
    m_sumVol = other.m_sumVol;
    m_levelVol = other.m_levelVol;
    m_avgVol = other.m_avgVol;
    m_unknownVol = other.m_unknownVol;
    m_orders = other.m_orders;
    m_orderIds.clear();
    m_level = other.m_level;
    m_type = other.m_type;
    m_count = other.m_count;
    m_startIndex = other.m_startIndex;
    m_hasPartDeal = other.m_hasPartDeal;
    m_rest = LevelRest();
    return *this;
}

void OrderQueueData::addOrderVol(const COrderVol& order)
{
    if (!m_orderIds.insert(order.m_entrustNo))
        return;
    m_sumVol += order.m_vol;
    m_count = clampToInt(std::int64_t(m_count) + 1);
    m_avgVol = m_sumVol / m_count;
    m_orders.append(order);
    m_rest.wakeForNew();
}

void OrderQueueData::appendUncounted(const COrderVol& order)
{
    m_orders.append(order);
    m_rest.wakeForRepeat();
}

bool OrderQueueData::markOrder(std::int64_t entrustNo, EOrderQueueType type)
{
    for (int i = 0; i < m_orders.size(); ++i) {
        if (m_orders.at(i).m_entrustNo != entrustNo)
            continue;
        m_orders[i].m_type = type;
        wake();
        return true;
    }
    return false;
}

void OrderQueueData::recount()
{
    int count = 0;
    double sum = 0;
    for (const COrderVol& order : qAsConst(m_orders)) {
        if (order.m_type == OQT_CANCELED || order.m_type == OQT_DEALT)
            continue;
        ++count;
        sum += order.m_vol;
    }
    m_count = count;
    m_sumVol = sum;
    m_avgVol = sum / count;
}

bool OrderQueueData::hasPrice() const
{
    return isPositive(m_price) || isNegative(m_price);
}

QString OrderQueueData::getLevelName() const
{
    static const char* const kDigits[] = {"零", "一", "二", "三", "四", "五", "六", "七", "八", "九", "十"};
    const int tens = m_level / 10;
    const int ones = m_level % 10;

    const char* prefix = m_type == OQT_BUY ? "买" : "卖";
    if (tens >= 1 && ones >= 1)
        prefix = "十";

    const char* suffix = kDigits[0];
    if (tens == 1 && ones == 0)
        suffix = kDigits[10];
    else if (ones > 0)
        suffix = kDigits[ones];
    return QString::fromUtf8(prefix) + QString::fromUtf8(suffix);
}

bool orderQueueLesserThan(const OrderQueueDataPtr& a, const OrderQueueDataPtr& b)
{
    if (!a || !b)
        return !a && b;
    return a->m_level < b->m_level;
}

QString printLevel(const OrderQueueData& level)
{
    QString text;
    QTextStream out(&text);
    out << typeName(level.m_type) << ' ' << level.m_price << " level " << level.m_level << " sum "
        << level.m_sumVol << " volume " << level.m_levelVol << " average " << level.m_avgVol << " unknown "
        << level.m_unknownVol << " count " << level.m_count << " start " << level.m_startIndex
        << (level.m_hasPartDeal ? " part" : "") << '\n';
    for (const COrderVol& order : level.m_orders) {
        out << qint64(order.m_entrustNo) << ' ' << order.m_vol << ' ' << typeName(order.m_type);
        if (!isZero(order.m_partDealVol))
            out << ' ' << order.m_partDealVol;
        out << '\n';
    }
    out.flush();
    return text;
}

} // namespace Kel
