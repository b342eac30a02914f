#pragma once

#include "records/DepthExport.h"

#include <QString>

/// Numbers as texts, the same in all panels and in every locale. A number is rounded half away from zero, on
/// the shortest decimal digits that stand for the double: 0.125 becomes "0.13" and 2.675 "2.68" with two
/// decimals, although the double next to 2.675 lies a little below it. What rounds to zero has no sign.
/// Decimals are clamped to 0 to 15. Any thread.
namespace Zeb {

/// Times 100 and "%". Goes before `eFormatUnits` if both are given.
constexpr unsigned eFormatPercent = 0x10000;

/// From 10,000 up in 万, from 100,000,000 up in 亿, both always with two decimals; below, as without the
/// flag. The size counts, so negative numbers alike. The limits hold for the number as it is shown:
/// 99,999,999.999, which would be "10000.00万", is "1.00亿", and 9,999.999 is "1.00万".
constexpr unsigned eFormatUnits = 0x40000;

/// `value` with `decimals` decimals. With `groupThousands` the digits before the point are grouped by commas.
/// A value that is not finite gives `badText`.
DEPTH_EXPORT QString formatDoubleNumber(double value, int decimals, unsigned flags, bool groupThousands,
                                        const QString& badText);

/// A whole number, with `decimals` zeros after the point; no grouping.
DEPTH_EXPORT QString formatIntNumber(int value, int decimals, unsigned flags);
DEPTH_EXPORT QString formatLonglongNumber(qint64 value, int decimals, unsigned flags);

/// A price with the decimals of its tick (both yuan). Not finite, and the largest double, which stands for no
/// price yet: "非法值".
DEPTH_EXPORT QString formatPriceDoubleNumber(double value, double tick);

/// Decimals of a price tick: 2 for 0.01, 3 for 0.005, 0 for 1. At most 8; 2 for a tick that is not positive
/// or not finite.
DEPTH_EXPORT int priceTick2Precision(double tick);

} // namespace Zeb
