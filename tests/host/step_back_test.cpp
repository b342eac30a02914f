// Steps back through a day, held against what the steps forward have shown.

#include "feed/replay/ReplaySession.h"
#include "feed/simulation/SimulatedExchange.h"
#include "host/SteppedEngine.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Kind = feed::ReplaySession::Kind;

/// The queues that the engine holds: of each price what stands there, order by order.
std::string queuesText(host::SteppedEngine& engine)
{
    engine.refreshTick();
    engine.refreshTick();
    engine.recalculate();
    std::ostringstream text;
    for (const Kel::EOrderQueueType side : {Kel::OQT_BUY, Kel::OQT_SELL}) {
        for (const auto& [key, level] : engine.allLevels(side)) {
            std::ostringstream orders;
            for (const Kel::COrderVol& order : level->m_orders) {
                if (order.m_type != Kel::OQT_CANCELED && order.m_type != Kel::OQT_DEALT)
                    orders << ' ' << order.m_entrustNo << 'x' << order.m_vol;
            }
            if (!orders.str().empty())
                text << (side == Kel::OQT_BUY ? "buy " : "sell ") << key << ':' << orders.str() << '\n';
        }
    }
    return text.str();
}

/// A simulated day, of another exchange with each seed.
feed::InstrumentDay randomDay(unsigned seed)
{
    feed::SimulationSettings settings = seed % 2 == 0 ? feed::shanghaiStock(seed) : feed::shenzhenStock(seed);
    settings.orders = 1500;
    return feed::simulatedDay(settings);
}

constexpr Kind kKinds[] = {Kind::Order, Kind::Deal, Kind::Snapshot};

TEST(StepBack, ShowsTheQueuesThatTheStepForwardShowed)
{
    for (unsigned seed = 1; seed <= 6; ++seed) {
        const feed::InstrumentDay day = randomDay(seed);
        std::mt19937 random(seed);
        for (const Kind kind : kKinds) {
            SCOPED_TRACE("seed " + std::to_string(seed) + " kind " + std::to_string(static_cast<int>(kind)));
            host::SteppedEngine engine;
            ASSERT_TRUE(engine.open(day.detail));
            feed::ReplaySession session(day, engine);
            session.startAt(day.orders[random() % day.orders.size() / 2].time);
            std::vector<std::string> forward;
            for (int i = 0; i < 20 && session.step(kind); ++i)
                forward.push_back(queuesText(engine));
            ASSERT_EQ(forward.size(), 20U);
            for (int i = 18; i >= 0; --i) {
                ASSERT_TRUE(session.stepBack(kind));
                ASSERT_EQ(queuesText(engine), forward[static_cast<std::size_t>(i)]) << "step " << i;
            }
        }
    }
}

TEST(StepBack, LeadsToTheStateOfAStartThere)
{
    const feed::InstrumentDay day = randomDay(3);
    std::mt19937 random(7);
    host::SteppedEngine engine;
    ASSERT_TRUE(engine.open(day.detail));
    feed::ReplaySession session(day, engine);
    session.startAt(day.orders[800].time);
    for (int i = 0; i < 30; ++i) {
        const Kind kind = kKinds[random() % 3];
        if (random() % 4 == 0)
            session.step(kind);
        else
            ASSERT_TRUE(session.stepBack(kind));
        const feed::ReplaySession::Place place = session.place();
        session.startAt(place);
        host::SteppedEngine other;
        ASSERT_TRUE(other.open(day.detail));
        feed::ReplaySession afresh(day, other);
        afresh.startAt(place);
        ASSERT_EQ(queuesText(engine), queuesText(other));
        ASSERT_EQ(host::stateHash(engine), host::stateHash(other)) << i;
    }
}

} // namespace
