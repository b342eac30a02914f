#include "feed/simulation/TickSet.h"

#include <algorithm>

namespace feed {
namespace {

constexpr std::size_t kWordBits = 64;

std::uint64_t bitOf(std::size_t index)
{
    return std::uint64_t(1) << (index % kWordBits);
}

int lowestBit(std::uint64_t word)
{
    return __builtin_ctzll(word);
}

int highestBit(std::uint64_t word)
{
    return 63 - __builtin_clzll(word);
}

} // namespace

TickSet::TickSet(std::size_t size)
{
    std::size_t words = std::max<std::size_t>(size, 1);
    do {
        words = (words + kWordBits - 1) / kWordBits;
        m_layers.emplace_back(words, 0);
    } while (words > 1);
}

void TickSet::insert(std::size_t number)
{
    for (auto& layer : m_layers) {
        std::uint64_t& word = layer[number / kWordBits];
        const bool wasEmpty = word == 0;
        word |= bitOf(number);
        if (!wasEmpty)
            return;
        number /= kWordBits;
    }
}

void TickSet::remove(std::size_t number)
{
    for (auto& layer : m_layers) {
        std::uint64_t& word = layer[number / kWordBits];
        word &= ~bitOf(number);
        if (word != 0)
            return;
        number /= kWordBits;
    }
}

bool TickSet::contains(std::size_t number) const
{
    const std::size_t word = number / kWordBits;
    return word < m_layers[0].size() && (m_layers[0][word] & bitOf(number)) != 0;
}

int TickSet::atOrAbove(int from) const
{
    std::size_t index = static_cast<std::size_t>(std::max(from, 0));
    for (std::size_t depth = 0; depth < m_layers.size(); ++depth) {
        const std::size_t word = index / kWordBits;
        if (word >= m_layers[depth].size())
            return -1;
        const std::uint64_t rest = m_layers[depth][word] & (~std::uint64_t(0) << (index % kWordBits));
        if (rest != 0) {
            std::size_t found = word * kWordBits + static_cast<std::size_t>(lowestBit(rest));
            while (depth-- > 0)
                found = found * kWordBits + static_cast<std::size_t>(lowestBit(m_layers[depth][found]));
            return static_cast<int>(found);
        }
        index = word + 1;
    }
    return -1;
}

int TickSet::atOrBelow(int from) const
{
    if (from < 0)
        return -1;
    std::size_t index = std::min(static_cast<std::size_t>(from), m_layers[0].size() * kWordBits - 1);
    for (std::size_t depth = 0; depth < m_layers.size(); ++depth) {
        const std::size_t word = index / kWordBits;
        const std::uint64_t rest = m_layers[depth][word] & (~std::uint64_t(0) >> (63 - index % kWordBits));
        if (rest != 0) {
            std::size_t found = word * kWordBits + static_cast<std::size_t>(highestBit(rest));
            while (depth-- > 0)
                found = found * kWordBits + static_cast<std::size_t>(highestBit(m_layers[depth][found]));
            return static_cast<int>(found);
        }
        if (word == 0)
            return -1;
        index = word - 1;
    }
    return -1;
}

} // namespace feed
