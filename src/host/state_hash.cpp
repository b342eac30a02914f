#include "host/SteppedEngine.h"
#include "host/WordHash.h"

namespace host {
namespace {

void addLevel(WordHash& hash, const Kel::OrderQueueData& level)
{
    hash.add(level.m_price, level.m_time, level.m_sumVol, level.m_levelVol, level.m_avgVol,
             level.m_unknownVol, level.m_level, static_cast<int>(level.m_type), level.m_count,
             level.m_startIndex, level.m_hasPartDeal ? 1 : 0, level.m_orders.size());
    for (const Kel::COrderVol& order : level.m_orders)
        hash.add(order.m_entrustNo, order.m_vol, static_cast<int>(order.m_type), order.m_partDealVol);
}

} // namespace

std::uint64_t stateHash(const SteppedEngine& engine)
{
    WordHash hash;
    for (const Kel::EOrderQueueType side : {Kel::OQT_BUY, Kel::OQT_SELL}) {
        const auto levels = engine.allLevels(side);
        hash.add(static_cast<std::int64_t>(levels.size()));
        for (const auto& [key, level] : levels) {
            hash.add(key);
            addLevel(hash, *level);
        }
        for (int row = 0; row < engine.size(); ++row) {
            const Kel::OrderQueueDataPtr shown = engine.at(static_cast<unsigned>(row), side);
            hash.add(shown ? 1 : 0);
            if (shown)
                addLevel(hash, *shown);
        }
    }
    hash.add(engine.headerText());
    return hash.value();
}

} // namespace host
