#pragma once

#include "feed/csv/ByteSource.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace feed {

/// Reads a table of comma-separated values line by line, in memory that does not grow with the file.
///
/// Taken as they come: LF and CRLF, a byte order mark, blanks around values, values in double quotes (""
/// stands for a quote; a line break inside quotes is not possible), a comma at the end of each line, blank
/// lines. Header and texts may be UTF-8 or GBK. For one thread at a time.
class CsvReader
{
public:
    /// A longer line is no line of a table. It is skipped, and `lineTooLong` tells so.
    static constexpr std::size_t kLongestLine = 1 << 20;

    /// `fileName` is what errors call the source.
    CsvReader(std::unique_ptr<ByteSource> source, std::string fileName);

    /// Reads the first line that is not blank as the header. False, with `error` filled, if there is none or
    /// if it cannot be one (binary data, two columns of one name).
    bool readHeader(Error& error);

    /// Names of the columns in order, UTF-8, without blanks around them.
    const std::vector<std::string>& columns() const { return m_columns; }

    /// Index of the column with this name (case of ASCII letters does not count), -1 if there is none.
    int column(std::string_view name) const;

    /// Goes to the next line that is not blank. False at the end; `failure` tells whether it is an early one.
    bool nextRow();

    const std::string& fileName() const { return m_fileName; }

    /// Line of the file that the row stands in; 1 is the first.
    std::int64_t lineNumber() const { return m_lineNumber; }

    /// The value in a column, without blanks and quotes around it; empty for column -1. Valid until the next
    /// row.
    std::string_view field(int column) const
    {
        return column < 0 || static_cast<std::size_t>(column) >= m_fields.size() ? std::string_view()
                                                                                 : m_fields[column];
    }

    /// The value as UTF-8 text.
    std::string text(int column) const;

    /// Why the row cannot be used as a whole, null if it can: too few or too many columns, too long a line.
    const char* rowFault() const { return m_rowFault; }

    /// Why reading ended early; empty if it ended at the end of the data.
    std::string failure() const { return m_source->failure(); }

    /// True after the end if a compressed source ended too early.
    bool truncated() const { return m_source->truncated(); }

    /// False if the row's line is the last and has no line end: it may be cut.
    bool lineTerminated() const { return m_lineTerminated; }

    std::int64_t bytesDone() const { return m_source->bytesDone(); }
    std::int64_t bytesTotal() const { return m_source->bytesTotal(); }

private:
    bool nextLine(std::string_view& line);
    bool refill();
    void split(std::string_view line);
    std::string_view quotedField(std::string_view line, std::size_t& at);

    std::unique_ptr<ByteSource> m_source;
    std::string m_fileName;
    std::vector<std::string> m_columns;
    std::vector<std::string_view> m_fields;
    std::deque<std::string> m_unquoted; ///< fields of the row whose quotes had to be undoubled
    std::vector<char> m_buffer;
    std::size_t m_begin = 0; ///< unread part of the buffer
    std::size_t m_end = 0;
    bool m_sourceEnded = false;
    bool m_lineTooLong = false;
    bool m_lineTerminated = true;
    bool m_quoteOpen = false;
    const char* m_rowFault = nullptr;
    std::int64_t m_lineNumber = 0;
};

/// Bytes as UTF-8: kept if they are valid UTF-8, decoded as GBK otherwise.
std::string utf8Text(std::string_view bytes);

} // namespace feed
