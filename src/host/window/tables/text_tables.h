#pragma once

#include "tick/tick_table.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <vector>

class QAbstractItemModel;

/// Tables of texts: what every pane makes of what it shows, for files and the clipboard. Numbers are written
/// without units and separators, so that a spreadsheet can count with them; units stand in the names of the
/// columns. GUI thread.
namespace host {

/// A table of these rows, which stay as they are whatever the pane shows later.
Kel::TickTable fixedTable(const QStringList& columns, std::vector<QStringList> rows);

/// The rows of a model as they are now, with the given columns of it under the given names.
Kel::TickTable modelTable(const QAbstractItemModel& model, const QList<int>& columns,
                          const QStringList& names);

/// A row as text, cells divided by tabs; a tab or a line end in a cell becomes a space.
QString rowText(const QStringList& cells);

/// A table as text, a line for the names of the columns and one for each row, each ended by a line feed.
/// Empty for a table with more than `most` rows and for one that changed into another one on the way.
QString tableText(const Kel::TickTable& table, int most);

/// Rows that a copy takes at most: more belong into a file.
constexpr int kMostCopiedRows = 20000;

/// Lots without needless zeros: "12", "0.5"; empty for what is not finite.
QString plainLots(double lots);

/// A price (yuan) with the decimals of its tick; empty where there is none: 0, not finite, the largest
/// double.
QString plainPrice(double price, double priceTick);

/// "卖" or "买".
QString sideText(bool isBuy);

} // namespace host
