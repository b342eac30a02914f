// Where things stand on the chart.

#include "holographic/ChartGeometry.h"
#include "records/Tolerance.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Kel;

namespace {

constexpr int kIntMax = std::numeric_limits<int>::max();

/// 600 pixels for 200 units: a unit is three pixels wide.
ChartGeometry usual()
{
    ChartGeometry scales;
    scales.chartWidth = 600;
    scales.chartHeight = 325;
    scales.viewExtent = 200;
    scales.startIndex = 40;
    scales.rowHeight = 25;
    scales.halfRow = 12;
    scales.fullHeightHand = 500;
    scales.maxPrice = 10.10;
    scales.priceTick = 0.01;
    return scales;
}

} // namespace

TEST(ChartGeometry, TheFirstDealStandsAtTheLeftAndAllOthersOneUnitFurther)
{
    const ChartGeometry scales = usual();
    EXPECT_DOUBLE_EQ(scales.scale(), 3);
    EXPECT_EQ(scales.leftX(40, 0), 0);
    EXPECT_EQ(scales.leftX(41, 5), (1 + 1 + 5) * 3);
    EXPECT_EQ(scales.leftX(43, 9), (3 + 1 + 9) * 3);
}

TEST(ChartGeometry, PlacesAreTruncated)
{
    ChartGeometry scales = usual();
    scales.viewExtent = 700; // 0.857 pixels a unit
    EXPECT_EQ(scales.leftX(41, 0), 1);
    EXPECT_EQ(scales.leftX(42, 3), 5);
    EXPECT_EQ(scales.rightX(3, 5), 7) << "5 + 2.57";
    EXPECT_EQ(scales.barWidth(3), 3) << "rounded";
    EXPECT_EQ(scales.gap(), 1);
    scales.viewExtent = 7000;
    EXPECT_EQ(scales.barWidth(3), 1) << "nothing is narrower than a pixel";
    EXPECT_EQ(scales.gap(), 1);
    EXPECT_EQ(usual().gap(), 3);
}

TEST(ChartGeometry, TheLastDealOfAFullViewEndsWithinTheChart)
{
    ChartGeometry scales = usual();
    scales.startIndex = 0;
    const int lots[] = {3, 7, 1, 90, 4};
    scales.viewExtent = 5 + 3 + 7 + 1 + 90 + 4;
    std::int64_t before = 0;
    int right = 0;
    for (int index = 0; index < 5; ++index) {
        const int left = scales.leftX(index, before);
        EXPECT_GE(left, right) << "right ends never fall";
        right = scales.rightX(lots[index], left);
        before += lots[index];
    }
    EXPECT_LE(right, 600);
}

TEST(ChartGeometry, APriceStandsInTheMiddleOfItsRow)
{
    ChartGeometry scales = usual();
    EXPECT_EQ(scales.priceToY(10.10), 12);
    EXPECT_EQ(scales.priceToY(10.07), 12 + 3 * 25);
    EXPECT_EQ(scales.priceToY(10.07499), 12 + 3 * 25) << "to the nearest row";
    scales.topPadRows = 4;
    EXPECT_EQ(scales.priceToY(10.10), 12 + 4 * 25);
    scales.topPadRows = 0;
    scales.scrollRow = 5;
    EXPECT_EQ(scales.priceToY(10.10), 12 - 5 * 25);
    scales.rowHeight = 7;
    EXPECT_EQ(scales.priceToY(10.05), 3);
}

TEST(ChartGeometry, APriceAboveTheHighestHasNoPlace)
{
    EXPECT_EQ(usual().priceToY(10.11), -1);
    EXPECT_EQ(usual().priceToY(10.10 + 1e-9), 12) << "equal within the tolerance";
}

TEST(ChartGeometry, APriceFarOutsideIsPlacedFarAway)
{
    EXPECT_EQ(usual().priceToY(-1e9), 1 << 20);
    EXPECT_EQ(usual().priceToY(std::numeric_limits<double>::lowest()), 1 << 20);
    ChartGeometry scales = usual();
    scales.scrollRow = kIntMax;
    EXPECT_EQ(scales.priceToY(10.10), -(1 << 20));
}

TEST(ChartGeometry, PlacesAndWidthsCanBeAddedWhateverTheViewHolds)
{
    constexpr int kFar = 1 << 20;
    ChartGeometry scales = usual();
    scales.viewExtent = 1;
    EXPECT_EQ(scales.leftX(41, std::numeric_limits<std::int64_t>::max() / 2), kFar);
    EXPECT_EQ(scales.leftX(std::numeric_limits<int>::min(), 0), -kFar);
    EXPECT_EQ(scales.rightX(kIntMax, kIntMax), kFar);
    EXPECT_EQ(scales.barWidth(kIntMax), kFar);
    scales.chartWidth = kIntMax;
    EXPECT_EQ(scales.gap(), kFar);
}

TEST(ChartGeometry, BarsGrowWithTheOrderUpToTheHalfRow)
{
    const ChartGeometry scales = usual();
    EXPECT_EQ(scales.drawHeight(0), 1);
    EXPECT_EQ(scales.drawHeight(1), 1) << "any order is seen";
    EXPECT_EQ(scales.drawHeight(83), 1);
    EXPECT_EQ(scales.drawHeight(84), 2);
    EXPECT_EQ(scales.drawHeight(499), 11);
    EXPECT_EQ(scales.drawHeight(500), 12);
    EXPECT_EQ(scales.drawHeight(kIntMax), 12);
    EXPECT_EQ(scales.lineHeight(41), 0);
    EXPECT_EQ(scales.lineHeight(42), 1);
    EXPECT_EQ(scales.lineHeight(500), 12);
}

