#include "host/window/tables/queue_tables.h"

#include "host/window/tables/text_tables.h"
#include "platform/toolkit/number_formats.h"
#include "queue_engine/CDepthModelOrderQueue.h"
#include "records/Tolerance.h"

#include <algorithm>
#include <vector>

namespace host {

namespace {

constexpr int kAverageDecimals = 1;

QStringList levelColumns()
{
    return {QStringLiteral("方向"),   QStringLiteral("档位"), QStringLiteral("价格(元)"),
            QStringLiteral("量(手)"), QStringLiteral("笔数"), QStringLiteral("每笔(手)")};
}

/// The rows that are shown, the farthest sell level first.
std::vector<Kel::OrderQueueDataPtr> shownRows(const Kel::CDepthModelOrderQueue& queue, int levels)
{
    const int shown = std::clamp(levels, 0, queue.size());
    std::vector<Kel::OrderQueueDataPtr> rows;
    const auto take = [&](int index, Kel::EOrderQueueType side) {
        const Kel::OrderQueueDataPtr row = queue.at(static_cast<unsigned>(index), side);
        if (row && row->hasPrice())
            rows.push_back(row);
    };
    for (int index = shown; index-- > 0;)
        take(index, Kel::OQT_SELL);
    for (int index = 0; index < shown; ++index)
        take(index, Kel::OQT_BUY);
    return rows;
}

QString priceOf(const Kel::OrderQueueData& row, int decimals)
{
    return Zeb::formatDoubleNumber(row.m_price, decimals, 0, false, QString());
}

QStringList headOf(const Kel::OrderQueueData& row, int decimals)
{
    return {sideText(row.m_type == Kel::OQT_BUY), QString::number(row.m_level), priceOf(row, decimals)};
}

QStringList levelCells(const Kel::OrderQueueData& row, int decimals)
{
    return headOf(row, decimals) << plainLots(row.m_levelVol) << QString::number(row.m_count)
                                 << Zeb::formatDoubleNumber(row.m_avgVol, kAverageDecimals, 0, false,
                                                            QString());
}

/// An order as it is shown: of the first one a level may hold less than the order says.
struct ShownOrder
{
    const Kel::COrderVol* order;
    double lots;
};

std::vector<ShownOrder> ordersOf(const Kel::OrderQueueData& row)
{
    std::vector<ShownOrder> orders;
    const int first = std::clamp(row.m_startIndex, 0, row.m_orders.size());
    for (int i = first; i < row.m_orders.size(); ++i) {
        const Kel::COrderVol& order = row.m_orders.at(i);
        const bool isCut = i == first && Kel::isNegative(row.m_unknownVol);
        orders.push_back({&order, isCut ? order.m_vol + row.m_unknownVol : order.m_vol});
    }
    return orders;
}

bool hasEnded(const Kel::COrderVol& order)
{
    return order.m_type == Kel::OQT_CANCELED || order.m_type == Kel::OQT_DEALT;
}

QString stateText(Kel::EOrderQueueType type)
{
    switch (type) {
    case Kel::OQT_CANCELED:
        return QStringLiteral("已撤");
    case Kel::OQT_DEALT:
        return QStringLiteral("已成");
    case Kel::OQT_PART_DEALT:
        return QStringLiteral("部成");
    case Kel::OQT_BIG:
        return QStringLiteral("大单");
    case Kel::OQT_SUPER:
        return QStringLiteral("特大单");
    default:
        return QStringLiteral("普通");
    }
}

void addOrders(const Kel::OrderQueueData& row, int decimals, std::vector<QStringList>& rows)
{
    const QStringList head = headOf(row, decimals);
    int place = 0;
    for (const ShownOrder& shown : ordersOf(row)) {
        const Kel::COrderVol& order = *shown.order;
        const QString number = order.m_entrustNo > 0 ? QString::number(order.m_entrustNo) : QString();
        const QString dealt =
            Kel::isPositive(order.m_partDealVol) ? plainLots(order.m_partDealVol) : QString();
        rows.push_back(head + QStringList{hasEnded(order) ? QString() : QString::number(++place), number,
                                          plainLots(shown.lots), dealt, stateText(order.m_type)});
    }
    if (Kel::isPositive(row.m_unknownVol))
        rows.push_back(head + QStringList{QString(), QString(), plainLots(row.m_unknownVol), QString(),
                                          QStringLiteral("未知")});
}

} // namespace

Kel::TickTable queueLevelTable(const Kel::CDepthModelOrderQueue& queue, int levels)
{
    std::vector<QStringList> rows;
    for (const Kel::OrderQueueDataPtr& row : shownRows(queue, levels))
        rows.push_back(levelCells(*row, queue.getPrecision()));
    return fixedTable(levelColumns(), std::move(rows));
}

Kel::TickTable queueOrderTable(const Kel::CDepthModelOrderQueue& queue, int levels)
{
    std::vector<QStringList> rows;
    for (const Kel::OrderQueueDataPtr& row : shownRows(queue, levels))
        addOrders(*row, queue.getPrecision(), rows);
    return fixedTable({QStringLiteral("方向"), QStringLiteral("档位"), QStringLiteral("价格(元)"),
                       QStringLiteral("排位"), QStringLiteral("委托号"), QStringLiteral("量(手)"),
                       QStringLiteral("已成交(手)"), QStringLiteral("状态")},
                      std::move(rows));
}

QString queueText(const Kel::CDepthModelOrderQueue& queue, int levels)
{
    std::vector<QStringList> rows;
    for (const Kel::OrderQueueDataPtr& row : shownRows(queue, levels)) {
        QStringList cells = levelCells(*row, queue.getPrecision());
        for (const ShownOrder& shown : ordersOf(*row)) {
            if (!hasEnded(*shown.order))
                cells.append(plainLots(shown.lots));
        }
        rows.push_back(cells);
    }
    return rows.empty() ? QString()
                        : tableText(fixedTable(levelColumns() << QStringLiteral("各笔(手)"), std::move(rows)),
                                    kMostCopiedRows);
}

} // namespace host
