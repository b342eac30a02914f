#include "platform/utils/exchange_time.h"

#include "platform/utils/civil_date.h"

#include <QChar>

#include <algorithm>
#include <chrono>

namespace utils {

namespace {

constexpr std::int64_t kExchangeOffset = 8 * 60 * 60 * kMSecPerSecond;
constexpr std::int64_t kFirstMoment = daysFromCivil(1, 1, 1) * kMSecPerDay;
constexpr std::int64_t kLastMoment = daysFromCivil(10000, 1, 1) * kMSecPerDay - 1;

std::int64_t floorDivide(std::int64_t value, std::int64_t by)
{
    const std::int64_t quotient = value / by;
    return quotient * by > value ? quotient - 1 : quotient;
}

/// The wall clock at the exchange, counted like a moment: its days begin at multiples of a day.
std::int64_t wallClock(std::int64_t msSince1970)
{
    return std::clamp(msSince1970, kFirstMoment - kExchangeOffset, kLastMoment - kExchangeOffset) +
           kExchangeOffset;
}

/// Reads up to `most` digits at `position`; -1 if there is none.
int readDigits(const QString& text, int& position, int most, int& digits)
{
    int value = 0;
    digits = 0;
    while (position < text.size() && digits < most) {
        const ushort unit = text.at(position).unicode();
        if (unit < '0' || unit > '9')
            break;
        value = value * 10 + (unit - '0');
        ++position;
        ++digits;
    }
    return digits == 0 ? -1 : value;
}

bool skip(const QString& text, int& position, char expected)
{
    if (position >= text.size() || text.at(position) != QLatin1Char(expected))
        return false;
    ++position;
    return true;
}

} // namespace

std::int64_t clockMSec()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

std::int64_t currentMSecSince1970()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

std::int64_t exchangeDayStart(std::int64_t msSince1970)
{
    return floorDivide(wallClock(msSince1970), kMSecPerDay) * kMSecPerDay - kExchangeOffset;
}

std::int64_t exchangeTime(int yyyymmdd, int hour, int minute, int second, int millisecond)
{
    const int year = yyyymmdd / 10000;
    const int month = yyyymmdd / 100 % 100;
    const int day = yyyymmdd % 100;
    if (!isCivilDate(year, month, day))
        return -1;
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59)
        return -1;
    if (millisecond < 0 || millisecond > 999)
        return -1;
    const std::int64_t timeOfDay = ((hour * 60 + minute) * 60 + second) * kMSecPerSecond + millisecond;
    return daysFromCivil(year, month, day) * kMSecPerDay + timeOfDay - kExchangeOffset;
}

int exchangeDate(std::int64_t msSince1970)
{
    const CivilDate date = civilFromDays(floorDivide(wallClock(msSince1970), kMSecPerDay));
    return date.year * 10000 + date.month * 100 + date.day;
}

std::int64_t timeOfDayMs(std::int64_t msSince1970)
{
    const std::int64_t wall = wallClock(msSince1970);
    return wall - floorDivide(wall, kMSecPerDay) * kMSecPerDay;
}

QString clockText(std::int64_t msSince1970, bool withMs)
{
    const auto timeOfDay = static_cast<int>(timeOfDayMs(msSince1970));
    const int seconds = timeOfDay / 1000;
    if (withMs)
        return QString::asprintf("%02d:%02d:%02d.%03d", seconds / 3600, seconds / 60 % 60, seconds % 60,
                                 timeOfDay % 1000);
    return QString::asprintf("%02d:%02d:%02d", seconds / 3600, seconds / 60 % 60, seconds % 60);
}

QString exchangeTimestamp(std::int64_t msSince1970)
{
    const int date = exchangeDate(msSince1970);
    return QString::asprintf("%04d-%02d-%02d ", date / 10000, date / 100 % 100, date % 100) +
           clockText(msSince1970, true);
}

QString millisecondsToTime(std::int64_t msSince1970)
{
    return clockText(msSince1970, true);
}

bool parseTimeOfDay(const QString& text, std::int64_t& ms)
{
    int position = 0;
    int digits = 0;
    const int hour = readDigits(text, position, 2, digits);
    if (hour < 0 || hour > 23 || !skip(text, position, ':'))
        return false;
    const int minute = readDigits(text, position, 2, digits);
    if (minute < 0 || minute > 59 || digits != 2)
        return false;
    int second = 0;
    int millisecond = 0;
    if (skip(text, position, ':')) {
        second = readDigits(text, position, 2, digits);
        if (second < 0 || second > 59 || digits != 2)
            return false;
        if (skip(text, position, '.')) {
            millisecond = readDigits(text, position, 3, digits);
            if (millisecond < 0)
                return false;
            for (; digits < 3; ++digits)
                millisecond *= 10;
        }
    }
    if (position != text.size())
        return false;
    ms = ((hour * 60 + minute) * 60 + second) * kMSecPerSecond + millisecond;
    return true;
}

} // namespace utils
