#include "platform/models/CModelDepthTransaction.h"

#include "platform/models/DealView.h"
#include "platform/models/OrderTable.h"
#include "platform/models/RowPages.h"
#include "platform/models/tick_batches.h"
#include "platform/models/tick_values.h"
#include "platform/services/CStockManager.h"
#include "platform/services/RPCEngine.h"
#include "platform/services/instrument_functions.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/volume_unit.h"
#include "records/record_cast.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <mutex>
#include <thread>
#include <vector>

namespace Kel {

namespace {

/// Rows up to which a filter is applied at once.
constexpr int kFilteredAtOnce = 20000;

/// Rows that a filter in the background looks at while it holds the lock.
constexpr int kFilterSlice = 20000;

} // namespace

struct CModelDepthTransaction::Rows
{
    explicit Rows(CModelDepthTransaction* model) : owner(model) {}

    /// What changed is told to the model, if it still lives. Under the lock.
    void publish()
    {
        ++version;
        if (owner == nullptr)
            return;
        owner->count.store(view->size());
        owner->dirty.store(true);
    }

    void truncate(int index)
    {
        view->truncate(index);
        if (pending)
            pending->truncate(index);
    }

    bool addDeals(const quoter::QuoterBatch& batch, std::size_t from, std::size_t to);
    bool addOrders(const quoter::QuoterBatch& batch, std::size_t from, std::size_t to);
    static void applyFilter(const boost::shared_ptr<Rows>& rows, int serial);

