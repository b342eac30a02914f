#include "queue_view/LotTexts.h"

#include "platform/toolkit/number_formats.h"

#include <QPainter>

namespace Kel {

namespace {
constexpr int kMostTexts = 4096; // kept, each some hundred bytes; more than a picture has
}

void LotTexts::draw(QPainter& painter, const QFont& font, const QRect& box, int lots)
{
    if (m_font != font) {
        m_texts.clear();
        m_font = font;
    }
    auto found = m_texts.find(lots);
    if (found == m_texts.end()) {
        if (m_texts.size() >= kMostTexts)
            m_texts.clear();
        QStaticText text(Zeb::formatIntNumber(lots, 0, 0));
        text.setTextFormat(Qt::PlainText);
        text.setPerformanceHint(QStaticText::AggressiveCaching);
        text.prepare(painter.worldTransform(), font);
        found = m_texts.insert(lots, text);
    }
    const QSizeF size = found->size();
    painter.drawStaticText(
        QPointF(box.x() + box.width() - size.width(), box.y() + (box.height() - size.height()) / 2), *found);
}

} // namespace Kel
