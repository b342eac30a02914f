#include "platform/utils/exchange_time.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using utils::getFullTextTimeByTime;

namespace {

constexpr double kMorning = 1675215000; // 2023-02-01 09:30:00 at the exchange

// "%04d年%02d月%02d日 %02d:%02d:%02d" in GBK: 年 is C4 EA, 月 is D4 C2, 日 is C8 D5.
constexpr char kGbkFormat[] = "%04d\xC4\xEA%02d\xD4\xC2%02d\xC8\xD5 %02d:%02d:%02d";

} // namespace

TEST(FullTextTime, TheUsualFormatIs33BytesOfGbk)
{
    EXPECT_EQ(sizeof kGbkFormat - 1, 33u);
}

TEST(FullTextTime, TheFormatIsDecodedFromGbk)
{
    EXPECT_EQ(getFullTextTimeByTime(kMorning, true, kGbkFormat), QStringLiteral("2023年02月01日 09:30:00"));
}

TEST(FullTextTime, WithoutTheFlagItIsUtc)
{
    EXPECT_EQ(getFullTextTimeByTime(kMorning, false, kGbkFormat), QStringLiteral("2023年02月01日 01:30:00"));
    EXPECT_EQ(getFullTextTimeByTime(0, false, kGbkFormat), QStringLiteral("1970年01月01日 00:00:00"));
    EXPECT_EQ(getFullTextTimeByTime(0, true, kGbkFormat), QStringLiteral("1970年01月01日 08:00:00"));
}

TEST(FullTextTime, PartsOfASecondAreCutTowardThePast)
{
    EXPECT_EQ(getFullTextTimeByTime(kMorning + 0.999, true, kGbkFormat),
              QStringLiteral("2023年02月01日 09:30:00"));
    EXPECT_EQ(getFullTextTimeByTime(-0.5, false, kGbkFormat), QStringLiteral("1969年12月31日 23:59:59"));
}

TEST(FullTextTime, FewerConversionsShowTheFirstParts)
{
    EXPECT_EQ(getFullTextTimeByTime(kMorning, true, "%d/%d"), "2023/2");
    EXPECT_EQ(getFullTextTimeByTime(kMorning, true, "today"), "today");
    EXPECT_EQ(getFullTextTimeByTime(kMorning, true, ""), "");
}

TEST(FullTextTime, WidthAndZeroFillAreUnderstood)
{
    EXPECT_EQ(getFullTextTimeByTime(kMorning, true, "[%6d][%3d][%03d]"), "[  2023][  2][001]");
    EXPECT_EQ(getFullTextTimeByTime(kMorning, true, "%2d"), "2023");
    EXPECT_EQ(getFullTextTimeByTime(kMorning, true, "100%% of %d"), "100% of 2023");
}

TEST(FullTextTime, AHostileFormatGivesNoText)
{
    for (const char* format : {"%s",        "%n",     "%d%n",         "%f",      "%x",
                               "%ld",       "%lld",   "%*d",          "%-4d",    "%+d",
                               "% d",       "%.2d",   "%1$d",         "%",       "%d%",
                               "%04",       "%1000d", "%9999999999d", "%00000d", "%d%d%d%d%d%d%d",
                               "\xC4\xEA%s"})
        EXPECT_EQ(getFullTextTimeByTime(kMorning, true, format), "") << format;
    EXPECT_EQ(getFullTextTimeByTime(kMorning, true, nullptr), "");
}

TEST(FullTextTime, ATimeOutsideTheCalendarGivesNoText)
{
    const double infinite = std::numeric_limits<double>::infinity();
    for (const double seconds : {std::nan(""), infinite, -infinite, std::numeric_limits<double>::max(),
                                 std::numeric_limits<double>::lowest(), 253402300800.0, -62135596801.0})
        EXPECT_EQ(getFullTextTimeByTime(seconds, false, kGbkFormat), "") << seconds;
    EXPECT_EQ(getFullTextTimeByTime(253402300799.0, false, "%d-%d-%d %d:%d:%d"), "9999-12-31 23:59:59");
    EXPECT_EQ(getFullTextTimeByTime(253402300799.0, true, "%d"), "")
        << "beyond the year 9999 at the exchange";
    EXPECT_EQ(getFullTextTimeByTime(-62135596800.0, false, "%04d-%d-%d %d:%d:%d"), "0001-1-1 0:0:0");
}

TEST(FullTextTime, ATruncatedGbkCharacterDoesNotCrash)
{
    EXPECT_TRUE(getFullTextTimeByTime(kMorning, true, "%04d\xC4").startsWith("2023"));
}
