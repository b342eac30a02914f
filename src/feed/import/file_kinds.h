#pragma once

#include "feed/csv/CsvReader.h"
#include "feed/csv/values.h"

#include <array>
#include <string>
#include <vector>

/// What files the layouts consist of, and by which columns they are known: one table, read by the importers.
namespace feed {

/// Meaning of a column.
enum class Field
{
    Time, ///< time of day, perhaps with the date
    Date,
    Code, ///< instrument code, perhaps with the market behind a dot
    Name,
    Sequence, ///< the channel's sequence over orders and deals
    OrderNumber,
    Price,
    Volume,
    Side, ///< of an order
    OrderType,
    BuyNumber, ///< of a deal
    SellNumber,
    ActiveSide,
    ExecType, ///< deal or cancellation
    DealNumber,
    PreviousClose,
    OpenPrice,
    HighPrice,
    LowPrice,
    LastPrice,
    TotalVolume,
    Turnover,
    DealCount,
    Status, ///< phase of the day
    UpperLimit,
    LowerLimit,
    FirstAsk, ///< best sell price
    FirstBid,
    FirstQueued, ///< volume of the first order of the published buy queue
    Count,
};

/// How the lines of a file are to be understood.
enum class LineStyle
{
    ShanghaiOrders,
    ShanghaiDeals,
    ShanghaiMerged,
    ShenzhenOrders,
    ShenzhenDeals,
    FolderOrders, ///< of the folders by instrument, either market
    FolderDeals,
    Snapshots,
};

struct FieldNames
{
    Field field;
    bool required;
    std::vector<const char*> names; ///< accepted names, the first that is there counts
};

struct FileKind
{
    const char* name; ///< layout and what the file holds: "sh-split orders"
    std::vector<const char*> layouts;
    LineStyle style;
    const char* market; ///< empty where the code or the folder tells it
    TimeDigits digits;
    double priceScale; ///< units of the price columns in one yuan
    std::vector<FieldNames> fields;
};

const std::vector<FileKind>& fileKinds();

using FieldColumns = std::array<int, static_cast<std::size_t>(Field::Count)>;

/// Columns of the fields in a table, -1 for absent ones.
FieldColumns columnsOf(const FileKind& kind, const CsvReader& reader);

/// The kind of a table among those of `layout` ("auto" for all); null if it is none of them. `missing` is
/// then the column that the likeliest kind lacks, empty if none is likely.
const FileKind* kindOf(const CsvReader& reader, const std::string& layout, std::string& missing);

} // namespace feed
