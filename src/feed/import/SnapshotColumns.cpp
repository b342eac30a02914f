#include "feed/import/SnapshotColumns.h"

#include "feed/csv/values.h"

#include <initializer_list>
#include <string>

namespace feed {

namespace {

constexpr int kMostQueued = 50;

/// Columns prefix + number, from the first prefix that the table has; numbers begin at 0 or at 1.
std::vector<int> numbered(const CsvReader& reader, std::initializer_list<const char*> prefixes, int count)
{
    for (const char* const prefix : prefixes) {
        const std::string name = prefix;
        const int base = reader.column(name + "0") >= 0 ? 0 : 1;
        if (reader.column(name + std::to_string(base)) < 0)
            continue;
        std::vector<int> columns;
        for (int i = 0; i < count; ++i)
            columns.push_back(reader.column(name + std::to_string(base + i)));
        return columns;
    }
    return std::vector<int>(static_cast<std::size_t>(count), -1);
}

bool volume(const CsvReader& row, int column, std::int64_t& value)
{
    const std::string_view cell = row.field(column);
    return cell.empty() || parseVolume(cell, value);
}

bool count(const CsvReader& row, int column, std::int32_t& value)
{
    const std::string_view cell = row.field(column);
    return cell.empty() || (parseInteger32(cell, value) && value >= 0);
}

/// The volumes of a published queue, up to the first that is 0 or absent.
bool queueOf(const CsvReader& row, const std::vector<int>& columns, std::vector<std::int64_t>& volumes)
{
    for (const int column : columns) {
        std::int64_t value = 0;
        if (!volume(row, column, value))
            return false;
        if (value == 0)
            break;
        volumes.push_back(value);
    }
    return true;
}

struct PhaseWord
{
    const char* word;
    Phase phase;
};

/// Shanghai writes words, Shenzhen a letter (perhaps with a digit behind it), tables made from it a number.
constexpr PhaseWord kPhaseWords[] = {
    {"START", Phase::Start},       {"OCALL", Phase::OpeningAuction},
    {"TRADE", Phase::Continuous},  {"BREAK", Phase::Break},
    {"BETW", Phase::Break},        {"CCALL", Phase::ClosingAuction},
    {"CLOSE", Phase::Closed},      {"ENDTR", Phase::Closed},
    {"S", Phase::Start},           {"O", Phase::OpeningAuction},
    {"T", Phase::Continuous},      {"B", Phase::Break},
    {"C", Phase::ClosingAuction},  {"E", Phase::Closed},
    {"A", Phase::Closed},          {"S0", Phase::Start},
    {"O0", Phase::OpeningAuction}, {"T0", Phase::Continuous},
    {"B0", Phase::Break},          {"C0", Phase::ClosingAuction},
    {"E0", Phase::Closed},         {"A0", Phase::Closed},
    {"0", Phase::Start},           {"1", Phase::OpeningAuction},
    {"2", Phase::OpeningAuction},  {"3", Phase::Continuous},
    {"4", Phase::Break},           {"5", Phase::ClosingAuction},
    {"6", Phase::Closed},
};

} // namespace

Phase phaseOf(std::string_view status, std::int64_t msOfDay)
{
    for (const PhaseWord& entry : kPhaseWords) {
        if (status == entry.word)
            return entry.phase;
    }
    constexpr std::int64_t kMinute = 60 * 1000;
    const std::int64_t minute = msOfDay / kMinute;
    if (minute < 9 * 60 + 15)
        return Phase::Start;
    if (minute < 9 * 60 + 30)
        return Phase::OpeningAuction;
    if (minute < 11 * 60 + 30)
        return Phase::Continuous;
    if (minute < 13 * 60)
        return Phase::Break;
    if (minute < 14 * 60 + 57)
        return Phase::Continuous;
    return minute < 15 * 60 ? Phase::ClosingAuction : Phase::Closed;
}

SnapshotColumns::SnapshotColumns(const FileKind& kind, const CsvReader& reader)
    : m_kind(kind), m_columns(columnsOf(kind, reader))
{
    constexpr int kLevels = quoter::kDepthLevels;
    m_ask.prices = numbered(reader, {"AskPrice", "OfferPrice", "SellPrice", "申卖价"}, kLevels);
    m_ask.volumes = numbered(reader, {"AskVolume", "OfferOrderQty", "SellOrderQty", "申卖量"}, kLevels);
    m_ask.counts = numbered(reader, {"NumOrdersS", "OfferNumOrders", "SellNumOrders", "申卖笔数"}, kLevels);
    m_ask.queued = numbered(reader, {"OfferOrders"}, kMostQueued);
    m_bid.prices = numbered(reader, {"BidPrice", "BuyPrice", "申买价"}, kLevels);
    m_bid.volumes = numbered(reader, {"BidVolume", "BidOrderQty", "BuyOrderQty", "申买量"}, kLevels);
    m_bid.counts = numbered(reader, {"NumOrdersB", "BidNumOrders", "BuyNumOrders", "申买笔数"}, kLevels);
    m_bid.queued = numbered(reader, {"BidOrders"}, kMostQueued);
}

bool SnapshotColumns::price(const CsvReader& row, int column, double& value) const
{
    const std::string_view cell = row.field(column);
    return cell.empty() || parsePrice(cell, m_kind.priceScale, value);
}

const char* SnapshotColumns::read(const CsvReader& row, std::int64_t msOfDay, SnapshotRow& snapshot,
                                  QueueRow& queue) const
{
    if (!price(row, column(Field::LastPrice), snapshot.lastPrice) ||
        !price(row, column(Field::PreviousClose), snapshot.previousClose) ||
        !price(row, column(Field::OpenPrice), snapshot.openPrice) ||
        !price(row, column(Field::HighPrice), snapshot.highPrice) ||
        !price(row, column(Field::LowPrice), snapshot.lowPrice))
        return "bad price";
    const std::string_view turnover = row.field(column(Field::Turnover));
    if (!volume(row, column(Field::TotalVolume), snapshot.totalVolume) ||
        (!turnover.empty() && !parseNumber(turnover, snapshot.turnover)) ||
        !count(row, column(Field::DealCount), snapshot.dealCount))
        return "bad total";
    for (std::size_t i = 0; i < quoter::kDepthLevels; ++i) {
        if (!price(row, m_ask.prices[i], snapshot.askPrice[i]) ||
            !price(row, m_bid.prices[i], snapshot.bidPrice[i]))
            return "bad price";
        if (!volume(row, m_ask.volumes[i], snapshot.askVolume[i]) ||
            !volume(row, m_bid.volumes[i], snapshot.bidVolume[i]))
            return "bad volume";
        if (!count(row, m_ask.counts[i], snapshot.askCount[i]) ||
            !count(row, m_bid.counts[i], snapshot.bidCount[i]))
            return "bad number of orders";
    }
    snapshot.phase = phaseOf(row.field(column(Field::Status)), msOfDay);
    if (!queueOf(row, m_ask.queued, queue.askVolumes) || !queueOf(row, m_bid.queued, queue.bidVolumes))
        return "bad volume";
    queue.askPrice = queue.askVolumes.empty() ? 0 : snapshot.askPrice[0];
    queue.bidPrice = queue.bidVolumes.empty() ? 0 : snapshot.bidPrice[0];
    queue.askCount = queue.askVolumes.empty() ? 0 : snapshot.askCount[0];
    queue.bidCount = queue.bidVolumes.empty() ? 0 : snapshot.bidCount[0];
    return nullptr;
}

void SnapshotColumns::limits(const CsvReader& row, double& upper, double& lower) const
{
    // Information only: a line with a bad limit is a good snapshot.
    if (!price(row, column(Field::UpperLimit), upper))
        upper = 0;
    if (!price(row, column(Field::LowerLimit), lower))
        lower = 0;
}

} // namespace feed
