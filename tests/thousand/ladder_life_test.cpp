// Life cycle, instrument, feed, timer and events of the ladder.

#include "LadderFixture.h"
#include "platform/LogCapture.h"

#include <QThread>

#include <limits>

using namespace thousand_tests;

namespace {

class LadderLife : public LadderTest
{
};

class ReadyMadeLadder : public LadderTest
{
protected:
    ReadyMadeLadder() : LadderTest(true) {}

    void send(std::vector<quoter::ThousandLevel> buys, std::vector<quoter::ThousandLevel> sells,
              int status = 1)
    {
        const auto record = boost::make_shared<quoter::ThousandData>();
        record->buys = std::move(buys);
        record->sells = std::move(sells);
        panel->thousandDataCallback(0, status, batchOf({record}));
        panel->slotTimeout();
    }
};

} // namespace

TEST_F(LadderLife, StartsWithItsNamesAndValues)
{
    LadderProbe fresh(nullptr, false);
    EXPECT_EQ(fresh.objectName(), "depth_thousand_data_widget");
    EXPECT_EQ(fresh.m_resetTop->objectName(), "reset_widget");
    EXPECT_EQ(fresh.m_latestPrice, std::numeric_limits<double>::max());
    EXPECT_EQ(fresh.m_lastVolume, -1);
    EXPECT_EQ(fresh.m_minPrice, 1e9);
    EXPECT_EQ(fresh.m_maxPrice, 0);
    EXPECT_EQ(fresh.m_maxAmount, 0);
    EXPECT_EQ(fresh.m_priceWidth, 50);
    EXPECT_EQ(fresh.m_changeWidth, 40);
    EXPECT_EQ(fresh.m_totalRows, 1);
    EXPECT_EQ(fresh.m_hoverRow, -1);
    EXPECT_EQ(fresh.getDisplayDataLevel(), 1000);
    EXPECT_TRUE(fresh.m_showDistribute);
    EXPECT_FALSE(fresh.m_showTip);
    EXPECT_EQ(fresh.m_scrollBar->width(), 6);
    EXPECT_TRUE(fresh.m_scrollBar->isHidden());
    EXPECT_TRUE(fresh.m_resetTop->isHidden());
    EXPECT_TRUE(fresh.m_resetBottom->isHidden());
    EXPECT_EQ(fresh.getPriceTick(), 0.01);
    EXPECT_EQ(fresh.getLastClose(), 0);
    EXPECT_EQ(fresh.getStockKey(), "");
}

TEST_F(LadderLife, TheTimerRunsAt50MsOrAsConfiguredAndFollowsTheConfiguration)
{
    {
        LadderProbe fresh(nullptr, false);
        EXPECT_TRUE(fresh.wasRunning);
        EXPECT_EQ(fresh.period, 50);
    }
    Kel::CUserConfig config;
    config.setRefreshInterval(0.1239);
    Kel::setUserConfig(&config);
    LadderProbe fresh(nullptr, false);
    EXPECT_EQ(fresh.period, 123);
    EXPECT_TRUE(fresh.m_showDistribute) << "whatever the configuration says";
    config.setRefreshInterval(0.3);
    EXPECT_TRUE(fresh.m_timer->isActive());
    EXPECT_EQ(fresh.m_timer->interval(), 300);
    fresh.slotRefreshTimer(70);
    EXPECT_EQ(fresh.m_timer->interval(), 70);
    Kel::setUserConfig(nullptr);
}

TEST_F(LadderLife, ThePriceColumnFitsTheInstrument)
{
    const struct
    {
        double close;
        double tick;
        int width;
    } rows[] = {{100.01, 0.01, 50},     {100.01, 0.001, 50},   {100, 0.01, 40},     {10.01, 0.01, 40},
                {10, 0.01, 30},         {10, 0.001, 40},       {9.5, 0.005, 40},    {9.5, 0.01, 30},
                {100.000005, 0.01, 40}, {10.000005, 0.01, 30}, {9.5, 0.009995, 30}, {1800, 0.001, 50}};
    for (const auto& row : rows) {
        addInstrument("SH", "600001", row.tick, row.close);
        panel->setStock("SH600001");
        EXPECT_EQ(panel->m_priceWidth, row.width) << row.close << " " << row.tick;
    }
    panel->setStock("unknown");
    EXPECT_EQ(panel->m_priceWidth, 50) << "an unknown instrument leaves it";
}

