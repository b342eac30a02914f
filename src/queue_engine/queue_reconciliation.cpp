// The lists held against published queues and snapshots: level records as they arrive, and the passes over
// all levels that the timers run.

#include "queue_engine/CDepthModelOrderQueue.h"

#include "records/Tolerance.h"

#include <boost/make_shared.hpp>

namespace Kel {

void CDepthModelOrderQueue::appendOrderData(const boost::shared_ptr<quoter::LevelOrderData>& level)
{
    if (!level)
        return;
    m_levelTime = clampToInt(level->m_time / 1000);

    const boost::recursive_mutex::scoped_lock lock(m_dataMutex);
    appendPublishedQueue(OQT_BUY, level->bidPrice, level->bidVolumes, level->bidCount, level->m_time / 1000);
    appendPublishedQueue(OQT_SELL, level->askPrice, level->askVolumes, level->askCount, level->m_time / 1000);
    m_bLevelArrived = true;
    checkInvariants();
    Q_EMIT sigTimerControl();
}

/// One side of a level record. A side without a price is left alone.
void CDepthModelOrderQueue::appendPublishedQueue(EOrderQueueType side, double price,
                                                 const std::vector<int>& volumes, int count,
                                                 std::int64_t seconds)
{
    const int key = keyOf(price);
    if (key == 0)
        return;
    OrderQueueData* level = findLevel(side, key);
    if (level) {
        level->mergeLevelVols(volumes);
        level->m_count = count;
        return;
    }
    const auto opened = boost::make_shared<OrderQueueData>(price, seconds, side);
    opened->resetByLevelVols(volumes);
    opened->m_count = count;
    m_orderQueues[side].insert(key, opened);
}

void CDepthModelOrderQueue::updateDataList()
{
    const boost::recursive_mutex::scoped_lock lock(m_dataMutex);
    const PassMoment moment = passMoment();
    bool needRepaint = false;
    bool needCalc = false;
    for (const LevelMap& levels : qAsConst(m_orderQueues)) {
        for (const OrderQueueDataPtr& level : levels) {
            const bool changed = quickPass(moment, *level);
            // The first shown level that changed decides; the others are passed over all the same.
            if (!changed || needRepaint || level->m_level < 1 || level->m_level > kLevels)
                continue;
            needRepaint = true;
            needCalc = !isPositive(level->m_levelVol);
        }
    }
    checkInvariants();
    if (needCalc)
        calcOrder(); // a level has emptied, and the ten prices shift
    if (needRepaint)
        m_bNeedRepaint = true;
}

void CDepthModelOrderQueue::fixOrderDataList()
{
    const boost::recursive_mutex::scoped_lock lock(m_dataMutex);
    bool cut = false;
    for (const LevelMap& levels : qAsConst(m_orderQueues)) {
        for (const OrderQueueDataPtr& level : levels)
            cut = level->trimToLevelVol() || cut;
    }
    checkInvariants();
    if (cut)
        m_bNeedRepaint = true;
}

void CDepthModelOrderQueue::fixSZDataList(bool bOnlyTenLevels)
{
    const boost::recursive_mutex::scoped_lock lock(m_dataMutex);
    const bool snapshotNewer = m_depthTime > m_lastFeedTime;
    bool dropped = false;
    for (const LevelMap& levels : qAsConst(m_orderQueues)) {
        for (const OrderQueueDataPtr& level : levels) {
            if (level->m_rest.nothingToDrop() && !m_fullPass)
                continue;
            if (!level->dropBeforePartDeal(bOnlyTenLevels))
                continue;
            dropped = true;
            if (snapshotNewer)
                level->calcUnknownVol();
        }
    }
    checkInvariants();
    if (dropped)
        m_bNeedRepaint = true;
}

} // namespace Kel
