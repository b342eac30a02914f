#pragma once

#include <cstdint>

namespace Kel {

/// How one deal stands within the deals of one of its orders; the chart draws each in its own way.
enum E_DEAL_KIND : std::uint8_t
{
    E_DEAL_WHOLE = 0,      ///< the order's only deal
    E_DEAL_JOINED = 1,     ///< joins its neighbour: the deal directly before or after it, at the same price
    E_DEAL_FLAT_BREAK = 2, ///< at the price of the order's deal before, with other deals between
    E_DEAL_OPENING = 3,    ///< opens a run, with no join to a deal before
    E_DEAL_SLANTED_BREAK = 4, ///< at another price than the order's deal before
};

/// What the kind of a deal depends on, for one side of it.
struct DealNeighbours
{
    std::int32_t orderNo = 0; ///< not above 0: no order, and the deal opens a run of its own
    int index = -1;           ///< of the deal itself
    double price = 0;         ///< yuan
    int previous = -1;        ///< index of the order's deal before, -1 for none
    double previousPrice = 0; ///< not a number if that deal is gone
    int next = -1;            ///< index of the order's deal after, -1 for none
    double nextPrice = 0;     ///< not a number if that deal is gone
};

/// The rule. Any thread.
E_DEAL_KIND dealKind(const DealNeighbours& deal);

} // namespace Kel
