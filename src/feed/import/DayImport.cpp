#include "feed/import/DayImport.h"

#include "feed/csv/read_rows.h"
#include "feed/csv/values.h"
#include "feed/import/SnapshotColumns.h"
#include "feed/import/assembling.h"
#include "feed/import/tick_lines.h"
#include "platform/utils/code_ranges.h"
#include "platform/utils/exchange_time.h"
#include "platform/utils/market_predicates.h"

#include <algorithm>

namespace feed {

namespace {

constexpr std::size_t kCodeDigits = 6;

bool isDigits(std::string_view text)
{
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Splits "000001.SZ". A code that lost its leading zeros in a spreadsheet gets them back.
bool splitCode(std::string_view cell, std::string& market, std::string& code)
{
    const std::size_t dot = cell.find('.');
    std::string_view digits = cell.substr(0, dot);
    if (!isDigits(digits) || digits.size() > kCodeDigits)
        return false;
    if (dot != std::string_view::npos) {
        const std::string_view suffix = cell.substr(dot + 1);
        if (suffix == "SZ" || suffix == "sz" || suffix == "XSHE")
            market = "SZ";
        else if (suffix == "SH" || suffix == "sh" || suffix == "SS" || suffix == "XSHG")
            market = "SH";
        else
            return false;
    }
    code = std::string(kCodeDigits - digits.size(), '0').append(digits);
    return true;
}

/// The part of a path between its last two slashes: the folder that a file stands in.
std::string folderName(const std::string& path)
{
    const std::size_t end = path.find_last_of('/');
    if (end == std::string::npos || end == 0)
        return {};
    const std::size_t begin = path.find_last_of('/', end - 1);
    return path.substr(begin == std::string::npos ? 0 : begin + 1,
                       end - (begin == std::string::npos ? 0 : begin + 1));
}

/// The instrument that a folder is named after: "000001.SZ", or "000001-20230201" and "000001_20230201". The
/// market stays empty if the name does not tell it.
bool instrumentOfFolder(const std::string& folder, std::string& market, std::string& code)
{
    if (folder.find('.') != std::string::npos)
        return splitCode(folder, market, code);
    if (folder.size() != kCodeDigits + 9 || (folder[kCodeDigits] != '-' && folder[kCodeDigits] != '_'))
        return false;
    std::int32_t date = 0;
    return parseDateCell(std::string_view(folder).substr(kCodeDigits + 1), date) &&
           splitCode(std::string_view(folder).substr(0, kCodeDigits), market, code);
}

/// The exchange whose code ranges hold the code; of codes that both have or neither, by what is usual.
std::string marketOfCode(const std::string& code)
{
    const bool shanghai = utils::codeKind("SH", code) != utils::ECodeKind::None;
    const bool shenzhen = utils::codeKind("SZ", code) != utils::ECodeKind::None;
    if (shanghai != shenzhen)
        return shanghai ? "SH" : "SZ";
    return code.front() == '6' || code.front() == '5' || code.front() == '9' ? "SH" : "SZ";
}

double tickOf(const nelservice::CInstrumentDetail& detail)
{
    using nelservice::EInstrumentKind;
    // B shares: Shanghai's are traded in dollars, Shenzhen's in Hong Kong dollars.
    if (detail.market == "SH" &&
        utils::codeKind(detail.market, detail.code) == utils::ECodeKind::ForeignStock)
        return 0.001;
    switch (detail.kind) {
    case EInstrumentKind::Fund:
    case EInstrumentKind::Bond:
    case EInstrumentKind::ConvertibleBond:
        return 0.001;
    case EInstrumentKind::Repurchase:
        return detail.market == "SH" ? 0.005 : 0.001;
    default:
        return 0.01;
    }
}

} // namespace

std::int64_t dayInPath(const std::string& path)
{
    std::int64_t day = 0;
    for (std::size_t at = 0; at < path.size();) {
        std::size_t end = at;
        while (end < path.size() && path[end] >= '0' && path[end] <= '9')
            ++end;
        std::int32_t date = 0;
        if (end - at == 8 && parseDateCell(std::string_view(path).substr(at, 8), date))
            day = date;
        at = std::max(end, at + 1);
    }
    return day;
}

DayImport::DayImport(const ImportOptions& options) : m_options(options)
{
    m_lines.tradingDay = options.tradingDay;
}

bool DayImport::readTable(std::unique_ptr<ByteSource> source, const std::string& name, bool expected)
{
    CsvReader reader(std::move(source), name);
    Error error;
    std::string missing;
    const FileKind* const kind =
        reader.readHeader(error) ? kindOf(reader, m_options.layout, missing) : nullptr;
    if (kind == nullptr) {
        if (!missing.empty())
            error = {name, 1, "has no column " + missing};
        else if (!error)
            error = {name, 1, "is no table of a known layout"};
        // A table that cannot be read is not known to be a foreign one.
        if (expected || !missing.empty() || !reader.failure().empty()) {
            m_result.error = error;
            return false;
        }
        m_result.report.ignoredFiles.push_back(name);
        return true;
    }
    FileReport file;
    file.file = name;
    file.kind = kind->name;
    m_result.report.files.push_back(file);
    m_folder = {};
    if (!instrumentOfFolder(folderName(name), m_folder.market, m_folder.code))
        m_folder = {};
    m_lastCell.clear();
    m_lastMarket.clear();
    m_lastLines = nullptr;
    m_lastFault = nullptr;

    const FieldColumns columns = columnsOf(*kind, reader);
    std::unique_ptr<SnapshotColumns> snapshots;
    if (kind->style == LineStyle::Snapshots)
        snapshots = std::make_unique<SnapshotColumns>(*kind, reader);
    Progress progress;
    if (m_options.progress) {
        progress = [this](std::int64_t done, std::int64_t) {
            return m_options.progress(m_bytesBefore + done, m_bytesTotal);
        };
    }
    const bool read = readRows(reader, m_result.report, progress, m_result.error, [&](const CsvReader& row) {
        return readLine(*kind, columns, snapshots.get(), row);
    });
    m_bytesBefore += reader.bytesDone();
    return read;
}

const char* DayImport::instrumentOf(const FileKind& kind, const FieldColumns& columns, const CsvReader& row)
{
    const std::string_view cell = row.field(columns[static_cast<std::size_t>(Field::Code)]);
    if (!m_lastMarket.empty() && cell == m_lastCell)
        return m_lastFault;
    m_lastCell = cell;
    m_lastLines = nullptr;
    m_lastMarket = m_folder.market.empty() ? kind.market : m_folder.market;
    std::string market = m_lastMarket;
    std::string code = m_folder.code;
    m_lastFault = "bad instrument code";
    if (!(cell.empty() && !code.empty()) && !splitCode(cell, market, code)) {
        m_lastMarket.clear();
        return m_lastFault;
    }
    if (market.empty()) {
        // A folder whose name tells nothing and codes without a market.
        market = marketOfCode(code);
    }
    m_lastMarket = market;
    m_lastFault = nullptr;
    const bool sameMarket = m_folder.market.empty() || market == m_folder.market;
    if (!m_folder.code.empty() && (!sameMarket || code != m_folder.code))
        m_lastFault = "instrument of another folder";
    else if (kind.market[0] != '\0' && kind.style != LineStyle::Snapshots && market != kind.market)
        m_lastFault = "instrument of another market";
    else if (!m_options.codes.empty() &&
             std::find(m_options.codes.begin(), m_options.codes.end(), code) == m_options.codes.end())
        m_lastFault = kSkippedLine;
    if (m_lastFault != nullptr)
        return m_lastFault;
    InstrumentLines& lines = m_lines.instruments[{market, code}];
    lines.detail.market = market;
    lines.detail.code = code;
    if (lines.detail.name.empty())
        lines.detail.name = row.text(columns[static_cast<std::size_t>(Field::Name)]);
    m_lastLines = &lines;
    return nullptr;
}

const char* DayImport::timeOf(const FileKind& kind, const FieldColumns& columns, const CsvReader& row,
                              std::int64_t& msOfDay)
{
    TimeCell time;
    if (!parseTimeCell(row.field(columns[static_cast<std::size_t>(Field::Time)]), kind.digits, time) ||
        time.msOfDay < 0)
        return "bad time";
    const std::string_view dateCell = row.field(columns[static_cast<std::size_t>(Field::Date)]);
    std::int32_t date = time.date;
    if (date == 0 && !dateCell.empty() && !parseDateCell(dateCell, date))
        return "bad date";
    if (date != 0) {
        if (m_lines.tradingDay == 0)
            m_lines.tradingDay = date;
        if (m_lines.tradingDay != date)
            return "another day";
    }
    msOfDay = time.msOfDay;
    return nullptr;
}

const char* DayImport::readLine(const FileKind& kind, const FieldColumns& columns,
                                const SnapshotColumns* snapshots, const CsvReader& row)
{
    if (const char* const fault = instrumentOf(kind, columns, row))
        return fault;
    std::int64_t msOfDay = 0;
    if (const char* const fault = timeOf(kind, columns, row, msOfDay))
        return fault;
    InstrumentLines& lines = *m_lastLines;
    if (snapshots == nullptr) {
        TickLine tick;
        tick.msOfDay = msOfDay;
        tick.line = row.lineNumber();
        tick.file = static_cast<std::uint32_t>(m_result.report.files.size() - 1);
        const char* const fault = readTickLine(kind, columns, m_lastMarket, row, tick);
        if (fault == nullptr)
            lines.ticks.push_back(tick);
        return fault;
    }
    SnapshotRow snapshot;
    QueueRow queue;
    if (const char* const fault = snapshots->read(row, msOfDay, snapshot, queue))
        return fault;
    snapshot.time = msOfDay;
    queue.time = msOfDay;
    if (lines.detail.previousClose <= 0)
        lines.detail.previousClose = snapshot.previousClose;
    if (lines.detail.upperLimit <= 0)
        snapshots->limits(row, lines.detail.upperLimit, lines.detail.lowerLimit);
    lines.snapshots.push_back(snapshot);
    // In an auction there is no queue to publish.
    if (snapshot.phase == Phase::Continuous && !(queue.bidVolumes.empty() && queue.askVolumes.empty()))
        lines.queues.push_back(std::move(queue));
    return nullptr;
}

bool DayImport::assemble(const std::string& pathForDay)
{
    if (m_result.report.files.empty()) {
        m_result.error = {pathForDay, 0, "has no table of a known layout"};
        return false;
    }
    std::int64_t day = m_lines.tradingDay != 0 ? m_lines.tradingDay : dayInPath(pathForDay);
    if (day == 0 && m_lines.instruments.empty())
        day = 19700101; // nothing to put on a day; the rejected lines tell why
    if (!isDate(day)) {
        m_result.error = {pathForDay, 0, "trading day unknown: neither rows nor path nor options tell it"};
        return false;
    }
    const std::int64_t dayStart = utils::exchangeTime(static_cast<int>(day), 0, 0, 0, 0);
    for (auto& [key, lines] : m_lines.instruments) {
        if (lines.ticks.empty() && lines.snapshots.empty())
            continue;
        InstrumentDay result;
        result.detail = lines.detail;
        result.detail.kind = utils::instrumentKind(key.first, key.second);
        result.detail.priceTick = tickOf(result.detail);
        result.tradingDay = day;
        if (key.first == "SH")
            assembleShanghai(lines, dayStart, result, m_result.report);
        else
            assembleShenzhen(lines, dayStart, result, m_result.report);
        std::vector<TickLine>().swap(lines.ticks);
        assembleSnapshots(lines, dayStart, result);
        m_result.days.push_back(std::move(result));
    }
    m_result.error = m_result.report.tooManyRejects(m_options.mostRejected);
    return !m_result.error;
}

ImportResult DayImport::finish(const std::string& pathForDay)
{
    if (m_result.error || !assemble(pathForDay))
        m_result.days.clear();
    return std::move(m_result);
}

} // namespace feed
