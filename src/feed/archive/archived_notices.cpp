#include "feed/archive/archived_notices.h"

#include "feed/csv/ByteSource.h"
#include "feed/csv/CsvReader.h"
#include "feed/csv/read_rows.h"
#include "feed/csv/values.h"

#include <boost/make_shared.hpp>

#include <filesystem>
#include <system_error>
#include <utility>

namespace feed {

namespace {

constexpr const char* kTable = "/notices.csv";

std::string tablePath(const std::string& folder, const std::string& key)
{
    const std::string plain = folder + "/" + key + kTable;
    std::error_code ignored;
    if (std::filesystem::exists(plain, ignored))
        return plain;
    const std::string compressed = plain + ".zst";
    return std::filesystem::exists(compressed, ignored) ? compressed : std::string();
}

} // namespace

bool readArchivedNotices(const std::string& folder, const std::string& key, quoter::NoticeList& notices,
                         ImportReport& report, Error& error)
{
    const std::string path = tablePath(folder, key);
    if (path.empty())
        return true;
    std::unique_ptr<ByteSource> source = openFile(path, error);
    if (!source)
        return false;
    CsvReader reader(std::move(source), path);
    if (!reader.readHeader(error))
        return false;
    const int timeColumn = reader.column("time");
    const int titleColumn = reader.column("title");
    const int linkColumn = reader.column("link");
    if (timeColumn < 0 || titleColumn < 0) {
        error = {path, 1, timeColumn < 0 ? "no column time" : "no column title"};
        return false;
    }
    FileReport file;
    file.file = path;
    file.kind = "notices";
    report.files.push_back(file);
    return readRows(reader, report, {}, error, [&](const CsvReader& row) -> const char* {
        auto notice = boost::make_shared<quoter::Notice>();
        if (!parseInteger(row.field(timeColumn), notice->m_time))
            return "time is no number";
        notice->title = row.text(titleColumn);
        if (notice->title.empty())
            return "no title";
        notice->link = row.text(linkColumn);
        notices.append(notice);
        return nullptr;
    });
}

} // namespace feed
