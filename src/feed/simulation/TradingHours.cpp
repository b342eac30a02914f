#include "feed/simulation/TradingHours.h"

#include "feed/csv/values.h"
#include "platform/utils/exchange_time.h"

namespace feed::hours {
namespace {

constexpr std::int64_t kFallbackDay = 20230201;

} // namespace

Phase phaseAt(double secondOfDay)
{
    if (secondOfDay < kOpeningAuction)
        return Phase::Start;
    if (secondOfDay < kMorning)
        return Phase::OpeningAuction;
    if (secondOfDay < kBreak)
        return Phase::Continuous;
    if (secondOfDay < kAfternoon)
        return Phase::Break;
    if (secondOfDay < kClosingAuction)
        return Phase::Continuous;
    return secondOfDay < kClose ? Phase::ClosingAuction : Phase::Closed;
}

bool takesOrders(double secondOfDay)
{
    const Phase phase = phaseAt(secondOfDay);
    if (phase == Phase::OpeningAuction)
        return secondOfDay < kOpeningMatch;
    return phase == Phase::Continuous || phase == Phase::ClosingAuction;
}

bool takesCancels(double secondOfDay)
{
    const Phase phase = phaseAt(secondOfDay);
    return phase == Phase::Continuous || (phase == Phase::OpeningAuction && secondOfDay < kNoCancels);
}

std::int64_t midnightOf(std::int64_t yyyymmdd)
{
    return utils::exchangeTime(static_cast<int>(isDate(yyyymmdd) ? yyyymmdd : kFallbackDay), 0, 0, 0, 0);
}

} // namespace feed::hours
