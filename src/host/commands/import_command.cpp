#include "host/commands/commands.h"

#include "feed/archive/DayArchiveWriter.h"
#include "feed/import/importDay.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>

namespace host {
namespace {

nlohmann::json dayJson(const feed::InstrumentDay& day)
{
    return {{"instrument", day.detail.market + day.detail.code},
            {"name", day.detail.name},
            {"day", day.tradingDay},
            {"orders", day.orders.size()},
            {"deals", day.deals.size()},
            {"snapshots", day.snapshots.size()},
            {"queues", day.queues.size()}};
}

nlohmann::json reportJson(const feed::ImportReport& report, std::size_t mostListed)
{
    nlohmann::json json;
    json["files"] = nlohmann::json::array();
    for (const feed::FileReport& file : report.files) {
        json["files"].push_back({{"file", file.file},
                                 {"kind", file.kind},
                                 {"lines", file.lines},
                                 {"taken", file.taken},
                                 {"skipped", file.skipped},
                                 {"rejected", file.rejected},
                                 {"truncated", file.truncated}});
    }
    json["ignoredFiles"] = report.ignoredFiles;
    json["restoredOrders"] = report.restoredOrders;
    json["madeOrders"] = report.madeOrders;
    json["unknownOrders"] = report.unknownOrders;
    json["rejected"] = report.rejects.count();
    json["rejectedByReason"] = report.rejects.countByReason();
    json["rejects"] = nlohmann::json::array();
    const auto& listed = report.rejects.listed();
    for (std::size_t i = 0; i < std::min(listed.size(), mostListed); ++i)
        json["rejects"].push_back(
            {{"file", listed[i].file}, {"line", listed[i].line}, {"reason", listed[i].reason}});
    return json;
}

void printReport(const feed::ImportReport& report, std::size_t mostListed, std::ostream& out)
{
    for (const feed::FileReport& file : report.files) {
        out << file.file << " (" << file.kind << "): " << file.lines << " lines, " << file.taken << " taken";
        if (file.skipped > 0)
            out << ", " << file.skipped << " skipped";
        if (file.rejected > 0)
            out << ", " << file.rejected << " rejected";
        out << (file.truncated ? ", cut at its end" : "") << '\n';
    }
    for (const std::string& file : report.ignoredFiles)
        out << file << ": not of this layout, ignored\n";
    if (report.restoredOrders > 0)
        out << report.restoredOrders << " orders got back the volume that was dealt before their record\n";
    if (report.madeOrders > 0)
        out << report.madeOrders << " orders that were filled whole on entry are made from their deals\n";
    if (report.unknownOrders > 0)
        out << report.unknownOrders << " order numbers in deals and cancels that no record introduces\n";
    if (report.rejects.count() == 0)
        return;
    out << report.rejects.count() << " lines rejected:\n";
    for (const auto& [reason, count] : report.rejects.countByReason())
        out << "  " << count << " x " << reason << '\n';
    const auto& listed = report.rejects.listed();
    const std::size_t printed = std::min(listed.size(), mostListed);
    for (std::size_t i = 0; i < printed; ++i)
        out << "  " << listed[i].file << ':' << listed[i].line << ": " << listed[i].reason << '\n';
    if (static_cast<std::int64_t>(printed) < report.rejects.count())
        out << "  ...\n";
}

} // namespace

int runImport(const ImportCommandOptions& options, std::ostream& out, std::ostream& err)
{
    const auto mostListed = static_cast<std::size_t>(std::max(options.mostListed, 0));
    feed::ImportResult result;
    {
        ProgressBar bar("importing");
        feed::ImportOptions importing;
        importing.layout = options.source.layout;
        importing.tradingDay = options.source.date;
        if (!options.source.instrument.empty())
            importing.codes = {options.source.instrument};
        importing.mostRejected = options.source.mostRejected;
        importing.progress = bar.callback();
        result = feed::importDay(options.source.path, importing);
    }
    feed::Error failure = result.error;
    if (!failure) {
        if (result.days.empty())
            failure.reason = options.source.path + ": no instrument in it";
        feed::DayArchiveWriter::Options writing;
        writing.compress = options.compress;
        feed::DayArchiveWriter writer(options.folder, writing);
        for (const feed::InstrumentDay& day : result.days) {
            if (!writer.write(day))
                break;
        }
        if (!result.days.empty() && !writer.finish())
            failure = writer.error();
    }

    if (options.json) {
        nlohmann::json document = reportJson(result.report, mostListed);
        document["error"] = failure.text();
        document["folder"] = options.folder;
        document["days"] = nlohmann::json::array();
        for (const feed::InstrumentDay& day : result.days)
            document["days"].push_back(dayJson(day));
        out << document.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    } else {
        printReport(result.report, mostListed, out);
    }
    if (failure)
        return fail(err, failure.text());
    if (!options.json) {
        for (const feed::InstrumentDay& day : result.days) {
            out << day.detail.market << day.detail.code << (day.detail.name.empty() ? "" : " ")
                << day.detail.name << ", day " << day.tradingDay << ": " << day.orders.size() << " orders, "
                << day.deals.size() << " deals and cancels, " << day.snapshots.size() << " snapshots, "
                << day.queues.size() << " queues written to " << options.folder << '\n';
        }
    }
    return kExitDone;
}

} // namespace host
