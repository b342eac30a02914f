#include "queue_engine/EngineFixture.h"

#include <functional>
#include <random>

using namespace testing_support;

namespace {

/// The whole state of an engine that a reader could see, as text.
std::string stateText(EngineProbe& engine)
{
    std::string text = "flags " + std::to_string(engine.m_bDealBack) +
                       std::to_string(engine.m_bNeedAppendOrder) + std::to_string(engine.m_bNeedCalc) +
                       std::to_string(engine.m_bLevelDataBack) + std::to_string(engine.m_bNeedRepaint) + "\n";
    for (auto side = engine.m_orderQueues.begin(); side != engine.m_orderQueues.end(); ++side) {
        for (auto found = side->begin(); found != side->end(); ++found) {
            text +=
                std::to_string(side.key()) + "/" + std::to_string(found.key()) + ": " + levelText(**found);
            text += std::to_string((*found)->m_orderIds.size()) + " numbers\n";
        }
    }
    for (const auto& kind : engine.m_dealCache) {
        for (const auto& entry : kind.second)
            text += "deal " + std::to_string(kind.first) + " " + std::to_string(entry.first) + " " +
                    numberText(entry.second) + "\n";
    }
    for (const auto& side : engine.m_orderCache) {
        text += "cache " + std::to_string(side.first) + ":";
        for (const auto& entry : side.second)
            text += " " + std::to_string(entry.first);
        text += "\n";
    }
    for (const std::int64_t number : engine.m_cancelOrders)
        text += "cancelled " + std::to_string(number) + "\n";
    for (const Kel::EOrderQueueType side : {Kel::OQT_BUY, Kel::OQT_SELL}) {
        for (unsigned int i = 0; i < 10; ++i) {
            const auto row = engine.at(i, side);
            text += "row " + std::to_string(i) + " " + (row ? levelText(*row) : "none\n");
        }
    }
    return text + engine.headerText().toStdString();
}

/// One random step of a feed with few prices and few numbers, so that everything collides.
class RandomFeed
{
public:
    explicit RandomFeed(unsigned int seed) : m_random(seed) {}

    std::function<void(EngineProbe&)> step()
    {
        m_time += upTo(3);
        switch (upTo(11)) {
        case 0:
        case 1:
        case 2:
            return orders(upTo(4) == 0 ? 3 : 1, 1 + upTo(4));
        case 3:
            return upTo(20) == 0   ? orders(0, upTo(3))
                   : upTo(12) == 0 ? orders(3, 101 + upTo(9))
                                   : orders(1, 1);
        case 4:
        case 5:
            return deals(1, 1 + upTo(3));
        case 6:
            return upTo(20) == 0 ? deals(upTo(1) * 3, upTo(3)) : deals(2, 1);
        case 7:
            return levels();
        case 8:
            return snapshots();
        case 9:
            return call();
        default: {
            const int ticks = upTo(7) == 0 ? 24 : 1 + upTo(2);
            return [ticks](EngineProbe& engine) {
                for (int tick = 0; tick < ticks; ++tick)
                    engine.slotTimeout();
            };
        }
        }
    }

private:
    int upTo(int most) { return static_cast<int>(m_random() % static_cast<unsigned int>(most + 1)); }
    double price() { return (998 + upTo(4)) / 100.0; }
    std::int64_t shares() { return upTo(5) == 0 ? 50 * upTo(3) : 100 * (1 + upTo(4)); }
    int number() { return upTo(20) == 0 ? 0 : 1 + upTo(m_time < 1100 ? 30 : 60); }

    std::function<void(EngineProbe&)> orders(int status, int count)
    {
        quoter::QuoterBatch batch;
        for (; count > 0; --count)
            batch.push_back(atTime(
                m_time, order(number(), upTo(25) == 0 ? upTo(1) * 3 : 1 + upTo(1), price(), shares())));
        return [status, batch](EngineProbe& engine) { engine.doOrderCallBack(0, status, wrap(batch)); };
    }

    std::function<void(EngineProbe&)> deals(int status, int count)
    {
        quoter::QuoterBatch batch;
        for (; count > 0; --count) {
            const int kind = upTo(5);
            batch.push_back(atTime(m_time, kind == 0   ? cancelBuy(number(), shares())
                                           : kind == 1 ? cancelSell(number(), shares())
                                                       : deal(number(), number(), price(), shares())));
        }
        return [status, batch](EngineProbe& engine) { engine.doDealCallBack(0, status, wrap(batch)); };
    }