TEST_F(LadderLife, SetStockAloneLeavesTheOldRows)
{
    feedSmall();
    addInstrument("SH", "600001");
    panel->setStock("SH600001");
    EXPECT_EQ(panel->m_sellQueues.size(), 2u);
    EXPECT_EQ(panel->getStockKey(), "SH600001");
}

TEST_F(LadderLife, AHiddenPanelAsksNothing)
{
    host.hide();
    feedSmall();
    EXPECT_EQ(panel->m_totalRows, 1);
    host.show();
    panel->slotTimeout();
    EXPECT_EQ(panel->m_totalRows, 5);
}

TEST_F(LadderLife, TheTimerBringsTheNewsByItself)
{
    feed({"B 1 9.99 300"});
    panel->m_timer->start(1);
    for (int i = 0; i < 2000 && panel->m_buyQueues.empty(); ++i) {
        QThread::msleep(1);
        QApplication::processEvents();
    }
    EXPECT_EQ(panel->m_buyQueues.size(), 1u);
}

TEST_F(LadderLife, TakesListsCountsBoundsAndTheNewestDeal)
{
    feedSmall();
    EXPECT_EQ(panel->m_sellCount, 2);
    EXPECT_EQ(panel->m_buyCount, 2);
    EXPECT_EQ(panel->m_totalRows, 5);
    EXPECT_DOUBLE_EQ(panel->m_minPrice, 9.98);
    EXPECT_DOUBLE_EQ(panel->m_maxPrice, 10.02);
    EXPECT_DOUBLE_EQ(panel->m_maxAmount, 12 * 9.98);
    EXPECT_EQ(panel->m_latestPrice, 10.0);
    EXPECT_EQ(panel->m_lastVolume, 12);
    EXPECT_EQ(panel->getLastClose(), 10);
    const auto depth = boost::make_shared<quoter::QuoterDepthData>();
    depth->previousClose = 9.5;
    panel->quoterCallback(0, -1, batchOf({depth}));
    EXPECT_EQ(panel->getLastClose(), 9.5);
}

TEST_F(LadderLife, RepaintsForNewsOfRowsOnly)
{
    feedSmall();
    painted();
    panel->slotTimeout();
    EXPECT_EQ(painted(), 0);
    feed({"B 20 9.99 100"});
    panel->slotTimeout();
    EXPECT_EQ(painted(), 1) << "a row";
    feed({"B 21 9.00 100"});
    panel->slotTimeout();
    EXPECT_EQ(painted(), 1) << "the number of rows";
    cancel({20});
    feed({"B 22 9.99 100"});
    panel->slotTimeout();
    EXPECT_EQ(painted(), 0) << "rows that show the same";
}

TEST_F(LadderLife, SettingsShowWithTheNextNewsOrPainting)
{
    feedSmall();
    painted();
    panel->setDisplayDataLevel(11);
    panel->setShowDistribute(false);
    EXPECT_EQ(panel->getDisplayDataLevel(), 11);
    EXPECT_FALSE(panel->m_showDistribute);
    EXPECT_EQ(painted(), 0);
    panel->slotTimeout();
    EXPECT_EQ(painted(), 1) << "the switch of the form is news";
}

TEST_F(LadderLife, KeepsTheFunctionsOfTheHost)
{
    EXPECT_FALSE(panel->m_tradeDateFunc);
    EXPECT_FALSE(panel->m_pairParamFunc);
    panel->setCurrentTradeDateFunc([] { return 20230201; });
    QString taken;
    panel->setPairParamFunc([&](QString text) { taken = text; });
    EXPECT_EQ(panel->m_tradeDateFunc(), 20230201);
    panel->m_pairParamFunc("pair");
    EXPECT_EQ(taken, "pair");
}

