// The box that tells of the deal under the mouse and of the orders behind it.

#include "holographic/CDepthHolographicWidget.h"
#include "platform/models/order_symbols.h"
#include "platform/resources/CUiResource.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"
#include "records/Tolerance.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace Kel {

namespace {

constexpr int kRightOfMouse = 10;
constexpr int kAboveMouse = 20;
constexpr int kLines = 7;
constexpr int kTitleHeight = 24;
constexpr int kLineRoom = 6;        // pixels that a line is higher than the title's text
constexpr int kTextMargin = 20;     // pixels that the box is wider than its texts
constexpr int kRightRoom = 21;      // that and one more, kept free at the price strip
constexpr int kInset = 3;           // of the lines
constexpr int kLinesBelowTitle = 4; // pixels
constexpr int kSharesPerHand = 100; // of the orders' volumes
constexpr int kPriceDecimals = 2;
constexpr const char* kNoPrice = "非法值";

constexpr const char* kFont = "fnt_graph_axis_text";
constexpr const char* kGround = "kel_clr_deptch_holographic_deal_detail_bg";
constexpr const char* kLine = "kel_clr_deptch_holographic_deal_detail_line";
constexpr const char* kText = "kel_clr_deptch_holographic_deal_detail_text";
constexpr const char* kLightText = "kel_clr_deptch_holographic_deal_detail_text_light";

/// "%04d年%02d月%02d日 %02d:%02d:%02d" in GBK; of a time of day only the end is used.
constexpr const char* kTimeFormat = "%04d\xC4\xEA%02d\xD4\xC2%02d\xC8\xD5 %02d:%02d:%02d";

QColor color(const char* key)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QLatin1String(key));
}

/// The two lines of an order.
struct OrderLines
{
    QString price;
    QString volume;
    bool light = false; ///< the price line: the order offered more than it got, or had no price
};

OrderLines orderLines(const boost::shared_ptr<quoter::OrderData>& order, bool buy, double dealPrice)
{
    OrderLines lines;
    lines.price = buy ? QStringLiteral("委买价:") : QStringLiteral("委卖价:");
    lines.volume = buy ? QStringLiteral("委买量:") : QStringLiteral("委卖量:");
    if (!order)
        return lines;
    const bool special = isOrderSpecial(order);
    lines.price += special ? getOrderSpecialName(order)
                           : Zeb::formatDoubleNumber(order->price, kPriceDecimals, 0, false,
                                                     QString::fromUtf8(kNoPrice));
    const qint64 hands = order->volume < kSharesPerHand ? 1 : order->volume / kSharesPerHand;
    lines.volume += Zeb::formatLonglongNumber(hands, 0, 0);
    const double beyond = order->price - dealPrice;
    lines.light = special || (buy ? isPositive(beyond) : isNegative(beyond));
    return lines;
}

} // namespace

QRect CDepthHolographicWidget::detailRect(int textWidth, int lineHeight) const
{
    const int boxHeight = kLines * lineHeight + kTitleHeight;
    const int wantedX = m_hoverPos.x() + kRightOfMouse;
    const int wantedY = std::max(0, m_hoverPos.y() - kAboveMouse);
    const int x = std::max(0, std::min(wantedX, width() - kRightRoom - m_priceAxisWidth - textWidth));
    const int y = std::max(0, std::min(wantedY, height() - boxHeight));
    return QRect(x, y, textWidth + kTextMargin, boxHeight);
}

void CDepthHolographicWidget::drawDealDetail(QPainter& painter)
{
    const auto deal = m_model->getData(m_detailSeq);
    if (!deal)
        return;
    painter.setFont(*utils::CSingletonT<Zeb::CUiResource>::instance().getFont(QLatin1String(kFont)));
    painter.setRenderHint(QPainter::Antialiasing, false);
    const QString title = QString::asprintf("逐笔成交#%-5d", m_detailSeq + 1);
    const OrderLines sell = orderLines(m_model->getOrder(deal->sellNo), false, deal->price);
    const OrderLines buy = orderLines(m_model->getOrder(deal->buyNo), true, deal->price);

    const QFontMetrics metrics(painter.font(), painter.device());
    const QRect titleBounds = metrics.boundingRect(title);
    int textWidth = titleBounds.width();
    for (const QString& text : {sell.price, sell.volume, buy.price, buy.volume})
        textWidth = std::max(textWidth, metrics.horizontalAdvance(text));
    const int lineHeight = titleBounds.height() + kLineRoom;
    const QRect box = detailRect(textWidth, lineHeight);

    const QPen outline(color(kLine), 0);
    painter.fillRect(box, color(kGround));
    painter.setPen(outline);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box);
    const QRect titleRow(box.x(), box.y(), box.width(), kTitleHeight);
    const QColor plain = color(kText);
    const QColor light = color(kLightText);
    painter.setPen(plain);
    painter.drawText(titleRow, Qt::AlignCenter, title);
    painter.setPen(outline);
    painter.drawLine(titleRow.bottomLeft(), titleRow.bottomRight());

    QRect line(box.x() + kInset, titleRow.bottom() + kLinesBelowTitle, box.width(), lineHeight);
    const auto drawLine = [&](const QString& text, bool isLight) {
        painter.setPen(isLight ? light : plain);
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, text);
        line.moveTop(line.bottom());
    };
    const QString time = utils::getFullTextTimeByTime(double(deal->time), true, kTimeFormat);
    drawLine(QStringLiteral("时  间:") + time, false);
    drawLine(QString::asprintf("成交价:%.2f", deal->price), false);
    drawLine(QString::asprintf("成交量:%d", deal->volume), false);
    drawLine(sell.price, sell.light);
    drawLine(sell.volume, false);
    drawLine(buy.price, buy.light);
    drawLine(buy.volume, false);
}

} // namespace Kel
