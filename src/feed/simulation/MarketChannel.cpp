#include "feed/simulation/MarketChannel.h"

#include "records/TransactionData.h"

#include <algorithm>

namespace feed {

MarketChannel::MarketChannel(const SimulationSettings& settings, const TickScale& scale)
    : m_scale(scale),
      m_numbering(settings.numbering),
      m_deliverOrders(settings.style == FeedStyle::Tick),
      m_deliverCancels(settings.style == FeedStyle::Tick || settings.deliverLevelCancels),
      m_gap(static_cast<std::uint32_t>(2 * settings.foreignRows + 1)),
      m_random(settings.seed ^ 0x5EC0E4CE5EC0E4CEull)
{
}

void MarketChannel::open(RowSink* sink, std::int64_t time)
{
    m_sink = sink;
    m_time = time;
}

std::int64_t MarketChannel::nextSequence()
{
    m_sequence += 1 + m_random.below(m_gap);
    return m_sequence;
}

std::int32_t MarketChannel::nextDealNumber()
{
    m_dealNumber =
        m_numbering == Numbering::Sequence ? static_cast<std::int32_t>(m_sequence) : m_dealNumber + 1;
    return m_dealNumber;
}

std::int64_t MarketChannel::announceOrder(Side side, int kind, int ticks, std::int64_t volume)
{
    const std::int64_t sequence = nextSequence();
    m_orderNumber = m_numbering == Numbering::Sequence ? sequence : m_orderNumber + 1 + m_random.below(m_gap);
    ++m_counts.orders;
    m_counts.pricelessOrders += ticks == 0 ? 1 : 0;
    if (m_sink && m_deliverOrders) {
        OrderRow row;
        row.time = m_time;
        row.seq = sequence;
        row.number = m_orderNumber;
        row.price = m_scale.price(ticks);
        row.volume = volume;
        row.side = static_cast<std::int32_t>(side);
        row.kind = kind;
        m_sink->onOrder(row);
    }
    return m_orderNumber;
}

void MarketChannel::announceDeal(int ticks, std::int64_t volume, std::int64_t buyNo, std::int64_t sellNo,
                                 int activeSide)
{
    DealRow row;
    row.seq = nextSequence();
    row.dealNo = nextDealNumber();
    ++m_counts.deals;
    count(ticks, volume);
    if (!m_sink)
        return;
    row.time = m_time;
    row.price = m_scale.price(ticks);
    row.volume = volume;
    row.buyNo = static_cast<std::int32_t>(buyNo);
    row.sellNo = static_cast<std::int32_t>(sellNo);
    row.kind = quoter::eTransactionDeal;
    row.activeSide = activeSide;
    m_sink->onDeal(row);
}

void MarketChannel::announceCancel(Side side, std::int64_t number, std::int64_t volume)
{
    DealRow row;
    row.seq = nextSequence();
    row.dealNo = nextDealNumber();
    ++m_counts.cancels;
    if (!m_sink || !m_deliverCancels)
        return;
    row.time = m_time;
    row.volume = volume;
    // The withdrawn number stands in the buy field whichever side it was on; a sell order's in both.
    row.buyNo = static_cast<std::int32_t>(number);
    row.sellNo = side == Side::Sell ? row.buyNo : 0;
    row.kind = quoter::eTransactionCancel;
    m_sink->onDeal(row);
}

void MarketChannel::count(int ticks, std::int64_t volume)
{
    if (m_totals.openTicks == 0) {
        m_totals.openTicks = ticks;
        m_totals.highTicks = ticks;
        m_totals.lowTicks = ticks;
    }
    m_totals.lastTicks = ticks;
    m_totals.lastVolume = volume;
    m_totals.highTicks = std::max(m_totals.highTicks, ticks);
    m_totals.lowTicks = std::min(m_totals.lowTicks, ticks);
    m_totals.volume += volume;
    m_totals.turnover += m_scale.price(ticks) * static_cast<double>(volume);
    ++m_totals.deals;
}

} // namespace feed
