#include "tick/CDealWidget.h"

#include "platform/models/tick_values.h"
#include "tick/CDealTable.h"
#include "tick/tick_resources.h"

#include <QPainter>

namespace Kel {

namespace {

constexpr int kTableTop = 50;
constexpr int kSumWidth = 150;

} // namespace

CDealWidget::CDealWidget(const TrackSubject* subject, QWidget* parent)
    : CTrackWidget(QStringLiteral("track_deal_widget"), subject, parent),
      m_table(new CDealTable(subject, this))
{
}

void CDealWidget::setRecords(const std::list<boost::shared_ptr<quoter::TransactionData>>& records)
{
    m_dealList.clear();
    m_total = m_active = m_passive = 0;
    for (const auto& record : records) {
        if (!record || record->kind == quoter::eTransactionCancel)
            continue;
        m_total = addShares(m_total, record->volume);
        if (m_order) {
            qint64& sum = m_order->side == record->kind ? m_active : m_passive;
            sum = addShares(sum, record->volume);
        }
        m_dealList.push_back(record);
    }
}

void CDealWidget::clear()
{
    m_order.reset();
    m_dealList.clear();
    m_total = m_active = m_passive = 0;
}

void CDealWidget::resizeEvent(QResizeEvent* event)
{
    CTrackWidget::resizeEvent(event);
    m_table->setGeometry(0, kTableTop, width(), height() - kTableTop);
}

void CDealWidget::drawContent(QPainter& painter)
{
    const int unit = m_subject->volumeUnit;
    drawCaption(painter, QStringLiteral("成交"), lotsText(m_total, unit));
    const bool buy = m_order->side == 1;
    const QString left = buy ? QStringLiteral("主动买 ") + lotsText(m_active, unit)
                             : QStringLiteral("被动卖 ") + lotsText(m_passive, unit);
    const QString right = buy ? QStringLiteral("被动买 ") + lotsText(m_passive, unit)
                              : QStringLiteral("主动卖 ") + lotsText(m_active, unit);
    painter.setPen(m_style.rise);
    drawFitted(painter, QRect(kSideMargin, kLineHeight, kSumWidth, kLineHeight), Qt::AlignLeft, left);
    painter.setPen(m_style.fall);
    drawFitted(painter, QRect(width() - kSideMargin - kSumWidth, kLineHeight, kSumWidth, kLineHeight),
               Qt::AlignRight, right);
}

} // namespace Kel
