#include "platform/LogCapture.h"
#include "platform/utils/CLogCenter.h"
#include "queue_engine/EngineFixture.h"

#include <algorithm>

using namespace testing_support;

namespace {

class EngineLog : public EngineTest
{
protected:
    /// "level text" of each line so far.
    std::vector<std::string> lines() const
    {
        std::vector<std::string> result;
        for (const LogEvent& event : capture.events())
            result.push_back(std::to_string(event.level) + " " + event.text);
        return result;
    }

    int count(const std::string& line) const
    {
        const auto all = lines();
        return static_cast<int>(std::count(all.begin(), all.end(), line));
    }

    LogCapture capture;
};

} // namespace

TEST_F(EngineLog, NamesAnOrderWithoutAPriceAsAnError)
{
    orders(1, {order(77, kBuy, 0, 100)});
    EXPECT_EQ(count("40000 order price zero entrust No 77"), 1);
    engine.filterOrderData({order(78, kBuy, 0, 100)});
    EXPECT_EQ(count("40000 order price zero entrust No 78"), 0) << "the filter does not look at prices";
    engine.matchOrderDeal();
    EXPECT_EQ(count("40000 order price zero entrust No 78"), 1);
}

TEST_F(EngineLog, TellsWhatClearFound)
{
    orders(0, {order(1, kBuy, 10.00, 100), order(2, kSell, 10.01, 100)});
    engine.clear(true);
    engine.clear(false);
    EXPECT_EQ(count("20000 CDepthModelOrderQueue::clear. m_orderCache size is 2 bClearUICache is 1"), 1);
    EXPECT_EQ(count("20000 CDepthModelOrderQueue::clear. m_orderCache size is 0 bClearUICache is 0"), 2)
        << "one of them by the opening batch";
}

TEST_F(EngineLog, TellsOfOpeningBatchesAndMatches)
{
    orders(0, {order(1, kBuy, 10.00, 100), order(2, kSell, 10.01, 100)});
    EXPECT_EQ(count("20000 CDepthModelOrderQueue::quoterOrderCallBack  size is 2 dealBack is 0"), 1);
    deals(0, {deal(1, 2, 10.00, 100)});
    EXPECT_EQ(count("20000 CDepthModelOrderQueue::quoterDealCallBack  size is 1 m_bNeedAppendOrder is 1"), 1);
    EXPECT_EQ(count("20000 CDepthModelOrderQueue::matchOrderDeal in Deal Call Back"), 1);
    orders(0, {order(1, kBuy, 10.00, 100)});
    EXPECT_EQ(count("20000 CDepthModelOrderQueue::quoterOrderCallBack  size is 1 dealBack is 1"), 1);
}

TEST_F(EngineLog, NamesItsSourceFile)
{
    engine.clear(true);
    ASSERT_FALSE(capture.events().empty());
    const LogEvent event = capture.events().back();
    EXPECT_EQ(event.file, "CDepthModelOrderQueue");
    EXPECT_NE(event.function.find("clear"), std::string::npos) << event.function;
    EXPECT_GT(event.line, 0);
}

TEST_F(EngineLog, IsSilentForRecordsThatAreSkippedAndForLiveBatches)
{
    orders(1, {order(1, kBuy, 10.00, 100), quoter::QuoterBasePtr(), deal(1, 2, 10.00, 100)});
    deals(1, {deal(1, 2, 10.00, 100)});
    engine.doOrderCallBack(0, 1, {});
    snap("ask 10.02x5; bid 10.01x3; last 10.01");
    quotes(1, {levelRecord("bid 10.00: 5")});
    engine.checkCalcOrder();
    engine.updateDataList();
    EXPECT_TRUE(lines().empty());
}

TEST_F(EngineLog, IsSilentWhileTheLogCentreIsDisabled)
{
    utils::CLogCenter::instance().setLogEnabled(false);
    orders(1, {order(77, kBuy, 0, 100)});
    engine.clear(true);
    EXPECT_TRUE(lines().empty());
}
