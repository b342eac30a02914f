#pragma once

#include <cstdint>

namespace Kel {

/// Levels that the full ladder shows of a side.
constexpr int kLadderLevels = 1000;

/// The display level of the short form of the ladder.
constexpr int kShortForm = 11;

/// Rows of a side at a display level: 10 in the short form (11); any other display level is the number
/// itself, and never below 0. Any thread.
int getLevelDisplayCount(int displayLevel);

/// Shares as lots of `unit` shares, rounded to the nearest and at least 1 where any share stands, so that no
/// level with orders shows as empty; clamped to 32 bits. A unit below 1 counts as 1. Any thread.
std::int32_t toLots(std::int64_t shares, int unit);

} // namespace Kel
