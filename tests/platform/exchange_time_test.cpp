#include "platform/utils/exchange_time.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <limits>

using namespace utils;

namespace {

// 2023-02-01 09:30:00.120 at the exchange, 01:30:00.120 UTC.
constexpr std::int64_t kMorning = 1675215000120;

/// Sets the machine's zone for one test.
class Zone
{
public:
    explicit Zone(const char* name)
    {
        setenv("TZ", name, 1);
        tzset();
    }
    ~Zone()
    {
        unsetenv("TZ");
        tzset();
    }
};

/// Milliseconds, or -1 if the text is refused.
std::int64_t parsed(const char* text)
{
    std::int64_t ms = 0;
    return parseTimeOfDay(QString::fromLatin1(text), ms) ? ms : -1;
}

} // namespace

TEST(ExchangeTime, IsEightHoursBeforeUtcInEveryZoneOfTheMachine)
{
    for (const char* zone : {"UTC", "Asia/Shanghai", "America/New_York", "Pacific/Auckland"}) {
        const Zone machine(zone);
        EXPECT_EQ(exchangeDate(kMorning), 20230201) << zone;
        EXPECT_EQ(clockText(kMorning, true), "09:30:00.120") << zone;
        EXPECT_EQ(exchangeTime(20230201, 9, 30, 0, 120), kMorning) << zone;
        EXPECT_EQ(getFullTextTimeByTime(1675215000, true, nullptr), "09:30:00") << zone;
        EXPECT_EQ(getFullTextTimeByTime(1675215000, false, "%d-%d-%d %d:%d:%d"), "2023-2-1 9:30:0") << zone;
    }
}

TEST(ExchangeTime, HasNoSummerTimeEvenWhereTheCountryOnceHadIt)
{
    const Zone machine("Asia/Shanghai"); // summer time from 1986 to 1991
    EXPECT_EQ(clockText(exchangeTime(19880701, 12, 0, 0, 0), false), "12:00:00");
    EXPECT_EQ(exchangeTime(19880701, 12, 0, 0, 0), 583732800000);
}

TEST(ExchangeTime, DayBeginsAtMidnightAtTheExchange)
{
    const std::int64_t midnight = exchangeTime(20230201, 0, 0, 0, 0);
    EXPECT_EQ(midnight, 1675180800000);
    EXPECT_EQ(exchangeDayStart(kMorning), midnight);
    EXPECT_EQ(exchangeDayStart(midnight), midnight);
    EXPECT_EQ(exchangeDayStart(midnight - 1), midnight - kMSecPerDay);
    EXPECT_EQ(exchangeDayStart(midnight + kMSecPerDay - 1), midnight);
    EXPECT_EQ(exchangeDate(midnight - 1), 20230131);
    EXPECT_EQ(timeOfDayMs(midnight - 1), kMSecPerDay - 1);
    EXPECT_EQ(timeOfDayMs(midnight), 0);
}

TEST(ExchangeTime, MomentsBefore1970HaveDatesToo)
{
    EXPECT_EQ(exchangeDate(-1), 19700101);
    EXPECT_EQ(exchangeDate(-8 * 3600 * 1000 - 1), 19691231);
    EXPECT_EQ(clockText(-8 * 3600 * 1000 - 1, true), "23:59:59.999");
}

