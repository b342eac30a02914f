// The orders of a price beside the ladder: opened by a click, refreshed by news, closed by whatever ends the
// selection, and never off the screen.

#include "host/window/InstrumentList.h"
#include "host/window/PaneWindow.h"
#include "host/window/TerminalActions.h"
#include "host/window/WindowFixture.h"
#include "records/Tolerance.h"

#include <gtest/gtest.h>

#include <QDockWidget>
#include <QScreen>
#include <QTest>
#include <QWindow>

namespace window_tests {
namespace {

class OrdersOfAPrice : public PaneWindow
{
protected:
    /// A window that the screen holds, with the ladder alone.
    bool openLadder(const std::function<void(host::TerminalOptions&)>& change = {})
    {
        const bool opened = openAt(10, 30, [&](host::TerminalOptions& options) {
            options.size = QSize(640, 480);
            if (change)
                change(options);
        });
        window->workspace().apply(ladderAlone());
        settle();
        return opened;
    }

    /// Clicks on the order count of a price that is in view.
    void clickCount(double price)
    {
        const QPoint place = LadderEyes::countOf(ladder(), price);
        ASSERT_TRUE(ladder().rect().contains(place)) << price;
        QTest::mouseClick(&ladder(), Qt::LeftButton, Qt::NoModifier, place);
    }

