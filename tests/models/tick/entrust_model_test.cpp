// The model of the order and cancel lists, rule by rule.

#include "models/tick/TickRecords.h"
#include "platform/models/CModelDepthEntrust.h"
#include "platform/models/tick_batches.h"
#include "platform/services/RPCEngine.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Kel;
using namespace testing_support;

namespace {

using Ints = std::vector<int>;

class EntrustModel : public testing::Test
{
protected:
    EntrustModel()
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

    Ints orderNumbers(bool whole = false) const
    {
        Ints numbers;
        for (int row = 0; const auto data = m_model.getOrderData(row, whole); ++row)
            numbers.push_back(data->orderNo);
        return numbers;
    }

    Ints cancelNumbers() const
    {
        Ints numbers;
        for (int row = 0; const auto data = m_model.getCancelData(row); ++row)
            numbers.push_back(data->orderNo);
        return numbers;
    }

    CModelDepthEntrust m_model;
};

Ints numbers(const std::vector<boost::shared_ptr<DepthOrderData>>& orders)
{
    Ints found;
    for (const auto& order : orders)
        found.push_back(order->orderNo);
    return found;
}

SDepthFilterParam onlySides(bool buy, bool sell, bool unbuy, bool unsell)
{
    SDepthFilterParam param;
    param.buy = buy;
    param.sell = sell;
    param.unbuy = unbuy;
    param.unsell = unsell;
    return param;
}

} // namespace

TEST_F(EntrustModel, AnOrderRowHasAllOfItsOrder)
{
    orders({order(5, 2, 10.5, 12350, at(9, 59, 0, 120), 4)});
    ASSERT_EQ(m_model.orderCount, 1);
    const auto row = m_model.getOrderData(0, false);
    EXPECT_EQ(row->time, tag(9, 59, 0));
    EXPECT_DOUBLE_EQ(row->price, 10.5);
    EXPECT_EQ(row->lots, 124);
    EXPECT_EQ(row->volume, 12350);
    EXPECT_EQ(row->orderNo, 5);
    EXPECT_EQ(row->side, 2);
    EXPECT_EQ(row->kind, 4);
}

TEST_F(EntrustModel, ACancelRowHasAllOfItsRecord)
{
    deals({cancel(1, 5, 0, 12350, at(9, 59, 0, 120))});
    ASSERT_EQ(m_model.cancelCount, 1);
    const auto row = m_model.getCancelData(0);
    EXPECT_EQ(row->time, tag(9, 59, 0));
    EXPECT_DOUBLE_EQ(row->price, 0);
    EXPECT_EQ(row->lots, 124);
    EXPECT_EQ(row->volume, 12350);
    EXPECT_EQ(row->orderNo, 5);
}

TEST_F(EntrustModel, TheNumberOfACancelIsBuyNoOrSellNoWhenThatIsZero)
{
    deals({cancel(1, 5, 0, 100, at(10, 0, 0)), cancel(2, 0, 6, 100, at(10, 0, 0)),
           cancel(3, 7, 7, 100, at(10, 0, 0))});
    EXPECT_EQ(cancelNumbers(), (Ints{5, 6, 7}));
}

TEST_F(EntrustModel, CancelsComeFromDealRecordsOfKindThreeAlone)
{
    orders({order(5, 1, 10, 100, at(9, 59, 0)), order(5, 1, 10, 100, at(9, 59, 9), 3),
            order(8, 1, 10, 100, at(9, 59, 9), 3)});
    deals({deal(1, 5, 6, 10, 100, at(10, 0, 0))});
    EXPECT_EQ(m_model.cancelCount, 0);
    EXPECT_EQ(orderNumbers(), (Ints{5}));
}

