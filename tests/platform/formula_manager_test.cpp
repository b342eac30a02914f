#include "platform/services/CFormulaManager.h"

#include "platform/services/RPCEngine.h"
#include "platform/services/trading_sessions.h"
#include "platform/utils/exchange_time.h"
#include "platform/utils/thread_name.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

using Kel::CFormulaManager;
using Kel::QuoteCallback;

namespace {

/// Has the series of one instrument and keeps what it was given to answer with.
class OneSeries : public Kel::IQuoteProvider
{
public:
    explicit OneSeries(std::string instrument, bool atOnce = true)
        : m_instrument(std::move(instrument)), m_atOnce(atOnce)
    {
    }

    bool serve(const quoter::TSMetaInfo& meta, const quoter::TRegionInfo& region,
               QuoteCallback callback) override
    {
        if (meta.instrument != m_instrument)
            return false;
        limit = region.limit;
        answer = callback;
        if (m_atOnce)
            callback(1, 0, {boost::make_shared<quoter::QuoterBase>()});
        return true;
    }

    QuoteCallback answer;
    int limit = 0;

private:
    const std::string m_instrument;
    const bool m_atOnce;
};

class Subscriptions : public ::testing::Test
{
protected:
    int subscribe(const std::string& instrument, QuoteCallback callback)
    {
        quoter::TSMetaInfo meta;
        meta.market = "SH";
        meta.instrument = instrument;
        meta.metaId = quoter::eMetaLevel2Queue;
        quoter::TRegionInfo region;
        region.limit = 100;
        return m_manager.subscribeQuoter(Kel::proxyType(meta.market), meta, region, quoter::eDemandCoverAll,
                                         false, false, std::move(callback));
    }
    static void drain() { net::RPCEngine::drain("quoter"); }

    CFormulaManager m_manager;
};

std::string sessions(const std::string& market, const std::string& code)
{
    std::string text;
    for (const auto& [open, close] : Kel::tradingSessions(market, code)) {
        const std::int64_t day = utils::exchangeTime(20230201, 0, 0, 0, 0);
        text += (text.empty() ? "" : " ") + utils::clockText(day + open, false).left(5).toStdString() + "-" +
                utils::clockText(day + close, false).left(5).toStdString();
    }
    return text;
}

} // namespace

TEST(TradingSessions, FollowTheMarketAndTheProduct)
{
    EXPECT_EQ(sessions("SH", "600519"), "09:30-11:30 13:00-15:00");
    EXPECT_EQ(sessions("SZ", "300274"), "09:30-11:30 13:00-15:00");
    EXPECT_EQ(sessions("BJ", "920002"), "09:30-11:30 13:00-15:00");
    EXPECT_EQ(sessions("SHOP", "10006237"), "09:30-11:30 13:00-15:00");
    EXPECT_EQ(sessions("HKSH", "600519"), "09:30-11:30 13:00-15:00");
    EXPECT_EQ(sessions("SH", "204001"), "09:30-11:30 13:00-15:30");
    EXPECT_EQ(sessions("SZ", "131810"), "09:30-11:30 13:00-15:30");
    EXPECT_EQ(sessions("HK", "00700"), "09:30-12:00 13:00-16:00");
    EXPECT_EQ(sessions("SHHK", "00700"), "09:30-12:00 13:00-16:00");
    EXPECT_EQ(sessions("CFFEX", "IF2406"), "09:30-11:30 13:00-15:00");
    EXPECT_EQ(sessions("CFFEX", "T2406"), "09:30-11:30 13:00-15:15");
    EXPECT_EQ(sessions("CFFEX", "TL2406"), "09:30-11:30 13:00-15:15");
    EXPECT_EQ(sessions("SHFE", "rb2405"), "09:00-10:15 10:30-11:30 13:30-15:00");
    EXPECT_EQ(sessions("YSWP", "USDCNY"), "09:00-12:00 13:30-17:30");
    EXPECT_EQ(sessions("", ""), "");
    EXPECT_EQ(sessions("XX", "600519"), "");
}

TEST(OpenCloseTime, IsOnTheTradingDayThatWasSet)
{
    CFormulaManager manager;
    ASSERT_TRUE(manager.setTradingDay(20230201));
    std::vector<std::pair<std::int64_t, std::int64_t>> pairs = {{1, 2}};
    manager.getOpenCloseTime(pairs, "SH", "600519");
    ASSERT_EQ(pairs.size(), 2u);
    EXPECT_EQ(pairs[0].first, utils::exchangeTime(20230201, 9, 30, 0, 0));
    EXPECT_EQ(pairs[0].second, utils::exchangeTime(20230201, 11, 30, 0, 0));
    EXPECT_EQ(pairs[1].first, utils::exchangeTime(20230201, 13, 0, 0, 0));
    EXPECT_EQ(pairs[1].second, utils::exchangeTime(20230201, 15, 0, 0, 0));
    manager.getOpenCloseTime(pairs, "XX", "600519");
    EXPECT_TRUE(pairs.empty());
}

TEST(OpenCloseTime, IsTodayUntilADayIsSetAndRefusesDaysThatAreNone)
{
    CFormulaManager manager;
    const int before = utils::exchangeDate(utils::currentMSecSince1970());
    const int day = manager.tradingDay();
    const int after = utils::exchangeDate(utils::currentMSecSince1970());
    EXPECT_TRUE(day == before || day == after);
    EXPECT_TRUE(manager.setTradingDay(20230201));
    EXPECT_FALSE(manager.setTradingDay(20230230));
    EXPECT_FALSE(manager.setTradingDay(-1));
    EXPECT_EQ(manager.tradingDay(), 20230201);
    EXPECT_TRUE(manager.setTradingDay(0));
    EXPECT_GE(manager.tradingDay(), after);
}

