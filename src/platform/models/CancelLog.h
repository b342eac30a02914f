#pragma once

#include "platform/models/ChunkedRows.h"
#include "platform/models/NumberMap.h"
#include "records/DepthCancelData.h"
#include "records/TransactionData.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Kel {

/// One cancellation as it is kept.
struct CancelLogRow
{
    double price = 0; ///< yuan, of the cancel record
    std::int64_t shares = 0;
    std::int32_t time = 0; ///< time tag, seconds since 1970-01-01 UTC
    std::int32_t dealNo = 0;
    std::int32_t buyNo = 0;
    std::int32_t sellNo = 0;
    std::int32_t lots = 0;
    std::int32_t previous = -1; ///< index of the cancel of the same order before this one, -1 for none
    std::uint16_t rest = 0;     ///< milliseconds of the second

    /// The cancelled order: `buyNo`, or `sellNo` when that is 0.
    std::int32_t number() const { return buyNo != 0 ? buyNo : sellNo; }

    /// The side that the numbers prove, 0 when they do not: a sell order's stands in `sellNo`, whatever
    /// `buyNo` holds of it; a buy order's in `buyNo` alone.
    int provenSide() const;

    std::int64_t milliseconds() const { return std::int64_t(time) * 1000 + rest; }
};

/// All cancellations of a day in order of time tag and number of the record. A late one is put in its place
/// (ordered_merge.h). One thread at a time.
class CancelLog
{
public:
    int size() const { return m_rows.size(); }
    const CancelLogRow& operator[](int index) const { return m_rows[index]; }

    /// A record of the deal channel as a row; false for one that is no cancellation, has no shares, or has a
    /// time that a tag cannot hold. `unit` is shares per lot.
    static bool makeRow(const quoter::TransactionData& record, int unit, CancelLogRow& row);

    static bool isBefore(const CancelLogRow& left, const CancelLogRow& right);

    /// Puts a batch in order and takes those cancellations out of it that are repeats: their time tag and
    /// number are there, or came before in the batch. Without a number (not above 0) a cancellation is known
    /// by its order, time and shares; one that names no order either is never taken for a repeat.
    void prepare(std::vector<CancelLogRow>& batch) const;

    /// Index of the last cancel of an order, -1 for none.
    int lastCancel(std::int32_t number) const;

    /// Fills a row as it is handed out.
    void fill(int index, DepthCancelData& into) const;

    /// Puts a cancellation at the end, which is its place.
    void append(const CancelLogRow& row);

    /// Takes the last cancellation away.
    void removeLast();

    std::size_t heapBytes() const { return m_rows.heapBytes() + m_last.heapBytes(); }

private:
    bool holds(const CancelLogRow& row) const;

    ChunkedRows<CancelLogRow> m_rows;
    NumberMap<std::int32_t, std::int32_t> m_last; ///< the last cancel of each order
};

} // namespace Kel
