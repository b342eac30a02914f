// The wheel over the chart.

#include "Chart.h"

using namespace testing_support;
using namespace Kel;

namespace {

/// Ten deals on ten rows.
class ChartWheel : public testing::Test
{
protected:
    ChartWheel() { chart.fill(10, 10, 9); }

    Chart chart{600, 325};
};

} // namespace

TEST_F(ChartWheel, TheWheelUpGivesLowRowsTheirHeightBackFirst)
{
    chart.setFullHeightChagne(-2);
    EXPECT_TRUE(chart.wheel(120));
    EXPECT_EQ(chart.m_halfRow, 11);
    EXPECT_TRUE(chart.wheel(120));
    EXPECT_EQ(chart.m_halfRow, 12);
    EXPECT_TRUE(chart.wheel(120));
    EXPECT_EQ(chart.m_halfRow, 12) << "and no more";
    EXPECT_TRUE(chart.wheel(-120));
    EXPECT_EQ(chart.m_halfRow, 12) << "it never takes height away";
}

TEST_F(ChartWheel, TheWheelScrollsALongLadder)
{
    chart.fill(60, 40);
    ASSERT_GT(chart.m_totalRows, chart.m_pageRows);
    chart.wheel(-120);
    const int row = chart.m_scrollRow;
    EXPECT_GT(row, 0);
    chart.wheel(120);
    EXPECT_LT(chart.m_scrollRow, row);
}

TEST_F(ChartWheel, TheWheelIsTakenInTheMiddleAndAtTheEndsButNotAcrossThem)
{
    chart.fill(60, 40);
    const int end = chart.m_scrollBar->maximum();
    for (const int row : {0, 13, end}) {
        for (const int delta : {120, -120}) {
            chart.m_scrollBar->setValue(row);
            EXPECT_TRUE(chart.wheel(delta)) << row << ' ' << delta;
            EXPECT_EQ(chart.m_scrollRow == row, (row == 0 && delta > 0) || (row == end && delta < 0));
        }
    }
    chart.m_scrollBar->setValue(end);
    EXPECT_FALSE(chart.wheel(0, -120)) << "no turn up or down, and the bar has no use for it";
    chart.m_scrollBar->setValue(0);
    EXPECT_FALSE(chart.wheel(0, 120));
}

TEST_F(ChartWheel, TheWheelAtTheEndsIsTakenAndMovesNothing)
{
    chart.fill(60, 40);
    EXPECT_TRUE(chart.wheel(120));
    EXPECT_EQ(chart.m_scrollRow, 0);
    chart.m_scrollBar->setValue(chart.m_scrollBar->maximum());
    EXPECT_TRUE(chart.wheel(-120));
    EXPECT_EQ(chart.m_scrollRow, chart.m_scrollBar->maximum());
}
