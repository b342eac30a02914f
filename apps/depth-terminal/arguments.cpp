#include "arguments.h"

#include "host/commands/commands.h"
#include "host/window/MainWindow.h"
#include "host/window/settings/TerminalSettings.h"
#include "host/window/workspace/layouts.h"
#include "platform/utils/exchange_time.h"

#include <CLI/CLI.hpp>

#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr int kLargestSide = 8000; // pixels of a picture
constexpr QSize kSmallestPane(120, 60);
constexpr double kPercent = 100;

/// What is given as text and taken over after the parsing.
struct Texts
{
    std::vector<std::string> import; ///< layout and path
    std::string at;
    std::string speed = "1";
    std::string size;
    std::string theme = "dark";
    std::string colors = "red-up";
    std::string language = "zh";
    int fontPercent = 100;
    std::string layout = "queue";
    std::string externalData;
    std::string settings;
    std::string shot;
    std::string pane;
    std::vector<std::string> modes;
    std::vector<std::string> lose;
    double mostRejectedPercent = 1;
    bool paused = false;
};

const std::map<std::string, Zeb::EPriceColors>& priceColors()
{
    static const std::map<std::string, Zeb::EPriceColors> names = {
        {"red-up", Zeb::EPriceColors::eRedUp},
        {"green-up", Zeb::EPriceColors::eGreenUp},
        {"color-blind", Zeb::EPriceColors::eColorBlind},
    };
    return names;
}

std::string kindNames()
{
    std::string names;
    for (const std::string& kind : host::simulatedKinds())
        names += (names.empty() ? "" : ", ") + kind;
    return names;
}

std::vector<std::string> layoutIds()
{
    std::vector<std::string> ids;
    for (const host::Layout& layout : host::shippedLayouts())
        ids.push_back(layout.id.toStdString());
    return ids;
}

std::vector<std::string> paneIds()
{
    std::set<std::string> ids;
    for (const host::Layout& layout : host::shippedLayouts()) {
        for (const host::LayoutColumn& column : layout.columns) {
            for (const host::LayoutCell& cell : column.cells) {
                for (const QString& id : cell.panes)
                    ids.insert(id.toStdString());
            }
        }
    }
    return {ids.begin(), ids.end()};
}

void addSource(CLI::App& app, host::DaySource& source, Texts& texts)
{
    auto* group = app.add_option_group("day", "Where the day comes from; without any, a simulated exchange");
    group->add_option("--day", source.archive, "Folder of a day archive")->type_name("DIR");
    group->add_option("--import", texts.import, "Files in a vendor's layout; `auto` tells it by the headers")
        ->expected(2)
        ->type_name("LAYOUT PATH");
    group->add_option("--seed", source.seed, "Another day of the simulated exchange (1)")
        ->check(CLI::NonNegativeNumber)
        ->type_name("N");
    group->require_option(0, 1);
    app.add_option("--instrument", source.instrument,
                   "Shown first: code, key, or of the simulated exchange a kind (" + kindNames() + ")")
        ->type_name("CODE");
    app.add_option("--style", source.style,
                   "Of the simulated exchange: tick, or level for days without orders")
        ->check(CLI::IsMember({"tick", "level"}));
    app.add_option("--day-orders", source.orders, "Of the simulated exchange: a busy day of so many orders")
        ->check(CLI::Range(std::int64_t(1), std::int64_t(20000000)));
    app.add_option("--date", source.date, "Trading day yyyymmdd, of a simulated or imported day")
        ->check(CLI::Range(std::int64_t(10101), std::int64_t(99991231)));
    app.add_option("--lose", texts.lose,
                   "Of the simulated exchange: orders and deals that are lost, 10:15:00+5s; repeatable")
        ->allow_extra_args(false)
        ->type_name("TIME+LENGTH");
    app.add_option("--max-rejects", texts.mostRejectedPercent,
                   "Per cent of a file's lines that may be rejected before reading fails (1)")
        ->check(CLI::Range(0.0, kPercent));
}

void addLook(CLI::App& app, Texts& texts)
{
    app.add_option("--theme", texts.theme, "dark or light (dark)")->check(CLI::IsMember({"dark", "light"}));
    app.add_option("--colors", texts.colors,
                   "Of rising and falling prices: red-up, green-up, color-blind (red-up)")
        ->check(CLI::IsMember({"red-up", "green-up", "color-blind"}));
    app.add_option("--mode", texts.modes,
                   "Of the queue, one or several: five, ten; first, horizontal, vertical, list; full, cut "
                   "(ten,first,cut)")
        ->delimiter(',')
        ->check(CLI::IsMember(host::modeWords()))
        ->type_name("WORD,...");
    app.add_option("--language", texts.language, "Of menus, messages and dialogs: zh or en (zh)")
        ->check(CLI::IsMember({"zh", "en"}));
    app.add_option("--font-scale", texts.fontPercent, "Size of all fonts, per cent of the usual one (100)")
        ->check(CLI::Range(host::kLeastFontPercent, host::kMostFontPercent))
        ->type_name("PERCENT");
    app.add_option("--layout", texts.layout, "Of the panes: queue, tick, chart (queue)")
        ->check(CLI::IsMember(layoutIds()));
    app.add_option("--size", texts.size, "Of the window, pixels at 100 % (1600x960)")->type_name("WxH");
    app.add_option("--settings", texts.settings,
                   "File that remembers looks and layouts (in the user's configuration)")
        ->type_name("FILE");
    app.add_option("--external-data", texts.externalData,
                   "Folder of local information: localinformation/MARKET/CODE/NAME.csv")
        ->check(CLI::ExistingDirectory)
        ->type_name("DIR");
}

