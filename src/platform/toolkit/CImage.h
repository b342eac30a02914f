#pragma once

#include "records/DepthExport.h"

#include <QRect>
#include <QSize>
#include <QString>

class QPainter;

namespace Zeb {

/// A picture of the theme that others draw. It is looked up at every drawing, so it follows the theme and the
/// screen. GUI thread.
class DEPTH_EXPORT CImage
{
public:
    explicit CImage(const QString& imageKey);

    const QString& imageKey() const { return m_imageKey; }

    /// Its own size, in pixels at 100 % scale.
    QSize size() const;

    /// Stretches the picture over `rect`, sharp for the device that `painter` draws on.
    void draw(QPainter& painter, const QRect& rect) const;

private:
    QString m_imageKey;
};

} // namespace Zeb
