// Arbitrary bytes as the tables of one layout (DEPTH_FUZZ_LAYOUT). Tables are separated by a line of five
// '='; the first line of each is its name. Whatever comes out has to be a day that can be played.

#include "feed/import/importDay.h"
#include "feed/replay/ReplaySession.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

class NullSink : public feed::FeedSink
{
public:
    void onOrders(const std::string&, int, int, const Kel::MetaCacheDataWrapperPtr&) override {}
    void onDeals(const std::string&, int, int, const Kel::MetaCacheDataWrapperPtr&) override {}
    void onQuotes(const std::string&, int, int, const quoter::QuoterBatch&) override {}
};

template <class Rows>
void requireIncreasing(const Rows& rows)
{
    for (std::size_t i = 1; i < rows.size(); ++i) {
        if (rows[i - 1].seq >= rows[i].seq)
            std::abort();
    }
}

std::vector<feed::ImportText> tablesOf(std::string_view text)
{
    constexpr std::string_view kSeparator = "=====\n";
    std::vector<feed::ImportText> tables;
    while (!text.empty()) {
        const std::size_t end = text.find(kSeparator);
        const std::string_view part = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + kSeparator.size());
        const std::size_t line = part.find('\n');
        if (line == std::string_view::npos)
            continue;
        tables.push_back({std::string(part.substr(0, line)), std::string(part.substr(line + 1))});
    }
    return tables;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    feed::ImportOptions options;
    options.layout = DEPTH_FUZZ_LAYOUT;
    options.mostRejected = 1;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const feed::ImportResult result = feed::importTexts(tablesOf(text), options);
    for (const feed::FileReport& file : result.report.files) {
        if (file.taken < 0 || file.taken + file.skipped + file.rejected > file.lines)
            std::abort();
    }
    for (const feed::InstrumentDay& day : result.days) {
        requireIncreasing(day.orders);
        requireIncreasing(day.deals);
        NullSink sink;
        feed::ReplaySession session(day, sink);
        session.playAll();
        if (!session.atEnd())
            std::abort();
    }
    return 0;
}
