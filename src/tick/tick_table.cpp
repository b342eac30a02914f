#include "tick/tick_table.h"

#include "platform/models/order_symbols.h"
#include "platform/models/tick_values.h"
#include "platform/toolkit/number_formats.h"
#include "tick/tick_resources.h"

#include <QIODevice>
#include <QTextCodec>

#include <algorithm>

namespace Kel {

namespace {

constexpr int kRowsPerWrite = 5000;
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
        QStringList{QStringLiteral("时间"),   QStringLiteral("价格"),       QStringLiteral("成交量(手)"),
                    QStringLiteral("主动方"), QStringLiteral("买方委托号"), QStringLiteral("卖方委托号")};
    table.rowCount = [model] { return model->count.load(); };
    table.row = [model](int row) {
        const auto deal = model->getData(row);
        if (!deal)
            return QStringList();
        return QStringList{
            clockText(deal->time),         Zeb::formatPriceDoubleNumber(deal->price, model->priceTick),
            QString::number(deal->volume), sideName(deal->activeSide),
            QString::number(deal->buyNo),  QString::number(deal->sellNo)};
    };
    return table;
}

TickTable orderTable(const boost::shared_ptr<CModelDepthEntrust>& model)
{
    TickTable table;
    table.columns =
        QStringList{QStringLiteral("时间"),     QStringLiteral("价格"), QStringLiteral("委托量(手)"),
                    QStringLiteral("金额(元)"), QStringLiteral("方向"), QStringLiteral("类型"),
                    QStringLiteral("委托号")};
    table.rowCount = [model] { return model->orderCount.load(); };
    table.row = [model](int row) {
        const auto order = model->getOrderData(row, false);
        if (!order)
            return QStringList();
        return QStringList{
            clockText(order->time),         Zeb::formatPriceDoubleNumber(order->price, model->priceTick),
            QString::number(order->lots),   plainAmount(order->volume, order->price),
            sideName(order->side),          getOrderSymbol(order),
            QString::number(order->orderNo)};
    };
    return table;
}

TickTable cancelTable(const boost::shared_ptr<CModelDepthEntrust>& model)
{
    TickTable table;
    table.columns =
        QStringList{QStringLiteral("时间"),     QStringLiteral("价格"), QStringLiteral("撤单量(手)"),
                    QStringLiteral("金额(元)"), QStringLiteral("方向"), QStringLiteral("委托号")};
    table.rowCount = [model] { return model->cancelCount.load(); };
    table.row = [model](int row) {
        const auto cancel = model->getCancelData(row);
        if (!cancel)
            return QStringList();
        boost::shared_ptr<DepthOrderData> order;
        model->getOrderData(cancel->orderNo, order);
        const double price = order ? order->price : cancel->price;
        return QStringList{clockText(cancel->time),
                           Zeb::formatPriceDoubleNumber(price, model->priceTick),
                           QString::number(cancel->lots),
                           order ? plainAmount(cancel->volume, price) : QString(),
                           order ? sideName(order->side) : QString(),
                           QString::number(cancel->orderNo)};
    };
    return table;
}

bool writeCsv(const TickTable& table, QIODevice& device, ETableEncoding encoding,
              const std::function<bool(int, int)>& progress)
{
    const int total = table.rowCount();
    QByteArray bytes = encoding == ETableEncoding::eUtf8WithMark ? QByteArray(kByteOrderMark) : QByteArray();
    bytes += encoded(line(table.columns), encoding);
    for (int row = 0;; ++row) {
        if (row == total || row % kRowsPerWrite == 0) {
            if (device.write(bytes) != bytes.size())
                return false;
            bytes.clear();
            if (progress && !progress(row, total))
                return false;
        }
        if (row == total)
            return true;
        const QStringList cells = table.row(row);
        if (!cells.isEmpty())
            bytes += encoded(line(cells), encoding);
    }
}

} // namespace Kel
