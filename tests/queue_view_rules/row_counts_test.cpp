// How many rows a level and a side take, and where a row stands.

#include "QueueViewFixture.h"

using namespace queue_view_rules;

namespace {

class RowCounts : public QueueViewTest
{
protected:
    LevelPtr level(const std::string& head, int orders)
    {
        return testing_support::parseLevelPtr(levelWith(head, orders));
    }
    int storeys(int cols, const std::string& head, int orders)
    {
        return view.getStoreyNum(cols, level(head, orders));
    }

    /// "left right pixels" of `calcDelta`.
    std::string delta()
    {
        int left = 77;
        int right = 77;
        const int height = view.calcDelta(left, right);
        return std::to_string(left) + " " + std::to_string(right) + " " + std::to_string(height);
    }

    /// Sets widget width and style, without a layout.
    void size(int width, int style)
    {
        view.setMinimumSize(0, 0);
        view.resize(width, 400);
        view.setStyle(style);
    }
};

} // namespace

// ---------------------------------------------------------------------------------------- small numbers

TEST_F(RowCounts, EachStyleHasItsTabsAndSpaces)
{
    const struct
    {
        int style, tabs, volSpace, topSpace;
        bool dealData;
    } rows[] = {{2, 0, 0, 10, false}, {3, 4, 10, 5, true}, {4, 3, 20, 5, false}, {5, 1, 0, 5, false}};
    for (const auto& row : rows) {
        view.setStyle(row.style);
        EXPECT_EQ(view.getTabLen(), row.tabs) << row.style;
        EXPECT_EQ(view.getTotalVolSpace(), row.volSpace) << row.style;
        EXPECT_EQ(view.getTopSpace(), row.topSpace) << row.style;
        EXPECT_EQ(view.isUseOrderDealData(), row.dealData) << row.style;
    }
}

TEST_F(RowCounts, ARowIsDrawnIfItsTopLiesInTheHeightBothEndsIncluded)
{
    view.resize(600, 400);
    EXPECT_FALSE(view.isDrawRectValid(-1, 19));
    EXPECT_TRUE(view.isDrawRectValid(0, 20));
    EXPECT_TRUE(view.isDrawRectValid(400, 420));
    EXPECT_FALSE(view.isDrawRectValid(401, 421));
    EXPECT_TRUE(view.isDrawRectValid(10, -5000)) << "the bottom is not looked at";
    EXPECT_FALSE(view.isDrawRectValid(-1, 200)) << "the bottom is not looked at";
}

TEST_F(RowCounts, OnlyTheFirstLevelListsItsOrdersUnlessHorizontalOrFull)
{
    for (const int style : {2, 4, 5}) {
        view.setStyle(style);
        view.setQueueFull(false);
        EXPECT_TRUE(view.isShowDetailOrderQueue(level("sell 10 level=1", 1)));
        EXPECT_FALSE(view.isShowDetailOrderQueue(level("sell 10 level=2", 1)));
        EXPECT_FALSE(view.isShowDetailOrderQueue(level("sell 10 level=0", 1)));
        view.setQueueFull(true);
        EXPECT_TRUE(view.isShowDetailOrderQueue(level("sell 10 level=2", 1)));
    }
    view.setQueueFull(false);
    view.setStyle(3);
    EXPECT_TRUE(view.isShowDetailOrderQueue(level("sell 10 level=10", 1)));
}

TEST_F(RowCounts, TheSumIsShownForLevelsZeroAndOneOrAFullQueueWithOrders)
{
    EXPECT_FALSE(view.isDrawVolSum({}));
    EXPECT_FALSE(view.isDrawVolSum(level("sell 0 level=1", 1)));
    EXPECT_TRUE(view.isDrawVolSum(level("sell 10 level=0", 1)));
    EXPECT_TRUE(view.isDrawVolSum(level("sell 10 level=1", 1)));
    EXPECT_FALSE(view.isDrawVolSum(level("sell 10 level=1", 0)));
    EXPECT_FALSE(view.isDrawVolSum(level("sell 10 level=2", 1)));
    view.setQueueFull(true);
    EXPECT_TRUE(view.isDrawVolSum(level("sell 10 level=2", 1)));
    EXPECT_FALSE(view.isDrawVolSum(level("sell 10 level=2", 0)));
    EXPECT_FALSE(view.isDrawVolSum(level("sell 0 level=2", 1)));
}

