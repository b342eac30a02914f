// The one request for the queue around the close.

#include "QueueViewFixture.h"

#include "../platform/LogCapture.h"
#include "platform/services/CFormulaManager.h"
#include "platform/services/RPCEngine.h"
#include "platform/utils/CLogCenter.h"

#include <boost/make_shared.hpp>

#include <memory>

using namespace queue_view_rules;
using namespace testing_support;

namespace {

/// A feed that keeps what it is asked for and answers when told to.
struct KeepingFeed : Kel::IQuoteProvider
{
    bool serve(const quoter::TSMetaInfo& askedMeta, const quoter::TRegionInfo& askedRegion,
               Kel::QuoteCallback answerTo) override
    {
        ++requests;
        meta = askedMeta;
        region = askedRegion;
        answer = answerTo;
        return true;
    }

    int requests = 0;
    quoter::TSMetaInfo meta;
    quoter::TRegionInfo region;
    Kel::QuoteCallback answer;
};

class PostClose : public QueueViewTest
{
protected:
    PostClose()
    {
        manager().addProvider(feed);
        view.setStock("SH600519");
        view.setCurrentTradeDateFunc([] { return 20230201; });
    }
    ~PostClose() override { manager().removeProvider(feed); }

    static Kel::CFormulaManager& manager() { return utils::CSingletonT<Kel::CFormulaManager>::instance(); }

    void close(const char* key = "SH600519", long long seconds = 1675234800)
    {
        QString text(key);
        view.onPostTradeClosed(text, seconds);
    }

    /// Lets the feed answer and the answer arrive on its own thread, but not yet on this one.
    void answer(int status = -1)
    {
        feed->answer(0, status, batch);
        net::RPCEngine::drain("quoter");
    }

    bool hasSnapshot() { return view.engine(&EngineProbe::m_depthData).load() != nullptr; }

    boost::shared_ptr<KeepingFeed> feed = boost::make_shared<KeepingFeed>();
    quoter::QuoterBatch batch{snapshot("ask 10.02x5; bid 10.01x3; last 10.01")};
};

} // namespace

TEST_F(PostClose, AsksForTheQueueAMinuteAroundTheTime)
{
    close("SH600519", 1675234800);
    ASSERT_EQ(feed->requests, 1);
    EXPECT_EQ(feed->meta.market, "SH");
    EXPECT_EQ(feed->meta.instrument, "600519");
    EXPECT_EQ(feed->meta.metaId, 1804);
    EXPECT_EQ(feed->meta.period, 0);
    EXPECT_EQ(feed->meta.extra1, "");
    EXPECT_EQ(feed->meta.extra2, "");
    EXPECT_EQ(feed->region.start.milliseconds, 1675234740000);
    EXPECT_EQ(feed->region.start.fraction, 0);
    EXPECT_EQ(feed->region.end.milliseconds, 1675234860000);
    EXPECT_EQ(feed->region.end.fraction, 0);
    EXPECT_EQ(feed->region.limit, 100);
    EXPECT_GT(view.m_subscribeId, 0);
}

TEST_F(PostClose, AsksNothingForAnotherKey)
{
    close("SH600000");
    close("600519");
    close("");
    EXPECT_EQ(feed->requests, 0);
    EXPECT_EQ(view.m_subscribeId, -1);
}

TEST_F(PostClose, AsksNothingWithoutADateFunction)
{
    view.setCurrentTradeDateFunc({});
    close();
    EXPECT_EQ(feed->requests, 0);
    EXPECT_EQ(view.m_subscribeId, -1);
}

TEST_F(PostClose, AsksNothingWithoutAnInstrument)
{
    QueueViewProbe other;
    other.setCurrentTradeDateFunc([] { return 20230201; });
    QString key;
    other.onPostTradeClosed(key, 1675234800);
    key = "SH600519";
    other.onPostTradeClosed(key, 1675234800);
    EXPECT_EQ(feed->requests, 0);
    EXPECT_EQ(other.m_subscribeId, -1);
}

