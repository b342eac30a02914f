#pragma once

#include "platform/models/OrderBook.h"
#include "records/SingleQueue.h"

#include <vector>

namespace Kel {

/// Gives `queue` the orders with a rest as its quotes, and their number; `orders` are sorted by number. The
/// quotes of a queue share one block of memory: at the day's limit a price holds a hundred thousand of them.
/// Any thread.
void setQuotes(SingleQueue& queue, const std::vector<BookOrder>& orders);

} // namespace Kel
