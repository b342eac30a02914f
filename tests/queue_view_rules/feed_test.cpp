// Which feed calls reach the engine.

#include "QueueViewFixture.h"

#include "platform/services/RPCEngine.h"

using namespace queue_view_rules;
using namespace testing_support;

namespace {

class Feed : public QueueViewTest
{
protected:
    Feed() { view.setStock("SH600519"); }

    /// Orders and deals that the engine has counted, "orders deals".
    std::string counts()
    {
        net::RPCEngine::drain("modulegroup");
        const boost::recursive_mutex::scoped_lock lock(view.engine(&EngineProbe::m_dataMutex));
        return std::to_string(view.engine(&EngineProbe::m_nOrderCount)) + " " +
               std::to_string(view.engine(&EngineProbe::m_nDealCount));
    }

    bool hasSnapshot() { return view.engine(&EngineProbe::m_depthData).load() != nullptr; }

    quoter::QuoterBatch batch{snapshot("ask 10.02x5; bid 10.01x3; last 10.01")};
};

} // namespace

TEST_F(Feed, QuotesAreHandedOnUnchecked)
{
    view.quoterCallBack(0, -1, batch);
    EXPECT_TRUE(hasSnapshot());
}

TEST_F(Feed, QuotesKeepTheirStatus)
{
    view.quoterCallBack(-1, 77, batch);
    EXPECT_FALSE(hasSnapshot());
}

TEST_F(Feed, OrdersOfTheInstrumentAreHandedOn)
{
    view.onEntrustCallback("SH600519", 0, 1, wrap({order(1, kBuy, 10.00, 100)}));
    EXPECT_EQ(counts(), "1 0");
}

TEST_F(Feed, OrdersOfAnotherKeyAreDropped)
{
    for (const char* key : {"SH600000", "SZ600519", "600519", "sh600519", ""})
        view.onEntrustCallback(key, 0, 1, wrap({order(1, kBuy, 10.00, 100)}));
    EXPECT_EQ(counts(), "0 0");
}

TEST_F(Feed, DealsOfTheInstrumentAreHandedOn)
{
    view.onTransactionCallback("SH600519", 0, 1, wrap({deal(1, 2, 10.00, 100)}));
    EXPECT_EQ(counts(), "0 1");
}

TEST_F(Feed, DealsOfAnotherKeyAreDropped)
{
    for (const char* key : {"SH600000", "SZ600519", "600519", ""})
        view.onTransactionCallback(key, 0, 1, wrap({deal(1, 2, 10.00, 100)}));
    EXPECT_EQ(counts(), "0 0");
}

TEST_F(Feed, TheKeyIsThatOfTheInstrumentOfTheMoment)
{
    view.setStock("SZ000001");
    view.onEntrustCallback("SH600519", 0, 1, wrap({order(1, kBuy, 10.00, 100)}));
    EXPECT_EQ(counts(), "0 0");
    view.onEntrustCallback("SZ000001", 0, 1, wrap({order(1, kBuy, 10.00, 100)}, "SZ", "000001"));
    EXPECT_EQ(counts(), "1 0");
}

TEST_F(Feed, CallsWithoutAnInstrumentAreHarmless)
{
    QueueViewProbe other;
    other.quoterCallBack(0, -1, batch);
    other.onEntrustCallback("SH600519", 0, 1, wrap({order(1, kBuy, 10.00, 100)}));
    other.onEntrustCallback("", 0, 1, {});
    other.onTransactionCallback("", 0, 1, {});
    net::RPCEngine::drain("modulegroup");
    EXPECT_FALSE(other.engine(&EngineProbe::m_depthData).load());
}

TEST_F(Feed, TheSlotHandsQuotesOfTheInstrumentOn)
{
    view.slotQueueCallBack(0, -1, batch, "SH600519", 0);
    EXPECT_TRUE(hasSnapshot());
}

TEST_F(Feed, TheSlotDropsQuotesOfAnotherKey)
{
    view.slotQueueCallBack(0, -1, batch, "SH600000", 0);
    EXPECT_FALSE(hasSnapshot());
}

TEST_F(Feed, TheSlotKeepsTheStatus)
{
    view.slotQueueCallBack(-1, 77, batch, "SH600519", 0);
    EXPECT_FALSE(hasSnapshot());
}
