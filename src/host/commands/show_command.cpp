#include "host/commands/commands.h"

#include "host/DayPlayer.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>
#include <ostream>
#include <unistd.h>

namespace host {
namespace {

constexpr int kSettleTicks = 3; // what the feed said last reaches the lists in two refresh ticks
// Behind both auctions' matches, which come a moment after the full minute.
const std::vector<std::string> kUsualTimes = {"09:25:03", "09:30:03", "10:30", "14:00", "15:00:05"};

std::string hashText(const SteppedEngine& engine)
{
    char text[17];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(stateHash(engine)));
    return text;
}

} // namespace

int runShow(const ShowOptions& options, std::ostream& out, std::ostream& err)
{
    feed::InstrumentDay day;
    std::string error;
    if (!loadDay(options.source, day, error))
        return fail(err, error);
    if (options.speed > 0)
        return showRunning(options, day, out, err);

    std::vector<std::int64_t> times;
    for (const std::string& text : options.times.empty() ? kUsualTimes : options.times) {
        const std::optional<std::int64_t> moment = momentOf(day, text);
        if (!moment)
            return failWithoutMoment(err, text);
        times.push_back(*moment);
    }
    std::sort(times.begin(), times.end());

    SteppedEngine engine;
    if (!engine.open(day.detail))
        return failWithoutQueue(err, day);
    const DayTimeline timeline(day);
    DayPlayer::Options playing;
    playing.tickBeforeCancel = options.refreshMs == 0;
    playing.refreshMs = options.refreshMs > 0 ? options.refreshMs : playing.refreshMs;
    DayPlayer player(timeline, engine, playing);
    PageStyle style = options.page;
    style.color = !options.json && useColor(options.color, STDOUT_FILENO);

    nlohmann::json document;
    document["instrument"] = day.detail.market + day.detail.code;
    document["name"] = day.detail.name;
    document["day"] = day.tradingDay;
    document["pages"] = nlohmann::json::array();
    bool first = true;
    for (const std::int64_t time : times) {
        player.playUntil(time);
        player.quiet(kSettleTicks);
        engine.recalculate();
        if (options.json) {
            document["pages"].push_back(pageJson(engine, time, style));
            if (options.hash)
                document["pages"].back()["hash"] = hashText(engine);
            continue;
        }
        if (!first)
            out << '\n';
        first = false;
        for (const QString& line : pageLines(engine, time, style))
            out << line.toStdString() << '\n';
        if (options.hash)
            out << "hash " << hashText(engine) << '\n';
    }
    if (options.json)
        out << document.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    return kExitDone;
}

} // namespace host
