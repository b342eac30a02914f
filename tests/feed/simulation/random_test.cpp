#include "feed/simulation/Random.h"
#include "feed/simulation/TickSet.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace feed::test {
namespace {

TEST(PortableLog, AgreesWithTheLibraryOverTheWholeRange)
{
    for (double x = 1e-300; x < 1e300; x *= 1.37)
        EXPECT_NEAR(portableLog(x), std::log(x), 1e-13 * std::max(1.0, std::fabs(std::log(x)))) << x;
    EXPECT_EQ(portableLog(1), 0);
}

TEST(PortableExp, AgreesWithTheLibraryAndClampsItsArgument)
{
    for (double x = -600; x < 600; x += 0.73)
        EXPECT_NEAR(portableExp(x) / std::exp(x), 1, 1e-13) << x;
    EXPECT_EQ(portableExp(0), 1);
    EXPECT_EQ(portableExp(1e9), portableExp(700));
    EXPECT_EQ(portableExp(-1e9), portableExp(-700));
}

TEST(Random, SameSeedGivesTheSameNumbersAndAnotherSeedOthers)
{
    Random first(7);
    Random second(7);
    Random other(8);
    int same = 0;
    for (int i = 0; i < 1000; ++i) {
        const std::uint64_t number = first.next();
        EXPECT_EQ(number, second.next());
        same += number == other.next() ? 1 : 0;
    }
    EXPECT_EQ(same, 0);
}

TEST(Random, DistributionsHaveTheirMeanAndSpread)
{
    Random random(3);
    const int count = 200000;
    double units = 0;
    double waits = 0;
    double normals = 0;
    double squares = 0;
    int beyondTen = 0;
    int beyondHundred = 0;
    for (int i = 0; i < count; ++i) {
        const double unit = random.unit();
        ASSERT_GT(unit, 0);
        ASSERT_LT(unit, 1);
        units += unit;
        waits += random.exponential();
        const double normal = random.normal();
        normals += normal;
        squares += normal * normal;
        const double size = random.pareto(1.0);
        ASSERT_GE(size, 1);
        beyondTen += size > 10 ? 1 : 0;
        beyondHundred += size > 100 ? 1 : 0;
    }
    EXPECT_NEAR(units / count, 0.5, 0.005);
    EXPECT_NEAR(waits / count, 1, 0.02);
    EXPECT_NEAR(normals / count, 0, 0.02);
    EXPECT_NEAR(squares / count, 1, 0.02);
    EXPECT_NEAR(beyondTen / double(count), 0.1, 0.005);
    EXPECT_NEAR(beyondHundred / double(count), 0.01, 0.002);
}

TEST(Random, BelowCoversItsRangeEvenlyAndNothingElse)
{
    Random random(11);
    int seen[7] = {};
    for (int i = 0; i < 70000; ++i) {
        const std::uint32_t number = random.below(7);
        ASSERT_LT(number, 7u);
        ++seen[number];
    }
    for (const int count : seen)
        EXPECT_NEAR(count, 10000, 500);
    EXPECT_EQ(random.below(0), 0u);
    EXPECT_EQ(random.below(1), 0u);
}

TEST(TickSet, FindsTheSameNeighboursAsAnOrderedSet)
{
    for (const std::size_t size : {1u, 63u, 64u, 65u, 4096u, 300000u}) {
        SCOPED_TRACE(size);
        TickSet set(size);
        std::set<int> plain;
        Random random(size);
        for (int i = 0; i < 4000; ++i) {
            const auto number = static_cast<int>(random.below(static_cast<std::uint32_t>(size)));
            if (random.chance(0.5)) {
                set.insert(static_cast<std::size_t>(number));
                plain.insert(number);
            } else {
                const int victim = plain.empty() || random.chance(0.2) ? number : *plain.begin();
                set.remove(static_cast<std::size_t>(victim));
                plain.erase(victim);
            }
            const auto from = static_cast<int>(random.below(static_cast<std::uint32_t>(size)));
            const auto above = plain.lower_bound(from);
            ASSERT_EQ(set.atOrAbove(from), above == plain.end() ? -1 : *above);
            const auto below = plain.upper_bound(from);
            ASSERT_EQ(set.atOrBelow(from), below == plain.begin() ? -1 : *std::prev(below));
            ASSERT_EQ(set.contains(static_cast<std::size_t>(from)), plain.count(from) == 1);
        }
    }
}

TEST(TickSet, ToleratesQuestionsOutsideItsRange)
{
    TickSet set(100);
    set.insert(0);
    set.insert(99);
    EXPECT_EQ(set.atOrAbove(-5), 0);
    EXPECT_EQ(set.atOrAbove(100), -1);
    EXPECT_EQ(set.atOrAbove(1000000), -1);
    EXPECT_EQ(set.atOrBelow(-1), -1);
    EXPECT_EQ(set.atOrBelow(1000000), 99);
    EXPECT_FALSE(set.contains(1000000));
}

} // namespace
} // namespace feed::test
