#pragma once

#include "platform/models/ChunkedRows.h"
#include "platform/models/NumberMap.h"
#include "records/OrderData.h"

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <cstdint>

namespace Kel {

/// Whether a record is a new order that can be named and shown: a number and shares above 0, a price that is
/// one (0 for an order without), and no status message.
bool isNewOrder(const quoter::OrderData& record);

/// The orders of a day by number. One thread at a time.
class OrderTable
{
public:
    /// Enters an order. False, with nothing changed, for one that is not new or whose number is known.
    bool add(const quoter::OrderData& record);

    /// A copy of the order's record, null for an unknown number.
    boost::shared_ptr<quoter::OrderData> find(std::int64_t number) const;

    /// The order's original volume; -1 for an unknown number.
    std::int64_t shares(std::int64_t number) const;

    int size() const { return m_rows.size(); }
    std::size_t heapBytes() const { return m_rows.heapBytes() + m_places.heapBytes(); }

private:
    struct Row
    {
        std::int64_t time = 0; ///< milliseconds
        double price = 0;
        std::int64_t shares = 0;
        std::int32_t kind = 0;
        std::int32_t side = 0;
    };

    ChunkedRows<Row> m_rows; ///< in order of arrival
    NumberMap<std::int64_t, std::int32_t> m_places;
};

} // namespace Kel
