#include "tick/tick_resources.h"

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"
#include "records/Tolerance.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTransform>

namespace Kel {

namespace {

constexpr const char* kDefaultText = "ic_clr_entrust_default_text";
constexpr const char* kFallText = "ic_clr_entrust_text_fall";
constexpr const char* kRiseText = "ic_clr_entrust_text_rise";

constexpr const char* kGround = "ic_clr_graph_kline_bg";
constexpr int kLightGround = 128; // lightness from which a ground counts as light

constexpr double kLeastLargeAmount = 10000; // yuan, shown in 万

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
    painter.drawStaticText(
        QPointF(box.x() + box.width() - size.width(), box.y() + (box.height() - size.height()) / 2),
        prepared);
}

int TextCache::width(const QFont& font, const QString& text)
{
    return QFontMetrics(font).horizontalAdvance(text);
}

} // namespace Kel
