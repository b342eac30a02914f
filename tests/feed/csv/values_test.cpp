#include "feed/csv/values.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

std::string integerText(const std::string& cell)
{
    std::int64_t value = 0;
    return feed::parseInteger(cell, value) ? std::to_string(value) : "refused";
}

TEST(ParseInteger, TakesWholeNumbersOnly)
{
    const std::pair<const char*, const char*> table[] = {
        {"0", "0"},
        {"300", "300"},
        {"-1", "-1"},
        {"300.0", "300"},
        {"300.", "300"},
        {"9223372036854775807", "9223372036854775807"},
        {"9223372036854775808", "refused"},
        {"300.5", "refused"},
        {"", "refused"},
        {"x", "refused"},
        {"3x", "refused"},
        {"+3", "refused"},
        {"1e3", "refused"},
        {"-", "refused"},
        {".0", "refused"},
    };
    for (const auto& [cell, expected] : table)
        EXPECT_EQ(integerText(cell), expected) << cell;
}

TEST(ParseInteger32, RefusesWhatDoesNotFit)
{
    std::int32_t value = 7;
    EXPECT_TRUE(feed::parseInteger32("2147483647", value));
    EXPECT_EQ(value, 2147483647);
    EXPECT_FALSE(feed::parseInteger32("2147483648", value));
    EXPECT_FALSE(feed::parseInteger32("-2147483649", value));
    EXPECT_EQ(value, 2147483647);
}

TEST(ParseNumber, ReadsToTheNearestDouble)
{
    double value = 0;
    EXPECT_TRUE(feed::parseNumber("1845.75999999999999", value));
    EXPECT_EQ(value, 1845.76);
    EXPECT_TRUE(feed::parseNumber("1.44562825542E9", value));
    EXPECT_EQ(value, 1445628255.42);
    for (const char* const cell : {"", "nan", "inf", "-inf", "1e999", "1.5.2", "1,5", "0x10", "5 "})
        EXPECT_FALSE(feed::parseNumber(cell, value)) << cell;
}

TEST(ParsePrice, RoundsAwayWhatBinaryArithmeticLeftBehind)
{
    double yuan = -1;
    EXPECT_TRUE(feed::parsePrice("5.490000000000002", 1, yuan));
    EXPECT_EQ(yuan, 5.49);
    EXPECT_TRUE(feed::parsePrice("1801.00999999999999", 1, yuan));
    EXPECT_EQ(yuan, 1801.01);
    EXPECT_TRUE(feed::parsePrice("146500", 10000, yuan));
    EXPECT_EQ(yuan, 14.65);
    EXPECT_TRUE(feed::parsePrice("1.0005", 1, yuan));
    EXPECT_EQ(yuan, 1.0005);
    EXPECT_TRUE(feed::parsePrice("0", 1, yuan));
    EXPECT_EQ(yuan, 0);
    for (const char* const cell : {"-1", "-0.01", "", "1e10", "nan", "price"})
        EXPECT_FALSE(feed::parsePrice(cell, 1, yuan)) << cell;
}

TEST(ParseVolume, IsNeverNegativeNorBeyondWhatSumsCanHold)
{
    std::int64_t shares = 0;
    EXPECT_TRUE(feed::parseVolume("1000000000000000", shares));
    EXPECT_EQ(shares, 1000000000000000);
    EXPECT_FALSE(feed::parseVolume("1000000000000001", shares));
    EXPECT_FALSE(feed::parseVolume("-100", shares));
}

TEST(AppendNumber, ReadsBackAsTheSameDouble)
{
    for (const double value : {0.1, 1845.76, 1e300, 5e-324, -0.0, 123456789012345678.0, 1.0 / 3}) {
        std::string text;
        feed::appendNumber(text, value);
        double back = 0;
        ASSERT_TRUE(feed::parseNumber(text, back)) << text;
        EXPECT_EQ(back, value);
        EXPECT_EQ(std::signbit(back), std::signbit(value));
    }
    std::string text;
    feed::appendNumber(text, 10.5);
    EXPECT_EQ(text, "10.5");
    feed::appendInteger(text, std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(text, "10.5-9223372036854775808");
}

std::string timeText(const std::string& cell, feed::TimeDigits digits = feed::TimeDigits::Milliseconds)
{
    feed::TimeCell value;
    if (!feed::parseTimeCell(cell, digits, value))
        return "refused";
    std::string text = value.date != 0 ? std::to_string(value.date) : "";
    if (value.msOfDay >= 0)
        text += " " + std::to_string(value.msOfDay);
    return text;
}

TEST(ParseTimeCell, ReadsEachFormOfTheVendors)
{
    EXPECT_EQ(timeText("09:15:00.020"), " 33300020");
    EXPECT_EQ(timeText("09:15:00"), " 33300000");
    EXPECT_EQ(timeText("9:15:00.5"), " 33300500");
    EXPECT_EQ(timeText("09:15:00.123456"), " 33300123");
    EXPECT_EQ(timeText("2023.02.01T09:15:00.040"), "20230201 33300040");
    EXPECT_EQ(timeText("2023-02-01 09:15:00.040"), "20230201 33300040");
    EXPECT_EQ(timeText("20230201091500040"), "20230201 33300040");
    EXPECT_EQ(timeText("20230201091500"), "20230201 33300000");
    EXPECT_EQ(timeText("2023.02.01"), "20230201");
    EXPECT_EQ(timeText("93000120"), " 34200120");
    EXPECT_EQ(timeText("145959990"), " 53999990");
    EXPECT_EQ(timeText("0"), " 0");
}

TEST(ParseTimeCell, HundredthsAndMillisecondsCannotBeConfusedInTradingHours)
{
    using feed::TimeDigits;
    EXPECT_EQ(timeText("9300012", TimeDigits::Hundredths), " 34200120");
    EXPECT_EQ(timeText("14302506", TimeDigits::Hundredths), " 52225060");
    EXPECT_EQ(timeText("93000120", TimeDigits::Hundredths), " 34200120") << "milliseconds";
    EXPECT_EQ(timeText("143025060", TimeDigits::Hundredths), " 52225060") << "milliseconds";
}

TEST(ParseTimeCell, RefusesWhatIsNoTime)
{
    for (const char* const cell : {"", "x", "24:00:00", "09:60:00", "09:15", "09:15:61", "09:15:00.",
                                   "09:15:00.1234567890", "2023.02.30", "2023.02-01", "20230201T",
                                   "99999999999", "2023020109150004", "-1", "246060000", "09:15:00 1"})
        EXPECT_EQ(timeText(cell), "refused") << cell;
}

TEST(ParseDateCell, TakesDaysOfTheCalendarOnly)
{
    std::int32_t date = 0;
    EXPECT_TRUE(feed::parseDateCell("20240229", date));
    EXPECT_EQ(date, 20240229);
    EXPECT_TRUE(feed::parseDateCell("2022/06/01", date));
    EXPECT_EQ(date, 20220601);
    for (const char* const cell : {"20230229", "20231301", "2023.7.11", "230711", "20230711 ", "00000000"})
        EXPECT_FALSE(feed::parseDateCell(cell, date)) << cell;
}

} // namespace
