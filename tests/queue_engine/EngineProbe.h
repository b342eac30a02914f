#pragma once

#include "queue_engine/CDepthModelOrderQueue.h"

namespace testing_support {

/// The engine with its inside open to tests. Calls on it are synchronous: `doOrderCallBack` and
/// `doDealCallBack` run on the caller's thread, the timers are stopped and their slots are called by hand.
///
/// A test that writes to the `m_orders` of a level which the engine already holds calls `level->wake()`
/// afterwards.
class EngineProbe : public Kel::CDepthModelOrderQueue
{
public:
    EngineProbe()
    {
        m_refreshTimer->stop();
        m_shangHaiTimer->stop();
    }

    using CDepthModelOrderQueue::appendOrderData;
    using CDepthModelOrderQueue::appendTransactionDealData;
    using CDepthModelOrderQueue::appendTransactionOrderData;
    using CDepthModelOrderQueue::calcOrder;
    using CDepthModelOrderQueue::doDealCallBack;
    using CDepthModelOrderQueue::doOrderCallBack;
    using CDepthModelOrderQueue::filterOrderData;
    using CDepthModelOrderQueue::fixOrderDataList;
    using CDepthModelOrderQueue::fixSZDataList;
    using CDepthModelOrderQueue::getTenPrice;
    using CDepthModelOrderQueue::isBuySellOne;
    using CDepthModelOrderQueue::isContinousStatus;
    using CDepthModelOrderQueue::isFinishedOrder;
    using CDepthModelOrderQueue::quoterCallBackThread;
    using CDepthModelOrderQueue::slotRefreshTimer;
    using CDepthModelOrderQueue::slotShangHaiTimeout;
    using CDepthModelOrderQueue::slotTimeout;
    using CDepthModelOrderQueue::slotTimerControl;
    using CDepthModelOrderQueue::updateDataList;
    using CDepthModelOrderQueue::updateNewOrderDataList;
    using CDepthModelOrderQueue::updateOrderDataList;
    using CDepthModelOrderQueue::updateUnDealOrderCache;
    using CDepthModelOrderQueue::updateVolList;

    using CDepthModelOrderQueue::LevelMap;
    using CDepthModelOrderQueue::m_bDealBack;
    using CDepthModelOrderQueue::m_bLevelDataBack;
    using CDepthModelOrderQueue::m_bNeedAppendOrder;
    using CDepthModelOrderQueue::m_bNeedCalc;
    using CDepthModelOrderQueue::m_bStockMarket;
    using CDepthModelOrderQueue::m_cancelOrders;
    using CDepthModelOrderQueue::m_closeTime;
    using CDepthModelOrderQueue::m_dataMutex;
    using CDepthModelOrderQueue::m_dealCache;
    using CDepthModelOrderQueue::m_depthData;
    using CDepthModelOrderQueue::m_depthTime;
    using CDepthModelOrderQueue::m_lastFeedTime;
    using CDepthModelOrderQueue::m_levelTime;
    using CDepthModelOrderQueue::m_maxDealNo;
    using CDepthModelOrderQueue::m_maxEntrustNo;
    using CDepthModelOrderQueue::m_nDealCount;
    using CDepthModelOrderQueue::m_nOrderCount;
    using CDepthModelOrderQueue::m_nRefreshCount;
    using CDepthModelOrderQueue::m_nShangHaiCount;
    using CDepthModelOrderQueue::m_orderCache;
    using CDepthModelOrderQueue::m_orderQueues;
    using CDepthModelOrderQueue::m_precision;
    using CDepthModelOrderQueue::m_priceTick;
    using CDepthModelOrderQueue::m_queueRows;
    using CDepthModelOrderQueue::m_refreshClock;
    using CDepthModelOrderQueue::m_refreshTimer;
    using CDepthModelOrderQueue::m_rowMutex;
    using CDepthModelOrderQueue::m_shangHaiTimer;
    using CDepthModelOrderQueue::m_stockDetail;
    using CDepthModelOrderQueue::m_strHeader;
    using CDepthModelOrderQueue::m_tenPrices;
    using CDepthModelOrderQueue::m_volumeUnit;
    using CDepthModelOrderQueue::QueueMap;
};

} // namespace testing_support
