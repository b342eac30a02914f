// A level held against what the exchange publishes of it: queues of first orders and snapshot volumes.

#include "records/OrderQueueData.h"
#include "records/Tolerance.h"

#include <algorithm>
#include <cmath>

namespace Kel {

namespace {

constexpr int kSampleVolumes = 7;    // published volumes that are compared to find where a queue begins
constexpr int kMostMismatches = 5;   // mismatches at which an anchor has failed
constexpr int kFullQueue = 50;       // volumes of a full published queue
constexpr double kFillerLots = 1000; // one filler entry stands for up to so many lots

int roundedVolume(const COrderVol& order)
{
    return truncateToInt(order.m_vol + 0.5);
}

void subtractCount(int& count)
{
    count = clampToInt(std::int64_t(count) - 1);
}

struct Anchor
{
    int index = 0;
    bool found = false;
    bool raise = false; // the published head is larger than the order at the anchor
};

/// Where in the list the published queue begins. A mismatch up to the fourth is passed over, on the view that
/// the order in the list is a cancelled one; behind a failed anchor one order is left out.
Anchor findAnchor(const OrderList& orders, const std::vector<int>& vols)
{
    const int listed = orders.size();
    const int sample = std::min({listed, static_cast<int>(vols.size()), kSampleVolumes});
    Anchor anchor;
    anchor.index = listed - 1;
    int i = 0;
    int j = 1;
    int misses = 0;
    bool matching = false;
    while (i < listed) {
        if (!matching) {
            anchor.index = i;
            anchor.raise = vols[0] > roundedVolume(orders.at(i));
            matching = true;
            ++i;
        }
        while (j < sample && i < listed) {
            if (vols[static_cast<std::size_t>(j)] != roundedVolume(orders.at(i))) {
                ++misses;
                break;
            }
            ++i;
            ++j;
        }
        if (misses >= kMostMismatches) {
            matching = false;
            j = 1;
            misses = 0;
            i = anchor.index + 2;
            continue;
        }
        if (j >= sample) {
            anchor.found = true;
            return anchor;
        }
        ++i;
    }
    anchor.raise = false;
    return anchor;
}

} // namespace

void OrderQueueData::resetByLevelVols(const std::vector<int>& vols)
{
    m_sumVol = 0;
    m_orders.clear();
    m_orders.reserve(static_cast<int>(vols.size()));
    for (const int vol : vols) {
        COrderVol order;
        order.m_vol = vol;
        m_orders.append(order);
        m_sumVol += order.m_vol;
    }
    m_count = static_cast<int>(vols.size());
    m_avgVol = vols.empty() ? 0 : m_sumVol / m_count;
    wake();
}

void OrderQueueData::mergeLevelVols(std::vector<int> vols)
{
    const int published = static_cast<int>(vols.size());
    if (published < 1)
        return;
    wake();

    const int listed = m_orders.size();
    Anchor anchor = findAnchor(m_orders, vols);
    if (anchor.found && anchor.raise)
        m_orders[anchor.index].m_vol = vols[0];
    if (!anchor.found) {
        if (published >= kFullQueue) {
            resetByLevelVols(vols);
            return;
        }
        anchor.index = listed - 1;
    }

    std::size_t p = 0;
    for (int k = 0; k < listed && p < vols.size(); ++k) {
        COrderVol& order = m_orders[k];
        const int vol = vols[p];
        if (k < anchor.index) {
            order.m_type = OQT_DEALT;
            m_sumVol -= order.m_vol;
            subtractCount(m_count);
        } else if (k == anchor.index) {
            if (vol < roundedVolume(order)) {
                order.m_type = OQT_PART_DEALT;
                order.m_partDealVol = order.m_vol - vol;
                if (isPositive(order.m_partDealVol))
                    m_hasPartDeal = true;
                order.m_vol -= order.m_partDealVol;
                m_sumVol -= order.m_partDealVol;
            } else {
                order.m_type = classifyVol(order.m_vol);
            }
            ++p;
        } else if (vol == roundedVolume(order)) {
            order.m_type = classifyVol(order.m_vol);
            ++p;
        } else {
            order.m_type = OQT_CANCELED;
            m_sumVol -= order.m_vol;
            subtractCount(m_count);
        }
    }
    for (; p < vols.size(); ++p) {
        COrderVol order;
        order.m_vol = vols[p];
        m_orders.append(order);
        m_sumVol += order.m_vol;
        m_count = clampToInt(std::int64_t(m_count) + 1);
    }
    m_avgVol = m_sumVol / m_count;

    if (!isEqual(m_levelVol, m_sumVol) && listed > 0 && published < kFullQueue && !anchor.found)
        resetByLevelVols(vols);
    if (isNegative(m_avgVol))
        m_avgVol = 0;
}

void OrderQueueData::calcUnknownVol()
{
    if (isZero(m_levelVol) || !inTenLevels())
        return;
    // The list is read from its back: the newest orders are certainly there, and a part-dealt order is the
    // front.
    int startIndex = 0;
    double acc = 0;
    for (int i = m_orders.size() - 1; i >= 0; --i) {
        const COrderVol& order = m_orders.at(i);
        if (order.m_type == OQT_CANCELED || order.m_type == OQT_DEALT)
            continue;
        acc += order.m_vol;
        if (!isLess(acc, m_levelVol) || order.m_type == OQT_PART_DEALT) {
            startIndex = i;
            break;
        }
    }
    m_rest.rememberWalk(m_levelVol, startIndex, acc);
    applyUnknown(startIndex, acc);
}

void OrderQueueData::calcUnknownVolAtRest()
{
    if (isZero(m_levelVol) || !inTenLevels())
        return;
    if (m_rest.knowsWalk(m_levelVol))
        applyUnknown(m_rest.walkStart(), m_rest.walkAcc());
    else
        calcUnknownVol();
}

void OrderQueueData::applyUnknown(int startIndex, double acc)
{
    m_startIndex = startIndex;
    m_count = std::max(0, m_orders.size() - startIndex);
    m_unknownVol = m_levelVol - acc;
    if (!isZero(m_unknownVol) && isLess(std::fabs(m_unknownVol), 1.0))
        m_unknownVol = 0;
    if (isPositive(m_unknownVol)) {
        const auto perFiller = static_cast<std::int64_t>(kFillerLots);
        const std::int64_t filler =
            (std::int64_t(truncateToInt(m_unknownVol + 0.5)) + perFiller - 1) / perFiller;
        m_count = clampToInt(m_count + filler);
    }
}

bool OrderQueueData::trimToLevelVol()
{
    if (isZero(m_levelVol) || !inTenLevels())
        return false;
    double acc = 0;
    for (int i = m_orders.size() - 1; i >= 0; --i) {
        acc += m_orders.at(i).m_vol;
        if (isLess(acc, m_levelVol))
            continue;
        m_orders[i].m_vol -= acc - m_levelVol;
        m_orders.remove(0, i);
        wake();
        return true;
    }
    return false;
}

bool OrderQueueData::dropBeforePartDeal(bool bOnlyTenLevels)
{
    if (isZero(m_levelVol) || (bOnlyTenLevels && !inTenLevels()))
        return false;
    bool marked = false;
    std::int64_t cutNo = 0;
    int stop = -1;
    for (int i = m_orders.size() - 1; i >= 0; --i) {
        const COrderVol& order = m_orders.at(i);
        if (!marked) {
            if (order.m_type == OQT_PART_DEALT && i > 0) {
                marked = true;
                cutNo = order.m_entrustNo;
            }
        } else if (order.m_type != OQT_DEALT) {
            stop = i;
            break;
        }
    }
    if (stop < 0) {
        m_rest.rememberNothingToDrop();
        return false;
    }

    // One sweep over what stands before the cut, so that a long queue is moved once.
    int kept = 0;
    for (int i = 0; i <= stop; ++i) {
        const COrderVol order = m_orders.at(i);
        if (order.m_entrustNo < cutNo) {
            m_sumVol -= order.m_vol;
            subtractCount(m_count);
            continue;
        }
        if (kept != i)
            m_orders[kept] = order;
        ++kept;
    }
    m_orders.remove(kept, stop + 1 - kept);
    wake();
    if (m_count >= 1)
        m_avgVol = m_sumVol / m_count;
    return true;
}

} // namespace Kel
