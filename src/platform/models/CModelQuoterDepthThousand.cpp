#include "platform/models/CModelQuoterDepthThousand.h"

#include "platform/models/ladder_flags.h"
#include "platform/models/ladder_quotes.h"
#include "platform/models/ladder_units.h"
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

CModelQuoterDepthThousand::CModelQuoterDepthThousand(int /*id*/, int /*parent*/)
    : m_latest(kNoPrice), m_lastVolume(kNoVolume)
{
}

void CModelQuoterDepthThousand::setStock(const QString& code)
{
    LadderInstrument instrument = LadderInstrument::of(code);
    const ReaderFirstMutex::Writer lock(m_mutex);
    m_instrument = std::move(instrument);
    forget();
}

void CModelQuoterDepthThousand::clear()
{
    const ReaderFirstMutex::Writer lock(m_mutex);
    forget();
}

void CModelQuoterDepthThousand::forget()
{
    m_record.reset();
    m_fed = false;
    m_cover = true;
}

QString CModelQuoterDepthThousand::getStockKey() const
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    return m_instrument.stockKey;
}

double CModelQuoterDepthThousand::getPriceTick() const
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    return m_instrument.priceTick;
}

double CModelQuoterDepthThousand::getLastClose() const
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    return m_instrument.lastClose;
}

int CModelQuoterDepthThousand::getVolumeUnit() const
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    return m_instrument.volumeUnit;
}

void CModelQuoterDepthThousand::quoterCallback(int /*seq*/, int /*status*/,
                                               const MetaCacheDataWrapperPtr& batch)
{
    const ReaderFirstMutex::Writer lock(m_mutex);
    if (m_instrument.owns(batch))
        m_instrument.takeLastClose(*batch);
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

/// The best levels of the record that have a price and orders, best first, whatever order they came in.
std::vector<BookLevel> CModelQuoterDepthThousand::shownLevels(EOrderQueueType side) const
{
    std::vector<BookLevel> result;
    if (!m_record)
        return result;
    const auto& levels = side == OQT_BUY ? m_record->buys : m_record->sells;
    result.reserve(levels.size());
    for (const quoter::ThousandLevel& level : levels) {
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
    if (result.size() > kLadderLevels)
        result.resize(kLadderLevels);
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
    flags = m_cover ? kLadderCover : 0;
    const auto bring = [&](LadderSide& rows, EOrderQueueType side) {
        const std::vector<BookLevel> levels = shownLevels(side);
        const LadderSide::News news = m_cover ? rows.cover(levels, unit) : rows.replace(levels, unit);
        flags |= (news.size ? kLadderRowCount : 0) | (news.rows ? kLadderRowData : 0);
    };
    bring(m_buys, OQT_BUY);
    bring(m_sells, OQT_SELL);
    m_cover = false;

    const bool dealt = m_record && std::isfinite(m_record->lastPrice) && m_record->lastPrice > 0;
    const double newLatest = dealt ? m_record->lastPrice : kNoPrice;
    const int newVolume = dealt ? toLots(m_record->lastVolume, unit) : kNoVolume;
    if (newLatest != m_latest || newVolume != m_lastVolume)
        flags |= kLadderRowData;
    m_latest = latest = newLatest;
    m_lastVolume = lastVolume = newVolume;
    m_buys.handOut(buys);
    m_sells.handOut(sells);
    minPrice = kNoLowestPrice;
    maxPrice = 0;
    maxAmount = 0;
    m_buys.addBounds(minPrice, maxPrice, maxAmount);
    m_sells.addBounds(minPrice, maxPrice, maxAmount);
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
    setQuotes(*queue, orders);
    return queue;
}

} // namespace Kel
