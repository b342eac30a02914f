#include "feed/day_gaps.h"

#include "feed/import/importDay.h"
#include "feed/simulation/LosingSink.h"
#include "feed/simulation/SimulatedExchange.h"
#include "feed/simulation/TradingHours.h"
#include "support/SharedData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <map>
#include <set>

namespace {

using feed::DayGap;
using feed::findGaps;
using feed::InstrumentDay;

/// A day whose record number i is at 1000 * i ms and is numbered by `number`; orders and deals in turn.
InstrumentDay numbered(int count, const std::function<std::int64_t(int)>& number)
{
    InstrumentDay day;
    for (int i = 0; i < count; ++i) {
        if (i % 3 == 0) {
            day.deals.emplace_back();
            day.deals.back().seq = number(i);
            day.deals.back().time = 1000 * i;
        } else {
            day.orders.emplace_back();
            day.orders.back().seq = number(i);
            day.orders.back().time = 1000 * i;
        }
    }
    return day;
}

/// A simulated day with the channel for itself.
feed::SimulationSettings aloneOnItsChannel(feed::SimulationSettings settings)
{
    settings.orders = 2000;
    settings.foreignRows = 0;
    return settings;
}

InstrumentDay dayWithout(const feed::SimulationSettings& settings, std::vector<feed::LostStretch> lost)
{
    feed::SimulatedExchange exchange(settings);
    InstrumentDay day;
    feed::LosingSink sink(day, feed::hours::midnightOf(exchange.settings().tradingDay), std::move(lost));
    exchange.runDay(sink);
    return day;
}

constexpr std::int64_t kHour = 3600000;

} // namespace

TEST(DayGaps, DenseNumbersWithoutAHoleHaveNone)
{
    EXPECT_TRUE(findGaps(numbered(1000, [](int i) { return i + 5; })).empty());
    EXPECT_TRUE(findGaps(InstrumentDay()).empty());
}

TEST(DayGaps, AHoleLiesBetweenTheRecordsAroundItAndCountsTheNumbersThatAreMissing)
{
    const auto gaps = findGaps(numbered(1000, [](int i) { return i < 400 ? i : i < 700 ? i + 7 : i + 8; }));
    ASSERT_EQ(gaps.size(), 2u);
    EXPECT_EQ(gaps[0].from, 399000);
    EXPECT_EQ(gaps[0].to, 400000);
    EXPECT_EQ(gaps[0].missing, 7);
    EXPECT_EQ(gaps[0].number, 407);
    EXPECT_EQ(gaps[1].missing, 1);
    EXPECT_EQ(gaps[1].number, 708);
}

TEST(DayGaps, NumbersWithRoomForRestoredOrdersAreDenseToo)
{
    // Odd numbers, and before every ninth of them the even one of a restored order.
    const auto number = [](int i) {
        const int place = i % 10;
        const int made = i / 10 * 9 + std::min(place, 8);
        return place == 8 ? 2 * made : 2 * made + 1;
    };
    EXPECT_TRUE(findGaps(numbered(1000, number)).empty());
    for (const int lost : {1, 2, 5}) {
        const auto gaps =
            findGaps(numbered(1000, [&](int i) { return number(i < 500 ? i : i + 10 * lost); }));
        ASSERT_EQ(gaps.size(), 1u);
        EXPECT_EQ(gaps[0].missing, 9 * lost);
        EXPECT_EQ(gaps[0].from, 499000);
    }
}

TEST(DayGaps, JumpsOfAnInstrumentAmongOthersAreNone)
{
    EXPECT_TRUE(findGaps(numbered(1000, [](int i) { return 3 * i; })).empty());
    EXPECT_TRUE(findGaps(numbered(1000, [](int i) { return i + i / 50; })).empty()); // one step in 50
    EXPECT_TRUE(findGaps(numbered(1000, [](int i) { return i + i / 2; })).empty());  // 1, 2, 1, 2, ...
    EXPECT_TRUE(findGaps(numbered(1000, [](int i) { return i + 9 * (i / 3); })).empty());
}

TEST(DayGaps, OneStepInTwoHundredMayBeAHoleAndNoMore)
{
    EXPECT_EQ(findGaps(numbered(1000, [](int i) { return i + 3 * (i / 170); })).size(), 5u);
    EXPECT_TRUE(findGaps(numbered(1000, [](int i) { return i + 3 * (i / 150); })).empty());
}