TEST_F(Subscriptions, GiveMinusOneWhenNobodyHasTheSeries)
{
    std::atomic<int> calls{0};
    EXPECT_EQ(subscribe("600519", [&calls](int, int, const quoter::QuoterBatch&) { ++calls; }), -1);
    m_manager.addProvider(boost::make_shared<OneSeries>("600519"));
    m_manager.addProvider(nullptr);
    EXPECT_EQ(subscribe("600000", [&calls](int, int, const quoter::QuoterBatch&) { ++calls; }), -1);
    EXPECT_EQ(subscribe("600519", QuoteCallback()), -1);
    drain();
    EXPECT_EQ(calls, 0);
}

TEST_F(Subscriptions, AreAnsweredOnAThreadOfThePool)
{
    const auto feed = boost::make_shared<OneSeries>("600519");
    m_manager.addProvider(boost::make_shared<OneSeries>("601825"));
    m_manager.addProvider(feed);
    std::string thread;
    int seen = 0;
    const int id = subscribe("600519", [&](int seq, int status, const quoter::QuoterBatch& data) {
        thread = utils::threadName();
        seen = seq * 100 + status * 10 + static_cast<int>(data.size());
    });
    EXPECT_GT(id, 0);
    drain();
    EXPECT_EQ(seen, 101);
    EXPECT_EQ(thread.substr(0, 4), "rpc-");
    EXPECT_EQ(feed->limit, 100);
}

TEST_F(Subscriptions, HaveIdsOfTheirOwn)
{
    m_manager.addProvider(boost::make_shared<OneSeries>("600519"));
    const auto nothing = [](int, int, const quoter::QuoterBatch&) {};
    const int first = subscribe("600519", nothing);
    const int second = subscribe("600519", nothing);
    EXPECT_GT(first, 0);
    EXPECT_GT(second, 0);
    EXPECT_NE(first, second);
}

TEST_F(Subscriptions, GetLateAnswersUntilTheyAreEnded)
{
    const auto feed = boost::make_shared<OneSeries>("600519", false);
    m_manager.addProvider(feed);
    std::atomic<int> calls{0};
    const int id = subscribe("600519", [&calls](int, int, const quoter::QuoterBatch&) { ++calls; });
    m_manager.removeProvider(feed);
    feed->answer(1, 0, {});
    feed->answer(2, 1, {});
    drain();
    EXPECT_EQ(calls, 2);
    m_manager.unsubQuoter(id, quoter::TSMetaInfo());
    feed->answer(3, 1, {});
    drain();
    EXPECT_EQ(calls, 2);
}

TEST_F(Subscriptions, EndedBeforeTheAnswerAreNotAnswered)
{
    const auto feed = boost::make_shared<OneSeries>("600519");
    m_manager.addProvider(feed);
    std::promise<void> open;
    std::shared_future<void> opened = open.get_future();
    net::RPCEngine::getStrand("quoter")->post([opened] { opened.wait(); });
    std::atomic<int> calls{0};
    const int id = subscribe("600519", [&calls](int, int, const quoter::QuoterBatch&) { ++calls; });
    m_manager.unsubQuoter(id, quoter::TSMetaInfo());
    open.set_value();
    drain();
    EXPECT_EQ(calls, 0);
}

TEST_F(Subscriptions, MayBeEndedByTheirOwnCallback)
{
    const auto feed = boost::make_shared<OneSeries>("600519", false);
    m_manager.addProvider(feed);
    int calls = 0;
    int id = -1;
    id = subscribe("600519", [&, text = std::string(100, 'x')](int, int, const quoter::QuoterBatch&) {
        m_manager.unsubQuoter(id, quoter::TSMetaInfo());
        calls += static_cast<int>(text.size());
    });
    feed->answer(1, 0, {});
    feed->answer(2, 0, {});
    drain();
    EXPECT_EQ(calls, 100);
}

TEST_F(Subscriptions, DoNotRunAnyMoreOnceTheyAreEnded)
{
    const auto feed = boost::make_shared<OneSeries>("600519");
    m_manager.addProvider(feed);
    std::atomic<int> started{0};
    for (int round = 0; round < 100; ++round) {
        std::atomic<bool> inside{false};
        const int id = subscribe("600519", [&](int, int, const quoter::QuoterBatch&) {
            inside = true;
            ++started;
            std::this_thread::sleep_for(std::chrono::microseconds(200));
            inside = false;
        });
        if (round % 2 == 0)
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        m_manager.unsubQuoter(id, quoter::TSMetaInfo());
        ASSERT_FALSE(inside) << "the end waits for a callback that is running";
        const int before = started;
        feed->answer(2, 0, {});
        drain();
        ASSERT_EQ(started, before);
    }
}

TEST_F(Subscriptions, IgnoreTheEndOfAnUnknownOne)
{
    m_manager.unsubQuoter(-1, quoter::TSMetaInfo());
    m_manager.unsubQuoter(0, quoter::TSMetaInfo());
    m_manager.unsubQuoter(1234567890123, quoter::TSMetaInfo());
    EXPECT_EQ(subscribe("600519", [](int, int, const quoter::QuoterBatch&) {}), -1);
}
