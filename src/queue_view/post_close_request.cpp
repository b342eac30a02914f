// The one request that the panel makes by itself: the whole queue around the close.

#include "queue_view/CDepthOrderQueueWidget.h"

#include "platform/services/CFormulaManager.h"
#include "platform/services/DataDemand.h"
#include "platform/services/instrument_functions.h"
#include "platform/services/proxy_type.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/Log.h"
#include "records/TRegionInfo.h"
#include "records/TSMetaInfo.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>
#include <limits>

namespace Kel {

namespace {

constexpr std::int64_t kMsPerSecond = 1000;
constexpr std::int64_t kAroundCloseMs = 60000; // before and after the close
constexpr int kMostRecords = 100;
constexpr int kSnapshotStatus = -1; // the engine's status of a depth snapshot

/// Seconds that milliseconds with the time around can be counted from.
std::int64_t sane(long long seconds)
{
    constexpr std::int64_t most = (std::numeric_limits<std::int64_t>::max() - kAroundCloseMs) / kMsPerSecond;
    return std::clamp<std::int64_t>(seconds, -most, most);
}

} // namespace

void CDepthOrderQueueWidget::onPostTradeClosed(const QString& key, long long time)
{
    if (!m_detail || key != getDetailQsKey(m_detail) || !m_currentTradeDateFunc)
        return;
    quoter::TSMetaInfo meta;
    meta.market = m_detail->market;
    meta.instrument = m_detail->code;
    meta.metaId = quoter::eMetaLevel2Queue;
    quoter::TRegionInfo region;
    region.start.milliseconds = sane(time) * kMsPerSecond - kAroundCloseMs;
    region.end.milliseconds = sane(time) * kMsPerSecond + kAroundCloseMs;
    region.limit = kMostRecords;

    // The answer comes on a thread of the service; the panel may be gone when the GUI thread gets to it.
    const QPointer<CDepthOrderQueueWidget> panel(this);
    const std::int64_t start = region.start.milliseconds;
    const auto answer = [panel, key, start](int seq, int status,
                                            const std::vector<boost::shared_ptr<quoter::QuoterBase>>& batch) {
        QCoreApplication* const application = QCoreApplication::instance();
        if (!application)
            return;
        QMetaObject::invokeMethod(
            application,
            [panel, key, start, seq, status, batch] {
                // An answer for the instrument before must not end the request of this one.
                if (panel && panel->isInstrument(key))
                    panel->postTradeQuoterCallBack(seq, status, batch, key, start);
            },
            Qt::QueuedConnection);
    };
    CFormulaManager& formulas = utils::CSingletonT<CFormulaManager>::instance();
    if (m_subscribeId != -1)
        formulas.unsubQuoter(m_subscribeId, quoter::TSMetaInfo());
    m_subscribeId = formulas.subscribeQuoter(proxyType(meta.market), meta, region, quoter::eDemandCoverAll,
                                             false, false, answer);
    DEPTH_LOG(utils::kLogInfo, "CDepthOrderQueueWidget",
              boost::format("in %1%: L2 1804 Queue COVER_ALL: %2% %3% %4%") %
                  "Kel::CDepthOrderQueueWidget::onPostTradeClosed" % meta.metaId % meta.instrument %
                  m_subscribeId);
}

/// Ends the request, and hands its answer on if the instrument is still the one that was asked for.
void CDepthOrderQueueWidget::endPostCloseRequest(
    int seq, int status, const std::vector<boost::shared_ptr<quoter::QuoterBase>>& batch, const QString& key)
{
    utils::CSingletonT<CFormulaManager>::instance().unsubQuoter(m_subscribeId, quoter::TSMetaInfo());
    if (isInstrument(key))
        m_model.quoterCallBack(seq, status, batch);
}

void CDepthOrderQueueWidget::postTradeQuoterCallBack(
    int seq, int status, const std::vector<boost::shared_ptr<quoter::QuoterBase>>& batch, QString key,
    long long time)
{
    Q_UNUSED(time)
    endPostCloseRequest(seq, status, batch, key);
}

void CDepthOrderQueueWidget::postQuoterDepthCallBack(
    int seq, int status, const std::vector<boost::shared_ptr<quoter::QuoterBase>>& batch, QString key,
    long long time)
{
    Q_UNUSED(status)
    Q_UNUSED(time)
    endPostCloseRequest(seq, kSnapshotStatus, batch, key);
}

} // namespace Kel