TEST_F(EntrustModel, RowsStandByTimeTagThenNumber)
{
    orders({order(9, 1, 10, 100, at(10, 0, 1)), order(7, 1, 10, 100, at(10, 0, 0, 900)),
            order(3, 1, 10, 100, at(10, 0, 0, 950))});
    orders({order(1, 1, 10, 100, at(10, 0, 0))});
    EXPECT_EQ(orderNumbers(), (Ints{1, 3, 7, 9}));
    deals({cancel(9, 1, 0, 100, at(10, 0, 1)), cancel(7, 3, 0, 100, at(10, 0, 0))});
    deals({cancel(5, 7, 0, 100, at(10, 0, 0))});
    EXPECT_EQ(cancelNumbers(), (Ints{7, 3, 1}));
    boost::shared_ptr<DepthOrderData> found;
    EXPECT_TRUE(m_model.getOrderData(9, found));
    EXPECT_EQ(found->time, tag(10, 0, 1));
}

TEST_F(EntrustModel, RepeatsAreIgnored)
{
    orders({order(5, 1, 10, 100, at(10, 0, 0)), order(5, 1, 10, 200, at(10, 0, 0))});
    deals({cancel(1, 5, 0, 100, at(10, 0, 0)), cancel(1, 5, 0, 100, at(10, 0, 0)),
           cancel(0, 6, 0, 100, at(10, 0, 0))});
    m_model.orderDirty = false;
    m_model.cancelDirty = false;
    orders({order(5, 1, 10, 300, at(10, 0, 5))});
    deals({cancel(1, 5, 0, 100, at(10, 0, 0)), cancel(0, 6, 0, 100, at(10, 0, 0))}, 3);
    EXPECT_EQ(m_model.orderCount, 1);
    EXPECT_EQ(m_model.getOrderData(0, false)->volume, 100);
    EXPECT_EQ(m_model.cancelCount, 2);
    EXPECT_FALSE(m_model.orderDirty);
    EXPECT_FALSE(m_model.cancelDirty);
}

TEST_F(EntrustModel, ACancelWithoutANumberIsKnownByOrderTimeAndShares)
{
    const std::int64_t ten = at(10, 0, 0);
    deals({cancel(0, 6, 0, 100, ten), cancel(0, 7, 0, 100, ten), cancel(0, 6, 0, 100, ten),
           cancel(0, 6, 0, 100, ten + 1), cancel(0, 6, 0, 200, ten)});
    EXPECT_EQ(cancelNumbers(), (Ints{6, 7, 6, 6}))
        << "the third is a repeat though it does not follow its first";
    deals({cancel(0, 7, 0, 100, ten), cancel(0, 6, 0, 200, ten), cancel(0, 8, 0, 200, ten)});
    EXPECT_EQ(cancelNumbers(), (Ints{6, 7, 6, 6, 8}));
}

TEST_F(EntrustModel, CancelsThatNameNeitherThemselvesNorAnOrderAreNeverRepeats)
{
    const auto nameless = cancel(0, 0, 0, 100, at(10, 0, 0));
    deals({nameless, nameless});
    deals({nameless});
    EXPECT_EQ(m_model.cancelCount, 3);
}

TEST_F(EntrustModel, OrdersWithoutNumberSharesPriceOrTimeArePassedOver)
{
    orders({order(0, 1, 10, 100, at(10, 0, 0)), order(5000000000, 1, 10, 100, at(10, 0, 0)),
            order(1, 1, 10, 0, at(10, 0, 0)),
            order(2, 1, std::numeric_limits<double>::infinity(), 100, at(10, 0, 0)),
            order(4, 1, -10, 100, at(10, 0, 0)), order(3, 1, 10, 100, -1), nullptr,
            deal(4, 1, 2, 10, 100, at(10, 0, 0))});
    EXPECT_EQ(m_model.orderCount, 0);
    EXPECT_FALSE(m_model.orderDirty);
}

