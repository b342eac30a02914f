// Life cycle, instrument, mode, feed and events of the panel.

#include "queue_view/CDepthOrderQueueWidget.h"

#include "platform/services/CFormulaManager.h"
#include "platform/services/CStockManager.h"
#include "platform/services/CUserConfig.h"
#include "platform/services/instrument_functions.h"
#include "platform/utils/CSingletonT.h"
#include "records/TSMetaInfo.h"
#include "records/Tolerance.h"

#include <QPainter>

namespace Kel {

namespace {

constexpr int kMinimumWidth = 320;      // pixels
constexpr int kDefaultRefreshMs = 200;  // timer period without a user configuration
constexpr double kMsPerSecond = 1000.0; // of the configured period

constexpr int kMaxShowCount = 50;       // orders of a level before "..."
constexpr int kMaxShowCountFull = 1000; // in the horizontal style and with a full queue

// Events
constexpr int kEventButton = 5;
constexpr int kEventScrolled = 15;
constexpr int kEventTitle = 1395;
constexpr int kFromModeSetter = 1; // second number of event 5 from the frame's `setQueueModel`

} // namespace

CDepthOrderQueueWidget::CDepthOrderQueueWidget(QWidget* parent)
    : Zeb::CBaseWidget(QStringLiteral("CDepthOrderQueueWidget"), parent)
{
    setAccessibleName(QStringLiteral("委托队列"));
    initScrollBar();
    setMinimumWidth(kMinimumWidth);
    resetLayout();

    m_timer = new QTimer(this);
    connect(m_timer, &QTimer::timeout, this, &CDepthOrderQueueWidget::slotTimeout);
    CUserConfig* const config = getUserConfig();
    m_timer->start(config ? truncateToInt(config->refreshInterval() * kMsPerSecond) : kDefaultRefreshMs);
    if (config)
        connect(config, &CUserConfig::sigRefreshTimer, this, &CDepthOrderQueueWidget::slotRefreshTimer);

    m_scrollBar->setMinimum(0);
    initDraw();
}

CDepthOrderQueueWidget::~CDepthOrderQueueWidget()
{
    m_centerOffset = 0;
    m_model.clear(true);
    m_timer->stop();
    m_timer->deleteLater();
    if (m_subscribeId != -1)
        utils::CSingletonT<CFormulaManager>::instance().unsubQuoter(m_subscribeId, quoter::TSMetaInfo());
}

void CDepthOrderQueueWidget::setStock(const QString& code)
{
    auto& stocks = utils::CSingletonT<CStockManager>::instance();
    const nelservice::CInstrumentDetailPtr detail = stocks.getInstrumentDetail(code);
    if (!detail)
        return;
    m_detail = detail;
    m_model.setStock(code);
    if (m_queueModeStyle == eQueueDetailHorizontal || m_queueModeFull == eQueueFull)
        m_needCenter = true;
    if (m_currentTradeDateFunc)
        m_lastClose = stocks.getCurrentDateLastClose(detail, m_currentTradeDateFunc());
    if (m_subscribeId != -1) {
        utils::CSingletonT<CFormulaManager>::instance().unsubQuoter(m_subscribeId, quoter::TSMetaInfo());
        m_subscribeId = -1;
    }
}

void CDepthOrderQueueWidget::clear()
{
    m_centerOffset = 0;
    m_model.clear(true);
}

void CDepthOrderQueueWidget::updateAll()
{
    drawGraph();
    update();
}

void CDepthOrderQueueWidget::updateQueueMode(EQueueMode mode)
{
    if (mode == eQueueFiveLevels || mode == eQueueTenLevels) {
        m_queueModeLevel = static_cast<qint8>(mode);
    } else if (mode == eQueueExtra6 || mode == eQueueExtra7) {
        m_queueModeExtra = static_cast<qint8>(mode);
    } else {
        m_queueModeStyle = static_cast<qint8>(mode);
        if (m_queueModeStyle != eQueueDetailHorizontal && m_queueModeFull != eQueueFull) {
            m_maxShowCount = kMaxShowCount;
        } else {
            m_maxShowCount = kMaxShowCountFull;
            m_needCenter = true;
        }
    }
    m_centerOffset = 0;
    drawGraph();
    updateScroll(m_queueModeStyle != eQueueDetailHorizontal);
    update();
}

void CDepthOrderQueueWidget::setCurrentTradeDateFunc(boost::function<int()> currentTradeDate)
{
    m_currentTradeDateFunc.swap(currentTradeDate);
}

void CDepthOrderQueueWidget::setTrackOrder(int orderNo, int colorIndex)
{
    m_trackOrderNo = orderNo;
    m_trackColor = colorIndex;
    updateAll();
}

void CDepthOrderQueueWidget::setVolumeColor(int volume, int colorIndex)
{
    m_markVolume = volume;
    m_markColor = colorIndex;
    updateAll();
}

// Events and timer
// ------------------------------------------------------------------------------------------------------

bool CDepthOrderQueueWidget::handleEvent(int id, int first, int second, QString text, void* pointer)
{
    Q_UNUSED(text)
    Q_UNUSED(pointer)
    switch (id) {
    case kEventButton:
        if (second == kFromModeSetter)
            updateQueueMode(static_cast<EQueueMode>(first));
        return true;
    case kEventScrolled:
        scrolled();
        return true;
    default:
        return false;
    }
}

void CDepthOrderQueueWidget::slotTimeout()
{
    if (!isVisible())
        return;
    m_model.checkCalcOrder();
    if (!m_model.m_bNeedRepaint)
        return;
    m_model.m_bNeedRepaint.exchange(false);
    updateAll();
    deliverEvent(kEventTitle, 0, 0, m_model.headerText(), nullptr);
}

void CDepthOrderQueueWidget::slotRefreshTimer(int ms)
{
    if (!m_timer)
        return;
    m_timer->stop();
    m_timer->start(ms);
}

void CDepthOrderQueueWidget::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    if (m_pixmap.isNull())
        return;
    // Moved to a screen of another scale: the picture is drawn anew for that one, after this event.
    if (m_pixmap.devicePixelRatioF() != devicePixelRatioF())
        QMetaObject::invokeMethod(this, &CDepthOrderQueueWidget::updateAll, Qt::QueuedConnection);
    QPainter painter(this);
    if (m_pixmap.size() == pixmapSize()) {
        // By its corner: the pixmap is whole device pixels, and fitting it into the rectangle would blur it
        // where the scale makes parts of one.
        painter.drawPixmap(m_clientRect.topLeft(), m_pixmap);
    } else {
        painter.drawPixmap(m_clientRect, m_pixmap);
    }
}

