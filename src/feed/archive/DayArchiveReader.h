#pragma once

#include "feed/DayRows.h"
#include "feed/archive/archive_tables.h"
#include "feed/csv/Error.h"
#include "feed/csv/ImportReport.h"

#include <string>
#include <string_view>
#include <vector>

namespace feed {

/// Reads a day archive (docs/archive-format.md). Lines that cannot be read are rejected and counted; what
/// stands beside them is kept. Each object is for one thread at a time.
class DayArchiveReader
{
public:
    /// Which ladders are read: those of a day fill far more memory than all its other rows.
    enum class Ladders
    {
        Never,
        WithoutOrders, ///< where the archive has no table of orders, from which the ladder could be made
        Always,
    };

    struct Options
    {
        double mostRejected =
            0.01; ///< share of a table's lines above which the table fails; 1 takes what can be read
        Ladders ladders = Ladders::WithoutOrders;
        Progress progress; ///< told about the bytes of the instrument that is loaded
    };

    /// Reads the table of instruments.
    explicit DayArchiveReader(std::string folder, Options options);
    explicit DayArchiveReader(std::string folder);

    /// Why the folder cannot be read; no error if it can.
    const Error& error() const { return m_error; }

    const std::vector<ArchivedInstrument>& instruments() const { return m_instruments; }

    /// What was found in the table of instruments and in the tables loaded since.
    const ImportReport& report() const { return m_report; }

    /// Loads one instrument, "SH600519". Each of its tables may be missing. False, with `error` filled, if
    /// the archive has no such instrument or a table cannot be read; `day` then has the rows read so far.
    bool load(const std::string& key, InstrumentDay& day, Error& error);

private:
    template <class Row>
    bool loadTable(const std::string& path, std::vector<Row>& rows, Error& error);

    std::string m_folder;
    Options m_options;
    Error m_error;
    ImportReport m_report;
    std::vector<ArchivedInstrument> m_instruments;
    std::int64_t m_bytesBefore = 0; ///< of the tables of this instrument that are read already
    std::int64_t m_bytesAll = 0;
};

/// Reads one table from memory, as the reader does from a file: `table` is "instruments", "orders", "deals",
/// "snapshots", "queues" or "ladders". Rows enter `day`; of instruments, the last one. False, with `error`
/// filled, for what the reader would not take.
bool readArchiveTable(std::string_view table, std::string_view bytes, InstrumentDay& day,
                      ImportReport& report, Error& error);

} // namespace feed
