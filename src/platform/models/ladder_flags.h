#pragma once

#include <limits>

/// What the ladder models tell by the flags of `checkUpdate`, and the values that stand for nothing.
namespace Kel {

constexpr int kLadderCover = 1;    ///< bit 0: everything is replaced
constexpr int kLadderRowCount = 2; ///< bit 1: a list has more or fewer rows
constexpr int kLadderRowData = 4;  ///< bit 2: a row, the latest price or the last volume is another

constexpr double kNoPrice = std::numeric_limits<double>::max(); ///< no latest price yet
constexpr int kNoVolume = -1;                                   ///< no last volume yet

/// Lowest price of the bounds of an empty ladder, yuan: above every price.
constexpr double kNoLowestPrice = 1e9;

} // namespace Kel
