#include "platform/toolkit/CBaseWidget.h"

namespace Zeb {

CBaseWidget::CBaseWidget(const QString& objectName, QWidget* parent)
    : CEventWidgetT<QWidget>(parent), CEventDeliverer(this)
{
    setObjectName(objectName);
    setMouseTracking(true);
}

void CBaseWidget::setContentWidget(QWidget* content, int horizontalMargin, int verticalMargin, bool fill)
{
    m_content = content;
    m_horizontalMargin = horizontalMargin;
    m_verticalMargin = verticalMargin;
    m_fill = fill;
    if (content && content->parentWidget() != this)
        content->setParent(this);
    placeContent();
}

void CBaseWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeContent();
}

void CBaseWidget::placeContent()
{
    if (!m_content)
        return;
    m_content->move(m_horizontalMargin, m_verticalMargin);
    if (m_fill)
        m_content->resize(width() - 2 * m_horizontalMargin, height() - 2 * m_verticalMargin);
}

} // namespace Zeb
