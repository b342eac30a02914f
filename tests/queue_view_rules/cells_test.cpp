// The orders of a level as cells of a grid.

#include "QueueViewFixture.h"

using namespace queue_view_rules;

namespace {

const QString kSellPrice = "kel_clr_deptch_order_queue_price_fall";
const QRect kFirst(70, 5, 50, 20); ///< the first cell of the sell side, list style

/// List style at 600 x 400.
class Cells : public QueueViewTest
{
protected:
    Cells()
    {
        layOut(600, 400);
        view.setStyle(5);
    }

    /// Texts of the first `cols` x `rows` cells of a sell level.
    std::string sells(const std::string& tail, int cols, int rows)
    {
        return grid(cells("sell 10.01 level=1" + tail, cols), kFirst, cols, rows);
    }

    static QRect ground(const QRect& cell) { return {cell.x() + 3, cell.y() + 1, 48, 18}; }
};

} // namespace

TEST_F(Cells, OrdersFillARowAndGoOnInTheNext)
{
    EXPECT_EQ(sells("; 1 10 normal; 2 20 normal; 3 30 normal; 4 40 normal; 5 50 normal", 2, 4),
              "10 20\n30 40\n50 -\n- -");
    EXPECT_EQ(sells("; 1 10 normal; 2 20 normal", 1, 3), "10\n20\n-");
}

TEST_F(Cells, TheyBeginInTheRowOfTheLevel)
{
    const Drawing drawing = cells("sell 10.01 level=1; 1 10 normal; 2 20 normal; 3 30 normal", 2, 3);
    EXPECT_EQ(grid(drawing, QRect(70, 65, 50, 20), 2, 2), "10 20\n30 -");
    EXPECT_EQ(grid(drawing, kFirst, 2, 3), "- -\n- -\n- -");
}

TEST_F(Cells, BuysStandInTheRightHalf)
{
    const Drawing drawing = cells("buy 10.00 level=1; 1 10 normal; 2 20 normal; 3 30 normal", 2);
    EXPECT_EQ(grid(drawing, QRect(370, 5, 50, 20), 2, 2), "10 20\n30 -");
}

TEST_F(Cells, HorizontalSellsGoUpAndBuysDown)
{
    view.setStyle(3);
    view.m_centerY = 200;
    const std::string tail = "; 1 10 normal; 2 20 normal; 3 30 normal";
    EXPECT_EQ(grid(cells("sell 10.01 level=1" + tail, 2, 1), QRect(290, 165, 50, 20), 2, 2, true),
              "10 20\n30 -");
    EXPECT_EQ(grid(cells("buy 10.00 level=1" + tail, 2, 1), QRect(290, 225, 50, 20), 2, 2), "10 20\n30 -");
}

TEST_F(Cells, OrdersBeforeTheStartAreNotDrawn)
{
    EXPECT_EQ(sells(" start=2; 1 10 normal; 2 20 normal; 3 30 normal; 4 40 normal", 3, 1), "30 40 -");
    EXPECT_EQ(sells(" start=4; 1 10 normal; 2 20 normal; 3 30 normal; 4 40 normal", 3, 1), "- - -");
}

TEST_F(Cells, AStartOutsideTheListIsHarmless)
{
    EXPECT_EQ(sells(" start=9; 1 10 normal", 3, 1), "- - -");
    EXPECT_TRUE(counted);
    cells("sell 10.01 level=1 start=-3; 1 10 normal", 3);
    EXPECT_TRUE(counted);
}

TEST_F(Cells, LotsAreRoundedAndNeverBelowOne)
{
    EXPECT_EQ(sells("; 1 0 normal; 2 0.4 normal; 3 0.5 normal; 4 1.4 normal", 4, 1), "1 1 1 1");
    EXPECT_EQ(sells("; 1 1.5 normal; 2 2.49 normal; 3 99.5 normal; 4 -7 normal", 4, 1), "2 2 100 1");
}

TEST_F(Cells, ThePlaceAfterTheMostShownIsAnEllipsisAndTheLast)
{
    view.m_maxShowCount = 4;
    EXPECT_EQ(sells("; 1 10 normal; 2 20 normal; 3 30 normal; 4 40 normal; 5 50 normal", 3, 3),
              "10 20 30\n40 ... -\n- - -");
    EXPECT_EQ(sells("; 1 10 normal; 2 20 normal; 3 30 normal; 4 40 normal; 5 50 normal; 6 60 normal", 3, 3),
              "10 20 30\n40 ... -\n- - -");
    EXPECT_EQ(sells("; 1 10 normal; 2 20 normal; 3 30 normal; 4 40 normal", 3, 3), "10 20 30\n40 - -\n- - -");
}

TEST_F(Cells, FiftyOrdersAreShownByThemselvesAndTheNextAsAnEllipsis)
{
    const Drawing drawing = cells(levelWith("sell 10.01 level=1", 60, 7), 4);
    EXPECT_EQ(countOf(drawing, "7"), 50);
    EXPECT_EQ(countOf(drawing, "..."), 1);
    EXPECT_EQ(grid(drawing, kFirst.translated(0, 12 * 20), 4, 2), "7 7 ... -\n- - - -");
}

TEST_F(Cells, TheCutCountsFromTheStart)
{
    view.m_maxShowCount = 2;
    EXPECT_EQ(
        sells(" start=2; 1 10 normal; 2 20 normal; 3 30 normal; 4 40 normal; 5 50 normal; 6 60 normal", 5, 1),
        "30 40 ... - -");
}

