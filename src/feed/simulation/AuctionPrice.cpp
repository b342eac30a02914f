#include "feed/simulation/AuctionPrice.h"

#include <algorithm>
#include <cstdlib>

namespace feed {
namespace {

/// Keeps the best candidate seen so far.
class BestMatch
{
public:
    explicit BestMatch(int reference) : m_reference(reference) {}

    /// `buyable`: shares that buyers take at the price, `sellable`: shares that sellers give; the last two
    /// are those that are willing at better prices as well.
    void offer(int ticks, std::int64_t buyable, std::int64_t sellable, std::int64_t betterBuys,
               std::int64_t betterSells)
    {
        const std::int64_t volume = std::min(buyable, sellable);
        if (volume <= 0 || betterBuys > volume || betterSells > volume)
            return;
        const std::int64_t rest = buyable + sellable - 2 * volume;
        const int distance = std::abs(ticks - m_reference);
        if (m_match.ticks != 0) {
            if (volume != m_match.volume ? volume < m_match.volume
                : rest != m_rest         ? rest > m_rest
                                         : distance > m_distance)
                return;
        }
        m_match = {ticks, volume, buyable - volume, sellable - volume};
        m_rest = rest;
        m_distance = distance;
    }

    const AuctionMatch& match() const { return m_match; }

private:
    int m_reference;
    AuctionMatch m_match;
    std::int64_t m_rest = 0;
    int m_distance = 0;
};

} // namespace

AuctionMatch auctionMatch(const TrueBook& book, int referenceTicks)
{
    const int lowest = book.bestTicks(Side::Sell);
    const int highest = book.bestTicks(Side::Buy);
    if (lowest == 0 || highest == 0 || lowest > highest)
        return {};

    std::int64_t buyable = 0; // at `ticks` of the loop below
    for (int ticks = highest; ticks >= lowest; ticks = book.nextTicks(Side::Buy, ticks))
        buyable += book.levelAt(Side::Buy, ticks).volume;
    BestMatch best(referenceTicks);
    std::int64_t sellable = 0;
    int ticks = lowest;
    while (true) {
        const std::int64_t bids = book.levelAt(Side::Buy, ticks).volume;
        const std::int64_t asks = book.levelAt(Side::Sell, ticks).volume;
        sellable += asks;
        best.offer(ticks, buyable, sellable, buyable - bids, sellable - asks);
        if (ticks == highest)
            break;
        buyable -= bids;

        // The next price at which either side has orders; between the two nothing changes, so that the price
        // of the gap that is nearest to the reference stands for the whole gap.
        int next = book.ticksAbove(Side::Buy, ticks);
        const int nextAsk = book.ticksAbove(Side::Sell, ticks);
        if (nextAsk != 0)
            next = std::min(next, nextAsk);
        if (next - ticks > 1) {
            const int between = std::clamp(referenceTicks, ticks + 1, next - 1);
            best.offer(between, buyable, sellable, buyable, sellable);
        }
        ticks = next;
    }
    return best.match();
}

} // namespace feed
