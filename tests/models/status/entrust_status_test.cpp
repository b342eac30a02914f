#include "platform/models/CModelEntrustStatus.h"

#include "platform/services/CStockManager.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"
#include "records/LevelOrderData.h"
#include "records/QuoterDepthData.h"
#include "records/TransactionData.h"

#include <boost/make_shared.hpp>
#include <boost/thread/thread.hpp>

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>

using namespace Kel;

namespace {

constexpr double kNone = std::numeric_limits<double>::max();
const std::int64_t kNoon = utils::exchangeTime(20230201, 10, 0, 0, 0);

using Snapshot = boost::shared_ptr<quoter::QuoterDepthData>;

Snapshot snapshot(std::int64_t time = kNoon)
{
    auto record = boost::make_shared<quoter::QuoterDepthData>();
    record->m_time = time;
    return record;
}

Snapshot withBid(Snapshot record, int index, double price, std::int64_t volume)
{
    record->bidPrice[index] = price;
    record->bidVolume[index] = volume;
    return record;
}

Snapshot withAsk(Snapshot record, int index, double price, std::int64_t volume)
{
    record->askPrice[index] = price;
    record->askVolume[index] = volume;
    return record;
}

quoter::QuoterBasePtr deal(double price, std::int64_t shares, int kind = quoter::eTransactionDeal)
{
    auto record = boost::make_shared<quoter::TransactionData>();
    record->price = price;
    record->volume = shares;
    record->kind = kind;
    return record;
}

class EntrustStatusModel : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_stocks.clear();
        add("SH", "600000", 0.01, 10);
        add("SZ", "128136", 0.001, 100);
        m_model.setStock("SH600000");
    }
    void TearDown() override { m_stocks.clear(); }

    void add(const char* market, const char* code, double tick, double close)
    {
        auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
        detail->market = market;
        detail->code = code;
        detail->priceTick = tick;
        detail->previousClose = close;
        m_stocks.addInstrument(detail);
    }

    bool send(const quoter::QuoterBasePtr& record, int status = -1)
    {
        return m_model.quoterCallBack(0, status, {record});
    }

    CStockManager& m_stocks = utils::CSingletonT<CStockManager>::instance();
    CModelEntrustStatus m_model;
};

} // namespace

TEST(NewEntrustStatusModel, HasTenEmptyLevelsASideAndNoLastPrice)
{
    const CModelEntrustStatus model;
    EXPECT_EQ(model.instrument, nullptr);
    EXPECT_EQ(model.lastPrice, kNone);
    EXPECT_EQ(model.newVolume, 0);
    ASSERT_EQ(model.askLevels.size(), 10);
    ASSERT_EQ(model.bidLevels.size(), 10);
    for (int i = 0; i < 10; ++i) {
        EXPECT_FALSE(model.askLevels[i].valid);
        EXPECT_FALSE(model.bidLevels[i].valid);
    }
}

TEST(NewEntrustStatusModel, TakesNothingWithoutAnInstrument)
{
    CModelEntrustStatus model;
    EXPECT_FALSE(model.quoterCallBack(0, -1, {withBid(snapshot(), 0, 10, 5)}));
    EXPECT_FALSE(model.quoterCallBack(0, 0, {}));
    model.connectTickData(nullptr, deal(10, 100), 100);
    EXPECT_FALSE(model.bidLevels[0].valid);
    EXPECT_EQ(model.lastPrice, kNone);
    EXPECT_EQ(model.getLastClosePrice(), 0);
    CFormulaParam params;
    model.getParams(params);
    EXPECT_TRUE(params.values.empty());
}

TEST_F(EntrustStatusModel, ATotalThatIsNegativeCountsAsNone)
{
    const Snapshot before = snapshot();
    before->totalVolume = std::numeric_limits<std::int64_t>::min();
    send(before);
    const Snapshot after = snapshot(kNoon + 3000);
    after->totalVolume = 500;
    send(after);
    EXPECT_EQ(m_model.data().newVolume, 5);
}

