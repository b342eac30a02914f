// Arbitrary bytes as a table of a day archive, plain or compressed; the first byte chooses the table. What is
// read has to give the same text when it is written, read and written again.

#include "feed/archive/DayArchiveReader.h"
#include "feed/archive/archive_tables.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

template <class Row>
std::string textOf(const std::string& header, const std::vector<Row>& rows)
{
    std::string text = header + "\n";
    for (const Row& row : rows)
        appendLine(text, row);
    return text;
}

template <class Row>
void requireRoundTrip(const char* table, const std::string& header,
                      std::vector<Row> feed::InstrumentDay::*rows, const feed::InstrumentDay& day)
{
    const std::string text = textOf(header, day.*rows);
    feed::InstrumentDay again;
    feed::ImportReport report;
    feed::Error error;
    if (!feed::readArchiveTable(table, text, again, report, error) || textOf(header, again.*rows) != text)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr const char* kTables[] = {"instruments", "orders", "deals", "snapshots", "queues", "ladders"};
    if (size == 0)
        return 0;
    const char* const table = kTables[data[0] % std::size(kTables)];
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    feed::InstrumentDay day;
    feed::ImportReport report;
    feed::Error error;
    feed::readArchiveTable(table, bytes, day, report, error);
    requireRoundTrip("orders", feed::kOrdersHeader, &feed::InstrumentDay::orders, day);
    requireRoundTrip("deals", feed::kDealsHeader, &feed::InstrumentDay::deals, day);
    requireRoundTrip("snapshots", feed::snapshotsHeader(), &feed::InstrumentDay::snapshots, day);
    requireRoundTrip("queues", feed::kQueuesHeader, &feed::InstrumentDay::queues, day);
    requireRoundTrip("ladders", feed::kLaddersHeader, &feed::InstrumentDay::ladders, day);
    return 0;
}
