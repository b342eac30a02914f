#include "platform/models/FilteredIndexes.h"

#include <algorithm>
#include <iterator>

namespace Kel {

void FilteredIndexes::offer(bool keep)
{
    if (m_identity && !keep)
        storeAll();
    if (!m_identity && keep)
        m_indexes.append(m_looked);
    ++m_looked;
}

void FilteredIndexes::truncate(int whole)
{
    if (whole >= m_looked)
        return;
    if (!m_identity)
        m_indexes.truncate(rowNotBefore(whole));
    m_looked = whole < 0 ? 0 : whole;
    if (m_looked == 0) {
        m_indexes.truncate(0);
        m_identity = true;
    }
}

void FilteredIndexes::storeAll()
{
    for (int index = 0; index < m_looked; ++index)
        m_indexes.append(index);
    m_identity = false;
}

bool FilteredIndexes::keeps(int index) const
{
    const int row = rowNotBefore(index);
    return row < size() && at(row) == index;
}

bool FilteredIndexes::judgeAgain(const std::vector<std::pair<int, bool>>& verdicts)
{
    const auto isNews = [this](const std::pair<int, bool>& verdict) {
        return verdict.first >= 0 && verdict.first < m_looked && keeps(verdict.first) != verdict.second;
    };
    std::vector<std::pair<int, bool>> news;
    std::copy_if(verdicts.begin(), verdicts.end(), std::back_inserter(news), isNews);
    if (news.empty())
        return false;
    if (m_identity)
        storeAll();
    const int first = rowNotBefore(news.front().first);
    std::vector<std::int32_t> rest;
    rest.reserve(static_cast<std::size_t>(m_indexes.size() - first));
    for (int row = first; row < m_indexes.size(); ++row)
        rest.push_back(m_indexes[row]);
    m_indexes.truncate(first);
    auto next = news.begin();
    for (const std::int32_t index : rest) {
        for (; next != news.end() && next->first < index; ++next)
            m_indexes.append(next->first); // it was not kept, so it is now
        if (next != news.end() && next->first == index)
            ++next; // it was kept, so it is not now
        else
            m_indexes.append(index);
    }
    for (; next != news.end(); ++next)
        m_indexes.append(next->first);
    return true;
}

int FilteredIndexes::rowNotBefore(int index) const
{
    if (m_identity)
        return index < 0 ? 0 : index < m_looked ? index : m_looked;
    return firstNotBefore(m_indexes.size(), index, [this](int row) { return m_indexes[row]; });
}

} // namespace Kel
