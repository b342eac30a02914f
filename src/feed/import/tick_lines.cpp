#include "feed/import/tick_lines.h"

#include "feed/csv/read_rows.h"
#include "feed/csv/values.h"
#include "records/OrderData.h"

#include <limits>

namespace feed {

namespace {

constexpr std::int64_t kHighestSequence = std::int64_t(1) << 60;
constexpr std::int64_t kHighestDealNumber = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kContinuousStart = (9 * 60 + 30) * 60 * 1000;
constexpr std::int64_t kContinuousEnd = (14 * 60 + 57) * 60 * 1000;

const char* const kBadNumber = "bad order number";
const char* const kBeyond32Bits = "order number beyond 32 bits";
const char* const kBadPrice = "bad price";
const char* const kBadVolume = "bad volume";
const char* const kBadSequence = "bad sequence number";
const char* const kBadSide = "bad side";
const char* const kBadType = "unknown type";
const char* const kNoOneNumber = "cancel without exactly one order number";

/// The cells of one line by field.
struct Line
{
    const FileKind& kind;
    const FieldColumns& columns;
    const CsvReader& row;

    std::string_view operator[](Field field) const
    {
        return row.field(columns[static_cast<std::size_t>(field)]);
    }
    bool has(Field field) const { return columns[static_cast<std::size_t>(field)] >= 0; }
};

bool sequence(std::string_view cell, std::int64_t& value)
{
    return parseInteger(cell, value) && value >= 0 && value <= kHighestSequence;
}

/// Order numbers of deals; an absent party is 0 or empty.
const char* partyNumber(std::string_view cell, std::int64_t& value)
{
    value = 0;
    if (cell.empty())
        return nullptr;
    if (!parseInteger(cell, value) || value < 0)
        return kBadNumber;
    return value > kHighestDealNumber ? kBeyond32Bits : nullptr;
}

const char* orderNumber(std::string_view cell, std::int64_t& value)
{
    return parseInteger(cell, value) && value > 0 ? nullptr : kBadNumber;
}

const char* volumeOf(const Line& line, TickLine& tick)
{
    return parseVolume(line[Field::Volume], tick.volume) && tick.volume > 0 ? nullptr : kBadVolume;
}

/// A price above 0.
const char* priceOf(const Line& line, TickLine& tick)
{
    return parsePrice(line[Field::Price], line.kind.priceScale, tick.price) && tick.price > 0 ? nullptr
                                                                                              : kBadPrice;
}

/// The number is information only: one that does not fit is left out.
void dealNumberOf(std::string_view cell, TickLine& tick)
{
    if (!parseInteger32(cell, tick.dealNo))
        tick.dealNo = 0;
}

const char* cancelOf(std::int64_t number, int side, const Line& line, TickLine& tick)
{
    tick.type = TickType::Cancel;
    tick.number = number;
    tick.side = static_cast<std::uint8_t>(side);
    tick.price = 0;
    if (side == 0)
        return kBadSide;
    if (number > kHighestDealNumber)
        return kBeyond32Bits;
    return volumeOf(line, tick);
}

/// Adding or deleting as Shanghai's order channel tells it: the volume of an add is what is left in the
/// queue.
const char* shanghaiOrder(char type, std::int64_t number, int side, const Line& line, TickLine& tick)
{
    if (type == 'D')
        return cancelOf(number, side, line, tick);
    tick.type = TickType::Add;
    tick.number = number;
    tick.side = static_cast<std::uint8_t>(side);
    tick.kind = quoter::eOrderLimit;
    if (side == 0)
        return kBadSide;
    if (const char* const fault = priceOf(line, tick))
        return fault;
    return volumeOf(line, tick);
}

const char* dealOf(const Line& line, TickLine& tick)
{
    tick.type = TickType::Deal;
    if (const char* const fault = partyNumber(line[Field::BuyNumber], tick.buyNo))
        return fault;
    if (const char* const fault = partyNumber(line[Field::SellNumber], tick.sellNo))
        return fault;
    if (tick.buyNo == 0 || tick.sellNo == 0 || tick.buyNo == tick.sellNo)
        return kBadNumber;
    if (const char* const fault = priceOf(line, tick))
        return fault;
    return volumeOf(line, tick);
}

/// A cancellation on Shenzhen's deal channel: exactly one of the two numbers is given.
const char* shenzhenCancel(const Line& line, TickLine& tick)
{
    std::int64_t buyNo = 0;
    std::int64_t sellNo = 0;
    if (const char* const fault = partyNumber(line[Field::BuyNumber], buyNo))
        return fault;
    if (const char* const fault = partyNumber(line[Field::SellNumber], sellNo))
        return fault;
    if ((buyNo == 0) == (sellNo == 0))
        return kNoOneNumber;
    return cancelOf(buyNo + sellNo, buyNo != 0 ? 1 : 2, line, tick);
}

/// Shenzhen does not say who came last: of two numbers of one sequence the larger one did. In auctions nobody
/// is.
void activeByNumber(TickLine& tick)
{
    if (tick.msOfDay >= kContinuousStart && tick.msOfDay < kContinuousEnd)
        tick.activeSide = tick.buyNo > tick.sellNo ? 1 : 2;
}

/// An order of Shenzhen: the number is the sequence. One without a limit comes without a price.
const char* shenzhenOrder(char type, const Line& line, TickLine& tick)
{
    tick.type = TickType::Add;
    tick.number = tick.seq;
    const int side = sideOf(line[Field::Side]);
    if (side == 0)
        return kBadSide;
    tick.side = static_cast<std::uint8_t>(side);
    if (type == '2' || type == '0') {
        tick.kind = quoter::eOrderLimit;
        if (const char* const fault = priceOf(line, tick))
            return fault;
    } else if (type == '1' || type == 'U') {
        tick.kind = type == '1' ? quoter::eOrderMarket : quoter::eOrderBestOwnSide;
        tick.price = 0;
    } else {
        return kBadType;
    }
    return volumeOf(line, tick);
}

/// Shanghai's order types: A or 2 adds, D or 10 deletes, S or 11 tells a status. 0 for anything else.
char shanghaiType(std::string_view cell)
{
    if (cell == "10")
        return 'D';
    if (cell == "11")
        return 'S';
    const char code = codeOf(cell);
    if (code == '2')
        return 'A';
    return code == 'A' || code == 'D' || code == 'S' || code == 'T' ? code : '\0';
}

const char* mergedLine(const Line& line, TickLine& tick)
{
    const char type = shanghaiType(line[Field::OrderType]);
    if (type == 'S')
        return kSkippedLine;
    const int flag = sideOf(line[Field::ActiveSide]);
    if (type == 'T') {
        tick.activeSide = static_cast<std::uint8_t>(flag);
        return dealOf(line, tick);
    }
    if (type != 'A' && type != 'D')
        return kBadType;
    if (flag == 0)
        return kBadSide;
    std::int64_t number = 0;
    if (const char* const fault = orderNumber(line[flag == 1 ? Field::BuyNumber : Field::SellNumber], number))
        return fault;
    return shanghaiOrder(type, number, flag, line, tick);
}

const char* splitOrderLine(const Line& line, TickLine& tick)
{
    const char type = shanghaiType(line[Field::OrderType]);
    if (type == 'S')
        return kSkippedLine;
    if (type != 'A' && type != 'D')
        return kBadType;
    std::int64_t number = 0;
    if (const char* const fault = orderNumber(line[Field::OrderNumber], number))
        return fault;
    return shanghaiOrder(type, number, sideOf(line[Field::Side]), line, tick);
}

const char* splitDealLine(const Line& line, TickLine& tick)
{
    tick.activeSide = static_cast<std::uint8_t>(sideOf(line[Field::ActiveSide]));
    dealNumberOf(line[Field::DealNumber], tick);
    return dealOf(line, tick);
}

const char* shenzhenDealLine(const Line& line, TickLine& tick)
{
    const char type = codeOf(line[Field::ExecType]);
    dealNumberOf(line[Field::Sequence], tick);
    if (type == '4')
        return shenzhenCancel(line, tick);
    if (type != 'F')
        return kBadType;
    if (const char* const fault = dealOf(line, tick))
        return fault;
    activeByNumber(tick);
    return nullptr;
}

/// In the folders the sequence of a Shenzhen record is its own number; Shanghai has a column of its own for
/// it, without which orders and deals cannot be put in order.
const char* folderSequence(const Line& line, std::string_view market, TickLine& tick)
{
    if (market == "SH" && !line.has(Field::Sequence))
        return "no column with the common sequence of orders and deals";
    return sequence(line[market == "SH" ? Field::Sequence : Field::DealNumber], tick.seq) ? nullptr
                                                                                          : kBadSequence;
}

const char* folderOrderLine(const Line& line, std::string_view market, TickLine& tick)
{
    if (const char* const fault = folderSequence(line, market, tick))
        return fault;
    if (market != "SH")
        return shenzhenOrder(codeOf(line[Field::OrderType]), line, tick);
    return splitOrderLine(line, tick);
}

const char* folderDealLine(const Line& line, std::string_view market, TickLine& tick)
{
    if (const char* const fault = folderSequence(line, market, tick))
        return fault;
    dealNumberOf(line[Field::DealNumber], tick);
    const std::string_view cell = line[Field::ExecType];
    const char type = codeOf(cell);
    if (type == 'C' || type == '4')
        return shenzhenCancel(line, tick);
    if (!cell.empty() && type != '0' && type != 'F')
        return kBadType;
    if (const char* const fault = dealOf(line, tick))
        return fault;
    const int side = sideOf(line[Field::ActiveSide]);
    if (side != 0)
        tick.activeSide = static_cast<std::uint8_t>(side);
    else if (market != "SH")
        activeByNumber(tick);
    return nullptr;
}

} // namespace

char codeOf(std::string_view cell)
{
    if (cell.size() == 1)
        return cell.front();
    std::int64_t number = 0;
    if (cell.size() <= 3 && parseInteger(cell, number) && number >= '0' && number <= 'z')
        return static_cast<char>(number);
    return '\0';
}

int sideOf(std::string_view cell)
{
    const char code = codeOf(cell);
    if (code == 'B' || code == '1')
        return 1;
    return code == 'S' || code == '2' ? 2 : 0;
}

const char* readTickLine(const FileKind& kind, const FieldColumns& columns, std::string_view market,
                         const CsvReader& row, TickLine& tick)
{
    const Line line{kind, columns, row};
    switch (kind.style) {
    case LineStyle::FolderOrders:
        return folderOrderLine(line, market, tick);
    case LineStyle::FolderDeals:
        return folderDealLine(line, market, tick);
    default:
        break;
    }
    if (!sequence(line[Field::Sequence], tick.seq))
        return kBadSequence;
    switch (kind.style) {
    case LineStyle::ShanghaiOrders:
        return splitOrderLine(line, tick);
    case LineStyle::ShanghaiDeals:
        return splitDealLine(line, tick);
    case LineStyle::ShanghaiMerged:
        return mergedLine(line, tick);
    case LineStyle::ShenzhenOrders:
        return shenzhenOrder(codeOf(line[Field::OrderType]), line, tick);
    case LineStyle::ShenzhenDeals:
        return shenzhenDealLine(line, tick);
    default:
        return kBadType;
    }
}

} // namespace feed
