#include "feed/archive/DayArchiveReader.h"

#include <filesystem>
#include <system_error>

namespace feed {

namespace fs = std::filesystem;

namespace {

/// The table's path, plain or compressed; empty if there is neither.
std::string existing(const std::string& path)
{
    std::error_code code;
    for (const char* const suffix : {"", ".zst"}) {
        if (fs::exists(path + suffix, code))
            return path + suffix;
    }
    return {};
}

std::int64_t sizeOf(const std::string& path)
{
    std::error_code code;
    const std::uintmax_t size = path.empty() ? 0 : fs::file_size(path, code);
    return code ? 0 : static_cast<std::int64_t>(size);
}

template <class Row>
bool readWhole(std::unique_ptr<ByteSource> source, const std::string& name, std::vector<Row>& rows,
               ImportReport& report, const Progress& progress, Error& error)
{
    FileReport file;
    file.file = name;
    file.kind = "archive";
    report.files.push_back(file);
    CsvReader reader(std::move(source), name);
    return reader.readHeader(error) && readTable(reader, rows, report, progress, error);
}

} // namespace

DayArchiveReader::DayArchiveReader(std::string folder, Options options)
    : m_folder(std::move(folder)), m_options(std::move(options))
{
    const std::string path = existing(m_folder + "/instruments.csv");
    if (path.empty()) {
        m_error = {m_folder, 0, "is no day archive: has no instruments.csv"};
        return;
    }
    std::unique_ptr<ByteSource> source = openFile(path, m_error);
    if (source != nullptr && readWhole(std::move(source), path, m_instruments, m_report, {}, m_error))
        m_error = m_report.tooManyRejects(m_options.mostRejected);
}

DayArchiveReader::DayArchiveReader(std::string folder) : DayArchiveReader(std::move(folder), Options()) {}

template <class Row>
bool DayArchiveReader::loadTable(const std::string& path, std::vector<Row>& rows, Error& error)
{
    if (path.empty())
        return true;
    std::unique_ptr<ByteSource> source = openFile(path, error);
    if (source == nullptr)
        return false;
    Progress progress;
    if (m_options.progress) {
        progress = [this](std::int64_t done, std::int64_t) {
            return m_options.progress(m_bytesBefore + done, m_bytesAll);
        };
    }
    const std::size_t firstFile = m_report.files.size();
    if (!readWhole(std::move(source), path, rows, m_report, progress, error))
        return false;
    m_bytesBefore += sizeOf(path);
    ImportReport only;
    only.files.assign(m_report.files.begin() + static_cast<std::ptrdiff_t>(firstFile), m_report.files.end());
    only.rejects = m_report.rejects;
    error = only.tooManyRejects(m_options.mostRejected);
    return !error;
}

bool DayArchiveReader::load(const std::string& key, InstrumentDay& day, Error& error)
{
    day = InstrumentDay();
    if (m_error) {
        error = m_error;
        return false;
    }
    const ArchivedInstrument* found = nullptr;
    for (const ArchivedInstrument& instrument : m_instruments) {
        if (instrument.key() == key)
            found = &instrument;
    }
    if (found == nullptr) {
        error = {m_folder, 0, "has no instrument " + key};
        return false;
    }
    day.detail = found->detail;
    day.tradingDay = found->tradingDay;
    const std::string folder = m_folder + "/" + key + "/";
    const std::string orders = existing(folder + "orders.csv");
    const std::string deals = existing(folder + "deals.csv");
    const std::string snapshots = existing(folder + "snapshots.csv");
    const std::string queues = existing(folder + "queues.csv");
    const bool takesLadders = m_options.ladders == Ladders::Always ||
                              (m_options.ladders == Ladders::WithoutOrders && orders.empty());
    const std::string ladders = takesLadders ? existing(folder + "ladders.csv") : std::string();
    m_bytesBefore = 0;
    m_bytesAll = sizeOf(orders) + sizeOf(deals) + sizeOf(snapshots) + sizeOf(queues) + sizeOf(ladders);
    return loadTable(orders, day.orders, error) && loadTable(deals, day.deals, error) &&
           loadTable(snapshots, day.snapshots, error) && loadTable(queues, day.queues, error) &&
           loadTable(ladders, day.ladders, error);
}

bool readArchiveTable(std::string_view table, std::string_view bytes, InstrumentDay& day,
                      ImportReport& report, Error& error)
{
    const std::string name(table);
    std::unique_ptr<ByteSource> source = openMemory(bytes);
    if (table == "orders")
        return readWhole(std::move(source), name, day.orders, report, {}, error);
    if (table == "deals")
        return readWhole(std::move(source), name, day.deals, report, {}, error);
    if (table == "snapshots")
        return readWhole(std::move(source), name, day.snapshots, report, {}, error);
    if (table == "queues")
        return readWhole(std::move(source), name, day.queues, report, {}, error);
    if (table == "ladders")
        return readWhole(std::move(source), name, day.ladders, report, {}, error);
    std::vector<ArchivedInstrument> instruments;
    if (table != "instruments") {
        error = {name, 0, "no table of an archive"};
        return false;
    }
    if (!readWhole(std::move(source), name, instruments, report, {}, error))
        return false;
    if (!instruments.empty()) {
        day.detail = instruments.back().detail;
        day.tradingDay = instruments.back().tradingDay;
    }
    return true;
}

} // namespace feed
