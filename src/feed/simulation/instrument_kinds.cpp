#include "feed/simulation/instrument_kinds.h"

#include "platform/services/CStockManager.h"

namespace feed {

namespace {

using nelservice::EInstrumentKind;

SimulationSettings instrument(std::uint64_t seed, const char* market, const char* code, const char* name,
                              EInstrumentKind kind, double tick, double previousClose)
{
    SimulationSettings settings;
    settings.seed = seed;
    settings.detail.market = market;
    settings.detail.code = code;
    settings.detail.name = name;
    settings.detail.kind = kind;
    settings.detail.priceTick = tick;
    settings.detail.previousClose = previousClose;
    return settings;
}

SimulationSettings withoutLimits(SimulationSettings settings)
{
    settings.limitShare = 0;
    return settings;
}

} // namespace

SimulationSettings future(std::uint64_t seed)
{
    return instrument(seed, "CFFEX", "IF2303", "股指模拟", EInstrumentKind::Future, 0.2, 4156.8);
}

SimulationSettings hongKongStock(std::uint64_t seed)
{
    return withoutLimits(instrument(seed, "HK", "03998", "港股模拟", EInstrumentKind::Stock, 0.2, 382.4));
}

SimulationSettings shanghaiConnect(std::uint64_t seed)
{
    return withoutLimits(instrument(seed, "SHHK", "02998", "沪通模拟", EInstrumentKind::Stock, 0.05, 45.35));
}

SimulationSettings shenzhenConnect(std::uint64_t seed)
{
    return withoutLimits(instrument(seed, "SZHK", "01998", "深通模拟", EInstrumentKind::Stock, 0.01, 9.87));
}

SimulationSettings interbankSwap(std::uint64_t seed)
{
    return withoutLimits(
        instrument(seed, "YSWP", "FR007S1Y", "互换模拟", EInstrumentKind::Unknown, 0.0025, 2.2725));
}

SimulationSettings stockOption(std::uint64_t seed)
{
    SimulationSettings settings =
        instrument(seed, "SHOP", "10009999", "期权模拟", EInstrumentKind::Option, 0.0001, 0.0836);
    settings.limitShare = 0.5;
    settings.volatility = 0.08;
    settings.depthScale = 0.01;
    return settings;
}

SimulationSettings customIndex(std::uint64_t seed)
{
    SimulationSettings settings = instrument(seed, Kel::kCustomIndexMarket, "900001", "自编指数",
                                             EInstrumentKind::Index, 0.01, 1024.16);
    settings.typicalLots = 2000; // members' volumes together
    return settings;
}

const std::vector<InstrumentKind>& instrumentKinds()
{
    static const std::vector<InstrumentKind> kinds = {
        {"future", future},
        {"hongkong", hongKongStock},
        {"shanghai-connect", shanghaiConnect},
        {"shenzhen-connect", shenzhenConnect},
        {"swap", interbankSwap},
        {"option", stockOption},
        {"custom-index", customIndex},
    };
    return kinds;
}

} // namespace feed
