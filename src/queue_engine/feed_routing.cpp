// Which call of the feed runs on which thread, and what opens, fills and ends a load.

#include "queue_engine/CDepthModelOrderQueue.h"

#include "platform/services/RPCEngine.h"
#include "platform/utils/Log.h"
#include "records/Tolerance.h"
#include "records/record_cast.h"

#include <boost/asio/post.hpp>
#include <boost/format.hpp>
#include <boost/thread/thread.hpp>

#include <algorithm>
#include <mutex>

namespace Kel {

namespace {

/// What `status` says of a batch.
enum EFeedStatus
{
    eFeedSnapshot = -1, ///< a depth snapshot
    eFeedFirst = 0,     ///< opens a reload
    eFeedLive = 1,
    eFeedUpdate = 2,
    eFeedHistory = 3, ///< a large batch
};

constexpr std::size_t kDirectBatch = 100; ///< largest order batch that goes into the lists order by order
constexpr int kForceMatchOrders = 100;    ///< more received orders than this force a first match

void addSaturated(int& counter, std::size_t records)
{
    counter = clampToInt(counter + static_cast<std::int64_t>(std::min<std::size_t>(records, 0x7fffffff)));
}

/// The last record of a batch; null if there is none, or if it is null or of another type.
template <class Record>
const Record* lastOf(const quoter::QuoterBatch& batch)
{
    return batch.empty() ? nullptr : quoter::recordCast<Record>(batch.back().get());
}

} // namespace

void CDepthModelOrderQueue::quoterCallBack(int seq, int status,
                                           const std::vector<boost::shared_ptr<quoter::QuoterBase>>& data)
{
    const nelservice::CInstrumentDetailPtr detail = m_stockDetail.load();
    if (!detail || standsDown(*detail) || data.empty())
        return;

    switch (status) {
    case eFeedSnapshot: {
        const auto depth = quoter::recordCast<quoter::QuoterDepthData>(data.back());
        m_depthData.store(depth);
        if (depth) {
            m_depthTime = depth->m_time;
            m_bNeedCalc = true;
        }
        break;
    }
    case eFeedFirst:
    case eFeedHistory: {
        const boost::shared_ptr<EngineGate> gate = m_gate;
        const auto job = [this, gate, data, status, session = m_session.load()] {
            const EngineGate::Pass pass(*gate);
            if (pass)
                appendLevelRecords(data, status, session);
        };
        try {
            boost::thread(job).detach();
        } catch (const boost::thread_resource_error&) {
            job(); // the system has no thread to give: the caller waits instead of losing the records
        }
        break;
    }
    case eFeedLive:
    case eFeedUpdate:
        // Level records come many times a second, and each tells the whole queue: only the last one counts.
        quoterCallBackThread(quoter::QuoterBatch(1, data.back()), seq, status);
        break;
    default:
        break;
    }
}

void CDepthModelOrderQueue::quoterCallBackThread(const quoter::QuoterBatch& data, int /*seq*/, int status)
{
    appendLevelRecords(data, status, m_session.load());
}

/// Takes published queues that were handed in during `session`, as long as it lasts.
void CDepthModelOrderQueue::appendLevelRecords(const quoter::QuoterBatch& data, int status,
                                               std::uint64_t session)
{
    // Tick-by-tick orders rule: with any of them cached, published queues are refused.
    if (!m_stockDetail.load() || !orderCacheEmpty())
        return;
    if (status == eFeedFirst)
        m_levelTime = -1;
    for (const quoter::QuoterBasePtr& record : data) {
        const auto level = quoter::recordCast<quoter::LevelOrderData>(record);
        if (!level || (level->bidVolumes.empty() && level->askVolumes.empty()))
            continue;
        const boost::recursive_mutex::scoped_lock lock(m_dataMutex);
        if (session != m_session)
            return;
        appendOrderData(level);
    }
    m_bNeedCalc = true;
}

void CDepthModelOrderQueue::quoterOrderCallBack(int seq, int status,
                                                const boost::shared_ptr<Kel::MetaCacheDataWrapper>& data)
{
    const boost::shared_ptr<EngineGate> gate = m_gate;
    m_strand->post([this, gate, seq, status, data] {
        const EngineGate::Pass pass(*gate);
        if (pass)
            doOrderCallBack(seq, status, data);
    });
}

void CDepthModelOrderQueue::quoterDealCallBack(int seq, int status,
                                               const boost::shared_ptr<Kel::MetaCacheDataWrapper>& data)
{
    const boost::shared_ptr<EngineGate> gate = m_gate;
    m_strand->post([this, gate, seq, status, data] {
        const EngineGate::Pass pass(*gate);
        if (pass)
            doDealCallBack(seq, status, data);
    });
}

bool CDepthModelOrderQueue::isInstrument(const boost::shared_ptr<Kel::MetaCacheDataWrapper>& data) const
{
    const nelservice::CInstrumentDetailPtr detail = m_stockDetail.load();
    return detail && data && data->market == detail->market && data->instrument == detail->code;
}

void CDepthModelOrderQueue::keepFeedTime(std::int64_t time)
{
    m_lastFeedTime = time;
    m_refreshClock = time;
}

void CDepthModelOrderQueue::clearQueuesInPlace()
{
    m_orderIndex.clear();
    m_levelShortcut.clear();
    m_orderQueues.clear();
    const std::lock_guard<utils::RowMutex> rowLock(m_rowMutex);
    m_queueRows.clear();
    m_tenPrices.clear();
}

void CDepthModelOrderQueue::doOrderCallBack(int /*seq*/, int status,
                                            const boost::shared_ptr<Kel::MetaCacheDataWrapper>& data)
{
    const boost::recursive_mutex::scoped_lock lock(m_dataMutex);
    if (!isInstrument(data))
        return;
    const quoter::QuoterBatch& batch = data->data;

    if (status == eFeedFirst) {
        if (m_bDealBack) {
            clearQueuesInPlace();
            m_orderCache.clear();
        } else {
            clear(false);
        }
        DEPTH_LOG(utils::kLogInfo, "CDepthModelOrderQueue",
                  boost::format("CDepthModelOrderQueue::quoterOrderCallBack  size is %1% dealBack is %2%") %
                      batch.size() % m_bDealBack.load());
        addSaturated(m_nOrderCount, batch.size());
        filterOrderData(batch);
        if (m_bDealBack && !batch.empty()) {
            matchOrderDeal();
            m_bDealBack = false;
        } else {
            m_bNeedAppendOrder = true;
        }
    } else if (status == eFeedLive || status == eFeedUpdate || status == eFeedHistory) {
        addSaturated(m_nOrderCount, batch.size());
        if (batch.size() <= kDirectBatch) {
            // The match does not wait for a deal batch that may never come.
            if (!m_bLevelDataBack && m_nOrderCount > kForceMatchOrders)
                matchOrderDeal();
            appendTransactionOrderData(batch);
            m_bNeedCalc = true;
        } else {
            filterOrderData(batch);
            if (m_bDealBack) {
                matchOrderDeal();
                m_bDealBack = false;
            } else {
                m_bNeedAppendOrder = true;
            }
        }
        updateUnDealOrderCache();
    }

    if (const auto* last = lastOf<quoter::OrderData>(batch)) {
        keepFeedTime(last->m_time);
        m_maxEntrustNo = std::max(m_maxEntrustNo, last->entrustNo);
    }
    checkInvariants();
}

void CDepthModelOrderQueue::doDealCallBack(int /*seq*/, int status,
                                           const boost::shared_ptr<Kel::MetaCacheDataWrapper>& data)
{
    const boost::recursive_mutex::scoped_lock lock(m_dataMutex);
    if (!isInstrument(data))
        return;
    const quoter::QuoterBatch& batch = data->data;

    if (status == eFeedFirst) {
        if (m_bNeedAppendOrder) {
            clearQueuesInPlace();
            m_dealCache.clear();
        } else {
            clear(false);
        }
        DEPTH_LOG(utils::kLogInfo, "CDepthModelOrderQueue",
                  boost::format(
                      "CDepthModelOrderQueue::quoterDealCallBack  size is %1% m_bNeedAppendOrder is %2%") %
                      batch.size() % m_bNeedAppendOrder.load());
    }
    if (status >= eFeedFirst && status <= eFeedHistory) {
        addSaturated(m_nDealCount, batch.size());
        if (status == eFeedFirst || status == eFeedHistory)
            m_bDealBack = true;
        appendTransactionDealData(status, batch);
    }

    if (const auto* last = lastOf<quoter::TransactionData>(batch)) {
        keepFeedTime(last->m_time);
        m_maxDealNo = std::max(m_maxDealNo, last->dealNo);
    }
    checkInvariants();
}

} // namespace Kel
