// The ladder that the quote service makes.

#include "LadderFeed.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using namespace testing_support;
using Kel::kLadderCover;
using Kel::kLadderRowCount;
using Kel::kLadderRowData;

boost::shared_ptr<quoter::ThousandData> ladder(std::vector<quoter::ThousandLevel> buys,
                                               std::vector<quoter::ThousandLevel> sells)
{
    const auto record = boost::make_shared<quoter::ThousandData>();
    record->m_time = 5000;
    record->buys = std::move(buys);
    record->sells = std::move(sells);
    return record;
}

class QuoterLadderModel : public ::testing::Test
{
protected:
    QuoterLadderModel()
    {
        addInstrument("SH", "600519");
        model.setStock("SH600519");
    }

    void send(const quoter::QuoterBasePtr& record, int status = 1)
    {
        model.ThousandDataCallback(0, status, batchOf({record}));
    }

    Kel::CModelQuoterDepthThousand model{0, -1};
    Answer answer;
};

TEST_F(QuoterLadderModel, StartsWithTickCloseAndUnitOfNoInstrument)
{
    const Kel::CModelQuoterDepthThousand fresh(0, -1);
    EXPECT_EQ(fresh.getPriceTick(), 0.01);
    EXPECT_EQ(fresh.getLastClose(), 0);
    EXPECT_EQ(fresh.getVolumeUnit(), 100);
    EXPECT_EQ(fresh.getStockKey(), QString());
    EXPECT_EQ(model.getStockKey(), "SH600519");
    EXPECT_EQ(model.getLastClose(), 10);
}

TEST_F(QuoterLadderModel, ReportsTheLevelsOfTheRecordInLotsAscending)
{
    EXPECT_FALSE(answer.ask(model));
    const auto record =
        ladder({{9.99, 350, 2, {}}, {9.98, 100, 1, {}}}, {{10.01, 40, 1, {}}, {10.02, 400, 3, {}}});
    record->lastPrice = 10;
    record->lastVolume = 1200;
    send(record);
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.flags, kLadderCover | kLadderRowCount | kLadderRowData);
    EXPECT_EQ(answer.text(), "B 9.98:1/1 9.99:4/2 S 10.01:1/1 10.02:4/3");
    EXPECT_EQ(answer.latest, 10);
    EXPECT_EQ(answer.lastVolume, 12);
    EXPECT_DOUBLE_EQ(answer.minPrice, 9.98);
    EXPECT_DOUBLE_EQ(answer.maxPrice, 10.02);
    EXPECT_DOUBLE_EQ(answer.maxAmount, 4 * 10.02);
    EXPECT_FALSE(answer.ask(model));
}