TEST_F(EntrustStatusModel, SellOneStandsAtIndexNineAndBuyOneAtIndexNought)
{
    const auto record = snapshot();
    for (int i = 0; i < 10; ++i) {
        withAsk(record, i, 10.01 + 0.01 * i, 100 + i);
        withBid(record, i, 9.99 - 0.01 * i, 200 + i);
    }
    record->lastPrice = 10;
    EXPECT_TRUE(send(record));
    ASSERT_EQ(m_model.askLevels.size(), 10);
    EXPECT_DOUBLE_EQ(m_model.askLevels[9].price, 10.01);
    EXPECT_EQ(m_model.askLevels[9].volume, 100);
    EXPECT_DOUBLE_EQ(m_model.askLevels[0].price, 10.10);
    EXPECT_EQ(m_model.askLevels[0].volume, 109);
    EXPECT_DOUBLE_EQ(m_model.bidLevels[0].price, 9.99);
    EXPECT_EQ(m_model.bidLevels[9].volume, 209);
    EXPECT_EQ(m_model.lastPrice, 10);
}

TEST_F(EntrustStatusModel, ALevelIsValidByAPriceOverATenthOfTheTickOrByAVolume)
{
    const auto record = snapshot();
    withBid(record, 0, 0.001, 0);
    withBid(record, 1, 0.0011, 0);
    withBid(record, 2, 0, 7);
    withBid(record, 3, 0, 0);
    withBid(record, 4, -5, 0);
    send(record);
    EXPECT_FALSE(m_model.bidLevels[0].valid);
    EXPECT_TRUE(m_model.bidLevels[1].valid);
    EXPECT_TRUE(m_model.bidLevels[2].valid);
    EXPECT_FALSE(m_model.bidLevels[3].valid);
    EXPECT_FALSE(m_model.bidLevels[4].valid);
}

TEST_F(EntrustStatusModel, APriceThatIsNoneOrNoNumberCountsAsNought)
{
    const auto record = snapshot();
    withBid(record, 0, kNone, 0);
    withBid(record, 1, std::nan(""), 3);
    withAsk(record, 0, std::numeric_limits<double>::infinity(), 0);
    record->lastPrice = std::nan("");
    send(record);
    EXPECT_FALSE(m_model.bidLevels[0].valid);
    EXPECT_TRUE(m_model.bidLevels[1].valid);
    EXPECT_EQ(m_model.bidLevels[1].price, 0);
    EXPECT_FALSE(m_model.askLevels[9].valid);
    EXPECT_EQ(m_model.lastPrice, kNone);
}

TEST_F(EntrustStatusModel, AVolumeThatDoesNotFitIsClamped)
{
    const auto record = snapshot();
    withBid(record, 0, 10, std::int64_t(1) << 40);
    withAsk(record, 0, 11, -(std::int64_t(1) << 40));
    send(record);
    EXPECT_EQ(m_model.bidLevels[0].volume, std::numeric_limits<int>::max());
    EXPECT_EQ(m_model.askLevels[9].volume, std::numeric_limits<int>::min());
    const auto next = snapshot();
    withBid(next, 0, 10, -(std::int64_t(1) << 40));
    send(next);
    EXPECT_EQ(m_model.bidLevels[0].change, std::numeric_limits<int>::min());
}

TEST_F(EntrustStatusModel, ChangeIsHeldAgainstTheSamePriceOfTheSnapshotBefore)
{
    send(withBid(withBid(snapshot(), 0, 9.99, 100), 1, 9.98, 50));
    EXPECT_EQ(m_model.bidLevels[0].change, 0) << "the first snapshot has none before it";
    send(withBid(withBid(snapshot(), 0, 10.00, 30), 1, 9.99, 80));
    EXPECT_EQ(m_model.bidLevels[0].change, 0) << "a price that was not there before";
    EXPECT_EQ(m_model.bidLevels[1].change, -20) << "the price has moved a level down";
    send(withBid(snapshot(), 0, 9.98, 60));
    EXPECT_EQ(m_model.bidLevels[0].change, 0) << "the price was in the snapshot but one before only";
}

TEST_F(EntrustStatusModel, AVolumeOfTheOtherSideAtTheSamePriceIsNoChange)
{
    send(withAsk(snapshot(), 0, 10.00, 500));
    send(withBid(snapshot(), 0, 10.00, 30));
    EXPECT_EQ(m_model.bidLevels[0].change, 0);
}

