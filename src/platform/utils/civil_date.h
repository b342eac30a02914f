#pragma once

#include <cstdint>

/// Days and dates of the Gregorian calendar, extended to all years; day 0 is 1970-01-01. Pure arithmetic.
namespace utils {

struct CivilDate
{
    int year;
    int month; ///< 1 to 12
    int day;   ///< 1 to 31
};

/// Day number of a date.
constexpr std::int64_t daysFromCivil(int year, int month, int day)
{
    // The year is taken to begin in March, so that the leap day is its last.
    const std::int64_t y = month <= 2 ? year - 1 : year;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const std::int64_t yearOfEra = y - era * 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

/// Date of a day number.
constexpr CivilDate civilFromDays(std::int64_t days)
{
    const std::int64_t shifted = days + 719468;
    const std::int64_t era = (shifted >= 0 ? shifted : shifted - 146096) / 146097;
    const std::int64_t dayOfEra = shifted - era * 146097;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t monthFromMarch = (5 * dayOfYear + 2) / 153;
    const int month = static_cast<int>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
    const std::int64_t year = yearOfEra + era * 400 + (month <= 2 ? 1 : 0);
    return {static_cast<int>(year), month, static_cast<int>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1)};
}

/// Whether the numbers are a date of the calendar; years 1 to 9999.
constexpr bool isCivilDate(int year, int month, int day)
{
    return year >= 1 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 && day <= 31 &&
           civilFromDays(daysFromCivil(year, month, day)).day == day;
}

} // namespace utils
