#include "queue_engine/EngineFixture.h"

using namespace testing_support;

namespace {

class LevelPass : public EngineTest
{
protected:
    /// Takes the level under test; `pass` runs one pass over it.
    void take(const std::string& text) { m_level = parseLevelPtr(text); }

    /// The orders after a pass, with "changed: " before them if the pass reports a change.
    std::string pass()
    {
        m_level->wake();
        const bool changed = engine.updateVolList(m_level);
        return (changed ? "changed: " : "") + ordersText(*m_level);
    }

    std::string head() const { return headText(*m_level); }

    Kel::OrderQueueDataPtr m_level;
};

} // namespace

TEST_F(LevelPass, ClassifiesUnknownOrdersOnce)
{
    take("buy 10; 1 10 unknown; 2 1500 unknown; 3 6000 unknown");
    EXPECT_EQ(pass(), "changed: 1 10 normal; 2 1500 big; 3 6000 super");
    EXPECT_EQ(pass(), "1 10 normal; 2 1500 big; 3 6000 super");
    EXPECT_EQ(head(), "buy 10 level=0 levelVol=7510 sum=7510 count=3 avg=2503.33333333 unknown=0 start=0");
}

TEST_F(LevelPass, LeavesALiveOrderItsClassWhateverItsVolume)
{
    take("buy 10; 1 10 super; 2 6000 normal; 3 5 big");
    EXPECT_EQ(pass(), "1 10 super; 2 6000 normal; 3 5 big");
    EXPECT_EQ(m_level->m_sumVol, 6015);
}

TEST_F(LevelPass, ReportsNoChangeForAnEmptyList)
{
    take("buy 10 levelVol=7 count=3 start=2 unknown=4");
    EXPECT_EQ(pass(), "");
    EXPECT_EQ(head(), "buy 10 level=0 levelVol=0 sum=0 count=0 avg=0 unknown=0 start=0");
}

TEST_F(LevelPass, ShowsACancelledOrderForOnePassAndThenRemovesItEverywhere)
{
    engine.filterOrderData({order(1, kBuy, 10.00, 1000), order(2, kBuy, 10.00, 2000)});
    engine.appendTransactionDealData(1, {cancelBuy(1, 1000)});
    take("buy 10; 1 10 normal; 2 20 normal");
    EXPECT_EQ(pass(), "changed: 1 10 cancelled; 2 20 normal");
    EXPECT_EQ(head(), "buy 10 level=0 levelVol=20 sum=20 count=1 avg=20 unknown=0 start=0");
    EXPECT_EQ(cancelled(), "1");
    EXPECT_EQ(dealt(), "1: 1=10; 3: 1=10");

    EXPECT_EQ(pass(), "changed: 2 20 normal");
    EXPECT_EQ(head(), "buy 10 level=0 levelVol=20 sum=20 count=1 avg=20 unknown=0 start=0");
    EXPECT_EQ(cancelled(), "");
    EXPECT_EQ(cache(), "1: 2");
    EXPECT_EQ(dealt(), "3: 1=10") << "the cancelled lots wait for the filter, the match or the sweep";
    EXPECT_FALSE(m_level->m_orderIds.contains(1));
    EXPECT_EQ(pass(), "2 20 normal");
}

TEST_F(LevelPass, RemovesACancelledSellOrderByItsOwnSidesEntry)
{
    engine.appendTransactionDealData(1, {deal(900, 1, 10.00, 400), cancelSell(1, 600)});
    take("sell 10; 1 10 normal");
    EXPECT_EQ(pass(), "changed: 1 10 cancelled");
    // Six of the ten lots were cancelled; the entry of its side holds dealt and cancelled lots together.
    EXPECT_EQ(pass(), "changed: 1 4 part 10");
    EXPECT_EQ(dealt(), "1: 1=6 900=4; 3: 1=6");
}

TEST_F(LevelPass, CountsACancellationBeforeADeal)
{
    engine.m_cancelOrders.insert(1);
    engine.m_dealCache[1][1] = 3;
    take("buy 10; 1 10 unknown");
    EXPECT_EQ(pass(), "changed: 1 10 cancelled");
    EXPECT_EQ(head(), "buy 10 level=0 levelVol=0 sum=0 count=0 avg=0 unknown=0 start=0");
}

TEST_F(LevelPass, TakesCancelledLotsOffAndGoesOnAsPartDealtWithARest)
{
    engine.appendTransactionDealData(1, {cancelBuy(1, 400)});
    take("buy 10; 1 10 normal");
    EXPECT_EQ(pass(), "changed: 1 10 cancelled");
    EXPECT_EQ(pass(), "changed: 1 6 part 4");
    EXPECT_TRUE(m_level->m_hasPartDeal);
    EXPECT_EQ(cancelled(), "1");
    EXPECT_EQ(dealt(), "3: 1=4");
    EXPECT_EQ(pass(), "changed: 1 6 part");
    EXPECT_FALSE(m_level->m_hasPartDeal);
    EXPECT_EQ(pass(), "1 6 part");
}

