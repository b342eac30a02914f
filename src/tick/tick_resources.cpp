#include "tick/tick_resources.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"
#include "records/Tolerance.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTransform>

#include <algorithm>

namespace Kel {

namespace {

constexpr const char* kDefaultText = "ic_clr_entrust_default_text";
constexpr const char* kFallText = "ic_clr_entrust_text_fall";
constexpr const char* kRiseText = "ic_clr_entrust_text_rise";

constexpr const char* kGround = "ic_clr_graph_kline_bg";
constexpr int kLightGround = 128; // lightness from which a ground counts as light

constexpr double kLeastLargeAmount = 10000; // yuan, shown in 万

constexpr int kLeastStretch = 20; // percent, of a text that is too wide
constexpr int kStretchStep = 4;

constexpr int kMostTexts = 8192; // kept for a font, each some hundred bytes; more than a few pictures have

const Zeb::CUiResource& resource()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

} // namespace

const QColor* themeColor(const char* key)
{
    return resource().getColor(QLatin1String(key));
}

const QFont* themeFont(const char* key)
{
    return resource().getFont(QLatin1String(key));
}

const QColor* markColor(int index)
{
    return themeColor(markColorKey(index));
}

bool isGroundLight()
{
    return themeColor(kGround)->lightness() >= kLightGround;
}

const QColor* priceColor(double price, double reference)
{
    if (isLess(price, reference))
        return themeColor(kFallText);
    return themeColor(isLess(reference, price) ? kRiseText : kDefaultText);
}

const QColor* sideColor(int side)
{
    if (side == 2)
        return themeColor(kFallText);
    return themeColor(side == 1 ? kRiseText : kDefaultText);
}

QString amountText(double amount)
{
    if (!isLess(amount, kLeastLargeAmount))
        return Zeb::formatDoubleNumber(amount, 2, Zeb::eFormatUnits, false, QStringLiteral("非法值"));
    return Zeb::formatDoubleNumber(amount, 2, Zeb::eFormatUnits, false, QString()) + QStringLiteral("元");
}

QString clockText(qint64 seconds)
{
    return utils::clockText(seconds * utils::kMSecPerSecond, false);
}

void drawFitted(QPainter& painter, const QRect& box, Qt::Alignment side, const QString& text)
{
    const QFont font = painter.font();
    const int width = QFontMetrics(font).horizontalAdvance(text);
    if (width > box.width() && width > 0) {
        QFont narrow = font;
        // Digits are whole pixels wide, so that they do not shrink in proportion.
        int stretch = std::max(box.width() * 100 / width, kLeastStretch);
        do {
            narrow.setStretch(stretch);
            stretch -= kStretchStep;
        } while (stretch >= kLeastStretch && QFontMetrics(narrow).horizontalAdvance(text) > box.width());
        painter.setFont(narrow);
    }
    painter.drawText(box, static_cast<int>(side | Qt::AlignVCenter | Qt::TextDontClip), text);
    painter.setFont(font);
}

const QStaticText& TextCache::text(const QFont& font, const QString& text)
{
    Texts& texts = m_fonts[font];
    auto found = texts.find(text);
    if (found == texts.end()) {
        if (texts.size() >= kMostTexts)
            texts.clear();
        QStaticText prepared(text);
        prepared.setTextFormat(Qt::PlainText);
        prepared.setPerformanceHint(QStaticText::AggressiveCaching);
        prepared.prepare(QTransform(), font);
        found = texts.insert(text, prepared);
    }
    return *found;
}

void TextCache::drawRight(QPainter& painter, const QFont& font, const QRect& box, const QString& text)
{
    const QStaticText& prepared = this->text(font, text);
    const QSizeF size = prepared.size();
    if (size.width() >= box.width() + 1) { // widths of texts are no whole pixels
        drawFitted(painter, box, Qt::AlignRight, text);
        return;
    }
    painter.drawStaticText(
        QPointF(box.x() + box.width() - size.width(), box.y() + (box.height() - size.height()) / 2),
        prepared);
}

int TextCache::width(const QFont& font, const QString& text)
{
    return QFontMetrics(font).horizontalAdvance(text);
}

} // namespace Kel
