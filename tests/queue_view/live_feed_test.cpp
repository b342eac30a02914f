// The panel under a live feed: callbacks on threads of their own while the GUI thread draws.

#include "QueuePanel.h"

#include <QCoreApplication>

#include <atomic>
#include <thread>

using namespace testing_support;
using namespace Kel;

namespace {

constexpr int kBatches = 300;

TEST(LiveFeed, ReachesThePictureFromThreadsOfTheFeed)
{
    prepareServices();
    QueuePanel panel;
    panel.setCurrentTradeDateFunc([] { return 20230201; });
    panel.setStock(QStringLiteral("SH600519"));
    panel.show();

    const QString key = QStringLiteral("SH600519");
    std::atomic<int> running{3};
    std::thread orders([&] {
        panel.onEntrustCallback(key, 0, 0, wrap(buyOrders(1, 50)));
        for (int i = 1; i < kBatches; ++i)
            panel.onEntrustCallback(key, i, 1,
                                    wrap({order(100 + i, i % 2 ? kBuy : kSell, i % 2 ? 10.00 : 10.01, 700)}));
        --running;
    });
    std::thread deals([&] {
        panel.onTransactionCallback(key, 0, 0, wrap({deal(1, 0, 10.00, 100)}));
        for (int i = 1; i < kBatches; ++i)
            panel.onTransactionCallback(key, i, 1, wrap({deal(i % 50 + 1, 100 + i, 10.00, 100)}));
        --running;
    });
    std::thread quotes([&] {
        for (int i = 0; i < kBatches; ++i)
            panel.quoterCallBack(i, -1,
                                 {atTime(1000 + i, snapshot("ask 10.01x50; bid 10.00x60; last 10.00"))});
        --running;
    });
    while (running > 0) {
        panel.slotTimeout();
        QCoreApplication::processEvents();
    }
    orders.join();
    deals.join();
    quotes.join();

    // What is still on the strand arrives within some turns.
    QStringList texts;
    for (int turn = 0; turn < 500 && !texts.contains(QStringLiteral("买一")); ++turn) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        QCoreApplication::processEvents();
        panel.slotTimeout();
        texts = panel.picture().texts();
    }
    EXPECT_TRUE(texts.contains(QStringLiteral("买一")));
    EXPECT_TRUE(texts.contains(QStringLiteral("10.00")));
}

TEST(LiveFeed, OfAnotherInstrumentIsDropped)
{
    prepareServices();
    QueuePanel panel;
    panel.setStock(QStringLiteral("SH600519"));
    const QString other = QStringLiteral("SZ000001");
    panel.onEntrustCallback(other, 0, 0, wrap(buyOrders(1, 5), "SH", "600519"));
    panel.onTransactionCallback(other, 0, 0, wrap({deal(1, 0, 10.00, 100)}, "SH", "600519"));
    for (int turn = 0; turn < 10; ++turn) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(panel.m_model.*(&EngineProbe::m_bNeedAppendOrder), false);
    EXPECT_EQ(panel.m_model.*(&EngineProbe::m_bDealBack), false);
    EXPECT_FALSE(panel.m_model.isLevelDataBack());
}

} // namespace
