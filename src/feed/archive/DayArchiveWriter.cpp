#include "feed/archive/DayArchiveWriter.h"

#include "feed/archive/DayArchiveReader.h"
#include "feed/archive/archive_tables.h"
#include "feed/csv/values.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace feed {

namespace fs = std::filesystem;

namespace {

const char* const kTableNames[] = {"orders.csv", "deals.csv", "snapshots.csv", "queues.csv", "ladders.csv"};
const char* const kInstrumentsName = "instruments.csv";
const char* const kPackedSuffix = ".zst";

std::string tableHeader(int table)
{
    switch (table) {
    case 0:
        return kOrdersHeader;
    case 1:
        return kDealsHeader;
    case 2:
        return snapshotsHeader();
    case 3:
        return kQueuesHeader;
    default:
        return kLaddersHeader;
    }
}

bool createFolder(const std::string& folder, Error& error)
{
    std::error_code code;
    fs::create_directories(folder, code);
    if (!code && fs::is_directory(folder, code))
        return true;
    error = {folder, 0, "cannot be created" + (code ? ": " + code.message() : std::string())};
    return false;
}

/// Removes a table that is no part of the archive any more; none there is fine.
bool removeTable(const std::string& path, Error& error)
{
    std::error_code code;
    fs::remove(path, code);
    if (code)
        error = {path, 0, "cannot be replaced: " + code.message()};
    return !code;
}

} // namespace

DayArchiveWriter::DayArchiveWriter(std::string folder, Options options)
    : m_folder(std::move(folder)), m_options(options)
{
}

DayArchiveWriter::DayArchiveWriter(std::string folder) : DayArchiveWriter(std::move(folder), Options()) {}

DayArchiveWriter::~DayArchiveWriter() = default;

bool DayArchiveWriter::beginInstrument(const nelservice::CInstrumentDetail& detail, std::int64_t tradingDay)
{
    if (m_error)
        return false;
    giveUpInstrument();
    if (!isInstrumentKey(detail.market, detail.code))
        return fail({m_folder, 0, "no name for a folder: " + detail.market + detail.code});
    if (!isDate(tradingDay))
        return fail({m_folder, 0, "no trading day: " + std::to_string(tradingDay)});
    Error error;
    if (!createFolder(m_folder, error) || !loadExisting())
        return fail(error);
    for (const ArchivedInstrument& other : m_instruments) {
        if (other.tradingDay != tradingDay)
            return fail({m_folder, 0, "holds another day: " + std::to_string(other.tradingDay)});
    }
    m_current = std::make_unique<ArchivedInstrument>();
    m_current->detail = detail;
    m_current->tradingDay = tradingDay;
    m_instrumentFolder = m_folder + "/" + m_current->key();
    if (!createFolder(m_instrumentFolder, error))
        return fail(error);
    m_inInstrument = true;
    return true;
}

template <class Row>
void DayArchiveWriter::append(Table table, const Row& row)
{
    if (m_error || !m_inInstrument)
        return;
    TableFile& file = m_tables[table];
    if (!file.isOpen() && !openTable(table))
        return;
    if (!isWritable(row)) {
        fail({file.path(), 0, "a row has a price that is not finite"});
        return;
    }
    appendLine(file.text(), row);
    if (!file.flushIfLarge())
        fail(file.error());
}

void DayArchiveWriter::onOrder(const OrderRow& row)
{
    append(Orders, row);
}

void DayArchiveWriter::onDeal(const DealRow& row)
{
    append(Deals, row);
}

void DayArchiveWriter::onSnapshot(const SnapshotRow& row)
{
    append(Snapshots, row);
}

void DayArchiveWriter::onQueue(const QueueRow& row)
{
    append(Queues, row);
}

void DayArchiveWriter::onLadder(const LadderRow& row)
{
    append(Ladders, row);
}

bool DayArchiveWriter::finishInstrument()
{
    if (m_error || !m_inInstrument)
        return false;
    bool written[TableCount] = {};
    for (int table = 0; table < TableCount; ++table) {
        TableFile& file = m_tables[table];
        written[table] = file.isOpen();
        if (written[table] && !file.complete())
            return fail(file.error());
    }
    for (int table = 0; table < TableCount; ++table) {
        TableFile& file = m_tables[table];
        if (written[table] && !file.commit())
            return fail(file.error());
        // What an earlier writing left in the other form, or of a kind that this day has not, is no part of
        // it.
        const std::string plain = m_instrumentFolder + "/" + kTableNames[table];
        Error error;
        if (((!written[table] || m_options.compress) && !removeTable(plain, error)) ||
            ((!written[table] || !m_options.compress) && !removeTable(plain + kPackedSuffix, error)))
            return fail(error);
    }
    const auto same = [&](const ArchivedInstrument& other) { return other.key() == m_current->key(); };
    m_instruments.erase(std::remove_if(m_instruments.begin(), m_instruments.end(), same),
                        m_instruments.end());
    m_instruments.push_back(*m_current);
    m_inInstrument = false;
    return true;
}

bool DayArchiveWriter::finish()
{
    giveUpInstrument();
    Error error;
    if (m_error || !createFolder(m_folder, error) || !loadExisting())
        return fail(error);
    const std::string plain = m_folder + "/" + kInstrumentsName;
    TableFile file;
    if (!file.open(plain, false))
        return fail(file.error());
    file.text() = std::string(kInstrumentsHeader) + "\n";
    for (const ArchivedInstrument& instrument : m_instruments)
        appendLine(file.text(), instrument);
    if (!file.commit())
        return fail(file.error());
    return removeTable(plain + kPackedSuffix, error) || fail(error);
}

bool DayArchiveWriter::write(const InstrumentDay& day)
{
    if (!beginInstrument(day.detail, day.tradingDay))
        return false;
    for (const OrderRow& row : day.orders)
        onOrder(row);
    for (const DealRow& row : day.deals)
        onDeal(row);
    for (const SnapshotRow& row : day.snapshots)
        onSnapshot(row);
    for (const QueueRow& row : day.queues)
        onQueue(row);
    for (const LadderRow& row : day.ladders)
        onLadder(row);
    return finishInstrument();
}

bool DayArchiveWriter::openTable(Table table)
{
    const std::string path =
        m_instrumentFolder + "/" + kTableNames[table] + (m_options.compress ? kPackedSuffix : "");
    TableFile& file = m_tables[table];
    if (!file.open(path, m_options.compress))
        return fail(file.error());
    file.text() = tableHeader(table) + "\n";
    return true;
}

bool DayArchiveWriter::fail(const Error& error)
{
    if (!m_error && error)
        m_error = error;
    giveUpInstrument();
    return false;
}

bool DayArchiveWriter::loadExisting()
{
    if (m_existingLoaded)
        return true;
    const std::string plain = m_folder + "/" + kInstrumentsName;
    std::error_code code;
    if (fs::exists(plain, code) || fs::exists(plain + kPackedSuffix, code)) {
        const DayArchiveReader existing(m_folder);
        if (existing.error())
            return fail(existing.error());
        if (existing.report().rejects.count() > 0) {
            const Reject& first = existing.report().rejects.listed().front();
            return fail({first.file, first.line, "cannot be kept: " + first.reason});
        }
        m_instruments = existing.instruments();
    }
    m_existingLoaded = true;
    return true;
}

void DayArchiveWriter::giveUpInstrument()
{
    for (TableFile& file : m_tables)
        file.discard();
    m_inInstrument = false;
}

} // namespace feed
