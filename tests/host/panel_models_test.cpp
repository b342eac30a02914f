// What the panels show of a day: the same at the same moment, however one came there.

#include "SmallDay.h"

#include "feed/replay/ReplaySession.h"
#include "feed/simulation/SimulatedExchange.h"
#include "feed/simulation/instrument_kinds.h"
#include "host/PanelModels.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

namespace {

using host::PanelHashes;
using host::PanelModels;
using testing_support::SmallDay;

constexpr unsigned kDays = 20;
constexpr std::size_t kMostLadders = 200; // of a day: each has hundreds of prices

bool operator==(const PanelHashes& a, const PanelHashes& b)
{
    return a.all() == b.all();
}

/// Another market with each seed; every fifth day is one without orders that delivers ladders.
feed::InstrumentDay randomDay(unsigned seed)
{
    feed::SimulationSettings settings = seed % 4 == 0   ? feed::shenzhenStock(seed)
                                        : seed % 4 == 1 ? feed::shanghaiStock(seed)
                                        : seed % 4 == 2 ? feed::hongKongStock(seed)
                                                        : feed::future(seed);
    settings.orders = 600;
    if (seed % 5 == 0)
        settings = feed::levelStyle(settings);
    feed::SimulatedExchange exchange(settings);
    feed::InstrumentDay day;
    day.detail = exchange.settings().detail;
    day.tradingDay = exchange.settings().tradingDay;
    day.keepsLadders = seed % 5 == 0;
    exchange.runDay(day);
    if (day.ladders.size() > kMostLadders) {
        std::vector<feed::LadderRow> kept;
        for (std::size_t i = 0; i < day.ladders.size(); i += day.ladders.size() / kMostLadders + 1)
            kept.push_back(day.ladders[i]);
        day.ladders = kept;
    }
    return day;
}

feed::ReplayOptions wholeHistory()
{
    feed::ReplayOptions options;
    options.allSnapshots = true;
    return options;
}

/// Panels and the replay that fills them.
class Panels
{
public:
    explicit Panels(const feed::InstrumentDay& day) : m_session(day, m_models, wholeHistory())
    {
        EXPECT_TRUE(m_models.open(day.detail));
    }

    PanelHashes seek(std::int64_t time)
    {
        m_models.clear();
        m_session.startAt(time);
        return m_models.look();
    }

    PanelHashes playTo(std::int64_t time)
    {
        m_session.advanceTo(time);
        return m_models.look();
    }

