// Rows, columns and the places of summary and head, by the values that the geometry gives.

#include "QueuePanel.h"

#include <limits>

using namespace testing_support;
using namespace Kel;

namespace {

OrderQueueLayout layoutOf(int style, int width = 800, int height = 600)
{
    OrderQueueLayout layout;
    layout.style = style;
    layout.width = width;
    layout.height = height;
    layout.barWidth = 6;
    return layout;
}

std::vector<int> ones(int count)
{
    return std::vector<int>(static_cast<std::size_t>(count), 1);
}

OrderQueueData level(const std::string& text)
{
    return parseLevel(text);
}

/// What stands in the way of the cells, by style.
struct Widths
{
    int style;
    int tabLen;
    int totalVolSpace;
    int topSpace;
};

class EachStyle : public testing::TestWithParam<Widths>
{
};

INSTANTIATE_TEST_SUITE_P(Styles, EachStyle,
                         testing::Values(Widths{2, 0, 0, 10}, Widths{3, 4, 10, 5}, Widths{4, 3, 20, 5},
                                         Widths{5, 1, 0, 5}, Widths{8, 0, 0, 5}),
                         [](const auto& widths) { return "Style" + std::to_string(widths.param.style); });

TEST_P(EachStyle, HasItsWidthsBeforeTheCells)
{
    const OrderQueueLayout layout = layoutOf(GetParam().style);
    EXPECT_EQ(layout.tabLen(), GetParam().tabLen);
    EXPECT_EQ(layout.totalVolSpace(), GetParam().totalVolSpace);
    EXPECT_EQ(layout.topSpace(), GetParam().topSpace);
    EXPECT_EQ(layout.tabX(), GetParam().totalVolSpace + 6 + 65 * GetParam().tabLen);
}

struct Columns
{
    int style;
    int width;
    bool bar;
    int counted;
    int drawn;
};

class ColumnCounts : public testing::TestWithParam<Columns>
{
};

// Counted, style 2: (side - 10) / 50; style 3: (width - 260 - 10 - 6 - 5) / 50; style 4: (side - 195 - 20 - 6
// - 10) / 50; style 5: (side - 65 - 6 - 10) / 50. Drawn: (side - bar if shown - space - 6 - 65 * tabs) / 50.
INSTANTIATE_TEST_SUITE_P(Widths, ColumnCounts,
                         testing::Values(Columns{2, 820, false, 8, 8},   // 400/50; 404/50
                                         Columns{2, 812, true, 7, 7},    // 396/50; 394/50
                                         Columns{2, 814, false, 7, 8},   // 397/50; 401/50
                                         Columns{3, 800, false, 10, 10}, // 519/50; 524/50
                                         Columns{3, 780, false, 9, 10},  // 499/50; 504/50
                                         Columns{3, 780, true, 9, 9},    // 499/50; 498/50
                                         Columns{3, 330, false, 0, 1},   // 49/50; 54/50
                                         Columns{4, 800, false, 3, 3},   // 169/50; 179/50
                                         Columns{4, 760, true, 2, 3},    // 149/50; 153/50
                                         Columns{4, 320, false, -1, -1}, // -71/50; -61/50
                                         Columns{5, 800, false, 6, 6},   // 319/50; 329/50
                                         Columns{5, 760, true, 5, 6}, Columns{5, 762, false, 6, 6}));

TEST_P(ColumnCounts, AreTakenOnceForCountingAndOnceForDrawing)
{
    const Columns& columns = GetParam();
    OrderQueueLayout layout = layoutOf(columns.style, columns.width);
    layout.barVisible = columns.bar;
    EXPECT_EQ(layout.countedColumns(), columns.counted);
    EXPECT_EQ(layout.drawnColumns(), columns.drawn);
}

TEST(CountedColumns, LeaveRoomForABarThatIsHiddenButNotInTheFirstLevelDetail)
{
    OrderQueueLayout layout = layoutOf(3, 780);
    layout.barWidth = 0;
    EXPECT_EQ(layout.countedColumns(), 10);
    layout.barWidth = 60;
    EXPECT_EQ(layout.countedColumns(), 8);
    layout.style = 2;
    const int cols = layout.countedColumns();
    layout.barWidth = 0;
    EXPECT_EQ(layout.countedColumns(), cols);
}

TEST(RowTop, CountsFromTheTopOrFromTheCentreLineBySide)
{
    OrderQueueLayout layout = layoutOf(4);
    layout.scrollTop = 30;
    layout.centerY = 200;
    EXPECT_EQ(layout.rowTop(3, OQT_SELL), 35);
    EXPECT_EQ(layout.rowTop(3, OQT_BUY), 35);
    layout.style = 2;
    EXPECT_EQ(layout.rowTop(3, OQT_SELL), 40);
    layout.style = 3;
    EXPECT_EQ(layout.rowTop(0, OQT_SELL), 155);
    EXPECT_EQ(layout.rowTop(2, OQT_SELL), 115);
    EXPECT_EQ(layout.rowTop(0, OQT_BUY), 175);
    EXPECT_EQ(layout.rowTop(2, OQT_BUY), 215);
}

TEST(RowTop, IsInViewFromZeroToTheHeightBothIncluded)
{
    const OrderQueueLayout layout = layoutOf(2, 800, 100);
    EXPECT_FALSE(layout.isVisible(-1));
    EXPECT_TRUE(layout.isVisible(0));
    EXPECT_TRUE(layout.isVisible(100));
    EXPECT_FALSE(layout.isVisible(101));
}

TEST(SideLeft, IsTheMiddleForBuysButForTheHorizontalStyle)
{
    EXPECT_EQ(layoutOf(2, 801).sideLeft(OQT_BUY), 400);
    EXPECT_EQ(layoutOf(5, 801).sideLeft(OQT_SELL), 0);
    EXPECT_EQ(layoutOf(3, 801).sideLeft(OQT_BUY), 0);
}

// Rows of a level
// ---------------------------------------------------------------------------------------------------

TEST(Storeys, AreTheCellsInFullRowsRoundedUp)
{
    const OrderQueueLayout layout = layoutOf(4);
    EXPECT_EQ(layout.storeys(4, level(buyOf(1, ones(8)))), 2);
    EXPECT_EQ(layout.storeys(4, level(buyOf(1, ones(9)))), 3);
    EXPECT_EQ(layout.storeys(4, level(buyOf(1, ones(1)))), 1);
}

TEST(Storeys, CountFromTheFirstOrderInsideTheLevel)
{
    EXPECT_EQ(layoutOf(4).storeys(4, level(buyOf(1, ones(9), "start=1"))), 2);
    EXPECT_EQ(layoutOf(4).storeys(4, level(buyOf(1, ones(9), "start=5"))), 1);
}

TEST(Storeys, CountOneCellForEachStartedThousandOfUnknownLots)
{
    EXPECT_EQ(fillerCells(0), 0);
    EXPECT_EQ(fillerCells(0.000009), 0);
    EXPECT_EQ(fillerCells(0.4), 0);
    EXPECT_EQ(fillerCells(0.5), 1);
    EXPECT_EQ(fillerCells(1000.4), 1);
    EXPECT_EQ(fillerCells(1000.5), 2);
    EXPECT_EQ(fillerCells(2300), 3);
    EXPECT_EQ(fillerCells(-2300), 0);
    EXPECT_EQ(layoutOf(4).storeys(1, level(buyOf(1, ones(2), "unknown=2300"))), 5);
}

TEST(Storeys, AreDefinedForNumbersThatAreNone)
{
    EXPECT_EQ(fillerCells(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(fillerCells(std::numeric_limits<double>::infinity()), 2147484);
    EXPECT_EQ(layoutOf(4).storeys(10, level(buyOf(1, ones(2), "unknown=inf"))), 6) << "51 cells";
    EXPECT_EQ(layoutOf(4).storeys(10, level(buyOf(1, ones(2), "unknown=nan"))), 1);
}

TEST(Storeys, AreCutAtOneCellMoreThanTheMostOrders)
{
    OrderQueueLayout layout = layoutOf(4);
    EXPECT_EQ(layout.storeys(10, level(buyOf(1, ones(50)))), 5);
    EXPECT_EQ(layout.storeys(10, level(buyOf(1, ones(200)))), 6);
    layout.maxShowCount = 1000;
    EXPECT_EQ(layout.storeys(10, level(buyOf(1, ones(200)))), 20);
}

TEST(Storeys, LeaveAPlaceForTheCallOutAfterTheCut)
{
    EXPECT_EQ(layoutOf(4).storeys(4, level(buyOf(1, ones(8), "hasPart"))), 3);
    EXPECT_EQ(layoutOf(4).storeys(51, level(buyOf(1, ones(200), "hasPart"))), 2);
}

TEST(Storeys, OfALevelWithoutOrdersAreNoneInTheFirstLevelDetailAndOneElsewhere)
{
    EXPECT_EQ(layoutOf(2).storeys(4, level("buy 10 level=1")), 0);
    EXPECT_EQ(layoutOf(2).storeys(4, level("buy 10 level=1 hasPart")), 0);
    EXPECT_EQ(layoutOf(4).storeys(4, level("buy 10 level=1")), 1);
}

TEST(Storeys, AreOneForALevelThatDoesNotListItsOrders)
{
    EXPECT_EQ(layoutOf(4).storeys(4, level(buyOf(2, ones(40)))), 1);
    EXPECT_EQ(layoutOf(2).storeys(4, level(buyOf(2, ones(40)))), 1);
    EXPECT_EQ(layoutOf(3).storeys(4, level(buyOf(2, ones(40)))), 10);
    OrderQueueLayout full = layoutOf(2);
    full.full = true;
    EXPECT_EQ(full.storeys(4, level(buyOf(2, ones(40)))), 10);
}

TEST(Storeys, AreOneWithoutAColumn)
{
    EXPECT_EQ(layoutOf(4).storeys(0, level(buyOf(1, ones(40)))), 1);
    EXPECT_EQ(layoutOf(4).storeys(-1, level(buyOf(1, ones(40)))), 1);
}

TEST(Storeys, OfAStartBehindOrBeforeTheListReadNothingOutsideIt)
{
    EXPECT_EQ(layoutOf(4).storeys(4, level(buyOf(1, ones(8), "start=20"))), 1);
    EXPECT_EQ(layoutOf(2).storeys(4, level(buyOf(1, ones(8), "start=20"))), 0);
    EXPECT_EQ(layoutOf(4).storeys(4, level(buyOf(1, ones(8), "start=-3"))), 2);
    EXPECT_EQ(layoutOf(4).storeys(4, level(buyOf(1, ones(8), "start=2147483647"))), 1);
}

// Rows of the sides
// -------------------------------------------------------------------------------------------------

std::string rowsText(const OrderQueueLayout& layout, int index, const char* sell, const char* buy)
{
    OrderQueueRows rows;
    const OrderQueueDataPtr sellLevel = sell ? parseLevelPtr(sell) : nullptr;
    const OrderQueueDataPtr buyLevel = buy ? parseLevelPtr(buy) : nullptr;
    addRows(layout, 2, index, sellLevel.get(), buyLevel.get(), rows);
    return std::to_string(rows.left) + "+" + std::to_string(rows.right);
}

constexpr const char* kThree = "sell 10 level=1; 1 1 normal; 2 1 normal; 3 1 normal";
constexpr const char* kOne = "buy 9 level=1; 1 1 normal";
constexpr const char* kThreeBehind = "sell 10 level=2; 1 1 normal; 2 1 normal; 3 1 normal";
constexpr const char* kOneBehind = "buy 9 level=2; 1 1 normal";

TEST(Rows, OfTheFirstLevelAreItsStoreys)
{
    EXPECT_EQ(rowsText(layoutOf(3), 0, kThree, kOne), "2+1");
    EXPECT_EQ(rowsText(layoutOf(4), 0, kThree, kOne), "2+1");
    EXPECT_EQ(rowsText(layoutOf(5), 0, kThree, kOne), "2+1");
    EXPECT_EQ(rowsText(layoutOf(2), 0, kThree, kOne), "3+2") << "and the summary";
}

TEST(Rows, OfALaterLevelAreOneUnlessAllListTheirOrders)
{
    EXPECT_EQ(rowsText(layoutOf(2), 1, kThreeBehind, kOneBehind), "1+1") << "the summary alone";
    EXPECT_EQ(rowsText(layoutOf(3), 1, kThreeBehind, kOneBehind), "2+1");
    EXPECT_EQ(rowsText(layoutOf(4), 1, kThreeBehind, kOneBehind), "1+1");
    EXPECT_EQ(rowsText(layoutOf(5), 1, kThreeBehind, kOneBehind), "1+1");
    for (const int style : {2, 3, 4, 5}) {
        OrderQueueLayout full = layoutOf(style);
        full.full = true;
        EXPECT_EQ(rowsText(full, 1, kThreeBehind, kOneBehind), style == 2 ? "3+2" : "2+1") << style;
    }
}

TEST(Rows, OfAMissingLevelAreNone)
{
    EXPECT_EQ(rowsText(layoutOf(3), 0, nullptr, kOne), "0+1");
    EXPECT_EQ(rowsText(layoutOf(3), 0, kThree, nullptr), "2+0");
    EXPECT_EQ(rowsText(layoutOf(2), 0, nullptr, kOne), "1+2");
    for (const int style : {2, 3, 4, 5}) {
        EXPECT_EQ(rowsText(layoutOf(style), 0, nullptr, nullptr), "0+0") << style;
        EXPECT_EQ(rowsText(layoutOf(style), 1, nullptr, nullptr), "0+0") << style;
    }
}

TEST(Rows, CountALevelWithoutPriceThatIsThere)
{
    EXPECT_EQ(rowsText(layoutOf(3), 0, "sell 0 level=1", kOne), "1+1");
}

// Summary and head
// --------------------------------------------------------------------------------------------------

TEST(SummaryRowPlaces, FollowEachOtherFromTheSidesEdge)
{
    const SummaryRow row = summaryRow(layoutOf(2), 400, 30, 400, false);
    EXPECT_EQ(row.name, QRect(405, 30, 40, 20));
    EXPECT_EQ(row.price, QRect(445, 30, 65, 20));
    EXPECT_EQ(row.volume, QRect(520, 30, 60, 20));
    EXPECT_EQ(row.count, QRect(580, 30, 60, 20));
    EXPECT_EQ(row.average, QRect(680, 30, 50, 20));
    EXPECT_EQ(row.unit, QRect(730, 30, 50, 20));
}

TEST(SummaryRowPlaces, OfSellsAreLeftOutWhereTheyReachTheMiddle)
{
    // Offsets 120, 180, 280, 330: each column needs 60 more than its offset to lie below the side's width.
    const auto columns = [](int sideWidth, bool isSell) {
        const SummaryRow row = summaryRow(layoutOf(2), 0, 10, sideWidth, isSell);
        EXPECT_FALSE(row.name.isNull() || row.price.isNull());
        return int(!row.volume.isNull()) + int(!row.count.isNull()) + int(!row.average.isNull()) +
               int(!row.unit.isNull());
    };
    EXPECT_EQ(columns(180, true), 0);
    EXPECT_EQ(columns(181, true), 1);
    EXPECT_EQ(columns(240, true), 1);
    EXPECT_EQ(columns(241, true), 2);
    EXPECT_EQ(columns(340, true), 2);
    EXPECT_EQ(columns(341, true), 3);
    EXPECT_EQ(columns(390, true), 3);
    EXPECT_EQ(columns(391, true), 4);
    EXPECT_EQ(columns(100, false), 4) << "buys may run to the panel's edge";
}

TEST(LevelHeadPlaces, AreNamePriceVolumeAndCountInTheHorizontalStyle)
{
    const LevelHead head = levelHead(layoutOf(3), level(buyOf(1, ones(2))), 40);
    EXPECT_EQ(head.name, QRect(5, 40, 65, 20));
    EXPECT_EQ(head.price, QRect(70, 40, 65, 20));
    EXPECT_TRUE(head.priceFill.isNull());
    EXPECT_EQ(head.volume, QRect(135, 40, 60, 20));
    EXPECT_EQ(head.count, QRect(195, 40, 50, 20));
    EXPECT_EQ(head.cellsLeft, 15);
}

TEST(LevelHeadPlaces, LeaveTheCellsFurtherToTheRightByWhatWasCounted)
{
    EXPECT_EQ(levelHead(layoutOf(3), level("buy 10 level=1"), 40).cellsLeft, 5);
    EXPECT_TRUE(levelHead(layoutOf(3), level("buy 10 level=1"), 40).count.isNull());
    EXPECT_TRUE(levelHead(layoutOf(3), level("buy 10 level=1 count=-2"), 40).count.isNull());
    EXPECT_EQ(levelHead(layoutOf(3), level(buyOf(1, ones(2))), -1).cellsLeft, 0) << "out of view";
    EXPECT_TRUE(levelHead(layoutOf(3), level(buyOf(1, ones(2))), -1).price.isNull());
    EXPECT_EQ(levelHead(layoutOf(4), level(sellOf(1, ones(2))), 40).cellsLeft, 5);
    EXPECT_EQ(levelHead(layoutOf(4), level(buyOf(1, ones(2))), 40).cellsLeft, 405);
    EXPECT_EQ(levelHead(layoutOf(4), level(buyOf(1, ones(2))), 601).cellsLeft, 400);
    EXPECT_EQ(levelHead(layoutOf(5), level(buyOf(1, ones(2))), 40).cellsLeft, 400);
    EXPECT_EQ(levelHead(layoutOf(2), level(buyOf(1, ones(2))), 40).cellsLeft, 400);
}

TEST(LevelHeadPlaces, AreNamePriceAndVolumeInTheVerticalStyle)
{
    const LevelHead head = levelHead(layoutOf(4), level(buyOf(1, ones(2))), 40);
    EXPECT_EQ(head.name, QRect(405, 40, 65, 20));
    EXPECT_EQ(head.price, QRect(470, 40, 65, 20));
    EXPECT_TRUE(head.priceFill.isNull());
    EXPECT_EQ(head.volume, QRect(535, 40, 60, 20));
    EXPECT_TRUE(head.count.isNull());
}

TEST(LevelHeadPlaces, AreThePriceOnItsGroundInTheList)
{
    const LevelHead head = levelHead(layoutOf(5), level(sellOf(1, ones(2))), 40);
    EXPECT_TRUE(head.name.isNull());
    EXPECT_EQ(head.price, QRect(5, 40, 65, 20));
    EXPECT_EQ(head.priceFill, QRect(5, 41, 65, 18));
    EXPECT_TRUE(head.volume.isNull());
    EXPECT_TRUE(head.count.isNull());
}

TEST(LevelHeadPlaces, AreNoneInTheFirstLevelDetail)
{
    const LevelHead head = levelHead(layoutOf(2), level(sellOf(1, ones(2))), 40);
    EXPECT_TRUE(head.name.isNull() && head.price.isNull() && head.volume.isNull() && head.count.isNull());
}

} // namespace
