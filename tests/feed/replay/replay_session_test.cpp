#include "feed/replay/RecordingSink.h"
#include "feed/replay/ReplaySession.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <set>
#include <sstream>

namespace {

using feed::InstrumentDay;
using feed::ReplayOptions;
using feed::ReplaySession;
using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::RecordingSink;

/// A day of rows "o100 d150 q200 s200 l200": kind and time; rows are numbered 1, 2, ... in the order of the
/// text, which is their sequence as well.
InstrumentDay dayOf(const std::string& text)
{
    InstrumentDay day;
    day.detail.market = "SH";
    day.detail.code = "600519";
    std::istringstream stream(text);
    std::string word;
    for (int number = 1; stream >> word; ++number) {
        const std::int64_t time = std::stoll(word.substr(1));
        switch (word[0]) {
        case 'o':
            day.orders.push_back({time, number, number, 10, 100, 1, 1});
            break;
        case 'd':
            // Of orders from before the day: what becomes of the day's own orders is for a test to say.
            day.deals.push_back({time, number, 10, 100, number, 900001, 900002, 0, 1});
            break;
        case 'q':
            day.queues.emplace_back();
            day.queues.back().time = time;
            day.queues.back().bidCount = number;
            break;
        case 'l':
            day.ladders.emplace_back();
            day.ladders.back().time = time;
            day.ladders.back().buys.resize(static_cast<std::size_t>(number));
            break;
        default:
            day.snapshots.emplace_back();
            day.snapshots.back().time = time;
            day.snapshots.back().dealCount = number;
        }
    }
    return day;
}

TEST(ReplaySession, HistoryIsDealsThenOrdersThenAnEmptyLiveDealBatchThenTheLatestPublished)
{
    const InstrumentDay day = dayOf("o100 d150 s160 q170 o200 d250 s260 q270 o300 d300 s300 q300");
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.startAt(270);
    EXPECT_THAT(sink.take(), ElementsAre("deals 0 s0 150:2 250:6", "orders 0 s0 100:1 200:5", "deals 1 s1",
                                         "snapshot 0 s-1 260:7", "queue 1 s0 270:8"));
    EXPECT_EQ(session.now(), 270);
    session.advanceTo(299);
    EXPECT_THAT(sink.take(), IsEmpty());
    session.advanceTo(300);
    EXPECT_THAT(sink.take(), ElementsAre("orders 1 s1 300:9", "deals 2 s1 300:10", "queue 2 s1 300:12",
                                         "snapshot 3 s-1 300:11"));
    EXPECT_TRUE(session.atEnd());
    EXPECT_TRUE(sink.keysAgree());
}

TEST(ReplaySession, AStartDeliversAllSnapshotsSoFarToThoseWhoWishIt)
{
    const InstrumentDay day = dayOf("s100 d150 s160 q170 s250 s300 s400");
    RecordingSink sink;
    ReplayOptions options;
    options.allSnapshots = true;
    ReplaySession session(day, sink, options);
    session.startAt(300);
    EXPECT_THAT(sink.take(), testing::Contains("snapshot 0 s-1 100:1 160:3 250:5 300:6"));
    session.advanceTo(400);
    EXPECT_THAT(sink.take(), ElementsAre("snapshot 2 s-1 400:7"));
    session.startAt(99);
    EXPECT_THAT(sink.take(), testing::Not(testing::Contains(testing::HasSubstr("snapshot"))));
}

TEST(ReplaySession, LargeHistoryGoesOutInBatchesOfWhichNoneLooksLive)
{
    InstrumentDay day = dayOf("");
    day.detail.market = "SZ";
    for (int i = 1; i <= 1050; ++i)
        day.orders.push_back({i, i, i, 10, 100, 1, 1});
    RecordingSink sink;
    ReplayOptions options;
    options.historyBatch = 500;
    ReplaySession session(day, sink, options);
    session.startAt(2000);
    const std::vector<std::string> lines = sink.take();
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0], "deals 0 s0");
    EXPECT_EQ(lines[1].substr(0, 15), "orders 0 s0 1:1");
    EXPECT_EQ(lines[2].substr(0, 19), "orders 1 s3 501:501");
    EXPECT_EQ(lines[2].substr(lines[2].size() - 10), " 1050:1050") << "the last 50 are no batch of their own";
    EXPECT_EQ(lines[3], "deals 1 s1");
}

