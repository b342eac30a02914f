// What must hold between the engine's structures whatever the feed brings, and what they cost.

#include "queue_engine/CDepthModelOrderQueue.h"

#include "records/Tolerance.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>

namespace Kel {

#ifdef DEPTH_CHECK_INVARIANTS

namespace {

/// Only a sample is checked, or a pass would cost the square of what it does.
constexpr int kLevelsChecked = 8;
constexpr int kOrdersChecked = 64;

void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "order queue invariant violated: %s\n", what);
    std::abort();
}

} // namespace

void CDepthModelOrderQueue::checkInvariants() const
{
    static thread_local unsigned turn = 0;
    ++turn;
    for (auto side = m_orderQueues.constBegin(); side != m_orderQueues.constEnd(); ++side) {
        const int size = side->size();
        if (size == 0)
            continue;
        auto it = side->constBegin();
        std::advance(it, size > kLevelsChecked ? static_cast<int>(turn % static_cast<unsigned>(size)) : 0);
        for (int n = 0; n < kLevelsChecked && it != side->constEnd(); ++n, ++it) {
            const OrderQueueDataPtr& level = it.value();
            require(level != nullptr, "a level of the queue is null");
            require(level->m_type == side.key(), "a level stands on the side of its type");
            require(level->m_level >= 0 && level->m_level <= kLevels, "m_level is 0 to 10");
            require(it.key() != 0 || level->m_orders.isEmpty(), "key 0 holds no orders");
            require(level->m_startIndex >= 0, "m_startIndex is not negative");
            const OrderQueueData* remembered = m_levelShortcut.find(side.key(), it.key());
            require(!remembered || remembered == level.get(), "the remembered level is the one of its price");
            const auto entries = m_dealCache.find(level->m_type);
            for (int i = 0; i < level->m_orders.size() && i < kOrdersChecked; ++i) {
                const COrderVol& order = level->m_orders.at(i);
                require(order.m_type >= OQT_CANCELED && order.m_type <= OQT_PART_DEALT,
                        "an order's type is a state");
                require(order.m_entrustNo == 0 || m_orderIndex.contains(order.m_entrustNo, level.get()) ||
                            level->m_rest.mustLookUp(order.m_entrustNo),
                        "the index knows every listed number");
                if (!level->m_rest.atRest() || Kel::isFinishedOrder(order.m_type))
                    continue;
                require(order.m_type != OQT_UNKNOWN, "a level at rest has classified its orders");
                require(!m_cancelOrders.contains(order.m_entrustNo),
                        "a level at rest lists no cancelled number");
                require(entries == m_dealCache.end() || !entries->second.contains(order.m_entrustNo),
                        "a level at rest lists no dealt number");
            }
        }
    }
    for (const auto& side : m_orderCache) {
        require(side.first != 0 && side.first != 3, "the order cache has no side 0 or 3");
        if (!side.second.empty())
            require(side.second.begin()->second.get() != nullptr, "a cached order is a record");
    }
}

#else

void CDepthModelOrderQueue::checkInvariants() const {}

#endif

std::size_t CDepthModelOrderQueue::heapBytes() const
{
    const boost::recursive_mutex::scoped_lock lock(m_dataMutex);
    constexpr std::size_t kMapNode = 4 * sizeof(void*); // three pointers and a colour
    std::size_t bytes = m_orderIndex.heapBytes() + m_cancelOrders.heapBytes();
    for (const auto& numbers : m_sweepNumbers)
        bytes += numbers.capacity() * sizeof(std::int64_t);
    for (const auto& side : m_orderCache)
        bytes +=
            side.second.size() * sizeof(OrderCacheSide::value_type) * 4 / 3; // nodes are three quarters full
    for (const auto& kind : m_dealCache)
        bytes += kind.second.heapBytes();
    for (const LevelMap& levels : m_orderQueues) {
        for (const OrderQueueDataPtr& level : levels) {
            bytes += kMapNode + sizeof(OrderQueueDataPtr) + sizeof(OrderQueueData) +
                     static_cast<std::size_t>(level->m_orders.capacity()) * sizeof(COrderVol) +
                     level->m_orderIds.heapBytes() + level->m_rest.heapBytes();
        }
    }
    return bytes;
}

} // namespace Kel
