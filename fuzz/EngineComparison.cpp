#include "EngineComparison.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace fuzzing {

namespace {

using testing_support::EngineProbe;

std::string numberText(double value)
{
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.17g", value);
    return buffer;
}

bool same(double left, double right)
{
    return left == right || (std::isnan(left) && std::isnan(right));
}

/// Collects the first difference; what is compared after it is passed over.
class Difference
{
public:
    const std::string& text() const { return m_text; }
    bool found() const { return !m_text.empty(); }

    void compare(const std::string& what, double left, double right)
    {
        if (!found() && !same(left, right))
            m_text = what + ": " + numberText(left) + " and " + numberText(right);
    }

    void compare(const std::string& what, std::int64_t left, std::int64_t right)
    {
        if (!found() && left != right)
            m_text = what + ": " + std::to_string(left) + " and " + std::to_string(right);
    }

    void compare(const std::string& what, std::size_t left, std::size_t right)
    {
        compare(what, static_cast<std::int64_t>(left), static_cast<std::int64_t>(right));
    }

    void compare(const std::string& what, int left, int right)
    {
        compare(what, std::int64_t(left), std::int64_t(right));
    }

    void compare(const std::string& what, bool left, bool right)
    {
        compare(what, std::int64_t(left), std::int64_t(right));
    }

private:
    std::string m_text;
};

void compareOrders(Difference& difference, const std::string& where, const Kel::OrderList& left,
                   const Kel::OrderList& right)
{
    difference.compare(where + " number of orders", left.size(), right.size());
    for (int i = 0; i < left.size() && !difference.found(); ++i) {
        const Kel::COrderVol& a = left.at(i);
        const Kel::COrderVol& b = right.at(i);
        if (a.m_entrustNo == b.m_entrustNo && a.m_type == b.m_type && same(a.m_vol, b.m_vol) &&
            same(a.m_partDealVol, b.m_partDealVol))
            continue;
        const std::string order = where + " order " + std::to_string(i);
        difference.compare(order + " number", a.m_entrustNo, b.m_entrustNo);
        difference.compare(order + " type", int(a.m_type), int(b.m_type));
        difference.compare(order + " volume", a.m_vol, b.m_vol);
        difference.compare(order + " dealt part", a.m_partDealVol, b.m_partDealVol);
    }
}

void compareLevels(Difference& difference, const std::string& where, const Kel::OrderQueueData& left,
                   const Kel::OrderQueueData& right)
{
    compareOrders(difference, where, left.m_orders, right.m_orders);
    difference.compare(where + " price", left.m_price, right.m_price);
    difference.compare(where + " time", left.m_time, right.m_time);
    difference.compare(where + " sum", left.m_sumVol, right.m_sumVol);
    difference.compare(where + " volume", left.m_levelVol, right.m_levelVol);
    difference.compare(where + " average", left.m_avgVol, right.m_avgVol);
    difference.compare(where + " unknown volume", left.m_unknownVol, right.m_unknownVol);
    difference.compare(where + " known numbers", left.m_orderIds.size(), right.m_orderIds.size());
    difference.compare(where + " level", left.m_level, right.m_level);
    difference.compare(where + " type", int(left.m_type), int(right.m_type));
    difference.compare(where + " count", left.m_count, right.m_count);
    difference.compare(where + " start", left.m_startIndex, right.m_startIndex);
    difference.compare(where + " part dealt", left.m_hasPartDeal, right.m_hasPartDeal);
}

void compareQueues(Difference& difference, const EngineProbe& left, const EngineProbe& right)
{
    difference.compare("sides of the queue", left.m_orderQueues.size(), right.m_orderQueues.size());
    if (difference.found())
        return;
    auto rightSide = right.m_orderQueues.begin();
    for (auto leftSide = left.m_orderQueues.begin(); leftSide != left.m_orderQueues.end();
         ++leftSide, ++rightSide) {
        const std::string side = "side " + std::to_string(leftSide.key());
        difference.compare(side, leftSide.key(), rightSide.key());
        difference.compare(side + " levels", leftSide->size(), rightSide->size());
        if (difference.found())
            return;
        auto other = rightSide->begin();
        for (auto level = leftSide->begin(); level != leftSide->end() && !difference.found();
             ++level, ++other) {
            const std::string where = side + " price key " + std::to_string(level.key());
            difference.compare(where, level.key(), other.key());
            if (!difference.found())
                compareLevels(difference, where, **level, **other);
        }
    }
}

template <class Map, class CompareValues>
void compareMaps(Difference& difference, const std::string& what, const Map& left, const Map& right,
                 CompareValues compareValues)
{
    difference.compare(what + " size", left.size(), right.size());
    if (difference.found())
        return;
    auto other = right.begin();
    for (auto entry = left.begin(); entry != left.end() && !difference.found(); ++entry, ++other) {
        const std::string where = what + " " + std::to_string(entry->first);
        difference.compare(where, std::int64_t(entry->first), std::int64_t(other->first));
        compareValues(where, entry->second, other->second);
    }
}

void compareCaches(Difference& difference, const EngineProbe& left, const EngineProbe& right)
{
    compareMaps(difference, "order cache", left.m_orderCache, right.m_orderCache,
                [&](const std::string& where, const auto& a, const auto& b) {
                    compareMaps(difference, where, a, b,
                                [&](const std::string& order, const auto& x, const auto& y) {
                                    difference.compare(order + " record", x == y, true);
                                });
                });
    compareMaps(difference, "deal cache", left.m_dealCache, right.m_dealCache,
                [&](const std::string& where, const auto& a, const auto& b) {
                    compareMaps(difference, where, a, b, [&](const std::string& order, double x, double y) {
                        difference.compare(order + " lots", x, y);
                    });
                });
    difference.compare("cancelled numbers", left.m_cancelOrders.size(), right.m_cancelOrders.size());
    if (!difference.found())
        difference.compare(
            "same cancelled numbers",
            std::equal(left.m_cancelOrders.begin(), left.m_cancelOrders.end(), right.m_cancelOrders.begin()),
            true);
}

void compareRows(Difference& difference, const EngineProbe& left, const EngineProbe& right)
{
    for (const Kel::EOrderQueueType side : {Kel::OQT_SELL, Kel::OQT_BUY}) {
        for (unsigned index = 0; index < 10 && !difference.found(); ++index) {
            const Kel::OrderQueueDataPtr a = left.at(index, side);
            const Kel::OrderQueueDataPtr b = right.at(index, side);
            const std::string where = "side " + std::to_string(side) + " row " + std::to_string(index);
            difference.compare(where, a != nullptr, b != nullptr);
            if (a && b)
                compareLevels(difference, where, *a, *b);
        }
    }
    difference.compare("same header", left.headerText() == right.headerText(), true);
    difference.compare("same ten prices", left.m_tenPrices == right.m_tenPrices, true);
}

void compareState(Difference& difference, const EngineProbe& left, const EngineProbe& right)
{
    difference.compare("deals back", left.m_bDealBack.load(), right.m_bDealBack.load());
    difference.compare("orders awaited", left.m_bNeedAppendOrder.load(), right.m_bNeedAppendOrder.load());
    difference.compare("match has run", left.isLevelDataBack(), right.isLevelDataBack());
    difference.compare("rows stale", left.m_bNeedCalc.load(), right.m_bNeedCalc.load());
    difference.compare("needs repaint", left.m_bNeedRepaint.load(), right.m_bNeedRepaint.load());
    difference.compare("level arrived", left.m_bLevelArrived.load(), right.m_bLevelArrived.load());
    difference.compare("orders since the sweep", left.m_nOrderCount, right.m_nOrderCount);
    difference.compare("deals since the sweep", left.m_nDealCount, right.m_nDealCount);
    difference.compare("refresh ticks", left.m_nRefreshCount, right.m_nRefreshCount);
    difference.compare("feed time", left.m_lastFeedTime.load(), right.m_lastFeedTime.load());
    difference.compare("refresh clock", left.m_refreshClock.load(), right.m_refreshClock.load());
    difference.compare("snapshot time", left.m_depthTime.load(), right.m_depthTime.load());
    difference.compare("largest order number", left.m_maxEntrustNo, right.m_maxEntrustNo);
    difference.compare("largest deal number", left.m_maxDealNo, right.m_maxDealNo);
}

} // namespace

std::string engineDifference(const EngineProbe& left, const EngineProbe& right)
{
    Difference difference;
    compareState(difference, left, right);
    compareCaches(difference, left, right);
    compareQueues(difference, left, right);
    compareRows(difference, left, right);
    return difference.text();
}

} // namespace fuzzing
