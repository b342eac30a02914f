#include "platform/models/CModelDepthEntrust.h"

#include "platform/models/EntrustRows.h"
#include "platform/models/tick_values.h"
#include "platform/services/CStockManager.h"
#include "platform/services/RPCEngine.h"
#include "platform/services/instrument_functions.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/volume_unit.h"

#include <boost/make_shared.hpp>

namespace Kel {

namespace {

/// Rows up to which a filter is applied at once.
constexpr int kFilteredAtOnce = 20000;

using Lock = ReaderFirstMutex::Reader;

} // namespace

CModelDepthEntrust::CModelDepthEntrust() : m_rows(boost::make_shared<Rows>(this)) {}

CModelDepthEntrust::~CModelDepthEntrust()
{
    {
        const Lock lock(m_rows->mutex);
        m_rows->owner = nullptr;
    }
    releaseLater(std::move(m_rows));
}

void CModelDepthEntrust::setStock(const QString& code)
{
    const auto found = utils::CSingletonT<CStockManager>::instance().getInstrumentDetail(code);
    priceTick = getDetailPriceTick(found);
    preClose = getDetailLastClose(found);
    const Lock lock(m_rows->mutex);
    m_rows->unit = found ? utils::getVolumeUnit(found->market, found->code) : kUsualVolumeUnit;
    if (!isSameInstrument(m_rows->detail, found))
        ++m_rows->generation;
    m_rows->detail = found;
    detail.store(found);
}

void CModelDepthEntrust::getParams(CFormulaParam& param) const
{
    param.values["code"] = getDetailQsKey(detail.load()).toStdString();
}

void CModelDepthEntrust::clear()
{
    auto orders = std::make_shared<OrderLog>();
    auto cancels = std::make_shared<CancelLog>();
    auto deals = std::make_shared<DealLog>();
    std::shared_ptr<EntrustViews> views;
    std::shared_ptr<EntrustViews> pending;
    {
        const Lock lock(m_rows->mutex);
        ++m_rows->generation;
        ++m_rows->filterSerial;
        views = std::make_shared<EntrustViews>(m_rows->lastParam());
        pending.swap(m_rows->pending);
        orders.swap(m_rows->orders);
        cancels.swap(m_rows->cancels);
        deals.swap(m_rows->deals);
        views.swap(m_rows->views);
        ++m_rows->orderMarks.list;
        ++m_rows->cancelMarks.list;
        m_rows->publishOrders();
        m_rows->publishCancels();
    }
    releaseLater(std::move(orders));
    releaseLater(std::move(cancels));
    releaseLater(std::move(deals));
    releaseLater(std::move(views));
    releaseLater(std::move(pending));
}

void CModelDepthEntrust::entrustCallback(int, int status, const boost::shared_ptr<MetaCacheDataWrapper>& data)
{
    take(status, data, &Rows::takeOrders);
}

void CModelDepthEntrust::transactionCallback(int, int status,
                                             const boost::shared_ptr<MetaCacheDataWrapper>& data)
{
    take(status, data, &Rows::takeDeals);
}

template <class Take>
void CModelDepthEntrust::take(int status, const boost::shared_ptr<MetaCacheDataWrapper>& data, Take into)
{
    if (!data || !isBatchStatus(status))
        return;
    Rows& rows = *m_rows;
    const std::lock_guard<std::mutex> turn(rows.feed);
    Rows::Work work;
    if (rows.begin(data, work))
        (rows.*into)(data->data, status == kStatusAnew, work);
}

void CModelDepthEntrust::setFilterParam(const SDepthFilterParam& param)
{
    int serial = 0;
    bool isLong = false;
    {
        const Lock lock(m_rows->mutex);
        serial = m_rows->startFilter(param);
        isLong = m_rows->orders->size() > kFilteredAtOnce || m_rows->cancels->size() > kFilteredAtOnce;
    }
    if (isLong) {
        net::RPCEngine::getStrand(kFilterStrand)->post([rows = m_rows, serial] {
            Rows::applyFilter(rows, serial);
        });
    } else {
        Rows::applyFilter(m_rows, serial);
    }
}

bool CModelDepthEntrust::isFiltering() const
{
    const Lock lock(m_rows->mutex);
    return m_rows->pending != nullptr;
}

std::size_t CModelDepthEntrust::heapBytes() const
{
    const Lock lock(m_rows->mutex);
    return m_rows->orders->heapBytes() + m_rows->cancels->heapBytes() + m_rows->deals->heapBytes() +
           m_rows->views->heapBytes();
}

} // namespace Kel
