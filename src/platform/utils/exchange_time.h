#pragma once

#include "records/DepthExport.h"

#include <QString>

#include <cstdint>

/// Times of the exchanges: UTC+8 all year, whatever zone the machine is in. Moments are milliseconds since
/// 1970-01-01 UTC. All functions may be called on any thread. A moment outside the years 1 to 9999 is taken
/// as the nearest one inside.
namespace utils {

constexpr std::int64_t kMSecPerSecond = 1000;
constexpr std::int64_t kMSecPerDay = 24 * 60 * 60 * kMSecPerSecond;

/// Milliseconds of a clock that only goes forward; only differences mean anything.
DEPTH_EXPORT std::int64_t clockMSec();

/// The current moment.
DEPTH_EXPORT std::int64_t currentMSecSince1970();

/// Midnight, exchange time, of the day that the moment lies in.
DEPTH_EXPORT std::int64_t exchangeDayStart(std::int64_t msSince1970);

/// The moment of a date (20230201) and a time of day at the exchange. A date that is not in the calendar, or
/// a time of day outside 00:00:00.000 to 23:59:59.999, gives -1.
DEPTH_EXPORT std::int64_t exchangeTime(int yyyymmdd, int hour, int minute, int second, int millisecond);

/// Date at the exchange, as 20230201.
DEPTH_EXPORT int exchangeDate(std::int64_t msSince1970);

/// Milliseconds since midnight at the exchange, 0 to 86,399,999.
DEPTH_EXPORT std::int64_t timeOfDayMs(std::int64_t msSince1970);

/// Time of day at the exchange, "09:30:00" or with milliseconds "09:30:00.120".
DEPTH_EXPORT QString clockText(std::int64_t msSince1970, bool withMs);

/// Date and time at the exchange, "2023-02-01 09:30:00.120".
DEPTH_EXPORT QString exchangeTimestamp(std::int64_t msSince1970);

/// Time of day at the exchange with milliseconds, "09:30:00.120", as log lines show the time of a record.
DEPTH_EXPORT QString millisecondsToTime(std::int64_t msSince1970);

/// Reads a time of day, "9:30", "09:30", "09:30:15", "09:30:15.120" (one to three decimals), into
/// milliseconds since midnight. Any other text is refused: false, and `ms` is left as it is.
DEPTH_EXPORT bool parseTimeOfDay(const QString& text, std::int64_t& ms);

/// A moment as text, at the exchange. `seconds` counts from 1970-01-01 UTC, decimals are cut. With
/// `timeOfDay` the text is "hh:mm:ss", whatever the format is. Otherwise `gbkFormat` is a printf format in
/// GBK encoding with up to six int conversions ("%d", "%2d", "%04d", ...), which take year, month, day, hour,
/// minute and second in turn; "%%" is a percent sign. Anything else after a percent sign, more than six
/// conversions, a null format, a time that is not finite or lies outside the years 1 to 9999: empty text.
DEPTH_EXPORT QString getFullTextTimeByTime(double seconds, bool timeOfDay, const char* gbkFormat);

} // namespace utils
