// The ten prices a side, the display rows and the header text.

#include "queue_engine/CDepthModelOrderQueue.h"

#include "platform/toolkit/number_formats.h"
#include "records/Tolerance.h"

#include <boost/make_shared.hpp>

#include <cmath>
#include <mutex>

namespace Kel {

namespace {

constexpr const char* kSellLine = "委卖队列(共%1档,十档内%2笔,%3手/笔)";
constexpr const char* kBuyLine = "委买队列(共%1档,十档内%2笔,%3手/笔)";
constexpr const char* kIllegalValue = "非法值";

/// A level with orders that can be dealt.
bool holdsOrders(const OrderQueueData& level)
{
    return !level.m_orders.isEmpty() && isPositive(level.m_sumVol);
}

} // namespace

bool CDepthModelOrderQueue::isContinousStatus(const boost::shared_ptr<quoter::QuoterDepthData>& depth) const
{
    if (!depth)
        return false;
    const double bid = depth->bidPrice[0];
    const double ask = depth->askPrice[0];
    if (isZero(bid) && isZero(ask))
        return false;
    return !isEqual(bid, ask);
}

bool CDepthModelOrderQueue::isBuySellOne(double price) const
{
    const boost::shared_ptr<quoter::QuoterDepthData> depth = m_depthData.load();
    return depth && (isEqual(price, depth->bidPrice[0]) || isEqual(price, depth->askPrice[0]));
}

CDepthModelOrderQueue::CalcMoment CDepthModelOrderQueue::calcMoment() const
{
    CalcMoment moment;
    moment.depth = m_depthData.load();
    moment.continuous = isContinousStatus(moment.depth);
    moment.feedNewer = m_depthTime < m_lastFeedTime;
    moment.snapshotPrices = moment.continuous && (!moment.feedNewer || !m_bLevelDataBack);
    return moment;
}

void CDepthModelOrderQueue::calcOrder()
{
    const boost::recursive_mutex::scoped_lock lock(m_dataMutex);
    const CalcMoment moment = calcMoment();
    if (!moment.depth)
        return;

    const std::lock_guard<utils::RowMutex> rowLock(m_rowMutex);
    m_queueRows.clear();
    m_tenPrices.clear();
    m_queueRows[OQT_SELL].resize(kLevels);
    m_queueRows[OQT_BUY].resize(kLevels);

    SideTotal buy;
    SideTotal sell;
    for (int i = 0; i < kLevels; ++i) {
        const int buyKey = tenPrice(moment, OQT_BUY, i);
        const int sellKey = tenPrice(moment, OQT_SELL, i);
        calcSide(moment, OQT_BUY, i, buyKey, buy);
        calcSide(moment, OQT_SELL, i, sellKey, sell);
    }
    if (isNegative(buy.sum) || isNegative(sell.sum) || buy.count < 0 || sell.count < 0) {
        m_bNeedRepaint = false;
        return;
    }
    checkInvariants();
    m_strHeader = headerLine(kSellLine, sell) + QLatin1Char('\n') + headerLine(kBuyLine, buy);
    m_bNeedRepaint = true;
}

/// Row `index` of one side: the live level at the key, or a new one with what the snapshot says.
void CDepthModelOrderQueue::calcSide(const CalcMoment& moment, EOrderQueueType side, int index, int key,
                                     SideTotal& total)
{
    const bool sell = side == OQT_SELL;
    const double price = sell ? moment.depth->askPrice[index] : moment.depth->bidPrice[index];
    const auto volume =
        static_cast<double>(sell ? moment.depth->askVolume[index] : moment.depth->bidVolume[index]);
    boost::shared_ptr<OrderQueueData>& row = m_queueRows[side][static_cast<std::size_t>(index)];

    OrderQueueData* level = key == 0 ? nullptr : findLevel(side, key);
    if (!level) {
        const auto opened = boost::make_shared<OrderQueueData>(price, moment.depth->m_time, side);
        opened->m_level = index + 1;
        opened->m_levelVol = !sell && isNegative(volume) ? 0 : volume;
        m_orderQueues[side].insert(key, opened);
        row = boost::make_shared<OrderQueueData>(*opened);
        return;
    }

    level->m_level = index + 1;
    level->m_levelVol = moment.continuous ? volume : level->m_sumVol;
    if (moment.feedNewer) {
        // Only the sell side counts its list anew here.
        if (sell)
            level->recount();
        level->m_levelVol = level->m_sumVol;
    } else if (m_bLevelDataBack) {
        if (m_fullPass)
            level->calcUnknownVol();
        else
            level->calcUnknownVolAtRest();
    }
    if (isNegative(level->m_levelVol))
        level->m_levelVol = 0;
    level->m_avgVol = level->m_levelVol / static_cast<double>(level->m_count);
    if (!std::isfinite(level->m_avgVol) || isNegative(level->m_avgVol))
        level->m_avgVol = 0;
    total.count += level->m_count;
    if (level->m_count != 0)
        total.sum += level->m_levelVol;
    row = boost::make_shared<OrderQueueData>(*level);
}

QString CDepthModelOrderQueue::headerLine(const char* pattern, const SideTotal& total) const
{
    QString average = QStringLiteral("0");
    if (total.count != 0) {
        average = Zeb::formatDoubleNumber(total.sum / static_cast<double>(total.count), 1, 0, false,
                                          QString::fromUtf8(kIllegalValue));
    }
    return QString::fromUtf8(pattern).arg(QString::number(kLevels), QString::number(total.count), average);
}

int CDepthModelOrderQueue::getTenPrice(EOrderQueueType type, int index)
{
    if (index < 0 || index >= kLevels)
        return 0;
    const CalcMoment moment = calcMoment();
    return moment.depth ? tenPrice(moment, type, index) : 0;
}

int CDepthModelOrderQueue::tenPrice(const CalcMoment& moment, EOrderQueueType type, int index)
{
    if (moment.snapshotPrices)
        return keyOf(type == OQT_SELL ? moment.depth->askPrice[index] : moment.depth->bidPrice[index]);
    if (m_tenPrices.empty())
        buildTenPrices(moment);
    const EOrderQueueType side = type == OQT_SELL ? OQT_SELL : OQT_BUY;
    return m_tenPrices[side][static_cast<std::size_t>(index)];
}

/// The ten prices from the lists, when they are newer than the snapshot. The last traded price stays on the
/// sell side only if the sell queue there is not smaller than the buy queue.
void CDepthModelOrderQueue::buildTenPrices(const CalcMoment& moment)
{
    std::vector<int>& sells = m_tenPrices[OQT_SELL];
    std::vector<int>& buys = m_tenPrices[OQT_BUY];
    sells.assign(kLevels, 0);
    buys.assign(kLevels, 0);

    const int lastKey = keyOf(moment.depth->lastPrice);
    bool lastIsSell = true;
    if (lastKey != 0) {
        const OrderQueueData* sellLevel = findLevel(OQT_SELL, lastKey);
        const OrderQueueData* buyLevel = findLevel(OQT_BUY, lastKey);
        const double sellAtLast = sellLevel ? sellLevel->m_sumVol : 0;
        const double buyAtLast = buyLevel ? buyLevel->m_sumVol : 0;
        lastIsSell = !isPositive(buyAtLast - sellAtLast);
    }

    std::size_t taken = 0;
    const LevelMap sellLevels = m_orderQueues.value(OQT_SELL);
    for (auto it = sellLevels.constBegin(); it != sellLevels.constEnd() && taken < sells.size(); ++it) {
        it.value()->recount();
        if (!holdsOrders(*it.value()))
            continue;
        const bool behind = lastIsSell ? it.key() < lastKey : it.key() <= lastKey;
        if (moment.continuous && behind)
            continue;
        sells[taken++] = it.key();
    }

    taken = 0;
    const LevelMap buyLevels = m_orderQueues.value(OQT_BUY);
    for (auto it = buyLevels.constEnd(); it != buyLevels.constBegin() && taken < buys.size();) {
        --it;
        it.value()->recount();
        if (!holdsOrders(*it.value()))
            continue;
        if (moment.continuous && sells[0] != 0 && it.key() >= sells[0])
            continue;
        buys[taken++] = it.key();
    }
}

} // namespace Kel
