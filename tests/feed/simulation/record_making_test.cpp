#include "feed/record_making.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace feed::test {
namespace {

using ::testing::ElementsAre;

OrderRow orderRow()
{
    OrderRow row;
    row.time = 1675214100123;
    row.seq = 42;
    row.number = 5000000000;
    row.price = 18.36;
    row.volume = 1700;
    row.side = 2;
    row.kind = quoter::eOrderBestOwnSide;
    return row;
}

DealRow dealRow()
{
    DealRow row;
    row.time = 1675214100456;
    row.seq = 43;
    row.price = 18.37;
    row.volume = 300;
    row.dealNo = 7;
    row.buyNo = 8;
    row.sellNo = 9;
    row.kind = quoter::eTransactionCancel;
    row.activeSide = 1;
    return row;
}

void expectSame(const quoter::OrderData& record, const OrderRow& row)
{
    EXPECT_EQ(record.m_time, row.time);
    EXPECT_EQ(record.price, row.price);
    EXPECT_EQ(record.volume, row.volume);
    EXPECT_EQ(record.entrustNo, row.number);
    EXPECT_EQ(record.kind, row.kind);
    EXPECT_EQ(record.side, row.side);
}

void expectSame(const quoter::TransactionData& record, const DealRow& row)
{
    EXPECT_EQ(record.m_time, row.time);
    EXPECT_EQ(record.price, row.price);
    EXPECT_EQ(record.volume, row.volume);
    EXPECT_EQ(record.dealNo, row.dealNo);
    EXPECT_EQ(record.buyNo, row.buyNo);
    EXPECT_EQ(record.sellNo, row.sellNo);
    EXPECT_EQ(record.kind, row.kind);
    EXPECT_EQ(record.activeSide, row.activeSide);
}

TEST(RecordMaking, AnOrderKeepsEveryFieldEvenAWideNumber)
{
    expectSame(*makeRecord(orderRow()), orderRow());
}

TEST(RecordMaking, ADealKeepsEveryField)
{
    expectSame(*makeRecord(dealRow()), dealRow());
}

TEST(RecordMaking, ANumberThatDoesNotFitADealRecordIsNoNumber)
{
    EXPECT_EQ(dealRecordNumber(0), 0);
    EXPECT_EQ(dealRecordNumber(2147483647), 2147483647);
    EXPECT_EQ(dealRecordNumber(-2147483648LL), std::numeric_limits<std::int32_t>::min());
    EXPECT_FALSE(dealRecordNumber(2147483648LL));
    EXPECT_FALSE(dealRecordNumber(-2147483649LL));
    EXPECT_FALSE(dealRecordNumber(std::numeric_limits<std::int64_t>::max()));
}

TEST(RecordMaking, ASnapshotShowsTheNearestWholeLotsAndNeverNoneWhereSharesStand)
{
    SnapshotRow row;
    row.time = 5;
    row.lastPrice = 1;
    row.previousClose = 2;
    row.openPrice = 3;
    row.highPrice = 4;
    row.lowPrice = 0.5;
    row.totalVolume = 12345;
    row.turnover = 6.5;
    row.dealCount = 17;
    for (std::size_t at = 0; at < quoter::kDepthLevels; ++at) {
        row.bidPrice[at] = 10 - 0.01 * double(at);
        row.bidVolume[at] = 150 + 100 * static_cast<std::int64_t>(at);
        row.bidCount[at] = static_cast<std::int32_t>(at);
        row.askPrice[at] = 11 + 0.01 * double(at);
        row.askVolume[at] = at == 0 ? 0 : at == 1 ? 1 : 149;
        row.askCount[at] = static_cast<std::int32_t>(at + 20);
    }
    row.askVolume[9] = -150;
    const auto record = makeRecord(row, 100);
    EXPECT_EQ(record->m_time, 5);
    EXPECT_EQ(record->lastPrice, 1);
    EXPECT_EQ(record->previousClose, 2);
    EXPECT_EQ(record->openPrice, 3);
    EXPECT_EQ(record->highPrice, 4);
    EXPECT_EQ(record->lowPrice, 0.5);
    EXPECT_EQ(record->totalVolume, 12345);
    EXPECT_EQ(record->turnover, 6.5);
    EXPECT_EQ(record->dealCount, 17);
    for (std::size_t at = 0; at < quoter::kDepthLevels; ++at) {
        EXPECT_EQ(record->bidPrice[at], row.bidPrice[at]);
        EXPECT_EQ(record->bidVolume[at], static_cast<std::int64_t>(at) + 2);
        EXPECT_EQ(record->bidOrderCount[at], row.bidCount[at]);
        EXPECT_EQ(record->askPrice[at], row.askPrice[at]);
        EXPECT_EQ(record->askVolume[at], at == 9 ? -1 : at == 0 ? 0 : 1);
        EXPECT_EQ(record->askOrderCount[at], row.askCount[at]);
    }
    EXPECT_EQ(makeRecord(row, 10)->bidVolume[0], 15);
}

TEST(RecordMaking, APublishedQueueRoundsAndLosesNoOrder)
{
    QueueRow row;
    row.time = 9;
    row.bidPrice = 10;
    row.askPrice = 10.01;
    row.bidCount = 77;
    row.askCount = 3;
    row.bidVolumes = {149, 150, 1, 0, -5, std::numeric_limits<std::int64_t>::max()};
    row.askVolumes = {100};
    const auto record = makeRecord(row, 100);
    EXPECT_EQ(record->m_time, 9);
    EXPECT_EQ(record->bidPrice, 10);
    EXPECT_EQ(record->askPrice, 10.01);
    EXPECT_EQ(record->bidCount, 77);
    EXPECT_EQ(record->askCount, 3);
    EXPECT_THAT(record->bidVolumes, ElementsAre(1, 2, 1, 0, 0, std::numeric_limits<std::int32_t>::max()));
    EXPECT_THAT(record->askVolumes, ElementsAre(1));
}

TEST(RecordMaking, AUnitThatIsNoneCountsAsAHundred)
{
    QueueRow row;
    row.bidVolumes = {700};
    for (const double unit :
         {0.0, -10.0, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()})
        EXPECT_THAT(makeRecord(row, unit)->bidVolumes, ElementsAre(7)) << unit;
    EXPECT_THAT(makeRecord(row, 1e300)->bidVolumes, ElementsAre(1));
    EXPECT_THAT(makeRecord(row, 1)->bidVolumes, ElementsAre(700));
}

TEST(RecordMaking, ABatchHasARecordForEachRowInOrder)
{
    std::vector<OrderRow> orders(100, orderRow());
    std::vector<DealRow> deals(100, dealRow());
    for (int at = 0; at < 100; ++at) {
        orders[static_cast<std::size_t>(at)].number = at;
        deals[static_cast<std::size_t>(at)].dealNo = at;
    }
    const quoter::QuoterBatch orderBatch = makeOrderBatch(orders.data(), orders.size());
    const quoter::QuoterBatch dealBatch = makeDealBatch(deals.data(), deals.size());
    ASSERT_EQ(orderBatch.size(), orders.size());
    ASSERT_EQ(dealBatch.size(), deals.size());
    for (std::size_t at = 0; at < orders.size(); ++at) {
        const auto order = boost::dynamic_pointer_cast<quoter::OrderData>(orderBatch[at]);
        const auto deal = boost::dynamic_pointer_cast<quoter::TransactionData>(dealBatch[at]);
        ASSERT_TRUE(order);
        ASSERT_TRUE(deal);
        expectSame(*order, orders[at]);
        expectSame(*deal, deals[at]);
    }
    EXPECT_TRUE(makeOrderBatch(nullptr, 0).empty());
    EXPECT_TRUE(makeDealBatch(nullptr, 0).empty());
}

TEST(RecordMaking, ARecordOutlivesTheRestOfItsBatch)
{
    quoter::QuoterBasePtr kept;
    {
        const std::vector<OrderRow> rows(50, orderRow());
        kept = makeOrderBatch(rows.data(), rows.size())[17];
    }
    expectSame(*boost::dynamic_pointer_cast<quoter::OrderData>(kept), orderRow());
}

} // namespace
} // namespace feed::test
