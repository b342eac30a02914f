#pragma once

#include <algorithm>
#include <iterator>
#include <vector>

namespace Kel {

/// Puts the rows of `batch`, in order, in their places of a log that is kept in order: rows that come after
/// the first new one are taken off the end and put on again between the new ones. `Log` has `size`,
/// `operator[]`, `append` and `removeLast`. Gives the index of the first row that is not as it was.
template <class Log, class Row, class Before>
int mergeInOrder(Log& log, std::vector<Row>& batch, Before isBefore)
{
    if (batch.empty())
        return log.size();
    int first = log.size();
    while (first > 0 && isBefore(batch.front(), log[first - 1]))
        --first;
    if (first < log.size()) {
        std::vector<Row> after;
        after.reserve(static_cast<std::size_t>(log.size() - first));
        for (int at = first; at < log.size(); ++at)
            after.push_back(log[at]);
        while (log.size() > first)
            log.removeLast();
        std::vector<Row> merged;
        merged.reserve(after.size() + batch.size());
        std::merge(after.begin(), after.end(), batch.begin(), batch.end(), std::back_inserter(merged),
                   isBefore);
        batch.swap(merged);
    }
    for (const Row& row : batch)
        log.append(row);
    batch.clear();
    return first;
}

/// Whether a log in order holds a row that is neither before nor after `row` and that `isRepeat` takes for
/// the same; only the first such row is looked at.
template <class Log, class Row, class Before, class Repeat>
bool holdsRepeat(const Log& log, const Row& row, Before isBefore, Repeat isRepeat)
{
    if (log.size() == 0 || isBefore(log[log.size() - 1], row))
        return false;
    int first = 0;
    for (int count = log.size(); count > 0;) {
        const int half = count / 2;
        const bool before = isBefore(log[first + half], row);
        first = before ? first + half + 1 : first;
        count = before ? count - half - 1 : half;
    }
    return first < log.size() && isRepeat(log[first], row);
}

} // namespace Kel
