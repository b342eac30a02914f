#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <limits>
#include <map>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace Kel {

/// An ordered map by order number, with the operations of `std::map` that the engine uses.
///
/// An exchange numbers the orders of a channel upward, and what is asked for next is mostly near to what was
/// asked for last. So numbers are paged instead of searched: a page stands for 256 numbers in a row, tells by
/// a bit which of them it holds, and keeps their values packed in order; eight pages in a row are one piece
/// of memory, a chunk. A look-up reads three short arrays and compares nothing, which takes a third of the
/// time of a B-tree at a million entries (see bench/results); thinly spread numbers cost a chunk each. A bit
/// for every chunk tells which exist, so that walking such numbers does not visit the gaps. Numbers below 0
/// and from 2^28 on, which no channel of an exchange reaches in a day, are kept in a plain map.
///
/// Iterators are valid until the map is changed. One thread at a time.
template <class Value>
class OrderNumberMap
{
    template <bool Const>
    class Iterator;

public:
    using key_type = std::int64_t;
    using mapped_type = Value;
    using size_type = std::size_t;
    using iterator = Iterator<false>;
    using const_iterator = Iterator<true>;

    OrderNumberMap() = default;
    OrderNumberMap(OrderNumberMap&&) noexcept = default;
    OrderNumberMap& operator=(OrderNumberMap&&) noexcept = default;
    OrderNumberMap(const OrderNumberMap& other)
    {
        for (const auto entry : other)
            try_emplace(entry.first, entry.second);
    }
    OrderNumberMap& operator=(const OrderNumberMap& other)
    {
        OrderNumberMap copy(other);
        swap(copy);
        return *this;
    }

    friend bool operator==(const OrderNumberMap& a, const OrderNumberMap& b)
    {
        if (a.size() != b.size())
            return false;
        for (auto x = a.begin(), y = b.begin(); x != a.end(); ++x, ++y) {
            if (x->first != y->first || !(x->second == y->second))
                return false;
        }
        return true;
    }

    bool empty() const { return m_size == 0; }
    size_type size() const { return m_size; }

    iterator begin() { return {this, seek(std::numeric_limits<std::int64_t>::min())}; }
    iterator end() { return {this, Place()}; }
    const_iterator begin() const { return {this, seek(std::numeric_limits<std::int64_t>::min())}; }
    const_iterator end() const { return {this, Place()}; }

    iterator find(std::int64_t number) { return {this, place(number)}; }
    const_iterator find(std::int64_t number) const { return {this, place(number)}; }
    bool contains(std::int64_t number) const { return place(number).value != nullptr; }
    size_type count(std::int64_t number) const { return contains(number) ? 1 : 0; }

    Value& operator[](std::int64_t number) { return *enter(number).first; }

    /// The entry of the number, and whether it is new; a new one is made of `value`.
    std::pair<iterator, bool> try_emplace(std::int64_t number, Value value)
    {
        const auto [entry, entered] = enter(number);
        if (entered)
            *entry = std::move(value);
        return {iterator(this, Place{number, entry}), entered};
    }

    size_type erase(std::int64_t number)
    {
        if (!isPaged(number)) {
            const size_type erased = m_others.erase(number);
            m_size -= erased;
            return erased;
        }
        Page* page = pageOf(number);
        if (!page || !page->has(number))
            return 0;
        page->erase(number);
        --m_size;
        if (page->values.empty())
            freePage(number);
        return 1;
    }

    /// Erases an entry and gives the next one.
    iterator erase(const iterator& it)
    {
        const std::int64_t number = it->first;
        erase(number);
        return {this, seek(number, false)};
    }

    void clear()
    {
        m_chunks.clear();
        m_chunkBits.clear();
        m_others.clear();
        m_size = 0;
    }

    void swap(OrderNumberMap& other) noexcept
    {
        m_chunks.swap(other.m_chunks);
        m_chunkBits.swap(other.m_chunkBits);
        m_others.swap(other.m_others);
        std::swap(m_size, other.m_size);
    }

