// The player: two steps to a moment, playing, pausing, the end.

#include "host/window/ReplayPlayer.h"

#include "host/SmallDay.h"
#include "host/window/WindowFixture.h"
#include "host/window/day_moments.h"
#include "records/QuoterBase.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QThread>

#include <atomic>
#include <mutex>

namespace window_tests {
namespace {

/// Counts what arrives, and on which threads.
class Counter : public feed::FeedSink
{
public:
    void onOrders(const std::string&, int, int status, const Kel::MetaCacheDataWrapperPtr& batch) override
    {
        note(status);
        orders += static_cast<int>(batch->data.size());
    }
    void onDeals(const std::string&, int, int status, const Kel::MetaCacheDataWrapperPtr& batch) override
    {
        note(status);
        deals += static_cast<int>(batch->data.size());
    }
    void onQuotes(const std::string&, int, int, const quoter::QuoterBatch&) override {}

    std::atomic<int> orders{0};
    std::atomic<int> deals{0};
    std::atomic<int> calls{0};
    std::atomic<int> firsts{0}; ///< calls of status 0
    std::atomic<bool> onGuiThread{false};

private:
    void note(int status)
    {
        ++calls;
        firsts += status == 0;
        if (QThread::currentThread() == qApp->thread())
            onGuiThread = true;
    }
};

class Player : public ::testing::Test
{
protected:
    Player()
    {
        testing_support::SmallDay small;
        for (int i = 0; i < 100; ++i) {
            small.at(i).buy(2 * i + 1, 10, 100).sell(2 * i + 2, 11, 100);
        }
        start = small.day.orders.front().time;
        day = std::make_shared<feed::InstrumentDay>(small.day);
        QObject::connect(&player, &host::ReplayPlayer::halted, &player, [this](int number) {
            halts.push_back(number);
            if (answer)
                player.begin(number);
        });
        QObject::connect(&player, &host::ReplayPlayer::began, &player, [this] { ++begins; });
        QObject::connect(&player, &host::ReplayPlayer::ended, &player, [this] { ++ends; });
    }

