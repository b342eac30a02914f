#include "platform/toolkit/CFrameSplitterLine.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

#include <QPainter>

namespace Zeb {

CFrameSplitterLine::CFrameSplitterLine(const QString& colorKey, int thickness, QWidget* parent)
    : QWidget(parent), m_colorKey(colorKey)
{
    setFixedHeight(thickness);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void CFrameSplitterLine::themeChanged()
{
    update();
}

void CFrameSplitterLine::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), *utils::CSingletonT<CUiResource>::instance().getColor(m_colorKey));
}

} // namespace Zeb