TEST_F(LevelPass, ShowsAPartDealWithTheFullVolumeFirstAndThenReduced)
{
    engine.m_dealCache[1][1] = 4;
    take("buy 10; 1 10 normal; 2 20 normal");
    EXPECT_EQ(pass(), "changed: 1 10 part 4; 2 20 normal");
    EXPECT_EQ(head(), "buy 10 level=0 levelVol=30 sum=30 count=2 avg=15 unknown=0 start=0 hasPart");
    EXPECT_EQ(dealt(), "1: 1=4");
    EXPECT_EQ(pass(), "changed: 1 6 part 4; 2 20 normal");
    EXPECT_EQ(head(), "buy 10 level=0 levelVol=26 sum=26 count=2 avg=13 unknown=0 start=0 hasPart");
    EXPECT_EQ(dealt(), "");
    EXPECT_EQ(pass(), "changed: 1 6 part; 2 20 normal");
    EXPECT_EQ(head(), "buy 10 level=0 levelVol=26 sum=26 count=2 avg=13 unknown=0 start=0");
    EXPECT_EQ(pass(), "1 6 part; 2 20 normal");
}

TEST_F(LevelPass, AppliesALaterDealToAPartDealtOrder)
{
    take("buy 10; 1 6 part");
    engine.m_dealCache[1][1] = 2;
    EXPECT_EQ(pass(), "changed: 1 4 part 2");
    engine.m_dealCache[1][1] = 4;
    EXPECT_EQ(pass(), "changed: ");
    EXPECT_FALSE(m_level->m_orderIds.contains(1));
    EXPECT_EQ(dealt(), "");
}

TEST_F(LevelPass, LeavesAnOrderWithAnEntryOfNothingOutOfTheSum)
{
    for (const double nothing : {0.0, 0.000009, -4.0}) {
        engine.m_dealCache[1][1] = nothing;
        take("buy 10; 1 10 unknown; 2 20 normal");
        EXPECT_EQ(pass(), "1 10 unknown; 2 20 normal") << nothing;
        EXPECT_EQ(head(), "buy 10 level=0 levelVol=20 sum=20 count=2 avg=10 unknown=0 start=0");
        EXPECT_EQ(engine.m_dealCache.at(1).size(), 1u);
    }
}

TEST_F(LevelPass, ShowsAnOrderThatIsDealtAheadOfAllLiveOnesForOnePass)
{
    engine.filterOrderData({order(1, kBuy, 10.00, 1000)});
    engine.m_dealCache[1][1] = 10;
    take("buy 10; 1 10 normal; 2 20 normal");
    EXPECT_EQ(pass(), "changed: 1 10 dealt; 2 20 normal");
    EXPECT_EQ(head(), "buy 10 level=0 levelVol=20 sum=20 count=1 avg=20 unknown=0 start=0");
    EXPECT_EQ(dealt(), "1: 1=10");
    EXPECT_EQ(pass(), "changed: 2 20 normal");
    EXPECT_EQ(dealt(), "");
    EXPECT_EQ(cache(), "1:");
    EXPECT_FALSE(m_level->m_orderIds.contains(1));
}

TEST_F(LevelPass, DeletesAnOrderThatIsDealtBehindALiveOneAtOnceWithNoFurtherBookkeeping)
{
    engine.filterOrderData({order(2, kBuy, 10.00, 2000)});
    for (const std::string live : {"normal", "big", "super"}) {
        engine.m_dealCache[1][2] = 20;
        take("buy 10; 1 10 " + live + "; 2 20 normal; 3 30 normal");
        EXPECT_EQ(pass(), "changed: 1 10 " + live + "; 3 30 normal");
        EXPECT_EQ(head(), "buy 10 level=0 levelVol=40 sum=40 count=2 avg=20 unknown=0 start=0");
        EXPECT_TRUE(m_level->m_orderIds.contains(2));
        EXPECT_EQ(dealt(), "1: 2=20");
        EXPECT_EQ(cache(), "1: 2");
    }
}

TEST_F(LevelPass, TakesOnlyClassifiedOrdersForLiveOnes)
{
    // An order that this very pass classifies, and a part-dealt one, do not count as live ones ahead.
    for (const std::string ahead : {"unknown", "part", "cancelled", "dealt"}) {
        engine.m_dealCache[1][2] = 20;
        take("buy 10; 1 10 " + ahead + "; 2 20 normal");
        const std::string after = ahead == "unknown" ? "normal" : "part";
        EXPECT_EQ(pass(), "changed: 1 10 " + after + "; 2 20 dealt") << ahead;
    }
}

