#pragma once

#include "feed/DayRows.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace host {

/// The last price of an instrument over its day: what an instrument list needs when the day itself is not
/// kept. Prices come from the snapshots, from the deals where there are no snapshots. Immutable once made;
/// any thread.
class PriceSeries
{
public:
    PriceSeries() = default;
    explicit PriceSeries(const feed::InstrumentDay& day);

    /// Yuan, at a moment (ms since 1970-01-01 UTC); 0 before the first price.
    double at(std::int64_t time) const;

    /// Yuan; 0 if nobody told one.
    double previousClose() const { return m_previousClose; }

    bool empty() const { return m_prices.empty(); }

private:
    void add(std::int64_t time, double price);

    double m_previousClose = 0;
    std::vector<std::pair<std::int64_t, double>> m_prices; ///< changes only, by time
};

} // namespace host
