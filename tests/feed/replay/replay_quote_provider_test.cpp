#include "feed/replay/ReplayQuoteProvider.h"

#include "platform/utils/CSingletonT.h"
#include "records/LevelOrderData.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <future>

namespace {

class ReplayQuotes : public ::testing::Test
{
protected:
    void SetUp() override
    {
        feed::InstrumentDay day;
        day.detail.market = "SH";
        day.detail.code = "600519";
        for (int i = 1; i <= 10; ++i) {
            feed::QueueRow row;
            row.time = i * 100;
            row.bidPrice = 10;
            row.bidVolumes = {300, 50};
            row.bidCount = i;
            day.queues.push_back(row);
        }
        m_provider->addDay(day);
        m_meta.market = "SH";
        m_meta.instrument = "600519";
        m_meta.metaId = quoter::eMetaLevel2Queue;
        m_region.end.milliseconds = 100000;
    }

    /// The times of the records answered, or {-1} if the feed does not serve.
    std::vector<std::int64_t> ask()
    {
        std::vector<std::int64_t> times;
        const bool served =
            m_provider->serve(m_meta, m_region, [&](int seq, int status, const auto& records) {
                EXPECT_EQ(seq, 0);
                EXPECT_EQ(status, 0);
                for (const quoter::QuoterBasePtr& record : records)
                    times.push_back(record->m_time);
            });
        return served ? times : std::vector<std::int64_t>{-1};
    }

    boost::shared_ptr<feed::ReplayQuoteProvider> m_provider = boost::make_shared<feed::ReplayQuoteProvider>();
    quoter::TSMetaInfo m_meta;
    quoter::TRegionInfo m_region;
};

using Times = std::vector<std::int64_t>;

TEST_F(ReplayQuotes, AnswersTheQueuesOfTheRegionBothEndsIncluded)
{
    m_region.start.milliseconds = 300;
    m_region.end.milliseconds = 500;
    EXPECT_EQ(ask(), (Times{300, 400, 500}));
    m_region.start.milliseconds = 301;
    m_region.end.milliseconds = 399;
    EXPECT_EQ(ask(), Times{});
    m_region.start.milliseconds = 900;
    m_region.end.milliseconds = 100;
    EXPECT_EQ(ask(), Times{});
}

TEST_F(ReplayQuotes, ALimitKeepsTheLatest)
{
    m_region.limit = 2;
    EXPECT_EQ(ask(), (Times{900, 1000}));
    m_region.limit = 0;
    EXPECT_EQ(ask().size(), 10u);
}

TEST_F(ReplayQuotes, LeavesOtherSeriesAndInstrumentsToOtherFeeds)
{
    m_meta.metaId = quoter::eMetaProxyLookup;
    EXPECT_EQ(ask(), Times{-1});
    m_meta.metaId = quoter::eMetaLevel2Queue;
    m_meta.instrument = "600000";
    EXPECT_EQ(ask(), Times{-1});
    m_meta.instrument = "600519";
    m_provider->clear();
    EXPECT_EQ(ask(), Times{-1});
}

TEST_F(ReplayQuotes, AreReachedThroughTheFormulaService)
{
    Kel::CFormulaManager& service = utils::CSingletonT<Kel::CFormulaManager>::instance();
    service.addProvider(m_provider);
    std::promise<quoter::QuoterBatch> answer;
    std::future<quoter::QuoterBatch> answered = answer.get_future();
    m_region.start.milliseconds = 1000;
    const int id = service.subscribeQuoter(
        Kel::proxyType("SH"), m_meta, m_region, quoter::eDemandCoverAll, false, false,
        [&](int, int, const quoter::QuoterBatch& records) { answer.set_value(records); });
    ASSERT_GT(id, 0);
    ASSERT_EQ(answered.wait_for(std::chrono::seconds(20)), std::future_status::ready);
    const quoter::QuoterBatch records = answered.get();
    ASSERT_EQ(records.size(), 1u);
    const auto& record = dynamic_cast<const quoter::LevelOrderData&>(*records[0]);
    EXPECT_EQ(record.bidCount, 10);
    EXPECT_EQ(record.bidVolumes, (std::vector<std::int32_t>{3, 1}));
    service.unsubQuoter(id, m_meta);
    service.removeProvider(m_provider);
}

} // namespace
