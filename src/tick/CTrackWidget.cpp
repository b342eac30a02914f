#include "tick/CTrackWidget.h"

#include "tick/tick_resources.h"

#include <QPainter>

namespace Kel {

namespace {
constexpr int kCaptionWidth = 100;
}

CTrackWidget::CTrackWidget(const QString& objectName, const TrackSubject* subject, QWidget* parent)
    : Zeb::CBaseWidget(objectName, parent), m_subject(subject)
{
}

void CTrackWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    draw(painter);
}

void CTrackWidget::draw(QPainter& painter)
{
    painter.fillRect(rect(), m_style.ground);
    if (!m_order || !m_subject->detail)
        return;
    painter.setFont(m_style.font);
    drawContent(painter);
}

void CTrackWidget::drawCaption(QPainter& painter, const QString& caption, const QString& lots)
{
    painter.setPen(m_style.text);
    drawFitted(painter, QRect(kSideMargin, 0, kCaptionWidth, kLineHeight), Qt::AlignLeft, caption);
    drawFitted(painter, QRect(width() - kSideMargin - kCaptionWidth, 0, kCaptionWidth, kLineHeight),
               Qt::AlignRight, lots);
}

} // namespace Kel