TEST_F(EntrustStatusModel, LevelsWithoutAPriceHaveNoChange)
{
    send(withBid(snapshot(), 1, 0, 500));
    send(withBid(snapshot(), 1, 0, 700));
    EXPECT_EQ(m_model.bidLevels[1].volume, 700);
    EXPECT_EQ(m_model.bidLevels[1].change, 0);
}

TEST_F(EntrustStatusModel, EachSnapshotOfABatchIsHeldAgainstTheOneBeforeIt)
{
    const std::vector<quoter::QuoterBasePtr> batch{withBid(snapshot(), 0, 10, 100),
                                                   withBid(snapshot(), 0, 10, 130), nullptr,
                                                   withBid(snapshot(), 0, 10, 125)};
    EXPECT_TRUE(m_model.quoterCallBack(0, -1, batch));
    EXPECT_EQ(m_model.bidLevels[0].volume, 125);
    EXPECT_EQ(m_model.bidLevels[0].change, -5);
}

TEST_F(EntrustStatusModel, NewsIsOnlyWhatShows)
{
    EXPECT_TRUE(send(withBid(snapshot(), 0, 10, 100)));
    EXPECT_FALSE(send(withBid(snapshot(), 0, 10, 100)));
    EXPECT_TRUE(send(withBid(snapshot(), 0, 10, 101)));
    EXPECT_TRUE(send(withBid(snapshot(), 0, 10, 101))) << "the change is 0 again";
    EXPECT_FALSE(send(boost::make_shared<quoter::LevelOrderData>()));
    EXPECT_FALSE(send(nullptr));
    EXPECT_FALSE(m_model.quoterCallBack(0, -1, {}));
}

TEST_F(EntrustStatusModel, AReloadBeginsTheChangesAnew)
{
    send(withBid(snapshot(), 0, 10, 100));
    send(withBid(snapshot(), 0, 10, 140));
    ASSERT_EQ(m_model.bidLevels[0].change, 40);
    EXPECT_TRUE(m_model.quoterCallBack(0, 0, {}));
    EXPECT_EQ(m_model.bidLevels[0].change, 0);
    EXPECT_EQ(m_model.bidLevels[0].volume, 140);
    send(withBid(snapshot(), 0, 10, 150));
    EXPECT_EQ(m_model.bidLevels[0].change, 0);
}

TEST_F(EntrustStatusModel, AReloadOfPublishedLevelsLeavesTheSnapshotBefore)
{
    auto record = withBid(snapshot(), 0, 10, 100);
    record->totalVolume = 100000;
    send(record);
    EXPECT_FALSE(send(boost::make_shared<quoter::LevelOrderData>(), 0));
    EXPECT_FALSE(send(deal(0, 900, quoter::eTransactionCancel), 0));
    EXPECT_FALSE(send(nullptr, 0));
    record = withBid(snapshot(kNoon + 3000), 0, 10, 140);
    record->totalVolume = 101200;
    send(record);
    EXPECT_EQ(m_model.bidLevels[0].change, 40);
    EXPECT_EQ(m_model.newVolume, 12);
}

TEST_F(EntrustStatusModel, AReloadOfSnapshotsOrDealsBeginsTheChangesAnew)
{
    send(withBid(snapshot(), 0, 10, 100));
    const quoter::QuoterBasePtr published = boost::make_shared<quoter::LevelOrderData>();
    m_model.quoterCallBack(0, 0, {published, withBid(snapshot(), 0, 10, 140)});
    EXPECT_EQ(m_model.bidLevels[0].change, 0);
    send(deal(10, 300), 0);
    send(withBid(snapshot(), 0, 10, 150));
    EXPECT_EQ(m_model.bidLevels[0].change, 0);
}

