#pragma once

#include "platform/utils/AtomicSharedPtr.h"
#include "platform/utils/RowMutex.h"
#include "queue_engine/EngineGate.h"
#include "queue_engine/LevelShortcut.h"
#include "queue_engine/OrderIndex.h"
#include "queue_engine/OrderMaps.h"
#include "records/CInstrumentDetail.h"
#include "records/DepthExport.h"
#include "records/LevelOrderData.h"
#include "records/MetaCacheDataWrapper.h"
#include "records/OrderData.h"
#include "records/OrderQueueData.h"
#include "records/QuoterDepthData.h"
#include "records/TransactionData.h"

#include <boost/asio/io_service.hpp>
#include <boost/asio/io_service_strand.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/thread/recursive_mutex.hpp>

#include <QMap>
#include <QMutex>
#include <QObject>
#include <QString>
#include <QTimer>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace Kel {

/// Kind of `m_dealCache` that holds cancelled lots; kinds 1 and 2 are the sides.
constexpr int DEAL_KIND_CANCEL = 3;

/// Rebuilds, for one instrument, the queue of single orders standing at each price from the level-2 feed, and
/// publishes ten display rows a side with a two-line header.
///
/// Input: tick-by-tick order batches, tick-by-tick deal and cancel batches, published queues at buy one and
/// sell one, ten-level depth snapshots. The engine subscribes to nothing; its owner forwards the feed.
///
/// Threads: constructor, destructor, `setStock`, `clear`, `checkCalcOrder`, `at` and the slots belong to the
/// GUI thread; the three callbacks may be called on any thread. `m_dataMutex` is taken before `m_rowMutex`,
/// never the other way about, so that `at` and `headerText` wait for one calculation at most and never for a
/// batch. Jobs on the strand and detached threads hold the gate, so that the destructor waits for those that
/// run and the others do nothing.
///
/// Nothing is thrown to a caller. A null record, a record of another type and a batch of another instrument
/// are skipped in silence.
class DEPTH_EXPORT CDepthModelOrderQueue : public QObject
{
    Q_OBJECT

public:
    CDepthModelOrderQueue();
    ~CDepthModelOrderQueue() override;

    /// Chooses the instrument by the code that the stock manager knows it by. An unknown code leaves no
    /// instrument and the old queue readable; an index, or an instrument whose last full quote has status 1,
    /// empties everything. It does not clear the queue of the instrument before; `clear(true)` does.
    void setStock(const QString& code);

    /// Empties the queues and caches; with `bClearUICache` the display rows and the snapshot as well. Large
    /// containers are freed on the strand "data_release". Any thread.
    void clear(bool bClearUICache);

    /// Depth snapshots (status -1) and published queues (status 0 and 3: history, on a thread of their own; 1
    /// and 2: updates, of which only the last record counts). Other statuses are ignored. History that has
    /// not been taken when the instrument changes or `clear(true)` is called is dropped. Any thread, but none
    /// may be inside when the engine ends.
    void quoterCallBack(int seq, int status, const std::vector<boost::shared_ptr<quoter::QuoterBase>>& data);

    /// Tick-by-tick orders: status 0 opens a reload, 1 and 2 are live, 3 is a large batch. Handled on the
    /// strand "modulegroup" in order of calls; returns at once. Any thread.
    void quoterOrderCallBack(int seq, int status, const boost::shared_ptr<Kel::MetaCacheDataWrapper>& data);

    /// Tick-by-tick deals and cancellations, statuses as for orders. Any thread.
    void quoterDealCallBack(int seq, int status, const boost::shared_ptr<Kel::MetaCacheDataWrapper>& data);

    /// Moves the cached orders into the queues by what the deal cache knows. Call it with `m_dataMutex` held
    /// or on the strand.
    void matchOrderDeal();

    /// Calculates the rows if anything may have changed them. True if it did.
    bool checkCalcOrder();

    /// The first match of orders and deals has run. Any thread.
    bool isLevelDataBack() const { return m_bLevelDataBack.load(); }

    /// Decimals of a price of the instrument.
    int getPrecision() const { return m_precision.load(); }

    /// Rows a side: always 10.
    int size() const { return kLevels; }

    /// Row `index` (0 is the best price) of side `type` as calculated last; null past the end. The row is a
    /// copy that nobody changes. Any thread.
    boost::shared_ptr<Kel::OrderQueueData> at(unsigned int index, Kel::EOrderQueueType type) const;

    /// The two header lines, sell line first, joined by a line feed. Any thread.
    QString headerText() const;

    /// The instrument, null if there is none. Any thread.
    nelservice::CInstrumentDetailPtr instrument() const { return m_stockDetail.load(); }

    void lockUi() {}
    void unLockUi() {}

    /// The engine has something new to show: set here, tested and cleared (by exchange) by the view.
    std::atomic<bool> m_bNeedRepaint{false};

    /// A level record was applied or the first match ran: set here, never cleared here; a view recentres by
    /// it.
    std::atomic<bool> m_bLevelArrived{false};

    /// Bytes on the heap, containers by their capacities, records of the feed not counted. Takes
    /// `m_dataMutex`.
    std::size_t heapBytes() const;

