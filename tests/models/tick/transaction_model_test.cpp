// The model of the deal list, rule by rule.

#include "models/tick/TickRecords.h"
#include "platform/models/CModelDepthTransaction.h"
#include "platform/models/tick_batches.h"
#include "platform/services/RPCEngine.h"
#include "records/QuoterDepthData.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace Kel;
using namespace testing_support;

namespace {

class TransactionModel : public testing::Test
{
protected:
    TransactionModel()
    {
        addInstruments();
        m_model.setStock(kStock);
    }

    void deals(Batch records, int status = 1)
    {
        m_model.transactionCallback(0, status, wrap(std::move(records)));
    }
    void orders(Batch records, int status = 1)
    {
        m_model.entrustCallback(0, status, wrap(std::move(records)));
    }

    /// One figure of each row of the filtered list.
    template <class Field>
    std::vector<int> all(Field DepthTransData::*field) const
    {
        std::vector<int> values;
        for (int row = 0; row < m_model.count.load(); ++row)
            values.push_back(static_cast<int>(m_model.getData(row).get()->*field));
        return values;
    }

    CModelDepthTransaction m_model;
};

using Ints = std::vector<int>;

} // namespace

TEST_F(TransactionModel, SetStockTellsTickCloseAndUnit)
{
    EXPECT_DOUBLE_EQ(m_model.priceTick, 0.01);
    EXPECT_DOUBLE_EQ(m_model.preClose, 10.0);
    EXPECT_EQ(m_model.volumeUnit, 100);
    m_model.setStock(kBond);
    EXPECT_EQ(m_model.volumeUnit, 10);
    CFormulaParam param;
    m_model.getParams(param);
    EXPECT_EQ(param.values["code"], kBond);
}

TEST_F(TransactionModel, SetStockKeepsTheRows)
{
    deals({deal(1, 5, 6, 10, 100, at(10, 0, 0))});
    m_model.setStock(kOther);
    EXPECT_EQ(m_model.count, 1);
}

TEST_F(TransactionModel, AnUnknownCodeMakesTheInstrumentNullAndDropsBatches)
{
    m_model.setStock(QStringLiteral("SH999999"));
    EXPECT_FALSE(m_model.detail.load());
    deals({deal(1, 5, 6, 10, 100, at(10, 0, 0))});
    EXPECT_EQ(m_model.count, 0);
    EXPECT_FALSE(m_model.dirty);
}

TEST_F(TransactionModel, BatchesOfAnotherMarketOrCodeAndNullAreDropped)
{
    for (const char* const key : {"SZ600519", "SH600518"})
        m_model.transactionCallback(0, 1, wrap({deal(1, 5, 6, 10, 100, at(10, 0, 0))}, key));
    m_model.transactionCallback(0, 1, {});
    m_model.entrustCallback(0, 1, {});
    m_model.entrustCallback(0, 1, wrap({order(5, 1, 10, 100, at(10, 0, 0))}, "SZ600519"));
    m_model.quoterCallback(0, 1, {});
    EXPECT_EQ(m_model.count, 0);
    EXPECT_FALSE(m_model.getOrder(5));
    EXPECT_FALSE(m_model.dirty);
}

TEST_F(TransactionModel, StatusZeroReplacesTheDealsOneTwoThreeAddOthersAreIgnored)
{
    deals({deal(1, 5, 6, 10, 100, at(10, 0, 0))}, 1);
    deals({deal(2, 5, 6, 10, 100, at(10, 0, 1))}, 2);
    deals({deal(3, 5, 6, 10, 100, at(10, 0, 2))}, 3);
    EXPECT_EQ(m_model.count, 3);
    for (const int status : {-1, 4, 100})
        deals({deal(4, 5, 6, 10, 100, at(10, 0, 3))}, status);
    EXPECT_EQ(m_model.count, 3);
    deals({deal(9, 7, 8, 10, 100, at(10, 0, 0))}, 0);
    ASSERT_EQ(m_model.count, 1);
    EXPECT_EQ(m_model.getData(0)->buyNo, 7);
    EXPECT_EQ(m_model.getData(0)->buyPrevious, -1);
}

