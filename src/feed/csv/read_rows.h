#pragma once

#include "feed/csv/CsvReader.h"
#include "feed/csv/ImportReport.h"

namespace feed {

/// The answer of `readRow` for a line that is no record by design.
extern const char* const kSkippedLine;

/// Goes through the rows of a table whose header was read. `readRow(reader)` takes a row over and answers
/// null, the reason for which it is rejected, or `kSkippedLine`. A last line that has no line end and cannot
/// be read counts as cut, whatever is wrong with it. Everything is counted in `report`, whose last file is
/// the table. False, with `error` filled, if the data is damaged or `progress` ends the reading.
template <class ReadRow>
bool readRows(CsvReader& reader, ImportReport& report, const Progress& progress, Error& error,
              ReadRow readRow)
{
    constexpr std::int64_t kRowsBetweenReports = 4096;
    FileReport& file = report.files.back();
    while (reader.nextRow()) {
        ++file.lines;
        const char* fault = reader.rowFault();
        if (fault == nullptr)
            fault = readRow(reader);
        if (fault == nullptr)
            ++file.taken;
        else if (fault == kSkippedLine)
            ++file.skipped;
        else
            report.reject(file, reader.lineNumber(), reader.lineTerminated() ? fault : kCutLastLine);
        if (file.lines % kRowsBetweenReports == 0 && progress &&
            !progress(reader.bytesDone(), reader.bytesTotal())) {
            error = {file.file, 0, "cancelled"};
            return false;
        }
    }
    if (reader.truncated())
        file.truncated = true;
    const std::string failure = reader.failure();
    if (!failure.empty()) {
        error = {file.file, reader.lineNumber(), failure};
        return false;
    }
    if (progress && !progress(reader.bytesDone(), reader.bytesTotal())) {
        error = {file.file, 0, "cancelled"};
        return false;
    }
    return true;
}

} // namespace feed
