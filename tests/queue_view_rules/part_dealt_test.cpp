// The cell of a part-dealt order and the place of its call-out.

#include "QueueViewFixture.h"

using namespace queue_view_rules;

namespace {

const QRect kFirst(70, 5, 50, 20);
const QString kSellPrice = "kel_clr_deptch_order_queue_price_fall";
const QString kVolumeFont = "ic_fnt_index_modulegroup_transaction";

class PartDealt : public QueueViewTest
{
protected:
    PartDealt()
    {
        layOut(600, 400);
        view.setStyle(5);
    }

    Drawing sell(const std::string& tail, int cols) { return cells("sell 10.01 level=1" + tail, cols); }
    std::string sells(const std::string& tail, int cols, int rows)
    {
        return grid(sell(tail, cols), kFirst, cols, rows);
    }
    static QRect cell(int col, int row = 0) { return kFirst.translated(50 * col, 20 * row); }

    /// Where a call-out that opens to the right has its tip, for a text at the end of this cell.
    static std::string tipRight(const QRect& cell)
    {
        return std::to_string(cell.x() + 50) + "," + std::to_string(cell.y() + 10);
    }
    static std::string tipLeft(const QRect& cell, const QString& text)
    {
        return std::to_string(cell.x() + 50 - textWidth(text, kVolumeFont)) + "," +
               std::to_string(cell.y() + 10);
    }

    /// First corners of all paths, each once.
    static std::string tips(const Drawing& drawing)
    {
        std::string all;
        std::string last;
        for (const std::string& path : outlines(drawing)) {
            const std::string tip = path.substr(0, path.find(' '));
            if (tip != last)
                all += (all.empty() ? "" : " ") + tip;
            last = tip;
        }
        return all;
    }

    /// Whether the call-out, which has its tip and a corner 5 further left or right, opens to the left.
    static bool opensLeft(const Drawing& drawing)
    {
        for (const PaintCommand& command : drawing) {
            if (command.kind == PaintCommand::ePath)
                return command.path.elementAt(1).x < command.path.elementAt(0).x;
        }
        return false;
    }
};

} // namespace

TEST_F(PartDealt, TheOrdersAfterItMoveOnByOneCell)
{
    EXPECT_EQ(sells(" hasPart; 1 10 normal; 2 20 part 5; 3 30 normal; 4 40 normal", 6, 1), "10 20 - 30 40 -");
    EXPECT_EQ(sells(" hasPart; 1 10 normal; 2 20 part 5; 3 30 normal; 4 40 normal", 3, 2),
              "10 20 -\n30 40 -");
    EXPECT_EQ(sells(" hasPart; 1 10 normal; 2 20 part 5; 3 30 normal; 4 40 normal", 2, 3),
              "10 20\n- 30\n40 -");
}

TEST_F(PartDealt, WithoutADealtShareOfTheLevelNothingMoves)
{
    EXPECT_EQ(sells("; 1 10 normal; 2 20 part 5; 3 30 normal; 4 40 normal", 5, 1), "10 20 30 40 -");
}

TEST_F(PartDealt, OnlyTheLastOneMovesWhatFollows)
{
    EXPECT_EQ(sells(" hasPart; 1 10 part 5; 2 20 part 5; 3 30 normal", 5, 1), "10 20 - 30 -");
    EXPECT_EQ(sells(" hasPart; 1 10 part 5; 2 20 normal; 3 30 part 7", 5, 1), "10 20 30 - -");
}

TEST_F(PartDealt, OneBeforeTheStartMovesNothing)
{
    EXPECT_EQ(sells(" hasPart start=1; 1 10 part 5; 2 20 normal; 3 30 normal", 4, 1), "20 30 - -");
}

TEST_F(PartDealt, NoneAtAllMovesNothing)
{
    EXPECT_EQ(sells(" hasPart; 1 10 normal; 2 20 normal", 4, 1), "10 20 - -");
    EXPECT_EQ(sells(" hasPart", 4, 1), "- - - -");
}

