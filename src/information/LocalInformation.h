#pragma once

#include "information/LocalFileParser.h"

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

#include <boost/function.hpp>
#include <boost/thread/mutex.hpp>
#include <boost/thread/shared_mutex.hpp>

#include <atomic>
#include <cstddef>
#include <memory>

namespace Kel {

/// A file as the page of local information shows it: rows by date, newest first. Never changed after it was
/// made.
struct LocalTable
{
    QString key; ///< the instrument's name, "_", and the file's name up to its first point
    QStringList headers;
    QVector<LocalRow> rows;
    bool isCut = false; ///< the file has more, which was not read
};

using LocalTables = QVector<LocalTable>;
using LocalTablesPtr = std::shared_ptr<const LocalTables>;

/// What was read of the local information files of a panel. The panel and its reader threads share it, so
/// that a reader may outlive the panel. Any thread may call anything.
class LocalInformation
{
public:
    static constexpr qint64 kMostFileBytes = qint64(1) << 30;

    /// `budget`: bytes of memory, about, that the maps and the files being read may take together, see
    /// `LocalFileParser`; what the maps hold counts until `clear`. `mostFileBytes`: a file's end beyond them
    /// is not read.
    explicit LocalInformation(std::size_t budget = LocalFileParser::kUsualBudget,
                              qint64 mostFileBytes = kMostFileBytes)
        : m_mostFileBytes(mostFileBytes), m_budget(budget)
    {
    }

    /// Frees what was read on the strand "data_release".
    ~LocalInformation();

    /// Hears on the reader's thread what was read of an instrument.
    using Listener = boost::function<void(const QString& code, const LocalTablesPtr& tables)>;

    /// An empty listener ends it: when this returns nobody is in the one before.
    void setListener(Listener listener);

    /// Reads the files of an instrument into the maps, each file as a whole, then tells the listener what
    /// this reading has found, unless the maps were cleared meanwhile. A file that cannot be opened or for
    /// which there is no memory is passed over; where the budget ends the reading ends, which is logged. An
    /// unknown instrument, a missing directory and no root of local files give nothing.
    void read(const QString& code);

    /// Nobody wants what is read any more: readings that run stop soon, and tell nobody.
    void end();

    /// Empties both maps. What they held is freed on the strand "data_release". Readings that run still write
    /// what they find, and tell nobody.
    void clear();

    /// Readings that were asked for.
    std::atomic<int> requestCount{0};

    mutable boost::shared_mutex localLock;   ///< guards the two below
    QMap<QString, LocalRows> localValues;    ///< by file key and date
    QMap<QString, QStringList> localHeaders; ///< column titles by file key

private:
    /// What one reading has found. The maps may hold it twice, after an earlier reading of the same files
    /// that was late; who shows it must not.
    struct Reading
    {
        int number;
        QMap<QString, LocalRows> values;
        QMap<QString, QStringList> headers;
        QSet<QString> cutKeys; ///< of files with more than was read
    };

    void readDirectory(const QString& directory, const QString& name, Reading& reading);
    bool readFile(const QString& path, const QString& key, Reading& reading);
    bool isEnding() const;
    bool isWanted(const Reading& reading) const { return reading.number == m_clears; }
    void merge(const QString& key, LocalFileParser& parsed, Reading& reading);
    static LocalTablesPtr tablesOf(const Reading& reading);
    void tell(const QString& code, const Reading& reading);

    const qint64 m_mostFileBytes;
    MemoryBudget m_budget;
    std::size_t m_held = 0; ///< bytes of the budget that the maps hold; guarded by `localLock`
    std::atomic<int> m_clears{0};
    std::atomic<bool> m_isEnding{false};
    boost::mutex m_listenerMutex; ///< guards the listener and is held while it is called
    Listener m_listener;
};

/// Where the files of an instrument stand; empty without a root of local files.
QString localInformationDirectory(const std::string& market, const std::string& code);

/// The key of a file of an instrument with this name.
QString localFileKey(const QString& instrumentName, const QString& fileName);

} // namespace Kel
