#include "feed/record_making.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace feed {
namespace {

constexpr double kUsualUnit = 100;
constexpr double kGreatestUnit = 1e9;

/// The unit as whole shares: no exchange has another.
std::int64_t wholeUnit(double volumeUnit)
{
    if (!(std::isfinite(volumeUnit) && volumeUnit > 0))
        volumeUnit = kUsualUnit;
    return static_cast<std::int64_t>(std::floor(std::clamp(volumeUnit, 1.0, kGreatestUnit) + 0.5));
}

/// Rounded to the nearest lot; what is there never shows as none. Nothing, and what no feed sends, below 0,
/// is divided as it stands.
std::int64_t wholeLots(std::int64_t shares, std::int64_t unit)
{
    if (shares <= 0)
        return shares / unit;
    return std::max<std::int64_t>(shares / unit + (shares % unit * 2 >= unit ? 1 : 0), 1);
}

std::int32_t roundedLots(std::int64_t shares, std::int64_t unit)
{
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(
        wholeLots(std::max<std::int64_t>(shares, 0), unit), 0, std::numeric_limits<std::int32_t>::max()));
}

std::vector<std::int32_t> roundedLots(const std::vector<std::int64_t>& volumes, std::int64_t unit)
{
    std::vector<std::int32_t> result;
    result.reserve(volumes.size());
    for (const std::int64_t volume : volumes)
        result.push_back(roundedLots(volume, unit));
    return result;
}

void fill(quoter::OrderData& record, const OrderRow& row)
{
    record.m_time = row.time;
    record.price = row.price;
    record.volume = row.volume;
    record.entrustNo = row.number;
    record.kind = row.kind;
    record.side = row.side;
}

void fill(quoter::TransactionData& record, const DealRow& row)
{
    record.m_time = row.time;
    record.price = row.price;
    record.volume = row.volume;
    record.dealNo = row.dealNo;
    record.buyNo = row.buyNo;
    record.sellNo = row.sellNo;
    record.kind = row.kind;
    record.activeSide = row.activeSide;
}

std::vector<quoter::ThousandLevel> ladderSide(const std::vector<LadderLevel>& levels)
{
    std::vector<quoter::ThousandLevel> side;
    side.reserve(levels.size());
    for (const LadderLevel& level : levels) {
        quoter::ThousandLevel made{
            level.price, level.volume, static_cast<std::int32_t>(level.orders.size()), {}};
        made.orders.reserve(level.orders.size());
        for (const LadderOrder& order : level.orders)
            made.orders.push_back({order.number, order.time, order.volume, order.dealt});
        side.push_back(std::move(made));
    }
    return side;
}

template <typename Record, typename Row>
quoter::QuoterBatch makeBatch(const Row* rows, std::size_t count)
{
    quoter::QuoterBatch batch;
    if (count == 0)
        return batch;
    const auto block = boost::make_shared<std::vector<Record>>(count);
    batch.reserve(count);
    for (std::size_t at = 0; at < count; ++at) {
        fill((*block)[at], rows[at]);
        batch.emplace_back(block, &(*block)[at]);
    }
    return batch;
}

} // namespace

std::optional<std::int32_t> dealRecordNumber(std::int64_t number)
{
    if (number < std::numeric_limits<std::int32_t>::min() ||
        number > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(number);
}

boost::shared_ptr<quoter::OrderData> makeRecord(const OrderRow& row)
{
    auto record = boost::make_shared<quoter::OrderData>();
    fill(*record, row);
    return record;
}

boost::shared_ptr<quoter::TransactionData> makeRecord(const DealRow& row)
{
    auto record = boost::make_shared<quoter::TransactionData>();
    fill(*record, row);
    return record;
}

boost::shared_ptr<quoter::QuoterDepthData> makeRecord(const SnapshotRow& row, double volumeUnit)
{
    const std::int64_t unit = wholeUnit(volumeUnit);
    auto record = boost::make_shared<quoter::QuoterDepthData>();
    record->m_time = row.time;
    record->lastPrice = row.lastPrice;
    record->previousClose = row.previousClose;
    record->openPrice = row.openPrice;
    record->highPrice = row.highPrice;
    record->lowPrice = row.lowPrice;
    record->totalVolume = row.totalVolume;
    record->turnover = row.turnover;
    record->dealCount = row.dealCount;
    for (std::size_t at = 0; at < quoter::kDepthLevels; ++at) {
        record->askPrice[at] = row.askPrice[at];
        record->askVolume[at] = wholeLots(row.askVolume[at], unit);
        record->askOrderCount[at] = row.askCount[at];
        record->bidPrice[at] = row.bidPrice[at];
        record->bidVolume[at] = wholeLots(row.bidVolume[at], unit);
        record->bidOrderCount[at] = row.bidCount[at];
    }
    return record;
}

boost::shared_ptr<quoter::LevelOrderData> makeRecord(const QueueRow& row, double volumeUnit)
{
    const std::int64_t unit = wholeUnit(volumeUnit);
    auto record = boost::make_shared<quoter::LevelOrderData>();
    record->m_time = row.time;
    record->bidPrice = row.bidPrice;
    record->bidVolumes = roundedLots(row.bidVolumes, unit);
    record->bidCount = row.bidCount;
    record->askPrice = row.askPrice;
    record->askVolumes = roundedLots(row.askVolumes, unit);
    record->askCount = row.askCount;
    return record;
}

boost::shared_ptr<quoter::ThousandData> makeRecord(const LadderRow& row)
{
    auto record = boost::make_shared<quoter::ThousandData>();
    record->m_time = row.time;
    record->lastPrice = row.lastPrice;
    record->lastVolume = row.lastVolume;
    record->buys = ladderSide(row.buys);
    record->sells = ladderSide(row.sells);
    return record;
}

quoter::QuoterBatch makeOrderBatch(const OrderRow* rows, std::size_t count)
{
    return makeBatch<quoter::OrderData>(rows, count);
}

quoter::QuoterBatch makeDealBatch(const DealRow* rows, std::size_t count)
{
    return makeBatch<quoter::TransactionData>(rows, count);
}

} // namespace feed
