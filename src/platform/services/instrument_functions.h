#pragma once

#include "records/CInstrumentDetail.h"
#include "records/DepthExport.h"

#include <QString>

/// Questions to an instrument's reference record. Any thread; a null detail is allowed.
namespace Kel {

/// Market code and instrument code joined, "SH600519": the key that the stock manager knows the instrument by
/// and that feed calls are addressed with. Empty for null.
DEPTH_EXPORT QString getDetailQsKey(const nelservice::CInstrumentDetailPtr& detail);

/// Smallest price step, yuan: always positive and finite, 0.01 where the record gives none.
DEPTH_EXPORT double getDetailPriceTick(const nelservice::CInstrumentDetailPtr& detail);

/// Previous close, yuan; 0 for null.
DEPTH_EXPORT double getDetailLastClose(const nelservice::CInstrumentDetailPtr& detail);

/// Market code; empty for null.
DEPTH_EXPORT std::string getDetailMarket(const nelservice::CInstrumentDetailPtr& detail);

} // namespace Kel
