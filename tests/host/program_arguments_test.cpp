// Wrong arguments: one line on the standard error output and exit code 2.

#include "RunProgram.h"

#include <QProcess>
#include <gtest/gtest.h>

namespace {

using testing_support::ProgramRun;
using testing_support::runProgram;

struct WrongArguments
{
    const char* name;
    QStringList arguments;
    const char* part; ///< of the line
};

class WrongArgumentsTest : public ::testing::TestWithParam<WrongArguments>
{
};

TEST_P(WrongArgumentsTest, GiveOneLineAndCode2)
{
    const ProgramRun run = runProgram(GetParam().arguments);
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out.toStdString(), "");
    ASSERT_EQ(run.errorLines().size(), 1) << run.err.toStdString();
    EXPECT_TRUE(run.err.startsWith(QStringLiteral("error: "))) << run.err.toStdString();
    EXPECT_TRUE(run.err.contains(QString::fromUtf8(GetParam().part))) << run.err.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Program, WrongArgumentsTest,
    ::testing::Values(
        WrongArguments{"NoCommand", {}, "subcommand"},
        WrongArguments{"UnknownCommand", {"bogus"}, "depth --help"},
        WrongArguments{"NoDay", {"show"}, "required"},
        WrongArguments{"TwoDays", {"verify", "--seed", "1", "--day", "x"}, "--day"},
        WrongArguments{"SeedIsNoNumber", {"show", "--seed", "x"}, "--seed"},
        WrongArguments{"NegativeSeed", {"show", "--seed", "-1"}, "--seed"},
        WrongArguments{"NoSuchTime", {"show", "--seed", "1", "--day-orders", "50", "--at", "25:00"}, "25:00"},
        WrongArguments{"NoSuchKind", {"show", "--seed", "1", "--instrument", "share"}, "share"},
        WrongArguments{"NoSuchDate", {"show", "--seed", "1", "--date", "20230231"}, "20230231"},
        WrongArguments{"SevenLevels", {"show", "--seed", "1", "--levels", "7"}, "--levels"},
        WrongArguments{"SpeedNought", {"show", "--seed", "1", "--speed", "0"}, "--speed"},
        WrongArguments{"NoOut", {"simulate"}, "--out"},
        WrongArguments{"NoSuchStyle", {"simulate", "--out", "x", "--style", "y"}, "--style"},
        WrongArguments{"NoFolder", {"verify", "--day", "/nonexistent/day"}, "/nonexistent/day"},
        WrongArguments{"NoPath",
                       {"import", "auto", "/nonexistent/files", "--out", "/nonexistent/out"},
                       "/nonexistent/files"},
        WrongArguments{"NoSuchLayout", {"verify", "--import", "bogus", "/nonexistent/files"}, "bogus"},
        WrongArguments{
            "OutIsNoFolder", {"simulate", "--orders", "10", "--out", "/dev/null/day"}, "/dev/null/day"},
        WrongArguments{
            "RejectsBeyondAll", {"verify", "--seed", "1", "--max-rejects", "101"}, "--max-rejects"}),
    [](const auto& param) { return std::string(param.param.name); });

TEST(Program, FailsWhenItsOutputCannotBeWritten)
{
    QProcess process;
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    process.start(QStringLiteral(DEPTH_PROGRAM),
                  {"show", "--seed", "1", "--day-orders", "50", "--at", "10:00"});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 2);
    EXPECT_EQ(process.readAllStandardError().toStdString(), "error: the output cannot be written\n");
}

TEST(Program, TellsItsVersion)
{
    const ProgramRun run = runProgram({"--version"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(QRegExp(QStringLiteral("depth \\d+\\.\\d+\\.\\d+\n")).exactMatch(run.out))
        << run.out.toStdString();
}

TEST(Program, HelpNamesTheCommandsAndTheLayouts)
{
    const ProgramRun run = runProgram({"--help"});
    EXPECT_EQ(run.exitCode, 0);
    for (const char* command : {"simulate", "import", "show", "verify"})
        EXPECT_TRUE(run.out.contains(QLatin1String(command))) << command;
    EXPECT_EQ(runProgram({"show", "--help"}).exitCode, 0);
    EXPECT_TRUE(runProgram({"import", "--help"}).out.contains(QStringLiteral("sh-split")));
}

} // namespace
