#include "tick/tick_table.h"

#include "platform/models/order_symbols.h"
#include "platform/models/tick_values.h"
#include "platform/toolkit/number_formats.h"
#include "tick/tick_resources.h"

#include <QIODevice>
#include <QTextCodec>

#include <boost/make_shared.hpp>

#include <algorithm>

namespace Kel {

namespace {

constexpr int kRowsPerWrite = 5000;
constexpr int kRowsPerLook = 1000; // the model's lock is held for them
constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

QString sideName(int side)
{
    return side == kBuySide ? QStringLiteral("买") : side == kSellSide ? QStringLiteral("卖") : QString();
}

/// Yuan with two decimals, without units, so that a spreadsheet can count with it.
QString plainAmount(std::int64_t shares, double price)
{
    return Zeb::formatDoubleNumber(static_cast<double>(shares) * price, 2, 0, false, QString());
}

QByteArray encoded(const QString& text, ETableEncoding encoding)
{
    QTextCodec* const codec = encoding == ETableEncoding::eGbk ? QTextCodec::codecForName("GBK") : nullptr;
    return codec == nullptr ? text.toUtf8() : codec->fromUnicode(text);
}

QString line(const QStringList& cells)
{
    QStringList quoted;
    for (const QString& cell : cells)
        quoted.append(csvCell(cell));
    return quoted.join(QLatin1Char(',')) + QStringLiteral("\r\n");
}

/// A walk by what gives the next rows of a model and what makes cells of a row.
template <class Row, class Next, class Cells>
TickTableWalk walkOver(Next next, Cells cells)
{
    return [next, cells, walk = RowWalk(),
            taken = std::vector<Row>()](int most, std::vector<QStringList>& rows) mutable {
        rows.clear();
        if (!next(walk, most, taken))
            return false;
        for (const Row& row : taken)
            rows.push_back(cells(row));
        return true;
    };
}

} // namespace

QString csvCell(const QString& cell)
{
    const bool plain = !cell.contains(QLatin1Char(',')) && !cell.contains(QLatin1Char('"')) &&
                       !cell.contains(QLatin1Char('\n')) && !cell.contains(QLatin1Char('\r'));
    if (plain)
        return cell;
    QString quoted = cell;
    quoted.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

TickTable dealTable(const boost::shared_ptr<CModelDepthTransaction>& model)
{
    TickTable table;
    table.columns =
        QStringList{QStringLiteral("时间"),   QStringLiteral("价格(元)"),   QStringLiteral("成交量(手)"),
                    QStringLiteral("主动方"), QStringLiteral("买方委托号"), QStringLiteral("卖方委托号")};
    table.rowCount = [model] { return model->count.load(); };
    table.walk = [model, tick = model->priceTick] {
        const auto next = [model](RowWalk& walk, int most, std::vector<DepthTransData>& rows) {
            return model->nextRows(walk, most, rows);
        };
        return walkOver<DepthTransData>(next, [tick](const DepthTransData& deal) {
            return QStringList{clockText(deal.time),         Zeb::formatPriceDoubleNumber(deal.price, tick),
                               QString::number(deal.volume), sideName(deal.activeSide),
                               QString::number(deal.buyNo),  QString::number(deal.sellNo)};
        });
    };
    return table;
}

TickTable orderTable(const boost::shared_ptr<CModelDepthEntrust>& model)
{
    TickTable table;
    table.columns =
        QStringList{QStringLiteral("时间"),     QStringLiteral("价格(元)"), QStringLiteral("委托量(手)"),
                    QStringLiteral("金额(元)"), QStringLiteral("方向"),     QStringLiteral("类型"),
                    QStringLiteral("委托号")};
    table.rowCount = [model] { return model->orderCount.load(); };
    table.walk = [model, tick = model->priceTick] {
        const auto next = [model](RowWalk& walk, int most, std::vector<DepthOrderData>& rows) {
            return model->nextOrders(walk, most, rows);
        };
        return walkOver<DepthOrderData>(next, [tick](const DepthOrderData& order) {
            return QStringList{
                clockText(order.time),         Zeb::formatPriceDoubleNumber(order.price, tick),
                QString::number(order.lots),   plainAmount(order.volume, order.price),
                sideName(order.side),          getOrderSymbol(boost::make_shared<DepthOrderData>(order)),
                QString::number(order.orderNo)};
        });
    };
    return table;
}

TickTable cancelTable(const boost::shared_ptr<CModelDepthEntrust>& model)
{
    TickTable table;
    table.columns =
        QStringList{QStringLiteral("时间"),     QStringLiteral("价格(元)"), QStringLiteral("撤单量(手)"),
                    QStringLiteral("金额(元)"), QStringLiteral("方向"),     QStringLiteral("委托号")};
    table.rowCount = [model] { return model->cancelCount.load(); };
    table.walk = [model, tick = model->priceTick] {
        const auto next = [model](RowWalk& walk, int most, std::vector<CancelWithOrder>& rows) {
            return model->nextCancels(walk, most, rows);
        };
        return walkOver<CancelWithOrder>(next, [tick](const CancelWithOrder& row) {
            const double price = row.isKnown ? row.order.price : row.cancel.price;
            return QStringList{clockText(row.cancel.time),
                               Zeb::formatPriceDoubleNumber(price, tick),
                               QString::number(row.cancel.lots),
                               row.isKnown ? plainAmount(row.cancel.volume, price) : QString(),
                               row.isKnown ? sideName(row.order.side) : QString(),
                               QString::number(row.cancel.orderNo)};
        });
    };
    return table;
}

ETableResult writeCsv(const TickTable& table, QIODevice& device, ETableEncoding encoding,
                      const std::function<bool(int, int)>& progress)
{
    const TickTableWalk walk = table.walk();
    std::vector<QStringList> rows;
    QByteArray bytes = encoding == ETableEncoding::eUtf8WithMark ? QByteArray(kByteOrderMark) : QByteArray();
    bytes += encoded(line(table.columns), encoding);
    int done = 0;
    int nextWrite = 0;
    qint64 mostRows = 0; // that the list had
    // The walk alone tells where the list ends: while it goes on, rows come before and behind it, and go.
    for (bool isEnd = false;;) {
        if (isEnd || done >= nextWrite) {
            if (device.write(bytes) != bytes.size())
                return ETableResult::eDeviceFull;
            bytes.clear();
            nextWrite = done + kRowsPerWrite;
            if (progress && !progress(done, isEnd ? done : std::max(table.rowCount(), done)))
                return ETableResult::eStopped;
        }
        if (isEnd)
            return ETableResult::eWritten;
        if (!walk(kRowsPerLook, rows))
            return ETableResult::eListChanged;
        isEnd = rows.empty();
        // Rows that went while others came do not make twice the list: such a walk would fill the disk.
        mostRows = std::max(mostRows, qint64(table.rowCount()));
        if (done > 2 * mostRows + kRowsPerLook)
            return ETableResult::eListChanged;
        for (const QStringList& cells : rows)
            bytes += encoded(line(cells), encoding);
        done += static_cast<int>(rows.size());
    }
}

} // namespace Kel
