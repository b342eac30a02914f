#include "platform/utils/exchange_time.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using utils::getFullTextTimeByTime;

namespace {

constexpr double kMorning = 1675215000;              // 2023-02-01 09:30:00 at the exchange
constexpr double kFirst = -62135596800.0 - 8 * 3600; // of the calendar at the exchange
constexpr double kEnd = 253402300800.0 - 8 * 3600;   // behind its last second

// "%04d年%02d月%02d日 %02d:%02d:%02d" in GBK: 年 is C4 EA, 月 is D4 C2, 日 is C8 D5.
constexpr char kGbkFormat[] = "%04d\xC4\xEA%02d\xD4\xC2%02d\xC8\xD5 %02d:%02d:%02d";

} // namespace

TEST(FullTextTime, TheUsualFormatIs33BytesOfGbk)
{
    EXPECT_EQ(sizeof kGbkFormat - 1, 33u);
}

TEST(FullTextTime, TheFormatIsDecodedFromGbk)
{
    EXPECT_EQ(getFullTextTimeByTime(kMorning, false, kGbkFormat), QStringLiteral("2023年02月01日 09:30:00"));
}

TEST(FullTextTime, WithTheFlagItIsTheTimeOfDayWhateverTheFormatIs)
{
    for (const char* format : {kGbkFormat, "%d", "%s", "", static_cast<const char*>(nullptr)})
        EXPECT_EQ(getFullTextTimeByTime(kMorning, true, format), "09:30:00");
    EXPECT_EQ(getFullTextTimeByTime(kMorning + 59.999, true, kGbkFormat), "09:30:59");
    EXPECT_EQ(getFullTextTimeByTime(-0.5, true, kGbkFormat), "07:59:59");
    EXPECT_EQ(getFullTextTimeByTime(std::nan(""), true, kGbkFormat), "");
}

TEST(FullTextTime, IsThatOfTheExchangeWithAndWithoutTheFlag)
{
    EXPECT_EQ(getFullTextTimeByTime(0, false, kGbkFormat), QStringLiteral("1970年01月01日 08:00:00"));
    EXPECT_EQ(getFullTextTimeByTime(0, true, kGbkFormat), "08:00:00");
}

TEST(FullTextTime, PartsOfASecondAreCutTowardThePast)
{
    EXPECT_EQ(getFullTextTimeByTime(kMorning + 0.999, false, kGbkFormat),
              QStringLiteral("2023年02月01日 09:30:00"));
    EXPECT_EQ(getFullTextTimeByTime(-0.5, false, kGbkFormat), QStringLiteral("1970年01月01日 07:59:59"));
}

TEST(FullTextTime, FewerConversionsShowTheFirstParts)
{
    EXPECT_EQ(getFullTextTimeByTime(kMorning, false, "%d/%d"), "2023/2");
    EXPECT_EQ(getFullTextTimeByTime(kMorning, false, "today"), "today");
    EXPECT_EQ(getFullTextTimeByTime(kMorning, false, ""), "");
}

TEST(FullTextTime, WidthAndZeroFillAreUnderstood)
{
    EXPECT_EQ(getFullTextTimeByTime(kMorning, false, "[%6d][%3d][%03d]"), "[  2023][  2][001]");
    EXPECT_EQ(getFullTextTimeByTime(kMorning, false, "%2d"), "2023");
    EXPECT_EQ(getFullTextTimeByTime(kMorning, false, "100%% of %d"), "100% of 2023");
}

TEST(FullTextTime, AHostileFormatGivesNoText)
{
    for (const char* format : {"%s",        "%n",     "%d%n",         "%f",      "%x",
                               "%ld",       "%lld",   "%*d",          "%-4d",    "%+d",
                               "% d",       "%.2d",   "%1$d",         "%",       "%d%",
                               "%04",       "%1000d", "%9999999999d", "%00000d", "%d%d%d%d%d%d%d",
                               "\xC4\xEA%s"})
        EXPECT_EQ(getFullTextTimeByTime(kMorning, false, format), "") << format;
    EXPECT_EQ(getFullTextTimeByTime(kMorning, false, nullptr), "");
}

TEST(FullTextTime, ATimeOutsideTheCalendarGivesNoText)
{
    const double infinite = std::numeric_limits<double>::infinity();
    for (const bool timeOfDay : {false, true}) {
        for (const double seconds : {std::nan(""), infinite, -infinite, std::numeric_limits<double>::max(),
                                     std::numeric_limits<double>::lowest(), kEnd, kFirst - 1})
            EXPECT_EQ(getFullTextTimeByTime(seconds, timeOfDay, kGbkFormat), "") << seconds;
    }
    EXPECT_EQ(getFullTextTimeByTime(kEnd - 1, false, "%d-%d-%d %d:%d:%d"), "9999-12-31 23:59:59");
    EXPECT_EQ(getFullTextTimeByTime(kEnd - 1, true, nullptr), "23:59:59");
    EXPECT_EQ(getFullTextTimeByTime(kFirst, false, "%04d-%d-%d %d:%d:%d"), "0001-1-1 0:0:0");
}

TEST(FullTextTime, ATruncatedGbkCharacterDoesNotCrash)
{
    EXPECT_TRUE(getFullTextTimeByTime(kMorning, false, "%04d\xC4").startsWith("2023"));
}
