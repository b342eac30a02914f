#pragma once

#include "feed/DayRows.h"
#include "feed/csv/CsvReader.h"
#include "feed/import/file_kinds.h"

#include <string_view>
#include <vector>

namespace feed {

/// The columns of a table of ten-level snapshots, numbered from 0 or from 1, and perhaps of published queues.
class SnapshotColumns
{
public:
    SnapshotColumns(const FileKind& kind, const CsvReader& reader);

    /// Reads a line into a snapshot and, if the table has them and there are any, the published queues of
    /// that moment. An empty cell stands for 0. Time is left to the caller, except that the phase falls back
    /// on `msOfDay` where the table tells none. Null, or the reason for rejecting the line.
    const char* read(const CsvReader& row, std::int64_t msOfDay, SnapshotRow& snapshot,
                     QueueRow& queue) const;

    /// The price limits of a line, yuan; 0 where it has none.
    void limits(const CsvReader& row, double& upper, double& lower) const;

private:
    struct Side
    {
        std::vector<int> prices;
        std::vector<int> volumes;
        std::vector<int> counts;
        std::vector<int> queued;
    };

    bool price(const CsvReader& row, int column, double& value) const;
    int column(Field field) const { return m_columns[static_cast<std::size_t>(field)]; }

    const FileKind& m_kind;
    FieldColumns m_columns;
    Side m_ask;
    Side m_bid;
};

/// The phase in the words or numbers of the feeds; by the time of day if there are none or they are unknown.
Phase phaseOf(std::string_view status, std::int64_t msOfDay);

} // namespace feed
