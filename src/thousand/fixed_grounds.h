#pragma once

#include <QColor>

namespace Kel {

/// The ink for a text on one of the grounds that are dark in every theme: the theme's own ink, or, in a theme
/// of dark inks on a light ground, a light tint of it. GUI thread.
QColor inkOnDark(const QColor& ink);

} // namespace Kel
