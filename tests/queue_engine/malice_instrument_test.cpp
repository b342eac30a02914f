// The instrument, and with it lots and price tick, changes in mid-day without a clear.

#include "queue_engine/EngineFixture.h"

#include <gmock/gmock.h>

using namespace testing_support;

namespace {

class InstrumentChange : public EngineTest
{
protected:
    void feed(const std::string& market, const std::string& code, int first)
    {
        engine.doOrderCallBack(0, 1, wrap(buyOrders(first, 10), market, code));
        engine.doOrderCallBack(0, 3, wrap(buyOrders(first + 10, 120), market, code));
        engine.doDealCallBack(
            0, 1, wrap({deal(first, first + 1, 10, 50), cancelBuy(first + 2, 100)}, market, code));
        engine.doDealCallBack(0, 1, wrap(quoter::QuoterBatch(1000), market, code));
        engine.updateDataList();
        engine.calcOrder();
        engine.slotTimeout();
    }
};

/// Two engines that get the same calls, one reading everything in every pass and sweep.
class FullAndQuickSweep : public testing::Test
{
protected:
    FullAndQuickSweep() : m_prepared((prepareServices(), true))
    {
        m_engines[0].setFullPass(true);
        setStock("SH600519");
    }
    ~FullAndQuickSweep() override { prepareServices(); }

    void setStock(const char* code)
    {
        for (EngineProbe& engine : m_engines)
            engine.setStock(code);
        m_market = std::string(code).substr(0, 2);
        m_code = std::string(code).substr(2);
    }
    void orders(int status, const quoter::QuoterBatch& batch)
    {
        for (EngineProbe& engine : m_engines)
            engine.doOrderCallBack(0, status, wrap(batch, m_market, m_code));
    }
    void deals(int status, const quoter::QuoterBatch& batch)
    {
        for (EngineProbe& engine : m_engines)
            engine.doDealCallBack(0, status, wrap(batch, m_market, m_code));
    }

    /// More than 100 records, so that the orders are cached.
    static quoter::QuoterBatch large(quoter::QuoterBatch orders)
    {
        orders.resize(orders.size() + 101);
        return orders;
    }

    /// Records of no effect, enough to bring a sweep.
    void sweep() { deals(1, quoter::QuoterBatch(1000)); }

    static std::string cache(const EngineProbe& engine)
    {
        std::string text;
        for (const auto& side : engine.m_orderCache) {
            text += std::to_string(side.first) + ":";
            for (const auto& entry : side.second)
                text += " " + std::to_string(entry.first);
            text += ";";
        }
        return text;
    }
    std::string fullCache() const { return cache(m_engines[0]); }
    std::string quickCache() const { return cache(m_engines[1]); }

private:
    bool m_prepared; ///< the services are ready before the engines are made
    std::string m_market;
    std::string m_code;
    EngineProbe m_engines[2];
};

} // namespace

TEST_F(InstrumentChange, InMidDayWithoutAClearKeepsTheListsAndGoesOn)
{
    feed("SH", "600519", 1);
    const std::string before = list(kBuy, 1000);
    EXPECT_NE(before, "no level");

    engine.setStock("SZ131810"); // lots of 10, ticks of 0.001
    EXPECT_EQ(list(kBuy, 1000), before);
    feed("SZ", "131810", 1001);
    EXPECT_THAT(list(kBuy, 10000), testing::HasSubstr("1010 10 normal"));

    engine.setStock("SH510300"); // lots of 100, ticks of 0.001: the same keys, other lots
    feed("SH", "510300", 2001);
    EXPECT_THAT(list(kBuy, 10000), testing::HasSubstr("1010 10 normal"));
    EXPECT_THAT(list(kBuy, 10000), testing::HasSubstr("2010 1 normal"));

    engine.setStock("HK00700"); // ticks of 0.2
    feed("HK", "00700", 3001);
    EXPECT_THAT(list(kBuy, 50), testing::HasSubstr("3010 1 normal"));

    engine.setStock("SH600519");
    engine.clear(true);
    engine.doOrderCallBack(0, 1, wrap({order(5001, kBuy, 10.00, 500)}));
    engine.updateDataList();
    EXPECT_EQ(list(kBuy, 1000), "5001 5 normal");
}

TEST_F(InstrumentChange, ToAnUnknownOneAndBackKeepsTheListsAndTakesNothingBetween)
{
    orders(1, {order(1, kBuy, 10.00, 500)});
    for (const char* code : {"unknown", "", "SH", "600519 ", "\xff\xfe"}) {
        engine.setStock(QString::fromLatin1(code));
        orders(1, {order(2, kBuy, 10.00, 500)});
        deals(1, {deal(1, 0, 10.00, 500)});
        quotes(-1, {snapshot("bid 10.00x3")});
        quotes(1, {levelRecord("bid 10.00: 9")});
        engine.slotTimeout();
        engine.slotShangHaiTimeout();
        engine.calcOrder();
    }
    engine.setStock("SH600519");
    engine.updateDataList();
    EXPECT_EQ(list(kBuy, 1000), "1 5 normal");
}

TEST_F(InstrumentChange, OfLotsAppliesToWhatIsStillCached)
{
    orders(3, buyOrders(1, 101));
    engine.setStock("SZ131810");
    engine.doDealCallBack(0, 1, wrap({deal(1, 0, 10, 100)}, "SZ", "131810"));
    ASSERT_TRUE(level(kBuy, 10000));
    EXPECT_EQ(level(kBuy, 10000)->m_orders.size(), 100) << "the first order is dealt whole in the new lots";
    EXPECT_EQ(level(kBuy, 10000)->m_orders.first().m_vol, 10);
}

TEST_F(FullAndQuickSweep, DropACachedOrderOfNumberZeroThatWasCancelled)
{
    deals(0, {deal(7, 0, 10.00, 100)});
    orders(0, large({order(0, kBuy, 10.00, 500), order(1, kBuy, 9.99, 500)}));
    sweep();
    deals(1, {cancelBuy(0, 500)});
    sweep();
    EXPECT_EQ(fullCache(), "1: 1;");
    EXPECT_EQ(quickCache(), "1: 1;");
}

TEST_F(FullAndQuickSweep, DropACachedOrderThatOtherLotsMadeADealtOne)
{
    orders(1, large({order(5, kBuy, 10.00, 500)}));
    sweep();
    setStock("SZ131810");
    deals(1, {deal(1, 0, 10.00, 200)}); // 20 lots of 10
    setStock("SH600519");
    sweep();
    setStock("SZ131810");
    orders(1, large({order(1, kBuy, 10.00, 500)})); // 50 lots of 10, so it is kept
    setStock("SH600519");                           // 5 lots of 100: less than was dealt
    sweep();
    EXPECT_EQ(fullCache(), "1: 5;");
    EXPECT_EQ(quickCache(), "1: 5;");
}

TEST_F(FullAndQuickSweep, KeepACachedOrderOfWhichAPartWasDealtOrCancelled)
{
    orders(1, large({order(1, kBuy, 10.00, 500), order(2, kBuy, 10.00, 500), order(3, kSell, 10.00, 500)}));
    sweep();
    deals(1, {deal(1, 3, 10.00, 400), cancelBuy(2, 400)});
    sweep();
    EXPECT_EQ(fullCache(), "1: 1 2;2: 3;");
    EXPECT_EQ(quickCache(), "1: 1 2;2: 3;");
    deals(1, {deal(1, 3, 10.00, 100), cancelBuy(2, 100)});
    sweep();
    EXPECT_EQ(fullCache(), "1:;2:;");
    EXPECT_EQ(quickCache(), "1:;2:;");
}
