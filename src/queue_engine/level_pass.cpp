// One pass over a level's list: what the caches know of its orders is applied, and the level's totals are set
// by the newer source. `m_dataMutex` is held throughout.

#include "queue_engine/CDepthModelOrderQueue.h"

#include "records/Tolerance.h"

namespace Kel {

namespace {

constexpr std::uint64_t kAdoptTicks =
    5; ///< quiet refresh ticks after which a newer snapshot's volume is adopted

bool isLive(EOrderQueueType type)
{
    return type == OQT_NORMAL || type == OQT_BIG || type == OQT_SUPER;
}

/// The list as the pass reads and writes it. Writing detaches the list from the display rows that share it,
/// so nothing is written before the first change; what stays moves up over what was removed, each order once.
class ListWalk
{
public:
    explicit ListWalk(OrderList& list) : m_list(list), m_orders(list.constData()), m_size(list.size()) {}

    bool next() { return ++m_index < m_size; }
    const COrderVol& order() const { return m_orders[m_index]; }

    void keep()
    {
        if (m_kept != m_index)
            m_written[m_kept] = m_orders[m_index];
        ++m_kept;
    }
    void keep(const COrderVol& changed)
    {
        detach();
        m_written[m_kept] = changed;
        ++m_kept;
    }
    void remove() { detach(); }

    /// Cuts what is left over at the end.
    void finish()
    {
        if (m_kept < m_size)
            m_list.resize(m_kept);
    }
    bool changed() const { return m_written != nullptr; }

private:
    void detach()
    {
        if (m_written)
            return;
        m_written = m_list.data();
        m_orders = m_written;
    }

