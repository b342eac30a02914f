// What the rebuilt ladder reports, and when.

#include "LadderModelFixture.h"
#include "platform/models/ladder_units.h"
#include "platform/models/tick_values.h"

#include <limits>

namespace {

using namespace testing_support;
using Kel::kLadderCover;
using Kel::kLadderRowCount;
using Kel::kLadderRowData;

TEST(LadderUnits, TheShortFormHasTenRowsASide)
{
    EXPECT_EQ(Kel::getLevelDisplayCount(11), 10);
    EXPECT_EQ(Kel::getLevelDisplayCount(1000), 1000);
    EXPECT_EQ(Kel::getLevelDisplayCount(-5), 0);
}

TEST(LadderUnits, LotsAreRoundedToTheNearestAndNeverBelowOne)
{
    EXPECT_EQ(Kel::lotsFromShares(0, 100), 0);
    EXPECT_EQ(Kel::lotsFromShares(-5, 100), 0);
    EXPECT_EQ(Kel::lotsFromShares(1, 100), 1);
    EXPECT_EQ(Kel::lotsFromShares(149, 100), 1);
    EXPECT_EQ(Kel::lotsFromShares(150, 100), 2);
    EXPECT_EQ(Kel::lotsFromShares(249, 100), 2);
    EXPECT_EQ(Kel::lotsFromShares(7, 0), 7) << "a unit is never below 1";
    EXPECT_EQ(Kel::lotsFromShares(std::numeric_limits<std::int64_t>::max(), 1),
              std::numeric_limits<int>::max());
    EXPECT_EQ(Kel::lotsFromShares(15, 10), 2);
}

TEST_F(LadderModel, StartsWithTickCloseAndUnitOfNoInstrument)
{
    const Kel::CModelDepthThousand fresh(0, -1);
    EXPECT_EQ(fresh.getPriceTick(), 0.01);
    EXPECT_EQ(fresh.getLastClose(), 0);
    EXPECT_EQ(fresh.getVolumeUnit(), 100);
    EXPECT_EQ(fresh.getStockKey(), QString());
}

TEST_F(LadderModel, TakesTickCloseAndUnitOfTheInstrument)
{
    addInstrument("SZ", "123001", 0.001, 112.5);
    model.setStock("SZ123001");
    EXPECT_EQ(model.getStockKey(), "SZ123001");
    EXPECT_EQ(model.getPriceTick(), 0.001);
    EXPECT_EQ(model.getLastClose(), 112.5);
    EXPECT_EQ(model.getVolumeUnit(), 10);
    model.setStock("nobody knows it");
    EXPECT_EQ(model.getStockKey(), QString());
    EXPECT_EQ(model.getPriceTick(), 0.01);
    EXPECT_EQ(model.getVolumeUnit(), 100);
}

TEST_F(LadderModel, TakesThePreviousCloseOfASnapshotThatHasOne)
{
    const auto depth = boost::make_shared<quoter::QuoterDepthData>();
    depth->previousClose = 12.34;
    model.quoterCallback(0, -1, batchOf({depth, nullptr, boost::make_shared<quoter::OrderData>()}));
    EXPECT_EQ(model.getLastClose(), 12.34);
    const auto none = boost::make_shared<quoter::QuoterDepthData>();
    model.quoterCallback(0, -1, batchOf({none}));
    EXPECT_EQ(model.getLastClose(), 12.34);
    model.quoterCallback(0, -1, nullptr);
    depth->previousClose = 99;
    model.quoterCallback(0, -1, batchOf({depth}, "SZ", "600519"));
    EXPECT_EQ(model.getLastClose(), 12.34);
    EXPECT_FALSE(answer.ask(model)) << "a close is no row";
}

TEST_F(LadderModel, FalseLeavesTheOutputsAlone)
{
    EXPECT_FALSE(answer.ask(model));
    EXPECT_EQ(answer.latest, -7);
    EXPECT_EQ(answer.lastVolume, -7);
    EXPECT_EQ(answer.minPrice, -7);
    EXPECT_EQ(answer.maxPrice, -7);
    EXPECT_EQ(answer.maxAmount, -7);
    start();
    const std::string before = answer.text();
    EXPECT_FALSE(answer.ask(model));
    EXPECT_EQ(answer.flags, 0);
    EXPECT_EQ(answer.text(), before);
}

TEST_F(LadderModel, TheFirstAnswerReplacesEverythingWithChangeZero)
{
    start();
    EXPECT_TRUE(answer.news);
    EXPECT_EQ(answer.flags, kLadderCover | kLadderRowCount | kLadderRowData);
    EXPECT_EQ(answer.text(), "B 9.98:2/1 9.99:3/1 S 10.01:5/1 10.02:4/1");
    EXPECT_EQ(answer.latest, std::numeric_limits<double>::max()) << "no deal yet";
    EXPECT_EQ(answer.lastVolume, -1);
    EXPECT_DOUBLE_EQ(answer.minPrice, 9.98);
    EXPECT_DOUBLE_EQ(answer.maxPrice, 10.02);
    EXPECT_DOUBLE_EQ(answer.maxAmount, 5 * 10.01);
}

TEST_F(LadderModel, AChangedRowTellsTheChangeSinceItWasReportedAndKeepsItUntilTheNext)
{
    start();
    model.entrustCallback(0, 1, orders({"B 5 9.99 200"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.flags, kLadderRowData);
    EXPECT_EQ(answer.text(), "B 9.98:2/1 9.99:5+2/2 S 10.01:5/1 10.02:4/1");
    model.transactionCallback(0, 1, deals({"1x9 9.99 100 #1"}));
    model.entrustCallback(0, 1, orders({"B 6 9.98 100"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.text(), "B 9.98:3+1/2 9.99:4-1/2 S 10.01:5/1 10.02:4/1");
    model.transactionCallback(0, 1, cancels({6}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.text(), "B 9.98:2-1/1 9.99:4-1/2 S 10.01:5/1 10.02:4/1");
}

TEST_F(LadderModel, SeveralChangesBetweenTwoCallsAreOneChange)
{
    start();
    model.entrustCallback(0, 1, orders({"B 5 9.99 200", "B 6 9.99 500"}));
    model.transactionCallback(0, 1, cancels({5}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(Answer::text(answer.buys), "9.98:2/1 9.99:8+5/2");
}

TEST_F(LadderModel, ANewLevelShowsItsVolumeAndOneThatLeftIsGone)
{
    start();
    model.entrustCallback(0, 1, orders({"S 5 10.03 700"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.flags, kLadderRowCount | kLadderRowData);
    EXPECT_EQ(Answer::text(answer.sells), "10.01:5/1 10.02:4/1 10.03:7+7/1");
    model.transactionCallback(0, 1, cancels({4}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.flags, kLadderRowCount | kLadderRowData);
    EXPECT_EQ(Answer::text(answer.sells), "10.01:5/1 10.03:7+7/1");
    model.entrustCallback(0, 1, orders({"S 6 10.02 100"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(Answer::text(answer.sells), "10.01:5/1 10.02:1+1/1 10.03:7+7/1") << "new again";
}

TEST_F(LadderModel, ALevelThatLeftAndCameBackBetweenTwoCallsTellsTheDifference)
{
    start();
    model.transactionCallback(0, 1, cancels({4}));
    model.entrustCallback(0, 1, orders({"S 6 10.02 600"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.flags, kLadderRowData);
    EXPECT_EQ(Answer::text(answer.sells), "10.01:5/1 10.02:6+2/1");
}

TEST_F(LadderModel, OneLevelGoneAndOneComeKeepsTheSizeAndTellsRowData)
{
    start();
    model.transactionCallback(0, 1, cancels({4}));
    model.entrustCallback(0, 1, orders({"S 6 10.05 600"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.flags, kLadderRowData);
    EXPECT_EQ(Answer::text(answer.sells), "10.01:5/1 10.05:6+6/1");
}

TEST_F(LadderModel, ACountMayChangeWhereTheVolumeDoesNot)
{
    start();
    model.transactionCallback(0, 1, cancels({3}));
    model.entrustCallback(0, 1, orders({"S 6 10.01 200", "S 7 10.01 300"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.flags, kLadderRowData);
    EXPECT_EQ(Answer::text(answer.sells), "10.01:5/2 10.02:4/1");
}

TEST_F(LadderModel, OrdersThatChangeBehindRowsThatShowTheSameAreNewsWithoutFlags)
{
    start();
    model.transactionCallback(0, 1, cancels({3}));
    model.entrustCallback(0, 1, orders({"S 6 10.01 500"}));
    const auto row = answer.sells.front();
    EXPECT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.flags, 0);
    EXPECT_EQ(answer.sells.front(), row);
}

TEST_F(LadderModel, TheNewestDealTellsLatestPriceAndVolumeInLots)
{
    start();
    model.transactionCallback(0, 1, deals({"77x88 10.00 1250 #1 @1000"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.flags, kLadderRowData);
    EXPECT_EQ(answer.latest, 10.0);
    EXPECT_EQ(answer.lastVolume, 13);
    model.transactionCallback(0, 1, deals({"77x88 10.00 1250 #2 @2000"}));
    EXPECT_FALSE(answer.ask(model)) << "the same again";
    model.transactionCallback(0, 1, deals({"77x88 9.00 100 #3 @500"}));
    EXPECT_FALSE(answer.ask(model)) << "late";
    model.transactionCallback(0, 1, deals({"77x88 10.00 100 #4 @3000"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.lastVolume, 1);
}

TEST_F(LadderModel, RecordsThatWereHandedOutNeverChange)
{
    start();
    const Answer before = answer;
    std::vector<Kel::EntrustData> values;
    for (const auto& row : before.buys)
        values.push_back(*row);
    model.entrustCallback(0, 1, orders({"B 5 9.99 200", "B 6 9.97 100"}));
    answer.ask(model);
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(before.buys[i]->volume, values[i].volume);
        EXPECT_EQ(before.buys[i]->change, values[i].change);
    }
    EXPECT_EQ(answer.buys[1], before.buys[0]) << "a row that did not change is the same record";
    EXPECT_NE(answer.buys[2], before.buys[1]);
}

TEST_F(LadderModel, FillsListsThatAreNotThoseOfTheCallBefore)
{
    start();
    model.entrustCallback(0, 1, orders({"B 5 9.99 200"}));
    Answer other;
    other.buys.resize(7);
    ASSERT_TRUE(other.ask(model));
    EXPECT_EQ(other.text(), "B 9.98:2/1 9.99:5+2/2 S 10.01:5/1 10.02:4/1");
}

TEST_F(LadderModel, OneSideMayBeEmptyAndSoMayBoth)
{
    model.entrustCallback(0, 1, orders({"B 1 11.00 300"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.text(), "B 11:3/1 S ");
    EXPECT_DOUBLE_EQ(answer.minPrice, 11);
    EXPECT_DOUBLE_EQ(answer.maxPrice, 11);
    model.transactionCallback(0, 1, cancels({1}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.text(), "B  S ");
    EXPECT_EQ(answer.flags, kLadderRowCount | kLadderRowData);
    EXPECT_EQ(answer.minPrice, 1e9);
    EXPECT_EQ(answer.maxPrice, 0);
    EXPECT_EQ(answer.maxAmount, 0);
}

TEST_F(LadderModel, SidesMayOverlapInAnAuction)
{
    model.entrustCallback(0, 1, orders({"B 1 10.50 300", "S 2 9.50 200"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.text(), "B 10.5:3/1 S 9.5:2/1");
    EXPECT_DOUBLE_EQ(answer.minPrice, 9.5);
    EXPECT_DOUBLE_EQ(answer.maxPrice, 10.5);
}

// Reload
// ------------------------------------------------------------------------------------------------------

TEST_F(LadderModel, AReloadIsAnsweredOnceBothOpeningBatchesHaveCome)
{
    start();
    model.transactionCallback(0, 0, deals({"1x9 9.99 100 #1"}));
    EXPECT_FALSE(answer.ask(model));
    model.transactionCallback(1, 3, deals({"2x9 9.98 100 #2"}));
    EXPECT_FALSE(answer.ask(model));
    model.entrustCallback(0, 0, orders({"B 1 9.99 300", "B 2 9.98 200"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.flags, kLadderCover | kLadderRowCount | kLadderRowData);
    EXPECT_EQ(answer.text(), "B 9.98:1/1 9.99:2/1 S ");
    model.entrustCallback(1, 3, orders({"S 3 10.01 300"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.flags, kLadderRowCount | kLadderRowData) << "more history is no new reload";
}

TEST_F(LadderModel, OrdersMayOpenAReloadAsWell)
{
    start();
    model.entrustCallback(0, 0, orders({"B 1 9.99 300"}));
    EXPECT_FALSE(answer.ask(model));
    model.transactionCallback(0, 0, deals({"1x9 9.99 100 #1"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_TRUE(answer.flags & kLadderCover);
    EXPECT_EQ(answer.text(), "B 9.99:2/1 S ");
}

TEST_F(LadderModel, ALiveBatchEndsTheWaitForTheOtherOpening)
{
    for (const int live : {1, 2}) {
        for (const bool byOrders : {false, true}) {
            model.entrustCallback(0, 0, orders({"B 1 9.99 300"}));
            EXPECT_FALSE(answer.ask(model));
            if (byOrders)
                model.entrustCallback(1, live, orders({}));
            else
                model.transactionCallback(0, live, deals({}));
            ASSERT_TRUE(answer.ask(model));
            EXPECT_TRUE(answer.flags & kLadderCover);
            EXPECT_EQ(answer.text(), "B 9.99:3/1 S ");
        }
    }
}

TEST_F(LadderModel, AReloadForgetsTheBookThatStoodBefore)
{
    start();
    model.transactionCallback(0, 0, deals({}));
    model.entrustCallback(0, 0, orders({"B 1 8.00 100"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.text(), "B 8:1/1 S ") << "number 1 was another order before";
    EXPECT_EQ(answer.latest, std::numeric_limits<double>::max());
}

TEST_F(LadderModel, TheSameOpeningTwiceBeginsAnew)
{
    model.transactionCallback(0, 0, deals({"1x9 9.99 100 #1"}));
    model.transactionCallback(0, 0, deals({"1x9 9.99 50 #1"}));
    model.entrustCallback(0, 0, orders({"B 1 9.99 300"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(model.getQueue(true, 9.99)->totalVolume, 250);
}

TEST_F(LadderModel, AnEmptyReloadEmptiesTheLadder)
{
    start();
    model.transactionCallback(0, 0, deals({}));
    model.entrustCallback(0, 0, orders({}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_TRUE(answer.flags & kLadderCover);
    EXPECT_EQ(answer.text(), "B  S ");
}

TEST_F(LadderModel, ClearAndSetStockAreSilentUntilTheFeedComesAndThenReplaceEverything)
{
    start();
    model.clear();
    EXPECT_FALSE(answer.ask(model));
    EXPECT_FALSE(answer.ask(model, true)) << "nor by a switch of the form";
    EXPECT_FALSE(model.getQueue(true, 9.99));
    model.entrustCallback(0, 1, orders({"B 1 9.99 100"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.flags & kLadderCover, kLadderCover);
    EXPECT_EQ(answer.text(), "B 9.99:1/1 S ");
    model.setStock("SH600519");
    EXPECT_FALSE(answer.ask(model));
    model.entrustCallback(0, 3, orders({"B 1 9.98 100"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.flags & kLadderCover, kLadderCover);
    EXPECT_EQ(answer.text(), "B 9.98:1/1 S ");
}

TEST_F(LadderModel, BatchesOfOthersAndOtherRecordsArePassedOver)
{
    model.entrustCallback(0, 1, nullptr);
    model.entrustCallback(
        0, 1, batchOf({boost::make_shared<quoter::OrderData>(orderFrom("B 1 9.99 100"))}, "SZ", "600519"));
    model.entrustCallback(
        0, 1, batchOf({boost::make_shared<quoter::OrderData>(orderFrom("B 1 9.99 100"))}, "SH", "600000"));
    EXPECT_FALSE(answer.ask(model));
    model.entrustCallback(0, 5, orders({"B 1 9.99 100"}));
    model.entrustCallback(0, -1, orders({"B 1 9.99 100"}));
    EXPECT_FALSE(answer.ask(model)) << "no such status";
    model.entrustCallback(0, 1,
                          batchOf({nullptr, boost::make_shared<quoter::TransactionData>(),
                                   boost::make_shared<quoter::OrderData>(orderFrom("B 1 9.99 100"))}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.text(), "B 9.99:1/1 S ");
    Kel::CModelDepthThousand without(0, -1);
    without.entrustCallback(0, 1, orders({"B 1 9.99 100"}));
    EXPECT_FALSE(answer.ask(without)) << "without an instrument nothing is taken";
}

} // namespace
