#pragma once

#include "platform/services/CStockManager.h"
#include "platform/services/CUserConfig.h"
#include "platform/services/last_quotes.h"
#include "platform/utils/CSingletonT.h"
#include "queue_engine/EngineProbe.h"
#include "support/LevelText.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <string>

namespace testing_support {

/// Enters an instrument as a test needs it.
inline void addInstrument(const std::string& market, const std::string& code, double tick,
                          nelservice::EInstrumentKind kind)
{
    const auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
    detail->market = market;
    detail->code = code;
    detail->priceTick = tick;
    detail->previousClose = 10;
    detail->kind = kind;
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(detail);
}

/// Instruments of each kind that the engine tells apart, and no quotes and no configuration.
inline void prepareServices()
{
    using Kind = nelservice::EInstrumentKind;
    utils::CSingletonT<Kel::CStockManager>::instance().clear();
    addInstrument("SH", "600519", 0.01, Kind::Stock);
    addInstrument("SZ", "000001", 0.01, Kind::Stock);
    addInstrument("SZ", "300274", 0.01, Kind::Stock);
    addInstrument("SH", "510300", 0.001, Kind::Fund);
    addInstrument("SH", "113050", 0.001, Kind::ConvertibleBond);
    addInstrument("SH", "204001", 0.005, Kind::Repurchase);
    addInstrument("SZ", "131810", 0.001, Kind::Repurchase);
    addInstrument("SH", "000001", 0.01, Kind::Index);
    addInstrument("SZ", "399001", 0.01, Kind::Index);
    addInstrument("HK", "00700", 0.2, Kind::Stock);
    Kel::clearLastQuoterAllData();
    Kel::setUserConfig(nullptr);
}

/// The last full quote of SH600519, by its status.
inline void setQuoteStatus(int status)
{
    const auto quote = boost::make_shared<quoter::QuoterAllData>();
    quote->status = status;
    Kel::setLastQuoterAllData("SH", "600519", quote);
}

/// An engine that serves the stock SH600519 (tick 0.01 yuan, lots of 100 shares), driven by hand.
class EngineTest : public testing::Test
{
protected:
    EngineTest() : m_prepared((prepareServices(), true)) { engine.setStock("SH600519"); }
    ~EngineTest() override { prepareServices(); }

    void orders(int status, quoter::QuoterBatch batch)
    {
        engine.doOrderCallBack(0, status, wrap(std::move(batch)));
    }
    void deals(int status, quoter::QuoterBatch batch)
    {
        engine.doDealCallBack(0, status, wrap(std::move(batch)));
    }
    void quotes(int status, quoter::QuoterBatch batch) { engine.quoterCallBack(0, status, batch); }
    void snap(const std::string& text, std::int64_t milliseconds = 1000)
    {
        quotes(-1, {atTime(milliseconds, snapshot(text))});
    }

    /// The live level of a side at a price in ticks; null if there is none.
    Kel::OrderQueueDataPtr level(int side, int key) const
    {
        const auto levels = engine.m_orderQueues.find(side);
        if (levels == engine.m_orderQueues.end())
            return {};
        return levels->value(key);
    }

    std::string list(int side, int key) const
    {
        const auto found = level(side, key);
        return found ? ordersText(*found) : "no level";
    }

    std::string row(unsigned int index, Kel::EOrderQueueType side) const
    {
        const auto found = engine.at(index, side);
        return found ? levelText(*found) : "no row";
    }

    /// Gives the queue a level as the text has it, in the place of one that may stand there. Its numbers are
    /// listed by the engine first, so that deals and cancellations find them.
    Kel::OrderQueueDataPtr put(int side, int key, const std::string& text)
    {
        const auto made = parseLevelPtr(text);
        if (const auto old = level(side, key)) {
            old->m_orders.clear();
            old->m_orderIds.clear();
        }
        for (const Kel::COrderVol& entry : made->m_orders) {
            if (entry.m_entrustNo != 0)
                engine.updateOrderDataList(order(entry.m_entrustNo, side, key * engine.m_priceTick, 100));
        }
        const auto live = level(side, key);
        if (!live) {
            engine.m_orderQueues[side][key] = made;
            return made;
        }
        *live = *made;
        for (const Kel::COrderVol& entry : made->m_orders) {
            if (entry.m_entrustNo != 0)
                live->m_orderIds.insert(entry.m_entrustNo);
        }
        live->wake();
        return live;
    }

    /// Sides and prices with their lists, "1/1000: 7 10 normal | 2/1001: ...".
    std::string queues() const
    {
        std::string text;
        for (auto side = engine.m_orderQueues.begin(); side != engine.m_orderQueues.end(); ++side) {
            for (auto found = side->begin(); found != side->end(); ++found)
                text += (text.empty() ? "" : " | ") + std::to_string(side.key()) + "/" +
                        std::to_string(found.key()) + ": " + ordersText(**found);
        }
        return text;
    }

    /// The order cache by its sides, also the empty ones: "1: 3 5; 2: 7".
    std::string cache() const
    {
        std::string text;
        for (const auto& side : engine.m_orderCache) {
            text += (text.empty() ? "" : "; ") + std::to_string(side.first) + ":";
            for (const auto& entry : side.second)
                text += " " + std::to_string(entry.first);
        }
        return text;
    }

    /// The deal cache by its kinds: "1: 5=10; 3: 5=10".
    std::string dealt() const
    {
        std::string text;
        for (const auto& kind : engine.m_dealCache) {
            if (kind.second.empty())
                continue;
            text += (text.empty() ? "" : "; ") + std::to_string(kind.first) + ":";
            for (const auto& entry : kind.second)
                text += " " + std::to_string(entry.first) + "=" + numberText(entry.second);
        }
        return text;
    }

    std::string cancelled() const
    {
        std::string text;
        for (const std::int64_t number : engine.m_cancelOrders)
            text += (text.empty() ? "" : " ") + std::to_string(number);
        return text;
    }

    /// "dealBack needAppend levelDataBack" as three digits.
    std::string flags() const
    {
        return std::to_string(engine.m_bDealBack.load()) + std::to_string(engine.m_bNeedAppendOrder.load()) +
               std::to_string(engine.m_bLevelDataBack.load());
    }

private:
    bool m_prepared; ///< the services are ready before the engine is made

protected:
    EngineProbe engine;
};

/// `count` buy orders of one lot each at 10.00 yuan, numbers from `first` on.
inline quoter::QuoterBatch buyOrders(int first, int count)
{
    quoter::QuoterBatch batch;
    for (int number = first; number < first + count; ++number)
        batch.push_back(order(number, kBuy, 10.00, 100));
    return batch;
}

} // namespace testing_support
