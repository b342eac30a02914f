// Life cycle, instrument, access to rows, timers.

#include "queue_engine/CDepthModelOrderQueue.h"

#include "platform/services/CFormulaManager.h"
#include "platform/services/CStockManager.h"
#include "platform/services/CUserConfig.h"
#include "platform/services/RPCEngine.h"
#include "platform/services/instrument_functions.h"
#include "platform/services/last_quotes.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/Log.h"
#include "platform/utils/market_predicates.h"
#include "platform/utils/volume_unit.h"
#include "records/PriceKey.h"
#include "records/Tolerance.h"

#include <boost/format.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <limits>
#include <mutex>

namespace Kel {

namespace {

constexpr int kDefaultRefreshMs = 500;  // refresh interval without a user configuration
constexpr int kShangHaiTimerMs = 1000;  // from a level record to the first reconciliation, and to the second
constexpr int kShangHaiFirings = 2;     // reconciliations after a level record
constexpr int kActiveRefreshTicks = 20; // refresh ticks after the last batch during which passes run
constexpr int kFixAfterTicks = 20;      // one tick more than so many brings `fixSZDataList`

} // namespace

CDepthModelOrderQueue::CDepthModelOrderQueue()
    : m_strand(net::RPCEngine::getStrand("modulegroup")), m_gate(boost::make_shared<EngineGate>())
{
    m_refreshTimer = new QTimer(this);
    m_shangHaiTimer = new QTimer(this);
    connect(m_refreshTimer, &QTimer::timeout, this, &CDepthModelOrderQueue::slotTimeout);
    connect(m_shangHaiTimer, &QTimer::timeout, this, &CDepthModelOrderQueue::slotShangHaiTimeout);
    connect(this, &CDepthModelOrderQueue::sigTimerControl, this, &CDepthModelOrderQueue::slotTimerControl);

    int interval = kDefaultRefreshMs;
    if (CUserConfig* config = getUserConfig()) {
        interval = truncateToInt(config->refreshInterval() * 1000);
        connect(config, &CUserConfig::sigRefreshTimer, this, &CDepthModelOrderQueue::slotRefreshTimer);
    }
    m_refreshTimer->start(interval);
}

CDepthModelOrderQueue::~CDepthModelOrderQueue()
{
    m_gate->close();
    clear(true);
}

void CDepthModelOrderQueue::setStock(const QString& code)
{
    // A batch on the strand sees an instrument with its own tick and unit, never with those of the one
    // before.
    const boost::recursive_mutex::scoped_lock lock(m_dataMutex);
    const nelservice::CInstrumentDetailPtr detail =
        utils::CSingletonT<CStockManager>::instance().getInstrumentDetail(code);
    const nelservice::CInstrumentDetailPtr before = m_stockDetail.load();
    if (!detail || !before || detail->market != before->market || detail->code != before->code)
        ++m_session;
    m_stockDetail.store(detail);
    if (!detail)
        return;
    if (standsDown(*detail)) {
        clear(true);
        return;
    }

    const std::string& market = detail->market;
    m_bStockMarket = utils::isShanghaiMarket(market) || utils::isShenzhenMarket(market);
    std::int64_t closeTime = -1;
    if (utils::isStock(market, detail->code)) {
        std::vector<std::pair<std::int64_t, std::int64_t>> sessions;
        utils::CSingletonT<CFormulaManager>::instance().getOpenCloseTime(sessions, market, detail->code);
        for (const auto& session : sessions)
            closeTime = std::max(closeTime, session.second);
    }
    m_closeTime = closeTime;
    const auto unit = static_cast<double>(utils::getVolumeUnit(market, detail->code));
    if (m_volumeUnit.exchange(unit) != unit)
        m_sweepAll = true; // what is cached counts as other lots now
    m_priceTick = getDetailPriceTick(detail);
    m_precision = Zeb::priceTick2Precision(detail->priceTick);
}

/// Without a queue to rebuild: the last full quote says so, or the instrument is an index.
bool CDepthModelOrderQueue::standsDown(const nelservice::CInstrumentDetail& detail) const
{
    const quoter::QuoterAllDataPtr last = getLastQuoterAllDataPtr(detail.market, detail.code);
    return (last && last->status == 1) || utils::isShanghaiIndex(detail.market, detail.code) ||
           utils::isShenzhenIndex(detail.market, detail.code);
}

/// What a clear takes out of the engine. A queue of a busy day holds millions of nodes, and neither the GUI
/// thread nor the feed thread is to pay for freeing them: the strand "data_release" does.
struct CDepthModelOrderQueue::Released
{
    QueueMap queues;
    DealCache deals;
    CancelOrderSet cancelled;
    OrderCache orders;
    OrderIndex index;
    decltype(m_sweepNumbers) sweepNumbers;
    decltype(m_queueRows) rows;
};

void CDepthModelOrderQueue::clear(bool bClearUICache)
{
    m_levelTime = -1;
    m_spareInt = 1;
    m_bDealBack.exchange(false);
    m_bLevelDataBack.exchange(false);
    m_bNeedAppendOrder.exchange(false);
    m_bNeedCalc.exchange(false);

    auto released = boost::make_shared<Released>();
    {
        const boost::recursive_mutex::scoped_lock lock(m_dataMutex);
        DEPTH_LOG(
            utils::kLogInfo, "CDepthModelOrderQueue",
            boost::format("CDepthModelOrderQueue::clear. m_orderCache size is %1% bClearUICache is %2%") %
                m_orderCache.size() % bClearUICache);
        m_orderQueues.swap(released->queues);
        m_dealCache.swap(released->deals);
        m_cancelOrders.swap(released->cancelled);
        m_orderCache.swap(released->orders);
        m_orderIndex.swap(released->index);
        m_levelShortcut.clear();
        m_sweepNumbers.swap(released->sweepNumbers);

        const std::lock_guard<utils::RowMutex> rowLock(m_rowMutex);
        if (bClearUICache) {
            ++m_session;
            m_queueRows.swap(released->rows);
            m_tenPrices.clear();
            m_depthData.reset();
            m_depthTime = 0;
        }
        m_lastFeedTime = 0;
        m_refreshClock = 0;
        m_strHeader = QString();
        m_maxEntrustNo = 0;
        m_maxDealNo = 0;
        m_bNeedRepaint = true;
    }
    // Last of all and moved into the job: once the job runs, the allocator is busy, and no owner is left here
    // that could be the one to free.
    net::RPCEngine::getStrand("data_release")->post([released = std::move(released)]() mutable {
        released.reset();
    });
}

boost::shared_ptr<OrderQueueData> CDepthModelOrderQueue::at(unsigned int index, EOrderQueueType type) const
{
    const std::lock_guard<utils::RowMutex> lock(m_rowMutex);
    const auto rows = m_queueRows.find(type);
    if (rows == m_queueRows.end() || index >= rows->second.size())
        return {};
    return rows->second[index];
}

QString CDepthModelOrderQueue::headerText() const
{
    const std::lock_guard<utils::RowMutex> lock(m_rowMutex);
    return m_strHeader;
}

bool CDepthModelOrderQueue::checkCalcOrder()
{
    // Cleared first: what arrives during the calculation asks for the next one.
    if (!m_bNeedCalc.exchange(false))
        return false;
    calcOrder();
    return true;
}

double CDepthModelOrderQueue::lotsOf(std::int64_t shares) const
{
    return static_cast<double>(shares) / m_volumeUnit.load(std::memory_order_relaxed);
}

int CDepthModelOrderQueue::keyOf(double price) const
{
    return priceKey(price, m_priceTick.load(std::memory_order_relaxed));
}

bool CDepthModelOrderQueue::orderCacheEmpty() const
{
    const boost::recursive_mutex::scoped_lock lock(m_dataMutex);
    return m_orderCache.empty();
}

OrderQueueData* CDepthModelOrderQueue::findLevel(int side, int key) const
{
    const auto levels = m_orderQueues.constFind(side);
    if (levels == m_orderQueues.constEnd())
        return nullptr;
    const auto level = levels->constFind(key);
    return level == levels->constEnd() ? nullptr : level->get();
}

void CDepthModelOrderQueue::slotTimeout()
{
    const boost::shared_ptr<quoter::QuoterDepthData> depth = m_depthData.load();
    if (!depth || !m_stockDetail.load())
        return;
    // During continuous trading a queue that was not matched yet is not touched.
    if (!m_bLevelDataBack && isContinousStatus(depth))
        return;

    // The clock before the feed's time: a batch between the two reads makes the difference negative, not
    // large. It wraps like the clock itself would; the feed's times are far from either end.
    const auto clock = static_cast<std::uint64_t>(m_refreshClock.load());
    const std::int64_t feedTime = m_lastFeedTime;
    const auto quietTicks = static_cast<std::int64_t>(clock - static_cast<std::uint64_t>(feedTime));
    std::int64_t depthTime = m_depthTime;
    if (quietTicks < kActiveRefreshTicks) {
        m_refreshClock.fetch_add(1);
        updateDataList();
        if (++m_nRefreshCount > kFixAfterTicks) {
            m_nRefreshCount = 0;
            fixSZDataList(true);
        }
    } else if (depthTime < feedTime) {
        // The feed has been quiet for long: from now on the snapshot is the newer source. One that arrives
        // meanwhile keeps its own time.
        m_depthTime.compare_exchange_strong(
            depthTime, feedTime < std::numeric_limits<std::int64_t>::max() ? feedTime + 1 : feedTime);
        updateDataList();
    }
}

void CDepthModelOrderQueue::slotShangHaiTimeout()
{
    if (!m_stockDetail.load() || !orderCacheEmpty())
        return;
    updateDataList();
    fixOrderDataList();
    if (++m_nShangHaiCount >= kShangHaiFirings) {
        m_nShangHaiCount = 0;
        m_shangHaiTimer->stop();
    }
}

void CDepthModelOrderQueue::slotTimerControl()
{
    m_shangHaiTimer->start(kShangHaiTimerMs);
}

void CDepthModelOrderQueue::slotRefreshTimer(int ms)
{
    if (!m_refreshTimer)
        return;
    m_refreshTimer->stop();
    m_refreshTimer->start(ms);
}

} // namespace Kel
