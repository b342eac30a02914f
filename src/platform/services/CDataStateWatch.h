#pragma once

#include "records/DepthExport.h"
#include "records/MetaCacheDataWrapper.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

namespace Kel {

/// How far what is on the screen can be believed.
enum EDataState
{
    eDataEmpty,   ///< no instrument
    eDataLoading, ///< history is on its way
    eDataLive,    ///< complete and current
    eDataGap,     ///< calls are missing and nothing has made up for them: prices may be wrong
    eDataStale,   ///< trading is on and nothing comes: prices may be old
    eDataRebuilt, ///< the ten levels agree with a snapshot after a gap; single orders of the gap are missing
};

/// The channels of a feed, each with its own numbers.
enum EDataChannel
{
    eDataOrders,
    eDataDeals,
    eDataQuotes,
};

/// A hole in the numbers of a channel. Times are milliseconds since 1970-01-01 UTC, 0 where unknown.
struct SDataGap
{
    EDataChannel channel = eDataOrders;
    std::int64_t from = 0;    ///< of the last record of the channel before it
    std::int64_t to = 0;      ///< of the first record of the call that showed it
    std::int64_t missing = 0; ///< calls; 0 if the numbers went back
    bool healed = false;
    bool reloaded = false; ///< healed by a reload of the channel, so that nothing is missing any more
};

/// Watches the feed of one instrument for a host: tells whether the data in view are loading, live, have a
/// gap, have gone stale, or were rebuilt after a gap. It is fed with the same calls as the panels, stands
/// beside them and changes nothing of them.
///
/// Calls of a channel are numbered from 0 on by one. The rules:
///
/// * Empty without an instrument; loading from `setStock` on.
/// * A channel of orders or deals loads from a batch of status 0 or 3 to its next live batch. A live batch of
///   deals ends the load of the orders as well, since a load ends with one. Before anything live came (a
///   live batch, or a depth snapshot of status -1) and as long as a channel loads, the state is loading.
///   `loaded` ends it too, for a feed that falls silent after its history.
/// * A gap opens when the number of a call is not the one that is due. It is due: 0 at first, then one more
///   each time. A batch of status 0 reloads its channel and may have any number; after one of orders or deals
///   the next call of quotes may have any number too.
/// * A gap of orders or deals ends with the next depth snapshot that is not older than the call which showed
///   it: the state is rebuilt from then on. It ends with a reload of its channel, too, and with that the
///   rebuilt state of the channel. A gap of quotes ends with the next depth snapshot or a reload, and leaves
///   nothing behind.
/// * Stale, in a session of trading (`CFormulaManager::getOpenCloseTime`), when no record has come for longer
///   than a limit of feed time. What comes between two calls of `setClock` has come at the second. Time
///   before a session does not count, so nothing is stale in a break, and not at once after it. The next
///   record ends it.
/// * What holds of several: empty before gap, loading, stale, rebuilt, live.
///
/// The feed's callbacks may come on any threads and are short: they take a lock that is never held for long
/// and never while something is sent. Everything else belongs to the thread of the object.
class DEPTH_EXPORT CDataStateWatch : public QObject
{
    Q_OBJECT

public:
    static constexpr std::int64_t kStaleLimitMs = 90000; ///< initial limit, milliseconds of feed time
    static constexpr std::size_t kMostGaps = 256;        ///< that are kept; the oldest go first

    explicit CDataStateWatch(QObject* parent = nullptr);
    ~CDataStateWatch() override;

    /// Begins to watch an instrument ("SH600519"), or the same one anew; forgets everything before, the clock
    /// included. Of an instrument that `CStockManager` does not know no sessions are known, so it is never
    /// stale. An empty key is a `clear`.
    void setStock(const QString& key);

    /// No instrument any more.
    void clear();

    /// The instrument, as it was set.
    QString stock() const;

    /// Feed time that may pass in a session without a record, milliseconds. Below 1 it is refused: false.
    bool setStaleLimit(std::int64_t ms);

    /// The feed has delivered its history, whatever it looked like.
    void loaded();

    /// The time of the feed, replayed or real, milliseconds since 1970-01-01 UTC. It may go back. Without
    /// one nothing is stale.
    void setClock(std::int64_t nowMs);

    /// Compares with what was told last and emits the signals. For a timer of the host, a few times a second,
    /// after `setClock`.
    void check();

    /// As of the last `check`: the state, the feed time at which it began (0 if unknown; of a gap and of a
    /// stale feed that of the last record before it), and the gaps since `setStock`, oldest first.
    EDataState state() const { return m_state; }
    std::int64_t since() const { return m_since; }
    const std::vector<SDataGap>& gaps() const { return m_gaps; }

    /// The feed's calls: key of the instrument, number, status, records. Calls for another instrument are
    /// dropped. A null batch counts as an empty one. Any thread.
    void onEntrustCallback(const QString& key, int seq, int status, const MetaCacheDataWrapperPtr& batch);
    void onTransactionCallback(const QString& key, int seq, int status, const MetaCacheDataWrapperPtr& batch);
    void onQuoterCallback(const QString& key, int seq, int status, const quoter::QuoterBatch& batch);

Q_SIGNALS:
    /// The state is another one, an EDataState. From `check`.
    void sigDataStateChanged(int state);

    /// A gap was found, or one was healed. From `check`, before the state.
    void sigDataGapsChanged();

private:
    struct Watched;

    std::unique_ptr<Watched> m_watched; ///< what the feed's threads write, with its lock
    EDataState m_state = eDataEmpty;
    std::int64_t m_since = 0;
    std::vector<SDataGap> m_gaps;
    std::uint64_t m_gapsTold = 0; ///< how often the list had changed
};

} // namespace Kel
