#pragma once

#include "records/DepthExport.h"

namespace Kel {

/// The price in ticks, by which levels are keyed: `price / priceTick + 0.5`, truncated. Two prices within
/// half a tick share a key; 0 stands for no price. A price that is not finite, a quotient that does not fit
/// an int and a tick that gives no finite quotient have key 0.
DEPTH_EXPORT int priceKey(double price, double priceTick);

} // namespace Kel
