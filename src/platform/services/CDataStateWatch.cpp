#include "platform/services/CDataStateWatch.h"

#include "platform/services/CFormulaManager.h"
#include "platform/services/CStockManager.h"
#include "platform/services/data_state_rules.h"
#include "platform/utils/CSingletonT.h"
#include "records/QuoterDepthData.h"
#include "records/record_cast.h"

#include <mutex>

namespace Kel {

namespace {

constexpr int kStatusFirst = 0;
constexpr int kStatusHistory = 3;

SDataCall callOf(EDataChannel channel, int seq, int status, const quoter::QuoterBatch& batch)
{
    SDataCall call;
    call.channel = channel;
    call.number = seq;
    call.status = status;
    call.records = batch.size();
    if (batch.empty())
        return call;
    call.firstTime = batch.front() ? batch.front()->m_time : 0;
    call.lastTime = batch.back() ? batch.back()->m_time : 0;
    call.snapshot = channel == eDataQuotes && status != kStatusFirst && status != kStatusHistory &&
                    quoter::recordCast<quoter::QuoterDepthData>(batch.back().get()) != nullptr;
    return call;
}

const quoter::QuoterBatch& recordsOf(const MetaCacheDataWrapperPtr& batch)
{
    static const quoter::QuoterBatch none;
    return batch ? batch->data : none;
}

} // namespace

/// What the threads of feed and object share.
struct CDataStateWatch::Watched
{
    /// A call of the feed, for the instrument that is watched.
    void take(const QString& key, const SDataCall& call)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (!stock.isEmpty() && key == stock)
            rules.take(call);
    }

    std::mutex mutex; ///< guards all below
    QString stock;
    std::string market;
    std::string code;
    DataStateRules rules;
};

CDataStateWatch::CDataStateWatch(QObject* parent) : QObject(parent), m_watched(std::make_unique<Watched>()) {}

CDataStateWatch::~CDataStateWatch() = default;

void CDataStateWatch::setStock(const QString& key)
{
    const nelservice::CInstrumentDetailPtr detail =
        key.isEmpty() ? nullptr : utils::CSingletonT<CStockManager>::instance().getInstrumentDetail(key);
    const std::lock_guard<std::mutex> lock(m_watched->mutex);
    m_watched->stock = key;
    m_watched->market = detail ? detail->market : std::string();
    m_watched->code = detail ? detail->code : std::string();
    m_watched->rules.start(!key.isEmpty());
}

void CDataStateWatch::clear()
{
    setStock(QString());
}

QString CDataStateWatch::stock() const
{
    const std::lock_guard<std::mutex> lock(m_watched->mutex);
    return m_watched->stock;
}

bool CDataStateWatch::setStaleLimit(std::int64_t ms)
{
    if (ms < 1)
        return false;
    const std::lock_guard<std::mutex> lock(m_watched->mutex);
    m_watched->rules.setStaleLimit(ms);
    return true;
}

void CDataStateWatch::loaded()
{
    const std::lock_guard<std::mutex> lock(m_watched->mutex);
    m_watched->rules.loaded();
}

void CDataStateWatch::setClock(std::int64_t nowMs)
{
    const std::lock_guard<std::mutex> lock(m_watched->mutex);
    m_watched->rules.setClock(nowMs);
}

void CDataStateWatch::check()
{
    DataStateRules::Sessions sessions;
    if (!m_watched->code.empty()) { // written on this thread only
        utils::CSingletonT<CFormulaManager>::instance().getOpenCloseTime(sessions, m_watched->market,
                                                                         m_watched->code);
    }
    EDataState state = eDataEmpty;
    std::int64_t since = 0;
    bool gapsChanged = false;
    {
        const std::lock_guard<std::mutex> lock(m_watched->mutex);
        const DataStateRules& rules = m_watched->rules;
        state = rules.state(sessions);
        since = rules.since(state);
        gapsChanged = rules.gapChanges() != m_gapsTold && !(rules.gaps().empty() && m_gaps.empty());
        m_gapsTold = rules.gapChanges();
        if (gapsChanged)
            m_gaps = rules.gaps();
    }
    const bool stateChanged = state != m_state;
    if (stateChanged || state == eDataGap)
        m_since = since;
    m_state = state;
    if (gapsChanged)
        Q_EMIT sigDataGapsChanged();
    if (stateChanged)
        Q_EMIT sigDataStateChanged(state);
}

void CDataStateWatch::onEntrustCallback(const QString& key, int seq, int status,
                                        const MetaCacheDataWrapperPtr& batch)
{
    m_watched->take(key, callOf(eDataOrders, seq, status, recordsOf(batch)));
}

void CDataStateWatch::onTransactionCallback(const QString& key, int seq, int status,
                                            const MetaCacheDataWrapperPtr& batch)
{
    m_watched->take(key, callOf(eDataDeals, seq, status, recordsOf(batch)));
}

void CDataStateWatch::onQuoterCallback(const QString& key, int seq, int status,
                                       const quoter::QuoterBatch& batch)
{
    m_watched->take(key, callOf(eDataQuotes, seq, status, batch));
}

} // namespace Kel
