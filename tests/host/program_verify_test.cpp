// What `depth verify` tells, and its exit codes.

#include "RunProgram.h"
#include "SmallDay.h"

#include "feed/archive/DayArchiveWriter.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using testing_support::ProgramRun;
using testing_support::runProgram;
using testing_support::SmallDay;

SmallDay shortDay()
{
    SmallDay small;
    for (int i = 0; i < 12; ++i)
        small.buy(1 + i, 10.00 - 0.01 * i, 500).sell(100 + i, 10.01 + 0.01 * i, 500);
    for (int i = 0; i < 5; ++i)
        small.at(3 * i + 1).buy(200 + i, 10.00, 100).at(3 * i + 3).snapshot();
    return small;
}

struct Archive
{
    explicit Archive(const SmallDay& small)
    {
        feed::DayArchiveWriter writer(folder.path().toStdString());
        EXPECT_TRUE(writer.write(small.day) && writer.finish());
    }
    QTemporaryDir folder;
};

TEST(ProgramVerify, TellsMatchedOfComparedPerLevel)
{
    const Archive archive(shortDay());
    const ProgramRun run = runProgram({"verify", "--day", archive.folder.path()});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QStringList lines = run.lines();
    ASSERT_EQ(lines.size(), 15);
    EXPECT_EQ(lines[0].toStdString(),
              "SH600999 沪市模拟, day 20230201: 29 orders, 0 deals and cancels, 5 snapshots, 0 queues");
    EXPECT_EQ(lines[1].toStdString(),
              "level      buy    price   volume   orders  |     sell    price   volume   orders");
    EXPECT_EQ(lines[2].toStdString(),
              "    1        5        5        5        5  |        5        5        5        5");
    EXPECT_EQ(lines[12].toStdString(), "5 of 5 continuous snapshots match; 100 of 100 levels");
    EXPECT_EQ(lines[13].toStdString(),
              "place in the feed: 5 by sequence number, 0 by the ten levels shown, 0 not aligned");
    EXPECT_EQ(lines[14].toStdString(),
              "refresh ticks: three before each snapshot, and one before the cancel of an "
              "order dealt since the last tick");
}

TEST(ProgramVerify, AnIndexHasNoQueueToVerify)
{
    SmallDay small = shortDay();
    small.day.detail.code = "000001";
    const Archive archive(small);
    const ProgramRun run = runProgram({"verify", "--day", archive.folder.path()});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.err.toStdString(), "error: SH000001 has no order queue\n");
}

TEST(ProgramVerify, ATamperedSnapshotIsCode1WithTimeAndLevel)
{
    SmallDay small = shortDay();
    small.day.snapshots[2].bidVolume[0] = 900;
    const Archive archive(small);
    const ProgramRun run = runProgram({"verify", "--day", archive.folder.path()});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.err.toStdString(), "");
    EXPECT_TRUE(run.out.contains(QStringLiteral("4 of 5 continuous snapshots match; 99 of 100 levels")));
    EXPECT_EQ(run.lines().last().toStdString(),
              "  09:30:09, buy 1: published 10.00 with 900 shares in 4 orders, rebuilt "
              "10.00 with 800 shares in 4 orders");
    const ProgramRun json = runProgram({"verify", "--day", archive.folder.path(), "--json"});
    EXPECT_EQ(json.exitCode, 1);
    const auto document = nlohmann::json::parse(json.out.toStdString());
    EXPECT_EQ(document["allMatch"], false);
    EXPECT_EQ(document["mismatches"], 1);
    EXPECT_EQ(document["listed"][0]["time"], "09:30:09");
    EXPECT_EQ(document["listed"][0]["side"], "buy");
    EXPECT_EQ(document["listed"][0]["level"], 1);
    EXPECT_EQ(document["buy"][0]["volumes"], 4);
}

TEST(ProgramVerify, AsManyMismatchesAreListedAsAskedFor)
{
    SmallDay small = shortDay();
    for (feed::SnapshotRow& row : small.day.snapshots)
        row.askVolume[4] += 100;
    const Archive archive(small);
    const ProgramRun run = runProgram({"verify", "--day", archive.folder.path(), "--mismatches", "2"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.out.count(QStringLiteral(", sell 5: ")), 2);
    EXPECT_EQ(run.lines().last().toStdString(), "  ...");
    EXPECT_EQ(runProgram({"verify", "--day", archive.folder.path(), "--mismatches", "0"})
                  .out.count(QStringLiteral(", sell 5: ")),
              0);
}

TEST(ProgramVerify, ADayWithoutSnapshotsIsAnError)
{
    SmallDay small;
    small.buy(1, 10.00, 100);
    const Archive archive(small);
    const ProgramRun run = runProgram({"verify", "--day", archive.folder.path()});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.errorLines().size(), 1);
}

} // namespace
