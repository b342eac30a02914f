#pragma once

#include "feed/DayRows.h"
#include "feed/simulation/Random.h"
#include "feed/simulation/SimulationSettings.h"
#include "feed/simulation/TrueBook.h"

#include <cstdint>

namespace feed {

/// The day's figures that a snapshot carries. Prices in ticks, 0 before the first deal.
struct DayTotals
{
    int lastTicks = 0;
    int openTicks = 0;
    int highTicks = 0;
    int lowTicks = 0;
    std::int64_t lastVolume = 0; ///< shares of the latest deal
    std::int64_t volume = 0;     ///< shares
    double turnover = 0;         ///< yuan
    std::int32_t deals = 0;
};

/// How many of what the channel announced.
struct ChannelCounts
{
    std::int64_t orders = 0;
    std::int64_t pricelessOrders = 0; ///< of them: announced without a price
    std::int64_t deals = 0;
    std::int64_t cancels = 0;
};

/// The exchange's tick channel of one instrument: gives sequence and order numbers, writes the rows of what
/// happens and keeps the day's totals. Rows that the style leaves out take their place in the sequence all
/// the same. One thread.
class MarketChannel
{
public:
    MarketChannel(const SimulationSettings& settings, const TickScale& scale);

    /// Where the rows go from now on, and their time (ms since 1970-01-01 UTC). Null drops the rows.
    void open(RowSink* sink, std::int64_t time);

    /// Announces an order and returns its number. `ticks` 0 for an order without a price.
    std::int64_t announceOrder(Side side, int kind, int ticks, std::int64_t volume);

    void announceDeal(int ticks, std::int64_t volume, std::int64_t buyNo, std::int64_t sellNo,
                      int activeSide);

    /// Announces that the rest of an order, `volume` shares, was withdrawn.
    void announceCancel(Side side, std::int64_t number, std::int64_t volume);

    std::int64_t time() const { return m_time; }
    std::int64_t lastSequence() const { return m_sequence; }
    const DayTotals& totals() const { return m_totals; }
    const ChannelCounts& counts() const { return m_counts; }

private:
    std::int64_t nextSequence();
    std::int32_t nextDealNumber();
    void count(int ticks, std::int64_t volume);

    TickScale m_scale;
    Numbering m_numbering;
    bool m_deliverOrders;
    bool m_deliverCancels;
    std::uint32_t m_gap; ///< most rows of other instruments between two of this one, plus one
    Random m_random;
    RowSink* m_sink = nullptr;
    std::int64_t m_time = 0;
    std::int64_t m_sequence = 0;
    std::int64_t m_orderNumber = 0;
    std::int32_t m_dealNumber = 0;
    DayTotals m_totals;
    ChannelCounts m_counts;
};

} // namespace feed
