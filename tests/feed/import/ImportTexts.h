#pragma once

#include "feed/import/importDay.h"

#include <cstdio>
#include <string>
#include <vector>

namespace testing_support {

/// The rows of a day as lines, ordered by `seq`, times as milliseconds of the exchange's day:
/// "2 order 5 sell 10.02 x200 kind 1 @34200120", "3 deal 1-2 10.01 x100 active 2 @34200120",
/// "7 cancel buy 1 x100 @34201120".
inline std::vector<std::string> linesOf(const feed::InstrumentDay& day)
{
    const auto number = [](double value) {
        char text[32];
        std::snprintf(text, sizeof text, "%.10g", value);
        return std::string(text);
    };
    const auto at = [](std::int64_t time) {
        constexpr std::int64_t kDay = 24 * 60 * 60 * 1000;
        constexpr std::int64_t kZone = 8 * 60 * 60 * 1000;
        return " @" + std::to_string((time + kZone) % kDay);
    };
    std::vector<std::string> lines;
    std::size_t nextDeal = 0;
    const auto dealsBefore = [&](std::int64_t seq) {
        for (; nextDeal < day.deals.size() && day.deals[nextDeal].seq < seq; ++nextDeal) {
            const feed::DealRow& row = day.deals[nextDeal];
            std::string line = std::to_string(row.seq);
            if (row.kind == 3)
                line +=
                    (row.sellNo == row.buyNo ? " cancel sell " : " cancel buy ") + std::to_string(row.buyNo);
            else
                line += " deal " + std::to_string(row.buyNo) + "-" + std::to_string(row.sellNo) + " " +
                        number(row.price);
            line += " x" + std::to_string(row.volume);
            if (row.kind != 3)
                line += " active " + std::to_string(row.activeSide);
            lines.push_back(line + at(row.time));
        }
    };
    for (const feed::OrderRow& row : day.orders) {
        dealsBefore(row.seq);
        lines.push_back(std::to_string(row.seq) + " order " + std::to_string(row.number) +
                        (row.side == 1 ? " buy " : " sell ") + number(row.price) + " x" +
                        std::to_string(row.volume) + " kind " + std::to_string(row.kind) + at(row.time));
    }
    dealsBefore(INT64_MAX);
    return lines;
}

/// Imports tables {name, text}. The day, where neither rows nor names tell it, is 2024-01-02.
inline feed::ImportResult import(const std::vector<feed::ImportText>& tables,
                                 feed::ImportOptions options = {})
{
    if (options.tradingDay == 0 && options.layout == "auto")
        options.tradingDay = 20240102;
    return feed::importTexts(tables, options);
}

inline feed::ImportOptions inLayout(const std::string& layout)
{
    feed::ImportOptions options;
    options.layout = layout;
    return options;
}

} // namespace testing_support