    feed::ReplaySession& session() { return m_session; }

private:
    PanelModels m_models;
    feed::ReplaySession m_session;
};

PanelHashes hashAt(const feed::InstrumentDay& day, std::int64_t time)
{
    return Panels(day).seek(time);
}

std::int64_t randomMoment(const feed::ReplaySession& session, std::mt19937& random)
{
    return std::uniform_int_distribution<std::int64_t>(session.firstTime(), session.lastTime())(random);
}

TEST(PanelModels, ShowTheSameAfterTheSameSeekWhateverWasSeenBefore)
{
    for (unsigned seed = 1; seed <= kDays; ++seed) {
        const feed::InstrumentDay day = randomDay(seed);
        std::mt19937 random(seed);
        Panels panels(day);
        for (int i = 0; i < 3; ++i) {
            const std::int64_t time = randomMoment(panels.session(), random);
            SCOPED_TRACE("seed " + std::to_string(seed) + " time " + std::to_string(time));
            const PanelHashes afresh = hashAt(day, time);
            EXPECT_TRUE(panels.seek(time) == afresh);
            EXPECT_TRUE(panels.seek(time) == afresh) << "twice";
            for (int other = 0; other < 2; ++other) {
                panels.seek(randomMoment(panels.session(), random));
                panels.playTo(randomMoment(panels.session(), random));
            }
            EXPECT_TRUE(panels.seek(time) == afresh) << "after others";
        }
    }
}

/// What must be the same however one came to a moment. Left out are the changes in the rows of a ladder,
/// which are those since the look before, and the rebuilt ladder of a day without orders: it stands empty
/// behind the delivered one, and says nothing of deals of the past as long as no orders open.
std::vector<std::uint64_t> settled(const feed::InstrumentDay& day, const PanelHashes& hashes)
{
    const std::uint64_t ladder = day.orders.empty() ? 0 : hashes.ladder;
    return {hashes.deals, hashes.orders, ladder, hashes.readyLadder, hashes.quotes, hashes.chart};
}

TEST(PanelModels, ShowTheSameWhetherPlayedOrLoaded)
{
    for (unsigned seed = 1; seed <= kDays; ++seed) {
        const feed::InstrumentDay day = randomDay(seed);
        std::mt19937 random(seed);
        Panels panels(day);
        const bool fromTheMiddle = seed % 2 == 0;
        std::int64_t time =
            fromTheMiddle ? randomMoment(panels.session(), random) : panels.session().firstTime() - 1;
        panels.seek(time);
        for (int i = 0; i < 6; ++i) {
            time += static_cast<std::int64_t>(random() % 5400000);
            SCOPED_TRACE("seed " + std::to_string(seed) + " time " + std::to_string(time));
            EXPECT_EQ(settled(day, panels.playTo(time)), settled(day, hashAt(day, time)));
        }
    }
}

TEST(PanelModels, TheChangesInALadderAreThoseSinceTheLookBefore)
{
    SmallDay small;
    small.buy(1, 10.00, 300).sell(2, 10.01, 100).at(1).buy(3, 10.00, 500);
    Panels panels(small.day);
    const PanelHashes before = panels.seek(small.time() - 1);
    const PanelHashes after = panels.playTo(small.time());
    EXPECT_NE(after.ladderChanges, before.ladderChanges);
    EXPECT_EQ(panels.playTo(small.time() + 1).ladderChanges, after.ladderChanges) << "nothing came";
    EXPECT_EQ(hashAt(small.day, small.time()).ladderChanges, before.ladderChanges) << "loaded";
}

/// A change of one record, and the panels that have to show another thing.
struct Change
{
    const char* what;
    std::function<void(feed::InstrumentDay&)> apply;
    std::vector<std::uint64_t PanelHashes::*> shownBy;
};

TEST(PanelModels, ShowAnotherThingWhenARecordIsAnother)
{
    SmallDay small;
    small.buy(1, 10.00, 300)
        .buy(2, 9.99, 400)
        .sell(3, 10.02, 200)
        .snapshot()
        .at(1)
        .sell(4, 10.00, 100)
        .deal(1, 4, 10.00, 100)
        .cancelBuy(2, 400)
        .at(4)
        .snapshot();
    feed::LadderLevel level;
    level.price = 10.00;
    level.volume = 200;
    level.orders.push_back({1, small.time(), 300, 100});
    feed::LadderRow ladder;
    ladder.time = small.time();
    ladder.lastPrice = 10.00;
    ladder.lastVolume = 100;
    ladder.buys.push_back(level);
    small.day.ladders.push_back(ladder);

    using Day = feed::InstrumentDay;
    using H = PanelHashes;
    const std::vector<Change> changes = {
        {"price of an order", [](Day& day) { day.orders[2].price = 10.03; }, {&H::orders, &H::ladder}},
        {"volume of an order",
         [](Day& day) { day.orders[0].volume = 500; },
         {&H::deals, &H::orders, &H::ladder, &H::chart}},
        {"side of an order", [](Day& day) { day.orders[1].side = 2; }, {&H::orders}},
        {"number of an order", [](Day& day) { day.orders[2].number = 5; }, {&H::orders, &H::ladder}},
        {"time of an order", [](Day& day) { day.orders[2].time -= 2000; }, {&H::orders, &H::ladder}},
        {"price of a deal",
         [](Day& day) { day.deals[0].price = 10.01; },
         {&H::deals, &H::orders, &H::ladder, &H::chart}},
        {"volume of a deal",
         [](Day& day) { day.deals[0].volume = 200; },
         {&H::deals, &H::orders, &H::ladder, &H::chart}},
        {"active side of a deal",
         [](Day& day) { day.deals[0].activeSide = 1; },
         {&H::deals, &H::orders, &H::chart}},
        {"buyer of a deal",
         [](Day& day) { day.deals[0].buyNo = 2; },
         {&H::deals, &H::orders, &H::ladder, &H::chart}},
        {"time of a deal", [](Day& day) { day.deals[0].time += 1000; }, {&H::deals, &H::orders, &H::chart}},
        {"volume of a cancel", [](Day& day) { day.deals[1].volume = 100; }, {&H::orders}},
        {"order of a cancel", [](Day& day) { day.deals[1].buyNo = 1; }, {&H::orders, &H::ladder}},
        {"price of a level", [](Day& day) { day.snapshots[1].bidPrice[0] = 9.98; }, {&H::quotes}},
        {"volume of a level", [](Day& day) { day.snapshots[1].askVolume[0] = 900; }, {&H::quotes}},
        {"level of the snapshot before", [](Day& day) { day.snapshots[0].bidVolume[0] = 900; }, {&H::quotes}},
        {"last price", [](Day& day) { day.snapshots[1].lastPrice = 10.05; }, {&H::quotes}},
        {"previous close",
         [](Day& day) { day.snapshots[1].previousClose = 9.50; },
         {&H::quotes, &H::ladder, &H::readyLadder}},
        {"time of a snapshot", [](Day& day) { day.snapshots[1].time -= 1000; }, {&H::chart}},
        {"volume of a ready ladder",
         [](Day& day) { day.ladders[0].buys[0].volume = 900; },
         {&H::readyLadder}},
        {"order of a ready ladder",
         [](Day& day) { day.ladders[0].buys[0].orders[0].dealt = 0; },
         {&H::readyLadder}},
        {"last volume of a ready ladder",
         [](Day& day) { day.ladders[0].lastVolume = 300; },
         {&H::readyLadder}},
    };
    const PanelHashes plain = hashAt(small.day, small.time());
    EXPECT_TRUE(hashAt(small.day, small.time()) == plain);
    for (const Change& change : changes) {
        feed::InstrumentDay other = small.day;
        change.apply(other);
        const PanelHashes changed = hashAt(other, small.time());
        EXPECT_NE(changed.all(), plain.all()) << change.what;
        for (std::size_t i = 0; i < change.shownBy.size(); ++i)
            EXPECT_NE(changed.*change.shownBy[i], plain.*change.shownBy[i])
                << change.what << ", panel " << i << " of those named";
    }
}

TEST(PanelModels, ShowNothingOfWhatComesAfterTheMoment)
{
    SmallDay small;
    small.buy(1, 10.00, 300).sell(2, 10.01, 100).snapshot().at(1).deal(1, 2, 10.01, 100).at(2).snapshot();
    const std::int64_t before = small.day.deals[0].time - 1;
    feed::InstrumentDay other = small.day;
    other.deals[0].volume = 50;
    other.snapshots[1].lastPrice = 11;
    EXPECT_TRUE(hashAt(other, before) == hashAt(small.day, before));
    EXPECT_FALSE(hashAt(other, small.time()) == hashAt(small.day, small.time()));
}

} // namespace
