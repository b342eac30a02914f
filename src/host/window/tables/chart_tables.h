#pragma once

#include "platform/models/CModelDepthHolographic.h"
#include "tick/tick_table.h"

#include <boost/shared_ptr.hpp>

#include <QStringList>

/// What the deal chart shows, as tables. GUI thread; the tables may be walked on any.
namespace host {

/// The deals from `first` to `last` with the orders behind them. The table holds the model; deals that come
/// later are not in it.
Kel::TickTable chartDealTable(const boost::shared_ptr<Kel::CModelDepthHolographic>& model, int first,
                              int last);

/// The cells of one deal; empty for a deal that does not exist.
QStringList chartDealCells(const Kel::CModelDepthHolographic& model, int deal);

/// The quote intervals that hold the deals from `first` to `last`: the columns that the chart's cursor walks
/// along.
Kel::TickTable chartIntervalTable(const Kel::CModelDepthHolographic& model, int first, int last);

} // namespace host
