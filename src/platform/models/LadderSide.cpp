#include "platform/models/LadderSide.h"

#include "platform/models/tick_values.h"
#include "records/Tolerance.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <iterator>

namespace Kel {

void LadderSide::clear()
{
    m_rows.clear();
    m_next.clear();
    m_unseen.clear();
}

/// `reported`: lots in the report before, kNever for a level that was in none.
LadderSide::Row LadderSide::makeRow(const BookLevel& level, std::int32_t reported, int unit)
{
    const auto data = boost::make_shared<EntrustData>();
    data->price = level.price;
    data->volume = lotsFromShares(level.volume, unit);
    data->change = clampToInt(std::int64_t(data->volume) - (reported == kNever ? 0 : reported));
    data->orderCount = level.orderCount;
    return {level.key, data->volume, reported, level.price, data->volume * level.price, data};
}

/// The row of a level that is not shown yet. One that was reported before tells what changed since.
LadderSide::Row LadderSide::newRow(const BookLevel& level, int unit)
{
    const auto reported = m_unseen.find(level.key);
    if (reported == m_unseen.end())
        return makeRow(level, kNever, unit);
    Row row = makeRow(level, reported->second, unit);
    m_unseen.erase(reported);
    return row;
}

/// False if the row's data is what the level says.
bool LadderSide::renew(Row& row, const BookLevel& level, int unit)
{
    if (row.lots == lotsFromShares(level.volume, unit) && row.data->orderCount == level.orderCount &&
        isEqual(row.price, level.price))
        return false;
    row = makeRow(level, row.reported, unit);
    return true;
}

/// The row is shown no longer, though its level stands.
void LadderSide::drop(const Row& row)
{
    if (row.reported != kNever)
        m_unseen[row.key] = row.reported;
}

/// What is shown now is what the next report counts from.
void LadderSide::settle()
{
    for (Row& row : m_rows)
        row.reported = row.lots;
}

LadderSide::News LadderSide::cover(const std::vector<BookLevel>& levels, std::size_t most, int unit)
{
    const std::size_t count = std::min(levels.size(), most);
    News news;
    news.size = count != m_rows.size();
    news.rows = count > 0 || !m_rows.empty();
    clear();
    m_rows.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        m_rows.push_back(makeRow(levels[i], lotsFromShares(levels[i].volume, unit), unit));
    settle();
    return news;
}

LadderSide::News LadderSide::replace(const std::vector<BookLevel>& levels, std::size_t most, int unit)
{
    const std::size_t count = std::min(levels.size(), most);
    News news;
    news.size = count != m_rows.size();
    m_next.clear();
    std::size_t at = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const BookLevel& level = levels[i];
        for (; at < m_rows.size() && isBetter(m_rows[at].key, level.key); ++at)
            news.rows = true;
        if (at < m_rows.size() && m_rows[at].key == level.key) {
            news.rows |= renew(m_rows[at], level, unit);
            m_next.push_back(std::move(m_rows[at++]));
        } else {
            news.rows = true;
            m_next.push_back(newRow(level, unit));
        }
    }
    for (; at < m_rows.size(); ++at) {
        news.rows = true;
        drop(m_rows[at]);
    }
    m_rows.swap(m_next);
    m_next.clear();
    forgetAllBut(levels);
    settle();
    return news;
}

LadderSide::News LadderSide::update(const OrderBook& book, const std::vector<int>& keys, std::size_t most,
                                    int unit)
{
    News news;
    const std::size_t before = m_rows.size();
    const bool mayHideSome = before >= most;
    const int worst = m_rows.empty() ? 0 : m_rows.back().key;

    m_next.clear();
    std::size_t at = 0;
    const auto merge = [&](int key) {
        for (; at < m_rows.size() && isBetter(m_rows[at].key, key); ++at)
            m_next.push_back(std::move(m_rows[at]));
        const std::optional<BookLevel> level = book.level(m_side, key);
        if (at < m_rows.size() && m_rows[at].key == key) {
            if (level) {
                news.rows |= renew(m_rows[at], *level, unit);
                m_next.push_back(std::move(m_rows[at]));
            } else {
                news.rows = true;
            }
            ++at;
        } else if (level && !(mayHideSome && isBetter(worst, key))) {
            news.rows = true;
            m_next.push_back(newRow(*level, unit));
        }
    };
    if (m_side == OQT_BUY)
        std::for_each(keys.rbegin(), keys.rend(), merge);
    else
        std::for_each(keys.begin(), keys.end(), merge);
    std::move(m_rows.begin() + static_cast<std::ptrdiff_t>(at), m_rows.end(), std::back_inserter(m_next));
    m_rows.swap(m_next);
    m_next.clear();

    while (m_rows.size() > most) {
        drop(m_rows.back());
        m_rows.pop_back();
    }
    if (mayHideSome && m_rows.size() < most) {
        // With no row left the levels behind the one that was the worst are all there is.
        const int last = m_rows.empty() ? worst : m_rows.back().key;
        for (const BookLevel& level : book.behind(m_side, last, most - m_rows.size())) {
            news.rows = true;
            m_rows.push_back(newRow(level, unit));
        }
    }
    forget(book, keys);
    settle();
    news.size = m_rows.size() != before;
    return news;
}

/// What was reported of levels that are gone counts no more.
void LadderSide::forget(const OrderBook& book, const std::vector<int>& keys)
{
    if (m_unseen.empty())
        return;
    for (const int key : keys) {
        if (!book.level(m_side, key))
            m_unseen.erase(key);
    }
}

void LadderSide::forgetAllBut(const std::vector<BookLevel>& levels)
{
    absl::erase_if(m_unseen, [&](const auto& unseen) {
        const auto at =
            std::lower_bound(levels.begin(), levels.end(), unseen.first,
                             [this](const BookLevel& level, int key) { return isBetter(level.key, key); });
        return at == levels.end() || at->key != unseen.first;
    });
}

void LadderSide::handOut(Rows& rows) const
{
    const std::size_t count = m_rows.size();
    rows.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        boost::shared_ptr<EntrustData>& row = rows[m_side == OQT_BUY ? count - 1 - i : i];
        if (row != m_rows[i].data)
            row = m_rows[i].data;
    }
}

void LadderSide::addBounds(double& minPrice, double& maxPrice, double& maxAmount) const
{
    for (const Row& row : m_rows)
        maxAmount = std::max(maxAmount, row.amount);
    if (m_rows.empty())
        return;
    minPrice = std::min({minPrice, m_rows.front().price, m_rows.back().price});
    maxPrice = std::max({maxPrice, m_rows.front().price, m_rows.back().price});
}

} // namespace Kel
