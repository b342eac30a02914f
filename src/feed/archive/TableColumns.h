#pragma once

#include "feed/csv/CsvReader.h"
#include "feed/csv/values.h"

#include <cstdint>
#include <string>
#include <string_view>

/// What the readers of an archive's tables share: columns by name, cells that may be empty, reasons for
/// rejecting.
namespace feed {

/// Finds columns by name and remembers the first required one that is missing.
class TableColumns
{
public:
    explicit TableColumns(const CsvReader& reader) : m_reader(reader) {}

    int required(const std::string& name)
    {
        const int column = m_reader.column(name);
        if (column < 0 && m_missing.empty())
            m_missing = name;
        return column;
    }
    int optional(const std::string& name) const { return m_reader.column(name); }

    bool complete(Error& error) const
    {
        if (!m_missing.empty())
            error = {m_reader.fileName(), 1, "has no column " + m_missing};
        return m_missing.empty();
    }

private:
    const CsvReader& m_reader;
    std::string m_missing;
};

// An empty cell of an optional column, or a missing one, leaves the value as it is.
inline bool optionalInteger(const CsvReader& row, int column, std::int64_t& value)
{
    const std::string_view cell = row.field(column);
    return cell.empty() || parseInteger(cell, value);
}

inline bool optionalInteger(const CsvReader& row, int column, std::int32_t& value)
{
    const std::string_view cell = row.field(column);
    return cell.empty() || parseInteger32(cell, value);
}

inline bool optionalNumber(const CsvReader& row, int column, double& value)
{
    const std::string_view cell = row.field(column);
    return cell.empty() || parseNumber(cell, value);
}

/// Whether the table ends before this column, which the program always writes.
inline bool isCut(const CsvReader& row, int column)
{
    return column >= 0 && !row.lineTerminated() && row.field(column).empty();
}

// Why a line was not taken.
inline constexpr const char* kBadTime = "bad time";
inline constexpr const char* kBadSequence = "bad sequence number";
inline constexpr const char* kBadNumber = "bad order number";
inline constexpr const char* kBadPrice = "bad price";
inline constexpr const char* kBadVolume = "bad volume";
inline constexpr const char* kBadOutOfOrder = "out of order";

} // namespace feed