TEST_F(PartDealt, FillerMovesOnAsWell)
{
    EXPECT_EQ(sells(" hasPart unknown=1500; 1 10 part 5; 2 20 normal", 6, 1), "10 - 20 1000 500 -");
}

TEST_F(PartDealt, OneBehindTheCutIsNotLookedFor)
{
    view.m_maxShowCount = 2; // shown: 3
    EXPECT_EQ(sells(" hasPart; 1 10 part 5; 2 20 normal; 3 30 normal; 4 40 part 7", 6, 1), "10 - 20 ... - -");
}

TEST_F(PartDealt, TheOneAtTheCutIsLookedFor)
{
    view.m_maxShowCount = 2;
    const Drawing drawing = sell(" hasPart; 1 10 part 5; 2 20 normal; 3 30 part 7; 4 40 normal", 6);
    EXPECT_EQ(grid(drawing, kFirst, 6, 1), "10 20 ... - - -");
}

TEST_F(PartDealt, TheSearchBeginsBeforeAsManyOrdersAsThereIsFiller)
{
    // Ten fillers, 48 orders, cut at 51 cells: the search begins at order 40 and does not see order 45.
    std::string tail = " hasPart unknown=10000";
    for (int i = 0; i < 48; ++i)
        tail +=
            "; " + std::to_string(i + 1) + " " + std::to_string(100 + i) + (i == 45 ? " part 5" : " normal");
    view.resize(6000, 400);
    EXPECT_EQ(grid(sell(tail, 100), cell(44), 4, 1), "144 145 146 147");
    tail.replace(tail.find("; 41 140 normal"), 15, "; 41 140 part 3");
    EXPECT_EQ(grid(sell(tail, 100), cell(39), 4, 1), "139 140 - 141");
    tail.replace(tail.find("; 41 140 part 3"), 15, "; 41 140 normal");
    tail.replace(tail.find("; 42 141 normal"), 15, "; 42 141 part 3");
    EXPECT_EQ(grid(sell(tail, 100), cell(39), 4, 1), "139 140 141 142") << "order 41 is the first not seen";
}

TEST_F(PartDealt, TheMoveDoesNotDependOnTheScroll)
{
    const std::string tail = " hasPart; 1 10 part 5; 2 20 normal; 3 30 normal; 4 40 normal";
    ASSERT_EQ(sells(tail, 2, 3), "10 -\n20 30\n40 -");
    view.m_scrollTop = 20; // the part-dealt order is out of view
    EXPECT_EQ(sells(tail, 2, 2), "20 30\n40 -");
    view.m_scrollTop = 40;
    EXPECT_EQ(sells(tail, 2, 1), "40 -");
}

TEST_F(PartDealt, ACellWithADealtShareIsGrayOnTheGroundOfItsText)
{
    const Drawing drawing = sell(" hasPart; 1 10 normal; 2 20 part 5; 3 30 normal", 6);
    const int dx = 50 - textWidth("20", kVolumeFont);
    EXPECT_TRUE(filled(drawing, QRect(120 + dx, 6, 50 - dx, 18), "ic_clr_depth_queue_blue"));
    EXPECT_FALSE(filledAny(drawing, QRect(123, 6, 48, 18)));
    EXPECT_EQ(cellColor(drawing, cell(1)), themeColor("ic_clr_graph_gray"));
    EXPECT_EQ(cellColor(drawing, cell(3)), themeColor(kSellPrice)) << "the others keep their colour";
}

TEST_F(PartDealt, ACellWithoutADealtShareKeepsTheColourOfTheSide)
{
    for (const char* dealt : {"0", "0.00001"}) {
        const Drawing drawing = sell(std::string("; 1 10 normal; 2 20 part ") + dealt, 6);
        EXPECT_EQ(grid(drawing, kFirst, 3, 1), "10 20 -");
        EXPECT_EQ(cellColor(drawing, cell(1)), themeColor(kSellPrice));
        const int dx = 50 - textWidth("20", kVolumeFont);
        EXPECT_FALSE(filledAny(drawing, QRect(120 + dx, 6, 50 - dx, 18)));
        EXPECT_EQ(tips(drawing), "");
    }
}