std::string sizeText(const QSize& size)
{
    return std::to_string(size.width()) + 'x' + std::to_string(size.height());
}

bool readSize(const std::string& text, const QSize& smallest, QSize& size)
{
    const QStringList sides = QString::fromStdString(text).split(QLatin1Char('x'));
    if (sides.size() != 2)
        return false;
    bool wide = false;
    bool high = false;
    size = QSize(sides[0].toInt(&wide), sides[1].toInt(&high));
    return wide && high && size == size.expandedTo(smallest).boundedTo(QSize(kLargestSide, kLargestSide));
}

/// False for a number that no replay runs at and for other words than "max".
bool readSpeed(const std::string& text, double& speed)
{
    if (text == "max") {
        speed = 0;
        return true;
    }
    bool number = false;
    speed = QString::fromStdString(text).toDouble(&number);
    return number && speed >= 0.1 && speed <= 1000;
}

/// Takes the texts over. Empty, or what is wrong with one of them.
std::string take(const Texts& texts, host::TerminalOptions& options)
{
    if (texts.import.size() == 2) {
        options.source.layout = texts.import[0];
        options.source.path = texts.import[1];
    }
    options.source.simulated = options.source.archive.empty() && options.source.path.empty();
    for (const std::string& text : texts.lose) {
        options.source.lose.emplace_back();
        if (!host::readLostStretch(text, options.source.lose.back()))
            return "--lose: not a stretch like 10:15:00+5s: " + text;
    }
    if (!texts.lose.empty() && !options.source.simulated)
        return "--lose: only of the simulated exchange";
    options.source.mostRejected = texts.mostRejectedPercent / kPercent;
    if (!texts.at.empty() && !utils::parseTimeOfDay(QString::fromStdString(texts.at), options.at))
        return "--at: not a time of day: " + texts.at + " (10:30 or 09:25:03)";
    if (!readSpeed(texts.speed, options.speed))
        return "--speed: not 0.1 to 1000 or max: " + texts.speed;
    const QSize smallest = texts.pane.empty() ? host::MainWindow::smallestSize() : kSmallestPane;
    if (!texts.size.empty() && !readSize(texts.size, smallest, options.size))
        return "--size: not a size of " + sizeText(smallest) + " to " +
               sizeText(QSize(kLargestSide, kLargestSide)) + ": " + texts.size;
    options.playing = !texts.paused;
    options.theme = QString::fromStdString(texts.theme);
    options.colors = priceColors().at(texts.colors);
    options.language = QString::fromStdString(texts.language);
    options.fontPercent = texts.fontPercent;
    options.layout = QString::fromStdString(texts.layout);
    options.settingsFile = QString::fromStdString(texts.settings);
    options.externalData = QString::fromStdString(texts.externalData);
    options.shot = QString::fromStdString(texts.shot);
    options.pane = QString::fromStdString(texts.pane);
    for (const std::string& word : texts.modes)
        host::takeModeWord(word, options.modes);
    return {};
}

} // namespace

bool readArguments(int argc, char** argv, host::TerminalOptions& options, int& exitCode, std::ostream& out,
                   std::ostream& err)
{
    CLI::App app("Shows the queue of single orders at each price while a day is replayed: of the simulated "
                 "exchange, an archive, or vendors' files.",
                 "depth-terminal");
    app.set_version_flag("--version", std::string("depth-terminal ") + DEPTH_VERSION);
    Texts texts;
    addSource(app, options.source, texts);
    app.add_option("--at", texts.at, "Time of day to begin at (09:30)")->type_name("HH:MM:SS");
    app.add_option("--speed", texts.speed, "Times real time, 0.1 to 1000, or max for as fast as possible (1)")
        ->type_name("X");
    app.add_flag("--paused", texts.paused, "Begin with the replay paused");
    addLook(app, texts);
    CLI::Option* shot =
        app.add_option("--shot", texts.shot, "Write a picture of the window and end; needs no display")
            ->type_name("FILE.png");
    app.add_option("--scale", options.scale, "Of the picture, 2 for displays of double density (1)")
        ->check(CLI::Range(0.5, 4.0))
        ->needs(shot);
    app.add_option("--pane", texts.pane, "Of the picture: only this pane, --size being its own size")
        ->check(CLI::IsMember(paneIds()))
        ->needs(shot);
    app.add_flag("--concise", options.concise, "Of the picture: panels in the concise style")->needs(shot);
    app.add_option("--measure-stalls", options.measureStalls)->check(CLI::Range(0.1, 3600.0))->group("");
    app.add_flag("--tour", options.tour)->group("");
    app.add_flag("--probe-display", options.probe)->group("");
    std::string wrong;
    try {
        app.parse(argc, argv);
        wrong = take(texts, options);
        options.given = {app.count("--theme") > 0,    app.count("--colors") > 0,
                         app.count("--mode") > 0,     app.count("--layout") > 0,
                         app.count("--language") > 0, app.count("--font-scale") > 0};
    } catch (const CLI::Success& request) {
        exitCode = app.exit(request, out, err);
        return false;
    } catch (const CLI::Error& error) {
        wrong = error.what();
        wrong = wrong.substr(0, wrong.find('\n'));
    }
    if (wrong.empty())
        return true;
    exitCode = host::fail(err, wrong + " (depth-terminal --help)");
    return false;
}