TEST_F(LadderLife, AFullReplacementIsLogged)
{
    const LogCapture log;
    feedSmall();
    bool found = false;
    for (const LogEvent& event : log.events()) {
        if (event.text ==
            "Kel::CDepthThousandDataWidget::slotTimeout COVER_ALL data draw end, key: SH600519") {
            found = true;
            EXPECT_EQ(event.level, 20000);
        }
    }
    EXPECT_TRUE(found);
    const std::size_t before = log.events().size();
    feed({"B 20 9.97 100"});
    panel->slotTimeout();
    EXPECT_EQ(log.events().size(), before) << "no other news is";
}

TEST_F(LadderLife, ClearForgetsEverythingAndTellsADroppedSelection)
{
    feedDeep(30, 20);
    panel->m_scrollBar->setValue(3);
    click(countAt(5));
    panel->m_hoverRow = 5;
    panel->m_showTip = true;
    host.take();
    painted();
    panel->clear(true);
    EXPECT_EQ(host.take(), (Events{{3223, -1, 0}}));
    EXPECT_TRUE(panel->m_buyQueues.empty());
    EXPECT_TRUE(panel->m_sellQueues.empty());
    EXPECT_EQ(panel->m_latestPrice, std::numeric_limits<double>::max());
    EXPECT_EQ(panel->m_lastVolume, -1);
    EXPECT_EQ(panel->m_minPrice, 1e9);
    EXPECT_EQ(panel->m_maxPrice, 0);
    EXPECT_EQ(panel->m_maxAmount, 0);
    EXPECT_EQ(panel->m_sellCount, 0);
    EXPECT_EQ(panel->m_buyCount, 0);
    EXPECT_EQ(panel->m_scrollTop, 0);
    EXPECT_EQ(panel->m_centerDelta, 0);
    EXPECT_EQ(panel->m_totalRows, 1);
    EXPECT_EQ(panel->m_hoverRow, -1);
    EXPECT_FALSE(panel->m_showTip);
    EXPECT_FALSE(panel->m_selected);
    EXPECT_EQ(painted(), 1);
    panel->clear(false);
    EXPECT_TRUE(host.take().empty()) << "nothing was selected";
    EXPECT_EQ(painted(), 0);
    panel->slotTimeout();
    EXPECT_EQ(panel->m_totalRows, 1) << "both models are empty";
}

TEST_F(LadderLife, TheEndDropsTheSelection)
{
    feedSmall();
    click(countAt(0));
    host.take();
    delete panel;
    EXPECT_EQ(host.take(), (Events{{3223, -1, 0}}));
}

TEST_F(LadderLife, TakesTheEventsOfItsBarAndArrowsOnly)
{
    EXPECT_TRUE(panel->handleEvent(15, 0, 0, QString(), nullptr));
    EXPECT_TRUE(panel->handleEvent(82, 0, 0, QString(), nullptr));
    for (const int id : {0, 5, 67, 1395, 3223, -1})
        EXPECT_FALSE(panel->handleEvent(id, 0, 0, QString(), nullptr)) << id;
}

TEST_F(LadderLife, EventsBeforeTheFirstLayoutAreHarmless)
{
    LadderProbe fresh(nullptr, false);
    fresh.handleEvent(15, 0, 0, QString(), nullptr);
    fresh.handleEvent(82, 0, 0, QString(), nullptr);
    fresh.themeChanged();
    fresh.clear(true);
    fresh.slotTimeout();
    EXPECT_EQ(fresh.m_totalRows, 1);
}

TEST_F(LadderLife, LadderRecordsAreNotForTheLadderThatIsRebuilt)
{
    const auto record = boost::make_shared<quoter::ThousandData>();
    record->buys = {{9.99, 100, 1, {}}};
    panel->thousandDataCallback(0, 1, batchOf({record}));
    panel->slotTimeout();
    EXPECT_EQ(panel->m_totalRows, 1);
}

TEST_F(LadderLife, APriceFarOutsideTheRangeIsARow)
{
    feedSmall();
    feed({"S 30 21000000 100", "B 31 0.01 100"});
    panel->slotTimeout();
    EXPECT_EQ(panel->m_totalRows, 7);
    EXPECT_EQ(distribution().paths().size(), 2u);
    graph();
    panel->grab();
}

