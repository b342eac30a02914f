#pragma once

#include "records/LevelOrderData.h"
#include "records/MetaCacheDataWrapper.h"
#include "records/OrderData.h"
#include "records/OrderQueueData.h"
#include "records/QuoterDepthData.h"
#include "records/TransactionData.h"

#include <cstdint>
#include <string>
#include <vector>

/// Levels and feed records written as short texts, so that a test shows a queue as a reader would draw it.
///
/// A malformed text throws std::invalid_argument: it is a mistake of the test, and the test then fails.
namespace testing_support {

constexpr int kBuy = 1;
constexpr int kSell = 2;

/// Reads a level. The first line (or the part before the first ';') is the head, each following one an order:
///
///     buy 10.00 level=1 levelVol=30
///     1 10 normal
///     2 20 part 5
///
/// Head: side ("buy", "sell" or the number of `m_type`), price in yuan, then any of level, levelVol, sum,
/// count, avg, unknown, start, time as name=value, and "hasPart". What is not given: sum and count are those
/// of all orders, avg is their quotient (0 without orders), the others 0. Order: number, lots, state, lots
/// dealt (0 if absent). States: cancelled, normal, unknown, big, super, dealt, part. Numbers other than 0
/// enter `m_orderIds`.
Kel::OrderQueueData parseLevel(const std::string& text);
Kel::OrderQueueDataPtr parseLevelPtr(const std::string& text);

/// The level as text, all fields: a head line and a line for each order, in the form that `parseLevel` reads.
std::string levelText(const Kel::OrderQueueData& level);

/// The head line of `levelText`.
std::string headText(const Kel::OrderQueueData& level);

/// The orders of `levelText` on one line, "1 10 normal; 2 20 part 5"; empty for a level without orders.
std::string ordersText(const Kel::OrderQueueData& level);

/// Name of an order's state as in the texts, or "type<number>".
std::string typeText(Kel::EOrderQueueType type);

/// Up to twelve significant digits; "nan", "inf", "-inf".
std::string numberText(double value);

using OrderDataPtr = boost::shared_ptr<quoter::OrderData>;
using TransactionDataPtr = boost::shared_ptr<quoter::TransactionData>;
using LevelOrderDataPtr = boost::shared_ptr<quoter::LevelOrderData>;
using QuoterDepthDataPtr = boost::shared_ptr<quoter::QuoterDepthData>;

/// The records below have `m_time` 1000 ms; `atTime` gives another.
OrderDataPtr order(std::int64_t number, int side, double price, std::int64_t shares, int kind = 1);
TransactionDataPtr deal(int buyNo, int sellNo, double price, std::int64_t shares, int dealNo = 0);

/// A cancellation carries the number in `buyNo`; that of a sell order in `sellNo` as well.
TransactionDataPtr cancelBuy(int number, std::int64_t shares);
TransactionDataPtr cancelSell(int number, std::int64_t shares);

/// "ask 10.02x5 10.03x7; bid 10.01x3; last 10.01": prices in yuan, volumes in lots, best price first. A part
/// that is absent leaves zeros.
QuoterDepthDataPtr snapshot(const std::string& text);

/// "bid 10.00: 5 6 7 of 12; ask 10.01: 3": price, volumes in lots, true number of orders (that of the volumes
/// if absent).
LevelOrderDataPtr levelRecord(const std::string& text);

template <class Record>
boost::shared_ptr<Record> atTime(std::int64_t milliseconds, boost::shared_ptr<Record> record)
{
    record->m_time = milliseconds;
    return record;
}

Kel::MetaCacheDataWrapperPtr wrap(quoter::QuoterBatch records, const std::string& market = "SH",
                                  const std::string& instrument = "600519");

} // namespace testing_support
