#include "platform/models/deal_kind.h"

#include "records/Tolerance.h"

#include <cmath>

namespace Kel {

E_DEAL_KIND dealKind(const DealNeighbours& deal)
{
    if (deal.orderNo <= 0)
        return E_DEAL_OPENING;
    if (deal.previous == -1) {
        if (deal.next == -1)
            return E_DEAL_WHOLE;
        const bool joins = deal.next == deal.index + 1 && isEqual(deal.nextPrice, deal.price);
        return joins ? E_DEAL_JOINED : E_DEAL_OPENING;
    }
    if (std::isnan(deal.previousPrice))
        return E_DEAL_OPENING;
    if (!isEqual(deal.previousPrice, deal.price))
        return E_DEAL_SLANTED_BREAK;
    return deal.previous == deal.index - 1 ? E_DEAL_JOINED : E_DEAL_FLAT_BREAK;
}

} // namespace Kel
