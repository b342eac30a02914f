// Real days: every deal, order and cancel finds its place, in history and in live batches alike.

#include "feed/import/importDay.h"
#include "feed/record_making.h"
#include "models/tick/TickRecords.h"
#include "platform/models/CModelDepthEntrust.h"
#include "platform/models/CModelDepthTransaction.h"
#include "platform/models/tick_values.h"
#include "support/SharedData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace Kel;
using namespace testing_support;

namespace {

SDepthFilterParam everything()
{
    SDepthFilterParam param;
    param.start = 0;
    param.end = kSecondsPerDay * 1000;
    return param;
}

/// Sends a day in batches of so many records.
template <class Model>
void send(Model& model, const feed::InstrumentDay& day, std::size_t size)
{
    const std::string key = day.detail.market + day.detail.code;
    for (std::size_t from = 0; from < day.orders.size(); from += size)
        model.entrustCallback(
            0, from == 0 ? 0 : 1,
            wrap(feed::makeOrderBatch(day.orders.data() + from, std::min(size, day.orders.size() - from)),
                 key));
    for (std::size_t from = 0; from < day.deals.size(); from += size)
        model.transactionCallback(
            0, from == 0 ? 0 : 1,
            wrap(feed::makeDealBatch(day.deals.data() + from, std::min(size, day.deals.size() - from)), key));
}

void expectWhole(const std::string& folder, std::int64_t rejects)
{
    const feed::ImportResult result = feed::importDay(folder, feed::ImportOptions());
    ASSERT_FALSE(result.error) << result.error.text();
    EXPECT_EQ(result.report.rejects.count(), rejects);
    ASSERT_EQ(result.days.size(), 1u);
    const feed::InstrumentDay& day = result.days[0];
    utils::CSingletonT<CStockManager>::instance().addInstrument(
        boost::make_shared<nelservice::CInstrumentDetail>(day.detail));
    const auto cancels = std::count_if(day.deals.begin(), day.deals.end(),
                                       [](const feed::DealRow& row) { return row.kind == 3; });
    const auto orders = std::count_if(day.orders.begin(), day.orders.end(),
                                      [](const feed::OrderRow& row) { return row.kind != 3; });
    for (const std::size_t size : {std::size_t(20000), std::size_t(97)}) {
        SCOPED_TRACE("batches of " + std::to_string(size));
        CModelDepthTransaction deals;
        CModelDepthEntrust entrusts;
        deals.setStock(QString::fromStdString(day.detail.market + day.detail.code));
        entrusts.setStock(QString::fromStdString(day.detail.market + day.detail.code));
        deals.setFilterParam(everything());
        entrusts.setFilterParam(everything());
        send(deals, day, size);
        send(entrusts, day, size);
        EXPECT_EQ(deals.count, static_cast<int>(day.deals.size()) - cancels);
        EXPECT_EQ(entrusts.orderCount, orders);
        EXPECT_EQ(entrusts.cancelCount, cancels);
        // What the links of an order lead through is what the order has dealt.
        std::int64_t dealt = 0;
        for (const feed::DealRow& row : day.deals)
            dealt += row.kind == 3 ? 0 : row.volume;
        std::set<int> numbers;
        std::int64_t tracked = 0;
        for (const feed::DealRow& row : day.deals)
            numbers.insert(row.buyNo);
        for (const int number : numbers) {
            std::list<boost::shared_ptr<quoter::TransactionData>> records;
            entrusts.getTransactionData(number, records);
            for (const auto& record : records)
                tracked += record->kind != 3 && record->buyNo == number ? record->volume : 0;
        }
        EXPECT_EQ(tracked, dealt);
    }
}

} // namespace

TEST(RealTicks, OfShanghaiWithOriginalVolumes)
{
    REQUIRE_SHARED_DAY(folder, "600519-20230201");
    expectWhole(folder, 0);
}

TEST(RealTicks, OfShanghaiInTwoTables)
{
    REQUIRE_SHARED_DAY(folder, "601825-20230711");
    expectWhole(folder, 0);
}

TEST(RealTicks, OfShenzhenDealsAlone)
{
    REQUIRE_SHARED_DAY(folder, "000001-20230201");
    expectWhole(folder, 0);
}

TEST(RealTicks, OfShenzhenInOneTable)
{
    REQUIRE_SHARED_DAY(folder, "300274-20220601");
    expectWhole(folder, 1); // a line that the file itself has broken
}
