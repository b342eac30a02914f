#pragma once

#include "records/DepthExport.h"

#include <QString>

#include <cstdint>

/// Numbers as texts for other programs, which read them back; `Zeb` has those that people read. Any thread.
namespace utils {

/// The shortest decimal text that stands for the number, without an exponent.
constexpr unsigned eFormatShortest = 4;

/// `value` as the flags say: with `eFormatShortest` "12.34", "0" and "-0.5", without trailing zeros;
/// otherwise with two decimals. Zero has no sign. A value that is not finite gives "非法值".
DEPTH_EXPORT QString formatDoubleNumber(double value, unsigned flags);

/// A whole number with `decimals` zeros after the point, no grouping. There are no flags yet: pass 0.
DEPTH_EXPORT QString formatIntNumber(std::int64_t value, int decimals, unsigned flags);

} // namespace utils