TEST_F(TransactionModel, StatusZeroOfOneChannelLeavesTheOther)
{
    orders({order(5, 1, 10, 900, at(9, 59, 0))}, 0);
    deals({deal(1, 5, 6, 10, 100, at(10, 0, 0))}, 0);
    EXPECT_TRUE(m_model.getOrder(5));
    orders({order(6, 2, 10, 800, at(9, 59, 0))}, 0);
    EXPECT_FALSE(m_model.getOrder(5));
    EXPECT_TRUE(m_model.getOrder(6));
    EXPECT_EQ(m_model.count, 1);
}

TEST_F(TransactionModel, AnEmptyBatchOfStatusZeroEmptiesTheChannel)
{
    deals({deal(1, 5, 6, 10, 100, at(10, 0, 0))});
    m_model.dirty = false;
    deals({}, 0);
    EXPECT_EQ(m_model.count, 0);
    EXPECT_TRUE(m_model.dirty);
}

TEST_F(TransactionModel, CancelsAndOtherRecordsAreNoDeals)
{
    deals({cancel(1, 5, 0, 100, at(10, 0, 0)), nullptr, order(5, 1, 10, 100, at(10, 0, 0)),
           boost::make_shared<quoter::QuoterDepthData>()});
    EXPECT_EQ(m_model.count, 0);
    EXPECT_FALSE(m_model.dirty);
}

TEST_F(TransactionModel, RecordsWithoutSharesPriceOrTimeArePassedOver)
{
    deals({deal(1, 5, 6, 10, 0, at(10, 0, 0)), deal(2, 5, 6, 10, -100, at(10, 0, 0)),
           deal(3, 5, 6, std::numeric_limits<double>::quiet_NaN(), 100, at(10, 0, 0)),
           deal(4, 5, 6, std::numeric_limits<double>::max(), 100, at(10, 0, 0)),
           deal(7, 5, 6, 0, 100, at(10, 0, 0)), deal(8, 5, 6, -10, 100, at(10, 0, 0)),
           deal(5, 5, 6, 10, 100, -1), deal(6, 5, 6, 10, 100, std::numeric_limits<std::int64_t>::max())});
    EXPECT_EQ(m_model.count, 0);
}

TEST_F(TransactionModel, RowsStandByTimeTagThenDealNumber)
{
    deals({deal(7, 1, 2, 10, 100, at(10, 0, 1)), deal(3, 1, 2, 10.03, 100, at(10, 0, 0, 900)),
           deal(2, 1, 2, 10.02, 100, at(10, 0, 0, 950))});
    deals({deal(1, 1, 2, 10.01, 100, at(10, 0, 0))});
    std::vector<double> prices;
    for (int row = 0; row < 4; ++row)
        prices.push_back(m_model.getData(row)->price);
    EXPECT_EQ(prices, (std::vector<double>{10.01, 10.02, 10.03, 10}));
}

TEST_F(TransactionModel, ARepeatedDealIsIgnored)
{
    const auto first = deal(1, 5, 6, 10, 100, at(10, 0, 0));
    deals({first, first, deal(2, 5, 7, 10, 100, at(10, 0, 0))});
    m_model.dirty = false;
    deals({deal(2, 5, 7, 10, 100, at(10, 0, 0)), first}, 3);
    EXPECT_EQ(m_model.count, 2);
    EXPECT_FALSE(m_model.dirty);
}

TEST_F(TransactionModel, DealsWithoutANumberAreNeverRepeats)
{
    deals({deal(0, 5, 6, 10, 100, at(10, 0, 0)), deal(0, 5, 6, 10, 100, at(10, 0, 0))});
    deals({deal(0, 5, 6, 10, 100, at(10, 0, 0))});
    EXPECT_EQ(m_model.count, 3);
}

TEST_F(TransactionModel, LotsAreTheNearestAndOneBelowALot)
{
    deals({deal(1, 5, 6, 10, 30, at(10, 0, 0)), deal(2, 5, 6, 10, 149, at(10, 0, 0)),
           deal(3, 5, 6, 10, 150, at(10, 0, 0))});
    EXPECT_EQ(all(&DepthTransData::volume), (Ints{1, 1, 2}));
}

TEST_F(TransactionModel, LotsKeepTheUnitThatTheyCameWith)
{
    deals({deal(1, 5, 6, 10, 1000, at(10, 0, 0))});
    m_model.setStock(kBond);
    EXPECT_EQ(m_model.getData(0)->volume, 10);
}

