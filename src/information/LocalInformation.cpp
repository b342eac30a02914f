#include "information/LocalInformation.h"

#include "information/ReaderThreads.h"
#include "platform/services/CStockManager.h"
#include "platform/services/RPCEngine.h"
#include "platform/services/external_data.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/Log.h"
#include "platform/utils/exchange_time.h"

#include <QDir>
#include <QFile>

#include <boost/thread/lock_guard.hpp>
#include <boost/thread/locks.hpp>

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

namespace Kel {

namespace {

constexpr qint64 kPieceBytes = 1 << 20;
const QString kFolder = QStringLiteral("/localinformation/");

using Values = QMap<QString, LocalRows>;
using Headers = QMap<QString, QStringList>;

/// Puts the titles and rows of a file behind those of the same key.
void addFile(Headers& headers, Values& values, const QString& key, const QStringList& titles,
             const LocalRows& rows)
{
    headers[key].append(titles);
    if (rows.isEmpty())
        return;
    LocalRows& all = values[key];
    if (all.isEmpty()) {
        all = rows;
        return;
    }
    for (auto date = rows.cbegin(); date != rows.cend(); ++date)
        all[date.key()] += date.value();
}

/// Tables that are freed on the strand "data_release", whoever was the last to look at them: millions of rows
/// take their time.
std::shared_ptr<LocalTables> newTables()
{
    return std::shared_ptr<LocalTables>(new LocalTables, [](LocalTables* tables) {
        try {
            net::RPCEngine::getStrand("data_release")->post([tables] { delete tables; });
        } catch (const std::bad_alloc&) {
            delete tables;
        }
    });
}

} // namespace

QString localInformationDirectory(const std::string& market, const std::string& code)
{
    const QString root = getExternalDataDir();
    if (root.isEmpty())
        return QString();
    return root + kFolder + QString::fromStdString(market) + QLatin1Char('/') + QString::fromStdString(code);
}

QString localFileKey(const QString& instrumentName, const QString& fileName)
{
    return instrumentName + QLatin1Char('_') + fileName.section(QLatin1Char('.'), 0, 0);
}

LocalInformation::~LocalInformation()
{
    try {
        clear();
    } catch (const std::bad_alloc&) {
        // Without memory to hand it over it is freed here.
    }
}

void LocalInformation::end()
{
    m_isEnding.store(true, std::memory_order_relaxed);
    setListener({});
}

bool LocalInformation::isEnding() const
{
    return m_isEnding.load(std::memory_order_relaxed) || ReaderThreads::isEnding();
}

void LocalInformation::setListener(Listener listener)
{
    boost::lock_guard<boost::mutex> lock(m_listenerMutex);
    m_listener = std::move(listener);
}

/// A reading that began before the maps were cleared last belongs to a former choice of its instrument.
void LocalInformation::tell(const QString& code, const Reading& reading)
{
    if (!isWanted(reading))
        return;
    const LocalTablesPtr tables = tablesOf(reading);
    boost::lock_guard<boost::mutex> lock(m_listenerMutex);
    if (m_listener && isWanted(reading))
        m_listener(code, tables);
}

void LocalInformation::read(const QString& code)
{
    const std::int64_t start = utils::clockMSec();
    const auto instrument = utils::CSingletonT<CStockManager>::instance().getInstrumentDetail(code);
    if (!instrument)
        return;
    const QString directory = localInformationDirectory(instrument->market, instrument->code);
    if (directory.isEmpty() || !QDir(directory).exists())
        return;
    const QString name = QString::fromStdString(instrument->name);
    Reading reading{m_clears, {}, {}, {}};
    readDirectory(directory, name, reading);
    if (isEnding())
        return;
    DEPTH_LOG(utils::kLogInfo, "CInformationWidget",
              boost::format("%1% code : %2% readinformation use time %3%") %
                  "Kel::CInformationWidget::readLocalInformation" % code.toStdString() %
                  (utils::clockMSec() - start));
    tell(code, reading);
}

void LocalInformation::readDirectory(const QString& directory, const QString& name, Reading& reading)
{
    const QFileInfoList files = QDir(directory).entryInfoList(QDir::Files | QDir::NoSymLinks | QDir::Hidden,
                                                              QDir::Size | QDir::Reversed);
    for (const QFileInfo& file : files) {
        try {
            if (!readFile(file.filePath(), localFileKey(name, file.fileName()), reading))
                return;
        } catch (const std::bad_alloc&) {
            DEPTH_LOG(utils::kLogError, "CInformationWidget",
                      boost::format("no memory for local information: %1%") % file.filePath().toStdString());
        }
    }
}

/// False if no other file is to be read.
bool LocalInformation::readFile(const QString& path, const QString& key, Reading& reading)
{
    if (isEnding())
        return false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return true;
    // Not beyond the size it has now: a file may grow as fast as it is read.
    const qint64 whole = file.size();
    qint64 left = std::min(whole, m_mostFileBytes);
    LocalFileParser parser(m_budget);
    std::vector<char> piece(static_cast<std::size_t>(std::min(left, kPieceBytes)));
    while (left > 0 && !parser.isFull()) {
        if (isEnding())
            return false;
        const qint64 size = file.read(piece.data(), std::min(left, kPieceBytes));
        if (size <= 0)
            break;
        parser.feed(piece.data(), static_cast<std::size_t>(size));
        left -= size;
    }
    parser.finish();
    const bool isFull = parser.isFull();
    if (isFull || whole > m_mostFileBytes) {
        reading.cutKeys.insert(key);
        DEPTH_LOG(utils::kLogError, "CInformationWidget",
                  boost::format("local information is too large, cut at: %1%") % path.toStdString());
    }
    if (parser.hasHeader())
        merge(key, parser, reading);
    return !isFull;
}

/// Under the lock for the whole file, so that nobody sees half of it; the parsing is done by then, so that
/// nobody waits for it.
void LocalInformation::merge(const QString& key, LocalFileParser& parsed, Reading& reading)
{
    if (isWanted(reading))
        addFile(reading.headers, reading.values, key, parsed.headers(), parsed.rows());
    else
        reading.values.clear(); // nobody hears of it
    boost::lock_guard<boost::shared_mutex> lock(localLock);
    m_held += parsed.keepCost();
    addFile(localHeaders, localValues, key, parsed.headers(), parsed.rows());
}

void LocalInformation::clear()
{
    auto values = std::make_shared<Values>();
    auto headers = std::make_shared<Headers>();
    {
        boost::lock_guard<boost::shared_mutex> lock(localLock);
        ++m_clears;
        localValues.swap(*values);
        localHeaders.swap(*headers);
        m_budget.give(std::exchange(m_held, 0));
    }
    if (values->isEmpty() && headers->isEmpty())
        return;
    net::RPCEngine::getStrand("data_release")
        ->post([values = std::move(values), headers = std::move(headers)]() mutable {
            values.reset();
            headers.reset();
        });
}

LocalTablesPtr LocalInformation::tablesOf(const Reading& reading)
{
    auto tables = newTables();
    for (auto header = reading.headers.cbegin(); header != reading.headers.cend(); ++header) {
        LocalTable table{header.key(), header.value(), {}, reading.cutKeys.contains(header.key())};
        const LocalRows rows = reading.values.value(header.key());
        for (auto date = rows.cend(); date != rows.cbegin();)
            table.rows += (--date).value();
        tables->append(std::move(table));
    }
    return tables;
}

} // namespace Kel
