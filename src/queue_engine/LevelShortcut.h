#pragma once

#include "records/OrderQueueData.h"

#include <array>
#include <cstddef>

namespace Kel {

/// Remembers the levels that orders joined last, so that the next order at such a price finds its level
/// without walking two trees. Guarded by the engine's data mutex; the levels must outlive what is kept here,
/// so it is cleared with the queues.
class LevelShortcut
{
public:
    /// Null if the level of this side and price key is not remembered.
    OrderQueueData* find(int side, int key) const
    {
        const Entry& entry = m_entries[place(side, key)];
        return entry.side == side && entry.key == key ? entry.level : nullptr;
    }

    void keep(int side, int key, OrderQueueData* level) { m_entries[place(side, key)] = {side, key, level}; }
    void clear() { m_entries.fill({}); }

private:
    struct Entry
    {
        int side = 0;
        int key = 0;
        OrderQueueData* level = nullptr;
    };

    /// Prices around the best ones, which most orders come at, have places of their own.
    static std::size_t place(int side, int key)
    {
        return (static_cast<unsigned>(key) * 2 + (static_cast<unsigned>(side) & 1)) % kPlaces;
    }

    static constexpr std::size_t kPlaces = 256;
    std::array<Entry, kPlaces> m_entries{};
};

} // namespace Kel
