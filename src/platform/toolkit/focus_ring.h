#pragma once

#include <QRect>

class QPainter;

namespace Zeb {

/// The line around what has the keyboard focus, inside `rect`, in the theme's colour. GUI thread.
void drawFocusRing(QPainter& painter, const QRect& rect);

} // namespace Zeb