TEST_F(TransactionModel, TrendIsAgainstTheDealBeforeInTheWholeList)
{
    deals({deal(1, 1, 2, 10, 100, at(10, 0, 0)), deal(2, 1, 2, 10.01, 500, at(10, 0, 0)),
           deal(3, 1, 2, 10.01, 100, at(10, 0, 0)), deal(4, 1, 2, 10, 500, at(10, 0, 0))});
    EXPECT_EQ(all(&DepthTransData::trend), (Ints{0, 1, 0, -1}));
    SDepthFilterParam param;
    param.volume = 5;
    param.relate = 1;
    m_model.setFilterParam(param);
    EXPECT_EQ(all(&DepthTransData::trend), (Ints{1, -1}));
}

TEST_F(TransactionModel, VolumeRisesForAnActiveBuyerFallsForASellerElseFollowsTheLastChangeOfPrice)
{
    const auto time = at(9, 25, 0); // an auction: no active side unless told
    deals({deal(1, 9, 4, 10, 100, time), deal(2, 9, 4, 10.01, 100, time), deal(3, 9, 4, 10.01, 100, time),
           deal(4, 9, 4, 10, 100, time), deal(5, 9, 4, 10, 100, time), deal(6, 9, 4, 9.9, 100, time, 1),
           deal(7, 9, 4, 10.5, 100, time, 2)});
    EXPECT_EQ(all(&DepthTransData::volumeRise), (Ints{0, 1, 1, 0, 0, 1, 0}));
    EXPECT_EQ(all(&DepthTransData::activeSide), (Ints{0, 0, 0, 0, 0, 1, 2}));
}

TEST_F(TransactionModel, DealsOfOneOrderAreLinkedByIndexesOfTheWholeList)
{
    deals({deal(1, 5, 6, 10, 100, at(10, 0, 0)), deal(2, 7, 6, 10, 900, at(10, 0, 0)),
           deal(3, 5, 8, 10, 900, at(10, 0, 0)), deal(4, 5, 6, 10, 900, at(10, 0, 0))});
    EXPECT_EQ(all(&DepthTransData::buyPrevious), (Ints{-1, -1, 0, 2}));
    EXPECT_EQ(all(&DepthTransData::buyNext), (Ints{2, -1, 3, -1}));
    EXPECT_EQ(all(&DepthTransData::sellPrevious), (Ints{-1, 0, -1, 1}));
    EXPECT_EQ(all(&DepthTransData::sellNext), (Ints{1, 3, -1, -1}));
    SDepthFilterParam param;
    param.volume = 9;
    param.relate = 1;
    m_model.setFilterParam(param);
    EXPECT_EQ(all(&DepthTransData::buyPrevious), (Ints{-1, 0, 2}));
}

TEST_F(TransactionModel, ALateDealMovesTheLinksOfTheDealsAfterIt)
{
    deals({deal(1, 5, 6, 10, 100, at(10, 0, 0)), deal(5, 5, 6, 10, 100, at(10, 0, 9))});
    deals({deal(3, 5, 7, 10.02, 100, at(10, 0, 4))});
    EXPECT_EQ(all(&DepthTransData::buyPrevious), (Ints{-1, 0, 1}));
    EXPECT_EQ(all(&DepthTransData::buyNext), (Ints{1, 2, -1}));
    EXPECT_EQ(all(&DepthTransData::sellPrevious), (Ints{-1, -1, 0}));
    EXPECT_EQ(all(&DepthTransData::sellNext), (Ints{2, -1, -1}));
    EXPECT_EQ(all(&DepthTransData::trend), (Ints{0, 1, -1}));
}

TEST_F(TransactionModel, RunsCountTheRowsOfTheSameOrderDirectlyBefore)
{
    deals({deal(1, 5, 6, 10, 100, at(10, 0, 0)), deal(2, 5, 7, 10, 100, at(10, 0, 0)),
           deal(3, 5, 7, 10, 100, at(10, 0, 1)), deal(4, 8, 7, 10, 100, at(10, 0, 1)),
           deal(5, 5, 9, 10, 100, at(10, 0, 1))});
    EXPECT_EQ(all(&DepthTransData::buyRun), (Ints{0, 1, 2, 0, 0}));
    EXPECT_EQ(all(&DepthTransData::sellRun), (Ints{0, 0, 1, 2, 0}));
}