// ---------------------------------------------------------------------------------------- rows of a level

TEST_F(RowCounts, ALevelThatDoesNotListItsOrdersTakesOneRow)
{
    view.setStyle(5);
    EXPECT_EQ(storeys(4, "sell 10 level=2", 40), 1);
    view.setStyle(2);
    EXPECT_EQ(storeys(4, "sell 10 level=2", 40), 1);
    EXPECT_EQ(storeys(4, "sell 10 level=2", 0), 1);
}

TEST_F(RowCounts, OrdersAreSharedOutAmongRowsRoundedUp)
{
    view.setStyle(5);
    EXPECT_EQ(storeys(4, "sell 10 level=1", 1), 1);
    EXPECT_EQ(storeys(4, "sell 10 level=1", 4), 1);
    EXPECT_EQ(storeys(4, "sell 10 level=1", 5), 2);
    EXPECT_EQ(storeys(4, "sell 10 level=1", 8), 2);
    EXPECT_EQ(storeys(4, "sell 10 level=1", 9), 3);
}

TEST_F(RowCounts, OrdersBeforeTheStartDoNotCount)
{
    view.setStyle(5);
    EXPECT_EQ(storeys(4, "sell 10 level=1 start=5", 9), 1);
    EXPECT_EQ(storeys(4, "sell 10 level=1 start=4", 9), 2);
}

TEST_F(RowCounts, FillerTakesOneCellAStartedThousand)
{
    view.setStyle(5);
    const struct
    {
        const char* unknown;
        int cells;
    } rows[] = {{"0", 0},      {"0.00001", 0}, {"0.4", 0},  {"0.5", 1},  {"1", 1},    {"1000", 1},
                {"1000.4", 1}, {"1000.5", 2},  {"1001", 2}, {"2500", 3}, {"-5000", 0}};
    for (const auto& row : rows) {
        // Two orders and the filler, a cell a row.
        EXPECT_EQ(storeys(1, std::string("sell 10 level=1 unknown=") + row.unknown, 2), 2 + row.cells)
            << row.unknown;
    }
}

TEST_F(RowCounts, ALevelIsCutAtOneCellMoreThanTheMostShown)
{
    view.setStyle(5);
    EXPECT_EQ(storeys(1, "sell 10 level=1", 50), 50);
    EXPECT_EQ(storeys(1, "sell 10 level=1", 51), 51);
    EXPECT_EQ(storeys(1, "sell 10 level=1", 52), 51);
    EXPECT_EQ(storeys(1, "sell 10 level=1 unknown=90000", 10), 51);
    view.m_maxShowCount = 1000;
    EXPECT_EQ(storeys(1, "sell 10 level=1", 1200), 1001);
}

TEST_F(RowCounts, TheCallOutTakesACellAfterTheCut)
{
    view.setStyle(5);
    EXPECT_EQ(storeys(4, "sell 10 level=1 hasPart", 4), 2);
    EXPECT_EQ(storeys(4, "sell 10 level=1 hasPart", 3), 1);
    EXPECT_EQ(storeys(51, "sell 10 level=1", 80), 1);
    EXPECT_EQ(storeys(51, "sell 10 level=1 hasPart", 80), 2);
}