TEST_F(EntrustModel, StatusZeroReplacesItsChannelOthersAddOrAreIgnored)
{
    orders({order(5, 1, 10, 100, at(10, 0, 0))}, 3);
    deals({cancel(1, 5, 0, 100, at(10, 0, 0))}, 2);
    orders({order(6, 1, 10, 100, at(10, 0, 0))}, 4);
    EXPECT_EQ(orderNumbers(), (Ints{5}));
    orders({order(7, 1, 10, 100, at(10, 0, 0))}, 0);
    EXPECT_EQ(orderNumbers(), (Ints{7}));
    EXPECT_EQ(cancelNumbers(), (Ints{5}));
    deals({cancel(2, 7, 0, 100, at(10, 0, 0))}, 0);
    EXPECT_EQ(cancelNumbers(), (Ints{7}));
    EXPECT_EQ(orderNumbers(), (Ints{7}));
}

TEST_F(EntrustModel, BatchesOfAnotherInstrumentAreDropped)
{
    m_model.entrustCallback(0, 1, wrap({order(5, 1, 10, 100, at(10, 0, 0))}, kOther));
    m_model.transactionCallback(0, 1, wrap({cancel(1, 5, 0, 100, at(10, 0, 0))}, kOther));
    m_model.entrustCallback(0, 1, {});
    m_model.transactionCallback(0, 0, {});
    m_model.setStock(QStringLiteral("SH999999"));
    orders({order(5, 1, 10, 100, at(10, 0, 0))});
    EXPECT_EQ(m_model.orderCount, 0);
    EXPECT_EQ(m_model.cancelCount, 0);
}

TEST_F(EntrustModel, FlagsAreThoseOfTheirLists)
{
    orders({order(5, 1, 10, 100, at(10, 0, 0))});
    EXPECT_TRUE(m_model.orderDirty);
    EXPECT_FALSE(m_model.cancelDirty);
    m_model.orderDirty = false;
    deals({cancel(1, 5, 0, 100, at(10, 0, 0)), cancel(2, 6, 0, 100, at(10, 0, 0))});
    EXPECT_FALSE(m_model.orderDirty);
    EXPECT_TRUE(m_model.cancelDirty);
    m_model.cancelDirty = false;
    orders({order(6, 2, 10, 100, at(10, 0, 0))});
    EXPECT_TRUE(m_model.cancelDirty) << "the row of the cancel shows side and price of its order now";
}

TEST_F(EntrustModel, OrdersAreFilteredBySideAndCancelsByTheSideOfTheirOrder)
{
    orders({order(1, 1, 10, 100, at(10, 0, 0)), order(2, 2, 10, 100, at(10, 0, 0))});
    deals({cancel(1, 1, 0, 100, at(10, 0, 0)), cancel(2, 2, 2, 100, at(10, 0, 0))});
    m_model.setFilterParam(onlySides(true, false, false, true));
    EXPECT_EQ(orderNumbers(), (Ints{1}));
    EXPECT_EQ(cancelNumbers(), (Ints{2}));
    EXPECT_EQ(orderNumbers(true), (Ints{1, 2})) << "the whole list knows no filter";
    boost::shared_ptr<DepthOrderData> found;
    EXPECT_TRUE(m_model.getOrderData(2, found)) << "nor do look-ups by number";
    EXPECT_FALSE(m_model.getOrderData(9, found));
    EXPECT_FALSE(found);
}

TEST_F(EntrustModel, ACancelOfAnUnknownOrderIsJudgedByTheSideThatItsNumbersProve)
{
    deals({cancel(1, 1, 0, 100, at(10, 0, 0)), cancel(2, 2, 2, 100, at(10, 0, 0)),
           cancel(3, 0, 3, 100, at(10, 0, 0)), cancel(4, 4, 5, 100, at(10, 0, 0))});
    m_model.setFilterParam(onlySides(true, true, true, false));
    EXPECT_EQ(cancelNumbers(), (Ints{1, 4}));
    m_model.setFilterParam(onlySides(true, true, false, true));
    EXPECT_EQ(cancelNumbers(), (Ints{2, 3, 4}));
    m_model.setFilterParam(onlySides(true, true, false, false));
    EXPECT_EQ(cancelNumbers(), (Ints{}));
}

