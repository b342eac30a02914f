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

int failWithoutMoment(std::ostream& err, const std::string& timeOfDay)
{
    return fail(err, "not a time of day: " + timeOfDay + " (10:30 or 09:25:03)");
}

int failWithoutQueue(std::ostream& err, const feed::InstrumentDay& day)
{
    return fail(err, day.detail.market + day.detail.code + " has no order queue");
}

std::optional<std::int64_t> momentOf(const feed::InstrumentDay& day, const std::string& timeOfDay)
{
    std::int64_t ms = 0;
    if (!utils::parseTimeOfDay(QString::fromStdString(timeOfDay), ms))
        return std::nullopt;
    return dayStart(day) + ms;
}

} // namespace host
