#include "tick/CCancelWidget.h"

#include "tick/tick_resources.h"

#include <QPainter>

namespace Kel {

namespace {
constexpr int kHeight = 60;
constexpr int kNoneWidth = 100;
} // namespace

CCancelWidget::CCancelWidget(const TrackSubject* subject, QWidget* parent)
    : CTrackWidget(QStringLiteral("track_cancel_widget"), subject, parent)
{
    setFixedHeight(kHeight);
}

void CCancelWidget::clear()
{
    m_order.reset();
    m_cancelRecord.reset();
}

void CCancelWidget::drawContent(QPainter& painter)
{
    const qint64 shares = m_cancelRecord ? m_cancelRecord->volume : 0;
    drawCaption(painter, QStringLiteral("撤单"), lotsText(shares, m_subject->volumeUnit));
    if (!m_cancelRecord) {
        drawFitted(painter, QRect(kSideMargin, kLineHeight, kNoneWidth, kLineHeight), Qt::AlignLeft,
                   QStringLiteral("无撤单"));
        return;
    }
    drawTrackRow(painter, m_style, kSideMargin, kLineHeight, width() - kSideMargin, kLineHeight,
                 {m_cancelRecord->m_time / 1000, m_order->price, m_order->side, shares}, *m_subject);
}

} // namespace Kel
