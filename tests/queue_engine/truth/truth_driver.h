#pragma once

#include "feed/DayRows.h"
#include "feed/simulation/SimulatedExchange.h"
#include "queue_engine/EngineProbe.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace testing_support {

/// Plays a simulated day into an engine as a quote service would, slice by slice, and holds the lists against
/// the exchange's true book.
///
/// An order that is dealt in part and cancelled between two passes keeps its dealt lots, since the pass takes
/// only the cancelled lots off (pinned by a test of its own); the driver therefore lets a pass run between
/// the two.
class TruthDriver : public feed::RowSink
{
public:
    explicit TruthDriver(const feed::SimulationSettings& settings);

    void onOrder(const feed::OrderRow& row) override;
    void onDeal(const feed::DealRow& row) override;
    void onSnapshot(const feed::SnapshotRow& row) override;
    void onQueue(const feed::QueueRow& row) override;

    /// Everything up to `time`, and on until an order stands, as history in batches of `batchSize` records:
    /// deals, orders, an empty deal batch.
    void loadHistory(std::int64_t time, std::size_t batchSize);

    /// Lets the exchange run to `time` and delivers what it says as live batches.
    void live(std::int64_t time);

    /// The feed is quiet: refresh ticks pass.
    void quiet(int ticks);

    /// Empty if the lists are the true queues, order by order; otherwise the first differences.
    std::string differences() const;

    feed::SimulatedExchange& exchange() { return m_exchange; }
    EngineProbe& engine() { return m_engine; }
    int pricelessOrders() const { return m_priceless; }
    int separatedCancels() const { return m_separated; }
    const feed::QueueRow& lastQueue() const { return m_lastQueue; }

private:
    enum class Mode
    {
        History,
        Live,
    };

    void flush();
    void sendOrders(int status, const std::vector<feed::OrderRow>& rows, std::size_t from, std::size_t count);
    void sendDeals(int status, const std::vector<feed::DealRow>& rows, std::size_t from, std::size_t count);
    Kel::MetaCacheDataWrapperPtr wrap(quoter::QuoterBatch batch) const;
    void compareSide(feed::Side side, std::string& text) const;

    feed::SimulatedExchange m_exchange;
    EngineProbe m_engine;
    std::string m_market;
    std::string m_code;
    double m_unit = 100;
    Mode m_mode = Mode::History;
    std::vector<feed::OrderRow> m_orders;
    std::vector<feed::DealRow> m_deals;
    std::set<std::int64_t> m_dealtSincePass;
    feed::QueueRow m_lastQueue;
    int m_priceless = 0;
    int m_separated = 0;
};

} // namespace testing_support
