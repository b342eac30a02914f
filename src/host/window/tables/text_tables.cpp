#include "host/window/tables/text_tables.h"

#include "platform/toolkit/number_formats.h"

#include <QAbstractItemModel>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

namespace host {

namespace {

constexpr int kLotDecimals = 2;
constexpr int kRowsPerLook = 1000;

} // namespace

Kel::TickTable fixedTable(const QStringList& columns, std::vector<QStringList> rows)
{
    const auto kept = std::make_shared<const std::vector<QStringList>>(std::move(rows));
    Kel::TickTable table;
    table.columns = columns;
    table.rowCount = [kept] { return static_cast<int>(kept->size()); };
    table.walk = [kept] {
        return [kept, next = std::size_t(0)](int most, std::vector<QStringList>& taken) mutable {
            const std::size_t end =
                std::min(kept->size(), next + static_cast<std::size_t>(std::max(most, 0)));
            taken.assign(kept->begin() + static_cast<std::ptrdiff_t>(next),
                         kept->begin() + static_cast<std::ptrdiff_t>(end));
            next = end;
            return true;
        };
    };
    return table;
}

Kel::TickTable modelTable(const QAbstractItemModel& model, const QList<int>& columns,
                          const QStringList& names)
{
    std::vector<QStringList> rows;
    rows.reserve(static_cast<std::size_t>(model.rowCount()));
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList cells;
        for (const int column : columns)
            cells.append(model.index(row, column).data().toString());
        rows.push_back(cells);
    }
    return fixedTable(names, std::move(rows));
}

QString rowText(const QStringList& cells)
{
    QString text = cells.join(QChar(0));
    for (const char sign : {'\t', '\n', '\r'})
        text.replace(QLatin1Char(sign), QLatin1Char(' '));
    return text.replace(QChar(0), QLatin1Char('\t'));
}

QString tableText(const Kel::TickTable& table, int most)
{
    QString text = rowText(table.columns) + QLatin1Char('\n');
    const Kel::TickTableWalk walk = table.walk();
    std::vector<QStringList> rows;
    int taken = 0;
    do {
        if (!walk(kRowsPerLook, rows))
            return {};
        taken += static_cast<int>(rows.size());
        if (taken > most)
            return {};
        for (const QStringList& cells : rows)
            text += rowText(cells) + QLatin1Char('\n');
    } while (!rows.empty());
    return text;
}

QString plainLots(double lots)
{
    QString text = Zeb::formatDoubleNumber(lots, kLotDecimals, 0, false, QString());
    if (!text.contains(QLatin1Char('.')))
        return text;
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text;
}

QString plainPrice(double price, double priceTick)
{
    const bool known = std::isfinite(price) && price > 0 && price < std::numeric_limits<double>::max();
    return known ? Zeb::formatPriceDoubleNumber(price, priceTick) : QString();
}

QString sideText(bool isBuy)
{
    return isBuy ? QStringLiteral("买") : QStringLiteral("卖");
}

} // namespace host
