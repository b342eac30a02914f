#include "host/commands/commands.h"

#include "host/Verification.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/exchange_time.h"
#include "platform/utils/market_predicates.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>

namespace host {
namespace {

constexpr int kFigureWidth = 9;

std::string timeText(std::int64_t time)
{
    return utils::clockText(time, time % 1000 != 0).toStdString();
}

const char* sideName(int side)
{
    return side == Kel::OQT_BUY ? "buy" : "sell";
}

std::string levelText(const ShownLevel& level, double tick)
{
    if (level.price == 0)
        return "nothing";
    std::string text = Zeb::formatPriceDoubleNumber(level.price, tick).toStdString() + " with " +
                       std::to_string(level.shares) + " shares";
    if (level.orders != 0)
        text += " in " + std::to_string(level.orders) + " orders";
    return text;
}

std::string place(int side, int level)
{
    return level == 0 ? std::string(sideName(side)) + " queue"
                      : std::string(sideName(side)) + ' ' + std::to_string(level);
}

LevelTally sumOf(const Verification& result)
{
    LevelTally sum;
    for (const auto* side : {&result.buy, &result.sell}) {
        for (const LevelTally& tally : *side) {
            sum.compared += tally.compared;
            sum.prices += tally.prices;
            sum.volumes += tally.volumes;
            sum.countsCompared += tally.countsCompared;
            sum.counts += tally.counts;
            sum.matched += tally.matched;
        }
    }
    return sum;
}

void printTable(const Verification& result, std::ostream& out)
{
    const auto figures = [](const LevelTally& tally) {
        QString text;
        for (const std::int64_t figure : {tally.compared, tally.prices, tally.volumes})
            text += padLeft(QString::number(figure), kFigureWidth);
        return text + padLeft(tally.countsCompared > 0 ? QString::number(tally.counts) : QStringLiteral("-"),
                              kFigureWidth);
    };
    QString head = QStringLiteral("level");
    for (int side = 0; side < 2; ++side) {
        for (const char* name : {side == 0 ? "buy" : "sell", "price", "volume", "orders"})
            head += padLeft(QLatin1String(name), kFigureWidth);
        head += side == 0 ? QStringLiteral("  |") : QString();
    }
    out << head.toStdString() << '\n';
    for (std::size_t i = 0; i < result.buy.size(); ++i) {
        out << (padLeft(QString::number(i + 1), 5) + figures(result.buy[i]) + QStringLiteral("  |") +
                figures(result.sell[i]))
                   .toStdString()
            << '\n';
    }
}

void print(const Verification& result, const feed::InstrumentDay& day, std::ostream& out)
{
    const double tick = day.detail.priceTick;
    out << day.detail.market << day.detail.code << (day.detail.name.empty() ? "" : " ") << day.detail.name
        << ", day " << day.tradingDay << ": " << day.orders.size() << " orders, " << day.deals.size()
        << " deals and cancels, " << day.snapshots.size() << " snapshots, " << day.queues.size()
        << " queues\n";
    printTable(result, out);
    const LevelTally sum = sumOf(result);
    out << result.snapshotsMatched << " of " << result.snapshots << " continuous snapshots match; "
        << sum.matched << " of " << sum.compared << " levels\n";
    if (result.levelStyle)
        out << result.queuesMatched << " of " << result.queues << " published queues match\n";
    if (!result.levelStyle) {
        out << "place in the feed: " << result.bySequence << " by sequence number, " << result.byView
            << " by the ten levels shown, " << result.unplaced << " not aligned\n";
    }
    if (result.tickBeforeCancel)
        out << "refresh ticks: three before each snapshot, and one before the cancel of an order dealt since "
               "the "
               "last tick\n";
    if (result.pricelessOrders > 0) {
        out << result.pricelessOrders << " orders without a price never enter the queue; taken off "
            << result.lessPriceless << " published levels\n";
    }
    if (result.keptRests > 0) {
        out << result.keptRests << " orders were dealt in part and cancelled between two refresh ticks\n";
    }
    for (const Unplaced& unplaced : result.unplacedListed) {
        out << "not aligned: " << timeText(unplaced.time);
        if (unplaced.side != 0) {
            out << ", " << place(unplaced.side, unplaced.level) << ": published "
                << levelText(unplaced.published, tick) << ", the feed's own book has "
                << levelText(unplaced.book, tick);
        }
        out << '\n';
    }
    if (result.unplaced > static_cast<std::int64_t>(result.unplacedListed.size()))
        out << "not aligned: " << result.unplaced - static_cast<std::int64_t>(result.unplacedListed.size())
            << " more\n";
    for (const auto& [cause, count] : result.causes)
        out << count << (count == 1 ? " mismatch: " : " mismatches: ") << cause << '\n';
    for (const Mismatch& mismatch : result.listed) {
        out << "  " << timeText(mismatch.time) << ", " << place(mismatch.side, mismatch.level)
            << ": published " << levelText(mismatch.published, tick) << ", rebuilt "
            << levelText(mismatch.rebuilt, tick);
        if (!mismatch.detail.empty())
            out << " (" << mismatch.detail << ')';
        out << '\n';
    }
    if (result.mismatches > static_cast<std::int64_t>(result.listed.size()))
        out << "  ...\n";
}

nlohmann::json levelJson(const ShownLevel& level)
{
    return {{"price", level.price}, {"shares", level.shares}, {"orders", level.orders}};
}

nlohmann::json toJson(const Verification& result, const feed::InstrumentDay& day)
{
    nlohmann::json json;
    json["instrument"] = day.detail.market + day.detail.code;
    json["day"] = day.tradingDay;
    json["tickBeforeCancel"] = result.tickBeforeCancel;
    json["style"] = result.levelStyle ? "level" : "tick";
    json["allMatch"] = result.allMatch();
    json["snapshots"] = result.snapshots;
    json["snapshotsMatched"] = result.snapshotsMatched;
    json["bySequence"] = result.bySequence;
    json["byView"] = result.byView;
    json["notAligned"] = result.unplaced;
    json["queues"] = result.queues;
    json["queuesMatched"] = result.queuesMatched;
    json["pricelessOrders"] = result.pricelessOrders;
    json["levelsLessPriceless"] = result.lessPriceless;
    json["keptRests"] = result.keptRests;
    json["mismatches"] = result.mismatches;
    json["causes"] = result.causes;
    const LevelTally sum = sumOf(result);
    json["levelsCompared"] = sum.compared;
    json["levelsMatched"] = sum.matched;
    for (const auto& [name, side] :
         {std::make_pair("buy", &result.buy), std::make_pair("sell", &result.sell)}) {
        json[name] = nlohmann::json::array();
        for (const LevelTally& tally : *side) {
            json[name].push_back({{"compared", tally.compared},
                                  {"prices", tally.prices},
                                  {"volumes", tally.volumes},
                                  {"countsCompared", tally.countsCompared},
                                  {"counts", tally.counts},
                                  {"matched", tally.matched}});
        }
    }
    json["listed"] = nlohmann::json::array();
    for (const Mismatch& mismatch : result.listed) {
        json["listed"].push_back({{"time", timeText(mismatch.time)},
                                  {"side", sideName(mismatch.side)},
                                  {"level", mismatch.level},
                                  {"published", levelJson(mismatch.published)},
                                  {"rebuilt", levelJson(mismatch.rebuilt)},
                                  {"cause", mismatch.cause},
                                  {"detail", mismatch.detail}});
    }
    json["notAlignedListed"] = nlohmann::json::array();
    for (const Unplaced& unplaced : result.unplacedListed) {
        json["notAlignedListed"].push_back({{"time", timeText(unplaced.time)},
                                            {"side", unplaced.side == 0 ? "" : sideName(unplaced.side)},
                                            {"level", unplaced.level},
                                            {"published", levelJson(unplaced.published)},
                                            {"book", levelJson(unplaced.book)}});
    }
    return json;
}

} // namespace

int runVerify(const VerifyCommandOptions& options, std::ostream& out, std::ostream& err)
{
    feed::InstrumentDay day;
    std::string error;
    if (!loadDay(options.source, day, error))
        return fail(err, error);
    if (utils::isIndex(day.detail.market, day.detail.code))
        return failWithoutQueue(err, day);

    Verification result;
    {
        ProgressBar bar("verifying");
        VerifyOptions verifying;
        verifying.refreshMs = options.refreshMs;
        verifying.mostListed = static_cast<std::size_t>(std::max(options.mostListed, 0));
        verifying.progress = bar.callback();
        result = verifyDay(day, verifying);
    }
    if (result.snapshots == 0)
        return fail(err, day.detail.market + day.detail.code +
                             ": no snapshot of continuous trading to verify against");
    if (options.json)
        out << toJson(result, day).dump(2) << '\n';
    else
        print(result, day, out);
    return result.allMatch() ? kExitDone : kExitMismatch;
}

} // namespace host
