#include "thousand/CResetWidget.h"

#include <QMouseEvent>
#include <QPainter>

namespace Kel {

namespace {

constexpr int kEventReset = 82;
constexpr double kPale = 0.4; // opacity without the mouse

} // namespace

CResetWidget::CResetWidget(const QString& imageKey, QWidget* parent)
    : Zeb::CBaseWidget(QStringLiteral("reset_widget"), parent), m_image(imageKey)
{
    setAccessibleName(QStringLiteral("回到最新价"));
    setFixedSize(m_image.size());
}

void CResetWidget::themeChanged()
{
    setFixedSize(m_image.size());
    update();
}

void CResetWidget::enterEvent(QEvent* event)
{
    Zeb::CBaseWidget::enterEvent(event);
    m_hover = true;
    update();
}

void CResetWidget::leaveEvent(QEvent* event)
{
    Zeb::CBaseWidget::leaveEvent(event);
    m_hover = false;
    update();
}

void CResetWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!m_hover)
        painter.setOpacity(kPale);
    m_image.draw(painter, rect());
}

void CResetWidget::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    deliverEvent(kEventReset, 0, 0, QString(), nullptr);
}

} // namespace Kel
