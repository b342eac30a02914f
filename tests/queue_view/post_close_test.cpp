// The one request that the panel makes by itself, its answers and their ways to go astray.

#include "QueuePanel.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QElapsedTimer>

#include <limits>

using namespace testing_support;
using namespace Kel;

namespace {

/// A feed that keeps what it is asked and answers when it is told to.
class Provider : public IQuoteProvider
{
public:
    bool serve(const quoter::TSMetaInfo& meta, const quoter::TRegionInfo& region,
               QuoteCallback callback) override
    {
        asked.push_back(std::to_string(meta.metaId) + " " + meta.market + meta.instrument + " " +
                        std::to_string(region.start.milliseconds) + " " +
                        std::to_string(region.end.milliseconds) + " " + std::to_string(region.limit));
        answers.push_back(callback);
        return true;
    }

    std::vector<std::string> asked;
    std::vector<QuoteCallback> answers;
};

class PostClose : public testing::Test
{
protected:
    PostClose() : provider(boost::make_shared<Provider>())
    {
        prepareServices();
        formulas().addProvider(provider);
        panel = std::make_unique<QueuePanel>();
        panel->setCurrentTradeDateFunc([] { return 20230201; });
        panel->setStock(QStringLiteral("SH600519"));
    }
    ~PostClose() override { formulas().removeProvider(provider); }

    static CFormulaManager& formulas() { return utils::CSingletonT<CFormulaManager>::instance(); }

    /// Lets the service and the GUI thread come to rest.
    static void settle()
    {
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < 60)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }

    bool hasSnapshot() const
    {
        return static_cast<bool>((panel->m_model.*(&EngineProbe::m_depthData)).load());
    }

    boost::shared_ptr<Provider> provider;
    std::unique_ptr<QueuePanel> panel;
};

TEST_F(PostClose, AsksForAMinuteBeforeAndAfterTheClose)
{
    panel->onPostTradeClosed(QStringLiteral("SH600519"), 1675234800);
    EXPECT_THAT(provider->asked, testing::ElementsAre("1804 SH600519 1675234740000 1675234860000 100"));
    EXPECT_GT(panel->m_subscribeId, 0);
}

TEST_F(PostClose, AsksNothingForAnotherKeyOrWithoutATradeDate)
{
    panel->onPostTradeClosed(QStringLiteral("SZ000001"), 1675234800);
    panel->setCurrentTradeDateFunc({});
    panel->onPostTradeClosed(QStringLiteral("SH600519"), 1675234800);
    EXPECT_TRUE(provider->asked.empty());
    EXPECT_EQ(panel->m_subscribeId, -1);
}

TEST_F(PostClose, AnswerReachesTheEngineOnceAndTheIdStays)
{
    panel->onPostTradeClosed(QStringLiteral("SH600519"), 1675234800);
    const int id = panel->m_subscribeId;
    provider->answers[0](0, -1, {snapshot("ask 10.02x5; bid 10.01x3")});
    settle();
    EXPECT_TRUE(hasSnapshot());
    EXPECT_EQ(panel->m_subscribeId, id);
    panel->setStock(QStringLiteral("SZ000001"));
    EXPECT_EQ(panel->m_subscribeId, -1);
}

TEST_F(PostClose, AnswerForTheInstrumentBeforeIsDropped)
{
    panel->onPostTradeClosed(QStringLiteral("SH600519"), 1675234800);
    panel->setStock(QStringLiteral("SZ000001"));
    provider->answers[0](0, -1, {snapshot("ask 10.02x5; bid 10.01x3")});
    settle();
    EXPECT_FALSE(hasSnapshot());
    panel->postTradeQuoterCallBack(0, -1, {snapshot("ask 10.02x5")}, QStringLiteral("SH600519"), 0);
    EXPECT_FALSE(hasSnapshot());
    panel->postTradeQuoterCallBack(0, -1, {snapshot("ask 10.02x5")}, QStringLiteral("SZ000001"), 0);
    EXPECT_TRUE(hasSnapshot());
}

TEST_F(PostClose, AnswerAfterTheEndOfThePanelIsHarmless)
{
    panel->onPostTradeClosed(QStringLiteral("SH600519"), 1675234800);
    const QuoteCallback answer = provider->answers[0];
    answer(0, -1, {snapshot("ask 10.02x5")});
    panel.reset();
    answer(0, -1, {snapshot("ask 10.02x5")});
    settle();
    SUCCEED() << "nothing is read of the panel that is gone";
}

TEST_F(PostClose, SnapshotAnswerHasTheStatusOfASnapshot)
{
    panel->postQuoterDepthCallBack(0, 7, {snapshot("ask 10.02x5")}, QStringLiteral("SH600519"), 0);
    EXPECT_TRUE(hasSnapshot());
}

TEST_F(PostClose, TimeBeyondAllClocksAsksWithoutOverflow)
{
    panel->onPostTradeClosed(QStringLiteral("SH600519"), std::numeric_limits<long long>::max());
    ASSERT_EQ(provider->asked.size(), 1U);
    EXPECT_EQ(provider->asked[0].find('-'), std::string::npos);
}

} // namespace
