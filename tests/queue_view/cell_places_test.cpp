// The cells of a level and the call-out, by the values that the geometry gives.

#include "QueuePanel.h"

#include <limits>

using namespace testing_support;
using namespace Kel;

namespace {

OrderQueueLayout layoutOf(int style, int height = 600)
{
    OrderQueueLayout layout;
    layout.style = style;
    layout.width = 800;
    layout.height = height;
    layout.maxShowCount = 50;
    return layout;
}

LevelCells placed(const OrderQueueLayout& layout, const std::string& text, int cols, int row = 0,
                  int left = 0)
{
    LevelCells cells;
    placeCells(layout, parseLevel(text), left, cols, row, cells);
    return cells;
}

/// "lots type" of each cell, "..." for the last of a cut level.
std::string shown(const LevelCells& cells)
{
    std::string text;
    for (const OrderCell& cell : cells.cells)
        text += (text.empty() ? "" : ", ") + (cell.ellipsis ? "..." : std::to_string(cell.lots)) + " " +
                typeText(cell.type);
    return text;
}

/// "column/line" of each cell, with the first cell of row 0 at 0/0.
std::string grid(const OrderQueueLayout& layout, const LevelCells& cells)
{
    std::string text;
    for (const OrderCell& cell : cells.cells)
        text += (text.empty() ? "" : " ") + std::to_string((cell.rect.x() - 5) / layout.cellWidth) + "/" +
                std::to_string((cell.rect.y() - layout.topSpace() + layout.scrollTop) / layout.rowHeight);
    return text;
}

std::vector<int> ones(int count)
{
    return std::vector<int>(static_cast<std::size_t>(count), 1);
}

TEST(CellPlaces, FillRowsFromTheLeft)
{
    const OrderQueueLayout layout = layoutOf(2);
    const LevelCells cells = placed(layout, buyOf(1, ones(5)), 2, 3, 400);
    ASSERT_EQ(cells.cells.size(), 5U);
    EXPECT_EQ(cells.cells[0].rect, QRect(405, 70, 50, 20));
    EXPECT_EQ(cells.cells[1].rect, QRect(455, 70, 50, 20));
    EXPECT_EQ(cells.cells[2].rect, QRect(405, 90, 50, 20));
    EXPECT_EQ(cells.cells[4].rect, QRect(405, 110, 50, 20));
}

TEST(CellPlaces, StandBehindTheTabOfTheStyle)
{
    EXPECT_EQ(placed(layoutOf(3), buyOf(1, {1}), 9, 0, 15).cells[0].rect.x(), 15 + 5 + 260 + 10);
    EXPECT_EQ(placed(layoutOf(4), buyOf(1, {1}), 9, 0, 405).cells[0].rect.x(), 405 + 5 + 195 + 20);
    EXPECT_EQ(placed(layoutOf(5), buyOf(1, {1}), 9, 0, 400).cells[0].rect.x(), 400 + 5 + 65);
}

TEST(CellPlaces, OfSellsStackUpwardInTheHorizontalStyle)
{
    OrderQueueLayout layout = layoutOf(3);
    layout.centerY = 100;
    const LevelCells sells = placed(layout, sellOf(1, ones(3)), 2);
    EXPECT_EQ(sells.cells[0].rect.y(), 85);
    EXPECT_EQ(sells.cells[2].rect.y(), 65);
    const LevelCells buys = placed(layout, buyOf(1, ones(3)), 2);
    EXPECT_EQ(buys.cells[0].rect.y(), 105);
    EXPECT_EQ(buys.cells[2].rect.y(), 125);
}

TEST(CellPlaces, AreNoneWithoutAColumn)
{
    EXPECT_TRUE(placed(layoutOf(2), buyOf(1, ones(5)), 0).cells.empty());
}

TEST(CellLots, AreRoundedAndAtLeastOne)
{
    EXPECT_EQ(
        shown(placed(layoutOf(2), "buy 10 level=1; 1 0 normal; 2 0.4 normal; 3 1.5 normal; 4 -7 normal", 9)),
        "1 normal, 1 normal, 2 normal, 1 normal");
    EXPECT_EQ(shownLots(std::numeric_limits<double>::quiet_NaN()), 1);
    EXPECT_EQ(shownLots(std::numeric_limits<double>::infinity()), std::numeric_limits<int>::max());
    EXPECT_EQ(shownLots(-std::numeric_limits<double>::infinity()), 1);
}

TEST(CellsBeforeTheStart, AreNotShown)
{
    EXPECT_EQ(shown(placed(layoutOf(2), buyOf(1, {1, 2, 3, 4}, "start=2"), 9)), "3 normal, 4 normal");
    EXPECT_EQ(shown(placed(layoutOf(2), buyOf(1, {1, 2}, "start=-5"), 9)), "1 normal, 2 normal");
    EXPECT_EQ(shown(placed(layoutOf(2), buyOf(1, {1, 2}, "start=5"), 9)), "");
    EXPECT_EQ(shown(placed(layoutOf(2), buyOf(1, {1, 2}, "start=2147483647"), 9)), "");
}

TEST(Filler, IsCellsOfAThousandAndTheRestInTheLast)
{
    EXPECT_EQ(shown(placed(layoutOf(2), buyOf(1, {7}, "unknown=2300"), 9)),
              "7 normal, 1000 big, 1000 big, 300 normal");
    EXPECT_EQ(shown(placed(layoutOf(2), buyOf(1, {7}, "unknown=2000"), 9)), "7 normal, 1000 big, 1000 big");
    EXPECT_EQ(shown(placed(layoutOf(2), "buy 10 level=1 unknown=0.5", 9)), "1 normal");
    EXPECT_EQ(shown(placed(layoutOf(2), "buy 10 level=1 unknown=0.2", 9)), "");
}

TEST(Filler, CarriesNumberZeroAndStandsBehindTheOrders)
{
    const LevelCells cells = placed(layoutOf(2), buyOf(1, {7}, "unknown=20"), 9);
    EXPECT_EQ(cells.cells[1].number, 0);
    EXPECT_EQ(cells.cells[1].index, 1);
}

TEST(Filler, PutsAllThatRemainsIntoTheCellOfTheCut)
{
    OrderQueueLayout layout = layoutOf(2);
    layout.maxShowCount = 2;
    const LevelCells cells = placed(layout, "buy 10 level=1 unknown=9000", 9);
    EXPECT_EQ(shown(cells), "1000 big, 1000 big, ... super");
    EXPECT_EQ(cells.cells[2].lots, 7000);
}

TEST(Filler, CountsFromAStartBehindTheList)
{
    // Two orders and three fillers; the start leaves out both orders and one filler, whose lots stay in the
    // last.
    EXPECT_EQ(shown(placed(layoutOf(2), buyOf(1, {7, 8}, "unknown=2300 start=3"), 9)), "1000 big, 1300 big");
}

TEST(Filler, IsTheSameHoweverFarTheListIsScrolled)
{
    OrderQueueLayout layout = layoutOf(2, 40);
    layout.scrollTop = 55;
    const LevelCells cells = placed(layout, "buy 10 level=1 unknown=4300", 1);
    EXPECT_EQ(shown(cells), "1000 big, 300 normal") << "the first three are above the panel";
}

TEST(Filler, OfEndlessLotsIsCutLikeAnyOther)
{
    EXPECT_EQ(placed(layoutOf(2), buyOf(1, {7}, "unknown=inf"), 9).cells.size(), 51U);
    EXPECT_EQ(placed(layoutOf(2), buyOf(1, {7}, "unknown=1e300"), 9).cells.back().type, OQT_SUPER);
    EXPECT_EQ(placed(layoutOf(2), buyOf(1, {7}, "unknown=nan"), 9).cells.size(), 1U);
}

TEST(NegativeFiller, ShortensTheFirstShownOrderAlone)
{
    EXPECT_EQ(shown(placed(layoutOf(2), buyOf(1, {500, 20, 30}, "unknown=-400"), 9)),
              "100 normal, 20 normal, 30 normal");
    EXPECT_EQ(shown(placed(layoutOf(2), buyOf(1, {500, 20, 30}, "unknown=-15 start=1"), 9)),
              "5 normal, 30 normal");
    EXPECT_EQ(shown(placed(layoutOf(2), buyOf(1, {500}, "unknown=-600"), 9)), "1 normal");
    EXPECT_EQ(shown(placed(layoutOf(2), buyOf(1, {500}, "unknown=-0.000009"), 9)), "500 normal");
}

TEST(NegativeFiller, ShortensTheFinishedPartDealtCellWhateverItsPlace)
{
    const LevelCells cells =
        placed(layoutOf(2), "buy 10 level=1 unknown=-15 hasPart; 1 500 normal; 2 44 part 6; 3 30 normal", 9);
    EXPECT_EQ(shown(cells), "485 normal, 44 part, 30 normal");
    EXPECT_EQ(cells.partLots, 29);
    EXPECT_EQ(placed(layoutOf(2), "buy 10 level=1 unknown=3 hasPart; 2 44 part 6", 9).partLots, 44);
}

TEST(TheCut, IsACellOfDotsAfterTheMostOrders)
{
    const LevelCells cells = placed(layoutOf(2), buyOf(1, ones(60)), 10);
    ASSERT_EQ(cells.cells.size(), 51U);
    EXPECT_FALSE(cells.cells[49].ellipsis);
    EXPECT_TRUE(cells.cells[50].ellipsis);
    EXPECT_EQ(placed(layoutOf(2), buyOf(1, ones(50)), 10).cells.size(), 50U);
}

TEST(TheCut, CountsFromTheStart)
{
    const LevelCells cells = placed(layoutOf(2), buyOf(1, ones(60), "start=5"), 10);
    ASSERT_EQ(cells.cells.size(), 51U);
    EXPECT_EQ(cells.cells[50].index, 55);
    EXPECT_TRUE(cells.cells[50].ellipsis);
    EXPECT_FALSE(placed(layoutOf(2), buyOf(1, ones(55), "start=5"), 10).cells.back().ellipsis);
}

TEST(TheCut, ShowsDotsInThePartDealtCellByItsIndexAndNotByItsPlace)
{
    OrderQueueLayout layout = layoutOf(2);
    layout.maxShowCount = 2;
    const std::string orders = "; 1 5 normal; 2 6 normal; 3 7 part 1; 4 8 normal; 5 9 normal";
    const LevelCells atIndex = placed(layout, "buy 10 level=1 hasPart start=1" + orders, 9);
    EXPECT_TRUE(atIndex.partEllipsis) << "index 2, place 1";
    EXPECT_FALSE(atIndex.cells[1].ellipsis);
    const LevelCells atPlace =
        placed(layout, "buy 10 level=1 hasPart start=1; 1 5 normal; 2 6 normal; 3 7 normal; 4 8 part 1", 9);
    EXPECT_FALSE(atPlace.partEllipsis);
    EXPECT_TRUE(atPlace.cells[2].ellipsis);
}

TEST(PartDealtOrder, LeavesTheNextPlaceToItsCallOut)
{
    const OrderQueueLayout layout = layoutOf(2);
    const std::string orders = "; 1 5 normal; 2 6 part 1; 3 7 normal; 4 8 normal";
    EXPECT_EQ(grid(layout, placed(layout, "buy 10 level=1 hasPart" + orders, 3)), "0/0 1/0 0/1 1/1");
    EXPECT_EQ(grid(layout, placed(layout, "buy 10 level=1" + orders, 3)), "0/0 1/0 2/0 0/1")
        << "nothing dealt to draw";
}

TEST(PartDealtOrder, ThatHasTheCallOutIsTheLastOneShown)
{
    const OrderQueueLayout layout = layoutOf(2);
    const std::string orders = "; 1 5 part 1; 2 6 part 1; 3 7 normal";
    const LevelCells cells = placed(layout, "buy 10 level=1 hasPart" + orders, 9);
    EXPECT_EQ(grid(layout, cells), "0/0 1/0 3/0");
    EXPECT_EQ(cells.lastPart, 1);
    OrderQueueLayout cut = layout;
    cut.maxShowCount = 0;
    EXPECT_EQ(placed(cut, "buy 10 level=1 hasPart" + orders, 9).lastPart, 0) << "the second is cut off";
}

TEST(PartDealtOrder, IsSearchedAmongTheListedOrdersInFrontOfTheFiller)
{
    const OrderQueueLayout layout = layoutOf(2);
    EXPECT_EQ(grid(layout, placed(layout, "buy 10 level=1 hasPart unknown=2500; 1 5 part 1", 9)),
              "0/0 2/0 3/0 4/0");
    // The cut leaves three cells, the filler has three: nothing is left to be searched.
    OrderQueueLayout cut = layout;
    cut.maxShowCount = 2;
    EXPECT_EQ(grid(cut, placed(cut, "buy 10 level=1 hasPart unknown=2500; 1 5 part 1", 9)), "0/0 1/0 2/0");
}

TEST(PartDealtOrder, OutOfViewStillMovesWhatFollowsIt)
{
    OrderQueueLayout layout = layoutOf(2);
    layout.scrollTop = 15;
    const LevelCells cells =
        placed(layout, "buy 10 level=1 hasPart; 1 5 part 1; 2 6 normal; 3 7 normal; 4 8 normal", 2);
    EXPECT_EQ(grid(layout, cells), "0/1 1/1 0/2");
    EXPECT_EQ(cells.lastPart, -1) << "the first is above the panel";
}

TEST(PartDealtOrder, BeforeTheStartIsNotShown)
{
    const LevelCells cells =
        placed(layoutOf(2), "buy 10 level=1 hasPart start=1; 1 5 part 1; 2 6 normal; 3 7 normal", 9);
    EXPECT_EQ(grid(layoutOf(2), cells), "0/0 1/0");
    EXPECT_EQ(cells.lastPart, -1);
}

TEST(CallOutPlaces, AreABoxWithAnArrowFromTheRight)
{
    const CallOut shape = callOut(layoutOf(2), QPoint(100, 50), 30, false);
    EXPECT_EQ(shape.outline, QPolygon({QPoint(100, 50), QPoint(105, 45), QPoint(105, 42), QPoint(139, 42),
                                       QPoint(139, 58), QPoint(105, 58), QPoint(105, 55), QPoint(100, 50)}));
    EXPECT_EQ(shape.text, QRect(105, 42, 33, 17));
}

TEST(CallOutPlaces, FoldToTheLeft)
{
    const CallOut shape = callOut(layoutOf(2), QPoint(100, 50), 30, true);
    EXPECT_EQ(shape.outline, QPolygon({QPoint(100, 50), QPoint(95, 45), QPoint(95, 42), QPoint(61, 42),
                                       QPoint(61, 58), QPoint(95, 58), QPoint(95, 55), QPoint(100, 50)}));
    EXPECT_EQ(shape.text, QRect(61, 42, 33, 17));
}

} // namespace
