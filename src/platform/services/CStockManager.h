#pragma once

#include "records/CInstrumentDetail.h"
#include "records/DepthExport.h"

#include <QString>

#include <map>
#include <shared_mutex>
#include <string>
#include <vector>

namespace Kel {

/// Market code of indices that users put together themselves.
constexpr const char* kCustomIndexMarket = "CI";

/// The instruments that the client knows, by key: market code and instrument code joined, such as "SH600519".
/// Used as `utils::CSingletonT<Kel::CStockManager>::instance()`. Any thread may call anything; details are
/// shared and must not be changed after they were added.
class DEPTH_EXPORT CStockManager
{
public:
    /// The detail of a key, or of a bare instrument code if exactly one market has it; else null.
    nelservice::CInstrumentDetailPtr getInstrumentDetail(const QString& code) const;

    /// Adds an instrument, or replaces the one of the same key. A null detail and one without a code are
    /// ignored.
    void addInstrument(const nelservice::CInstrumentDetailPtr& detail);

    /// Forgets the instrument with this key and its closes; an unknown key is ignored.
    void removeInstrument(const QString& key);

    /// Forgets all instruments and closes.
    void clear();

    /// All instruments in order of their keys.
    std::vector<nelservice::CInstrumentDetailPtr> instruments() const;

    /// Enters the previous close (yuan) that holds on a trading day (20230201). Not finite: ignored.
    void setLastClose(const QString& key, int date, double price);

    /// The previous close (yuan) that holds on the trading day, as entered, else the detail's; 0 for a null
    /// detail.
    double getCurrentDateLastClose(const nelservice::CInstrumentDetailPtr& detail, int date) const;

    /// True for the key of a known index that a user put together.
    bool isCustomIndex(const QString& key) const;

private:
    nelservice::CInstrumentDetailPtr find(const std::string& code) const;

    mutable std::shared_mutex m_mutex; ///< guards all below
    std::map<std::string, nelservice::CInstrumentDetailPtr> m_byKey;
    std::multimap<std::string, nelservice::CInstrumentDetailPtr> m_byCode;
    std::map<std::string, std::map<int, double>> m_lastCloses; ///< by key and date
};

} // namespace Kel
