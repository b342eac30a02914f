// State and scales of the deal chart, and how data reach it.

#include "holographic/CDepthHolographicWidget.h"

#include "platform/resources/CUiResource.h"
#include "platform/services/CStockManager.h"
#include "platform/services/CUserConfig.h"
#include "platform/services/instrument_functions.h"
#include "platform/toolkit/CIndexScrollBar.h"
#include "platform/toolkit/scroll_bar_sheet.h"
#include "platform/utils/CSingletonT.h"
#include "records/Tolerance.h"

#include <QFontMetrics>
#include <QResizeEvent>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <iterator>

namespace Kel {

namespace {

constexpr int kEventScrolled = 15;
constexpr int kUsualPeriod = 200; // ms between two looks at the model
constexpr int kScrollBarWidth = 6;

constexpr int kUsualHalfRow = 12; // pixels
constexpr int kLeastHalfRow = 1;
constexpr int kMostHalfRow = 16;

constexpr double kAxisHeightPerFont = 1.5;
constexpr double kCellWidthPerText = 1.5;
constexpr int kLeastCellWidth = 80; // pixels of a time label
constexpr const char* kWidestTime = "09:25:00";

constexpr const char* kAxisFont = "fnt_kline_graph_axis_text";
constexpr const char* kSellLine = "kel_clr_deptch_holographic_deal_sell_line";
constexpr const char* kBuyLine = "kel_clr_deptch_holographic_deal_buy_line";
constexpr const char* kMarketMark = "kel_clr_deptch_holographic_deal_special_market_price_triangle";
constexpr const char* kUrgentMark = "kel_clr_deptch_holographic_deal_special_urgent_order_triangle";
constexpr const char* kBackground = "ic_clr_graph_kline_bg";
constexpr const char* kAxis = "ic_clr_kline_axis";
constexpr const char* kAxisText = "ic_clr_kline_axis_text";
constexpr const char* kActiveDeal = "kel_clr_deptch_holographic_deal_active_deal_bg";
constexpr const char* kSellBreak = "kel_clr_deptch_holographic_deal_sell_break_line";
constexpr const char* kBuyBreak = "kel_clr_deptch_holographic_deal_buy_break_line";
constexpr const char* kHighlight = "kel_clr_deptch_holographic_deal_highlight_bg";

QColor color(const char* key)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QLatin1String(key));
}

} // namespace

CDepthHolographicWidget::CDepthHolographicWidget(QWidget* parent)
    : CBaseWidget(QStringLiteral("holographic_deal_line_widget"), parent),
      m_model(boost::make_shared<CModelDepthHolographic>())
{
    createUi();
    m_detailTimer = new QTimer(this);
    connect(m_detailTimer, &QTimer::timeout, this, &CDepthHolographicWidget::slotShowDealDetail);
    m_refreshTimer = new QTimer(this);
    connect(m_refreshTimer, &QTimer::timeout, this, &CDepthHolographicWidget::slotTimeOut);
    CUserConfig* const config = getUserConfig();
    m_refreshTimer->start(config != nullptr ? static_cast<int>(config->refreshInterval() * 1000)
                                            : kUsualPeriod);
    if (config != nullptr)
        connect(config, &CUserConfig::sigRefreshTimer, this, &CDepthHolographicWidget::slotRefreshTimer);
    setFocusPolicy(Qt::WheelFocus);
}

CDepthHolographicWidget::~CDepthHolographicWidget()
{
    disconnect();
    m_detailTimer->stop();
    m_refreshTimer->stop();
    m_instrument.reset();
    m_canvas = QPixmap();
    m_timeSpanX.clear();
    m_dealRightX.clear();
    m_model.reset();
}

void CDepthHolographicWidget::createUi()
{
    initDraw();
    initMenu();
    m_scrollBar = new CIndexScrollBar(0, Qt::Vertical, this);
    m_scrollBar->setFixedWidth(kScrollBarWidth);
    m_scrollBar->setSingleStep(1);
    m_scrollBar->setMinimum(0);
    m_scrollBar->setStyleSheet(scrollBarSheet());
    m_scrollBar->hide();
}

