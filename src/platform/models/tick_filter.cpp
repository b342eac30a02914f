#include "platform/models/tick_filter.h"

#include "platform/models/tick_values.h"
#include "records/Tolerance.h"

namespace Kel {

namespace {

constexpr int kGreater = 1;
constexpr int kEqual = 2;
constexpr int kAnd = 1;

bool passesVolume(const SDepthFilterParam& param, std::int32_t lots)
{
    if (param.com1 == kEqual)
        return lots == param.volume;
    return param.com1 == kGreater ? lots > param.volume : lots >= param.volume;
}

bool passesAmount(const SDepthFilterParam& param, double amount)
{
    const double threshold = param.amount;
    return param.com2 == kGreater ? isLess(threshold, amount) : !isLess(amount, threshold);
}

} // namespace

bool passesFilter(const SDepthFilterParam& param, std::int32_t seconds, std::int32_t lots,
                  std::int64_t shares, double price)
{
    const std::int64_t time = std::int64_t(secondOfDay(seconds)) * 1000;
    if (time < param.start || time > param.end)
        return false;
    const bool volume = passesVolume(param, lots);
    if (param.relate == kAnd)
        return volume && passesAmount(param, static_cast<double>(shares) * price);
    return volume || passesAmount(param, static_cast<double>(shares) * price);
}

bool wantsOrder(const SDepthFilterParam& param, int side)
{
    if (side == kBuySide)
        return param.buy;
    return side == kSellSide ? param.sell : param.buy || param.sell;
}

bool wantsCancel(const SDepthFilterParam& param, int side)
{
    if (side == kBuySide)
        return param.unbuy;
    return side == kSellSide ? param.unsell : param.unbuy || param.unsell;
}

} // namespace Kel