    mutable std::mutex mutex; ///< guards all below
    CModelDepthTransaction* owner;
    int unit = 100;
    std::unique_ptr<DealLog> deals = std::make_unique<DealLog>();
    std::unique_ptr<OrderTable> orders = std::make_unique<OrderTable>();
    std::unique_ptr<DealView> view = std::make_unique<DealView>(SDepthFilterParam());
    std::unique_ptr<DealView> pending; ///< the list of a new filter, until it is whole
    int filterSerial = 0;
    std::uint64_t version = 0;
    RowPages<DepthTransData> pages;
    std::vector<DealRow> batchRows; ///< kept for its memory
};

bool CModelDepthTransaction::Rows::addDeals(const quoter::QuoterBatch& batch, std::size_t from,
                                            std::size_t to)
{
    batchRows.clear();
    DealRow row;
    for (std::size_t at = from; at < to; ++at) {
        const auto* const record = quoter::recordCast<quoter::TransactionData>(batch[at].get());
        if (record != nullptr && DealLog::makeRow(*record, unit, row))
            batchRows.push_back(row);
    }
    const int before = deals->size();
    const int first = deals->merge(batchRows);
    if (deals->size() == before)
        return false;
    truncate(first);
    view->look(*deals, deals->size());
    publish();
    return true;
}

bool CModelDepthTransaction::Rows::addOrders(const quoter::QuoterBatch& batch, std::size_t from,
                                             std::size_t to)
{
    bool added = false;
    for (std::size_t at = from; at < to; ++at) {
        const auto* const record = quoter::recordCast<quoter::OrderData>(batch[at].get());
        if (record != nullptr && orders->add(*record))
            added = true;
    }
    if (added)
        publish();
    return added;
}

void CModelDepthTransaction::Rows::applyFilter(const boost::shared_ptr<Rows>& rows, int serial)
{
    for (;; std::this_thread::yield()) {
        std::unique_ptr<DealView> old; // freed without the lock
        const std::lock_guard<std::mutex> lock(rows->mutex);
        if (!rows->pending || rows->filterSerial != serial || rows->owner == nullptr)
            return;
        const int end = rows->deals->size();
        rows->pending->look(*rows->deals, std::min(rows->pending->looked() + kFilterSlice, end));
        if (rows->pending->looked() < end)
            continue;
        old = std::move(rows->view);
        rows->view = std::move(rows->pending);
        rows->publish();
        return;
    }
}

CModelDepthTransaction::CModelDepthTransaction() : m_rows(boost::make_shared<Rows>(this)) {}

CModelDepthTransaction::~CModelDepthTransaction()
{
    {
        const std::lock_guard<std::mutex> lock(m_rows->mutex);
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
    {
        const std::lock_guard<std::mutex> lock(m_rows->mutex);
        m_rows->unit = volumeUnit;
    }
    detail.store(found);
}

void CModelDepthTransaction::getParams(CFormulaParam& param) const
{
    param.values["code"] = getDetailQsKey(detail.load()).toStdString();
}

void CModelDepthTransaction::clear()
{
    auto old = boost::make_shared<Rows>(nullptr);
    {
        const std::lock_guard<std::mutex> lock(m_rows->mutex);
        old->deals.swap(m_rows->deals);
        old->orders.swap(m_rows->orders);
        old->view =
            std::make_unique<DealView>(m_rows->pending ? m_rows->pending->param() : m_rows->view->param());
        old->view.swap(m_rows->view);
        old->pending.swap(m_rows->pending);
        ++m_rows->filterSerial;
        m_rows->publish();
    }
    releaseLater(std::move(old));
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
    if (!isOwn(data) || !isBatchStatus(status))
        return;
    bool changed = false;
    if (status == kStatusAnew) {
        auto old = boost::make_shared<Rows>(nullptr);
        {
            const std::lock_guard<std::mutex> lock(m_rows->mutex);
            old->deals.swap(m_rows->deals);
            changed = old->deals->size() > 0;
            old->view = std::make_unique<DealView>(m_rows->view->param());
            old->view.swap(m_rows->view);
            if (m_rows->pending)
                m_rows->pending->truncate(0);
            if (changed)
                m_rows->publish();
        }
        releaseLater(std::move(old));
    }
    forSlices(data->data.size(), [&](std::size_t from, std::size_t to) {
        const std::lock_guard<std::mutex> lock(m_rows->mutex);
        changed = m_rows->addDeals(data->data, from, to) || changed;
    });
    if (changed)
        dataChanged();
}

void CModelDepthTransaction::entrustCallback(int, int status,
                                             const boost::shared_ptr<MetaCacheDataWrapper>& data)
{
    if (!isOwn(data) || !isBatchStatus(status))
        return;
    bool changed = false;
    if (status == kStatusAnew) {
        auto old = boost::make_shared<Rows>(nullptr);
        {
            const std::lock_guard<std::mutex> lock(m_rows->mutex);
            old->orders.swap(m_rows->orders);
            changed = old->orders->size() > 0;
            if (changed)
                m_rows->publish();
        }
        releaseLater(std::move(old));
    }
    forSlices(data->data.size(), [&](std::size_t from, std::size_t to) {
        const std::lock_guard<std::mutex> lock(m_rows->mutex);
        changed = m_rows->addOrders(data->data, from, to) || changed;
    });
    if (changed)
        dataChanged();
}

void CModelDepthTransaction::setFilterParam(const SDepthFilterParam& param)
{
    int serial = 0;
    bool isLong = false;
    {
        const std::lock_guard<std::mutex> lock(m_rows->mutex);
        serial = ++m_rows->filterSerial;
        m_rows->pending = std::make_unique<DealView>(param);
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
    const std::lock_guard<std::mutex> lock(m_rows->mutex);
    Rows& rows = *m_rows;
    return rows.pages.get(row, rows.view->size(), rows.version, [&rows](int index, DepthTransData& into) {
        rows.view->fill(*rows.deals, index, into);
    });
}

boost::shared_ptr<quoter::OrderData> CModelDepthTransaction::getOrder(long long number) const
{
    const std::lock_guard<std::mutex> lock(m_rows->mutex);
    return m_rows->orders->find(number);
}

int CModelDepthTransaction::getEntrustVolume(const boost::shared_ptr<DepthTransData>& deal, bool buy) const
{
    if (!deal)
        return 0;
    const std::int32_t number = buy ? deal->buyNo : deal->sellNo;
    if (number <= 0)
        return deal->volume;
    const std::lock_guard<std::mutex> lock(m_rows->mutex);
    const std::int64_t shares = m_rows->orders->shares(number);
    return lotsFromShares(shares >= 0 ? shares : m_rows->deals->dealtShares(buy, number), m_rows->unit);
}

int CModelDepthTransaction::tracebackSeq(int row) const
{
    const std::lock_guard<std::mutex> lock(m_rows->mutex);
    return m_rows->view->seconds().placeInSecond(row);
}

std::pair<int, int> CModelDepthTransaction::find(int time) const
{
    const std::lock_guard<std::mutex> lock(m_rows->mutex);
    return m_rows->view->seconds().rowsOfTime(time);
}

int CModelDepthTransaction::find(int time, bool after) const
{
    const std::lock_guard<std::mutex> lock(m_rows->mutex);
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
    const std::lock_guard<std::mutex> lock(m_rows->mutex);
    const int last = m_rows->view->seconds().firstNotBefore(data->time) - 1;
    if (last < 0)
        return false;
    rows = {last - m_rows->view->seconds().placeInSecond(last) + 1, last};
    return true;
}

void CModelDepthTransaction::visitRows(int first, int last,
                                       const std::function<void(int, const DepthTransData&)>& visit) const
{
    const std::lock_guard<std::mutex> lock(m_rows->mutex);
    DepthTransData row;
    const int end = std::min(last, m_rows->view->size() - 1);
    for (int at = std::max(first, 0); at <= end; ++at) {
        m_rows->view->fill(*m_rows->deals, at, row);
        visit(at, row);
    }
}

bool CModelDepthTransaction::isFiltering() const
{
    const std::lock_guard<std::mutex> lock(m_rows->mutex);
    return m_rows->pending != nullptr;
}

std::size_t CModelDepthTransaction::heapBytes() const
{
    const std::lock_guard<std::mutex> lock(m_rows->mutex);
    return m_rows->deals->heapBytes() + m_rows->orders->heapBytes() + m_rows->view->heapBytes();
}

} // namespace Kel
