#include "tick/CDepthTransactionWidget.h"

#include "platform/models/order_symbols.h"
#include "platform/resources/CUiResource.h"
#include "platform/services/CConfig.h"
#include "platform/services/CUserConfig.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/CSingletonT.h"
#include "tick/CDepthFilterSettingDialog.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <boost/make_shared.hpp>

#include <algorithm>

namespace Kel {

namespace {

constexpr int kEventDealSelected = 3224;
constexpr int kFromDealList = 1; // first number of that event
constexpr int kUsualPeriod = 50; // ms between two looks at the model

constexpr int kActionUnfold = 8;
constexpr int kActionFold = 10;

constexpr const char* kArrowUp = "ic_img_arrow_up";
constexpr const char* kArrowDown = "ic_img_arrow_down";

} // namespace

CDepthTransactionWidget::CDepthTransactionWidget(QWidget* parent, bool showHoloGraph)
    : CTickListWidget(QStringLiteral("transaction_widget"), parent),
      m_model(boost::make_shared<CModelDepthTransaction>()),
      m_timer(new QTimer(this)),
      m_showHoloGraph(showHoloGraph)
{
    m_total = m_model->count;
    connect(m_timer, &QTimer::timeout, this, &CDepthTransactionWidget::slotTimeout);
    m_timer->start(refreshPeriod(kUsualPeriod));
    if (CUserConfig* const config = getUserConfig())
        connect(config, &CUserConfig::sigRefreshTimer, this, &CDepthTransactionWidget::slotRefreshTimer);
    CDepthTransactionWidget::initDraw();
}

CDepthTransactionWidget::~CDepthTransactionWidget()
{
    disconnect();
    m_timer->stop();
    m_model->clear();
}

void CDepthTransactionWidget::initDraw()
{
    const bool concise = getConfig() != nullptr && getConfig()->conciseStyle();
    m_clrIndex = themeColor(concise ? "ic_clr_concise_modelgroup_transaction_index"
                                    : "ic_clr_modelgroup_transaction_index");
    m_clrSplitter = themeColor("kel_clr_depth_modelgroup_transaction_splitter");
    m_clrAmount = themeColor(concise ? "ic_clr_concise_entrust_amount" : "ic_clr_entrust_amount");
    m_clrFall = themeColor(concise ? "ic_clr_concise_entrust_text_fall" : "ic_clr_entrust_text_fall");
    m_clrRise = themeColor(concise ? "ic_clr_concise_entrust_text_rise" : "ic_clr_entrust_text_rise");
    m_clrDefault =
        themeColor(concise ? "ic_clr_concise_entrust_default_text" : "ic_clr_entrust_default_text");
    m_font = themeFont("ic_fnt_index_modulegroup_transaction");
    m_fontBig = themeFont("ic_fnt_index_modulegroup_transaction_big_number");
    const auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    m_arrowUp = resource.getPixmap(QLatin1String(kArrowUp), devicePixelRatioF());
    m_arrowDown = resource.getPixmap(QLatin1String(kArrowDown), devicePixelRatioF());
}

int CDepthTransactionWidget::otherColumns() const
{
    return 2 * m_columnGap + m_volumeWidth + m_timeWidth + (m_showHoloGraph ? m_holoWidth : 0);
}

// Instrument and feed
// -------------------------------------------------------------------------------------------------------------

void CDepthTransactionWidget::setStock(const QString& code)
{
    m_model->setStock(code);
}

void CDepthTransactionWidget::getParams(CFormulaParam& param)
{
    m_model->getParams(param);
}

void CDepthTransactionWidget::quoterCallback(int seq, int status,
                                             const boost::shared_ptr<MetaCacheDataWrapper>& batch)
{
    m_model->quoterCallback(seq, status, batch);
}

void CDepthTransactionWidget::transactionCallback(int seq, int status,
                                                  const boost::shared_ptr<MetaCacheDataWrapper>& batch)
{
    m_model->transactionCallback(seq, status, batch);
}

void CDepthTransactionWidget::entrustCallback(int seq, int status,
                                              const boost::shared_ptr<MetaCacheDataWrapper>& batch)
{
    m_model->entrustCallback(seq, status, batch);
}

void CDepthTransactionWidget::clear(bool repaint)
{
    m_model->clear();
    forgetRows();
    m_highlightRange = {-1, -1};
    m_tipSide = -1;
    m_highlightKey = -1;
    if (repaint) {
        drawBackground(m_rect);
        update();
    }
}

void CDepthTransactionWidget::slotTimeout()
{
    if (!isVisible() || !m_model->dirty)
        return;
    m_model->dirty = false;
    if (m_highlightKey != -1) {
        const std::pair<int, int> range = m_model->find(m_highlightKey);
        if (range.first >= 0 && range.second >= 0)
            m_highlightRange = range;
    }
    updateScroll();
}

void CDepthTransactionWidget::slotRefreshTimer(int ms)
{
    m_timer->stop();
    m_timer->start(ms);
}

// Filter and strip
// ----------------------------------------------------------------------------------------------------------------

void CDepthTransactionWidget::doFilter()
{
    if (m_filterDialog == nullptr)
        m_filterDialog = new CDepthFilterSettingDialog(eDepthFilterTransaction, this);
    const QPointer<CDepthTransactionWidget> self = this; // the host may delete the panel below its dialog
    if (m_filterDialog->exec() != 1 || !self)
        return;
    m_filterParam = m_filterDialog->getFilterParam();
    m_model->setFilterParam(m_filterParam);
    m_model->dirty = true; // range and tail are mended at the next tick
    dropSelection();
    updateScroll();
}

void CDepthTransactionWidget::switchStrip(bool show)
{
    if (show == m_showHoloGraph)
        return;
    m_showHoloGraph = show;
    m_tipSide = -1;
    m_model->dirty = true; // the number of groups, and with it the tail, is another one
    resetLayout();
    update();
}

void CDepthTransactionWidget::setShowHoloGraph(bool show)
{
    switchStrip(show);
}

void CDepthTransactionWidget::actionHandler(int action)
{
    if (action == kActionUnfold)
        switchStrip(true);
    else if (action == kActionFold)
        switchStrip(false);
}

// Selection and highlight
// ---------------------------------------------------------------------------------------------------------

void CDepthTransactionWidget::rowSelected(int row)
{
    if (row < 0)
        return;
    if (const auto deal = m_model->getData(row))
        deliverEvent(kEventDealSelected, kFromDealList, row, QString::number(deal->time), nullptr);
}

void CDepthTransactionWidget::highlightTransaction(int index)
{
    if (index < 0 || index >= m_total || index == m_selectedIndex)
        return;
    select(index);
    if (m_total > m_layout.capacity() && !isInView(index)) {
        const int first = std::clamp(index - m_layout.capacity() / 2, 0, m_total - m_layout.capacity());
        if (m_scrollBar->value() != first) {
            m_scrollBar->setValue(first); // which brings the view there
            return;
        }
        m_firstIndex = first;
    }
    drawBackground(m_rect);
    update();
}

void CDepthTransactionWidget::highlightTransaction(const TransData* second, bool repaint)
{
    if (second == nullptr) {
        if (m_highlightRange == std::make_pair(-1, -1))
            return;
        m_highlightRange = {-1, -1};
        m_highlightKey = -1;
        if (repaint) {
            drawBackground(m_rect);
            update();
        }
        return;
    }
    m_highlightKey = second->time;
    std::pair<int, int> range = m_model->find(m_highlightKey);
    if (range.first == -1 && range.second == -1)
        m_model->tryFind(second, range);
    if (range == m_highlightRange)
        return;
    m_highlightRange = range;
    const int capacity = m_layout.capacity();
    const bool moves = range.first >= 0 && range.second >= 0 && m_total > capacity;
    if (moves) {
        const int rows = range.second - range.first + 1;
        scrollTo(rows > capacity ? range.second - capacity + 1 : range.first - (capacity - rows) / 2);
    }
    if (repaint) {
        drawBackground(m_rect);
        update();
    }
    if (moves && m_scrollBar->value() != m_firstIndex)
        m_scrollBar->setValue(m_firstIndex);
}

// Mouse and keys
// ------------------------------------------------------------------------------------------------------------------

bool CDepthTransactionWidget::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return CTickListWidget::event(event);
    if (rowAt(m_mousePos) < 0)
        return true;
    const int middle = stripOffset() + m_holoWidth / 2;
    m_tipSide = m_mousePos.x() % m_layout.groupWidth > middle ? 1 : 0;
    update();
    return true;
}

void CDepthTransactionWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void CDepthTransactionWidget::mouseMoveEvent(QMouseEvent* event)
{
    m_mousePos = event->pos();
    if (m_tipSide != -1) {
        m_tipSide = -1;
        update();
    }
}

void CDepthTransactionWidget::leaveEvent(QEvent*)
{
    if (m_tipSide != -1) {
        m_tipSide = -1;
        update();
    }
}

void CDepthTransactionWidget::keyPressEvent(QKeyEvent* event)
{
    const bool isTip = event->key() == Qt::Key_Space && m_selectedIndex >= 0 && isInView(m_selectedIndex);
    if (!isTip) {
        CTickListWidget::keyPressEvent(event);
        return;
    }
    m_mousePos = m_layout.rowRect(m_selectedIndex - m_firstIndex).center();
    m_tipSide = m_tipSide == -1 ? 0 : -1;
    update();
}

RowIdentity CDepthTransactionWidget::identityOf(int row) const
{
    const auto deal = m_model->getData(row);
    return deal ? RowIdentity{true, deal->time, deal->buyNo, deal->sellNo, deal->volume, deal->price}
                : RowIdentity();
}

QString CDepthTransactionWidget::rowText(int row) const
{
    const auto deal = m_model->getData(row);
    if (!deal)
        return QString();
    return QStringList{clockText(deal->time), Zeb::formatPriceDoubleNumber(deal->price, m_model->priceTick),
                       QString::number(deal->volume), QString::number(deal->buyNo),
                       QString::number(deal->sellNo)}
        .join(QLatin1Char('\t'));
}

} // namespace Kel
