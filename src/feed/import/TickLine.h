#pragma once

#include "feed/DayRows.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace feed {

enum class TickType : std::uint8_t
{
    Add,
    Deal,
    Cancel,
};

/// A line of an order or deal file, in the terms of all layouts.
struct TickLine
{
    std::int64_t seq = 0;     ///< the exchange's sequence of the channel
    std::int64_t msOfDay = 0; ///< milliseconds since midnight, exchange time
    std::int64_t number = 0;  ///< of the order that is added or cancelled
    std::int64_t buyNo = 0;   ///< of a deal
    std::int64_t sellNo = 0;
    std::int64_t volume = 0; ///< shares
    double price = 0;        ///< yuan
    std::int64_t line = 0;   ///< where it stands, for the report
    std::uint32_t file = 0;  ///< index in `ImportReport::files`
    std::int32_t dealNo = 0;
    TickType type = TickType::Add;
    std::uint8_t side = 0;       ///< of an order 1 buy, 2 sell
    std::uint8_t kind = 1;       ///< quoter::EOrderKind
    std::uint8_t activeSide = 0; ///< of a deal: 1, 2, 0 for an auction or unknown
};

/// What was read of one instrument, in the order of the files. Times of snapshots and queues are milliseconds
/// since midnight until the day is assembled.
struct InstrumentLines
{
    nelservice::CInstrumentDetail detail;
    std::vector<TickLine> ticks;
    std::vector<SnapshotRow> snapshots;
    std::vector<QueueRow> queues;
};

/// What was read of all instruments, by market and code.
struct DayLines
{
    std::map<std::pair<std::string, std::string>, InstrumentLines> instruments;
    std::int64_t tradingDay = 0; ///< yyyymmdd, 0 as long as nothing told it
};

} // namespace feed
