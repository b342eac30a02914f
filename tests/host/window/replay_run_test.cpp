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
    std::int64_t real = 1000;
    std::int64_t cost = 0; ///< real time of a batch of orders
    std::int64_t begin = steadyDay(1)->orders.front().time;
    SlowSink first{[this] { real += cost; }};
    SlowSink second{[this] { real += cost; }};
    host::ReplayRun run{[this] { return real; }};
};

TEST_F(Run, BringsAllPartsToTheSameMoment)
{
    run.start({{steadyDay(1000), &first}, {steadyDay(1000, 2), &second}}, begin + 995);
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
    run.start({{withGap, &first}}, begin + 10000);
    EXPECT_GE(goOn(), begin + 100000);
    run.start({{withGap, &first}, {steadyDay(12000), &second}}, begin + 10000);
    EXPECT_EQ(goOn(), begin + 12000);
}

TEST_F(Run, IsAtItsEndWhenTheLastPartIs)
{
    run.start({{steadyDay(100), &first}, {steadyDay(300), &second}}, begin + 1000);
    EXPECT_FALSE(run.atEnd());
    EXPECT_EQ(run.end(), begin + 3000);
    run.setSpeed(0);
    run.advance(always);
    EXPECT_TRUE(run.atEnd());
}

TEST_F(Run, LeavesOutPartsWithoutADayOrASink)
{
    run.start({{nullptr, &first}, {steadyDay(10), nullptr}}, begin);
    EXPECT_FALSE(run.started());
    run.start({{nullptr, &first}, {steadyDay(10), &second}}, begin);
    EXPECT_TRUE(run.started());
    EXPECT_EQ(second.orders, 1U);
}

TEST_F(Run, TheClockWaitsForAMachineThatCannotKeepUp)
{
    run.start({{steadyDay(40000), &first}}, begin);
    run.setSpeed(1000);
    run.advance(always);
    cost = 5; // for 100 orders, which is what a live batch takes at most
    real += 100;
    run.advance(always);
    EXPECT_LT(run.now(), begin + 100000) << "not all that was due";
    EXPECT_GE(run.now(), begin + 10000) << "a portion";
    EXPECT_EQ(static_cast<std::int64_t>(first.orders), (run.now() - begin) / 10 + 1) << "nothing is left out";
    const std::int64_t reached = run.now();
    cost = 0;
    run.setSpeed(1);
    real += 10;
    run.advance(always);
    EXPECT_EQ(run.now(), reached + 10) << "the clock goes on from what was delivered";
}

TEST_F(Run, APauseIsHeardAfterAPortion)
{
    run.start({{steadyDay(40000), &first}, {steadyDay(40000), &second}}, begin);
    run.setSpeed(1000);
    run.advance(always);
    real += 100;
    int looks = 0;
    run.advance([&looks] { return ++looks < 2; });
    EXPECT_EQ(looks, 2);
    EXPECT_LE(first.orders, 2010U);
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
    run.start({{steadyDay(1000), &first}}, begin);
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
