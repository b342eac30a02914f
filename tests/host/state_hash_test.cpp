// The figure of the engine's whole state.

#include "SmallDay.h"

#include "feed/simulation/SimulatedExchange.h"
#include "host/DayPlayer.h"

#include <gtest/gtest.h>

namespace {

using testing_support::SmallDay;

std::uint64_t hashAt(const feed::InstrumentDay& day, std::int64_t time)
{
    host::SteppedEngine engine;
    EXPECT_TRUE(engine.open(day.detail));
    const host::DayTimeline timeline(day);
    host::DayPlayer player(timeline, engine, {});
    player.playUntil(time);
    engine.recalculate();
    return host::stateHash(engine);
}

TEST(StateHash, IsTheSameForTheSameDayAndTime)
{
    for (const std::uint64_t seed : {1, 2, 3}) {
        feed::SimulationSettings settings = feed::shanghaiStock(seed);
        settings.orders = 1000;
        const feed::InstrumentDay day = feed::simulatedDay(settings);
        const feed::InstrumentDay again = feed::simulatedDay(settings);
        const std::int64_t time = day.snapshots[day.snapshots.size() / 2].time;
        EXPECT_EQ(hashAt(day, time), hashAt(again, time)) << "seed " << seed;
        EXPECT_NE(hashAt(day, time), hashAt(day, time + 3600000)) << "seed " << seed;
    }
}

TEST(StateHash, TellsOneShareAndOneNumberApart)
{
    SmallDay one;
    one.buy(1, 10.00, 300).sell(2, 10.01, 100).snapshot();
    SmallDay share = one;
    share.day.orders[0].volume = 301;
    SmallDay number = one;
    number.day.orders[0].number = 3;
    const std::uint64_t hash = hashAt(one.day, one.time());
    EXPECT_EQ(hash, hashAt(one.day, one.time()));
    EXPECT_NE(hash, hashAt(share.day, one.time()));
    EXPECT_NE(hash, hashAt(number.day, one.time()));
}

} // namespace
