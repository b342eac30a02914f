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
constexpr qint64 kMostFileBytes = qint64(1) << 30; // a file's end beyond them is not read
const QString kFolder = QStringLiteral("/localinformation/");

using Values = QMap<QString, LocalRows>;
using Headers = QMap<QString, QStringList>;

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

void LocalInformation::tell(const QString& code, const LocalTablesPtr& tables)
{
    boost::lock_guard<boost::mutex> lock(m_listenerMutex);
    if (m_listener)
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
    readDirectory(directory, name);
    if (isEnding())
        return;
    DEPTH_LOG(utils::kLogInfo, "CInformationWidget",
              boost::format("%1% code : %2% readinformation use time %3%") %
                  "Kel::CInformationWidget::readLocalInformation" % code.toStdString() %
                  (utils::clockMSec() - start));
    tell(code, tablesOf(name));
}

void LocalInformation::readDirectory(const QString& directory, const QString& name)
{
    const QFileInfoList files = QDir(directory).entryInfoList(QDir::Files | QDir::NoSymLinks | QDir::Hidden,
                                                              QDir::Size | QDir::Reversed);
    std::size_t left = m_budget;
    for (const QFileInfo& file : files) {
        if (isEnding() || left == 0)
            return;
        try {
            left -= readFile(file.filePath(), localFileKey(name, file.fileName()), left);
        } catch (const std::bad_alloc&) {
            DEPTH_LOG(utils::kLogError, "CInformationWidget",
                      boost::format("no memory for local information: %1%") % file.filePath().toStdString());
        }
    }
}

/// What the file took of the budget: all of it if that ended before the file.
std::size_t LocalInformation::readFile(const QString& path, const QString& key, std::size_t budget)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    // Not beyond the size it has now: a file may grow as fast as it is read.
    qint64 left = std::min(file.size(), kMostFileBytes);
    LocalFileParser parser(budget);
    std::vector<char> piece(static_cast<std::size_t>(std::min(left, kPieceBytes)));
    while (left > 0 && !parser.isFull()) {
        if (isEnding())
            return 0;
        const qint64 size = file.read(piece.data(), std::min(left, kPieceBytes));
        if (size <= 0)
            break;
        parser.feed(piece.data(), static_cast<std::size_t>(size));
        left -= size;
    }
    parser.finish();
    if (parser.hasHeader())
        merge(key, parser);
    if (!parser.isFull())
        return parser.cost();
    DEPTH_LOG(utils::kLogError, "CInformationWidget",
              boost::format("local information is too large, cut at: %1%") % path.toStdString());
    return budget;
}

/// Under the lock for the whole file, so that nobody sees half of it; the parsing is done by then, so that
/// nobody waits for it.
void LocalInformation::merge(const QString& key, LocalFileParser& parsed)
{
    boost::lock_guard<boost::shared_mutex> lock(localLock);
    localHeaders[key].append(parsed.headers());
    if (parsed.rows().isEmpty())
        return;
    LocalRows& values = localValues[key];
    if (values.isEmpty()) {
        values.swap(parsed.rows());
        return;
    }
    for (auto date = parsed.rows().begin(); date != parsed.rows().end(); ++date)
        values[date.key()] += date.value();
}

void LocalInformation::clear()
{
    auto values = std::make_shared<Values>();
    auto headers = std::make_shared<Headers>();
    {
        boost::lock_guard<boost::shared_mutex> lock(localLock);
        localValues.swap(*values);
        localHeaders.swap(*headers);
    }
    if (values->isEmpty() && headers->isEmpty())
        return;
    net::RPCEngine::getStrand("data_release")
        ->post([values = std::move(values), headers = std::move(headers)]() mutable {
            values.reset();
            headers.reset();
        });
}

LocalTablesPtr LocalInformation::tablesOf(const QString& name) const
{
    auto tables = newTables();
    Headers headers;
    Values values;
    {
        boost::shared_lock<boost::shared_mutex> lock(localLock);
        headers = localHeaders;
        values = localValues;
    }
    for (auto header = headers.cbegin(); header != headers.cend(); ++header) {
        if (!header.key().startsWith(name + QLatin1Char('_')))
            continue;
        LocalTable table{header.key(), header.value(), {}};
        const LocalRows rows = values.value(header.key());
        for (auto date = rows.cend(); date != rows.cbegin();)
            table.rows += (--date).value();
        tables->append(std::move(table));
    }
    return tables;
}

} // namespace Kel
