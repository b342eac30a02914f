#include "feed/simulation/SimulationSettings.h"

#include "feed/csv/values.h"
#include "feed/simulation/TickScale.h"

#include <algorithm>
#include <cmath>

namespace feed {
namespace {

constexpr std::int64_t kMostOrders = 20000000;
constexpr int kMostForeignRows = 20;
constexpr double kHighestPrice = 1e6; // yuan

double within(double value, double low, double high, double fallback)
{
    return std::isfinite(value) ? std::clamp(value, low, high) : fallback;
}

void setLimits(SimulationSettings& settings)
{
    nelservice::CInstrumentDetail& detail = settings.detail;
    const TickScale scale(detail.priceTick);
    if (settings.limitShare > 0) {
        // The exchanges round half up to the tick.
        if (!(std::isfinite(detail.upperLimit) && detail.upperLimit > detail.previousClose))
            detail.upperLimit = scale.price(scale.ticks(detail.previousClose * (1 + settings.limitShare)));
        if (!(std::isfinite(detail.lowerLimit) && detail.lowerLimit > 0 &&
              detail.lowerLimit < detail.previousClose))
            detail.lowerLimit =
                scale.price(std::max(1, scale.ticks(detail.previousClose * (1 - settings.limitShare))));
    } else {
        detail.upperLimit = 0;
        detail.lowerLimit = 0;
    }
}

SimulationSettings instrument(std::uint64_t seed, const char* market, const char* code, const char* name,
                              nelservice::EInstrumentKind kind, double tick, double previousClose)
{
    SimulationSettings settings;
    settings.seed = seed;
    settings.detail.market = market;
    settings.detail.code = code;
    settings.detail.name = name;
    settings.detail.kind = kind;
    settings.detail.priceTick = tick;
    settings.detail.previousClose = previousClose;
    settings.numbering = settings.detail.market == "SZ" ? Numbering::Sequence : Numbering::Separate;
    return settings;
}

} // namespace

SimulationSettings usable(const SimulationSettings& settings)
{
    SimulationSettings result = settings;
    if (!isDate(result.tradingDay))
        result.tradingDay = SimulationSettings().tradingDay;
    nelservice::CInstrumentDetail& detail = result.detail;
    detail.priceTick = detail.priceTick > 0 ? within(detail.priceTick, 0.0001, 100, 0.01) : 0.01;
    detail.previousClose = detail.previousClose > 0
                               ? within(detail.previousClose, detail.priceTick * 10, kHighestPrice, 10)
                               : 10;
    detail.previousClose = std::min(detail.previousClose, detail.priceTick * 1e9);
    const TickScale scale(detail.priceTick);
    detail.previousClose = scale.price(scale.ticks(detail.previousClose));
    result.limitShare = within(result.limitShare, 0, 0.9, 0.1);
    result.volumeUnit = std::clamp<std::int64_t>(result.volumeUnit, 1, 1000000);
    result.orders = std::clamp<std::int64_t>(result.orders, 0, kMostOrders);
    result.cancelShare = within(result.cancelShare, 0, 0.9, 0.3);
    result.marketShare = within(result.marketShare, 0, 1, 0);
    result.bestOwnSideShare = within(result.bestOwnSideShare, 0, 1, 0);
    result.aggressiveShare = within(result.aggressiveShare, 0, 1, 0.25);
    result.oddLotShare = within(result.oddLotShare, 0, 1, 0);
    result.burstStrength = within(result.burstStrength, 0, 0.95, 0.6);
    result.busyOpen = within(result.busyOpen, 1, 100, 6);
    result.volatility = within(result.volatility, 0, 1, 0.015);
    result.drift = within(result.drift, -1, 1, 0);
    result.depthScale = within(result.depthScale, 0, 1, 0.002);
    result.typicalLots = within(result.typicalLots, 1, 1e6, 1);
    result.sizeTail = within(result.sizeTail, 0.3, 10, 1);
    result.maximumVolume = std::clamp<std::int64_t>(result.maximumVolume, result.volumeUnit, 1000000000);
    // A busy day of twenty million orders has some forty million rows: the numbers stay within 32 bits.
    const int mostForeign = result.orders > 1000000 ? 3 : kMostForeignRows;
    result.foreignRows = std::clamp(result.foreignRows, 0, mostForeign);
    result.queueInterval = std::clamp<std::int64_t>(result.queueInterval, 50, 3600000);
    setLimits(result);
    return result;
}

SimulationSettings shanghaiStock(std::uint64_t seed)
{
    SimulationSettings settings =
        instrument(seed, "SH", "600999", "沪市模拟", nelservice::EInstrumentKind::Stock, 0.01, 18.36);
    settings.bestOwnSideShare = 0.01;
    return settings;
}

SimulationSettings shenzhenStock(std::uint64_t seed)
{
    return instrument(seed, "SZ", "003999", "深市模拟", nelservice::EInstrumentKind::Stock, 0.01, 42.5);
}

SimulationSettings growthBoardStock(std::uint64_t seed)
{
    SimulationSettings settings =
        instrument(seed, "SZ", "301999", "创业模拟", nelservice::EInstrumentKind::Stock, 0.01, 286.18);
    settings.limitShare = 0.20;
    settings.volatility = 0.03;
    settings.typicalLots = 1;
    settings.sizeTail = 1.2;
    return settings;
}

SimulationSettings fund(std::uint64_t seed)
{
    SimulationSettings settings =
        instrument(seed, "SH", "510999", "模拟基金", nelservice::EInstrumentKind::Fund, 0.001, 2.764);
    settings.depthScale = 0.001;
    settings.volatility = 0.006;
    settings.typicalLots = 20;
    settings.sizeTail = 0.9;
    return settings;
}

SimulationSettings convertibleBond(std::uint64_t seed)
{
    SimulationSettings settings = instrument(seed, "SZ", "123999", "模拟转债",
                                             nelservice::EInstrumentKind::ConvertibleBond, 0.001, 118.52);
    settings.limitShare = 0.20;
    settings.volumeUnit = 10;
    settings.depthScale = 0.001;
    settings.bestOwnSideShare = 0;
    settings.marketShare = 0;
    return settings;
}

SimulationSettings repurchase(std::uint64_t seed)
{
    SimulationSettings settings =
        instrument(seed, "SH", "204999", "模拟回购", nelservice::EInstrumentKind::Repurchase, 0.005, 1.965);
    settings.limitShare = 0;
    settings.volumeUnit = 10;
    settings.depthScale = 0.005;
    settings.volatility = 0.03;
    settings.typicalLots = 50;
    settings.bestOwnSideShare = 0;
    settings.marketShare = 0;
    settings.oddLotShare = 0;
    return settings;
}

SimulationSettings busyDay(SimulationSettings settings, std::int64_t orders)
{
    settings.orders = orders;
    settings.busyOpen = 12;
    settings.burstStrength = 0.8;
    settings.volatility *= 1.5;
    settings.depthScale *= 2;
    return settings;
}

SimulationSettings levelStyle(SimulationSettings settings)
{
    settings.style = FeedStyle::Level;
    settings.queueInterval = 500;
    return settings;
}

} // namespace feed