TEST_F(EntrustStatusModel, AfterATotalThatWentBackThereIsNoSnapshotBefore)
{
    auto record = withBid(snapshot(), 0, 10, 100);
    record->totalVolume = 100000;
    send(record);
    record = withBid(snapshot(kNoon + 3000), 0, 10, 140);
    record->totalVolume = 99000;
    send(record);
    EXPECT_EQ(m_model.bidLevels[0].change, 0);
    EXPECT_EQ(m_model.newVolume, 0);
    record = withBid(snapshot(kNoon + 6000), 0, 10, 150);
    record->totalVolume = 99500;
    send(record);
    EXPECT_EQ(m_model.bidLevels[0].change, 10);
    EXPECT_EQ(m_model.newVolume, 5) << "the lower total is what the next one is held against";
}

TEST_F(EntrustStatusModel, ATotalThatWentBackLetsSnapshotsTellTheNewVolumeAgain)
{
    auto record = snapshot();
    record->totalVolume = 100000;
    send(record);
    send(deal(10, 300), 1);
    record = snapshot();
    record->totalVolume = 500;
    send(record);
    record = snapshot();
    record->totalVolume = 1200;
    send(record);
    EXPECT_EQ(m_model.newVolume, 7) << "the deals were those of the time before";
}

TEST_F(EntrustStatusModel, ASnapshotOfAnEarlierMomentHasNoneBeforeIt)
{
    send(withBid(snapshot(kNoon), 0, 10, 100));
    send(withBid(snapshot(kNoon - 1), 0, 10, 140));
    EXPECT_EQ(m_model.bidLevels[0].change, 0);
}

TEST_F(EntrustStatusModel, TheTradedVolumeStepIsTheNewVolumeInLots)
{
    auto record = snapshot();
    record->totalVolume = 100000;
    send(record);
    EXPECT_EQ(m_model.newVolume, 0) << "what was traded before the first snapshot is no step";
    record = snapshot();
    record->totalVolume = 101200;
    EXPECT_TRUE(send(record));
    EXPECT_EQ(m_model.newVolume, 12);
    record = snapshot();
    record->totalVolume = 101200;
    send(record);
    EXPECT_EQ(m_model.newVolume, 12) << "the latest volume stays while nothing is traded";
}

TEST_F(EntrustStatusModel, LotsAreTenWhereTheInstrumentIsTradedInTens)
{
    m_model.setStock("SZ128136");
    send(deal(120, 250));
    EXPECT_EQ(m_model.newVolume, 25);
}

TEST_F(EntrustStatusModel, ATradeOfLessThanALotCountsAsOne)
{
    EXPECT_TRUE(send(deal(10, 50), 1));
    EXPECT_EQ(m_model.newVolume, 1);
    EXPECT_TRUE(send(deal(10, 250), 1));
    EXPECT_EQ(m_model.newVolume, 2) << "beyond the first lot the rest is cut";
    EXPECT_FALSE(send(deal(10, 0), 1));
    EXPECT_EQ(m_model.newVolume, 2);
}

TEST_F(EntrustStatusModel, DealsGiveLastPriceAndNewVolumeAndSilenceTheStepOfSnapshots)
{
    auto record = snapshot();
    record->totalVolume = 100000;
    send(record);
    EXPECT_TRUE(send(deal(10.05, 300), 1));
    EXPECT_DOUBLE_EQ(m_model.lastPrice, 10.05);
    EXPECT_EQ(m_model.newVolume, 3);
    EXPECT_FALSE(send(deal(10.05, 300), 1)) << "the same again shows nothing new";
    EXPECT_FALSE(send(deal(0, 900, quoter::eTransactionCancel), 1));
    record = snapshot();
    record->totalVolume = 200000;
    record->lastPrice = 10.05;
    send(record);
    EXPECT_EQ(m_model.newVolume, 3);
}

TEST_F(EntrustStatusModel, ALastPriceOfNoughtMeansNoneYet)
{
    auto record = snapshot();
    record->lastPrice = 10;
    send(record);
    EXPECT_EQ(m_model.lastPrice, 10);
    record = snapshot();
    record->lastPrice = 0;
    EXPECT_TRUE(send(record));
    EXPECT_EQ(m_model.lastPrice, kNone);
}

