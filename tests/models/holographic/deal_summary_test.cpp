// What the chart's model stands on: sums of stretches of deals, seconds of snapshots.

#include "feed/simulation/Random.h"
#include "platform/models/DealSummary.h"
#include "platform/models/QuoteSeconds.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using namespace Kel;

namespace {

constexpr int kBlock = DealSummary::kBlock;

struct Row
{
    int lots;
    double price;
};

DealSums plainSums(const std::vector<Row>& rows, int first, int last)
{
    DealSums sums;
    for (int row = first; row <= last; ++row)
        sums.add(rows[static_cast<std::size_t>(row)].lots, rows[static_cast<std::size_t>(row)].price);
    return sums;
}

void expectSums(const DealSummary& summary, const std::vector<Row>& rows, int first, int last)
{
    const DealSums expected = plainSums(rows, first, last);
    const DealSums sums =
        summary.sums(first, last, [&](int from, int to) { return plainSums(rows, from, to); });
    ASSERT_EQ(sums.lots, expected.lots) << first << " to " << last;
    ASSERT_EQ(sums.deals, expected.deals) << first << " to " << last;
    ASSERT_EQ(sums.maxPrice, expected.maxPrice) << first << " to " << last;
    ASSERT_EQ(sums.minPrice, expected.minPrice) << first << " to " << last;
}

} // namespace

TEST(DealSummary, SumsEveryStretchAsOneAfterTheOtherDoes)
{
    const std::uint64_t seed = 4711;
    SCOPED_TRACE("seed " + std::to_string(seed));
    feed::Random random(seed);
    DealSummary summary;
    std::vector<Row> rows;
    for (int row = 0; row < 4 * kBlock + 17; ++row) {
        rows.push_back({int(random.below(1000)), 10 + 0.01 * random.below(500)});
        summary.append(rows.back().lots, rows.back().price);
    }
    ASSERT_EQ(summary.size(), static_cast<int>(rows.size()));
    const int last = summary.size() - 1;
    for (int first : {0, 1, kBlock - 1, kBlock, kBlock + 1, 2 * kBlock, last}) {
        for (int end : {0, kBlock - 2, kBlock - 1, kBlock, 2 * kBlock - 1, 3 * kBlock, 4 * kBlock - 1, last})
            expectSums(summary, rows, first, end);
    }
    for (int round = 0; round < 200; ++round)
        expectSums(summary, rows, static_cast<int>(random.below(rows.size())),
                   static_cast<int>(random.below(rows.size())));
}

TEST(DealSummary, ReadsNoMoreThanTheEndsOfAStretch)
{
    DealSummary summary;
    for (int row = 0; row < 100 * kBlock; ++row)
        summary.append(1, 10);
    int read = 0;
    const DealSums sums = summary.sums(1, 100 * kBlock - 2, [&](int from, int to) {
        read += to - from + 1;
        DealSums part;
        for (int row = from; row <= to; ++row)
            part.add(1, 10);
        return part;
    });
    EXPECT_EQ(sums.lots, 100 * kBlock - 2);
    EXPECT_EQ(read, 2 * (kBlock - 1));
}

TEST(DealSummary, ForgetsWholeBlocksOnly)
{
    DealSummary summary;
    for (int row = 0; row < 3 * kBlock; ++row)
        summary.append(row, 10);
    EXPECT_EQ(summary.truncate(3 * kBlock), 3 * kBlock);
    EXPECT_EQ(summary.truncate(2 * kBlock + 5), 2 * kBlock);
    summary.append(7, 12);
    const DealSums sums = summary.sums(2 * kBlock, 2 * kBlock, [](int, int) {
        DealSums part;
        part.add(7, 12);
        return part;
    });
    EXPECT_EQ(sums.lots, 7);
    EXPECT_EQ(summary.truncate(0), 0);
    EXPECT_EQ(summary.truncate(-1), 0);
}

TEST(DealSums, TakePricesBelowZeroAsTheyAre)
{
    DealSums sums;
    sums.add(1, -2);
    sums.add(1, -3);
    EXPECT_EQ(sums.maxPrice, -2);
    EXPECT_EQ(sums.minPrice, -3);
}

TEST(QuoteSeconds, AreKeptOnceAndInOrder)
{
    QuoteSeconds seconds;
    EXPECT_TRUE(seconds.isEmpty());
    const auto add = [&seconds](std::vector<std::int32_t> some) { return seconds.add(some); };
    EXPECT_TRUE(add({33, 30, 33}));
    EXPECT_FALSE(add({33}));
    EXPECT_TRUE(add({33, 27})) << "a late one";
    EXPECT_FALSE(add({27}));
    EXPECT_FALSE(add({}));
    EXPECT_EQ(seconds.around(31).begin, 30);
    EXPECT_EQ(seconds.around(31).end, 33);
    EXPECT_EQ(seconds.around(30).begin, 27) << "the closing second belongs to the interval";
    EXPECT_EQ(seconds.around(30).end, 30);
    EXPECT_EQ(seconds.around(1).begin, std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(seconds.around(1).end, 27);
    EXPECT_EQ(seconds.around(34).begin, 33);
    EXPECT_EQ(seconds.around(34).end, std::numeric_limits<std::int64_t>::max());
    seconds.clear();
    EXPECT_TRUE(seconds.isEmpty());
}
