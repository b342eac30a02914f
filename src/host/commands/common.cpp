#include "host/commands/commands.h"

#include "host/DayTimeline.h"
#include "platform/utils/exchange_time.h"

#include <ostream>

namespace host {

int fail(std::ostream& err, const std::string& reason)
{
    err << "error: " << reason << '\n';
    return kExitError;
}

std::int64_t momentOf(const feed::InstrumentDay& day, const std::string& timeOfDay)
{
    std::int64_t ms = 0;
    if (!utils::parseTimeOfDay(QString::fromStdString(timeOfDay), ms))
        return -1;
    return dayStart(day) + ms;
}

} // namespace host
