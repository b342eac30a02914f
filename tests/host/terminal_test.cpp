// Widths and colours.

#include "host/terminal.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

TEST(DisplayWidth, ChineseCharactersTakeTwoColumns)
{
    EXPECT_EQ(host::displayWidth(QStringLiteral("")), 0);
    EXPECT_EQ(host::displayWidth(QStringLiteral("abc 1.5")), 7);
    EXPECT_EQ(host::displayWidth(QStringLiteral("卖十")), 4);
    EXPECT_EQ(host::displayWidth(QStringLiteral("(共10档,")), 8);
    EXPECT_EQ(host::displayWidth(QStringLiteral("Ａ，。")), 6);
    EXPECT_EQ(host::displayWidth(QString::fromUtf8("\xF0\xA0\x80\x80")), 2) << "beyond the basic plane";
    EXPECT_EQ(host::displayWidth(QString::fromUtf8("e\xCC\x81")), 1) << "a combining accent";
    EXPECT_EQ(host::displayWidth(QString(QChar(0xD800))), 1) << "half of a surrogate pair";
}

TEST(Pad, FillsUpToAWidthInColumns)
{
    EXPECT_EQ(host::padRight(QStringLiteral("卖一"), 6).toStdString(), "卖一  ");
    EXPECT_EQ(host::padLeft(QStringLiteral("价格"), 6).toStdString(), "  价格");
    EXPECT_EQ(host::padLeft(QStringLiteral("12345"), 3).toStdString(), "12345");
}

TEST(UseColor, NothingButATerminalIsColouredUnlessToldSo)
{
    int pipes[2];
    ASSERT_EQ(pipe(pipes), 0);
    EXPECT_FALSE(host::useColor(host::ColorMode::Auto, pipes[1]));
    EXPECT_TRUE(host::useColor(host::ColorMode::Always, pipes[1]));
    EXPECT_FALSE(host::useColor(host::ColorMode::Never, pipes[1]));
    close(pipes[0]);
    close(pipes[1]);
}

TEST(UseColor, NoColorIsHonouredOnATerminal)
{
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0)
        FAIL() << "no pseudo terminal";
    setenv("TERM", "xterm", 1);
    unsetenv("NO_COLOR");
    EXPECT_TRUE(host::useColor(host::ColorMode::Auto, terminal));
    setenv("NO_COLOR", "1", 1);
    EXPECT_FALSE(host::useColor(host::ColorMode::Auto, terminal));
    EXPECT_TRUE(host::useColor(host::ColorMode::Always, terminal));
    setenv("NO_COLOR", "", 1);
    setenv("TERM", "dumb", 1);
    EXPECT_FALSE(host::useColor(host::ColorMode::Auto, terminal));
    unsetenv("NO_COLOR");
    close(terminal);
}

} // namespace
