#pragma once

#include "platform/models/CModelEntrustStatus.h"
#include "records/EntrustData.h"
#include "records/SingleQueue.h"
#include "tick/tick_table.h"

#include <boost/shared_ptr.hpp>

#include <QStringList>

#include <vector>

/// What ladder and quote panels show, as tables. GUI thread.
namespace host {

/// The ladder as its panel holds it.
struct LadderRows
{
    using Levels = std::vector<boost::shared_ptr<Kel::EntrustData>>;

    const Levels& sells; ///< best price first
    const Levels& buys;  ///< best price last
    double latest;       ///< yuan; not a price if there is none
    int lastVolume;      ///< lots; not above 0 if there is none
    double priceTick;    ///< yuan
};

/// From the highest sell price down to the lowest buy price, with the latest price between them.
Kel::TickTable ladderTable(const LadderRows& ladder);

/// The cells of one price of the ladder; empty if it is not there.
QStringList ladderCells(const LadderRows& ladder, bool isBuy, double price);

/// The orders of one price in order of arrival. `unit` is the shares of a lot.
Kel::TickTable priceOrderTable(const Kel::SingleQueue& queue, double priceTick, int unit);

/// A quote: `shelves` levels a side, sells from the farthest down, buys from the best down, with the latest
/// price between them.
Kel::TickTable quoteTable(const Kel::EntrustStatusData& quote, int shelves);

/// One row of it, counted from the top; empty outside.
QStringList quoteCells(const Kel::EntrustStatusData& quote, int shelves, int row);

/// What a copy of a quote panel takes: the marked row, else the whole table; empty without an instrument.
QString quoteText(const Kel::EntrustStatusData& quote, int shelves, int markedRow);

} // namespace host
