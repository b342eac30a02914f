#include "tick/CDepthEntrustTrackDialog.h"

#include "platform/models/tick_values.h"
#include "platform/services/CStockManager.h"
#include "platform/toolkit/CWidgetList.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/volume_unit.h"
#include "tick/CCancelWidget.h"
#include "tick/CDealTable.h"
#include "tick/CDealWidget.h"
#include "tick/CGraphWidget.h"
#include "tick/COrderWidget.h"
#include "tick/CSpliterWidget.h"

namespace Kel {

namespace {
constexpr int kWidth = 290;
constexpr int kHeight = 530;
} // namespace

CDepthEntrustTrackDialog::CDepthEntrustTrackDialog(QWidget* parent)
    : Zeb::CCommonDialog(QStringLiteral("委托追踪"), parent),
      m_graph(new CGraphWidget(&m_subject, nullptr)),
      m_orderInfo(new COrderWidget(&m_subject, nullptr)),
      m_deals(new CDealWidget(&m_subject, nullptr)),
      m_cancelInfo(new CCancelWidget(&m_subject, nullptr))
{
    setCloseButtonEnabled(true);
    auto* const column = new Zeb::CWidgetList(Qt::Vertical);
    column->addWidget(m_graph);
    column->addWidget(new CSpliterWidget(nullptr));
    column->addWidget(m_orderInfo);
    column->addWidget(new CSpliterWidget(nullptr));
    column->addWidget(m_deals, 1);
    column->addWidget(new CSpliterWidget(nullptr));
    column->addWidget(m_cancelInfo);
    setInnerWidget(column);
    setFixedSize(kWidth, kHeight);
}

void CDepthEntrustTrackDialog::setStock(const QString& key)
{
    m_subject.detail = utils::CSingletonT<CStockManager>::instance().getInstrumentDetail(key);
    const nelservice::CInstrumentDetailPtr& detail = m_subject.detail;
    m_subject.volumeUnit = detail ? utils::getVolumeUnit(detail->market, detail->code) : 1;
}

void CDepthEntrustTrackDialog::setEntrustData(const boost::shared_ptr<DepthOrderData>& order)
{
    m_graph->setOrder(order);
    m_orderInfo->setOrder(order);
    m_deals->table()->setOrder(order);
    m_deals->setOrder(order);
    m_cancelInfo->setOrder(order);
}

void CDepthEntrustTrackDialog::setTransactionData(
    std::list<boost::shared_ptr<quoter::TransactionData>>& records)
{
    qint64 filled = 0;
    qint64 cancelled = 0;
    boost::shared_ptr<quoter::TransactionData> firstCancel;
    for (const auto& record : records) {
        if (!record)
            continue;
        const bool isCancel = record->kind == quoter::eTransactionCancel;
        qint64& sum = isCancel ? cancelled : filled;
        sum = addShares(sum, record->volume);
        if (isCancel && !firstCancel)
            firstCancel = record;
    }
    m_graph->setSums(filled, cancelled);
    m_deals->table()->setRecords(records);
    m_deals->setRecords(records);
    m_cancelInfo->setCancelRecord(firstCancel);
    for (QWidget* const widget : {static_cast<QWidget*>(m_graph), static_cast<QWidget*>(m_orderInfo),
                                  static_cast<QWidget*>(m_deals), static_cast<QWidget*>(m_cancelInfo)})
        widget->update();
}

void CDepthEntrustTrackDialog::clear()
{
    m_graph->clear();
    m_orderInfo->setOrder({});
    m_deals->clear();
    m_cancelInfo->clear();
}

} // namespace Kel
