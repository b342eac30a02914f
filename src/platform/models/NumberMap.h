#pragma once

#include <absl/container/flat_hash_map.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace Kel {

/// A hash map from order numbers to small values, in shards: when it grows, one shard at a time moves its
/// entries, so that no single insertion waits for the whole map. One thread at a time.
template <class Key, class Value>
class NumberMap
{
public:
    /// Null if there is none. Valid until the next change.
    const Value* find(Key key) const
    {
        const auto& shard = m_shards[shardOf(key)];
        const auto at = shard.find(key);
        return at == shard.end() ? nullptr : &at->second;
    }
    Value* find(Key key) { return const_cast<Value*>(static_cast<const NumberMap*>(this)->find(key)); }

    /// The value of the key, made if there was none.
    Value& operator[](Key key) { return m_shards[shardOf(key)][key]; }

    /// The value of the key, and whether it was put there now; one that was there stays as it is.
    std::pair<Value*, bool> tryInsert(Key key, const Value& value)
    {
        const auto [at, isNew] = m_shards[shardOf(key)].try_emplace(key, value);
        return {&at->second, isNew};
    }

    /// False, with nothing changed, if the key was there.
    bool insert(Key key, const Value& value) { return m_shards[shardOf(key)].emplace(key, value).second; }

    void remove(Key key) { m_shards[shardOf(key)].erase(key); }

    std::size_t heapBytes() const
    {
        std::size_t bytes = 0;
        for (const auto& shard : m_shards)
            bytes += shard.capacity() * (sizeof(std::pair<const Key, Value>) + 1);
        return bytes;
    }

private:
    static constexpr std::size_t kShards = 64;

    /// Other bits than those that the map inside looks at, from a number of which the low bits differ most.
    static std::size_t shardOf(Key key)
    {
        return static_cast<std::size_t>((static_cast<std::uint64_t>(key) * 0x9E3779B97F4A7C15ull) >> 58);
    }

    std::array<absl::flat_hash_map<Key, Value>, kShards> m_shards;
};

} // namespace Kel
