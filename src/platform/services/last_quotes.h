#pragma once

#include "records/DepthExport.h"
#include "records/QuoterAllData.h"

#include <string>

/// The last full quote of each instrument, as the feeds delivered it. Any thread. A quote is not changed
/// after it was set; a newer one replaces it.
namespace Kel {

/// Null if there is none.
DEPTH_EXPORT quoter::QuoterAllDataPtr getLastQuoterAllDataPtr(const std::string& market,
                                                              const std::string& code);

/// Null forgets the instrument's quote.
DEPTH_EXPORT void setLastQuoterAllData(const std::string& market, const std::string& code,
                                       const quoter::QuoterAllDataPtr& quote);

DEPTH_EXPORT void clearLastQuoterAllData();

} // namespace Kel
