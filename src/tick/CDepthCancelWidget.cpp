#include "tick/CDepthCancelWidget.h"

#include "platform/models/order_symbols.h"
#include "platform/toolkit/number_formats.h"

namespace Kel {

namespace {

constexpr const char* kDefaultText = "ic_clr_entrust_default_text";
const QString kCancelOfUnknownOrder = QStringLiteral("C");

} // namespace

CDepthCancelWidget::CDepthCancelWidget(const boost::shared_ptr<CModelDepthEntrust>& model,
                                       CEntrustTitleWidget* title, CDepthEntrustTrackDialog* trackDialog,
                                       QWidget* parent)
    : CEntrustListWidget(QStringLiteral("depth_cancel_widget"), model, title, trackDialog, parent)
{
    m_total = m_model->cancelCount;
}

bool CDepthCancelWidget::timeOf(int row, int& time) const
{
    const auto cancel = m_model->getCancelData(row);
    if (cancel)
        time = cancel->time;
    return cancel != nullptr;
}

RowIdentity CDepthCancelWidget::identityOf(int row) const
{
    const auto cancel = m_model->getCancelData(row);
    return cancel ? RowIdentity{true, cancel->time, cancel->orderNo, 0, cancel->volume, cancel->price}
                  : RowIdentity();
}

boost::shared_ptr<DepthOrderData> CDepthCancelWidget::orderOf(int row) const
{
    boost::shared_ptr<DepthOrderData> order;
    if (const auto cancel = m_model->getCancelData(row))
        m_model->getOrderData(cancel->orderNo, order);
    return order;
}

void CDepthCancelWidget::drawRow(QPainter* painter, int row, int x, int y)
{
    const auto cancel = m_model->getCancelData(row);
    if (!cancel)
        return;
    boost::shared_ptr<DepthOrderData> order;
    m_model->getOrderData(cancel->orderNo, order);
    const QColor& unknown = *themeColor(kDefaultText);
    const QColor& color = order ? *sideColor(order->side) : unknown;
    x = priceLeft(x);
    const double price = order ? order->price : cancel->price;
    drawCell(painter, x, y, m_priceWidth, Zeb::formatPriceDoubleNumber(price, m_model->priceTick),
             order ? *priceColor(price, m_model->preClose) : unknown);
    x += m_priceWidth + m_columnGap;
    const bool marked = order && cancel->lots == m_filterParam.mark;
    drawCell(painter, x, y, m_volumeWidth, QString::number(cancel->lots),
             marked ? *markColor(m_filterParam.color) : color);
    x += m_volumeWidth + m_columnGap;
    if (order) {
        drawCell(painter, x, y, m_amountWidth, amountText(static_cast<double>(cancel->volume) * price),
                 color);
        x += m_amountWidth + m_columnGap;
    }
    drawCell(painter, x, y, m_symbolWidth, order ? getOrderSymbol(order) : kCancelOfUnknownOrder, color);
}

QString CDepthCancelWidget::rowText(int row) const
{
    const auto cancel = m_model->getCancelData(row);
    if (!cancel)
        return QString();
    const boost::shared_ptr<DepthOrderData> order = orderOf(row);
    const double price = order ? order->price : cancel->price;
    return QStringList{clockText(cancel->time),
                       Zeb::formatPriceDoubleNumber(price, m_model->priceTick),
                       QString::number(cancel->lots),
                       order ? amountText(static_cast<double>(cancel->volume) * price) : QString(),
                       order ? getOrderSymbol(order) : kCancelOfUnknownOrder,
                       QString::number(cancel->orderNo)}
        .join(QLatin1Char('\t'));
}

} // namespace Kel
