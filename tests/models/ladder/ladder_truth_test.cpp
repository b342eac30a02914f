// The rebuilt ladder against the true book of the simulated exchange at random moments: price by price, count
// by count, order by order, with orders and deals that come in either order, late and sometimes twice.
//
// DEPTH_TRUTH_SEEDS=500 and DEPTH_TRUTH_FIRST_SEED=1000 run other days than those of CI.

#include "LadderFeed.h"
#include "feed/record_making.h"
#include "feed/simulation/Random.h"
#include "feed/simulation/SimulatedExchange.h"
#include "platform/models/tick_values.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <map>

namespace {

using namespace testing_support;

std::uint64_t fromEnvironment(const char* name, std::uint64_t otherwise)
{
    const char* text = std::getenv(name);
    return text ? std::strtoull(text, nullptr, 10) : otherwise;
}

feed::SimulationSettings randomDay(std::uint64_t seed)
{
    using Maker = feed::SimulationSettings (*)(std::uint64_t);
    static const Maker kMakers[] = {feed::shanghaiStock, feed::shenzhenStock,   feed::growthBoardStock,
                                    feed::fund,          feed::convertibleBond, feed::repurchase};
    feed::SimulationSettings settings = kMakers[seed % 6](seed);
    settings.orders = 2500;
    settings.deliverQueues = false;
    return settings;
}

/// Rows on their way: each channel lags behind by its own.
struct Channels : feed::RowSink
{
    std::vector<feed::OrderRow> orders;
    std::vector<feed::DealRow> deals;
    feed::DealRow newestDeal;
    std::map<std::int64_t, std::int64_t> orderTimes;
    void onOrder(const feed::OrderRow& row) override
    {
        orders.push_back(row);
        orderTimes[row.number] = row.time;
    }
    void onDeal(const feed::DealRow& row) override
    {
        deals.push_back(row);
        if (row.kind != quoter::eTransactionCancel)
            newestDeal = row;
    }
    void onSnapshot(const feed::SnapshotRow&) override {}
    void onQueue(const feed::QueueRow&) override {}
};

class LadderDriver
{
public:
    explicit LadderDriver(const feed::SimulationSettings& settings)
        : m_exchange(settings), m_random(settings.seed * 31)
    {
        const auto detail = boost::make_shared<nelservice::CInstrumentDetail>(m_exchange.settings().detail);
        utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(detail);
        m_market = detail->market;
        m_code = detail->code;
        for (auto* model : {&m_full, &m_short})
            model->setStock(QString::fromStdString(m_market + m_code));
    }

    feed::SimulatedExchange& exchange() { return m_exchange; }

    /// Everything up to `time` as history, in batches of random size, the two channels in random order.
    void load(std::int64_t time)
    {
        m_exchange.runUntil(time, m_channels);
        const bool dealsFirst = m_random.chance(0.5);
        for (const bool first : {true, false}) {
            if (first == dealsFirst)
                send(m_channels.deals, 0, m_channels.deals.size());
            else
                send(m_channels.orders, 0, m_channels.orders.size());
        }
    }

    /// Lets the exchange run to `time`; each channel delivers what is older than its lag of up to 40 s.
    void run(std::int64_t time)
    {
        m_exchange.runUntil(time, m_channels);
        deliver(m_channels.orders, time - m_random.below(40000));
        deliver(m_channels.deals, time - m_random.below(40000));
    }

    /// Delivers what is on its way.
    void drain()
    {
        deliver(m_channels.orders, std::numeric_limits<std::int64_t>::max());
        deliver(m_channels.deals, std::numeric_limits<std::int64_t>::max());
    }

    /// Asks both models, as a panel does.
    void ask()
    {
        m_fullAnswer.ask(m_full);
        m_shortAnswer.ask(m_short, true);
    }

