#include "queue_engine/OrderNumberMap.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

using Kel::OrderedNumberSet;
using Kel::OrderNumberMap;

constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kHighest = std::numeric_limits<std::int64_t>::max();

std::vector<std::pair<std::int64_t, int>> entries(const OrderNumberMap<int>& map)
{
    std::vector<std::pair<std::int64_t, int>> all;
    for (const auto entry : map)
        all.emplace_back(entry.first, entry.second);
    return all;
}

std::vector<std::pair<std::int64_t, int>> entries(const std::map<std::int64_t, int>& map)
{
    return {map.begin(), map.end()};
}

TEST(OrderNumberMap, WalksInAscendingOrderOverAllPlacesWhereNumbersAreKept)
{
    OrderNumberMap<int> map;
    const std::vector<std::int64_t> ascending = {
        kLowest,   -1,         0,          1,           63,           64,      255,
        256,       2047,       2048,       65535,       65536,        1000000, 268435455,
        268435456, 2147483647, 2147483648, 99999999999, kHighest - 1, kHighest};
    for (auto it = ascending.rbegin(); it != ascending.rend(); ++it)
        map[*it] = 1;
    std::vector<std::int64_t> walked;
    for (const auto entry : map)
        walked.push_back(entry.first);
    EXPECT_EQ(walked, ascending);
    EXPECT_EQ(map.size(), ascending.size());
}

TEST(OrderNumberMap, LookingUpAndErasingWhatIsNotThereCreatesNothing)
{
    OrderNumberMap<int> map;
    for (const std::int64_t number :
         {kLowest, std::int64_t(-5), std::int64_t(0), std::int64_t(7), kHighest}) {
        EXPECT_EQ(map.find(number), map.end());
        EXPECT_EQ(map.erase(number), 0u);
        EXPECT_FALSE(map.contains(number));
    }
    EXPECT_TRUE(map.empty());
    EXPECT_EQ(map.begin(), map.end());
}

TEST(OrderNumberMap, ErasingByIteratorGivesTheNextEntryAcrossPages)
{
    OrderNumberMap<int> map;
    for (const std::int64_t number : {-3, 5, 300, 70000})
        map[number] = 1;
    auto it = map.begin();
    std::vector<std::int64_t> erased;
    while (it != map.end()) {
        erased.push_back(it->first);
        it = map.erase(it);
    }
    EXPECT_EQ(erased, (std::vector<std::int64_t>{-3, 5, 300, 70000}));
    EXPECT_TRUE(map.empty());
}

TEST(OrderNumberMap, FreesItsPagesWhenTheyRunEmpty)
{
    OrderNumberMap<int> map;
    for (std::int64_t number = 0; number < 1000000; number += 10)
        map[number] = 1;
    const std::size_t full = map.heapBytes();
    for (std::int64_t number = 0; number < 1000000; number += 10)
        EXPECT_EQ(map.erase(number), 1u);
    EXPECT_LT(map.heapBytes(), full / 100);
}

TEST(OrderNumberMap, WalksOverWideGapsAndOverChunksThatRanEmpty)
{
    OrderNumberMap<int> map;
    for (const std::int64_t number : {5, 3000, 131071, 131072, 268435455})
        map[number] = 1;
    map.erase(3000);
    map.erase(131072);
    EXPECT_EQ(entries(map), (std::vector<std::pair<std::int64_t, int>>{{5, 1}, {131071, 1}, {268435455, 1}}));
    map[3000] = 2;
    OrderNumberMap<int> other;
    other[70000] = 3;
    map.swap(other);
    EXPECT_EQ(entries(map), (std::vector<std::pair<std::int64_t, int>>{{70000, 3}}));
    EXPECT_EQ(entries(other),
              (std::vector<std::pair<std::int64_t, int>>{{5, 1}, {3000, 2}, {131071, 1}, {268435455, 1}}));
    other.clear();
    EXPECT_EQ(entries(other), (std::vector<std::pair<std::int64_t, int>>{}));
    other[1] = 1;
    EXPECT_EQ(entries(other), (std::vector<std::pair<std::int64_t, int>>{{1, 1}}));
}

TEST(OrderNumberMap, OwnsItsValues)
{
    const auto value = std::make_shared<int>(1);
    OrderNumberMap<std::shared_ptr<int>> map;
    map[5] = value;
    map[6] = value;
    map[-6] = value;
    EXPECT_EQ(value.use_count(), 4);
    map.erase(5);
    EXPECT_EQ(value.use_count(), 3);
    map.clear();
    EXPECT_EQ(value.use_count(), 1);
}

TEST(OrderNumberMap, ACopyIsAMapOfItsOwn)
{
    OrderNumberMap<int> map;
    map[1] = 1;
    map[-1] = 2;
    OrderNumberMap<int> copy = map;
    EXPECT_EQ(copy, map);
    copy[1] = 5;
    EXPECT_FALSE(copy == map);
    EXPECT_EQ(map.find(1)->second, 1);
}

TEST(OrderNumberMap, BehavesLikeAnOrderedMapUnderRandomOperations)
{
    for (unsigned seed = 1; seed <= 30; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        OrderNumberMap<int> map;
        std::map<std::int64_t, int> reference;
        // Dense, spread and hostile numbers.
        const auto number = [&]() -> std::int64_t {
            switch (random() % 4) {
            case 0:
                return random() % 600;
            case 1:
                return random() % 200000;
            case 2:
                return static_cast<std::int64_t>(random()) - 2000000000;
            default:
                return (static_cast<std::int64_t>(random()) << 32) ^ static_cast<std::int64_t>(random());
            }
        };
        for (int step = 0; step < 3000; ++step) {
            const std::int64_t n = number();
            const int value = static_cast<int>(random() % 1000);
            switch (random() % 5) {
            case 0:
            case 1:
                map[n] += value;
                reference[n] += value;
                break;
            case 2:
                EXPECT_EQ(map.try_emplace(n, value).second, reference.try_emplace(n, value).second);
                break;
            case 3:
                EXPECT_EQ(map.erase(n), reference.erase(n));
                break;
            default: {
                const auto it = map.find(n);
                const auto expected = reference.find(n);
                ASSERT_EQ(it == map.end(), expected == reference.end());
                if (expected != reference.end()) {
                    EXPECT_EQ(it->second, expected->second);
                }
                break;
            }
            }
            ASSERT_EQ(map.size(), reference.size());
        }
        EXPECT_EQ(entries(map), entries(reference));
    }
}

TEST(OrderedNumberSet, EntersANumberOnceAndWalksInOrder)
{
    OrderedNumberSet set = {7, 3, 3, -1};
    EXPECT_FALSE(set.insert(7));
    EXPECT_TRUE(set.insert(8));
    EXPECT_EQ(std::vector<std::int64_t>(set.begin(), set.end()), (std::vector<std::int64_t>{-1, 3, 7, 8}));
    EXPECT_EQ(set.erase(3), 1u);
    EXPECT_EQ(set.erase(3), 0u);
    EXPECT_EQ(set.size(), 3u);
}

} // namespace