    /// True: every pass reads every list and every sweep reads the whole order cache, the plain way that the
    /// quick one is held against. False, the default: only what can have changed is read; the results are the
    /// same. GUI thread, before the feed starts.
    void setFullPass(bool on) { m_fullPass = on; }

Q_SIGNALS:
    /// Starts the one-second timer from whichever thread a level record came on.
    void sigTimerControl();

protected Q_SLOTS:
    void slotTimeout();
    void slotShangHaiTimeout();
    void slotTimerControl();
    void slotRefreshTimer(int ms);

protected:
    static constexpr int kLevels = 10;

    // Batches on their threads (feed_routing.cpp)
    // ----------------------------------------------------------------------
    void doOrderCallBack(int seq, int status, const boost::shared_ptr<Kel::MetaCacheDataWrapper>& data);
    void doDealCallBack(int seq, int status, const boost::shared_ptr<Kel::MetaCacheDataWrapper>& data);
    void quoterCallBackThread(const quoter::QuoterBatch& data, int seq, int status);
    bool standsDown(const nelservice::CInstrumentDetail& detail) const;

    // Orders and deals (order_deal_matching.cpp, level_pass.cpp); m_dataMutex is held
    // -----------------------------------
    bool filterOrderData(const quoter::QuoterBatch& batch);
    void appendTransactionDealData(int status, const quoter::QuoterBatch& batch);
    void appendTransactionOrderData(const quoter::QuoterBatch& batch);
    void updateNewOrderDataList(const boost::shared_ptr<quoter::OrderData>& order);
    void updateOrderDataList(const boost::shared_ptr<quoter::OrderData>& order);
    void updateUnDealOrderCache();

    /// One pass over a level's list, every order looked up: applies what the deal cache knows. True if
    /// something shown has changed.
    bool updateVolList(boost::shared_ptr<Kel::OrderQueueData>& level);

    // Published queues and snapshots (queue_reconciliation.cpp)
    // ---------------------------------------------------------
    void appendOrderData(const boost::shared_ptr<quoter::LevelOrderData>& level);
    void updateDataList();
    void fixOrderDataList();
    void fixSZDataList(bool bOnlyTenLevels);

    // Display rows (display_rows.cpp)
    // -----------------------------------------------------------------------------------
    void calcOrder();
    int getTenPrice(Kel::EOrderQueueType type, int index);
    bool isBuySellOne(double price) const;
    bool isFinishedOrder(const Kel::EOrderQueueType& type) const { return Kel::isFinishedOrder(type); }
    bool isContinousStatus(const boost::shared_ptr<quoter::QuoterDepthData>& depth) const;

    void testAddData() {}

    using LevelMap = QMap<int, boost::shared_ptr<Kel::OrderQueueData>>;
    using QueueMap = QMap<int, LevelMap>;

    utils::AtomicSharedPtr<nelservice::CInstrumentDetail> m_stockDetail;
    std::atomic<bool> m_bStockMarket{false}; ///< on the Shanghai or Shenzhen market; for debugging
    QString m_strHeader;                     ///< guarded by `m_rowMutex`; the view takes `headerText`
    QueueMap m_orderQueues;                  ///< side, then price key; guarded by `m_dataMutex`
    QueueMap m_spareQueues;                  ///< kept beside the first, used by nothing
    std::map<Kel::EOrderQueueType, std::vector<boost::shared_ptr<Kel::OrderQueueData>>>
        m_queueRows;                                              ///< by m_rowMutex
    std::map<Kel::EOrderQueueType, std::vector<int>> m_tenPrices; ///< by m_rowMutex
    utils::AtomicSharedPtr<quoter::QuoterDepthData> m_depthData;  ///< latest snapshot
    std::atomic<std::int64_t> m_closeTime{-1};                    ///< largest close time of the sessions
    OrderCache m_orderCache; ///< orders of large batches by side and number; guarded by `m_dataMutex`
    DealCache m_dealCache;   ///< dealt lots by kind and number; guarded by `m_dataMutex`
    quoter::QuoterBatch m_spareOrders;           ///< used by nothing
    quoter::QuoterBatch m_spareDeals;            ///< used by nothing
    CancelOrderSet m_cancelOrders;               ///< orders known to be cancelled; guarded by `m_dataMutex`
    std::atomic<bool> m_bDealBack{false};        ///< deals are cached, orders awaited
    std::atomic<bool> m_bNeedAppendOrder{false}; ///< orders are cached, deals awaited
    std::atomic<bool> m_bNeedCalc{false};        ///< the rows are stale
    int m_nOrderCount = 0;                       ///< orders since the last sweep; guarded by `m_dataMutex`
    int m_nDealCount = 0;                        ///< deals since the last sweep; guarded by `m_dataMutex`
    std::atomic<int> m_spareInt{1};
    int m_nRefreshCount = 0; ///< refresh ticks since the last `fixSZDataList`; GUI thread
    QTimer* m_refreshTimer = nullptr;
    QTimer* m_shangHaiTimer = nullptr;
    mutable boost::recursive_mutex m_dataMutex; ///< guards queues and caches; taken before `m_rowMutex`
    mutable utils::RowMutex m_rowMutex;         ///< guards rows, ten prices and header
    std::atomic<std::int64_t> m_lastFeedTime{
        0}; ///< milliseconds, last record of the last order or deal batch
    std::atomic<std::int64_t> m_refreshClock{0}; ///< `m_lastFeedTime` plus the quiet refresh ticks since
    std::atomic<std::int64_t> m_depthTime{
        0};                                 ///< milliseconds, last snapshot; a tick can move it past the feed
    std::atomic<double> m_priceTick{0.001}; ///< yuan
    std::atomic<bool> m_bLevelDataBack{false};
    int m_nShangHaiCount = 0;                ///< firings of `m_shangHaiTimer` since its last stop; GUI thread
    std::atomic<double> m_volumeUnit{100.0}; ///< shares per lot
    std::atomic<int> m_levelTime{-1};        ///< seconds of the last level record; for debugging
    std::atomic<int> m_precision{2};         ///< decimals of a price
    std::int64_t m_maxEntrustNo = 0;         ///< for debugging; guarded by `m_dataMutex`
    int m_maxDealNo = 0;                     ///< for debugging; guarded by `m_dataMutex`
    boost::shared_ptr<boost::asio::io_service::strand> m_strand;

private:
    /// Snapshot, clocks and what follows from them, read once for one calculation.
    struct CalcMoment
    {
        boost::shared_ptr<quoter::QuoterDepthData> depth;
        bool continuous = false;
        bool feedNewer = false;      ///< the last batch is newer than the snapshot
        bool snapshotPrices = false; ///< the snapshot fixes the ten prices
    };