    /// Bytes on the heap, the allocator's own left out.
    std::size_t heapBytes() const
    {
        std::size_t bytes = m_chunks.capacity() * sizeof(m_chunks[0]) +
                            m_chunkBits.capacity() * sizeof(m_chunkBits[0]) +
                            m_others.size() * (sizeof(std::pair<std::int64_t, Value>) + 4 * sizeof(void*));
        for (const auto& chunk : m_chunks) {
            if (!chunk)
                continue;
            bytes += sizeof(Chunk);
            for (const Page& page : chunk->pages)
                bytes += page.values.capacity() * sizeof(Value);
        }
        return bytes;
    }

private:
    static constexpr int kPageBits = 8;   // numbers of a page
    static constexpr int kChunkBits = 11; // numbers of a chunk of pages
    static constexpr std::int64_t kPagedEnd = std::int64_t(1) << 28;
    static constexpr std::size_t kPages = std::size_t(1) << (kChunkBits - kPageBits);
    static constexpr unsigned kWords = (1u << kPageBits) / 64;

    struct alignas(64) Page
    {
        std::array<std::uint64_t, kWords> bits{};
        std::array<std::uint8_t, kWords> before{}; ///< set bits in the words before each
        std::vector<Value> values;                 ///< of the numbers whose bits are set, in their order

        static unsigned word(std::int64_t number) { return (static_cast<unsigned>(number) >> 6) % kWords; }
        static std::uint64_t bit(std::int64_t number) { return std::uint64_t(1) << (number & 63); }

        bool has(std::int64_t number) const { return (bits[word(number)] & bit(number)) != 0; }

        std::size_t rank(std::int64_t number) const
        {
            const unsigned at = word(number);
            return before[at] + bitCount(bits[at] & (bit(number) - 1));
        }

        Value* insert(std::int64_t number)
        {
            const auto at = static_cast<std::ptrdiff_t>(rank(number));
            bits[word(number)] |= bit(number);
            for (unsigned i = word(number) + 1; i < kWords; ++i)
                ++before[i];
            return &*values.insert(values.begin() + at, Value());
        }

        void erase(std::int64_t number)
        {
            values.erase(values.begin() + static_cast<std::ptrdiff_t>(rank(number)));
            bits[word(number)] &= ~bit(number);
            for (unsigned i = word(number) + 1; i < kWords; ++i)
                --before[i];
        }

        /// Set bits, without the processor's instruction, which the oldest machines lack and the library call
        /// hides.
        static unsigned bitCount(std::uint64_t word)
        {
            word -= (word >> 1) & 0x5555555555555555ull;
            word = (word & 0x3333333333333333ull) + ((word >> 2) & 0x3333333333333333ull);
            word = (word + (word >> 4)) & 0x0f0f0f0f0f0f0f0full;
            return static_cast<unsigned>((word * 0x0101010101010101ull) >> 56);
        }

        /// Offset in the page of the first number at or after `from`; the page's size if there is none.
        unsigned firstFrom(unsigned from) const
        {
            for (unsigned i = from / 64; i < kWords; ++i) {
                std::uint64_t rest = bits[i];
                if (i == from / 64)
                    rest &= ~std::uint64_t(0) << (from % 64);
                if (rest != 0)
                    return i * 64 + static_cast<unsigned>(__builtin_ctzll(rest));
            }
            return 1u << kPageBits;
        }
    };

    struct Chunk
    {
        std::array<Page, kPages> pages;
        std::size_t used = 0; ///< pages that hold anything
    };

    struct Place
    {
        std::int64_t number = 0;
        Value* value = nullptr;
    };

    template <bool Const>
    class Iterator
    {
        using Map = std::conditional_t<Const, const OrderNumberMap, OrderNumberMap>;
        using Mapped = std::conditional_t<Const, const Value, Value>;

