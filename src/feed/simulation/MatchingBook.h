#pragma once

#include "feed/simulation/AuctionPrice.h"
#include "feed/simulation/MarketChannel.h"
#include "feed/simulation/TrueBook.h"

#include <cstdint>

namespace feed {

/// Takes orders into the book by price and time and announces what comes of it. Orders are valid when they
/// come here: their price lies in the band, their volume is above 0. One thread.
class MatchingBook
{
public:
    /// Both outlive this object.
    MatchingBook(TrueBook& book, MarketChannel& channel);

    /// A limit order of continuous trading: deals with what it reaches, the rest waits at its price.
    void limit(Side side, int ticks, std::int64_t volume);

    /// A limit order of an auction: waits, even where the sides overlap.
    void limitInAuction(Side side, int ticks, std::int64_t volume);

    /// A market order: deals with the best five prices of the other side; its rest is withdrawn at once.
    void market(Side side, std::int64_t volume);

    /// An order at the best price of its own side, behind those that wait there. Announced without a price.
    /// Withdrawn at once if nobody waits on its side.
    void bestOwnSide(Side side, std::int64_t volume);

    /// Withdraws a standing order. False if there is none of that number.
    bool cancel(std::int64_t number);

    /// Ends an auction: deals the matched volume at the one price, the buyers and the sellers each by price
    /// and time.
    void matchAuction(const AuctionMatch& match);

private:
    /// Deals with the other side up to the limit, over at most `mostPrices` prices; returns what is left.
    std::int64_t take(Side side, std::int64_t number, int limitTicks, std::int64_t volume, int mostPrices);

    TrueBook& m_book;
    MarketChannel& m_channel;
};

} // namespace feed
