// The tip of the deal list: a deal and the two orders behind it.

#include "platform/models/order_symbols.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/exchange_time.h"
#include "records/Tolerance.h"
#include "tick/CDepthTransactionWidget.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace Kel {

namespace {

constexpr int kBandHeight = 24; // of the title
constexpr int kLines = 7;
constexpr int kLineRoom = 6;    // a line is so much higher than its text
constexpr int kTextMargin = 20; // a tip is so much wider than its texts
constexpr int kRightRoom = 27;  // kept free of the widget's right edge, less than the margin by the bar
constexpr int kInset = 3;       // of the lines
constexpr int kLinesBelowBand = 4;
constexpr int kRightOfMouse = 10;
constexpr int kAboveMouse = 20;

/// "%04d年%02d月%02d日 %02d:%02d:%02d" in GBK.
constexpr const char* kTimeFormat = "%04d\xC4\xEA%02d\xD4\xC2%02d\xC8\xD5 %02d:%02d:%02d";

constexpr const char* kFont = "fnt_graph_axis_text";
constexpr const char* kGround = "kel_clr_deptch_holographic_deal_detail_bg";
constexpr const char* kLine = "kel_clr_deptch_holographic_deal_detail_line";
constexpr const char* kText = "kel_clr_deptch_holographic_deal_detail_text";
constexpr const char* kLightText = "kel_clr_deptch_holographic_deal_detail_text_light";

/// Whole lots of an order; a part of a lot is one.
qint64 tipLots(qint64 shares, int unit)
{
    return shares < unit ? 1 : shares / std::max(unit, 1);
}

struct OrderLines
{
    QString price;
    QString volume;
    bool light = false; ///< the price stands out: none, or better than the deal's
};

OrderLines orderLines(const boost::shared_ptr<quoter::OrderData>& order, bool buy, double dealPrice,
                      double priceTick, int unit)
{
    OrderLines lines;
    lines.price = buy ? QStringLiteral("委买价:") : QStringLiteral("委卖价:");
    lines.volume = buy ? QStringLiteral("委买量:") : QStringLiteral("委卖量:");
    if (!order)
        return lines;
    const bool special = isOrderSpecial(order);
    lines.price +=
        special ? getOrderSpecialName(order) : Zeb::formatPriceDoubleNumber(order->price, priceTick);
    lines.volume += Zeb::formatLonglongNumber(tipLots(order->volume, unit), 0, 0);
    lines.light = special || (buy ? isLess(dealPrice, order->price) : isLess(order->price, dealPrice));
    return lines;
}

} // namespace

void CDepthTransactionWidget::drawOverlay(QPainter& painter)
{
    const int row = m_tipSide != -1 ? rowAt(m_mousePos) : -1;
    if (row >= 0)
        drawTip(painter, row);
}

QRect CDepthTransactionWidget::tipRect(int textWidth, int lineHeight) const
{
    const int tipHeight = kLines * lineHeight + kBandHeight;
    const int wantedX = m_mousePos.x() + kRightOfMouse;
    const int wantedY = std::max(m_mousePos.y() - kAboveMouse, 0);
    const int x = std::max(std::min(wantedX, width() - kRightRoom - textWidth), 0);
    const int y = std::max(std::min(wantedY, height() - tipHeight), 0);
    return QRect(x, y, textWidth + kTextMargin, tipHeight);
}

void CDepthTransactionWidget::drawTip(QPainter& painter, const int& index)
{
    const auto deal = m_model->getData(index);
    if (!deal)
        return;
    const double priceTick = m_model->priceTick;
    const int unit = m_model->volumeUnit;
    const OrderLines sell = orderLines(m_model->getOrder(deal->sellNo), false, deal->price, priceTick, unit);
    const OrderLines buy = orderLines(m_model->getOrder(deal->buyNo), true, deal->price, priceTick, unit);
    const QString title = QStringLiteral("逐笔成交#") + QString::number(index + 1).leftJustified(5);

    painter.setFont(*themeFont(kFont));
    painter.setRenderHint(QPainter::Antialiasing, false);
    const QFontMetrics metrics(painter.font(), painter.device());
    const QRect titleRect = metrics.boundingRect(title);
    int textWidth = titleRect.width();
    for (const QString& line : {sell.price, sell.volume, buy.price, buy.volume})
        textWidth = std::max(textWidth, metrics.horizontalAdvance(line));
    const QString time =
        QStringLiteral("时  间:") + utils::getFullTextTimeByTime(deal->time, true, kTimeFormat);
    QRect rect = tipRect(textWidth, titleRect.height() + kLineRoom);

    const QPen outline(*themeColor(kLine), 0);
    painter.fillRect(rect, *themeColor(kGround));
    painter.setPen(outline);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect);
    const QRect band(rect.x(), rect.y(), rect.width(), kBandHeight);
    const QColor& text = *themeColor(kText);
    painter.setPen(text);
    painter.drawText(band, Qt::AlignCenter, title);
    painter.setPen(outline);
    painter.drawLine(band.x(), band.bottom(), band.right(), band.bottom());

    const int lineHeight = titleRect.height() + kLineRoom;
    QRect line(rect.x() + kInset, band.bottom() + kLinesBelowBand, rect.width(), lineHeight);
    const auto drawLine = [&](const QString& words, bool light) {
        painter.setPen(light ? *themeColor(kLightText) : text);
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, words);
        line.moveTop(line.bottom());
    };
    drawLine(time, false);
    drawLine(QStringLiteral("成交价:") + Zeb::formatPriceDoubleNumber(deal->price, priceTick), false);
    drawLine(QStringLiteral("成交量:") + QString::number(deal->volume), false);
    drawLine(sell.price, sell.light);
    drawLine(sell.volume, false);
    drawLine(buy.price, buy.light);
    drawLine(buy.volume, false);
}

} // namespace Kel
