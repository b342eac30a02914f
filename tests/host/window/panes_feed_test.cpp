// What the panes make of a feed: each has its data, a jump and another instrument replace all of it.

#include "host/window/FeedHub.h"
#include "host/window/InstrumentList.h"
#include "host/window/PaneWindow.h"
#include "host/window/WindowFixture.h"
#include "platform/toolkit/CStandardTable.h"
#include "platform/utils/exchange_time.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <QStackedWidget>
#include <QTest>

#include <limits>
#include <set>

namespace window_tests {
namespace {

using PaneFeed = PaneWindow;

/// Deals and cancels of the day up to a time of day.
void countDeals(const feed::InstrumentDay& day, std::int64_t until, int& deals, int& cancels)
{
    deals = 0;
    cancels = 0;
    for (const feed::DealRow& row : day.deals) {
        if (utils::timeOfDayMs(row.time) > until)
            continue;
        if (row.kind == quoter::eTransactionCancel)
            ++cancels;
        else
            ++deals;
    }
}

TEST_F(PaneFeed, EveryPaneShowsTheDayUpToTheMoment)
{
    ASSERT_TRUE(openAt(10, 30));
    int deals = 0;
    int cancels = 0;
    countDeals(*window->day(), timeOfDay(10, 30), deals, cancels);
    int orderRows = 0;
    for (const feed::OrderRow& row : window->day()->orders)
        orderRows += utils::timeOfDayMs(row.time) <= timeOfDay(10, 30) ? 1 : 0;
    const Contents now = contents();
    ASSERT_GT(deals, 0);
    ASSERT_GT(cancels, 0);
    EXPECT_EQ(now.deals, deals);
    EXPECT_EQ(now.chartDeals, deals);
    EXPECT_EQ(now.zoomDeals, deals);
    EXPECT_EQ(now.cancels, cancels);
    EXPECT_EQ(now.orders, orderRows);
    EXPECT_GT(now.sellPrices, 10U);
    EXPECT_GT(now.buyPrices, 10U);
    EXPECT_GT(now.notices, 0);
    EXPECT_TRUE(now.intervals);
    EXPECT_LT(now.lastPrice, std::numeric_limits<double>::max());
    EXPECT_EQ(now.conciseLastPrice, now.lastPrice);
}

TEST_F(PaneFeed, TheLadderAndTheQuotePanelsAgreeOnTheBestPrices)
{
    ASSERT_TRUE(openAt(10, 30));
    const Kel::EntrustStatusData quote = LevelEyes::quote(window->levels().panel());
    ASSERT_TRUE(quote.bidLevels[0].valid);
    ASSERT_TRUE(quote.askLevels[9].valid);
    EXPECT_EQ(ConciseEyes::quote(window->ticket().panel()).bidLevels, quote.bidLevels);
    // The ladder knows what came after the last snapshot, too.
    EXPECT_NEAR(LadderEyes::buys(ladder()).back()->price, quote.bidLevels[0].price, 0.1);
    EXPECT_NEAR(LadderEyes::sells(ladder()).front()->price, quote.askLevels[9].price, 0.1);
    EXPECT_GT(LadderEyes::sells(ladder()).front()->price, LadderEyes::buys(ladder()).back()->price);
}

TEST_F(PaneFeed, PlayingBringsEachPaneMore)
{
    ASSERT_TRUE(openAt(10, 30));
    const Contents before = contents();
    window->player().setSpeed(host::ReplayPlayer::kFast);
    window->setPlaying(true);
    ASSERT_TRUE(waitUntil([&] { return !window->player().playing(); }));
    settle();
    const Contents after = contents();
    EXPECT_GT(after.deals, before.deals);
    EXPECT_GT(after.orders, before.orders);
    EXPECT_GT(after.cancels, before.cancels);
    EXPECT_EQ(after.chartDeals, after.deals);
    EXPECT_EQ(after.zoomDeals, after.deals);
    EXPECT_EQ(after.notices, before.notices);
}

TEST_F(PaneFeed, AfterASeekBackAllIsAsAfterAFreshStart)
{
    ASSERT_TRUE(openAt(9, 45));
    const Contents fresh = contents();
    window.reset();
    shown = 0;

    ASSERT_TRUE(openAt(14, 30));
    EXPECT_FALSE(contents() == fresh);
    ASSERT_TRUE(seek(timeOfDay(9, 45)));
    EXPECT_EQ(contents(), fresh);
    ASSERT_TRUE(seek(timeOfDay(9, 45)));
    EXPECT_EQ(contents(), fresh) << "a second time doubles nothing";
}

TEST_F(PaneFeed, ASeekBeforeTheFirstOrderEmptiesTheListsAndKeepsTheNotices)
{
    ASSERT_TRUE(openAt(10, 30));
    const int notices = contents().notices;
    ASSERT_TRUE(seek(timeOfDay(8, 0)));
    const Contents now = contents();
    EXPECT_EQ(now.deals, 0);
    EXPECT_EQ(now.cancels, 0);
    EXPECT_EQ(now.chartDeals, 0);
    EXPECT_EQ(now.sellPrices + now.buyPrices, 0U);
    EXPECT_EQ(now.lastPrice, std::numeric_limits<double>::max());
    EXPECT_EQ(now.notices, notices);
}

TEST_F(PaneFeed, AnotherInstrumentReplacesAll)
{
    ASSERT_TRUE(
        openAt(10, 30, [](host::TerminalOptions& options) { options.source.instrument = "shenzhen"; }));
    const Contents fresh = contents();
    const QString title =
        window->information().panel().table(Kel::CInformationWidget::eTableAnnouncements)->text(0, 3);
    window.reset();
    shown = 0;

    ASSERT_TRUE(openAt(10, 30));
    EXPECT_FALSE(contents() == fresh);
    window->list().setFocus();
    QTest::keyClick(&window->list(), Qt::Key_Down);
    ASSERT_TRUE(waitForDay(2));
    ASSERT_EQ(window->day()->detail.market, "SZ");
    EXPECT_EQ(contents(), fresh);
    EXPECT_EQ(ladder().getStockKey().toStdString(), "SZ" + window->day()->detail.code);
    EXPECT_EQ(window->information().panel().table(Kel::CInformationWidget::eTableAnnouncements)->text(0, 3),
              title);
}

TEST_F(PaneFeed, ADayOfLevelsShowsTheReadyLadder)
{
    ASSERT_TRUE(openAt(10, 30, [](host::TerminalOptions& options) { options.source.style = "level"; }));
    ASSERT_TRUE(window->day()->orders.empty());
    ASSERT_FALSE(window->day()->ladders.empty());
    const Contents now = contents();
    EXPECT_GT(now.sellPrices, 10U);
    EXPECT_GT(now.buyPrices, 10U);
    EXPECT_EQ(now.orders, 0);
    EXPECT_TRUE(ladder().isVisible());
    const feed::LadderRow* published = nullptr;
    for (const feed::LadderRow& row : window->day()->ladders) {
        if (utils::timeOfDayMs(row.time) <= timeOfDay(10, 30))
            published = &row;
    }
    ASSERT_TRUE(published);
    EXPECT_EQ(now.sellPrices, published->sells.size());
    EXPECT_EQ(now.buyPrices, published->buys.size());
}

TEST_F(PaneFeed, TheLadderGoesBackFromReadyToRebuilt)
{
    ASSERT_TRUE(openAt(10, 30, [](host::TerminalOptions& options) { options.source.style = "level"; }));
    Kel::CDepthThousandDataWidget* ready = &ladder();
    window->openSource(smallSource());
    ASSERT_TRUE(waitForDay(2));
    EXPECT_NE(&ladder(), ready);
    EXPECT_TRUE(ladder().isVisible());
    EXPECT_FALSE(ready->isVisible());
    EXPECT_GT(contents().sellPrices, 10U);
    EXPECT_GT(contents().orders, 0);
}

TEST_F(PaneFeed, NoticesOfAnotherSourceReplaceThoseOfTheSameInstrument)
{
    ASSERT_TRUE(openAt(10, 30));
    Zeb::CStandardTable* table =
        window->information().panel().table(Kel::CInformationWidget::eTableAnnouncements);
    const auto rows = [table] {
        std::multiset<std::string> texts;
        for (int row = 0; row < table->rowCount(); ++row)
            texts.insert((table->text(row, 1) + QLatin1Char('|') + table->text(row, 3)).toStdString());
        return texts;
    };
    const auto before = rows();
    ASSERT_FALSE(before.empty());
    ASSERT_TRUE(seek(timeOfDay(10, 0)));
    EXPECT_EQ(rows(), before) << "a jump brings none twice";
    window->openSource(smallSource(77));
    ASSERT_TRUE(waitForDay(3));
    EXPECT_NE(rows(), before);
    EXPECT_FALSE(rows().empty());
}

TEST_F(PaneFeed, AnArchiveWithoutNoticesShowsNone)
{
    const QTemporaryDir folder;
    const std::string archive = writeArchive(folder, 1);
    ASSERT_TRUE(openAt(10, 30));
    ASSERT_GT(contents().notices, 0);
    host::DaySource source;
    source.archive = archive;
    window->openSource(source);
    ASSERT_TRUE(waitForDay(2));
    EXPECT_EQ(contents().notices, 0);
    EXPECT_GT(contents().deals, 0);
}

TEST(FeedHubOfPanes, NamesTheInstrumentOfQuotesAndHandsLaddersOn)
{
    host::FeedHub hub;
    std::vector<Kel::MetaCacheDataWrapperPtr> named;
    int ladders = 0;
    for (int i = 0; i < 2; ++i) {
        host::FeedHub::Receiver receiver;
        receiver.quoteBatches = [&](int, int, const Kel::MetaCacheDataWrapperPtr& batch) {
            named.push_back(batch);
        };
        receiver.ladders = [&](int seq, int status, const Kel::MetaCacheDataWrapperPtr&) {
            ladders += seq * 10 + status;
        };
        hub.add(receiver);
    }
    nelservice::CInstrumentDetail detail;
    detail.market = "SZ";
    detail.code = "003999";
    hub.setInstrument(detail);
    hub.onQuotes("whatever", 1, 3, quoter::QuoterBatch(2));
    hub.onLadders("whatever", 4, 3, boost::make_shared<Kel::MetaCacheDataWrapper>());
    ASSERT_EQ(named.size(), 2U);
    EXPECT_EQ(named[0]->market, "SZ");
    EXPECT_EQ(named[0]->instrument, "003999");
    EXPECT_EQ(named[0]->data.size(), 2U);
    EXPECT_EQ(named[0], named[1]) << "one batch for all";
    EXPECT_EQ(ladders, 86);
    EXPECT_EQ(hub.records(), 2);
}

} // namespace
} // namespace window_tests
