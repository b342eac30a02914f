#pragma once

#include "feed/simulation/SimulationSettings.h"

#include <cstdint>
#include <vector>

namespace feed {

/// Simulated instruments beyond those of the mainland's stock exchanges, one for each kind of market that
/// quotes its levels in its own way. They are traded by the hours and rules of a stock.
struct InstrumentKind
{
    const char* name; ///< as a command line names it, "future"
    SimulationSettings (*make)(std::uint64_t seed);
};

SimulationSettings future(std::uint64_t seed);          ///< one level: stock index future, tick 0.2
SimulationSettings hongKongStock(std::uint64_t seed);   ///< ten levels: Hong Kong, tick 0.2
SimulationSettings shanghaiConnect(std::uint64_t seed); ///< ten levels: Hong Kong share through Shanghai
SimulationSettings shenzhenConnect(std::uint64_t seed); ///< ten levels: Hong Kong share through Shenzhen
SimulationSettings interbankSwap(std::uint64_t seed);   ///< always ten levels: interest rate swap, per cent
SimulationSettings stockOption(std::uint64_t seed);     ///< five levels: option on a fund, tick 0.0001
SimulationSettings customIndex(std::uint64_t seed);     ///< one level: an index that a user put together

/// All of them, each under its own name.
const std::vector<InstrumentKind>& instrumentKinds();

} // namespace feed
