#pragma once

#include "feed/DayRows.h"
#include "feed/csv/ImportReport.h"
#include "feed/simulation/LosingSink.h"
#include "feed/simulation/SimulationSettings.h"

#include <cstdint>
#include <string>
#include <vector>

namespace host {

/// Where a program takes a day from: exactly one of archive, import and seed.
struct DaySource
{
    std::string archive;    ///< folder of a day archive
    std::string layout;     ///< of `path`; "auto" tells files by their headers
    std::string path;       ///< file or folder in a vendor's layout
    bool simulated = false; ///< by `seed` and what follows
    std::uint64_t seed = 1;
    std::string style = "tick";          ///< "tick" or "level"
    std::int64_t orders = 0;             ///< of the simulated day; 0 for the usual number
    std::int64_t date = 0;               ///< yyyymmdd; 0 for the usual one
    std::string instrument;              ///< code or key ("600519", "SH600519"); of a simulated day the kind
    std::vector<feed::LostStretch> lose; ///< of the simulated day: what is lost on the line

    /// Whether the delivered ladders of a day without orders are loaded, which are large; of a simulated day
    /// of more than 50000 orders never.
    bool ladders = false;

    double mostRejected = 0.01; ///< share of a file's lines that may be rejected
};

/// Reads a stretch "10:15:00+5s": a time of day, and how long from then on in ms, s or m, at least 1 ms. Any
/// other text is refused: false, and `stretch` is left as it is.
bool readLostStretch(const std::string& text, feed::LostStretch& stretch);

/// Kinds of simulated instruments: "stock", "shenzhen", "growth", "fund", "bond", "repurchase".
const std::vector<std::string>& simulatedKinds();

/// Settings of a simulated day. False, with `error`, for an unknown kind or style, a date that is no day, or
/// lost stretches of a day without orders. A day that loses something has its channel for itself, so that the
/// holes can be told from its numbers; the trading is the same.
bool simulationSettings(const DaySource& source, feed::SimulationSettings& settings, std::string& error);

/// Loads the day of one instrument, with a progress bar where a person looks on. False, with one line in
/// `error` (with file and line where one is to blame), if it cannot be loaded. An archive or import of
/// several instruments needs `instrument`.
bool loadDay(const DaySource& source, feed::InstrumentDay& day, std::string& error);

} // namespace host
