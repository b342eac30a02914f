#pragma once

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <algorithm>
#include <array>
#include <cstdint>

namespace Kel {

/// Rows as they are handed out: made from what is kept in pages of neighbouring rows, so that a list on the
/// screen costs a few allocations. A row that was handed out never changes and lives as long as somebody
/// holds it; after a change of the data the pages are made anew. One thread at a time.
template <class Row>
class RowPages
{
public:
    /// Row `row` of `count`, null outside. `version` is another one after each change of the data;
    /// `make(index, into)` fills a row.
    template <class Make>
    boost::shared_ptr<Row> get(int row, int count, std::uint64_t version, Make make)
    {
        if (row < 0 || row >= count)
            return {};
        const int number = row / kRows;
        Slot& slot = m_slots[static_cast<std::size_t>(number) % kSlots];
        if (!slot.page || slot.number != number || slot.version != version) {
            slot.page = boost::make_shared<Page>();
            slot.number = number;
            slot.version = version;
            const int first = number * kRows;
            for (int index = first; index < std::min(first + kRows, count); ++index)
                make(index, (*slot.page)[static_cast<std::size_t>(index - first)]);
        }
        return boost::shared_ptr<Row>(slot.page, &(*slot.page)[static_cast<std::size_t>(row % kRows)]);
    }

private:
    static constexpr int kRows = 32;
    static constexpr std::size_t kSlots = 64;

    using Page = std::array<Row, kRows>;

    struct Slot
    {
        boost::shared_ptr<Page> page;
        int number = 0;
        std::uint64_t version = 0;
    };

    std::array<Slot, kSlots> m_slots;
};

} // namespace Kel
