#pragma once

#include <QFontMetrics>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>

#include <vector>

/// Where the title of a header strip stands. Pixels of the frame; any thread.
namespace Kel {

/// One part of a title of several columns.
struct TitleColumn
{
    QString text;
    QRect rect;         ///< the text is centred at its top
    int splitLine = -1; ///< x of the line behind the column; -1 behind the last one
};

/// The columns of a title that a line feed divides, each as wide as the others but for the second, which
/// leaves room for two buttons of `buttonWidth`. A rectangle is as high as its text is wide: wide texts are
/// never cut at the bottom, whatever the font. Empty for a title of one part.
std::vector<TitleColumn> titleColumns(const QStringList& parts, int width, int buttonWidth,
                                      const QFontMetrics& metrics);

/// Start of the base line of a title of one part, centred in a strip of this size.
QPoint titleOrigin(const QString& title, int width, int headerHeight, const QFontMetrics& metrics);

} // namespace Kel
