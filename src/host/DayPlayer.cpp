#include "host/DayPlayer.h"

#include "feed/record_making.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace host {
namespace {

constexpr std::size_t kLiveOrders = 100; // largest live batch: more would be taken for history
constexpr int kFirst = 0;
constexpr int kLive = 1;
constexpr int kSnapshot = -1;

} // namespace

DayPlayer::DayPlayer(const DayTimeline& timeline, SteppedEngine& engine, const Options& options)
    : m_timeline(timeline), m_engine(engine), m_options(options)
{
    m_engine.setRefreshInterval(options.refreshMs);
    m_now = timeline.entries().empty() ? 0 : timeline.entries().front().time;
    m_engine.advanceTimers(m_now, m_now);
}

bool DayPlayer::step()
{
    if (atEnd())
        return false;
    const DayTimeline::Entry& entry = m_timeline.entries()[m_next++];
    passTime(entry.time);
    const feed::InstrumentDay& day = m_timeline.day();
    switch (entry.kind) {
    case DayTimeline::Kind::Order:
        onOrder(day.orders[entry.index]);
        break;
    case DayTimeline::Kind::Deal:
        onDeal(day.deals[entry.index]);
        break;
    case DayTimeline::Kind::Snapshot:
        flush();
        m_engine.feedQuotes(kSnapshot, {feed::makeRecord(day.snapshots[entry.index], m_engine.volumeUnit())});
        break;
    case DayTimeline::Kind::Queue:
        flush();
        m_engine.feedQuotes(kLive, {feed::makeRecord(day.queues[entry.index], m_engine.volumeUnit())});
        break;
    }
    return true;
}

void DayPlayer::playUntil(std::int64_t time)
{
    while (nextTime() <= time && step()) {
    }
    passTime(time);
    flush();
    m_engine.advanceTimers(m_now, time);
}

/// Lets the timers fire that are due before `time`; what came before a tick is handed over before it.
void DayPlayer::passTime(std::int64_t time)
{
    if (time <= m_now)
        return;
    if (m_engine.nextTick() < time)
        flush();
    m_engine.advanceTimers(m_now, time - 1);
    if (m_engine.refreshTicks() != m_ticksSeen) {
        m_ticksSeen = m_engine.refreshTicks();
        m_dealtSinceTick.clear();
    }
    m_now = time;
}

void DayPlayer::onOrder(const feed::OrderRow& row)
{
    m_orders.push_back(row);
    // The first standing order opens the channel alone: behind a batch of which nothing is left (all
    // cancelled within it) the engine would hold the day for one without orders and take published queues.
    const bool standing = (row.side == 1 || row.side == 2) && row.kind != quoter::eOrderNotStanding;
    if (!m_ordersOpen && standing)
        flush();
}

void DayPlayer::onDeal(const feed::DealRow& row)
{
    if (row.kind == quoter::eTransactionCancel) {
        if (m_dealtSinceTick.contains(row.buyNo)) {
            if (m_options.tickBeforeCancel)
                quiet(1);
            else
                m_keptRests.insert(row.buyNo);
        }
    } else {
        if (row.buyNo != 0)
            m_dealtSinceTick.insert(row.buyNo);
        if (row.sellNo != 0)
            m_dealtSinceTick.insert(row.sellNo);
    }
    m_deals.push_back(row);
}

void DayPlayer::quiet(int ticks)
{
    flush();
    for (int i = 0; i < ticks; ++i)
        m_engine.refreshTick();
    if (ticks > 0)
        m_dealtSinceTick.clear();
}

void DayPlayer::flush()
{
    if (m_orders.empty() && m_deals.empty())
        return;
    if (!m_dealsOpen) {
        m_dealsOpen = true;
        sendDeals(kFirst);
    }
    if (!m_ordersOpen && !m_orders.empty()) {
        // The match wants the deals to be there already.
        m_ordersOpen = true;
        if (!m_deals.empty())
            sendDeals(kLive);
        sendOrders(kFirst, 0, m_orders.size());
    } else {
        for (std::size_t from = 0; from < m_orders.size(); from += kLiveOrders)
            sendOrders(kLive, from, std::min(kLiveOrders, m_orders.size() - from));
        if (!m_deals.empty())
            sendDeals(kLive);
    }
    m_orders.clear();
}

void DayPlayer::sendOrders(int status, std::size_t from, std::size_t count)
{
    m_engine.feedOrders(status, wrap(feed::makeOrderBatch(m_orders.data() + from, count)));
}

void DayPlayer::sendDeals(int status)
{
    m_engine.feedDeals(status, wrap(feed::makeDealBatch(m_deals.data(), m_deals.size())));
    m_deals.clear();
}

Kel::MetaCacheDataWrapperPtr DayPlayer::wrap(quoter::QuoterBatch batch) const
{
    const auto wrapper = boost::make_shared<Kel::MetaCacheDataWrapper>();
    wrapper->data = std::move(batch);
    wrapper->market = m_timeline.day().detail.market;
    wrapper->instrument = m_timeline.day().detail.code;
    return wrapper;
}

} // namespace host
