#pragma once

#include "feed/DayRows.h"
#include "feed/archive/TableFile.h"
#include "feed/csv/Error.h"

#include <memory>
#include <string>
#include <vector>

namespace feed {

struct ArchivedInstrument;

/// Writes a day archive (docs/archive-format.md), row by row, in memory that does not grow with the day.
///
///     DayArchiveWriter writer(folder);
///     writer.beginInstrument(detail, 20230201);
///     exchange.runDay(writer);              // any number of rows
///     writer.finishInstrument();
///     if (!writer.finish()) ... writer.error()
///
/// The tables take their places when all rows of their instrument are on the disk; before, and if writing
/// fails, the folder keeps what it had. Instruments that the archive holds already stay beside the new ones;
/// one that is written again is replaced. After a failure rows are ignored and every call answers false. For
/// one thread at a time.
class DayArchiveWriter : public RowSink
{
public:
    struct Options
    {
        bool compress = false; ///< write .csv.zst
        bool ladders = false;  ///< ask for ladders, which fill far more of a disk than all the rest
    };

    /// `folder` is created when it is needed.
    explicit DayArchiveWriter(std::string folder, Options options);
    explicit DayArchiveWriter(std::string folder);
    ~DayArchiveWriter() override;

    /// Begins an instrument; an unfinished one is given up. Market and code must be letters and digits.
    /// `tradingDay` is yyyymmdd and must be that of the archive.
    bool beginInstrument(const nelservice::CInstrumentDetail& detail, std::int64_t tradingDay);

    /// Rows of the instrument: orders and deals by increasing `seq`, all others by time. A row with
    /// a price that is not finite cannot be read back and makes the writing fail.
    void onOrder(const OrderRow& row) override;
    void onDeal(const DealRow& row) override;
    void onSnapshot(const SnapshotRow& row) override;
    void onQueue(const QueueRow& row) override;
    bool takesLadders() const override { return m_options.ladders; }
    void onLadder(const LadderRow& row) override;

    /// Puts the instrument's tables into their places.
    bool finishInstrument();

    /// Writes the table of instruments. An unfinished instrument is given up.
    bool finish();

    /// Writes all rows of one day, its ladders too: begin, rows, finish of the instrument.
    bool write(const InstrumentDay& day);

    /// The first failure.
    const Error& error() const { return m_error; }

private:
    enum Table
    {
        Orders,
        Deals,
        Snapshots,
        Queues,
        Ladders,
        TableCount,
    };

    template <class Row>
    void append(Table table, const Row& row);
    bool openTable(Table table);
    bool fail(const Error& error);
    bool loadExisting();
    void giveUpInstrument();

    std::string m_folder;
    Options m_options;
    Error m_error;
    bool m_existingLoaded = false;
    bool m_inInstrument = false;
    std::string m_instrumentFolder;
    std::unique_ptr<ArchivedInstrument> m_current;
    std::vector<ArchivedInstrument> m_instruments;
    TableFile m_tables[TableCount];
};

} // namespace feed
