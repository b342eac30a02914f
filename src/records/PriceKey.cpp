#include "records/PriceKey.h"

#include <cmath>
#include <limits>

namespace Kel {

int priceKey(double price, double priceTick)
{
    const double ticks = price / priceTick + 0.5;
    // The comparisons are false for a quotient that is not a number.
    if (ticks > static_cast<double>(std::numeric_limits<int>::min()) - 1.0 &&
        ticks < static_cast<double>(std::numeric_limits<int>::max()) + 1.0)
        return static_cast<int>(ticks);
    return 0;
}

} // namespace Kel
