#include "platform/services/proxy_type.h"

#include "platform/utils/market_predicates.h"

namespace Kel {

se::EProxyType proxyType(const std::string& market)
{
    if (utils::isStockMarket(market))
        return se::eProxyStock;
    if (utils::isHKMarket(market) || utils::isHGTMarket(market) || utils::isSGTMarket(market))
        return se::eProxyHongKong;
    if (utils::isFutureMarket(market))
        return se::eProxyFuture;
    if (utils::isStockOptionMarket(market))
        return se::eProxyOption;
    if (market == "YSWP")
        return se::eProxySwap;
    return se::eProxyNone;
}

} // namespace Kel
