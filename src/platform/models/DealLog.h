#pragma once

#include "platform/models/ChunkedRows.h"
#include "platform/models/NumberMap.h"
#include "records/TransactionData.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Kel {

/// One deal as it is kept.
struct DealRow
{
    double price = 0;        ///< yuan
    std::int64_t shares = 0; ///< above 0
    std::int32_t time = 0;   ///< time tag, seconds since 1970-01-01 UTC
    std::int32_t dealNo = 0;
    std::int32_t buyNo = 0;
    std::int32_t sellNo = 0;
    std::int32_t buyPrevious = -1; ///< index of the deal of the same buy order before this one, -1 for none
    std::int32_t buyNext = -1;
    std::int32_t sellPrevious = -1;
    std::int32_t sellNext = -1;
    std::int32_t lots = 0;
    std::uint16_t rest = 0;      ///< milliseconds of the second
    std::uint8_t trend : 2;      ///< 0 none, 1 up, 2 down
    std::uint8_t activeSide : 2; ///< 0 none, 1 buy, 2 sell
    std::uint8_t direction : 2;  ///< the last change of price that was not zero: 0 none, 1 up, 2 down

    DealRow() : trend(0), activeSide(0), direction(0) {}

    std::int64_t milliseconds() const { return std::int64_t(time) * 1000 + rest; }
};

/// All deals of a day in order of time tag and deal number, with the links between the deals of one order
/// and what the price did. A late deal is put in its place (ordered_merge.h), which renumbers the deals after
/// it. One thread at a time.
class DealLog
{
public:
    int size() const { return m_rows.size(); }
    const DealRow& operator[](int index) const { return m_rows[index]; }

    /// A deal of the feed as a row; false for a record that is no deal: a cancellation, no shares, no price
    /// above 0, or a time that a tag cannot hold. `unit` is shares per lot.
    static bool makeRow(const quoter::TransactionData& record, int unit, DealRow& row);

    static bool isBefore(const DealRow& left, const DealRow& right);

    /// Puts a batch in order and takes those deals out of it that are repeats: their time tag and number are
    /// there, or came before in the batch. A deal without a number (not above 0) is never taken for one.
    void prepare(std::vector<DealRow>& batch) const;

    /// Puts a deal at the end, which is its place: none of the log comes after it. Links of rows before may
    /// change.
    void append(const DealRow& row);

    /// Takes the last deal away.
    void removeLast();

    /// Index of the last deal of an order on one side, -1 for none.
    int lastDeal(bool buy, std::int32_t number) const;

    /// Shares that an order has dealt on one side.
    std::int64_t dealtShares(bool buy, std::int32_t number) const;

    std::size_t heapBytes() const;

private:
    /// The end of an order's chain, and what it dealt; wraps rather than overflows.
    struct Head
    {
        std::int32_t last = -1;
        std::uint32_t sharesLow = 0;
        std::uint32_t sharesHigh = 0;

        std::uint64_t shares() const { return std::uint64_t(sharesHigh) << 32 | sharesLow; }
        void setShares(std::uint64_t shares);
    };

    using Heads = NumberMap<std::int32_t, Head>;

    ChunkedRows<DealRow> m_rows;
    Heads m_buyHeads;
    Heads m_sellHeads;
};

} // namespace Kel
