#pragma once

#include "feed/DayRows.h"
#include "records/LevelOrderData.h"
#include "records/OrderData.h"
#include "records/QuoterDepthData.h"
#include "records/ThousandData.h"
#include "records/TransactionData.h"

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>

/// The one place where the rows of a day become the records of the quote service. Rows count shares;
/// snapshots and published queues count lots. All functions may be called from any thread.
namespace feed {

/// A number of a deal record, which is 32 bits wide; nothing for a number that does not fit. A reader of
/// files skips such a record and counts it: a number that was cut to 32 bits would name another order.
std::optional<std::int32_t> dealRecordNumber(std::int64_t number);

/// The sequence number of the row is not in the record.
boost::shared_ptr<quoter::OrderData> makeRecord(const OrderRow& row);
boost::shared_ptr<quoter::TransactionData> makeRecord(const DealRow& row);

/// Volumes in lots of `volumeUnit` shares, rounded to the nearest and at least 1 where any share stands, so
/// that no level with orders shows as empty. A unit that is not above 0 or not finite counts as 100. The
/// day's totals stay in shares and yuan; the phase is not in the record.
boost::shared_ptr<quoter::QuoterDepthData> makeRecord(const SnapshotRow& row, double volumeUnit);

/// Volumes in lots, rounded to the nearest and at least 1 for an order that has any share, so that no order
/// vanishes from the queue; volumes of 0 and below become 0; what does not fit 32 bits is clamped.
boost::shared_ptr<quoter::LevelOrderData> makeRecord(const QueueRow& row, double volumeUnit);

/// Volumes stay in shares.
boost::shared_ptr<quoter::ThousandData> makeRecord(const LadderRow& row);

/// Records of `count` rows in one block of memory: the pointers of the batch share it, and it is freed with
/// the last of them. Meant for history, where an allocation for each record would cost more than the record.
quoter::QuoterBatch makeOrderBatch(const OrderRow* rows, std::size_t count);
quoter::QuoterBatch makeDealBatch(const DealRow* rows, std::size_t count);

} // namespace feed
