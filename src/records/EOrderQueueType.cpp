#include "records/EOrderQueueType.h"

#include "records/Tolerance.h"

namespace Kel {

namespace {
constexpr int kBigLots = 1000;
constexpr int kSuperLots = 5000;
} // namespace

EOrderQueueType classifyVol(double lots)
{
    const int whole = truncateToInt(lots);
    if (whole < kBigLots)
        return OQT_NORMAL;
    return whole < kSuperLots ? OQT_BIG : OQT_SUPER;
}

} // namespace Kel
