#include "platform/models/ladder_units.h"

#include <algorithm>

namespace Kel {

namespace {

constexpr int kShortFormRows = 10;

} // namespace

int getLevelDisplayCount(int displayLevel)
{
    return displayLevel == kShortForm ? kShortFormRows : std::max(displayLevel, 0);
}

} // namespace Kel
