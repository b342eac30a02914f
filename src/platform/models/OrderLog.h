#pragma once

#include "platform/models/ChunkedRows.h"
#include "platform/models/NumberMap.h"
#include "records/DepthOrderData.h"
#include "records/OrderData.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Kel {

/// One order as it is kept.
struct OrderLogRow
{
    double price = 0;        ///< yuan, 0 for an order without a price
    std::int64_t shares = 0; ///< original volume
    std::int32_t time = 0;   ///< time tag, seconds since 1970-01-01 UTC
    std::int32_t number = 0; ///< above 0
    std::int32_t side = 0;
    std::int32_t kind = 0;
    std::int32_t lots = 0;
};

/// All orders of a day in order of time tag and number. A late order is put in its place (ordered_merge.h).
/// One thread at a time.
class OrderLog
{
public:
    int size() const { return m_rows.size(); }
    const OrderLogRow& operator[](int index) const { return m_rows[index]; }

    /// An order of the feed as a row; false for a record that is no new order, whose number does not fit
    /// that of a row, or whose time a tag cannot hold. `unit` is shares per lot.
    static bool makeRow(const quoter::OrderData& record, int unit, OrderLogRow& row);

    static bool isBefore(const OrderLogRow& left, const OrderLogRow& right);

    /// Puts a batch in order and takes those orders out of it whose number is there, or came before in the
    /// batch.
    void prepare(std::vector<OrderLogRow>& batch) const;

    /// Index of an order by number, -1 when unknown.
    int find(std::int32_t number) const;

    /// Fills a row as it is handed out.
    void fill(int index, DepthOrderData& into) const;

    /// Puts an order at the end, which is its place.
    void append(const OrderLogRow& row);

    /// Takes the last order away.
    void removeLast();

    std::size_t heapBytes() const { return m_rows.heapBytes() + m_places.heapBytes(); }

private:
    ChunkedRows<OrderLogRow> m_rows;
    NumberMap<std::int32_t, std::int32_t> m_places; ///< index of each number
};

} // namespace Kel
