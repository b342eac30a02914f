// Which levels the rebuilt ladder shows, and the orders of one price.

#include "LadderModelFixture.h"

#include <limits>
#include <map>

namespace {

using namespace testing_support;
using Kel::kLadderCover;
using Kel::kLadderRowCount;
using Kel::kLadderRowData;

TEST_F(LadderModel, TheShortFormCutsListsAndBoundsToTheBestTen)
{
    startDeep(30);
    ASSERT_TRUE(answer.ask(model, true));
    EXPECT_EQ(answer.buys.size(), 10u);
    EXPECT_EQ(answer.sells.size(), 10u);
    EXPECT_DOUBLE_EQ(answer.buys.back()->price, 49.99);
    EXPECT_DOUBLE_EQ(answer.buys.front()->price, 49.90);
    EXPECT_DOUBLE_EQ(answer.sells.front()->price, 50.01);
    EXPECT_DOUBLE_EQ(answer.sells.back()->price, 50.10);
    EXPECT_DOUBLE_EQ(answer.minPrice, 49.90);
    EXPECT_DOUBLE_EQ(answer.maxPrice, 50.10);
    EXPECT_DOUBLE_EQ(answer.maxAmount, 50.10);
}

TEST_F(LadderModel, ASwitchOfTheFormReplacesEverything)
{
    startDeep(30);
    answer.ask(model);
    ASSERT_TRUE(answer.ask(model, true));
    EXPECT_EQ(answer.flags, kLadderCover | kLadderRowCount | kLadderRowData);
    EXPECT_EQ(answer.buys.size(), 10u);
    EXPECT_FALSE(answer.ask(model, true));
    ASSERT_TRUE(answer.ask(model, false));
    EXPECT_TRUE(answer.flags & kLadderCover);
    EXPECT_EQ(answer.buys.size(), 30u);
}

TEST_F(LadderModel, LevelsBehindTheShortFormComeUpWhenThoseBeforeThemLeave)
{
    startDeep(12);
    answer.ask(model, true);
    model.transactionCallback(0, 1, cancels({1, 3}));
    ASSERT_TRUE(answer.ask(model, true));
    EXPECT_EQ(answer.flags, kLadderRowData) << "still ten rows";
    EXPECT_DOUBLE_EQ(answer.buys.back()->price, 49.97);
    EXPECT_DOUBLE_EQ(answer.buys.front()->price, 49.88);
    model.transactionCallback(0, 1, cancels({5}));
    ASSERT_TRUE(answer.ask(model, true));
    EXPECT_EQ(answer.buys.size(), 9u);
    EXPECT_TRUE(answer.flags & kLadderRowCount);
}

TEST_F(LadderModel, AChangeBehindTheShortFormIsNewsOfOrdersOnlyEvenWithARowLeaving)
{
    startDeep(30);
    answer.ask(model, true);
    model.entrustCallback(0, 1, orders({"B 901 49.75 100"}));
    ASSERT_TRUE(answer.ask(model, true));
    EXPECT_EQ(answer.flags, 0);
    // One shown level leaves and one far behind changes: what comes up is the eleventh, not the changed one.
    model.entrustCallback(0, 1, orders({"B 903 49.75 100"}));
    model.transactionCallback(0, 1, cancels({1}));
    ASSERT_TRUE(answer.ask(model, true));
    EXPECT_DOUBLE_EQ(answer.buys.front()->price, 49.89);
    EXPECT_EQ(answer.buys.size(), 10u);
}

TEST_F(LadderModel, ALevelThatComesBackIntoTheShortFormTellsWhatChangedSinceItWasShown)
{
    startDeep(10);
    answer.ask(model, true);
    model.entrustCallback(0, 1, orders({"S 900 50.00 100"}));
    answer.ask(model, true);
    EXPECT_DOUBLE_EQ(answer.sells.back()->price, 50.09) << "50.10 is behind the ten";
    model.entrustCallback(0, 1, orders({"S 902 50.10 300"}));
    model.transactionCallback(0, 1, cancels({900}));
    ASSERT_TRUE(answer.ask(model, true));
    EXPECT_DOUBLE_EQ(answer.sells.back()->price, 50.10);
    EXPECT_EQ(answer.sells.back()->volume, 4);
    EXPECT_EQ(answer.sells.back()->change, 3);
}

TEST_F(LadderModel, WhatWasShownOfALevelThatEndedUnseenIsForgotten)
{
    startDeep(10);
    answer.ask(model, true);
    model.entrustCallback(0, 1, orders({"S 900 50.00 100"}));
    answer.ask(model, true);
    model.transactionCallback(0, 1, cancels({20}));
    answer.ask(model, true);
    model.entrustCallback(0, 1, orders({"S 902 50.10 100"}));
    answer.ask(model, true);
    model.transactionCallback(0, 1, cancels({900}));
    ASSERT_TRUE(answer.ask(model, true));
    EXPECT_DOUBLE_EQ(answer.sells.back()->price, 50.10);
    EXPECT_EQ(answer.sells.back()->change, 1) << "a new level shows its volume";
}

TEST_F(LadderModel, AllShownLevelsMayLeaveAtOnce)
{
    startDeep(25);
    answer.ask(model, true);
    std::vector<int> numbers;
    for (int i = 0; i < 10; ++i)
        numbers.push_back(1 + 2 * i);
    model.transactionCallback(0, 1, cancels(numbers));
    ASSERT_TRUE(answer.ask(model, true));
    EXPECT_EQ(answer.buys.size(), 10u);
    EXPECT_DOUBLE_EQ(answer.buys.back()->price, 49.89);
    EXPECT_DOUBLE_EQ(answer.buys.front()->price, 49.80);
}

TEST_F(LadderModel, AThousandLevelsASideAreShownAndAllAreKept)
{
    startDeep(1200);
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.buys.size(), 1000u);
    EXPECT_EQ(answer.sells.size(), 1000u);
    EXPECT_DOUBLE_EQ(answer.buys.back()->price, 49.99);
    EXPECT_TRUE(model.getQueue(true, 49.99 - 11.50)) << "behind the thousand";
    model.transactionCallback(0, 1, cancels({1}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.buys.size(), 1000u);
    EXPECT_DOUBLE_EQ(answer.buys.front()->price, 39.99);
}

TEST_F(LadderModel, APanelThatWasHiddenForLongGetsEveryRowRight)
{
    startDeep(800);
    answer.ask(model);
    const auto kept = answer.buys[0];
    // More touched prices than are counted one by one.
    for (int round = 0; round < 6; ++round)
        startDeep(800, 10000 + 2000 * round);
    std::vector<std::string> lines;
    for (int i = 0; i < 5000; ++i)
        lines.push_back("S " + std::to_string(100000 + i) + " " + std::to_string(60.0 + 0.01 * i) + " 100");
    model.entrustCallback(0, 1, orders(lines));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.flags, kLadderRowCount | kLadderRowData) << "no reload";
    EXPECT_EQ(answer.sells.size(), 1000u);
    EXPECT_EQ(answer.buys[0]->volume, 7);
    EXPECT_EQ(answer.buys[0]->change, 6);
    EXPECT_EQ(kept->volume, 1);
}

