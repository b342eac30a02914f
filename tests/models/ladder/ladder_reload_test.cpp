// Which batches belong to one reload of the rebuilt ladder, and when it is shown.

#include "LadderModelFixture.h"

#include <boost/thread/thread.hpp>

namespace {

using namespace testing_support;
using Kel::kLadderCover;

TEST_F(LadderModel, LiveDealsBetweenTheTwoOpeningsDoNotPartThem)
{
    model.transactionCallback(0, 0, deals({"1x9 9.99 100 #1"}));
    model.transactionCallback(1, 1, deals({"1x9 9.99 100 #2"}));
    ASSERT_TRUE(answer.ask(model)) << "a live batch ends the wait";
    EXPECT_EQ(answer.text(), "B  S ");
    EXPECT_EQ(answer.lastVolume, 1);
    model.entrustCallback(0, 0, orders({"B 1 9.99 300"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_TRUE(answer.flags & kLadderCover);
    EXPECT_EQ(answer.text(), "B 9.99:1/1 S ") << "both deals have waited for their order";
    EXPECT_EQ(answer.lastVolume, 1);
}

TEST_F(LadderModel, LiveOrdersBetweenTheTwoOpeningsDoNotPartThem)
{
    model.entrustCallback(0, 0, orders({"B 1 9.99 300"}));
    model.entrustCallback(1, 2, orders({"B 2 9.98 300"}));
    answer.ask(model);
    model.transactionCallback(0, 0, deals({"1x9 9.99 100 #1"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_TRUE(answer.flags & kLadderCover);
    EXPECT_EQ(answer.text(), "B 9.98:3/1 9.99:2/1 S ");
}

TEST_F(LadderModel, AfterBothOpeningsTheNextOneBeginsAnotherReloadEvenWithLiveBatchesBetween)
{
    for (const bool live : {false, true}) {
        model.transactionCallback(0, 0, deals({"1x9 9.99 100 #1"}));
        model.entrustCallback(0, 0, orders({"B 1 9.99 300"}));
        if (live)
            model.transactionCallback(1, 1, deals({}));
        model.entrustCallback(0, 0, orders({"B 5 9.00 200"}));
        EXPECT_FALSE(answer.ask(model)) << "the deals are awaited again";
        model.transactionCallback(0, 0, deals({}));
        ASSERT_TRUE(answer.ask(model));
        EXPECT_EQ(answer.text(), "B 9:2/1 S ");
    }
}

TEST_F(LadderModel, ALateOpeningMayBeTheFirstOfTheNextReload)
{
    // The channel of the deals had no history at first; then both are loaded again, the deals first.
    model.entrustCallback(0, 0, orders({"B 1 9.99 300"}));
    model.entrustCallback(1, 1, orders({"B 2 9.98 300"}));
    model.transactionCallback(0, 0, deals({"1x9 9.99 100 #1", "3x9 9.97 100 #2"}));
    model.entrustCallback(0, 0, orders({"B 1 9.99 300", "B 2 9.98 300", "B 3 9.97 300"}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.text(), "B 9.97:2/1 9.98:3/1 9.99:2/1 S ")
        << "no deal is lost and no order counts twice";
    // Once something live has come, an opening begins anew.
    model.transactionCallback(1, 1, deals({}));
    model.entrustCallback(0, 0, orders({"B 7 8.00 100"}));
    model.transactionCallback(0, 0, deals({}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.text(), "B 8:1/1 S ");
}

TEST_F(LadderModel, ClearEndsAReload)
{
    model.transactionCallback(0, 0, deals({"1x9 9.99 100 #1"}));
    model.clear();
    model.entrustCallback(0, 0, orders({"B 1 9.99 300"}));
    EXPECT_FALSE(answer.ask(model)) << "the deals opened the reload before";
    model.transactionCallback(0, 0, deals({}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.text(), "B 9.99:3/1 S ");
}

TEST_F(LadderModel, AnOpeningBatchThatIsBeingTakenIsNotShownByHalves)
{
    constexpr int kDeals = 40000;
    std::vector<std::string> lines;
    for (int i = 1; i <= kDeals; ++i)
        lines.push_back("1x9 10.00 " + std::to_string(i) + " #" + std::to_string(i));
    const auto history = deals(lines);
    const auto standing = orders({"B 1 9.99 100000000000"});
    const auto nothing = deals({});
    for (int round = 0; round < 10; ++round) {
        // The other opening, or a live batch, ends the wait while the history is still on its way.
        const bool byOrders = round % 2 == 0;
        model.clear();
        const std::size_t before = model.heapBytes();
        boost::thread dealFeed([&] { model.transactionCallback(0, 0, history); });
        while (model.heapBytes() <= before)
            boost::this_thread::yield();
        if (byOrders)
            model.entrustCallback(0, 0, standing);
        else
            model.transactionCallback(1, 1, nothing);
        while (!answer.ask(model))
            boost::this_thread::yield();
        EXPECT_EQ(answer.lastVolume, kDeals / 100) << "the newest deal of the history";
        dealFeed.join();
    }
}

} // namespace
