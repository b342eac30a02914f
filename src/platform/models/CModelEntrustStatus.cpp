#include "platform/models/CModelEntrustStatus.h"

#include "platform/services/CStockManager.h"
#include "platform/services/instrument_functions.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"
#include "platform/utils/volume_unit.h"
#include "records/PriceKey.h"
#include "records/Tolerance.h"
#include "records/TransactionData.h"
#include "records/record_cast.h"

#include <boost/thread/lock_guard.hpp>

#include <algorithm>
#include <cmath>

namespace Kel {

namespace {

constexpr double kNoPrice = std::numeric_limits<double>::max();
constexpr double kTickShare = 10; // a price of no more than a tick divided by this is none

using Lock = boost::lock_guard<boost::mutex>;

const CStockManager& stockManager()
{
    return utils::CSingletonT<CStockManager>::instance();
}

/// A price field as a number to show: 0 where the field says that there is none.
double shownPrice(double price)
{
    return std::isfinite(price) && price != kNoPrice ? price : 0;
}

bool isPrice(double price, double tick)
{
    return std::fabs(price) > tick / kTickShare;
}

const quoter::TransactionData* dealOf(const quoter::QuoterBase* record)
{
    const auto* deal = quoter::recordCast<quoter::TransactionData>(record);
    return deal && deal->kind != quoter::eTransactionCancel ? deal : nullptr;
}

/// Whether a batch of status 0 is a reload of what is shown here. Published level records come the same way,
/// and they come after the snapshots.
bool isReload(const std::vector<boost::shared_ptr<quoter::QuoterBase>>& records)
{
    return records.empty() || std::any_of(records.begin(), records.end(), [](const auto& record) {
               return quoter::recordCast<quoter::QuoterDepthData>(record.get()) || dealOf(record.get());
           });
}

/// Shares traded between two snapshots; a total that is negative counts as none.
std::int64_t tradedBetween(const quoter::QuoterDepthData& before, const quoter::QuoterDepthData& after)
{
    return std::max<std::int64_t>(after.totalVolume, 0) - std::max<std::int64_t>(before.totalVolume, 0);
}

} // namespace

CModelEntrustStatus::CModelEntrustStatus()
{
    bidLevels.resize(quoter::kDepthLevels);
    askLevels.resize(quoter::kDepthLevels);
}

void CModelEntrustStatus::setStock(const QString& code)
{
    const auto detail = stockManager().getInstrumentDetail(code);
    Lock lock(m_mutex);
    instrument = detail;
    priceTick = getDetailPriceTick(detail);
    m_volumeUnit = detail ? utils::getVolumeUnit(detail->market, detail->code) : utils::getVolumeUnit("", "");
    m_publishedClose = 0;
    m_snapshotTime = 0;
    forgetBase();
}

void CModelEntrustStatus::clear()
{
    Lock lock(m_mutex);
    lastPrice = kNoPrice;
    newVolume = 0;
    bidLevels.fill(EntrustLevel(), quoter::kDepthLevels);
    askLevels.fill(EntrustLevel(), quoter::kDepthLevels);
    m_publishedClose = 0;
    m_snapshotTime = 0;
    forgetBase();
}

void CModelEntrustStatus::forgetBase()
{
    m_hasBase = false;
    m_hasDeals = false;
}

void CModelEntrustStatus::getParams(CFormulaParam& params) const
{
    Lock lock(m_mutex);
    if (!instrument)
        return;
    params.values["market"] = instrument->market;
    params.values["instrument"] = instrument->code;
}

double CModelEntrustStatus::getLastClosePrice() const
{
    Lock lock(m_mutex);
    if (m_publishedClose > 0)
        return m_publishedClose;
    return stockManager().getCurrentDateLastClose(instrument, utils::exchangeDate(m_snapshotTime));
}

EntrustStatusData CModelEntrustStatus::data() const
{
    Lock lock(m_mutex);
    return *this;
}

bool CModelEntrustStatus::quoterCallBack(int, int status,
                                         const std::vector<boost::shared_ptr<quoter::QuoterBase>>& records)
{
    Lock lock(m_mutex);
    if (!instrument)
        return false;
    if (status == 0 && isReload(records))
        forgetBase();
    if (status == 0 && records.empty()) {
        for (EntrustLevel& level : bidLevels)
            level.change = 0;
        for (EntrustLevel& level : askLevels)
            level.change = 0;
        return true;
    }
    bool changed = false;
    for (const auto& record : records)
        changed = take(record.get()) || changed;
    return changed;
}

void CModelEntrustStatus::connectTickData(const quoter::QuoterBasePtr& before,
                                          const quoter::QuoterBasePtr& latest, long long shares)
{
    Lock lock(m_mutex);
    if (!instrument)
        return;
    if (const auto* snapshot = quoter::recordCast<quoter::QuoterDepthData>(before.get())) {
        m_base = *snapshot;
        m_hasBase = true;
    }
    take(latest.get());
    takeTradedShares(shares);
}

bool CModelEntrustStatus::take(const quoter::QuoterBase* record)
{
    if (const auto* snapshot = quoter::recordCast<quoter::QuoterDepthData>(record))
        return takeSnapshot(*snapshot);
    const auto* deal = dealOf(record);
    return deal && takeDeal(*deal);
}

bool CModelEntrustStatus::takeSnapshot(const quoter::QuoterDepthData& snapshot)
{
    // A day that was set back begins anew: nothing is known of the moment before.
    if (m_hasBase && (snapshot.m_time < m_base.m_time || snapshot.totalVolume < m_base.totalVolume))
        forgetBase();
    bool changed = takeLastPrice(snapshot.lastPrice);
    if (m_hasBase && !m_hasDeals)
        changed = takeTradedShares(tradedBetween(m_base, snapshot)) || changed;

    const double* const noPrices = nullptr;
    const std::int64_t* const noVolumes = nullptr;
    const Levels bids =
        levelsOf(snapshot.bidPrice, snapshot.bidVolume, m_hasBase ? m_base.bidPrice : noPrices,
                 m_hasBase ? m_base.bidVolume : noVolumes);
    Levels asks = levelsOf(snapshot.askPrice, snapshot.askVolume, m_hasBase ? m_base.askPrice : noPrices,
                           m_hasBase ? m_base.askVolume : noVolumes);
    std::reverse(asks.begin(), asks.end());
    changed = changed || bids != bidLevels || asks != askLevels;
    bidLevels = bids;
    askLevels = asks;

    const double close = shownPrice(snapshot.previousClose);
    if (close > 0) {
        changed = changed || close != m_publishedClose;
        m_publishedClose = close;
    }
    m_snapshotTime = snapshot.m_time;
    m_base = snapshot;
    m_hasBase = true;
    return changed;
}

bool CModelEntrustStatus::takeDeal(const quoter::TransactionData& deal)
{
    m_hasDeals = true;
    const bool priceChanged = isPrice(shownPrice(deal.price), priceTick) && takeLastPrice(deal.price);
    return takeTradedShares(deal.volume) || priceChanged;
}

bool CModelEntrustStatus::takeLastPrice(double price)
{
    const double shown = shownPrice(price);
    const double last = isPrice(shown, priceTick) ? shown : kNoPrice;
    const bool changed = last != lastPrice;
    lastPrice = last;
    return changed;
}

bool CModelEntrustStatus::takeTradedShares(std::int64_t shares)
{
    if (shares <= 0)
        return false;
    // A trade of less than a lot is a trade: 0 would say that there was none.
    const int lots = clampToInt(std::max<std::int64_t>(shares / m_volumeUnit, 1));
    const bool changed = lots != newVolume;
    newVolume = lots;
    return changed;
}

/// The levels of one side, best first. The base is the same side of the snapshot before, null for none.
CModelEntrustStatus::Levels CModelEntrustStatus::levelsOf(const double* prices, const std::int64_t* volumes,
                                                          const double* basePrices,
                                                          const std::int64_t* baseVolumes) const
{
    const auto changeOf = [&](double price, std::int64_t volume) {
        const int key = priceKey(price, priceTick);
        for (int i = 0; basePrices && key != 0 && i < quoter::kDepthLevels; ++i) {
            if (priceKey(shownPrice(basePrices[i]), priceTick) == key)
                return clampToInt(static_cast<std::int64_t>(clampToInt(volume)) - clampToInt(baseVolumes[i]));
        }
        return 0;
    };
    Levels levels(quoter::kDepthLevels);
    for (int i = 0; i < quoter::kDepthLevels; ++i) {
        EntrustLevel& level = levels[i];
        level.price = shownPrice(prices[i]);
        level.volume = clampToInt(volumes[i]);
        level.valid = level.price > priceTick / kTickShare || level.volume != 0;
        if (level.valid)
            level.change = changeOf(level.price, volumes[i]);
    }
    return levels;
}

} // namespace Kel