TEST_F(LevelPass, DeletesNoCancelledOrderBehindALiveOne)
{
    engine.m_cancelOrders.insert(2);
    take("buy 10; 1 10 normal; 2 20 normal");
    EXPECT_EQ(pass(), "changed: 1 10 normal; 2 20 cancelled");
}

TEST_F(LevelPass, TakesDealsWithinTheToleranceForTheWholeVolume)
{
    engine.m_dealCache[1][1] = 10 - 0.000009;
    engine.m_dealCache[1][2] = 19.9998779296875;
    take("buy 10; 1 10 normal; 2 20 normal");
    EXPECT_EQ(pass(), "changed: 1 10 dealt; 2 20 part 19.9998779297");
    EXPECT_EQ(pass(), "changed: 2 0.0001220703125 part 19.9998779297")
        << "what is left within the tolerance is nothing";
}

TEST_F(LevelPass, LetsAFinishedOrderWithoutAnEntrySurviveAsPartDealtWithNoPart)
{
    take("buy 10 hasPart; 0 10 dealt; 0 20 cancelled; 7 30 dealt; 8 5 normal");
    EXPECT_EQ(pass(), "0 10 part; 0 20 part; 7 30 part; 8 5 normal");
    EXPECT_EQ(head(), "buy 10 level=0 levelVol=65 sum=65 count=4 avg=16.25 unknown=0 start=0");
}

TEST_F(LevelPass, ReportsAChangeWhenADealtPartIsTakenOff)
{
    take("buy 10 hasPart; 0 10 part 4");
    EXPECT_EQ(pass(), "changed: 0 10 part");
    EXPECT_EQ(pass(), "0 10 part");
}

TEST_F(LevelPass, LetsTheLastFinishedOrderDecideOnTheDealtPart)
{
    engine.m_dealCache[1][1] = 4;
    take("buy 10; 1 10 part; 2 20 part");
    EXPECT_EQ(pass(), "changed: 1 6 part 4; 2 20 part");
    EXPECT_FALSE(m_level->m_hasPartDeal);
    engine.m_dealCache[1][2] = 4;
    EXPECT_EQ(pass(), "changed: 1 6 part; 2 16 part 4");
    EXPECT_TRUE(m_level->m_hasPartDeal);
}

TEST_F(LevelPass, EndsAFinishedOrderWithNothingLeft)
{
    engine.m_cancelOrders = {1, 2, 3};
    take("buy 10; 1 0 dealt; 2 0.000009 part; 3 -5 cancelled; 4 1 normal");
    EXPECT_EQ(pass(), "changed: 4 1 normal");
    EXPECT_EQ(cancelled(), "");
    EXPECT_EQ(m_level->m_orderIds.size(), 1);
}

TEST_F(LevelPass, LooksUpDealsOfTheLevelsOwnSide)
{
    engine.m_dealCache[1][1] = 10;
    take("sell 10; 1 10 normal");
    EXPECT_EQ(pass(), "1 10 normal");
    engine.m_dealCache[2][1] = 10;
    EXPECT_EQ(pass(), "changed: 1 10 dealt");
}

TEST_F(LevelPass, TakesCancelledNumberZeroForAllPublishedOrders)
{
    engine.m_cancelOrders.insert(0);
    take("buy 10; 0 10 normal; 0 20 unknown");
    EXPECT_EQ(pass(), "changed: 0 10 cancelled; 0 20 cancelled");
    EXPECT_EQ(cancelled(), "0");
}

TEST_F(LevelPass, CreatesNoEntryInAnyCache)
{
    take("buy 10; 1 10 normal; 2 5 dealt; 3 5 cancelled; 4 0 dealt; 5 5 unknown");
    pass();
    EXPECT_TRUE(engine.m_dealCache.empty());
    EXPECT_TRUE(engine.m_orderCache.empty());
    EXPECT_TRUE(engine.m_cancelOrders.empty());
}

TEST_F(LevelPass, LetsANumberThatEndedEnterAgain)
{
    engine.m_dealCache[1][1] = 10;
    take("buy 10; 1 10 normal");
    pass();
    pass();
    ASSERT_EQ(ordersText(*m_level), "");
    Kel::COrderVol again;
    again.m_entrustNo = 1;
    again.m_vol = 7;
    m_level->addOrderVol(again);
    EXPECT_EQ(ordersText(*m_level), "1 7 unknown");
}

TEST_F(LevelPass, LeavesTheRowOfAViewAsItWas)
{
    take("buy 10; 1 10 normal; 2 20 unknown");
    const Kel::OrderQueueData held(*m_level);
    const std::string before = levelText(held);
    engine.m_dealCache[1][1] = 10;
    pass();
    pass();
    EXPECT_EQ(levelText(held), before);
}
