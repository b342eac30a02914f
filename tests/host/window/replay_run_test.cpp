// Several days by one clock, and the real time that one call may take.

#include "host/window/ReplayRun.h"

#include "feed/replay/RecordingSink.h"
#include "host/SmallDay.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

namespace window_tests {
namespace {

using testing_support::RecordingSink;
using testing_support::SmallDay;

/// Takes records as slowly as a test says.
class SlowSink : public RecordingSink
{
public:
    explicit SlowSink(std::function<void()> work) : m_work(std::move(work)) {}
    void onOrders(const std::string& key, int seq, int status,
                  const Kel::MetaCacheDataWrapperPtr& batch) override
    {
        m_work();
        orders += batch->data.size();
        RecordingSink::onOrders(key, seq, status, batch);
    }
    std::size_t orders = 0;

private:
    std::function<void()> m_work;
};

/// An order each 10 ms from 09:30 on.
host::DayPtr steadyDay(int orders, double begin = 0)
{
    SmallDay small;
    for (int i = 0; i < orders; ++i)
        small.at(begin + i * 0.01).buy(i + 1, 10, 100);
    return std::make_shared<feed::InstrumentDay>(small.day);
}

bool always()
{
    return true;
}

class Run : public ::testing::Test
{
protected:
    void start(const std::vector<host::ReplayPart>& wanted, std::int64_t at)
    {
        host::ReplayStart moment;
        moment.at = at;
        run.start(wanted, moment);
    }

    /// Does a step on or back, as a player does; false if there is none.
    bool step(host::EStep kind, bool back, int part = 0, int count = 1)
    {
        host::ReplayStep wanted;
        wanted.kind = kind;
        wanted.back = back;
        wanted.part = part;
        wanted.count = count;
        if (!back)
            return run.step(wanted, always);
        const auto to = run.startBack(wanted);
        if (to)
            run.start(parts, *to);
        return to.has_value();
    }

    /// Small days in step with each other: an order of the first part each 10 ms, a deal of the second every
    /// 25 ms.
    void startTwo(std::int64_t at)
    {
        SmallDay deals;
        for (int i = 0; i < 100; ++i)
            deals.at(i * 0.025).deal(1, 2, 10, 100);
        parts = {{steadyDay(300), &first}, {std::make_shared<feed::InstrumentDay>(deals.day), &second}};
        start(parts, at);
    }