TEST_F(EntrustModel, ACancelIsJudgedAgainWhenItsOrderComes)
{
    m_model.setFilterParam(onlySides(true, true, true, false));
    deals({cancel(1, 1, 0, 100, at(10, 0, 0)), cancel(2, 2, 2, 100, at(10, 0, 0)),
           cancel(3, 3, 0, 100, at(10, 0, 0))});
    EXPECT_EQ(cancelNumbers(), (Ints{1, 3}));
    orders({order(1, 2, 10, 100, at(9, 0, 0)), order(2, 1, 10, 100, at(9, 0, 0))});
    EXPECT_EQ(cancelNumbers(), (Ints{2, 3}));
    EXPECT_EQ(m_model.cancelCount, 2);
}

TEST_F(EntrustModel, ACancelIsJudgedByThePriceOfItsOrder)
{
    SDepthFilterParam param;
    param.relate = 1;
    param.amount = 5000;
    m_model.setFilterParam(param);
    deals({cancel(1, 1, 0, 1000, at(10, 0, 0))});
    EXPECT_EQ(m_model.cancelCount, 0) << "its own price is 0";
    orders({order(1, 1, 5, 9000, at(9, 0, 0))});
    EXPECT_EQ(m_model.cancelCount, 1);
}

TEST_F(EntrustModel, CancelsThatLoseTheirOrdersAreJudgedByTheirNumbersAgain)
{
    m_model.setFilterParam(onlySides(true, true, true, false));
    orders({order(1, 2, 10, 100, at(9, 0, 0))});
    deals({cancel(1, 1, 0, 100, at(10, 0, 0))});
    EXPECT_EQ(m_model.cancelCount, 0);
    orders({}, 0);
    EXPECT_EQ(m_model.cancelCount, 1);
}

TEST_F(EntrustModel, TheDealsAndCancelsOfAnOrderWhicheverSideItStandsOn)
{
    deals({deal(1, 5, 6, 10, 100, at(10, 0, 0), 1), deal(2, 7, 5, 10, 200, at(10, 0, 1), 2),
           deal(3, 7, 6, 10, 300, at(10, 0, 2)), cancel(4, 5, 0, 400, at(10, 0, 3)),
           deal(5, 5, 5, 10, 500, at(9, 25, 0))});
    std::list<boost::shared_ptr<quoter::TransactionData>> records{nullptr};
    EXPECT_TRUE(m_model.getTransactionData(5, records));
    Ints numbers;
    Ints kinds;
    for (const auto& record : records) {
        numbers.push_back(record->dealNo);
        kinds.push_back(record->kind);
    }
    EXPECT_EQ(numbers, (Ints{5, 1, 2, 4}));
    EXPECT_EQ(kinds, (Ints{0, 1, 2, 3}));
    EXPECT_EQ(records.back()->volume, 400);
    EXPECT_EQ(records.back()->m_time, at(10, 0, 3));
    EXPECT_FALSE(m_model.getTransactionData(99, records));
    EXPECT_TRUE(records.empty());
    EXPECT_FALSE(m_model.getTransactionData(0, records));
}

TEST_F(EntrustModel, DealsOfAnOrderKnowTheLaterNumberAsTheActiveSide)
{
    deals({deal(1, 5, 9, 10, 100, at(10, 0, 0, 250))});
    std::list<boost::shared_ptr<quoter::TransactionData>> records;
    m_model.getTransactionData(5, records);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records.front()->kind, 2);
    EXPECT_EQ(records.front()->m_time, at(10, 0, 0, 250));
}