void CDepthHolographicWidget::initDraw()
{
    m_inks[eInkSell] = color(kSellLine);
    m_inks[eInkBuy] = color(kBuyLine);
    m_inks[eInkActive] = color(kActiveDeal);
    m_inks[eInkSellBreak] = color(kSellBreak);
    m_inks[eInkBuyBreak] = color(kBuyBreak);
    m_inks[eInkMarket] = color(kMarketMark);
    m_inks[eInkUrgent] = color(kUrgentMark);
    m_clrBackground = color(kBackground);
    m_clrAxis = color(kAxis);
    m_clrAxisText = color(kAxisText);
    m_clrHighlight = color(kHighlight);

    const QFont& font = *utils::CSingletonT<Zeb::CUiResource>::instance().getFont(QLatin1String(kAxisFont));
    const QFontMetrics metrics(font, this);
    m_baseHalfRow = kUsualHalfRow;
    m_halfRow = kUsualHalfRow;
    m_rowHeight = 2 * kUsualHalfRow + 1;
    m_timeAxisHeight = static_cast<int>(metrics.height() * kAxisHeightPerFont);
    const int textWidth = metrics.horizontalAdvance(QLatin1String(kWidestTime));
    m_timeCellWidth = std::max(kLeastCellWidth, static_cast<int>(textWidth * kCellWidthPerText));
}

void CDepthHolographicWidget::themeChanged()
{
    initDraw();
    m_scrollBar->setStyleSheet(scrollBarSheet());
    drawGraph();
    update();
}

// Instrument and feed
// -------------------------------------------------------------------------------------------------------------

void CDepthHolographicWidget::dropShown()
{
    m_model->clear();
    m_detailSeq = -1;
    m_model->dirty = true;
    m_halfRow = kUsualHalfRow;
    m_rowHeight = 2 * kUsualHalfRow + 1;
    m_topPadRows = 0;
}

void CDepthHolographicWidget::setStock(const QString& code)
{
    dropShown();
    m_cursorSeq = -1;
    m_instrument.store(utils::CSingletonT<CStockManager>::instance().getInstrumentDetail(code));
    m_model->setStock(code);
    m_priceTick = m_model->priceTick;
}

void CDepthHolographicWidget::clear()
{
    dropShown();
}

void CDepthHolographicWidget::slotQuoterCallBack(
    int seq, int status, const std::vector<boost::shared_ptr<quoter::QuoterBase>>& records, QString key,
    long long)
{
    const nelservice::CInstrumentDetailPtr instrument = m_instrument.load();
    if (!instrument || getDetailQsKey(instrument) != key)
        return;
    auto batch = boost::make_shared<MetaCacheDataWrapper>();
    batch->data = records;
    batch->market = instrument->market;
    batch->instrument = instrument->code;
    m_model->quoterCallback(seq, status, batch);
}

void CDepthHolographicWidget::onTransactionCallback(const QString&, int seq, int status,
                                                    const boost::shared_ptr<MetaCacheDataWrapper>& batch)
{
    m_model->transactionCallback(seq, status, batch);
}

void CDepthHolographicWidget::onEntrustCallback(const QString&, int seq, int status,
                                                const boost::shared_ptr<MetaCacheDataWrapper>& batch)
{
    m_model->entrustCallback(seq, status, batch);
}

void CDepthHolographicWidget::slotTimeOut()
{
    if (m_model->needRecalc.exchange(false) && m_model->recalcMaxMinSeqAndPrice()) {
        calcSizeInfo(false);
        m_model->dirty = true;
    }
    if (!m_model->dirty.exchange(false))
        return;
    drawGraph();
    update();
}

void CDepthHolographicWidget::slotRefreshTimer(int ms)
{
    const int period = std::max(ms, 1);
    m_refreshTimer->stop();
    m_refreshTimer->start(period);
    if (m_detailTimer->isActive())
        m_detailTimer->start(period);
}

void CDepthHolographicWidget::setViewTimeRange(const int& begin, const int& end)
{
    if (!m_model->setViewTimeRange(begin, end))
        return;
    calcSizeInfo(false);
    drawGraph();
    update();
}

// Size and rows
// -------------------------------------------------------------------------------------------------------------------

void CDepthHolographicWidget::resizeEvent(QResizeEvent* event)
{
    CBaseWidget::resizeEvent(event);
    resizeLayout();
}

void CDepthHolographicWidget::resizeLayout()
{
    m_widgetRect = rect();
    if (m_widgetRect.width() == 0 && m_widgetRect.height() == 0)
        return;
    newCanvas();
    m_scrollBar->setGeometry(m_widgetRect.width() - kScrollBarWidth, 0, kScrollBarWidth,
                             m_widgetRect.height());
    m_chartWidth = m_widgetRect.width() - m_priceAxisWidth;
    m_chartHeight = m_widgetRect.height() - m_timeAxisHeight;
    calcSizeInfo(false);
    drawGraph();
    update();
}

