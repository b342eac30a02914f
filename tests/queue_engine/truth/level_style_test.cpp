// The engine against the simulated exchange where no orders are delivered: published queues, deals and
// snapshots only.

#include "truth_driver.h"

#include "feed/record_making.h"
#include "feed/simulation/Random.h"
#include "records/Tolerance.h"

#include <gtest/gtest.h>

#include <iostream>

namespace {

using testing_support::TruthDriver;

/// Published volumes in the order of the list's standing orders.
bool listsAll(const Kel::OrderList& orders, const std::vector<int>& published)
{
    std::size_t next = 0;
    for (const Kel::COrderVol& order : orders) {
        if (order.m_type == Kel::OQT_CANCELED || order.m_type == Kel::OQT_DEALT)
            continue;
        if (next < published.size() && Kel::truncateToInt(order.m_vol + 0.5) == published[next])
            ++next;
    }
    return next == published.size();
}

TEST(TruthInLevelStyle, TheRowsShowTheTrueTenLevelsAndTheBestListsHoldThePublishedQueues)
{
    int rowsCompared = 0;
    int queuesCompared = 0;
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        feed::SimulationSettings settings =
            feed::levelStyle(seed % 2 ? feed::shanghaiStock(seed) : feed::fund(seed));
        settings.orders = 3000;
        TruthDriver driver(settings);
        feed::Random random(seed);
        auto& exchange = driver.exchange();
        auto& engine = driver.engine();

        driver.live(exchange.timeAt(9 * 3600 + 31 * 60));
        const std::int64_t end = exchange.timeAt(14 * 3600 + 56 * 60);
        for (std::int64_t now = exchange.now(); now < end;) {
            // Up to a snapshot moment in continuous trading; nothing is newer than that snapshot.
            now += 3000 * (1 + random.below(200));
            driver.live(now);
            if (exchange.phase() != feed::Phase::Continuous)
                continue;
            const auto queue = feed::makeRecord(driver.lastQueue(), static_cast<double>(settings.volumeUnit));
            engine.quoterCallBack(0, 1, {queue});
            for (int side = 1; side <= 2; ++side) {
                const double price = side == 1 ? queue->bidPrice : queue->askPrice;
                const int key = Kel::priceKey(price, settings.detail.priceTick);
                const auto level = engine.m_orderQueues.value(side).value(key);
                const auto& published = side == 1 ? queue->bidVolumes : queue->askVolumes;
                if (key == 0 || published.empty())
                    continue;
                ASSERT_TRUE(level);
                EXPECT_TRUE(listsAll(level->m_orders, published)) << Kel::printLevel(*level).toStdString();
                EXPECT_EQ(level->m_count, side == 1 ? queue->bidCount : queue->askCount);
                ++queuesCompared;
            }

            // The snapshot of this moment becomes the newer source once the feed is quiet.
            const auto depth = engine.m_depthData.load();
            ASSERT_TRUE(depth);
            driver.quiet(25);
            engine.calcOrder();
            for (unsigned i = 0; i < 10; ++i) {
                const auto buy = engine.at(i, Kel::OQT_BUY);
                const auto sell = engine.at(i, Kel::OQT_SELL);
                ASSERT_TRUE(buy && sell);
                const auto index = static_cast<std::size_t>(i);
                EXPECT_EQ(buy->m_levelVol, static_cast<double>(depth->bidVolume[index])) << "buy row " << i;
                EXPECT_EQ(sell->m_levelVol, static_cast<double>(depth->askVolume[index])) << "sell row " << i;
                EXPECT_TRUE(Kel::isEqual(buy->m_price, depth->bidPrice[index])) << "buy row " << i;
                EXPECT_TRUE(Kel::isEqual(sell->m_price, depth->askPrice[index])) << "sell row " << i;
                ++rowsCompared;
            }
            if (HasFailure())
                return;
        }
    }
    EXPECT_GT(rowsCompared, 1000);
    EXPECT_GT(queuesCompared, 200);
    std::cout << rowsCompared << " rows a side and " << queuesCompared << " published queues compared\n";
}

} // namespace