TEST_F(LadderModel, ALevelThatLeftTheBestThousandIsRememberedWhileThePanelIsHidden)
{
    startDeep(1000);
    answer.ask(model);
    model.entrustCallback(0, 1, orders({"S 9001 50.00 100"}));
    answer.ask(model);
    EXPECT_DOUBLE_EQ(answer.sells.back()->price, 59.99) << "60.00 is behind the thousand";
    // More touched prices than are counted one by one, twice.
    const auto touchMany = [this](int firstNumber) {
        std::vector<std::string> lines;
        for (int i = 0; i < 5000; ++i)
            lines.push_back("S " + std::to_string(firstNumber + i) + " " + std::to_string(70.0 + 0.01 * i) +
                            " 100");
        model.entrustCallback(0, 1, orders(lines));
    };
    touchMany(100000);
    ASSERT_TRUE(answer.ask(model));
    touchMany(200000);
    model.entrustCallback(0, 1, orders({"S 9003 60.00 200"}));
    model.transactionCallback(0, 1, cancels({9001}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_DOUBLE_EQ(answer.sells.back()->price, 60.00);
    EXPECT_EQ(answer.sells.back()->volume, 3);
    EXPECT_EQ(answer.sells.back()->change, 2) << "since it was shown";

    // Pushed out and ended unseen, with everything touched: new when it comes again.
    touchMany(300000);
    model.entrustCallback(0, 1, orders({"S 9005 50.00 100"}));
    answer.ask(model);
    touchMany(400000);
    model.transactionCallback(0, 1, cancels({2000, 9003}));
    answer.ask(model);
    model.entrustCallback(0, 1, orders({"S 9007 60.00 500"}));
    model.transactionCallback(0, 1, cancels({9005}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_DOUBLE_EQ(answer.sells.back()->price, 60.00);
    EXPECT_EQ(answer.sells.back()->change, 5);
}

// Orders of a price
// -------------------------------------------------------------------------------------------

TEST_F(LadderModel, TheQueueOfAPriceHoldsItsOrdersByNumber)
{
    model.entrustCallback(0, 1, orders({"B 5 9.99 300 @1000", "B 4 9.99 250 @900", "B 9 9.99 100 @2000"}));
    model.transactionCallback(0, 1, deals({"4x20 9.99 50 #1 @3000"}));
    const auto queue = model.getQueue(true, 9.99);
    ASSERT_TRUE(queue);
    EXPECT_EQ(queue->isBuy, 1);
    EXPECT_EQ(queue->time, 3000);
    EXPECT_DOUBLE_EQ(queue->price, 9.99);
    EXPECT_EQ(queue->totalVolume, 600);
    EXPECT_EQ(queue->orderCount, 3);
    std::map<long long, std::shared_ptr<Kel::SingleQuote>> quotes;
    quotes[77] = std::make_shared<Kel::SingleQuote>();
    queue->getQuotes(quotes);
    ASSERT_EQ(quotes.size(), 3u) << "what stood in the map is replaced";
    const auto first = quotes.begin();
    EXPECT_EQ(first->first, 4);
    EXPECT_EQ(first->second->time, 900);
    EXPECT_EQ(first->second->volume, 250);
    EXPECT_EQ(first->second->dealtVolume, 50);
    EXPECT_EQ(first->second->state, 2) << "dealt in part";
    EXPECT_EQ(std::next(first)->first, 5);
    EXPECT_EQ(std::next(first)->second->state, 1) << "new";
    EXPECT_EQ(std::next(first, 2)->first, 9);
}

TEST_F(LadderModel, AnUnknownPriceOrSideHasNoQueue)
{
    start();
    EXPECT_TRUE(model.getQueue(false, 10.01));
    EXPECT_FALSE(model.getQueue(true, 10.01));
    EXPECT_FALSE(model.getQueue(true, 0));
    EXPECT_FALSE(model.getQueue(true, -1));
    EXPECT_FALSE(model.getQueue(true, std::numeric_limits<double>::quiet_NaN()));
    EXPECT_FALSE(model.getQueue(true, std::numeric_limits<double>::max()));
    EXPECT_EQ(model.getQueue(false, 10.01)->isBuy, 0);
}

TEST_F(LadderModel, AQueueThatWasHandedOutNeverChanges)
{
    start();
    const auto queue = model.getQueue(true, 9.99);
    model.transactionCallback(0, 1, deals({"1x9 9.99 100 #1"}));
    EXPECT_EQ(queue->totalVolume, 300);
    EXPECT_EQ(queue->quotes.front().second->dealtVolume, 0);
    EXPECT_EQ(model.getQueue(true, 9.99)->totalVolume, 200);
}

TEST_F(LadderModel, VolumesBeyond32BitsSaturate)
{
    model.entrustCallback(0, 1, orders({"B 5 9.99 900000000000", "B 6 9.99 900000000000"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.buys.front()->volume, std::numeric_limits<int>::max());
    const auto queue = model.getQueue(true, 9.99);
    EXPECT_EQ(queue->totalVolume, std::numeric_limits<int>::max());
    EXPECT_EQ(queue->quotes.front().second->volume, std::numeric_limits<int>::max());
}

} // namespace
