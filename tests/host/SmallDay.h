#pragma once

#include "feed/DayRows.h"

#include <cstdint>
#include <string>

namespace testing_support {

/// A day of the stock SH600999 (tick 0.01) built row by row; each row takes the next place in the sequence.
/// Times are seconds after 09:30.
class SmallDay
{
public:
    SmallDay();

    SmallDay& at(double second);
    SmallDay& buy(std::int64_t number, double price, std::int64_t shares, int kind = 1);
    SmallDay& sell(std::int64_t number, double price, std::int64_t shares, int kind = 1);
    SmallDay& deal(std::int32_t buyNo, std::int32_t sellNo, double price, std::int64_t shares);
    SmallDay& cancelBuy(std::int32_t number, std::int64_t shares);
    SmallDay& cancelSell(std::int32_t number, std::int64_t shares);

    /// The ten levels that the rows so far make, published now; with the place in the sequence or without.
    SmallDay& snapshot(bool withSequence = true);

    /// The first orders at the best prices that the rows so far make: `bids` and `asks` are given, in shares.
    SmallDay& queue(double bidPrice, std::vector<std::int64_t> bids, double askPrice,
                    std::vector<std::int64_t> asks);

    std::int64_t time() const { return m_time; }
    feed::InstrumentDay day;

private:
    SmallDay& order(int side, std::int64_t number, double price, std::int64_t shares, int kind);
    SmallDay& row(const feed::DealRow& row);

    std::int64_t m_time;
    std::int64_t m_seq = 0;
    double m_last = 0;
    std::int64_t m_total = 0;
};

} // namespace testing_support
