#pragma once

#include "records/DepthExport.h"

#include <string>

namespace se {

/// Which quote service serves a market.
enum EProxyType : int
{
    eProxyNone = 0,
    eProxyStock = 1,    ///< Shanghai, Shenzhen and Beijing
    eProxyHongKong = 2, ///< Hong Kong and the connect markets
    eProxyFuture = 3,
    eProxyOption = 4,
    eProxySwap = 5, ///< interbank swaps
};

} // namespace se

namespace Kel {

/// The quote service of a market code; `eProxyNone` for a code that is not known. Any thread.
DEPTH_EXPORT se::EProxyType proxyType(const std::string& market);

} // namespace Kel
