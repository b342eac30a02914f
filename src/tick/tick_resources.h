#pragma once

#include "platform/resources/mark_colors.h"
#include "platform/toolkit/scroll_bar_sheet.h"

#include <QColor>
#include <QFont>
#include <QHash>
#include <QRect>
#include <QStaticText>
#include <QString>

class QPainter;

/// What the pictures of the tick panels look up and write. GUI thread.
namespace Kel {

const QColor* themeColor(const char* key);
const QFont* themeFont(const char* key);

/// The colour of a mark by its index; the default text colour for an index that has none.
const QColor* markColor(int index);

/// Whether the panels' ground is light, so that a colour that is made for a dark one needs another in its
/// place.
bool isGroundLight();

/// Fall below the reference, rise above it, else default.
const QColor* priceColor(double price, double reference);

/// 2 fall, 1 rise, else default.
const QColor* sideColor(int side);

/// Yuan: from 10,000 up in 万 and 亿, below with two decimals and "元".
QString amountText(double amount);

/// "hh:mm:ss" at the exchange, of seconds since 1970-01-01 UTC.
QString clockText(qint64 seconds);

/// Writes a text into a box in the painter's font, vertically centred; one that is too wide is written
/// narrower.
void drawFitted(QPainter& painter, const QRect& box, Qt::Alignment side, const QString& text);

/// Texts that are written over and over, each laid out once and kept.
class TextCache
{
public:
    /// Writes at the right of a box, vertically centred, in the painter's pen and in `font`, which is the
    /// painter's: the same place as `drawText` gives it. A text that is too wide is written narrower: a
    /// number must not lose its first digits, nor run into the column beside it.
    void drawRight(QPainter& painter, const QFont& font, const QRect& box, const QString& text);

    /// Width of a text in a font, pixels.
    int width(const QFont& font, const QString& text);

    void clear() { m_fonts.clear(); }

private:
    using Texts = QHash<QString, QStaticText>;

    const QStaticText& text(const QFont& font, const QString& text);

    QHash<QFont, Texts> m_fonts;
};

} // namespace Kel
