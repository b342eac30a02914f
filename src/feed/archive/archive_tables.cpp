// Reading the tables of an archive.

#include "feed/archive/archive_tables.h"

#include "feed/archive/TableColumns.h"
#include "feed/csv/read_rows.h"
#include "feed/csv/values.h"

namespace feed {

namespace {

bool volumeList(std::string_view cell, std::vector<std::int64_t>& volumes)
{
    volumes.clear();
    while (!cell.empty()) {
        const std::size_t blank = cell.find(' ');
        const std::string_view word = cell.substr(0, blank);
        cell.remove_prefix(blank == std::string_view::npos ? cell.size() : blank + 1);
        if (word.empty())
            continue;
        std::int64_t volume = 0;
        if (!parseInteger(word, volume))
            return false;
        volumes.push_back(volume);
    }
    return true;
}

} // namespace

bool readTable(CsvReader& reader, std::vector<ArchivedInstrument>& rows, ImportReport& report,
               const Progress& progress, Error& error)
{
    TableColumns columns(reader);
    const int market = columns.required("market");
    const int code = columns.required("code");
    const int name = columns.optional("name");
    const int kind = columns.optional("kind");
    const int tick = columns.optional("price_tick");
    const int previousClose = columns.optional("previous_close");
    const int upper = columns.optional("upper_limit");
    const int lower = columns.optional("lower_limit");
    const int day = columns.required("trading_day");
    if (!columns.complete(error))
        return false;
    return readRows(reader, report, progress, error, [&](const CsvReader& row) -> const char* {
        ArchivedInstrument instrument;
        nelservice::CInstrumentDetail& detail = instrument.detail;
        detail.market = row.field(market);
        detail.code = row.field(code);
        detail.name = row.text(name);
        if (!isInstrumentKey(detail.market, detail.code))
            return "bad market or code";
        if (!row.field(kind).empty() && !kindFromName(row.field(kind), detail.kind))
            return "unknown kind";
        if (!optionalNumber(row, tick, detail.priceTick) || detail.priceTick <= 0)
            return "bad price tick";
        if (!optionalNumber(row, previousClose, detail.previousClose) ||
            !optionalNumber(row, upper, detail.upperLimit) || !optionalNumber(row, lower, detail.lowerLimit))
            return kBadPrice;
        if (!parseInteger(row.field(day), instrument.tradingDay) || !isDate(instrument.tradingDay))
            return "bad trading day";
        rows.push_back(std::move(instrument));
        return nullptr;
    });
}

bool readTable(CsvReader& reader, std::vector<OrderRow>& rows, ImportReport& report, const Progress& progress,
               Error& error)
{
    TableColumns columns(reader);
    const int time = columns.required("time");
    const int seq = columns.required("seq");
    const int number = columns.required("number");
    const int price = columns.required("price");
    const int volume = columns.required("volume");
    const int side = columns.required("side");
    const int kind = columns.optional("kind");
    if (!columns.complete(error))
        return false;
    return readRows(reader, report, progress, error, [&](const CsvReader& row) -> const char* {
        OrderRow order;
        if (!parseInteger(row.field(time), order.time))
            return kBadTime;
        if (!parseInteger(row.field(seq), order.seq))
            return kBadSequence;
        if (!parseInteger(row.field(number), order.number))
            return kBadNumber;
        if (!parseNumber(row.field(price), order.price))
            return kBadPrice;
        if (!parseInteger(row.field(volume), order.volume))
            return kBadVolume;
        if (!parseInteger32(row.field(side), order.side))
            return "bad side";
        if (isCut(row, kind))
            return kCutLastLine;
        if (!optionalInteger(row, kind, order.kind))
            return "bad kind";
        if (!rows.empty() && order.seq <= rows.back().seq)
            return kBadOutOfOrder;
        rows.push_back(order);
        return nullptr;
    });
}

bool readTable(CsvReader& reader, std::vector<DealRow>& rows, ImportReport& report, const Progress& progress,
               Error& error)
{
    TableColumns columns(reader);
    const int time = columns.required("time");
    const int seq = columns.required("seq");
    const int dealNo = columns.optional("deal_no");
    const int buyNo = columns.required("buy_no");
    const int sellNo = columns.required("sell_no");
    const int price = columns.required("price");
    const int volume = columns.required("volume");
    const int kind = columns.required("kind");
    const int activeSide = columns.optional("active_side");
    if (!columns.complete(error))
        return false;
    return readRows(reader, report, progress, error, [&](const CsvReader& row) -> const char* {
        DealRow deal;
        if (!parseInteger(row.field(time), deal.time))
            return kBadTime;
        if (!parseInteger(row.field(seq), deal.seq))
            return kBadSequence;
        if (!optionalInteger(row, dealNo, deal.dealNo) || !parseInteger32(row.field(buyNo), deal.buyNo) ||
            !parseInteger32(row.field(sellNo), deal.sellNo))
            return kBadNumber;
        if (!parseNumber(row.field(price), deal.price))
            return kBadPrice;
        if (!parseInteger(row.field(volume), deal.volume))
            return kBadVolume;
        if (!parseInteger32(row.field(kind), deal.kind))
            return "bad kind";
        if (isCut(row, activeSide))
            return kCutLastLine;
        if (!optionalInteger(row, activeSide, deal.activeSide))
            return "bad side";
        if (!rows.empty() && deal.seq <= rows.back().seq)
            return kBadOutOfOrder;
        rows.push_back(deal);
        return nullptr;
    });
}

bool readTable(CsvReader& reader, std::vector<SnapshotRow>& rows, ImportReport& report,
               const Progress& progress, Error& error)
{
    constexpr int kLevels = quoter::kDepthLevels;
    TableColumns columns(reader);
    const int time = columns.required("time");
    const int seq = columns.optional("seq");
    const int lastPrice = columns.optional("last_price");
    const int previousClose = columns.optional("previous_close");
    const int openPrice = columns.optional("open_price");
    const int highPrice = columns.optional("high_price");
    const int lowPrice = columns.optional("low_price");
    const int totalVolume = columns.optional("total_volume");
    const int turnover = columns.optional("turnover");
    const int dealCount = columns.optional("deal_count");
    const int phase = columns.optional("phase");
    std::array<int, kLevels> price[2] = {};
    std::array<int, kLevels> volume[2] = {};
    std::array<int, kLevels> count[2] = {};
    for (int side = 0; side < 2; ++side) {
        const std::string name = side == 0 ? "ask_" : "bid_";
        for (int i = 0; i < kLevels; ++i) {
            const std::string level = std::to_string(i + 1);
            // The best prices make a snapshot; further levels may be left out.
            price[side][i] =
                i == 0 ? columns.required(name + "price_1") : columns.optional(name + "price_" + level);
            volume[side][i] =
                i == 0 ? columns.required(name + "volume_1") : columns.optional(name + "volume_" + level);
            count[side][i] = columns.optional(name + "count_" + level);
        }
    }
    if (!columns.complete(error))
        return false;
    return readRows(reader, report, progress, error, [&](const CsvReader& row) -> const char* {
        SnapshotRow snapshot;
        if (!parseInteger(row.field(time), snapshot.time))
            return kBadTime;
        if (!optionalInteger(row, seq, snapshot.seq))
            return kBadSequence;
        if (!optionalNumber(row, lastPrice, snapshot.lastPrice) ||
            !optionalNumber(row, previousClose, snapshot.previousClose) ||
            !optionalNumber(row, openPrice, snapshot.openPrice) ||
            !optionalNumber(row, highPrice, snapshot.highPrice) ||
            !optionalNumber(row, lowPrice, snapshot.lowPrice))
            return kBadPrice;
        if (!optionalInteger(row, totalVolume, snapshot.totalVolume) ||
            !optionalNumber(row, turnover, snapshot.turnover) ||
            !optionalInteger(row, dealCount, snapshot.dealCount))
            return "bad total";
        for (int i = 0; i < kLevels; ++i) {
            if (!optionalNumber(row, price[0][i], snapshot.askPrice[i]) ||
                !optionalNumber(row, price[1][i], snapshot.bidPrice[i]))
                return kBadPrice;
            if (!optionalInteger(row, volume[0][i], snapshot.askVolume[i]) ||
                !optionalInteger(row, volume[1][i], snapshot.bidVolume[i]))
                return kBadVolume;
            if (!optionalInteger(row, count[0][i], snapshot.askCount[i]) ||
                !optionalInteger(row, count[1][i], snapshot.bidCount[i]))
                return "bad number of orders";
        }
        if (isCut(row, phase))
            return kCutLastLine;
        if (!row.field(phase).empty() && !phaseFromName(row.field(phase), snapshot.phase))
            return "unknown phase";
        if (!rows.empty() && snapshot.time < rows.back().time)
            return kBadOutOfOrder;
        rows.push_back(snapshot);
        return nullptr;
    });
}

bool readTable(CsvReader& reader, std::vector<QueueRow>& rows, ImportReport& report, const Progress& progress,
               Error& error)
{
    TableColumns columns(reader);
    const int time = columns.required("time");
    const int seq = columns.optional("seq");
    const int bidPrice = columns.required("bid_price");
    const int askPrice = columns.required("ask_price");
    const int bidCount = columns.optional("bid_count");
    const int askCount = columns.optional("ask_count");
    const int bidVolumes = columns.required("bid_volumes");
    const int askVolumes = columns.required("ask_volumes");
    const int end = columns.optional("end");
    if (!columns.complete(error))
        return false;
    return readRows(reader, report, progress, error, [&](const CsvReader& row) -> const char* {
        QueueRow queue;
        if (end >= 0 && row.field(end) != kQueueEnd)
            return "bad end";
        if (!parseInteger(row.field(time), queue.time))
            return kBadTime;
        if (!optionalInteger(row, seq, queue.seq))
            return kBadSequence;
        if (!optionalNumber(row, bidPrice, queue.bidPrice) || !optionalNumber(row, askPrice, queue.askPrice))
            return kBadPrice;
        if (!volumeList(row.field(bidVolumes), queue.bidVolumes) ||
            !volumeList(row.field(askVolumes), queue.askVolumes))
            return kBadVolume;
        queue.bidCount = static_cast<std::int32_t>(queue.bidVolumes.size());
        queue.askCount = static_cast<std::int32_t>(queue.askVolumes.size());
        if (!optionalInteger(row, bidCount, queue.bidCount) ||
            !optionalInteger(row, askCount, queue.askCount))
            return "bad number of orders";
        if (!rows.empty() && queue.time < rows.back().time)
            return kBadOutOfOrder;
        rows.push_back(std::move(queue));
        return nullptr;
    });
}

} // namespace feed
