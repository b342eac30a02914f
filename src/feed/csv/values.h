#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Values in the cells of tables. Each function answers false, and leaves its result alone, for a cell that
/// is not wholly such a value; none depends on the locale.
namespace feed {

/// A decimal integer; "300.0" is one as well, "300.5" is not.
bool parseInteger(std::string_view cell, std::int64_t& value);

/// An integer that fits 32 bits.
bool parseInteger32(std::string_view cell, std::int32_t& value);

/// A decimal number, read to the nearest double. Not-a-number and infinities are refused.
bool parseNumber(std::string_view cell, double& value);

/// A price in yuan from a cell in yuan times `scale` (1 or 10000): not negative, at most 10^9, rounded to
/// 1/10000 yuan, so that the 5.490000000000002 of a table that went through binary arithmetic is 5.49 again.
bool parsePrice(std::string_view cell, double scale, double& yuan);

/// A volume in shares: 0 to 10^15.
bool parseVolume(std::string_view cell, std::int64_t& shares);

/// The shortest decimal text that reads back as the same double.
void appendNumber(std::string& text, double value);
void appendInteger(std::string& text, std::int64_t value);

/// How an integer without separators tells the time of day.
enum class TimeDigits
{
    Milliseconds, ///< HHMMSSmmm without leading zeros: 93000120 is 09:30:00.120
    Hundredths,   ///< HHMMSScc: 9300012; nine digits, or eight that begin above 23, are HHMMSSmmm
};

/// What a time cell tells: a date, a time of day, or both.
struct TimeCell
{
    std::int32_t date = 0;     ///< yyyymmdd, 0 if the cell has none
    std::int64_t msOfDay = -1; ///< milliseconds since midnight, -1 if the cell has none
};

/// Reads HH:MM:SS with up to nine decimals (cut to milliseconds); the same, HHMMSSmmm or HHMMSS after a date,
/// with 'T', a blank or nothing between them; a date alone with separators; digits alone as `digits` tells.
/// Dates are 2023.07.11, 2023-07-11, 2023/07/11 or 20230711.
bool parseTimeCell(std::string_view cell, TimeDigits digits, TimeCell& value);

/// A date alone, in one of the forms above, also without separators.
bool parseDateCell(std::string_view cell, std::int32_t& yyyymmdd);

/// Whether yyyymmdd is a day of the calendar, from 1970 to 9999.
bool isDate(std::int64_t yyyymmdd);

} // namespace feed
