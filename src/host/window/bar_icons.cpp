#include "host/window/bar_icons.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace host {

namespace {

constexpr const char* kColor = "clr_window_text";
constexpr int kSize = 16; // pixels; the paths are drawn on a square of this size
constexpr QRectF kLeftBar(3, 2, 3.5, 12);
constexpr QRectF kRightBar(9.5, 2, 3.5, 12);
constexpr QRectF kFrontFrame(2, 6, 9, 8);
constexpr QRectF kBackFrame(5, 2.5, 9, 8);
constexpr qreal kLine = 1.3;
constexpr qreal kCrossWidth = 1.6;
const QPolygonF kTriangle({QPointF(4, 2), QPointF(13.5, 8), QPointF(4, 14)});

QIcon iconOf(const QPainterPath& path)
{
    const qreal ratio = qGuiApp ? qGuiApp->devicePixelRatio() : 1;
    QPixmap pixmap(QSize(kSize, kSize) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path,
                     *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QString::fromLatin1(kColor)));
    painter.end();
    return QIcon(pixmap);
}

} // namespace

QIcon playIcon()
{
    QPainterPath path;
    path.addPolygon(kTriangle);
    path.closeSubpath();
    return iconOf(path);
}

QIcon pauseIcon()
{
    QPainterPath path;
    path.addRect(kLeftBar);
    path.addRect(kRightBar);
    return iconOf(path);
}

QIcon floatIcon()
{
    QPainterPath path;
    path.addRect(kFrontFrame);
    path.addRect(kFrontFrame.adjusted(kLine, 2 * kLine, -kLine, -kLine));
    path.addRect(kBackFrame.x(), kBackFrame.y(), kBackFrame.width(), kLine);
    path.addRect(kBackFrame.right() - kLine, kBackFrame.y() + kLine, kLine, kBackFrame.height() - kLine);
    return iconOf(path);
}

QIcon closeIcon()
{
    QPainterPathStroker stroker;
    stroker.setWidth(kCrossWidth);
    QPainterPath cross;
    cross.moveTo(4, 4);
    cross.lineTo(12, 12);
    cross.moveTo(12, 4);
    cross.lineTo(4, 12);
    return iconOf(stroker.createStroke(cross));
}

} // namespace host
