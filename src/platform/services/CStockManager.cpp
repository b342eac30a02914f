#include "platform/services/CStockManager.h"

#include "platform/services/instrument_functions.h"

#include <cmath>
#include <mutex>

namespace Kel {

namespace {

using ReadLock = std::shared_lock<std::shared_mutex>;
using WriteLock = std::unique_lock<std::shared_mutex>;
using CodeMap = std::multimap<std::string, nelservice::CInstrumentDetailPtr>;

void eraseFrom(CodeMap& byCode, const nelservice::CInstrumentDetailPtr& detail)
{
    const auto range = byCode.equal_range(detail->code);
    for (auto it = range.first; it != range.second; ++it) {
        if (it->second == detail) {
            byCode.erase(it);
            return;
        }
    }
}

} // namespace

nelservice::CInstrumentDetailPtr CStockManager::find(const std::string& code) const
{
    const auto byKey = m_byKey.find(code);
    if (byKey != m_byKey.end())
        return byKey->second;
    const auto range = m_byCode.equal_range(code);
    if (range.first == range.second || std::next(range.first) != range.second)
        return nullptr;
    return range.first->second;
}

nelservice::CInstrumentDetailPtr CStockManager::getInstrumentDetail(const QString& code) const
{
    const std::string wanted = code.toStdString();
    ReadLock lock(m_mutex);
    return find(wanted);
}

void CStockManager::addInstrument(const nelservice::CInstrumentDetailPtr& detail)
{
    if (!detail || detail->code.empty())
        return;
    WriteLock lock(m_mutex);
    nelservice::CInstrumentDetailPtr& entry = m_byKey[detail->market + detail->code];
    if (entry)
        eraseFrom(m_byCode, entry);
    entry = detail;
    m_byCode.emplace(detail->code, detail);
}

void CStockManager::removeInstrument(const QString& key)
{
    const std::string wanted = key.toStdString();
    WriteLock lock(m_mutex);
    const auto entry = m_byKey.find(wanted);
    if (entry == m_byKey.end())
        return;
    eraseFrom(m_byCode, entry->second);
    m_byKey.erase(entry);
    m_lastCloses.erase(wanted);
}

void CStockManager::clear()
{
    WriteLock lock(m_mutex);
    m_byKey.clear();
    m_byCode.clear();
    m_lastCloses.clear();
}

std::vector<nelservice::CInstrumentDetailPtr> CStockManager::instruments() const
{
    ReadLock lock(m_mutex);
    std::vector<nelservice::CInstrumentDetailPtr> all;
    all.reserve(m_byKey.size());
    for (const auto& entry : m_byKey)
        all.push_back(entry.second);
    return all;
}

void CStockManager::setLastClose(const QString& key, int date, double price)
{
    if (!std::isfinite(price))
        return;
    WriteLock lock(m_mutex);
    m_lastCloses[key.toStdString()][date] = price;
}

double CStockManager::getCurrentDateLastClose(const nelservice::CInstrumentDetailPtr& detail, int date) const
{
    if (!detail)
        return 0;
    ReadLock lock(m_mutex);
    const auto closes = m_lastCloses.find(detail->market + detail->code);
    if (closes != m_lastCloses.end()) {
        const auto close = closes->second.find(date);
        if (close != closes->second.end())
            return close->second;
    }
    return getDetailLastClose(detail);
}

bool CStockManager::isCustomIndex(const QString& key) const
{
    ReadLock lock(m_mutex);
    const auto entry = m_byKey.find(key.toStdString());
    return entry != m_byKey.end() && entry->second->market == kCustomIndexMarket;
}

} // namespace Kel