    /// Empty if rows and orders are the true ones; otherwise the first that is not.
    std::string difference()
    {
        ask();
        std::string text = sideDifference(feed::Side::Buy) + sideDifference(feed::Side::Sell);
        if (m_channels.newestDeal.price > 0 && m_fullAnswer.latest != m_channels.newestDeal.price)
            text += "latest " + std::to_string(m_fullAnswer.latest);
        const int unit = static_cast<int>(m_exchange.settings().volumeUnit);
        if (m_channels.newestDeal.price > 0 &&
            m_fullAnswer.lastVolume != Kel::lotsFromShares(m_channels.newestDeal.volume, unit))
            text += "last volume " + std::to_string(m_fullAnswer.lastVolume);
        return text;
    }

    int orders = 0;
    int levels = 0;

private:
    template <class Row>
    void send(std::vector<Row>& rows, int status, std::size_t count)
    {
        std::size_t from = 0;
        do {
            const std::size_t size = std::min<std::size_t>(count - from, 1 + m_random.below(3000));
            const auto batch = batchOf(make(rows.data() + from, size), m_market, m_code);
            // A quote service may repeat itself.
            for (int times = status != 0 && m_random.below(5) == 0 ? 2 : 1; times > 0; --times) {
                for (auto* model : {&m_full, &m_short})
                    give(*model, status, batch, rows.data());
            }
            from += size;
            status = status == 0 ? 3 : status;
        } while (from < count);
        rows.erase(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(count));
    }

    template <class Row>
    void deliver(std::vector<Row>& rows, std::int64_t until)
    {
        const auto end =
            std::find_if(rows.begin(), rows.end(), [until](const Row& row) { return row.time > until; });
        const auto count = static_cast<std::size_t>(end - rows.begin());
        // Within what is delivered the order of the sequence is lost now and then.
        if (m_random.chance(0.3))
            std::reverse(rows.begin(), end);
        if (count > 0)
            send(rows, 1 + static_cast<int>(m_random.below(2)), count);
    }

    static quoter::QuoterBatch make(const feed::OrderRow* rows, std::size_t count)
    {
        return feed::makeOrderBatch(rows, count);
    }
    static quoter::QuoterBatch make(const feed::DealRow* rows, std::size_t count)
    {
        return feed::makeDealBatch(rows, count);
    }
    static void give(Kel::CModelDepthThousand& model, int status, const Kel::MetaCacheDataWrapperPtr& batch,
                     const feed::OrderRow*)
    {
        model.entrustCallback(0, status, batch);
    }
    static void give(Kel::CModelDepthThousand& model, int status, const Kel::MetaCacheDataWrapperPtr& batch,
                     const feed::DealRow*)
    {
        model.transactionCallback(0, status, batch);
    }

    struct TrueRow
    {
        double price;
        std::vector<feed::TrueOrder> orders;
        std::int64_t volume = 0;
    };

    /// The true levels, best first, without the orders whose records have no price.
    std::vector<TrueRow> trueRows(feed::Side side) const
    {
        std::vector<TrueRow> result;
        for (const feed::TrueLevel& level : m_exchange.book().levels(side, std::numeric_limits<int>::max())) {
            TrueRow row{level.price, {}};
            for (const feed::TrueOrder& order : m_exchange.book().orders(side, level.price)) {
                if (order.priceless)
                    continue;
                row.orders.push_back(order);
                row.volume += order.remaining;
            }
            if (!row.orders.empty())
                result.push_back(row);
        }
        return result;
    }

