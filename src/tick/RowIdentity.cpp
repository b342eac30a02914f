#include "tick/RowIdentity.h"

#include <algorithm>
#include <tuple>

namespace Kel {

namespace {

/// The first row of which `isBefore` does not hold; it holds of rows up to one, and of none behind it.
int firstRow(int count, const std::function<bool(int)>& isBefore)
{
    int first = 0;
    while (count > 0) {
        const int half = count / 2;
        const bool before = isBefore(first + half);
        first = before ? first + half + 1 : first;
        count = before ? count - half - 1 : half;
    }
    return first;
}

} // namespace

bool isSameRow(const RowIdentity& left, const RowIdentity& right)
{
    const auto all = [](const RowIdentity& row) {
        return std::tie(row.time, row.number, row.seller, row.volume, row.price);
    };
    return left.isThere && right.isThere && all(left) == all(right);
}

int rowOf(const RowIdentity& wanted, int expected, int count,
          const std::function<RowIdentity(int)>& identityOf)
{
    if (!wanted.isThere)
        return -1;
    const auto isIt = [&](int row) { return isSameRow(identityOf(row), wanted); };
    if (expected >= 0 && expected < count && isIt(expected))
        return expected;
    // A row that is gone by now counts as behind all others.
    const int first = firstRow(count, [&](int row) {
        const RowIdentity found = identityOf(row);
        return found.isThere && found.time < wanted.time;
    });
    const int end = first + firstRow(count - first, [&](int row) {
                        const RowIdentity found = identityOf(first + row);
                        return found.isThere && found.time == wanted.time;
                    });
    if (first == end)
        return -1;
    const int middle = std::clamp(expected, first, end - 1);
    for (int away = 0; middle - away >= first || middle + away < end; ++away) {
        if (middle - away >= first && isIt(middle - away))
            return middle - away;
        if (middle + away < end && isIt(middle + away))
            return middle + away;
    }
    return -1;
}

} // namespace Kel
