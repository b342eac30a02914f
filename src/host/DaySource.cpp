#include "host/DaySource.h"

#include "feed/archive/DayArchiveReader.h"
#include "feed/csv/values.h"
#include "feed/import/importDay.h"
#include "feed/simulation/SimulatedExchange.h"
#include "feed/simulation/instrument_kinds.h"
#include "host/terminal.h"
#include "platform/utils/exchange_time.h"

#include <QStringList>

#include <algorithm>
#include <filesystem>

namespace host {
namespace {

constexpr std::int64_t kMostOrdersWithLadders = 50000; // the ladders of a busier day fill gigabytes

/// The kinds of the mainland's stock exchanges, and behind them one of each other market.
const std::vector<feed::InstrumentKind>& kinds()
{
    static const std::vector<feed::InstrumentKind> all = [] {
        std::vector<feed::InstrumentKind> list = {
            {"stock", feed::shanghaiStock},     {"shenzhen", feed::shenzhenStock},
            {"growth", feed::growthBoardStock}, {"fund", feed::fund},
            {"bond", feed::convertibleBond},    {"repurchase", feed::repurchase},
        };
        list.insert(list.end(), feed::instrumentKinds().begin(), feed::instrumentKinds().end());
        return list;
    }();
    return all;
}

bool isAskedFor(const nelservice::CInstrumentDetail& detail, const std::string& instrument)
{
    return instrument == detail.code || instrument == detail.market + detail.code;
}

/// The one that is asked for, or the only one; -1 with an error if that is not one.
template <class Items, class Detail>
int choose(const Items& items, Detail detailOf, const std::string& instrument, std::string& error)
{
    std::string names;
    int found = -1;
    int matches = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const nelservice::CInstrumentDetail& detail = detailOf(items[i]);
        names += (names.empty() ? "" : ", ") + detail.market + detail.code;
        if (instrument.empty() || isAskedFor(detail, instrument)) {
            found = static_cast<int>(i);
            ++matches;
        }
    }
    if (matches == 1)
        return found;
    if (items.empty())
        error = "no instrument in it";
    else if (matches == 0)
        error = "no instrument " + instrument + "; there are: " + names;
    else
        error = "several instruments, choose one with --instrument: " + names;
    return -1;
}

bool loadArchive(const DaySource& source, feed::InstrumentDay& day, std::string& error)
{
    std::error_code ignored;
    if (!std::filesystem::is_directory(source.archive, ignored)) {
        error = source.archive + ": no such folder";
        return false;
    }
    ProgressBar bar("reading");
    feed::DayArchiveReader::Options options;
    options.mostRejected = source.mostRejected;
    options.progress = bar.callback();
    options.ladders = source.ladders ? feed::DayArchiveReader::Ladders::WithoutOrders
                                     : feed::DayArchiveReader::Ladders::Never;
    feed::DayArchiveReader reader(source.archive, options);
    if (reader.error()) {
        error = reader.error().text();
        return false;
    }
    const auto& instruments = reader.instruments();
    const int chosen = choose(
        instruments, [](const auto& one) -> const auto& { return one.detail; }, source.instrument, error);
    if (chosen < 0) {
        error = source.archive + ": " + error;
        return false;
    }
    feed::Error failure;
    if (!reader.load(instruments[static_cast<std::size_t>(chosen)].key(), day, failure)) {
        error = failure.text();
        return false;
    }
    return true;
}

bool importOne(const DaySource& source, feed::InstrumentDay& day, std::string& error)
{
    ProgressBar bar("importing");
    feed::ImportOptions options;
    options.layout = source.layout;
    options.tradingDay = source.date;
    options.mostRejected = source.mostRejected;
    options.progress = bar.callback();
    feed::ImportResult result = feed::importDay(source.path, options);
    if (result.error) {
        error = result.error.text();
        return false;
    }
    const int chosen = choose(
        result.days, [](const auto& one) -> const auto& { return one.detail; }, source.instrument, error);
    if (chosen < 0) {
        error = source.path + ": " + error;
        return false;
    }
    day = std::move(result.days[static_cast<std::size_t>(chosen)]);
    return true;
}

} // namespace

const std::vector<std::string>& simulatedKinds()
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> list;
        for (const feed::InstrumentKind& kind : kinds())
            list.emplace_back(kind.name);
        return list;
    }();
    return names;
}

bool simulationSettings(const DaySource& source, feed::SimulationSettings& settings, std::string& error)
{
    const std::string name = source.instrument.empty() ? kinds().front().name : source.instrument;
    const auto kind =
        std::find_if(kinds().begin(), kinds().end(), [&](const auto& one) { return name == one.name; });
    if (kind == kinds().end()) {
        error = "no kind of simulated instrument is called " + name + "; there are: ";
        for (const std::string& one : simulatedKinds())
            error += one + (one == simulatedKinds().back() ? "" : ", ");
        return false;
    }
    settings = kind->make(source.seed);
    if (source.orders > 0)
        settings.orders = source.orders;
    if (source.date != 0) {
        if (!feed::isDate(source.date)) {
            error = std::to_string(source.date) + " is no day (yyyymmdd)";
            return false;
        }
        settings.tradingDay = source.date;
    }
    if (source.style == "level") {
        settings = feed::levelStyle(settings);
    } else if (source.style != "tick") {
        error = "the style is tick or level, not " + source.style;
        return false;
    }
    if (source.lose.empty())
        return true;
    if (settings.style != feed::FeedStyle::Tick) {
        error = "a day without orders has no records to lose";
        return false;
    }
    settings.foreignRows = 0;
    return true;
}

bool readLostStretch(const std::string& text, feed::LostStretch& stretch)
{
    struct Unit
    {
        const char* name;
        std::int64_t ms;
    };
    constexpr Unit kUnits[] = {{"ms", 1}, {"s", 1000}, {"m", 60000}};
    const QStringList parts = QString::fromStdString(text).split(QLatin1Char('+'));
    std::int64_t begin = 0;
    if (parts.size() != 2 || !utils::parseTimeOfDay(parts[0], begin))
        return false;
    for (const Unit& unit : kUnits) {
        const QString name = QString::fromLatin1(unit.name);
        bool number = false;
        const int count = parts[1].chopped(std::min(name.size(), parts[1].size())).toInt(&number);
        if (!parts[1].endsWith(name) || !number || count < 1)
            continue;
        stretch = {begin, begin + count * unit.ms};
        return true;
    }
    return false;
}

bool loadDay(const DaySource& source, feed::InstrumentDay& day, std::string& error)
{
    if (!source.archive.empty())
        return loadArchive(source, day, error);
    if (!source.path.empty())
        return importOne(source, day, error);
    feed::SimulationSettings settings;
    if (!simulationSettings(source, settings, error))
        return false;
    feed::SimulatedExchange exchange(settings);
    day = {};
    day.detail = exchange.settings().detail;
    day.tradingDay = exchange.settings().tradingDay;
    day.keepsLadders = source.ladders && settings.style == feed::FeedStyle::Level &&
                       settings.orders <= kMostOrdersWithLadders;
    feed::LosingSink sink(day, exchange.timeAt(0), source.lose);
    exchange.runDay(sink);
    return true;
}

} // namespace host
