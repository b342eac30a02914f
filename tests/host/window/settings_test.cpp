// What the terminal remembers: the file, and the window that reads and writes it.

#include "host/window/settings/TerminalSettings.h"

#include "host/window/InstrumentList.h"
#include "host/window/MainWindow.h"
#include "host/window/MessageBar.h"
#include "host/window/TerminalActions.h"
#include "host/window/WindowFixture.h"
#include "host/window/keys/KeySheet.h"
#include "host/window/language/TerminalLanguage.h"
#include "host/window/panes/QueueCell.h"
#include "host/window/settings/SettingsDialog.h"
#include "host/window/workspace/Workspace.h"
#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QDockWidget>
#include <QFile>
#include <QTemporaryDir>

namespace window_tests {
namespace {

class Settings : public ::testing::Test
{
protected:
    QString file() const { return folder.path() + QStringLiteral("/below/settings.json"); }

    void write(const QByteArray& text)
    {
        ASSERT_TRUE(QDir().mkpath(folder.path() + QStringLiteral("/below")));
        QFile target(file());
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        ASSERT_EQ(target.write(text), text.size());
    }

    std::unique_ptr<host::MainWindow> open(const std::function<void(host::TerminalOptions&)>& change = {})
    {
        host::TerminalOptions options;
        options.source = smallSource();
        options.playing = false;
        options.settingsFile = file();
        if (change)
            change(options);
        auto window = std::make_unique<host::MainWindow>(options);
        shown = 0;
        QObject::connect(window.get(), &host::MainWindow::shown, window.get(), [this] { ++shown; });
        window->show();
        window->start();
        EXPECT_TRUE(waitUntil([this] { return shown > 0; }));
        return window;
    }

    ~Settings() override
    {
        auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
        resource.setTheme(QStringLiteral("dark"));
        resource.setPriceColors(Zeb::EPriceColors::eRedUp);
        resource.setFontScale(1);
        host::TerminalLanguage::instance().setLanguage(QStringLiteral("zh"));
    }

