#include "arguments.h"

#include "feed/import/importDay.h"
#include "host/commands/commands.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <ostream>

namespace {

constexpr double kPercent = 100;

// Options that several commands have, each in the words of its command.

CLI::Option* addSeed(CLI::App& command, host::DaySource& source, const char* words)
{
    return command.add_option("--seed", source.seed, words)->check(CLI::NonNegativeNumber)->type_name("N");
}

CLI::Option* addStyle(CLI::App& command, host::DaySource& source, const char* words)
{
    return command.add_option("--style", source.style, words)->check(CLI::IsMember({"tick", "level"}));
}

CLI::Option* addOrders(CLI::App& command, const char* name, host::DaySource& source, const char* words)
{
    return command.add_option(name, source.orders, words)
        ->check(CLI::Range(std::int64_t(1), std::int64_t(20000000)));
}

void addDate(CLI::App& command, host::DaySource& source, const char* words)
{
    command.add_option("--date", source.date, words)
        ->check(CLI::Range(std::int64_t(10101), std::int64_t(99991231)));
}

CLI::Option* addLose(CLI::App& command, host::DaySource& source, const char* words)
{
    return command
        .add_option_function<std::vector<std::string>>(
            "--lose",
            [&source](const std::vector<std::string>& texts) {
                for (const std::string& text : texts) {
                    feed::LostStretch stretch;
                    if (!host::readLostStretch(text, stretch))
                        throw CLI::ValidationError("--lose", "not a stretch like 10:15:00+5s: " + text);
                    source.lose.push_back(stretch);
                }
            },
            words)
        ->allow_extra_args(false)
        ->type_name("TIME+LENGTH");
}

void addRefresh(CLI::App& command, std::int64_t& ms)
{
    command
        .add_option("--refresh-ms", ms,
                    "Fixed refresh interval of the engine in feed time; without it a refresh comes wherever "
                    "one is needed")
        ->check(CLI::Range(std::int64_t(1), std::int64_t(3600000)));
}

/// The archive that a command writes.
void addArchive(CLI::App& command, std::string& folder, bool& compress)
{
    command.add_option("--out", folder, "Folder of the archive")->required()->type_name("DIR");
    command.add_flag("--zstd", compress, "Compress the tables");
}

/// The options that say where a day comes from, and what they were given.
struct SourceArguments
{
    host::DaySource source;
    std::vector<std::string> import; ///< layout and path
    double mostRejectedPercent = 1;
    bool acceptRejects = false;
    CLI::Option* seed = nullptr;

    void add(CLI::App& command)
    {
        auto* group = command.add_option_group("day", "Where the day comes from");
        group->add_option("--day", source.archive, "Folder of a day archive")->type_name("DIR");
        group
            ->add_option("--import", import,
                         "Files in a vendor's layout; `auto` tells the layout by the headers")
            ->expected(2)
            ->type_name("LAYOUT PATH");
        seed = addSeed(*group, source, "A simulated day");
        group->require_option(1);
        command.add_option("--instrument", source.instrument,
                           "Instrument of the day by its code; with --seed its kind: " +
                               CLI::detail::join(host::simulatedKinds(), ", "));
        addStyle(command, source, "With --seed: tick, or level for a day without orders")->needs(seed);
        addOrders(command, "--day-orders", source, "With --seed: orders of the day")->needs(seed);
        addLose(command, source, "With --seed: orders and deals that are lost, 10:15:00+5s; repeatable")
            ->needs(seed);
        addDate(command, source, "Trading day yyyymmdd, of a simulated or imported day");
        addRejects(command);
    }

    void addRejects(CLI::App& command)
    {
        command
            .add_option("--max-rejects", mostRejectedPercent,
                        "Per cent of a file's lines that may be rejected before reading fails (1)")
            ->check(CLI::Range(0.0, kPercent));
        command.add_flag("--accept-rejects", acceptRejects,
                         "Take what can be read, however much is rejected");
    }

    host::DaySource taken() const
    {
        host::DaySource result = source;
        if (import.size() == 2) {
            result.layout = import[0];
            result.path = import[1];
        }
        result.simulated = seed && seed->count() > 0;
        result.mostRejected = acceptRejects ? 1 : mostRejectedPercent / kPercent;
        return result;
    }
};

std::string layoutList()
{
    std::string text = "Layouts:\n  auto: told by the headers of the files\n";
    for (const feed::ImportLayout& layout : feed::importLayouts())
        text += std::string("  ") + layout.name + ": " + layout.description + '\n';
    return text;
}

struct Simulate
{
    host::SimulateOptions options;

    CLI::App* add(CLI::App& app)
    {
        CLI::App* command =
            app.add_subcommand("simulate", "Writes a day of the simulated exchange as an archive");
        addArchive(*command, options.folder, options.compress);
        addSeed(*command, options.source, "The same seed gives the same day (1)");
        command->add_option("--instrument", options.source.instrument, "Kind of the instrument (stock)")
            ->check(CLI::IsMember(host::simulatedKinds()));
        addOrders(*command, "--orders", options.source, "Orders of the day (20000)");
        addStyle(*command, options.source, "tick, or level for a day without orders (tick)");
        addLose(*command, options.source, "Orders and deals that are lost, 10:15:00+5s; repeatable");
        addDate(*command, options.source, "Trading day yyyymmdd (20230201)");
        command->add_flag_function(
            "--ladders,!--no-ladders", [this](std::int64_t count) { options.ladders = count > 0; },
            "Write the ladder of each snapshot, or not (only with --style level)");
        command->add_flag("--json", options.json, "Print the counts as JSON");
        return command;
    }
};

struct Import
{
    host::ImportCommandOptions options;
    SourceArguments rejects;

