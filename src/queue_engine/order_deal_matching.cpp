// The two waiting rooms: orders of large batches and what was dealt by order number. The first match turns
// them into the queue; live orders enter the lists one by one. `m_dataMutex` is held throughout.

#include "queue_engine/CDepthModelOrderQueue.h"

#include "platform/utils/Log.h"
#include "records/Tolerance.h"
#include "records/record_cast.h"

#include <boost/format.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>

namespace Kel {

namespace {

constexpr std::int32_t kBuySide = OQT_BUY;
constexpr std::int32_t kSellSide = OQT_SELL;
constexpr std::int64_t kSweepRecords = 1000; ///< orders and deals together between sweeps of the order cache
constexpr std::size_t kFewestSweepNumbers =
    4096; ///< up to so many touched numbers are kept whatever the cache's size

/// Lots that a cache kind holds for a number; null without an entry. Creates nothing.
const double* findLots(const DealCache& cache, int kind, std::int64_t number)
{
    const auto entries = cache.find(kind);
    if (entries == cache.end())
        return nullptr;
    const auto entry = entries->second.find(number);
    return entry == entries->second.end() ? nullptr : &entry->second;
}

void eraseLots(DealCache& cache, int kind, std::int64_t number)
{
    const auto entries = cache.find(kind);
    if (entries != cache.end())
        entries->second.erase(number);
}

/// Erases the entry if it holds at least `lots`.
bool takeIfCovered(DealCache& cache, int kind, std::int64_t number, double lots)
{
    const auto entries = cache.find(kind);
    if (entries == cache.end())
        return false;
    const auto entry = entries->second.find(number);
    if (entry == entries->second.end() || isLess(entry->second, lots))
        return false;
    entries->second.erase(number);
    return true;
}

} // namespace

bool CDepthModelOrderQueue::filterOrderData(const quoter::QuoterBatch& batch)
{
    for (const quoter::QuoterBasePtr& record : batch) {
        const auto* order = quoter::recordCast<quoter::OrderData>(record.get());
        if (!order)
            continue;
        if (order->side == 0 || order->side == 3 || order->kind == quoter::eOrderNotStanding)
            continue;
        const double lots = lotsOf(order->volume);
        if (takeIfCovered(m_dealCache, order->side, order->entrustNo, lots))
            continue;
        if (takeIfCovered(m_dealCache, DEAL_KIND_CANCEL, order->entrustNo, lots))
            continue;
        OrderCacheSide& side = m_orderCache[order->side];
        // Numbers rise within a channel, so nearly every order goes to the end.
        side.try_emplace(side.end(), order->entrustNo)->second =
            boost::static_pointer_cast<quoter::OrderData>(record);
    }
    return true;
}

void CDepthModelOrderQueue::addDealtLots(int kind, std::int64_t number, double lots)
{
    m_dealCache[kind][number] += lots;
}

/// A deal kind has news of a number, which the next sweep has to look at.
void CDepthModelOrderQueue::noteNumber(int kind, std::int64_t number)
{
    if (m_orderCache.empty() || m_sweepAll)
        return;
    std::vector<std::int64_t>& numbers = m_sweepNumbers[static_cast<std::size_t>(kind)];
    if (numbers.size() >= kFewestSweepNumbers && numbers.size() >= orderCacheSize() / 8) {
        m_sweepAll = true;
        m_sweepNumbers = {};
        return;
    }
    numbers.push_back(number);
}

std::size_t CDepthModelOrderQueue::orderCacheSize() const
{
    std::size_t size = 0;
    for (const auto& side : m_orderCache)
        size += side.second.size();
    return size;
}

void CDepthModelOrderQueue::appendTransactionDealData(int /*status*/, const quoter::QuoterBatch& batch)
{
    for (const quoter::QuoterBasePtr& record : batch) {
        const auto* deal = quoter::recordCast<quoter::TransactionData>(record.get());
        if (!deal)
            continue;
        const double lots = lotsOf(deal->volume);
        if (deal->buyNo != 0) {
            addDealtLots(kBuySide, deal->buyNo, lots);
            noteNumber(kBuySide, deal->buyNo);
            m_orderIndex.touch(deal->buyNo);
        }
        if (deal->sellNo != 0) {
            addDealtLots(kSellSide, deal->sellNo, lots);
            noteNumber(kSellSide, deal->sellNo);
            if (deal->sellNo != deal->buyNo)
                m_orderIndex.touch(deal->sellNo);
        }
        if (deal->kind == quoter::eTransactionCancel) {
            // The number of a cancelled order stands in `buyNo`, whichever side it was on.
            const bool entered = m_cancelOrders.insert(deal->buyNo);
            addDealtLots(DEAL_KIND_CANCEL, deal->buyNo, lots);
            noteNumber(DEAL_KIND_CANCEL, deal->buyNo);
            if (deal->buyNo == 0) {
                m_orderIndex.touch(0);
                if (entered)
                    wakeAllLevels();
            }
        }
    }

    if (!m_orderCache.empty())
        updateUnDealOrderCache();
    if (m_bNeedAppendOrder) {
        DEPTH_LOG(utils::kLogInfo, "CDepthModelOrderQueue",
                  boost::format("CDepthModelOrderQueue::matchOrderDeal in Deal Call Back"));
        matchOrderDeal();
        m_bNeedAppendOrder = false;
    }
}

/// Published orders have number 0, which no index lists: news of number 0 concerns every level.
void CDepthModelOrderQueue::wakeAllLevels()
{
    for (const LevelMap& levels : qAsConst(m_orderQueues)) {
        for (const OrderQueueDataPtr& level : levels)
            level->wake();
    }
}

void CDepthModelOrderQueue::appendTransactionOrderData(const quoter::QuoterBatch& batch)
{
    for (const quoter::QuoterBasePtr& record : batch)
        if (const auto* order = quoter::recordCast<quoter::OrderData>(record.get()))
            listLiveOrder(*order);
}

void CDepthModelOrderQueue::matchOrderDeal()
{
    for (const auto& side : m_orderCache) {
        for (const auto& cached : side.second)
            updateNewOrderDataList(cached.second);
    }
    m_bLevelDataBack = true;
    m_bLevelArrived = true;
    fixSZDataList(false);
    m_bNeedCalc = true;
}

/// An order without a price never enters a queue; its deals stay in the deal cache with nothing to match.
void CDepthModelOrderQueue::logPriceless(const quoter::OrderData& order) const
{
    DEPTH_LOG(utils::kLogError, "CDepthModelOrderQueue",
              boost::format("order price zero entrust No %1%") % order.entrustNo);
}

OrderQueueData& CDepthModelOrderQueue::levelFor(const quoter::OrderData& order, int key)
{
    if (OrderQueueData* level = m_levelShortcut.find(order.side, key))
        return *level;
    OrderQueueDataPtr& level = m_orderQueues[order.side][key];
    if (!level) {
        level = boost::make_shared<OrderQueueData>(order.price, order.m_time / 1000,
                                                   static_cast<EOrderQueueType>(order.side));
    }
    m_levelShortcut.keep(order.side, key, level.get());
    return *level;
}

void CDepthModelOrderQueue::listOrder(const quoter::OrderData& order, int key, const COrderVol& vol)
{
    OrderQueueData& level = levelFor(order, key);
    level.addOrderVol(vol);
    m_orderIndex.add(vol.m_entrustNo, &level);
}

void CDepthModelOrderQueue::updateNewOrderDataList(const boost::shared_ptr<quoter::OrderData>& order)
{
    if (!order)
        return;
    const int key = keyOf(order->price);
    if (key == 0) {
        logPriceless(*order);
        return;
    }
    const std::int64_t number = order->entrustNo;
    if (m_cancelOrders.erase(number) != 0) {
        eraseLots(m_dealCache, DEAL_KIND_CANCEL, number);
        return;
    }

    COrderVol vol;
    vol.m_entrustNo = number;
    vol.m_vol = lotsOf(order->volume);
    vol.m_type = classifyVol(vol.m_vol);
    const double* dealt = findLots(m_dealCache, order->side, number);
    const double dealtLots = dealt ? *dealt : 0;
    if (!isLess(dealtLots, vol.m_vol)) {
        eraseLots(m_dealCache, order->side, number);
        return;
    }
    if (isPositive(dealtLots)) {
        // In the match the rest of the order is what is shown, and no dealt part.
        vol.m_type = OQT_PART_DEALT;
        vol.m_vol -= dealtLots;
        eraseLots(m_dealCache, order->side, number);
        dealt = nullptr;
    }
    listOrder(*order, key, vol);
    if (dealt)
        m_orderIndex.touch(number);
}

void CDepthModelOrderQueue::updateOrderDataList(const boost::shared_ptr<quoter::OrderData>& order)
{
    if (order)
        listLiveOrder(*order);
}

void CDepthModelOrderQueue::listLiveOrder(const quoter::OrderData& order)
{
    const int key = keyOf(order.price);
    if (key == 0) {
        logPriceless(order);
        return;
    }
    COrderVol vol;
    vol.m_entrustNo = order.entrustNo;
    vol.m_vol = lotsOf(order.volume);

    if (m_cancelOrders.contains(order.entrustNo)) {
        // Cancelled before it was seen: shown as cancelled for a pass, and counted only if it opens the
        // level.
        vol.m_type = OQT_CANCELED;
        OrderQueueData* level = findLevel(order.side, key);
        if (!level) {
            listOrder(order, key, vol);
        } else if (!level->markOrder(order.entrustNo, OQT_CANCELED)) {
            level->appendUncounted(vol);
            m_orderIndex.add(order.entrustNo, level);
        }
        return;
    }

    const double* dealt = findLots(m_dealCache, order.side, order.entrustNo);
    const double dealtLots = dealt ? *dealt : 0;
    vol.m_type = OQT_UNKNOWN;
    if (!isZero(dealtLots) && !isLess(dealtLots, vol.m_vol))
        vol.m_type = OQT_DEALT;
    else if (isPositive(dealtLots))
        vol.m_type = OQT_PART_DEALT;
    if (vol.m_type == OQT_PART_DEALT)
        vol.m_partDealVol = dealtLots;
    listOrder(order, key, vol);
}

void CDepthModelOrderQueue::updateUnDealOrderCache()
{
    if (std::int64_t(m_nOrderCount) + m_nDealCount < kSweepRecords)
        return;
    m_nOrderCount = 0;
    m_nDealCount = 0;
    // Taken before the sweep: a change of unit during it concerns the next one.
    if (m_sweepAll.exchange(false) || m_fullPass)
        sweepWholeCache();
    else
        sweepTouchedNumbers();
    for (std::vector<std::int64_t>& numbers : m_sweepNumbers)
        numbers.clear();
}

/// What stays moves into a new map: the sweep of a history drops most of the cache, and appending in order is
/// the cheapest way to write a B-tree.
void CDepthModelOrderQueue::sweepWholeCache()
{
    for (auto& side : m_orderCache) {
        OrderCacheSide kept;
        for (auto& cached : side.second) {
            if (!hasEnded(side.first, *cached.second))
                kept.emplace_hint(kept.end(), cached.first, std::move(cached.second));
        }
        side.second.swap(kept);
    }
}

/// The caches hold the order's whole volume. A cancellation that does is used up.
bool CDepthModelOrderQueue::hasEnded(int side, const quoter::OrderData& order)
{
    const double lots = lotsOf(order.volume);
    const double* dealt = findLots(m_dealCache, side, order.entrustNo);
    if (dealt && !isLess(*dealt, lots))
        return true;
    return takeIfCovered(m_dealCache, DEAL_KIND_CANCEL, order.entrustNo, lots);
}

/// Only a number that was dealt on its side or cancelled since the last sweep can have come to its end; the
/// numbers are taken in the order in which the whole sweep would come to them.
void CDepthModelOrderQueue::sweepTouchedNumbers()
{
    for (auto& side : m_orderCache) {
        if (side.second.empty())
            continue;
        std::vector<std::int64_t> numbers = m_sweepNumbers[DEAL_KIND_CANCEL];
        if (side.first == kBuySide || side.first == kSellSide) {
            const std::vector<std::int64_t>& dealt = m_sweepNumbers[static_cast<std::size_t>(side.first)];
            numbers.insert(numbers.end(), dealt.begin(), dealt.end());
        }
        // Most of what is dealt came live, behind all that is cached.
        const std::int64_t last = side.second.rbegin()->first;
        numbers.erase(
            std::remove_if(numbers.begin(), numbers.end(), [last](std::int64_t n) { return n > last; }),
            numbers.end());
        std::sort(numbers.begin(), numbers.end());
        numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
        // The orders were written long ago and lie anywhere: all of them are on their way from memory before
        // the first is read.
        std::vector<const quoter::OrderData*> orders;
        for (const std::int64_t number : numbers) {
            const auto cached = side.second.find(number);
            if (cached == side.second.end())
                continue;
            orders.push_back(cached->second.get());
            __builtin_prefetch(orders.back());
        }
        for (const quoter::OrderData* order : orders) {
            if (hasEnded(side.first, *order))
                side.second.erase(order->entrustNo);
        }
    }
}

} // namespace Kel
