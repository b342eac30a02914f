#include "platform/toolkit/CImage.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

#include <QPainter>

namespace Zeb {

CImage::CImage(const QString& imageKey) : m_imageKey(imageKey) {}

QSize CImage::size() const
{
    const QPixmap picture = utils::CSingletonT<CUiResource>::instance().getPixmap(m_imageKey, 1);
    return picture.size();
}

void CImage::draw(QPainter& painter, const QRect& rect) const
{
    const qreal ratio = painter.device() ? painter.device()->devicePixelRatioF() : 1;
    painter.drawPixmap(rect, utils::CSingletonT<CUiResource>::instance().getPixmap(m_imageKey, ratio));
}

} // namespace Zeb
