#pragma once

#include "feed/simulation/SimulatedExchange.h"
#include "platform/services/CStockManager.h"
#include "platform/utils/CSingletonT.h"

#include <boost/make_shared.hpp>

#include <cstdint>
#include <string>

namespace testing_support {

/// The rows of a simulated day, and what a model needs beside them.
struct SimulatedTicks
{
    feed::InstrumentDay rows;
    std::string key; ///< market and code joined
    int unit = 100;  ///< shares of a lot
};

/// A day of a Shenzhen stock for even seeds, of a convertible bond for odd ones; the stock manager knows the
/// instrument afterwards.
inline SimulatedTicks simulateTicks(std::uint64_t seed, std::int64_t orders)
{
    feed::SimulationSettings settings =
        seed % 2 == 0 ? feed::shenzhenStock(seed) : feed::convertibleBond(seed);
    settings.orders = orders;
    feed::SimulatedExchange exchange(settings);
    SimulatedTicks day;
    exchange.runDay(day.rows);
    const nelservice::CInstrumentDetail& detail = exchange.settings().detail;
    day.key = detail.market + detail.code;
    day.unit = static_cast<int>(exchange.settings().volumeUnit);
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(
        boost::make_shared<nelservice::CInstrumentDetail>(detail));
    return day;
}

} // namespace testing_support
