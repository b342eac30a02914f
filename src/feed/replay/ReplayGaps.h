#pragma once

#include "feed/DayRows.h"

#include <cstddef>
#include <vector>

namespace feed {

/// Where the numbers of a replay's calls skip, so that a receiver finds the holes of the day as it would in a
/// live feed: each hole makes the number of one call skip by one. For one thread at a time.
class ReplayGaps
{
public:
    /// Before the record `row` of a channel, so many numbers are skipped.
    struct Skip
    {
        std::size_t row = 0;
        int numbers = 0;
    };

    /// How a history load tells its holes.
    struct Load
    {
        std::vector<Skip> deals; ///< batches end here, and the number of the next one skips
        std::vector<Skip> orders;
        int atEnd = 0; ///< numbers that the live batch of deals skips which ends the load
    };

    /// No holes.
    ReplayGaps() = default;

    /// Those that `findGaps` finds.
    explicit ReplayGaps(const InstrumentDay& day);

    /// The holes within the first `orders` orders and `deals` deals of the day, all of them anew. A hole is
    /// told where the deals go on after it, or the orders if no deal came after it. Batches of orders but the
    /// first must be larger than `smallBatch`; a hole that would leave a smaller one is told at the end.
    Load load(std::size_t orders, std::size_t deals, std::size_t smallBatch);

    /// How many holes the day has up to these counts that have not been told yet.
    int live(std::size_t orders, std::size_t deals);

private:
    /// The first records after a hole.
    struct Place
    {
        std::size_t order = 0;
        std::size_t deal = 0;
    };

    std::vector<Place> m_places;
    std::size_t m_told = 0;
};

} // namespace feed
