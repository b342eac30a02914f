// The picture of the deal chart but for the deals: ground, selected interval, price ladder, time strip, and
// what lies over it.

#include "holographic/CDepthHolographicWidget.h"
#include "platform/resources/CUiResource.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"
#include "records/Tolerance.h"

#include <QPainter>

#include <algorithm>

namespace Kel {

namespace {

constexpr double kLeastLabelDistance = 2.5; // half rows between two price labels
const QVector<qreal> kGridDashes{1.0, 3.0};
constexpr int kPriceDecimals = 2;
constexpr const char* kNoPrice = "非法值";

constexpr const char* kAxisFont = "fnt_kline_graph_axis_text";
constexpr const char* kSelectionBorder = "ic_clr_kline_graph_scale_border";

/// "%04d年%02d月%02d日 %02d:%02d:%02d" in GBK; of a time of day only the end is used.
constexpr const char* kTimeFormat = "%04d\xC4\xEA%02d\xD4\xC2%02d\xC8\xD5 %02d:%02d:%02d";

const QFont& axisFont()
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getFont(QLatin1String(kAxisFont));
}

} // namespace

void CDepthHolographicWidget::drawGraph()
{
    QPainter painter;
    if (m_canvas.isNull() || !painter.begin(&m_canvas))
        return;
    drawGraph(painter);
}

void CDepthHolographicWidget::drawGraph(QPainter& painter)
{
    painter.fillRect(m_widgetRect, m_clrBackground);
    readDeals();
    drawHighlightBg(painter);
    drawLinePrices(painter);
    drawDeal(painter);
    drawTimeList(painter);
    dropDeals();
}

void CDepthHolographicWidget::drawHighlightBg(QPainter& painter)
{
    if (!m_columnMode || m_dragging || m_geometry.viewExtent <= 0)
        return;
    const std::pair<int, int> interval = m_model->getCurrSeqPair(m_cursorSeq);
    if (interval.first < 0 || interval.second < 0)
        return;
    const HolographicDeal* const last = dealInView(interval.second);
    if (last == nullptr)
        return;
    // An interval that begins before the view is seen from the view's left edge on.
    const int left = dealInView(interval.first) != nullptr ? placeOf(interval.first).left : 0;
    const int right = placeOf(interval.second).left + m_geometry.barWidth(last->volume);
    if (right > left)
        painter.fillRect(QRect(left, 0, right - left, m_chartHeight), m_clrHighlight);
}

void CDepthHolographicWidget::drawLinePrices(QPainter& painter)
{
    painter.setPen(m_clrAxis);
    painter.drawLine(m_chartWidth, 0, m_chartWidth, m_chartHeight);
    painter.drawLine(0, m_chartHeight, m_chartWidth, m_chartHeight);
    painter.drawLine(0, m_widgetRect.height() - 1, m_widgetRect.width(), m_widgetRect.height() - 1);

    QPen grid(m_clrAxis, 0);
    grid.setDashPattern(kGridDashes);
    painter.setFont(axisFont());
    double price = (m_topPadRows - m_scrollRow) * m_priceTick + m_model->maxPrice;
    int skip = 0;
    for (int y = m_rowHeight / 2; y < m_chartHeight; y += m_rowHeight, price -= m_priceTick) {
        const int next = m_rowHeight + skip;
        if (m_baseHalfRow * kLeastLabelDistance > next) {
            skip = next;
            continue;
        }
        if (y + m_rowHeight / 2 > m_chartHeight)
            continue;
        painter.setPen(grid);
        painter.drawLine(0, y, m_chartWidth, y);
        painter.setPen(m_clrAxisText);
        painter.drawText(
            QRect(m_chartWidth, y - m_baseHalfRow / 2, m_priceAxisWidth, m_baseHalfRow), Qt::AlignCenter,
            Zeb::formatDoubleNumber(price, kPriceDecimals, 0, false, QString::fromUtf8(kNoPrice)));
        skip = 0;
    }
}

void CDepthHolographicWidget::drawTimeList(QPainter& painter)
{
    const int top = m_widgetRect.height() - m_timeAxisHeight;
    painter.setFont(axisFont());
    int lastX = 0;
    for (auto entry = m_timeSpanX.cbegin(); entry != m_timeSpanX.cend(); ++entry) {
        const int span = entry->second - lastX;
        if (entry->first < lastX && span < m_timeCellWidth)
            continue;
        const int total = std::max(span, m_timeCellWidth);
        const QString text = utils::getFullTextTimeByTime(double(entry.key()), true, kTimeFormat);
        const int cells = total / m_timeCellWidth;
        for (int index = 0; index < cells; ++index) {
            const int left = index * m_timeCellWidth;
            const int width = index + 1 < cells ? m_timeCellWidth : total - left;
            const QRect cell(lastX + 1 + left, top, width, m_timeAxisHeight - 1);
            if (cell.right() > m_chartWidth)
                return;
            painter.setPen(m_clrAxisText);
            painter.drawText(cell, Qt::AlignCenter, text);
            painter.setPen(m_clrAxis);
            painter.drawLine(cell.left() - 1, top, cell.left() - 1, m_widgetRect.height());
        }
        lastX += total;
    }
}

void CDepthHolographicWidget::paintEvent(QPaintEvent*)
{
    if (m_canvas.isNull())
        return;
    // Moved to a screen of another scale: the picture is drawn for that one.
    if (m_canvas.devicePixelRatioF() != devicePixelRatioF()) {
        newCanvas();
        drawGraph();
    }
    QPainter painter(this);
    painter.drawPixmap(m_widgetRect.topLeft(), m_canvas);
    drawOverlays(painter);
}

void CDepthHolographicWidget::drawOverlays(QPainter& painter)
{
    if (m_columnMode)
        return;
    drawCursor(painter);
    if (m_selecting) {
        const auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
        painter.setPen(QPen(*resource.getColor(QLatin1String(kSelectionBorder)), 0));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(m_selectRect);
    }
    if (m_detailSeq != -1)
        drawDealDetail(painter);
}

void CDepthHolographicWidget::drawCursor(QPainter& painter)
{
    const auto place = m_dealRightX.constFind(m_cursorSeq);
    if (m_cursorSeq == -1 || place == m_dealRightX.constEnd() || m_model->viewExtent <= 0)
        return;
    const auto deal = m_model->getData(m_cursorSeq);
    if (!deal)
        return;
    const ChartGeometry scales = geometry();
    const int width = scales.rightX(deal->volume, 0);
    painter.setPen(m_inks[eInkMarket]);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(*place - width, scales.priceToY(deal->price) - m_halfRow, width, 2 * m_halfRow);
}

} // namespace Kel
