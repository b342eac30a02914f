#include "host/window/tables/book_tables.h"

#include "host/window/tables/text_tables.h"
#include "platform/utils/exchange_time.h"
#include "records/Tolerance.h"

#include <algorithm>

namespace host {

namespace {

constexpr int kNewOrder = 1;
constexpr int kPartDealt = 2;

QStringList levelColumns()
{
    return {QStringLiteral("方向"), QStringLiteral("档位"), QStringLiteral("价格(元)"),
            QStringLiteral("量(手)")};
}

QString latestName()
{
    return QStringLiteral("最新");
}

QStringList cellsOf(const LadderRows& ladder, bool isBuy, int level, const Kel::EntrustData& entry)
{
    return {sideText(isBuy),
            QString::number(level),
            plainPrice(entry.price, ladder.priceTick),
            QString::number(entry.volume),
            QString::number(entry.orderCount),
            QString::number(entry.change)};
}

QString lotsOf(std::int64_t shares, int unit)
{
    return plainLots(static_cast<double>(shares) / std::max(unit, 1));
}

QString stateText(int state)
{
    return state == kNewOrder    ? QStringLiteral("新")
           : state == kPartDealt ? QStringLiteral("部成")
                                 : QString();
}

} // namespace

Kel::TickTable ladderTable(const LadderRows& ladder)
{
    std::vector<QStringList> rows;
    for (std::size_t i = ladder.sells.size(); i-- > 0;)
        rows.push_back(cellsOf(ladder, false, static_cast<int>(i) + 1, *ladder.sells[i]));
    const QString latest = plainPrice(ladder.latest, ladder.priceTick);
    if (!latest.isEmpty())
        rows.push_back({latestName(), QString(), latest,
                        ladder.lastVolume > 0 ? QString::number(ladder.lastVolume) : QString(), QString(),
                        QString()});
    for (std::size_t i = ladder.buys.size(); i-- > 0;)
        rows.push_back(cellsOf(ladder, true, static_cast<int>(ladder.buys.size() - i), *ladder.buys[i]));
    return fixedTable(levelColumns() << QStringLiteral("笔数") << QStringLiteral("变化(手)"),
                      std::move(rows));
}

QStringList ladderCells(const LadderRows& ladder, bool isBuy, double price)
{
    const LadderRows::Levels& side = isBuy ? ladder.buys : ladder.sells;
    for (std::size_t i = 0; i < side.size(); ++i) {
        if (Kel::isEqual(side[i]->price, price))
            return cellsOf(ladder, isBuy, static_cast<int>(isBuy ? side.size() - i : i + 1), *side[i]);
    }
    return {};
}

Kel::TickTable priceOrderTable(const Kel::SingleQueue& queue, double priceTick, int unit)
{
    std::vector<QStringList> rows;
    for (const auto& [number, quote] : queue.quotes) {
        if (!quote)
            continue;
        rows.push_back({sideText(queue.isBuy != 0), plainPrice(queue.price, priceTick),
                        QString::number(rows.size() + 1), QString::number(number),
                        utils::clockText(quote->time, true),
                        lotsOf(std::int64_t(quote->volume) - quote->dealtVolume, unit),
                        lotsOf(quote->dealtVolume, unit), stateText(quote->state)});
    }
    return fixedTable({QStringLiteral("方向"), QStringLiteral("价格(元)"), QStringLiteral("排位"),
                       QStringLiteral("委托号"), QStringLiteral("时间"), QStringLiteral("剩余(手)"),
                       QStringLiteral("已成交(手)"), QStringLiteral("状态")},
                      std::move(rows));
}

QStringList quoteCells(const Kel::EntrustStatusData& quote, int shelves, int row)
{
    if (row < 0 || row > 2 * shelves)
        return {};
    if (row == shelves)
        return {latestName(), QString(), plainPrice(quote.lastPrice, quote.priceTick),
                quote.newVolume > 0 ? QString::number(quote.newVolume) : QString(), QString()};
    const bool isBuy = row > shelves;
    const int number = isBuy ? row - shelves : shelves - row;
    const Kel::EntrustLevel level =
        isBuy ? quote.bidLevels.value(number - 1) : quote.askLevels.value(quote.askLevels.size() - number);
    QStringList cells{sideText(isBuy), QString::number(number)};
    if (!level.valid)
        return cells << QString() << QString() << QString();
    return cells << plainPrice(level.price, quote.priceTick) << QString::number(level.volume)
                 << QString::number(level.change);
}

Kel::TickTable quoteTable(const Kel::EntrustStatusData& quote, int shelves)
{
    std::vector<QStringList> rows;
    for (int row = 0; row <= 2 * shelves; ++row)
        rows.push_back(quoteCells(quote, shelves, row));
    return fixedTable(levelColumns() << QStringLiteral("变化(手)"), std::move(rows));
}

QString quoteText(const Kel::EntrustStatusData& quote, int shelves, int markedRow)
{
    if (!quote.instrument)
        return {};
    const QStringList cells = quoteCells(quote, shelves, markedRow);
    return cells.isEmpty() ? tableText(quoteTable(quote, shelves), kMostCopiedRows) : rowText(cells);
}

} // namespace host