    public:
        struct Entry
        {
            std::int64_t first;
            Mapped& second;
            Entry* operator->() { return this; }
        };
        using iterator_category = std::input_iterator_tag;
        using value_type = Entry;
        using difference_type = std::ptrdiff_t;
        using pointer = Entry;
        using reference = Entry;

        Iterator() = default;
        Iterator(Map* map, Place place) : m_map(map), m_place(place) {}

        Entry operator*() const { return {m_place.number, *m_place.value}; }
        Entry operator->() const { return {m_place.number, *m_place.value}; }
        Iterator& operator++()
        {
            m_place = m_map->seek(m_place.number, false);
            return *this;
        }
        bool operator==(const Iterator& other) const { return m_place.value == other.m_place.value; }
        bool operator!=(const Iterator& other) const { return m_place.value != other.m_place.value; }

    private:
        Map* m_map = nullptr;
        Place m_place;
    };

    static bool isPaged(std::int64_t number) { return number >= 0 && number < kPagedEnd; }
    static std::size_t chunkIndex(std::int64_t number)
    {
        return static_cast<std::size_t>(number >> kChunkBits);
    }
    static std::size_t pageIndex(std::int64_t number)
    {
        return static_cast<std::size_t>(number >> kPageBits) % kPages;
    }

    Page* pageOf(std::int64_t number) const
    {
        const std::size_t index = chunkIndex(number);
        if (index >= m_chunks.size() || !m_chunks[index])
            return nullptr;
        return &m_chunks[index]->pages[pageIndex(number)];
    }

    Place place(std::int64_t number) const
    {
        if (isPaged(number)) {
            Page* page = pageOf(number);
            return page && page->has(number) ? Place{number, &page->values[page->rank(number)]} : Place();
        }
        const auto it = m_others.find(number);
        return it == m_others.end() ? Place() : Place{number, const_cast<Value*>(&it->second)};
    }

    /// The value of the number, and whether it was entered now.
    std::pair<Value*, bool> enter(std::int64_t number)
    {
        if (!isPaged(number)) {
            const auto [it, entered] = m_others.try_emplace(number);
            m_size += entered ? 1 : 0;
            return {&it->second, entered};
        }
        const std::size_t index = chunkIndex(number);
        if (index >= m_chunks.size()) {
            m_chunks.resize(index + 1);
            m_chunkBits.resize(index / 64 + 1);
        }
        if (!m_chunks[index]) {
            m_chunks[index] = std::make_unique<Chunk>();
            m_chunkBits[index / 64] |= std::uint64_t(1) << (index % 64);
        }
        Chunk& chunk = *m_chunks[index];
        Page& page = chunk.pages[pageIndex(number)];
        if (page.has(number))
            return {&page.values[page.rank(number)], false};
        chunk.used += page.values.empty() ? 1 : 0;
        ++m_size;
        return {page.insert(number), true};
    }

    void freePage(std::int64_t number)
    {
        const std::size_t index = chunkIndex(number);
        std::unique_ptr<Chunk>& chunk = m_chunks[index];
        chunk->pages[pageIndex(number)].values = std::vector<Value>();
        if (--chunk->used == 0) {
            chunk.reset();
            m_chunkBits[index / 64] &= ~(std::uint64_t(1) << (index % 64));
        }
    }

    /// The first entry after `number`, or from it on.
    Place seek(std::int64_t number, bool inclusive = true) const
    {
        if (!inclusive) {
            if (number == std::numeric_limits<std::int64_t>::max())
                return {};
            ++number;
        }
        if (number < 0) {
            const auto it = m_others.lower_bound(number);
            if (it != m_others.end() && it->first < 0)
                return {it->first, const_cast<Value*>(&it->second)};
            number = 0;
        }
        if (number < kPagedEnd) {
            const Place paged = seekPaged(number);
            if (paged.value)
                return paged;
            number = kPagedEnd;
        }
        const auto it = m_others.lower_bound(number);
        return it == m_others.end() ? Place() : Place{it->first, const_cast<Value*>(&it->second)};
    }

