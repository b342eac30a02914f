#include "platform/toolkit/number_formats.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Zeb;

namespace {

const QString kBad = QStringLiteral("非法值");

struct Row
{
    double value;
    int decimals;
    unsigned flags;
    const char* text;
};

class DoubleNumbers : public ::testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(DoubleNumbers, AreWrittenAsTheTableSays)
{
    const Row& row = GetParam();
    EXPECT_EQ(formatDoubleNumber(row.value, row.decimals, row.flags, false, kBad).toStdString(), row.text);
}

INSTANTIATE_TEST_SUITE_P(Plain, DoubleNumbers,
                         ::testing::Values(Row{0, 2, 0, "0.00"}, Row{1, 0, 0, "1"}, Row{12.3, 1, 0, "12.3"},
                                           Row{1800.5, 2, 0, "1800.50"}, Row{0.1, 3, 0, "0.100"},
                                           Row{0.001, 2, 0, "0.00"}, Row{0.05, 2, 0, "0.05"},
                                           Row{-1.5, 2, 0, "-1.50"}, Row{1e15, 0, 0, "1000000000000000"},
                                           Row{1e22, 2, 0, "10000000000000000000000.00"},
                                           Row{123456789.125, 2, 0, "123456789.13"},
                                           Row{5e-324, 4, 0, "0.0000"}));

INSTANTIATE_TEST_SUITE_P(HalfAwayFromZero, DoubleNumbers,
                         ::testing::Values(Row{0.125, 2, 0, "0.13"}, Row{-0.125, 2, 0, "-0.13"},
                                           Row{0.5, 0, 0, "1"}, Row{1.5, 0, 0, "2"}, Row{2.5, 0, 0, "3"},
                                           Row{2.675, 2, 0, "2.68"}, Row{1.005, 2, 0, "1.01"},
                                           Row{1.045, 2, 0, "1.05"}, Row{0.124999, 2, 0, "0.12"},
                                           Row{9.995, 2, 0, "10.00"}, Row{99.95, 1, 0, "100.0"},
                                           Row{0.95, 1, 0, "1.0"}, Row{0.049, 1, 0, "0.0"},
                                           Row{0.05, 1, 0, "0.1"}));

INSTANTIATE_TEST_SUITE_P(ZeroHasNoSign, DoubleNumbers,
                         ::testing::Values(Row{-0.0, 2, 0, "0.00"}, Row{-0.004, 2, 0, "0.00"},
                                           Row{-0.005, 2, 0, "-0.01"}, Row{-0.4, 0, 0, "0"},
                                           Row{-0.0, 1, eFormatPercent, "0.0%"},
                                           Row{-0.00001, 2, eFormatPercent, "0.00%"}));

INSTANTIATE_TEST_SUITE_P(DecimalsAreClamped, DoubleNumbers,
                         ::testing::Values(Row{1.5, -3, 0, "2"}, Row{1.5, 15, 0, "1.500000000000000"},
                                           Row{1.5, 1000, 0, "1.500000000000000"},
                                           Row{1.5, std::numeric_limits<int>::max(), 0, "1.500000000000000"},
                                           Row{1.5, std::numeric_limits<int>::min(), 0, "2"}));

INSTANTIATE_TEST_SUITE_P(
    Units, DoubleNumbers,
    ::testing::Values(Row{0, 2, eFormatUnits, "0.00"}, Row{9999, 2, eFormatUnits, "9999.00"},
                      Row{9999.994, 2, eFormatUnits, "9999.99"}, Row{9999.995, 2, eFormatUnits, "1.00万"},
                      Row{10000, 2, eFormatUnits, "1.00万"}, Row{12345, 2, eFormatUnits, "1.23万"},
                      Row{12350, 2, eFormatUnits, "1.24万"}, Row{12350, 0, eFormatUnits, "1.24万"},
                      Row{-12345, 2, eFormatUnits, "-1.23万"}, Row{-9999, 2, eFormatUnits, "-9999.00"},
                      Row{99999949.99, 2, eFormatUnits, "9999.99万"},
                      Row{99999950, 2, eFormatUnits, "1.00亿"}, Row{99999999.999, 2, eFormatUnits, "1.00亿"},
                      Row{-99999999.999, 2, eFormatUnits, "-1.00亿"},
                      Row{100000000, 2, eFormatUnits, "1.00亿"}, Row{123456789, 2, eFormatUnits, "1.23亿"},
                      Row{-123456789, 2, eFormatUnits, "-1.23亿"},
                      Row{1.5e12, 2, eFormatUnits, "15000.00亿"}));

INSTANTIATE_TEST_SUITE_P(
    Percent, DoubleNumbers,
    ::testing::Values(Row{0.1234, 2, eFormatPercent, "12.34%"}, Row{1, 0, eFormatPercent, "100%"},
                      Row{-0.5, 2, eFormatPercent, "-50.00%"}, Row{0.333333, 0, eFormatPercent, "33%"},
                      Row{0.07, 0, eFormatPercent, "7%"}, Row{0.285, 0, eFormatPercent, "29%"},
                      Row{500, 2, eFormatPercent | eFormatUnits, "50000.00%"}));

TEST(NumberFormats, ANumberThatIsNotFiniteGivesTheBadText)
{
    const double infinite = std::numeric_limits<double>::infinity();
    for (const unsigned flags : {0u, eFormatUnits, eFormatPercent}) {
        EXPECT_EQ(formatDoubleNumber(std::nan(""), 2, flags, false, kBad), kBad);
        EXPECT_EQ(formatDoubleNumber(infinite, 2, flags, true, kBad), kBad);
        EXPECT_EQ(formatDoubleNumber(-infinite, 2, flags, false, QString()), QString());
    }
}

TEST(NumberFormats, TheLargestDoubleIsWrittenInFull)
{
    const QString text = formatDoubleNumber(std::numeric_limits<double>::max(), 0, 0, false, kBad);
    EXPECT_EQ(text.size(), 309);
    EXPECT_TRUE(text.startsWith("17976931348623157000"));
    EXPECT_EQ(formatDoubleNumber(std::numeric_limits<double>::max(), 0, eFormatPercent, false, kBad).size(),
              312);
}

TEST(NumberFormats, ThousandsAreGroupedBeforeThePointOnly)
{
    const auto grouped = [](double value, int decimals) {
        return formatDoubleNumber(value, decimals, 0, true, kBad).toStdString();
    };
    EXPECT_EQ(grouped(0, 0), "0");
    EXPECT_EQ(grouped(999, 0), "999");
    EXPECT_EQ(grouped(1000, 0), "1,000");
    EXPECT_EQ(grouped(-1000, 2), "-1,000.00");
    EXPECT_EQ(grouped(-100, 2), "-100.00");
    EXPECT_EQ(grouped(1234567.891234, 5), "1,234,567.89123");
    EXPECT_EQ(grouped(999999.995, 2), "1,000,000.00");
    EXPECT_EQ(grouped(0.5, 4), "0.5000");
}

TEST(NumberFormats, WholeNumbersWithoutFlagsArePlainDigits)
{
    EXPECT_EQ(formatIntNumber(0, 0, 0), "0");
    EXPECT_EQ(formatIntNumber(1234567, 0, 0), "1234567");
    EXPECT_EQ(formatIntNumber(-1200, 0, 0), "-1200");
    EXPECT_EQ(formatIntNumber(std::numeric_limits<int>::min(), 0, 0), "-2147483648");
    EXPECT_EQ(formatIntNumber(std::numeric_limits<int>::max(), 0, 0), "2147483647");
    EXPECT_EQ(formatLonglongNumber(std::numeric_limits<qint64>::min(), 0, 0), "-9223372036854775808");
    EXPECT_EQ(formatLonglongNumber(std::numeric_limits<qint64>::max(), 0, 0), "9223372036854775807");
    EXPECT_EQ(formatLonglongNumber(9007199254740993, 0, 0), "9007199254740993")
        << "beyond 2 to the power of 53";
    EXPECT_EQ(formatIntNumber(5, 2, 0), "5.00");
}

TEST(NumberFormats, WholeNumbersTakeUnitsAndPercentToo)
{
    EXPECT_EQ(formatIntNumber(9999, 0, eFormatUnits), "9999");
    EXPECT_EQ(formatIntNumber(10000, 0, eFormatUnits), QStringLiteral("1.00万"));
    EXPECT_EQ(formatIntNumber(-12345, 0, eFormatUnits), QStringLiteral("-1.23万"));
    EXPECT_EQ(formatLonglongNumber(99999999, 0, eFormatUnits), QStringLiteral("1.00亿"));
    EXPECT_EQ(formatLonglongNumber(99999949, 0, eFormatUnits), QStringLiteral("9999.99万"));
    EXPECT_EQ(formatIntNumber(1, 0, eFormatPercent), "100%");
}

TEST(NumberFormats, NoAmountEverReadsTenThousandTenThousands)
{
    for (double value = 99999940; value < 100000060; value += 0.5) {
        const QString text = formatDoubleNumber(value, 2, eFormatUnits, false, kBad);
        ASSERT_FALSE(text.startsWith("10000.00")) << value;
    }
}

TEST(NumberFormats, AShortDecimalComesBackAsItIs)
{
    for (int cents = -30000; cents <= 30000; ++cents) {
        const QString expected = QString::number(cents / 100.0, 'f', 2);
        ASSERT_EQ(formatDoubleNumber(cents / 100.0, 2, 0, false, kBad),
                  expected == "-0.00" ? "0.00" : expected);
    }
}

TEST(NumberFormats, APriceHasTheDecimalsOfItsTick)
{
    EXPECT_EQ(formatPriceDoubleNumber(1800, 0.01), "1800.00");
    EXPECT_EQ(formatPriceDoubleNumber(3.9215, 0.001), "3.922");
    EXPECT_EQ(formatPriceDoubleNumber(100.125, 0.005), "100.125");
    EXPECT_EQ(formatPriceDoubleNumber(3500.4, 1), "3500");
    EXPECT_EQ(formatPriceDoubleNumber(3500.2, 0.2), "3500.2");
    EXPECT_EQ(formatPriceDoubleNumber(12.3, 0), "12.30");
    EXPECT_EQ(formatPriceDoubleNumber(-1.25, 0.01), "-1.25");
    EXPECT_EQ(formatPriceDoubleNumber(std::nan(""), 0.01), kBad);
    EXPECT_EQ(formatPriceDoubleNumber(std::numeric_limits<double>::infinity(), 0.01), kBad);
    EXPECT_EQ(formatPriceDoubleNumber(std::numeric_limits<double>::max(), 0.01), kBad);
}

TEST(NumberFormats, TickDecimalsFollowTheTick)
{
    EXPECT_EQ(priceTick2Precision(1), 0);
    EXPECT_EQ(priceTick2Precision(5), 0);
    EXPECT_EQ(priceTick2Precision(10), 0);
    EXPECT_EQ(priceTick2Precision(0.1), 1);
    EXPECT_EQ(priceTick2Precision(0.2), 1);
    EXPECT_EQ(priceTick2Precision(0.5), 1);
    EXPECT_EQ(priceTick2Precision(0.01), 2);
    EXPECT_EQ(priceTick2Precision(0.02), 2);
    EXPECT_EQ(priceTick2Precision(0.05), 2);
    EXPECT_EQ(priceTick2Precision(0.25), 2);
    EXPECT_EQ(priceTick2Precision(0.001), 3);
    EXPECT_EQ(priceTick2Precision(0.005), 3);
    EXPECT_EQ(priceTick2Precision(0.0001), 4);
    EXPECT_EQ(priceTick2Precision(1.0 - 0.9), 1) << "the error of a difference is no decimal";
}

TEST(NumberFormats, ABadTickHasTwoDecimalsAndATinyOneEight)
{
    for (const double tick : {0.0, -0.01, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_EQ(priceTick2Precision(tick), 2) << tick;
    EXPECT_EQ(priceTick2Precision(1e-8), 8);
    EXPECT_EQ(priceTick2Precision(1e-12), 8);
    EXPECT_EQ(priceTick2Precision(5e-324), 8);
    EXPECT_EQ(priceTick2Precision(1.0 / 3.0), 8);
    EXPECT_EQ(priceTick2Precision(std::numeric_limits<double>::max()), 0);
}
