#include "tick/CDepthEntrustWidget.h"

#include "platform/services/CUserConfig.h"
#include "platform/services/instrument_functions.h"
#include "platform/toolkit/CSpliter.h"
#include "platform/toolkit/CWidgetList.h"
#include "tick/CDepthCancelWidget.h"
#include "tick/CDepthEntrustTrackDialog.h"
#include "tick/CDepthFilterSettingDialog.h"
#include "tick/CDepthOrderWidget.h"
#include "tick/CEntrustTitleWidget.h"

#include <QPointer>

#include <boost/make_shared.hpp>

#include <utility>

namespace Kel {

namespace {

constexpr int kEventPressed = 5;
constexpr int kEventMarkChanged = 3226;
constexpr int kUsualPeriod = 200; // ms between two looks at the model
constexpr int kOrderWidth = 1000; // of the order list before the first layout
constexpr int kCancelWidth = 320; // of the cancel list, always
constexpr const char* kSplitterColor = "ic_clr_modulegroup_spliter";

} // namespace

CDepthEntrustWidget::CDepthEntrustWidget(QWidget* parent)
    : Zeb::CBaseWidget(QStringLiteral("depth_entrust_widget"), parent),
      m_model(boost::make_shared<CModelDepthEntrust>()),
      m_timer(new QTimer(this))
{
    connect(m_timer, &QTimer::timeout, this, &CDepthEntrustWidget::slotTimeout);
    m_timer->start(refreshPeriod(kUsualPeriod));
    if (CUserConfig* const config = getUserConfig())
        connect(config, &CUserConfig::sigRefreshTimer, this, &CDepthEntrustWidget::slotRefreshTimer);
    createUi();
}

CDepthEntrustWidget::~CDepthEntrustWidget()
{
    disconnect();
    m_timer->stop();
    m_model->clear();
    m_trackDialog->clear();
    m_trackDialog->hide();
}

void CDepthEntrustWidget::createUi()
{
    m_trackDialog = new CDepthEntrustTrackDialog(this);
    m_orderTitle = new CEntrustTitleWidget(QStringLiteral("挂单"));
    m_cancelTitle = new CEntrustTitleWidget(QStringLiteral("撤单"));
    m_orderList = new CDepthOrderWidget(m_model, m_orderTitle, m_trackDialog, nullptr);
    m_cancelList = new CDepthCancelWidget(m_model, m_cancelTitle, m_trackDialog, nullptr);
    m_splitter = new Zeb::CSpliter(QLatin1String(kSplitterColor), Qt::Horizontal, this);
    const auto addPane = [this](CEntrustTitleWidget* title, QWidget* list) {
        auto* const pane = new Zeb::CWidgetList(Qt::Vertical);
        pane->addWidget(title);
        pane->addWidget(list, 1);
        m_splitter->addWidget(pane);
        return pane;
    };
    addPane(m_orderTitle, m_orderList);
    addPane(m_cancelTitle, m_cancelList)->setMinimumWidth(kCancelWidth);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setSizes({kOrderWidth, kCancelWidth});
}

void CDepthEntrustWidget::resizeEvent(QResizeEvent* event)
{
    Zeb::CBaseWidget::resizeEvent(event);
    m_splitter->setGeometry(rect());
    m_splitter->setSizes({width() - kCancelWidth, kCancelWidth});
}

void CDepthEntrustWidget::setStock(const QString& code)
{
    m_model->setStock(code);
    m_trackDialog->setStock(code);
}

void CDepthEntrustWidget::getParams(CFormulaParam& param)
{
    m_model->getParams(param);
}

bool CDepthEntrustWidget::isOwn(const QString& key) const
{
    const nelservice::CInstrumentDetailPtr detail = m_model->detail.load();
    return detail && getDetailQsKey(detail) == key;
}

void CDepthEntrustWidget::entrustCallback(const QString& key, int seq, int status,
                                          const boost::shared_ptr<MetaCacheDataWrapper>& batch)
{
    if (isOwn(key))
        m_model->entrustCallback(seq, status, batch);
}

void CDepthEntrustWidget::transactionCallback(const QString& key, int seq, int status,
                                              const boost::shared_ptr<MetaCacheDataWrapper>& batch)
{
    if (isOwn(key))
        m_model->transactionCallback(seq, status, batch);
}

void CDepthEntrustWidget::clear(bool repaint)
{
    m_model->clear();
    m_trackDialog->clear();
    if (m_trackDialog->isVisible())
        m_trackDialog->hide();
    m_orderList->clear(repaint);
    m_cancelList->clear(repaint);
}

void CDepthEntrustWidget::setFilterParam(SDepthFilterParam& param)
{
    m_model->setFilterParam(param);
    m_orderList->setFilterParam(param);
    m_cancelList->setFilterParam(param);
    deliverEvent(kEventMarkChanged, param.mark, param.color, QString(), nullptr);
}

void CDepthEntrustWidget::doFilter()
{
    if (m_filterDialog == nullptr)
        m_filterDialog = new CDepthFilterSettingDialog(eDepthFilterEntrust, this);
    const QPointer<CDepthEntrustWidget> self = this; // the host may delete the panel below its dialog
    if (m_filterDialog->exec() != 1 || !self)
        return;
    SDepthFilterParam param = m_filterDialog->getFilterParam();
    setFilterParam(param);
}

void CDepthEntrustWidget::setTrackOrderParam(int timeMs, double price, int hands, int side, int tag)
{
    m_orderList->setTrackOrderParam(timeMs, price, hands, side, tag);
}

bool CDepthEntrustWidget::handleEvent(int id, int, int, QString, void*)
{
    if (id != kEventPressed)
        return false;
    doFilter();
    return true;
}

void CDepthEntrustWidget::slotTimeout()
{
    m_orderList->refresh();
    m_cancelList->refresh();
}

void CDepthEntrustWidget::slotRefreshTimer(int ms)
{
    m_timer->stop();
    m_timer->start(ms);
}

} // namespace Kel
