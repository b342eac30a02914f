// Phases of the day: marks, bands, jumps, and where their labels stand.

#include "host/window/day_labels.h"
#include "host/window/day_phases.h"

#include "host/SmallDay.h"
#include "platform/utils/exchange_time.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <string>

namespace window_tests {
namespace {

std::int64_t at(int hour, int minute, int second = 0)
{
    return utils::exchangeTime(20230201, hour, minute, second, 0);
}

const host::DayRange kWholeDay{at(0, 0), at(23, 59)};
const host::Sessions kUsual{{at(9, 30), at(11, 30)}, {at(13, 0), at(15, 0)}};

/// "09:30 开盘, 15:00 收盘"
std::string text(const std::vector<host::PhaseMark>& marks)
{
    QStringList words;
    for (const host::PhaseMark& mark : marks)
        words << utils::clockText(mark.moment, false).left(5) + QLatin1Char(' ') + mark.name;
    return words.join(QStringLiteral(", ")).toStdString();
}

TEST(DayPhases, AreThoseOfTheStockMarkets)
{
    EXPECT_EQ(text(host::phasesOf(kWholeDay, kUsual, "SH")),
              "09:15 开盘集合竞价, 09:25 集合竞价结束, 09:30 开盘, 11:30 午间休市, 13:00 下午开盘, "
              "14:57 收盘集合竞价, 15:00 收盘");
}

TEST(DayPhases, OfOtherMarketsAreTheirSessions)
{
    EXPECT_EQ(text(host::phasesOf(kWholeDay, {{at(9, 15), at(11, 30)}, {at(13, 0), at(15, 15)}}, "CFFEX")),
              "09:15 开盘, 11:30 午间休市, 13:00 下午开盘, 15:15 收盘");
    EXPECT_EQ(text(host::phasesOf(kWholeDay,
                                  {{at(9, 0), at(10, 15)}, {at(10, 30), at(11, 30)}, {at(13, 30), at(15, 0)}},
                                  "SHFE")),
              "09:00 开盘, 10:15 小节休息, 10:30 恢复交易, 11:30 午间休市, 13:30 下午开盘, 15:00 收盘");
    EXPECT_EQ(text(host::phasesOf(kWholeDay, {{at(9, 30), at(11, 30)}, {at(13, 0), at(15, 30)}}, "SH")),
              "09:15 开盘集合竞价, 09:25 集合竞价结束, 09:30 开盘, 11:30 午间休市, 13:00 下午开盘, "
              "15:30 收盘")
        << "no auction where the day goes on after 15:00";
    EXPECT_EQ(text(host::phasesOf(kWholeDay, {}, "SH")), "");
}

TEST(DayPhases, OutsideTheRangeAreLeftOut)
{
    EXPECT_EQ(text(host::phasesOf({at(9, 30), at(14, 57)}, kUsual, "SZ")),
              "09:30 开盘, 11:30 午间休市, 13:00 下午开盘, 14:57 收盘集合竞价");
}

TEST(DayPhases, OfADayComeFromItsInstrument)
{
    testing_support::SmallDay small;
    small.at(0).buy(1, 10, 100).at(3 * 3600 + 3 * 1800).buy(2, 10, 100); // 09:30 to 14:00
    EXPECT_EQ(text(host::phasesOf(small.day)), "09:30 开盘, 11:30 午间休市, 13:00 下午开盘");
}

TEST(DayPhases, AreJumpedToOnAndBack)
{
    const auto marks = host::phasesOf(kWholeDay, kUsual, "SH");
    const auto next = [&](std::int64_t moment) {
        const auto mark = host::nextPhase(marks, moment);
        return mark ? mark->moment : 0;
    };
    const auto previous = [&](std::int64_t moment) {
        const auto mark = host::previousPhase(marks, moment);
        return mark ? mark->moment : 0;
    };
    EXPECT_EQ(next(at(9, 0)), at(9, 15));
    EXPECT_EQ(next(at(9, 15)), at(9, 25));
    EXPECT_EQ(next(at(10, 0)), at(11, 30));
    EXPECT_EQ(next(at(15, 0)), 0);
    EXPECT_EQ(previous(at(16, 0)), at(15, 0));
    EXPECT_EQ(previous(at(15, 0)), at(14, 57));
    EXPECT_EQ(previous(at(9, 30, 5)), at(9, 30));
    EXPECT_EQ(previous(at(9, 30, 1)), at(9, 25)) << "a replay that plays on gets past the mark";
    EXPECT_EQ(previous(at(9, 15)), 0);
}

TEST(DayPhases, HaveBandsOfAuctionsAndBreaks)
{
    std::string words;
    for (const host::PhaseBand& band : host::bandsOf(host::phasesOf(kWholeDay, kUsual, "SH"))) {
        words += utils::clockText(band.stretch.begin, false).left(5).toStdString() + "-" +
                 utils::clockText(band.stretch.end, false).left(5).toStdString() +
                 (band.auction ? " auction, " : " break, ");
    }
    EXPECT_EQ(words, "09:15-09:25 auction, 11:30-13:00 break, 14:57-15:00 auction, ");
}

/// Labels over a line of so many pixels a minute, each letter ten pixels wide: "开盘@20".
std::string labels(int width, double perMinute)
{
    const std::int64_t begin = at(9, 15);
    QStringList words;
    for (const host::PlacedLabel& label : host::placeLabels(
             host::phasesOf({begin, at(15, 0)}, kUsual, "SH"), width, 4,
             [&](std::int64_t moment) { return int(double(moment - begin) / 60000 * perMinute); },
             [](const QString& word) { return int(word.size()) * 10; })) {
        EXPECT_GE(label.left, 0);
        EXPECT_LE(label.left + label.width, width);
        words << label.text + QLatin1Char('@') + QString::number(label.left);
    }
    return words.join(QLatin1Char(' ')).toStdString();
}

TEST(DayLabels, StandOverTheirMarksMostImportantFirst)
{
    EXPECT_EQ(labels(6900, 20), "开盘@290 收盘@6880 午休@2690 午后@4490 竞价@0 竞价@6830 撮合@190");
}

TEST(DayLabels, ThatWouldTouchAMoreImportantOneAreLeftOut)
{
    EXPECT_EQ(labels(690, 2), "开盘@20 收盘@670 午休@260 午后@440");
    EXPECT_EQ(labels(60, 0.1), "开盘@0 收盘@24");
    EXPECT_EQ(labels(15, 0.01), "") << "none is cut";
}

} // namespace
} // namespace window_tests
