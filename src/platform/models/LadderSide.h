#pragma once

#include "platform/models/OrderBook.h"
#include "records/EntrustData.h"

#include <absl/container/flat_hash_map.h>

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Kel {

/// The rows of one side of the ladder as they were reported last, best price first, and what a report has to
/// say: rows that changed, and by how much. A row that was handed out is never changed; a changed one is
/// replaced. One thread at a time.
class LadderSide
{
public:
    using Rows = std::vector<boost::shared_ptr<EntrustData>>;

    /// What an update found.
    struct News
    {
        bool size = false; ///< there are more or fewer rows
        bool rows = false; ///< a row came, went or has other data
    };

    explicit LadderSide(EOrderQueueType side) : m_side(side) {}

    /// Forgets all rows without a word.
    void clear();

    /// All rows anew, with change 0: at most `most` of `levels`, best first, are shown.
    News cover(const std::vector<BookLevel>& levels, std::size_t most, int unit);

    /// Any row may have changed: `levels` are all that stand, best first; at most `most` are shown.
    News replace(const std::vector<BookLevel>& levels, std::size_t most, int unit);

    /// The prices in `keys`, ascending, were touched: at most `most` rows are shown. The cost is that of the
    /// touched rows and of a look at each shown one.
    News update(const OrderBook& book, const std::vector<int>& keys, std::size_t most, int unit);

    /// Makes `rows` the list to hand out, ascending by price: the best price stands last for buys and first
    /// for sells. Rows that stand in the list already are left alone.
    void handOut(Rows& rows) const;

    /// Widens the bounds by the rows: lowest and highest price, and the largest lots times price.
    void addBounds(double& minPrice, double& maxPrice, double& maxAmount) const;

private:
    static constexpr std::int32_t kNever = -1;

    struct Row
    {
        int key = 0;
        std::int32_t lots = 0;
        std::int32_t reported = kNever; ///< lots in the report before
        double price = 0;
        double amount = 0; ///< lots times price
        boost::shared_ptr<EntrustData> data;
    };

    bool isBetter(int key, int than) const { return m_side == OQT_BUY ? key > than : key < than; }
    static Row makeRow(const BookLevel& level, std::int32_t reported, int unit);
    Row newRow(const BookLevel& level, int unit);
    static bool renew(Row& row, const BookLevel& level, int unit);
    void drop(const Row& row);
    void forget(const OrderBook& book, const std::vector<int>& keys);
    void forgetAllBut(const std::vector<BookLevel>& levels);
    void settle();

    EOrderQueueType m_side;
    std::vector<Row> m_rows; ///< best first
    std::vector<Row> m_next; ///< kept for its memory

    /// Lots of levels that were reported and are not shown now, though they stand.
    absl::flat_hash_map<int, std::int32_t> m_unseen;
};

} // namespace Kel
