#include "platform/models/order_symbols.h"

#include "platform/models/tick_values.h"

namespace Kel {

QString getOrderSymbol(const boost::shared_ptr<DepthOrderData>& order)
{
    if (order && order->kind == quoter::eOrderLimit && order->side == kBuySide)
        return QStringLiteral("B");
    if (order && order->kind == quoter::eOrderLimit && order->side == kSellSide)
        return QStringLiteral("S");
    if (order && order->kind == quoter::eOrderMarket)
        return QStringLiteral("市");
    if (order && order->kind == quoter::eOrderBestOwnSide)
        return QStringLiteral("本");
    return QStringLiteral("-");
}

bool isOrderSpecial(const boost::shared_ptr<quoter::OrderData>& order)
{
    return order && (order->kind == quoter::eOrderMarket || order->kind == quoter::eOrderBestOwnSide ||
                     isZero(order->price));
}

QString getOrderSpecialName(const boost::shared_ptr<quoter::OrderData>& order)
{
    if (!isOrderSpecial(order))
        return QString();
    return order->kind == quoter::eOrderBestOwnSide ? QStringLiteral("本方最优") : QStringLiteral("市价");
}

} // namespace Kel
