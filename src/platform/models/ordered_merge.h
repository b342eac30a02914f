#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

/// How batches come into logs that are kept in order. A `Log` has `size`, `operator[]`, `append`,
/// `removeLast` and `isBefore(row, row)`. One thread at a time.
namespace Kel {

/// Rows of a log that come after `row`.
template <class Log, class Row>
int rowsAfter(const Log& log, const Row& row)
{
    int first = 0;
    for (int count = log.size(); count > 0;) {
        const int half = count / 2;
        const bool after = Log::isBefore(row, log[first + half]);
        first = after ? first : first + half + 1;
        count = after ? half : count - half - 1;
    }
    return log.size() - first;
}

/// Puts the rows from `begin` to `end`, in order, in their places: rows that come after the first new one are
/// taken off the end and put on again between the new ones. Gives the index of the first row that is not as
/// it was, `size()` for no rows.
template <class Log, class Row>
int placeInOrder(Log& log, const Row* begin, const Row* end)
{
    if (begin == end)
        return log.size();
    const int first = log.size() - rowsAfter(log, *begin);
    std::vector<Row> after;
    after.reserve(static_cast<std::size_t>(log.size() - first));
    for (int at = first; at < log.size(); ++at)
        after.push_back(log[at]);
    while (log.size() > first)
        log.removeLast();
    auto next = after.begin();
    for (const Row* row = begin; row != end; ++row) {
        for (; next != after.end() && !Log::isBefore(*row, *next); ++next)
            log.append(*next);
        log.append(*row);
    }
    for (; next != after.end(); ++next)
        log.append(*next);
    return first;
}

/// Fills an empty log with the rows of another one and those of a batch, both in order.
template <class Log, class Row>
void fillMerged(Log& into, const Log& log, const std::vector<Row>& batch)
{
    int at = 0;
    for (const Row& row : batch) {
        for (; at < log.size() && !Log::isBefore(row, log[at]); ++at)
            into.append(log[at]);
        into.append(row);
    }
    for (; at < log.size(); ++at)
        into.append(log[at]);
}

constexpr int kRowsAtATime = 5000;    ///< put in place before a reader gets the lock, about a millisecond
constexpr int kMostRowsMoved = 40000; ///< likewise with the rows that must make room, some milliseconds

/// How many rows of a batch are put in place at a time while readers wait, when so many rows of the log come
/// after the first of them and are moved each time. 0: so many that a new log is made beside the old one.
inline std::size_t rowsAtATime(int rowsAfter, std::size_t batch)
{
    if (rowsAfter <= kRowsAtATime)
        return kRowsAtATime;
    if (static_cast<std::size_t>(rowsAfter) + batch <= kMostRowsMoved)
        return batch;
    return rowsAfter <= kMostRowsMoved * 3 / 4 ? static_cast<std::size_t>(kMostRowsMoved - rowsAfter) : 0;
}

/// Whether a log in order holds a row that is neither before nor after `row` and that `isRepeat` takes for
/// the same; only the first such row is looked at.
template <class Log, class Row, class Repeat>
bool holdsRepeat(const Log& log, const Row& row, Repeat isRepeat)
{
    if (log.size() == 0 || Log::isBefore(log[log.size() - 1], row))
        return false;
    int first = 0;
    for (int count = log.size(); count > 0;) {
        const int half = count / 2;
        const bool before = Log::isBefore(log[first + half], row);
        first = before ? first + half + 1 : first;
        count = before ? count - half - 1 : half;
    }
    return first < log.size() && isRepeat(log[first], row);
}

/// Puts a batch in order; rows that are neither before nor after each other stay as they came.
template <class Log, class Row>
void sortBatch(std::vector<Row>& batch)
{
    if (!std::is_sorted(batch.begin(), batch.end(), Log::isBefore))
        std::stable_sort(batch.begin(), batch.end(), Log::isBefore);
}

} // namespace Kel
