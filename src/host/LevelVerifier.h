#pragma once

#include "host/Verification.h"

namespace host {

/// Verifies a day without orders: see `verifyDay`.
Verification verifyLevelDay(const feed::InstrumentDay& day, const VerifyOptions& options);

} // namespace host