TEST(ReplaySession, LiveIntervalsEndOnTheGridAndSendOrdersBeforeDeals)
{
    const InstrumentDay day = dayOf("o50 d101 o130 d199 s200 q200 o201 d250 o300");
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.startAt(60);
    sink.take();
    session.advanceTo(260);
    EXPECT_THAT(sink.take(), ElementsAre("orders 1 s1 130:3", "deals 2 s1 101:2 199:4", "queue 0 s1 200:6",
                                         "snapshot 1 s-1 200:5", "orders 2 s1 201:7", "deals 3 s1 250:8"));
    session.advanceTo(260);
    session.advanceTo(10);
    EXPECT_THAT(sink.take(), IsEmpty());
    EXPECT_EQ(session.now(), 260);
    session.playAll();
    EXPECT_THAT(sink.take(), ElementsAre("orders 3 s1 300:9"));
}

TEST(ReplaySession, LiveOrderBatchesStayBelowWhatCountsAsHistory)
{
    InstrumentDay day = dayOf("o1");
    for (int i = 2; i <= 352; ++i)
        day.orders.push_back({50, i, i, 10, 100, 1, 1});
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.startAt(10);
    sink.take();
    session.advanceTo(100);
    EXPECT_EQ(sink.take().size(), 4u);
    EXPECT_EQ(sink.largestLiveOrderBatch(), 100u);
}

TEST(ReplaySession, TheFirstOrdersOfADayComeAsHistoryBehindTheirDeals)
{
    const InstrumentDay day = dayOf("s10 d150 o160 d170 o230");
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.startAt(20);
    EXPECT_THAT(sink.take(), ElementsAre("deals 0 s0", "snapshot 0 s-1 10:1"));
    session.advanceTo(155);
    EXPECT_THAT(sink.take(), ElementsAre("deals 1 s1 150:2"));
    session.advanceTo(300);
    EXPECT_THAT(sink.take(), ElementsAre("deals 2 s0 150:2 170:4", "orders 0 s0 160:3", "deals 3 s1",
                                         "orders 1 s1 230:5"));
}

TEST(ReplaySession, ALoadIsRepeatedUntilAnOrderIsLeftStanding)
{
    // Order 1 is dealt whole by deal 2, order 3 stays; the deal of order 3 at the end takes half of it.
    InstrumentDay day = dayOf("o110 d120 o210 d310");
    day.deals[0].buyNo = 1;
    day.deals[1].buyNo = 3;
    day.deals[1].volume = 50;
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.startAt(100);
    sink.take();
    session.advanceTo(200);
    EXPECT_THAT(sink.take(), ElementsAre("deals 1 s0 120:2", "orders 0 s0 110:1", "deals 2 s1"));
    session.advanceTo(300);
    EXPECT_THAT(sink.take(), ElementsAre("deals 3 s0 120:2", "orders 1 s0 110:1 210:3", "deals 4 s1"));
    session.advanceTo(400);
    EXPECT_THAT(sink.take(), ElementsAre("deals 5 s1 310:4"));
}

TEST(ReplaySession, AnOldOrderThatStandsEndsTheLoads)
{
    InstrumentDay day = dayOf("");
    day.detail.market = "SH";
    for (int i = 1; i <= 5000; ++i) { // all but the first are dealt at once
        day.orders.push_back({i, 2 * i, i, 10, 100, 1, 1});
        if (i > 1)
            day.deals.push_back({i, 2 * i + 1, 10, 100, i, i, 900001, 0, 1});
    }
    day.orders.push_back({6000, 20000, 5001, 10, 100, 1, 1});
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.startAt(5500);
    sink.take();
    session.advanceTo(6000);
    EXPECT_THAT(sink.take(), ElementsAre(testing::EndsWith("s1 6000:5001"))) << "no load again";
    day.deals.insert(day.deals.begin(), {1, 3, 10, 100, 1, 1, 900001, 0, 1});
    ReplaySession other(day, sink);
    other.startAt(5500);
    sink.take();
    other.advanceTo(6000);
    EXPECT_EQ(sink.take().size(), 3U) << "deals, orders and the empty batch of a load";
}

