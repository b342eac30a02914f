#include "platform/toolkit/CWidgetList.h"

#include <QBoxLayout>

namespace Zeb {

CWidgetList::CWidgetList(Qt::Orientation orientation, QWidget* parent)
    : CEventWidgetT<QWidget>(parent),
      m_layout(new QBoxLayout(
          orientation == Qt::Horizontal ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, this))
{
    setMargin(0);
    setSpacing(0);
}

Qt::Orientation CWidgetList::orientation() const
{
    return m_layout->direction() == QBoxLayout::LeftToRight ? Qt::Horizontal : Qt::Vertical;
}

void CWidgetList::setMargin(int margin)
{
    setMargins(margin, margin, margin, margin);
}

void CWidgetList::setMargins(int left, int top, int right, int bottom)
{
    m_layout->setContentsMargins(left, top, right, bottom);
}

void CWidgetList::setSpacing(int spacing)
{
    m_layout->setSpacing(spacing);
}

void CWidgetList::addWidget(QWidget* widget, int stretch)
{
    m_layout->addWidget(widget, stretch);
}

void CWidgetList::addSpace(int length)
{
    m_layout->addSpacing(length);
}

void CWidgetList::addStretch(int stretch)
{
    m_layout->addStretch(stretch);
}

int CWidgetList::count() const
{
    int widgets = 0;
    for (int index = 0; index < m_layout->count(); ++index) {
        if (m_layout->itemAt(index)->widget())
            ++widgets;
    }
    return widgets;
}

void CWidgetList::updateWidgetLength()
{
    m_layout->invalidate();
    m_layout->activate();
    updateGeometry();
}

} // namespace Zeb