    std::vector<host::ReplayPart> parts;
    std::int64_t real = 1000;
    std::int64_t cost = 0; ///< real time of a batch of orders
    std::int64_t begin = steadyDay(1)->orders.front().time;
    SlowSink first{[this] { real += cost; }};
    SlowSink second{[this] { real += cost; }};
    host::ReplayRun run{[this] { return real; }};
};

TEST_F(Run, BringsAllPartsToTheSameMoment)
{
    start({{steadyDay(1000), &first}, {steadyDay(1000, 2), &second}}, begin + 995);
    EXPECT_EQ(first.orders, 100U);
    EXPECT_EQ(second.orders, 0U);
    run.setSpeed(10);
    run.advance(always);
    real += 200;
    run.advance(always);
    EXPECT_EQ(run.now(), begin + 2995);
    EXPECT_EQ(first.orders, 300U);
    EXPECT_EQ(second.orders, 100U);
    EXPECT_LE(first.latestTime(), run.now());
    EXPECT_LE(second.latestTime(), run.now());
}

TEST_F(Run, JumpsOnlyOverStretchesInWhichNoDayHasAnything)
{
    SmallDay gap; // from 10 to 100 seconds
    gap.at(10).buy(1, 10, 100).at(100).buy(2, 10, 100);
    const auto withGap = std::make_shared<feed::InstrumentDay>(gap.day);
    const auto goOn = [this] {
        run.setSpeed(1);
        run.advance(always);
        real += 2000;
        run.advance(always);
        return run.now();
    };
    start({{withGap, &first}}, begin + 10000);
    EXPECT_GE(goOn(), begin + 100000);
    start({{withGap, &first}, {steadyDay(12000), &second}}, begin + 10000);
    EXPECT_EQ(goOn(), begin + 12000);
}

TEST_F(Run, AStepBringsTheOtherPartsToTheSameMoment)
{
    startTwo(begin + 14);
    ASSERT_TRUE(step(host::EStep::eOrder, false));
    EXPECT_EQ(run.now(), begin + 20);
    EXPECT_EQ(first.orders, 3U);
    ASSERT_TRUE(step(host::EStep::eDeal, false, 1));
    EXPECT_EQ(run.now(), begin + 25);
    ASSERT_TRUE(step(host::EStep::eOrder, false, 0, 5));
    EXPECT_EQ(run.now(), begin + 70);
    EXPECT_EQ(second.latestTime(), begin + 50);
    EXPECT_FALSE(step(host::EStep::eSnapshot, false)) << "there is none";
    EXPECT_FALSE(step(host::EStep::eOrder, false, 2)) << "no such part";
    EXPECT_FALSE(step(host::EStep::eOrder, false, -1));
    EXPECT_EQ(run.now(), begin + 70);
}

TEST_F(Run, AStepBackBringsTheOtherPartsToTheSameMoment)
{
    startTwo(begin + 14);
    for (int i = 0; i < 6; ++i)
        ASSERT_TRUE(step(host::EStep::eOrder, false));
    EXPECT_EQ(run.now(), begin + 70);
    first.take();
    second.take();
    ASSERT_TRUE(step(host::EStep::eOrder, true, 0, 2));
    EXPECT_EQ(run.now(), begin + 50);
    RecordingSink expected;
    feed::ReplaySession session(*parts[1].day, expected);
    session.startAt(begin + 50);
    EXPECT_EQ(second.take(), expected.take());
    ASSERT_TRUE(step(host::EStep::eDeal, true, 1));
    EXPECT_EQ(run.now(), begin + 25);
    EXPECT_FALSE(step(host::EStep::eSnapshot, true));
    EXPECT_FALSE(step(host::EStep::eDeal, true, 2));
    EXPECT_EQ(run.now(), begin + 25);
}

TEST_F(Run, AStepBackWithinAMomentLeavesTheOtherPartsWhereTheyStand)
{
    SmallDay crowd; // four orders of one moment
    crowd.at(1).buy(1, 10, 100).buy(2, 10, 100).buy(3, 10, 100).buy(4, 10, 100);
    const auto day = std::make_shared<feed::InstrumentDay>(crowd.day);
    parts = {{day, &first}, {day, &second}};
    start(parts, begin);
    ASSERT_TRUE(step(host::EStep::eOrder, false, 0, 2));
    EXPECT_EQ(second.orders, 4U);
    start(parts, begin);
    ASSERT_TRUE(step(host::EStep::eOrder, false, 0, 3));
    first.take();
    second.orders = 0;
    ASSERT_TRUE(step(host::EStep::eOrder, true, 0));
    EXPECT_EQ(run.now(), begin + 1000);
    EXPECT_EQ(second.orders, 4U) << "the same again";
    ASSERT_TRUE(step(host::EStep::eOrder, true, 1, 2));
    second.orders = 0;
    first.orders = 0;
    ASSERT_TRUE(step(host::EStep::eOrder, true, 0));
    EXPECT_EQ(first.orders, 1U);
    EXPECT_EQ(second.orders, 2U) << "it stands amidst the moment as well";
}

TEST_F(Run, StepsOfSecondsEndAtTheEndsOfTheDays)
{
    startTwo(begin + 500);
    ASSERT_TRUE(step(host::EStep::eSecond, false, 0, 2));
    EXPECT_EQ(run.now(), begin + 2500);
    EXPECT_EQ(first.orders, 251U);
    ASSERT_TRUE(step(host::EStep::eSecond, false, 0, 5));
    EXPECT_EQ(run.now(), begin + 3000);
    EXPECT_FALSE(step(host::EStep::eSecond, false));
    ASSERT_TRUE(step(host::EStep::eSecond, true));
    EXPECT_EQ(run.now(), begin + 2000);
    ASSERT_TRUE(step(host::EStep::eSecond, true, 0, 60));
    EXPECT_EQ(run.now(), begin);
    EXPECT_FALSE(step(host::EStep::eSecond, true));
}

TEST_F(Run, PlaysOnFromWhereAStepEnded)
{
    startTwo(begin);
    run.setSpeed(1);
    run.advance(always);
    real += 15;
    ASSERT_TRUE(step(host::EStep::eOrder, false));
    EXPECT_EQ(run.now(), begin + 10);
    real += 1000;
    run.advance(always);
    real += 7;
    run.advance(always);
    EXPECT_EQ(run.now(), begin + 17);
}

TEST_F(Run, TellsItsLag)
{
    start({{steadyDay(40000), &first}}, begin);
    run.setSpeed(100);
    cost = 20; // for a batch of the ten orders of 100 ms, which are due each millisecond
    for (int i = 0; i < 50; ++i) {
        real += 1;
        run.advance(always);
    }
    EXPECT_GT(run.lag(), 0);
    EXPECT_LT(run.lag(), 100);
    run.pause();
    EXPECT_EQ(run.lag(), 0);
}

TEST_F(Run, IsAtItsEndWhenTheLastPartIs)
{
    start({{steadyDay(100), &first}, {steadyDay(300), &second}}, begin + 1000);
    EXPECT_FALSE(run.atEnd());
    EXPECT_EQ(run.end(), begin + 3000);
    run.setSpeed(0);
    run.advance(always);
    EXPECT_TRUE(run.atEnd());
}

TEST_F(Run, LeavesOutPartsWithoutADayOrASink)
{
    start({{nullptr, &first}, {steadyDay(10), nullptr}}, begin);
    EXPECT_FALSE(run.started());
    start({{nullptr, &first}, {steadyDay(10), &second}}, begin);
    EXPECT_TRUE(run.started());
    EXPECT_EQ(second.orders, 1U);
}

TEST_F(Run, TheClockWaitsForAMachineThatCannotKeepUp)
{
    start({{steadyDay(40000), &first}}, begin);
    run.setSpeed(1000);
    run.advance(always);
    cost = 5; // for 100 orders, which is what a live batch takes at most
    real += 100;
    run.advance(always);
    EXPECT_LT(run.now(), begin + 100000) << "not all that was due";
    EXPECT_GE(run.now(), begin + 5000) << "a portion";
    EXPECT_LT(real, 1400) << "and not much more than a portion";
    EXPECT_EQ(static_cast<std::int64_t>(first.orders), (run.now() - begin) / 10 + 1) << "nothing is left out";
    const std::int64_t reached = run.now();
    cost = 0;
    run.setSpeed(1);
    real += 10;
    run.advance(always);
    EXPECT_EQ(run.now(), reached + 10) << "the clock goes on from what was delivered";
}

TEST_F(Run, PortionsBecomeAsSmallAsTheMachineIsSlow)
{
    start({{steadyDay(40000), &first}}, begin);
    run.setSpeed(1000);
    cost = 5;
    std::int64_t longest = 0;
    for (int i = 0; i < 12; ++i) {
        const std::int64_t before = real;
        run.advance(always);
        if (i > 8)
            longest = std::max(longest, real - before);
        real += 1;
    }
    EXPECT_GT(longest, 0);
    EXPECT_LT(longest, 50) << "so that a pause is heard soon";
}

TEST_F(Run, APauseIsHeardAfterAPortion)
{
    start({{steadyDay(40000), &first}, {steadyDay(40000), &second}}, begin);
    run.setSpeed(1000);
    run.advance(always);
    real += 100;
    int looks = 0;
    run.advance([&looks] { return ++looks < 2; });
    EXPECT_EQ(looks, 2);
    EXPECT_LE(first.orders, 1520U) << "two portions";
    EXPECT_EQ(first.orders, second.orders);
    const std::int64_t reached = run.now();
    run.pause();
    real += 5000;
    run.setSpeed(1);
    run.advance(always);
    EXPECT_EQ(run.now(), reached) << "the clock stood still";
}

TEST_F(Run, GoesOnFromWhatWasDeliveredAfterAPause)
{
    start({{steadyDay(1000), &first}}, begin);
    run.setSpeed(10);
    run.advance(always);
    real += 15; // due, but not delivered yet
    run.pause();
    real += 1000;
    run.advance(always);
    EXPECT_EQ(run.now(), begin);
}

} // namespace
} // namespace window_tests