TEST_F(RowCounts, AnEmptyLevelTakesNoRowUnderItsSummaryAndOneInOtherStyles)
{
    view.setStyle(2);
    EXPECT_EQ(storeys(4, "sell 10 level=1", 0), 0);
    EXPECT_EQ(storeys(4, "sell 10 level=1 hasPart", 0), 0) << "the call-out needs an order";
    EXPECT_EQ(storeys(0, "sell 10 level=1", 0), 0);
    EXPECT_EQ(storeys(4, "sell 10 level=1 start=3", 3), 0);
    EXPECT_EQ(storeys(4, "sell 10 level=1 start=5", 3), 0);
    EXPECT_EQ(storeys(4, "sell 10 level=1 unknown=5", 0), 1);
    for (const int style : {3, 4, 5}) {
        view.setStyle(style);
        EXPECT_EQ(storeys(4, "sell 10 level=1", 0), 1) << style;
        EXPECT_EQ(storeys(4, "sell 10 level=1 start=9", 3), 1) << style;
    }
}

TEST_F(RowCounts, NoColumnGivesOneRow)
{
    view.setStyle(5);
    EXPECT_EQ(storeys(0, "sell 10 level=1", 30), 1);
    view.setStyle(2);
    EXPECT_EQ(storeys(0, "sell 10 level=1", 30), 1);
}

// ---------------------------------------------------------------------------------------- rows of a side

TEST_F(RowCounts, AnEmptyEngineHasNoRowsInAnyStyle)
{
    for (const int style : {2, 3, 4, 5}) {
        size(600, style);
        EXPECT_EQ(delta(), "0 0 0") << style;
        setRows({}, {});
        EXPECT_EQ(delta(), "0 0 0") << style;
    }
}

TEST_F(RowCounts, ColumnsAreCountedWithTheBarWhetherItIsShownOrNot)
{
    // Twelve sell orders: 2 columns make 6 rows, 3 make 4. In first-level detail one more for the summary.
    setRows({levelWith("sell 10.01 level=1", 12)}, {});
    const struct
    {
        int style, width;
        const char* rows;
    } table[] = {
        {3, 430, "6 0 120"}, {3, 431, "4 0 80"},  // 431 - 4 * 65 - 10 - 6 - 5 = 150
        {4, 761, "6 0 120"}, {4, 762, "4 0 80"},  // 762 / 2 - 3 * 65 - 20 - 6 - 10 = 150
        {5, 461, "6 0 120"}, {5, 462, "4 0 80"},  // 462 / 2 - 65 - 6 - 10 = 150
        {2, 319, "7 1 140"}, {2, 320, "5 1 100"}, // 320 / 2 - 10 = 150
    };
    for (const bool shown : {false, true}) {
        view.m_scrollBar->setVisible(shown);
        for (const auto& row : table) {
            size(row.width, row.style);
            EXPECT_EQ(delta(), row.rows) << "style " << row.style << " width " << row.width;
        }
    }
}

TEST_F(RowCounts, TooNarrowForOneColumnCountsNothing)
{
    setPlainRows(10, 3);
    size(330, 3); // 330 - 281 = 49
    EXPECT_EQ(delta(), "0 0 0");
    size(331, 3);
    EXPECT_NE(delta(), "0 0 0");
    size(320, 4); // 160 - 231 below 0
    EXPECT_EQ(delta(), "0 0 0");
    size(261, 5); // 130 - 81 = 49
    EXPECT_EQ(delta(), "0 0 0");
    size(118, 2); // 59 - 10 = 49
    EXPECT_EQ(delta(), "0 0 0");
    size(120, 2);
    EXPECT_NE(delta(), "0 0 0");
}

TEST_F(RowCounts, OnlyTheFirstLevelWrapsInVerticalAndListStyle)
{
    setPlainRows(10, 9);
    size(600, 5); // 4 columns
    EXPECT_EQ(delta(), "12 12 240");
    size(600, 4); // 1 column
    EXPECT_EQ(delta(), "18 18 360");
    view.setLevels(0);
    EXPECT_EQ(delta(), "13 13 260");
}

TEST_F(RowCounts, SidesAreCountedApart)
{
    setRows({levelWith("sell 10.01 level=1", 9), levelWith("sell 10.02 level=2", 9)},
            {levelWith("buy 10.00 level=1", 2), levelWith("buy 9.99 level=2", 9)});
    size(600, 5); // 4 columns
    EXPECT_EQ(delta(), "4 2 80");
    size(600, 3); // 6 columns
    EXPECT_EQ(delta(), "4 3 80");
}

