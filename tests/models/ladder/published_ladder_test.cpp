// The ladder that the simulated exchange publishes, from its book to the model.

#include "LadderFeed.h"
#include "feed/record_making.h"
#include "feed/replay/ReplaySession.h"
#include "feed/simulation/SimulatedExchange.h"
#include "platform/models/tick_values.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using namespace testing_support;

feed::SimulationSettings smallDay(std::uint64_t seed)
{
    feed::SimulationSettings settings = feed::shenzhenStock(seed);
    settings.orders = 1500;
    return settings;
}

/// Gives each published ladder to a model and holds what it reports against the exchange's book.
class Checker : public feed::RowSink
{
public:
    explicit Checker(feed::SimulatedExchange& exchange) : m_exchange(exchange)
    {
        const auto detail = boost::make_shared<nelservice::CInstrumentDetail>(exchange.settings().detail);
        utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(detail);
        m_model.setStock(QString::fromStdString(detail->market + detail->code));
    }

    void onOrder(const feed::OrderRow& row) override { m_orderTimes[row.number] = row.time; }
    void onDeal(const feed::DealRow& row) override
    {
        if (row.kind != quoter::eTransactionCancel)
            m_newest = row;
    }
    void onSnapshot(const feed::SnapshotRow&) override { ++snapshots; }
    void onQueue(const feed::QueueRow&) override {}
    bool takesLadders() const override { return true; }
    void onLadder(const feed::LadderRow& row) override
    {
        ++ladders;
        const nelservice::CInstrumentDetail& detail = m_exchange.settings().detail;
        m_model.ThousandDataCallback(0, 1, batchOf({feed::makeRecord(row)}, detail.market, detail.code));
        ASSERT_TRUE(m_answer.ask(m_model));
        check(feed::Side::Buy);
        check(feed::Side::Sell);
        if (m_newest.price > 0) {
            ASSERT_EQ(m_answer.latest, m_newest.price);
            ASSERT_EQ(m_answer.lastVolume, Kel::lotsFromShares(m_newest.volume, 100));
        }
    }

    int snapshots = 0;
    int ladders = 0;
    int orders = 0;

private:
    void check(feed::Side side)
    {
        const bool isBuy = side == feed::Side::Buy;
        const auto& rows = isBuy ? m_answer.buys : m_answer.sells;
        const auto levels = m_exchange.book().levels(side, 100000);
        ASSERT_EQ(rows.size(), levels.size());
        for (std::size_t i = 0; i < levels.size(); ++i) {
            const Kel::EntrustData& row = *rows[isBuy ? rows.size() - 1 - i : i];
            ASSERT_DOUBLE_EQ(row.price, levels[i].price);
            ASSERT_EQ(row.volume, Kel::lotsFromShares(levels[i].volume, 100));
            ASSERT_EQ(row.orderCount, levels[i].orderCount);
            const auto queue = m_model.getQueue(isBuy, row.price);
            ASSERT_TRUE(queue);
            const auto standing = m_exchange.book().orders(side, levels[i].price);
            ASSERT_EQ(queue->quotes.size(), standing.size());
            ASSERT_EQ(queue->totalVolume, levels[i].volume);
            for (std::size_t k = 0; k < standing.size(); ++k) {
                const auto& [number, quote] = queue->quotes[k];
                ASSERT_EQ(number, standing[k].number);
                ASSERT_EQ(quote->volume - quote->dealtVolume, standing[k].remaining);
                ASSERT_EQ(quote->time, m_orderTimes[number]);
                ++orders;
            }
        }
    }

    feed::SimulatedExchange& m_exchange;
    Kel::CModelQuoterDepthThousand m_model{0, -1};
    Answer m_answer;
    std::map<std::int64_t, std::int64_t> m_orderTimes;
    feed::DealRow m_newest;
};

TEST(PublishedLadder, IsTheTrueBookEveryThreeSeconds)
{
    for (std::uint64_t seed = 1; seed <= 3; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        feed::SimulatedExchange exchange(smallDay(seed));
        Checker checker(exchange);
        exchange.runDay(checker);
        EXPECT_EQ(checker.ladders, checker.snapshots);
        EXPECT_GT(checker.ladders, 4 * 3600 / 3);
        EXPECT_GT(checker.orders, 0);
    }
}

TEST(PublishedLadder, DoesNotChangeTheDayAndIsNotKeptUnasked)
{
    const feed::InstrumentDay without = feed::simulatedDay(smallDay(4));
    EXPECT_TRUE(without.ladders.empty());
    feed::InstrumentDay with;
    with.keepsLadders = true;
    feed::SimulatedExchange exchange(smallDay(4));
    exchange.runDay(with);
    EXPECT_EQ(with.ladders.size(), with.snapshots.size());
    ASSERT_EQ(with.orders.size(), without.orders.size());
    ASSERT_EQ(with.deals.size(), without.deals.size());
    EXPECT_EQ(with.deals.back().seq, without.deals.back().seq);
}

TEST(PublishedLadder, IsReplayedFromADayThatHoldsIt)
{
    struct Sink : feed::FeedSink
    {
        void onOrders(const std::string&, int, int, const Kel::MetaCacheDataWrapperPtr&) override {}
        void onDeals(const std::string&, int, int, const Kel::MetaCacheDataWrapperPtr&) override {}
        void onQuotes(const std::string&, int, int, const quoter::QuoterBatch&) override {}
        void onLadders(const std::string& key, int seq, int status,
                       const Kel::MetaCacheDataWrapperPtr& batch) override
        {
            keys.push_back(key);
            EXPECT_EQ(seq, static_cast<int>(statuses.size()));
            statuses.push_back(status);
            ASSERT_EQ(batch->data.size(), 1u);
            times.push_back(batch->data[0]->m_time);
            EXPECT_EQ(batch->market + batch->instrument, key);
        }
        std::vector<std::string> keys;
        std::vector<int> statuses;
        std::vector<std::int64_t> times;
    } sink;
    feed::InstrumentDay day;
    day.detail.market = "SZ";
    day.detail.code = "000001";
    for (const std::int64_t time : {1000, 4000, 7000, 10000}) {
        feed::LadderRow row;
        row.time = time;
        day.ladders.push_back(row);
    }
    feed::ReplaySession session(day, sink);
    EXPECT_EQ(session.firstTime(), 1000);
    EXPECT_EQ(session.lastTime(), 10000);
    session.startAt(5000);
    EXPECT_EQ(sink.times, (std::vector<std::int64_t>{4000})) << "the latest";
    session.advanceTo(7000);
    EXPECT_FALSE(session.atEnd());
    session.playAll();
    EXPECT_TRUE(session.atEnd());
    EXPECT_EQ(sink.times, (std::vector<std::int64_t>{4000, 7000, 10000}));
    EXPECT_EQ(sink.statuses, (std::vector<int>{0, 1, 1}));
    EXPECT_EQ(sink.keys, (std::vector<std::string>(3, "SZ000001")));
}

} // namespace
