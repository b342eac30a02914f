#include "made_up_deals.h"

#include <cstdint>

std::vector<feed::DealRow> someDeals(int first, int count)
{
    constexpr std::int64_t kOpen = 1675215000000; // 2023-02-01 09:30:00 at the exchange
    constexpr int kDealsPerSecond = 250;
    std::vector<feed::DealRow> rows(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) {
        const int number = first + index;
        feed::DealRow& row = rows[static_cast<std::size_t>(index)];
        row.time = kOpen + std::int64_t(number) * 1000 / kDealsPerSecond;
        row.dealNo = number + 1;
        row.buyNo = 1 + number / 3 * 2;
        row.sellNo = 2 + number / 5 * 2;
        row.price = 10 + number % 17 * 0.01;
        row.volume = 100 * (1 + number * 7 % 60);
        row.activeSide = 1 + number / 5 % 2;
    }
    return rows;
}