    CLI::App* add(CLI::App& app)
    {
        CLI::App* command =
            app.add_subcommand("import", "Reads files in a vendor's layout and writes an archive");
        command->footer(layoutList());
        command->add_option("layout", options.source.layout, "Layout of the files, or auto")->required();
        command->add_option("path", options.source.path, "File or folder")->required();
        addArchive(*command, options.folder, options.compress);
        command->add_option("--instrument", options.source.instrument, "Only the instrument with this code");
        addDate(*command, options.source, "Trading day yyyymmdd, where the files don't tell it");
        rejects.addRejects(*command);
        command->add_option("--list-rejects", options.mostListed, "Rejected lines that are printed (10)")
            ->check(CLI::NonNegativeNumber);
        command->add_flag("--json", options.json, "Print the report as JSON");
        return command;
    }

    int run(std::ostream& out, std::ostream& err)
    {
        options.source.mostRejected = rejects.taken().mostRejected;
        return host::runImport(options, out, err);
    }
};

struct Show
{
    host::ShowOptions options;
    SourceArguments source;
    std::string color = "auto";

    CLI::App* add(CLI::App& app)
    {
        CLI::App* command =
            app.add_subcommand("show", "Plays a day and prints the ten rows a side with their first orders");
        source.add(*command);
        command->add_option("--at", options.times, "Times of day: 09:25:03,10:30 (a few over the day)")
            ->delimiter(',')
            ->type_name("TIME,...");
        command->add_option("--levels", options.page.levels, "Rows a side (10)")
            ->check(CLI::IsMember({5, 10}));
        command->add_option("--orders", options.page.orders, "Orders printed of a row (12)")
            ->check(CLI::Range(0, 1000000));
        command
            ->add_option("--speed", options.speed, "Show the day as it runs, so many times as fast as it was")
            ->check(CLI::Range(0.1, 1e6))
            ->type_name("FACTOR");
        command->add_option("--from", options.from, "Beginning of a running day (09:25)")->type_name("TIME");
        command->add_option("--to", options.to, "End of a running day (15:00:30)")->type_name("TIME");
        addRefresh(*command, options.refreshMs);
        command->add_flag("--json", options.json, "Print the pages as JSON");
        command->add_flag(
            "--hash", options.hash,
            "Print two 64-bit figures at each time: hash, of the order queue's whole state, and "
            "panels, of what ladders, lists, quotes and chart show after a jump there");
        command->add_option("--color", color, "auto, always or never (auto)")
            ->check(CLI::IsMember({"auto", "always", "never"}));
        return command;
    }

    int run(std::ostream& out, std::ostream& err)
    {
        options.source = source.taken();
        if (color != "auto")
            options.color = color == "always" ? host::ColorMode::Always : host::ColorMode::Never;
        return host::runShow(options, out, err);
    }
};

struct Verify
{
    host::VerifyCommandOptions options;
    SourceArguments source;

    CLI::App* add(CLI::App& app)
    {
        CLI::App* command = app.add_subcommand(
            "verify",
            "Holds the rebuilt queue against each published snapshot; exit code 1 when any differs");
        source.add(*command);
        addRefresh(*command, options.refreshMs);
        command->add_option("--mismatches", options.mostListed, "Mismatches that are listed (10)")
            ->check(CLI::NonNegativeNumber);
        command->add_flag("--json", options.json, "Print the result as JSON");
        return command;
    }

    int run(std::ostream& out, std::ostream& err)
    {
        options.source = source.taken();
        return host::runVerify(options, out, err);
    }
};

std::string firstLine(const std::string& text)
{
    return text.substr(0, text.find('\n'));
}

} // namespace

int runDepth(int argc, char** argv, std::ostream& out, std::ostream& err)
{
    CLI::App app(
        "Level-2 market depth: the queue of single orders at each price, from archives, vendors' files or a "
        "simulated exchange.",
        "depth");
    app.set_version_flag("--version", std::string("depth ") + DEPTH_VERSION);
    app.require_subcommand(1);
    Simulate simulate;
    Import import;
    Show show;
    Verify verify;
    const CLI::App* simulateCommand = simulate.add(app);
    const CLI::App* importCommand = import.add(app);
    const CLI::App* showCommand = show.add(app);
    verify.add(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& request) {
        return app.exit(request, out, err);
    } catch (const CLI::Error& wrong) {
        return host::fail(err, firstLine(wrong.what()) + " (depth --help)");
    }

    try {
        const int code = simulateCommand->parsed() ? host::runSimulate(simulate.options, out, err)
                         : importCommand->parsed() ? import.run(out, err)
                         : showCommand->parsed()   ? show.run(out, err)
                                                   : verify.run(out, err);
        if (code != host::kExitError && !out.flush())
            return host::fail(err, "the output cannot be written");
        return code;
    } catch (const std::exception& failure) {
        return host::fail(err, failure.what());
    }
}
