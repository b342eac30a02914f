#pragma once

#include "feed/import/TickLine.h"
#include "feed/import/file_kinds.h"
#include "feed/import/importDay.h"

#include <memory>
#include <string>

namespace feed {

/// One import on its way: takes tables one after the other, then gives the days. For one thread.
class DayImport
{
public:
    explicit DayImport(const ImportOptions& options);

    /// Reads one table. A table of no known layout is noted and left alone, unless `expected`: then it is an
    /// error, as damaged data always is. False, with the result's error filled, if the import has to end.
    bool readTable(std::unique_ptr<ByteSource> source, const std::string& name, bool expected);

    /// Bytes of all tables, for the progress.
    void setBytesTotal(std::int64_t bytes) { m_bytesTotal = bytes; }

    /// Ends the import with an error.
    void fail(const Error& error) { m_result.error = error; }

    /// Puts everything into rows. `pathForDay` may name the trading day if nothing else does.
    ImportResult finish(const std::string& pathForDay);

private:
    struct Place
    {
        std::string market;
        std::string code;
    };

    const char* readLine(const FileKind& kind, const FieldColumns& columns,
                         const class SnapshotColumns* snapshots, const CsvReader& row);
    const char* instrumentOf(const FileKind& kind, const FieldColumns& columns, const CsvReader& row);
    const char* timeOf(const FileKind& kind, const FieldColumns& columns, const CsvReader& row,
                       std::int64_t& msOfDay);
    bool assemble(const std::string& pathForDay);

    const ImportOptions& m_options;
    ImportResult m_result;
    DayLines m_lines;
    Place m_folder; ///< instrument that the current table's folder names; empty if it names none
    std::string m_lastCell;
    std::string m_lastMarket;               ///< market of `m_lastCell`
    InstrumentLines* m_lastLines = nullptr; ///< instrument of `m_lastCell`; null if its lines are left out
    const char* m_lastFault = nullptr;
    std::int64_t m_bytesBefore = 0;
    std::int64_t m_bytesTotal = 0;
};

/// The last date (yyyymmdd) among the digits of a path, 0 if there is none.
std::int64_t dayInPath(const std::string& path);

} // namespace feed
