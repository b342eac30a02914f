#include "feed/import/importDay.h"

#include "feed/csv/values.h"
#include "feed/import/DayImport.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace feed {

namespace fs = std::filesystem;

namespace {

bool endsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

bool isTableName(const std::string& name)
{
    return endsWith(name, ".csv") || endsWith(name, ".csv.zst");
}

/// A folder of one instrument, like 000001.SZ.
bool isInstrumentFolder(const std::string& name)
{
    const std::size_t dot = name.find('.');
    return dot != std::string::npos && dot > 0 &&
           std::all_of(name.begin(), name.begin() + static_cast<std::ptrdiff_t>(dot),
                       [](char c) { return c >= '0' && c <= '9'; });
}

/// The tables in a folder and in its folders of instruments, by name.
std::vector<std::string> tablesIn(const std::string& folder, bool withInstruments)
{
    std::vector<std::string> tables;
    std::error_code code;
    for (fs::directory_iterator entry(folder, code), end; !code && entry != end; entry.increment(code)) {
        const std::string name = entry->path().filename().string();
        std::error_code ignored;
        if (entry->is_directory(ignored)) {
            if (!withInstruments || !isInstrumentFolder(name))
                continue;
            const std::vector<std::string> inner = tablesIn(entry->path().string(), false);
            tables.insert(tables.end(), inner.begin(), inner.end());
        } else if (isTableName(name)) {
            tables.push_back(entry->path().string());
        }
    }
    std::sort(tables.begin(), tables.end());
    return tables;
}

Error faultOf(const ImportOptions& options)
{
    const std::vector<ImportLayout>& layouts = importLayouts();
    const bool known = options.layout == "auto" ||
                       std::any_of(layouts.begin(), layouts.end(),
                                   [&](const ImportLayout& layout) { return options.layout == layout.name; });
    if (!known)
        return {"", 0, "unknown layout: " + options.layout};
    if (options.tradingDay != 0 && !isDate(options.tradingDay))
        return {"", 0, "no trading day: " + std::to_string(options.tradingDay)};
    return {};
}

} // namespace

const std::vector<ImportLayout>& importLayouts()
{
    static const std::vector<ImportLayout> layouts = {
        {"sh-split",
         "Shanghai orders, deals and snapshots by BizIndex (OrderTime, Balance / TradTime / UpdateTime)"},
        {"sh-split-2", "Shanghai orders and deals by ApplSeqNum (MDDate, MDTime, OrderBSFlag / TradeBSFlag)"},
        {"sh-merged",
         "Shanghai ticks of orders and deals in one table (BizIndex, TickTime, Type, TickBSFlag)"},
        {"sz-split", "Shenzhen orders and deals by ApplSeqNum (OrdType / ExecType)"},
        {"sz-snapshots", "Shenzhen ten-level snapshots (MDDate, MDTime, BuyPrice1, SellPrice1)"},
        {"level-queues",
         "ten-level snapshots with published first-50 queues (DateTime, BidOrders0, OfferOrders0)"},
        {"gbk-folder", "folders by instrument with Chinese tables, prices times 10000"},
    };
    return layouts;
}

ImportResult importDay(const std::string& path, const ImportOptions& options)
{
    DayImport import(options);
    if (const Error error = faultOf(options)) {
        import.fail(error);
        return import.finish(path);
    }
    // A relative path may leave out the folder that names the day.
    std::error_code code;
    const fs::path absolute = fs::absolute(path, code);
    const std::string whole = code ? path : absolute.lexically_normal().string();
    std::vector<std::string> tables = {path};
    const bool folder = fs::is_directory(path, code);
    if (folder) {
        tables = tablesIn(path, true);
        if (tables.empty()) {
            import.fail({path, 0, "has no .csv or .csv.zst files"});
            return import.finish(whole);
        }
    }
    std::int64_t bytes = 0;
    for (const std::string& table : tables) {
        const std::uintmax_t size = fs::file_size(table, code);
        bytes += code ? 0 : static_cast<std::int64_t>(size);
    }
    import.setBytesTotal(bytes);
    for (const std::string& table : tables) {
        Error error;
        std::unique_ptr<ByteSource> source = openFile(table, error);
        if (source == nullptr) {
            import.fail(error);
            break;
        }
        if (!import.readTable(std::move(source), table, !folder))
            break;
    }
    return import.finish(whole);
}

ImportResult importTexts(const std::vector<ImportText>& tables, const ImportOptions& options)
{
    DayImport import(options);
    std::string pathForDay;
    if (const Error error = faultOf(options)) {
        import.fail(error);
        return import.finish(pathForDay);
    }
    std::int64_t bytes = 0;
    for (const ImportText& table : tables)
        bytes += static_cast<std::int64_t>(table.bytes.size());
    import.setBytesTotal(bytes);
    for (const ImportText& table : tables) {
        if (dayInPath(table.name) != 0)
            pathForDay = table.name;
        if (!import.readTable(openMemory(table.bytes), table.name, tables.size() == 1))
            break;
    }
    return import.finish(pathForDay);
}

} // namespace feed