TEST_F(EntrustModel, TracebackCountsTheRowsOfTheSecond)
{
    orders({order(1, 1, 10, 100, at(10, 0, 0)), order(2, 2, 10, 100, at(10, 0, 0)),
            order(3, 1, 10, 100, at(10, 0, 0)), order(4, 1, 10, 100, at(10, 0, 1))});
    deals({cancel(5, 1, 0, 100, at(10, 0, 1)), cancel(6, 2, 2, 100, at(10, 0, 1))});
    EXPECT_EQ(m_model.tracebackOrderSeq(2), 3);
    EXPECT_EQ(m_model.tracebackOrderSeq(3), 1);
    EXPECT_EQ(m_model.tracebackOrderSeq(4), 0);
    EXPECT_EQ(m_model.tracebackCancelSeq(1), 2);
    m_model.setFilterParam(onlySides(true, false, false, true));
    EXPECT_EQ(m_model.tracebackOrderSeq(1), 2);
    EXPECT_EQ(m_model.tracebackCancelSeq(0), 1);
}

TEST_F(EntrustModel, FindOrdersComparesTimeOfDayPriceLotsSideAndKind)
{
    const std::int64_t day = 24 * 3600 * 1000;
    orders({order(1, 1, 10, 100, at(10, 0, 0)), order(2, 2, 10, 100, at(10, 0, 0)),
            order(3, 1, 10, 200, at(10, 0, 0)), order(4, 1, 10.01, 100, at(10, 0, 0)),
            order(5, 1, 10, 100, at(10, 0, 0), 2), order(6, 1, 10, 100, at(10, 0, 0, 999)),
            order(7, 1, 10, 100, at(10, 0, 1)), order(8, 1, 10, 100, at(10, 0, 0) + day)});
    const int ten = 10 * 3600 * 1000;
    EXPECT_EQ(numbers(m_model.findOrders(ten, 10, 1, 1)), (Ints{1, 6, 8}));
    EXPECT_EQ(numbers(m_model.findOrders(ten, 10.000000001, 1, 1)), (Ints{})) << "the comparison is exact";
    EXPECT_EQ(numbers(m_model.findOrders(ten + 1, 10, 1, 1)), (Ints{}));
    EXPECT_EQ(numbers(m_model.findOrders(-1000, 10, 1, 1)), (Ints{}));
    EXPECT_EQ(numbers(m_model.findOrders(86400000, 10, 1, 1)), (Ints{}));
    m_model.setFilterParam(onlySides(false, true, true, true));
    EXPECT_EQ(numbers(m_model.findOrders(ten, 10, 1, 2)), (Ints{2}));
}

TEST_F(EntrustModel, ClearDropsTheRowsAndKeepsInstrumentAndFilter)
{
    m_model.setFilterParam(onlySides(true, false, true, true));
    orders({order(1, 1, 10, 100, at(10, 0, 0))});
    deals({cancel(1, 1, 0, 100, at(10, 0, 0))});
    m_model.clear();
    EXPECT_EQ(m_model.orderCount, 0);
    EXPECT_EQ(m_model.cancelCount, 0);
    orders({order(1, 1, 10, 100, at(10, 0, 0)), order(2, 2, 10, 100, at(10, 0, 0))});
    EXPECT_EQ(orderNumbers(), (Ints{1}));
}

TEST_F(EntrustModel, ALongListIsFilteredInTheBackground)
{
    Batch batch;
    Batch cancels;
    for (int number = 1; number <= 40000; ++number) {
        batch.push_back(order(number, number % 4 == 0 ? 2 : 1, 10, 100, at(10, 0, 0)));
        cancels.push_back(cancel(number, number, 0, 100, at(10, 0, 1)));
    }
    orders(batch);
    deals(cancels);
    const auto row = m_model.getOrderData(7, false);
    m_model.setFilterParam(onlySides(false, true, false, true));
    net::RPCEngine::drain(kFilterStrand);
    EXPECT_EQ(m_model.orderCount, 10000);
    EXPECT_EQ(m_model.cancelCount, 10000);
    EXPECT_FALSE(m_model.isFiltering());
    EXPECT_EQ(row->orderNo, 8);
}
