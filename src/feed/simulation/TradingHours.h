#pragma once

#include "feed/DayRows.h"

#include <cstdint>

/// The trading hours of the Shanghai and Shenzhen exchanges, as seconds after midnight of exchange time
/// (UTC+8).
namespace feed::hours {

constexpr int at(int hour, int minute, int second = 0)
{
    return (hour * 60 + minute) * 60 + second;
}

constexpr int kStart = at(9, 14);
constexpr int kOpeningAuction = at(9, 15);
constexpr int kNoCancels = at(9, 20); ///< up to the match of the opening auction nothing can be withdrawn
constexpr int kOpeningMatch = at(9, 25);
constexpr int kMorning = at(9, 30);
constexpr int kBreak = at(11, 30);
constexpr int kAfternoon = at(13, 0);
constexpr int kClosingAuction = at(14, 57);
constexpr int kClose = at(15, 0);

/// The phase at a moment of the day; a phase begins with its first second.
Phase phaseAt(double secondOfDay);

/// Whether orders are taken: both auctions and continuous trading.
bool takesOrders(double secondOfDay);

/// Whether a standing order can be withdrawn: the first five minutes of the opening auction and continuous
/// trading.
bool takesCancels(double secondOfDay);

/// Milliseconds since 1970-01-01 UTC of midnight, exchange time, of the day `yyyymmdd`. A number that is no
/// day from 1970 to 9999 gives that of 20230201.
std::int64_t midnightOf(std::int64_t yyyymmdd);

} // namespace feed::hours