    OrderList& m_list;
    const COrderVol* m_orders;
    COrderVol* m_written = nullptr;
    int m_size;
    int m_index = -1;
    int m_kept = 0;
};

} // namespace

CDepthModelOrderQueue::PassMoment CDepthModelOrderQueue::passMoment() const
{
    PassMoment moment;
    moment.depth = m_depthData.load();
    const std::int64_t feedTime = m_lastFeedTime;
    moment.snapshotNewer = m_depthTime > feedTime;
    const std::int64_t clock = m_refreshClock;
    moment.adoptSnapshot =
        clock >= feedTime &&
        static_cast<std::uint64_t>(clock) - static_cast<std::uint64_t>(feedTime) >= kAdoptTicks;
    return moment;
}

bool CDepthModelOrderQueue::updateVolList(boost::shared_ptr<OrderQueueData>& level)
{
    return passOverList(passMoment(), *level, true);
}

/// The pass with what is known left out: a level at rest gives its last sum again, and a live order of which
/// the caches have no news is only added up.
bool CDepthModelOrderQueue::quickPass(const PassMoment& moment, OrderQueueData& level)
{
    if (m_fullPass)
        return passOverList(moment, level, true);
    if (!level.m_rest.atRest())
        return passOverList(moment, level, false);
    setTotals(moment, level, level.m_rest.restSum(), 0);
    return false;
}

bool CDepthModelOrderQueue::passOverList(const PassMoment& moment, OrderQueueData& level, bool lookUpAll)
{
    const auto sideEntries = m_dealCache.find(level.m_type);
    DealCacheKind* const side = sideEntries == m_dealCache.end() ? nullptr : &sideEntries->second;
    const auto cancelEntries = m_dealCache.find(DEAL_KIND_CANCEL);
    DealCacheKind* const cancels = cancelEntries == m_dealCache.end() ? nullptr : &cancelEntries->second;

    double sum = 0;
    int cut = 0; // orders that don't count toward the level's number of orders
    bool seenLive = false;
    bool changed = false;
    bool unsettled = false; // a live order has an entry that leaves it as it is for now
    bool erased = false;

    ListWalk walk(level.m_orders);
    while (walk.next()) {
        const bool live = isLive(walk.order().m_type);
        if (live && !lookUpAll && !level.m_rest.mustLookUp(walk.order().m_entrustNo)) {
            sum += walk.order().m_vol;
            seenLive = true;
            walk.keep();
            continue;
        }

        COrderVol order = walk.order();
        const auto entry = side ? side->find(order.m_entrustNo) : DealCacheKind::iterator();
        const bool hasEntry = side && entry != side->end();
        if (!Kel::isFinishedOrder(order.m_type)) {
            if (m_cancelOrders.contains(order.m_entrustNo)) {
                order.m_type = OQT_CANCELED;
                ++cut;
                changed = true;
                walk.keep(order);
                continue;
            }
            if (hasEntry && isLess(entry->second, order.m_vol)) {
                if (isPositive(entry->second)) {
                    // The dealt part is shown first; the next pass takes it off.
                    order.m_partDealVol = entry->second;
                    order.m_type = OQT_PART_DEALT;
                    level.m_hasPartDeal = true;
                    sum += order.m_vol;
                    changed = true;
                    walk.keep(order);
                } else {
                    unsettled = true;
                    walk.keep();
                }
                continue;
            }
            if (hasEntry) {
                changed = true;
                order.m_type = OQT_DEALT;
                if (seenLive) {
                    // Out of turn behind a live order: gone at once. Its number stays in `m_orderIds`.
                    forgetNumber(level, order.m_entrustNo);
                    walk.remove();
                } else {
                    ++cut;
                    walk.keep(order);
                }
                continue;
            }
        }

        if (order.m_type == OQT_UNKNOWN) {
            order.m_type = classifyVol(order.m_vol);
            sum += order.m_vol;
            changed = true;
            walk.keep(order);
        } else if (live) {
            sum += order.m_vol;
            seenLive = true;
            walk.keep();
        } else if (Kel::isFinishedOrder(order.m_type)) {
            double removed = 0;
            if (order.m_type == OQT_CANCELED && cancels) {
                const auto cancelled = cancels->find(order.m_entrustNo);
                if (cancelled != cancels->end()) {
                    order.m_vol -= cancelled->second;
                    changed = true;
                }
            }
            if (hasEntry) {
                if (order.m_type != OQT_CANCELED)
                    order.m_vol -= entry->second;
                removed = entry->second;
                side->erase(order.m_entrustNo);
                erased = true;
            }
            if (!isPositive(order.m_vol)) {
                endOrder(level, order.m_entrustNo);
                changed = true;
                walk.remove();
                continue;
            }
            if (!isZero(order.m_partDealVol) || !isZero(removed))
                changed = true;
            level.m_hasPartDeal = !isZero(removed);
            sum += order.m_vol;
            const COrderVol& before = walk.order();
            const bool same = before.m_type == OQT_PART_DEALT && before.m_vol == order.m_vol &&
                              before.m_partDealVol == removed;
            order.m_type = OQT_PART_DEALT;
            order.m_partDealVol = removed;
            if (same)
                walk.keep();
            else
                walk.keep(order);
        } else {
            walk.keep();
        }
    }
    walk.finish();

    level.m_rest.endPass(walk.changed() || erased, unsettled, sum);
    setTotals(moment, level, sum, cut);
    return changed;
}

void CDepthModelOrderQueue::endOrder(OrderQueueData& level, std::int64_t number)
{
    const auto cached = m_orderCache.find(level.m_type);
    if (cached != m_orderCache.end())
        cached->second.erase(number);
    m_cancelOrders.erase(number);
    level.m_orderIds.remove(number);
    forgetNumber(level, number);
}

/// The level lists the number no more, unless it was appended to the list past `m_orderIds`.
void CDepthModelOrderQueue::forgetNumber(OrderQueueData& level, std::int64_t number)
{
    if (!level.m_rest.mayRepeat())
        m_orderIndex.remove(number, &level);
}

/// Volume, count and average of a level after a pass, by whichever source is newer.
void CDepthModelOrderQueue::setTotals(const PassMoment& moment, OrderQueueData& level, double sum, int cut)
{
    if (!moment.snapshotNewer) {
        level.m_startIndex = 0;
        level.m_unknownVol = 0;
        level.m_count = level.m_orders.size() - cut;
        level.m_levelVol = sum;
    } else {
        const int index = level.m_level - 1;
        if (moment.adoptSnapshot && moment.depth && index >= 0 && index < quoter::kDepthLevels) {
            const bool sell = level.m_type == OQT_SELL;
            const double price = sell ? moment.depth->askPrice[index] : moment.depth->bidPrice[index];
            if (isEqual(level.m_price, price)) {
                level.m_levelVol = static_cast<double>(sell ? moment.depth->askVolume[index]
                                                            : moment.depth->bidVolume[index]);
            }
        }
        if (m_fullPass)
            level.calcUnknownVol();
        else
            level.calcUnknownVolAtRest();
    }
    level.m_sumVol = sum;
    level.m_avgVol = level.m_count == 0 ? 0 : sum / level.m_count;
}

} // namespace Kel