    /// The same for one pass over the levels.
    struct PassMoment
    {
        boost::shared_ptr<quoter::QuoterDepthData> depth;
        bool snapshotNewer = false; ///< the snapshot is newer than the last batch
        bool adoptSnapshot =
            false; ///< the feed has been quiet long enough for the snapshot's volumes to count
    };

    struct Released;

    struct SideTotal
    {
        std::int64_t count = 0;
        double sum = 0;
    };

    bool isInstrument(const boost::shared_ptr<Kel::MetaCacheDataWrapper>& data) const;
    void appendLevelRecords(const quoter::QuoterBatch& data, int status, std::uint64_t session);
    double lotsOf(std::int64_t shares) const;
    int keyOf(double price) const;
    bool orderCacheEmpty() const;
    void keepFeedTime(std::int64_t time);
    void clearQueuesInPlace();

    void addDealtLots(int kind, std::int64_t number, double lots);
    void noteNumber(int kind, std::int64_t number);
    void wakeAllLevels();
    void appendPublishedQueue(EOrderQueueType side, double price, const std::vector<int>& volumes, int count,
                              std::int64_t seconds);
    void logPriceless(const quoter::OrderData& order) const;
    void listLiveOrder(const quoter::OrderData& order);
    void listOrder(const quoter::OrderData& order, int key, const COrderVol& vol);
    OrderQueueData& levelFor(const quoter::OrderData& order, int key);
    OrderQueueData* findLevel(int side, int key) const;
    std::size_t orderCacheSize() const;
    bool hasEnded(int side, const quoter::OrderData& order);
    void sweepWholeCache();
    void sweepTouchedNumbers();

    PassMoment passMoment() const;
    bool quickPass(const PassMoment& moment, OrderQueueData& level);
    bool passOverList(const PassMoment& moment, OrderQueueData& level, bool lookUpAll);
    void setTotals(const PassMoment& moment, OrderQueueData& level, double sum, int cut);
    void endOrder(OrderQueueData& level, std::int64_t number);
    void forgetNumber(OrderQueueData& level, std::int64_t number);

    CalcMoment calcMoment() const;
    int tenPrice(const CalcMoment& moment, Kel::EOrderQueueType type, int index);
    void buildTenPrices(const CalcMoment& moment);
    void calcSide(const CalcMoment& moment, EOrderQueueType side, int index, int key, SideTotal& total);
    QString headerLine(const char* pattern, const SideTotal& total) const;

    /// Under DEPTH_CHECK_INVARIANTS: aborts with a message when the structures contradict each other. Takes
    /// nothing; `m_dataMutex` is held.
    void checkInvariants() const;

    /// Counts the changes of the instrument and the clears of everything. A batch that was handed to a thread
    /// of its own in an earlier session than the present one is too late. Written under `m_dataMutex`.
    std::atomic<std::uint64_t> m_session{0};

    std::atomic<bool> m_fullPass{false};
    OrderIndex m_orderIndex;       ///< levels by listed number; guarded by `m_dataMutex`
    LevelShortcut m_levelShortcut; ///< guarded by `m_dataMutex`
    /// By deal kind: numbers dealt or cancelled since the last sweep; same guard.
    std::array<std::vector<std::int64_t>, DEAL_KIND_CANCEL + 1> m_sweepNumbers;
    std::atomic<bool> m_sweepAll{true};   ///< the next sweep reads the whole cache, as the first one does
    boost::shared_ptr<EngineGate> m_gate; ///< held by every job outside the GUI thread
};

} // namespace Kel
