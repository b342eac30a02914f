#include "host/Verification.h"

#include "host/LevelVerifier.h"
#include "host/TickVerifier.h"

namespace host {

Verification verifyDay(const feed::InstrumentDay& day, const VerifyOptions& options)
{
    return day.orders.empty() ? verifyLevelDay(day, options) : TickVerifier(day, options).run();
}

} // namespace host
