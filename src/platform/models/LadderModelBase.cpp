#include "platform/models/LadderModelBase.h"

namespace Kel {

QString LadderModelBase::getStockKey() const
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    return m_instrument.stockKey;
}

double LadderModelBase::getPriceTick() const
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    return m_instrument.priceTick;
}

double LadderModelBase::getLastClose() const
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    return m_instrument.lastClose;
}

int LadderModelBase::getVolumeUnit() const
{
    const ReaderFirstMutex::Reader lock(m_mutex);
    return m_instrument.volumeUnit;
}

void LadderModelBase::quoterCallback(int /*seq*/, int /*status*/, const MetaCacheDataWrapperPtr& batch)
{
    const ReaderFirstMutex::Writer lock(m_mutex);
    if (m_instrument.owns(batch))
        m_instrument.takeLastClose(*batch);
}

void LadderModelBase::handOut(LadderSide::Rows& buys, LadderSide::Rows& sells, double& minPrice,
                              double& maxPrice, double& maxAmount) const
{
    m_buys.handOut(buys);
    m_sells.handOut(sells);
    minPrice = kNoLowestPrice;
    maxPrice = 0;
    maxAmount = 0;
    m_buys.addBounds(minPrice, maxPrice, maxAmount);
    m_sells.addBounds(minPrice, maxPrice, maxAmount);
}

int LadderModelBase::flagsOf(const LadderSide::News& news)
{
    return (news.size ? kLadderRowCount : 0) | (news.rows ? kLadderRowData : 0);
}

} // namespace Kel
