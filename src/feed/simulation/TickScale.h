#pragma once

#include "records/PriceKey.h"

#include <cmath>

namespace feed {

/// Prices of one instrument as whole ticks and back. A price is the double nearest to its decimal text: 186
/// ticks of 0.01 are 1.86, not 186 * 0.01.
class TickScale
{
public:
    /// `tick` in yuan, above 0.
    explicit TickScale(double tick) : m_tick(tick)
    {
        const double perYuan = std::floor(1 / tick + 0.5);
        m_perYuan = std::fabs(perYuan * tick - 1) < 1e-9 ? perYuan : 0;
    }

    double price(int ticks) const { return m_perYuan > 0 ? ticks / m_perYuan : ticks * m_tick; }
    int ticks(double price) const { return Kel::priceKey(price, m_tick); }
    double tick() const { return m_tick; }

private:
    double m_tick;
    double m_perYuan = 0; ///< ticks in a yuan where that is a whole number, otherwise 0
};

} // namespace feed
