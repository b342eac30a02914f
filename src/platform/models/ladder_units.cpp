#include "platform/models/ladder_units.h"

#include "records/Tolerance.h"

#include <algorithm>

namespace Kel {

namespace {

constexpr int kShortFormRows = 10;

} // namespace

int getLevelDisplayCount(int displayLevel)
{
    return displayLevel == kShortForm ? kShortFormRows : std::max(displayLevel, 0);
}

std::int32_t toLots(std::int64_t shares, int unit)
{
    if (shares <= 0)
        return 0;
    const std::int64_t lot = std::max(unit, 1);
    const std::int64_t whole = shares / lot;
    const std::int64_t rounded = whole + (shares % lot >= lot - shares % lot ? 1 : 0);
    return clampToInt(std::max<std::int64_t>(rounded, 1));
}

} // namespace Kel
