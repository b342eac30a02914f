#include "tick/CDepthOrderWidget.h"

#include "platform/models/order_symbols.h"
#include "platform/toolkit/number_formats.h"

#include <QPointer>

namespace Kel {

namespace {
constexpr int kEventOrderTracked = 3225;
}

CDepthOrderWidget::CDepthOrderWidget(const boost::shared_ptr<CModelDepthEntrust>& model,
                                     CEntrustTitleWidget* title, CDepthEntrustTrackDialog* trackDialog,
                                     QWidget* parent)
    : CEntrustListWidget(QStringLiteral("depth_order_widget"), model, title, trackDialog, parent)
{
    m_total = m_model->orderCount;
}

bool CDepthOrderWidget::timeOf(int row, int& time) const
{
    const auto order = m_model->getOrderData(row, false);
    if (order)
        time = order->time;
    return order != nullptr;
}

RowIdentity CDepthOrderWidget::identityOf(int row) const
{
    const auto order = m_model->getOrderData(row, false);
    return order ? RowIdentity{true, order->time, order->orderNo, 0, order->volume, order->price}
                 : RowIdentity();
}

boost::shared_ptr<DepthOrderData> CDepthOrderWidget::orderOf(int row) const
{
    return m_model->getOrderData(row, false);
}

const QColor& CDepthOrderWidget::handsColor(const DepthOrderData& order) const
{
    if (order.orderNo == m_trackOrderNo)
        return *markColor(m_trackColor);
    if (order.lots == m_filterParam.mark)
        return *markColor(m_filterParam.color);
    return *sideColor(order.side);
}

void CDepthOrderWidget::drawRow(QPainter* painter, int row, int x, int y)
{
    const auto order = m_model->getOrderData(row, false);
    if (!order)
        return;
    const QColor& color = *sideColor(order->side);
    x = priceLeft(x);
    drawCell(painter, x, y, m_priceWidth, Zeb::formatPriceDoubleNumber(order->price, m_model->priceTick),
             *priceColor(order->price, m_model->preClose));
    x += m_priceWidth + m_columnGap;
    drawCell(painter, x, y, m_volumeWidth, QString::number(order->lots), handsColor(*order));
    x += m_volumeWidth + m_columnGap;
    drawCell(painter, x, y, m_amountWidth, amountText(static_cast<double>(order->volume) * order->price),
             color);
    x += m_amountWidth + m_columnGap;
    drawCell(painter, x, y, m_symbolWidth - barRoom(), getOrderSymbol(order), color);
}

void CDepthOrderWidget::setTrackOrderParam(int timeMs, double price, int hands, int side, int tag)
{
    const auto orders = m_model->findOrders(timeMs, price, hands, side);
    const QPointer<CDepthOrderWidget> alive(this);
    for (const auto& order : orders) {
        m_trackOrderNo = order->orderNo;
        deliverEvent(kEventOrderTracked, m_trackOrderNo, tag, QString(), nullptr);
        if (!alive)
            return;
    }
    if (orders.empty())
        return;
    drawBackground(m_rect);
    update();
}

QString CDepthOrderWidget::rowText(int row) const
{
    const auto order = m_model->getOrderData(row, false);
    if (!order)
        return QString();
    return QStringList{
        clockText(order->time),       Zeb::formatPriceDoubleNumber(order->price, m_model->priceTick),
        QString::number(order->lots), amountText(static_cast<double>(order->volume) * order->price),
        getOrderSymbol(order),        QString::number(order->orderNo)}
        .join(QLatin1Char('\t'));
}

} // namespace Kel