TEST_F(RowCounts, FirstLevelDetailCountsASummaryRowForEachLevelAndTheOrdersOfTheFirst)
{
    setRows({levelWith("sell 10.01 level=1", 9), levelWith("sell 10.02 level=2", 9),
             levelWith("sell 10.03 level=3", 9)},
            {levelWith("buy 10.00 level=1", 2), levelWith("buy 9.99 level=2", 9),
             levelWith("buy 9.98 level=3", 9)});
    size(600, 2); // 5 columns
    EXPECT_EQ(delta(), "5 4 100");
    view.setQueueFull(true);
    EXPECT_EQ(delta(), "9 8 180");
}

TEST_F(RowCounts, AFullQueueWrapsEveryLevelInEveryStyle)
{
    setPlainRows(3, 9);
    view.setQueueFull(true);
    size(600, 5); // 4 columns
    EXPECT_EQ(delta(), "9 9 180");
    size(600, 4); // 1 column
    EXPECT_EQ(delta(), "27 27 540");
}

TEST_F(RowCounts, HorizontalStyleWrapsEveryLevel)
{
    setPlainRows(10, 9);
    size(600, 3); // 6 columns
    EXPECT_EQ(delta(), "20 20 400");
    view.setLevels(0);
    EXPECT_EQ(delta(), "10 10 200");
}

TEST_F(RowCounts, ALevelWithOneRowOnlyCountsForBothSidesBeyondTheFirst)
{
    setRows({levelWith("sell 10.01 level=1", 1), levelWith("sell 10.02 level=2", 1)}, {});
    size(600, 5);
    EXPECT_EQ(delta(), "2 1 40");
    size(600, 2);
    EXPECT_EQ(delta(), "3 2 60");
    size(600, 3);
    EXPECT_EQ(delta(), "2 0 40");
}

TEST_F(RowCounts, ALevelWithoutEitherRowAddsNothing)
{
    setRows({levelWith("sell 10.01 level=1", 1), "", levelWith("sell 10.03 level=3", 1)},
            {levelWith("buy 10.00 level=1", 1), "", levelWith("buy 9.98 level=3", 1)});
    size(600, 5);
    EXPECT_EQ(delta(), "2 2 40");
    size(600, 2);
    EXPECT_EQ(delta(), "3 3 60");
}

TEST_F(RowCounts, ARowWithoutAPriceCountsAsWell)
{
    setRows({"sell 0 level=1"}, {levelWith("buy 10.00 level=1", 1)});
    size(600, 5);
    EXPECT_EQ(delta(), "1 1 20");
    size(600, 3);
    EXPECT_EQ(delta(), "1 1 20");
}

// ---------------------------------------------------------------------------------------- place of a row

TEST_F(RowCounts, RowsGoDownFromTheTopLessTheScroll)
{
    view.m_scrollTop = 30;
    view.m_centerY = 500; // of no account outside the horizontal style
    view.m_scrollPos = 7; // neither
    for (const Kel::EOrderQueueType side : {Kel::OQT_SELL, Kel::OQT_BUY}) {
        view.setStyle(5);
        EXPECT_EQ(view.getCurTop(0, side), -25);
        EXPECT_EQ(view.getCurTop(3, side), 35);
        view.setStyle(4);
        EXPECT_EQ(view.getCurTop(3, side), 35);
        view.setStyle(2);
        EXPECT_EQ(view.getCurTop(3, side), 40);
    }
}

TEST_F(RowCounts, HorizontalRowsGoUpAndDownFromTheCentre)
{
    view.setStyle(3);
    view.m_centerY = 200;
    view.m_scrollTop = 30;
    EXPECT_EQ(view.getCurTop(0, Kel::OQT_SELL), 155);
    EXPECT_EQ(view.getCurTop(2, Kel::OQT_SELL), 115);
    EXPECT_EQ(view.getCurTop(0, Kel::OQT_BUY), 175);
    EXPECT_EQ(view.getCurTop(2, Kel::OQT_BUY), 215);
}
