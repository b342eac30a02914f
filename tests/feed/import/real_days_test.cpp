#include "feed/import/ReferenceBook.h"
#include "feed/import/importDay.h"
#include "platform/utils/exchange_time.h"
#include "records/OrderData.h"
#include "records/TransactionData.h"
#include "support/SharedData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <set>

namespace {

using feed::ImportOptions;
using feed::ImportResult;
using feed::InstrumentDay;
using feed::Phase;

template <class Rows>
bool strictlyIncreasing(const Rows& rows)
{
    return std::adjacent_find(rows.begin(), rows.end(),
                              [](const auto& a, const auto& b) { return a.seq >= b.seq; }) == rows.end();
}

void expectOneSequence(const InstrumentDay& day)
{
    EXPECT_TRUE(strictlyIncreasing(day.orders));
    EXPECT_TRUE(strictlyIncreasing(day.deals));
    std::set<std::int64_t> seqs;
    for (const feed::OrderRow& row : day.orders)
        seqs.insert(row.seq);
    for (const feed::DealRow& row : day.deals)
        seqs.insert(row.seq);
    EXPECT_EQ(seqs.size(), day.orders.size() + day.deals.size());
}

std::int64_t cancels(const InstrumentDay& day)
{
    return std::count_if(day.deals.begin(), day.deals.end(),
                         [](const feed::DealRow& row) { return row.kind == quoter::eTransactionCancel; });
}

TEST(RealDay, ShanghaiOrdersAndDealsRebuildEverySnapshot)
{
    REQUIRE_SHARED_DAY(folder, "600519-20230201");
    const ImportResult result = feed::importDay(folder, ImportOptions());
    ASSERT_FALSE(result.error) << result.error.text();
    EXPECT_EQ(result.report.rejects.count(), 0);
    ASSERT_EQ(result.report.files.size(), 3u);
    EXPECT_EQ(result.report.files[0].taken, 54735);
    EXPECT_EQ(result.report.files[1].taken, 5109);
    EXPECT_EQ(result.report.files[2].taken, 27135);
    ASSERT_EQ(result.days.size(), 1u);
    const InstrumentDay& day = result.days[0];
    EXPECT_EQ(day.detail.market + day.detail.code, "SH600519");
    EXPECT_EQ(day.detail.previousClose, 1845.76);
    EXPECT_EQ(day.detail.priceTick, 0.01);
    EXPECT_EQ(day.tradingDay, 20230201);
    EXPECT_EQ(cancels(day), 15668);
    EXPECT_EQ(day.deals.size(), 27135u + 15668u);
    EXPECT_EQ(result.report.madeOrders, 19050);
    EXPECT_EQ(result.report.unknownOrders, 0);
    EXPECT_EQ(day.orders.size(), 39067u + 19050u);
    EXPECT_EQ(day.snapshots.size(), 5109u);
    expectOneSequence(day);
    EXPECT_EQ(utils::clockText(day.orders.front().time, true).toStdString(), "09:15:00.020");

    const testing_support::Agreement continuous =
        testing_support::agreementWithSnapshots(day, Phase::Continuous);
    EXPECT_EQ(continuous.compared, 4847);
    EXPECT_EQ(continuous.matched, 4847) << continuous.firstDifference;
    EXPECT_EQ(continuous.dealsBehindTheFront, 0);
    const testing_support::Agreement closed = testing_support::agreementWithSnapshots(day, Phase::Closed);
    EXPECT_EQ(closed.compared, 42);
    EXPECT_EQ(closed.matched, 42) << closed.firstDifference;
}

TEST(RealDay, ShanghaiByApplSeqNumDealsAtTheFrontOfItsQueues)
{
    REQUIRE_SHARED_DAY(folder, "601825-20230711");
    const ImportResult result = feed::importDay(folder, ImportOptions());
    ASSERT_FALSE(result.error) << result.error.text();
    EXPECT_EQ(result.report.rejects.count(), 0);
    ASSERT_EQ(result.days.size(), 1u);
    const InstrumentDay& day = result.days[0];
    EXPECT_EQ(day.detail.market + day.detail.code, "SH601825");
    EXPECT_EQ(day.detail.name, "沪农商行");
    EXPECT_EQ(day.tradingDay, 20230711);
    EXPECT_EQ(cancels(day), 1997);
    EXPECT_EQ(day.deals.size(), 5370u + 1997u);
    EXPECT_EQ(result.report.madeOrders, 3951);
    EXPECT_EQ(day.orders.size(), 5286u + static_cast<std::size_t>(result.report.madeOrders));
    EXPECT_EQ(result.report.unknownOrders, 0);
    EXPECT_EQ(day.orders.front().price, 5.49);
    expectOneSequence(day);
    EXPECT_EQ(testing_support::agreementWithSnapshots(day, Phase::Unknown).dealsBehindTheFront, 0);
}

TEST(RealDay, PublishedQueuesOfThreeInstruments)
{
    REQUIRE_SHARED_DAY(folder, "queues-20211201");
    const ImportResult result = feed::importDay(folder, ImportOptions());
    ASSERT_FALSE(result.error) << result.error.text();
    EXPECT_EQ(result.report.rejects.count(), 0);
    ASSERT_EQ(result.days.size(), 3u);
    std::size_t snapshots = 0;
    for (const InstrumentDay& day : result.days) {
        EXPECT_EQ(day.detail.market, "SH");
        EXPECT_EQ(day.tradingDay, 20211201);
        EXPECT_TRUE(day.orders.empty() && day.deals.empty());
        EXPECT_GT(day.queues.size(), 1000u);
        snapshots += day.snapshots.size();
        // Some moments were published twice, with different volumes.
        std::set<std::pair<std::int64_t, std::int64_t>> bestVolumes;
        for (const feed::SnapshotRow& row : day.snapshots)
            bestVolumes.insert({row.time, row.bidVolume[0]});
        for (const feed::QueueRow& queue : day.queues) {
            ASSERT_LE(queue.bidVolumes.size(), 50u);
            if (queue.bidVolumes.empty() || queue.bidCount > 50)
                continue;
            // A queue that is published whole makes up the volume of its level.
            const std::int64_t sum =
                std::accumulate(queue.bidVolumes.begin(), queue.bidVolumes.end(), std::int64_t(0));
            ASSERT_EQ(bestVolumes.count({queue.time, sum}), 1u) << day.detail.code << " at " << queue.time;
            ASSERT_EQ(queue.bidCount, static_cast<std::int32_t>(queue.bidVolumes.size()));
        }
    }
    EXPECT_EQ(snapshots, 3860u);
    EXPECT_EQ(result.days[0].detail.code, "600103");
    EXPECT_EQ(result.days[1].detail.code, "600566");
    EXPECT_EQ(result.days[2].detail.code, "688233");
}

TEST(RealDay, ShenzhenSnapshots)
{
    REQUIRE_SHARED_DAY(folder, "300274-20220601");
    const ImportResult result = feed::importDay(folder, ImportOptions());
    ASSERT_FALSE(result.error) << result.error.text();
    // The file ends with a line of another instrument.
    ASSERT_EQ(result.report.rejects.listed().size(), 1u);
    EXPECT_EQ(result.report.rejects.listed()[0].reason, "instrument of another folder");
    EXPECT_EQ(result.report.rejects.listed()[0].line, 4921);
    ASSERT_EQ(result.days.size(), 1u);
    const InstrumentDay& day = result.days[0];
    EXPECT_EQ(day.detail.market + day.detail.code, "SZ300274");
    EXPECT_EQ(day.detail.previousClose, 79.96);
    EXPECT_EQ(day.detail.upperLimit, 95.95);
    EXPECT_EQ(day.detail.lowerLimit, 63.97);
    EXPECT_EQ(day.tradingDay, 20220601);
    ASSERT_EQ(day.snapshots.size(), 4919u);
    std::map<Phase, int> phases;
    for (const feed::SnapshotRow& row : day.snapshots)
        ++phases[row.phase];
    EXPECT_EQ(phases, (std::map<Phase, int>{{Phase::OpeningAuction, 68},
                                            {Phase::Continuous, 4740},
                                            {Phase::Break, 88},
                                            {Phase::ClosingAuction, 20},
                                            {Phase::Closed, 3}}));
}

TEST(RealDay, ShenzhenDealsWithoutOrders)
{
    REQUIRE_SHARED_DAY(folder, "000001-20230201");
    const ImportResult result = feed::importDay(folder, ImportOptions());
    ASSERT_FALSE(result.error) << result.error.text();
    EXPECT_EQ(result.report.rejects.count(), 0);
    ASSERT_EQ(result.days.size(), 1u);
    const InstrumentDay& day = result.days[0];
    EXPECT_EQ(day.detail.market + day.detail.code, "SZ000001");
    ASSERT_EQ(day.deals.size(), 40000u);
    EXPECT_EQ(cancels(day), 8879);
    EXPECT_TRUE(day.orders.empty());
    EXPECT_EQ(result.report.unknownOrders, 0) << "a file without orders says nothing about them";
    expectOneSequence(day);
    const feed::DealRow& first = day.deals.front();
    EXPECT_EQ(first.kind, quoter::eTransactionCancel);
    for (const feed::DealRow& row : day.deals) {
        if (row.kind == quoter::eTransactionCancel)
            ASSERT_TRUE(row.buyNo > 0 && row.price == 0 && (row.sellNo == 0 || row.sellNo == row.buyNo));
        else
            ASSERT_TRUE(row.buyNo > 0 && row.sellNo > 0 && row.price > 0);
    }
}

} // namespace
