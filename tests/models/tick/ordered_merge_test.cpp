// Batches in logs that are kept in order.

#include "platform/models/ordered_merge.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace Kel;

namespace {

struct Row
{
    int key = 0;
    char from = ' ';
};

/// A log that counts what is put into it.
struct PlainLog
{
    static bool isBefore(const Row& left, const Row& right) { return left.key < right.key; }

    int size() const { return static_cast<int>(rows.size()); }
    const Row& operator[](int index) const { return rows[static_cast<std::size_t>(index)]; }
    void append(const Row& row)
    {
        rows.push_back(row);
        ++appended;
    }
    void removeLast() { rows.pop_back(); }

    std::string text() const
    {
        std::string all;
        for (const Row& row : rows)
            all += std::to_string(row.key) + row.from + ' ';
        return all;
    }

    std::vector<Row> rows;
    std::size_t appended = 0;
};

PlainLog logOf(std::initializer_list<int> keys)
{
    PlainLog log;
    for (const int key : keys)
        log.append({key, 'o'});
    return log;
}

/// Puts a batch in place as the models do; the most rows that were put in while a reader would have waited.
std::size_t placeAll(PlainLog& log, const std::vector<Row>& batch)
{
    const std::size_t step = rowsAtATime(rowsAfter(log, batch.front()), batch.size());
    std::size_t most = 0;
    for (std::size_t from = 0; step > 0 && from < batch.size(); from += step) {
        const std::size_t before = log.appended;
        placeInOrder(log, batch.data() + from, batch.data() + std::min(from + step, batch.size()));
        most = std::max(most, log.appended - before);
    }
    return most;
}

std::vector<Row> rowsFrom(int key, int count)
{
    std::vector<Row> rows;
    for (int index = 0; index < count; ++index)
        rows.push_back({key + index, 'n'});
    return rows;
}

} // namespace

TEST(OrderedMerge, RowsAfterCountsWhatAnEqualRowLeavesBehindIt)
{
    const PlainLog log = logOf({1, 3, 3, 5});
    const int expected[] = {4, 3, 3, 1, 1, 0, 0};
    for (int key = 0; key < 7; ++key)
        EXPECT_EQ(rowsAfter(log, Row{key}), expected[key]) << key;
    EXPECT_EQ(rowsAfter(PlainLog(), Row{1}), 0);
}

TEST(OrderedMerge, RowsComeIntoTheirPlacesAndEqualOnesBehindThoseThatAreThere)
{
    PlainLog log = logOf({1, 3, 5, 7});
    const std::vector<Row> batch{{3, 'n'}, {4, 'n'}, {9, 'n'}};
    EXPECT_EQ(placeInOrder(log, batch.data(), batch.data() + batch.size()), 2);
    EXPECT_EQ(log.text(), "1o 3o 3n 4n 5o 7o 9n ");
    EXPECT_EQ(placeInOrder(log, batch.data(), batch.data()), 7);
}

TEST(OrderedMerge, ALogBesideTheOldOneIsTheSame)
{
    const PlainLog log = logOf({1, 3, 5, 7});
    PlainLog next;
    fillMerged(next, log, std::vector<Row>{{0, 'n'}, {3, 'n'}, {4, 'n'}, {9, 'n'}});
    EXPECT_EQ(next.text(), "0n 1o 3o 3n 4n 5o 7o 9n ");
}

TEST(OrderedMerge, HistoryBehindLiveRowsMovesThemNoMoreThanItIsLong)
{
    for (const int live : {0, 100, 5000, 12000}) {
        PlainLog log;
        for (const Row& row : rowsFrom(1000000, live))
            log.append(row);
        log.appended = 0;
        const std::vector<Row> history = rowsFrom(0, 100000);
        std::size_t most = 0;
        for (int from = 0; from < 100000; from += 20000)
            most = std::max(most, placeAll(log, std::vector<Row>(history.begin() + from,
                                                                 history.begin() + from + 20000)));
        EXPECT_EQ(log.size(), 100000 + live);
        EXPECT_LE(log.appended, 2u * 100000) << live;
        EXPECT_LE(most, std::size_t(kMostRowsMoved)) << live << ": a reader waits no longer";
    }
}

TEST(OrderedMerge, BehindVeryManyRowsALogIsMadeBesideTheOldOne)
{
    EXPECT_EQ(rowsAtATime(0, 4000000), std::size_t(kRowsAtATime));
    EXPECT_EQ(rowsAtATime(kRowsAtATime + 1, 10), 10u);
    EXPECT_EQ(rowsAtATime(30000, 20000), 10000u);
    EXPECT_EQ(rowsAtATime(30001, 20000), 0u);
    EXPECT_EQ(rowsAtATime(39990, 10), 10u);
    EXPECT_EQ(rowsAtATime(39991, 10), 0u);
}
