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

constexpr const char* kMarkKeys[] = {"ic_clr_mark_light_blue", "ic_clr_mark_purple", "ic_clr_mark_dark_blue",
                                     "ic_clr_mark_yellow"};
constexpr const char* kDefaultText = "ic_clr_entrust_default_text";
constexpr const char* kFallText = "ic_clr_entrust_text_fall";
constexpr const char* kRiseText = "ic_clr_entrust_text_rise";

constexpr const char* kGround = "ic_clr_graph_kline_bg";
constexpr int kLightGround = 128; // lightness from which a ground counts as light

constexpr double kLeastLargeAmount = 10000; // yuan, shown in 万

constexpr const char* kBarSheet =
    "QScrollBar:vertical {border: 0px solid %1;background: %3;width: %4px;margin: 2px 2px 2px 2px;}"
    "QScrollBar::handle:vertical {background: %2 ;min-height: 20px;}"
    "QScrollBar::add-page:vertical,QScrollBar::sub-page:vertical {background: none;}"
    "QScrollBar::add-line:vertical {border: 0px solid %1;background: none;height: 0px;"
    "subcontrol-position: right;subcontrol-origin: margin;}"
    "QScrollBar::sub-line:vertical {border: 0px solid %1;background: none;height: 0px;"
    "subcontrol-position: left;subcontrol-origin: margin;}";
constexpr const char* kBarGround = "clr_scrollbar_background_new";
constexpr const char* kBarSlider = "clr_scrollbar_slider_new";
constexpr const char* kBarWidth = "siz_scroll_bar_width";

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

const char* markColorKey(int index)
{
    return index >= 0 && index < 4 ? kMarkKeys[index] : kDefaultText;
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

QString scrollBarSheet()
{
    const QString ground = resource().getColorSheetByKey(QLatin1String(kBarGround));
    return QString::fromLatin1(kBarSheet).arg(
        ground, resource().getColorSheetByKey(QLatin1String(kBarSlider)), ground,
        QString::number(resource().getSize(QLatin1String(kBarWidth))));
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