TEST_F(TransactionModel, RunsAreThoseOfTheFilteredList)
{
    deals({deal(1, 5, 6, 10, 900, at(10, 0, 0)), deal(2, 8, 7, 10, 100, at(10, 0, 0)),
           deal(3, 5, 7, 10, 900, at(10, 0, 1))});
    SDepthFilterParam param;
    param.volume = 9;
    param.relate = 1;
    m_model.setFilterParam(param);
    EXPECT_EQ(all(&DepthTransData::buyRun), (Ints{0, 1}));
    deals({deal(4, 5, 6, 10, 900, at(10, 0, 2))});
    EXPECT_EQ(all(&DepthTransData::buyRun), (Ints{0, 1, 2}));
}

TEST_F(TransactionModel, NumberZeroFormsNoRunAndHasNoLinks)
{
    deals({deal(1, 0, 0, 10, 100, at(10, 0, 0)), deal(2, 0, 0, 10, 100, at(10, 0, 0))});
    EXPECT_EQ(all(&DepthTransData::buyRun), (Ints{0, 0}));
    EXPECT_EQ(all(&DepthTransData::sellRun), (Ints{0, 0}));
    EXPECT_EQ(all(&DepthTransData::buyNext), (Ints{-1, -1}));
    EXPECT_EQ(m_model.getEntrustVolume(m_model.getData(0), true), 1);
}

TEST_F(TransactionModel, RunsStopCountingAt32767)
{
    Batch batch;
    for (int number = 1; number <= 32770; ++number)
        batch.push_back(deal(number, 5, number + 100, 10, 100, at(10, 0, 0)));
    deals(batch);
    EXPECT_EQ(m_model.getData(32766)->buyRun, 32766);
    EXPECT_EQ(m_model.getData(32767)->buyRun, 32767);
    EXPECT_EQ(m_model.getData(32769)->buyRun, 32767);
}

TEST_F(TransactionModel, OrdersMayComeBeforeOrAfterTheirDeals)
{
    orders({order(5, 1, 10.5, 12300, at(9, 59, 0))});
    deals({deal(1, 5, 6, 10, 300, at(10, 0, 0)), deal(2, 7, 6, 10, 500, at(10, 0, 0))});
    EXPECT_EQ(m_model.getEntrustVolume(m_model.getData(0), true), 123);
    EXPECT_EQ(m_model.getEntrustVolume(m_model.getData(0), false), 8) << "unknown: what it dealt so far";
    m_model.dirty = false;
    orders({order(6, 2, 10, 4000, at(9, 59, 0))});
    EXPECT_TRUE(m_model.dirty) << "the total beside a run has changed";
    EXPECT_EQ(m_model.getEntrustVolume(m_model.getData(0), false), 40);
    EXPECT_EQ(m_model.getEntrustVolume({}, true), 0);
}

TEST_F(TransactionModel, AnOrderIsHandedOutAsItCameTheFirstTime)
{
    orders({order(5, 2, 10.5, 12300, at(9, 59, 0, 120), 4), order(5, 1, 9, 100, at(9, 59, 1)),
            order(6, 1, 9, 100, at(9, 59, 1), 3), order(0, 1, 9, 100, at(9, 59, 1))});
    const auto found = m_model.getOrder(5);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->entrustNo, 5);
    EXPECT_EQ(found->side, 2);
    EXPECT_EQ(found->kind, 4);
    EXPECT_EQ(found->volume, 12300);
    EXPECT_DOUBLE_EQ(found->price, 10.5);
    EXPECT_EQ(found->m_time, at(9, 59, 0, 120));
    EXPECT_FALSE(m_model.getOrder(6)) << "no standing order";
    EXPECT_FALSE(m_model.getOrder(0));
    EXPECT_FALSE(m_model.getOrder(-1));
}

TEST_F(TransactionModel, OrderNumbersBeyond32BitsAreKnown)
{
    orders({order(5000000000, 1, 10, 100, at(9, 59, 0))});
    EXPECT_TRUE(m_model.getOrder(5000000000));
    EXPECT_FALSE(m_model.getOrder(static_cast<std::int32_t>(5000000000)));
}

TEST_F(TransactionModel, ARowThatWasHandedOutNeverChanges)
{
    deals({deal(1, 5, 6, 10, 100, at(10, 0, 0))});
    const auto before = m_model.getData(0);
    EXPECT_EQ(before, m_model.getData(0)) << "nothing has changed: the same row";
    deals({deal(2, 5, 7, 10, 100, at(10, 0, 0))});
    EXPECT_EQ(before->buyNext, -1);
    EXPECT_EQ(m_model.getData(0)->buyNext, 1);
    m_model.clear();
    EXPECT_EQ(before->volume, 1);
}

