// What reaches the engine, in which order.

#include "SmallDay.h"

#include "host/DayPlayer.h"

#include <gtest/gtest.h>

namespace {

using testing_support::SmallDay;

std::string listed(const host::SteppedEngine& engine, Kel::EOrderQueueType side, int key)
{
    const Kel::OrderQueueDataPtr level = engine.level(side, key);
    std::string text;
    if (!level)
        return "no level";
    for (const Kel::COrderVol& order : level->m_orders)
        text += (text.empty() ? "" : " ") + std::to_string(order.m_entrustNo) + "x" +
                std::to_string(static_cast<int>(order.m_vol * engine.volumeUnit()));
    return text;
}

struct Playing
{
    explicit Playing(const SmallDay& small, host::DayPlayer::Options options = {}) : timeline(small.day)
    {
        EXPECT_TRUE(engine.open(small.day.detail));
        player = std::make_unique<host::DayPlayer>(timeline, engine, options);
    }
    void all()
    {
        while (player->step()) {
        }
        player->quiet(3);
    }

    host::SteppedEngine engine;
    host::DayTimeline timeline;
    std::unique_ptr<host::DayPlayer> player;
};

TEST(DayPlayer, OrdersAndTheirDealsOfOneSliceLeaveTheRests)
{
    SmallDay small;
    small.buy(1, 10.00, 300).snapshot().at(1).buy(2, 10.00, 200).sell(3, 10.00, 400).deal(1, 3, 10.00, 300);
    small.deal(2, 3, 10.00, 100);
    Playing playing(small);
    playing.all();
    EXPECT_EQ(listed(playing.engine, Kel::OQT_BUY, 1000), "2x100");
}

TEST(DayPlayer, AnOrderDealtInPartAndCancelledWithinOneSliceIsGone)
{
    SmallDay small;
    small.buy(1, 10.00, 300).buy(2, 10.00, 100).sell(9, 10.05, 100).snapshot();
    small.at(1.0).sell(3, 10.00, 100).deal(1, 3, 10.00, 100).cancelBuy(1, 200);
    Playing playing(small);
    playing.all();
    EXPECT_EQ(listed(playing.engine, Kel::OQT_BUY, 1000), "2x100");
    EXPECT_TRUE(playing.player->keptRests().empty());
}

TEST(DayPlayer, WithAFixedIntervalTheDealtLotsOfSuchAnOrderStayAndItsNumberIsTold)
{
    SmallDay small;
    small.buy(1, 10.00, 300).buy(2, 10.00, 100).sell(9, 10.05, 100).snapshot();
    small.at(1.0).sell(3, 10.00, 100).deal(1, 3, 10.00, 100).cancelBuy(1, 200);
    host::DayPlayer::Options options;
    options.tickBeforeCancel = false;
    Playing playing(small, options);
    playing.all();
    EXPECT_EQ(listed(playing.engine, Kel::OQT_BUY, 1000), "1x100 2x100");
    EXPECT_EQ(playing.player->keptRests().count(1), 1u);
}

TEST(DayPlayer, AFirstOrderThatIsCancelledAtOnceDoesNotOpenTheDayForPublishedQueues)
{
    SmallDay small;
    small.buy(1, 10.00, 300).cancelBuy(1, 300).at(1).buy(2, 10.00, 700).sell(3, 10.01, 100).snapshot();
    small.queue(10.00, {100, 100}, 10.01, {100});
    Playing playing(small);
    playing.all();
    EXPECT_EQ(listed(playing.engine, Kel::OQT_BUY, 1000), "2x700");
}

TEST(DayPlayer, ADayWithoutOrdersTakesPublishedQueues)
{
    SmallDay small;
    small.deal(1, 2, 10.00, 100).queue(10.00, {300, 100}, 10.01, {200});
    Playing playing(small);
    playing.all();
    EXPECT_EQ(listed(playing.engine, Kel::OQT_BUY, 1000), "0x300 0x100");
}

TEST(DayPlayer, MoreOrdersThanALiveBatchHoldsAllEnterTheLists)
{
    SmallDay small;
    small.buy(1, 10.00, 100).at(1);
    for (int number = 2; number <= 351; ++number)
        small.buy(number, 9.99, 100);
    Playing playing(small);
    playing.all();
    const auto levels = playing.engine.levels(Kel::OQT_BUY, 10);
    ASSERT_EQ(levels.size(), 2u);
    EXPECT_EQ(levels[1].orders, 350);
}

TEST(DayPlayer, NothingLaterThanTheMomentIsPlayed)
{
    SmallDay small;
    small.at(1).buy(1, 10.00, 100).at(2).buy(2, 10.00, 100).at(2.001).buy(3, 10.00, 100);
    const std::int64_t moment = small.time() - 1;
    Playing playing(small);
    playing.player->playUntil(moment);
    EXPECT_EQ(playing.player->played(), 2u);
    EXPECT_EQ(listed(playing.engine, Kel::OQT_BUY, 1000), "1x100 2x100");
    EXPECT_EQ(playing.player->now(), moment);
    EXPECT_EQ(playing.player->nextTime(), small.time());
    playing.player->playUntil(moment - 1000);
    EXPECT_EQ(playing.player->played(), 2u);
}

} // namespace