TEST(ExchangeTime, ADateThatIsNotInTheCalendarIsRefused)
{
    EXPECT_NE(exchangeTime(20240229, 0, 0, 0, 0), -1);
    EXPECT_NE(exchangeTime(20000229, 0, 0, 0, 0), -1);
    for (const int date : {20230229, 19000229, 20230431, 20231301, 20230001, 20230100, 20230132, 0, -20230201,
                           std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        EXPECT_EQ(exchangeTime(date, 0, 0, 0, 0), -1) << date;
}

TEST(ExchangeTime, ATimeOfDayOutsideTheDayIsRefused)
{
    EXPECT_EQ(exchangeTime(20230201, 23, 59, 59, 999), 1675267199999);
    EXPECT_EQ(exchangeTime(20230201, 24, 0, 0, 0), -1);
    EXPECT_EQ(exchangeTime(20230201, 0, 60, 0, 0), -1);
    EXPECT_EQ(exchangeTime(20230201, 0, 0, 60, 0), -1);
    EXPECT_EQ(exchangeTime(20230201, 0, 0, 0, 1000), -1);
    EXPECT_EQ(exchangeTime(20230201, -1, 0, 0, 0), -1);
    EXPECT_EQ(exchangeTime(20230201, 0, 0, 0, -1), -1);
}

TEST(ExchangeTime, MomentsOutsideTheCalendarAreTakenAsItsEnds)
{
    EXPECT_EQ(exchangeDate(std::numeric_limits<std::int64_t>::max()), 99991231);
    EXPECT_EQ(exchangeDate(std::numeric_limits<std::int64_t>::min()), 10101);
    EXPECT_EQ(clockText(std::numeric_limits<std::int64_t>::max(), true), "23:59:59.999");
    EXPECT_EQ(clockText(std::numeric_limits<std::int64_t>::min(), false), "00:00:00");
    EXPECT_EQ(exchangeDate(exchangeDayStart(std::numeric_limits<std::int64_t>::min())), 10101);
}

TEST(ExchangeTime, EveryDayOfFourCenturiesGoesThroughItsDateAndBack)
{
    int previous = 0;
    for (std::int64_t day = exchangeTime(18000101, 0, 0, 0, 0); day < exchangeTime(22000101, 0, 0, 0, 0);
         day += kMSecPerDay) {
        const int date = exchangeDate(day);
        ASSERT_GT(date, previous);
        ASSERT_EQ(exchangeTime(date, 0, 0, 0, 0), day);
        previous = date;
    }
}

TEST(ExchangeTime, TimestampShowsDateAndMilliseconds)
{
    EXPECT_EQ(exchangeTimestamp(kMorning), "2023-02-01 09:30:00.120");
    EXPECT_EQ(exchangeTimestamp(exchangeTime(20231231, 23, 59, 59, 7)), "2023-12-31 23:59:59.007");
}

TEST(ExchangeTime, ATimeOfDayIsReadInItsThreeForms)
{
    EXPECT_EQ(parsed("09:30"), 34200000);
    EXPECT_EQ(parsed("9:30"), 34200000);
    EXPECT_EQ(parsed("09:30:15"), 34215000);
    EXPECT_EQ(parsed("09:30:15.120"), 34215120);
    EXPECT_EQ(parsed("09:30:15.1"), 34215100);
    EXPECT_EQ(parsed("09:30:15.01"), 34215010);
    EXPECT_EQ(parsed("00:00"), 0);
    EXPECT_EQ(parsed("23:59:59.999"), 86399999);
}

TEST(ExchangeTime, AnyOtherTextIsNoTimeOfDayAndChangesNothing)
{
    for (const char* text :
         {"",       "9",       "09",       "09:",          "09:3",          "09:300", "24:00",  "09:60",
          "09:30:", "09:30:5", "09:30:60", "09:30:15.",    "09:30:15.1234", "09:30 ", " 09:30", "-9:30",
          "09.30",  "093000",  "aa:bb",    "09:30:15,120", "123:00",        "+9:30"}) {
        std::int64_t ms = 42;
        EXPECT_FALSE(parseTimeOfDay(QString::fromLatin1(text), ms)) << text;
        EXPECT_EQ(ms, 42) << text;
    }
    std::int64_t ms = 42;
    EXPECT_FALSE(parseTimeOfDay(QStringLiteral("０９:３０"), ms)) << "full-width digits";
    EXPECT_EQ(ms, 42);
}

TEST(ExchangeTime, TheClockOnlyGoesForward)
{
    std::int64_t before = clockMSec();
    for (int i = 0; i < 1000; ++i) {
        const std::int64_t now = clockMSec();
        ASSERT_GE(now, before);
        before = now;
    }
    EXPECT_GT(currentMSecSince1970(), exchangeTime(20200101, 0, 0, 0, 0));
}

TEST(ExchangeTime, LogLinesShowTheTimeOfDayWithMilliseconds)
{
    EXPECT_EQ(millisecondsToTime(exchangeTime(20230201, 9, 30, 0, 120)), "09:30:00.120");
    EXPECT_EQ(millisecondsToTime(0), "08:00:00.000");
}
