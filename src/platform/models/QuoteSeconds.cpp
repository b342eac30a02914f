#include "platform/models/QuoteSeconds.h"

#include <algorithm>
#include <limits>

namespace Kel {

bool QuoteSeconds::add(std::vector<std::int32_t>& seconds)
{
    std::sort(seconds.begin(), seconds.end());
    const std::size_t before = m_seconds.size();
    const bool isLate = before > 0 && !seconds.empty() && seconds.front() <= m_seconds.back();
    m_seconds.insert(m_seconds.end(), seconds.begin(), seconds.end());
    if (isLate)
        std::inplace_merge(m_seconds.begin(), m_seconds.begin() + static_cast<std::ptrdiff_t>(before),
                           m_seconds.end());
    m_seconds.erase(std::unique(m_seconds.begin(), m_seconds.end()), m_seconds.end());
    return m_seconds.size() > before;
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
