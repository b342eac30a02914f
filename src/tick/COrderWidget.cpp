#include "tick/COrderWidget.h"

namespace Kel {

namespace {
constexpr int kHeight = 50;
}

COrderWidget::COrderWidget(const TrackSubject* subject, QWidget* parent)
    : CTrackWidget(QStringLiteral("track_order_widget"), subject, parent)
{
    setFixedHeight(kHeight);
}

void COrderWidget::drawContent(QPainter& painter)
{
    drawCaption(painter, QStringLiteral("委托"), QString::number(m_order->lots) + QStringLiteral("手"));
    drawTrackRow(painter, m_style, kSideMargin, kLineHeight, width() - kSideMargin, kLineHeight,
                 {m_order->time, m_order->price, m_order->side, m_order->volume}, *m_subject);
}

} // namespace Kel
