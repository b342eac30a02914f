#include "host/SteppedEngine.h"

#include <cmath>
#include <cstring>

namespace host {
namespace {

/// FNV-1a over whole words; a double counts by its bits, with one pattern for 0 and one for not-a-number.
class WordHash
{
public:
    void add(std::uint64_t word)
    {
        for (int shift = 0; shift < 64; shift += 8) {
            m_hash ^= (word >> shift) & 0xff;
            m_hash *= 0x100000001b3ull;
        }
    }
    void add(std::int64_t number) { add(static_cast<std::uint64_t>(number)); }
    void add(int number) { add(static_cast<std::int64_t>(number)); }
    void add(double number)
    {
        std::uint64_t bits = 0x7ff8000000000000ull;
        if (number == 0)
            bits = 0;
        else if (!std::isnan(number))
            std::memcpy(&bits, &number, sizeof bits);
        add(bits);
    }
    void add(const Kel::OrderQueueData& level)
    {
        add(level.m_price);
        add(level.m_time);
        add(level.m_sumVol);
        add(level.m_levelVol);
        add(level.m_avgVol);
        add(level.m_unknownVol);
        add(level.m_level);
        add(static_cast<int>(level.m_type));
        add(level.m_count);
        add(level.m_startIndex);
        add(level.m_hasPartDeal ? 1 : 0);
        add(level.m_orders.size());
        for (const Kel::COrderVol& order : level.m_orders) {
            add(order.m_entrustNo);
            add(order.m_vol);
            add(static_cast<int>(order.m_type));
            add(order.m_partDealVol);
        }
    }

    std::uint64_t value() const { return m_hash; }

private:
    std::uint64_t m_hash = 0xcbf29ce484222325ull;
};

} // namespace

std::uint64_t stateHash(const SteppedEngine& engine)
{
    WordHash hash;
    for (const Kel::EOrderQueueType side : {Kel::OQT_BUY, Kel::OQT_SELL}) {
        const auto levels = engine.allLevels(side);
        hash.add(static_cast<std::int64_t>(levels.size()));
        for (const auto& [key, level] : levels) {
            hash.add(key);
            hash.add(*level);
        }
        for (int row = 0; row < engine.size(); ++row) {
            const Kel::OrderQueueDataPtr shown = engine.at(static_cast<unsigned>(row), side);
            hash.add(shown ? 1 : 0);
            if (shown)
                hash.add(*shown);
        }
    }
    for (const QChar character : engine.headerText())
        hash.add(static_cast<int>(character.unicode()));
    return hash.value();
}

} // namespace host
