// The rows of an archive as lines of text.

#include "feed/archive/archive_tables.h"

#include "feed/archive/TableLine.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace feed {

namespace {

using nelservice::EInstrumentKind;

struct PhaseName
{
    Phase phase;
    const char* name;
};
constexpr PhaseName kPhaseNames[] = {
    {Phase::Unknown, "unknown"},       {Phase::Start, "start"}, {Phase::OpeningAuction, "opening-auction"},
    {Phase::Continuous, "continuous"}, {Phase::Break, "break"}, {Phase::ClosingAuction, "closing-auction"},
    {Phase::Closed, "closed"},
};

struct KindName
{
    EInstrumentKind kind;
    const char* name;
};
constexpr KindName kKindNames[] = {
    {EInstrumentKind::Unknown, "unknown"},
    {EInstrumentKind::Stock, "stock"},
    {EInstrumentKind::Fund, "fund"},
    {EInstrumentKind::Bond, "bond"},
    {EInstrumentKind::ConvertibleBond, "convertible-bond"},
    {EInstrumentKind::Repurchase, "repurchase"},
    {EInstrumentKind::Index, "index"},
    {EInstrumentKind::Future, "future"},
    {EInstrumentKind::Option, "option"},
};

bool allFinite(const std::array<double, quoter::kDepthLevels>& values)
{
    return std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); });
}

} // namespace

const char* const kInstrumentsHeader =
    "market,code,name,kind,price_tick,previous_close,upper_limit,lower_limit,"
    "trading_day";
// The last column of each table of rows is a word or a single digit: a line that is cut shows it, since the
// last column is then empty or no such word.
const char* const kOrdersHeader = "time,seq,number,price,volume,side,kind";
const char* const kDealsHeader = "time,seq,deal_no,buy_no,sell_no,price,volume,kind,active_side";
const char* const kQueuesHeader =
    "time,seq,bid_price,bid_count,ask_price,ask_count,bid_volumes,ask_volumes,end";
const char* const kQueueEnd = "end";

std::string snapshotsHeader()
{
    std::string header =
        "time,seq,last_price,previous_close,open_price,high_price,low_price,total_volume,turnover,"
        "deal_count";
    for (const char* const side : {"ask", "bid"}) {
        for (const char* const what : {"price", "volume", "count"}) {
            for (int level = 1; level <= quoter::kDepthLevels; ++level)
                header += std::string(",") + side + "_" + what + "_" + std::to_string(level);
        }
    }
    return header + ",phase";
}

void appendLine(std::string& text, const ArchivedInstrument& instrument)
{
    const nelservice::CInstrumentDetail& detail = instrument.detail;
    TableLine(text)
        .word(detail.market)
        .word(detail.code)
        .quoted(detail.name)
        .word(kindName(detail.kind))
        .number(detail.priceTick)
        .number(detail.previousClose)
        .number(detail.upperLimit)
        .number(detail.lowerLimit)
        .integer(instrument.tradingDay);
}

void appendLine(std::string& text, const OrderRow& row)
{
    TableLine(text)
        .integer(row.time)
        .integer(row.seq)
        .integer(row.number)
        .number(row.price)
        .integer(row.volume)
        .integer(row.side)
        .integer(row.kind);
}

void appendLine(std::string& text, const DealRow& row)
{
    TableLine(text)
        .integer(row.time)
        .integer(row.seq)
        .integer(row.dealNo)
        .integer(row.buyNo)
        .integer(row.sellNo)
        .number(row.price)
        .integer(row.volume)
        .integer(row.kind)
        .integer(row.activeSide);
}

void appendLine(std::string& text, const SnapshotRow& row)
{
    TableLine line(text);
    line.integer(row.time)
        .integer(row.seq)
        .number(row.lastPrice)
        .number(row.previousClose)
        .number(row.openPrice);
    line.number(row.highPrice).number(row.lowPrice).integer(row.totalVolume).number(row.turnover);
    line.integer(row.dealCount);
    for (const double price : row.askPrice)
        line.number(price);
    for (const std::int64_t volume : row.askVolume)
        line.integer(volume);
    for (const std::int32_t count : row.askCount)
        line.integer(count);
    for (const double price : row.bidPrice)
        line.number(price);
    for (const std::int64_t volume : row.bidVolume)
        line.integer(volume);
    for (const std::int32_t count : row.bidCount)
        line.integer(count);
    line.word(phaseName(row.phase));
}

void appendLine(std::string& text, const QueueRow& row)
{
    TableLine(text)
        .integer(row.time)
        .integer(row.seq)
        .number(row.bidPrice)
        .integer(row.bidCount)
        .number(row.askPrice)
        .integer(row.askCount)
        .list(row.bidVolumes)
        .list(row.askVolumes)
        .word(kQueueEnd);
}

bool isWritable(const OrderRow& row)
{
    return std::isfinite(row.price);
}

bool isWritable(const DealRow& row)
{
    return std::isfinite(row.price);
}

bool isWritable(const SnapshotRow& row)
{
    return std::isfinite(row.lastPrice) && std::isfinite(row.previousClose) && std::isfinite(row.openPrice) &&
           std::isfinite(row.highPrice) && std::isfinite(row.lowPrice) && std::isfinite(row.turnover) &&
           allFinite(row.askPrice) && allFinite(row.bidPrice);
}

bool isWritable(const QueueRow& row)
{
    return std::isfinite(row.bidPrice) && std::isfinite(row.askPrice);
}

bool isInstrumentKey(const std::string& market, const std::string& code)
{
    constexpr std::size_t kLongest = 64;
    const auto fits = [](const std::string& part) {
        return !part.empty() && std::all_of(part.begin(), part.end(), [](char c) {
            return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
                   c == '-';
        });
    };
    return market.size() + code.size() <= kLongest && fits(market) && fits(code);
}

const char* phaseName(Phase phase)
{
    for (const PhaseName& entry : kPhaseNames) {
        if (entry.phase == phase)
            return entry.name;
    }
    return kPhaseNames[0].name;
}

bool phaseFromName(std::string_view name, Phase& phase)
{
    const auto* const found = std::find_if(std::begin(kPhaseNames), std::end(kPhaseNames),
                                           [&](const PhaseName& entry) { return entry.name == name; });
    if (found == std::end(kPhaseNames))
        return false;
    phase = found->phase;
    return true;
}

const char* kindName(EInstrumentKind kind)
{
    for (const KindName& entry : kKindNames) {
        if (entry.kind == kind)
            return entry.name;
    }
    return kKindNames[0].name;
}

bool kindFromName(std::string_view name, EInstrumentKind& kind)
{
    const auto* const found = std::find_if(std::begin(kKindNames), std::end(kKindNames),
                                           [&](const KindName& entry) { return entry.name == name; });
    if (found == std::end(kKindNames))
        return false;
    kind = found->kind;
    return true;
}

} // namespace feed