TEST_F(Cells, AnEllipsisHasTheGroundOfItsOrder)
{
    view.m_maxShowCount = 1;
    const Drawing drawing = cells("sell 10.01 level=1; 1 10 normal; 2 9000 super; 3 30 normal", 3);
    EXPECT_EQ(grid(drawing, kFirst, 3, 1), "10 ... -");
    EXPECT_TRUE(filled(drawing, ground(kFirst.translated(50, 0)), "ic_clr_depth_queue_super_sell"));
}

TEST_F(Cells, EachTypeHasItsGroundInsideTheCell)
{
    const struct
    {
        const char* type;
        const char* sell;
        const char* buy;
    } rows[] = {
        {"cancelled", "ic_clr_depth_queue_cancel", "ic_clr_depth_queue_cancel"},
        {"normal", "ic_clr_graph_kline_bg", "ic_clr_graph_kline_bg"},
        {"unknown", "ic_clr_depth_queue_blue", "ic_clr_depth_queue_blue"},
        {"big", "ic_clr_depth_queue_big_order_sell", "ic_clr_depth_queue_big_order_buy"},
        {"super", "ic_clr_depth_queue_super_sell", "ic_clr_depth_queue_super_buy"},
    };
    for (const auto& row : rows) {
        const std::string order = std::string("; 1 10 ") + row.type;
        const Drawing sell = cells("sell 10.01 level=1" + order, 4);
        EXPECT_TRUE(filled(sell, QRect(73, 6, 48, 18), row.sell)) << row.type;
        EXPECT_EQ(grid(sell, kFirst, 1, 1), "10") << row.type;
        EXPECT_EQ(cellColor(sell, kFirst), themeColor(kSellPrice)) << row.type;
        const Drawing buy = cells("buy 10.00 level=1" + order, 4);
        EXPECT_TRUE(filled(buy, QRect(373, 6, 48, 18), row.buy)) << row.type;
        EXPECT_EQ(cellColor(buy, QRect(370, 5, 50, 20)), themeColor("kel_clr_deptch_order_queue_price_rise"))
            << row.type;
    }
}

TEST_F(Cells, ATextStandsOnItsGround)
{
    const Drawing drawing = cells("sell 10.01 level=1; 1 1500 big; 2 6000 super", 4);
    for (std::size_t i = 0; i < drawing.size(); ++i) {
        if (drawing[i].kind != PaintCommand::eText)
            continue;
        for (std::size_t later = i + 1; later < drawing.size(); ++later) {
            EXPECT_FALSE(drawing[later].kind == PaintCommand::eFill &&
                         drawing[later].rect.contains(drawing[i].baseline + QPointF(1, -1)))
                << "painted over: " << drawing[i];
        }
    }
}

TEST_F(Cells, TheTypeAndNotTheLotsGivesTheGround)
{
    EXPECT_TRUE(
        filled(cells("sell 10.01 level=1; 1 9000 normal", 4), ground(kFirst), "ic_clr_graph_kline_bg"));
}

TEST_F(Cells, ADealtOrderHasNoGroundAndTheDefaultColour)
{
    const Drawing drawing = cells("sell 10.01 level=1; 1 10 dealt; 2 20 normal", 4);
    EXPECT_EQ(grid(drawing, kFirst, 2, 1), "10 20");
    EXPECT_FALSE(filledAny(drawing, ground(kFirst)));
    EXPECT_EQ(cellColor(drawing, kFirst), themeColor("ic_clr_entrust_default_text"));
    EXPECT_EQ(cellColor(drawing, kFirst.translated(50, 0)), themeColor(kSellPrice));
}

TEST_F(Cells, AllHaveTheFontOfNumbers)
{
    view.setStyle(4);
    const Drawing drawing = cells("sell 10.01 level=1; 1 10 normal; 2 20 dealt", 4);
    EXPECT_EQ(cellText(drawing, QRect(225, 5, 50, 20)).font, themeFont(view.m_fontVol));
    EXPECT_EQ(cellText(drawing, QRect(275, 5, 50, 20)).font, themeFont(view.m_fontVol));
}

TEST_F(Cells, BothEdgesOfTheHeightAreInView)
{
    const std::string level = levelWith("sell 10.01 level=1", 40, 3);
    view.m_scrollTop = 5; // rows at 0, 20, ..., 400
    EXPECT_EQ(countOf(cells(level, 1), "3"), 21);
    view.m_scrollTop = 6; // rows at -1, 19, ..., 399
    EXPECT_EQ(countOf(cells(level, 1), "3"), 20);
    view.m_scrollTop = 4; // rows at 1, 21, ..., 381, 401
    EXPECT_EQ(countOf(cells(level, 1), "3"), 20);
}

TEST_F(Cells, ALevelBelowTheClientDrawsNothingAndCounts)
{
    EXPECT_EQ(texts(cells(levelWith("sell 10.01 level=1", 40, 3), 1, 25)), "");
    EXPECT_TRUE(counted);
}

TEST_F(Cells, AFullQueueListsTheOrdersOfEveryLevel)
{
    view.setQueueFull(true);
    EXPECT_EQ(grid(cells("sell 10.05 level=5; 1 10 normal; 2 20 normal", 4), kFirst, 3, 1), "10 20 -");
}
