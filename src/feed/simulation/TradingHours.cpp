#include "feed/simulation/TradingHours.h"

namespace feed::hours {
namespace {

constexpr std::int64_t kFallbackDay = 20230201;
constexpr std::int64_t kDayMs = 86400000;
constexpr std::int64_t kZoneMs = 8 * 3600000;

int daysInMonth(std::int64_t year, std::int64_t month)
{
    static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : kDays[month - 1];
}

/// Days since 1970-01-01 of a date of the Gregorian calendar, counted in years that begin in March.
std::int64_t daysSinceEpoch(std::int64_t year, std::int64_t month, std::int64_t day)
{
    year -= month <= 2 ? 1 : 0;
    const std::int64_t era = year / 400;
    const std::int64_t yearOfEra = year - era * 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

} // namespace

Phase phaseAt(double secondOfDay)
{
    if (secondOfDay < kOpeningAuction)
        return Phase::Start;
    if (secondOfDay < kMorning)
        return Phase::OpeningAuction;
    if (secondOfDay < kBreak)
        return Phase::Continuous;
    if (secondOfDay < kAfternoon)
        return Phase::Break;
    if (secondOfDay < kClosingAuction)
        return Phase::Continuous;
    return secondOfDay < kClose ? Phase::ClosingAuction : Phase::Closed;
}

bool takesOrders(double secondOfDay)
{
    const Phase phase = phaseAt(secondOfDay);
    if (phase == Phase::OpeningAuction)
        return secondOfDay < kOpeningMatch;
    return phase == Phase::Continuous || phase == Phase::ClosingAuction;
}

bool takesCancels(double secondOfDay)
{
    const Phase phase = phaseAt(secondOfDay);
    return phase == Phase::Continuous || (phase == Phase::OpeningAuction && secondOfDay < kNoCancels);
}

bool isCalendarDay(std::int64_t yyyymmdd)
{
    const std::int64_t year = yyyymmdd / 10000;
    const std::int64_t month = yyyymmdd / 100 % 100;
    const std::int64_t day = yyyymmdd % 100;
    return year >= 1970 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 &&
           day <= daysInMonth(year, month);
}

std::int64_t midnightOf(std::int64_t yyyymmdd)
{
    const std::int64_t day = isCalendarDay(yyyymmdd) ? yyyymmdd : kFallbackDay;
    return daysSinceEpoch(day / 10000, day / 100 % 100, day % 100) * kDayMs - kZoneMs;
}

} // namespace feed::hours
