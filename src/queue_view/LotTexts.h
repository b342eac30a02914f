#pragma once

#include <QFont>
#include <QHash>
#include <QRect>
#include <QStaticText>

class QPainter;

namespace Kel {

/// Whole numbers written at the right of a cell. A picture has a thousand of them and mostly the same few
/// hundred: each is laid out once and kept, which makes drawing several times cheaper. GUI thread.
class LotTexts
{
public:
    /// Writes the number in the painter's pen where `drawText` with right and vertically centred alignment
    /// puts it. The painter's font is `font`.
    void draw(QPainter& painter, const QFont& font, const QRect& box, int lots);

    /// Forgets what was laid out, for a change of the theme.
    void clear() { m_texts.clear(); }

private:
    QFont m_font;
    QHash<int, QStaticText> m_texts;
};

} // namespace Kel