TEST(ReplaySession, ARecordThatIsNoStandingOrderEndsNoLoad)
{
    InstrumentDay day = dayOf("o110 o210 o310");
    day.orders[0].kind = quoter::eOrderNotStanding;
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.startAt(100);
    sink.take();
    session.advanceTo(200);
    EXPECT_THAT(sink.take(), ElementsAre("deals 1 s0", "orders 0 s0 110:1", "deals 2 s1"));
    session.advanceTo(300);
    EXPECT_THAT(sink.take(), ElementsAre("deals 3 s0", "orders 1 s0 110:1 210:2", "deals 4 s1"));
    session.advanceTo(400);
    EXPECT_THAT(sink.take(), ElementsAre("orders 2 s1 310:3"));
}

TEST(ReplaySession, ADayWithoutOrdersNeverAnnouncesAny)
{
    const InstrumentDay day = dayOf("d10 q20 s20 d150 q200");
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.startAt(30);
    session.playAll();
    for (const std::string& line : sink.take())
        EXPECT_EQ(line.find("orders"), std::string::npos) << line;
}

TEST(ReplaySession, ARecordWithAnEarlierTimeWaitsForItsSequence)
{
    const InstrumentDay day = dayOf("o100 d500 o300 d310 o600");
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.startAt(100);
    sink.take();
    session.advanceTo(499);
    EXPECT_THAT(sink.take(), IsEmpty());
    session.advanceTo(500);
    EXPECT_THAT(sink.take(), ElementsAre("orders 1 s1 300:3", "deals 2 s1 500:2 310:4"));
}

TEST(ReplaySession, StepsDeliverUpToTheNextOfAKind)
{
    const InstrumentDay day = dayOf("o100 d110 o120 s130 d140 o140 s140");
    RecordingSink sink;
    ReplaySession session(day, sink);
    EXPECT_TRUE(session.stepDeal());
    EXPECT_EQ(session.now(), 110);
    EXPECT_THAT(sink.take(),
                ElementsAre("deals 0 s0", "deals 1 s0 110:2", "orders 0 s0 100:1", "deals 2 s1"));
    EXPECT_TRUE(session.stepSnapshot());
    EXPECT_THAT(sink.take(), ElementsAre("orders 1 s1 120:3", "snapshot 0 s-1 130:4"));
    EXPECT_TRUE(session.stepDeal());
    EXPECT_THAT(sink.take(), ElementsAre("deals 3 s1 140:5"));
    EXPECT_EQ(session.now(), 140);
    EXPECT_FALSE(session.stepDeal());
    EXPECT_THAT(sink.take(), IsEmpty());
    EXPECT_TRUE(session.stepOrder());
    EXPECT_THAT(sink.take(), ElementsAre("orders 2 s1 140:6"));
    EXPECT_FALSE(session.atEnd());
    session.playAll();
    EXPECT_THAT(sink.take(), ElementsAre("snapshot 1 s-1 140:7"));
    EXPECT_TRUE(session.atEnd());
}

TEST(ReplaySession, AStepBackEndsWhereTheStepForwardBefore)
{
    const InstrumentDay day = dayOf("o100 d110 o120 o120 s130 o140");
    RecordingSink sink;
    ReplaySession session(day, sink);
    for (int i = 0; i < 4; ++i)
        ASSERT_TRUE(session.stepOrder());
    EXPECT_EQ(session.now(), 140);
    sink.take();
    ASSERT_TRUE(session.stepBack(ReplaySession::Kind::Order));
    EXPECT_EQ(session.now(), 120);
    EXPECT_THAT(sink.take(), ElementsAre("deals 0 s0 110:2", "orders 0 s0 100:1 120:3 120:4", "deals 1 s1"))
        << "without the snapshot that came later";
    ASSERT_TRUE(session.stepBack(ReplaySession::Kind::Order));
    EXPECT_EQ(session.now(), 120);
    EXPECT_THAT(sink.take(), ElementsAre("deals 0 s0 110:2", "orders 0 s0 100:1 120:3", "deals 1 s1"))
        << "between two of one moment";
    ASSERT_TRUE(session.stepBack(ReplaySession::Kind::Order));
    EXPECT_EQ(session.now(), 100);
    EXPECT_THAT(sink.take(), ElementsAre("deals 0 s0", "orders 0 s0 100:1", "deals 1 s1"));
    EXPECT_FALSE(session.stepBack(ReplaySession::Kind::Order)) << "the first";
    EXPECT_FALSE(session.stepBack(ReplaySession::Kind::Snapshot));
    EXPECT_EQ(session.now(), 100);
    EXPECT_THAT(sink.take(), IsEmpty());
    ASSERT_TRUE(session.stepOrder());
    EXPECT_THAT(sink.take(), ElementsAre("orders 1 s1 120:3", "deals 2 s1 110:2"));
}

