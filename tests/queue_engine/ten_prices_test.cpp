#include "queue_engine/EngineFixture.h"

using namespace testing_support;

namespace {

class TenPrices : public EngineTest
{
protected:
    /// The prices of the ten rows in ticks, best first, after a calculation: "1000 999 0 0 ...", without what
    /// follows the first `count`.
    std::string prices(Kel::EOrderQueueType side, unsigned int count)
    {
        engine.calcOrder();
        std::string text;
        for (unsigned int i = 0; i < count; ++i)
            text += (i == 0 ? "" : " ") + numberText(engine.at(i, side)->m_price);
        return text;
    }

    /// Makes the feed newer than a snapshot of 5000 ms, after a match.
    void feedIsNewer()
    {
        engine.m_lastFeedTime = 5001;
        engine.m_bLevelDataBack = true;
    }

    void live(int side, std::initializer_list<int> keys)
    {
        for (const int key : keys)
            put(side, key,
                std::string(side == kBuy ? "buy " : "sell ") + std::to_string(key / 100.0) + "; 1 10 normal");
    }
};

const char* const kSnapshot = "bid 10.00x1 9.99x2 9.98x3; ask 10.01x1 10.02x2 10.03x3; last 10.00";

} // namespace

TEST_F(TenPrices, AreTheSnapshotsWhileItIsAsNewAsTheFeed)
{
    for (const std::int64_t feedTime : {0, 4999, 5000}) {
        snap(kSnapshot, 5000);
        live(kBuy, {1000, 995});
        live(kSell, {1005});
        engine.m_bLevelDataBack = true;
        engine.m_lastFeedTime = feedTime;
        EXPECT_EQ(prices(Kel::OQT_BUY, 4), "10 9.99 9.98 0");
        EXPECT_EQ(prices(Kel::OQT_SELL, 4), "10.01 10.02 10.03 0");
    }
}

TEST_F(TenPrices, AreTheSnapshotsBeforeTheFirstMatchEvenIfTheFeedIsNewer)
{
    snap(kSnapshot, 5000);
    live(kBuy, {995});
    feedIsNewer();
    engine.m_bLevelDataBack = false;
    EXPECT_EQ(prices(Kel::OQT_BUY, 4), "10 9.99 9.98 0");
}

TEST_F(TenPrices, AreThoseOfLiveLevelsWhileTheFeedIsNewer)
{
    snap(kSnapshot, 5000);
    live(kBuy, {1000, 995, 990});
    live(kSell, {1001, 1005});
    feedIsNewer();
    EXPECT_EQ(prices(Kel::OQT_BUY, 3), "10 9.95 9.9");
    EXPECT_EQ(prices(Kel::OQT_SELL, 2), "10.01 10.05");
}

TEST_F(TenPrices, FillTheSlotsLeftOverFromTheSnapshotAtTheirIndexUnderKeyZero)
{
    snap(kSnapshot, 5000);
    live(kBuy, {1000});
    feedIsNewer();
    EXPECT_EQ(prices(Kel::OQT_BUY, 4), "10 9.99 9.98 0");
    EXPECT_EQ(engine.at(1, Kel::OQT_BUY)->m_levelVol, 2);
    EXPECT_TRUE(engine.m_orderQueues.value(kBuy).contains(0));
    EXPECT_FALSE(engine.m_orderQueues.value(kBuy).contains(999)) << "entered under key 0, not under its own";
}

TEST_F(TenPrices, LeaveOutLevelsWithoutLiveOrders)
{
    snap(kSnapshot, 5000);
    put(kBuy, 1000, "buy 10; 1 10 dealt; 2 5 cancelled");
    put(kBuy, 998, "buy 9.98");
    put(kBuy, 997, "buy 9.97; 3 0.000009 normal");
    live(kBuy, {995});
    put(kSell, 1001, "sell 10.01; 4 10 dealt");
    live(kSell, {1004});
    feedIsNewer();
    EXPECT_EQ(prices(Kel::OQT_BUY, 1), "9.95");
    EXPECT_EQ(prices(Kel::OQT_SELL, 1), "10.04");
}

TEST_F(TenPrices, EndAtTen)
{
    snap(kSnapshot, 5000);
    for (int i = 0; i < 15; ++i) {
        live(kBuy, {1000 - i});
        live(kSell, {1001 + i});
    }
    feedIsNewer();
    EXPECT_EQ(prices(Kel::OQT_BUY, 10), "10 9.99 9.98 9.97 9.96 9.95 9.94 9.93 9.92 9.91");
    EXPECT_EQ(prices(Kel::OQT_SELL, 10), "10.01 10.02 10.03 10.04 10.05 10.06 10.07 10.08 10.09 10.1");
}

TEST_F(TenPrices, BeginTheSellSideAtTheLastPriceInContinuousTrading)
{
    snap(kSnapshot, 5000);
    live(kSell, {995, 999, 1000, 1002});
    feedIsNewer();
    EXPECT_EQ(prices(Kel::OQT_SELL, 2), "10 10.02");
}

