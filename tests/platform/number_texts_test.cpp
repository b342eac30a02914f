#include "platform/utils/number_texts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace utils;

TEST(NumberTexts, TheShortestTextHasNoTrailingZerosAndNoExponent)
{
    const struct
    {
        double value;
        const char* text;
    } rows[] = {
        {12.34, "12.34"},
        {0, "0"},
        {-0.0, "0"},
        {12.30, "12.3"},
        {1800, "1800"},
        {-0.5, "-0.5"},
        {0.001, "0.001"},
        {0.1 + 0.2, "0.30000000000000004"},
        {1e-7, "0.0000001"},
        {1e21, "1000000000000000000000"},
        {123456789.125, "123456789.125"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(formatDoubleNumber(row.value, eFormatShortest).toStdString(), row.text);
}

TEST(NumberTexts, WithoutTheFlagThereAreTwoDecimals)
{
    EXPECT_EQ(formatDoubleNumber(12.3, 0), "12.30");
    EXPECT_EQ(formatDoubleNumber(0, 0), "0.00");
}

TEST(NumberTexts, WhatIsNoNumberIsSaid)
{
    for (const double value :
         {std::nan(""), std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(formatDoubleNumber(value, eFormatShortest), QStringLiteral("非法值"));
        EXPECT_EQ(formatDoubleNumber(value, 0), QStringLiteral("非法值"));
    }
}

TEST(NumberTexts, WholeNumbersAreNotGrouped)
{
    EXPECT_EQ(formatIntNumber(0, 0, 0), "0");
    EXPECT_EQ(formatIntNumber(-1234567, 0, 0), "-1234567");
    EXPECT_EQ(formatIntNumber(12, 2, 0), "12.00");
    EXPECT_EQ(formatIntNumber(std::numeric_limits<std::int64_t>::max(), 0, 0), "9223372036854775807");
}