    std::string sideDifference(feed::Side side)
    {
        const bool isBuy = side == feed::Side::Buy;
        const std::vector<TrueRow> rows = trueRows(side);
        std::string text = rowsDifference(rows, isBuy ? m_fullAnswer.buys : m_fullAnswer.sells, isBuy, 1000) +
                           rowsDifference(rows, isBuy ? m_shortAnswer.buys : m_shortAnswer.sells, isBuy, 10);
        for (const TrueRow& row : rows) {
            std::ostringstream expected;
            for (const feed::TrueOrder& order : row.orders)
                expected << ' ' << order.number << 'x' << order.original << '-' << order.dealt << '@'
                         << m_channels.orderTimes[order.number] << (order.dealt > 0 ? " part" : " new");
            std::ostringstream actual;
            const auto queue = m_full.getQueue(isBuy, row.price);
            std::map<long long, std::shared_ptr<Kel::SingleQuote>> quotes;
            if (queue)
                queue->getQuotes(quotes);
            for (const auto& [number, quote] : quotes)
                actual << ' ' << number << 'x' << quote->volume << '-' << quote->dealtVolume << '@'
                       << quote->time
                       << (quote->state == 2   ? " part"
                           : quote->state == 1 ? " new"
                                               : " other");
            if (expected.str() != actual.str() || queue->totalVolume != row.volume ||
                queue->orderCount != static_cast<int>(row.orders.size()))
                text +=
                    std::to_string(row.price) + " true:" + expected.str() + " rebuilt:" + actual.str() + "\n";
            orders += static_cast<int>(row.orders.size());
            ++levels;
        }
        return text;
    }

    std::string rowsDifference(const std::vector<TrueRow>& rows, const Answer::Rows& shown, bool isBuy,
                               std::size_t most) const
    {
        const std::size_t count = std::min(rows.size(), most);
        if (shown.size() != count)
            return std::to_string(shown.size()) + " rows instead of " + std::to_string(count) + "\n";
        for (std::size_t i = 0; i < count; ++i) {
            const Kel::EntrustData& row = *shown[isBuy ? count - 1 - i : i];
            if (std::abs(row.price - rows[i].price) > 1e-6 ||
                row.volume !=
                    Kel::lotsFromShares(rows[i].volume, static_cast<int>(m_exchange.settings().volumeUnit)) ||
                row.orderCount != static_cast<int>(rows[i].orders.size()))
                return "row " + std::to_string(i) + " of " + (isBuy ? "buys " : "sells ") +
                       std::to_string(row.price) + " " + std::to_string(row.volume) + "\n";
        }
        return {};
    }

    feed::SimulatedExchange m_exchange;
    feed::Random m_random;
    Channels m_channels;
    std::string m_market;
    std::string m_code;
    Kel::CModelDepthThousand m_full{0, -1};
    Kel::CModelDepthThousand m_short{0, -1};
    Answer m_fullAnswer;
    Answer m_shortAnswer;
};

TEST(LadderTruth, EveryPriceCountAndOrderIsTheTrueOneAtRandomMoments)
{
    const std::uint64_t first = fromEnvironment("DEPTH_TRUTH_FIRST_SEED", 1);
    const std::uint64_t seeds = fromEnvironment("DEPTH_TRUTH_SEEDS", 24);
    int compared = 0;
    int orders = 0;
    int levels = 0;
    for (std::uint64_t seed = first; seed < first + seeds; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        LadderDriver driver(randomDay(seed));
        feed::Random random(seed * 977);
        auto& exchange = driver.exchange();
        const int starts[] = {9 * 3600 + 14 * 60, 9 * 3600 + 20 * 60, 9 * 3600 + 40 * 60, 14 * 3600};
        driver.load(exchange.timeAt(starts[random.below(4)]));
        ASSERT_EQ(driver.difference(), "") << "after the history";
        const std::int64_t end = exchange.timeAt(15 * 3600 + 60);
        std::int64_t now = exchange.now();
        while (now < end) {
            const std::int64_t until = std::min<std::int64_t>(end, now + 1000 + random.below(1800000));
            while (now < until) {
                now = std::min<std::int64_t>(until, now + 100 + random.below(60000));
                driver.run(now);
                if (random.below(3) != 0)
                    driver.ask();
            }
            driver.drain();
            ASSERT_EQ(driver.difference(), "")
                << "at " << (now - exchange.timeAt(0)) / 1000 << " s of the day";
            ++compared;
        }
        orders += driver.orders;
        levels += driver.levels;
    }
    std::cout << seeds << " days from seed " << first << ": " << compared << " comparisons of " << levels
              << " levels and " << orders << " orders\n";
    EXPECT_GT(orders, 0);
}

} // namespace