TEST(DayGaps, AFewRecordsTellNothing)
{
    const auto withHole = [](int i) { return i < 50 ? i : i + 10; };
    EXPECT_TRUE(findGaps(numbered(199, withHole)).empty());
    EXPECT_EQ(findGaps(numbered(200, withHole)).size(), 1u);
}

TEST(DayGaps, RepeatedNumbersAndTheFarthestOnesAreNoTrouble)
{
    EXPECT_TRUE(findGaps(numbered(1000, [](int) { return 7; })).empty());
    const auto far = findGaps(numbered(1000, [](int i) {
        return i < 500 ? std::numeric_limits<std::int64_t>::min() + i
                       : std::numeric_limits<std::int64_t>::max() - 1000 + i;
    }));
    ASSERT_EQ(far.size(), 1u);
    EXPECT_GT(far[0].missing, std::int64_t(1) << 62);
}

TEST(DayGaps, ASimulatedDayAmongOthersHasNoneAndOneAloneHasThoseThatWereLost)
{
    const auto stock = feed::shanghaiStock(7);
    EXPECT_TRUE(findGaps(feed::simulatedDay(stock)).empty());
    EXPECT_TRUE(findGaps(dayWithout(stock, {{10 * kHour, 10 * kHour + 60000}})).empty());
    for (const auto& settings : {aloneOnItsChannel(stock), aloneOnItsChannel(feed::shenzhenStock(7))}) {
        EXPECT_TRUE(findGaps(feed::simulatedDay(settings)).empty());
        const std::int64_t midnight = feed::hours::midnightOf(settings.tradingDay);
        const std::vector<feed::LostStretch> lost = {{10 * kHour, 10 * kHour + 60000},
                                                     {14 * kHour, 14 * kHour + 30000}};
        const InstrumentDay whole = feed::simulatedDay(settings);
        const auto gaps = findGaps(dayWithout(settings, lost));
        ASSERT_EQ(gaps.size(), lost.size());
        for (std::size_t i = 0; i < lost.size(); ++i) {
            const auto isLost = [&](const auto& row) {
                return row.time - midnight >= lost[i].begin && row.time - midnight < lost[i].end;
            };
            EXPECT_EQ(gaps[i].missing, std::count_if(whole.orders.begin(), whole.orders.end(), isLost) +
                                           std::count_if(whole.deals.begin(), whole.deals.end(), isLost));
            EXPECT_LT(gaps[i].from, midnight + lost[i].begin);
            EXPECT_GE(gaps[i].to, midnight + lost[i].end);
        }
    }
}

TEST(DayGaps, TheRealDaysHaveNoneSinceTheirInstrumentsShareAChannel)
{
    for (const char* name : {"600519-20230201", "601825-20230711", "000001-20230201", "300274-20220601"}) {
        REQUIRE_SHARED_DAY(folder, name);
        const feed::ImportResult result = feed::importDay(folder, feed::ImportOptions());
        ASSERT_FALSE(result.error) << result.error.text();
        for (const InstrumentDay& day : result.days)
            EXPECT_TRUE(findGaps(day).empty()) << name;
    }
}

TEST(DayGaps, AnExtractOfARealDayWithItsNumbersClosedUpAndAHoleInItIsFoundOut)
{
    REQUIRE_SHARED_DAY(folder, "600519-20230201");
    feed::ImportResult result = feed::importDay(folder, feed::ImportOptions());
    ASSERT_EQ(result.days.size(), 1u);
    InstrumentDay& day = result.days[0];
    // As if the channel were the instrument's own: numbers by rank.
    std::set<std::int64_t> numbers;
    for (const auto& row : day.orders)
        numbers.insert(row.seq);
    for (const auto& row : day.deals)
        numbers.insert(row.seq);
    std::map<std::int64_t, std::int64_t> rank;
    for (const std::int64_t number : numbers)
        rank.emplace(number, static_cast<std::int64_t>(rank.size()));
    for (auto& row : day.orders)
        row.seq = rank[row.seq];
    for (auto& row : day.deals)
        row.seq = rank[row.seq];
    EXPECT_TRUE(findGaps(day).empty());
    const auto from = day.orders.begin() + 20000;
    day.orders.erase(from, from + 3);
    std::int64_t missing = 0;
    for (const DayGap& gap : findGaps(day))
        missing += gap.missing;
    EXPECT_EQ(missing, 3);
}
