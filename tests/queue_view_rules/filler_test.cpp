// Volume of unknown orders: filler cells, and a level that holds less than its orders.

#include "QueueViewFixture.h"

using namespace queue_view_rules;

namespace {

const QRect kFirst(70, 5, 50, 20);

class Filler : public QueueViewTest
{
protected:
    Filler()
    {
        layOut(600, 400);
        view.setStyle(5);
    }

    Drawing sell(const std::string& tail, int cols) { return cells("sell 10.01 level=1" + tail, cols); }
    std::string sells(const std::string& tail, int cols, int rows)
    {
        return grid(sell(tail, cols), kFirst, cols, rows);
    }
    static QRect ground(int col, int row = 0) { return {73 + 50 * col, 6 + 20 * row, 48, 18}; }
};

} // namespace

TEST_F(Filler, FollowsTheOrdersInThousandsAndTheRest)
{
    EXPECT_EQ(sells(" unknown=2500; 1 10 normal; 2 20 normal", 6, 1), "10 20 1000 1000 500 -");
    EXPECT_EQ(sells(" unknown=2000", 4, 1), "1000 1000 - -");
    EXPECT_EQ(sells(" unknown=1", 4, 1), "1 - - -");
}

TEST_F(Filler, IsRounded)
{
    EXPECT_EQ(sells(" unknown=999.4", 3, 1), "999 - -");
    EXPECT_EQ(sells(" unknown=999.5", 3, 1), "1000 - -");
    EXPECT_EQ(sells(" unknown=1000.4", 3, 1), "1000 - -");
    EXPECT_EQ(sells(" unknown=1000.5", 3, 1), "1000 1 -");
    EXPECT_EQ(sells(" unknown=0.4; 1 10 normal", 3, 1), "10 - -");
    EXPECT_EQ(sells(" unknown=0.5; 1 10 normal", 3, 1), "10 1 -");
}

TEST_F(Filler, HasTheGroundOfItsSize)
{
    const Drawing drawing = sell(" unknown=1500", 4);
    EXPECT_TRUE(filled(drawing, ground(0), "ic_clr_depth_queue_big_order_sell"));
    EXPECT_TRUE(filled(drawing, ground(1), "ic_clr_graph_kline_bg"));
    const Drawing whole = sell(" unknown=2000", 4);
    EXPECT_TRUE(filled(whole, ground(1), "ic_clr_depth_queue_big_order_sell"));
}

TEST_F(Filler, TheLastOneShownCarriesAllThatRemains)
{
    view.m_maxShowCount = 9;
    // 2 orders, 12 fillers, cut after ten cells; the tenth, an ellipsis, has 12000 - 7 * 1000 = 5000 lots.
    const Drawing super = sell(" unknown=12000; 1 10 normal; 2 20 normal", 10);
    EXPECT_EQ(grid(super, kFirst, 10, 1), "10 20 1000 1000 1000 1000 1000 1000 1000 ...");
    EXPECT_TRUE(filled(super, ground(9), "ic_clr_depth_queue_super_sell"));
    const Drawing big = sell(" unknown=11999; 1 10 normal; 2 20 normal", 10);
    EXPECT_TRUE(filled(big, ground(9), "ic_clr_depth_queue_big_order_sell"));
}

TEST_F(Filler, WithoutACutTheLastOneIsShownAsItIs)
{
    view.m_maxShowCount = 1000;
    EXPECT_EQ(sells(" unknown=3999", 5, 1), "1000 1000 1000 999 -");
}

TEST_F(Filler, IsCutWithItsLevel)
{
    const Drawing drawing = cells(levelWith("sell 10.01 level=1 unknown=90000", 48, 7), 10);
    EXPECT_EQ(countOf(drawing, "7"), 48);
    EXPECT_EQ(countOf(drawing, "1000"), 2);
    EXPECT_EQ(countOf(drawing, "..."), 1);
}

TEST_F(Filler, DoesNotDependOnTheScroll)
{
    view.m_scrollTop = 44; // three rows at -39, -19, 1
    EXPECT_EQ(grid(sell(" unknown=2500", 1), QRect(70, 1, 50, 20), 1, 1), "500");
    view.m_scrollTop = 24; // -19, 1, 21
    EXPECT_EQ(grid(sell(" unknown=2500", 1), QRect(70, 1, 50, 20), 1, 2), "1000\n500");
}

TEST_F(Filler, CountsForOrdersBeforeTheStart)
{
    EXPECT_EQ(sells(" start=2 unknown=1500; 1 10 normal; 2 20 normal; 3 30 normal", 4, 1), "30 1000 500 -");
}

TEST_F(Filler, StandsAloneWhenTheStartIsTheEndOfTheList)
{
    EXPECT_EQ(sells(" start=2 unknown=1500; 1 10 normal; 2 20 normal", 3, 1), "1000 500 -");
}

TEST_F(Filler, OfAnyKindOfNumberIsHarmless)
{
    for (const char* unknown : {"nan", "inf", "-inf", "1e300", "-1e300", "3e9"}) {
        cells(std::string("sell 10.01 level=1 unknown=") + unknown + "; 1 10 normal", 4);
        EXPECT_TRUE(counted) << unknown;
        EXPECT_GE(view.getStoreyNum(4, testing_support::parseLevelPtr(
                                           std::string("sell 10.01 level=1 unknown=") + unknown)),
                  1)
            << unknown;
    }
}

TEST_F(Filler, ANegativeOneShortensTheFirstOrderAlone)
{
    EXPECT_EQ(sells(" unknown=-30; 1 100 normal; 2 100 normal", 3, 1), "70 100 -");
    EXPECT_EQ(sells(" unknown=-30 start=1; 1 100 normal; 2 100 normal; 3 100 normal", 3, 1), "70 100 -");
    EXPECT_EQ(sells(" unknown=-30.6; 1 100 normal", 3, 1), "69 - -"); // 100 - 30.6 + 0.5 = 69.9
}

TEST_F(Filler, ANegativeOneLeavesAtLeastOne)
{
    EXPECT_EQ(sells(" unknown=-300; 1 100 normal; 2 100 normal", 3, 1), "1 100 -");
    EXPECT_EQ(sells(" unknown=-100; 1 100 normal", 3, 1), "1 - -");
}

TEST_F(Filler, WithinTheToleranceIsNone)
{
    EXPECT_EQ(sells(" unknown=-0.00001; 1 100.500005 normal", 3, 1), "101 - -");
    EXPECT_EQ(sells(" unknown=-0.00002; 1 100.500005 normal", 3, 1), "100 - -");
    EXPECT_EQ(sells(" unknown=0.00001; 1 100 normal", 3, 1), "100 - -");
}
