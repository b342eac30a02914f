// Archives written by `depth simulate` and `depth import`.

#include "RunProgram.h"

#include <QFile>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using testing_support::ProgramRun;
using testing_support::runProgram;
using testing_support::writeFile;

TEST(ProgramArchive, ASimulatedDayVerifiesInBothStylesPlainAndCompressed)
{
    for (const char* style : {"tick", "level"}) {
        for (const bool compress : {false, true}) {
            for (const char* kind : {"stock", "growth", "bond"}) {
                SCOPED_TRACE(std::string(style) + (compress ? " zstd " : " plain ") + kind);
                QTemporaryDir folder;
                QStringList arguments = {"simulate", "--out",        folder.path(), "--seed",
                                         "11",       "--orders",     "600",         "--style",
                                         style,      "--instrument", kind};
                if (compress)
                    arguments << "--zstd";
                const ProgramRun simulated = runProgram(arguments);
                ASSERT_EQ(simulated.exitCode, 0) << simulated.err.toStdString();
                const ProgramRun verified = runProgram({"verify", "--day", folder.path(), "--json"});
                const auto json = nlohmann::json::parse(verified.out.toStdString());
                EXPECT_EQ(json["style"], style);
                EXPECT_EQ(json["snapshotsMatched"], json["snapshots"]);
                EXPECT_GT(json["snapshots"], 4000);
                EXPECT_EQ(verified.exitCode, json["mismatches"] == 0 ? 0 : 1);
                // A published queue whose beginning is not found is the one mismatch that a level style day
                // may have.
                for (const auto& cause : json["causes"].items())
                    EXPECT_NE(cause.key().find("beginning was not found"), std::string::npos) << cause.key();
                EXPECT_LE(json["mismatches"], std::string(style) == "level" ? 3 : 0);
            }
        }
    }
}

TEST(ProgramArchive, TheArchiveGivesTheSamePagesAsTheSeed)
{
    QTemporaryDir folder;
    ASSERT_EQ(runProgram({"simulate", "--out", folder.path(), "--seed", "5", "--orders", "800"}).exitCode, 0);
    const QStringList what = {"--at", "09:25:03,11:00", "--hash"};
    const ProgramRun fromArchive = runProgram(QStringList({"show", "--day", folder.path()}) + what);
    const ProgramRun fromSeed =
        runProgram(QStringList({"show", "--seed", "5", "--day-orders", "800"}) + what);
    EXPECT_EQ(fromArchive.exitCode, 0);
    EXPECT_EQ(fromArchive.out.toStdString(), fromSeed.out.toStdString());
}

TEST(ProgramArchive, LaddersAreWrittenOfADayWithoutOrdersOrAsAsked)
{
    struct Case
    {
        const char* style;
        const char* option;
        bool written;
    };
    for (const Case& one : {Case{"tick", "", false}, Case{"tick", "--ladders", true}, Case{"level", "", true},
                            Case{"level", "--no-ladders", false}}) {
        SCOPED_TRACE(std::string(one.style) + ' ' + one.option);
        QTemporaryDir folder;
        QStringList arguments = {"simulate", "--out",   folder.path(), "--orders",
                                 "50",       "--style", one.style,     "--json"};
        if (*one.option != '\0')
            arguments << one.option;
        const ProgramRun run = runProgram(arguments);
        ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
        const auto json = nlohmann::json::parse(run.out.toStdString());
        EXPECT_EQ(json["ladders"], one.written ? json["snapshots"] : nlohmann::json(0));
        EXPECT_EQ(QFile::exists(folder.path() + "/SH600999/ladders.csv"), one.written);
    }
}

TEST(ProgramArchive, SeveralInstrumentsAskForAChoice)
{
    QTemporaryDir folder;
    ASSERT_EQ(runProgram({"simulate", "--out", folder.path(), "--orders", "50"}).exitCode, 0);
    ASSERT_EQ(
        runProgram({"simulate", "--out", folder.path(), "--orders", "50", "--instrument", "fund"}).exitCode,
        0);
    const ProgramRun unclear = runProgram({"show", "--day", folder.path()});
    EXPECT_EQ(unclear.exitCode, 2);
    EXPECT_TRUE(unclear.err.contains(QStringLiteral("SH600999, SH510999"))) << unclear.err.toStdString();
    for (const char* name : {"510999", "SH510999"}) {
        const ProgramRun chosen =
            runProgram({"show", "--day", folder.path(), "--instrument", name, "--at", "10:00"});
        EXPECT_EQ(chosen.exitCode, 0);
        EXPECT_TRUE(chosen.out.startsWith(QStringLiteral("SH510999"))) << chosen.out.toStdString();
    }
    EXPECT_EQ(runProgram({"show", "--day", folder.path(), "--instrument", "1"}).exitCode, 2);
}

