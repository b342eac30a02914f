#pragma once

#include "feed/DayRows.h"
#include "feed/csv/Error.h"
#include "feed/csv/ImportReport.h"

#include <string>
#include <vector>

namespace feed {

/// How files are imported.
struct ImportOptions
{
    std::string layout = "auto";    ///< one of `importLayouts()`, or "auto" to tell each file by its header
    std::int64_t tradingDay = 0;    ///< yyyymmdd; 0 takes it from the rows, else from the path
    std::vector<std::string> codes; ///< only these instrument codes; empty for all
    double mostRejected =
        0.01;          ///< share of a file's lines above which the import fails; 1 takes what can be read
    Progress progress; ///< told about the bytes of all files together
};

struct ImportResult
{
    std::vector<InstrumentDay> days; ///< one per instrument, ordered by market and code; empty after an error
    ImportReport report;
    Error error;
};

/// The layouts that can be imported, with a sentence about each (see docs/importers.md).
struct ImportLayout
{
    const char* name;
    const char* description;
};
const std::vector<ImportLayout>& importLayouts();

/// Reads the files of one day, vendors' layouts, into rows in the order of the exchange's sequence.
///
/// `path` is a file, a folder with the files of a layout, or a folder of folders by instrument (000001.SZ).
/// Rows of orders and deals have a strictly increasing `seq`; times are moments of the exchange's day, prices
/// are rounded to 1/10000 yuan, volumes are shares. Lines that cannot be read are rejected, counted and
/// listed; a file with too many of them fails the import. Any thread; nothing is thrown, and no input
/// crashes.
ImportResult importDay(const std::string& path, const ImportOptions& options);

/// A table in memory.
struct ImportText
{
    std::string
        name; ///< what reports call it; a folder in it may name day and instrument like that of a file
    std::string bytes;
};

/// The same from memory.
ImportResult importTexts(const std::vector<ImportText>& tables, const ImportOptions& options);

} // namespace feed
