// The queue panel wired into its header, and the answer to the header's wishes.

#include "host/window/panes/QueueCell.h"

#include "frame/CDepthModuleGroupBaseWidget.h"
#include "host/window/TerminalOptions.h"
#include "platform/toolkit/CPushButton.h"
#include "queue_view/CDepthOrderQueueWidget.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

namespace window_tests {
namespace {

class Cell : public ::testing::Test
{
protected:
    Cell()
    {
        cell.resize(800, 400);
        cell.show();
    }

    Zeb::CPushButton* button(int id)
    {
        for (auto* one : cell.findChildren<Zeb::CPushButton*>()) {
            if (one->id() == id)
                return one;
        }
        return nullptr;
    }

    host::QueueCell cell;
    Kel::CDepthOrderQueueWidget& panel = cell.panel();
};

TEST_F(Cell, PutsThePanelBelowTheStripOfItsHeader)
{
    EXPECT_EQ(panel.parentWidget(), &cell.header());
    EXPECT_EQ(cell.header().geometry(), QRect(0, 0, 800, 400));
    EXPECT_EQ(panel.geometry(), QRect(0, 20, 800, 380));
    cell.resize(700, 300);
    EXPECT_EQ(panel.geometry(), QRect(0, 20, 700, 280));
}

TEST_F(Cell, AStyleButtonChangesThePanel)
{
    QSignalSpy changed(&cell, &host::QueueCell::modesChanged);
    ASSERT_TRUE(button(2)->isVisible());
    QTest::mouseClick(button(2), Qt::LeftButton);
    EXPECT_EQ(panel.getQueueModeStyle(), 3);
    EXPECT_TRUE(button(5)->isVisible());
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(cell.modes().style, Kel::eQueueDetailList);
}

TEST_F(Cell, ALevelButtonChangesThePanelThereAndBack)
{
    QTest::mouseClick(button(1), Qt::LeftButton);
    EXPECT_EQ(panel.getQueueModeLevel(), 0);
    QTest::mouseClick(button(0), Qt::LeftButton);
    EXPECT_EQ(panel.getQueueModeLevel(), 1);
}

/// A cell whose header has no panel.
class PlainCell : public host::PanelCell
{
public:
    PlainCell() : PanelCell(QStringLiteral("plain"), QStringLiteral("Plain"), nullptr) {}

    void setInstrument(const QString&) override {}
};

TEST_F(Cell, AnswersWishesForModesOnly)
{
    PlainCell plain;
    for (int mode = 0; mode <= 5; ++mode)
        EXPECT_TRUE(plain.handleEvent(1396, mode, 0, QString(), nullptr)) << mode;
    for (const int mode : {-1, 6, 7, 8, 9, 10, 11, 12})
        EXPECT_FALSE(plain.handleEvent(1396, mode, 0, QString(), nullptr)) << mode;
    for (const int id : {5, 1395, 3223})
        EXPECT_FALSE(plain.handleEvent(id, 1, 1, QString(), nullptr)) << id;
}

TEST_F(Cell, AWishReachesItsOwnPanelOnly)
{
    host::QueueCell other;
    QTest::mouseClick(button(2), Qt::LeftButton);
    EXPECT_EQ(other.panel().getQueueModeStyle(), 0);
}

TEST_F(Cell, SetsAllModesAndTheButtonsFollow)
{
    host::QueueModes modes;
    modes.levels = Kel::eQueueFiveLevels;
    modes.style = Kel::eQueueDetailHorizontal;
    modes.full = true;
    cell.setModes(modes);
    EXPECT_EQ(panel.getQueueModeLevel(), 0);
    EXPECT_EQ(panel.getQueueModeStyle(), 1);
    EXPECT_TRUE(button(0)->isVisible());
    EXPECT_TRUE(button(3)->isVisible());
    EXPECT_FALSE(button(1)->isVisible());
    EXPECT_TRUE(cell.modes().full);
}

TEST_F(Cell, HandsTheFeedToThePanelWithoutAnInstrument)
{
    const host::FeedHub::Receiver receiver = cell.receiver();
    const auto batch = boost::make_shared<Kel::MetaCacheDataWrapper>();
    receiver.orders(QStringLiteral("SH600999"), 0, 0, batch);
    receiver.deals(QStringLiteral("SH600999"), 0, 0, batch);
    receiver.quotes(0, 1, {});
}

TEST(FeedHub, HandsEveryCallToEachReceiverAndCounts)
{
    host::FeedHub hub;
    int orders = 0;
    int deals = 0;
    int quotes = 0;
    QString key;
    for (int i = 0; i < 2; ++i) {
        host::FeedHub::Receiver receiver;
        receiver.orders = [&](const QString& name, int seq, int status, const Kel::MetaCacheDataWrapperPtr&) {
            orders += seq * 10 + status;
            key = name;
        };
        receiver.deals = [&](const QString&, int, int, const Kel::MetaCacheDataWrapperPtr&) { ++deals; };
        receiver.quotes = [&](int, int, const quoter::QuoterBatch&) { ++quotes; };
        hub.add(receiver);
    }
    hub.add({}); // takes nothing
    const auto batch = boost::make_shared<Kel::MetaCacheDataWrapper>();
    batch->data.resize(3);
    hub.onOrders("SH600999", 4, 3, batch);
    hub.onDeals("SH600999", 0, 1, batch);
    hub.onQuotes("SH600999", 0, 1, quoter::QuoterBatch(2));
    EXPECT_EQ(orders, 86);
    EXPECT_EQ(key.toStdString(), "SH600999");
    EXPECT_EQ(deals, 2);
    EXPECT_EQ(quotes, 2);
    EXPECT_EQ(hub.records(), 8);
}

TEST(ModeWords, AreTakenOver)
{
    host::QueueModes modes;
    for (const char* word : {"five", "list", "full"})
        EXPECT_TRUE(host::takeModeWord(word, modes));
    EXPECT_EQ(modes.levels, Kel::eQueueFiveLevels);
    EXPECT_EQ(modes.style, Kel::eQueueDetailList);
    EXPECT_TRUE(modes.full);
    for (const char* word : {"ten", "first", "cut"})
        EXPECT_TRUE(host::takeModeWord(word, modes));
    EXPECT_EQ(modes.levels, Kel::eQueueTenLevels);
    EXPECT_EQ(modes.style, Kel::eQueueDetailFirst);
    EXPECT_FALSE(modes.full);
    EXPECT_FALSE(host::takeModeWord("six", modes));
    EXPECT_EQ(host::modeWords().size(), 8U);
}

} // namespace
} // namespace window_tests
