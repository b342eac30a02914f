#pragma once

#include "feed/simulation/SimulatedExchange.h"

namespace testing_support {

/// A simulated day of 30,000 orders of a Shenzhen stock, made once.
inline const feed::InstrumentDay& busyShenzhenDay()
{
    static const feed::InstrumentDay day = [] {
        feed::SimulatedExchange exchange(feed::busyDay(feed::shenzhenStock(3), 30000));
        feed::InstrumentDay rows;
        exchange.runDay(rows);
        rows.detail = exchange.settings().detail;
        return rows;
    }();
    return day;
}

} // namespace testing_support
