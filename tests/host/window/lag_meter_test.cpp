// What a replay tells about keeping up with its speed.

#include "host/window/LagMeter.h"

#include <gtest/gtest.h>

namespace window_tests {
namespace {

/// So many calls, each after `realMs` with `playedMs` played.
void note(host::LagMeter& meter, std::int64_t& real, int calls, std::int64_t realMs, std::int64_t playedMs,
          double speed)
{
    for (int i = 0; i < calls; ++i) {
        real += realMs;
        meter.note(real, playedMs, speed);
    }
}

TEST(LagMeter, IsZeroWhileTheReplayKeepsUp)
{
    host::LagMeter meter;
    std::int64_t real = 5000;
    note(meter, real, 200, 20, 20 * 60, 60);
    EXPECT_EQ(meter.lag(), 0);
    note(meter, real, 200, 20, 20 * 55, 60);
    EXPECT_EQ(meter.lag(), 0) << "a little less is a portion under way";
}

TEST(LagMeter, TellsTheSpeedThatIsReached)
{
    host::LagMeter meter;
    std::int64_t real = 0;
    note(meter, real, 100, 20, 20 * 412, 1000);
    EXPECT_DOUBLE_EQ(meter.lag(), 412);
}

TEST(LagMeter, KnowsNothingBeforeASecondIsOver)
{
    host::LagMeter meter;
    std::int64_t real = 0;
    note(meter, real, 50, 20, 20, 1000);
    EXPECT_EQ(meter.lag(), 0);
    note(meter, real, 1, 20, 20, 1000);
    EXPECT_DOUBLE_EQ(meter.lag(), 1);
}

TEST(LagMeter, LooksAtTheLastSecondOnly)
{
    host::LagMeter meter;
    std::int64_t real = 0;
    note(meter, real, 100, 20, 0, 10);
    EXPECT_GT(meter.lag(), 0) << "even if nothing goes on";
    EXPECT_LT(meter.lag(), 0.1);
    note(meter, real, 25, 20, 200, 10);
    EXPECT_DOUBLE_EQ(meter.lag(), 5);
    note(meter, real, 25, 20, 200, 10);
    EXPECT_EQ(meter.lag(), 0);
}

TEST(LagMeter, BeginsAnewWithAnotherSpeedAndAfterAReset)
{
    host::LagMeter meter;
    std::int64_t real = 0;
    note(meter, real, 100, 20, 20, 10);
    ASSERT_GT(meter.lag(), 0);
    note(meter, real, 1, 20, 20, 20);
    EXPECT_EQ(meter.lag(), 0);
    note(meter, real, 60, 20, 20, 20);
    ASSERT_GT(meter.lag(), 0);
    meter.reset();
    EXPECT_EQ(meter.lag(), 0);
    note(meter, real, 50, 20, 20, 20);
    EXPECT_EQ(meter.lag(), 0);
}

TEST(LagMeter, AsFastAsPossibleNeverLags)
{
    host::LagMeter meter;
    std::int64_t real = 0;
    note(meter, real, 100, 20, 1, 0);
    EXPECT_EQ(meter.lag(), 0);
}

} // namespace
} // namespace window_tests
