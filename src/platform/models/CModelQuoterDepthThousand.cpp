#include "platform/models/CModelQuoterDepthThousand.h"

#include "platform/models/ladder_quotes.h"
#include "platform/models/ladder_units.h"
#include "platform/models/tick_values.h"
#include "records/PriceKey.h"
#include "records/Tolerance.h"
#include "records/record_cast.h"

#include <algorithm>
#include <cmath>

namespace Kel {

namespace {

constexpr int kStatusFirst = 0; // opens a reload
constexpr int kStatusHistory = 3;

} // namespace

CModelQuoterDepthThousand::CModelQuoterDepthThousand(int /*id*/, int /*parent*/) {}

void CModelQuoterDepthThousand::setStock(const QString& code)
{
    LadderInstrument instrument = LadderInstrument::of(code);
    const ReaderFirstMutex::Reader lock(m_mutex);
    m_instrument = std::move(instrument);
    forget();
}

void CModelQuoterDepthThousand::clear()
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    forget();
}

void CModelQuoterDepthThousand::forget()
{
    m_record.reset();
    m_fed = false;
    m_cover = true;
}

void CModelQuoterDepthThousand::ThousandDataCallback(int /*seq*/, int status,
                                                     const MetaCacheDataWrapperPtr& batch)
{
    if (status < kStatusFirst || status > kStatusHistory)
        return;
    const ReaderFirstMutex::Writer lock(m_mutex);
    if (!m_instrument.owns(batch))
        return;
    if (status == kStatusFirst) {
        m_record.reset();
        m_cover = true;
        m_fed = true;
    }
    const auto last =
        std::find_if(batch->data.rbegin(), batch->data.rend(), [](const quoter::QuoterBasePtr& record) {
            return quoter::recordCast<quoter::ThousandData>(record.get()) != nullptr;
        });
    if (last == batch->data.rend())
        return;
    m_record = quoter::recordCast<quoter::ThousandData>(*last);
    m_fed = true;
}

/// The levels of the record that have a price and orders, best first, whatever order they came in.
std::vector<BookLevel> CModelQuoterDepthThousand::levels(EOrderQueueType side) const
{
    std::vector<BookLevel> result;
    if (!m_record)
        return result;
    const auto& told = side == OQT_BUY ? m_record->buys : m_record->sells;
    result.reserve(told.size());
    for (const quoter::ThousandLevel& level : told) {
        const int key = priceKey(level.price, m_instrument.priceTick);
        if (key > 0 && level.volume > 0)
            result.push_back({key, level.price, level.volume, level.orderCount});
    }
    const auto better = [side](const BookLevel& a, const BookLevel& b) {
        return side == OQT_BUY ? a.key > b.key : a.key < b.key;
    };
    std::stable_sort(result.begin(), result.end(), better);
    result.erase(std::unique(result.begin(), result.end(),
                             [](const BookLevel& a, const BookLevel& b) { return a.key == b.key; }),
                 result.end());
    return result;
}

bool CModelQuoterDepthThousand::checkUpdate(int& flags, std::vector<boost::shared_ptr<EntrustData>>& buys,
                                            std::vector<boost::shared_ptr<EntrustData>>& sells,
                                            double& latest, int& lastVolume, double& minPrice,
                                            double& maxPrice, double& maxAmount)
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    if (!m_fed)
        return false;
    m_fed = false;
    const int unit = m_instrument.volumeUnit;
    int found = m_cover ? kLadderCover : 0;
    const auto bring = [&](LadderSide& rows, EOrderQueueType side) {
        const std::vector<BookLevel> standing = levels(side);
        found |= flagsOf(m_cover ? rows.cover(standing, kLadderLevels, unit)
                                 : rows.replace(standing, kLadderLevels, unit));
    };
    bring(m_buys, OQT_BUY);
    bring(m_sells, OQT_SELL);
    m_cover = false;

    const bool dealt = m_record && std::isfinite(m_record->lastPrice) && m_record->lastPrice > 0;
    const double newLatest = dealt ? m_record->lastPrice : kNoPrice;
    const int newVolume = dealt ? lotsFromShares(m_record->lastVolume, unit) : kNoVolume;
    if (newLatest != m_latest || newVolume != m_lastVolume)
        found |= kLadderRowData;
    const std::int64_t time = m_record ? m_record->m_time : 0;
    if (found == 0 && time == m_reportedTime)
        return false;
    m_reportedTime = time;
    flags = found;
    m_latest = latest = newLatest;
    m_lastVolume = lastVolume = newVolume;
    handOut(buys, sells, minPrice, maxPrice, maxAmount);
    return true;
}

std::shared_ptr<SingleQueue> CModelQuoterDepthThousand::getQueue(bool isBuy, double price) const
{
    boost::shared_ptr<quoter::ThousandData> record;
    double tick = 0;
    {
        const ReaderFirstMutex::Reader lock(m_mutex);
        record = m_record;
        tick = m_instrument.priceTick;
    }
    const int key = priceKey(price, tick);
    if (!record || key <= 0)
        return {};
    const auto& levels = isBuy ? record->buys : record->sells;
    const auto level =
        std::find_if(levels.begin(), levels.end(), [&](const quoter::ThousandLevel& candidate) {
            return candidate.volume > 0 && priceKey(candidate.price, tick) == key;
        });
    if (level == levels.end())
        return {};
    auto queue = std::make_shared<SingleQueue>();
    queue->isBuy = isBuy ? 1 : 0;
    queue->time = record->m_time;
    queue->price = level->price;
    queue->totalVolume = clampToInt(level->volume);
    std::vector<BookOrder> orders;
    orders.reserve(level->orders.size());
    for (const quoter::ThousandOrder& order : level->orders) {
        // What was dealt cannot be less than nothing.
        orders.push_back({order.number, order.time, order.volume,
                          std::max<std::int64_t>(order.dealtVolume, 0), level->price,
                          isBuy ? OQT_BUY : OQT_SELL});
    }
    std::stable_sort(orders.begin(), orders.end(),
                     [](const BookOrder& a, const BookOrder& b) { return a.number < b.number; });
    orders.erase(std::unique(orders.begin(), orders.end(),
                             [](const BookOrder& a, const BookOrder& b) { return a.number == b.number; }),
                 orders.end());
    setQuotes(*queue, orders);
    return queue;
}

} // namespace Kel