    host::DayPtr day;
    std::int64_t start = 0;
    Counter counter;
    host::ReplayPlayer player{counter};
    std::vector<int> halts;
    int begins = 0;
    int ends = 0;
    bool answer = true;
};

TEST_F(Player, DeliversTheHistoryUpToTheMoment)
{
    player.open(day, start + 9500);
    EXPECT_EQ(player.now(), start + 9500) << "at once";
    ASSERT_TRUE(waitUntil([&] { return begins == 1; }));
    EXPECT_EQ(counter.orders, 20);
    EXPECT_FALSE(counter.onGuiThread);
    EXPECT_EQ(player.now(), start + 9500);
}

TEST_F(Player, DeliversNothingBeforeThePanelsAreEmpty)
{
    answer = false;
    player.play();
    player.open(day, start + 9500);
    ASSERT_TRUE(waitUntil([&] { return halts.size() == 1; }));
    letRun(60);
    EXPECT_EQ(counter.calls, 0);
    player.begin(halts.back());
    ASSERT_TRUE(waitUntil([&] { return begins == 1; }));
    EXPECT_GE(counter.orders, 20);
}

TEST_F(Player, AnOldNumberBeginsNothing)
{
    answer = false;
    player.open(day, start);
    ASSERT_TRUE(waitUntil([&] { return halts.size() == 1; }));
    player.seek(start + 5000);
    ASSERT_TRUE(waitUntil([&] { return halts.size() == 2; }));
    player.begin(halts[0]);
    letRun(60);
    EXPECT_EQ(counter.calls, 0);
    player.begin(halts[1]);
    ASSERT_TRUE(waitUntil([&] { return begins == 1; }));
    EXPECT_EQ(counter.orders, 12);
}

TEST_F(Player, GoesBackByTheHistoryUpToThere)
{
    player.open(day, start + 50000);
    ASSERT_TRUE(waitUntil([&] { return begins == 1; }));
    counter.orders = 0;
    counter.firsts = 0;
    player.seek(start + 3000);
    ASSERT_TRUE(waitUntil([&] { return begins == 2; }));
    EXPECT_EQ(counter.orders, 8);
    EXPECT_EQ(counter.firsts, 2) << "a reload of deals and of orders";
    EXPECT_EQ(player.now(), start + 3000);
}

TEST_F(Player, PlaysAndPauses)
{
    player.open(day, start);
    player.setSpeed(10);
    ASSERT_TRUE(waitUntil([&] { return begins == 1; }));
    letRun(60);
    EXPECT_EQ(player.now(), start) << "paused at first";
    player.play();
    EXPECT_TRUE(player.playing());
    ASSERT_TRUE(waitUntil([&] { return player.now() > start + 2000; }));
    player.pause();
    letRun(60);
    const std::int64_t paused = player.now();
    letRun(100);
    EXPECT_EQ(player.now(), paused);
    EXPECT_LT(paused, start + 99000);
}

TEST_F(Player, PausesAtTheEndOfTheDay)
{
    player.open(day, start + 90000);
    player.setSpeed(host::ReplayPlayer::kFast);
    player.play();
    ASSERT_TRUE(waitUntil([&] { return ends == 1; }));
    EXPECT_FALSE(player.playing());
    EXPECT_EQ(counter.orders, 200);
    EXPECT_GE(player.now(), start + 99000);
}

TEST_F(Player, StandsAtTheFullSecondAfterTheLastRecordAtTheEnd)
{
    auto longer = std::make_shared<feed::InstrumentDay>(*day);
    longer->orders.back().time += 250;
    player.open(longer, start + 98900);
    player.play();
    ASSERT_TRUE(waitUntil([&] { return ends == 1; }));
    EXPECT_EQ(player.now(), host::dayRange(*longer).end);
    EXPECT_EQ(player.now(), start + 100000);
}

TEST_F(Player, PlaysOnAfterASeekWhilePlaying)
{
    player.open(day, start);
    player.setSpeed(100);
    player.play();
    ASSERT_TRUE(waitUntil([&] { return player.now() > start + 1000; }));
    player.seek(start + 50000);
    EXPECT_GE(player.now(), start + 50000);
    ASSERT_TRUE(waitUntil([&] { return player.now() > start + 51000; }));
}

TEST_F(Player, SeeksNothingWithoutADay)
{
    player.seek(start);
    player.play();
    letRun(60);
    EXPECT_TRUE(halts.empty());
}

TEST_F(Player, PlaysSeveralDaysByOneClock)
{
    testing_support::SmallDay later;
    for (int i = 0; i < 10; ++i)
        later.at(60 + i).buy(i + 1, 10, 100);
    Counter second;
    player.open({{day, &counter}, {std::make_shared<feed::InstrumentDay>(later.day), &second}},
                start + 64500);
    ASSERT_TRUE(waitUntil([&] { return begins == 1; }));
    EXPECT_EQ(counter.orders, 130);
    EXPECT_EQ(second.orders, 5);
    player.seek(start + 30000);
    counter.orders = 0;
    second.orders = 0;
    ASSERT_TRUE(waitUntil([&] { return begins == 2; }));
    EXPECT_EQ(counter.orders, 62);
    EXPECT_EQ(second.orders, 0);
    player.setSpeed(host::ReplayPlayer::kFast);
    player.play();
    ASSERT_TRUE(waitUntil([&] { return ends == 1; }));
    EXPECT_EQ(counter.orders, 200);
    EXPECT_EQ(second.orders, 10);
    EXPECT_EQ(player.now(), start + 99000) << "the end of the day that ends last";
}

TEST_F(Player, StepsOnAndBackToTheSameState)
{
    int done = 0;
    int refused = 0;
    QObject::connect(&player, &host::ReplayPlayer::stepped, &player,
                     [&](bool yes) { ++(yes ? done : refused); });
    player.open(day, start + 9500);
    player.play();
    player.step(host::EStep::eOrder, false);
    EXPECT_FALSE(player.playing()) << "a step pauses";
    ASSERT_TRUE(waitUntil([&] { return done == 1; }));
    const std::int64_t reached = player.now();
    const int orders = counter.orders;
    player.step(host::EStep::eOrder, false);
    ASSERT_TRUE(waitUntil([&] { return done == 2; }));
    EXPECT_EQ(counter.orders, orders + 1);
    const int begun = begins;
    counter.orders = 0;
    player.step(host::EStep::eOrder, true);
    ASSERT_TRUE(waitUntil([&] { return done == 3; }));
    EXPECT_EQ(begins, begun + 1) << "by a reload, like a seek";
    EXPECT_EQ(counter.orders, orders);
    EXPECT_EQ(player.now(), reached);
    player.step(host::EStep::eDeal, true);
    player.step(host::EStep::eSnapshot, false);
    ASSERT_TRUE(waitUntil([&] { return refused == 2; }));
    EXPECT_EQ(begins, begun + 1) << "nothing has changed";
    EXPECT_EQ(counter.orders, orders);
    EXPECT_EQ(player.now(), reached);
}

TEST_F(Player, DoesStepsThatWaitInOne)
{
    answer = false;
    int done = 0;
    QObject::connect(&player, &host::ReplayPlayer::stepped, &player, [&](bool) { ++done; });
    player.open(day, start + 9500);
    player.step(host::EStep::eOrder, false);
    player.step(host::EStep::eOrder, false, 0, 3);
    player.step(host::EStep::eSecond, false, 0, 2);
    ASSERT_TRUE(waitUntil([&] { return halts.size() == 1; }));
    EXPECT_EQ(counter.orders, 0);
    player.begin(halts.back());
    ASSERT_TRUE(waitUntil([&] { return done == 2; }));
    EXPECT_EQ(counter.orders, 20 + 4 + 4);
    EXPECT_EQ(player.now(), start + 13000);
}

TEST_F(Player, ASeekMakesStepsVoid)
{
    answer = false;
    int done = 0;
    QObject::connect(&player, &host::ReplayPlayer::stepped, &player, [&](bool) { ++done; });
    player.open(day, start + 9500);
    player.step(host::EStep::eOrder, false);
    player.seek(start + 5000);
    answer = true;
    ASSERT_TRUE(waitUntil([&] { return begins == 1; }));
    letRun(30);
    EXPECT_EQ(done, 0);
    EXPECT_EQ(player.now(), start + 5000);
}

TEST_F(Player, PlaysOnWhenItIsToldToAfterAStepBack)
{
    player.open(day, start + 50000);
    player.setSpeed(100);
    player.step(host::EStep::eSecond, true, 0, 10);
    player.play();
    ASSERT_TRUE(waitUntil([&] { return begins == 2 && player.now() > start + 41000; }));
    EXPECT_LT(player.now(), start + 99000);
}

TEST(PlayerLag, TellsWhatIsReachedWhenTheReceiverIsSlow)
{
    class Slow : public Counter
    {
    public:
        void onOrders(const std::string& key, int seq, int status,
                      const Kel::MetaCacheDataWrapperPtr& batch) override
        {
            if (status == 1)
                QThread::msleep(5);
            Counter::onOrders(key, seq, status, batch);
        }
    };
    testing_support::SmallDay small;
    for (int i = 0; i < 3600; ++i)
        small.at(i).buy(i + 1, 10, 100);
    Slow slow;
    host::ReplayPlayer player(slow);
    QObject::connect(&player, &host::ReplayPlayer::halted, &player,
                     [&player](int number) { player.begin(number); });
    std::vector<double> told;
    QObject::connect(&player, &host::ReplayPlayer::lagging, &player,
                     [&told](double speed) { told.push_back(speed); });
    player.open(std::make_shared<feed::InstrumentDay>(small.day), small.day.orders.front().time);
    player.setSpeed(1000); // an order each millisecond, which the receiver takes five times as long for
    player.play();
    ASSERT_TRUE(waitUntil([&] { return !told.empty(); }));
    EXPECT_GT(told.front(), 0);
    EXPECT_LT(told.front(), 500);
    player.pause();
    ASSERT_TRUE(waitUntil([&] { return told.back() == 0; })) << "what stands still does not lag";
    EXPECT_EQ(player.lag(), 0);
    EXPECT_EQ((player.now() - small.day.orders.front().time) / 1000 + 1, slow.orders)
        << "the clock claims no more than was delivered";
}

TEST_F(Player, TakesOtherDaysInPlaceOfThoseBefore)
{
    Counter second;
    player.open({{day, &counter}, {day, &second}}, start + 9500);
    ASSERT_TRUE(waitUntil([&] { return begins == 1; }));
    const int calls = counter.calls;
    player.open(std::vector<host::ReplayPart>{{day, &second}}, start + 20500);
    ASSERT_TRUE(waitUntil([&] { return begins == 2; }));
    EXPECT_EQ(counter.calls, calls);
    EXPECT_EQ(second.orders, 20 + 42);
}

TEST(PlayerEnd, StopsWhilePlaying)
{
    testing_support::SmallDay small;
    for (int i = 0; i < 1000; ++i)
        small.at(i).buy(i + 1, 10, 100);
    Counter counter;
    {
        host::ReplayPlayer player(counter);
        QObject::connect(&player, &host::ReplayPlayer::halted, &player,
                         [&player](int number) { player.begin(number); });
        player.open(std::make_shared<feed::InstrumentDay>(small.day), small.day.orders.front().time);
        player.setSpeed(100);
        player.play();
        ASSERT_TRUE(waitUntil([&] { return counter.orders > 10; }));
    }
    const int delivered = counter.orders;
    letRun(50);
    EXPECT_EQ(counter.orders, delivered);
}

} // namespace
} // namespace window_tests