TEST_F(TenPrices, LeaveTheLastPriceToTheLargerQueue)
{
    const struct
    {
        const char* buyLots;
        const char* sellLots;
        const char* firstBuy;
        const char* firstSell;
    } rows[] = {
        {"20", "10", "10", "10.05"},      // more is bought
        {"10", "20", "9.95", "10"},       // more is sold
        {"10", "10", "9.95", "10"},       // equal: it stays on the sell side
        {"10.000009", "10", "9.95", "10"} // equal within the tolerance
    };
    for (const auto& expected : rows) {
        SCOPED_TRACE(std::string(expected.buyLots) + " against " + expected.sellLots);
        engine.clear(true);
        snap(kSnapshot, 5000);
        put(kBuy, 1000, std::string("buy 10; 1 ") + expected.buyLots + " normal");
        put(kSell, 1000, std::string("sell 10; 2 ") + expected.sellLots + " normal");
        live(kBuy, {995});
        live(kSell, {1005});
        feedIsNewer();
        EXPECT_EQ(prices(Kel::OQT_BUY, 1), expected.firstBuy);
        EXPECT_EQ(prices(Kel::OQT_SELL, 1), expected.firstSell);
    }
}

TEST_F(TenPrices, LeaveOutBuyLevelsAtOrAboveTheFirstSellPriceInContinuousTrading)
{
    snap(kSnapshot, 5000);
    live(kSell, {1002});
    live(kBuy, {1005, 1002, 1001, 1000});
    feedIsNewer();
    EXPECT_EQ(prices(Kel::OQT_BUY, 2), "10.01 10");
}

TEST_F(TenPrices, TakeAllBuyLevelsWithoutASellPrice)
{
    snap(kSnapshot, 5000);
    live(kBuy, {1005, 1000});
    feedIsNewer();
    EXPECT_EQ(prices(Kel::OQT_BUY, 2), "10.05 10");
}

TEST_F(TenPrices, StartAtTheLowestSellLevelWithoutALastPrice)
{
    snap("bid 10.00x1; ask 10.01x1", 5000);
    live(kSell, {990, 1001});
    live(kBuy, {980});
    feedIsNewer();
    EXPECT_EQ(prices(Kel::OQT_SELL, 2), "9.9 10.01")
        << "no last price leaves it on the sell side, where no key is below 0";
}

TEST_F(TenPrices, OverlapOutsideContinuousTrading)
{
    for (const std::string both : {"bid 10.00x1; ask 10.00x1; last 10.00", "last 10.00"}) {
        engine.clear(true);
        snap(both, 5000);
        live(kSell, {990, 1000, 1005});
        live(kBuy, {985, 1000, 1010});
        EXPECT_EQ(prices(Kel::OQT_SELL, 3), "9.9 10 10.05");
        EXPECT_EQ(prices(Kel::OQT_BUY, 3), "10.1 10 9.85");
    }
}

TEST_F(TenPrices, TakeAllSellLevelsOutsideContinuousTradingAlsoWhenMoreIsBought)
{
    snap("bid 10.00x1; ask 10.00x1; last 10.00", 5000);
    put(kBuy, 1000, "buy 10; 1 50 normal");
    live(kSell, {990, 1000, 1005});
    EXPECT_EQ(prices(Kel::OQT_SELL, 3), "9.9 10 10.05");
}

TEST_F(TenPrices, KeepADroppedOutLevelAwayFromTheRowsUntilTheFeedIsNewer)
{
    snap(kSnapshot, 5000);
    engine.m_bLevelDataBack = true;
    put(kBuy, 950, "buy 9.5; 7 10 normal");
    engine.calcOrder();
    for (unsigned int i = 0; i < 10; ++i)
        EXPECT_NE(engine.at(i, Kel::OQT_BUY)->m_price, 9.5) << i;
    engine.m_lastFeedTime = 5001;
    engine.calcOrder();
    EXPECT_EQ(row(0, Kel::OQT_BUY),
              "buy 9.5 level=1 levelVol=10 sum=10 count=1 avg=10 unknown=0 start=0\n7 10 normal\n");
}

TEST_F(TenPrices, AnswerBySideAndIndex)
{
    snap(kSnapshot, 5000);
    EXPECT_EQ(engine.getTenPrice(Kel::OQT_BUY, 0), 1000);
    EXPECT_EQ(engine.getTenPrice(Kel::OQT_BUY, 2), 998);
    EXPECT_EQ(engine.getTenPrice(Kel::OQT_SELL, 1), 1002);
    EXPECT_EQ(engine.getTenPrice(Kel::OQT_SELL, 9), 0);
    EXPECT_TRUE(engine.m_tenPrices.empty());
    feedIsNewer();
    live(kBuy, {995});
    EXPECT_EQ(engine.getTenPrice(Kel::OQT_BUY, 0), 995);
    EXPECT_EQ(engine.getTenPrice(Kel::OQT_BUY, 1), 0);
    EXPECT_EQ(engine.m_tenPrices.at(Kel::OQT_BUY).size(), 10u);
    EXPECT_EQ(engine.m_tenPrices.at(Kel::OQT_SELL).size(), 10u);
    live(kBuy, {997});
    EXPECT_EQ(engine.getTenPrice(Kel::OQT_BUY, 0), 995) << "the table is built once for a calculation";
}
