// Pages that `depth show` prints.

#include "RunProgram.h"
#include "SmallDay.h"

#include "feed/archive/DayArchiveWriter.h"

#include <QRegularExpression>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using testing_support::ProgramRun;
using testing_support::runProgram;
using testing_support::SmallDay;

bool write(const SmallDay& small, const QString& folder)
{
    feed::DayArchiveWriter writer(folder.toStdString());
    return writer.write(small.day) && writer.finish();
}

TEST(ProgramShow, PrintsThePagesOfASmallDay)
{
    SmallDay small;
    small.buy(1, 10.00, 300)
        .buy(2, 10.00, 120000)
        .sell(3, 10.01, 250)
        .snapshot()
        .at(60)
        .sell(4, 10.02, 100)
        .snapshot();
    QTemporaryDir folder;
    ASSERT_TRUE(write(small, folder.path()));
    const ProgramRun run =
        runProgram({"show", "--day", folder.path(), "--at", "09:31:00,09:30:30", "--levels", "5"});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    const std::string empty = "卖五         -\n卖四         -\n卖三         -\n";
    const std::string head = "档位      价格       手    笔      均  队列\n";
    const std::string buys = "-------------------------------------\n"
                             "买一     10.00     1203     2   601.5  3 1200*\n"
                             "买二         -\n买三         -\n买四         -\n买五         -\n";
    EXPECT_EQ(run.out.toStdString(), "SH600999 沪市模拟 2023-02-01 09:30:30\n"
                                     "委卖队列(共10档,十档内1笔,3.0手/笔)\n"
                                     "委买队列(共10档,十档内2笔,601.5手/笔)\n" +
                                         head + empty +
                                         "卖二         -\n"
                                         "卖一     10.01        3     1     3.0  2.5\n" +
                                         buys +
                                         "\n"
                                         "SH600999 沪市模拟 2023-02-01 09:31:00\n"
                                         "委卖队列(共10档,十档内2笔,2.0手/笔)\n"
                                         "委买队列(共10档,十档内2笔,601.5手/笔)\n" +
                                         head + empty +
                                         "卖二     10.02        1     1     1.0  1\n"
                                         "卖一     10.01        3     1     3.0  2.5\n" +
                                         buys);
}

TEST(ProgramShow, TheMorningOf1970HasTimesOfDayToo)
{
    SmallDay small;
    small.buy(1, 10.00, 300).snapshot();
    // 09:30 at the exchange was 01:30 UTC; 07:00 lies before the moment that times are counted from.
    constexpr std::int64_t kOpen = 90 * 60 * 1000;
    small.day.tradingDay = 19700101;
    small.day.orders[0].time = kOpen;
    small.day.snapshots[0].time = kOpen;
    QTemporaryDir folder;
    ASSERT_TRUE(write(small, folder.path()));
    const ProgramRun run = runProgram({"show", "--day", folder.path(), "--at", "07:00"});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(run.out.startsWith(QStringLiteral("SH600999 沪市模拟 1970-01-01 07:00:00\n")));
}

TEST(ProgramShow, ColoursOnlyWhereTheyAreWanted)
{
    const QStringList base = {"show", "--seed", "1", "--day-orders", "200", "--at", "10:00"};
    EXPECT_FALSE(runProgram(base).out.contains(QLatin1Char('\x1b'))) << "the output is no terminal";
    EXPECT_TRUE(runProgram(base + QStringList{"--color", "always"}).out.contains(QLatin1Char('\x1b')));
    EXPECT_FALSE(runProgram(base + QStringList{"--color", "never"}).out.contains(QLatin1Char('\x1b')));
    EXPECT_FALSE(runProgram(base, {"NO_COLOR=1"}).out.contains(QLatin1Char('\x1b')));
}

TEST(ProgramShow, ThePagesAreTheSameInEveryLocaleAndZone)
{
    const QStringList arguments = {"show", "--seed", "2", "--day-orders", "200", "--at", "10:00", "--hash"};
    const ProgramRun usual = runProgram(arguments, {"LC_ALL=C.UTF-8", "TZ=UTC"});
    EXPECT_EQ(usual.exitCode, 0);
    EXPECT_EQ(runProgram(arguments, {"LC_ALL=C", "TZ=America/New_York"}).out.toStdString(),
              usual.out.toStdString());
}

