#pragma once

#include "records/Tolerance.h"

#include <cmath>
#include <cstdint>
#include <limits>

/// Small conversions that the models of ticks share. Any thread; defined for every input.
namespace Kel {

constexpr int kBuySide = 1;
constexpr int kSellSide = 2;
constexpr std::int32_t kSecondsPerDay = 24 * 60 * 60;

/// Seconds since midnight at the exchange (UTC+8) of seconds since 1970-01-01 UTC.
inline std::int32_t secondOfDay(std::int32_t seconds)
{
    constexpr std::int64_t kExchangeOffset = 8 * 60 * 60;
    const std::int64_t rest = (std::int64_t(seconds) + kExchangeOffset) % kSecondsPerDay;
    return static_cast<std::int32_t>(rest < 0 ? rest + kSecondsPerDay : rest);
}

/// Lots as they are shown: 0 for no shares, 1 below a lot, else to the nearest. `unit` is shares per lot.
inline std::int32_t lotsFromShares(std::int64_t shares, int unit)
{
    if (shares <= 0)
        return 0;
    if (unit < 1)
        unit = 1;
    if (shares < unit)
        return 1;
    return clampToInt(shares / unit + (shares % unit * 2 >= unit ? 1 : 0));
}

/// Sum and difference of shares, at most what 64 bits hold.
inline std::int64_t addShares(std::int64_t a, std::int64_t b)
{
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a, b, &sum))
        return b < 0 ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max();
    return sum;
}
inline std::int64_t subtractShares(std::int64_t a, std::int64_t b)
{
    std::int64_t difference = 0;
    if (__builtin_sub_overflow(a, b, &difference))
        return b > 0 ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max();
    return difference;
}

/// A time tag: the whole second of a record's time. False for a time that a tag cannot hold.
inline bool timeTag(std::int64_t milliseconds, std::int32_t& seconds, std::uint16_t& rest)
{
    if (milliseconds < 0 || milliseconds / 1000 > std::numeric_limits<std::int32_t>::max())
        return false;
    seconds = static_cast<std::int32_t>(milliseconds / 1000);
    rest = static_cast<std::uint16_t>(milliseconds % 1000);
    return true;
}

/// A price that means something; the largest double stands for none.
inline bool isPrice(double price)
{
    return std::isfinite(price) && price < std::numeric_limits<double>::max();
}

/// Whether stock exchanges match by auction at this second: before 09:30, and from 14:57 to the end of the
/// closing auction's deals at 15:00.
inline bool isAuctionSecond(std::int32_t secondsOfDay)
{
    constexpr std::int32_t kOpen = (9 * 60 + 30) * 60;
    constexpr std::int32_t kClosingAuction = (14 * 60 + 57) * 60;
    constexpr std::int32_t kAfterClose = (15 * 60 + 5) * 60;
    return secondsOfDay < kOpen || (secondsOfDay >= kClosingAuction && secondsOfDay < kAfterClose);
}

/// Which side was active in a deal: what the feed says (1 or 2), else the order that came later, which has
/// the larger number; 0 in an auction, or when the numbers do not tell.
inline int activeSideOf(int flag, std::int32_t buyNo, std::int32_t sellNo, std::int32_t seconds)
{
    if (flag == kBuySide || flag == kSellSide)
        return flag;
    if (buyNo == sellNo || isAuctionSecond(secondOfDay(seconds)))
        return 0;
    return buyNo > sellNo ? kBuySide : kSellSide;
}

} // namespace Kel
