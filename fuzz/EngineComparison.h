#pragma once

#include "queue_engine/EngineProbe.h"

#include <string>

namespace fuzzing {

/// What two engines that were driven alike hold or show differently, with both values; empty if they agree.
/// Compared are levels with their orders, caches, rows, header, clocks and flags. No other thread may use the
/// engines meanwhile.
std::string engineDifference(const testing_support::EngineProbe& left,
                             const testing_support::EngineProbe& right);

} // namespace fuzzing
