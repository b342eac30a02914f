#include "tick/track_style.h"

#include "platform/models/tick_values.h"
#include "platform/services/instrument_functions.h"
#include "platform/toolkit/number_formats.h"
#include "records/Tolerance.h"
#include "tick/tick_resources.h"

#include <QPainter>

#include <algorithm>

namespace Kel {

namespace {

constexpr const char* kFont = "fnt_default_normal";
constexpr const char* kGround = "ic_clr_graph_kline_bg";
constexpr const char* kCaption = "kel_clr_depth_module_group_base_widget_header";

constexpr const char* kRise = "ic_clr_entrust_text_rise";
constexpr const char* kFall = "ic_clr_entrust_text_fall";
constexpr const char* kPlain = "ic_clr_entrust_default_text";
constexpr const char* kSelection = "ic_clr_entrust_amount";

constexpr int kTextOpacity = 160;
constexpr int kCancelledOpacity = 64;

// Columns of a row, pixels from its left edge
constexpr int kTimeWidth = 50;
constexpr int kPriceLeft = 50;
constexpr int kPriceWidth = 60;
constexpr int kLotsLeft = 110;
constexpr int kLotsWidth = 60;
constexpr int kAmountLeft = 170;

const QString kLots = QStringLiteral("手");

} // namespace

TrackStyle::TrackStyle()
    : font(*themeFont(kFont)),
      ground(*themeColor(kGround)),
      caption(*themeColor(kCaption)),
      rise(*themeColor(kRise)),
      fall(*themeColor(kFall)),
      plain(*themeColor(kPlain)),
      selection(*themeColor(kSelection))
{
    ink = isGroundLight() ? QColor(0, 0, 0) : QColor(255, 255, 255);
    text = ink;
    text.setAlpha(kTextOpacity);
    cancelled = ink;
    cancelled.setAlpha(kCancelledOpacity);
}

const QColor& TrackStyle::ofPrice(double price, double reference) const
{
    if (isLess(price, reference))
        return fall;
    return isLess(reference, price) ? rise : plain;
}

const QColor& TrackStyle::ofSide(int side) const
{
    return side == 2 ? fall : side == 1 ? rise : plain;
}

QString lotsText(qint64 shares, int unit)
{
    return QString::number(lotsFromShares(shares, unit)) + kLots;
}

QString rowLotsText(qint64 shares, int unit)
{
    return QString::number(std::max(lotsFromShares(shares, unit), 1)) + kLots;
}

void drawTrackRow(QPainter& painter, const TrackStyle& style, int x, int y, int right, int height,
                  const TrackRow& row, const TrackSubject& subject)
{
    painter.setPen(style.text);
    drawFitted(painter, QRect(x, y, kTimeWidth, height), Qt::AlignLeft, clockText(row.time));
    painter.setPen(style.ofPrice(row.price, getDetailLastClose(subject.detail)));
    drawFitted(painter, QRect(x + kPriceLeft, y, kPriceWidth, height), Qt::AlignRight,
               Zeb::formatPriceDoubleNumber(row.price, getDetailPriceTick(subject.detail)));
    painter.setPen(style.ofSide(row.side));
    drawFitted(painter, QRect(x + kLotsLeft, y, kLotsWidth, height), Qt::AlignRight,
               rowLotsText(row.shares, subject.volumeUnit));
    drawFitted(painter, QRect(x + kAmountLeft, y, right - x - kAmountLeft, height), Qt::AlignRight,
               amountText(static_cast<double>(row.shares) * row.price));
}

} // namespace Kel
