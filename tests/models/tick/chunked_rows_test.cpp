#include "platform/models/ChunkedRows.h"
#include "platform/models/FilteredIndexes.h"
#include "platform/models/SecondIndex.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Kel;

namespace {

std::vector<int> kept(const FilteredIndexes& indexes)
{
    std::vector<int> result;
    for (int row = 0; row < indexes.size(); ++row)
        result.push_back(indexes.at(row));
    return result;
}

const std::vector<int> kTimes{5, 7, 7, 7, 9, 9};

int timeOf(int row)
{
    return kTimes[static_cast<std::size_t>(row)];
}

} // namespace

TEST(ChunkedRows, RowsStayWhereTheyAreWhileTheListGrows)
{
    ChunkedRows<int, 4> rows;
    rows.append(7);
    const int* const first = &rows[0];
    for (int value = 0; value < 100; ++value)
        rows.append(value);
    EXPECT_EQ(first, &rows[0]);
    EXPECT_EQ(rows[0], 7);
    EXPECT_EQ(rows[100], 99);
    EXPECT_EQ(rows.size(), 101);
}

TEST(ChunkedRows, ACutListGrowsOnFromItsNewEnd)
{
    ChunkedRows<int, 4> rows;
    for (int value = 0; value < 20; ++value)
        rows.append(value);
    rows.truncate(5);
    rows.append(50);
    EXPECT_EQ(rows.size(), 6);
    EXPECT_EQ(rows[4], 4);
    EXPECT_EQ(rows.last(), 50);
    rows.truncate(-1);
    EXPECT_TRUE(rows.isEmpty());
}

TEST(RowsInOrderOfTime, FirstAndLastRowOfASecond)
{
    EXPECT_EQ(rowsOfTime(6, 7, timeOf), std::make_pair(1, 3));
    EXPECT_EQ(rowsOfTime(6, 5, timeOf), std::make_pair(0, 0));
    EXPECT_EQ(rowsOfTime(6, 9, timeOf), std::make_pair(4, 5));
    EXPECT_EQ(rowsOfTime(6, 8, timeOf), std::make_pair(-1, -1));
    EXPECT_EQ(rowsOfTime(6, 10, timeOf), std::make_pair(-1, -1));
    EXPECT_EQ(rowsOfTime(0, 5, timeOf), std::make_pair(-1, -1));
}

TEST(RowsInOrderOfTime, PlaceInTheSecondCountsFromOne)
{
    const int expected[] = {1, 1, 2, 3, 1, 2};
    for (int row = 0; row < 6; ++row)
        EXPECT_EQ(placeInSecond(row, 6, timeOf), expected[row]) << row;
    EXPECT_EQ(placeInSecond(-1, 6, timeOf), 0);
    EXPECT_EQ(placeInSecond(6, 6, timeOf), 0);
}

TEST(RowsInOrderOfTime, PlaceInASecondOfManyRows)
{
    for (int first = 0; first < 40; ++first)
        EXPECT_EQ(placeInSecond(100, 200, [&](int row) { return row < first ? 1 : 2; }), 101 - first)
            << first;
}

TEST(FilteredIndexes, KeepsWhatWasSaidToBeKept)
{
    FilteredIndexes indexes;
    for (const bool keep : {true, true, false, true, false})
        indexes.offer(keep);
    EXPECT_EQ(kept(indexes), (std::vector<int>{0, 1, 3}));
    EXPECT_EQ(indexes.looked(), 5);
    EXPECT_EQ(indexes.rowNotBefore(2), 2);
    EXPECT_EQ(indexes.rowNotBefore(4), 3);
    EXPECT_TRUE(indexes.keeps(3));
    EXPECT_FALSE(indexes.keeps(2));
}

