// The program: arguments, errors, pictures.

#include "host/RunProgram.h"
#include "host/window/WindowFixture.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

namespace window_tests {
namespace {

using testing_support::ProgramRun;
using testing_support::runProgram;

ProgramRun run(const QStringList& arguments)
{
    // Nothing may depend on a display.
    return runProgram(arguments,
                      {QStringLiteral("DISPLAY="), QStringLiteral("WAYLAND_DISPLAY="),
                       QStringLiteral("QT_QPA_PLATFORM="), QStringLiteral("XDG_RUNTIME_DIR=/tmp")});
}

TEST(TerminalProgram, MakesAPictureOfTheAskedSizeAndScaleWithoutADisplay)
{
    const QTemporaryDir folder;
    const QString file = folder.path() + QStringLiteral("/shot.png");
    const ProgramRun result = run(
        {QStringLiteral("--shot"), file, QStringLiteral("--at"), QStringLiteral("10:30"),
         QStringLiteral("--size"), QStringLiteral("800x500"), QStringLiteral("--scale"), QStringLiteral("2"),
         QStringLiteral("--theme"), QStringLiteral("light"), QStringLiteral("--mode"),
         QStringLiteral("five,list,full"), QStringLiteral("--colors"), QStringLiteral("color-blind")});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_TRUE(result.err.isEmpty()) << result.err.toStdString();
    const QImage image(file);
    EXPECT_EQ(image.size(), QSize(1600, 1000));
    EXPECT_GT(image.pixelColor(image.width() / 2, image.height() / 2).lightness(), 200) << "a light theme";
}

TEST(TerminalProgram, TheHistoryInThePictureIsThatOfTheMoment)
{
    const QTemporaryDir folder;
    const QString early = folder.path() + QStringLiteral("/early.png");
    const QString late = folder.path() + QStringLiteral("/late.png");
    EXPECT_EQ(run({QStringLiteral("--shot"), early, QStringLiteral("--at"), QStringLiteral("9:31")}).exitCode,
              0);
    EXPECT_EQ(run({QStringLiteral("--shot"), late, QStringLiteral("--at"), QStringLiteral("14:31")}).exitCode,
              0);
    EXPECT_NE(QImage(early), QImage(late));
}

TEST(TerminalProgram, RefusesWrongArgumentsWithOneLine)
{
    const std::vector<QStringList> wrong = {
        {QStringLiteral("--nonsense")},
        {QStringLiteral("--theme"), QStringLiteral("pink")},
        {QStringLiteral("--colors"), QStringLiteral("pink")},
        {QStringLiteral("--mode"), QStringLiteral("six")},
        {QStringLiteral("--lose"), QStringLiteral("10:15")},
        {QStringLiteral("--day"), QStringLiteral("/nonexistent"), QStringLiteral("--lose"),
         QStringLiteral("10:15+5s")},
        {QStringLiteral("--speed"), QStringLiteral("0.05")},
        {QStringLiteral("--speed"), QStringLiteral("1001")},
        {QStringLiteral("--speed"), QStringLiteral("quick")},
        {QStringLiteral("--at"), QStringLiteral("25:00")},
        {QStringLiteral("--size"), QStringLiteral("10x10")},
        {QStringLiteral("--size"), QStringLiteral("800")},
        {QStringLiteral("--size"), QStringLiteral("639x480"), QStringLiteral("--shot"),
         QStringLiteral("a.png")},
        {QStringLiteral("--size"), QStringLiteral("640x479"), QStringLiteral("--shot"),
         QStringLiteral("a.png")},
        {QStringLiteral("--size"), QStringLiteral("8001x800")},
        {QStringLiteral("--seed"), QStringLiteral("-1")},
        {QStringLiteral("--day"), QStringLiteral("a"), QStringLiteral("--seed"), QStringLiteral("1")},
        {QStringLiteral("--import"), QStringLiteral("auto")},
        {QStringLiteral("--scale"), QStringLiteral("2")},
        {QStringLiteral("--layout"), QStringLiteral("nonsense")},
        {QStringLiteral("--layout"), QStringLiteral("")},
        {QStringLiteral("--external-data"), QStringLiteral("/nowhere")},
    };
    for (const QStringList& arguments : wrong) {
        const ProgramRun result = run(arguments);
        const std::string name = arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_EQ(result.exitCode, 2) << name;
        EXPECT_EQ(result.errorLines().size(), 1) << name << '\n' << result.err.toStdString();
        EXPECT_TRUE(result.out.isEmpty()) << name;
    }
}

TEST(TerminalProgram, NamesAMissingFolderAndABrokenFileWithItsLine)
{
    const QTemporaryDir folder;
    const QString shot = folder.path() + QStringLiteral("/shot.png");
    ProgramRun result =
        run({QStringLiteral("--shot"), shot, QStringLiteral("--day"), QStringLiteral("/nowhere")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.err.toStdString(), "error: /nowhere: no such folder\n");

    const QString archive = folder.path() + QStringLiteral("/archive");
    testing_support::writeFile(archive + QStringLiteral("/instruments.csv"), "nonsense\n");
    result = run({QStringLiteral("--shot"), shot, QStringLiteral("--day"), archive});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.errorLines().size(), 1);
    EXPECT_TRUE(result.err.contains(QStringLiteral("instruments.csv:1: "))) << result.err.toStdString();

    result = run({QStringLiteral("--shot"), shot, QStringLiteral("--instrument"), QStringLiteral("nobody")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.errorLines().size(), 1);
}

TEST(TerminalProgram, NamesTheWrongLayoutAndTheMissingFolderOfInformation)
{
    ProgramRun result = run({QStringLiteral("--layout"), QStringLiteral("nonsense")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_TRUE(result.err.contains(QStringLiteral("--layout")) &&
                result.err.contains(QStringLiteral("nonsense")))
        << result.err.toStdString();
    result = run({QStringLiteral("--external-data"), QStringLiteral("/nowhere/at/all")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_TRUE(result.err.contains(QStringLiteral("/nowhere/at/all"))) << result.err.toStdString();
    const QTemporaryDir folder;
    const QString file = folder.path() + QStringLiteral("/file");
    testing_support::writeFile(file, "no folder");
    EXPECT_EQ(run({QStringLiteral("--external-data"), file}).exitCode, 2) << "a file is no folder";
}

TEST(TerminalProgram, ShowsTheAskedLayout)
{
    const QTemporaryDir folder;
    std::vector<QImage> pictures;
    for (const char* layout : {"queue", "tick", "chart"}) {
        const QString file =
            folder.path() + QLatin1Char('/') + QLatin1String(layout) + QStringLiteral(".png");
        const ProgramRun result =
            run({QStringLiteral("--shot"), file, QStringLiteral("--layout"), QString::fromLatin1(layout),
                 QStringLiteral("--at"), QStringLiteral("9:40"), QStringLiteral("--size"),
                 QStringLiteral("900x600"), QStringLiteral("--external-data"), folder.path()});
        EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
        const QImage picture(file);
        ASSERT_FALSE(picture.isNull());
        for (const QImage& other : pictures)
            EXPECT_NE(picture, other) << layout;
        pictures.push_back(picture);
    }
}

TEST(TerminalProgram, MakesAPictureOfOnePaneAtItsOwnSizeWhateverTheLayoutShows)
{
    const QTemporaryDir folder;
    std::vector<QImage> pictures;
    // The first layout has no deals; labels of the queue are of another colour in the concise style.
    for (const char* pane : {"deals", "queue", "queue --concise"}) {
        const QString file = folder.path() + QStringLiteral("/pane.png");
        const ProgramRun result =
            run(QStringList{QStringLiteral("--shot"), file, QStringLiteral("--at"), QStringLiteral("10:30"),
                            QStringLiteral("--size"), QStringLiteral("330x400"), QStringLiteral("--pane")} +
                QString::fromLatin1(pane).split(QLatin1Char(' ')));
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_TRUE(result.err.isEmpty()) << result.err.toStdString();
        const QImage picture(file);
        EXPECT_EQ(picture.size(), QSize(330, 400)) << pane;
        for (const QImage& other : pictures)
            EXPECT_NE(picture, other) << pane;
        pictures.push_back(picture);
    }
}

TEST(TerminalProgram, KnowsThePanesOfItsLayoutsAndNoOthers)
{
    const QTemporaryDir folder;
    const QString file = folder.path() + QStringLiteral("/pane.png");
    ProgramRun result =
        run({QStringLiteral("--shot"), file, QStringLiteral("--pane"), QStringLiteral("nonsense")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.err.count(QLatin1Char('\n')), 1) << result.err.toStdString();
    result = run({QStringLiteral("--pane"), QStringLiteral("deals")});
    EXPECT_EQ(result.exitCode, 2) << "only of a picture";
    result = run({QStringLiteral("--shot"), file, QStringLiteral("--pane"), QStringLiteral("deals"),
                  QStringLiteral("--size"), QStringLiteral("119x60")});
    EXPECT_EQ(result.exitCode, 2) << "too small to show anything";
    EXPECT_FALSE(QFile::exists(file));
}

TEST(TerminalProgram, SaysWhenAPictureCannotBeWritten)
{
    const ProgramRun result = run({QStringLiteral("--shot"), QStringLiteral("/nowhere/shot.png")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.err.toStdString(), "error: /nowhere/shot.png: the picture cannot be written\n");
}

TEST(TerminalProgram, SaysThatItNeedsADisplay)
{
    const ProgramRun result = run({});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.errorLines().size(), 1);
    EXPECT_TRUE(result.err.contains(QStringLiteral("--shot"))) << result.err.toStdString();
}

TEST(TerminalProgram, NamesTheSmallestWindow)
{
    const ProgramRun result = run({QStringLiteral("--size"), QStringLiteral("300x300"),
                                   QStringLiteral("--shot"), QStringLiteral("/nowhere/shot.png")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_TRUE(
        result.err.startsWith(QStringLiteral("error: --size: not a size of 640x480 to 8000x8000: 300x300")))
        << result.err.toStdString();
}

TEST(TerminalProgram, ADisplayThatDoesNotAnswerIsNone)
{
    const QStringList dead = {QStringLiteral("DISPLAY=:4711"), QStringLiteral("WAYLAND_DISPLAY="),
                              QStringLiteral("QT_QPA_PLATFORM=")};
    const ProgramRun result = runProgram({}, dead);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.errorLines().size(), 1) << result.err.toStdString();
    EXPECT_TRUE(result.err.contains(QStringLiteral("--shot"))) << result.err.toStdString();
    const QStringList probe = {QStringLiteral("--probe-display")};
    EXPECT_EQ(runProgram(probe, dead).exitCode, 2);
    EXPECT_EQ(runProgram(probe, {QStringLiteral("QT_QPA_PLATFORM=offscreen")}).exitCode, 0);
}

TEST(TerminalProgram, TellsItsOptionsAndVersion)
{
    const ProgramRun help = run({QStringLiteral("--help")});
    EXPECT_EQ(help.exitCode, 0);
    for (const char* option :
         {"--day", "--import", "--seed", "--speed", "--at", "--instrument", "--theme", "--colors", "--mode",
          "--shot", "--size", "--scale", "--layout", "--external-data", "--pane", "--concise"})
        EXPECT_TRUE(help.out.contains(QString::fromLatin1(option))) << option;
    EXPECT_TRUE(run({QStringLiteral("--version")}).out.startsWith(QStringLiteral("depth-terminal ")));
}

} // namespace
} // namespace window_tests