void CDepthHolographicWidget::newCanvas()
{
    const qreal ratio = devicePixelRatioF();
    m_canvas = QPixmap((QSizeF(m_widgetRect.size()) * ratio).toSize());
    m_canvas.setDevicePixelRatio(ratio);
}

void CDepthHolographicWidget::calcSizeInfo(bool fit)
{
    LadderRows rows;
    rows.rowHeight = m_rowHeight;
    rows.halfRow = m_halfRow;
    rows.scrollRow = m_scrollRow;
    rows = layOutRows(rows, fit, m_baseHalfRow, m_chartHeight, m_model->maxPrice, m_model->minPrice,
                      m_priceTick);
    m_rowHeight = rows.rowHeight;
    m_halfRow = rows.halfRow;
    m_pageRows = rows.pageRows;
    m_totalRows = rows.totalRows;
    m_topPadRows = rows.topPadRows;
    m_scrollRow = rows.scrollRow;
    m_scrollBar->setPageStep(rows.pageStep);
    // Before the bar gets its new end, which would report a place of its own.
    if (fit)
        m_scrollBar->setValue(0);
    updateScroll();
}

void CDepthHolographicWidget::updateScroll()
{
    if (m_totalRows > m_pageRows) {
        m_scrollBar->setMaximum(m_totalRows - m_pageRows);
        if (m_scrollBar->isHidden()) {
            m_scrollBar->show();
            m_scrollBar->raise();
        }
    } else if (!m_scrollBar->isHidden()) {
        m_scrollBar->hide();
    }
}

void CDepthHolographicWidget::setFullHeightChagne(int delta)
{
    const int halfRow =
        std::min(kMostHalfRow, std::max(kLeastHalfRow, clampToInt(std::int64_t(m_halfRow) + delta)));
    if (halfRow == m_halfRow)
        return;
    m_halfRow = halfRow;
    m_rowHeight = 2 * halfRow + 1;
    calcSizeInfo(false);
    drawGraph();
    update();
}

bool CDepthHolographicWidget::handleEvent(int id, int first, int second, QString text, void* payload)
{
    if (id != kEventScrolled)
        return CBaseWidget::handleEvent(id, first, second, text, payload);
    if (m_scrollBar != nullptr) {
        m_scrollRow = m_scrollBar->sliderPosition();
        drawGraph();
        update();
    }
    return true;
}

// Scales
// -------------------------------------------------------------------------------------------------------------------

ChartGeometry CDepthHolographicWidget::geometry() const
{
    ChartGeometry geometry;
    geometry.chartWidth = m_chartWidth;
    geometry.chartHeight = m_chartHeight;
    geometry.viewExtent = m_model->viewExtent;
    geometry.startIndex = m_model->getStartIndex();
    geometry.rowHeight = m_rowHeight;
    geometry.halfRow = m_halfRow;
    geometry.topPadRows = m_topPadRows;
    geometry.scrollRow = m_scrollRow;
    geometry.fullHeightHand = m_model->fullHeightHand;
    geometry.maxPrice = m_model->maxPrice;
    geometry.priceTick = m_model->priceTick;
    return geometry;
}

int CDepthHolographicWidget::calcDrawHeight(const int& hands) const
{
    return geometry().drawHeight(hands);
}

int CDepthHolographicWidget::priceToY(const double& price) const
{
    return geometry().priceToY(price);
}

int CDepthHolographicWidget::getSeqByX(const int& x) const
{
    // A picture without deals leaves the ends of the one before where they are.
    if (m_model->getEndIndex() < m_model->getStartIndex())
        return -1;
    if (m_dealRightX.isEmpty() || m_dealRightX.last() <= x)
        return -1;
    // Right ends never fall from one deal to the next, so the first beyond x is found by halving.
    int below = m_dealRightX.firstKey();
    int above = m_dealRightX.lastKey();
    while (below < above) {
        const int middle = below + (above - below) / 2;
        const auto entry = m_dealRightX.lowerBound(middle);
        if (entry.value() > x)
            above = middle;
        else
            below = std::next(entry).key();
    }
    return m_dealRightX.lowerBound(below).key();
}

} // namespace Kel
