#include "platform/models/CModelDepthEntrust.h"

#include "platform/models/EntrustRows.h"
#include "platform/models/tick_batches.h"
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

} // namespace

CModelDepthEntrust::CModelDepthEntrust() : m_rows(boost::make_shared<Rows>(this)) {}

CModelDepthEntrust::~CModelDepthEntrust()
{
    {
        const std::lock_guard<std::mutex> lock(m_rows->mutex);
        m_rows->owner = nullptr;
    }
    releaseLater(std::move(m_rows));
}

void CModelDepthEntrust::setStock(const QString& code)
{
    const auto found = utils::CSingletonT<CStockManager>::instance().getInstrumentDetail(code);
    priceTick = getDetailPriceTick(found);
    preClose = getDetailLastClose(found);
    {
        const std::lock_guard<std::mutex> lock(m_rows->mutex);
        m_rows->unit = found ? utils::getVolumeUnit(found->market, found->code) : kUsualVolumeUnit;
    }
    detail.store(found);
}

void CModelDepthEntrust::getParams(CFormulaParam& param) const
{
    param.values["code"] = getDetailQsKey(detail.load()).toStdString();
}

void CModelDepthEntrust::clear()
{
    auto old = boost::make_shared<Rows>(nullptr);
    {
        const std::lock_guard<std::mutex> lock(m_rows->mutex);
        old->views = std::make_unique<EntrustViews>(m_rows->lastParam());
        old->orders.swap(m_rows->orders);
        old->cancels.swap(m_rows->cancels);
        old->deals.swap(m_rows->deals);
        old->views.swap(m_rows->views);
        old->pending.swap(m_rows->pending);
        ++m_rows->filterSerial;
        m_rows->publishOrders();
        m_rows->publishCancels();
    }
    releaseLater(std::move(old));
}

void CModelDepthEntrust::entrustCallback(int, int status, const boost::shared_ptr<MetaCacheDataWrapper>& data)
{
    if (!isBatchStatus(status) || !isBatchOf(detail.load(), data))
        return;
    int serial = 0;
    if (status == kStatusAnew) {
        auto old = boost::make_shared<Rows>(nullptr);
        {
            const std::lock_guard<std::mutex> lock(m_rows->mutex);
            if (m_rows->orders->size() > 0) {
                old->orders.swap(m_rows->orders);
                m_rows->views->truncateOrders(0);
                m_rows->publishOrders();
                // The cancels have lost their orders: they are judged anew beside the list in force.
                serial = m_rows->startFilter(SDepthFilterParam(m_rows->lastParam()));
            }
        }
        releaseLater(std::move(old));
    }
    forSlices(data->data.size(), [&](std::size_t from, std::size_t to) {
        const std::lock_guard<std::mutex> lock(m_rows->mutex);
        m_rows->addOrders(data->data, from, to);
    });
    if (serial != 0)
        Rows::applyFilter(m_rows, serial);
}

void CModelDepthEntrust::transactionCallback(int, int status,
                                             const boost::shared_ptr<MetaCacheDataWrapper>& data)
{
    if (!isBatchStatus(status) || !isBatchOf(detail.load(), data))
        return;
    if (status == kStatusAnew) {
        auto old = boost::make_shared<Rows>(nullptr);
        {
            const std::lock_guard<std::mutex> lock(m_rows->mutex);
            old->deals.swap(m_rows->deals);
            old->cancels.swap(m_rows->cancels);
            m_rows->views->truncateCancels(0);
            if (m_rows->pending)
                m_rows->pending->truncateCancels(0);
            if (old->cancels->size() > 0)
                m_rows->publishCancels();
        }
        releaseLater(std::move(old));
    }
    forSlices(data->data.size(), [&](std::size_t from, std::size_t to) {
        const std::lock_guard<std::mutex> lock(m_rows->mutex);
        m_rows->addDeals(data->data, from, to);
    });
}

void CModelDepthEntrust::setFilterParam(const SDepthFilterParam& param)
{
    int serial = 0;
    bool isLong = false;
    {
        const std::lock_guard<std::mutex> lock(m_rows->mutex);
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
    const std::lock_guard<std::mutex> lock(m_rows->mutex);
    return m_rows->pending != nullptr;
}

std::size_t CModelDepthEntrust::heapBytes() const
{
    const std::lock_guard<std::mutex> lock(m_rows->mutex);
    return m_rows->orders->heapBytes() + m_rows->cancels->heapBytes() + m_rows->deals->heapBytes() +
           m_rows->views->heapBytes();
}

} // namespace Kel
