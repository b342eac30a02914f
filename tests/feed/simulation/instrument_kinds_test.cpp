#include "feed/simulation/instrument_kinds.h"

#include "feed/simulation/SimulatedExchange.h"
#include "feed/simulation/notices.h"
#include "platform/utils/exchange_time.h"
#include "platform/utils/market_predicates.h"

#include <gtest/gtest.h>

#include <set>

namespace feed::test {
namespace {

TEST(InstrumentKinds, EachMarketThatQuotesInItsOwnWayHasOne)
{
    EXPECT_TRUE(utils::isFutureMarket(future(1).detail.market));
    EXPECT_TRUE(utils::isHKMarket(hongKongStock(1).detail.market));
    EXPECT_TRUE(utils::isHGTMarket(shanghaiConnect(1).detail.market));
    EXPECT_TRUE(utils::isSGTMarket(shenzhenConnect(1).detail.market));
    EXPECT_EQ(interbankSwap(1).detail.market, "YSWP");
    EXPECT_TRUE(utils::isStockOptionMarket(stockOption(1).detail.market));
    EXPECT_EQ(customIndex(1).detail.market, "CI");
}

TEST(InstrumentKinds, CodesLieInTheRangesOfTheirKind)
{
    EXPECT_TRUE(utils::isFuture(future(1).detail.market, future(1).detail.code));
    EXPECT_TRUE(utils::isStock(hongKongStock(1).detail.market, hongKongStock(1).detail.code));
    EXPECT_TRUE(utils::isStock(shanghaiConnect(1).detail.market, shanghaiConnect(1).detail.code));
    EXPECT_TRUE(utils::isStock(shenzhenConnect(1).detail.market, shenzhenConnect(1).detail.code));
    EXPECT_TRUE(utils::isStockOption(stockOption(1).detail.market, stockOption(1).detail.code));
}

TEST(InstrumentKinds, EachPublishesFullSnapshots)
{
    std::set<std::string> keys;
    for (const InstrumentKind& kind : instrumentKinds()) {
        SimulationSettings settings = kind.make(7);
        settings.orders = 4000;
        EXPECT_TRUE(keys.insert(settings.detail.market + settings.detail.code).second) << kind.name;
        const InstrumentDay day = simulatedDay(settings);
        int full = 0;
        for (const SnapshotRow& row : day.snapshots)
            full += row.askPrice[4] > 0 && row.bidPrice[4] > 0;
        EXPECT_GT(full, 1000) << kind.name;
        EXPECT_GT(day.deals.size(), 100u) << kind.name;
    }
}

TEST(SimulatedNotices, ComeNewestFirstAndNeverFromTheDaysTrading)
{
    const auto notices = simulatedNotices(shanghaiStock(1).detail, 20230201, 5);
    ASSERT_GE(notices.size(), 10);
    EXPECT_LT(notices.first()->m_time, utils::exchangeTime(20230201, 9, 30, 0, 0));
    EXPECT_GT(notices.first()->m_time, utils::exchangeTime(20230201, 0, 0, 0, 0));
    for (int i = 1; i < notices.size(); ++i)
        EXPECT_GE(notices[i - 1]->m_time, notices[i]->m_time);
    for (const auto& notice : notices) {
        EXPECT_EQ(notice->title.find("沪市模拟: "), 0u);
        EXPECT_EQ(notice->link.find("https://notices.invalid/SH600999/"), 0u);
    }
}

TEST(SimulatedNotices, AreTheSameForTheSameSeedAndNoneOnADayThatIsNone)
{
    const auto detail = shanghaiStock(1).detail;
    const auto first = simulatedNotices(detail, 20230201, 5);
    const auto again = simulatedNotices(detail, 20230201, 5);
    const auto other = simulatedNotices(detail, 20230201, 6);
    ASSERT_EQ(first.size(), again.size());
    bool differs = false;
    for (int i = 0; i < first.size(); ++i) {
        EXPECT_EQ(first[i]->m_time, again[i]->m_time);
        EXPECT_EQ(first[i]->title, again[i]->title);
        differs = differs || first[i]->m_time != other[i]->m_time;
    }
    EXPECT_TRUE(differs);
    EXPECT_TRUE(simulatedNotices(detail, 20230231, 5).isEmpty());
}

} // namespace
} // namespace feed::test
