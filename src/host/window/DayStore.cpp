#include "host/window/DayStore.h"

#include "feed/archive/DayArchiveReader.h"
#include "feed/import/importDay.h"
#include "feed/simulation/SimulatedExchange.h"
#include "feed/simulation/TradingHours.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace host {

namespace {

constexpr const char* kCancelled = "cancelled";
constexpr std::int64_t kQuickOrders = 50000; // of a simulated day, which takes a second or two
constexpr int kSimulationStep = 60;          // seconds of the day between two calls of the progress
constexpr int kBusySimulationStep = 1;       // the same of a busy day

bool matches(const nelservice::CInstrumentDetail& detail, const std::string& wanted)
{
    return wanted == detail.code || wanted == detail.market + detail.code;
}

} // namespace

DayStore::DayStore(DaySource source) : m_source(std::move(source)) {}

bool DayStore::open(const feed::Progress& progress, std::string& error)
{
    if (!m_source.archive.empty())
        return openArchive(error);
    if (!m_source.path.empty())
        return openImport(progress, error);
    return openSimulated(error);
}

bool DayStore::openSimulated(std::string& error)
{
    for (const std::string& kind : simulatedKinds()) {
        DaySource source = m_source;
        source.instrument = kind;
        feed::SimulationSettings settings;
        if (!simulationSettings(source, settings, error))
            return false;
        if (source.orders > 0)
            settings = feed::busyDay(settings, source.orders);
        m_settings.push_back(feed::usable(settings));
        m_instruments.push_back(m_settings.back().detail);
    }
    return true;
}

bool DayStore::openArchive(std::string& error)
{
    std::error_code ignored;
    if (!std::filesystem::is_directory(m_source.archive, ignored)) {
        error = m_source.archive + ": no such folder";
        return false;
    }
    const feed::DayArchiveReader reader(m_source.archive);
    if (reader.error()) {
        error = reader.error().text();
        return false;
    }
    for (const feed::ArchivedInstrument& instrument : reader.instruments())
        m_instruments.push_back(instrument.detail);
    if (m_instruments.empty())
        error = m_source.archive + ": no instrument in it";
    return !m_instruments.empty();
}

bool DayStore::openImport(const feed::Progress& progress, std::string& error)
{
    feed::ImportOptions options;
    options.layout = m_source.layout;
    options.tradingDay = m_source.date;
    options.mostRejected = m_source.mostRejected;
    options.progress = progress;
    feed::ImportResult result = feed::importDay(m_source.path, options);
    if (result.error) {
        error = result.error.text();
        return false;
    }
    for (feed::InstrumentDay& day : result.days) {
        completeDetail(day);
        m_instruments.push_back(day.detail);
        m_days.push_back(std::make_shared<feed::InstrumentDay>(std::move(day)));
    }
    if (m_instruments.empty())
        error = m_source.path + ": no instrument in it";
    return !m_instruments.empty();
}

int DayStore::wanted(std::string& error) const
{
    if (m_source.instrument.empty() && !m_instruments.empty())
        return 0;
    std::string names;
    for (std::size_t i = 0; i < m_instruments.size(); ++i) {
        const bool kind = i < m_settings.size() && m_source.instrument == simulatedKinds()[i];
        if (kind || matches(m_instruments[i], m_source.instrument))
            return static_cast<int>(i);
        names += (names.empty() ? "" : ", ") + m_instruments[i].market + m_instruments[i].code;
    }
    error = "no instrument " + m_source.instrument + "; there are: " + names;
    return -1;
}

DayPtr DayStore::load(std::size_t index, const feed::Progress& progress, std::string& error)
{
    if (index >= m_instruments.size()) {
        error = "no such instrument";
        return nullptr;
    }
    if (index < m_days.size())
        return m_days[index];
    return m_settings.empty() ? read(index, progress, error) : simulate(index, progress, error);
}

bool DayStore::quick() const
{
    return m_settings.empty() || m_source.orders <= kQuickOrders;
}

DayPtr DayStore::simulate(std::size_t index, const feed::Progress& progress, std::string& error) const
{
    feed::SimulatedExchange exchange(m_settings[index]);
    const auto day = std::make_shared<feed::InstrumentDay>();
    day->detail = exchange.settings().detail;
    day->tradingDay = exchange.settings().tradingDay;
    // Without orders nothing else tells the whole ladder.
    day->keepsLadders = quick() && exchange.settings().style == feed::FeedStyle::Level;
    feed::LosingSink sink(*day, exchange.timeAt(0), m_source.lose);
    constexpr int kSeconds = feed::hours::kClose - feed::hours::kStart;
    const int step = quick() ? kSimulationStep : kBusySimulationStep;
    for (int second = 0; second < kSeconds; second += step) {
        exchange.runUntil(exchange.timeAt(feed::hours::kStart + second), sink);
        if (progress && !progress(second, kSeconds)) {
            error = kCancelled;
            return nullptr;
        }
    }
    exchange.runDay(sink);
    return day;
}

DayPtr DayStore::read(std::size_t index, const feed::Progress& progress, std::string& error) const
{
    feed::DayArchiveReader::Options options;
    options.mostRejected = m_source.mostRejected;
    options.progress = progress;
    feed::DayArchiveReader reader(m_source.archive, options);
    const auto day = std::make_shared<feed::InstrumentDay>();
    const nelservice::CInstrumentDetail& detail = m_instruments[index];
    feed::Error failure = reader.error();
    if (failure || !reader.load(detail.market + detail.code, *day, failure)) {
        error = failure.text();
        return nullptr;
    }
    completeDetail(*day);
    return day;
}

void completeDetail(feed::InstrumentDay& day)
{
    if (day.detail.name.empty())
        day.detail.name = day.detail.code;
    if (day.detail.previousClose > 0)
        return;
    const auto told = std::find_if(day.snapshots.begin(), day.snapshots.end(),
                                   [](const feed::SnapshotRow& row) { return row.previousClose > 0; });
    if (told != day.snapshots.end())
        day.detail.previousClose = told->previousClose;
}

} // namespace host
