#include "information/CMultiThreadDataModel.h"

#include "platform/services/CStockManager.h"
#include "platform/services/instrument_functions.h"
#include "platform/utils/CSingletonT.h"

#include <boost/thread/lock_guard.hpp>

namespace Kel {

namespace {

constexpr int kNoSubscription = -1;
constexpr int kInformationMetaId = 9000;
constexpr int kDayPeriod = 24 * 60 * 60 * 1000; // ms

using Lock = boost::lock_guard<boost::mutex>;

} // namespace

CMultiThreadDataModel::CMultiThreadDataModel(CInformationWidget* widget)
{
    Lock lock(m_mutex);
    m_widget = widget;
}

void CMultiThreadDataModel::setStock(const QString& code)
{
    const auto instrument = utils::CSingletonT<CStockManager>::instance().getInstrumentDetail(code);
    if (!instrument)
        return;
    quoter::TSMetaInfo request;
    request.market = instrument->market;
    request.instrument = instrument->code;
    request.metaId = kInformationMetaId;
    request.period = kDayPeriod;
    Lock lock(m_mutex);
    m_requests.insert(getDetailQsKey(instrument), request);
}

void CMultiThreadDataModel::clear()
{
    Lock lock(m_mutex);
    if (m_subscription != kNoSubscription)
        m_requests.clear();
}

quoter::TSMetaInfo CMultiThreadDataModel::request(const QString& key) const
{
    Lock lock(m_mutex);
    return m_requests.value(key);
}

CInformationWidget* CMultiThreadDataModel::widget() const
{
    Lock lock(m_mutex);
    return m_widget;
}

int CMultiThreadDataModel::subscription() const
{
    Lock lock(m_mutex);
    return m_subscription;
}

void CMultiThreadDataModel::setSubscription(int number)
{
    Lock lock(m_mutex);
    m_subscription = number;
}

} // namespace Kel