TEST_F(PostClose, AsksWhateverTheDate)
{
    int calls = 0;
    view.setCurrentTradeDateFunc([&calls] { return ++calls; });
    close();
    EXPECT_EQ(feed->requests, 1);
}

TEST_F(PostClose, LogsItsRequest)
{
    const LogCapture capture;
    close();
    std::string line;
    for (const LogEvent& event : capture.events()) {
        if (event.text.find("COVER_ALL") != std::string::npos) {
            EXPECT_EQ(line, "");
            EXPECT_EQ(event.level, utils::kLogInfo);
            line = event.text;
        }
    }
    EXPECT_EQ(line,
              "in Kel::CDepthOrderQueueWidget::onPostTradeClosed: L2 1804 Queue COVER_ALL: 1804 600519 " +
                  std::to_string(view.m_subscribeId));
}

TEST_F(PostClose, TakesTheAnswerOnTheInterfaceThread)
{
    close();
    answer();
    EXPECT_FALSE(hasSnapshot());
    QApplication::processEvents();
    EXPECT_TRUE(hasSnapshot());
}

TEST_F(PostClose, KeepsTheStatusOfTheAnswer)
{
    close();
    answer(77);
    QApplication::processEvents();
    EXPECT_FALSE(hasSnapshot());
}

TEST_F(PostClose, TakesOneAnswerOnly)
{
    close();
    answer(77);
    QApplication::processEvents();
    answer(-1);
    QApplication::processEvents();
    EXPECT_FALSE(hasSnapshot());
}

TEST_F(PostClose, KeepsItsIdUntilTheNextInstrument)
{
    close();
    const int id = view.m_subscribeId;
    answer();
    QApplication::processEvents();
    EXPECT_EQ(view.m_subscribeId, id);
    view.setStock("SH600519");
    EXPECT_EQ(view.m_subscribeId, -1);
}

TEST_F(PostClose, EndsWithTheNextInstrument)
{
    close();
    view.setStock("SZ000001");
    EXPECT_EQ(view.m_subscribeId, -1);
    answer();
    QApplication::processEvents();
    EXPECT_FALSE(hasSnapshot());
}

TEST_F(PostClose, AnAnswerOnItsWayIsDroppedWhenTheInstrumentHasChanged)
{
    close();
    answer();
    view.setStock("SZ000001");
    QApplication::processEvents();
    EXPECT_FALSE(hasSnapshot());
}

TEST_F(PostClose, AnAnswerMayComeAfterThePanelHasGone)
{
    auto panel = std::make_unique<QueueViewProbe>();
    panel->setStock("SH600519");
    panel->setCurrentTradeDateFunc([] { return 20230201; });
    QString key("SH600519");
    panel->onPostTradeClosed(key, 1675234800);
    ASSERT_EQ(feed->requests, 1);
    answer();
    panel.reset();
    QApplication::processEvents();
    answer();
    QApplication::processEvents();
    EXPECT_FALSE(hasSnapshot());
}

TEST_F(PostClose, TheAnswerOfAnotherKeyEndsTheRequestAndIsDropped)
{
    close();
    view.postTradeQuoterCallBack(0, -1, batch, "SH600000", 0);
    EXPECT_FALSE(hasSnapshot());
    answer();
    QApplication::processEvents();
    EXPECT_FALSE(hasSnapshot());
}

TEST_F(PostClose, TheAnswerIsHandedToTheEngineWithItsStatus)
{
    view.postTradeQuoterCallBack(0, 77, batch, "SH600519", 0);
    EXPECT_FALSE(hasSnapshot());
    view.postTradeQuoterCallBack(0, -1, batch, "SH600519", 0);
    EXPECT_TRUE(hasSnapshot());
}

TEST_F(PostClose, TheAnswerOfSnapshotsHasStatusMinusOne)
{
    close();
    view.postQuoterDepthCallBack(5, 77, batch, "SH600519", 0);
    EXPECT_TRUE(hasSnapshot());
    view.clear();
    answer();
    QApplication::processEvents();
    EXPECT_FALSE(hasSnapshot()) << "the request has ended";
}
