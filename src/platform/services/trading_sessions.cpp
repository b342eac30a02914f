#include "platform/services/trading_sessions.h"

#include "platform/utils/market_predicates.h"

namespace Kel {

namespace {

constexpr std::int64_t at(int hour, int minute)
{
    return (hour * 60 + minute) * 60000LL;
}

const SessionTimes kStockSessions = {{at(9, 30), at(11, 30)}, {at(13, 0), at(15, 0)}};
const SessionTimes kRepurchaseSessions = {{at(9, 30), at(11, 30)}, {at(13, 0), at(15, 30)}};
const SessionTimes kHongKongSessions = {{at(9, 30), at(12, 0)}, {at(13, 0), at(16, 0)}};
const SessionTimes kBondFutureSessions = {{at(9, 30), at(11, 30)}, {at(13, 0), at(15, 15)}};
const SessionTimes kCommoditySessions = {
    {at(9, 0), at(10, 15)}, {at(10, 30), at(11, 30)}, {at(13, 30), at(15, 0)}};
const SessionTimes kSwapSessions = {{at(9, 0), at(12, 0)}, {at(13, 30), at(17, 30)}};

/// Treasury bond futures: T (10 years), TF (5), TS (2), TL (30).
bool isBondFuture(const std::string& code)
{
    const std::string product = code.substr(0, code.find_first_of("0123456789"));
    return product == "T" || product == "TF" || product == "TS" || product == "TL";
}

} // namespace

SessionTimes tradingSessions(const std::string& market, const std::string& code)
{
    if (utils::isGovernmentLoanRepurchase(market, code))
        return kRepurchaseSessions;
    if (utils::isStockMarket(market) || utils::isStockOptionMarket(market))
        return kStockSessions;
    if (market == "HKSH" || market == "HKSZ")
        return kStockSessions;
    if (utils::isHKMarket(market) || utils::isHGTMarket(market) || utils::isSGTMarket(market))
        return kHongKongSessions;
    if (market == "CFFEX")
        return isBondFuture(code) ? kBondFutureSessions : kStockSessions;
    if (utils::isFutureMarket(market))
        return kCommoditySessions;
    if (market == "YSWP")
        return kSwapSessions;
    return {};
}

} // namespace Kel
