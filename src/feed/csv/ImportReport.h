#pragma once

#include "feed/csv/Error.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace feed {

/// A line of a file that was not taken over.
struct Reject
{
    std::string file;
    std::int64_t line = 0; ///< 1 is the header
    std::string reason;
};

/// The rejected lines: counted by reason without limit, listed up to a limit. Not thread-safe.
class RejectList
{
public:
    static constexpr std::size_t kMostListed = 1000;

    void add(const std::string& file, std::int64_t line, const std::string& reason);

    std::int64_t count() const { return m_count; }
    const std::map<std::string, std::int64_t>& countByReason() const { return m_countByReason; }

    /// The first `kMostListed` rejected lines, in the order in which they were found.
    const std::vector<Reject>& listed() const { return m_listed; }

private:
    std::int64_t m_count = 0;
    std::map<std::string, std::int64_t> m_countByReason;
    std::vector<Reject> m_listed;
};

/// What was read from one file.
struct FileReport
{
    std::string file;
    std::string kind;       ///< what the file was taken for, such as "sh-split orders"
    std::int64_t lines = 0; ///< lines with data: neither the header nor blank lines
    std::int64_t taken = 0; ///< lines that became a record
    std::int64_t skipped =
        0; ///< lines that are no record by design: status lines, instruments that nobody asked for
    std::int64_t rejected = 0; ///< lines that could not be read; a cut last line is not one of them
    bool truncated = false;    ///< the last line is cut, or the compressed file ends too early
};

/// What reading a day found. Filled by the importers and by the archive reader.
struct ImportReport
{
    std::vector<FileReport> files;
    RejectList rejects;
    std::vector<std::string> ignoredFiles; ///< files of no known layout beside the ones that were read
    std::int64_t restoredOrders = 0; ///< orders that got back the volume that was dealt before their record
    std::int64_t madeOrders = 0;     ///< orders filled whole on entry, made from their deals
    std::int64_t unknownOrders = 0;  ///< order numbers in deals or cancels that no record introduces

    std::int64_t totalLines() const;
    bool truncated() const;

    /// Notes a line that was not taken over: in the list, and in the count of `file` unless it is its cut
    /// last line.
    void reject(FileReport& file, std::int64_t line, const std::string& reason);

    /// The error of the first file of which more than `share` of the lines were rejected; no error if there
    /// is none.
    Error tooManyRejects(double share) const;
};

/// The reason given for a last line that ends in the middle.
extern const char* const kCutLastLine;

/// Is told about the bytes read and the bytes in all (0 if unknown) while a long reading runs, on the reading
/// thread. An answer of false ends the reading with the error "cancelled".
using Progress = std::function<bool(std::int64_t bytesDone, std::int64_t bytesTotal)>;

} // namespace feed