TEST_F(EntrustStatusModel, ConnectedTicksAreHeldAgainstTheRecordBefore)
{
    m_model.connectTickData(withAsk(snapshot(), 0, 10.01, 100), withAsk(snapshot(), 0, 10.01, 70), 4200);
    EXPECT_EQ(m_model.askLevels[9].volume, 70);
    EXPECT_EQ(m_model.askLevels[9].change, -30);
    EXPECT_EQ(m_model.newVolume, 42);
    m_model.connectTickData(nullptr, deal(10.02, 500), 0);
    EXPECT_EQ(m_model.newVolume, 5);
    EXPECT_DOUBLE_EQ(m_model.lastPrice, 10.02);
    m_model.connectTickData(nullptr, nullptr, -1);
    EXPECT_EQ(m_model.newVolume, 5);
}

TEST_F(EntrustStatusModel, TheReferencePriceIsThePublishedCloseThenTheDaysThenTheRecords)
{
    EXPECT_EQ(m_model.getLastClosePrice(), 10);
    m_stocks.setLastClose("SH600000", 20230201, 9.5);
    EXPECT_EQ(m_model.getLastClosePrice(), 10) << "no day is known yet";
    send(snapshot());
    EXPECT_EQ(m_model.getLastClosePrice(), 9.5);
    auto record = snapshot();
    record->previousClose = 9.7;
    EXPECT_TRUE(send(record));
    EXPECT_EQ(m_model.getLastClosePrice(), 9.7);
    m_model.setStock("SZ128136");
    EXPECT_EQ(m_model.getLastClosePrice(), 100);
}

TEST_F(EntrustStatusModel, ANewInstrumentKeepsTheRowsUntilTheyAreCleared)
{
    send(withBid(snapshot(), 0, 10, 100));
    m_model.setStock("SZ128136");
    EXPECT_EQ(m_model.bidLevels[0].volume, 100);
    EXPECT_EQ(m_model.priceTick, 0.001);
    send(withBid(snapshot(), 0, 10, 130));
    EXPECT_EQ(m_model.bidLevels[0].change, 0) << "the snapshot before was another instrument's";
    m_model.setStock("SH999999");
    EXPECT_EQ(m_model.instrument, nullptr);
    EXPECT_EQ(m_model.bidLevels[0].volume, 130);
    EXPECT_FALSE(send(withBid(snapshot(), 0, 10, 150)));
}

TEST_F(EntrustStatusModel, ClearForgetsTheQuoteAndKeepsTheInstrument)
{
    auto record = withAsk(withBid(snapshot(), 0, 10, 100), 0, 11, 5);
    record->lastPrice = 10.5;
    record->previousClose = 9;
    send(record);
    send(deal(10, 300), 1);
    m_model.clear();
    EXPECT_NE(m_model.instrument, nullptr);
    EXPECT_EQ(m_model.lastPrice, kNone);
    EXPECT_EQ(m_model.newVolume, 0);
    EXPECT_EQ(m_model.askLevels, QVector<EntrustLevel>(10));
    EXPECT_EQ(m_model.bidLevels, QVector<EntrustLevel>(10));
    EXPECT_EQ(m_model.getLastClosePrice(), 10);
    send(withBid(snapshot(), 0, 10, 130));
    EXPECT_EQ(m_model.bidLevels[0].change, 0);
}

TEST_F(EntrustStatusModel, ParametersNameTheInstrument)
{
    CFormulaParam params;
    m_model.getParams(params);
    EXPECT_EQ(params.values["market"], "SH");
    EXPECT_EQ(params.values["instrument"], "600000");
}

TEST_F(EntrustStatusModel, ReadersSeeWholeSnapshotsWhileTheFeedWrites)
{
    std::atomic<bool> done{false};
    std::atomic<int> torn{0};
    boost::thread reader([&] {
        while (!done.load()) {
            const EntrustStatusData data = m_model.data();
            if (data.bidLevels[0].volume != data.askLevels[9].volume)
                ++torn;
        }
    });
    boost::thread chooser([&] {
        while (!done.load()) {
            m_model.setStock("SH600000");
            m_model.getLastClosePrice();
        }
    });
    for (int i = 1; i <= 2000; ++i)
        send(withAsk(withBid(snapshot(), 0, 10, i), 0, 11, i));
    done = true;
    reader.join();
    chooser.join();
    EXPECT_EQ(torn.load(), 0);
    EXPECT_EQ(m_model.data().bidLevels[0].volume, 2000);
}