TEST_F(PartDealt, OnBuysAsWell)
{
    const Drawing drawing = cells("buy 10.00 level=1 hasPart; 1 20 part 5; 2 30 normal", 4);
    const QRect first(370, 5, 50, 20);
    EXPECT_EQ(grid(drawing, first, 3, 1), "20 - 30");
    EXPECT_EQ(tips(drawing), tipRight(first));
    EXPECT_EQ(cellColor(drawing, first), themeColor("ic_clr_graph_gray"));
}

TEST_F(PartDealt, OnlyTheLastOneInViewIsFinished)
{
    const Drawing drawing = sell(" hasPart; 1 10 part 5; 2 20 part 6; 3 30 normal", 6);
    EXPECT_EQ(cellColor(drawing, cell(0)), themeColor(kSellPrice));
    EXPECT_EQ(cellColor(drawing, cell(1)), themeColor("ic_clr_graph_gray"));
    EXPECT_EQ(tips(drawing), tipRight(cell(1)));

    // One a row, call-out counted: orders at rows 0, 1 and 3; only row 0 and the first order in view.
    view.resize(600, 20);
    const Drawing cut = sell(" hasPart; 1 10 part 5; 2 20 part 6; 3 30 normal", 1);
    EXPECT_EQ(cellColor(cut, cell(0)), themeColor("ic_clr_graph_gray"));
    EXPECT_EQ(countOf(cut, "5"), 1);
    EXPECT_EQ(countOf(cut, "6"), 0);
}

TEST_F(PartDealt, OutOfViewNothingIsFinished)
{
    view.m_scrollTop = 20;
    const Drawing drawing = sell(" hasPart; 1 10 part 5; 2 20 normal; 3 30 normal", 2);
    EXPECT_EQ(tips(drawing), "");
    EXPECT_EQ(texts(drawing), "20 30");
}

TEST_F(PartDealt, TheCallOutStandsInTheCellAfterIt)
{
    const Drawing drawing = sell(" hasPart; 1 10 normal; 2 20 part 5; 3 30 normal", 4);
    EXPECT_EQ(tips(drawing), tipRight(cell(1)));
    EXPECT_FALSE(opensLeft(drawing));
    EXPECT_EQ(countOf(drawing, "成"), 1);
}

TEST_F(PartDealt, TheCallOutIsDrawnWithoutADealtShareOfTheLevelAsWell)
{
    const Drawing drawing = sell("; 1 10 normal; 2 20 part 5; 3 30 normal", 4);
    EXPECT_EQ(tips(drawing), tipRight(cell(1)));
}

TEST_F(PartDealt, TheCallOutFoldsToTheLeftAtTheIndexOfTheLastColumn)
{
    const Drawing drawing = sell(" hasPart; 1 10 normal; 2 20 part 5; 3 30 normal", 2);
    EXPECT_EQ(tips(drawing), tipLeft(cell(1), "20"));
    EXPECT_TRUE(opensLeft(drawing));
}

TEST_F(PartDealt, TheIndexAndNotTheColumnDecidesWhereItFolds)
{
    // Index 3 stands in the last column of the second row, and the call-out opens to the right all the same.
    const Drawing second = sell(" hasPart; 1 10 normal; 2 15 normal; 3 18 normal; 4 20 part 5", 2);
    EXPECT_EQ(tips(second), tipRight(cell(1, 1)));
    EXPECT_FALSE(opensLeft(second));
    // Index 1 stands in the first column when the level starts there, and the call-out folds.
    const Drawing started = sell(" hasPart start=1; 1 10 normal; 2 20 part 5; 3 30 normal", 2);
    EXPECT_EQ(tips(started), tipLeft(cell(0), "20"));
    EXPECT_TRUE(opensLeft(started));
}