TEST_F(QuoterLadderModel, TellsChangesAgainstTheLadderReportedBefore)
{
    send(ladder({{9.99, 300, 2, {}}}, {{10.01, 500, 1, {}}}));
    answer.ask(model);
    EXPECT_EQ(answer.latest, std::numeric_limits<double>::max());
    EXPECT_EQ(answer.lastVolume, -1);
    const auto kept = answer.sells.front();
    send(ladder({{9.99, 200, 2, {}}, {9.98, 700, 1, {}}}, {{10.01, 500, 1, {}}}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.flags, kLadderRowCount | kLadderRowData);
    EXPECT_EQ(answer.text(), "B 9.98:7+7/1 9.99:2-1/2 S 10.01:5/1");
    EXPECT_EQ(answer.sells.front(), kept);
    send(ladder({{9.98, 700, 1, {}}}, {{10.00, 100, 1, {}}}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.text(), "B 9.98:7+7/1 S 10:1+1/1");
}

TEST_F(QuoterLadderModel, AReloadReplacesEverythingAndMayBeEmpty)
{
    send(ladder({{9.99, 300, 2, {}}}, {}));
    answer.ask(model);
    send(ladder({{9.99, 400, 2, {}}}, {}), 0);
    ASSERT_TRUE(answer.ask(model));
    EXPECT_TRUE(answer.flags & kLadderCover);
    EXPECT_EQ(answer.text(), "B 9.99:4/2 S ");
    model.ThousandDataCallback(0, 0, batchOf({}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_TRUE(answer.flags & kLadderCover);
    EXPECT_EQ(answer.text(), "B  S ");
    EXPECT_EQ(answer.minPrice, 1e9);
}

TEST_F(QuoterLadderModel, OnlyTheLastRecordOfABatchCounts)
{
    model.ThousandDataCallback(0, 1,
                               batchOf({ladder({{9.99, 300, 2, {}}}, {}), ladder({{9.97, 300, 2, {}}}, {}),
                                        nullptr, boost::make_shared<quoter::OrderData>()}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.text(), "B 9.97:3/2 S ");
}

TEST_F(QuoterLadderModel, BatchesOfOthersOtherStatusesAndLevelsWithoutPriceOrVolumeArePassedOver)
{
    model.ThousandDataCallback(0, 1, nullptr);
    model.ThousandDataCallback(0, 1, batchOf({ladder({{9.99, 300, 2, {}}}, {})}, "SZ", "600519"));
    send(ladder({{9.99, 300, 2, {}}}, {}), -1);
    send(ladder({{9.99, 300, 2, {}}}, {}), 4);
    EXPECT_FALSE(answer.ask(model));
    send(ladder(
        {{0, 300, 2, {}}, {9.97, 0, 2, {}}, {9.98, 100, 1, {}}, {9.98, 900, 9, {}}, {9.99, 100, 1, {}}}, {}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.text(), "B 9.98:1/1 9.99:1/1 S ") << "a price counts once, whatever the order";
}

TEST_F(QuoterLadderModel, ClearAndSetStockForgetTheLadder)
{
    send(ladder({{9.99, 300, 2, {}}}, {}));
    answer.ask(model);
    model.clear();
    EXPECT_FALSE(answer.ask(model));
    EXPECT_FALSE(model.getQueue(true, 9.99));
    send(ladder({{9.99, 400, 2, {}}}, {}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.text(), "B 9.99:4/2 S ") << "change 0: everything was replaced";
    EXPECT_TRUE(answer.flags & kLadderCover);
    model.setStock("SH600519");
    EXPECT_FALSE(answer.ask(model));
}

TEST_F(QuoterLadderModel, ShowsAThousandLevelsASide)
{
    std::vector<quoter::ThousandLevel> buys;
    for (int i = 0; i < 1100; ++i)
        buys.push_back({50 - 0.01 * i, 100, 1, {}});
    send(ladder(buys, {}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_EQ(answer.buys.size(), 1000u);
    EXPECT_DOUBLE_EQ(answer.buys.back()->price, 50);
}

TEST_F(QuoterLadderModel, TheQueueOfAPriceHoldsTheRestsThatTheRecordTells)
{
    send(ladder({}, {{10.01, 500, 3, {{9, 100, 200, 0}, {4, 50, 400, 100}, {5, 60, 100, 100}}}}));
    const auto queue = model.getQueue(false, 10.01);
    ASSERT_TRUE(queue);
    EXPECT_EQ(queue->isBuy, 0);
    EXPECT_EQ(queue->time, 5000);
    EXPECT_EQ(queue->totalVolume, 500);
    EXPECT_EQ(queue->orderCount, 2) << "the one without a rest is no order";
    std::map<long long, std::shared_ptr<Kel::SingleQuote>> quotes;
    queue->getQuotes(quotes);
    ASSERT_EQ(quotes.size(), 2u);
    EXPECT_EQ(quotes[4]->dealtVolume, 100);
    EXPECT_EQ(quotes[4]->state, 2);
    EXPECT_EQ(quotes[4]->time, 50);
    EXPECT_EQ(quotes[9]->state, 1);
    EXPECT_FALSE(model.getQueue(true, 10.01));
    EXPECT_FALSE(model.getQueue(false, 10.02));
    EXPECT_FALSE(model.getQueue(false, 0));
}

TEST_F(QuoterLadderModel, AnOrderThatTheRecordTellsTwiceCountsOnce)
{
    send(ladder({}, {{10.01, 500, 2, {{9, 100, 200, 0}, {4, 50, 300, 0}, {9, 100, 200, 0}}}}));
    const auto queue = model.getQueue(false, 10.01);
    ASSERT_TRUE(queue);
    EXPECT_EQ(queue->orderCount, 2);
    ASSERT_EQ(queue->quotes.size(), 2u);
    std::map<long long, std::shared_ptr<Kel::SingleQuote>> quotes;
    queue->getQuotes(quotes);
    EXPECT_EQ(quotes.size(), 2u);
}

TEST_F(QuoterLadderModel, ARecordThatSaysTheSameAgainIsNoNews)
{
    const auto record = ladder({{9.99, 300, 1, {{1, 5, 300, 0}}}}, {});
    send(record);
    ASSERT_TRUE(answer.ask(model));
    send(record);
    EXPECT_FALSE(answer.ask(model));
    send(boost::make_shared<quoter::ThousandData>(*record));
    EXPECT_FALSE(answer.ask(model)) << "nor is a copy";
    const auto later = boost::make_shared<quoter::ThousandData>(*record);
    later->m_time += 3000;
    send(later);
    ASSERT_TRUE(answer.ask(model)) << "the orders have aged";
    EXPECT_EQ(answer.flags, 0);
    send(later, 0);
    ASSERT_TRUE(answer.ask(model)) << "a reload always is";
    EXPECT_EQ(answer.flags, kLadderCover | kLadderRowData);
}

TEST_F(QuoterLadderModel, ALevelThatLeftTheBestThousandTellsTheChangeSinceItWasShown)
{
    std::vector<quoter::ThousandLevel> buys;
    for (int i = 0; i < 1000; ++i)
        buys.push_back({50 - 0.01 * i, 100, 1, {}});
    send(ladder(buys, {}));
    answer.ask(model);
    auto more = buys;
    more.push_back({50.01, 100, 1, {}});
    send(ladder(more, {}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_DOUBLE_EQ(answer.buys.front()->price, 40.02);
    buys.back().volume = 300;
    send(ladder(buys, {}));
    ASSERT_TRUE(answer.ask(model));
    EXPECT_DOUBLE_EQ(answer.buys.front()->price, 40.01);
    EXPECT_EQ(answer.buys.front()->change, 2);
}

TEST_F(QuoterLadderModel, TakesThePreviousCloseOfASnapshot)
{
    const auto depth = boost::make_shared<quoter::QuoterDepthData>();
    depth->previousClose = 12.34;
    model.quoterCallback(0, -1, batchOf({depth}));
    EXPECT_EQ(model.getLastClose(), 12.34);
}

} // namespace
