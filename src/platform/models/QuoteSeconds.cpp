#include "platform/models/QuoteSeconds.h"

#include <algorithm>
#include <limits>

namespace Kel {

bool QuoteSeconds::add(std::int32_t second)
{
    if (m_seconds.empty() || second > m_seconds.back()) {
        m_seconds.push_back(second);
        return true;
    }
    const auto place = std::lower_bound(m_seconds.begin(), m_seconds.end(), second);
    if (*place == second)
        return false;
    m_seconds.insert(place, second);
    return true;
}

QuoteSeconds::Interval QuoteSeconds::around(std::int32_t second) const
{
    const auto closing = std::lower_bound(m_seconds.begin(), m_seconds.end(), second);
    Interval interval;
    interval.begin =
        closing == m_seconds.begin() ? std::numeric_limits<std::int64_t>::min() : *std::prev(closing);
    interval.end = closing == m_seconds.end() ? std::numeric_limits<std::int64_t>::max() : *closing;
    return interval;
}

} // namespace Kel
