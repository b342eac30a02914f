#include "host/QueuePage.h"

#include "host/terminal.h"
#include "platform/services/instrument_functions.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/exchange_time.h"
#include "records/Tolerance.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace host {
namespace {

// Columns: name, price, lots, orders, average, then the orders.
constexpr int kNameWidth = 4;
constexpr int kPriceWidth = 10;
constexpr int kLotsWidth = 9;
constexpr int kCountWidth = 6;
constexpr int kAverageWidth = 8;
constexpr int kLotDecimals = 2;

const char* const kSellColor = "32";
const char* const kBuyColor = "31";
const char* const kBigColor = "33";
const char* const kSuperColor = "1;35";
const char* const kGoneColor = "2";
const char* const kHeadColor = "1";

const char* typeName(Kel::EOrderQueueType type)
{
    switch (type) {
    case Kel::OQT_CANCELED:
        return "cancelled";
    case Kel::OQT_NORMAL:
        return "normal";
    case Kel::OQT_BIG:
        return "big";
    case Kel::OQT_SUPER:
        return "super";
    case Kel::OQT_DEALT:
        return "dealt";
    case Kel::OQT_PART_DEALT:
        return "part-dealt";
    default:
        return "unknown";
    }
}

QString orderText(const Kel::COrderVol& order, bool color)
{
    QString text = lotsText(order.m_vol);
    switch (order.m_type) {
    case Kel::OQT_CANCELED:
        return colored(QLatin1Char('x') + text, kGoneColor, color);
    case Kel::OQT_DEALT:
        return colored(QLatin1Char('v') + text, kGoneColor, color);
    case Kel::OQT_BIG:
        return colored(text + QLatin1Char('*'), kBigColor, color);
    case Kel::OQT_SUPER:
        return colored(text + QStringLiteral("**"), kSuperColor, color);
    case Kel::OQT_PART_DEALT:
        if (!Kel::isZero(order.m_partDealVol))
            text += QStringLiteral("(-%1)").arg(lotsText(order.m_partDealVol));
        return text;
    default:
        return text;
    }
}

/// The orders of a row that stand inside the level.
struct InsideOrders
{
    explicit InsideOrders(const Kel::OrderQueueData& row)
        : first(std::clamp(row.m_startIndex, 0, row.m_orders.size())), size(row.m_orders.size() - first)
    {
    }
    int first;
    int size;
};

QString ordersText(const Kel::OrderQueueData& row, const PageStyle& style)
{
    const InsideOrders inside(row);
    QStringList texts;
    if (Kel::isPositive(row.m_unknownVol))
        texts << colored(QLatin1Char('?') + lotsText(row.m_unknownVol), kGoneColor, style.color);
    const int printed = std::min(inside.size, std::max(style.orders, 0));
    for (int i = 0; i < printed; ++i)
        texts << orderText(row.m_orders.at(inside.first + i), style.color);
    if (printed < inside.size)
        texts << QStringLiteral("... +%1").arg(inside.size - printed);
    return texts.join(QLatin1Char(' '));
}

QString rowLine(const Kel::OrderQueueDataPtr& row, Kel::EOrderQueueType side, int level,
                const SteppedEngine& engine, const PageStyle& style)
{
    Kel::OrderQueueData empty(0, 0, side);
    empty.m_level = level;
    const Kel::OrderQueueData& shown = row ? *row : empty;
    const QString name = padRight(shown.getLevelName(), kNameWidth);
    if (!shown.hasPrice())
        return name + padLeft(QStringLiteral("-"), kPriceWidth);
    const QString price =
        padLeft(Zeb::formatPriceDoubleNumber(shown.m_price, engine.priceTick()), kPriceWidth);
    QString line =
        name + colored(price, side == Kel::OQT_BUY ? kBuyColor : kSellColor, style.color) +
        padLeft(lotsText(shown.m_levelVol), kLotsWidth) +
        padLeft(QString::number(shown.m_count), kCountWidth) +
        padLeft(Zeb::formatDoubleNumber(shown.m_avgVol, 1, 0, false, QStringLiteral("-")), kAverageWidth);
    const QString orders = ordersText(shown, style);
    return orders.isEmpty() ? line : line + QStringLiteral("  ") + orders;
}

} // namespace