void CDepthOrderQueueWidget::themeChanged()
{
    initDraw();
    applyScrollBarSheet();
    drawGraph();
    update();
}

// Feed
// ------------------------------------------------------------------------------------------------------------------

bool CDepthOrderQueueWidget::isInstrument(const QString& key) const
{
    return key == getDetailQsKey(m_model.instrument());
}

void CDepthOrderQueueWidget::quoterCallBack(int seq, int status,
                                            const std::vector<boost::shared_ptr<quoter::QuoterBase>>& batch)
{
    m_model.quoterCallBack(seq, status, batch);
}

void CDepthOrderQueueWidget::onEntrustCallback(const QString& key, int seq, int status,
                                               const boost::shared_ptr<MetaCacheDataWrapper>& batch)
{
    if (isInstrument(key))
        m_model.quoterOrderCallBack(seq, status, batch);
}

void CDepthOrderQueueWidget::onTransactionCallback(const QString& key, int seq, int status,
                                                   const boost::shared_ptr<MetaCacheDataWrapper>& batch)
{
    if (isInstrument(key))
        m_model.quoterDealCallBack(seq, status, batch);
}

void CDepthOrderQueueWidget::slotQueueCallBack(
    int seq, int status, const std::vector<boost::shared_ptr<quoter::QuoterBase>>& batch, QString key,
    long long time)
{
    Q_UNUSED(time)
    if (isInstrument(key))
        m_model.quoterCallBack(seq, status, batch);
}

} // namespace Kel