TEST_F(PartDealt, ItsTextStandsAtTheRightOfItsCell)
{
    const Drawing drawing = sell(" hasPart; 1 20.5 part 5; 2 30 normal", 4);
    EXPECT_TRUE(shows(drawing, "21", cell(0), kRight, "ic_clr_graph_gray", kVolumeFont));
    EXPECT_TRUE(shows(sell("; 1 0.1 part 5", 4), "1", cell(0), kRight, "ic_clr_graph_gray"));
}

TEST_F(PartDealt, ANegativeFillerShortensItWhateverItsIndex)
{
    // In the loop only the first order is shortened, at the end the part-dealt one as well.
    const Drawing drawing = sell(" hasPart unknown=-30; 1 100 normal; 2 200 part 5; 3 300 normal", 6);
    EXPECT_EQ(grid(drawing, kFirst, 4, 1), "70 170 - 300");
    EXPECT_EQ(countOf(drawing, "200"), 1) << "drawn in the loop, painted over at the end";
    EXPECT_EQ(sells(" hasPart unknown=-300; 1 100 normal; 2 200 part 5", 3, 1), "1 1 -");
}

TEST_F(PartDealt, APositiveFillerDoesNotLengthenIt)
{
    EXPECT_EQ(sells(" hasPart unknown=500; 1 100 part 5; 2 200 normal", 5, 1), "100 - 200 500 -");
}

TEST_F(PartDealt, ItIsAnEllipsisWhenItsIndexIsTheMostShown)
{
    view.m_maxShowCount = 2;
    EXPECT_EQ(sells(" hasPart; 1 10 normal; 2 15 normal; 3 20 part 5; 4 30 normal", 5, 1), "10 15 ... - -");
    // With a start the loop goes by the place, the end by the index.
    const Drawing byIndex = sell(" hasPart start=1; 1 10 normal; 2 15 normal; 3 20 part 5; 4 30 normal", 6);
    EXPECT_EQ(grid(byIndex, kFirst, 5, 1), "15 ... - ... -");
    EXPECT_EQ(countOf(byIndex, "20"), 1);
    const Drawing byPlace = sell(" hasPart start=1; 1 10 normal; 2 15 normal; 3 18 normal; 4 20 part 5", 6);
    EXPECT_EQ(grid(byPlace, kFirst, 5, 1), "15 18 20 - -");
    EXPECT_EQ(countOf(byPlace, "..."), 1);
}

TEST_F(PartDealt, ItsBoxFollowsTheTextThatItShows)
{
    view.m_maxShowCount = 1;
    const Drawing drawing = sell(" hasPart; 1 10 normal; 2 20000 part 5", 4);
    const int dx = 50 - textWidth("...", kVolumeFont);
    EXPECT_TRUE(filled(drawing, QRect(120 + dx, 6, 50 - dx, 18), "ic_clr_depth_queue_blue"));
}

TEST_F(PartDealt, ItIsDrawnInTheLoopWithoutAGround)
{
    const Drawing drawing = sell("; 1 10 part 5; 2 20 part 6", 4);
    EXPECT_FALSE(filledAny(drawing, QRect(73, 6, 48, 18)));
    EXPECT_EQ(grid(drawing, kFirst, 2, 1), "10 20");
    EXPECT_EQ(countOf(drawing, "10"), 1);
    EXPECT_EQ(countOf(drawing, "20"), 2);
}

TEST_F(PartDealt, TheExtraCellIsTheOneThatTheRowsCount)
{
    const auto level = testing_support::parseLevelPtr(
        "sell 10.01 level=1 hasPart; 1 10 normal; 2 20 part 5; 3 30 normal; 4 40 normal");
    EXPECT_EQ(view.getStoreyNum(2, level), 3);
    EXPECT_EQ(grid(cells(level, 2), kFirst, 2, 4), "10 20\n- 30\n40 -\n- -");
}
