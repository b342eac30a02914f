#include "tick/CGraphWidget.h"

#include "platform/models/tick_values.h"
#include "records/Tolerance.h"
#include "tick/tick_resources.h"

#include <QPainter>

#include <algorithm>

namespace Kel {

namespace {

constexpr int kHeight = 110;
constexpr int kFullCircle = 5760; // sixteenths of a degree

const QRect kPie(20, 25, 70, 70);

// Lines at the right of the pie
constexpr int kLabelLeft = 105;
constexpr int kLabelWidth = 45;
constexpr int kLotsLeft = 150;
constexpr int kLotsWidth = 40;
constexpr int kAmountLeft = 190;
constexpr int kAmountWidth = 65;
constexpr int kTotalTop = 10;
constexpr int kFilledTop = 35;
constexpr int kQueueingTop = 60;
constexpr int kCancelledTop = 85;
constexpr int kSwatchLeft = 112;
constexpr int kSwatchSize = 10;
constexpr int kSwatchDrop = 8; // below the top of its line

const QColor kBuyFilled(255, 0, 0, 255);
const QColor kSellFilled(0, 255, 0, 255);
const QColor kBuyQueueing(255, 0, 0, 128);
const QColor kSellQueueing(0, 255, 0, 128);

int spanOf(qint64 part, qint64 whole)
{
    if (whole < 1)
        return 0;
    const double span = static_cast<double>(part) * kFullCircle / static_cast<double>(whole) + 0.5;
    return std::clamp(truncateToInt(span), 0, kFullCircle);
}

} // namespace

std::vector<TrackSlice> trackSlices(qint64 volume, qint64 filled, qint64 cancelled)
{
    if (filled == volume)
        return {{0, kFullCircle, ETrackShare::eFilled}};
    if (filled == 0 && cancelled == 0)
        return {{0, kFullCircle, ETrackShare::eQueueing}};
    if (filled == 0 && cancelled == volume)
        return {{0, kFullCircle, ETrackShare::eCancelled}};
    std::vector<TrackSlice> slices;
    if (cancelled < 1)
        slices.push_back({0, spanOf(subtractShares(volume, filled), volume), ETrackShare::eQueueing});
    else
        slices.push_back({0, spanOf(cancelled, volume), ETrackShare::eCancelled});
    const int span = slices.front().span;
    if (filled >= 1)
        slices.push_back({span, kFullCircle - span, ETrackShare::eFilled});
    return slices;
}

int filledPercent(qint64 volume, qint64 filled)
{
    if (volume < 1)
        return 0;
    return truncateToInt(static_cast<double>(filled) * 100.0 / static_cast<double>(volume) + 0.5);
}

CGraphWidget::CGraphWidget(const TrackSubject* subject, QWidget* parent)
    : CTrackWidget(QStringLiteral("track_graph_widget"), subject, parent)
{
    setFixedHeight(kHeight);
}

void CGraphWidget::setSums(qint64 filled, qint64 cancelled)
{
    m_filled = filled;
    m_cancelled = cancelled;
}

void CGraphWidget::clear()
{
    m_order.reset();
    setSums(0, 0);
}

QColor CGraphWidget::shareColor(ETrackShare share) const
{
    const bool buy = m_order->side == 1;
    switch (share) {
    case ETrackShare::eFilled:
        return buy ? kBuyFilled : kSellFilled;
    case ETrackShare::eQueueing:
        return buy ? kBuyQueueing : kSellQueueing;
    case ETrackShare::eCancelled:
        break;
    }
    return m_style.cancelled;
}

void CGraphWidget::drawPie(QPainter& painter)
{
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);
    for (const TrackSlice& slice : trackSlices(m_order->volume, m_filled, m_cancelled)) {
        painter.setBrush(shareColor(slice.share));
        painter.drawPie(kPie, slice.start, slice.span);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(m_style.ink);
    painter.drawText(kPie, Qt::AlignCenter,
                     QString::number(filledPercent(m_order->volume, m_filled)) + QLatin1Char('%'));
}

void CGraphWidget::drawLine(QPainter& painter, int y, const QString& label, qint64 shares)
{
    drawFitted(painter, QRect(kLabelLeft, y, kLabelWidth, kLineHeight), Qt::AlignRight, label);
    drawFitted(painter, QRect(kLotsLeft, y, kLotsWidth, kLineHeight), Qt::AlignRight,
               lotsText(shares, m_subject->volumeUnit));
    drawFitted(painter, QRect(kAmountLeft, y, kAmountWidth, kLineHeight), Qt::AlignRight,
               amountText(static_cast<double>(shares) * m_order->price));
}

void CGraphWidget::drawContent(QPainter& painter)
{
    drawPie(painter);
    const qint64 volume = m_order->volume;
    // Pure green is no colour for a text on a light ground.
    const bool onLight = m_style.ink == QColor(0, 0, 0);
    painter.setPen(onLight ? m_style.ofSide(m_order->side) : shareColor(ETrackShare::eFilled));
    drawLine(painter, kTotalTop, m_order->side == 1 ? QStringLiteral("总买量") : QStringLiteral("总卖量"),
             volume);
    const auto share = [&](int y, ETrackShare kind, const QString& label, qint64 shares) {
        painter.fillRect(kSwatchLeft, y + kSwatchDrop, kSwatchSize, kSwatchSize, shareColor(kind));
        painter.setPen(m_style.text);
        drawLine(painter, y, label, shares);
    };
    share(kFilledTop, ETrackShare::eFilled, QStringLiteral("成交"), m_filled);
    share(kQueueingTop, ETrackShare::eQueueing, QStringLiteral("排队"), subtractShares(volume, m_filled));
    share(kCancelledTop, ETrackShare::eCancelled, QStringLiteral("撤单"), m_cancelled);
}

} // namespace Kel
