#pragma once

#include "records/CInstrumentDetail.h"

#include <cstdint>

namespace feed {

/// What the simulated exchange delivers.
enum class FeedStyle
{
    Tick,  ///< every order, deal and cancellation
    Level, ///< no orders: published queues, deals and snapshots
};

/// How the numbers of orders and deals are given.
enum class Numbering
{
    Sequence, ///< Shenzhen: an order's and a deal's number is its place in the channel's sequence
    Separate, ///< Shanghai: orders and deals have numbers of their own, increasing, with gaps
};

/// Everything that a simulated day depends on: two equal records give the same day, row for row.
struct SimulationSettings
{
    std::uint64_t seed = 1;
    std::int64_t tradingDay = 20230201;   ///< yyyymmdd, exchange time
    nelservice::CInstrumentDetail detail; ///< limits of 0 are made from `limitShare`
    double limitShare = 0.10;             ///< price limits, as a share of the previous close; 0 for none
    std::int64_t volumeUnit = 100;        ///< shares of a lot: 100, or 10 for bonds and repurchases
    FeedStyle style = FeedStyle::Tick;
    Numbering numbering = Numbering::Separate;
    std::int64_t orders = 20000;    ///< orders wanted for the day, met within a few per cent
    double cancelShare = 0.30;      ///< share of cancellations among what traders send
    double marketShare = 0.02;      ///< share of market orders among the orders of continuous trading
    double bestOwnSideShare = 0.02; ///< share of orders at the best price of their own side
    double aggressiveShare = 0.25;  ///< share of limit orders that reach across the spread
    double oddLotShare = 0.01;      ///< share of sell orders that are no whole number of lots
    double burstStrength = 0.6;     ///< orders that one order draws after it on average, 0 to 0.95
    double busyOpen = 6;            ///< rate at 09:30 over the rate of the quiet hours
    double volatility = 0.015;      ///< deviation of the fair price over a day, as a share of the price
    double drift = 0;               ///< where the fair price is pulled over the day, share of the price
    double depthScale = 0.002;      ///< typical distance of a waiting order, as a share of the price
    double typicalLots = 2;         ///< lots of a small order
    double sizeTail = 1.0;          ///< an order beats x times the small one with probability x^-sizeTail
    std::int64_t maximumVolume = 1000000; ///< shares, largest order that the exchange takes
    int foreignRows = 3;                  ///< rows of other instruments between two of this one, on average
    bool deliverQueues = true;            ///< publish the first 50 orders of the best prices
    bool deliverLevelCancels = true;      ///< level style: whether the cancellations come with the deals
    std::int64_t queueInterval = 3000;    ///< ms between two published queues
};

/// A copy in which every field is one that the exchange can work with: shares within 0 and 1, a tick and a
/// previous close above 0, at least one share a lot, numbers that fit the 32 bits of a deal record. `detail`
/// has its limits.
SimulationSettings usable(const SimulationSettings& settings);

// Plausible instruments. Codes lie in the exchanges' ranges of their kind.
SimulationSettings shanghaiStock(std::uint64_t seed);    ///< 0.01 tick, limit 10 %, Shanghai numbers
SimulationSettings shenzhenStock(std::uint64_t seed);    ///< 0.01 tick, limit 10 %, Shenzhen numbers
SimulationSettings growthBoardStock(std::uint64_t seed); ///< Shenzhen growth board, limit 20 %, dear and thin
SimulationSettings fund(std::uint64_t seed);             ///< exchange-traded fund, 0.001 tick, long queues
SimulationSettings convertibleBond(std::uint64_t seed);  ///< 0.001 tick, lots of 10, limit 20 %
SimulationSettings repurchase(std::uint64_t seed); ///< rate in per cent, 0.005 tick, lots of 10, no limit

/// The same instrument on a busy day: `orders` orders, a livelier open, longer bursts and a wider price
/// range.
SimulationSettings busyDay(SimulationSettings settings, std::int64_t orders);

/// The same day in level style: no orders, and the published queue every half second.
SimulationSettings levelStyle(SimulationSettings settings);

} // namespace feed