TEST(ProgramArchive, ABrokenTableIsToldWithFileAndLine)
{
    QTemporaryDir folder;
    ASSERT_EQ(runProgram({"simulate", "--out", folder.path(), "--orders", "50"}).exitCode, 0);
    writeFile(folder.path() + "/SH600999/orders.csv", "time,seq,number\n1,2\n");
    const ProgramRun run = runProgram({"verify", "--day", folder.path()});
    EXPECT_EQ(run.exitCode, 2);
    ASSERT_EQ(run.errorLines().size(), 1) << run.err.toStdString();
    EXPECT_TRUE(run.err.contains(QStringLiteral("orders.csv:1: "))) << run.err.toStdString();
}

/// Three orders and a deal of a Shenzhen channel; `bad` lines more that cannot be read.
void writeVendorFiles(const QString& folder, int good, int bad)
{
    std::string orders =
        "ChannelNo,ApplSeqNum,MDStreamID,SecurityID,SecurityIDSource,Price,OrderQty,Side,TransactTime,"
        "OrdType,LocalTime,SeqNo\n";
    for (int i = 0; i < good; ++i) {
        orders += "2013," + std::to_string(10 + i) + ",011,000001,102," + (i % 2 ? "10.02" : "10.01") +
                  ",100," + (i % 2 ? "50" : "49") + ",2023.02.01T09:30:01.000,50,09:30:01.000," +
                  std::to_string(i) + "\n";
    }
    for (int i = 0; i < bad; ++i)
        orders += "2013,x,011,000001,102,10.01,100,49,2023.02.01T09:30:01.000,50,09:30:01.000,1\n";
    writeFile(folder + "/orders.csv", orders);
    writeFile(folder + "/deals.csv",
              "ChannelNo,ApplSeqNum,MDStreamID,BidApplSeqNum,OfferApplSeqNum,SecurityID,SecurityIDSource,"
              "LastPx,LastQty,"
              "ExecType,TransactTime,LocalTime,SeqNo\n"
              "2013,9000,011,10,0,000001,102,0,100,52,2023.02.01T09:30:02.000,09:30:02.000,1\n");
}

TEST(ProgramArchive, AnImportTellsItsRejectsByReasonAndLine)
{
    QTemporaryDir folder;
    const QString from = folder.path() + "/20230201";
    writeVendorFiles(from, 300, 2);
    const ProgramRun run =
        runProgram({"import", "auto", from, "--out", folder.path() + "/out", "--list-rejects", "1"});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(run.out.contains(QStringLiteral("2 lines rejected:"))) << run.out.toStdString();
    EXPECT_TRUE(run.out.contains(QStringLiteral("orders.csv:302: "))) << run.out.toStdString();
    EXPECT_FALSE(run.out.contains(QStringLiteral("orders.csv:303: "))) << run.out.toStdString();
    EXPECT_TRUE(run.out.contains(QStringLiteral("300 orders, 1 deals and cancels"))) << run.out.toStdString();
    const ProgramRun page = runProgram({"show", "--day", folder.path() + "/out", "--at", "09:30:05"});
    EXPECT_EQ(page.exitCode, 0);
}

TEST(ProgramArchive, MoreRejectsThanAreKeptAreToldToBeMore)
{
    QTemporaryDir folder;
    const QString from = folder.path() + "/20230201";
    writeVendorFiles(from, 10, 1200);
    const ProgramRun run = runProgram({"import", "auto", from, "--out", folder.path() + "/out",
                                       "--list-rejects", "5000", "--accept-rejects"});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(run.out.contains(QStringLiteral("1200 lines rejected:"))) << run.out.toStdString();
    EXPECT_TRUE(run.out.contains(QStringLiteral("\n  ...\n"))) << run.out.toStdString();
}

TEST(ProgramArchive, TooManyRejectsFailUnlessTheyAreAccepted)
{
    QTemporaryDir folder;
    const QString from = folder.path() + "/20230201";
    const QString to = folder.path() + "/out";
    writeVendorFiles(from, 95, 5);
    const ProgramRun strict = runProgram({"import", "auto", from, "--out", to, "--json"});
    EXPECT_EQ(strict.exitCode, 2);
    EXPECT_EQ(strict.errorLines().size(), 1) << strict.err.toStdString();
    const auto report = nlohmann::json::parse(strict.out.toStdString());
    EXPECT_EQ(report["rejected"], 5);
    EXPECT_NE(report["error"], "");
    EXPECT_EQ(runProgram({"import", "auto", from, "--out", to, "--max-rejects", "4.9"}).exitCode, 2);
    EXPECT_EQ(runProgram({"import", "auto", from, "--out", to, "--max-rejects", "5"}).exitCode, 0);
    const ProgramRun lenient =
        runProgram({"import", "auto", from, "--out", to, "--accept-rejects", "--json"});
    EXPECT_EQ(lenient.exitCode, 0);
    const auto taken = nlohmann::json::parse(lenient.out.toStdString());
    ASSERT_EQ(taken["days"].size(), 1u);
    EXPECT_EQ(taken["days"][0]["orders"], 95);
    EXPECT_EQ(taken["error"], "");
}

} // namespace
