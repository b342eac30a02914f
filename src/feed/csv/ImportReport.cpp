#include "feed/csv/ImportReport.h"

#include "feed/csv/read_rows.h"

namespace feed {

const char* const kCutLastLine = "cut last line";
const char* const kSkippedLine = "skipped";

void RejectList::add(const std::string& file, std::int64_t line, const std::string& reason)
{
    ++m_count;
    ++m_countByReason[reason];
    if (m_listed.size() < kMostListed)
        m_listed.push_back({file, line, reason});
}

std::int64_t ImportReport::totalLines() const
{
    std::int64_t lines = 0;
    for (const FileReport& file : files)
        lines += file.lines;
    return lines;
}

bool ImportReport::truncated() const
{
    for (const FileReport& file : files) {
        if (file.truncated)
            return true;
    }
    return false;
}

void ImportReport::reject(FileReport& file, std::int64_t line, const std::string& reason)
{
    rejects.add(file.file, line, reason);
    if (reason == std::string(kCutLastLine))
        file.truncated = true;
    else
        ++file.rejected;
}

Error ImportReport::tooManyRejects(double share) const
{
    for (const FileReport& file : files) {
        if (static_cast<double>(file.rejected) <= share * static_cast<double>(file.lines))
            continue;
        Error error;
        error.file = file.file;
        error.reason =
            std::to_string(file.rejected) + " of " + std::to_string(file.lines) + " lines rejected";
        for (const Reject& reject : rejects.listed()) {
            if (reject.file != file.file || reject.reason == std::string(kCutLastLine))
                continue;
            error.reason += ", the first in line " + std::to_string(reject.line) + ": " + reject.reason;
            break;
        }
        return error;
    }
    return {};
}

} // namespace feed
