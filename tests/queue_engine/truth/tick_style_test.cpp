// The engine against the true book of the simulated exchange, on random days with every order delivered.
//
// DEPTH_TRUTH_SEEDS=500 and DEPTH_TRUTH_FIRST_SEED=1000 run other days than those of CI.

#include "truth_driver.h"

#include "feed/simulation/Random.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

namespace {

using testing_support::TruthDriver;

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
    settings.deliverQueues = seed % 2 == 0;
    return settings;
}

TEST(TruthInTickStyle, EveryLevelsOrdersVolumesAndOrderAreExactOnceTheFeedIsQuiet)
{
    const std::uint64_t first = fromEnvironment("DEPTH_TRUTH_FIRST_SEED", 1);
    const std::uint64_t seeds = fromEnvironment("DEPTH_TRUTH_SEEDS", 50);
    int compared = 0;
    int priceless = 0;
    int separated = 0;
    for (std::uint64_t seed = first; seed < first + seeds; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        TruthDriver driver(randomDay(seed));
        feed::Random random(seed * 977);
        auto& exchange = driver.exchange();

        // History up to some moment from just after the first orders to the afternoon, then live slices.
        const int starts[] = {9 * 3600 + 15 * 60 + 20, 9 * 3600 + 40 * 60, 11 * 3600, 14 * 3600};
        const std::size_t batches[] = {150, 1000, 100000};
        driver.loadHistory(exchange.timeAt(starts[random.below(4)]), batches[random.below(3)]);
        driver.quiet(3);
        ASSERT_EQ(driver.differences(), "") << "after the history";
        ++compared;

        const std::int64_t end = exchange.timeAt(15 * 3600 + 60);
        std::int64_t now = exchange.now();
        while (now < end) {
            // Between two comparisons, slices of 100 ms to minutes, with a refresh tick after some of them.
            const std::int64_t until = std::min<std::int64_t>(end, now + 1000 + random.below(1800000));
            while (now < until) {
                now = std::min<std::int64_t>(until, now + 100 + random.below(60000));
                driver.live(now);
                if (random.below(3) == 0)
                    driver.quiet(1);
            }
            driver.quiet(3);
            ASSERT_EQ(driver.differences(), "")
                << "at " << (now - exchange.timeAt(0)) / 1000 << " s of the day";
            ++compared;
        }
        priceless += driver.pricelessOrders();
        separated += driver.separatedCancels();
    }
    std::cout << seeds << " days from seed " << first << ": " << compared << " comparisons, " << priceless
              << " orders without a price left out, " << separated
              << " cancels kept apart by a pass from a part deal of the same order\n";
}

} // namespace