TEST(ReplaySession, AStepBackFromBetweenTwoGoesToTheOneBefore)
{
    const InstrumentDay day = dayOf("o100 d110 o120 d130 s140 d150");
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.startAt(145);
    sink.take();
    ASSERT_TRUE(session.stepBack(ReplaySession::Kind::Order));
    EXPECT_EQ(session.now(), 120);
    EXPECT_THAT(sink.take(), ElementsAre("deals 0 s0 110:2", "orders 0 s0 100:1 120:3", "deals 1 s1"));
    session.playAll();
    sink.take();
    ASSERT_TRUE(session.stepBack(ReplaySession::Kind::Snapshot));
    EXPECT_EQ(session.now(), 140);
    EXPECT_THAT(sink.take(), testing::Contains("snapshot 0 s-1 140:5"));
}

TEST(ReplaySession, SeveralStepsBackAtOnceGoAsFarAsThereAreAny)
{
    const InstrumentDay day = dayOf("o100 d110 d120 d130 d140");
    RecordingSink sink;
    ReplaySession session(day, sink);
    ReplaySession::Place place = session.place();
    EXPECT_FALSE(session.placeBefore(ReplaySession::Kind::Deal, 1, place)) << "not started";
    session.playAll();
    ASSERT_TRUE(session.placeBefore(ReplaySession::Kind::Deal, 2, place));
    EXPECT_EQ(place.moment(), 120);
    ASSERT_TRUE(session.placeBefore(ReplaySession::Kind::Deal, 9, place));
    EXPECT_EQ(place.moment(), 110);
    EXPECT_FALSE(session.placeBefore(ReplaySession::Kind::Ladder, 9, place));
    EXPECT_EQ(place.moment(), 110) << "left as it was";
    EXPECT_EQ(session.now(), 140);
    ReplaySession other(day, sink);
    other.startAt(place);
    EXPECT_EQ(other.now(), 110);
    ASSERT_TRUE(other.stepDeal());
    EXPECT_EQ(other.now(), 120);
}

TEST(ReplaySession, TellsTheMomentUpToWhichSoManyRecordsAreDue)
{
    const InstrumentDay day = dayOf("o100 d110 o120 d120 s120 o130 o140");
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.startAt(100);
    EXPECT_EQ(session.momentAfter(1, 1000), 110);
    EXPECT_EQ(session.momentAfter(2, 1000), 120) << "with all others of that moment";
    EXPECT_EQ(session.momentAfter(4, 1000), 120);
    EXPECT_EQ(session.momentAfter(5, 1000), 130);
    EXPECT_EQ(session.momentAfter(5, 125), 125);
    EXPECT_EQ(session.momentAfter(6, 1000), 1000) << "the last ones leave the way free";
    EXPECT_EQ(session.momentAfter(9, 1000), 1000);
}

TEST(ReplaySession, WhatAStepHasLeftCountsWithTheNextMoment)
{
    const InstrumentDay day = dayOf("o100 o100 o100 o120 o130");
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.startAt(50);
    ASSERT_TRUE(session.stepOrder());
    EXPECT_EQ(session.momentAfter(1, 1000), 120) << "else the clock would stand still";
    session.advanceTo(120);
    EXPECT_EQ(session.momentAfter(1, 1000), 1000);
}

TEST(ReplaySession, StartsAnewAtAnEarlierMoment)
{
    const InstrumentDay day = dayOf("o100 d200 o300");
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.playAll();
    sink.take();
    session.startAt(150);
    EXPECT_THAT(sink.take(), ElementsAre("deals 0 s0", "orders 0 s0 100:1", "deals 1 s1"));
    session.playAll();
    EXPECT_THAT(sink.take(), ElementsAre("deals 2 s1 200:2", "orders 1 s1 300:3"));
}

