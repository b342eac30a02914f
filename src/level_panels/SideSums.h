#pragma once

#include "platform/models/CModelEntrustStatus.h"

#include <QString>
#include <QtGlobal>

namespace Kel {

/// Lots that the valid levels of both sides hold together, and what the head of the concise panel says of
/// them. Texts are empty while both sums are 0.
struct SideSums
{
    qint64 bid = 0;
    qint64 ask = 0;

    /// Adds a level to one of the sums; an invalid one and a negative volume add nothing.
    static void add(qint64& sum, const EntrustLevel& level);

    bool isEmpty() const { return bid == 0 && ask == 0; }

    /// Where the comparison bar of this width goes over from the buy to the sell part; the middle while both
    /// sums are 0.
    int split(int width) const;

    QString differenceText() const;       ///< lots, buy less sell
    QString ratioText() const;            ///< the difference as a share of both, "12.50%"
    QString shareText(qint64 side) const; ///< whole percents
};

} // namespace Kel