    std::function<void(EngineProbe&)> levels()
    {
        const auto record = atTime(m_time, levelRecord("bid 0:; ask 0:"));
        record->bidPrice = upTo(4) == 0 ? 0 : price();
        record->askPrice = upTo(4) == 0 ? 0 : price();
        for (int count = upTo(7); count > 0; --count)
            record->bidVolumes.push_back(1 + upTo(4));
        for (int count = upTo(7); count > 0; --count)
            record->askVolumes.push_back(1 + upTo(4));
        record->bidCount = upTo(9);
        record->askCount = upTo(9);
        return [record](EngineProbe& engine) { engine.quoterCallBack(0, 1, {record}); };
    }

    std::function<void(EngineProbe&)> snapshots()
    {
        const auto record = atTime(m_time + upTo(2) - 1, snapshot("last 10.00"));
        const int best = 998 + upTo(3);
        for (int i = 0; i < 4; ++i) {
            record->bidPrice[i] = (best - i) / 100.0;
            record->askPrice[i] = (best + (upTo(8) == 0 ? 0 : 1) + i) / 100.0;
            record->bidVolume[i] = upTo(12);
            record->askVolume[i] = upTo(12);
        }
        return [record](EngineProbe& engine) { engine.quoterCallBack(0, -1, {record}); };
    }

    std::function<void(EngineProbe&)> call()
    {
        switch (upTo(9)) {
        case 0:
            return [](EngineProbe& engine) { engine.slotShangHaiTimeout(); };
        case 1:
            return [](EngineProbe& engine) { engine.fixSZDataList(true); };
        case 2:
            return [](EngineProbe& engine) { engine.fixSZDataList(false); };
        case 3:
            return [](EngineProbe& engine) { engine.fixOrderDataList(); };
        case 4:
            return [](EngineProbe& engine) { engine.matchOrderDeal(); };
        case 7:
            return [](EngineProbe& engine) {
                engine.m_nDealCount = 1000;
                engine.updateUnDealOrderCache();
            };
        case 5:
            return [](EngineProbe& engine) { engine.m_bNeedRepaint = false; };
        case 6:
            if (upTo(6) == 0) {
                const bool all = upTo(1) == 0;
                return [all](EngineProbe& engine) { engine.clear(all); };
            }
            [[fallthrough]];
        default:
            return [](EngineProbe& engine) { engine.checkCalcOrder(); };
        }
    }

    std::mt19937 m_random;
    std::int64_t m_time = 1000;
};

} // namespace

TEST(LevelsAtRest, ShowTheSameAsAFullPassOnRandomFeeds)
{
    prepareServices();
    for (unsigned int seed = 1; seed <= 200; ++seed) {
        EngineProbe resting;
        EngineProbe full;
        full.setFullPass(true);
        resting.setStock("SH600519");
        full.setStock("SH600519");
        RandomFeed feed(seed);
        for (int step = 0; step < 150; ++step) {
            const auto act = feed.step();
            act(resting);
            act(full);
            ASSERT_EQ(stateText(resting), stateText(full)) << "seed " << seed << ", step " << step;
        }
    }
}

TEST(LevelsAtRest, WakeForEveryThingThatTouchesThem)
{
    prepareServices();
    EngineProbe engine;
    engine.setStock("SH600519");
    engine.doOrderCallBack(0, 1, wrap({order(1, kBuy, 10.00, 500), order(2, kBuy, 10.00, 700)}));
    const auto text = [&engine] {
        engine.updateDataList();
        engine.updateDataList();
        engine.updateDataList();
        engine.updateDataList();
        return ordersText(*engine.m_orderQueues.value(kBuy).value(1000));
    };
    EXPECT_EQ(text(), "1 5 normal; 2 7 normal");
    engine.doDealCallBack(0, 1, wrap({deal(2, 9, 10.00, 100)}));
    EXPECT_EQ(text(), "1 5 normal; 2 6 part");
    engine.doDealCallBack(0, 1, wrap({cancelBuy(1, 500)}));
    EXPECT_EQ(text(), "2 6 part");
    engine.doOrderCallBack(0, 1, wrap({order(3, kBuy, 10.00, 100)}));
    EXPECT_EQ(text(), "2 6 part; 3 1 normal");
    engine.quoterCallBack(0, 1, {levelRecord("bid 10.00: 5 1 4")});
    EXPECT_EQ(text(), "2 5 part; 3 1 normal; 0 4 normal");
    engine.doDealCallBack(0, 1, wrap({deal(2, 9, 10.00, 500)}));
    EXPECT_EQ(text(), "3 1 normal; 0 4 normal");
    engine.m_orderQueues.value(kBuy).value(1000)->markOrder(3, Kel::OQT_DEALT);
    EXPECT_EQ(text(), "3 1 part; 0 4 normal");
}