TEST_F(TransactionModel, RowsOutsideTheListAreNull)
{
    deals({deal(1, 5, 6, 10, 100, at(10, 0, 0))});
    EXPECT_TRUE(m_model.getData(0));
    EXPECT_FALSE(m_model.getData(1));
    EXPECT_FALSE(m_model.getData(-1));
    EXPECT_FALSE(m_model.getData(std::numeric_limits<int>::max()));
}

TEST_F(TransactionModel, FindGivesTheRowsOfASecond)
{
    deals({deal(1, 5, 6, 10, 100, at(10, 0, 0)), deal(2, 5, 6, 10, 100, at(10, 0, 2)),
           deal(3, 5, 6, 10, 100, at(10, 0, 2, 500)), deal(4, 5, 6, 10, 100, at(10, 0, 5))});
    EXPECT_EQ(m_model.find(tag(10, 0, 2)), std::make_pair(1, 2));
    EXPECT_EQ(m_model.find(tag(10, 0, 3)), std::make_pair(-1, -1));
    EXPECT_EQ(m_model.find(tag(10, 0, 3), true), 3);
    EXPECT_EQ(m_model.find(tag(10, 0, 3), false), 2);
    EXPECT_EQ(m_model.find(tag(10, 0, 2), true), 1);
    EXPECT_EQ(m_model.find(tag(10, 0, 2), false), 2);
    EXPECT_EQ(m_model.find(tag(9, 0, 0), false), -1);
    EXPECT_EQ(m_model.find(tag(11, 0, 0), true), -1);
}

TEST_F(TransactionModel, TryFindGivesTheRowsOfTheNearestEarlierSecond)
{
    deals({deal(1, 5, 6, 10, 100, at(10, 0, 0)), deal(2, 5, 6, 10, 100, at(10, 0, 2)),
           deal(3, 5, 6, 10, 100, at(10, 0, 2, 500)), deal(4, 5, 6, 10, 100, at(10, 0, 5))});
    std::pair<int, int> rows{7, 7};
    TransData data;
    data.time = tag(10, 0, 4);
    EXPECT_TRUE(m_model.tryFind(&data, rows));
    EXPECT_EQ(rows, std::make_pair(1, 2));
    data.time = tag(10, 0, 0);
    EXPECT_FALSE(m_model.tryFind(&data, rows));
    EXPECT_EQ(rows, std::make_pair(-1, -1));
    EXPECT_FALSE(m_model.tryFind(nullptr, rows));
}

TEST_F(TransactionModel, TracebackCountsTheRowsOfTheSecondInTheFilteredList)
{
    deals({deal(1, 5, 6, 10, 900, at(10, 0, 0)), deal(2, 5, 6, 10, 100, at(10, 0, 0)),
           deal(3, 5, 6, 10, 900, at(10, 0, 0)), deal(4, 5, 6, 10, 900, at(10, 0, 1))});
    EXPECT_EQ(m_model.tracebackSeq(2), 3);
    EXPECT_EQ(m_model.tracebackSeq(3), 1);
    EXPECT_EQ(m_model.tracebackSeq(4), 0);
    SDepthFilterParam param;
    param.volume = 9;
    param.relate = 1;
    m_model.setFilterParam(param);
    EXPECT_EQ(m_model.count, 3);
    EXPECT_EQ(m_model.tracebackSeq(1), 2);
    EXPECT_EQ(m_model.find(tag(10, 0, 0)), std::make_pair(0, 1));
}

TEST_F(TransactionModel, ClearDropsTheRowsAndKeepsInstrumentAndFilter)
{
    SDepthFilterParam param;
    param.volume = 9;
    param.relate = 1;
    m_model.setFilterParam(param);
    orders({order(5, 1, 10, 100, at(10, 0, 0))});
    deals({deal(1, 5, 6, 10, 900, at(10, 0, 0))});
    m_model.clear();
    EXPECT_EQ(m_model.count, 0);
    EXPECT_FALSE(m_model.getOrder(5));
    deals({deal(1, 5, 6, 10, 900, at(10, 0, 0)), deal(2, 5, 6, 10, 100, at(10, 0, 0))});
    EXPECT_EQ(m_model.count, 1);
}