TEST(ReplaySession, AStartBeforeTheFirstLadderTakesAwayTheOneThatStands)
{
    const InstrumentDay day = dayOf("l100 l200");
    RecordingSink sink;
    ReplaySession session(day, sink);
    session.startAt(250);
    EXPECT_THAT(sink.take(), ElementsAre("deals 0 s0", "ladder 0 s0 200:2"));
    session.startAt(50);
    EXPECT_THAT(sink.take(), ElementsAre("deals 0 s0", "ladder 0 s0"));
    session.playAll();
    EXPECT_THAT(sink.take(), ElementsAre("ladder 1 s1 100:1", "ladder 2 s1 200:2"));
    const InstrumentDay without = dayOf("o100");
    ReplaySession plain(without, sink);
    plain.startAt(50);
    EXPECT_THAT(sink.take(), ElementsAre("deals 0 s0")) << "none is announced where there is none";
}

TEST(ReplaySession, AnEmptyDayAndTimesOfEverySizeAreHarmless)
{
    const InstrumentDay empty = dayOf("");
    RecordingSink sink;
    ReplaySession none(empty, sink);
    none.playAll();
    EXPECT_FALSE(none.stepOrder());
    EXPECT_TRUE(none.atEnd());

    constexpr std::int64_t kLow = std::numeric_limits<std::int64_t>::min();
    constexpr std::int64_t kHigh = std::numeric_limits<std::int64_t>::max();
    InstrumentDay day = dayOf("o1 o2 o3");
    day.orders[0].time = kLow;
    day.orders[1].time = -1;
    day.orders[2].time = kHigh;
    ReplaySession session(day, sink);
    session.startAt(kLow);
    session.advanceTo(-150);
    session.advanceTo(kHigh);
    EXPECT_TRUE(session.atEnd());
}

InstrumentDay randomDay(unsigned seed)
{
    std::mt19937 random(seed);
    InstrumentDay day = dayOf("");
    std::int64_t time = 1000;
    for (int seq = 1; seq <= 3000; ++seq) {
        time += random() % 4 == 0 ? random() % 200 : 0;
        const std::int64_t own = time - static_cast<std::int64_t>(random() % 50);
        if (random() % 2 == 0)
            day.orders.push_back({own, seq, seq, 10, 100, 1, 1});
        else
            day.deals.push_back({own, seq, 10, 100, seq, 1, 2, 0, 1});
        if (random() % 10 == 0) {
            day.snapshots.emplace_back();
            day.snapshots.back().time = time;
            day.queues.emplace_back();
            day.queues.back().time = time;
        }
    }
    return day;
}

TEST(ReplaySession, EveryRecordComesOnceInOrderAndNeverBeforeTheClock)
{
    for (unsigned seed = 1; seed <= 10; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const InstrumentDay day = randomDay(seed);
        std::vector<std::string> first;
        for (int run = 0; run < 2; ++run) {
            std::mt19937 random(seed + 1000);
            RecordingSink sink;
            ReplaySession session(day, sink);
            session.startAt(day.orders[50].time);
            std::vector<std::string> all = sink.take();
            while (!session.atEnd()) {
                switch (random() % 12) {
                case 0:
                    session.stepOrder();
                    break;
                case 1:
                    session.stepSnapshot();
                    break;
                default:
                    session.advanceTo(session.now() + static_cast<std::int64_t>(random() % 700));
                }
                ASSERT_LE(sink.latestTime(), session.now());
                if (session.now() >= session.lastTime())
                    session.playAll();
                for (std::string& line : sink.take())
                    all.push_back(std::move(line));
            }
            std::vector<std::int64_t> orders;
            for (const std::string& line : all) {
                if (line.compare(0, 6, "orders") != 0)
                    continue;
                std::istringstream stream(line);
                std::string word;
                stream >> word >> word >> word;
                while (stream >> word)
                    orders.push_back(std::stoll(word.substr(word.find(':') + 1)));
            }
            std::vector<std::int64_t> expected;
            for (const feed::OrderRow& row : day.orders)
                expected.push_back(row.number);
            ASSERT_EQ(orders, expected);
            ASSERT_LE(sink.largestLiveOrderBatch(), 100u);
            if (run == 0)
                first = all;
            else
                ASSERT_EQ(all, first);
        }
    }
}

} // namespace
