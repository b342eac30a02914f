// What a receiver hears of the holes of a day.

#include "feed/day_gaps.h"
#include "feed/replay/RecordingSink.h"
#include "feed/replay/ReplaySession.h"
#include "feed/simulation/LosingSink.h"
#include "feed/simulation/SimulatedExchange.h"
#include "feed/simulation/TradingHours.h"
#include "platform/services/CDataStateWatch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace {

using feed::InstrumentDay;
using feed::ReplayGaps;
using feed::ReplayOptions;
using feed::ReplaySession;
using testing_support::RecordingSink;

constexpr int kRows = 1000;

/// Rows 0 to 999 at 1000, 2000, ... ms, orders but for every third one; from row `hole` on the numbers are
/// 20 higher. A snapshot in the middle of each tenth second.
InstrumentDay dayWithHole(int hole)
{
    InstrumentDay day;
    day.detail.market = "SH";
    day.detail.code = "600519";
    for (int i = 0; i < kRows; ++i) {
        const std::int64_t time = 1000 * (i + 1);
        const std::int64_t number = i < hole ? i : i + 20;
        if (i % 3 == 2)
            day.deals.push_back({time, number, 10, 100, i, 900001, 900002, 0, 1});
        else
            day.orders.push_back({time, number, number, 10, 100, 1, 1});
        if (i % 10 == 9) {
            day.snapshots.emplace_back();
            day.snapshots.back().time = time + 500;
        }
    }
    return day;
}

/// Hands a replay on to a watch.
class WatchSink : public feed::FeedSink
{
public:
    WatchSink() { watch.setStock(QStringLiteral("SH600519")); }

    void onOrders(const std::string& key, int seq, int status,
                  const Kel::MetaCacheDataWrapperPtr& batch) override
    {
        watch.onEntrustCallback(QString::fromStdString(key), seq, status, batch);
    }
    void onDeals(const std::string& key, int seq, int status,
                 const Kel::MetaCacheDataWrapperPtr& batch) override
    {
        watch.onTransactionCallback(QString::fromStdString(key), seq, status, batch);
    }
    void onQuotes(const std::string& key, int seq, int status, const quoter::QuoterBatch& batch) override
    {
        watch.onQuoterCallback(QString::fromStdString(key), seq, status, batch);
    }

    Kel::EDataState state()
    {
        watch.loaded();
        watch.check();
        return watch.state();
    }

    Kel::CDataStateWatch watch;
};

/// Channel, number and status of a recorded call: "orders 0 s0".
std::string headOf(const std::string& line)
{
    std::size_t end = 0;
    for (int words = 0; words < 3 && end != std::string::npos; ++words)
        end = line.find(' ', end + (words > 0 ? 1 : 0));
    return line.substr(0, end);
}

std::vector<std::string> heads(RecordingSink& sink)
{
    std::vector<std::string> result;
    for (const std::string& line : sink.take()) {
        if (line.rfind("snapshot", 0) != 0)
            result.push_back(headOf(line));
    }
    return result;
}

using Lines = std::vector<std::string>;

} // namespace

TEST(ReplayGaps, LiveTheFirstCallBehindAHoleSkipsANumber)
{
    for (const int hole : {300, 302}) { // an order, a deal comes first behind it
        const InstrumentDay day = dayWithHole(hole);
        RecordingSink sink;
        ReplaySession session(day, sink);
        session.startAt(299000);
        sink.take();
        session.advanceTo(304000);
        const Lines expected =
            hole == 300 ? Lines({"deals 2 s1", "orders 2 s1", "orders 3 s1", "deals 3 s1", "orders 4 s1"})
                        : Lines({"deals 2 s1", "orders 1 s1", "orders 2 s1", "deals 4 s1", "orders 3 s1"});
        EXPECT_EQ(heads(sink), expected) << hole;
    }
}

TEST(ReplayGaps, ADayWithoutHolesAndAReplayThatTellsNoneSkipNothing)
{
    for (const bool tell : {true, false}) {
        const InstrumentDay day = dayWithHole(tell ? kRows : 300);
        RecordingSink sink;
        ReplayOptions options;
        options.tellGaps = tell;
        ReplaySession session(day, sink, options);
        session.startAt(295000);
        session.playAll();
        int orders = 0;
        int deals = 0;
        for (const std::string& head : heads(sink)) {
            int& count = head[0] == 'o' ? orders : deals;
            EXPECT_EQ(head.substr(0, head.rfind(' ')),
                      (head[0] == 'o' ? "orders " : "deals ") + std::to_string(count));
            ++count;
        }
        EXPECT_GT(orders, 400);
        EXPECT_GT(deals, 200);
    }
}

TEST(ReplayGaps, AHistoryLoadEndsABatchOfDealsAtTheHole)
{
    const InstrumentDay day = dayWithHole(300);
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.startAt(600000);
    const Lines calls = sink.take();
    ASSERT_GE(calls.size(), 4u);
    EXPECT_EQ(headOf(calls[0]), "deals 0 s0");
    EXPECT_NE(calls[0].find(" 300000:299"), std::string::npos); // the last one before the hole
    EXPECT_EQ(calls[1].substr(0, 30), "deals 2 s3 303000:302 306000:3");
    EXPECT_EQ(headOf(calls[2]), "orders 0 s0");
    EXPECT_EQ(headOf(calls[3]), "deals 3 s1");
}

