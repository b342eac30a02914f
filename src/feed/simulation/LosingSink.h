#pragma once

#include "feed/DayRows.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace feed {

/// A stretch of a day, [begin, end), milliseconds since midnight at the exchange.
struct LostStretch
{
    std::int64_t begin = 0;
    std::int64_t end = 0;
};

/// Hands rows on, but for the orders and deals of some stretches, as a line that fails for a while would.
/// Numbers are not closed up: who counts sees the hole. What is published comes through.
class LosingSink : public RowSink
{
public:
    /// `midnight` of the trading day, milliseconds since 1970-01-01 UTC. `next` must outlive the sink.
    LosingSink(RowSink& next, std::int64_t midnight, std::vector<LostStretch> lost)
        : m_next(next), m_midnight(midnight), m_lost(std::move(lost))
    {
    }

    void onOrder(const OrderRow& row) override
    {
        if (!isLost(row.time))
            m_next.onOrder(row);
    }
    void onDeal(const DealRow& row) override
    {
        if (!isLost(row.time))
            m_next.onDeal(row);
    }
    void onSnapshot(const SnapshotRow& row) override { m_next.onSnapshot(row); }
    void onQueue(const QueueRow& row) override { m_next.onQueue(row); }
    bool takesLadders() const override { return m_next.takesLadders(); }
    void onLadder(const LadderRow& row) override { m_next.onLadder(row); }

private:
    bool isLost(std::int64_t time) const
    {
        for (const LostStretch& stretch : m_lost) {
            if (time - m_midnight >= stretch.begin && time - m_midnight < stretch.end)
                return true;
        }
        return false;
    }

    RowSink& m_next;
    std::int64_t m_midnight;
    std::vector<LostStretch> m_lost;
};

} // namespace feed