    QTemporaryDir folder;
    QString problem;
    int shown = 0;
};

TEST_F(Settings, AreReadAsTheyWereWritten)
{
    host::TerminalSettings settings;
    settings.theme = QStringLiteral("light");
    settings.colors = Zeb::EPriceColors::eColorBlind;
    settings.modes.levels = Kel::eQueueFiveLevels;
    settings.modes.style = Kel::eQueueDetailVertical;
    settings.modes.full = true;
    settings.geometry = QByteArray("\0\1\xff", 3);
    settings.state = "state";
    host::DeskState desk;
    desk.groups = {{QStringLiteral("queue"), 0}, {QStringLiteral("queue#2"), 3}};
    desk.windows = {{"geometry", "panes", {QStringLiteral("deals"), QStringLiteral("chart")}}};
    desk.instruments = QStringList{QStringLiteral("SH600999"), QString(), QStringLiteral("SZ000001")};
    settings.desk.groups = {{QStringLiteral("list"), 1}};
    settings.layouts = {{QStringLiteral("盘前 & 盘后"), "a", desk, 34200000},
                        {QStringLiteral("two"), "b", {}, -1}};
    ASSERT_TRUE(host::writeSettings(file(), settings, problem)) << problem.toStdString();
    host::TerminalSettings read;
    host::readSettings(file(), read, problem);
    EXPECT_EQ(problem, QString());
    EXPECT_EQ(read.theme, settings.theme);
    EXPECT_EQ(read.colors, settings.colors);
    EXPECT_EQ(read.modes.levels, settings.modes.levels);
    EXPECT_EQ(read.modes.style, settings.modes.style);
    EXPECT_TRUE(read.modes.full);
    EXPECT_EQ(read.geometry, settings.geometry);
    EXPECT_EQ(read.state, settings.state);
    ASSERT_EQ(read.layouts.size(), 2u);
    EXPECT_EQ(read.layouts[0].name, settings.layouts[0].name);
    EXPECT_EQ(read.desk.groups, settings.desk.groups);
    EXPECT_EQ(read.layouts[0].desk.groups, desk.groups);
    EXPECT_EQ(read.layouts[0].desk.instruments, desk.instruments);
    ASSERT_EQ(read.layouts[0].desk.windows.size(), 1u);
    EXPECT_EQ(read.layouts[0].desk.windows[0].geometry, desk.windows[0].geometry);
    EXPECT_EQ(read.layouts[0].desk.windows[0].panes, desk.windows[0].panes);
    EXPECT_EQ(read.layouts[0].desk.windows[0].ids, desk.windows[0].ids);
    EXPECT_EQ(read.layouts[0].timeOfDay, 34200000);
    EXPECT_EQ(read.layouts[1].timeOfDay, -1);
}

TEST_F(Settings, AMissingFileIsNoProblem)
{
    host::TerminalSettings settings;
    host::readSettings(file(), settings, problem);
    EXPECT_EQ(problem, QString());
    EXPECT_EQ(settings.theme, QStringLiteral("dark"));
}

TEST_F(Settings, ABrokenFileIsSetAsideWithALine)
{
    for (const char* text : {"{\"theme\": \"light\"", "[]", "rubbish", "", "\xff\xfe\0"}) {
        write(text);
        host::TerminalSettings settings;
        problem.clear();
        host::readSettings(file(), settings, problem);
        EXPECT_TRUE(problem.contains(QStringLiteral("settings.json.broken"))) << text;
        EXPECT_FALSE(QFile::exists(file())) << text;
        EXPECT_TRUE(QFile::exists(file() + QStringLiteral(".broken"))) << text;
        EXPECT_EQ(settings.theme, QStringLiteral("dark")) << text;
    }
}

TEST_F(Settings, ValuesThatMeanNothingArePassedOver)
{
    write(R"({"theme": "pink", "colors": 7, "modes": ["five", "sideways", 3], "state": 1,
              "layouts": [7, {"name": "", "state": "YQ=="}, {"name": "x"}, {"name": "y", "state": "YQ==", "groups": {"deals": "x"},
              "timeOfDay": 1e300}]})");
    host::TerminalSettings settings;
    host::readSettings(file(), settings, problem);
    EXPECT_EQ(problem, QString());
    EXPECT_EQ(settings.theme, QStringLiteral("dark"));
    EXPECT_EQ(settings.colors, Zeb::EPriceColors::eRedUp);
    EXPECT_EQ(settings.modes.levels, Kel::eQueueFiveLevels);
    EXPECT_TRUE(settings.state.isEmpty());
    ASSERT_EQ(settings.layouts.size(), 1u);
    EXPECT_EQ(settings.layouts[0].name, QStringLiteral("y"));
    EXPECT_EQ(settings.layouts[0].desk.groups[QStringLiteral("deals")], -1) << "is passed over later";
    EXPECT_EQ(settings.layouts[0].timeOfDay, -1);
}

TEST_F(Settings, WhereNothingCanBeWrittenALineSaysSo)
{
    write("{}");
    EXPECT_FALSE(host::writeSettings(file() + QStringLiteral("/inside"), {}, problem));
    EXPECT_TRUE(problem.contains(QStringLiteral("inside")));
}

TEST_F(Settings, WhatTheCommandLineNamesWins)
{
    host::TerminalSettings settings;
    settings.theme = QStringLiteral("light");
    settings.colors = Zeb::EPriceColors::eGreenUp;
    settings.modes.full = true;
    host::TerminalOptions options;
    options.given.theme = true;
    mergeSettings(settings, options);
    EXPECT_EQ(options.theme, QStringLiteral("dark"));
    EXPECT_EQ(options.colors, Zeb::EPriceColors::eGreenUp);
    EXPECT_TRUE(options.modes.full);
}

TEST_F(Settings, TheNextWindowLooksAsTheLastOneDid)
{
    {
        const auto window = open();
        window->actions().action(QStringLiteral("light"))->trigger();
        window->actions().action(QStringLiteral("mode4"))->trigger();
        window->actions().action(QStringLiteral("layout_tick"))->trigger();
        window->workspace().dock(QStringLiteral("levels"))->close();
        window->close();
    }
    utils::CSingletonT<Zeb::CUiResource>::instance().setTheme(QStringLiteral("dark"));
    const auto window = open();
    EXPECT_EQ(utils::CSingletonT<Zeb::CUiResource>::instance().theme(), QStringLiteral("light"));
    EXPECT_EQ(window->queue().modes().style, Kel::eQueueDetailVertical);
    EXPECT_TRUE(window->workspace().dock(QStringLiteral("deals"))->isVisible());
    EXPECT_FALSE(window->workspace().dock(QStringLiteral("levels"))->isVisible());
    EXPECT_FALSE(window->workspace().dock(QStringLiteral("ladder"))->isVisible());
}

TEST_F(Settings, OfTheDialogAndKeysComeBackInTheNextWindow)
{
    auto& look = utils::CSingletonT<Zeb::CUiResource>::instance();
    {
        const auto window = open();
        window->actions().action(QStringLiteral("settings"))->trigger();
        auto* dialog = window->findChild<host::SettingsDialog*>();
        ASSERT_NE(dialog, nullptr);
        host::TerminalSettings wanted = dialog->settings();
        wanted.fontPercent = 120;
        wanted.language = QStringLiteral("en");
        wanted.refreshMs = 700;
        Q_EMIT dialog->changed(wanted);
        EXPECT_EQ(look.fontScale(), 1.2);
        EXPECT_TRUE(window->windowTitle().endsWith(QStringLiteral("Depth terminal")));
        EXPECT_EQ(window->workspace().dock(QStringLiteral("queue"))->windowTitle(),
                  QStringLiteral("Order queue"));
        window->actions().keyMap().setKeys(QStringLiteral("jump"), {QKeySequence(Qt::Key_F7)});
        // No close: what was set is there all the same.
    }
    look.setFontScale(1);
    host::TerminalLanguage::instance().setLanguage(QStringLiteral("zh"));
    const auto window = open([](host::TerminalOptions& options) {
        options.given.language = true; // the command line wins
    });
    EXPECT_EQ(look.fontScale(), 1.2);
    EXPECT_EQ(Kel::getUserConfig()->refreshInterval(), 0.70025);
    EXPECT_EQ(host::TerminalLanguage::instance().language(), QStringLiteral("zh"));
    EXPECT_EQ(window->actions().action(QStringLiteral("jump"))->shortcut(), QKeySequence(Qt::Key_F7));
}

TEST_F(Settings, TheSheetOfKeysAndTheDialogAreThereOnce)
{
    const auto window = open();
    for (int i = 0; i < 2; ++i) {
        window->actions().action(QStringLiteral("keys"))->trigger();
        window->actions().action(QStringLiteral("settings"))->trigger();
    }
    EXPECT_EQ(window->findChildren<host::KeySheet*>().size(), 1);
    EXPECT_EQ(window->findChildren<host::SettingsDialog*>().size(), 1);
}

TEST_F(Settings, ANamedLayoutComesBackWithTheInstrumentAndTheTime)
{
    {
        const auto window = open([](host::TerminalOptions& options) { options.at = timeOfDay(10, 30); });
        window->actions().action(QStringLiteral("layout_chart"))->trigger();
        window->saveLayout(QStringLiteral("chart at half past"));
        // No close: what was named is there all the same.
    }
    const auto window = open([](host::TerminalOptions& options) {
        options.source.instrument = "fund";
        options.given.layout = true;
    });
    EXPECT_FALSE(window->workspace().dock(QStringLiteral("chart"))->isVisible());
    window->restoreLayout(QStringLiteral("no such"));
    EXPECT_FALSE(window->workspace().dock(QStringLiteral("chart"))->isVisible());
    shown = 0;
    window->restoreLayout(QStringLiteral("chart at half past"));
    ASSERT_TRUE(waitUntil([this] { return shown > 0; }));
    EXPECT_TRUE(window->workspace().dock(QStringLiteral("chart"))->isVisible());
    EXPECT_FALSE(window->workspace().dock(QStringLiteral("queue"))->isVisible());
    EXPECT_EQ(window->day()->detail.code, "600999");
    EXPECT_EQ(utils::timeOfDayMs(window->player().now()), timeOfDay(10, 30));
    EXPECT_EQ(window->list().shown(), 0);

    // The same instrument only jumps.
    window->seek(window->player().now() + 60000);
    ASSERT_TRUE(waitUntil([this] { return shown > 1; }));
    window->restoreLayout(QStringLiteral("chart at half past"));
    ASSERT_TRUE(waitUntil([this] { return shown > 2; }));
    EXPECT_EQ(utils::timeOfDayMs(window->player().now()), timeOfDay(10, 30));

    window->removeLayout(QStringLiteral("chart at half past"));
    EXPECT_TRUE(window->settings().layouts.empty());
}

TEST_F(Settings, BytesThatAreNoArrangementLeaveThePanesAlone)
{
    const auto window = open();
    EXPECT_FALSE(window->workspace().restore("rubbish"));
    EXPECT_TRUE(window->workspace().dock(QStringLiteral("queue"))->isVisible());
    EXPECT_TRUE(window->workspace().dock(QStringLiteral("ladder"))->isVisible());
    EXPECT_FALSE(window->workspace().dock(QStringLiteral("chart"))->isVisible());
}

TEST_F(Settings, ABrokenFileIsToldInTheMessageBarAndTheWindowOpens)
{
    write("rubbish");
    host::TerminalOptions options;
    options.settingsFile = file();
    host::MainWindow window(options);
    window.show();
    EXPECT_TRUE(window.messages().isVisible());
    EXPECT_TRUE(window.messages().text().contains(QStringLiteral(".broken")));
}

} // namespace
} // namespace window_tests