TEST(ProgramShow, TheHashesAreTheSameForTheSameDayAndTime)
{
    const QStringList base = {"show", "--seed", "9", "--day-orders", "500", "--json", "--hash"};
    const auto hashes = [&](const char* name, const QStringList& more) {
        const ProgramRun run = runProgram(base + more);
        std::vector<std::string> all;
        const auto document = nlohmann::json::parse(run.out.toStdString());
        for (const auto& page : document["pages"])
            all.push_back(page[name]);
        return all;
    };
    for (const char* name : {"hash", "panels"}) {
        const auto first = hashes(name, {"--at", "10:00,14:00"});
        ASSERT_EQ(first.size(), 2u) << name;
        EXPECT_EQ(first[0].size(), 16u) << name;
        EXPECT_NE(first[0], first[1]) << name;
        EXPECT_EQ(hashes(name, {"--at", "10:00,14:00"}), first) << name;
    }
    const auto two = hashes("panels", {"--at", "10:00,14:00"});
    EXPECT_EQ(hashes("panels", {"--at", "09:40,14:00"})[1], two[1]) << "whatever was shown before";
}

TEST(ProgramShow, BothHashesStandUnderEachPage)
{
    const ProgramRun run =
        runProgram({"show", "--seed", "9", "--day-orders", "200", "--at", "10:00,14:00", "--hash"});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.lines().filter(QRegularExpression("^hash [0-9a-f]{16}$")).count(), 2);
    EXPECT_EQ(run.lines().filter(QRegularExpression("^panels [0-9a-f]{16}$")).count(), 2);
}

TEST(ProgramShow, TheHashOfThePanelsCoversTheDeliveredLadders)
{
    SmallDay small;
    small.snapshot();
    feed::LadderRow ladder;
    ladder.time = small.time();
    ladder.buys.push_back({10.00, 300, {{1, small.time(), 300, 0}}});
    const auto panels = [&](std::int64_t volume) {
        SmallDay day = small;
        ladder.buys[0].volume = volume;
        day.day.ladders = {ladder};
        QTemporaryDir folder;
        EXPECT_TRUE(write(day, folder.path()));
        const ProgramRun run =
            runProgram({"show", "--day", folder.path(), "--at", "10:00", "--json", "--hash"});
        EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
        return nlohmann::json::parse(run.out.toStdString())["pages"][0]["panels"].get<std::string>();
    };
    EXPECT_EQ(panels(300), panels(300));
    EXPECT_NE(panels(300), panels(500));
}

TEST(ProgramShow, WithoutTimesItPrintsAFew)
{
    const ProgramRun run = runProgram({"show", "--seed", "1", "--day-orders", "200", "--json"});
    EXPECT_EQ(run.exitCode, 0);
    const auto json = nlohmann::json::parse(run.out.toStdString());
    EXPECT_EQ(json["instrument"], "SH600999");
    EXPECT_EQ(json["pages"].size(), 5u);
    for (const auto& page : json["pages"])
        EXPECT_EQ(page["rows"].size(), 20u);
}

TEST(ProgramShow, ARunningDayEndsWithTheLastPage)
{
    const ProgramRun run =
        runProgram({"show", "--seed", "1", "--day-orders", "300", "--speed", "100000", "--levels", "5"});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_FALSE(run.out.contains(QLatin1Char('\x1b')));
    EXPECT_GE(run.lines().count(), 14);
    const int last = run.out.lastIndexOf(QStringLiteral("SH600999"));
    EXPECT_TRUE(run.out.mid(last).contains(QStringLiteral(" 15:00:"))) << run.out.mid(last).toStdString();
}

TEST(ProgramShow, ARunningDayKeepsToItsTimes)
{
    const ProgramRun run = runProgram({"show", "--seed", "1", "--day-orders", "300", "--speed", "100000",
                                       "--levels", "5", "--from", "10:00", "--to", "10:30"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.lines().first().contains(QStringLiteral(" 10:00:"))) << run.out.toStdString();
    EXPECT_TRUE(
        run.out.mid(run.out.lastIndexOf(QStringLiteral("SH600999"))).contains(QStringLiteral(" 10:30:00")));
    EXPECT_EQ(runProgram({"show", "--seed", "1", "--speed", "9", "--from", "soon"}).exitCode, 2);
}

} // namespace
