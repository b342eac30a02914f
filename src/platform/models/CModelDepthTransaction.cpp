#include "platform/models/CModelDepthTransaction.h"

#include "platform/models/TransactionRows.h"
#include "platform/models/tick_values.h"
#include "platform/services/CStockManager.h"
#include "platform/services/RPCEngine.h"
#include "platform/services/instrument_functions.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/volume_unit.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <limits>
#include <utility>

namespace Kel {

namespace {

/// Rows up to which a filter is applied at once.
constexpr int kFilteredAtOnce = 20000;

using Lock = ReaderFirstMutex::Reader;

} // namespace

CModelDepthTransaction::CModelDepthTransaction() : m_rows(boost::make_shared<Rows>(this)) {}

CModelDepthTransaction::~CModelDepthTransaction()
{
    {
        const Lock lock(m_rows->mutex);
        m_rows->owner = nullptr;
    }
    releaseLater(std::move(m_rows));
}

void CModelDepthTransaction::setStock(const QString& code)
{
    const auto found = utils::CSingletonT<CStockManager>::instance().getInstrumentDetail(code);
    priceTick = getDetailPriceTick(found);
    preClose = getDetailLastClose(found);
    volumeUnit = found ? utils::getVolumeUnit(found->market, found->code) : kUsualVolumeUnit;
    const Lock lock(m_rows->mutex);
    m_rows->unit = volumeUnit;
    if (!isSameInstrument(m_rows->detail, found))
        ++m_rows->generation;
    m_rows->detail = found;
    detail.store(found);
}

void CModelDepthTransaction::getParams(CFormulaParam& param) const
{
    param.values["code"] = getDetailQsKey(detail.load()).toStdString();
}

void CModelDepthTransaction::clear()
{
    auto deals = std::make_shared<DealLog>();
    auto orders = std::make_shared<OrderTable>();
    std::shared_ptr<DealView> view;
    std::shared_ptr<DealView> pending;
    {
        const Lock lock(m_rows->mutex);
        ++m_rows->generation;
        ++m_rows->filterSerial;
        pending.swap(m_rows->pending);
        view = std::make_shared<DealView>((pending ? pending : m_rows->view)->param());
        deals.swap(m_rows->deals);
        orders.swap(m_rows->orders);
        view.swap(m_rows->view);
        ++m_rows->marks.list;
        m_rows->firstChanged = 0;
        m_rows->publish();
    }
    releaseLater(std::move(deals));
    releaseLater(std::move(orders));
    releaseLater(std::move(view));
    releaseLater(std::move(pending));
    dataChanged();
}

bool CModelDepthTransaction::isOwn(const boost::shared_ptr<MetaCacheDataWrapper>& data) const
{
    return isBatchOf(detail.load(), data);
}

void CModelDepthTransaction::quoterCallback(int, int, const boost::shared_ptr<MetaCacheDataWrapper>&) {}

void CModelDepthTransaction::transactionCallback(int, int status,
                                                 const boost::shared_ptr<MetaCacheDataWrapper>& data)
{
    take(status, data, &Rows::takeDeals);
}

void CModelDepthTransaction::entrustCallback(int, int status,
                                             const boost::shared_ptr<MetaCacheDataWrapper>& data)
{
    take(status, data, &Rows::takeOrders);
}

template <class Take>
void CModelDepthTransaction::take(int status, const boost::shared_ptr<MetaCacheDataWrapper>& data, Take into)
{
    if (!data || !isBatchStatus(status))
        return;
    bool changed = false;
    {
        Rows& rows = *m_rows;
        const std::lock_guard<std::mutex> turn(rows.feed);
        Rows::Work work;
        if (!rows.begin(data, work))
            return;
        changed = (rows.*into)(data->data, status == kStatusAnew, work);
    }
    if (changed)
        dataChanged();
}

void CModelDepthTransaction::setFilterParam(const SDepthFilterParam& param)
{
    int serial = 0;
    bool isLong = false;
    {
        const Lock lock(m_rows->mutex);
        serial = ++m_rows->filterSerial;
        m_rows->pending = std::make_shared<DealView>(param);
        isLong = m_rows->deals->size() > kFilteredAtOnce;
    }
    if (isLong)
        net::RPCEngine::getStrand(kFilterStrand)->post([rows = m_rows, serial] {
            Rows::applyFilter(rows, serial);
        });
    else
        Rows::applyFilter(m_rows, serial);
    if (!isLong)
        dataChanged();
}

boost::shared_ptr<DepthTransData> CModelDepthTransaction::getData(int row) const
{
    const Lock lock(m_rows->mutex);
    Rows& rows = *m_rows;
    return rows.pages.get(row, rows.view->size(), rows.version, [&rows](int index, DepthTransData& into) {
        rows.view->fill(*rows.deals, index, into);
    });
}

boost::shared_ptr<quoter::OrderData> CModelDepthTransaction::getOrder(long long number) const
{
    const Lock lock(m_rows->mutex);
    return m_rows->orders->find(number);
}

int CModelDepthTransaction::getEntrustVolume(const boost::shared_ptr<DepthTransData>& deal, bool buy) const
{
    if (!deal)
        return 0;
    const Lock lock(m_rows->mutex);
    return m_rows->orderLots(*deal, buy);
}

int CModelDepthTransaction::tracebackSeq(int row) const
{
    const Lock lock(m_rows->mutex);
    return m_rows->view->seconds().placeInSecond(row);
}

std::pair<int, int> CModelDepthTransaction::find(int time) const
{
    const Lock lock(m_rows->mutex);
    return m_rows->view->seconds().rowsOfTime(time);
}

int CModelDepthTransaction::find(int time, bool after) const
{
    const Lock lock(m_rows->mutex);
    const int first = m_rows->view->seconds().firstNotBefore(time);
    const int size = m_rows->view->size();
    if (after)
        return first < size ? first : -1;
    const std::pair<int, int> rows = m_rows->view->seconds().rowsOfTime(time);
    return rows.second >= 0 ? rows.second : first - 1;
}

bool CModelDepthTransaction::tryFind(const TransData* data, std::pair<int, int>& rows) const
{
    rows = {-1, -1};
    if (data == nullptr)
        return false;
    const Lock lock(m_rows->mutex);
    const int last = m_rows->view->seconds().firstNotBefore(data->time) - 1;
    if (last < 0)
        return false;
    rows = {last - m_rows->view->seconds().placeInSecond(last) + 1, last};
    return true;
}

void CModelDepthTransaction::visitRows(int first, int last,
                                       const std::function<void(int, const DepthTransData&)>& visit) const
{
    const Lock lock(m_rows->mutex);
    DepthTransData row;
    const int end = std::min(last, m_rows->view->size() - 1);
    for (int at = std::max(first, 0); at <= end; ++at) {
        m_rows->view->fill(*m_rows->deals, at, row);
        visit(at, row);
    }
}

bool CModelDepthTransaction::nextRows(RowWalk& walk, int most, std::vector<DepthTransData>& rows) const
{
    rows.clear();
    const Lock lock(m_rows->mutex);
    const DealView& view = *m_rows->view;
    const auto keyOf = [&](int row) { return view.keyOf(*m_rows->deals, row); };
    if (!walk.resume(m_rows->marks, view.size(), keyOf))
        return false;
    while (static_cast<int>(rows.size()) < most && walk.next() < view.size()) {
        rows.emplace_back();
        view.fill(*m_rows->deals, walk.next(), rows.back());
        walk.pass(keyOf(walk.next()));
    }
    return true;
}

void CModelDepthTransaction::visitSides(
    int first, int last,
    const std::function<void(int, const DepthTransData&, const DealSide&, const DealSide&)>& visit) const
{
    const Lock lock(m_rows->mutex);
    DepthTransData row;
    const int end = std::min(last, m_rows->view->size() - 1);
    for (int at = std::max(first, 0); at <= end; ++at) {
        m_rows->view->fill(*m_rows->deals, at, row);
        visit(at, row, m_rows->side(row, true), m_rows->side(row, false));
    }
}

int CModelDepthTransaction::takeFirstChanged()
{
    const Lock lock(m_rows->mutex);
    return std::exchange(m_rows->firstChanged, std::numeric_limits<int>::max());
}

bool CModelDepthTransaction::isFiltering() const
{
    const Lock lock(m_rows->mutex);
    return m_rows->pending != nullptr;
}

std::size_t CModelDepthTransaction::heapBytes() const
{
    const Lock lock(m_rows->mutex);
    return m_rows->deals->heapBytes() + m_rows->orders->heapBytes() + m_rows->view->heapBytes();
}

} // namespace Kel
