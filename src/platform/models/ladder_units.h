#pragma once

namespace Kel {

/// Levels that the full ladder shows of a side.
constexpr int kLadderLevels = 1000;

/// The display level of the short form of the ladder.
constexpr int kShortForm = 11;

/// Rows of a side at a display level: 10 in the short form (11); any other display level is the number
/// itself, and never below 0. Any thread.
int getLevelDisplayCount(int displayLevel);

} // namespace Kel
