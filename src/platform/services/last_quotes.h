#pragma once

#include "records/QuoterAllData.h"

#include <string>

/// The last full quote of each instrument, as the feeds delivered it. Any thread. A quote is not changed
/// after it was set; a newer one replaces it.
namespace Kel {

/// Null if there is none.
quoter::QuoterAllDataPtr getLastQuoterAllDataPtr(const std::string& market, const std::string& code);

/// Null forgets the instrument's quote.
void setLastQuoterAllData(const std::string& market, const std::string& code,
                          const quoter::QuoterAllDataPtr& quote);

void clearLastQuoterAllData();

} // namespace Kel
