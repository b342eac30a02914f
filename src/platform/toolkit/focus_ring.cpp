#include "platform/toolkit/focus_ring.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

#include <QPainter>

namespace Zeb {

void drawFocusRing(QPainter& painter, const QRect& rect)
{
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(*utils::CSingletonT<CUiResource>::instance().getColor(QStringLiteral("clr_focus")));
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

} // namespace Zeb