TEST_F(LadderLife, ABookBeforeTheFirstDealHasNoLatestPrice)
{
    feed({"B 1 9.99 300"});
    panel->slotTimeout();
    EXPECT_EQ(graph().texts().filter("10.00"), QStringList());
    EXPECT_EQ(panel->m_latestPrice, std::numeric_limits<double>::max());
}

// Ready-made
// --------------------------------------------------------------------------------------------------

TEST_F(ReadyMadeLadder, ComesFromTheQuoteService)
{
    send({{9.99, 300, 2, {{1, 5, 200, 0}, {2, 6, 200, 100}}}, {9.98, 100, 1, {}}}, {{10.01, 500, 1, {}}});
    EXPECT_EQ(panel->m_totalRows, 4);
    EXPECT_EQ(panel->getStockKey(), "SH600519");
    EXPECT_EQ(panel->getLastClose(), 10);
    EXPECT_EQ(graph().count("9.99"), 1);
    click(countAt(2));
    double tick = 0;
    int unit = 0;
    const auto queue = panel->getSelectedQueue(tick, unit);
    ASSERT_TRUE(queue);
    EXPECT_EQ(queue->orderCount, 2);
    EXPECT_EQ(tick, 0.01) << "of the model that is rebuilt from orders";
    EXPECT_EQ(unit, 100);
}

TEST_F(ReadyMadeLadder, TakesItsSnapshotsFromTheQuoteService)
{
    send({{9.7, 300, 1, {}}}, {});
    EXPECT_EQ(graph().text("9.70").color(), themeColor("ic_clr_entrust_text_fall"));
    const auto depth = boost::make_shared<quoter::QuoterDepthData>();
    depth->previousClose = 9.5;
    panel->quoterCallback(0, -1, batchOf({depth}));
    EXPECT_EQ(panel->getLastClose(), 9.5);
    EXPECT_EQ(graph().text("9.70").color(), themeColor("ic_clr_entrust_text_rise"));
}

TEST_F(ReadyMadeLadder, DropsOrdersAndDeals)
{
    feed({"B 1 9.99 300"});
    panel->transactionCallback(0, 1, deals({"1x2 9.99 100 #1"}));
    panel->slotTimeout();
    EXPECT_EQ(panel->m_totalRows, 1);
}

TEST_F(ReadyMadeLadder, TheTickOfASelectedQueueIsThatOfTheOtherModel)
{
    addInstrument("SH", "510300", 0.001, 4);
    panel->setStock("SH510300");
    const auto record = boost::make_shared<quoter::ThousandData>();
    record->buys = {{3.995, 300, 2, {}}};
    panel->thousandDataCallback(0, 1, batchOf({record}, "SH", "510300"));
    panel->slotTimeout();
    EXPECT_EQ(panel->getPriceTick(), 0.001);
    click(countAt(1));
    double tick = 0;
    int unit = 0;
    EXPECT_TRUE(panel->getSelectedQueue(tick, unit));
    EXPECT_EQ(tick, 0.01);
}

TEST_F(ReadyMadeLadder, InTheShortFormShowsTheBestTenOfLongerLists)
{
    place(260, 440);
    panel->setDisplayDataLevel(11);
    std::vector<quoter::ThousandLevel> buys;
    std::vector<quoter::ThousandLevel> sells;
    for (int i = 0; i < 15; ++i) {
        buys.push_back({9.99 - 0.01 * i, 100, 1, {}});
        sells.push_back({10.01 + 0.01 * i, 100, 1, {}});
    }
    send(buys, sells);
    const auto& picture = graph();
    const auto priceOf = [&](int row) {
        return picture.textsIn(panel->layout().priceCell(panel->layout().rowTop(row))).join(",");
    };
    EXPECT_EQ(priceOf(0), "10.10");
    EXPECT_EQ(priceOf(9), "10.01");
    EXPECT_EQ(priceOf(11), "9.99");
    EXPECT_EQ(priceOf(20), "9.90");
}
