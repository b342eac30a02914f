#include "platform/models/ladder_quotes.h"

#include "records/Tolerance.h"

namespace Kel {

namespace {

constexpr int kNewOrder = 1;
constexpr int kPartDealt = 2;

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
        quote.volume = clampToInt(order.volume);
        quote.dealtVolume = clampToInt(order.dealt);
        quote.state = order.dealt > 0 ? kPartDealt : kNewOrder;
        queue.quotes.emplace_back(order.number, std::shared_ptr<SingleQuote>(block, &quote));
    }
    queue.orderCount = clampToInt(static_cast<std::int64_t>(queue.quotes.size()));
}

} // namespace Kel