    Place seekPaged(std::int64_t number) const
    {
        unsigned from = static_cast<unsigned>(number) % (1u << kPageBits);
        std::size_t page = pageIndex(number);
        const std::size_t first = chunkIndex(number);
        for (std::size_t index = usedChunk(first); index < m_chunks.size(); index = usedChunk(index + 1)) {
            if (index != first)
                page = from = 0;
            for (; page < kPages; ++page, from = 0) {
                Page& found = m_chunks[index]->pages[page];
                const unsigned offset = found.firstFrom(from);
                if (offset >= 1u << kPageBits)
                    continue;
                const std::int64_t at = (static_cast<std::int64_t>(index) << kChunkBits) +
                                        (static_cast<std::int64_t>(page) << kPageBits) + offset;
                return {at, &found.values[found.rank(at)]};
            }
        }
        return {};
    }

    /// The first chunk that exists, from `index` on; the number of chunks or more if there is none.
    std::size_t usedChunk(std::size_t index) const
    {
        for (std::size_t word = index / 64; word < m_chunkBits.size(); ++word) {
            std::uint64_t rest = m_chunkBits[word];
            if (word == index / 64)
                rest &= ~std::uint64_t(0) << (index % 64);
            if (rest != 0)
                return word * 64 + static_cast<std::size_t>(__builtin_ctzll(rest));
        }
        return m_chunks.size();
    }

    std::vector<std::unique_ptr<Chunk>> m_chunks; ///< by number
    std::vector<std::uint64_t> m_chunkBits;       ///< which of them exist
    std::map<std::int64_t, Value> m_others;       ///< numbers that are not paged
    std::size_t m_size = 0;
};

/// An ordered set of order numbers, paged like the map, with the operations of `std::set` that the engine
/// uses.
class OrderedNumberSet
{
    struct Nothing
    {
        friend bool operator==(Nothing, Nothing) { return true; }
    };
    using Numbers = OrderNumberMap<Nothing>;

public:
    class const_iterator
    {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = std::int64_t;
        using difference_type = std::ptrdiff_t;
        using pointer = const std::int64_t*;
        using reference = std::int64_t;

        explicit const_iterator(Numbers::const_iterator it) : m_it(it) {}
        std::int64_t operator*() const { return m_it->first; }
        const_iterator& operator++()
        {
            ++m_it;
            return *this;
        }
        bool operator==(const const_iterator& other) const { return m_it == other.m_it; }
        bool operator!=(const const_iterator& other) const { return m_it != other.m_it; }

    private:
        Numbers::const_iterator m_it;
    };

    OrderedNumberSet() = default;
    OrderedNumberSet(std::initializer_list<std::int64_t> numbers)
    {
        for (const std::int64_t number : numbers)
            insert(number);
    }

    bool empty() const { return m_numbers.empty(); }
    std::size_t size() const { return m_numbers.size(); }
    bool contains(std::int64_t number) const { return m_numbers.contains(number); }
    std::size_t count(std::int64_t number) const { return m_numbers.count(number); }
    const_iterator begin() const { return const_iterator(m_numbers.begin()); }
    const_iterator end() const { return const_iterator(m_numbers.end()); }

    /// False if the number was in the set already.
    bool insert(std::int64_t number) { return m_numbers.try_emplace(number, {}).second; }
    std::size_t erase(std::int64_t number) { return m_numbers.erase(number); }
    void clear() { m_numbers.clear(); }
    void swap(OrderedNumberSet& other) noexcept { m_numbers.swap(other.m_numbers); }

    /// Bytes on the heap, the allocator's own left out.
    std::size_t heapBytes() const { return m_numbers.heapBytes(); }

    friend bool operator==(const OrderedNumberSet& a, const OrderedNumberSet& b)
    {
        return a.m_numbers == b.m_numbers;
    }

private:
    Numbers m_numbers;
};

} // namespace Kel
