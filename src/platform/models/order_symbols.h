#pragma once

#include "records/DepthExport.h"
#include "records/DepthOrderData.h"
#include "records/OrderData.h"

#include <boost/shared_ptr.hpp>

#include <QString>

/// Texts for kinds of orders. Any thread; a null order is allowed.
namespace Kel {

/// The short text of an order row: "B" or "S" for a limit order by its side, "市" for a market order, "本"
/// for one at the best price of its own side, else "-".
DEPTH_EXPORT QString getOrderSymbol(const boost::shared_ptr<DepthOrderData>& order);

/// True for an order without an ordinary limit price, which shows a name in place of its price: a market
/// order, one at the best price of its own side, and any other of price 0.
DEPTH_EXPORT bool isOrderSpecial(const boost::shared_ptr<quoter::OrderData>& order);

/// The name of such an order: "本方最优" or "市价"; empty for null and for an order with a price.
DEPTH_EXPORT QString getOrderSpecialName(const boost::shared_ptr<quoter::OrderData>& order);

} // namespace Kel
