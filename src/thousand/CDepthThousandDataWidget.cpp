// Life cycle, instrument, feed, timer and events of the ladder.

#include "thousand/CDepthThousandDataWidget.h"

#include "platform/services/CStockManager.h"
#include "platform/services/CUserConfig.h"
#include "platform/services/instrument_functions.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/Log.h"
#include "records/Tolerance.h"
#include "thousand/scroll_bar_sheet.h"

#include <boost/make_shared.hpp>

#include <QPointer>

namespace Kel {

namespace {

constexpr int kDefaultRefreshMs = 50;   // timer period without a user configuration
constexpr double kMsPerSecond = 1000.0; // of the configured period

// Events
constexpr int kEventScrolled = 15;
constexpr int kEventReset = 82;
constexpr int kEventLevel = 3223;

// Width of the column of prices
constexpr double kThreeDigits = 100; // yuan; above it a price needs the widest column
constexpr double kTwoDigits = 10;
constexpr double kUsualTick = 0.01; // below it a price has one more digit
constexpr int kWidePrice = 50;      // pixels
constexpr int kMiddlePrice = 40;
constexpr int kNarrowPrice = 30;

int priceWidthOf(double reference, double tick)
{
    if (isPositive(reference - kThreeDigits))
        return kWidePrice;
    if (isPositive(reference - kTwoDigits))
        return kMiddlePrice;
    return isLess(tick, kUsualTick) ? kMiddlePrice : kNarrowPrice;
}

boost::shared_ptr<EntrustData> makeEmptyRow()
{
    const auto row = boost::make_shared<EntrustData>();
    row->orderCount = -1;
    return row;
}

} // namespace

CDepthThousandDataWidget::CDepthThousandDataWidget(QWidget* parent, bool useQuoterModel)
    : Zeb::CBaseWidget(QStringLiteral("depth_thousand_data_widget"), parent),
      m_useQuoterModel(useQuoterModel),
      m_emptyQueue(makeEmptyRow())
{
    setAccessibleName(QStringLiteral("千档行情"));
    createUi();

    m_timer = new QTimer(this);
    connect(m_timer, &QTimer::timeout, this, &CDepthThousandDataWidget::slotTimeout);
    CUserConfig* const config = getUserConfig();
    m_timer->start(config ? truncateToInt(config->refreshInterval() * kMsPerSecond) : kDefaultRefreshMs);
    if (config)
        connect(config, &CUserConfig::sigRefreshTimer, this, &CDepthThousandDataWidget::slotRefreshTimer);
    setCursor(m_arrowCursor);
    initDraw();
}

CDepthThousandDataWidget::~CDepthThousandDataWidget()
{
    disconnect(this, nullptr, nullptr, nullptr);
    disconnect(m_timer, nullptr, this, nullptr);
    if (CUserConfig* const config = getUserConfig())
        disconnect(config, nullptr, this, nullptr);
    m_timer->stop();
    clear(false);
}

void CDepthThousandDataWidget::createUi()
{
    m_scrollBar = makeScrollBar(this);
    m_resetTop = new CResetWidget(QStringLiteral("img_thousand_down_arrow"), this);
    m_resetTop->hide();
    m_resetBottom = new CResetWidget(QStringLiteral("img_thousand_up_arrow"), this);
    m_resetBottom->hide();
}

void CDepthThousandDataWidget::setStock(const QString& code)
{
    if (m_useQuoterModel)
        m_modelQuoter.setStock(code);
    else
        m_modelDepth.setStock(code);
    const nelservice::CInstrumentDetailPtr detail =
        utils::CSingletonT<CStockManager>::instance().getInstrumentDetail(code);
    if (detail)
        m_priceWidth = priceWidthOf(getDetailLastClose(detail), getDetailPriceTick(detail));
    slotTimeout();
}

void CDepthThousandDataWidget::clear(bool repaint)
{
    m_modelDepth.clear();
    m_modelQuoter.clear();
    m_buyQueues.clear();
    m_sellQueues.clear();
    m_latestPrice = kNoPrice;
    m_lastVolume = kNoVolume;
    m_minPrice = kNoLowestPrice;
    m_maxPrice = 0;
    m_maxAmount = 0;
    m_sellCount = 0;
    m_buyCount = 0;
    m_scrollTop = 0;
    m_centerDelta = 0;
    m_totalRows = 1;
    m_hoverRow = -1;
    m_showTip = false;
    const QPointer<CDepthThousandDataWidget> alive(this);
    if (m_selected)
        dropSelection();
    if (repaint && alive) {
        drawBackground(m_clientRect);
        update();
    }
}

void CDepthThousandDataWidget::dropSelection()
{
    m_selected.reset();
    deliverEvent(kEventLevel, -1, 0, QString(), nullptr);
}

double CDepthThousandDataWidget::getLastClose() const
{
    return m_useQuoterModel ? m_modelQuoter.getLastClose() : m_modelDepth.getLastClose();
}

double CDepthThousandDataWidget::getPriceTick() const
{
    return m_useQuoterModel ? m_modelQuoter.getPriceTick() : m_modelDepth.getPriceTick();
}

QString CDepthThousandDataWidget::getStockKey() const
{
    return m_useQuoterModel ? m_modelQuoter.getStockKey() : m_modelDepth.getStockKey();
}

std::shared_ptr<SingleQueue> CDepthThousandDataWidget::getSelectedQueue(double& priceTick, int& volumeUnit)
{
    if (!m_selected)
        return {};
    priceTick = m_modelDepth.getPriceTick();
    volumeUnit = m_modelDepth.getVolumeUnit();
    const bool isBuy = m_selectedSide == 1;
    return m_useQuoterModel ? m_modelQuoter.getQueue(isBuy, m_selected->price)
                            : m_modelDepth.getQueue(isBuy, m_selected->price);
}

// Feed
// ------------------------------------------------------------------------------------------------------

void CDepthThousandDataWidget::quoterCallback(int seq, int status,
                                              const boost::shared_ptr<MetaCacheDataWrapper>& batch)
{
    if (m_useQuoterModel)
        m_modelQuoter.quoterCallback(seq, status, batch);
    else
        m_modelDepth.quoterCallback(seq, status, batch);
}

void CDepthThousandDataWidget::entrustCallback(int seq, int status,
                                               const boost::shared_ptr<MetaCacheDataWrapper>& batch)
{
    if (!m_useQuoterModel)
        m_modelDepth.entrustCallback(seq, status, batch);
}

void CDepthThousandDataWidget::transactionCallback(int seq, int status,
                                                   const boost::shared_ptr<MetaCacheDataWrapper>& batch)
{
    if (!m_useQuoterModel)
        m_modelDepth.transactionCallback(seq, status, batch);
}

void CDepthThousandDataWidget::thousandDataCallback(int seq, int status,
                                                    const boost::shared_ptr<MetaCacheDataWrapper>& batch)
{
    if (m_useQuoterModel)
        m_modelQuoter.ThousandDataCallback(seq, status, batch);
}

// Timer and events
// ------------------------------------------------------------------------------------------

/// Takes the news of the model in use. False, and nothing changes, if there is none.
bool CDepthThousandDataWidget::askModel(int& flags)
{
    double latest = 0;
    int lastVolume = 0;
    double minPrice = kNoLowestPrice;
    double maxPrice = 0;
    double maxAmount = 0;
    const bool news = m_useQuoterModel
                          ? m_modelQuoter.checkUpdate(flags, m_buyQueues, m_sellQueues, latest, lastVolume,
                                                      minPrice, maxPrice, maxAmount)
                          : m_modelDepth.checkUpdate(flags, m_buyQueues, m_sellQueues, latest, lastVolume,
                                                     minPrice, maxPrice, maxAmount, layout().shortForm());
    if (!news)
        return false;
    m_latestPrice = latest;
    m_lastVolume = lastVolume;
    m_minPrice = minPrice;
    m_maxPrice = maxPrice;
    m_maxAmount = maxAmount;
    m_sellCount = static_cast<int>(m_sellQueues.size());
    m_buyCount = static_cast<int>(m_buyQueues.size());
    m_totalRows = m_sellCount + 1 + m_buyCount;
    resetCenterPosition(m_displayLevel, m_sellCount, m_buyCount, m_centerDelta);
    return true;
}

void CDepthThousandDataWidget::slotTimeout()
{
    if (!isVisible())
        return;
    int flags = 0;
    if (!askModel(flags) || !checkSelection())
        return;
    if (flags & kLadderCover) {
        updateScroll(true);
        DEPTH_LOG(utils::kLogInfo, "CDepthThousandDataWidget",
                  boost::format("%1% COVER_ALL data draw end, key: %2%") %
                      "Kel::CDepthThousandDataWidget::slotTimeout" % getStockKey().toStdString());
    } else if (flags & kLadderRowCount) {
        updateScroll(false);
    } else if (flags & kLadderRowData) {
        drawBackground(m_clientRect);
        update();
    }
}

/// Tells the host whether the selected level still stands. A walk from the best price on that meets neither
/// the level nor one behind it leaves the selection as it is. False if the host ended the panel.
bool CDepthThousandDataWidget::checkSelection()
{
    if (!m_selected)
        return true;
    const bool isBuy = m_selectedSide == 1;
    const double price = m_selected->price;
    const auto& rows = isBuy ? m_buyQueues : m_sellQueues;
    const QPointer<CDepthThousandDataWidget> alive(this);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const double at = rows[isBuy ? rows.size() - 1 - i : i]->price;
        if (isEqual(at, price)) {
            // The list may be another one after this.
            deliverEvent(kEventLevel, 0, -1, QString(), nullptr);
            break;
        }
        if (isBuy ? isLess(at, price) : isLess(price, at)) {
            dropSelection();
            break;
        }
    }
    return !alive.isNull();
}

void CDepthThousandDataWidget::slotRefreshTimer(int ms)
{
    if (!m_timer)
        return;
    m_timer->stop();
    m_timer->start(ms);
}

void CDepthThousandDataWidget::slotThousandDataDistribution()
{
    CUserConfig* const config = getUserConfig();
    if (!config)
        return;
    config->setShowDistribution(!config->showDistribution());
    m_showDistribute = config->showDistribution();
    update();
}

bool CDepthThousandDataWidget::handleEvent(int id, int first, int second, QString text, void* pointer)
{
    Q_UNUSED(first)
    Q_UNUSED(second)
    Q_UNUSED(text)
    Q_UNUSED(pointer)
    switch (id) {
    case kEventScrolled:
        if (!m_movesSlider)
            scrolled();
        return true;
    case kEventReset:
        updateScroll(true);
        return true;
    default:
        return false;
    }
}

void CDepthThousandDataWidget::themeChanged()
{
    initDraw();
    applyScrollBarSheet(*m_scrollBar);
    drawBackground(m_clientRect);
    update();
}

} // namespace Kel
