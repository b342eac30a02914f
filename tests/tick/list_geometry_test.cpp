#include "tick/tick_list_geometry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using namespace Kel;

namespace {

TickListLayout layout(int width, int height, int others = 196, int price = 60)
{
    TickListLayout result;
    result.setHeight(height);
    result.setWidth(width, others + price, others, price);
    return result;
}

} // namespace

TEST(ListGeometry, AsManyGroupsAsFitBesideTheBar)
{
    // k groups of 256 and k - 1 gaps of 5 in the width less 10
    EXPECT_EQ(layout(266, 100).groupCount, 1);
    EXPECT_EQ(layout(526, 100).groupCount, 1);
    EXPECT_EQ(layout(527, 100).groupCount, 2);
    EXPECT_EQ(layout(787, 100).groupCount, 2);
    EXPECT_EQ(layout(788, 100).groupCount, 3);
}

TEST(ListGeometry, GroupsShareTheWidthAndThePriceGetsTheRest)
{
    const TickListLayout two = layout(600, 100);
    EXPECT_EQ(two.groupWidth, (600 - 10 - 5) / 2);
    EXPECT_EQ(two.priceArea, two.groupWidth - 196);
}

TEST(ListGeometry, TooNarrowAWidthGivesOneGroupAndThePriceKeepsItsLeastRoom)
{
    const TickListLayout narrow = layout(100, 100);
    EXPECT_EQ(narrow.groupCount, 1);
    EXPECT_EQ(narrow.groupWidth, 90);
    EXPECT_EQ(narrow.priceArea, 60);
}

TEST(ListGeometry, RowsStandInTheMiddleOfTheHeight)
{
    EXPECT_EQ(layout(600, 100).rowCount, 5);
    EXPECT_EQ(layout(600, 100).top(), 5);
    EXPECT_EQ(layout(600, 10).rowCount, 1);
    EXPECT_EQ(layout(600, 10).top(), -4);
}

TEST(ListGeometry, RowsFillDownwardThenToTheRight)
{
    const TickListLayout two = layout(600, 94);
    EXPECT_EQ(two.capacity(), 10);
    EXPECT_EQ(two.rowRect(0), QRect(0, 2, 292, 18));
    EXPECT_EQ(two.rowRect(4), QRect(0, 74, 292, 18));
    EXPECT_EQ(two.rowRect(5), QRect(292, 2, 292, 18));
}

TEST(ListGeometry, AHitIsThePlaceUnderThePoint)
{
    const TickListLayout two = layout(600, 94);
    for (int place = 0; place < 10; ++place)
        EXPECT_EQ(two.hit(two.rowRect(place).center()), place);
    EXPECT_EQ(two.hit(QPoint(0, 2)), 0);
    EXPECT_EQ(two.hit(QPoint(291, 19)), 0);
    EXPECT_EQ(two.hit(QPoint(292, 20)), 6);
}

TEST(ListGeometry, GroupsWithoutWidthHaveNoHit)
{
    TickListLayout none = layout(10, 94);
    EXPECT_EQ(none.groupWidth, 0);
    EXPECT_EQ(none.hit(QPoint(3, 30)), -1);
    none = layout(5, 94);
    EXPECT_LT(none.groupWidth, 1);
    EXPECT_EQ(none.hit(QPoint(3, 30)), -1);
}

TEST(ListGeometry, AnOutlineGoesAroundItsRowAndStaysInsideTheWidget)
{
    EXPECT_EQ(outlineInside(QRect(0, 2, 265, 18), QSize(540, 94)), QRect(0, 2, 265, 18));
    EXPECT_EQ(outlineInside(QRect(265, 72, 265, 18), QSize(540, 90)), QRect(265, 72, 265, 17));
    EXPECT_EQ(outlineInside(QRect(0, 0, 100, 18), QSize(100, 18)), QRect(0, 0, 99, 17));
}

namespace {

/// Counts of rows before in runs of these lengths, one after the other, as far as they are counted.
std::vector<int> runsOf(const std::vector<int>& lengths)
{
    std::vector<int> runs;
    for (const int length : lengths) {
        for (int row = 0; row < length; ++row)
            runs.push_back(std::min(row, 32767));
    }
    return runs;
}

} // namespace

TEST(LastOfRun, IsTheRowBeforeTheNextRunOrTheEnd)
{
    const std::vector<int> lengths{1, 2, 5, 1, 1, 32766, 32767, 32768, 32769, 70000, 200000, 3};
    const std::vector<int> runs = runsOf(lengths);
    const auto runOf = [&](int row) {
        return row < static_cast<int>(runs.size()) ? runs[static_cast<std::size_t>(row)] : -1;
    };
    int first = 0;
    for (const int length : lengths) {
        for (const int row : {first, first + length / 3, first + length / 2, first + length - 1})
            EXPECT_EQ(lastOfRun(row, runOf), first + length - 1) << "row " << row << " of " << length;
        first += length;
    }
}

TEST(LastOfRun, AsksOfFewRowsHoweverLongTheRunIs)
{
    int asked = 0;
    const auto runOf = [&](int row) {
        ++asked;
        return row < 4000000 ? std::min(row, 32767) : -1;
    };
    EXPECT_EQ(lastOfRun(30000, runOf), 3999999);
    EXPECT_LT(asked, 5000);
    asked = 0;
    EXPECT_EQ(lastOfRun(3999999, runOf), 3999999);
    EXPECT_EQ(asked, 1);
}
