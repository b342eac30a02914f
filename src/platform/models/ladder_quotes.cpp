#include "platform/models/ladder_quotes.h"

#include "records/Tolerance.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace Kel {

namespace {

constexpr int kNewOrder = 1;
constexpr int kPartDealt = 2;
constexpr std::int64_t kMostFits = std::numeric_limits<std::int32_t>::max();

} // namespace

void setQuotes(SingleQueue& queue, const std::vector<BookOrder>& orders)
{
    const auto block = std::make_shared<std::vector<SingleQuote>>();
    block->reserve(orders.size());
    queue.quotes.clear();
    queue.quotes.reserve(orders.size());
    for (const BookOrder& order : orders) {
        if (order.volume <= order.dealt)
            continue;
        SingleQuote& quote = block->emplace_back();
        quote.time = order.time;
        // What is left is what counts: it stays right where the whole does not fit.
        const std::int64_t rest = clampToInt(order.volume - order.dealt);
        const std::int64_t dealt =
            std::min<std::int64_t>(std::max<std::int64_t>(order.dealt, 0), kMostFits - rest);
        quote.volume = static_cast<std::int32_t>(rest + dealt);
        quote.dealtVolume = static_cast<std::int32_t>(dealt);
        quote.state = order.dealt > 0 ? kPartDealt : kNewOrder;
        queue.quotes.emplace_back(order.number, std::shared_ptr<SingleQuote>(block, &quote));
    }
    queue.orderCount = clampToInt(static_cast<std::int64_t>(queue.quotes.size()));
}

} // namespace Kel
