#pragma once

#include <QtGlobal>

#include <functional>

namespace Kel {

/// What a row of a list is, wherever it stands: the list may get rows before it, lose them, or be delivered
/// anew. Rows that are alike in all of this show the same.
struct RowIdentity
{
    bool isThere = false;
    qint64 time = 0;   ///< time tag, by which the list is in order
    qint64 number = 0; ///< of the order, in a list of deals of the buy order
    qint64 seller = 0; ///< of the sell order, in a list of deals
    qint64 volume = 0;
    double price = 0;
};

/// Whether both are there and the same.
bool isSameRow(const RowIdentity& left, const RowIdentity& right);

/// Where a row stands in a list of `count` rows in order of time, of which `identityOf(row)` tells: first
/// looks at `expected`, then at the rows of its second, the nearest first. -1 if the row is not there.
int rowOf(const RowIdentity& wanted, int expected, int count,
          const std::function<RowIdentity(int)>& identityOf);

} // namespace Kel
