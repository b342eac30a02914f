#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

/// Comparisons of prices and volumes held in doubles, and conversions of them to int that are defined for
/// every input.
namespace Kel {

/// Two doubles within it are equal; a value within it of 0 counts as none.
constexpr double kTolerance = 1e-5;

inline bool isLess(double a, double b)
{
    return a - b < -kTolerance;
}
inline bool isPositive(double a)
{
    return a > kTolerance;
}
inline bool isNegative(double a)
{
    return a < -kTolerance;
}
inline bool isZero(double a)
{
    return !isPositive(a) && !isNegative(a);
}
inline bool isEqual(double a, double b)
{
    return std::fabs(a - b) <= kTolerance;
}

/// Truncates toward zero; a value that does not fit an int is clamped to the nearest int, not-a-number gives
/// 0.
inline int truncateToInt(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= static_cast<double>(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (value <= static_cast<double>(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

/// Clamps a 64-bit value into an int.
inline int clampToInt(std::int64_t value)
{
    if (value > std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    if (value < std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

} // namespace Kel