QString lotsText(double lots)
{
    QString text = Zeb::formatDoubleNumber(lots, kLotDecimals, 0, false, QStringLiteral("-"));
    if (text.contains(QLatin1Char('.'))) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (text.endsWith(QLatin1Char('.')))
            text.chop(1);
    }
    return text;
}

QStringList pageLines(const SteppedEngine& engine, std::int64_t time, const PageStyle& style)
{
    QStringList lines;
    const nelservice::CInstrumentDetailPtr detail = engine.instrument();
    QString title = Kel::getDetailQsKey(detail);
    if (detail && !detail->name.empty())
        title += QLatin1Char(' ') + QString::fromStdString(detail->name);
    title += QLatin1Char(' ') + utils::exchangeTimestamp(time).left(19);
    if (const auto depth = engine.depth(); depth && Kel::isPositive(depth->lastPrice))
        title +=
            QStringLiteral(" 最新 ") + Zeb::formatPriceDoubleNumber(depth->lastPrice, engine.priceTick());
    lines << colored(title, kHeadColor, style.color);
    if (!engine.headerText().isEmpty())
        lines << engine.headerText().split(QLatin1Char('\n'));
    lines << padRight(QStringLiteral("档位"), kNameWidth) + padLeft(QStringLiteral("价格"), kPriceWidth) +
                 padLeft(QStringLiteral("手"), kLotsWidth) + padLeft(QStringLiteral("笔"), kCountWidth) +
                 padLeft(QStringLiteral("均"), kAverageWidth) + QStringLiteral("  队列");
    const int levels = std::clamp(style.levels, 1, engine.size());
    for (int i = levels; i-- > 0;)
        lines << rowLine(engine.at(static_cast<unsigned>(i), Kel::OQT_SELL), Kel::OQT_SELL, i + 1, engine,
                         style);
    lines << QString(kNameWidth + kPriceWidth + kLotsWidth + kCountWidth + kAverageWidth, QLatin1Char('-'));
    for (int i = 0; i < levels; ++i)
        lines << rowLine(engine.at(static_cast<unsigned>(i), Kel::OQT_BUY), Kel::OQT_BUY, i + 1, engine,
                         style);
    return lines;
}

nlohmann::json pageJson(const SteppedEngine& engine, std::int64_t time, const PageStyle& style)
{
    nlohmann::json page;
    page["time"] = utils::exchangeTimestamp(time).toStdString();
    page["header"] = nlohmann::json::array();
    if (!engine.headerText().isEmpty()) {
        for (const QString& line : engine.headerText().split(QLatin1Char('\n')))
            page["header"].push_back(line.toStdString());
    }
    const auto depth = engine.depth();
    page["last"] = depth ? depth->lastPrice : 0;
    page["rows"] = nlohmann::json::array();
    const int levels = std::clamp(style.levels, 1, engine.size());
    for (const Kel::EOrderQueueType side : {Kel::OQT_SELL, Kel::OQT_BUY}) {
        for (int i = 0; i < levels; ++i) {
            const Kel::OrderQueueDataPtr row = engine.at(static_cast<unsigned>(i), side);
            if (!row)
                continue;
            nlohmann::json entry;
            entry["side"] = side == Kel::OQT_BUY ? "buy" : "sell";
            entry["level"] = i + 1;
            entry["name"] = row->getLevelName().toStdString();
            entry["price"] = row->m_price;
            entry["lots"] = row->m_levelVol;
            entry["count"] = row->m_count;
            entry["average"] = row->m_avgVol;
            entry["unknown"] = row->m_unknownVol;
            const InsideOrders inside(*row);
            entry["listed"] = inside.size;
            entry["orders"] = nlohmann::json::array();
            for (int k = 0; k < std::min(inside.size, std::max(style.orders, 0)); ++k) {
                const Kel::COrderVol& order = row->m_orders.at(inside.first + k);
                entry["orders"].push_back({{"number", order.m_entrustNo},
                                           {"lots", order.m_vol},
                                           {"type", typeName(order.m_type)},
                                           {"dealt", order.m_partDealVol}});
            }
            page["rows"].push_back(std::move(entry));
        }
    }
    return page;
}

} // namespace host