TEST(ReplayGaps, AHoleThatNoDealFollowsIsToldByTheOrdersAndOneRightBeforeTheEndByTheLastCall)
{
    InstrumentDay day = dayWithHole(600);
    day.deals.erase(std::find_if(day.deals.begin(), day.deals.end(),
                                 [](const feed::DealRow& row) { return row.time > 600000; }),
                    day.deals.end());
    // Numbers stay dense without those deals.
    for (std::size_t i = 0; i < day.orders.size(); ++i) {
        if (day.orders[i].time > 600000)
            day.orders[i].seq = 620 + static_cast<std::int64_t>(i - 400);
    }
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.startAt(900000);
    EXPECT_EQ(heads(sink), Lines({"deals 0 s0", "orders 0 s0", "orders 2 s3", "deals 1 s1"}));
    session.startAt(610000); // too few orders for a batch of history
    EXPECT_EQ(heads(sink), Lines({"deals 0 s0", "orders 0 s0", "deals 2 s1"}));
}

TEST(ReplayGaps, NoBatchOfHistoryIsSmallBecauseOfHoles)
{
    std::mt19937 random(7);
    for (int run = 0; run < 300; ++run) {
        InstrumentDay day = dayWithHole(kRows);
        const int holes = 1 + static_cast<int>(random() % 5);
        for (int i = 0; i < holes; ++i) {
            const std::int64_t from = random() % kRows;
            for (auto& row : day.orders)
                row.seq += row.time > 1000 * from ? 3 : 0;
            for (auto& row : day.deals)
                row.seq += row.time > 1000 * from ? 3 : 0;
        }
        RecordingSink sink;
        ReplayOptions options;
        options.historyBatch = 200;
        ReplaySession session(day, sink, options);
        const std::int64_t start = 1000 * static_cast<std::int64_t>(random() % kRows);
        session.startAt(start);
        std::size_t orders = 0;
        std::size_t deals = 0;
        for (const std::string& line : sink.take()) {
            const auto records = static_cast<std::size_t>(std::count(line.begin(), line.end(), ':'));
            if (line.rfind("orders", 0) == 0) {
                orders += records;
                EXPECT_TRUE(headOf(line).find("s3") == std::string::npos || records > 100) << line;
            } else if (line.rfind("deals", 0) == 0) {
                deals += records;
            }
        }
        const auto upTo = [start](const auto& row) { return row.time <= start; };
        EXPECT_EQ(orders, std::count_if(day.orders.begin(), day.orders.end(), upTo));
        EXPECT_EQ(deals, std::count_if(day.deals.begin(), day.deals.end(), upTo));
    }
}

TEST(ReplayGaps, AWatchFindsEachHoleOnceAndSeesItHealedByTheNextSnapshot)
{
    const InstrumentDay day = dayWithHole(304);
    WatchSink sink;
    ReplaySession session(day, sink);
    session.startAt(300000);
    EXPECT_EQ(sink.state(), Kel::eDataLive);
    session.advanceTo(304000);
    EXPECT_EQ(sink.state(), Kel::eDataLive);
    session.advanceTo(305000);
    EXPECT_EQ(sink.state(), Kel::eDataGap);
    session.advanceTo(310400);
    EXPECT_EQ(sink.state(), Kel::eDataGap);
    session.advanceTo(310500);
    EXPECT_EQ(sink.state(), Kel::eDataRebuilt);
    session.playAll();
    EXPECT_EQ(sink.state(), Kel::eDataRebuilt);
    EXPECT_EQ(sink.watch.gaps().size(), 1u);
    EXPECT_EQ(sink.watch.gaps()[0].to, 305000);
}

TEST(ReplayGaps, AStartAtAMomentGivesTheStateOfPlayingUpToIt)
{
    const InstrumentDay day = dayWithHole(500);
    for (const std::int64_t moment :
         {400000, 500000, 501000, 503000, 510000, 510500, 520000, 700000, 1000000}) {
        WatchSink played;
        ReplaySession one(day, played);
        one.startAt(300000);
        one.advanceTo(moment);
        WatchSink started;
        ReplaySession other(day, started);
        other.startAt(moment);
        EXPECT_EQ(started.state(), played.state()) << moment;
        EXPECT_EQ(started.watch.gaps().size(), played.watch.gaps().size()) << moment;
    }
}

TEST(ReplayGaps, AWatchFindsWhatASimulatedExchangeLost)
{
    auto settings = feed::shanghaiStock(5);
    settings.orders = 3000;
    settings.foreignRows = 0;
    feed::SimulatedExchange exchange(settings);
    InstrumentDay day;
    day.detail = exchange.settings().detail;
    const std::int64_t midnight = feed::hours::midnightOf(settings.tradingDay);
    const std::int64_t begin = 36900000; // 10:15
    feed::LosingSink losing(day, midnight, {{begin, begin + 60000}});
    exchange.runDay(losing);
    ASSERT_EQ(feed::findGaps(day).size(), 1u);
    WatchSink sink;
    sink.watch.setStock(QString::fromStdString(day.detail.market + day.detail.code));
    ReplaySession session(day, sink);
    session.startAt(midnight + begin);
    EXPECT_EQ(sink.state(), Kel::eDataLive);
    session.advanceTo(feed::findGaps(day)[0].to);
    EXPECT_EQ(sink.state(), Kel::eDataGap);
    session.advanceTo(feed::findGaps(day)[0].to + 3000);
    EXPECT_EQ(sink.state(), Kel::eDataRebuilt);
}
