#pragma once

#include <QByteArray>
#include <QColor>
#include <QHash>
#include <QPixmap>
#include <QSize>
#include <QString>
#include <QStringList>

/// Drawings of the themes: SVG texts whose colours are inks of the theme, written `var(--ink, #808080)`, so
/// that a drawing program shows them as well. The colour after the comma is for such programs alone. GUI
/// thread, but for `inksOf` and `fillInks`.
namespace Zeb {

/// Whether `svg` is a drawing, its inks filled or not.
bool isDrawing(const QByteArray& svg);

/// Names of the inks in `svg`, each once.
QStringList inksOf(const QByteArray& svg);

/// `svg` with the inks filled in. An ink that `colors` does not have takes the colour after its comma.
QByteArray fillInks(const QByteArray& svg, const QHash<QString, QColor>& colors);

/// The drawing at `size` (pixels at 100 % scale) for a screen of `ratio` device pixels each. A ratio that is
/// not positive counts as 1.
QPixmap renderDrawing(const QByteArray& svg, const QSize& size, qreal ratio);

/// A path under which style sheets find `svg`; the same bytes always give the same path, which stays valid
/// for the life of the process. Style sheets take pictures by path only.
QString pathOfDrawing(const QByteArray& svg);

} // namespace Zeb