TEST_F(TransactionModel, ALongListIsFilteredInTheBackgroundAndIsNeverHalf)
{
    Batch batch;
    for (int number = 1; number <= 60000; ++number)
        batch.push_back(deal(number, number, number + 1, 10, number % 10 == 0 ? 900 : 100, at(10, 0, 0)));
    deals(batch);
    m_model.dirty = false;
    SDepthFilterParam param;
    param.volume = 9;
    param.relate = 1;
    m_model.setFilterParam(param);
    const int atOnce = m_model.count;
    EXPECT_TRUE(atOnce == 60000 || atOnce == 6000) << atOnce;
    net::RPCEngine::drain(kFilterStrand);
    EXPECT_EQ(m_model.count, 6000);
    EXPECT_TRUE(m_model.dirty);
    EXPECT_FALSE(m_model.isFiltering());
    EXPECT_EQ(m_model.getData(5999)->volume, 9);
}

TEST_F(TransactionModel, OfTwoFiltersTheLastHoldsWhateverComesBetween)
{
    Batch batch;
    for (int number = 1; number <= 60000; ++number)
        batch.push_back(deal(number, number, number + 1, 10, number % 10 == 0 ? 900 : 100, at(10, 0, 0)));
    deals(batch);
    SDepthFilterParam param;
    param.relate = 1;
    param.volume = 9;
    m_model.setFilterParam(param);
    deals({deal(70000, 1, 2, 10, 900, at(10, 0, 1)), deal(5, 1, 2, 10, 2000, at(9, 50, 1))});
    param.volume = 10;
    m_model.setFilterParam(param);
    net::RPCEngine::drain(kFilterStrand);
    ASSERT_EQ(m_model.count, 1);
    EXPECT_EQ(m_model.getData(0)->volume, 20);
}

TEST_F(TransactionModel, AModelMayEndWhileItIsBeingFiltered)
{
    auto model = std::make_unique<CModelDepthTransaction>();
    model->setStock(kStock);
    Batch batch;
    for (int number = 1; number <= 60000; ++number)
        batch.push_back(deal(number, number, number + 1, 10, 100, at(10, 0, 0)));
    model->transactionCallback(0, 0, wrap(batch));
    SDepthFilterParam param;
    param.volume = 2;
    param.relate = 1;
    model->setFilterParam(param);
    const auto row = model->getData(3);
    model.reset();
    net::RPCEngine::drain(kFilterStrand);
    EXPECT_EQ(row->buyNo, 4);
}

TEST_F(TransactionModel, VisitRowsWalksWhatThereIs)
{
    deals({deal(1, 5, 6, 10, 100, at(10, 0, 0)), deal(2, 5, 6, 10, 200, at(10, 0, 0)),
           deal(3, 5, 6, 10, 300, at(10, 0, 0))});
    Ints seen;
    m_model.visitRows(-5, 1,
                      [&](int row, const DepthTransData& data) { seen.push_back(row * 10 + data.volume); });
    m_model.visitRows(2, 100,
                      [&](int row, const DepthTransData& data) { seen.push_back(row * 10 + data.volume); });
    EXPECT_EQ(seen, (Ints{1, 12, 23}));
}

namespace {

/// A model that counts how often it hears of changes.
class ListeningModel : public CModelDepthTransaction
{
public:
    int changes = 0;

protected:
    void dataChanged() override { ++changes; }
};

} // namespace

TEST(TransactionModelHook, IsCalledForEveryChangeAndForNothingElse)
{
    addInstruments();
    ListeningModel model;
    model.setStock(kStock);
    model.transactionCallback(0, 1, wrap({deal(1, 5, 6, 10, 100, at(10, 0, 0))}));
    EXPECT_EQ(model.changes, 1);
    model.transactionCallback(0, 1, wrap({deal(1, 5, 6, 10, 100, at(10, 0, 0))}));
    model.transactionCallback(0, 1, wrap({deal(2, 5, 6, 10, 100, at(10, 0, 0))}, kOther));
    EXPECT_EQ(model.changes, 1);
    model.entrustCallback(0, 1, wrap({order(5, 1, 10, 100, at(10, 0, 0))}));
    EXPECT_EQ(model.changes, 2);
    model.setFilterParam(SDepthFilterParam());
    EXPECT_EQ(model.changes, 3);
    model.clear();
    EXPECT_EQ(model.changes, 4);
}
