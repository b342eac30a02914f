#include "feed/import/file_kinds.h"

#include <algorithm>

namespace feed {

namespace {

int columnOf(const FieldNames& names, const CsvReader& reader)
{
    for (const char* const name : names.names) {
        const int column = reader.column(name);
        if (column >= 0)
            return column;
    }
    return -1;
}

std::vector<FileKind> makeKinds()
{
    constexpr bool kMust = true;
    constexpr bool kMay = false;
    constexpr TimeDigits kMs = TimeDigits::Milliseconds;
    constexpr TimeDigits kHundredths = TimeDigits::Hundredths;
    const auto snapshotTotals = [](std::vector<FieldNames> fields) {
        const std::vector<FieldNames> totals = {
            {Field::PreviousClose,
             kMay,
             {"PreCloPrice", "PreClosePx", "PrevClosePx", "PreClosePrice", "前收盘", "昨收盘"}},
            {Field::OpenPrice, kMay, {"OpenPrice", "OpenPx", "开盘价"}},
            {Field::HighPrice, kMay, {"HighPrice", "HighPx", "最高价"}},
            {Field::LowPrice, kMay, {"LowPrice", "LowPx", "最低价"}},
            {Field::LastPrice, kMay, {"LastPrice", "LastPx", "成交价", "最新价"}},
            {Field::TotalVolume,
             kMay,
             {"TradVolume", "TotalVolumeTrade", "当日累计成交量", "累计成交量", "总成交量"}},
            {Field::Turnover, kMay, {"Turnover", "TotalValueTrade", "当日成交额", "累计成交额", "总成交额"}},
            {Field::DealCount, kMay, {"TradNumber", "NumTrades", "成交笔数"}},
            {Field::Status, kMay, {"InstruStatus", "InstrumentStatus", "TradingPhaseCode"}},
            {Field::UpperLimit, kMay, {"MaxPx", "UpperLimitPx", "HighLimitPrice", "涨停价"}},
            {Field::LowerLimit, kMay, {"MinPx", "LowerLimitPx", "LowLimitPrice", "跌停价"}},
        };
        fields.insert(fields.end(), totals.begin(), totals.end());
        return fields;
    };
    return {
        {"gbk-folder orders",
         {"gbk-folder"},
         LineStyle::FolderOrders,
         "",
         kMs,
         10000,
         {{Field::Code, kMay, {"证券代码", "交易所代码"}},
          {Field::Date, kMay, {"自然日", "日期", "交易日"}},
          {Field::Time, kMust, {"时间", "委托时间"}},
          {Field::Sequence, kMay, {"业务序列号", "业务序号", "BizIndex"}},
          {Field::DealNumber, kMust, {"委托编号", "委托序号"}},
          {Field::OrderNumber, kMay, {"交易所委托号", "原始订单号"}},
          {Field::OrderType, kMust, {"委托类型", "委托类别"}},
          {Field::Side, kMust, {"委托代码", "买卖方向", "BS标志"}},
          {Field::Price, kMust, {"委托价格", "委托价"}},
          {Field::Volume, kMust, {"委托数量", "委托量"}}}},
        {"gbk-folder deals",
         {"gbk-folder"},
         LineStyle::FolderDeals,
         "",
         kMs,
         10000,
         {{Field::Code, kMay, {"证券代码", "交易所代码"}},
          {Field::Date, kMay, {"自然日", "日期", "交易日"}},
          {Field::Time, kMust, {"时间", "成交时间"}},
          {Field::Sequence, kMay, {"业务序列号", "业务序号", "BizIndex"}},
          {Field::DealNumber, kMust, {"成交编号", "成交序号"}},
          {Field::ExecType, kMay, {"成交代码", "成交类型"}},
          {Field::ActiveSide, kMay, {"BS标志", "买卖标志", "买卖方向"}},
          {Field::Price, kMust, {"成交价格", "成交价"}},
          {Field::Volume, kMust, {"成交数量", "成交量"}},
          {Field::SellNumber, kMust, {"叫卖序号", "卖方委托序号", "卖方订单号"}},
          {Field::BuyNumber, kMust, {"叫买序号", "买方委托序号", "买方订单号"}}}},
        {"gbk-folder snapshots",
         {"gbk-folder"},
         LineStyle::Snapshots,
         "",
         kMs,
         10000,
         snapshotTotals({{Field::Code, kMay, {"证券代码", "交易所代码"}},
                         {Field::Date, kMay, {"自然日", "日期", "交易日"}},
                         {Field::Time, kMust, {"时间", "行情时间"}},
                         {Field::FirstAsk, kMust, {"申卖价1"}},
                         {Field::FirstBid, kMust, {"申买价1"}}})},
        {"sh-merged ticks",
         {"sh-merged"},
         LineStyle::ShanghaiMerged,
         "SH",
         kHundredths,
         1,
         {{Field::Sequence, kMust, {"BizIndex"}},
          {Field::Code, kMust, {"SecurityID"}},
          {Field::Date, kMay, {"MDDate", "TradingDay"}},
          {Field::Time, kMust, {"TickTime"}},
          {Field::OrderType, kMust, {"Type", "TickType"}},
          {Field::BuyNumber, kMust, {"BuyOrderNO"}},
          {Field::SellNumber, kMust, {"SellOrderNO"}},
          {Field::Price, kMust, {"Price"}},
          {Field::Volume, kMust, {"Qty"}},
          {Field::ActiveSide, kMust, {"TickBSFlag"}}}},
        {"sh-split orders",
         {"sh-split"},
         LineStyle::ShanghaiOrders,
         "SH",
         kHundredths,
         1,
         {{Field::Sequence, kMust, {"BizIndex"}},
          {Field::Code, kMust, {"SecurityID"}},
          {Field::Date, kMay, {"MDDate", "TradingDay"}},
          {Field::Time, kMust, {"OrderTime"}},
          {Field::OrderType, kMust, {"OrderType"}},
          {Field::OrderNumber, kMust, {"OrderNO"}},
          {Field::Price, kMust, {"OrderPrice"}},
          {Field::Volume, kMust, {"Balance"}},
          {Field::Side, kMust, {"OrderBSFlag"}}}},
        {"sh-split deals",
         {"sh-split"},
         LineStyle::ShanghaiDeals,
         "SH",
         kHundredths,
         1,
         {{Field::Sequence, kMust, {"BizIndex"}},
          {Field::Code, kMust, {"SecurityID"}},
          {Field::Date, kMay, {"MDDate", "TradingDay"}},
          {Field::Time, kMust, {"TradTime", "TradeTime"}},
          {Field::Price, kMust, {"TradPrice", "TradePrice"}},
          {Field::Volume, kMust, {"TradVolume", "TradeVolume"}},
          {Field::BuyNumber, kMust, {"TradeBuyNo"}},
          {Field::SellNumber, kMust, {"TradeSellNo"}},
          {Field::ActiveSide, kMust, {"TradeBSFlag"}},
          {Field::DealNumber, kMay, {"TradeIndex"}}}},
        {"sh-split snapshots",
         {"sh-split", "sh-merged"},
         LineStyle::Snapshots,
         "SH",
         kMs,
         1,
         snapshotTotals({{Field::Code, kMust, {"SecurityID"}},
                         {Field::Date, kMay, {"MDDate", "TradingDay"}},
                         {Field::Time, kMust, {"UpdateTime"}},
                         {Field::FirstAsk, kMust, {"AskPrice1"}},
                         {Field::FirstBid, kMust, {"BidPrice1"}}})},
        {"sh-split-2 orders",
         {"sh-split-2"},
         LineStyle::ShanghaiOrders,
         "SH",
         kMs,
         1,
         {{Field::Sequence, kMust, {"ApplSeqNum"}},
          {Field::Code, kMust, {"SecurityID"}},
          {Field::Name, kMay, {"Symbol"}},
          {Field::Date, kMust, {"MDDate"}},
          {Field::Time, kMust, {"MDTime"}},
          {Field::OrderType, kMust, {"OrderType"}},
          {Field::OrderNumber, kMust, {"OrderNO"}},
          {Field::Price, kMust, {"OrderPrice"}},
          {Field::Volume, kMust, {"OrderQty"}},
          {Field::Side, kMust, {"OrderBSFlag"}}}},
        {"sh-split-2 deals",
         {"sh-split-2"},
         LineStyle::ShanghaiDeals,
         "SH",
         kMs,
         1,
         {{Field::Sequence, kMust, {"ApplSeqNum"}},
          {Field::Code, kMust, {"SecurityID"}},
          {Field::Name, kMay, {"Symbol"}},
          {Field::Date, kMust, {"MDDate"}},
          {Field::Time, kMust, {"MDTime"}},
          {Field::Price, kMust, {"TradePrice"}},
          {Field::Volume, kMust, {"TradeQty"}},
          {Field::BuyNumber, kMust, {"TradeBuyNo"}},
          {Field::SellNumber, kMust, {"TradeSellNo"}},
          {Field::ActiveSide, kMust, {"TradeBSFlag"}},
          {Field::DealNumber, kMay, {"TradeIndex"}}}},
        {"sz-split orders",
         {"sz-split"},
         LineStyle::ShenzhenOrders,
         "SZ",
         kMs,
         1,
         {{Field::Sequence, kMust, {"ApplSeqNum"}},
          {Field::Code, kMust, {"SecurityID"}},
          {Field::Date, kMay, {"MDDate", "TradingDay"}},
          {Field::Time, kMust, {"TransactTime", "OrderTime"}},
          {Field::OrderType, kMust, {"OrdType", "OrderType"}},
          {Field::Price, kMust, {"Price", "OrderPrice"}},
          {Field::Volume, kMust, {"OrderQty"}},
          {Field::Side, kMust, {"Side"}}}},
        {"sz-split deals",
         {"sz-split"},
         LineStyle::ShenzhenDeals,
         "SZ",
         kMs,
         1,
         {{Field::Sequence, kMust, {"ApplSeqNum"}},
          {Field::Code, kMust, {"SecurityID"}},
          {Field::Date, kMay, {"MDDate", "TradingDay"}},
          {Field::Time, kMust, {"TransactTime", "TradeTime"}},
          {Field::BuyNumber, kMust, {"BidApplSeqNum"}},
          {Field::SellNumber, kMust, {"OfferApplSeqNum"}},
          {Field::Price, kMust, {"LastPx", "TradePrice"}},
          {Field::Volume, kMust, {"LastQty", "TradeQty"}},
          {Field::ExecType, kMust, {"ExecType"}}}},
        {"level-queues snapshots",
         {"level-queues"},
         LineStyle::Snapshots,
         "SH",
         kMs,
         1,
         snapshotTotals({{Field::Code, kMust, {"SecurityID"}},
                         {Field::Time, kMust, {"DateTime"}},
                         {Field::FirstAsk, kMust, {"OfferPrice0"}},
                         {Field::FirstBid, kMust, {"BidPrice0"}},
                         {Field::FirstQueued, kMust, {"BidOrders0"}}})},
        {"sz-snapshots",
         {"sz-snapshots", "sz-split"},
         LineStyle::Snapshots,
         "SZ",
         kMs,
         1,
         snapshotTotals({{Field::Code, kMust, {"SecurityID"}},
                         {Field::Date, kMust, {"MDDate"}},
                         {Field::Time, kMust, {"MDTime"}},
                         {Field::FirstAsk, kMust, {"SellPrice1"}},
                         {Field::FirstBid, kMust, {"BuyPrice1"}}})},
    };
}

} // namespace

const std::vector<FileKind>& fileKinds()
{
    static const std::vector<FileKind> kinds = makeKinds();
    return kinds;
}

FieldColumns columnsOf(const FileKind& kind, const CsvReader& reader)
{
    FieldColumns columns;
    columns.fill(-1);
    for (const FieldNames& names : kind.fields)
        columns[static_cast<std::size_t>(names.field)] = columnOf(names, reader);
    return columns;
}

const FileKind* kindOf(const CsvReader& reader, const std::string& layout, std::string& missing)
{
    // A table that has most of the required columns of a kind was meant to be one.
    double bestShare = 0.74;
    missing.clear();
    for (const FileKind& kind : fileKinds()) {
        const bool wanted =
            layout == "auto" || std::any_of(kind.layouts.begin(), kind.layouts.end(),
                                            [&](const char* const name) { return layout == name; });
        if (!wanted)
            continue;
        int required = 0;
        int found = 0;
        const char* firstMissing = nullptr;
        for (const FieldNames& names : kind.fields) {
            if (!names.required)
                continue;
            ++required;
            if (columnOf(names, reader) >= 0)
                ++found;
            else if (firstMissing == nullptr)
                firstMissing = names.names.front();
        }
        if (firstMissing == nullptr) {
            missing.clear();
            return &kind;
        }
        const double share = static_cast<double>(found) / required;
        if (share > bestShare) {
            bestShare = share;
            missing = firstMissing;
        }
    }
    return nullptr;
}

} // namespace feed
