#pragma once

#include "host/DaySource.h"
#include "host/QueuePage.h"
#include "host/terminal.h"

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

/// The subcommands of the program `depth`. Each writes its result to `out` and an error as one line to `err`,
/// and answers with the exit code: 0 done, 1 for `verify` with mismatches, 2 for an error.
namespace host {

constexpr int kExitDone = 0;
constexpr int kExitMismatch = 1;
constexpr int kExitError = 2;

struct SimulateOptions
{
    DaySource source; ///< the simulated part of it
    std::string folder;
    bool compress = false;
    std::optional<bool> ladders; ///< whether ladders are written; not given: of a day without orders
    bool json = false;
};
int runSimulate(const SimulateOptions& options, std::ostream& out, std::ostream& err);

struct ImportCommandOptions
{
    DaySource source; ///< the import part of it
    std::string folder;
    bool compress = false;
    bool json = false;
    int mostListed = 10; ///< rejected lines that are printed; all are counted
};
int runImport(const ImportCommandOptions& options, std::ostream& out, std::ostream& err);

struct ShowOptions
{
    DaySource source;
    std::vector<std::string> times; ///< times of day at which pages are printed; empty for a few usual ones
    PageStyle page;
    ColorMode color = ColorMode::Auto;
    std::int64_t refreshMs = 0; ///< as for `verify`
    bool json = false;
    bool hash = false; ///< of the engine's state and of what the panels' models show, not of a running day
    double speed = 0;  ///< above 0: shows the day as it runs, so many times as fast as it was
    std::string from = "09:25"; ///< of a running day
    std::string to = "15:00:30";
};

/// A page shows the queue once the engine has refreshed three times in a quiet feed, so that deals and
/// cancels of the last moment are in it.
int runShow(const ShowOptions& options, std::ostream& out, std::ostream& err);

struct VerifyCommandOptions
{
    DaySource source;
    std::int64_t refreshMs = 0; ///< refresh interval in feed time; 0 for a tick wherever one is needed
    int mostListed = 10;
    bool json = false;
};
int runVerify(const VerifyCommandOptions& options, std::ostream& out, std::ostream& err);

/// Plays the day as it runs, `options.speed` times as fast: repaints a terminal, prints a page every two
/// seconds of real time elsewhere. Ends early on an interrupt from the keyboard.
int showRunning(const ShowOptions& options, const feed::InstrumentDay& day, std::ostream& out,
                std::ostream& err);

/// The moment of a time of day ("10:30", "09:25:03", "09:25:03.500") on the day; nothing for other text.
std::optional<std::int64_t> momentOf(const feed::InstrumentDay& day, const std::string& timeOfDay);

// Each writes its reason as "error: ..." on a line of `err` and answers with the exit code.
int fail(std::ostream& err, const std::string& reason);
int failWithoutMoment(std::ostream& err, const std::string& timeOfDay);
int failWithoutQueue(std::ostream& err, const feed::InstrumentDay& day);

} // namespace host
