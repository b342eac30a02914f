#include "host/SteppedEngine.h"

#include "platform/services/CStockManager.h"
#include "platform/services/instrument_functions.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"
#include "platform/utils/market_predicates.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>
#include <limits>

namespace host {
namespace {

constexpr std::int64_t kSecondMs = 1000;
constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();
constexpr double kMostShares = 9e18;

bool standsInQueue(const Kel::COrderVol& order)
{
    return order.m_type != Kel::OQT_CANCELED && order.m_type != Kel::OQT_DEALT;
}

} // namespace

std::int64_t wholeShares(double lots, double unit)
{
    const double shares = lots * unit;
    return std::isnan(shares) ? 0 : std::llround(std::clamp(shares, -kMostShares, kMostShares));
}

SteppedEngine::SteppedEngine()
{
    m_refreshTimer->stop();
    m_shangHaiTimer->stop();
    // The timer itself is left unused: its interval begins anew with each level record, in feed time.
    connect(this, &CDepthModelOrderQueue::sigTimerControl, this,
            [this] { m_nextSecond = m_now + kSecondMs; });
}

bool SteppedEngine::open(const nelservice::CInstrumentDetail& detail)
{
    const auto shared = boost::make_shared<nelservice::CInstrumentDetail>(detail);
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(shared);
    setStock(Kel::getDetailQsKey(shared));
    return instrument() && !utils::isIndex(detail.market, detail.code);
}

void SteppedEngine::feedOrders(int status, const Kel::MetaCacheDataWrapperPtr& batch)
{
    doOrderCallBack(0, status, batch);
}

void SteppedEngine::feedDeals(int status, const Kel::MetaCacheDataWrapperPtr& batch)
{
    doDealCallBack(0, status, batch);
}

void SteppedEngine::feedQuotes(int status, const quoter::QuoterBatch& batch)
{
    constexpr int kFirst = 0;
    constexpr int kHistory = 3;
    // Published queues of the past are the one kind of quote that the engine gives to a thread of its own.
    if (status != kFirst && status != kHistory) {
        quoterCallBack(0, status, batch);
        return;
    }
    const nelservice::CInstrumentDetailPtr detail = instrument();
    if (detail && !batch.empty() && !standsDown(*detail))
        quoterCallBackThread(batch, 0, status);
}

void SteppedEngine::onOrders(const std::string& /*key*/, int /*seq*/, int status,
                             const Kel::MetaCacheDataWrapperPtr& batch)
{
    feedOrders(status, batch);
}

void SteppedEngine::onDeals(const std::string& /*key*/, int /*seq*/, int status,
                            const Kel::MetaCacheDataWrapperPtr& batch)
{
    feedDeals(status, batch);
}

void SteppedEngine::onQuotes(const std::string& /*key*/, int /*seq*/, int status,
                             const quoter::QuoterBatch& batch)
{
    feedQuotes(status, batch);
}

void SteppedEngine::secondTick()
{
    if (!m_shangHaiTimer->isActive())
        return;
    slotShangHaiTimeout();
    if (!m_shangHaiTimer->isActive())
        m_nextSecond = 0;
}

void SteppedEngine::setRefreshInterval(std::int64_t ms)
{
    m_refreshMs = std::clamp<std::int64_t>(ms, 1, utils::kMSecPerDay);
}

void SteppedEngine::advanceTimers(std::int64_t fromMs, std::int64_t toMs)
{
    if (!m_started || toMs - fromMs > utils::kMSecPerDay) {
        m_started = true;
        m_now = fromMs;
        m_nextRefresh = fromMs + m_refreshMs;
        if (toMs - fromMs > utils::kMSecPerDay) {
            m_now = toMs;
            m_nextRefresh = toMs + m_refreshMs;
            return;
        }
    }
    for (std::int64_t next = nextTick(); next <= toMs; next = nextTick()) {
        m_now = std::max(m_now, next);
        if (m_nextSecond != 0 && m_nextSecond <= m_nextRefresh) {
            m_nextSecond += kSecondMs;
            secondTick();
        } else {
            m_nextRefresh += m_refreshMs;
            ++m_ticks;
            refreshTick();
        }
    }
    m_now = std::max(m_now, toMs);
}

std::int64_t SteppedEngine::nextTick() const
{
    if (!m_started)
        return kNever;
    return m_nextSecond != 0 ? std::min(m_nextRefresh, m_nextSecond) : m_nextRefresh;
}

std::vector<ListedLevel> SteppedEngine::levels(Kel::EOrderQueueType side, int most) const
{
    const boost::recursive_mutex::scoped_lock lock(m_dataMutex);
    std::vector<ListedLevel> result;
    const auto levels = m_orderQueues.constFind(side);
    if (levels == m_orderQueues.constEnd())
        return result;

    const auto take = [&](int key, const Kel::OrderQueueData& level) {
        ListedLevel listed;
        listed.key = key;
        listed.price = level.m_price;
        double lots = 0;
        for (const Kel::COrderVol& order : level.m_orders) {
            if (!standsInQueue(order))
                continue;
            lots += order.m_vol;
            ++listed.orders;
        }
        listed.shares = wholeShares(lots, m_volumeUnit.load());
        if (listed.orders > 0)
            result.push_back(listed);
    };
    const auto limit = static_cast<std::size_t>(std::max(most, 0));
    if (side == Kel::OQT_BUY) {
        for (auto it = levels->constEnd(); it != levels->constBegin() && result.size() < limit;) {
            --it;
            take(it.key(), *it.value());
        }
    } else {
        for (auto it = levels->constBegin(); it != levels->constEnd() && result.size() < limit; ++it)
            take(it.key(), *it.value());
    }
    return result;
}

Kel::OrderQueueDataPtr SteppedEngine::level(Kel::EOrderQueueType side, int key) const
{
    const boost::recursive_mutex::scoped_lock lock(m_dataMutex);
    const Kel::OrderQueueDataPtr found = m_orderQueues.value(side).value(key);
    return found ? boost::make_shared<Kel::OrderQueueData>(*found) : found;
}

std::vector<std::pair<int, Kel::OrderQueueDataPtr>> SteppedEngine::allLevels(Kel::EOrderQueueType side) const
{
    const boost::recursive_mutex::scoped_lock lock(m_dataMutex);
    std::vector<std::pair<int, Kel::OrderQueueDataPtr>> result;
    const LevelMap levels = m_orderQueues.value(side);
    for (auto it = levels.constBegin(); it != levels.constEnd(); ++it)
        result.emplace_back(it.key(), boost::make_shared<Kel::OrderQueueData>(*it.value()));
    return result;
}

} // namespace host
