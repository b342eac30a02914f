#include "host/commands/commands.h"

#include "feed/replay/ReplaySession.h"
#include "host/DayPlayer.h"
#include "host/PanelModels.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <ostream>
#include <unistd.h>

namespace host {
namespace {

constexpr int kSettleTicks = 3; // what the feed said last reaches the lists in two refresh ticks
// Behind both auctions' matches, which come a moment after the full minute.
const std::vector<std::string> kUsualTimes = {"09:25:03", "09:30:03", "10:30", "14:00", "15:00:05"};

std::string hashText(std::uint64_t hash)
{
    char text[17];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
    return text;
}

/// What the panels show when a replay jumps to a moment, wherever it was before.
class PanelSeek
{
public:
    explicit PanelSeek(const feed::InstrumentDay& day) : m_session(day, m_models, options())
    {
        m_models.open(day.detail);
    }

    std::uint64_t hashAt(std::int64_t time)
    {
        m_models.clear();
        m_session.startAt(time);
        return m_models.look().all();
    }

private:
    static feed::ReplayOptions options()
    {
        feed::ReplayOptions options;
        options.allSnapshots = true; // quote panels and charts look at the ones before
        return options;
    }

    PanelModels m_models;
    feed::ReplaySession m_session;
};

} // namespace

int runShow(const ShowOptions& options, std::ostream& out, std::ostream& err)
{
    feed::InstrumentDay day;
    std::string error;
    DaySource source = options.source;
    source.ladders = options.hash && options.speed <= 0; // the rows of the queue have no use for them
    if (!loadDay(source, day, error))
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

    std::optional<PanelSeek> panels;
    if (options.hash)
        panels.emplace(day);
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
            if (options.hash) {
                document["pages"].back()["hash"] = hashText(stateHash(engine));
                document["pages"].back()["panels"] = hashText(panels->hashAt(time));
            }
            continue;
        }
        if (!first)
            out << '\n';
        first = false;
        for (const QString& line : pageLines(engine, time, style))
            out << line.toStdString() << '\n';
        if (options.hash) {
            out << "hash " << hashText(stateHash(engine)) << '\n';
            out << "panels " << hashText(panels->hashAt(time)) << '\n';
        }
    }
    if (options.json)
        out << document.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    return kExitDone;
}

} // namespace host