TEST(FilteredIndexes, StoresNothingWhileAllRowsAreKept)
{
    FilteredIndexes indexes;
    for (int index = 0; index < 10000; ++index)
        indexes.offer(true);
    EXPECT_EQ(indexes.heapBytes(), 0u);
    EXPECT_EQ(indexes.size(), 10000);
    EXPECT_EQ(indexes.at(9999), 9999);
}

TEST(FilteredIndexes, RowsTakenBackAreOfferedAgain)
{
    for (const bool withGap : {false, true}) {
        FilteredIndexes indexes;
        for (int index = 0; index < 6; ++index)
            indexes.offer(!withGap || index != 1);
        indexes.truncate(3);
        EXPECT_EQ(indexes.looked(), 3);
        indexes.offer(false);
        indexes.offer(true);
        EXPECT_EQ(kept(indexes), withGap ? (std::vector<int>{0, 2, 4}) : (std::vector<int>{0, 1, 2, 4}));
    }
}

TEST(FilteredIndexes, ANewVerdictPutsARowInOrTakesItOut)
{
    FilteredIndexes indexes;
    for (const bool keep : {true, false, true, false, true})
        indexes.offer(keep);
    EXPECT_TRUE(indexes.judgeAgain({{1, true}, {2, false}, {3, false}, {4, true}}));
    EXPECT_EQ(kept(indexes), (std::vector<int>{0, 1, 4}));
    EXPECT_FALSE(indexes.judgeAgain({{1, true}, {2, false}}));
    EXPECT_FALSE(indexes.judgeAgain({{-1, true}, {5, true}})); // not offered yet
    EXPECT_TRUE(indexes.judgeAgain({{0, false}, {3, true}}));
    EXPECT_EQ(kept(indexes), (std::vector<int>{1, 3, 4}));
}

TEST(FilteredIndexes, ANewVerdictOnAListThatKeptAll)
{
    FilteredIndexes indexes;
    for (int index = 0; index < 4; ++index)
        indexes.offer(true);
    EXPECT_TRUE(indexes.judgeAgain({{2, false}}));
    EXPECT_EQ(kept(indexes), (std::vector<int>{0, 1, 3}));
}

TEST(SecondIndex, KnowsTheRowsOfEachSecondAndTheirPlaces)
{
    SecondIndex index;
    for (const int time : kTimes)
        index.append(time);
    EXPECT_EQ(index.size(), 6);
    EXPECT_EQ(index.rowsOfTime(5), std::make_pair(0, 0));
    EXPECT_EQ(index.rowsOfTime(7), std::make_pair(1, 3));
    EXPECT_EQ(index.rowsOfTime(9), std::make_pair(4, 5));
    EXPECT_EQ(index.rowsOfTime(8), std::make_pair(-1, -1));
    EXPECT_EQ(index.rowsOfTime(10), std::make_pair(-1, -1));
    EXPECT_EQ(index.firstNotBefore(4), 0);
    EXPECT_EQ(index.firstNotBefore(8), 4);
    EXPECT_EQ(index.firstNotBefore(10), 6);
    const int expected[] = {1, 1, 2, 3, 1, 2};
    for (int row = 0; row < 6; ++row)
        EXPECT_EQ(index.placeInSecond(row), expected[row]) << row;
    EXPECT_EQ(index.placeInSecond(-1), 0);
    EXPECT_EQ(index.placeInSecond(6), 0);
}

TEST(SecondIndex, ForgetsTheSecondsOfRowsThatWereCut)
{
    SecondIndex index;
    for (const int time : kTimes)
        index.append(time);
    index.truncate(3);
    EXPECT_EQ(index.rowsOfTime(7), std::make_pair(1, 2));
    EXPECT_EQ(index.rowsOfTime(9), std::make_pair(-1, -1));
    index.append(8);
    EXPECT_EQ(index.rowsOfTime(8), std::make_pair(3, 3));
    index.truncate(0);
    EXPECT_EQ(index.rowsOfTime(5), std::make_pair(-1, -1));
    EXPECT_EQ(index.firstNotBefore(5), 0);
}
