// Local information files of any bytes, read in pieces of any size, against a reading of the whole by the
// plain rule: lines, parts between commas, quoted parts joined. A second reading has little memory to fill.

#include "information/LocalFileParser.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace {

struct Table
{
    QStringList headers;
    Kel::LocalRows rows;
};

QString text(const std::string& bytes)
{
    return Kel::localText(bytes.data(), bytes.data() + bytes.size());
}

std::vector<std::string> linesOf(std::string bytes)
{
    if (bytes.compare(0, 3, "\xEF\xBB\xBF") == 0)
        bytes.erase(0, 3);
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = std::min(bytes.find('\n', at), bytes.size());
        std::string line = bytes.substr(at, end - at);
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines.push_back(std::move(line));
        at = end + 1;
    }
    return lines;
}

/// Fields with the index of the last part of each.
std::vector<std::pair<QString, int>> fieldsOf(const std::string& line)
{
    std::vector<std::string> parts(1);
    for (const char c : line) {
        if (c == ',')
            parts.emplace_back();
        else
            parts.back() += c;
    }
    const auto endsWithQuote = [](const std::string& part) { return !part.empty() && part.back() == '"'; };
    std::vector<std::pair<QString, int>> fields;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        std::string field = parts[i];
        if (!field.empty() && field.front() == '"') {
            while (!endsWithQuote(parts[i]) && i + 1 < parts.size())
                field += ',' + parts[++i];
            field.erase(0, 1);
            if (endsWithQuote(parts[i]) && !field.empty())
                field.pop_back();
        }
        fields.emplace_back(text(field), static_cast<int>(i));
    }
    return fields;
}

Table plainReading(const std::string& bytes)
{
    Table table;
    int dateColumn = 0;
    bool isHeader = true;
    for (const std::string& line : linesOf(bytes)) {
        Kel::LocalRow row;
        QString date;
        for (const auto& [field, part] : fieldsOf(line)) {
            row.append(field);
            if (isHeader && field == QStringLiteral("日期"))
                dateColumn = part;
            if (!isHeader && part == dateColumn)
                date = field;
        }
        if (isHeader)
            table.headers = row.toList();
        else
            table.rows[date].append(row);
        isHeader = false;
    }
    return table;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::size_t piece = 1 + data[0] % 16;
    const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto read = [&](Kel::LocalFileParser& parser) {
        for (std::size_t at = 0; at < bytes.size(); at += piece)
            parser.feed(bytes.data() + at, std::min(piece, bytes.size() - at));
        parser.finish();
    };
    Kel::MemoryBudget plenty(Kel::LocalFileParser::kUsualBudget);
    Kel::LocalFileParser parser(plenty);
    read(parser);
    const Table plain = plainReading(bytes);
    if (parser.headers() != plain.headers || parser.rows() != plain.rows)
        std::abort();

    // A small budget ends the table, and is kept.
    const std::size_t budget = std::size_t(data[0]) * 16;
    Kel::MemoryBudget little(budget);
    Kel::LocalFileParser poor(little);
    read(poor);
    if (poor.cost() + little.left() != budget || poor.isFull() != (parser.cost() > budget))
        std::abort();
    if (poor.hasHeader() && poor.headers() != plain.headers)
        std::abort();
    return 0;
}
