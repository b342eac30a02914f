#include "feed/csv/values.h"

#include "platform/utils/civil_date.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace feed {

namespace {

constexpr double kHighestPrice = 1e9;
constexpr std::int64_t kMostShares = 1000000000000000;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Reads exactly `count` digits at the front of `text`.
bool takeDigits(std::string_view& text, std::size_t count, int& value)
{
    if (text.size() < count)
        return false;
    int result = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (!isDigit(text[i]))
            return false;
        result = result * 10 + (text[i] - '0');
    }
    text.remove_prefix(count);
    value = result;
    return true;
}

bool allDigits(std::string_view text)
{
    for (const char c : text) {
        if (!isDigit(c))
            return false;
    }
    return !text.empty();
}

bool timeOfDay(std::int64_t hour, std::int64_t minute, std::int64_t second, std::int64_t ms,
               std::int64_t& result)
{
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59)
        return false;
    result = ((hour * 60 + minute) * 60 + second) * 1000 + ms;
    return true;
}

bool takeDate(std::string_view& text, std::int32_t& date)
{
    std::string_view rest = text;
    int year = 0;
    int month = 0;
    int day = 0;
    if (!takeDigits(rest, 4, year) || rest.empty())
        return false;
    const char separator = rest.front();
    if (separator == '.' || separator == '-' || separator == '/') {
        rest.remove_prefix(1);
        if (!takeDigits(rest, 2, month) || rest.empty() || rest.front() != separator)
            return false;
        rest.remove_prefix(1);
    } else if (!takeDigits(rest, 2, month)) {
        return false;
    }
    if (!takeDigits(rest, 2, day) || !isDate(year * 10000 + month * 100 + day))
        return false;
    date = year * 10000 + month * 100 + day;
    text = rest;
    return true;
}

/// HH:MM:SS with decimals.
bool clockTime(std::string_view text, std::int64_t& ms)
{
    int hour = 0;
    int minute = 0;
    int second = 0;
    const std::size_t hourDigits = text.size() > 1 && text[1] == ':' ? 1 : 2;
    if (!takeDigits(text, hourDigits, hour) || text.empty() || text.front() != ':')
        return false;
    text.remove_prefix(1);
    if (!takeDigits(text, 2, minute) || text.empty() || text.front() != ':')
        return false;
    text.remove_prefix(1);
    if (!takeDigits(text, 2, second))
        return false;
    std::int64_t fraction = 0;
    if (!text.empty()) {
        if (text.front() != '.' || text.size() < 2 || text.size() > 10 || !allDigits(text.substr(1)))
            return false;
        text.remove_prefix(1);
        for (std::size_t i = 0; i < 3; ++i)
            fraction = fraction * 10 + (i < text.size() ? text[i] - '0' : 0);
    }
    return timeOfDay(hour, minute, second, fraction, ms);
}

bool digitTime(std::string_view text, TimeDigits digits, std::int64_t& ms)
{
    std::int64_t value = 0;
    if (text.size() > 9 || !allDigits(text))
        return false;
    std::from_chars(text.data(), text.data() + text.size(), value);
    if (digits == TimeDigits::Hundredths && text.size() <= 8 &&
        timeOfDay(value / 1000000, value / 10000 % 100, value / 100 % 100, value % 100 * 10, ms))
        return true;
    return timeOfDay(value / 10000000, value / 100000 % 100, value / 1000 % 100, value % 1000, ms);
}

} // namespace

bool isDate(std::int64_t yyyymmdd)
{
    constexpr std::int64_t kFirst = 19700101;
    constexpr std::int64_t kLast = 99991231;
    if (yyyymmdd < kFirst || yyyymmdd > kLast)
        return false;
    const auto date = static_cast<int>(yyyymmdd);
    return utils::isCivilDate(date / 10000, date / 100 % 100, date % 100);
}

bool parseInteger(std::string_view cell, std::int64_t& value)
{
    std::int64_t result = 0;
    const char* const end = cell.data() + cell.size();
    const auto [stop, fault] = std::from_chars(cell.data(), end, result);
    if (fault != std::errc())
        return false;
    const char* at = stop;
    if (at != end && *at == '.') {
        ++at;
        while (at != end && *at == '0')
            ++at;
    }
    if (at != end)
        return false;
    value = result;
    return true;
}

bool parseInteger32(std::string_view cell, std::int32_t& value)
{
    std::int64_t wide = 0;
    if (!parseInteger(cell, wide) || wide < std::numeric_limits<std::int32_t>::min() ||
        wide > std::numeric_limits<std::int32_t>::max())
        return false;
    value = static_cast<std::int32_t>(wide);
    return true;
}

bool parseNumber(std::string_view cell, double& value)
{
    double result = 0;
    const char* const end = cell.data() + cell.size();
    const auto [stop, fault] = std::from_chars(cell.data(), end, result);
    if (fault != std::errc() || stop != end || !std::isfinite(result))
        return false;
    value = result;
    return true;
}

bool parsePrice(std::string_view cell, double scale, double& yuan)
{
    double value = 0;
    if (!parseNumber(cell, value) || value < 0 || value > kHighestPrice * scale)
        return false;
    // A whole number of ten-thousandths divided by 10000 is the double nearest to the decimal price.
    yuan = std::round(value / scale * 10000) / 10000;
    return true;
}

bool parseVolume(std::string_view cell, std::int64_t& shares)
{
    std::int64_t value = 0;
    if (!parseInteger(cell, value) || value < 0 || value > kMostShares)
        return false;
    shares = value;
    return true;
}

void appendNumber(std::string& text, double value)
{
    char buffer[64];
    const auto [end, fault] = std::to_chars(buffer, buffer + sizeof buffer, value);
    if (fault == std::errc())
        text.append(buffer, end);
}

void appendInteger(std::string& text, std::int64_t value)
{
    char buffer[24];
    const auto [end, fault] = std::to_chars(buffer, buffer + sizeof buffer, value);
    if (fault == std::errc())
        text.append(buffer, end);
}

bool parseTimeCell(std::string_view cell, TimeDigits digits, TimeCell& value)
{
    TimeCell result;
    const bool dated = cell.size() >= 10 && cell[1] != ':' && cell[2] != ':';
    if (dated) {
        if (!takeDate(cell, result.date))
            return false;
        if (!cell.empty() && (cell.front() == 'T' || cell.front() == ' '))
            cell.remove_prefix(1);
    }
    if (dated && cell.empty()) {
        value = result;
        return true;
    }
    bool read = false;
    if (cell.find(':') != std::string_view::npos)
        read = clockTime(cell, result.msOfDay);
    else if (dated) // leading zeros are written after a date: HHMMSSmmm or HHMMSS
        read = cell.size() == 9 ? digitTime(cell, TimeDigits::Milliseconds, result.msOfDay)
               : cell.size() == 6
                   ? digitTime(std::string(cell) + "000", TimeDigits::Milliseconds, result.msOfDay)
                   : false;
    else
        read = digitTime(cell, digits, result.msOfDay);
    if (read)
        value = result;
    return read;
}

bool parseDateCell(std::string_view cell, std::int32_t& yyyymmdd)
{
    std::int32_t date = 0;
    if (!takeDate(cell, date) || !cell.empty())
        return false;
    yyyymmdd = date;
    return true;
}

} // namespace feed