TEST(ChartGeometry, NothingIsDividedByZero)
{
    ChartGeometry scales = usual();
    EXPECT_TRUE(scales.holdsDeals());
    scales.fullHeightHand = 0;
    EXPECT_FALSE(scales.holdsDeals());
    EXPECT_EQ(scales.drawHeight(100), 1);
    EXPECT_EQ(scales.lineHeight(100), 0);
    scales = usual();
    scales.viewExtent = 0;
    EXPECT_FALSE(scales.holdsDeals());
    EXPECT_EQ(scales.leftX(50, 7), 0);
    EXPECT_EQ(scales.rightX(9, 4), 4);
    EXPECT_EQ(scales.barWidth(9), 1);
    for (int ChartGeometry::*size : {&ChartGeometry::chartWidth, &ChartGeometry::chartHeight}) {
        for (const int value : {0, -50}) {
            scales = usual();
            scales.*size = value;
            EXPECT_FALSE(scales.holdsDeals());
        }
    }
}

// Rows
// -----------------------------------------------------------------------------------------------------------------

namespace {

LadderRows rowsOf(int rowHeight = 25, int halfRow = 12, int scrollRow = 0)
{
    LadderRows rows;
    rows.rowHeight = rowHeight;
    rows.halfRow = halfRow;
    rows.scrollRow = scrollRow;
    return rows;
}

LadderRows layOut(const LadderRows& rows, bool fit, int height, double highest, double lowest,
                  double tick = 0.01)
{
    return layOutRows(rows, fit, 12, height, highest, lowest, tick);
}

} // namespace

TEST(LadderRows, AShortLadderStandsCentred)
{
    const LadderRows rows = layOut(rowsOf(25, 12, 3), false, 330, 10.04, 10.00);
    EXPECT_EQ(rows.pageRows, 13);
    EXPECT_EQ(rows.totalRows, 5);
    EXPECT_EQ(rows.topPadRows, 4);
    EXPECT_EQ(rows.scrollRow, 0);
}

TEST(LadderRows, ALadderThatJustFitsNeedsNoScrolling)
{
    const LadderRows rows = layOut(rowsOf(), false, 325, 10.12, 10.00);
    EXPECT_EQ(rows.totalRows, 13);
    EXPECT_EQ(rows.pageRows, 13);
    EXPECT_EQ(rows.topPadRows, 0);
}

TEST(LadderRows, ALongLadderKeepsItsPlace)
{
    const LadderRows rows = layOut(rowsOf(25, 12, 3), false, 325, 10.50, 10.00);
    EXPECT_EQ(rows.totalRows, 51);
    EXPECT_EQ(rows.topPadRows, 0);
    EXPECT_EQ(rows.scrollRow, 3);
    EXPECT_EQ(rows.rowHeight, 25);
}

TEST(LadderRows, FitMakesTheRowsOfALongLadderLow)
{
    const LadderRows rows = layOut(rowsOf(25, 12, 3), true, 325, 10.50, 10.00);
    EXPECT_EQ(rows.rowHeight, 6) << "which need not be odd";
    EXPECT_EQ(rows.halfRow, 3);
    EXPECT_EQ(rows.pageRows, 54);
    EXPECT_EQ(rows.scrollRow, 0);
    EXPECT_EQ(rows.topPadRows, 0);
}

TEST(LadderRows, FitMakesNoRowLowerThanThreePixels)
{
    const LadderRows rows = layOut(rowsOf(), true, 325, 15.00, 10.00);
    EXPECT_EQ(rows.totalRows, 501);
    EXPECT_EQ(rows.rowHeight, 3);
    EXPECT_EQ(rows.halfRow, 1);
    EXPECT_EQ(rows.pageRows, 108);
    EXPECT_EQ(rows.pageStep, 13) << "a page of usual rows";
}

TEST(LadderRows, FitGivesAShortLadderItsUsualRows)
{
    const LadderRows rows = layOut(rowsOf(7, 3), true, 325, 10.04, 10.00);
    EXPECT_EQ(rows.rowHeight, 25);
    EXPECT_EQ(rows.halfRow, 12);
    EXPECT_EQ(rows.topPadRows, 4);
}

TEST(LadderRows, TheHalfInTheCountIsOfTheTick)
{
    // Prices of a tick of one: three rows and a half of the tick make four, where half a row would not.
    EXPECT_EQ(layOut(rowsOf(), false, 325, 13, 10, 1).totalRows, 4);
    EXPECT_EQ(layOut(rowsOf(), false, 325, 13.5, 10, 1).totalRows, 5) << "3.5 + 0.5 + 1";
    EXPECT_EQ(layOut(rowsOf(), false, 325, 10.0394, 10.00).totalRows, 4)
        << "3.94 + 0.005 + 1, not 3.94 + 0.5 + 1";
}

TEST(LadderRows, AChartWithoutHeightHasNoRows)
{
    for (const int height : {0, -40}) {
        for (const bool fit : {false, true}) {
            const LadderRows rows = layOut(rowsOf(), fit, height, 10.5, 10);
            EXPECT_EQ(rows.pageRows, 0);
            EXPECT_GE(rows.rowHeight, 3);
        }
    }
}

TEST(LadderRows, PricesFarApartAreHeldWithinAnInt)
{
    EXPECT_EQ(layOut(rowsOf(), true, 325, 1e300, -1e300).totalRows, kIntMax);
}
