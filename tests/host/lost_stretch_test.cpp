// Records that are lost on purpose: the option, and what becomes of the day.

#include "RunProgram.h"

#include "feed/archive/DayArchiveReader.h"
#include "feed/day_gaps.h"
#include "host/DaySource.h"
#include "platform/utils/exchange_time.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using testing_support::ProgramRun;
using testing_support::runProgram;

constexpr std::int64_t kQuarterPastTen = 36900000;

host::DaySource smallSource()
{
    host::DaySource source;
    source.simulated = true;
    source.orders = 3000;
    source.seed = 4;
    return source;
}

} // namespace

TEST(LostStretch, IsATimeOfDayAndALengthInMillisecondsSecondsOrMinutes)
{
    const std::pair<const char*, std::int64_t> lengths[] = {
        {"10:15:00+5s", 5000}, {"10:15+250ms", 250}, {"10:15+2m", 120000}};
    for (const auto& [text, length] : lengths) {
        feed::LostStretch stretch;
        ASSERT_TRUE(host::readLostStretch(text, stretch)) << text;
        EXPECT_EQ(stretch.begin, kQuarterPastTen) << text;
        EXPECT_EQ(stretch.end - stretch.begin, length) << text;
    }
}

TEST(LostStretch, AnyOtherTextIsRefused)
{
    for (const char* text : {"", "10:15", "10:15+", "10:15+5", "10:15+s", "10:15+0s", "10:15+-5s", "25:00+5s",
                             "10:15+5h", "10:15+5s+5s", "10:15+99999999999s", "x+5s"}) {
        feed::LostStretch stretch{1, 2};
        EXPECT_FALSE(host::readLostStretch(text, stretch)) << text;
        EXPECT_EQ(stretch.begin, 1) << text;
        EXPECT_EQ(stretch.end, 2) << text;
    }
}

TEST(LostStretch, TakesOrdersAndDealsOutOfASimulatedDayAndLeavesTheTradingAsItWas)
{
    std::string error;
    feed::InstrumentDay whole;
    feed::InstrumentDay holed;
    host::DaySource source = smallSource();
    ASSERT_TRUE(host::loadDay(source, whole, error)) << error;
    source.lose = {{kQuarterPastTen, kQuarterPastTen + 60000}};
    ASSERT_TRUE(host::loadDay(source, holed, error)) << error;
    const std::int64_t begin = utils::exchangeDayStart(whole.snapshots[0].time) + kQuarterPastTen;
    const auto isLost = [&](const auto& row) { return row.time >= begin && row.time < begin + 60000; };
    const auto lost =
        static_cast<std::size_t>(std::count_if(whole.orders.begin(), whole.orders.end(), isLost));
    ASSERT_GT(lost, 0u);
    EXPECT_EQ(holed.orders.size(), whole.orders.size() - lost);
    EXPECT_TRUE(std::none_of(holed.orders.begin(), holed.orders.end(), isLost));
    EXPECT_TRUE(std::none_of(holed.deals.begin(), holed.deals.end(), isLost));
    ASSERT_EQ(holed.snapshots.size(), whole.snapshots.size());
    EXPECT_EQ(holed.snapshots.back().totalVolume, whole.snapshots.back().totalVolume);
    EXPECT_EQ(holed.tradingDay, whole.tradingDay);
    EXPECT_EQ(feed::findGaps(holed).size(), 1u);
}

TEST(LostStretch, OfADayWithoutOrdersIsAnError)
{
    host::DaySource source = smallSource();
    source.style = "level";
    source.lose = {{kQuarterPastTen, kQuarterPastTen + 1000}};
    feed::InstrumentDay day;
    std::string error;
    EXPECT_FALSE(host::loadDay(source, day, error));
    EXPECT_NE(error.find("without orders"), std::string::npos);
}

TEST(LostStretch, TheProgramWritesADayWithEachHoleThatItIsAskedFor)
{
    const QTemporaryDir folder;
    const QString out = folder.path() + QStringLiteral("/day");
    const ProgramRun run =
        runProgram({QStringLiteral("simulate"), QStringLiteral("--orders"), QStringLiteral("3000"),
                    QStringLiteral("--lose"), QStringLiteral("10:15:00+60s"), QStringLiteral("--lose"),
                    QStringLiteral("14:00+1m"), QStringLiteral("--out"), out});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    feed::DayArchiveReader reader(out.toStdString());
    feed::InstrumentDay day;
    feed::Error failure;
    ASSERT_FALSE(reader.error());
    ASSERT_TRUE(reader.load(reader.instruments()[0].key(), day, failure)) << failure.text();
    EXPECT_EQ(feed::findGaps(day).size(), 2u);
}

TEST(LostStretch, TheProgramNamesAStretchThatItCannotRead)
{
    for (const QStringList& arguments :
         {QStringList({QStringLiteral("simulate"), QStringLiteral("--out"), QStringLiteral("x"),
                       QStringLiteral("--lose"), QStringLiteral("10:15")}),
          QStringList({QStringLiteral("show"), QStringLiteral("--day"), QStringLiteral("x"),
                       QStringLiteral("--lose"), QStringLiteral("10:15+5s")})}) {
        const ProgramRun run = runProgram(arguments);
        EXPECT_EQ(run.exitCode, 2);
        ASSERT_EQ(run.errorLines().size(), 1) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(QStringLiteral("--lose"))) << run.err.toStdString();
    }
}