    double bestBuy() { return LadderEyes::buys(ladder()).back()->price; }
    double bestSell() { return LadderEyes::sells(ladder()).front()->price; }
    int countOfBestBuy() { return LadderEyes::buys(ladder()).back()->orderCount; }
};

TEST_F(OrdersOfAPrice, OpenByAClickOnTheOrderCountBesideTheRow)
{
    ASSERT_TRUE(openLadder());
    EXPECT_FALSE(popup().isVisible());
    clickCount(bestBuy());
    ASSERT_TRUE(popup().isVisible());
    EXPECT_DOUBLE_EQ(OrdersEyes::price(popup()), bestBuy());
    EXPECT_EQ(OrdersEyes::count(popup()), countOfBestBuy());
    EXPECT_EQ(OrdersEyes::unit(popup()), 100);
    EXPECT_DOUBLE_EQ(OrdersEyes::tick(popup()), 0.01);
    EXPECT_FALSE(popup().isActiveWindow()) << "the keyboard stays where it was";

    clickCount(bestSell());
    EXPECT_DOUBLE_EQ(OrdersEyes::price(popup()), bestSell());
    EXPECT_TRUE(popup().isVisible());
}

TEST_F(OrdersOfAPrice, OpenForNoOtherColumn)
{
    ASSERT_TRUE(openLadder());
    const Kel::LadderLayout rows = LadderEyes::geometry(ladder());
    const int y = LadderEyes::countOf(ladder(), bestBuy()).y();
    for (const QRect& cell : {rows.priceCell(y), rows.volumeCell(y), rows.nameCell(y)}) {
        QTest::mouseClick(&ladder(), Qt::LeftButton, Qt::NoModifier, QPoint(cell.center().x(), y));
        EXPECT_FALSE(popup().isVisible()) << cell.x();
    }
}

TEST_F(OrdersOfAPrice, AreRefreshedByNews)
{
    ASSERT_TRUE(openLadder());
    // A price far from the latest stands longest; its orders come and go.
    const auto prices = [this] {
        std::vector<double> all;
        for (const auto& level : LadderEyes::buys(ladder())) {
            if (ladder().rect().contains(LadderEyes::countOf(ladder(), level->price)))
                all.push_back(level->price);
        }
        return all;
    };
    ASSERT_FALSE(prices().empty());
    clickCount(bestBuy());
    const int before = OrdersEyes::count(popup());
    window->player().setSpeed(100);
    window->setPlaying(true);
    // Until the level has other orders, or is gone and the window with it.
    ASSERT_TRUE(waitUntil([&] { return OrdersEyes::count(popup()) != before || !popup().isVisible(); }));
    window->setPlaying(false);
    settle();
    if (popup().isVisible()) {
        const double price = OrdersEyes::price(popup());
        int orders = -1;
        for (const auto& level : LadderEyes::buys(ladder())) {
            if (Kel::isEqual(level->price, price))
                orders = level->orderCount;
        }
        EXPECT_EQ(OrdersEyes::count(popup()), orders);
    } else {
        EXPECT_FALSE(LadderEyes::hasSelection(ladder()));
    }
}

TEST_F(OrdersOfAPrice, CloseByAClickElsewhereInTheLadder)
{
    ASSERT_TRUE(openLadder());
    clickCount(bestBuy());
    ASSERT_TRUE(popup().isVisible());
    const Kel::LadderLayout rows = LadderEyes::geometry(ladder());
    QTest::mouseClick(&ladder(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(rows.nameCell(0).center().x(), LadderEyes::countOf(ladder(), bestBuy()).y()));
    EXPECT_FALSE(popup().isVisible());
}

TEST_F(OrdersOfAPrice, CloseWithTheInstrument)
{
    ASSERT_TRUE(openLadder());
    clickCount(bestBuy());
    ASSERT_TRUE(popup().isVisible());
    window->list().setCurrentIndex(window->list().model()->index(0, 0));
    QTest::keyClick(&window->list(), Qt::Key_Down);
    ASSERT_TRUE(waitForDay(2));
    EXPECT_FALSE(popup().isVisible());
    EXPECT_FALSE(LadderEyes::hasSelection(ladder()));
}

TEST_F(OrdersOfAPrice, CloseByASeek)
{
    ASSERT_TRUE(openLadder());
    clickCount(bestBuy());
    ASSERT_TRUE(popup().isVisible());
    ASSERT_TRUE(seek(timeOfDay(14, 0)));
    EXPECT_FALSE(popup().isVisible());
    EXPECT_FALSE(LadderEyes::hasSelection(ladder()));
}

TEST_F(OrdersOfAPrice, CloseWithThePane)
{
    ASSERT_TRUE(openLadder());
    clickCount(bestBuy());
    ASSERT_TRUE(popup().isVisible());
    window->workspace().dock(QStringLiteral("ladder"))->close();
    EXPECT_FALSE(popup().isVisible());
    settle();
    EXPECT_FALSE(popup().isVisible());
}

TEST_F(OrdersOfAPrice, CloseWhenAnotherTabComesToTheFront)
{
    ASSERT_TRUE(openLadder());
    QDockWidget* ladderDock = window->workspace().dock(QStringLiteral("ladder"));
    QDockWidget* other = window->workspace().dock(QStringLiteral("deals"));
    window->workspace().tabifyDockWidget(ladderDock, other);
    other->show();
    ladderDock->raise();
    settle();
    clickCount(bestBuy());
    ASSERT_TRUE(popup().isVisible());
    other->raise();
    settle();
    ASSERT_TRUE(ladder().visibleRegion().isEmpty());
    EXPECT_FALSE(popup().isVisible());
    window->player().setSpeed(100);
    window->setPlaying(true);
    settle();
    EXPECT_FALSE(popup().isVisible()) << "news do not open it behind another tab";
    window->setPlaying(false);
}

TEST_F(OrdersOfAPrice, CloseWithTheWindow)
{
    ASSERT_TRUE(openLadder());
    clickCount(bestBuy());
    ASSERT_TRUE(popup().isVisible());
    window->hide();
    EXPECT_FALSE(popup().isVisible());
}

TEST_F(OrdersOfAPrice, StayOnTheScreenAndBesideTheLadderWhereverTheWindowStands)
{
    ASSERT_TRUE(openLadder());
    QDockWidget* dock = window->workspace().dock(QStringLiteral("ladder"));
    dock->setFloating(true);
    dock->resize(340, 420);
    settle();
    clickCount(bestSell());
    ASSERT_TRUE(popup().isVisible());
    const QRect screen = dock->windowHandle()->screen()->availableGeometry();
    const int right = screen.right() + 1 - dock->width();
    const int bottom = screen.bottom() + 1 - dock->height();
    const QPoint places[] = {
        {screen.left(), screen.top()}, {right, screen.top()},   {screen.left(), bottom}, {right, bottom},
        {screen.left() - 200, 100},  // partly off the screen
        {screen.right() - 100, 100}, //
        {100, screen.bottom() - 100},  {right / 2, bottom / 2},
    };
    for (const QPoint& place : places) {
        dock->move(place);
        QCoreApplication::processEvents();
        const QRect orders = popup().frameGeometry();
        EXPECT_TRUE(popup().isVisible());
        EXPECT_TRUE(screen.contains(orders))
            << place.x() << ' ' << place.y() << ": " << orders.x() << ' ' << orders.y();
    }
    // Where there is room at a side, the ladder is not covered.
    for (const QPoint& place : {QPoint(screen.left(), 100), QPoint(right, 100)}) {
        dock->move(place);
        QCoreApplication::processEvents();
        const QRect covered(ladder().mapToGlobal(QPoint(0, 0)), ladder().size());
        EXPECT_FALSE(popup().frameGeometry().intersects(covered)) << place.x();
    }
}

TEST_F(OrdersOfAPrice, StandAtTheHeightOfTheRow)
{
    ASSERT_TRUE(openLadder());
    QDockWidget* dock = window->workspace().dock(QStringLiteral("ladder"));
    dock->setFloating(true);
    dock->resize(340, 420);
    dock->move(400, 50);
    settle();
    for (const double price : {bestSell(), bestBuy()}) {
        clickCount(price);
        const int y = ladder().mapFromGlobal(popup().pos()).y();
        const int row = LadderEyes::countOf(ladder(), price).y();
        EXPECT_LE(y, row);
        EXPECT_GT(y + LadderEyes::geometry(ladder()).rowHeight, row - 1);
    }
}

TEST_F(OrdersOfAPrice, OfAReadyLadderAreInItsTickAndUnit)
{
    ASSERT_TRUE(openLadder([](host::TerminalOptions& options) {
        options.source.style = "level";
        options.source.instrument = "bond";
    }));
    ASSERT_FALSE(LadderEyes::buys(ladder()).empty());
    clickCount(bestBuy());
    ASSERT_TRUE(popup().isVisible());
    EXPECT_DOUBLE_EQ(OrdersEyes::tick(popup()), window->day()->detail.priceTick);
    EXPECT_EQ(OrdersEyes::unit(popup()), 10) << "ten bonds are a lot";
}

} // namespace
} // namespace window_tests
