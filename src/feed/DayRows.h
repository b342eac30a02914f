#pragma once

#include "records/CInstrumentDetail.h"
#include "records/QuoterDepthData.h"

#include <array>
#include <cstdint>
#include <vector>

/// One day of one instrument as plain rows: what the simulated exchange makes, archives hold, importers read
/// and the replay plays. Times are milliseconds since 1970-01-01 UTC, prices yuan, volumes shares.
namespace feed {

/// A tick-by-tick order.
struct OrderRow
{
    std::int64_t time = 0;
    std::int64_t seq = 0; ///< sequence over orders and deals of the channel; strictly increasing within a day
    std::int64_t number = 0; ///< order number
    double price = 0;        ///< 0 for an order without a price (market, best own side)
    std::int64_t volume = 0; ///< the order's original volume
    std::int32_t side = 0;   ///< 1 buy, 2 sell
    std::int32_t kind = 1;   ///< quoter::EOrderKind
};

/// A deal or a cancellation. A cancellation has the number of the cancelled order in `buyNo`; for a sell
/// order in `sellNo` as well.
struct DealRow
{
    std::int64_t time = 0;
    std::int64_t seq = 0;
    double price = 0; ///< 0 for a cancellation
    std::int64_t volume = 0;
    std::int32_t dealNo = 0;
    std::int32_t buyNo = 0;
    std::int32_t sellNo = 0;
    std::int32_t kind = 0;       ///< quoter::ETransactionKind: 0 deal, 3 cancellation
    std::int32_t activeSide = 0; ///< 1 buyer came last, 2 seller, 0 auction or unknown
};

/// Phase of the day that a snapshot was taken in.
enum class Phase : std::int32_t
{
    Unknown = 0,
    Start,          ///< before the opening auction
    OpeningAuction, ///< 09:15 to 09:25, and the pause up to 09:30
    Continuous,     ///< 09:30 to 11:30 and 13:00 to 14:57
    Break,          ///< 11:30 to 13:00
    ClosingAuction, ///< 14:57 to 15:00
    Closed,         ///< after 15:00
};

/// A ten-level snapshot. In an auction bid one and ask one are the virtual price, volume one is the matched
/// volume and volume two, at price 0, what is left over on that side.
struct SnapshotRow
{
    std::int64_t time = 0;
    std::int64_t seq = 0; ///< last sequence number that the snapshot contains; 0 if unknown
    Phase phase = Phase::Unknown;
    double lastPrice = 0;
    double previousClose = 0;
    double openPrice = 0;
    double highPrice = 0;
    double lowPrice = 0;
    std::int64_t totalVolume = 0;
    double turnover = 0;
    std::int32_t dealCount = 0;
    std::array<double, quoter::kDepthLevels> askPrice{};
    std::array<std::int64_t, quoter::kDepthLevels> askVolume{};
    std::array<std::int32_t, quoter::kDepthLevels> askCount{}; ///< orders at the price; 0 where not published
    std::array<double, quoter::kDepthLevels> bidPrice{};
    std::array<std::int64_t, quoter::kDepthLevels> bidVolume{};
    std::array<std::int32_t, quoter::kDepthLevels> bidCount{};
};

/// The published queue at the best prices: volumes of the first orders (at most 50), in shares.
struct QueueRow
{
    std::int64_t time = 0;
    std::int64_t seq = 0; ///< last sequence number that the queue contains; 0 if unknown
    double bidPrice = 0;
    double askPrice = 0;
    std::int32_t bidCount = 0; ///< true number of orders at `bidPrice`
    std::int32_t askCount = 0;
    std::vector<std::int64_t> bidVolumes;
    std::vector<std::int64_t> askVolumes;
};

/// A standing order of a published ladder.
struct LadderOrder
{
    std::int64_t number = 0;
    std::int64_t time = 0;   ///< of the order
    std::int64_t volume = 0; ///< original
    std::int64_t dealt = 0;
};

/// A price of a published ladder.
struct LadderLevel
{
    double price = 0;
    std::int64_t volume = 0;
    std::vector<LadderOrder> orders; ///< all of them, in order of arrival
};

/// The published ladder: the best prices a side, at most `kLevels`, with their orders.
struct LadderRow
{
    static constexpr int kLevels = 1000; ///< most prices of a side

    std::int64_t time = 0;
    std::int64_t seq = 0;          ///< last sequence number that the ladder contains; 0 if unknown
    double lastPrice = 0;          ///< 0 before the first deal
    std::int64_t lastVolume = 0;   ///< of the latest deal
    std::vector<LadderLevel> buys; ///< best price first
    std::vector<LadderLevel> sells;
};

/// Takes the rows of a day in order of time and sequence.
class RowSink
{
public:
    virtual ~RowSink() = default;
    virtual void onOrder(const OrderRow& row) = 0;
    virtual void onDeal(const DealRow& row) = 0;
    virtual void onSnapshot(const SnapshotRow& row) = 0;
    virtual void onQueue(const QueueRow& row) = 0;

    /// Ladders are large, so they are made only for a sink that takes them.
    virtual bool takesLadders() const { return false; }
    virtual void onLadder(const LadderRow& /*row*/) {}
};

/// A whole day in memory. Each vector is ordered by `seq` (orders, deals) or `time` (snapshots, queues).
struct InstrumentDay : RowSink
{
    nelservice::CInstrumentDetail detail;
    std::int64_t tradingDay = 0; ///< yyyymmdd, exchange time
    std::vector<OrderRow> orders;
    std::vector<DealRow> deals;
    std::vector<SnapshotRow> snapshots;
    std::vector<QueueRow> queues;
    std::vector<LadderRow> ladders;
    bool keepsLadders = false; ///< whether `ladders` is filled: a busy day's would not fit the memory

    void onOrder(const OrderRow& row) override { orders.push_back(row); }
    void onDeal(const DealRow& row) override { deals.push_back(row); }
    void onSnapshot(const SnapshotRow& row) override { snapshots.push_back(row); }
    void onQueue(const QueueRow& row) override { queues.push_back(row); }
    bool takesLadders() const override { return keepsLadders; }
    void onLadder(const LadderRow& row) override { ladders.push_back(row); }
};

} // namespace feed
