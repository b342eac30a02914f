#pragma once

#include "feed/DayRows.h"
#include "feed/csv/CsvReader.h"
#include "feed/csv/ImportReport.h"

#include <string>
#include <vector>

/// The tables of a day archive: their columns, and the rows as text. Each table is a header and a line per
/// row, but for the ladders, which have a line for each price.
namespace feed {

extern const char* const kInstrumentsHeader;
extern const char* const kOrdersHeader;
extern const char* const kDealsHeader;
extern const char* const kQueueEnd; ///< the word in the last column of a queue, by which a cut line is known
std::string snapshotsHeader();
extern const char* const kQueuesHeader;
extern const char* const kLaddersHeader;

/// One line of instruments.csv.
struct ArchivedInstrument
{
    nelservice::CInstrumentDetail detail;
    std::int64_t tradingDay = 0; ///< yyyymmdd

    /// Market and code, also the name of the instrument's folder: "SH600519".
    std::string key() const { return detail.market + detail.code; }
};

/// Appends a row as a line with its line end. Numbers are written so that reading gives the same bits back.
void appendLine(std::string& text, const ArchivedInstrument& instrument);
void appendLine(std::string& text, const OrderRow& row);
void appendLine(std::string& text, const DealRow& row);
void appendLine(std::string& text, const SnapshotRow& row);
void appendLine(std::string& text, const QueueRow& row);
void appendLine(std::string& text, const LadderRow& row); ///< several lines, one for each price

/// Whether every number of the row is finite, so that it can be written and read back.
bool isWritable(const OrderRow& row);
bool isWritable(const DealRow& row);
bool isWritable(const SnapshotRow& row);
bool isWritable(const QueueRow& row);
bool isWritable(const LadderRow& row);

/// Market and code are file-name parts: letters, digits, '_' and '-' only, and the two together at most 64
/// long.
bool isInstrumentKey(const std::string& market, const std::string& code);

const char* phaseName(Phase phase);
bool phaseFromName(std::string_view name, Phase& phase);
const char* kindName(nelservice::EInstrumentKind kind);
bool kindFromName(std::string_view name, nelservice::EInstrumentKind& kind);

/// Read all rows of one table into `rows`. Lines that cannot be read are rejected in `report`, whose last
/// file is this one. False, with `error` filled, if the table cannot be read at all (a column is missing,
/// damaged data, cancelled).
bool readTable(CsvReader& reader, std::vector<ArchivedInstrument>& rows, ImportReport& report,
               const Progress& progress, Error& error);
bool readTable(CsvReader& reader, std::vector<OrderRow>& rows, ImportReport& report, const Progress& progress,
               Error& error);
bool readTable(CsvReader& reader, std::vector<DealRow>& rows, ImportReport& report, const Progress& progress,
               Error& error);
bool readTable(CsvReader& reader, std::vector<SnapshotRow>& rows, ImportReport& report,
               const Progress& progress, Error& error);
bool readTable(CsvReader& reader, std::vector<QueueRow>& rows, ImportReport& report, const Progress& progress,
               Error& error);
bool readTable(CsvReader& reader, std::vector<LadderRow>& rows, ImportReport& report,
               const Progress& progress, Error& error);

} // namespace feed
